// `Rpt136`: sales order statistics.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "runtime/report.h"
#include "runtime/report_interfaces.h"

namespace salerpt {

// "销售订单统计表": per item, quantity and amount of signed sales orders, in the base currency; on demand by
// currency, which adds a level above and the amount in it, and on demand regrouped by class levels, customer
// or a property of customer, item, employee or order.
//
// The whole report is one T-SQL batch, handed to the middle tier as keys of a request dictionary that run in
// the order "SElECT", "GROUPBY", "Append", "EndSel". It reads the orders directly. Its temporary tables:
//   #ItemLevel  class levels of items or customers
//   #DATA       the report rows; FID is the identity and the order
//   #TemData, #TemOrder   rows in rollup order and the order of their blocks, where the user asked for an
//   order
// FSumSort tells what a row is: 0 a detail row, 101 the grand total, any other value above 100 a subtotal.
// The middle tier fills the item and unit names that the batch leaves blank.
class Rpt136 final : public Report {
 public:
  Rpt136() : Report("Rpt136") {}
  [[nodiscard]] std::span<const Member<Report>> Members() const override { return InterfaceOf("Rpt136"); }
  // A `Rpt129` over the item of the row: what went out of it to the customers of the filter.
  ObjectRef GetDetailReport(std::int32_t row) override;

 protected:
  void InitProperty(std::int32_t number) override;
  void BuildTitle() override;
  void BuildConditions() override;
  void FetchData() override;

 private:
  enum class Grouping {
    kNone,
    kItemLevels,
    kCustomerLevels,
    kCustomerAndItemLevels,
    kItemLevelsAndCustomer,
    kProperty
  };
  // What a builder writes; the rest of a request is the same in all of them.
  struct Batch;
  struct LevelTexts;

  // --- rpt136.cpp: columns, request
  [[nodiscard]] Grouping ChosenGrouping() const;
  [[nodiscard]] bool IsByCurrency() const;
  void AddGroupColumns(Grouping grouping);
  void AddCommonColumns(bool can_see_amount);
  [[nodiscard]] DictionaryRef BuildRequest(Grouping grouping) const;
  void ReplacePlaceholders(Dictionary& request) const;

  // --- rpt136_batches.cpp: batches by item and by a property, without and with the currency above
  [[nodiscard]] Batch BuildPlain() const;
  [[nodiscard]] Batch BuildPlainByCurrency() const;
  [[nodiscard]] Batch BuildBySumField() const;
  [[nodiscard]] Batch BuildBySumFieldByCurrency() const;
  // The columns of a table without its identity, from its CREATE TABLE text.
  [[nodiscard]] std::string ColumnListOf(std::string_view create_text) const;

  // --- rpt136_levels.cpp: batches by class levels
  [[nodiscard]] Batch BuildLevels(Grouping grouping) const;
  [[nodiscard]] LevelTexts LevelTextsOf(Grouping grouping) const;
  [[nodiscard]] LevelTexts LevelTextsByCurrencyOf(Grouping grouping) const;

  // --- Texts fixed at set-up
  std::string item_filter_template_;
  std::string column_definitions_;
  std::string value_list_;
  std::string from_text_;
  std::string where_text_;
  std::string item_word_;
  int amount_scale_ = 2;
  // From the filter, at each fetch.
  std::string condition_;
};

struct Rpt136::Batch {
  std::string level_sql;
  std::string create;
  std::string insert;
  std::string group_by;
  std::string item_filter;
  std::string append;    // brings the rows into the order that was asked for
  std::string_view end;  // behind the last select and the drop of #DATA
};

}  // namespace salerpt
