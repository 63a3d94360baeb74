// What the analyses of sales (growth, flow, structure) have in common: the frames that they send, the
// conditions, the way of a fetch.
#pragma once

#include <string>
#include <string_view>

#include "runtime/report.h"
#include "sqltoolkit/filter_values.h"
#include "sqltoolkit/report_header.h"
#include "sqltoolkit/title_lines.h"

namespace salerpt {

// A report whose figures are the middle tier's: it knows what a period is, which bills count and how the
// percentages are made. The report sends frames only: creation, insert, grouping, labels and last select of a
// batch whose columns, joins and conditions the middle tier fills in. In a frame these places are empty: the
// columns stand in front of the insert, the values in front of the cases of FSumSort (of the end, in the
// plain list), joins and conditions behind them, around the join of #ItemLevel. The frames go over the
// conditions of `Filter`, in a dictionary of their own; `Filter` itself stays. FSumSort tells what a row is:
// 0 a detail row, 101 the grand total, any other value above 100 a subtotal.
class SalesAnalysis : public Report {
 protected:
  using Report::Report;
  // The lines of the period, then the ranges of items and customers.
  void BuildTitle() override;
  // Columns, frame, data right, rows. Raises, in the words of an empty filter, where there is none.
  void FetchData() override;

  // --- What a class has of its own, in the order in which a fetch takes it
  virtual void AddPeriodLines(TitleLines& lines) const = 0;
  // The condition on the state of a bill, by "CheckState".
  [[nodiscard]] virtual std::string_view StateCondition() const = 0;
  // The columns behind those of the groups.
  virtual void AddColumns() = 0;
  // Key of the text that opens the batch, in the spelling of the operation.
  [[nodiscard]] virtual std::string_view FirstTextKey() const = 0;
  // Operation of `ORVMSaleRpt.Data`.
  [[nodiscard]] virtual std::string_view Operation() const = 0;

  // --- Columns for AddColumns
  // Code and name of the item; hidden where a grouped report shows totals alone.
  void AddCodeColumn();
  void AddNameColumn();
  // "辅助属性$", where the rows are parted by it ("AuxProp" 1).
  void AddAuxPropColumn();
  // A column with one heading line.
  void AddColumn(std::string_view caption, ColumnType type, std::string_view name);

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

  // --- sales_analysis.cpp: columns, request
  [[nodiscard]] Grouping ChosenGrouping() const;
  void AddGroupColumns(Grouping grouping);
  // False where a grouped report shows totals alone.
  [[nodiscard]] bool ShowsItems() const;
  [[nodiscard]] DictionaryRef BuildRequest(Grouping grouping) const;
  [[nodiscard]] std::string WithConditions(std::string_view text) const;

  // --- sales_analysis_frames.cpp: the frames
  [[nodiscard]] Frame BuildFrame(Grouping grouping) const;
  [[nodiscard]] Frame BuildPlain() const;
  [[nodiscard]] Frame BuildBySumField() const;
  [[nodiscard]] Frame BuildLevels(Grouping grouping) const;
  [[nodiscard]] static LevelTexts LevelTextsOf(Grouping grouping, const LevelSpan& levels);
};

}  // namespace salerpt
