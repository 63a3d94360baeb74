// The dialogs of customer sales, returns and sales flow.
#include "tests/shell/dialogs/ran_dialog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace salerpt::shell {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;

constexpr const char* kCustomerFilter = R"j({"OK": true, "BDate": "2024-03-15", "EDate": "2024-03-15",
    "BItemNumber": "", "EItemNumber": "", "BCustNumber": "", "ECustNumber": "", "CheckState": 0,
    "SaleType": 1, "SaleTypeName": "全部", "AuxProp": 1, "HookStatus": -1, "chkNextChoose": 0,
    "CommodityType": 0})j";
constexpr const char* kRestoredFilter = R"j({"OK": true, "BDate": "2023-01-02", "EDate": "2023-02-03",
    "BItemNumber": "i1", "EItemNumber": "i2", "BCustNumber": "c1", "ECustNumber": "c2", "CheckState": 1,
    "SaleType": 20296, "SaleTypeName": "受托代销", "AuxProp": AUX, "HookStatus": 2, "chkNextChoose": 1,
    "CommodityType": 2})j";
constexpr const char* kStoredPlan = R"j({"plans": {"月报": {"BDate": "2023-01-02", "EDate": "2023-02-03",
    "BItem": "i1", "EItem": "i2", "BCustomer": "c1", "ECustomer": "c2", "CheckState": "1",
    "SaleTypeListIndex": "2", "AuxProp": "0", "HookStatus": "2", "chkNextChoose": "1",
    "CommodityType": "2"}}, "steps": [{"finish": "月报"}]})j";
std::string Restored(const char* aux) {
  std::string text = kRestoredFilter;
  return text.replace(text.find("AUX"), 3, aux);
}

TEST(Frm134, DefaultsGiveTheWholeFilterAndPlan) {
  const Json ran = Ran("frmFirter134", R"j({"RptID": 134})j");
  EXPECT_EQ(Filter(ran), InOrder(kCustomerFilter));
  EXPECT_THAT(SavedPlan(ran),
              ElementsAre("134/默认方案", "BDate=2024-03-15", "EDate=2024-03-15",
                          "BItem=", "EItem=", "BCustomer=", "ECustomer=", "CheckState=0",
                          "SaleTypeListIndex=0", "HookStatus=0", "chkNextChoose=0", "CommodityType=0"));
}

TEST(Frm134, AStoredPlanComesBackButForTheAuxiliaryBox) {
  const Json ran = Ran("frmFirter134", kStoredPlan);
  EXPECT_EQ(Filter(ran), InOrder(Restored("1")));
  EXPECT_THAT(SavedPlans(ran), IsEmpty());
}

TEST(Frm134, TheCheckStateThatAPlanLacksStaysAsItIs) {
  const Json ran = Ran("frmFirter134", R"j({"plans": {"月报": {}},
      "steps": [{"select": "cmbCheckState", "index": 2}, {"plan": "月报"}, {"click": "cmdOK"}]})j");
  EXPECT_EQ(ran["Filter"]["CheckState"], 2);
}

TEST(Frm134, BoxesAndCaptions) {
  const Json ran = Ran("frmFirter134", R"j({"steps": []})j");
  EXPECT_EQ(Items(ran, "cmbHookStatus"), R"j([["全部",0],["未钩稽",0],["已钩稽",0]])j");
  EXPECT_EQ(Items(ran, "cmbCheckState"), R"j([["已审核",0],["未审核",0],["全部",0]])j");
  EXPECT_EQ(Shown(ran, "CmbSaleType")["items"].size(), 4U);
  EXPECT_THAT(Captions(ran), IsSupersetOf({"以辅助属性展开", "销售方式:", "物料代码:", "客户代码:",
                                           "起始日期:", "截止日期:", "钩稽状态:", "单据状态:"}));
}

TEST(Frm135, DefaultsGiveTheWholeFilterAndPlan) {
  const Json ran = Ran("frmFirter135", R"j({"RptID": 135})j");
  EXPECT_EQ(Filter(ran), InOrder(kCustomerFilter));
  EXPECT_THAT(SavedPlan(ran), ElementsAre("135/默认方案", "BDate=2024-03-15", "EDate=2024-03-15",
                                          "BItem=", "EItem=", "BCustomer=", "ECustomer=", "CheckState=0",
                                          "SaleTypeListIndex=0", "AuxProp=1", "HookStatus=0",
                                          "chkNextChoose=0", "CommodityType=0"));
}

TEST(Frm135, AStoredPlanComesBackWhole) {
  EXPECT_EQ(Filter(Ran("frmFirter135", kStoredPlan)), InOrder(Restored("0")));
}

TEST(Frm135, TheCheckStateStartsFromTheUserSettingsUnlessThePlanHasOne) {
  EXPECT_EQ(
      Ran("frmFirter135",
          R"j({"RptID": 135, "settings": {"ORV/135ORVSaleRpt/CheckState": "2"}})j")["Filter"]["CheckState"],
      2);
  EXPECT_EQ(Ran("frmFirter135", R"j({"RptID": 135, "settings": {"ORV/135ORVSaleRpt/CheckState": "2"},
      "plans": {"默认方案": {"CheckState": "1"}}})j")["Filter"]["CheckState"],
            1);
}

TEST(Frm135, Captions) {
  EXPECT_THAT(Captions(Ran("frmFirter135", R"j({"steps": []})j")),
              IsSupersetOf({"以辅助属性展开", "销售方式:", "物料代码:", "客户代码:", "起始日期:", "截止日期:",
                            "钩稽状态:", "单据状态:"}));
}

TEST(Frm142, DefaultsGiveTheWholeFilterAndPlan) {
  const Json ran = Ran("frmFirter142", R"j({"RptID": 300})j");
  EXPECT_EQ(Filter(ran), InOrder(R"j({"OK": true, "BDate": "2024-03-15", "EDate": "2024-03-15",
      "BItemNumber": "", "EItemNumber": "", "BCustNumber": "", "ECustNumber": "", "CheckState": 0,
      "chkNextChoose": 0, "CommodityType": 0, "AuxProp": 1})j"));
  EXPECT_THAT(SavedPlan(ran), ElementsAre("300/默认方案", "BDATE=2024-03-15", "EDATE=2024-03-15",
                                          "BItem=", "EItem=", "BEmp=", "EEmp=", "CheckState=0", "AuxProp=1",
                                          "chkNextChoose=0", "CommodityType=0"));
}

TEST(Frm142, AStoredPlanComesBackWhole) {
  const Json ran = Ran("frmFirter142", R"j({"plans": {"月报": {"BDATE": "2023-01-02", "EDATE": "2023-02-03",
      "BItem": "i1", "EItem": "i2", "BEmp": "c1", "EEmp": "c2", "CheckState": "2", "AuxProp": "0",
      "chkNextChoose": "1", "CommodityType": "1"}}, "steps": [{"finish": "月报"}]})j");
  EXPECT_EQ(Filter(ran), InOrder(R"j({"OK": true, "BDate": "2023-01-02", "EDate": "2023-02-03",
      "BItemNumber": "i1", "EItemNumber": "i2", "BCustNumber": "c1", "ECustNumber": "c2", "CheckState": 2,
      "chkNextChoose": 1, "CommodityType": 1, "AuxProp": 0})j"));
}

TEST(Frm142, ReversedDatesAreRefused) {
  const Json ran = Ran("frmFirter142",
                       R"j({"steps": [{"date": "DtpEDate", "value": "2024-03-14"}, {"click": "cmdOK"}]})j");
  EXPECT_THAT(Boxes(ran), ElementsAre("起始日期不能大于截止日期! | 青岚提示： | 64"));
  EXPECT_EQ(Filter(ran), R"j({"OK":false})j");
  EXPECT_EQ(Shown(ran, "DtpBDate")["value"], "2024-03-14");
}

TEST(Frm142, Captions) {
  EXPECT_THAT(
      Captions(Ran("frmFirter142", R"j({"steps": []})j")),
      IsSupersetOf({"以辅助属性展开", "物料代码:", "客户代码:", "起始日期:", "截止日期:", "单据状态:"}));
}

TEST(CustomerSalesDialogs, LookUpsByBothCodeRules) {
  for (const char* dialog : {"frmFirter134", "frmFirter135", "frmFirter142"}) {
    SCOPED_TRACE(dialog);
    const Json ran = Ran(dialog, R"j({"lookups": [{"Number": "01.02", "FShortNumber": "02"},
        {"Number": "k.07", "FShortNumber": "07"}],
        "steps": [{"click": "cmdItem(1)"}, {"key": 118, "on": "txtItem(2)"}]})j");
    EXPECT_EQ(Text(ran, "txtItem(1)"), "01.02");
    EXPECT_EQ(Text(ran, "txtItem(2)"), "k.07");
    EXPECT_EQ(ran["calls"][3]["args"][0], 4);
    EXPECT_EQ(ran["calls"][5]["args"][0], 1);
    const Json brief = Ran(dialog, R"j({"profile": {"IC/UseShortNumber": 1},
        "lookups": [{"Number": "k.07", "FShortNumber": "07"}], "steps": [{"key": 119, "on": "txtItem(3)"}]})j");
    EXPECT_EQ(Text(brief, "txtItem(3)"), "07");
  }
}

}  // namespace
}  // namespace salerpt::shell
