// The world in which the customer sales summary runs.
#pragma once

#include "tests/reports/report_world.h"
#include "tests/reports/rpt126_texts.h"
#include "tests/reports/rpt133_texts.h"

namespace salerpt::testing {

class Rpt133World : public ReportWorld {
 protected:
  Rpt133World() : ReportWorld("Rpt133", "GetPurchaseData", 3) {}
  [[nodiscard]] const Pieces& Texts() const override { return Rpt133Pieces(); }

  const Request& FetchLevels(std::int32_t mode, std::int32_t begin, std::int32_t end, Entries more = {}) {
    return FetchGrouped({{"GroupBy", std::int32_t{1}}, {"SumMode", mode}, {"BLevel", begin}, {"ELevel", end}},
                        more);
  }
  static DictionaryRef SumField(const char* name, std::int32_t item_class, std::int32_t id) {
    return std::make_shared<Dictionary>(Entries{{"FName", name},
                                                {"FItemClassID", item_class},
                                                {"FPropID", id},
                                                {"FSQLColumnName", "FName"},
                                                {"FSrcTable", ""},
                                                {"FSrcField", ""},
                                                {"FDisplayField", ""}});
  }
  const Request& FetchBy(const DictionaryRef& property, Entries more = {}) {
    return FetchGrouped({{"GroupBy", std::int32_t{1}}, {"SumMode", std::int32_t{0}}, {"SumField", property}},
                        more);
  }

  // These keys, read as the server reads them, and no other.
  void ExpectRead(const Request& request, const Pieces& expected, const Pieces& more) const {
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
      EXPECT_TRUE(SameText(AsTheServerReads(found->second), AsTheServerReads(Text(pattern, more))))
          << "under " << key;
    }
  }
  // Stands in the text byte for byte.
  void ExpectPiece(const std::string& text, std::string_view pattern, const Pieces& more = {}) const {
    EXPECT_NE(text.find(Text(pattern, more)), std::string::npos)
        << Shown(Text(pattern, more)) << "\n--- is not in\n"
        << Shown(text);
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
