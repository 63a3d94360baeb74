// `Rpt176`: sales gross profit.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "runtime/report.h"
#include "runtime/report_interfaces.h"
#include "sqltoolkit/data_right.h"

namespace salerpt {

// "销售毛利润表": per item, the income of sales invoices against the cost of what went out, and the profit
// and its rate; on demand regrouped by class levels, customer, department or a property. The cost is the
// actual one of the bills, the reference purchase price of the item, or the price of its latest receipt.
//
// The whole report is one T-SQL batch, handed to the middle tier as keys of a request dictionary that run in
// the order "Select", "GROUPBY", "Append", "UpdateAppend", "EndSel". Its temporary tables:
//   #Data2      one row per source bill line: invoice lines with quantity sold and income; outbound lines,
//   and
//               purchase invoice lines of goods that were sold straight on, with quantity sent and cost
//   #ItemLevel  class levels of items or customers
//   #Data       the report rows; FID is the identity and the order
// FSumSort tells what a row is: 0 a detail row, 101 the grand total, any other value above 100 a subtotal.
class Rpt176 final : public Report {
 public:
  Rpt176() : Report("Rpt176") {}
  [[nodiscard]] std::span<const Member<Report>> Members() const override { return InterfaceOf("Rpt176"); }
  // A `Rpt129` over the item, and the customer, of the row.
  ObjectRef GetDetailReport(std::int32_t row) override;

 protected:
  void InitProperty(std::int32_t number) override;
  void BuildTitle() override;
  void BuildConditions() override;
  void FetchData() override;

 private:
  // Which class the level columns show.
  enum class LevelKind { kCustomer, kItem };
  struct LevelTexts;

  // --- rpt176.cpp: columns, placeholders, batch by item
  void AddGroupColumns(int sum_mode);
  void AddCommonColumns();
  [[nodiscard]] DictionaryRef BuildRequest() const;
  [[nodiscard]] DictionaryRef BuildByItem() const;
  void ReplacePlaceholders(Dictionary& request) const;
  // The last select, with the rate of profit, and the drop behind it.
  [[nodiscard]] std::string EndText() const;
  // What stands in every request beside the batch.
  void CompleteRequest(Dictionary& request) const;

  // --- rpt176_fill.cpp: #Data2, and what the rows of #Data are read from
  [[nodiscard]] std::string FillText() const;
  [[nodiscard]] std::string SaleHalf() const;
  [[nodiscard]] std::string StockHalf() const;
  [[nodiscard]] std::string PurchaseHalf() const;
  [[nodiscard]] std::string FromText() const;

  // --- rpt176_groupings.cpp: batches by customer, department or another property, and by class levels
  [[nodiscard]] DictionaryRef BuildByProperty() const;
  [[nodiscard]] DictionaryRef BuildByLevel(LevelKind kind, int sum_mode) const;
  [[nodiscard]] static LevelTexts LevelTextsOf(int sum_mode, int begin_level, int end_level);

  // --- Texts fixed at set-up
  std::string item_filter_template_;
  std::string column_definitions_;
  std::string value_list_;
  std::string where_text_;
  std::string item_word_;
  DataRight right_;
  // From the filter, at each fetch.
  std::string condition_;
};

}  // namespace salerpt
