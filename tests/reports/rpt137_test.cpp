// The order execution detail: what the middle tier is asked, the rows that the host sees, columns and lines
// above the grid.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/reports/rpt137_world.h"

namespace salerpt::testing {
namespace {

using Lines = std::vector<std::string>;
using TitleList = std::vector<std::pair<std::string, int>>;

class Rpt137 : public Rpt137World {
 protected:
  static Lines Columns() {
    return {"订单日期$||0|Fdate|1",
            "客户代码$||1|FCustNumber|1",
            "客户名称$||1|FCustName|1",
            "产品代码$||1|FNumber|1",
            "产品名称$||1|FName|1",
            "规格型号$||1|FModel|1",
            "辅助属性$||1|FAuxPropName|1",
            "订单编号$||1|FOrderBillNo|1",
            "交货日期$||0|FSendDate|1",
            "单位(基本)$||1|FUnitName|1",
            "单位(常用)$||1|FCUUnitName|1",
            "签订数量(基本)$||2|FSaleQty|1",
            "签订数量(常用)$||2|FCUUnitSaleQty|1",
            "备注$||1|FNote|1",
            "出库单号$||1|FBillNo|1",
            "完成日期$||0|FCommitDate|1",
            "出库数量(基本)$||2|FCommitQty|1",
            "出库数量(常用)$||2|FCUUnitCommitQty|1",
            "未出库数量(基本)$||2|FUnCommitQty|1",
            "未出库数量(常用)$||2|FCUUnitUnCommitQty|1",
            "经办人员$||1|FEmpName|1",
            "经办部门$||1|FDeptName|1"};
  }
};

TEST_F(Rpt137, HandsOverLoginAndConditions) {
  Fetch();
  ASSERT_EQ(sales_->CalledMembers(), std::vector<std::string>{"GetRpt137Data_new"});
  const std::vector<Variant>& arguments = sales_->Calls()[0].arguments;
  ASSERT_EQ(arguments.size(), 2U);
  EXPECT_EQ(arguments[0].ToText(), kProps);
  EXPECT_EQ(arguments[1].ToObject(), GetMember(Report(), "Filter").ToObject()) << "the conditions themselves";
  EXPECT_EQ(GetMember(Report(), "Rs").ToObject(), rows_);
}

TEST_F(Rpt137, LeavesEveryConditionOfTheHostInPlace) {
  Fetch({{"BBillNo", "SE1"}, {"CloseState", std::int32_t{2}}, {"SaleType", std::int32_t{201}}});
  const DictionaryRef sent = SentFilter();
  EXPECT_EQ(sent->Get("BBillNo"), Variant("SE1"));
  EXPECT_EQ(sent->Get("CloseState").ToInt32(), 2);
  EXPECT_EQ(sent->Get("SaleType").ToInt32(), 201);
  EXPECT_EQ(sent->Get("BDate"), Variant(Date::FromYmd(2003, 1, 1)));
}

TEST_F(Rpt137, AddsFourKeysAndNoOther) {
  Fetch();
  const DictionaryRef sent = SentFilter();
  const DictionaryRef conditions = Conditions();
  std::vector<std::string> added;
  for (const auto& entry : sent->Entries()) {
    if (!conditions->Lookup(entry.key)) added.push_back(entry.key);
  }
  std::sort(added.begin(), added.end());
  EXPECT_EQ(added, (std::vector<std::string>{"DataRightFrom", "DataRightWhere", "RptID", "bLongNumber"}));
}

TEST_F(Rpt137, TellsTheNumberOfItsPlanFamily) {
  Fetch();
  EXPECT_TRUE(SentFilter()->Get("RptID").IsNumber());
  EXPECT_EQ(SentFilter()->Get("RptID").ToInt32(), 134);
  LetMember(Report(), "ExtFirter", "137");
  LetMember(Report(), "RptID", std::int32_t{5});
  Fetch();
  EXPECT_EQ(SentFilter()->Get("RptID").ToInt32(), 137);
}

TEST_F(Rpt137, TellsWhichCodeIsInUse) {
  Fetch();
  EXPECT_EQ(SentFilter()->Get("bLongNumber"), Variant(true));
}

TEST_F(Rpt137, TellsThatTheShortCodeIsInUse) {
  UseShortCode();
  Fetch();
  EXPECT_EQ(SentFilter()->Get("bLongNumber"), Variant(false));
}

TEST_F(Rpt137, HandsOnThatNobodyIsRestricted) {
  Fetch();
  EXPECT_EQ(SentFilter()->Get("DataRightFrom"), Variant(""));
  EXPECT_EQ(SentFilter()->Get("DataRightWhere"), Variant(""));
  ASSERT_EQ(rights_->CalledMembers(), std::vector<std::string>{"GetDataRight"});
  EXPECT_EQ(rights_->Calls()[0].arguments[0].ToText(), kProps);
  EXPECT_EQ(rights_->Calls()[0].arguments[1].ToInt32(), 16394);
  EXPECT_EQ(rights_->Calls()[0].arguments[2].ToInt32(), 1);
}

TEST_F(Rpt137, HandsOnWhichCustomersTheUserMaySeeAnewAtEachFetch) {
  RestrictCustomers();
  Fetch();
  EXPECT_EQ(SentFilter()->Get("DataRightFrom"), Variant(""));
  EXPECT_EQ(SentFilter()->Get("DataRightWhere"), Variant(" CharIndex('16394',t11.FRightUserID)>0 "));
  rights_->Gives("GetDataRight", false);
  Call(Report(), "Refresh");
  EXPECT_EQ(SentFilter()->Get("DataRightWhere"), Variant(""));
}

TEST_F(Rpt137, TakesTheConditionsThatTheMiddleTierLeaves) {
  const auto other = std::make_shared<Dictionary>(Entries{{"BItemNumber", "changed"}});
  on_fetch_ = [&](Arguments arguments) { arguments[1] = other; };
  Fetch();
  EXPECT_EQ(GetMember(Report(), "Filter").ToObject(), other);
}

TEST_F(Rpt137, ShowsEveryRowWhereNoDisplayIsChosen) {
  FillRows();
  Fetch();
  EXPECT_EQ(Rs()->RecordCount(), 4);
  EXPECT_EQ(Rs()->Filter(), "");
  Fetch({{"DisplayType", std::int32_t{0}}});
  EXPECT_EQ(Rs()->RecordCount(), 4);
}

TEST_F(Rpt137, LeavesSubtotalsOutWhereDetailsAreChosen) {
  FillRows();
  Fetch({{"DisplayType", std::int32_t{1}}});
  EXPECT_EQ(Rs()->Filter(), " FSumSort <>102 ");
  EXPECT_EQ(Rs()->RecordCount(), 3);
  Call(Report(), "Refresh");
  EXPECT_EQ(Rs()->RecordCount(), 3);
}

TEST_F(Rpt137, ShowsEveryRowForAnyOtherDisplay) {
  FillRows();
  Fetch({{"DisplayType", std::int32_t{2}}});
  EXPECT_EQ(Rs()->RecordCount(), 4);
}

TEST_F(Rpt137, GivesItsColumns) {
  Fetch();
  EXPECT_EQ(HeaderLines(), Columns());
}

TEST_F(Rpt137, MergesNoCellsAndHidesNoColumnByForce) {
  Fetch();
  const auto header = As<Vector>(GetMember(Report(), "Header"));
  ASSERT_EQ(header->Size(), 22);
  for (std::int32_t i = 1; i <= header->Size(); ++i) {
    const auto column = As<Dictionary>(header->Item(i));
    EXPECT_TRUE(column->Lookup("FMergerType")) << i;
    EXPECT_EQ(column->Get("FMergerType").ToInt32(), 0) << i;
    EXPECT_FALSE(column->Lookup("FForceHide")) << i;
  }
}

TEST_F(Rpt137, GivesItsColumnsWithoutRowsToo) {
  rows_ = OneField("FSumSort");
  Fetch({{"DisplayType", std::int32_t{1}}});
  EXPECT_EQ(Rs()->RecordCount(), 0);
  EXPECT_EQ(HeaderLines(), Columns());
}

TEST_F(Rpt137, ShowsShortCodesWhereThoseAreInUse) {
  UseShortCode();
  Fetch();
  Lines columns = Columns();
  columns[1] = "客户代码$||1|FShortCustNumber|1";
  columns[3] = "产品代码$||1|FShortNumber|1";
  EXPECT_EQ(HeaderLines(), columns);
}

TEST_F(Rpt137, TellsOpenRangesAsAll) {
  Fetch();
  EXPECT_EQ(TitleLines(), (TitleList{{"起始日期：2003-01-01", 0},
                                     {"截止日期：2003-03-31", 1},
                                     {"产品代码范围：所有产品", 2},
                                     {"客户代码范围：所有客户", 3}}));
}

TEST_F(Rpt137, TellsBothEndsOfARange) {
  Fetch({{"BItemNumber", "01"}, {"EItemNumber", "09"}, {"BCustNumber", "02"}});
  EXPECT_EQ(TitleLines(), (TitleList{{"起始日期：2003-01-01", 0},
                                     {"截止日期：2003-03-31", 1},
                                     {"产品代码范围：01  --  09", 2},
                                     {"客户代码范围: 02 -- ", 3}}));
}

}  // namespace
}  // namespace salerpt::testing
