// The outbound summary's dialog: how it opens, what it answers, keys and look-ups.
#include "tests/shell/dialogs/ran_dialog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace salerpt::shell {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;

constexpr const char* kDialog = "frmFirter128";

TEST(Frm128Load, OpensWithListsFilledAndFirstRowsChosen) {
  const Json ran = Ran(kDialog, R"j({"steps": []})j");
  EXPECT_EQ(Filter(ran), R"j({"OK":false})j");
  EXPECT_FALSE(ran["closed"]);
  EXPECT_EQ(ran["CurrentPlan"], "默认方案");
  EXPECT_EQ(Items(ran, "cmbCheckState"), R"j([["已审核",0],["未审核",0],["全部",0]])j");
  EXPECT_EQ(Items(ran, "cmbFROB"), R"j([["全部",0],["蓝字",0],["红字",0]])j");
  EXPECT_EQ(Items(ran, "cmbCommodityType"), R"j([["全部",0],["服务商品",0],["非服务商品",0]])j");
  EXPECT_EQ(Items(ran, "CmbSaleType"), R"j([["全部",1],["现销",101],["委托代销",20298]])j");
  for (const char* box : {"cmbCheckState", "cmbFROB", "cmbCommodityType", "CmbSaleType", "cmbGroupBy"}) {
    EXPECT_EQ(Shown(ran, box)["listIndex"], 0) << box;
  }
  EXPECT_EQ(
      Items(ran, "cmbGroupBy"),
      R"j([["物料类别",1],["客户类别",2],["物料类别+客户",3],["客户+物料类别",4],["客户",5],["业务员",6],)j"
      R"j(["部门",9],["部门+业务员",10],["销售方式",7],["客户类别+客户",8],["客户+业务员",11],)j"
      R"j(["业务员+客户+物料类别",12]])j");
  EXPECT_THAT(Calls(ran), ElementsAre("GetPlanList", "GetPlanValue 默认方案"));
}

TEST(Frm128Load, APlanWithoutValuesOpensOnTodayGroupedSummaryOnlyLevelsOneToFive) {
  const Json ran = Ran(kDialog, R"j({"steps": [], "itemMaxLevel": {"4": 7}})j");
  EXPECT_EQ(Shown(ran, "DtpBDate")["value"], "2024-03-15");
  EXPECT_EQ(Shown(ran, "DtpEDate")["value"], "2024-03-15");
  EXPECT_EQ(Shown(ran, "chkGroupBy")["value"], 1);
  EXPECT_EQ(Shown(ran, "chkOnlyShowSum")["value"], 1);
  EXPECT_EQ(Text(ran, "txtlevel(0)"), "1");
  EXPECT_EQ(Text(ran, "txtlevel(1)"), "5");
  EXPECT_EQ(Shown(ran, "udELevel")["max"], 7);
  EXPECT_EQ(Shown(ran, "chkNextChoose")["value"], 0);
}

TEST(Frm128Load, CaptionsAreThoseOfTheDialog) {
  const Json ran = Ran(kDialog, R"j({"steps": []})j");
  EXPECT_THAT(Captions(ran),
              IsSupersetOf({"确定(&O)", "取消(&C)", "至: ", "销售方式:", "物料代码:", "客户代码:", "分级汇总",
                            "汇总依据:", "类别级次:", "仅显示汇总行", "起始日期:", "截止日期:", "单据类型:",
                            "单据状态:", "方案：", "添加(&A)", "上移(&U)", "下移(&D)", "删除(&R)"}));
  EXPECT_EQ(Shown(ran, "mstFilter")["tabs"].dump(), R"j([["条件",true],["排序",true]])j");
}

TEST(Frm128Load, StoredPlansAreListedBehindTheDefaultAndTheChosenOneIsLoaded) {
  const Json ran = Ran(kDialog, R"j({"steps": [], "plans": {
      "默认方案": {"BItem": "9"}, "月报": {"BItem": "1"}, "周报": {"BItem": "2"}, "status": "周报"}})j");
  EXPECT_EQ(Items(ran, "lvwProject"), R"j([["默认方案",1],["月报",1],["周报",1]])j");
  EXPECT_EQ(Text(ran, "lvwProject"), "周报");
  EXPECT_EQ(ran["CurrentPlan"], "周报");
  EXPECT_EQ(Text(ran, "txtItem(0)"), "2");
}

TEST(Frm128Load, AStoreThatFailsLeavesTheDialogUsable) {
  const Json ran = Ran(kDialog, R"j({"steps": [], "faults": {
      "GetPlanList": {"number": -1, "source": "s", "description": "d"},
      "GetSaleType": {"number": -1, "source": "s", "description": "d"}}})j");
  EXPECT_FALSE(ran["closed"]);
  EXPECT_THAT(Boxes(ran), IsEmpty());
  EXPECT_EQ(Items(ran, "cmbFROB"), R"j([["全部",0],["蓝字",0],["红字",0]])j");
}

TEST(Frm128Confirm, DefaultsGiveTheWholeFilterInOrderAndSaveTheDefaultPlan) {
  const Json ran = Ran(kDialog, R"j({"RptID": 166})j");
  EXPECT_TRUE(ran["closed"]);
  EXPECT_EQ(Filter(ran), InOrder(R"j({"OK": true, "BDate": "2024-03-15", "EDate": "2024-03-15",
      "BItemNumber": "", "EItemNumber": "", "BCustNumber": "", "ECustNumber": "", "GroupBy": 1,
      "OnlyShowSum": 1, "BLevel": 1, "ELevel": 4, "SumMode": 1, "SumName": "物料类别", "SaleType": 1,
      "SaleTypeName": "全部",
      "SumField": {"FPropID": 0, "FSQLColumnName": "FName", "FSrcTable": "", "FSrcField": "",
                   "FDisplayField": ""},
      "FROB": 0, "CheckState": 0, "chkNextChoose": 0, "CommodityType": 0, "Orderby": "FNumber ASC"})j"));
  EXPECT_THAT(SavedPlan(ran), ElementsAre("166/默认方案", "BDate=2024-03-15", "EDate=2024-03-15",
                                          "BItem=", "EItem=", "BCustomer=", "ECustomer=", "BLevel=1",
                                          "ELevel=4", "chkGroupBy=1", "OnlyShowSum=1", "GroupByListIndex=0",
                                          "CheckState=0", "OrderBy=FNumber ASC", "FROB=0", "chkNextChoose=0",
                                          "SaleTypeListIndex=0", "CommodityType=0"));
  EXPECT_THAT(Calls(ran),
              ElementsAre("GetPlanList", "GetPlanValue 默认方案", "UpdateNextChooseValue", "SaveProfile"));
}

TEST(Frm128Confirm, EveryChoiceReachesFilterAndPlan) {
  const Json ran = Ran(kDialog, R"j({"RptID": 166, "steps": [
      {"date": "DtpBDate", "value": "2024-01-01"}, {"date": "DtpEDate", "value": "2024-02-29"},
      {"type": "txtItem(0)", "text": "01.1 "}, {"type": "txtItem(1)", "text": "01.9"},
      {"type": "txtItem(2)", "text": "k1"}, {"type": "txtItem(3)", "text": "k2"},
      {"select": "cmbGroupBy", "index": 9}, {"type": "txtlevel(0)", "text": "2"},
      {"check": "chkOnlyShowSum", "value": 0}, {"select": "cmbFROB", "index": 2},
      {"select": "cmbCheckState", "index": 1}, {"select": "cmbCommodityType", "index": 1},
      {"select": "CmbSaleType", "index": 2}, {"check": "chkNextChoose", "value": 1}, {"click": "cmdOK"}]})j");
  EXPECT_EQ(Filter(ran), InOrder(R"j({"OK": true, "BDate": "2024-01-01", "EDate": "2024-02-29",
      "BItemNumber": "01.1 ", "EItemNumber": "01.9", "BCustNumber": "k1", "ECustNumber": "k2", "GroupBy": 1,
      "OnlyShowSum": 0, "BLevel": 2, "ELevel": 3, "SumMode": 8, "SumName": "客户类别+客户",
      "SaleType": 20298, "SaleTypeName": "委托代销",
      "SumField": {"FPropID": 0, "FSQLColumnName": "FName", "FSrcTable": "", "FSrcField": "",
                   "FDisplayField": ""},
      "FROB": 2, "CheckState": 1, "chkNextChoose": 1, "CommodityType": 1, "Orderby": "FNumber ASC"})j"));
  EXPECT_THAT(SavedPlan(ran),
              ElementsAre("166/默认方案", "BDate=2024-01-01", "EDate=2024-02-29", "BItem=01.1 ", "EItem=01.9",
                          "BCustomer=k1", "ECustomer=k2", "BLevel=2", "ELevel=3", "chkGroupBy=1",
                          "OnlyShowSum=0", "GroupByListIndex=9", "CheckState=1", "OrderBy=FNumber ASC",
                          "FROB=2", "chkNextChoose=1", "SaleTypeListIndex=2", "CommodityType=1"));
}

TEST(Frm128Confirm, ABeginDateBehindTheEndIsRefusedAndPulledBack) {
  const Json ran =
      Ran(kDialog, R"j({"steps": [{"date": "DtpBDate", "value": "2024-03-16"}, {"click": "cmdOK"}]})j");
  EXPECT_FALSE(ran["closed"]);
  EXPECT_THAT(Boxes(ran), ElementsAre("起始日期不能大于截止日期! | 青岚提示： | 64"));
  EXPECT_EQ(Shown(ran, "DtpBDate")["value"], "2024-03-15");
  EXPECT_EQ(Filter(ran), R"j({"OK":false})j");
  EXPECT_THAT(SavedPlan(ran), IsEmpty());
}

TEST(Frm128Confirm, ARefusedDialogCanBeConfirmedAgain) {
  const Json ran = Ran(kDialog, R"j({"steps": [{"date": "DtpBDate", "value": "2024-03-16"},
      {"click": "cmdOK"}, {"click": "cmdOK"}]})j");
  EXPECT_TRUE(ran["closed"]);
  EXPECT_EQ(ran["Filter"]["BDate"], "2024-03-15");
  EXPECT_EQ(ran["Filter"]["OK"], true);
}

TEST(Frm128Confirm, CancelLeavesOkFalseAndSavesNothing) {
  const Json ran =
      Ran(kDialog, R"j({"steps": [{"type": "txtItem(0)", "text": "1"}, {"click": "cmdCacel"}]})j");
  EXPECT_TRUE(ran["closed"]);
  EXPECT_EQ(Filter(ran), R"j({"OK":false})j");
  EXPECT_THAT(SavedPlan(ran), IsEmpty());
}

TEST(Frm128Keys, WithTheNameListEnterMovesOn) {
  const Json ran = Ran(kDialog, R"j({"steps": [{"key": 13, "on": "txtItem(0)"}]})j");
  EXPECT_FALSE(ran["closed"]);
  EXPECT_EQ(ran["keys"].dump(), "[9]");
  EXPECT_EQ(Shown(ran, "cmdOK")["default"], false);
}

TEST(Frm128Keys, WithoutTheNameListEnterAlsoPressesOk) {
  const Json ran = Ran(
      kDialog, R"j({"settings": {"ORV/Filter/ShowList": "0"}, "steps": [{"key": 13, "on": "txtItem(0)"}]})j");
  EXPECT_EQ(ran["keys"].dump(), "[9]");
  EXPECT_TRUE(ran["closed"]);
  EXPECT_EQ(ran["Filter"]["OK"], true);
  EXPECT_EQ(Shown(ran, "cmdOK")["default"], true);
}

TEST(Frm128Keys, EscapeCancels) {
  const Json ran = Ran(kDialog, R"j({"steps": [{"key": 27, "on": "txtItem(2)"}]})j");
  EXPECT_TRUE(ran["closed"]);
  EXPECT_EQ(Filter(ran), R"j({"OK":false})j");
}

TEST(Frm128Keys, AnApostropheIsNeverTypedButCanBePastedAndIsDoubledInThePlan) {
  const Json ran = Ran(kDialog, R"j({"steps": [{"type": "txtItem(0)", "text": "a'b"},
      {"paste": "txtItem(1)", "text": "a'b"}, {"click": "cmdOK"}]})j");
  EXPECT_EQ(ran["Filter"]["BItemNumber"], "ab");
  EXPECT_EQ(ran["Filter"]["EItemNumber"], "a'b");
  EXPECT_EQ(SavedPlan(ran)[3], "BItem=ab");
  EXPECT_EQ(SavedPlan(ran)[4], "EItem=a''b");
}

TEST(Frm128Keys, TextChangesAskTheNameListToLookAgainOnlyWhereOneExists) {
  EXPECT_EQ(
      Ran(kDialog, R"j({"steps": [{"focus": "txtItem(0)"}, {"type": "txtItem(0)", "text": "ab"}]})j")["keys"]
          .dump(),
      "[120,120]");
  EXPECT_EQ(Ran(kDialog, R"j({"steps": [{"paste": "txtItem(0)", "text": "ab"}]})j")["keys"].dump(), "[]");
  EXPECT_EQ(Ran(kDialog, R"j({"settings": {"ORV/Filter/ShowList": "0"},
      "steps": [{"focus": "txtItem(0)"}, {"type": "txtItem(0)", "text": "ab"}]})j")["keys"]
                .dump(),
            "[]");
}

TEST(Frm128LookUp, TakesTheLongNumberAndSendsWhatIsInTheField) {
  const Json ran = Ran(kDialog, R"j({"lookups": [{"Number": "01.02", "FShortNumber": "02"}, null], "steps": [
      {"paste": "txtItem(0)", "text": "01"}, {"click": "cmdItem(0)"}, {"click": "cmdItem(3)"}]})j");
  EXPECT_EQ(Text(ran, "txtItem(0)"), "01.02");
  EXPECT_EQ(Text(ran, "txtItem(3)"), "");
  const Json& calls = ran["calls"];
  ASSERT_EQ(calls.size(), 6U);
  EXPECT_EQ(calls[2]["member"], "Refresh");
  EXPECT_EQ(calls[3]["member"], "ItemLookUp");
  EXPECT_EQ(calls[3]["args"].dump(),
            R"j([4,"01","",{"BeShortNumber":false,"GetDataType":1,"Search":"01"}])j");
  EXPECT_EQ(calls[5]["args"].dump(), R"j([1,"","",{"BeShortNumber":false,"GetDataType":1,"Search":""}])j");
}

TEST(Frm128LookUp, TakesTheShortNumberByF7AndF8) {
  const Json ran = Ran(kDialog, R"j({"profile": {"IC/UseShortNumber": 1},
      "lookups": [{"Number": "01.02", "FShortNumber": "02"}, {"Number": "k.07", "FShortNumber": "07"}],
      "steps": [{"key": 118, "on": "txtItem(1)"}, {"key": 119, "on": "txtItem(2)"}]})j");
  EXPECT_EQ(Text(ran, "txtItem(1)"), "02");
  EXPECT_EQ(Text(ran, "txtItem(2)"), "07");
  EXPECT_EQ(ran["calls"][3]["args"].dump(),
            R"j([4,"","",{"BeShortNumber":true,"GetDataType":1,"Search":""}])j");
  EXPECT_EQ(ran["calls"][5]["args"][0], 1);
}

TEST(Frm128LookUp, ACancelledOneLeavesTheText) {
  const Json ran = Ran(kDialog, R"j({"lookups": [null], "steps": [
      {"paste": "txtItem(0)", "text": "01"}, {"click": "cmdItem(0)"}]})j");
  EXPECT_EQ(Text(ran, "txtItem(0)"), "01");
  EXPECT_THAT(Boxes(ran), IsEmpty());
}

}  // namespace
}  // namespace salerpt::shell
