// `Rpt303`: consignment list and instalment list.
#pragma once

#include <cstdint>
#include <string>

#include "runtime/report.h"
#include "runtime/report_interfaces.h"

namespace salerpt {

// Two lists in one class: "委托代销清单", goods that customers hold on consignment, and "分期收款清单", goods
// that they pay for by instalments. Both show, per item, what was not yet settled at the begin, what was sent
// out, what was settled (sold) and what remains. The plan family tells which of the two it is: "303" is the
// consignment list, any other text the instalment list.
//
// The balances are worked out by the middle tier, which fills #Rpt303; the batch written here sums them up:
//   #Rpt303     opening, sent and settled quantities and amounts per item, customer, employee, department and
//               batch number
//   #ItemLevel  class levels of items or customers
//   #DATA       the report rows; FID is the identity and the order. Closing figures and prices are 0 here;
//   the
//               middle tier works them out behind the insert.
// The middle tier also applies the condition, sent as "Filter", where the batch does not hold it.
class Rpt303 final : public Report {
 public:
  Rpt303() : Report("Rpt303") {}
  // 303 and 304 choose the list, as the plan family of that number does; any other number is only carried.
  void SetRptID(std::int32_t number) override;
  [[nodiscard]] std::span<const Member<Report>> Members() const override { return InterfaceOf("Rpt303"); }

 protected:
  void InitProperty(std::int32_t number) override;
  void BuildTitle() override;
  void BuildConditions() override;
  void FetchData() override;

 private:
  struct LevelTexts;

  // --- rpt303.cpp: which list, columns
  [[nodiscard]] bool IsConsignmentList() const;
  void AddGroupColumns();
  void AddItemColumns();
  void AddFigureColumns();
  [[nodiscard]] DictionaryRef BuildRequest();
  void CompleteRequest(Dictionary& request) const;

  // --- rpt303_batches.cpp: one builder for each grouping
  [[nodiscard]] DictionaryRef BuildByItem() const;
  [[nodiscard]] DictionaryRef BuildByProperty() const;
  [[nodiscard]] DictionaryRef BuildByBatchNo() const;
  [[nodiscard]] DictionaryRef BuildByLevel(std::int32_t item_class, int sum_mode) const;
  [[nodiscard]] static LevelTexts LevelTextsOf(int sum_mode, int begin_level, int end_level);

  // Texts fixed at set-up.
  std::string column_definitions_;
  std::string value_list_;
  std::string where_text_;
  std::string item_word_;
  // From the filter, at each fetch.
  std::string condition_;
};

}  // namespace salerpt
