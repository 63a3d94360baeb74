// The world in which the order statistics run.
#pragma once

#include <vector>

#include "tests/reports/report_world.h"
#include "tests/reports/rpt129_sql_words.h"
#include "tests/reports/rpt136_texts.h"

namespace salerpt::testing {

class Rpt136World : public ReportWorld {
 protected:
  Rpt136World() : ReportWorld("Rpt136", "GetSaleAmountData", 1) {}
  [[nodiscard]] const Pieces& Texts() const override { return Rpt136Pieces(); }

  static constexpr std::int32_t kYes = 1;

  const Request& FetchLevels(std::int32_t mode, std::int32_t begin, std::int32_t end, Entries more = {}) {
    return FetchGrouped({{"GroupBy", kYes}, {"SumMode", mode}, {"BLevel", begin}, {"ELevel", end}}, more);
  }
  const Request& FetchBy(const DictionaryRef& property, Entries more = {}) {
    return FetchGrouped({{"GroupBy", kYes}, {"SumMode", std::int32_t{3}}, {"SumField", property}}, more);
  }
  // A property whose values stand in `table`, or, without one, in the column itself.
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

  // These keys and no other; each text to the letter but for empty lines.
  void ExpectLines(const Request& request, const Pieces& expected, const Pieces& more = {}) const {
    ExpectKeys(request, expected);
    for (const auto& [key, pattern] : expected) {
      const auto found = request.find(key);
      if (found != request.end()) {
        EXPECT_TRUE(SameText(WithoutEmptyLines(found->second), WithoutEmptyLines(Text(pattern, more))))
            << "under " << key;
      }
    }
  }
  // The same, of the first key the words alone, where the batch is free in its blanks.
  void ExpectBatch(const Request& request, const Pieces& expected, const Pieces& more = {}) const {
    ExpectKeys(request, expected);
    for (const auto& [key, pattern] : expected) {
      const auto found = request.find(key);
      if (found != request.end()) {
        const std::string text = Text(pattern, more);
        EXPECT_TRUE(key == "SELECT" ? SameSql(found->second, text)
                                    : SameText(WithoutEmptyLines(found->second), WithoutEmptyLines(text)))
            << "under " << key;
      }
    }
  }
  // Each of these stands in the text, to the letter.
  void ExpectPieces(const std::string& text, const std::vector<std::string>& patterns,
                    const Pieces& more = {}) const {
    for (const std::string& pattern : patterns) EXPECT_TRUE(HasText(text, Text(pattern, more)));
  }

 private:
  static void ExpectKeys(const Request& request, const Pieces& expected) {
    for (const auto& [key, text] : request) {
      if (!expected.contains(key))
        ADD_FAILURE() << "nothing is expected under " << key << ": " << Shown(text);
    }
    for (const auto& [key, pattern] : expected) {
      if (!request.contains(key)) ADD_FAILURE() << "the request has no " << key;
    }
  }
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
