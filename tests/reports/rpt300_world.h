// The world in which the statistics of virtual items run. The report sends frames: the middle tier knows the
// columns, the joins and the conditions.
#pragma once

#include "tests/reports/report_world.h"
#include "tests/reports/rpt129_sql_words.h"

namespace salerpt::testing {

class Rpt300World : public ReportWorld {
 protected:
  Rpt300World() : ReportWorld("Rpt300", "GetRpt300Data", 1) {}
  // The frames are short: each test writes them out.
  [[nodiscard]] const Pieces& Texts() const override {
    static const Pieces none;
    return none;
  }

  static constexpr std::int32_t kYes = 1;

  // The dictionary that the middle tier got.
  DictionaryRef SentDictionary() { return As<Dictionary>(sales_->Calls().back().arguments[1]); }
  Variant SentValue(std::string_view key) { return SentDictionary()->Get(key); }
  std::string Sent(std::string_view key) { return SentValue(key).TextOrEmpty(); }

  void FetchLevels(std::int32_t mode, std::int32_t begin, std::int32_t end, Entries more = {}) {
    FetchGrouped({{"GroupBy", kYes}, {"SumMode", mode}, {"LngBLevel", begin}, {"LngELevel", end}}, more);
  }
  void FetchBy(const DictionaryRef& property, Entries more = {}) {
    FetchGrouped({{"GroupBy", kYes}, {"SumMode", std::int32_t{3}}, {"SumField", property}}, more);
  }
  static DictionaryRef SumField(const char* name, std::int32_t item_class, const char* column,
                                const char* table = "") {
    const bool has_table = *table != '\0';
    return std::make_shared<Dictionary>(Entries{{"FName", name},
                                                {"FPropID", "7"},
                                                {"FItemClassID", item_class},
                                                {"FSQLColumnName", column},
                                                {"FSrcTable", table},
                                                {"FDisplayField", has_table ? "FName" : ""},
                                                {"FSrcField", has_table ? "FInterID" : ""}});
  }

 private:
  void FetchGrouped(Entries grouping, Entries more) {
    const DictionaryRef filter = Conditions(grouping);
    for (const Dictionary::Entry& entry : more) filter->Set(entry.key, entry.value);
    SetMember(Report(), "Filter", filter);
    Call(Report(), "GetReportData");
    EXPECT_TRUE(Ok()) << Error();
  }
};

}  // namespace salerpt::testing
