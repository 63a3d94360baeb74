// `Rpt138`: order execution summary.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "runtime/report.h"
#include "runtime/report_interfaces.h"

namespace salerpt {

// "销售订单执行情况汇总表": what was ordered against what was delivered. For each item, and on demand under
// class levels of items, customers or branch companies, under the customer, sale style or employee of the
// order or under another property: the ordered quantity, the delivered one and the remainder.
//
// The whole report is one T-SQL batch, handed to the middle tier as keys of a request dictionary that run in
// the order "Select", "GROUPBY", "Append", "EndSel". Its temporary tables:
//   #DATA2      one row per order line and one per delivery, by stock bill or by invoice. Both are chosen by
//               the date of the order, not of the delivery. Kept: deliveries carry no branch company; they
//               stand with the orders of none, and fall away where a range of companies is set. The sent
//               texts are fixed
//   #ItemLevel  class levels of items, customers or branch companies
//   #DATA       the report rows; FID is the identity and the order
// FSumSort tells what a row is: 0 a detail row, 101 the grand total, any other value above 100 a subtotal.
class Rpt138 final : public Report {
 public:
  Rpt138() : Report("Rpt138") {}
  [[nodiscard]] std::span<const Member<Report>> Members() const override { return InterfaceOf("Rpt138"); }
  // A `Rpt137` over the item, and the customer, of the row. An error that it answers is shown in a box.
  ObjectRef GetDetailReport(std::int32_t row) override;

 protected:
  void InitProperty(std::int32_t number) override;
  void BuildTitle() override;
  void BuildConditions() override;
  void FetchData() override;

 private:
  // What the rows are grouped by.
  enum class Grouping {
    kItem,
    kItemLevels,
    kCustomerLevels,
    kItemLevelsCustomer,  // levels first
    kCustomerItemLevels,  // customer first
    kBranchLevels,
    kHeadField,  // a field of the order's head: sale style, customer, employee
    kProperty
  };
  struct LevelTexts;

  // --- rpt138.cpp: set-up, conditions, columns, batch by item
  [[nodiscard]] static Grouping GroupingOf(const Dictionary& filter);
  void AddGroupColumns(Grouping grouping);
  void AddCommonColumns();
  [[nodiscard]] DictionaryRef BuildRequest(Grouping grouping) const;
  [[nodiscard]] DictionaryRef BuildByItem() const;
  void ReplacePlaceholders(Dictionary& request) const;
  [[nodiscard]] std::string DeliveriesText(std::string_view column, std::string_view stock_value,
                                           std::string_view invoice_value) const;
  [[nodiscard]] bool JoinsCompany() const;
  [[nodiscard]] std::string FromText() const;
  [[nodiscard]] std::string WhereText() const;
  // A request with all its keys, in sending order.
  [[nodiscard]] DictionaryRef MakeRequest(std::string select, std::string group_by, std::string item_filter,
                                          std::string end_select) const;

  // --- rpt138_groupings.cpp: batches by class levels, by a field of the order's head, by a property
  [[nodiscard]] DictionaryRef BuildByLevel(Grouping grouping) const;
  [[nodiscard]] static LevelTexts LevelTextsOf(Grouping grouping, int begin_level, int end_level);
  [[nodiscard]] DictionaryRef BuildByHeadField() const;
  [[nodiscard]] DictionaryRef BuildByProperty() const;
  [[nodiscard]] DictionaryRef BuildByValue(std::string_view work_batch, std::string_view value,
                                           std::string_view from) const;

  // --- rpt138_drill.cpp: the detail report
  [[nodiscard]] DictionaryRef DetailFilter() const;
  void SetCustomerOfRow(Dictionary& detail_filter, int sum_mode) const;

  // --- Texts fixed at set-up
  std::string item_filter_template_;
  std::string work_batch_;  // makes and fills #DATA2
  std::string column_definitions_;
  std::string value_list_;
  std::string right_from_;
  std::string right_where_;
  std::string item_word_;
  // From the filter, at each fetch.
  std::string condition_;
};

}  // namespace salerpt
