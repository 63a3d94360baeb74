// The world in which the fee invoice summary runs. The middle tier gets the conditions and, behind them, the
// request.
#pragma once

#include "tests/reports/report_world.h"
#include "tests/reports/rpt301_texts.h"

namespace salerpt::testing {

class Rpt301World : public ReportWorld {
 protected:
  Rpt301World() : ReportWorld("Rpt301", "GetRpt301Data", 2) {
    on_fetch_ = [this](Arguments arguments) {
      sent_.clear();
      const auto conditions = As<Dictionary>(arguments[1]);
      for (const auto& entry : conditions->Entries()) sent_.insert_or_assign(entry.key, entry.value);
    };
  }
  [[nodiscard]] const Pieces& Texts() const override { return Rpt301Pieces(); }

  // The first quarter of 2003, audited fee invoices of suppliers, settled or not; `grouping` and `more` over
  // it.
  static DictionaryRef Invoices(Entries grouping = {}, Entries more = {}) {
    auto filter = std::make_shared<Dictionary>(Entries{{"BDate", Date::FromYmd(2003, 1, 1)},
                                                       {"EDate", Date::FromYmd(2003, 3, 31)},
                                                       {"BFeeNumber", ""},
                                                       {"EFeeNumber", ""},
                                                       {"BCust", ""},
                                                       {"ECust", ""},
                                                       {"BSupply", ""},
                                                       {"ESupply", ""},
                                                       {"CheckState", std::int32_t{0}},
                                                       {"HookStatus", std::int32_t{2}},
                                                       {"InvoiceStyle", std::int32_t{0}}});
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
  const Request& FetchLevels(std::int32_t mode, std::int32_t begin, std::int32_t end, Entries more = {}) {
    return FetchInvoices(
        {{"GroupBy", std::int32_t{1}}, {"SumMode", mode}, {"BLevel", begin}, {"ELevel", end}}, more);
  }
  const Request& FetchBy(const DictionaryRef& property, Entries more = {}) {
    return FetchInvoices({{"GroupBy", std::int32_t{1}}, {"SumMode", std::int32_t{0}}, {"SumField", property}},
                         more);
  }
  static DictionaryRef SumField(const char* name, std::int32_t item_class, std::int32_t id,
                                const char* column = "FName") {
    return std::make_shared<Dictionary>(Entries{{"FName", name},
                                                {"FItemClassID", item_class},
                                                {"FPropID", id},
                                                {"FSQLColumnName", column},
                                                {"FSrcTable", ""},
                                                {"FSrcField", ""},
                                                {"FDisplayField", ""}});
  }
  static DictionaryRef SumFieldWithTable(const char* name, std::int32_t item_class, std::int32_t id,
                                         const char* column) {
    const DictionaryRef property = SumField(name, item_class, id, column);
    property->Set("FSrcTable", "t_SubMessage");
    property->Set("FSrcField", "FInterID");
    property->Set("FDisplayField", "FDisplay");
    return property;
  }
  // What a dialog writes where a class row is chosen: no class and no name.
  static DictionaryRef NoSumField() {
    return std::make_shared<Dictionary>(Entries{{"FPropID", std::int32_t{0}},
                                                {"FSQLColumnName", "FName"},
                                                {"FSrcTable", ""},
                                                {"FSrcField", ""},
                                                {"FDisplayField", ""}});
  }

  // These keys and what every request carries beside them, and no other.
  void ExpectBatch(const Request& request, const Pieces& batch, const Pieces& more = {}) const {
    Pieces expected = {{"NoPrice", ""}, {"NoTaxRate", ""}, {"NoDate", ""}, {"RptID", "Rpt301"}};
    expected.insert(batch.begin(), batch.end());
    ExpectRequest(request, expected, more);
  }

  // The conditions as the middle tier got them.
  std::map<std::string, Variant> sent_;
};

}  // namespace salerpt::testing
