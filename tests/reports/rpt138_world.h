// The world in which the order execution summary runs.
#pragma once

#include "tests/reports/report_world.h"
#include "tests/reports/rpt129_sql_words.h"
#include "tests/reports/rpt138_texts.h"

namespace salerpt::testing {

class Rpt138World : public ReportWorld {
 protected:
  Rpt138World() : ReportWorld("Rpt138", "GetSaleAmountData", 1) {}
  [[nodiscard]] const Pieces& Texts() const override { return Rpt138Pieces(); }

  const Request& FetchLevels(std::int32_t mode, std::int32_t begin, std::int32_t end, Entries more = {}) {
    return FetchGrouped({{"GroupBy", std::int32_t{1}}, {"SumMode", mode}, {"BLevel", begin}, {"ELevel", end}},
                        more);
  }
  const Request& FetchBy(std::int32_t mode, const DictionaryRef& property, Entries more = {}) {
    return FetchGrouped({{"GroupBy", std::int32_t{1}}, {"SumMode", mode}, {"SumField", property}}, more);
  }
  // The properties that the report's dialog hands over.
  static DictionaryRef SaleStyle() {
    return Property("销售方式", 1, 29, "FSaleStyle", "t_SubMessage", "FInterID", "FName");
  }
  static DictionaryRef Customer() { return Property("客户", 2, 0, "FName"); }
  static DictionaryRef Employee() { return Property("业务员", 3, 0, "FName"); }
  static DictionaryRef Property(const char* name, std::int32_t item_class, std::int32_t id,
                                const char* column, const char* table = "", const char* key = "",
                                const char* shown = "") {
    return std::make_shared<Dictionary>(Entries{{"FName", name},
                                                {"FItemClassID", item_class},
                                                {"FPropID", id},
                                                {"FSQLColumnName", column},
                                                {"FSrcTable", table},
                                                {"FSrcField", key},
                                                {"FDisplayField", shown}});
  }

  // These keys, word by word as the server reads them, and no other.
  void ExpectRead(const Request& request, const Pieces& expected, const Pieces& more = {}) const {
    for (const auto& [key, text] : request) {
      if (!expected.contains(key))
        ADD_FAILURE() << "nothing is expected under " << key << ": " << Shown(text);
    }
    for (const auto& [key, pattern] : expected) {
      const auto found = request.find(key);
      if (found == request.end()) {
        ADD_FAILURE() << "the request has no " << key;
        continue;
      }
      EXPECT_TRUE(SameSql(found->second, Text(pattern, more))) << "under " << key;
    }
  }
  // Stands in the batch to the byte.
  void ExpectPiece(const std::string& text, std::string_view pattern, const Pieces& more = {}) const {
    EXPECT_TRUE(HasText(text, Text(pattern, more)));
  }
  // The keys that every form of the report sends alike.
  static Pieces CommonKeys(const char* only_sum = "0") {
    return {{"Append", "Drop Table #DATA2"},
            {"NoPrice", ""},
            {"NoTaxRate", ""},
            {"NoDate", ""},
            {"OnlyShowSum", only_sum}};
  }
  static Pieces With(Pieces pieces, const Pieces& more) {
    for (const auto& [name, text] : more) pieces[name] = text;
    return pieces;
  }

 private:
  const Request& FetchGrouped(Entries grouping, Entries more) {
    const DictionaryRef filter = Conditions(grouping);
    for (const Dictionary::Entry& entry : more) filter->Set(entry.key, entry.value);
    request_.clear();
    SetMember(Report(), "Filter", filter);
    Call(Report(), "GetReportData");
    EXPECT_TRUE(Ok()) << Error();
    return request_;
  }
};

}  // namespace salerpt::testing
