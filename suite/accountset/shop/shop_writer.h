// Turns invoice lines of a shop into bills and master data.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "suite/accountset/accountset.h"
#include "suite/accountset/shop/invoice_line.h"
#include "suite/accountset/sqlite.h"

namespace salerpt::accountset::shop {

// Keys of a map that texts are looked up in without making a string of them.
struct TextHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>{}(text); }
};
// The same without regard to the case of the letters A to Z, as the text columns compare.
struct CaseBlindHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view text) const;
};
struct CaseBlindEqual {
  using is_transparent = void;
  bool operator()(std::string_view a, std::string_view b) const;
};

class ShopWriter {
 public:
  // The database must outlive it.
  explicit ShopWriter(Database& database);

  // Adds the line to its invoice, and to the outbound bill that the invoice settles.
  void Add(const InvoiceLine& line);
  // Writes the master data, which is known only now. Nothing can be added behind it. At least one line must
  // be in.
  void Finish();

  // How many lines, bills, items and customers there are.
  [[nodiscard]] const ImportReport& Report() const { return report_; }

 private:
  struct Class {
    int id;
    std::string number;
    std::string name;
  };
  struct Leaf {
    int id;
    int parent;
    std::string number;  // with its class in front
    std::string code;    // as the shop writes it
    std::string name;
    int region = 0;
  };
  struct Bill {
    int id;
    int lines;
  };
  template <typename Value>
  using TextMap = std::unordered_map<std::string, Value, TextHash, std::equal_to<>>;
  template <typename Value>
  using CaseBlindMap = std::unordered_map<std::string, Value, CaseBlindHash, CaseBlindEqual>;

  Bill& BillOf(const InvoiceLine& line, int customer);
  int ItemOf(const InvoiceLine& line);
  int CustomerOf(const InvoiceLine& line);
  const Class& ItemClassOf(std::string_view code);
  const Class& CountryOf(std::string_view country);
  void WriteHeads(const InvoiceLine& line, int bill, int customer);
  void WriteTree();
  void WriteItems();
  void WriteCustomers();
  void WriteHousehold();

  Database& database_;
  Insert sale_, sale_line_, outbound_, outbound_line_;
  ImportReport report_;
  int next_id_;
  int scale_ = 2;  // decimals that the amounts need
  std::string first_day_, last_day_;

  TextMap<Bill> bills_;
  CaseBlindMap<std::size_t> item_index_, customer_index_, item_class_index_, country_index_;
  std::vector<Class> item_classes_, countries_;
  std::vector<Leaf> items_, customers_;
  // The invoice of the last line: most lines follow others of their invoice.
  std::string last_invoice_;
  Bill* last_bill_ = nullptr;
};

}  // namespace salerpt::accountset::shop
