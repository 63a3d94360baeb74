// Columns and title lines of the fee invoice summary as the host gets them.
#include <gtest/gtest.h>

#include "tests/reports/rpt301_world.h"

namespace salerpt::testing {
namespace {

using Lines = std::vector<std::string>;
using TitleList = std::vector<std::pair<std::string, int>>;

class Rpt301Header : public Rpt301World {
 protected:
  static Lines CommonColumns() {
    return {"费用类型$||1|FFeeType|1",     "费用代码$||1|FNumber|1",    "费用名称$||1|FName|1",
            "计量单位$||1|FUnit|1",        "数量$||2|FAuxQty|1",        "金额$||6|FAmount|1",
            "可抵扣税额$||6|FTaxAmount|1", "不含税金额$||6|FAmountEx|1"};
  }
  void ExpectColumns(const Lines& groups, const Lines& common = CommonColumns()) {
    Lines all = groups;
    all.insert(all.end(), common.begin(), common.end());
    EXPECT_EQ(HeaderLines(), all);
  }
};

class Rpt301Title : public Rpt301World {
 protected:
  void ExpectGroupingLine(const std::string& caption) {
    ASSERT_EQ(TitleLines().size(), 6U);
    EXPECT_EQ(TitleLines()[5], (std::pair<std::string, int>{caption, 5}));
  }
};

TEST_F(Rpt301Header, IsNotThereBeforeTheFirstFetch) {
  EXPECT_EQ(GetMember(Report(), "Header").ToObject(), nullptr);
}

TEST_F(Rpt301Header, GivesTheCommonColumnsFeeByFee) {
  FetchInvoices();
  ExpectColumns({});
  FetchInvoices({{"InvoiceStyle", std::int32_t{1}}});
  ExpectColumns({});
}

TEST_F(Rpt301Header, ShowsTheShortCodeWhereThatIsInUse) {
  UseShortCode();
  FetchInvoices();
  Lines common = CommonColumns();
  common[1] = "费用代码$||1|FShortNumber|1";
  ExpectColumns({}, common);
}

TEST_F(Rpt301Header, PutsTheColumnsOfSuppliersFirst) {
  FetchLevels(1, 1, 2);
  ExpectColumns({"1级费用类别$||1|FName1|1", "2级费用类别$||1|FName2|1"});
  FetchLevels(3, 2, 2);
  ExpectColumns({"2级供应商类别$||1|FName2|1"});
  FetchLevels(4, 1, 1);
  ExpectColumns({"1级费用类别$||1|FName1|1", "供应商$||1|FCustName|1"});
  FetchLevels(5, 1, 1, {{"SumField", NoSumField()}});
  ExpectColumns({"供应商$||1|FCustName|1", "1级费用类别$||1|FName1|1"});
}

TEST_F(Rpt301Header, PutsTheColumnsOfCustomersFirst) {
  for (const std::int32_t style : {1, 2}) {
    FetchLevels(1, 1, 1, {{"InvoiceStyle", style}});
    ExpectColumns({"1级费用类别$||1|FName1|1"});
    FetchLevels(3, 1, 2, {{"InvoiceStyle", style}});
    ExpectColumns({"1级客户类别$||1|FName1|1", "2级客户类别$||1|FName2|1"});
    FetchLevels(4, 1, 1, {{"InvoiceStyle", style}});
    ExpectColumns({"1级费用类别$||1|FName1|1", "客户$||1|FCustName|1"});
    FetchLevels(99, 1, 1, {{"InvoiceStyle", style}, {"SumField", NoSumField()}});
    ExpectColumns({"客户$||1|FCustName|1", "1级费用类别$||1|FName1|1"});
  }
}

TEST_F(Rpt301Header, NamesThePropertyGroupedByAndItsColumn) {
  FetchBy(SumField("供应商", 8, 0));
  ExpectColumns({"供应商$||1|FProp08|1"});
  FetchBy(SumField("费用类型", 2014, 0), {{"SumMode", std::int32_t{5}}});
  ExpectColumns({"费用类型$||1|FProp02014|1"});
}

TEST_F(Rpt301Header, HidesCodeNameAndUnitWhereAGroupingShowsTotalsOnly) {
  FetchLevels(1, 1, 1, {{"OnlyShowSum", std::int32_t{1}}});
  const Lines lines = HeaderLines();
  ASSERT_EQ(lines.size(), 9U);
  EXPECT_EQ(lines[0], "1级费用类别$||1|FName1|1");
  EXPECT_EQ(lines[2], "费用代码$||1|FNumber|0");
  EXPECT_EQ(lines[3], "费用名称$||1|FName|0");
  EXPECT_EQ(lines[4], "计量单位$||1|FUnit|0");
  for (std::size_t i = 5; i < lines.size(); ++i) EXPECT_EQ(lines[i].back(), '1') << lines[i];
}

TEST_F(Rpt301Header, HidesNothingFeeByFeeWhereTotalsOnlyAreAsked) {
  FetchInvoices({{"OnlyShowSum", std::int32_t{1}}});
  ExpectColumns({});
}

TEST_F(Rpt301Header, KnowsNoFieldRight) {
  ledger_->Gives("AccessCheck", false);
  FetchInvoices();
  ExpectColumns({});
  EXPECT_TRUE(ledger_->Calls().empty());
}

TEST_F(Rpt301Title, TellsOpenRangesAsAllAndTheSideOfTheInvoicesFirst) {
  FetchInvoices();
  EXPECT_EQ(TitleLines(), (TitleList{{"起始日期：2003/01/01", 0},
                                     {"截止日期：2003/03/31", 1},
                                     {"费用代码范围：所有费用", 2},
                                     {"供应商代码范围：所有供应商", 3},
                                     {"客户代码范围：所有客户", 4}}));
  for (const std::int32_t style : {1, 2}) {
    FetchInvoices({{"InvoiceStyle", style}});
    EXPECT_EQ(TitleLines(), (TitleList{{"起始日期：2003/01/01", 0},
                                       {"截止日期：2003/03/31", 1},
                                       {"费用代码范围：所有费用", 2},
                                       {"客户代码范围：所有客户", 3},
                                       {"供应商代码范围：所有供应商", 4}}));
  }
}

TEST_F(Rpt301Title, TellsRanges) {
  FetchInvoices({{"BFeeNumber", "O'Neil"},
                 {"EFeeNumber", "12"},
                 {"BCust", "21"},
                 {"ECust", "22"},
                 {"BSupply", "31"},
                 {"ESupply", "32"}});
  EXPECT_EQ(TitleLines(), (TitleList{{"起始日期：2003/01/01", 0},
                                     {"截止日期：2003/03/31", 1},
                                     {"费用代码范围：O'Neil  --  12", 2},
                                     {"供应商代码范围：31  --  32", 3},
                                     {"客户代码范围：21  --  22", 4}}));
  FetchInvoices({{"EFeeNumber", "12"}, {"BCust", "21"}, {"ESupply", "32"}});
  EXPECT_EQ(TitleLines()[2].first, "费用代码范围：  --  12");
  EXPECT_EQ(TitleLines()[3].first, "供应商代码范围：  --  32");
  EXPECT_EQ(TitleLines()[4].first, "客户代码范围：21  --  ");
}

TEST_F(Rpt301Title, TellsWhatInvoicesOfSuppliersAreGroupedBy) {
  FetchLevels(1, 2, 3);
  ExpectGroupingLine("汇总依据：2--3级费用类别");
  FetchLevels(3, 2, 3);
  ExpectGroupingLine("汇总依据：2--3级供应商类别");
  FetchLevels(4, 2, 3);
  ExpectGroupingLine("汇总依据：2--3级费用类别+供应商");
  FetchLevels(5, 2, 3, {{"SumField", NoSumField()}});
  ExpectGroupingLine("汇总依据：供应商+2--3级费用类别");
  FetchBy(SumField("费用类型", 2014, 0));
  ExpectGroupingLine("汇总依据：费用类型");
}

TEST_F(Rpt301Title, TellsWhatInvoicesOfCustomersAreGroupedBy) {
  for (const std::int32_t style : {1, 2}) {
    FetchLevels(1, 2, 3, {{"InvoiceStyle", style}});
    ExpectGroupingLine("汇总依据：2--3级费用类别");
    FetchLevels(3, 2, 3, {{"InvoiceStyle", style}});
    ExpectGroupingLine("汇总依据：2--3级客户类别");
    FetchLevels(4, 2, 3, {{"InvoiceStyle", style}});
    ExpectGroupingLine("汇总依据：2--3级费用类别+客户");
    FetchLevels(0, 2, 3, {{"InvoiceStyle", style}, {"SumField", NoSumField()}});
    ExpectGroupingLine("汇总依据：客户+2--3级费用类别");
    FetchBy(SumField("客户", 1, 0), {{"InvoiceStyle", style}});
    ExpectGroupingLine("汇总依据：客户");
  }
}

TEST_F(Rpt301Title, HasNoGroupingLineFeeByFee) {
  FetchInvoices({{"GroupBy", std::int32_t{2}}, {"SumMode", std::int32_t{1}}});
  EXPECT_EQ(TitleLines().size(), 5U);
}

}  // namespace
}  // namespace salerpt::testing
