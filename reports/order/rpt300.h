// `Rpt300`: virtual item order statistics.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "runtime/report.h"
#include "runtime/report_interfaces.h"
#include "sqltoolkit/filter_values.h"

namespace salerpt {

// "虚拟物料订单统计表": order lines of virtual items with the child items that they stand for, what was
// signed of both and what was delivered; on demand regrouped by class levels, customer or a property.
//
// The report sends frames only: creation, insert, grouping, labels and last select of a batch whose columns,
// joins and conditions the middle tier fills in. In a frame these places are empty: the columns stand in
// front of the insert, the values in front of the cases of FSumSort (of the end, in the plain list), joins
// and conditions behind them, around the join of #ItemLevel. The frames go over the conditions of `Filter`,
// in a dictionary of their own; `Filter` itself stays. FSumSort tells what a row is: 0 a detail row, 101 the
// grand total, any other value above 100 a subtotal.
class Rpt300 final : public Report {
 public:
  Rpt300() : Report("Rpt300") {}
  [[nodiscard]] std::span<const Member<Report>> Members() const override { return InterfaceOf("Rpt300"); }

 protected:
  void InitProperty(std::int32_t number) override;
  void PrepareDialog(FilterDialog& dialog) override;
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
  // What a builder writes.
  struct Frame {
    std::string select;
    std::string group_by;
    std::string item_filter;
    std::string end_select;
  };
  struct LevelTexts;

  // --- rpt300.cpp: columns, request
  [[nodiscard]] Grouping ChosenGrouping() const;
  // "BLevel" and "ELevel" as they hold for this report.
  [[nodiscard]] DictionaryRef ChosenLevels() const;
  void AddGroupColumns(Grouping grouping);
  void AddCommonColumns(bool can_see_amount);
  [[nodiscard]] DictionaryRef BuildRequest(Grouping grouping) const;
  [[nodiscard]] std::string WithConditions(std::string_view text) const;

  // --- rpt300_frames.cpp: the frames
  [[nodiscard]] Frame BuildPlain() const;
  [[nodiscard]] Frame BuildBySumField() const;
  [[nodiscard]] Frame BuildLevels(Grouping grouping) const;
  [[nodiscard]] static LevelTexts LevelTextsOf(Grouping grouping, const LevelSpan& levels);

  // --- Texts fixed at set-up
  std::string item_filter_template_;
  std::string item_word_;
  // From the filter, at each fetch.
  std::string condition_;
};

}  // namespace salerpt
