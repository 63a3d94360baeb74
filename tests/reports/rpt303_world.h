// The world in which the consignment list and the instalment list run: one class, told apart by its number.
#pragma once

#include "tests/reports/report_world.h"
#include "tests/reports/rpt303_texts.h"

namespace salerpt::testing {

class Rpt303World : public ReportWorld {
 protected:
  static constexpr const char* kCustomerRight = " AND  CharIndex('16394',t2.FRightUserID)>0 ";

  Rpt303World() : ReportWorld("Rpt303", "GetRpt303data", 1) {
    // The map of the request keeps texts; the dates are looked at as they arrive.
    on_fetch_ = [this](Arguments arguments) {
      const auto request = As<Dictionary>(arguments[1]);
      begin_ = request->Get("BDate");
      end_ = request->Get("Edate");
    };
  }
  [[nodiscard]] const Pieces& Texts() const override { return Rpt303Pieces(); }

  const Request& FetchGrouped(Entries grouping, Entries more = {}) {
    const DictionaryRef filter = Conditions(grouping);
    for (const Dictionary::Entry& entry : more) filter->Set(entry.key, entry.value);
    request_.clear();
    SetMember(Report(), "Filter", filter);
    Call(Report(), "GetReportData");
    EXPECT_TRUE(Ok()) << Error();
    return request_;
  }
  const Request& FetchLevels(std::int32_t mode, std::int32_t begin, std::int32_t end, Entries more = {}) {
    return FetchGrouped({{"GroupBy", std::int32_t{1}}, {"SumMode", mode}, {"BLevel", begin}, {"ELevel", end}},
                        more);
  }
  const Request& FetchBy(const DictionaryRef& property, Entries more = {}) {
    return FetchGrouped({{"GroupBy", std::int32_t{1}}, {"SumMode", std::int32_t{0}}, {"SumField", property}},
                        more);
  }
  const Request& FetchBatches(Entries more = {}) {
    return FetchGrouped({{"GroupBy", std::int32_t{1}}, {"SumMode", std::int32_t{6}}}, more);
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

  // These keys and what every request of the two lists carries beside them, and no other.
  void ExpectBatch(const Request& request, const Pieces& batch, const Pieces& more = {}) const {
    Request rest = request;
    // Dates are looked at by themselves.
    EXPECT_EQ(rest.count("BDate"), 1U);
    EXPECT_EQ(rest.count("Edate"), 1U);
    rest.erase("BDate");
    rest.erase("Edate");
    Pieces expected = batch;
    for (const auto& [key, text] : Common()) expected.emplace(key, text);
    ExpectRequest(rest, expected, more);
  }
  // The keys that the middle tier reads beside the batch.
  static Pieces Common() {
    return {{"sWheChk", " AND u1.FStatus>0 And u1.FCancelLation=0 "},
            {"ShowVirtualStock", "0"},
            {"FSaleStyle", "103"},
            {"NoPrice", ""},
            {"NoTaxRate", ""},
            {"NoDate", ""},
            {"RptID", "Rpt303"}};
  }

  Variant begin_, end_;
};

}  // namespace salerpt::testing
