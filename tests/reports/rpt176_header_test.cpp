// The columns of the gross profit report, and the lines above the grid.
#include <gtest/gtest.h>

#include "tests/reports/rpt176_world.h"

namespace salerpt::testing {
namespace {

using Columns = std::vector<std::string>;
using Lines = std::vector<std::pair<std::string, int>>;

// Caption, second line, kind, field, visible; this report forces nothing.
Columns CommonColumns() {
  return {"产品代码$||1|FNumber|1",
          "产品名称$||1|FName|1",
          "规格型号$||1|FModel|1",
          "单位(基本)$||1|FUnitName|1",
          "单位(常用)$||1|FCUUnitName|1",
          "销售数量(基本)$||2|FQtySale|1",
          "销售数量(常用)$||2|FCUUnitQtySale|1",
          "销售收入$||6|FIncomeSale|1",
          "发货数量(基本)$||2|FQtySend|1",
          "发货数量(常用)$||2|FCUUnitQtySend|1",
          "单位成本$||4|FUnitCost|1",
          "销售成本$||6|FCostSale|1",
          "销售毛利润$||6|FProfit|1",
          "销售毛利润率$||8|FRate|1"};
}

class Rpt176Header : public Rpt176World {
 protected:
  const Request& FetchGrouped(std::int32_t mode, Entries more = {}) {
    const DictionaryRef filter = Conditions({{"GroupBy", std::int32_t{1}},
                                             {"SumMode", mode},
                                             {"BLevel", std::int32_t{2}},
                                             {"ELevel", std::int32_t{3}},
                                             {"SumName", "甲类"}});
    filter->Set("SumField", std::make_shared<Dictionary>(Entries{{"FName", "部门"},
                                                                 {"FPropID", "0"},
                                                                 {"FItemClassID", "2"},
                                                                 {"FSrcTable", ""},
                                                                 {"FSQLColumnName", "FName"}}));
    for (const Dictionary::Entry& entry : more) filter->Set(entry.key, entry.value);
    SetMember(Report(), "Filter", filter);
    Call(Report(), "GetReportData");
    EXPECT_TRUE(Ok()) << Error();
    return request_;
  }
  void ExpectGroupColumns(std::int32_t mode, const Columns& expected) {
    FetchGrouped(mode);
    Columns all = expected;
    for (const std::string& column : CommonColumns()) all.push_back(column);
    EXPECT_EQ(HeaderLines(), all) << "mode " << mode;
  }
};

TEST_F(Rpt176Header, IsNotThereBeforeTheFirstFetch) {
  EXPECT_EQ(GetMember(Report(), "Header").ToObject(), nullptr);
}

TEST_F(Rpt176Header, GivesTheColumnsOfAnItem) {
  Fetch();
  EXPECT_EQ(HeaderLines(), CommonColumns());
}

TEST_F(Rpt176Header, ShowsTheShortCodeWhereThatIsInUse) {
  UseShortCode();
  Fetch();
  EXPECT_EQ(HeaderLines()[0], "产品代码$||1|FShortNumber|1");
}

TEST_F(Rpt176Header, PutsTheGroupsFirst) {
  const Columns items = {"2级物料类别$||1|FName2|1", "3级物料类别$||1|FName3|1"};
  const Columns customers = {"2级客户类别$||1|FName2|1", "3级客户类别$||1|FName3|1"};
  const std::string customer = "客户$||1|FCustName|1";
  ExpectGroupColumns(1, items);
  ExpectGroupColumns(2, customers);
  ExpectGroupColumns(3, {items[0], items[1], customer});
  ExpectGroupColumns(4, {customer, items[0], items[1]});
  ExpectGroupColumns(8, {customers[0], customers[1], customer});
  for (const std::int32_t mode : {0, 5, 6}) ExpectGroupColumns(mode, {"部门$||1|FProp02|1"});
}

TEST_F(Rpt176Header, HidesWhatDescribesAnItemWhereAGroupingShowsTotalsOnly) {
  FetchGrouped(1, {{"OnlyShowSum", std::int32_t{1}}});
  Columns hidden;
  for (const std::string& line : HeaderLines()) {
    if (line.ends_with("|0")) hidden.push_back(line);
  }
  EXPECT_EQ(hidden, (Columns{"产品代码$||1|FNumber|0", "产品名称$||1|FName|0", "规格型号$||1|FModel|0",
                             "单位(基本)$||1|FUnitName|0", "单位(常用)$||1|FCUUnitName|0"}));
}

TEST_F(Rpt176Header, HidesNothingItemByItemWhereTotalsOnlyAreAsked) {
  Fetch({{"OnlyShowSum", std::int32_t{1}}});
  EXPECT_EQ(HeaderLines(), CommonColumns());
}

TEST_F(Rpt176Header, HidesNothingForWantOfARight) {
  ledger_->Gives("AccessCheck", false);
  Fetch();
  EXPECT_EQ(HeaderLines(), CommonColumns());
}

TEST_F(Rpt176Header, IsMadeAnewByEachFetch) {
  FetchGrouped(1);
  Fetch();
  EXPECT_EQ(HeaderLines(), CommonColumns());
}

class Rpt176Title : public Rpt176Header {
 protected:
  void ExpectGroupingLine(std::int32_t mode, const std::string& caption, Entries more = {}) {
    FetchGrouped(mode, more);
    EXPECT_EQ(TitleLines(), (Lines{{"起始日期：2003-01-01", 0},
                                   {"截止日期：2003-03-31", 1},
                                   {"产品代码范围：所有产品", 2},
                                   {"客户代码范围：所有客户", 3},
                                   {caption, 4}}))
        << "mode " << mode;
  }
};

TEST_F(Rpt176Title, TellsOpenRangesAsAll) {
  Fetch();
  EXPECT_EQ(TitleLines(), (Lines{{"起始日期：2003-01-01", 0},
                                 {"截止日期：2003-03-31", 1},
                                 {"产品代码范围：所有产品", 2},
                                 {"客户代码范围：所有客户", 4}}));
}

TEST_F(Rpt176Title, TellsBothEndsOfARange) {
  Fetch({{"BItemNumber", "01.01"}, {"EItemNumber", "01.09"}, {"BCustNumber", "02"}, {"ECustNumber", "03"}});
  EXPECT_EQ(TitleLines(), (Lines{{"起始日期：2003-01-01", 0},
                                 {"截止日期：2003-03-31", 1},
                                 {"产品代码范围：01.01  --  01.09", 2},
                                 {"客户代码范围: 02 -- 03", 4}}));
}

TEST_F(Rpt176Title, TellsWhatIsGroupedBy) {
  for (const std::int32_t mode : {1, 2, 3, 8}) ExpectGroupingLine(mode, "汇总依据：2--3级甲类");
  ExpectGroupingLine(4, "汇总依据：客户+2--3级物料类别");
  for (const std::int32_t mode : {0, 5, 6}) ExpectGroupingLine(mode, "汇总依据：部门");
}

TEST_F(Rpt176Title, TellsItemClassesWhereTheGroupingHasNoName) {
  ExpectGroupingLine(1, "汇总依据：2--3级物料类别", {{"SumName", ""}});
}

}  // namespace
}  // namespace salerpt::testing
