// The dialogs of sales income, outbound detail, customer sales, returns and sales flow.
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
// "code SumField" of a confirmation with a row of the group box.
std::string GroupedBy(std::string_view dialog, int index, std::string_view more = "") {
  const Json ran = Ran(dialog, "{" + std::string(more) + R"j("steps": [{"select": "cmbGroupBy", "index": )j" +
                                   std::to_string(index) + R"j(}, {"click": "cmdOK"}]})j");
  return ran["Filter"]["SumMode"].dump() + " " +
         nlohmann::json::parse(ran["Filter"]["SumField"].dump()).dump();
}
// Members and first arguments of the look-ups, in order: "4 1 2".
std::string LookedUpClasses(const Json& ran) {
  std::string classes;
  for (const Json& call : ran["calls"]) {
    if (call["member"] != "ItemLookUp") continue;
    classes += (classes.empty() ? "" : " ") + call["args"][0].dump();
  }
  return classes;
}
constexpr const char* kPicked =
    R"j([{"Number": "L0", "FShortNumber": "S0"}, {"Number": "L1", "FShortNumber": "S1"},
    {"Number": "L2", "FShortNumber": "S2"}, {"Number": "L3", "FShortNumber": "S3"},
    {"Number": "L4", "FShortNumber": "S4"}, {"Number": "L5", "FShortNumber": "S5"},
    {"Number": "L6", "FShortNumber": "S6"}, {"Number": "L7", "FShortNumber": "S7"}])j";
// Every look-up button clicked, under one code rule.
Json LookedUp(std::string_view dialog, int fields, int use_short) {
  std::string steps;
  for (int i = 0; i < fields; ++i) {
    steps += (i == 0 ? "" : ", ") + (R"j({"click": "cmdItem()j" + std::to_string(i)) + R"j()"})j";
  }
  return Ran(dialog, R"j({"profile": {"IC/UseShortNumber": )j" + std::to_string(use_short) +
                         R"j(}, "lookups": )j" + kPicked + R"j(, "steps": [)j" + steps + "]}");
}

// --- Sales income statistics

TEST(Frm126, DefaultsGiveTheWholeFilterAndPlan) {
  const Json ran = Ran("frmFirter126", R"j({"RptID": 166})j");
  EXPECT_EQ(Filter(ran), InOrder(R"j({"OK": true, "BDate": "2024-03-15", "EDate": "2024-03-15",
      "BItemNumber": "", "EItemNumber": "", "BCustNumber": "", "ECustNumber": "", "BDeptNumber": "",
      "EDeptNumber": "", "BEmpNumber": "", "EEmpNumber": "", "GroupBy": 1, "OnlyShowSum": 1, "BLevel": 1,
      "ELevel": 4, "SumMode": 1, "SumName": "物料类别", "SaleType": 1, "SaleTypeName": "全部",
      "HookStatus": -1, "CurrencyShow": 0,
      "SumField": {"FPropID": 0, "FSQLColumnName": "FName", "FSrcTable": "", "FSrcField": "",
                   "FDisplayField": ""},
      "CheckState": 0, "AuxProp": 0, "BillType": 0, "chkNextChoose": 0, "CommodityType": 0})j"));
  EXPECT_THAT(
      SavedPlan(ran),
      ElementsAre("166/默认方案", "BDate=2024-03-15", "EDate=2024-03-15", "BItem=", "EItem=", "BEmp=",
                  "EEmp=", "BDpt=", "EDpt=", "BCust=", "ECust=", "BLevel=1", "ELevel=4", "chkGroupBy=1",
                  "OnlyShowSum=1", "GroupByListIndex=0", "CheckState=0", "BillType=0", "SaleTypeListIndex=0",
                  "HookStatus=0", "CurrencyShow=0", "AuxProp=0", "chkNextChoose=0", "CommodityType=0"));
}

TEST(Frm126, BoxesAndCaptions) {
  const Json ran = Ran("frmFirter126", R"j({"steps": []})j");
  EXPECT_EQ(Items(ran, "cboBillType"), R"j([["蓝字",0],["红字",0],["全部",0]])j");
  EXPECT_EQ(Shown(ran, "cboBillType")["text"], "蓝字");
  EXPECT_EQ(Items(ran, "cmbHookStatus"), R"j([["全部",0],["未钩稽",0],["已钩稽",0]])j");
  EXPECT_EQ(Items(ran, "CmbSaleType"),
            R"j([["全部",1],["现销",101],["受托代销",20296],["委托代销",20298]])j");
  EXPECT_EQ(
      Items(ran, "cmbGroupBy"),
      R"j([["物料类别",1],["客户类别",2],["物料类别+客户",3],["客户+物料类别",4],["客户",5],["部门",6],["业务员",7]])j");
  EXPECT_THAT(Captions(ran),
              IsSupersetOf({"以辅助属性展开", "以原币显示", "销售方式:", "物料代码:", "客户代码:",
                            "部门代码:", "业务员:", "分级汇总", "汇总依据:", "类别级次:", "仅显示汇总行",
                            "起始日期:", "截止日期:", "钩稽状态:", "单据类型:", "单据状态:"}));
}

TEST(Frm126, AStoredPlanComesBackWithItsCrossedFieldNames) {
  const Json ran = Ran("frmFirter126", R"j({"plans": {"月报": {"BDate": "2023-01-02", "EDate": "2023-02-03",
      "BItem": "i1", "EItem": "i2", "BEmp": "e1", "EEmp": "e2", "BDpt": "d1", "EDpt": "d2", "BCust": "c1",
      "ECust": "c2", "BLevel": "2", "ELevel": "3", "chkGroupBy": "0", "OnlyShowSum": "0",
      "GroupByListIndex": "1", "CheckState": "2", "BillType": "2", "SaleTypeListIndex": "3",
      "HookStatus": "2", "CurrencyShow": "1", "AuxProp": "1", "chkNextChoose": "1", "CommodityType": "1"}},
      "steps": [{"finish": "月报"}]})j");
  EXPECT_EQ(Filter(ran), InOrder(R"j({"OK": true, "BDate": "2023-01-02", "EDate": "2023-02-03",
      "BItemNumber": "i1", "EItemNumber": "i2", "BCustNumber": "e1", "ECustNumber": "e2",
      "BDeptNumber": "d1", "EDeptNumber": "d2", "BEmpNumber": "c1", "EEmpNumber": "c2", "GroupBy": 0,
      "OnlyShowSum": 0, "BLevel": 2, "ELevel": 3, "SumMode": 2, "SumName": "客户类别", "SaleType": 20298,
      "SaleTypeName": "委托代销", "HookStatus": 2, "CurrencyShow": 1,
      "SumField": {"FPropID": 0, "FSQLColumnName": "FName", "FSrcTable": "", "FSrcField": "",
                   "FDisplayField": ""},
      "CheckState": 2, "AuxProp": 1, "BillType": 2, "chkNextChoose": 1, "CommodityType": 1})j"));
  EXPECT_THAT(SavedPlans(ran), IsEmpty());
}

TEST(Frm126, TheHookStateIsNeverOne) {
  const char* answers[] = {"-1", "0", "2"};
  for (int index = 0; index < 3; ++index) {
    const Json ran = Ran("frmFirter126", R"j({"steps": [{"select": "cmbHookStatus", "index": )j" +
                                             std::to_string(index) + R"j(}, {"click": "cmdOK"}]})j");
    EXPECT_EQ(ran["Filter"]["HookStatus"].dump(), answers[index]);
  }
}

TEST(Frm126, GroupRowsWithWhatDescribesThem) {
  for (int class_row = 0; class_row < 4; ++class_row) {
    EXPECT_EQ(GroupedBy("frmFirter126", class_row), std::to_string(class_row + 1) + " " + kPlainSum);
  }
  EXPECT_EQ(GroupedBy("frmFirter126", 4), "0 " + ClassSum(1, "客户"));
  EXPECT_EQ(GroupedBy("frmFirter126", 5), "6 " + ClassSum(2, "部门"));
  EXPECT_EQ(GroupedBy("frmFirter126", 6), "7 " + ClassSum(3, "业务员"));
}

TEST(Frm126, LookUpsByBothCodeRules) {
  const Json full = LookedUp("frmFirter126", 8, 0);
  EXPECT_EQ(LookedUpClasses(full), "4 4 1 1 2 2 3 3");
  EXPECT_EQ(Text(full, "txtItem(7)"), "L7");
  const Json brief = LookedUp("frmFirter126", 8, 1);
  EXPECT_EQ(Text(brief, "txtItem(0)"), "S0");
  EXPECT_EQ(Text(brief, "txtItem(5)"), "S5");
}

// --- Sales outbound detail

TEST(Frm129, DefaultsGiveTheWholeFilterAndPlan) {
  const Json ran = Ran("frmFirter129", R"j({"RptID": 129})j");
  EXPECT_EQ(Filter(ran), InOrder(R"j({"OK": true, "BDate": "2024-03-15", "EDate": "2024-03-15",
      "BItemNumber": "", "EItemNumber": "", "BCustNumber": "", "ECustNumber": "", "GroupBy": 1,
      "OnlyShowSum": 1, "SaleType": 1, "SaleTypeName": "全部", "BBatchNo": "", "EBatchNo": "", "BLevel": 1,
      "ELevel": 4, "SumMode": 1, "SumName": "物料类别",
      "SumField": {"FPropID": 0, "FSQLColumnName": "FName", "FSrcTable": "", "FSrcField": "",
                   "FDisplayField": ""},
      "CheckState": 0, "FROB": 0, "AuxProp": 1, "chkShowItemSum": 1, "chkShowDateSum": 0, "OrderBy": "",
      "chkNextChoose": 0, "CommodityType": 0})j"));
  EXPECT_THAT(
      SavedPlan(ran),
      ElementsAre("129/默认方案", "BDate=2024-03-15", "EDate=2024-03-15", "BItem=", "EItem=", "BCustomer=",
                  "ECustomer=", "BLevel=1", "ELevel=4", "chkGroupBy=1", "OnlyShowSum=1", "GroupByListIndex=0",
                  "CheckState=0", "SaleTypeListIndex=0", "AuxProp=1", "chkShowItemSum=1", "chkShowDateSum=0",
                  "FROB=0", "BBatchNo=", "EBatchNo=", "OrderBy=", "chkNextChoose=0", "CommodityType=0"));
}

TEST(Frm129, BoxesAndCaptions) {
  const Json ran = Ran("frmFirter129", R"j({"steps": [], "propDescs": [{"FName": "颜色", "FPropID": 7}]})j");
  EXPECT_EQ(Items(ran, "CmbSaleType"), R"j([["全部",1],["现销",101],["委托代销",20298]])j");
  EXPECT_EQ(
      Items(ran, "cmbGroupBy"),
      R"j([["物料类别",1],["客户类别",2],["物料类别+客户",3],["客户+物料类别",4],["客户",5],["颜色",0]])j");
  EXPECT_THAT(Captions(ran), IsSupersetOf({"以辅助属性展开", "显示产品小计", "显示日期小计", "截止日期:",
                                           "起始日期:", "仅显示汇总行", "类别级次:", "汇总依据:", "分级汇总",
                                           "销售方式:", "客户代码:", "物料代码:", "单据类型:", "单据状态:",
                                           "批号:", "添加(&A)", "上移(&U)", "下移(&D)", "删除(&R)"}));
  EXPECT_EQ(Shown(ran, "listOrderFields")["items"].size(), 15U);
}

TEST(Frm129, AStoredPlanComesBackWhole) {
  const Json ran = Ran("frmFirter129", R"j({"plans": {"月报": {"BDate": "2023-01-02", "EDate": "2023-02-03",
      "BItem": "i1", "EItem": "i2", "BCustomer": "c1", "ECustomer": "c2", "BLevel": "2", "ELevel": "3",
      "chkGroupBy": "0", "OnlyShowSum": "0", "GroupByListIndex": "1", "CheckState": "2",
      "SaleTypeListIndex": "1", "AuxProp": "0", "chkShowItemSum": "0", "chkShowDateSum": "1", "FROB": "2",
      "BBatchNo": "b1", "EBatchNo": "b2", "OrderBy": "FDate ASC,FNumber DESC", "chkNextChoose": "1",
      "CommodityType": "2"}}, "steps": [{"finish": "月报"}]})j");
  EXPECT_EQ(Filter(ran), InOrder(R"j({"OK": true, "BDate": "2023-01-02", "EDate": "2023-02-03",
      "BItemNumber": "i1", "EItemNumber": "i2", "BCustNumber": "c1", "ECustNumber": "c2", "GroupBy": 0,
      "OnlyShowSum": 0, "SaleType": 101, "SaleTypeName": "现销", "BBatchNo": "b1", "EBatchNo": "b2",
      "BLevel": 2, "ELevel": 3, "SumMode": 2, "SumName": "客户类别",
      "SumField": {"FPropID": 0, "FSQLColumnName": "FName", "FSrcTable": "", "FSrcField": "",
                   "FDisplayField": ""},
      "CheckState": 2, "FROB": 2, "AuxProp": 0, "chkShowItemSum": 0, "chkShowDateSum": 1,
      "OrderBy": "FDate ASC,FNumber DESC", "chkNextChoose": 1, "CommodityType": 2})j"));
}

TEST(Frm129, PropertyRowsGiveTheirDescription) {
  constexpr const char* kProps =
      R"j("propDescs": [{"FName": "颜色", "FPropID": 7}, {"FName": "等级", "FPropID": 8}], )j";
  for (int class_row = 0; class_row < 4; ++class_row) {
    EXPECT_EQ(GroupedBy("frmFirter129", class_row, kProps), std::to_string(class_row + 1) + " " + kPlainSum);
  }
  EXPECT_EQ(GroupedBy("frmFirter129", 4, kProps), "0 " + ClassSum(1, "客户"));
  EXPECT_EQ(GroupedBy("frmFirter129", 5, kProps), R"j(0 {"FName":"颜色","FPropID":7})j");
  EXPECT_EQ(GroupedBy("frmFirter129", 6, kProps), R"j(0 {"FName":"等级","FPropID":8})j");
}

TEST(Frm129, BatchNumbersAreLookedUpWithinTheItemRange) {
  const Json narrowed = Ran("frmFirter129", R"j({"lookups": [{"FBatchNo": "B7"}], "steps": [
      {"paste": "txtItem(0)", "text": "01"}, {"paste": "txtItem(1)", "text": "0'9"}, {"click": "cmdItem(4)"}]})j");
  EXPECT_EQ(Text(narrowed, "txtItem(4)"), "B7");
  EXPECT_THAT(narrowed["calls"].dump(),
              testing::HasSubstr(" FItemID In (Select FItemID From t_ICItem Where  FNumber>='01' AND "
                                 "FNumber<='0''9') and FBatchNo>''"));
  const Json brief =
      Ran("frmFirter129", R"j({"profile": {"IC/UseShortNumber": 1}, "lookups": [null], "steps": [
      {"paste": "txtItem(1)", "text": "9"}, {"click": "cmdItem(5)"}]})j");
  EXPECT_EQ(Text(brief, "txtItem(5)"), "");
  EXPECT_THAT(brief["calls"].dump(),
              testing::HasSubstr(" FItemID In (Select FItemID From t_ICItem Where  FShortNumber<='9') and "
                                 "FBatchNo>''"));
  const Json all = Ran("frmFirter129", R"j({"lookups": [null], "steps": [{"click": "cmdItem(4)"}]})j");
  EXPECT_THAT(all["calls"].dump(), testing::HasSubstr(R"j(" FBatchNo>''")j"));
}

}  // namespace
}  // namespace salerpt::shell
