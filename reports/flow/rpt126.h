// `Rpt126`: sales income statistics.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "runtime/report.h"
#include "runtime/report_interfaces.h"
#include "sqltoolkit/report_header.h"

namespace salerpt {

// "销售收入统计表": per item, quantities, income, output tax and the sum of both from sales invoices; on
// demand spread by auxiliary property, by currency of the bill, or regrouped by class levels, customer,
// department or employee.
//
// Invoices of type 80 carry amounts net of tax, those of type 86 amounts that include it.
//
// The whole report is one T-SQL batch, handed to the middle tier as keys of a request dictionary that run in
// the order "Select", "GROUPBY", "EndSel". It reads the invoices directly. Its temporary tables:
//   #ItemLevel  class levels of items or customers
//   #Data       the report rows; FID is the identity and the order
// FSumSort tells what a row is: 0 a detail row, 101 the grand total, any other value above 100 a subtotal.
// The middle tier fills what the batch leaves open: the dates of ##CHECKDATE##, item and unit names, price,
// tax rate, the names of auxiliary property and currency.
class Rpt126 final : public Report {
 public:
  Rpt126() : Report("Rpt126") {}
  [[nodiscard]] std::span<const Member<Report>> Members() const override { return InterfaceOf("Rpt126"); }

 protected:
  void InitProperty(std::int32_t number) override;
  void BuildTitle() override;
  void BuildConditions() override;
  void FetchData() override;

 private:
  // Which class the level columns show.
  enum class LevelKind { kCustomer, kItem };
  struct LevelTexts;
  // The columns of #Data behind the group columns, and the values that fill them behind the item's code; the
  // currency columns are filled in.
  struct BatchColumns {
    std::string definitions;
    std::string values;
  };

  // --- rpt126.cpp: columns, batch by item
  [[nodiscard]] bool ShowsAuxProp() const;
  [[nodiscard]] bool ShowsBillCurrency() const;
  [[nodiscard]] BatchColumns ColumnsOfBatch() const;
  [[nodiscard]] std::string ValueList() const;
  void AddGroupColumns(int sum_mode);
  void AddLevelColumns(std::string_view code_caption, std::string_view caption);
  void AddCustomerColumns();
  void AddPropertyColumns();
  void AddGroupColumn(std::string caption, std::string_view column);
  void AddCommonColumns();
  [[nodiscard]] DictionaryRef BuildRequest();
  [[nodiscard]] DictionaryRef BuildByItem() const;
  void ReplaceState(Dictionary& request) const;

  // --- rpt126_groupings.cpp: batches by customer, department, employee or another property, and by class
  // levels
  [[nodiscard]] DictionaryRef BuildByProperty() const;
  [[nodiscard]] DictionaryRef BuildByLevel(LevelKind kind, int sum_mode) const;
  [[nodiscard]] LevelTexts LevelTextsOf(LevelKind kind, int sum_mode) const;

  // --- Texts fixed at set-up
  std::string item_filter_template_;
  std::string column_definitions_;
  std::string from_text_;
  std::string where_text_;
  std::string item_word_;
  int amount_scale_ = 2;
  // From the filter, at each fetch.
  std::string condition_;
};

}  // namespace salerpt
