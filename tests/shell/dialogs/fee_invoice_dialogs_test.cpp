// The dialogs of the fee invoice reports.
#include "tests/shell/dialogs/ran_dialog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace salerpt::shell {
namespace {

using ::testing::ElementsAre;
using ::testing::IsSupersetOf;

constexpr std::string_view kPlainSumField =
    R"({"FPropID": 0, "FSQLColumnName": "FName", "FSrcTable": "", "FSrcField": "", "FDisplayField": ""})";

// Two property descriptions, and a tree of each class of its own depth.
std::string World(const std::string& more) {
  return R"({"itemMaxLevel": {"2014": 4, "8": 3, "1": 2}, "propDescs": [
      {"FName": "区域", "FPropID": 7, "FSQLColumnName": "F_101", "FSrcTable": "t_x", "FSrcField": "FId",
       "FDisplayField": "FTitle", "FItemClassID": 8},
      {"FName": "等级", "FPropID": 8, "FSQLColumnName": "F_102", "FSrcTable": "", "FSrcField": "",
       "FDisplayField": "", "FItemClassID": 8}], )" +
         more + "}";
}

// Confirmed with these two boxes chosen.
Json Grouped(int invoice_style, int group_row) {
  return RanBare("frmFirter301",
                 World(R"("steps": [{"select": "cmbInvoiceStyle", "index": )" +
                       std::to_string(invoice_style) + R"(}, {"select": "cmbGroupBy", "index": )" +
                       std::to_string(group_row) + R"(}, {"click": "cmdOK"}])"));
}
// Whether the user reaches the control.
bool IsAvailable(const Json& ran, std::string_view control) {
  const Json& state = Shown(ran, control);
  return state.at("enabled") == true && state.at("visible") == true;
}

TEST(FeeInvoiceDialogs, SummaryWritesItsStartValues) {
  const Json ran = RanBare("frmFirter301", World(R"("steps": [{"click": "cmdOK"}])"));

  EXPECT_EQ(Filter(ran), InOrder(R"({
      "OK": true, "BDate": "2024-03-05", "EDate": "2024-03-05", "BItemClass": "",
      "BFeeNumber": "", "EFeeNumber": "", "BCust": "", "ECust": "", "BSupply": "", "ESupply": "",
      "GroupBy": 1, "OnlyShowSum": 1, "BLevel": 1, "ELevel": 4, "SumMode": 1,
      "SumField": {"FPropID": 0, "FSQLColumnName": "FName", "FSrcTable": "", "FSrcField": "",
                   "FDisplayField": ""},
      "CheckState": 0, "InvoiceStyle": 0, "HookStatus": 2})"));
  EXPECT_EQ(SavedLines(ran), Lines(R"({
      "plan": "默认方案", "family": 301, "BDate": "2024-03-05", "EDate": "2024-03-05", "ItemClass": "",
      "BFee": "", "EFee": "", "BCust": "", "ECust": "", "BSupply": "", "ESupply": "",
      "BLevel": "1", "ELevel": "4", "chkGroupBy": "1", "OnlyShowSum": "1", "GroupByListIndex": "0",
      "CheckState": "0", "InvoiceStyle": "0", "HookStatus": "2"})"));
}

TEST(FeeInvoiceDialogs, DetailWritesItsStartValues) {
  const Json ran = RanBare("frmFirter302");

  EXPECT_EQ(Filter(ran), InOrder(R"({
      "OK": true, "BDate": "2024-03-05", "EDate": "2024-03-05", "BItemClass": "",
      "BFeeNumber": "", "EFeeNumber": "", "BCust": "", "ECust": "", "BSupply": "", "ESupply": "",
      "CheckState": 0, "OrderBy": "", "InvoiceStyle": 0, "HookStatus": 2})"));
  EXPECT_EQ(SavedLines(ran), Lines(R"({
      "plan": "默认方案", "family": 302, "BDate": "2024-03-05", "EDate": "2024-03-05", "ItemClass": "",
      "BFee": "", "EFee": "", "BCust": "", "ECust": "", "BSupply": "", "ESupply": "",
      "CheckState": "0", "OrderBy": "", "InvoiceStyle": "0", "HookStatus": "2"})"));
}

TEST(FeeInvoiceDialogs, SummaryRestoresAPlanWithTheGroupRowsOfItsInvoices) {
  const Json ran = RanBare("frmFirter301", World(R"("plans": {"status": "夏", "夏": {
      "BDate": "2023-06-01", "EDate": "2023-08-31", "ItemClass": "k", "BFee": "a", "EFee": "b", "BCust": "c",
      "ECust": "d", "BSupply": "e", "ESupply": "f", "BLevel": "2", "ELevel": "2", "chkGroupBy": "1",
      "OnlyShowSum": "0", "GroupByListIndex": "2", "CheckState": "2", "InvoiceStyle": "1",
      "HookStatus": "1"}})"));

  EXPECT_EQ(ItemTexts(ran, "cmbGroupBy").at(2), "客户类别");
  EXPECT_EQ(Filter(ran), InOrder(R"({
      "OK": true, "BDate": "2023-06-01", "EDate": "2023-08-31", "BItemClass": "k",
      "BFeeNumber": "a", "EFeeNumber": "b", "BCust": "c", "ECust": "d", "BSupply": "e", "ESupply": "f",
      "GroupBy": 1, "OnlyShowSum": 0, "BLevel": 2, "ELevel": 2, "SumMode": 3,
      "SumField": {"FPropID": 0, "FSQLColumnName": "FName", "FSrcTable": "", "FSrcField": "",
                   "FDisplayField": ""},
      "CheckState": 2, "InvoiceStyle": 1, "HookStatus": 1})"));
}

TEST(FeeInvoiceDialogs, DetailRestoresAPlan) {
  const Json ran = RanBare("frmFirter302", R"({"plans": {"status": "夏", "夏": {
      "BDate": "2023-06-01", "EDate": "2023-08-31", "ItemClass": "k", "BFee": "a", "EFee": "b", "BCust": "c",
      "ECust": "d", "BSupply": "e", "ESupply": "f", "CheckState": "1", "OrderBy": "FTaxRate DESC,FDate ASC",
      "InvoiceStyle": "2", "HookStatus": "0"}}})");

  EXPECT_EQ(Filter(ran), InOrder(R"({
      "OK": true, "BDate": "2023-06-01", "EDate": "2023-08-31", "BItemClass": "k",
      "BFeeNumber": "a", "EFeeNumber": "b", "BCust": "c", "ECust": "d", "BSupply": "e", "ESupply": "f",
      "CheckState": 1, "OrderBy": "FTaxRate DESC,FDate ASC", "InvoiceStyle": 2, "HookStatus": 0})"));
  EXPECT_EQ(Shown(ran, "vsOrder").at("rows").dump(), R"([["税率",0,1,"FTaxRate"],["日期",1,0,"FDate"]])");
}

// --- Group rows

TEST(FeeInvoiceDialogs, RowsFollowTheInvoices) {
  EXPECT_EQ(Items(Grouped(0, 0), "cmbGroupBy"),
            R"([["费用类别",1],["费用类型",2],["供应商类别",3],["费用类别+供应商",4],["供应商+费用类别",5],)"
            R"(["供应商",6],["区域",0],["等级",0]])");
  EXPECT_EQ(Items(Grouped(1, 0), "cmbGroupBy"),
            R"([["费用类别",1],["费用类型",2],["客户类别",3],["费用类别+客户",4],["客户+费用类别",5],)"
            R"(["客户",6],["区域",0],["等级",0]])");
  EXPECT_EQ(Items(Grouped(2, 0), "cmbGroupBy"), R"([["费用类别",1],["费用类型",2]])");
}

TEST(FeeInvoiceDialogs, FeeTypeIsAPlainDimension) {
  for (const int style : {0, 1, 2}) {
    const Json ran = Grouped(style, 1);
    EXPECT_EQ(FilterValue(ran, "SumMode"), 0);
    EXPECT_EQ(nlohmann::json(FilterValue(ran, "SumField")),
              nlohmann::json::parse(R"({"FItemClassID": 2014, "FName": "费用类型", "FPropID": 0,
                  "FSQLColumnName": "FName", "FSrcTable": "", "FSrcField": "", "FDisplayField": ""})"));
  }
}

TEST(FeeInvoiceDialogs, TheOtherPartyIsAPlainDimension) {
  const Json payable = Grouped(0, 5);
  EXPECT_EQ(FilterValue(payable, "SumMode"), 0);
  EXPECT_EQ(FilterValue(payable, "SumField").at("FItemClassID"), 8);
  EXPECT_EQ(FilterValue(payable, "SumField").at("FName"), "供应商");
  const Json receivable = Grouped(1, 5);
  EXPECT_EQ(FilterValue(receivable, "SumMode"), 0);
  EXPECT_EQ(FilterValue(receivable, "SumField").at("FItemClassID"), 1);
  EXPECT_EQ(FilterValue(receivable, "SumField").at("FName"), "客户");
}

TEST(FeeInvoiceDialogs, PropertyRowsHandOverTheirOwnDescription) {
  EXPECT_EQ(FilterValue(Grouped(0, 6), "SumField").at("FSQLColumnName"), "F_101");
  EXPECT_EQ(FilterValue(Grouped(1, 7), "SumField").at("FSQLColumnName"), "F_102");
  EXPECT_EQ(FilterValue(Grouped(1, 7), "SumMode"), 0);
}

TEST(FeeInvoiceDialogs, ClassRowsKeepTheirCodeAndDescribeNothing) {
  for (const int row : {0, 2, 3, 4}) {
    const Json ran = Grouped(0, row);
    EXPECT_EQ(FilterValue(ran, "SumMode"), row + 1);
    EXPECT_EQ(nlohmann::json(FilterValue(ran, "SumField")), nlohmann::json::parse(kPlainSumField));
  }
}

TEST(FeeInvoiceDialogs, DepthComesFromTheClassThatLeads) {
  const auto depth = [](int style, int row) { return Shown(Grouped(style, row), "udELevel").at("max"); };
  EXPECT_EQ(depth(0, 0), 4);
  EXPECT_EQ(depth(0, 3), 4);
  EXPECT_EQ(depth(1, 4), 4);
  EXPECT_EQ(depth(0, 2), 3);
  EXPECT_EQ(depth(1, 2), 2);
}

TEST(FeeInvoiceDialogs, OnlyClassRowsHaveLevels) {
  const Json by_class = Grouped(0, 2);
  const Json plain_rows[] = {Grouped(0, 1), Grouped(0, 5), Grouped(1, 6)};
  for (const char* control : {"Label7", "Label11", "txtlevel(0)", "txtlevel(1)", "udBLevel", "udELevel"}) {
    EXPECT_TRUE(IsAvailable(by_class, control)) << control;
    for (const Json& plain : plain_rows) EXPECT_FALSE(IsAvailable(plain, control)) << control;
  }
}

// --- The fields

TEST(FeeInvoiceDialogs, TheFeeItemClassIsLookedUpByTheItemClass) {
  for (const char* dialog : {"frmFirter301", "frmFirter302"}) {
    const Json ran = RanBare(dialog, R"({"lookups": [{"Number": "F.7", "ItemID": 9}, null],
        "steps": [{"click": "cmdItemClass"}, {"click": "cmdItemClass"}, {"click": "cmdOK"}]})");
    EXPECT_EQ(FilterValue(ran, "BItemClass"), "F.7") << "a cancelled look-up leaves the text";
    EXPECT_THAT(ArgumentsOf(ran, "ItemLookUp"), ElementsAre("[4]", "[4]"));
  }
}

TEST(FeeInvoiceDialogs, EachPairIsLookedUpInItsClass) {
  const Json ran = RanBare("frmFirter301", R"j({"lookups": [{"Number": "01.1", "FShortNumber": "1"}],
      "steps": [{"click": "cmdItem(0)"}, {"click": "cmdItem(1)"}, {"click": "cmdItem(2)"},
                {"click": "cmdItem(3)"}, {"click": "cmdItem(4)"}, {"click": "cmdItem(5)"},
                {"click": "cmdOK"}]
})j");

  std::vector<std::string> classes;
  for (const std::string& arguments : ArgumentsOf(ran, "ItemLookUp")) {
    classes.push_back(arguments.substr(0, arguments.find(',')));
  }
  EXPECT_THAT(classes, ElementsAre("[2014", "[2014", "[1", "[1", "[8", "[8"));
  EXPECT_EQ(FilterValue(ran, "BFeeNumber"), "01.1");
}

TEST(FeeInvoiceDialogs, ShortCodesShowWhereTheyAreInUse) {
  const Json ran = RanBare("frmFirter302", R"j({"profile": {"IC/UseShortNumber": 1},
      "lookups": [{"Number": "01.1", "FShortNumber": "1"}],
      "steps": [{"click": "cmdItem(4)"}, {"click": "cmdOK"}]
})j");

  EXPECT_EQ(FilterValue(ran, "BSupply"), "1");
  EXPECT_EQ(ArgumentsOf(ran, "ItemLookUp").at(0),
            R"([8,"","",{"BeShortNumber":true,"GetDataType":1,"Search":""}])");
}

TEST(FeeInvoiceDialogs, SortFieldsFollowTheCodesInUse) {
  const auto fields = [](const char* short_number) {
    const Json ran =
        RanBare("frmFirter302", std::string(R"({"profile": {"IC/UseShortNumber": )") + short_number + "}}");
    return ItemTexts(ran, "listOrderFields");
  };
  const auto row = [](std::string_view caption, std::string_view field) {
    return std::string(caption) + std::string(200, ' ') + std::string(field);
  };
  EXPECT_THAT(fields("0"),
              ElementsAre(row("日期", "FDate"), row("费用发票号码", "FBillNo"),
                          row("客户长代码", "FCustFullNumber"), row("费用长代码", "FFeeFullNumber"),
                          row("费用类型", "FFeeType"), row("币别", "FCurrencyName"),
                          row("计量单位", "FUnitName"), row("数量", "FAuxQty"), row("单价", "FAuxPrice"),
                          row("金额", "FAmount"), row("税率", "FTaxRate"), row("可抵扣税额", "FTaxAmount"),
                          row("不含税金额", "FAmountEx"), row("审核人", "FCheckerName")));
  EXPECT_EQ(fields("1").at(2), row("客户代码", "FCustNumber"));
  EXPECT_EQ(fields("1").at(3), row("费用代码", "FFeeNumber"));
}

TEST(FeeInvoiceDialogs, CaptionsAsTheUserReadsThem) {
  const std::vector<std::string> both = {
      "截止日期:", "起始日期:", "供应商代码:", "物料类别代码:             ", " 客户代码:", " 费用代码:",
      "发票类型:", "钩稽状态:", "单据状态:"};
  EXPECT_THAT(Captions(RanBare("frmFirter301")), IsSupersetOf(both));
  EXPECT_THAT(Captions(RanBare("frmFirter302")), IsSupersetOf(both));
  EXPECT_THAT(Captions(RanBare("frmFirter301")),
              IsSupersetOf({"仅显示汇总行", "类别级次:", "汇总依据:", "分级汇总"}));
}

TEST(FeeInvoiceDialogs, ANewPlanOpensOnPayableInvoices) {
  const Json ran = RanBare("frmFirter302", R"({"steps": [{"state": "opened"}]})");
  EXPECT_EQ(Shown(ran, "opened", "cmbInvoiceStyle").at("listIndex"), 0);
  EXPECT_EQ(Shown(ran, "opened", "cboHookStatus").at("listIndex"), 2);
  EXPECT_THAT(ItemTexts(ran, "cmbInvoiceStyle"), ElementsAre("应付费用发票", "应收费用发票", "全部"));
  EXPECT_THAT(ItemTexts(ran, "cboHookStatus"), ElementsAre("已钩稽", "未钩稽", "全部"));
}

TEST(FeeInvoiceDialogs, EnterMovesOnAndNoQuoteArrives) {
  const Json ran = RanBare("frmFirter302", R"j({"steps": [{"type": "txtItem(0)", "text": "a'b"},
      {"key": 13, "on": "txtItem(0)"}, {"key": 27, "on": "txtItem(0)"}]
})j");
  EXPECT_EQ(Text(ran, "txtItem(0)"), "ab");
  EXPECT_EQ(ran.at("keys").dump(), R"(["{TAB}"])");
  EXPECT_FALSE(ran.at("closed")) << "Escape does nothing here";
}

}  // namespace
}  // namespace salerpt::shell
