// The dialogs of the order reports: look-ups, the rules of their boxes, captions.
#include "tests/shell/dialogs/ran_dialog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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

Json LookedUp(const OrderField& field, const std::string& lookups, const std::string& typed) {
  const std::string index = "(" + std::to_string(field.index) + ")\"";
  return RanBare(
      field.dialog,
      R"({"props": "ConnectString={Provider=SQLOLEDB;Data Source=x};UserName=amy;UserID=7;LANGUAGE=chs;",
          "lookups": )" +
          lookups + R"(, "steps": [{"paste": "txtItem)" + index + R"(, "text": ")" + typed +
          R"("}, {"click": "cmdItem)" + index + R"(}, {"click": "cmdOK"}]})");
}

TEST(OrderDialogsRules, AnOrderNumberComesFromTheListOfOrders) {
  for (const OrderField& field : kOrderFields) {
    const Json ran = LookedUp(field, R"([{"FInterID": 77, "FBillNo": "SO-1"}])", "O'5");
    EXPECT_EQ(FilterValue(ran, field.key), "SO-1") << field.dialog;
    EXPECT_THAT(ArgumentsOf(ran, "BaseInfo"), ElementsAre(R"(["Provider=SQLOLEDB;Data Source=x|7|amy"])"));
    EXPECT_THAT(ArgumentsOf(ran, "ListID"), ElementsAre("[32]"));
    EXPECT_THAT(ArgumentsOf(ran, "ListShowStatus"), ElementsAre("[2]"));
    EXPECT_THAT(ArgumentsOf(ran, "DestBillTransType"), ElementsAre(R"(["200192"])"));
    EXPECT_THAT(ArgumentsOf(ran, "Filter"), ElementsAre(R"([" FBillNo Like '%O''5%'"])"));
    EXPECT_THAT(ArgumentsOf(ran, "MultiSelect"), ElementsAre("[false]"));
    EXPECT_THAT(ArgumentsOf(ran, "GetData"),
                ElementsAre(R"(["<props>","Select FBillNo From SEOrder Where FInterID=77"])"));
    EXPECT_THAT(Members(ran), ::testing::Contains("ORVMSaleRpt.Data.GetData"));
    EXPECT_EQ(ran.at("boxes").dump(), "[]");
  }
}

TEST(OrderDialogsRules, ABlankFieldDoesNotNarrowTheListOfOrders) {
  for (const OrderField& field : kOrderFields) {
    EXPECT_THAT(ArgumentsOf(LookedUp(field, "[null]", ""), "Filter"), IsEmpty()) << field.dialog;
    EXPECT_THAT(ArgumentsOf(LookedUp(field, "[null]", "  "), "Filter"), IsEmpty()) << field.dialog;
  }
}

TEST(OrderDialogsRules, AnOrderWithoutAnIdLeavesTheField) {
  for (const OrderField& field : kOrderFields) {
    const Json ran = LookedUp(field, R"([{"FInterID": 0, "FBillNo": "SO-1"}])", "old");
    EXPECT_EQ(ran.at("boxes").dump(),
              R"([{"text":"未返回产品入库单的代码!","title":"青岚提示：","style":64}])");
    EXPECT_EQ(FilterValue(ran, field.key), "old") << field.dialog;
    EXPECT_THAT(ArgumentsOf(ran, "GetData"), IsEmpty());
  }
}

TEST(OrderDialogsRules, ACancelledListLeavesTheField) {
  for (const OrderField& field : kOrderFields) {
    const Json ran = LookedUp(field, "[null]", "old");
    EXPECT_EQ(FilterValue(ran, field.key), "old") << field.dialog;
    EXPECT_EQ(ran.at("boxes").dump(), "[]");
  }
}

// --- Base data

std::vector<std::string> ClassesOf(const char* dialog, int fields) {
  std::string steps;
  for (int i = 0; i < fields; ++i) {
    steps += (i == 0 ? "" : ", ") + std::string(R"({"click": "cmdItem()") + std::to_string(i) + R"j()"})j";
  }
  const Json ran = RanBare(dialog, R"({"steps": [)" + steps + "]}");
  std::vector<std::string> classes;
  for (const std::string& arguments : ArgumentsOf(ran, "ItemLookUp")) {
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
      const Json ran =
          RanBare(dialog, std::string(R"j({"profile": {"IC/UseShortNumber": )j") + (is_short ? "1" : "0") +
                              R"j(}, "lookups": [{"Number": "01.7", "FShortNumber": "7"}],
          "steps": [{"paste": "txtItem(3)", "text": "s"}, {"key": 118, "on": "txtItem(3)"}]})j");
      EXPECT_EQ(Text(ran, "txtItem(3)"), is_short ? "7" : "01.7") << dialog;
      const Json arguments = Json::parse(ArgumentsOf(ran, "ItemLookUp").at(0));
      EXPECT_EQ(arguments.at(1), "s");
      EXPECT_EQ(arguments.at(2), "");
      EXPECT_EQ(arguments.at(3).at("BeShortNumber"), is_short);
    }
  }
}

TEST(OrderDialogsRules, CurrenciesHaveOneCode) {
  for (const char* short_number : {"0", "1"}) {
    const Json ran =
        RanBare("frmFirter136", std::string(R"j({"profile": {"IC/UseShortNumber": )j") + short_number +
                                    R"j(}, "lookups": [{"Number": "USD", "FShortNumber": "x"},
        {"Number": "EUR", "FShortNumber": "y"}], "steps": [{"paste": "txtItem(8)", "text": "U"},
        {"click": "cmdItem(8)"}, {"key": 119, "on": "txtItem(9)"}]})j");
    EXPECT_EQ(Text(ran, "txtItem(8)"), "USD");
    EXPECT_EQ(Text(ran, "txtItem(9)"), "EUR");
    EXPECT_THAT(ArgumentsOf(ran, "CurrencyLookup"), ElementsAre(R"(["U"])", R"([""])"));
  }
}

// --- Boxes

TEST(OrderDialogsRules, OneSaleStyleIsLeftOut) {
  for (const char* dialog :
       {"frmFirter136", "frmFirter137", "frmFirter138", "frmFirter300", "frmFirter1010"}) {
    const Json ran =
        RanBare(dialog, R"({"saleTypes": [[20296, "a"], [20298, "b"], [20297, "c"]], "steps": []})");
    EXPECT_EQ(Items(ran, "CmbSaleType"), R"([["全部",1],["a",20296],["c",20297]])") << dialog;
    EXPECT_EQ(Shown(ran, "CmbSaleType").at("listIndex"), 0);
  }
}

TEST(OrderDialogsRules, BoxesHoldTheirRows) {
  const Json detail = RanBare("frmFirter137", R"({"orderTypes": [[40, "内销"]]})");
  EXPECT_THAT(ItemTexts(detail, "CmbDisplayType"), ElementsAre("全部", "仅显示明细"));
  EXPECT_THAT(ItemTexts(detail, "CmbCloseState"), ElementsAre("全部", "未关闭", "已关闭"));
  EXPECT_THAT(ItemTexts(detail, "cmbImplement"), ElementsAre("全部", "逾期未完全执行", "逾期已完全执行"));
  EXPECT_THAT(ItemTexts(detail, "Cmb_OrderType"), ElementsAre("全部", "内销"));
  EXPECT_THAT(ItemTexts(detail, "cmbCommodityType"), ElementsAre("全部", "服务商品", "非服务商品"));
  for (const char* dialog :
       {"frmFirter136", "frmFirter137", "frmFirter138", "frmFilter192", "frmFirter300", "frmFirter1010"}) {
    EXPECT_THAT(ItemTexts(RanBare(dialog), "cmbCheckState"), ElementsAre("已审核", "未审核", "全部"))
        << dialog;
  }
  EXPECT_THAT(ItemTexts(RanBare("frmFilter192"), "CmbDisplayType"), ElementsAre("全部", "仅显示明细"));
  const Json warning = RanBare("frmFilter189");
  EXPECT_THAT(ItemTexts(warning, "CmbAuditType"), ElementsAre("全部", "已审核", "未审核"));
  EXPECT_THAT(ItemTexts(warning, "cmbGroupBy"), ElementsAre("客户", "物料"));
}

TEST(OrderDialogsRules, TheAuditStateStartsFromTheSettingUnlessThePlanHasOne) {
  for (const auto& [dialog, family] : {std::pair{"frmFirter135", "135"}, {"frmFirter136", "166"}}) {
    const std::string setting = std::string(R"({"settings": {"JXCQ7SaleRpt.INI/)") + family +
                                R"(ORVSaleRpt/CheckState": "2"}, "plans": {"默认方案": {"BItem": "a")";
    EXPECT_EQ(FilterValue(RanBare(dialog, setting + R"(, "CheckState": "1"}}})"), "CheckState"), 1) << dialog;
  }
  // Its plans fall back to what the box shows.
  EXPECT_EQ(FilterValue(RanBare("frmFirter135",
                                R"({"settings": {"JXCQ7SaleRpt.INI/135ORVSaleRpt/CheckState": "2"}})"),
                        "CheckState"),
            2);
}

// --- The outbound and receipt tracking

TEST(OrderDialogsRules, AnOrderThatIsNotAuditedIsOpen) {
  const Json ran = RanBare("frmFirter1010", R"({"steps": [{"select": "CmbCloseState", "index": 2},
      {"select": "cmbCheckState", "index": 1}, {"state": "not audited"},
      {"select": "cmbCheckState", "index": 0}]})");
  EXPECT_EQ(Shown(ran, "not audited", "CmbCloseState").at("listIndex"), 1);
  EXPECT_FALSE(Shown(ran, "not audited", "CmbCloseState").at("enabled"));
  EXPECT_TRUE(Shown(ran, "CmbCloseState").at("enabled"));
  EXPECT_EQ(Shown(ran, "CmbCloseState").at("listIndex"), 1);
}

TEST(OrderDialogsRules, AStoredClosingDoesNotOverruleTheAuditState) {
  const Json ran = RanBare("frmFirter1010", R"({"plans": {"status": "夏", "夏": {"CheckState": "1",
      "CloseState": "2"}}})");
  EXPECT_EQ(FilterValue(ran, "CheckState"), 1);
  EXPECT_EQ(FilterValue(ran, "CloseState"), 1);
  EXPECT_FALSE(Shown(ran, "CmbCloseState").at("enabled"));
}

TEST(OrderDialogsRules, DeleteTakesTheSelectedSortRowAway) {
  const Json ran = RanBare("frmFirter1010", R"({"plans": {"status": "夏", "夏": {
      "OrderBy": "FOrderbyDate ASC,FOrderbyBillNo DESC"}}, "steps": [{"key": 46, "on": "vsOrder"},
      {"state": "none selected"}, {"grid": [1, 1]}, {"key": 46, "on": "vsOrder"}, {"click": "cmdOK"}]})");
  EXPECT_EQ(Shown(ran, "none selected", "vsOrder").at("rows").size(), 2u);
  EXPECT_EQ(FilterValue(ran, "Orderby"), "FOrderbyBillNo DESC");
}

TEST(OrderDialogsRules, SortFieldsOfTheTracking) {
  const auto row = [](std::string_view caption, std::string_view field) {
    return std::string(caption) + std::string(200, ' ') + std::string(field);
  };
  EXPECT_THAT(ItemTexts(RanBare("frmFirter1010"), "listOrderFields"),
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
    const Json ran = RanBare(row.dialog, R"({"steps": [{"select": "cmbGroupBy", "index": )" +
                                             std::to_string(row.row) + R"(}, {"click": "cmdOK"}]})");
    EXPECT_EQ(FilterValue(ran, "SumMode"), row.sum_mode) << row.dialog << row.row;
    const Json expected = Json::parse(row.sum_field);
    for (const auto& [key, value] : expected.items()) {
      EXPECT_EQ(FilterValue(ran, "SumField").at(key), value) << row.dialog << row.row << key;
    }
  }
}

// --- The due warning

TEST(OrderDialogsRules, TheDueWarningIgnoresTheTestSwitchAndStartsOnTheServersDay) {
  const Json ran = RanBare("frmFilter189", R"({"today": "2024-02-29", "steps": []})");
  EXPECT_EQ(Shown(ran, "DtpBDate").at("value"), "2024-02-29");
  EXPECT_EQ(Shown(ran, "DtpEDate").at("value"), "2024-02-29");
  EXPECT_FALSE(ran.at("closed"));
}

// --- Captions

TEST(OrderDialogsRules, CaptionsAsTheUserReadsThem) {
  EXPECT_THAT(Captions(RanBare("frmFirter136")),
              IsSupersetOf({"类别级次:", "汇总依据:", "截止日期:", "起始日期:", "销售范围:", "销售方式:",
                            "物料代码:", "客户代码:", "部门代码:", "业务员:", "币别代码:", "按币别汇总",
                            "分级汇总", "仅显示汇总行", "单据状态:"}));
  EXPECT_THAT(
      Captions(RanBare("frmFirter137")),
      IsSupersetOf({"销售范围:", "部门代码:", "业务员:", "订单编号:", "销售方式:", "机构代码:", "物料代码:",
                    "客户代码:", "起始日期:", "截止日期:", "执行状态:", "审核状态:", "显示:", "是否关闭:"}));
  EXPECT_THAT(Captions(RanBare("frmFirter138")),
              IsSupersetOf({"销售范围:", "客户代码:", "物料代码:", "机构代码:", "销售方式:", "订单编号:",
                            "业务员:", "部门代码:", "截止日期:", "起始日期:", "类别级次:", "汇总依据:",
                            "分级汇总", "仅显示汇总行", "单据状态:", "是否关闭:"}));
  EXPECT_THAT(Captions(RanBare("frmFilter192")),
              IsSupersetOf({"客户代码:", "物料代码:", "销售订单号:", "截止日期:", "起始日期:", "是否关闭:",
                            "显示:", "审核状态:"}));
  EXPECT_THAT(Captions(RanBare("frmFirter300")),
              IsSupersetOf({"销售范围:", "销售方式:", "客户代码:", "物料代码:", "截止日期:", "起始日期:",
                            "类别级次:", "汇总依据:", "分级汇总", "仅显示汇总行", "单据状态:"}));
  EXPECT_THAT(Captions(RanBare("frmFirter1010")),
              IsSupersetOf({"审核状态:", "添加(&A)", "上移(&U)", "下移(&D)", "删除(&R)"}));
}

}  // namespace
}  // namespace salerpt::shell
