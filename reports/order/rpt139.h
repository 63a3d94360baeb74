// `Rpt139`: sales order production and sales tracking.
#pragma once

#include <string>

#include "runtime/report.h"
#include "runtime/report_interfaces.h"

namespace salerpt {

// "销售订单生产销售跟踪一览表": for each order line how much was ordered, produced, received into stock,
// shipped and is still not executed, with the line's execution state; on demand under class levels of items.
//
// The order lines are the middle tier's: it fills the work table #T139 from the whole `Filter`, one row for
// each line. The report sends the frames around it, as keys of a request dictionary that run in the order
// "SElECT", "GROUPBY", "EndSel". Their temporary tables:
//   #ItemLevel  class levels of items
//   #DATA       the report rows
// FSumSort tells what a row is: 0 an order line, 101 the grand total, any other value above 100 the subtotal
// of a class. The middle tier fills the texts of the rows and the execution state, which stay blank here.
class Rpt139 final : public Report {
 public:
  Rpt139() : Report("Rpt139") {}
  [[nodiscard]] std::span<const Member<Report>> Members() const override { return InterfaceOf("Rpt139"); }

 protected:
  void BuildTitle() override;
  void BuildConditions() override;
  void FetchData() override;

 private:
  [[nodiscard]] bool IsByLevel() const;
  // True where items are chosen by a range of codes, false where by a class.
  [[nodiscard]] bool IsByItemRange() const;

  void AddColumns();
  void SendRights();

  // The frames
  [[nodiscard]] DictionaryRef BuildPlain() const;
  [[nodiscard]] DictionaryRef BuildLevels() const;
  struct LevelTexts;
  [[nodiscard]] static LevelTexts LevelTextsOf(int begin_level, int end_level);

  std::string condition_;  // on items
};

}  // namespace salerpt
