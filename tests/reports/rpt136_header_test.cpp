// The columns and the title lines of the order statistics.
#include <gtest/gtest.h>

#include "tests/reports/rpt136_world.h"

namespace salerpt::testing {
namespace {

using Lines = std::vector<std::string>;
using TitleRows = std::vector<std::pair<std::string, int>>;

Lines ItemColumns() {
  return {"产品代码$||1|FNumber|1|0",
          "产品名称$||1|FName|1|0",
          "规格型号$||1|FModel|1|0",
          "单位(基本)$||1|FUnitName|1|0",
          "签订数量(基本)$||2|FQty|1|0",
          "单位(常用)$||1|FCUUnitName|1|0",
          "签订数量(常用)$||2|FCUUnitQty|1|0",
          "签订金额(本位币)$||40|FAmount|1|0",
          "签订金额价税合计(本位币)$||40|FAllAmount|1|0"};
}

Lines CurrencyItemColumns() {
  Lines lines = ItemColumns();
  lines.insert(lines.begin() + 7, "签订金额(原币)$||6|FOrgAmount|1|0");
  return lines;
}

constexpr const char* kCurrencyColumn = "币别$||1|FCurrencyName|1|0";

class Rpt136Header : public Rpt136World {
 protected:
  // The columns of a grouping, with and without currency.
  void ExpectGroupColumns(std::int32_t mode, const Lines& groups, const DictionaryRef& property = nullptr) {
    SCOPED_TRACE(mode);
    const DictionaryRef sum_field = property ? property : std::make_shared<Dictionary>();
    Lines expected = groups;
    for (const std::string& line : ItemColumns()) expected.push_back(line);
    FetchLevels(mode, 2, 3, {{"SumField", sum_field}});
    EXPECT_EQ(HeaderLines(), expected);
    expected = {kCurrencyColumn};
    expected.insert(expected.end(), groups.begin(), groups.end());
    for (const std::string& line : CurrencyItemColumns()) expected.push_back(line);
    FetchLevels(mode, 2, 3, {{"SumField", sum_field}, {"ChkbyCurrency", kYes}});
    EXPECT_EQ(HeaderLines(), expected);
  }
};

using Rpt136Title = Rpt136World;

TEST_F(Rpt136Header, IsNotThereBeforeTheFirstFetch) {
  EXPECT_EQ(GetMember(Report(), "Header").ToObject(), nullptr);
}

TEST_F(Rpt136Header, GivesTheColumnsItemByItem) {
  Fetch();
  EXPECT_EQ(HeaderLines(), ItemColumns());
}

TEST_F(Rpt136Header, AddsTheAmountInTheOrdersCurrencyByCurrency) {
  Fetch({{"ChkbyCurrency", kYes}});
  Lines lines = HeaderLines();
  if (!lines.empty() && lines[0] == kCurrencyColumn) lines.erase(lines.begin());
  EXPECT_EQ(lines, CurrencyItemColumns());
}

TEST_F(Rpt136Header, PutsTheCurrencyFirstWhereNothingElseIsGrouped) {
  Fetch({{"ChkbyCurrency", kYes}});
  ASSERT_FALSE(HeaderLines().empty());
  EXPECT_EQ(HeaderLines()[0], kCurrencyColumn);
}

TEST_F(Rpt136Header, ShowsTheShortCodeWhereThatIsInUse) {
  UseShortCode();
  Fetch();
  EXPECT_EQ(HeaderLines()[0], "产品代码$||1|FShortNumber|1|0");
}

TEST_F(Rpt136Header, PutsTheLevelsAndTheCustomerOfEachGroupingFirst) {
  ExpectGroupColumns(1, {"2级物料类别$||1|FName2|1|0", "3级物料类别$||1|FName3|1|0"});
  ExpectGroupColumns(2, {"2级客户类别$||1|FName2|1|0", "3级客户类别$||1|FName3|1|0"});
  ExpectGroupColumns(4,
                     {"客户$||1|FCustName|1|0", "2级物料类别$||1|FName2|1|0", "3级物料类别$||1|FName3|1|0"});
  for (const std::int32_t mode : {0, 3, 5, 99}) {
    ExpectGroupColumns(
        mode, {"2级物料类别$||1|FName2|1|0", "3级物料类别$||1|FName3|1|0", "客户$||1|FCustName|1|0"});
  }
}

TEST_F(Rpt136Header, PutsThePropertyFirst) {
  for (const std::int32_t mode : {0, 3, 5, 99}) {
    ExpectGroupColumns(mode, {"区域$||1|FProp71|1|0"}, SumField("区域", 1, "FRegionID", "t_SubMessage"));
  }
}

TEST_F(Rpt136Header, HidesAllThatDescribesAnItemButItsNameWhereTotalsOnlyAreShown) {
  FetchLevels(1, 1, 1, {{"OnlyShowSum", kYes}});
  Lines hidden;
  for (const std::string& line : HeaderLines()) {
    if (line.ends_with("|0|0")) hidden.push_back(line);
  }
  EXPECT_EQ(hidden, (Lines{"产品代码$||1|FNumber|0|0", "规格型号$||1|FModel|0|0",
                           "单位(基本)$||1|FUnitName|0|0", "单位(常用)$||1|FCUUnitName|0|0"}));
}

TEST_F(Rpt136Header, HidesNothingItemByItemWhereTotalsOnlyAreAsked) {
  Fetch({{"OnlyShowSum", kYes}});
  EXPECT_EQ(HeaderLines(), ItemColumns());
}

TEST_F(Rpt136Header, HidesAmountsByForceWithoutTheirRight) {
  ledger_->Gives("AccessCheck", false);
  FetchLevels(1, 1, 1, {{"ChkbyCurrency", kYes}});
  Lines hidden;
  for (const std::string& line : HeaderLines()) {
    if (line.ends_with("|1|1")) hidden.push_back(line);
  }
  EXPECT_EQ(hidden, (Lines{"签订金额(原币)$||6|FOrgAmount|1|1", "签订金额(本位币)$||40|FAmount|1|1",
                           "签订金额价税合计(本位币)$||40|FAllAmount|1|1"}));
}

TEST_F(Rpt136Header, AsksForTheRightOnAmounts) {
  Fetch();
  std::vector<std::vector<int>> asked;
  for (const RecordedCall& call : ledger_->Calls()) {
    if (!EqualNames(call.member, "AccessCheck")) continue;
    asked.emplace_back();
    for (const Variant& argument : call.arguments) asked.back().push_back(argument.ToInt32());
  }
  EXPECT_EQ(asked, (std::vector<std::vector<int>>{{1008, 6, 4}}));
}

TEST_F(Rpt136Header, IsMadeAnewByEachFetch) {
  FetchLevels(4, 1, 2, {{"ChkbyCurrency", kYes}});
  Fetch();
  EXPECT_EQ(HeaderLines(), ItemColumns());
}

TEST_F(Rpt136Title, TellsOpenRangesAsAll) {
  Fetch();
  EXPECT_EQ(TitleLines(), (TitleRows{{"起始日期：2003-01-01", 0},
                                     {"截止日期：2003-03-31", 1},
                                     {"产品代码范围：所有产品", 2},
                                     {"客户代码范围：所有客户", 3},
                                     {"部门代码范围：所有部门", 4},
                                     {"职员代码范围：所有职员", 5},
                                     {"币别代码范围：所有币别", 7}}));
}

TEST_F(Rpt136Title, TellsBothEndsOfEachRange) {
  Fetch({{"BItemNumber", "01'1"},
         {"EItemNumber", "01.09"},
         {"BCustNumber", "02"},
         {"ECustNumber", "03"},
         {"BDepartNumber", "31"},
         {"EDepartNumber", "32"},
         {"BEmpNumber", "41"},
         {"EEmpNumber", "42"},
         {"BCurrencyNumber", "RMB"},
         {"ECurrencyNumber", "USD"}});
  EXPECT_EQ(TitleLines(), (TitleRows{{"起始日期：2003-01-01", 0},
                                     {"截止日期：2003-03-31", 1},
                                     {"产品代码范围：01'1  --  01.09", 2},
                                     {"客户代码范围: 02 -- 03", 3},
                                     {"部门代码范围: 31 -- 32", 4},
                                     {"职员代码范围: 41 -- 42", 5},
                                     {"币别代码范围: RMB -- USD", 7}}));
}

TEST_F(Rpt136Title, LeavesTheOpenEndOfARangeEmpty) {
  Fetch({{"BItemNumber", "01"}, {"ECustNumber", "03"}, {"BEmpNumber", "41"}, {"ECurrencyNumber", "USD"}});
  EXPECT_EQ(TitleLines(), (TitleRows{{"起始日期：2003-01-01", 0},
                                     {"截止日期：2003-03-31", 1},
                                     {"产品代码范围：01  --  ", 2},
                                     {"客户代码范围:  -- 03", 3},
                                     {"部门代码范围：所有部门", 4},
                                     {"职员代码范围: 41 -- ", 5},
                                     {"币别代码范围:  -- USD", 7}}));
}

TEST_F(Rpt136Title, TellsWhatIsGroupedByInTheOrderOfTheBuilder) {
  const struct {
    std::int32_t mode;
    const char* property;
    const char* caption;
  } groupings[] = {
      {1, "区域", "汇总依据：2--3级物料类别"},
      {2, "区域", "汇总依据：2--3级物料类别"},
      {3, "区域", "汇总依据：区域"},
      {3, "", "汇总依据：2--3级物料类别"},
      {4, "区域", "汇总依据：客户+2--3级物料类别"},
      {5, "", "汇总依据：2--3级物料类别"},
      {0, "", "汇总依据：2--3级物料类别"},
      {0, "区域", "汇总依据：区域"},
      {99, "区域", "汇总依据：区域"},
  };
  for (const auto& [mode, property, caption] : groupings) {
    SCOPED_TRACE(std::to_string(mode) + " " + property);
    FetchLevels(mode, 2, 3, {{"SumName", "物料类别"}, {"SumField", SumField(property, 1, "FRegionID")}});
    EXPECT_EQ(TitleLines(), (TitleRows{{"起始日期：2003-01-01", 0},
                                       {"截止日期：2003-03-31", 1},
                                       {"产品代码范围：所有产品", 2},
                                       {"客户代码范围：所有客户", 3},
                                       {"部门代码范围：所有部门", 4},
                                       {"职员代码范围：所有职员", 5},
                                       {"币别代码范围：所有币别", 6},
                                       {caption, 7}}));
  }
}

TEST_F(Rpt136Title, IsMadeAnewByAFetchButNotByRefresh) {
  Fetch();
  As<Dictionary>(GetMember(Report(), "Filter"))->Set("BItemNumber", "05");
  Call(Report(), "Refresh");
  EXPECT_EQ(TitleLines()[2].first, "产品代码范围：所有产品");
  Call(Report(), "GetReportData");
  EXPECT_EQ(TitleLines()[2].first, "产品代码范围：05  --  ");
}

}  // namespace
}  // namespace salerpt::testing
