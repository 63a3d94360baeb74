// The dialogs of the order reports: look-ups, the rules of their boxes, captions.
#include "tests/shell/dialogs/dialog_answer.h"

#include <gmock/gmock.h>

namespace salerpt::shell {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;

// --- Order numbers

struct OrderField {
  const char* dialog;
  int index;
  const char* key;
};
constexpr OrderField kOrderFields[] = {
    {"frmFilter192", 4, "BBill"},     {"frmFilter192", 5, "EBill"},     {"frmFirter137", 10, "BBillNo"},
    {"frmFirter137", 11, "EBillNo"},  {"frmFirter138", 10, "BBillNo"},  {"frmFirter138", 11, "EBillNo"},
    {"frmFirter1010", 10, "BBillNo"}, {"frmFirter1010", 11, "EBillNo"},
};

DialogAnswer LookedUp(const OrderField& field, const std::string& lookups, const std::string& typed) {
  const std::string index = "(" + std::to_string(field.index) + ")\"";
  return DialogAnswer(
      field.dialog,
      R"({"props": "ConnectString={Provider=SQLOLEDB;Data Source=x};UserName=amy;UserID=7;LANGUAGE=chs;",
          "lookups": )" +
          lookups + R"(, "steps": [{"paste": "txtItem)" + index + R"(, "text": ")" + typed +
          R"("}, {"click": "cmdItem)" + index + R"(}, {"click": "cmdOK"}]})");
}

TEST(OrderDialogsRules, AnOrderNumberComesFromTheListOfOrders) {
  for (const OrderField& field : kOrderFields) {
    const DialogAnswer answer = LookedUp(field, R"([{"FInterID": 77, "FBillNo": "SO-1"}])", "O'5");
    EXPECT_EQ(answer.FilterValue(field.key), "SO-1") << field.dialog;
    EXPECT_THAT(answer.ArgumentsOf("BaseInfo"), ElementsAre(R"(["Provider=SQLOLEDB;Data Source=x|7|amy"])"));
    EXPECT_THAT(answer.ArgumentsOf("ListID"), ElementsAre("[32]"));
    EXPECT_THAT(answer.ArgumentsOf("ListShowStatus"), ElementsAre("[2]"));
    EXPECT_THAT(answer.ArgumentsOf("DestBillTransType"), ElementsAre(R"(["200192"])"));
    EXPECT_THAT(answer.ArgumentsOf("Filter"), ElementsAre(R"([" FBillNo Like '%O''5%'"])"));
    EXPECT_THAT(answer.ArgumentsOf("MultiSelect"), ElementsAre("[false]"));
    EXPECT_THAT(answer.ArgumentsOf("GetData"),
                ElementsAre(R"(["<props>","Select FBillNo From SEOrder Where FInterID=77"])"));
    EXPECT_THAT(answer.Members(), ::testing::Contains("ORVMSaleRpt.Data.GetData"));
    EXPECT_EQ(answer.Boxes(), "[]");
  }
}

TEST(OrderDialogsRules, ABlankFieldDoesNotNarrowTheListOfOrders) {
  for (const OrderField& field : kOrderFields) {
    EXPECT_THAT(LookedUp(field, "[null]", "").ArgumentsOf("Filter"), IsEmpty()) << field.dialog;
    EXPECT_THAT(LookedUp(field, "[null]", "  ").ArgumentsOf("Filter"), IsEmpty()) << field.dialog;
  }
}

TEST(OrderDialogsRules, AnOrderWithoutAnIdLeavesTheField) {
  for (const OrderField& field : kOrderFields) {
    const DialogAnswer answer = LookedUp(field, R"([{"FInterID": 0, "FBillNo": "SO-1"}])", "old");
    EXPECT_EQ(answer.Boxes(), R"([{"text":"未返回产品入库单的代码!","title":"青岚提示：","style":64}])");
    EXPECT_EQ(answer.FilterValue(field.key), "old") << field.dialog;
    EXPECT_THAT(answer.ArgumentsOf("GetData"), IsEmpty());
  }
}

TEST(OrderDialogsRules, ACancelledListLeavesTheField) {
  for (const OrderField& field : kOrderFields) {
    const DialogAnswer answer = LookedUp(field, "[null]", "old");
    EXPECT_EQ(answer.FilterValue(field.key), "old") << field.dialog;
    EXPECT_EQ(answer.Boxes(), "[]");
  }
}

// --- Base data

std::vector<std::string> ClassesOf(const char* dialog, int fields) {
  std::string steps;
  for (int i = 0; i < fields; ++i) {
    steps += (i == 0 ? "" : ", ") + std::string(R"({"click": "cmdItem()") + std::to_string(i) + R"j()"})j";
  }
  const DialogAnswer answer(dialog, R"({"steps": [)" + steps + "]}");
  std::vector<std::string> classes;
  for (const std::string& arguments : answer.ArgumentsOf("ItemLookUp")) {
    classes.push_back(Json::parse(arguments).at(0).dump());
  }
  return classes;
}

TEST(OrderDialogsRules, EachPairIsLookedUpInItsClass) {
  EXPECT_THAT(ClassesOf("frmFirter136", 8), ElementsAre("4", "4", "1", "1", "2", "2", "3", "3"));
  const std::vector<std::string> of_orders = {"4", "4", "1", "1", "10", "10", "2", "2", "3", "3"};
  for (const char* dialog : {"frmFirter137", "frmFirter138", "frmFirter1010"}) {
    EXPECT_EQ(ClassesOf(dialog, 10), of_orders) << dialog;
  }
  EXPECT_THAT(ClassesOf("frmFilter189", 8), ElementsAre("1", "1", "4", "4", "3", "3", "2", "2"));
  EXPECT_THAT(ClassesOf("frmFilter192", 4), ElementsAre("4", "4", "1", "1"));
  EXPECT_THAT(ClassesOf("frmFirter300", 4), ElementsAre("4", "4", "1", "1"));
}

TEST(OrderDialogsRules, TheCodeInUseGoesIntoTheField) {
  for (const char* dialog : {"frmFirter136", "frmFirter137", "frmFirter138", "frmFilter189", "frmFilter192",
                             "frmFirter300", "frmFirter1010"}) {
    for (const bool is_short : {false, true}) {
      const DialogAnswer answer(dialog, std::string(R"j({"profile": {"IC/UseShortNumber": )j") +
                                            (is_short ? "1" : "0") +
                                            R"j(}, "lookups": [{"Number": "01.7", "FShortNumber": "7"}],
          "steps": [{"paste": "txtItem(3)", "text": "s"}, {"key": 118, "on": "txtItem(3)"}]})j");
      EXPECT_EQ(answer.Text("txtItem(3)"), is_short ? "7" : "01.7") << dialog;
      const Json arguments = Json::parse(answer.ArgumentsOf("ItemLookUp").at(0));
      EXPECT_EQ(arguments.at(1), "s");
      EXPECT_EQ(arguments.at(2), "");
      EXPECT_EQ(arguments.at(3).at("BeShortNumber"), is_short);
    }
  }
}

TEST(OrderDialogsRules, CurrenciesHaveOneCode) {
  for (const char* short_number : {"0", "1"}) {
    const DialogAnswer answer("frmFirter136", std::string(R"j({"profile": {"IC/UseShortNumber": )j") +
                                                  short_number +
                                                  R"j(}, "lookups": [{"Number": "USD", "FShortNumber": "x"},
        {"Number": "EUR", "FShortNumber": "y"}], "steps": [{"paste": "txtItem(8)", "text": "U"},
        {"click": "cmdItem(8)"}, {"key": 119, "on": "txtItem(9)"}]})j");
    EXPECT_EQ(answer.Text("txtItem(8)"), "USD");
    EXPECT_EQ(answer.Text("txtItem(9)"), "EUR");
    EXPECT_THAT(answer.ArgumentsOf("CurrencyLookup"), ElementsAre(R"(["U"])", R"([""])"));
  }
}

// --- Boxes

TEST(OrderDialogsRules, OneSaleStyleIsLeftOut) {
  for (const char* dialog :
       {"frmFirter136", "frmFirter137", "frmFirter138", "frmFirter300", "frmFirter1010"}) {
    const DialogAnswer answer(dialog,
                              R"({"saleTypes": [[20296, "a"], [20298, "b"], [20297, "c"]], "steps": []})");
    EXPECT_EQ(answer.State("CmbSaleType", "items").dump(), R"([["全部",1],["a",20296],["c",20297]])")
        << dialog;
    EXPECT_EQ(answer.Index("CmbSaleType"), 0);
  }
}

TEST(OrderDialogsRules, BoxesHoldTheirRows) {
  const DialogAnswer detail("frmFirter137", R"({"orderTypes": [[40, "内销"]]})");
  EXPECT_THAT(detail.Items("CmbDisplayType"), ElementsAre("全部", "仅显示明细"));
  EXPECT_THAT(detail.Items("CmbCloseState"), ElementsAre("全部", "未关闭", "已关闭"));
  EXPECT_THAT(detail.Items("cmbImplement"), ElementsAre("全部", "逾期未完全执行", "逾期已完全执行"));
  EXPECT_THAT(detail.Items("Cmb_OrderType"), ElementsAre("全部", "内销"));
  EXPECT_THAT(detail.Items("cmbCommodityType"), ElementsAre("全部", "服务商品", "非服务商品"));
  for (const char* dialog :
       {"frmFirter136", "frmFirter137", "frmFirter138", "frmFilter192", "frmFirter300", "frmFirter1010"}) {
    EXPECT_THAT(DialogAnswer(dialog).Items("cmbCheckState"), ElementsAre("已审核", "未审核", "全部"))
        << dialog;
  }
  EXPECT_THAT(DialogAnswer("frmFilter192").Items("CmbDisplayType"), ElementsAre("全部", "仅显示明细"));
  const DialogAnswer warning("frmFilter189");
  EXPECT_THAT(warning.Items("CmbAuditType"), ElementsAre("全部", "已审核", "未审核"));
  EXPECT_THAT(warning.Items("cmbGroupBy"), ElementsAre("客户", "物料"));
}

TEST(OrderDialogsRules, TheAuditStateStartsFromTheSettingUnlessThePlanHasOne) {
  for (const auto& [dialog, family] : {std::pair{"frmFirter135", "135"}, {"frmFirter136", "166"}}) {
    const std::string setting = std::string(R"({"settings": {"JXCQ7SaleRpt.INI/)") + family +
                                R"(ORVSaleRpt/CheckState": "2"}, "plans": {"默认方案": {"BItem": "a")";
    EXPECT_EQ(DialogAnswer(dialog, setting + R"(, "CheckState": "1"}}})").FilterValue("CheckState"), 1)
        << dialog;
  }
  // Its plans fall back to what the box shows.
  EXPECT_EQ(
      DialogAnswer("frmFirter135", R"({"settings": {"JXCQ7SaleRpt.INI/135ORVSaleRpt/CheckState": "2"}})")
          .FilterValue("CheckState"),
      2);
}

// --- The outbound and receipt tracking

TEST(OrderDialogsRules, AnOrderThatIsNotAuditedIsOpen) {
  const DialogAnswer answer("frmFirter1010", R"({"steps": [{"select": "CmbCloseState", "index": 2},
      {"select": "cmbCheckState", "index": 1}, {"state": "not audited"},
      {"select": "cmbCheckState", "index": 0}]})");
  EXPECT_EQ(answer.Index("CmbCloseState", "not audited"), 1);
  EXPECT_FALSE(answer.IsEnabled("CmbCloseState", "not audited"));
  EXPECT_TRUE(answer.IsEnabled("CmbCloseState"));
  EXPECT_EQ(answer.Index("CmbCloseState"), 1);
}

TEST(OrderDialogsRules, AStoredClosingDoesNotOverruleTheAuditState) {
  const DialogAnswer answer("frmFirter1010", R"({"plans": {"status": "夏", "夏": {"CheckState": "1",
      "CloseState": "2"}}})");
  EXPECT_EQ(answer.FilterValue("CheckState"), 1);
  EXPECT_EQ(answer.FilterValue("CloseState"), 1);
  EXPECT_FALSE(answer.IsEnabled("CmbCloseState"));
}

TEST(OrderDialogsRules, DeleteTakesTheSelectedSortRowAway) {
  const DialogAnswer answer("frmFirter1010", R"({"plans": {"status": "夏", "夏": {
      "OrderBy": "FOrderbyDate ASC,FOrderbyBillNo DESC"}}, "steps": [{"key": 46, "on": "vsOrder"},
      {"state": "none selected"}, {"grid": [1, 1]}, {"key": 46, "on": "vsOrder"}, {"click": "cmdOK"}]})");
  EXPECT_EQ(answer.State("vsOrder", "rows", "none selected").size(), 2u);
  EXPECT_EQ(answer.FilterValue("Orderby"), "FOrderbyBillNo DESC");
}

TEST(OrderDialogsRules, SortFieldsOfTheTracking) {
  const auto row = [](std::string_view caption, std::string_view field) {
    return std::string(caption) + std::string(200, ' ') + std::string(field);
  };
  EXPECT_THAT(DialogAnswer("frmFirter1010").Items("listOrderFields"),
              ElementsAre(row("订单日期", "FOrderbyDate"), row("订单编号", "FOrderbyBillNo"),
                          row("客户代码", "FOrderbyCustNumber"), row("部门代码", "FOrderbyDeptNumber"),
                          row("业务员代码", "FOrderbyEmpNumber")));
}

// --- Group rows of the statistics

TEST(OrderDialogsRules, WhatAGroupRowHandsOver) {
  struct Row {
    const char* dialog;
    int row;
    int sum_mode;
    const char* sum_field;
  };
  const Row rows[] = {
      {"frmFirter136", 4, 0, R"({"FItemClassID": 1, "FName": "客户"})"},
      {"frmFirter136", 5, 0, R"({"FItemClassID": 3, "FName": "业务员"})"},
      {"frmFirter136", 6, 0, R"({"FItemClassID": 29, "FName": "销售方式", "FPropID": 29})"},
      {"frmFirter138", 4, 5, R"({"FItemClassID": 2, "FName": "客户"})"},
      {"frmFirter138", 5, 7, R"({"FItemClassID": 3, "FName": "业务员"})"},
      {"frmFirter138", 6, 0, R"({"FItemClassID": 1, "FName": "销售方式", "FPropID": 29})"},
      {"frmFirter300", 4, 0, R"({"FItemClassID": 1, "FName": "客户"})"},
  };
  for (const Row& row : rows) {
    const DialogAnswer answer(row.dialog, R"({"steps": [{"select": "cmbGroupBy", "index": )" +
                                              std::to_string(row.row) + R"(}, {"click": "cmdOK"}]})");
    EXPECT_EQ(answer.FilterValue("SumMode"), row.sum_mode) << row.dialog << row.row;
    const Json expected = Json::parse(row.sum_field);
    for (const auto& [key, value] : expected.items()) {
      EXPECT_EQ(answer.FilterValue("SumField").at(key), value) << row.dialog << row.row << key;
    }
  }
}

// --- The due warning

TEST(OrderDialogsRules, TheDueWarningIgnoresTheTestSwitchAndStartsOnTheServersDay) {
  const DialogAnswer answer("frmFilter189", R"({"today": "2024-02-29", "steps": []})");
  EXPECT_EQ(answer.State("DtpBDate", "value"), "2024-02-29");
  EXPECT_EQ(answer.State("DtpEDate", "value"), "2024-02-29");
  EXPECT_FALSE(answer.IsClosed());
}

// --- Captions

TEST(OrderDialogsRules, CaptionsAsTheUserReadsThem) {
  EXPECT_THAT(DialogAnswer("frmFirter136").Captions(),
              IsSupersetOf({"类别级次:", "汇总依据:", "截止日期:", "起始日期:", "销售范围:", "销售方式:",
                            "物料代码:", "客户代码:", "部门代码:", "业务员:", "币别代码:", "按币别汇总",
                            "分级汇总", "仅显示汇总行", "单据状态:"}));
  EXPECT_THAT(
      DialogAnswer("frmFirter137").Captions(),
      IsSupersetOf({"销售范围:", "部门代码:", "业务员:", "订单编号:", "销售方式:", "机构代码:", "物料代码:",
                    "客户代码:", "起始日期:", "截止日期:", "执行状态:", "审核状态:", "显示:", "是否关闭:"}));
  EXPECT_THAT(DialogAnswer("frmFirter138").Captions(),
              IsSupersetOf({"销售范围:", "客户代码:", "物料代码:", "机构代码:", "销售方式:", "订单编号:",
                            "业务员:", "部门代码:", "截止日期:", "起始日期:", "类别级次:", "汇总依据:",
                            "分级汇总", "仅显示汇总行", "单据状态:", "是否关闭:"}));
  EXPECT_THAT(DialogAnswer("frmFilter192").Captions(),
              IsSupersetOf({"客户代码:", "物料代码:", "销售订单号:", "截止日期:", "起始日期:", "是否关闭:",
                            "显示:", "审核状态:"}));
  EXPECT_THAT(DialogAnswer("frmFirter300").Captions(),
              IsSupersetOf({"销售范围:", "销售方式:", "客户代码:", "物料代码:", "截止日期:", "起始日期:",
                            "类别级次:", "汇总依据:", "分级汇总", "仅显示汇总行", "单据状态:"}));
  EXPECT_THAT(DialogAnswer("frmFirter1010").Captions(),
              IsSupersetOf({"审核状态:", "添加(&A)", "上移(&U)", "下移(&D)", "删除(&R)"}));
}

}  // namespace
}  // namespace salerpt::shell
