// Dialogs that group by properties too: customer sales summary, gross profit, consignment and instalment
// lists.
#include "tests/shell/dialogs/ran_dialog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace salerpt::shell {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;

constexpr const char* kPlainSum =
    R"j({"FDisplayField":"","FPropID":0,"FSQLColumnName":"FName","FSrcField":"","FSrcTable":""})j";
std::string ClassSum(int item_class, std::string_view name) {
  return R"j({"FDisplayField":"","FItemClassID":)j" + std::to_string(item_class) + R"j(,"FName":")j" +
         std::string(name) + R"j(","FPropID":0,"FSQLColumnName":"FName","FSrcField":"","FSrcTable":""})j";
}
// "code SumField" of a confirmation with a row of the group box; three properties follow the fixed rows.
std::string GroupedBy(std::string_view dialog, int index) {
  const Json ran = Ran(dialog, R"j({"propDescs": [{"FName": "颜色"}, {"FName": "等级"}, {"FName": "产地"}],
      "steps": [{"select": "cmbGroupBy", "index": )j" +
                                   std::to_string(index) + R"j(}, {"click": "cmdOK"}]})j");
  return ran["Filter"]["SumMode"].dump() + " " +
         nlohmann::json::parse(ran["Filter"]["SumField"].dump()).dump();
}
std::string GroupRows(std::string_view dialog) {
  return Items(Ran(dialog, R"j({"steps": [], "propDescs": [{"FName": "颜色"}]})j"), "cmbGroupBy");
}
// Classes of the look-ups of the first fields, in order, and what came into each.
std::string LookedUp(std::string_view dialog, int fields, int use_short) {
  std::string steps;
  std::string picked;
  for (int i = 0; i < fields; ++i) {
    const std::string number = std::to_string(i);
    steps += std::string(i == 0 ? "" : ", ") + R"j({"click": "cmdItem()j" + number + R"j()"})j";
    picked += std::string(i == 0 ? "" : ", ") + R"j({"Number": "L)j" + number + R"j(", "FShortNumber": "S)j" +
              number + R"j("})j";
  }
  const Json ran = Ran(dialog, R"j({"profile": {"IC/UseShortNumber": )j" + std::to_string(use_short) +
                                   R"j(}, "lookups": [)j" + picked + R"j(], "steps": [)j" + steps + "]}");
  std::string shown;
  for (const Json& call : ran["calls"]) {
    if (call["member"] == "ItemLookUp") shown += call["args"][0].dump() + " ";
  }
  for (int i = 0; i < fields; ++i) shown += Text(ran, "txtItem(" + std::to_string(i) + ")") + " ";
  return shown;
}

// --- Customer sales summary

TEST(Frm133, DefaultsGiveTheWholeFilterAndPlan) {
  const Json ran = Ran("FrmFilter133", R"j({"RptID": 133})j");
  EXPECT_EQ(Filter(ran), InOrder(R"j({"OK": true, "BDate": "2024-03-15", "EDate": "2024-03-15",
      "BItemNumber": "", "EItemNumber": "", "BCustNumber": "", "ECustNumber": "", "GroupBy": 1,
      "OnlyShowSum": 1, "BLevel": 1, "ELevel": 4, "SumMode": 1,
      "SumField": {"FPropID": 0, "FSQLColumnName": "FName", "FSrcTable": "", "FSrcField": "",
                   "FDisplayField": ""},
      "CheckState": 0})j"));
  EXPECT_THAT(SavedPlan(ran),
              ElementsAre("133/默认方案", "BDate=2024-03-15", "EDate=2024-03-15",
                          "BItem=", "EItem=", "BCustomer=", "ECustomer=", "BLevel=1", "ELevel=4",
                          "chkGroupBy=1", "OnlyShowSum=1", "GroupByListIndex=0", "CheckState=0"));
  EXPECT_THAT(Calls(ran), ElementsAre("GetPlanList", "GetPlanValue 默认方案", "SaveProfile"));
}

TEST(Frm133, AStoredPlanComesBackWhole) {
  const Json ran = Ran("FrmFilter133", R"j({"plans": {"月报": {"BDate": "2023-01-02", "EDate": "2023-02-03",
      "BItem": "i1", "EItem": "i2", "BCustomer": "c1", "ECustomer": "c2", "BLevel": "2", "ELevel": "3",
      "chkGroupBy": "0", "OnlyShowSum": "0", "GroupByListIndex": "1", "CheckState": "2"}},
      "steps": [{"finish": "月报"}]})j");
  EXPECT_EQ(Filter(ran), InOrder(R"j({"OK": true, "BDate": "2023-01-02", "EDate": "2023-02-03",
      "BItemNumber": "i1", "EItemNumber": "i2", "BCustNumber": "c1", "ECustNumber": "c2", "GroupBy": 0,
      "OnlyShowSum": 0, "BLevel": 2, "ELevel": 3, "SumMode": 2,
      "SumField": {"FPropID": 0, "FSQLColumnName": "FName", "FSrcTable": "", "FSrcField": "",
                   "FDisplayField": ""},
      "CheckState": 2})j"));
}

TEST(Frm133, GroupRowsWithWhatDescribesThem) {
  EXPECT_EQ(
      GroupRows("FrmFilter133"),
      R"j([["物料类别",1],["客户类别",2],["物料类别+客户",3],["客户+物料类别",4],["客户",5],["颜色",0]])j");
  EXPECT_EQ(GroupedBy("FrmFilter133", 3), std::string("4 ") + kPlainSum);
  EXPECT_EQ(GroupedBy("FrmFilter133", 4), "0 " + ClassSum(1, "客户"));
  EXPECT_EQ(GroupedBy("FrmFilter133", 5), R"j(0 {"FName":"颜色"})j");
}

TEST(Frm133, LookUpsAndKeysAreThoseOfTheOlderDialogs) {
  EXPECT_EQ(LookedUp("FrmFilter133", 4, 0), "4 4 1 1 L0 L1 L2 L3 ");
  EXPECT_EQ(LookedUp("FrmFilter133", 4, 1), "4 4 1 1 S0 S1 S2 S3 ");
  const Json ran = Ran("FrmFilter133", R"j({"steps": [{"key": 27, "on": "txtItem(0)"},
      {"type": "txtItem(0)", "text": "a'b"}, {"key": 13, "on": "txtItem(0)"}, {"state": "s"}]})j");
  EXPECT_EQ(ran["keys"].dump(), R"j(["{TAB}"])j");
  EXPECT_EQ(Text(ran, "s", "txtItem(0)"), "ab");
}

// --- Gross profit

TEST(Frm176, DefaultsGiveTheWholeFilterAndPlan) {
  const Json ran = Ran("frmFirter176", R"j({"RptID": 176})j");
  EXPECT_EQ(Filter(ran), InOrder(R"j({"OK": true, "IncludeTax": 0, "TaxSource": 0, "BDate": "2024-03-15",
      "EDate": "2024-03-15", "BItemNumber": "", "EItemNumber": "", "BCustNumber": "", "ECustNumber": "",
      "BDept": "", "EDept": "", "BEmp": "", "EEmp": "", "GroupBy": 1, "OnlyShowSum": 1, "BLevel": 1,
      "ELevel": 4, "SumMode": 1, "SumName": "物料类别", "SaleType": 1, "SaleTypeName": "全部",
      "SumField": {"FPropID": 0, "FSQLColumnName": "FName", "FSrcTable": "", "FSrcField": "",
                   "FDisplayField": ""},
      "CheckState": 0, "Cost": 0})j"));
  EXPECT_THAT(
      SavedPlan(ran),
      ElementsAre("176/默认方案", "BDate=2024-03-15", "EDate=2024-03-15", "BItem=", "EItem=", "BCustomer=",
                  "ECustomer=", "BDept=", "EDept=", "BEmp=", "EEmp=", "BLevel=1", "ELevel=4", "chkGroupBy=1",
                  "OnlyShowSum=1", "GroupByListIndex=0", "CheckState=0", "SaleTypeListIndex=0", "Cost=0"));
}

TEST(Frm176, AStoredPlanComesBackWhole) {
  const Json ran = Ran("frmFirter176", R"j({"plans": {"月报": {"BDate": "2023-01-02", "EDate": "2023-02-03",
      "BItem": "i1", "EItem": "i2", "BCustomer": "c1", "ECustomer": "c2", "BDept": "d1", "EDept": "d2",
      "BEmp": "e1", "EEmp": "e2", "BLevel": "2", "ELevel": "3", "chkGroupBy": "0", "OnlyShowSum": "0",
      "GroupByListIndex": "1", "CheckState": "3", "SaleTypeListIndex": "2", "Cost": "2"}},
      "steps": [{"finish": "月报"}]})j");
  EXPECT_EQ(Filter(ran), InOrder(R"j({"OK": true, "IncludeTax": 0, "TaxSource": 0, "BDate": "2023-01-02",
      "EDate": "2023-02-03", "BItemNumber": "i1", "EItemNumber": "i2", "BCustNumber": "c1",
      "ECustNumber": "c2", "BDept": "d1", "EDept": "d2", "BEmp": "e1", "EEmp": "e2", "GroupBy": 0,
      "OnlyShowSum": 0, "BLevel": 2, "ELevel": 3, "SumMode": 2, "SumName": "客户类别", "SaleType": 20296,
      "SaleTypeName": "受托代销",
      "SumField": {"FPropID": 0, "FSQLColumnName": "FName", "FSrcTable": "", "FSrcField": "",
                   "FDisplayField": ""},
      "CheckState": 3, "Cost": 2})j"));
}

TEST(Frm176, BoxesAndCaptions) {
  const Json ran = Ran("frmFirter176", R"j({"steps": []})j");
  EXPECT_EQ(Items(ran, "cmbCheckState"), R"j([["已钩稽",0],["已审核",0],["未审核",0],["全部",0]])j");
  EXPECT_EQ(Items(ran, "Cmb_Cost"), R"j([["实际成本",0],["参考采购价格",0],["最近入库价",0]])j");
  EXPECT_EQ(Shown(ran, "CmbSaleType")["items"].size(), 4U);
  EXPECT_THAT(
      Captions(ran),
      IsSupersetOf({"仅显示汇总行", "分级汇总", "汇总依据:", "类别级次:", "起始日期:", "截止日期:", "业务员:",
                    "部门代码:", "客户代码:", "物料代码:", "销售方式:", "成本依据:", "单据状态:"}));
}

TEST(Frm176, GroupRowsWithWhatDescribesThem) {
  EXPECT_EQ(
      GroupRows("frmFirter176"),
      R"j([["物料类别",1],["客户类别",2],["物料类别+客户",3],["客户+物料类别",4],["客户",5],["部门",6],["颜色",0]])j");
  EXPECT_EQ(GroupedBy("frmFirter176", 0), std::string("1 ") + kPlainSum);
  EXPECT_EQ(GroupedBy("frmFirter176", 4), "0 " + ClassSum(1, "客户"));
  EXPECT_EQ(GroupedBy("frmFirter176", 5), "0 " + ClassSum(2, "部门"));
}

TEST(Frm176, APropertyRowGivesTheDescriptionBehindItsOwn) {
  EXPECT_EQ(GroupedBy("frmFirter176", 6), R"j(0 {"FName":"等级"})j");
  EXPECT_EQ(GroupedBy("frmFirter176", 7), R"j(0 {"FName":"产地"})j");
}

TEST(Frm176, PurchaseTaxOptionsOfTheAccountSetReachTheFilter) {
  const Json ran =
      Ran("frmFirter176", R"j({"profile": {"IC/POOrderTaxInPrice": 1, "IC/PurTaxRateOption": 2}})j");
  EXPECT_NE(ran["Filter"]["IncludeTax"], 0);
  EXPECT_NE(ran["Filter"]["TaxSource"], 0);
}

TEST(Frm176, LookUpsByBothCodeRules) {
  EXPECT_EQ(LookedUp("frmFirter176", 8, 0), "4 4 1 1 2 2 3 3 L0 L1 L2 L3 L4 L5 L6 L7 ");
  EXPECT_EQ(LookedUp("frmFirter176", 8, 1), "4 4 1 1 2 2 3 3 S0 S1 S2 S3 S4 S5 S6 S7 ");
}

TEST(Frm176, ANamedPlanIsSavedAgainWithoutAQuestion) {
  const Json ran =
      Ran("frmFirter176", R"j({"plans": {"月报": {}, "status": "月报"}, "steps": [{"tool": "TLBSAVE"}]})j");
  EXPECT_THAT(Boxes(ran), IsEmpty());
  EXPECT_THAT(Inputs(ran), IsEmpty());
  EXPECT_EQ(SavedPlan(ran).at(0), "900/月报");
}

// --- Consignment and instalment lists

TEST(Frm303, DefaultsGiveTheWholeFilterAndPlan) {
  const Json ran = Ran("FrmFilter303", R"j({"RptID": 303})j");
  EXPECT_EQ(Filter(ran), InOrder(R"j({"OK": true, "BDate": "2024-03-15", "EDate": "2024-03-15",
      "BItemNumber": "", "EItemNumber": "", "BCustNumber": "", "ECustNumber": "", "BDptNumber": "",
      "EDptNumber": "", "BEmpNumber": "", "EEmpNumber": "", "GroupBy": 1, "OnlyShowSum": 1,
      "ShowVirtualStock": 1, "BLevel": 1, "ELevel": 4, "SumMode": 1,
      "SumField": {"FPropID": 0, "FSQLColumnName": "FName", "FSrcTable": "", "FSrcField": "",
                   "FDisplayField": ""},
      "CheckState": 0, "chkNextChoose": 0, "CommodityType": 0})j"));
  EXPECT_THAT(SavedPlan(ran),
              ElementsAre("303/默认方案", "BDate=2024-03-15", "EDate=2024-03-15", "BItem=", "EItem=",
                          "BCust=", "ECust=", "BDpt=", "EDpt=", "BEmp=", "EEmp=", "BLevel=1", "ELevel=4",
                          "chkGroupBy=1", "OnlyShowSum=1", "ShowVirtualStock=1", "GroupByListIndex=0",
                          "CheckState=0", "chkNextChoose=0", "CommodityType=0"));
}

TEST(Frm303, AStoredPlanComesBackWhole) {
  const Json ran = Ran("FrmFilter303", R"j({"plans": {"月报": {"BDate": "2023-01-02", "EDate": "2023-02-03",
      "BItem": "i1", "EItem": "i2", "BCust": "c1", "ECust": "c2", "BDpt": "d1", "EDpt": "d2", "BEmp": "e1",
      "EEmp": "e2", "BLevel": "2", "ELevel": "3", "chkGroupBy": "0", "OnlyShowSum": "0",
      "ShowVirtualStock": "0", "GroupByListIndex": "1", "CheckState": "2", "chkNextChoose": "1",
      "CommodityType": "2"}}, "steps": [{"finish": "月报"}]})j");
  EXPECT_EQ(Filter(ran), InOrder(R"j({"OK": true, "BDate": "2023-01-02", "EDate": "2023-02-03",
      "BItemNumber": "i1", "EItemNumber": "i2", "BCustNumber": "c1", "ECustNumber": "c2",
      "BDptNumber": "d1", "EDptNumber": "d2", "BEmpNumber": "e1", "EEmpNumber": "e2", "GroupBy": 0,
      "OnlyShowSum": 0, "ShowVirtualStock": 0, "BLevel": 2, "ELevel": 3, "SumMode": 2,
      "SumField": {"FPropID": 0, "FSQLColumnName": "FName", "FSrcTable": "", "FSrcField": "",
                   "FDisplayField": ""},
      "CheckState": 2, "chkNextChoose": 1, "CommodityType": 2})j"));
}

TEST(Frm303, GroupRowsWithWhatDescribesThem) {
  EXPECT_EQ(
      GroupRows("FrmFilter303"),
      R"j([["物料类别",1],["客户类别",2],["物料类别+客户",3],["客户+物料类别",4],["客户",5],["业务员",6],["部门",7],["颜色",0]])j");
  EXPECT_EQ(GroupedBy("FrmFilter303", 1), std::string("2 ") + kPlainSum);
  EXPECT_EQ(GroupedBy("FrmFilter303", 4), "0 " + ClassSum(1, "客户"));
  EXPECT_EQ(GroupedBy("FrmFilter303", 5), "0 " + ClassSum(3, "业务员"));
  EXPECT_EQ(GroupedBy("FrmFilter303", 6), "0 " + ClassSum(2, "部门"));
  EXPECT_EQ(GroupedBy("FrmFilter303", 7), R"j(0 {"FName":"颜色"})j");
  EXPECT_EQ(GroupedBy("FrmFilter303", 9), R"j(0 {"FName":"产地"})j");
}

TEST(Frm303, ARefusedConfirmationLeavesOkTrueAndTheDialogOpen) {
  const Json ran = Ran("FrmFilter303",
                       R"j({"steps": [{"date": "DtpBDate", "value": "2024-03-16"}, {"click": "cmdOK"}]})j");
  EXPECT_FALSE(ran["closed"]);
  EXPECT_EQ(Filter(ran), R"j({"OK":true})j");
  EXPECT_THAT(Boxes(ran), ElementsAre("起始日期不能大于截止日期! | 青岚提示： | 64"));
  EXPECT_EQ(Shown(ran, "DtpBDate")["value"], "2024-03-15");
}

TEST(Frm303, OnlyEscapeIsHandledByTheForm) {
  const Json ran = Ran("FrmFilter303", R"j({"settings": {"ORV/Filter/ShowList": "0"}, "steps": [
      {"type": "txtItem(0)", "text": "a'b"}, {"state": "typed"}, {"key": 27, "on": "txtItem(0)"}]})j");
  EXPECT_EQ(Text(ran, "typed", "txtItem(0)"), "a'b");
  EXPECT_TRUE(ran["closed"]);
  EXPECT_EQ(Filter(ran), R"j({"OK":false})j");
  EXPECT_EQ(Ran("FrmFilter303", R"j({"steps": [{"key": 13, "on": "txtItem(0)"}]})j")["keys"].dump(), "[]");
}

TEST(Frm303, CaptionsAndLevelBounds) {
  const Json ran = Ran("FrmFilter303", R"j({"steps": []})j");
  EXPECT_THAT(Captions(ran),
              IsSupersetOf({"起始日期：", "截止日期：", "业务员：", "部门代码：", "物料代码：", "客户代码：",
                            "分级汇总", "汇总依据:", "类别级次: ", "仅显示汇总行", "单据状态："}));
  for (const char* arrows : {"udBLevel", "udELevel"}) {
    EXPECT_EQ(Shown(ran, arrows)["min"], 1);
    EXPECT_EQ(Shown(ran, arrows)["max"], 4);
  }
  EXPECT_EQ(Shown(ran, "SSTab")["tabs"][0][0], "条件");
}

TEST(Frm303, LookUpsByBothCodeRules) {
  EXPECT_EQ(LookedUp("FrmFilter303", 8, 0), "4 4 1 1 2 2 3 3 L0 L1 L2 L3 L4 L5 L6 L7 ");
  EXPECT_EQ(LookedUp("FrmFilter303", 8, 1), "4 4 1 1 2 2 3 3 S0 S1 S2 S3 S4 S5 S6 S7 ");
}

}  // namespace
}  // namespace salerpt::shell
