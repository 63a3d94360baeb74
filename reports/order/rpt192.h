// `Rpt192`: order batch tracking.
#pragma once

#include "runtime/report.h"
#include "runtime/report_interfaces.h"

namespace salerpt {

// "订单批次跟踪表": for each order line the order, the finished goods received for it, the production tasks
// made for it, and for each task its receipts and its material issues. The middle tier gives four row sets;
// the report merges them into a list of its own.
class Rpt192 final : public Report {
 public:
  Rpt192() : Report("Rpt192") {}
  // No arguments. Gives the list.
  Variant GetRptList(Arguments arguments) override;
  [[nodiscard]] std::span<const Member<Report>> Members() const override { return InterfaceOf("Rpt192"); }

 protected:
  void BuildTitle() override;
  void OnActive() override;
  void FetchData() override;

 private:
  // `Header`, which is new.
  void AddColumns();
};

}  // namespace salerpt
