#include <gtest/gtest.h>

#include <sstream>

#include "runtime/error.h"
#include "shell/renderer.h"
#include "tests/shell/sample_sheet.h"

namespace salerpt::shell {
namespace {

std::string Rendered(Format format, const Sheet& sheet, const PrintOptions& options = {}) {
  std::ostringstream out;
  MakeRenderer(format, options)->Render(sheet, out);
  return out.str();
}

Sheet WithoutRows() {
  Sheet sheet = SampleSheet();
  sheet.rows->SetFilter("FSumSort=7");
  return sheet;
}

// What a report answers that had nothing to fetch: no header, no rows.
Sheet WithoutColumns() {
  Sheet sheet = SampleSheet();
  sheet.columns.clear();
  sheet.rows = nullptr;
  return sheet;
}

TEST(TableFormat, LinesUpChineseTextsAndSetsTotalsOff) {
  EXPECT_EQ(Rendered(Format::kTable, SampleSheet()),
            R"(销售出库汇总表
起始日期：2024-03-01
客户代码范围: "A" -- B,C

  | 产品名称   | 日期       |     单价 |      出库      | FSumSort
  |            |            |          |   数量 |  金额 |
--+------------+------------+----------+--------+-------+---------
  | 茶杯, "大" | 2024-03-01 |   10.125 |    2.5 | 25.31 |        0
  | A<b>&c     | 2024-03-02 |          |      4 | -4.00 |        0
* | 杯(小计)   |            |          | 6.5000 | 21.31 |      106
==+============+============+==========+========+=======+=========
* | 合计       |            | 3.278846 | 6.5000 | 21.31 |      101
)");
}

TEST(TableFormat, PutsTheGivenMarksAroundTotalRowsOnly) {
  const std::string text = Rendered(Format::kTable, SampleSheet(), {"<", ">"});
  EXPECT_NE(text.find("\n<* | 杯(小计)   |            |          | 6.5000 | 21.31 |      106>\n"),
            std::string::npos);
  EXPECT_NE(text.find("\n  | A<b>&c     |"), std::string::npos);
}

TEST(TableFormat, WidensTheLastColumnOfAGroupUnderAWideHeading) {
  Sheet sheet = SampleSheet();
  sheet.columns.erase(sheet.columns.begin(), sheet.columns.begin() + 3);
  for (SheetColumn& column : sheet.columns) column.group = "出库数量和出库金额";
  const std::string text = Rendered(Format::kTable, sheet);
  EXPECT_NE(text.find("  | 出库数量和出库金额 | FSumSort\n  |   数量 |      金额 |\n"), std::string::npos)
      << text;
}

TEST(TableFormat, KeepsARowOnOneLine) {
  Sheet sheet = SampleSheet();
  sheet.rows->MoveFirst();
  sheet.rows->SetValue("FName", "两行\r\n文字");
  EXPECT_NE(Rendered(Format::kTable, sheet).find("| 两行  文字 |"), std::string::npos);
}

TEST(TableFormat, ShowsOneHeadingLineWhereNoColumnHasTwo) {
  Sheet sheet = SampleSheet();
  sheet.columns.resize(1);
  EXPECT_NE(Rendered(Format::kTable, sheet).find("\n\n  | 产品名称   | FSumSort\n--+----"),
            std::string::npos);
}

TEST(TableFormat, ShowsHeadingsWithoutRows) {
  EXPECT_EQ(Rendered(Format::kTable, WithoutRows()),
            "销售出库汇总表\n起始日期：2024-03-01\n客户代码范围: \"A\" -- B,C\n\n"
            "  | 产品名称 | 日期 | 单价 |    出库     | FSumSort\n"
            "  |          |      |      | 数量 | 金额 |\n"
            "--+----------+------+------+------+------+---------\n");
}

TEST(TableFormat, ShowsTheTitleLinesWithoutColumns) {
  EXPECT_EQ(Rendered(Format::kTable, WithoutColumns()),
            "销售出库汇总表\n起始日期：2024-03-01\n客户代码范围: \"A\" -- B,C\n\n");
}

TEST(CsvFormat, QuotesWhatNeedsQuotingAndKeepsAllDigits) {
  EXPECT_EQ(Rendered(Format::kCsv, SampleSheet()),
            "销售出库汇总表\n"
            "起始日期：2024-03-01\n"
            "\"客户代码范围: \"\"A\"\" -- B,C\"\n"
            "产品名称,日期,单价,出库/数量,出库/金额,FSumSort\n"
            "\"茶杯, \"\"大\"\"\",2024-03-01,10.125,2.5,25.3125,0\n"
            "A<b>&c,2024-03-02 08:30:00,,4,-4,0\n"
            "杯(小计),,,6.5,21.3125,106\n"
            "合计,,3.278846,6.5,21.3125,101\n");
}

TEST(CsvFormat, QuotesALineEnd) {
  Sheet sheet = SampleSheet();
  sheet.columns.resize(1);
  sheet.rows->MoveFirst();
  sheet.rows->SetValue("FName", "a\r\nb");
  EXPECT_NE(Rendered(Format::kCsv, sheet).find("\n\"a\r\nb\",0\n"), std::string::npos);
}

TEST(CsvFormat, GivesTitleLinesWithoutColumns) {
  EXPECT_EQ(Rendered(Format::kCsv, WithoutColumns()),
            "销售出库汇总表\n起始日期：2024-03-01\n\"客户代码范围: \"\"A\"\" -- B,C\"\nFSumSort\n");
}

TEST(JsonFormat, GivesTitleColumnsAndRowsByField) {
  EXPECT_EQ(Rendered(Format::kJson, SampleSheet()), R"json({
  "report": "Rpt128",
  "name": "销售出库汇总表",
  "title": [
    "起始日期：2024-03-01",
    "客户代码范围: \"A\" -- B,C"
  ],
  "columns": [
    {"field": "FName", "caption": "产品名称", "type": 1},
    {"field": "FDate", "caption": "日期", "type": 0},
    {"field": "FPrice", "caption": "单价", "type": 4},
    {"field": "FQty", "caption": "数量", "group": "出库", "type": 2},
    {"field": "FAmount", "caption": "金额", "group": "出库", "type": 6}
  ],
  "rows": [
    {"FName": "茶杯, \"大\"", "FDate": "2024-03-01", "FPrice": 10.125, "FQty": 2.5, "FAmount": 25.3125, "FSumSort": 0},
    {"FName": "A<b>&c", "FDate": "2024-03-02 08:30:00", "FPrice": null, "FQty": 4, "FAmount": -4, "FSumSort": 0},
    {"FName": "杯(小计)", "FDate": null, "FPrice": null, "FQty": 6.5, "FAmount": 21.3125, "FSumSort": 106},
    {"FName": "合计", "FDate": null, "FPrice": 3.278846, "FQty": 6.5, "FAmount": 21.3125, "FSumSort": 101}
  ]
}
)json");
}

TEST(JsonFormat, EscapesControlCharactersAndReplacesBrokenText) {
  Sheet sheet = SampleSheet();
  sheet.columns.resize(1);
  sheet.rows->MoveFirst();
  sheet.rows->SetValue("FName", "a\tb\\\xFF");
  EXPECT_NE(Rendered(Format::kJson, sheet).find(R"({"FName": "a\tb\\�", "FSumSort": 0})"), std::string::npos);
}

TEST(JsonFormat, NamesAFieldOnceThatStandsUnderTwoHeadings) {
  Sheet sheet = SampleSheet();
  sheet.columns = {sheet.columns[3], sheet.columns[3]};
  EXPECT_NE(Rendered(Format::kJson, sheet).find("\n    {\"FQty\": 2.5, \"FSumSort\": 0},\n"),
            std::string::npos);
}

TEST(JsonFormat, GivesEmptyListsWithoutColumnsAndRows) {
  Sheet sheet = WithoutColumns();
  sheet.lines.clear();
  EXPECT_EQ(Rendered(Format::kJson, sheet),
            "{\n  \"report\": \"Rpt128\",\n  \"name\": \"销售出库汇总表\",\n  \"title\": [],\n"
            "  \"columns\": [],\n  \"rows\": []\n}\n");
}

TEST(HtmlFormat, GivesOnePageWithMergedHeadingsAndMarkedTotals) {
  const std::string page = Rendered(Format::kHtml, SampleSheet());
  EXPECT_TRUE(page.starts_with("<!DOCTYPE html>\n<html lang=\"zh-CN\">\n<head>\n<meta charset=\"utf-8\">\n"));
  const std::string body = page.substr(page.find("<body>"));
  EXPECT_EQ(body, R"(<body>
<h1>销售出库汇总表</h1>
<ul class="lines">
<li>起始日期：2024-03-01</li>
<li>客户代码范围: &quot;A&quot; -- B,C</li>
</ul>
<div class="grid"><table>
<thead>
<tr><th rowspan="2">产品名称</th><th rowspan="2">日期</th><th rowspan="2">单价</th><th colspan="2">出库</th></tr>
<tr><th>数量</th><th>金额</th></tr>
</thead>
<tbody>
<tr data-FSumSort="0"><td>茶杯, &quot;大&quot;</td><td>2024-03-01</td><td class="n">10.125</td><td class="n">2.5</td><td class="n">25.31</td></tr>
<tr data-FSumSort="0"><td>A&lt;b&gt;&amp;c</td><td>2024-03-02</td><td class="n"></td><td class="n">4</td><td class="n">-4.00</td></tr>
<tr data-FSumSort="106" class="total"><td>杯(小计)</td><td></td><td class="n"></td><td class="n">6.5000</td><td class="n">21.31</td></tr>
<tr data-FSumSort="101" class="total grand"><td>合计</td><td></td><td class="n">3.278846</td><td class="n">6.5000</td><td class="n">21.31</td></tr>
</tbody>
</table></div>
</body>
</html>
)");
}

TEST(HtmlFormat, NeedsNothingFromOutside) {
  const std::string page = Rendered(Format::kHtml, SampleSheet());
  EXPECT_EQ(page.find("http"), std::string::npos);
  EXPECT_EQ(page.find("src="), std::string::npos);
}

TEST(Formats, AreFoundByName) {
  EXPECT_EQ(ParseFormat("table"), Format::kTable);
  EXPECT_EQ(ParseFormat("xlsx"), Format::kXlsx);
}

TEST(Formats, RefuseAnUnknownNameAndTellTheKnown) {
  try {
    ParseFormat("pdf");
    FAIL() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Description(), "unknown format \"pdf\": table, csv, json, html or xlsx was expected");
  }
}

}  // namespace
}  // namespace salerpt::shell
