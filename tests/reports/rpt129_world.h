// The world in which the outbound detail runs.
#pragma once

#include "tests/reports/report_world.h"
#include "tests/reports/rpt129_sql_words.h"
#include "tests/reports/rpt129_texts.h"

namespace salerpt::testing {

class Rpt129World : public ReportWorld {
 protected:
  Rpt129World() : ReportWorld("Rpt129", "GetSaleDetailData", 1) {}
  [[nodiscard]] const Pieces& Texts() const override { return Rpt129Pieces(); }

  // These keys and no other.
  static void ExpectKeys(const Request& request, const std::vector<std::string>& expected) {
    std::vector<std::string> keys;
    for (const auto& [key, text] : request) keys.push_back(key);
    std::vector<std::string> sorted = expected;
    std::ranges::sort(sorted);
    EXPECT_EQ(keys, sorted);
  }
  static void ExpectFixedKeys(const Request& request) {
    EXPECT_EQ(request.at("NoPrice"), "");
    EXPECT_EQ(request.at("NoTaxRate"), "");
    EXPECT_EQ(request.at("NoDate"), "");
    EXPECT_EQ(request.at("RptID"), "Rpt129");
  }
  // The text of a key, but for empty lines.
  void ExpectLines(const std::string& actual, std::string_view pattern, const Pieces& more = {}) const {
    EXPECT_TRUE(SameText(WithoutEmptyLines(actual), WithoutEmptyLines(Text(pattern, more))));
  }
};

}  // namespace salerpt::testing
