#include "shell/sheet.h"

#include <gmock/gmock.h>

#include <map>

#include "runtime/dictionary.h"
#include "tests/shell/sample_sheet.h"

namespace salerpt::shell {
namespace {

using ::testing::ElementsAre;

// A report as its host sees it: members by name.
class FakeReport final : public Object {
 public:
  [[nodiscard]] std::string_view ClassName() const override { return "ORVSaleRpt.Rpt128"; }
  Variant Invoke(std::string_view member, InvokeKind kind, Arguments /*arguments*/) override {
    EXPECT_EQ(kind, InvokeKind::kGet);
    return members.at(std::string(member));
  }
  std::map<std::string, Variant> members;
};

VectorRef Title(std::initializer_list<std::pair<int, const char*>> parts) {
  auto title = std::make_shared<Vector>();
  for (const auto& [index, caption] : parts) AddTitle(*title, caption, static_cast<std::int16_t>(index));
  return title;
}

TEST(TitleLines, StandInTheOrderOfTheirPlaces) {
  EXPECT_THAT(TitleLines(*Title({{0, "起始"}, {2, "产品"}, {1, "截止"}})),
              ElementsAre("起始", "截止", "产品"));
}

TEST(TitleLines, StandSideBySideInOnePlace) {
  EXPECT_THAT(TitleLines(*Title({{0, "起始"}, {0, "截止"}, {1, "产品"}})),
              ElementsAre("起始    截止", "产品"));
}

TEST(ReadSheet, ReadsWhatTheReportAnswered) {
  auto report = std::make_shared<FakeReport>();
  report->members["Property"] = std::make_shared<Dictionary>(
      std::initializer_list<Dictionary::Entry>{{"Name", "销售出库汇总表"}, {"FrozenColumn", 10}});
  report->members["Title"] = Title({{0, "起始日期：2024-01-01"}});
  report->members["Header"] = SampleHeader();
  report->members["Rs"] = SampleRows();
  const Sheet sheet = ReadSheet(report, 3);
  EXPECT_EQ(sheet.report, "Rpt128");
  EXPECT_EQ(sheet.name, "销售出库汇总表");
  EXPECT_THAT(sheet.lines, ElementsAre("起始日期：2024-01-01"));
  EXPECT_EQ(sheet.columns.size(), 5u);
  EXPECT_EQ(sheet.rows->RecordCount(), 4);
  EXPECT_EQ(sheet.amount_scale, 3);
  EXPECT_EQ(sheet.frozen_columns, 10);
}

TEST(ReadSheet, TakesAReportThatHasNothingToShow) {
  auto report = std::make_shared<FakeReport>();
  for (const char* member : {"Property", "Title", "Header", "Rs"}) report->members[member] = Variant();
  const Sheet sheet = ReadSheet(report, 2);
  EXPECT_TRUE(sheet.lines.empty());
  EXPECT_TRUE(sheet.columns.empty());
  EXPECT_EQ(sheet.rows, nullptr);
}

}  // namespace
}  // namespace salerpt::shell
