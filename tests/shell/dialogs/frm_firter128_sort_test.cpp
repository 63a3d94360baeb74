// The sort pane of the outbound summary's dialog.
#include "tests/shell/dialogs/ran_dialog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace salerpt::shell {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// With the sort order of the stored default plan, ungrouped and with detail rows.
Json Sorted(std::string_view order, std::string_view steps, int use_short = 0) {
  return Ran("frmFirter128",
             R"j({"plans": {"默认方案": {"chkGroupBy": "0", "OnlyShowSum": "0", "OrderBy": ")j" +
                 std::string(order) + R"j("}}, "profile": {"IC/UseShortNumber": )j" +
                 std::to_string(use_short) + R"j(}, "steps": [)j" + std::string(steps) + "]}");
}
// Grouped, as the dialog opens.
Json Grouped(std::string_view steps) {
  return Ran("frmFirter128", R"j({"steps": [)j" + std::string(steps) + "]}");
}
std::vector<std::string> Grid(const Json& ran) {
  return SortRows(ran["controls"]);
}
// "caption/field" of the fields on offer; between them stand 200 blanks.
std::vector<std::string> Offered(const Json& ran) {
  std::vector<std::string> offered;
  const std::string blanks(200, ' ');
  for (const Json& item : Shown(ran, "listOrderFields")["items"]) {
    const std::string text = item[0];
    const auto gap = text.find(blanks);
    if (gap == std::string::npos) {
      offered.push_back(text);
    } else {
      offered.push_back(text.substr(0, gap) + "/" + text.substr(gap + 200));
    }
  }
  return offered;
}
// Names that the usage log was written with.
std::vector<std::string> UsageLog(const Json& ran) {
  std::vector<std::string> names;
  for (const Json& call : ran.at("calls")) {
    if (call.at("member") == "WriteMGLog") names.push_back(call.at("args").back());
  }
  return names;
}

constexpr const char* kThree = "FOutAmount ASC,FCUUnitOutQty DESC,FConsignAmount ASC";

TEST(Frm128SortFields, AGroupedReportOffersNoItemCode) {
  EXPECT_THAT(Offered(Grouped("")),
              ElementsAre("出库数量(常用)/FCUUnitOutQty", "出库金额/FOutAmount", "销售金额/FConsignAmount"));
}

TEST(Frm128SortFields, AnUngroupedOneOffersTheCodeInUse) {
  EXPECT_THAT(Offered(Sorted("", "")), ElementsAre("产品代码/FNumber", "出库数量(常用)/FCUUnitOutQty",
                                                   "出库金额/FOutAmount", "销售金额/FConsignAmount"));
  EXPECT_EQ(Offered(Sorted("", "", 1)).at(0), "产品代码/FShortNumber");
}

TEST(Frm128SortRestore, APlanWithoutOrderSortsByItemCode) {
  EXPECT_THAT(Grid(Sorted("NULL", "")), ElementsAre("产品代码/1/0/FNumber"));
  EXPECT_THAT(Grid(Grouped("")), ElementsAre("/1/0/FNumber"));
}

TEST(Frm128SortRestore, AnEmptyOrderLeavesTheGridEmpty) {
  const Json ran = Sorted("", R"j({"click": "cmdOK"})j");
  EXPECT_THAT(Grid(ran), IsEmpty());
  EXPECT_EQ(ran["Filter"]["Orderby"], "");
}

TEST(Frm128SortRestore, TheItemCodeFollowsTheCodeInUse) {
  const Json ran = Sorted("fnumber DESC,FOutAmount ASC", R"j({"state": "shown"}, {"click": "cmdOK"})j", 1);
  EXPECT_THAT(SortRows(ran["states"]["shown"]),
              ElementsAre("产品代码/0/1/FShortNumber", "出库金额/1/0/FOutAmount"));
  EXPECT_EQ(ran["Filter"]["Orderby"], "FShortNumber DESC,FOutAmount ASC");
}

TEST(Frm128SortRestore, AFieldThatIsNoLongerOfferedHasNoCaptionAndStillSorts) {
  const Json ran = Sorted("FGone DESC", R"j({"state": "shown"}, {"click": "cmdOK"})j");
  EXPECT_THAT(SortRows(ran["states"]["shown"]), ElementsAre("/0/1/FGone"));
  EXPECT_EQ(ran["Filter"]["Orderby"], "FGone DESC");
}

TEST(Frm128SortAdd, ANewFieldIsAscendingAndStandsLast) {
  EXPECT_THAT(
      Grid(Sorted("FNumber DESC", R"j({"select": "listOrderFields", "index": 2}, {"click": "cmdAdd"})j")),
      ElementsAre("产品代码/0/1/FNumber", "出库金额/1/0/FOutAmount"));
}

TEST(Frm128SortAdd, AFieldTwiceOrNoFieldAddsNothing) {
  EXPECT_THAT(
      Grid(Sorted("FOutAmount DESC", R"j({"select": "listOrderFields", "index": 2}, {"click": "cmdAdd"})j")),
      ElementsAre("出库金额/0/1/FOutAmount"));
  const Json none = Sorted("FOutAmount DESC", R"j({"click": "cmdAdd"})j");
  EXPECT_THAT(Grid(none), ElementsAre("出库金额/0/1/FOutAmount"));
  EXPECT_THAT(Boxes(none), IsEmpty());
}

TEST(Frm128SortMove, UpGoesOneRowAndFromTheFirstToTheLast) {
  EXPECT_THAT(Grid(Sorted(kThree, R"j({"grid": [2, 1]}, {"click": "cmdUp"})j")),
              ElementsAre("出库数量(常用)/0/1/FCUUnitOutQty", "出库金额/1/0/FOutAmount",
                          "销售金额/1/0/FConsignAmount"));
  EXPECT_THAT(Grid(Sorted(kThree, R"j({"grid": [1, 1]}, {"click": "cmdUp"})j")),
              ElementsAre("销售金额/1/0/FConsignAmount", "出库数量(常用)/0/1/FCUUnitOutQty",
                          "出库金额/1/0/FOutAmount"));
}

TEST(Frm128SortMove, DownGoesOneRowAndFromTheLastToTheFirst) {
  EXPECT_THAT(Grid(Sorted(kThree, R"j({"grid": [2, 1]}, {"click": "cmdDown"})j")),
              ElementsAre("出库金额/1/0/FOutAmount", "销售金额/1/0/FConsignAmount",
                          "出库数量(常用)/0/1/FCUUnitOutQty"));
  EXPECT_THAT(Grid(Sorted(kThree, R"j({"grid": [3, 1]}, {"click": "cmdDown"})j")),
              ElementsAre("销售金额/1/0/FConsignAmount", "出库数量(常用)/0/1/FCUUnitOutQty",
                          "出库金额/1/0/FOutAmount"));
}

TEST(Frm128SortMove, TheSelectionFollowsTheRow) {
  EXPECT_THAT(Grid(Sorted(kThree, R"j({"grid": [1, 1]}, {"click": "cmdDown"}, {"click": "cmdDown"})j")),
              ElementsAre("出库数量(常用)/0/1/FCUUnitOutQty", "销售金额/1/0/FConsignAmount",
                          "出库金额/1/0/FOutAmount"));
}

TEST(Frm128SortMove, WithoutASelectedRowNothingMovesOrGoes) {
  const char* const all[] = {"cmdUp", "cmdDown", "cmdDelOrder"};
  for (const char* button : all) {
    const std::string press = R"j({"click": ")j" + std::string(button) + R"j("})j";
    EXPECT_EQ(Grid(Sorted(kThree, press)), Grid(Sorted(kThree, ""))) << button;
    const std::string beside = R"j({"grid": [2, 1]}, {"grid": [7, 1]}, )j" + press;
    EXPECT_EQ(Grid(Sorted(kThree, beside)), Grid(Sorted(kThree, ""))) << button;
  }
}

TEST(Frm128SortSelect, ARowEnablesTheButtonsAndAClickBesideLeavesThem) {
  const Json ran = Sorted(kThree, R"j({"grid": [1, 1]}, {"state": "on"}, {"grid": [9, 1]})j");
  for (const char* button : {"cmdUp", "cmdDown", "cmdDelOrder"}) {
    EXPECT_EQ(Shown(ran, "on", button)["enabled"], true) << button;
    EXPECT_EQ(Shown(ran, button)["enabled"], true) << button;
  }
}

TEST(Frm128SortDelete, TheNextRowIsSelectedAndBehindTheEndTheOneBefore) {
  EXPECT_THAT(
      Grid(Sorted(kThree, R"j({"grid": [1, 1]}, {"click": "cmdDelOrder"}, {"click": "cmdDelOrder"})j")),
      ElementsAre("销售金额/1/0/FConsignAmount"));
  EXPECT_THAT(
      Grid(Sorted(kThree, R"j({"grid": [3, 1]}, {"click": "cmdDelOrder"}, {"click": "cmdDelOrder"})j")),
      ElementsAre("出库金额/1/0/FOutAmount"));
}

TEST(Frm128SortDelete, TheOnlyRowTakesTheButtonsAlong) {
  const Json ran = Sorted("FOutAmount ASC", R"j({"grid": [1, 1]}, {"click": "cmdDelOrder"})j");
  EXPECT_THAT(Grid(ran), IsEmpty());
  for (const char* button : {"cmdUp", "cmdDown", "cmdDelOrder"}) {
    EXPECT_EQ(Shown(ran, button)["enabled"], false) << button;
  }
}

TEST(Frm128SortDirection, ARowHasOneDirectionWhicheverBoxIsClicked) {
  EXPECT_THAT(Grid(Sorted("FOutAmount ASC", R"j({"grid": [1, 2]})j")),
              ElementsAre("出库金额/0/1/FOutAmount"));
  EXPECT_THAT(Grid(Sorted("FOutAmount ASC", R"j({"grid": [1, 3]})j")),
              ElementsAre("出库金额/0/1/FOutAmount"));
  EXPECT_THAT(Grid(Sorted("FOutAmount DESC", R"j({"grid": [1, 3]})j")),
              ElementsAre("出库金额/1/0/FOutAmount"));
  EXPECT_THAT(Grid(Sorted("FOutAmount ASC", R"j({"grid": [1, 2]}, {"grid": [1, 2]})j")),
              ElementsAre("出库金额/1/0/FOutAmount"));
}

TEST(Frm128SortDirection, AClickInABoxSelectsItsRow) {
  EXPECT_THAT(Grid(Sorted(kThree, R"j({"grid": [3, 1]}, {"grid": [1, 3]}, {"click": "cmdDelOrder"})j")),
              ElementsAre("出库数量(常用)/0/1/FCUUnitOutQty", "销售金额/1/0/FConsignAmount"));
}

TEST(Frm128SortGroupBox, CheckingItTakesTheItemCodeOutOfGridAndList) {
  const Json ran =
      Sorted("FNumber ASC,FOutAmount DESC", R"j({"check": "chkGroupBy", "value": 1}, {"click": "cmdOK"})j");
  EXPECT_THAT(Grid(ran), ElementsAre("出库金额/0/1/FOutAmount"));
  EXPECT_EQ(Offered(ran).size(), 3U);
  EXPECT_EQ(ran["Filter"]["Orderby"], "FOutAmount DESC");
}

TEST(Frm128SortGroupBox, CheckingItTakesTheOnlyRowAndTheButtonsAway) {
  const Json ran = Sorted("FNumber ASC", R"j({"grid": [1, 1]}, {"check": "chkGroupBy", "value": 1})j");
  EXPECT_THAT(Grid(ran), IsEmpty());
  for (const char* button : {"cmdUp", "cmdDown", "cmdDelOrder"}) {
    EXPECT_EQ(Shown(ran, button)["enabled"], false) << button;
  }
}

TEST(Frm128SortGroupBox, UncheckingItOffersTheItemCodeAgainButDoesNotChooseIt) {
  const Json ran = Sorted("FNumber ASC,FOutAmount DESC",
                          R"j({"check": "chkGroupBy", "value": 1}, {"check": "chkGroupBy", "value": 0})j");
  EXPECT_THAT(Grid(ran), ElementsAre("出库金额/0/1/FOutAmount"));
  EXPECT_EQ(Offered(ran).at(0), "产品代码/FNumber");
}

TEST(Frm128SortLog, AConfirmationOfTheDefaultPlanLogsEachFieldOnce) {
  const Json ran = Sorted(kThree, R"j({"click": "cmdOK"})j");
  EXPECT_THAT(UsageLog(ran), ElementsAre("XSCKHZ_PX2", "XSCKHZ_PX1", "XSCKHZ_PX3"));
  EXPECT_THAT(Calls(ran).back(), "SaveProfile");
  EXPECT_EQ(ran["Filter"]["Orderby"], kThree);
}

TEST(Frm128SortLog, AConfirmationOfANamedPlanLogsToo) {
  const Json ran = Ran("frmFirter128", R"j({"plans": {"月报": {"OrderBy": "FOutAmount ASC"}},
      "steps": [{"plan": "月报"}, {"click": "cmdOK"}]})j");
  EXPECT_THAT(UsageLog(ran), ElementsAre("XSCKHZ_PX2"));
}

TEST(Frm128SortLog, SavingAndRefusedConfirmationsLogNothing) {
  EXPECT_THAT(
      UsageLog(Ran("frmFirter128", R"j({"plans": {"月报": {"OrderBy": "FOutAmount ASC"}, "status": "月报"},
      "replies": ["Yes"], "steps": [{"tool": "TLBSAVE"}]})j")),
      IsEmpty());
  EXPECT_THAT(
      UsageLog(Sorted(kThree, R"j({"date": "DtpBDate", "value": "2024-04-01"}, {"click": "cmdOK"})j")),
      IsEmpty());
  EXPECT_THAT(UsageLog(Sorted("FNumber ASC", R"j({"click": "cmdOK"})j")), IsEmpty());
}

TEST(Frm128SortLog, AFailingLogStopsNothing) {
  const Json ran = Ran("frmFirter128", R"j({"plans": {"默认方案": {"OrderBy": "FOutAmount ASC"}},
      "faults": {"WriteMGLog": {"number": -1, "source": "s", "description": "d"}}})j");
  EXPECT_EQ(ran["Filter"]["OK"], true);
  EXPECT_EQ(ran["Filter"]["Orderby"], "FOutAmount ASC");
}

}  // namespace
}  // namespace salerpt::shell
