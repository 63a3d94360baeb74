// The world in which the order production and sales tracking runs. Its operation gets the frames and, behind
// them, the conditions.
#pragma once

#include "tests/reports/report_world.h"
#include "tests/reports/rpt129_sql_words.h"
#include "tests/reports/rpt139_texts.h"

namespace salerpt::testing {

class Rpt139World : public ReportWorld {
 protected:
  Rpt139World() : ReportWorld("Rpt139", "GetRpt139Data", 1) {}
  [[nodiscard]] const Pieces& Texts() const override { return Rpt139Pieces(); }

  const Request& FetchLevels(std::int32_t begin, std::int32_t end, Entries more = {}) {
    const DictionaryRef filter = Conditions(
        {{"GroupBy", std::int32_t{1}}, {"SumMode", std::int32_t{1}}, {"BLevel", begin}, {"ELevel", end}});
    for (const Dictionary::Entry& entry : more) filter->Set(entry.key, entry.value);
    request_.clear();
    SetMember(Report(), "Filter", filter);
    Call(Report(), "GetReportData");
    EXPECT_TRUE(Ok()) << Error();
    return request_;
  }
  // The conditions as they arrive in the middle tier.
  DictionaryRef SentFilter() { return As<Dictionary>(sales_->Calls().back().arguments[2]); }

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
};

}  // namespace salerpt::testing
