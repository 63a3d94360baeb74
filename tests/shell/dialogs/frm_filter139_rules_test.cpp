// The dialog of the order production and sales tracking, over the filter control.
#include "tests/shell/dialogs/ran_dialog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace salerpt::shell {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kDialog = "FrmFilter139";
constexpr const char* kExecution[] = {"chkUnexecuted", "chkPartialexecution", "chkFullyexecuted"};

TEST(FrmFilter139Rules, BoxesAndStartValues) {
  const Json ran = RanBare(kDialog, R"({"itemMaxLevel": {"4": 3}, "steps": []})");
  EXPECT_THAT(ItemTexts(ran, "cmbFSaleStyle"),
              ElementsAre("现销", "赊销", "分期收款销售", "委托代销", "全部"));
  EXPECT_THAT(ItemTexts(ran, "cmbCheckState"), ElementsAre("已审核", "未审核", "全部"));
  EXPECT_THAT(ItemTexts(ran, "cmbCheckClose"), ElementsAre("已关闭", "未关闭", "全部"));
  EXPECT_THAT(ItemTexts(ran, "cmbCommodityType"), ElementsAre("全部", "服务商品", "非服务商品"));
  EXPECT_EQ(Items(ran, "cmbGroupBy"), R"([["物料类别",1]])");
  EXPECT_EQ(Shown(ran, "cmbCheckClose").at("listIndex"), 2);
  EXPECT_EQ(Shown(ran, "DtpBDate").at("value"), "2024-03-05");
  EXPECT_EQ(FilterValue(ran, "OK"), false);
  EXPECT_FALSE(ran.at("closed"));
}

TEST(FrmFilter139Rules, AConfirmationWritesThePlanKeysAndItsOwn) {
  const Json ran = RanBare(kDialog, R"({"itemMaxLevel": {"4": 3}, "plans": {"status": "夏", "夏": {
      "BDate": "2023-06-01", "EDate": "2023-08-31", "BEmp": "a", "EEmp": "b", "BItemNumber": "c",
      "EItemNumber": "d", "BClientNumber": "e", "EClientNumber": "f", "BDept": "g", "EDept": "h",
      "BBillNo": "i", "EBillNo": "j", "Unexecuted": "0", "Partialexecution": "1", "Fullyexecuted": "0",
      "BLevel": "2", "ELevel": "3", "FSaleStyle": "1", "GroupBy": "1", "OnlyShowSum": "1",
      "GroupByListIndex": "0", "CheckState": "2", "CheckClose": "0", "CommodityType": "2"}}})");
  const Json expected = Json::parse(R"({
      "BDate": "2023-06-01", "EDate": "2023-08-31", "BEmp": "a", "EEmp": "b", "BItemNumber": "c",
      "EItemNumber": "d", "BClientNumber": "e", "EClientNumber": "f", "BDept": "g", "EDept": "h",
      "BBillNo": "i", "EBillNo": "j", "Unexecuted": 0, "Partialexecution": 1, "Fullyexecuted": 0,
      "BLevel": 2, "ELevel": 3, "FSaleStyle": 1, "GroupBy": 1, "OnlyShowSum": 1,
      "GroupByListIndex": 0, "CheckState": 2, "CheckClose": 0, "CommodityType": 2,
      "OK": true, "SumMode": 1, "exeStatusFilter": false})");
  for (const auto& [key, value] : expected.items()) EXPECT_EQ(FilterValue(ran, key), value) << key;
  EXPECT_TRUE(FilterValue(ran, "Mode").is_number());
  const Json sum_field = FilterValue(ran, "SumField");
  EXPECT_EQ(sum_field.at("FPropID"), 0);
  EXPECT_EQ(sum_field.at("FSQLColumnName"), "FName");
  for (const char* empty : {"FSrcTable", "FSrcField", "FDisplayField", "FItemClassID"}) {
    EXPECT_EQ(sum_field.at(empty), "") << empty;
  }
  EXPECT_EQ(ran.at("CurrentPlan"), "夏");
}

TEST(FrmFilter139Rules, AnApostropheTravelsDoubledIntoThePlan) {
  const Json ran =
      RanBare(kDialog, R"j({"steps": [{"paste": "txtItem(0)", "text": "a'b"}, {"click": "cmdOK"}]})j");
  EXPECT_THAT(SavedLines(ran), ::testing::HasSubstr("BEmp=\"a''b\"\n"));
}

// --- Execution

TEST(FrmFilter139Rules, OneStateOfExecutionStays) {
  for (const char* last : kExecution) {
    std::string steps;
    for (const char* box : kExecution) {
      if (box != last) steps += std::string(R"({"check": ")") + box + R"(", "value": 0}, )";
    }
    steps += std::string(R"({"check": ")") + last + R"(", "value": 0})";
    const Json ran = RanBare(kDialog, R"({"steps": [)" + steps + "]}");
    for (const char* box : kExecution) EXPECT_EQ(Shown(ran, box).at("value"), box == last ? 1 : 0) << box;
  }
}

TEST(FrmFilter139Rules, AGroupedListHasNoExecutionFilter) {
  struct Choice {
    int grouped;
    int only_sums;
    bool is_plain;
  };
  for (const Choice& choice : {Choice{0, 0, true}, {1, 0, false}, {0, 1, false}, {1, 1, false}}) {
    const Json ran = RanBare(
        kDialog, R"({"itemMaxLevel": {"4": 3}, "steps": [{"check": "chkGroupBy", "value": )" +
                     std::to_string(choice.grouped) + R"(}, {"check": "chkOnlyShowSum", "value": )" +
                     std::to_string(choice.only_sums) + R"(}, {"state": "chosen"}, {"click": "cmdOK"}]})");
    EXPECT_EQ(Shown(ran, "chosen", "ExecuteStatus").at("enabled"), choice.is_plain);
    for (const char* box : kExecution) {
      EXPECT_EQ(Shown(ran, "chosen", box).at("enabled"), choice.is_plain) << box;
    }
    EXPECT_EQ(FilterValue(ran, "exeStatusFilter"), choice.is_plain);
  }
}

// --- Closing

TEST(FrmFilter139Rules, AnOrderThatIsNotAuditedIsOpen) {
  const Json ran = RanBare(kDialog, R"({"steps": [{"select": "cmbCheckState", "index": 1},
      {"state": "not audited"}, {"select": "cmbCheckState", "index": 2}]})");
  EXPECT_EQ(Shown(ran, "not audited", "cmbCheckClose").at("listIndex"), 1);
  EXPECT_FALSE(Shown(ran, "not audited", "cmbCheckClose").at("enabled"));
  EXPECT_EQ(Shown(ran, "cmbCheckClose").at("listIndex"), 1);
  EXPECT_TRUE(Shown(ran, "cmbCheckClose").at("enabled"));
}

// --- Confirmation and reset

TEST(FrmFilter139Rules, AGroupedListNeedsItsBasis) {
  const Json ran = RanBare(kDialog, R"({"steps": [{"check": "chkGroupBy", "value": 1},
      {"select": "cmbGroupBy", "index": -1}, {"click": "cmdOK"}]})");
  EXPECT_EQ(ran.at("boxes").dump(), R"([{"text":"汇总依据不能为空","title":"青岚提示","style":64}])");
  EXPECT_EQ(FilterValue(ran, "OK"), false);
  EXPECT_FALSE(ran.at("closed"));
}

TEST(FrmFilter139Rules, WithoutABasisThereIsNoSumField) {
  const Json ran = RanBare(kDialog, R"({"steps": [{"check": "chkGroupBy", "value": 1},
      {"select": "cmbGroupBy", "index": -1}, {"check": "chkGroupBy", "value": 0}, {"click": "cmdOK"}]})");
  EXPECT_EQ(FilterValue(ran, "OK"), true);
  EXPECT_EQ(FilterValue(ran, "SumMode"), 0);
  EXPECT_EQ(FilterValue(ran, "SumField"), "(no such key)");
}

TEST(FrmFilter139Rules, ResettingPutsTheChoicesBack) {
  const Json ran = RanBare(kDialog, R"j({"itemMaxLevel": {"4": 3}, "steps": [{"state": "opened"},
      {"select": "cmbFSaleStyle", "index": 1}, {"select": "cmbCheckState", "index": 1},
      {"select": "cmbCommodityType", "index": 2}, {"check": "chkGroupBy", "value": 1},
      {"check": "chkOnlyShowSum", "value": 1}, {"select": "cmbGroupBy", "index": -1},
      {"tool": "TLBCLEAR"}]})j");
  for (const char* box :
       {"cmbFSaleStyle", "cmbCheckState", "cmbCheckClose", "cmbCommodityType", "cmbGroupBy"}) {
    EXPECT_EQ(Shown(ran, box).at("listIndex"), Shown(ran, "opened", box).at("listIndex")) << box;
  }
  for (const char* box : {"chkGroupBy", "chkOnlyShowSum"}) {
    EXPECT_EQ(Shown(ran, box).at("value"), Shown(ran, "opened", box).at("value")) << box;
  }
  EXPECT_TRUE(Shown(ran, "cmbCheckClose").at("enabled"));
}

TEST(FrmFilter139Rules, CancellingLeavesItUnconfirmed) {
  const Json ran = RanBare(kDialog, R"({"steps": [{"click": "cmdCacel"}]})");
  EXPECT_TRUE(ran.at("closed"));
  EXPECT_EQ(FilterValue(ran, "OK"), false);
  EXPECT_THAT(ArgumentsOf(ran, "SaveProfile"), IsEmpty());
}

// --- Look-ups

TEST(FrmFilter139Rules, EachPairIsLookedUpInItsClassAndItemsWithoutThePurchasedOnes) {
  const Json ran = RanBare(kDialog, R"j({"lookups": [{"Number": "E1"}, null, {"Number": "I1"}],
      "steps": [{"click": "cmdItem(0)"}, {"click": "cmdItem(1)"}, {"click": "cmdItem(2)"},
                {"click": "cmdItem(3)"}, {"click": "cmdItem(4)"}, {"click": "cmdItem(5)"},
                {"click": "cmdItem(6)"}, {"click": "cmdItem(7)"}]})j");
  std::vector<std::string> seen;
  for (const std::string& call : ArgumentsOf(ran, "ItemLookUp")) {
    const Json arguments = Json::parse(call);
    seen.push_back(arguments.at(0).dump() + arguments.at(2).get<std::string>());
  }
  const std::string items = "4 x2.FErpClsID <>1 ";
  EXPECT_THAT(seen, ElementsAre("3", "3", items, items, "1", "1", "2", "2"));
  EXPECT_EQ(Text(ran, "txtItem(0)"), "E1");
  EXPECT_EQ(Text(ran, "txtItem(1)"), "");
  EXPECT_EQ(Text(ran, "txtItem(2)"), "I1");
}

TEST(FrmFilter139Rules, OrderNumbersComeFromTheListOfOrders) {
  const Json ran = RanBare(kDialog, R"j({"lookups": [{"FInterID": 5, "FBillNo": "SO9"}, null],
      "steps": [{"click": "cmdItem(8)"}, {"click": "cmdItem(9)"}]})j");
  EXPECT_EQ(Text(ran, "txtItem(8)"), "SO9");
  EXPECT_EQ(Text(ran, "txtItem(9)"), "");
  EXPECT_THAT(ArgumentsOf(ran, "ListID"), ElementsAre("[32]", "[32]"));
  EXPECT_THAT(ArgumentsOf(ran, "GetData"),
              ElementsAre(R"(["<props>","Select FBillNo From SEOrder Where FInterID=5"])"));
  EXPECT_THAT(Members(ran), ::testing::Contains("ORVMShopRpt.Data.GetData"));
  EXPECT_THAT(ArgumentsOf(ran, "ItemLookUp"), IsEmpty());
}

}  // namespace
}  // namespace salerpt::shell
