// `Rpt301`: sales fee invoice summary.
#pragma once

#include <cstdint>
#include <string>

#include "runtime/report.h"
#include "runtime/report_interfaces.h"

namespace salerpt {

// "销售费用发票汇总表": per fee, quantities and amounts of fee invoices, issued against suppliers or against
// customers; on demand regrouped by class levels of fees, suppliers or customers, by supplier or customer, or
// by one property. Below, the party of an invoice is its supplier or its customer, whichever side the report
// is about.
//
// The middle tier selects the invoice lines by `Filter` into #T301B; the batch written here sums them up into
// #DATA. There is no identity: the rows stand in the order in which the rollup gives them. FSumSort tells
// what a row is, as in the other summaries; 105 is the subtotal of a property.
class Rpt301 final : public Report {
 public:
  Rpt301() : Report("Rpt301") {}
  [[nodiscard]] std::span<const Member<Report>> Members() const override { return InterfaceOf("Rpt301"); }
  // A `Rpt302` over the fee of the row.
  ObjectRef GetDetailReport(std::int32_t row) override;

 protected:
  void InitProperty(std::int32_t number) override;
  void BuildTitle() override;
  void FetchData() override;

 private:
  enum class Grouping { kNone, kFeeLevels, kPartyLevels, kFeeLevelsAndParty, kPartyAndFeeLevels, kProperty };
  struct LevelTexts;

  // --- rpt301.cpp: which grouping, columns
  [[nodiscard]] Grouping ChosenGrouping() const;
  void AddGroupColumns(Grouping grouping);
  void AddCommonColumns();
  [[nodiscard]] DictionaryRef BuildRequest(Grouping grouping) const;

  // --- rpt301_batches.cpp: one builder for each form of the batch
  [[nodiscard]] DictionaryRef BuildByFee() const;
  [[nodiscard]] DictionaryRef BuildByProperty() const;
  [[nodiscard]] DictionaryRef BuildByLevel(Grouping grouping) const;
  [[nodiscard]] LevelTexts LevelTextsOf(Grouping grouping) const;

  std::string item_word_;
};

}  // namespace salerpt
