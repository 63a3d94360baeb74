#include <gmock/gmock.h>
#include <signal.h>
#include <sys/resource.h>

#include <cstdio>
#include <sstream>

#include "runtime/error.h"
#include "shell/renderer.h"
#include "shell/xlsx_check.h"
#include "tests/shell/sample_sheet.h"
#include "tests/shell/zip_text.h"

namespace salerpt::shell {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

std::string Workbook(const Sheet& sheet) {
  std::ostringstream out;
  MakeRenderer(Format::kXlsx, {})->Render(sheet, out);
  return out.str();
}

std::string Page(const Sheet& sheet) {
  return ZipText(Workbook(sheet), "xl/worksheets/sheet1.xml");
}

std::string Text(std::string_view place, std::string_view style, std::string_view text) {
  return Join("<c r=\"", place, "\"", style, " t=\"inlineStr\"><is><t>", text, "</t></is></c>");
}

TEST(XlsxFormat, PutsTheTitleLinesOnTop) {
  const std::string page = Page(SampleSheet());
  EXPECT_THAT(page, HasSubstr("<t>销售出库汇总表</t>"));
  EXPECT_THAT(page, HasSubstr(Text("A2", "", "起始日期：2024-03-01")));
  EXPECT_THAT(page, HasSubstr(Text("A3", "", "客户代码范围: \"A\" -- B,C")));
}

TEST(XlsxFormat, MergesAGroupHeadingOverItsColumns) {
  const std::string page = Page(SampleSheet());
  EXPECT_THAT(page, HasSubstr("<mergeCell ref=\"D4:E4\"/>"));
  EXPECT_THAT(page, HasSubstr("<t>出库</t>"));
  EXPECT_THAT(page, HasSubstr("<t>产品名称</t>"));
  EXPECT_THAT(page, HasSubstr("<t>数量</t>"));
}

TEST(XlsxFormat, WritesNumbersAsNumbersAndDatesAsDays) {
  const std::string page = Page(SampleSheet());
  // The first row below three lines and two heading lines.
  EXPECT_THAT(page, ::testing::ContainsRegex("<c r=\"B6\" s=\"[0-9]+\"><v>45352</v></c>"));
  EXPECT_THAT(page, ::testing::ContainsRegex("<c r=\"C6\" s=\"[0-9]+\"><v>10.125</v></c>"));
  EXPECT_THAT(page, ::testing::ContainsRegex("<c r=\"E6\" s=\"[0-9]+\"><v>25.3125</v></c>"));
}

TEST(XlsxFormat, PutsFSumSortIntoTheLastColumn) {
  const std::string page = Page(SampleSheet());
  EXPECT_THAT(page, HasSubstr("<t>FSumSort</t>"));
  EXPECT_THAT(page, ::testing::ContainsRegex("<c r=\"F6\"( s=\"[0-9]+\")?><v>0</v></c>"));
  EXPECT_THAT(page, ::testing::ContainsRegex("<c r=\"F8\" s=\"[0-9]+\"><v>106</v></c>"));
  EXPECT_THAT(page, ::testing::ContainsRegex("<c r=\"F9\" s=\"[0-9]+\"><v>101</v></c>"));
}

TEST(XlsxFormat, ShowsNumbersWithTheDecimalsOfTheirRow) {
  const std::string styles = ZipText(Workbook(SampleSheet()), "xl/styles.xml");
  EXPECT_THAT(styles, HasSubstr("formatCode=\"#,##0.0\""));       // a quantity
  EXPECT_THAT(styles, HasSubstr("formatCode=\"#,##0.000\""));     // a price
  EXPECT_THAT(styles, HasSubstr("formatCode=\"#,##0.000000\""));  // the price of the grand total
  EXPECT_THAT(styles, HasSubstr("formatCode=\"yyyy-mm-dd\""));
}

TEST(XlsxFormat, WritesNothingForANullInADetailRow) {
  EXPECT_THAT(Page(SampleSheet()), Not(HasSubstr("r=\"C7\"")));
}

TEST(XlsxFormat, NamesTheSheetAfterTheReport) {
  EXPECT_THAT(ZipText(Workbook(SampleSheet()), "xl/workbook.xml"), HasSubstr("<sheet name=\"Rpt128\""));
}

TEST(XlsxFormat, KeepsHeadingsAndFrozenColumnsInPlace) {
  Sheet sheet = SampleSheet();
  sheet.frozen_columns = 2;
  EXPECT_THAT(Page(sheet), HasSubstr("<pane xSplit=\"2\" ySplit=\"5\" topLeftCell=\"C6\""));
}

TEST(XlsxFormat, GivesAWorkbookWithoutColumnsAndRows) {
  Sheet sheet = SampleSheet();
  sheet.columns.clear();
  sheet.rows = nullptr;
  EXPECT_THAT(Page(sheet), HasSubstr("<t>FSumSort</t>"));
}

TEST(XlsxFormat, FailsWhereItsWorkingFilesFindNoRoom) {
  ::signal(SIGXFSZ, SIG_IGN);
  rlimit before{};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
  Sheet sheet = SampleSheet();
  for (int i = 0; i < 3000; ++i) {
    sheet.rows->AddNew();
    sheet.rows->SetValue("FName", "茶杯");
    sheet.rows->Update();
  }
  // Enough for the packed workbook, not for the sheet that it is packed from.
  const rlimit small{50000, before.rlim_max};
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
  std::string error;
  try {
    Workbook(sheet);
  } catch (const RuntimeError& failure) {
    error = failure.Description();
  }
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
  EXPECT_THAT(error, ::testing::StartsWith("the workbook cannot be written: "));
}

TEST(XlsxCheck, RefusesWhatIsNoWorkbook) {
  std::FILE* file = std::tmpfile();
  std::fputs("this is a text and no archive at all", file);
  EXPECT_THROW(RequireWholeWorkbook(file), RuntimeError);
  std::fclose(file);
}

}  // namespace
}  // namespace salerpt::shell
