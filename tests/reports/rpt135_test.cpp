// The returns statistics: what tells them from the customers' sales detail, and what does not.
#include <gtest/gtest.h>

#include "runtime/error.h"
#include "tests/reports/rpt134_world.h"

namespace salerpt::testing {
namespace {

using Lines = std::vector<std::string>;
using TitleList = std::vector<std::pair<std::string, int>>;

class Rpt135 : public Rpt135World {
 protected:
  static Lines Columns() {
    return {"客户代码$||1|FCustNumber|1|0",   "客户名称$||1|FCustName|1|0",
            "产品代码$||1|FNumber|1|0",       "产品名称$||1|FName|1|0",
            "规格型号$||1|FModel|1|0",        "发票号码$||1|FBillNo|1|0",
            "单位$||1|FAuxUnitName|1|0",      "币别$||1|FCurrencyName|1|0",
            "汇率$||9|FExchangeRate|1|0",     "销售数量$||2|FAuxQty|1|0",
            "单位(基本)$||1|FUnitName|1|0",   "销售数量(基本)$||2|FQty|1|0",
            "单位(常用)$||1|FCUUnitName|1|0", "销售数量(常用)$||2|FCUUnitQty|1|0",
            "销售收入$||6|FAmount|1|0",       "销售收入(本位币)$||6|FAmountFor|1|0"};
  }
};

TEST_F(Rpt135, SendsItsConditionsAndItsNumber) {
  Fetch();
  ExpectSent(135);
}

TEST_F(Rpt135, HandsOnCodeInUseAndDataRight) {
  RestrictCustomers();
  UseShortCode();
  Fetch();
  EXPECT_EQ(SentFilter()->Get("bLongNumber"), Variant(false));
  EXPECT_EQ(SentFilter()->Get("DataRightFrom"), Variant(""));
  EXPECT_EQ(SentFilter()->Get("DataRightWhere"), Variant(" CharIndex('16394',t1.FRightUserID)>0 "));
}

TEST_F(Rpt135, HasNoColumnOfTheDate) {
  Fetch();
  EXPECT_EQ(HeaderLines(), Columns());
}

TEST_F(Rpt135, PutsTheAuxiliaryPropertyBehindTheModel) {
  Fetch({{"AuxProp", std::int32_t{1}}});
  Lines columns = Columns();
  columns.insert(columns.begin() + 5, "辅助属性$||1|FAuxPropName|1|0");
  EXPECT_EQ(HeaderLines(), columns);
}

TEST_F(Rpt135, ShowsShortCodesWhereThoseAreInUse) {
  UseShortCode();
  Fetch();
  Lines columns = Columns();
  columns[0] = "客户代码$||1|FCustShortNumber|1|0";
  columns[2] = "产品代码$||1|FShortNumber|1|0";
  EXPECT_EQ(HeaderLines(), columns);
}

TEST_F(Rpt135, HidesTheAmountsByForceWithoutTheirRight) {
  ledger_->Gives("AccessCheck", false);
  Fetch();
  Lines columns = Columns();
  columns[14] = "销售收入$||6|FAmount|1|1";
  columns[15] = "销售收入(本位币)$||6|FAmountFor|1|1";
  EXPECT_EQ(HeaderLines(), columns);
}

TEST_F(Rpt135, HasTheSameTitleLines) {
  Fetch({{"BItemNumber", "01"}, {"EItemNumber", "09"}});
  EXPECT_EQ(TitleLines(), (TitleList{{"起始日期：2003-01-01", 0},
                                     {"截止日期：2003-03-31", 1},
                                     {"产品代码范围：01  --  09", 2},
                                     {"客户代码范围：所有客户", 3}}));
}

TEST_F(Rpt135, TellsWhatItIs) {
  const auto property = As<Dictionary>(GetMember(Report(), "Property"));
  EXPECT_EQ(property->Entries().size(), 2U);
  EXPECT_EQ(property->Get("Name").ToText(), "销售退货统计表");
  EXPECT_EQ(property->Get("RptProperty").ToInt32(), 1);
}

TEST_F(Rpt135, HasItsMembersInTheirOrder) {
  EXPECT_EQ(NamesOfMembers(),
            (std::vector<std::string>{"RptID", "RptID", "Filter", "Filter", "ExtFirter", "Property", "Result",
                                      "Header", "Title", "Rs", "Refresh", "ShowFilter", "GetReportData",
                                      "GetRptList"}));
}

TEST_F(Rpt135, WritesItsLineInTheLogWhereTheDialogIsOpened) {
  Call(Report(), "ShowFilter", false);
  ASSERT_FALSE(ledger_->Calls().empty());
  EXPECT_EQ(ledger_->Calls()[0].arguments[0].ToText(), "SysRptLog0021");
  EXPECT_EQ(ledger_->Calls()[0].arguments[2].ToText(), "销售退货统计表查询");
}

TEST_F(Rpt135, TellsEachFailureByResult) {
  const RuntimeError down(-2147467259, "Server", "the server is not there");
  Report();
  rights_->Raises("GetDataRight", down);
  Run();
  ExpectFailedFetch("the server is not there", "Server");
  rights_->Gives("GetDataRight", false);
  ledger_->Raises("AccessCheck", down);
  Run();
  ExpectFailedFetch("the server is not there", "Server");
  ledger_->Gives("AccessCheck", true);
  sales_->Raises("GetRpt134Data", down);
  Run();
  ExpectFailedFetch("the server is not there", "Server");
  AnswerFetch();
  Fetch();
  EXPECT_TRUE(HasRows());
}

}  // namespace
}  // namespace salerpt::testing
