// The world in which the gross profit report runs.
#pragma once

#include "tests/reports/report_world.h"
#include "tests/reports/rpt129_sql_words.h"
#include "tests/reports/rpt176_texts.h"

namespace salerpt::testing {

class Rpt176World : public ReportWorld {
 protected:
  Rpt176World() : ReportWorld("Rpt176", "GetSaleAmountData", 1) {}
  [[nodiscard]] const Pieces& Texts() const override { return Rpt176Pieces(); }

  // These keys and no other, and the texts of those that never change.
  static void ExpectKeys(const Request& request, const std::vector<std::string>& more) {
    std::vector<std::string> expected = {"SELECT",  "GROUPBY",   "Append", "EndSel", "ITEMFILTER",
                                         "NoPrice", "NoTaxRate", "NoDate", "RptID",  "UnitCost"};
    expected.insert(expected.end(), more.begin(), more.end());
    std::ranges::sort(expected);
    std::vector<std::string> keys;
    for (const auto& [key, text] : request) keys.push_back(key);
    EXPECT_EQ(keys, expected);
    EXPECT_EQ(request.at("NoPrice"), "");
    EXPECT_EQ(request.at("NoTaxRate"), "");
    EXPECT_EQ(request.at("NoDate"), "");
    EXPECT_EQ(request.at("RptID"), "Rpt176");
    EXPECT_EQ(request.at("UnitCost"), "1");
    EXPECT_TRUE(SameSql(request.at("Append"), "Drop Table #Data2"));
    EXPECT_TRUE(HasText(request.at("Append"), "Drop Table #Data2"));
  }
  // The batch begins with the table of the lines and its three fills, to the letter but for empty lines.
  void ExpectFill(const Request& request, const Pieces& more = {}) const {
    const std::string select = WithoutEmptyLines(request.at("SELECT"));
    const std::string fill = WithoutEmptyLines(Text("{FILL}", more));
    EXPECT_TRUE(SameSql(select.substr(0, select.find("\r\n")), "Set NoCount On"));
    const std::size_t begin = select.find("\r\n") + 2;
    EXPECT_TRUE(SameText(select.substr(begin, fill.size()), fill));
  }
  // What is selected behind the group's expression, to the letter.
  void ExpectValues(const Request& request) const {
    EXPECT_TRUE(HasText(request.at("SELECT"), Text("{VALUES}")));
    EXPECT_TRUE(HasText(WithoutEmptyLines(request.at("SELECT")), Text("{COLUMNS}")));
  }
};

}  // namespace salerpt::testing
