// The world in which the income statistics run.
#pragma once

#include "tests/reports/report_world.h"
#include "tests/reports/rpt126_texts.h"

namespace salerpt::testing {

class Rpt126World : public ReportWorld {
 protected:
  Rpt126World() : ReportWorld("Rpt126", "GetPurchaseData", 3) {}
  [[nodiscard]] const Pieces& Texts() const override { return Rpt126Pieces(); }

  // The first quarter of 2003, audited invoices of both colours, settled or not, in the base currency and
  // without auxiliary property; `grouping` and `more` over it.
  static DictionaryRef Invoices(Entries grouping = {}, Entries more = {}) {
    const DictionaryRef filter = Conditions({{"HookStatus", std::int32_t{-1}},
                                             {"BillType", std::int32_t{2}},
                                             {"CurrencyShow", std::int32_t{0}},
                                             {"AuxProp", std::int32_t{0}}});
    for (const Dictionary::Entry& entry : grouping) filter->Set(entry.key, entry.value);
    for (const Dictionary::Entry& entry : more) filter->Set(entry.key, entry.value);
    return filter;
  }
  void RunInvoices(Entries grouping = {}, Entries more = {}) {
    request_.clear();
    SetMember(Report(), "Filter", Invoices(grouping, more));
    Call(Report(), "GetReportData");
  }
  const Request& FetchInvoices(Entries grouping = {}, Entries more = {}) {
    RunInvoices(grouping, more);
    EXPECT_TRUE(Ok()) << Error();
    return request_;
  }

  // A grouping by class levels.
  const Request& FetchLevels(std::int32_t mode, std::int32_t begin, std::int32_t end, Entries more = {}) {
    return FetchInvoices({{"GroupBy", std::int32_t{1}},
                          {"SumMode", mode},
                          {"SumName", "物料类别"},
                          {"BLevel", begin},
                          {"ELevel", end}},
                         more);
  }
  // The property that a grouping goes by.
  static DictionaryRef SumField(const char* name, std::int32_t item_class, std::int32_t id) {
    return std::make_shared<Dictionary>(Entries{{"FName", name},
                                                {"FItemClassID", item_class},
                                                {"FPropID", id},
                                                {"FSQLColumnName", "FName"},
                                                {"FSrcTable", ""},
                                                {"FSrcField", ""},
                                                {"FDisplayField", ""}});
  }
  static DictionaryRef SumFieldWithTable(const char* name, std::int32_t item_class, std::int32_t id) {
    const DictionaryRef property = SumField(name, item_class, id);
    property->Set("FSQLColumnName", "FRegionID");
    property->Set("FSrcTable", "t_SubMessage");
    property->Set("FSrcField", "FInterID");
    property->Set("FDisplayField", "FName");
    return property;
  }
  const Request& FetchBy(const DictionaryRef& property, Entries more = {}) {
    return FetchInvoices({{"GroupBy", std::int32_t{1}}, {"SumMode", std::int32_t{0}}, {"SumField", property}},
                         more);
  }
};

}  // namespace salerpt::testing
