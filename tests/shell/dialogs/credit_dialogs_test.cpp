// The dialogs of the credit reports.
#include "tests/shell/dialogs/ran_dialog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace salerpt::shell {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;

constexpr const char* kCreditDialogs[] = {"frmFirter145", "frmFirter146", "frmFirter149"};
constexpr std::string_view kNoBoxes = "[]";

// The settings written, section and key, in the order of writing.
std::string Settings(const Json& ran) {
  std::string lines;
  for (const auto& [place, value] : ran.at("settings").items()) {
    lines += place.substr(place.find('/') + 1) + "=" + value.get<std::string>() + "\n";
  }
  return lines;
}

TEST(CreditDialogs, QuantityWritesItsStartValues) {
  const Json ran = RanBare("frmFirter145");

  EXPECT_EQ(Filter(ran), InOrder(R"({
      "OK": true, "BDate": "2024-03-05", "EDate": "2024-03-05", "FICItemIDFrom": "", "FICItemIDTo": "",
      "FItemIDFrom": "", "FItemIDTo": "", "FCreditClass": 0, "FGroupID": 0, "CreditTypeName": "销售合同"})"));
  EXPECT_EQ(SavedLines(ran), Lines(R"({
      "plan": "默认方案", "family": 145, "FICItemIDFrom": "", "FICItemIDTo": "", "FItemIDFrom": "",
      "FItemIDTo": "", "CreditType": "0", "CreditObj": "0"})"));
  EXPECT_THAT(ArgumentsOf(ran, "UpdateNextChooseValue"), IsEmpty());
}

TEST(CreditDialogs, AmountWritesItsStartValuesInTheBaseCurrency) {
  const Json ran = RanBare("frmFirter146");

  EXPECT_EQ(Filter(ran), InOrder(R"({
      "OK": true, "BDate": "2024-03-05", "EDate": "2024-03-05", "FCurrencyNumber": "", "FCurrencyID": 1,
      "FItemIDFrom": "", "FItemIDTo": "", "FCreditClass": 0, "FGroupID": 0, "CreditTypeName": "销售合同",
      "FExchangeRate": 1, "FCurrencyName": "本位币", "CreditObj": 0, "CreditTypeIndex": 0})"));
  EXPECT_EQ(SavedLines(ran), Lines(R"({
      "plan": "默认方案", "family": 145, "FCurrency": "", "FItemIDFrom": "", "FItemIDTo": "",
      "CreditObj": "0", "CreditType": "0"})"));
}

TEST(CreditDialogs, TermWritesItsStartValuesInTheBaseCurrency) {
  const Json ran = RanBare("frmFirter149");

  EXPECT_EQ(Filter(ran), InOrder(R"({
      "OK": true, "FDate": "2024-03-05", "FItemIDFrom": "", "FItemIDTo": "", "FCurrentcyID": "",
      "FCreditClass": 0, "CreditTypeName": "客户", "FCurrencyID": 1, "FRate": 1, "FCurrencyName": "本位币",
      "CreditObj": 0})"));
  EXPECT_EQ(SavedLines(ran), Lines(R"({
      "plan": "默认方案", "family": 145, "FCurrency": "", "FItemIDFrom": "", "FItemIDTo": "",
      "FDate": "2024-03-05", "CreditObj": "0"})"));
}

TEST(CreditDialogs, QuantityRestoresAPlan) {
  const Json ran = RanBare("frmFirter145", R"({"plans": {"status": "夏", "夏": {"FICItemIDFrom": "a",
      "FICItemIDTo": "b", "FItemIDFrom": "c", "FItemIDTo": "d", "CreditType": "3", "CreditObj": "4"}}})");

  EXPECT_EQ(Filter(ran), InOrder(R"({
      "OK": true, "BDate": "2024-03-05", "EDate": "2024-03-05", "FICItemIDFrom": "a", "FICItemIDTo": "b",
      "FItemIDFrom": "c", "FItemIDTo": "d", "FCreditClass": 4, "FGroupID": 3, "CreditTypeName": "销售发票"})"));
  EXPECT_EQ(Shown(ran, "Label3").at("caption"), "业务员类别:");
  EXPECT_EQ(SavedLines(ran), "") << "a named plan stays as it was saved";
}

TEST(CreditDialogs, AmountRestoresAPlan) {
  const Json ran = RanBare("frmFirter146", R"j({"plans": {"status": "夏", "夏": {"FCurrency": "USD",
      "FItemIDFrom": "c", "FItemIDTo": "d", "CreditObj": "2", "CreditType": "1"}},
      "steps": [{"state": "opened"}, {"click": "cmdOK"}]})j");

  EXPECT_EQ(Text(ran, "opened", "txtItem(0)"), "USD");
  EXPECT_EQ(Text(ran, "opened", "txtItem(2)"), "c");
  EXPECT_EQ(Text(ran, "opened", "txtItem(3)"), "d");
  EXPECT_EQ(FilterValue(ran, "FCurrencyNumber"), "USD");
  EXPECT_EQ(FilterValue(ran, "FCreditClass"), 2);
  EXPECT_EQ(FilterValue(ran, "FGroupID"), 1);
  EXPECT_EQ(FilterValue(ran, "CreditTypeIndex"), 1);
  EXPECT_EQ(FilterValue(ran, "CreditTypeName"), "销售订单");
  EXPECT_EQ(Shown(ran, "opened", "Label3").at("caption"), "部门代码:");
}

TEST(CreditDialogs, TermRestoresAPlanWithItsDate) {
  const Json ran = RanBare("frmFirter149", R"({"plans": {"status": "夏", "夏": {"FCurrency": "EUR",
      "FItemIDFrom": "c", "FItemIDTo": "d", "FDate": "2023-06-30", "CreditObj": "3"}}})");

  EXPECT_EQ(FilterValue(ran, "FDate"), "2023-06-30");
  EXPECT_EQ(FilterValue(ran, "FCurrentcyID"), "EUR");
  EXPECT_EQ(FilterValue(ran, "FCreditClass"), 3);
  EXPECT_EQ(FilterValue(ran, "CreditTypeName"), "客户类别");
  EXPECT_EQ(Shown(ran, "Label3").at("caption"), "客户类别:");
}

TEST(CreditDialogs, BoxesAndCaptionsAsTheUserReadsThem) {
  for (const char* dialog : kCreditDialogs) {
    const Json ran = RanBare(dialog);
    EXPECT_THAT(ItemTexts(ran, "cmbCreditObj"),
                ElementsAre("客户", "业务员", "部门", "客户类别", "业务员类别"));
    EXPECT_THAT(Captions(ran), IsSupersetOf({"信用对象:", "客户代码:", "确定(&O)", "取消(&C)"})) << dialog;
  }
  EXPECT_THAT(ItemTexts(RanBare("frmFirter145"), "Cmb_CreditType"),
              ElementsAre("销售合同", "销售订单", "销售出库单", "销售发票"));
  EXPECT_THAT(Captions(RanBare("frmFirter145")), IsSupersetOf({"信用管理范围:"}));
  EXPECT_THAT(Captions(RanBare("frmFirter146")), IsSupersetOf({"信用管理范围:", "折算币别:"}));
  EXPECT_THAT(Captions(RanBare("frmFirter149")), IsSupersetOf({"折算币别:", "计算日期:"}));
}

// --- The object of the credit

TEST(CreditDialogs, TheObjectDecidesLabelAndLookUp) {
  struct Object {
    const char* caption;
    const char* member;
    const char* arguments;
  };
  const Object objects[] = {
      {"客户代码:", "ItemLookUp", "[1,"},
      {"业务员代码:", "ItemLookUp", "[3,"},
      {"部门代码:", "ItemLookUp", "[2,"},
      {"客户类别:", "SubMesLookup", "[501,\"x\"]"},
      {"业务员类别:", "SubMesLookup", "[30,\"x\"]"},
  };
  for (const char* dialog : kCreditDialogs) {
    for (int index = 0; const Object& object : objects) {
      const Json ran =
          RanBare(dialog, R"j({"steps": [{"select": "cmbCreditObj", "index": )j" + std::to_string(index++) +
                              R"j(}, {"type": "txtItem(3)", "text": "x"},
                                                {"click": "cmdItem(3)"}]})j");
      EXPECT_EQ(Shown(ran, "Label3").at("caption"), object.caption) << dialog;
      ASSERT_EQ(ArgumentsOf(ran, object.member).size(), 1u) << dialog << object.caption;
      EXPECT_THAT(ArgumentsOf(ran, object.member).at(0), ::testing::StartsWith(object.arguments));
      EXPECT_EQ(Text(ran, "txtItem(3)"), "x") << "changing the object leaves the codes";
    }
  }
}

TEST(CreditDialogs, QuantityLooksUpItemsInItsFirstPair) {
  const Json ran = RanBare("frmFirter145", R"j({"profile": {"IC/UseShortNumber": 1},
      "lookups": [{"Number": "01.7", "FShortNumber": "7"}, {"Number": "01.8", "FShortNumber": "8"}],
      "steps": [{"click": "cmdItem(0)"}, {"key": 119, "on": "txtItem(1)"}, {"click": "cmdOK"}]})j");

  EXPECT_EQ(FilterValue(ran, "FICItemIDFrom"), "7");
  EXPECT_EQ(FilterValue(ran, "FICItemIDTo"), "8");
  EXPECT_THAT(ArgumentsOf(ran, "ItemLookUp"),
              ElementsAre(R"([4,"","",{"BeShortNumber":true,"GetDataType":1,"Search":""}])",
                          R"([4,"","",{"BeShortNumber":true,"GetDataType":1,"Search":""}])"));
}

TEST(CreditDialogs, ObjectsAreHandedOverByTheIdThatTheirLookUpGave) {
  for (const char* dialog : {"frmFirter146", "frmFirter149"}) {
    const Json ran =
        RanBare(dialog, R"j({"lookups": [{"Number": "C1", "FItemID": 55}, {"Number": "C9", "FItemID": 66}],
        "steps": [{"key": 118, "on": "txtItem(2)"}, {"click": "cmdItem(3)"}, {"state": "chosen"},
                  {"click": "cmdOK"}]})j");
    EXPECT_EQ(FilterValue(ran, "FItemIDFrom"), 55) << dialog;
    EXPECT_EQ(FilterValue(ran, "FItemIDTo"), 66) << dialog;
    EXPECT_EQ(Text(ran, "chosen", "txtItem(2)"), "C1");
    EXPECT_EQ(Text(ran, "chosen", "txtItem(3)"), "C9");
  }
}

// --- The currency

TEST(CreditDialogs, ACurrencyIsResolvedAtTheConfirmation) {
  const std::string with_row = R"j({"answers": {"Execute": {"fields": [["FNumber", 200, 20],
      ["FCurrencyID", 3, 4], ["FName", 200, 50], ["FExchangeRate", 5, 8]],
      "rows": [["USD", 3, "美元", 7.25]]}},
      "steps": [{"type": "txtItem(0)", "text": "usd"}, {"click": "cmdOK"}]})j";
  for (const auto& [dialog, rate] : {std::pair{"frmFirter146", "FExchangeRate"}, {"frmFirter149", "FRate"}}) {
    const Json ran = RanBare(dialog, with_row);
    EXPECT_THAT(ArgumentsOf(ran, "Execute"),
                ElementsAre(R"(["select * From t_currency Where FNumber ='usd'"])"));
    EXPECT_EQ(FilterValue(ran, "FCurrencyID"), 3);
    EXPECT_EQ(FilterValue(ran, "FCurrencyName"), "美元");
    EXPECT_EQ(FilterValue(ran, rate), 7.25);
    EXPECT_EQ(Text(ran, "txtItem(0)"), "USD") << "the text takes the code as it is spelled there";
  }
}

TEST(CreditDialogs, ACodeThatNoCurrencyHasMeansTheBaseCurrency) {
  for (const auto& [dialog, rate] : {std::pair{"frmFirter146", "FExchangeRate"}, {"frmFirter149", "FRate"}}) {
    const Json ran =
        RanBare(dialog, R"j({"steps": [{"type": "txtItem(0)", "text": "XXX"}, {"click": "cmdOK"}]})j");
    EXPECT_EQ(FilterValue(ran, "OK"), true);
    EXPECT_EQ(FilterValue(ran, "FCurrencyID"), 1);
    EXPECT_EQ(FilterValue(ran, "FCurrencyName"), "本位币");
    EXPECT_EQ(FilterValue(ran, rate), 1);
  }
}

TEST(CreditDialogs, BlanksAreNoCurrency) {
  const Json ran =
      RanBare("frmFirter146", R"j({"steps": [{"type": "txtItem(0)", "text": "  "}, {"click": "cmdOK"}]})j");
  EXPECT_THAT(ArgumentsOf(ran, "Execute"), IsEmpty());
  EXPECT_EQ(FilterValue(ran, "FCurrencyName"), "本位币");
}

TEST(CreditDialogs, ACurrencyLookUpKeepsWhatItSaw) {
  const std::string case_text = R"j({"lookups": [{"Number": "USD", "FShortNumber": "USD", "FCurrencyID": 3,
      "FName": "美元", "FExchangeRate": 7.1, "FRate": 6.9}], "steps": [{"click": "cmdItem(0)"}]})j";
  const Json amount = RanBare("frmFirter146", case_text);
  EXPECT_THAT(ArgumentsOf(amount, "CurrencyLookup"), ElementsAre(R"([""])"));
  EXPECT_EQ(Text(amount, "txtItem(0)"), "USD");
  EXPECT_EQ(FilterValue(amount, "FCurrencyID"), 3);
  EXPECT_EQ(FilterValue(amount, "FCurrencyName"), "美元");
  EXPECT_EQ(FilterValue(amount, "FExchangeRate"), 7.1);
  EXPECT_EQ(FilterValue(amount, "OK"), false);
  EXPECT_EQ(FilterValue(RanBare("frmFirter149", case_text), "FRate"), 6.9);
}

// --- Dates, keys

TEST(CreditDialogs, QuantityRefusesAReversedRange) {
  const Json ran = RanBare("frmFirter145", R"({"steps": [{"date": "DtpBDate", "value": "2024-03-06"},
      {"click": "cmdOK"}, {"state": "refused"}]})");
  EXPECT_EQ(ran.at("boxes").dump(),
            R"([{"text":"起始日期不能大于截止日期!","title":"青岚提示：","style":64}])");
  EXPECT_EQ(Shown(ran, "refused", "DtpBDate").at("value"), "2024-03-05");
  EXPECT_EQ(FilterValue(ran, "OK"), false);
  EXPECT_FALSE(ran.at("closed"));
  EXPECT_EQ(Settings(ran), "") << "nothing is left behind while the dialog stands";
}

TEST(CreditDialogs, AmountTakesAReversedRange) {
  const Json ran = RanBare("frmFirter146", R"({"steps": [{"date": "DtpBDate", "value": "2024-03-06"},
      {"click": "cmdOK"}]})");
  EXPECT_EQ(ran.at("boxes").dump(), kNoBoxes);
  EXPECT_EQ(FilterValue(ran, "BDate"), "2024-03-06");
  EXPECT_EQ(FilterValue(ran, "EDate"), "2024-03-05");
  EXPECT_TRUE(ran.at("closed"));
}

TEST(CreditDialogs, EnterMovesOnAndNoQuoteArrives) {
  for (const char* dialog : kCreditDialogs) {
    const Json ran = RanBare(dialog, R"j({"steps": [{"type": "txtItem(2)", "text": "a'b"},
        {"key": 13, "on": "txtItem(2)"}, {"key": 27, "on": "txtItem(3)"}]})j");
    EXPECT_EQ(Text(ran, "txtItem(2)"), "ab") << dialog;
    EXPECT_EQ(ran.at("keys").dump(), R"(["{TAB}"])") << dialog;
    EXPECT_FALSE(ran.at("closed")) << dialog;
  }
}

// --- What the dialogs leave behind

TEST(CreditDialogs, QuantityLeavesItsValuesBehindWhetherConfirmedOrCancelled) {
  for (const char* button : {"cmdOK", "cmdCacel"}) {
    const Json ran = RanBare("frmFirter145", std::string(R"j({"steps": [
        {"date": "DtpBDate", "value": "2024-02-01"}, {"type": "txtItem(0)", "text": "a"},
        {"type": "txtItem(1)", "text": "b"}, {"type": "txtItem(2)", "text": "c"},
        {"type": "txtItem(3)", "text": "d"}, {"select": "cmbCreditObj", "index": 3}, {"click": ")j") +
                                                 button + R"("}]})");
    EXPECT_TRUE(ran.at("closed"));
    EXPECT_EQ(Settings(ran),
              "145ORVSaleRpt/BDate=2024-02-01\n145ORVSaleRpt/EDate=2024-03-05\n"
              "145ORVSaleRpt/BItem=a\n145ORVSaleRpt/EItem=b\n145ORVSaleRpt/BCustEmp=c\n"
              "145ORVSaleRpt/ECustEmp=d\n145ORVSaleRpt/CreditObj=3\n");
  }
}

TEST(CreditDialogs, AmountLeavesItsValuesBehindWhetherConfirmedOrCancelled) {
  const std::string steps = R"j({"lookups": [{"Number": "C1", "FItemID": 55}], "steps": [
      {"click": "cmdItem(2)"}, {"type": "txtItem(3)", "text": "d"}, {"click": ")j";
  const Json confirmed = RanBare("frmFirter146", steps + R"(cmdOK"}]})");
  EXPECT_EQ(Settings(confirmed),
            "145ORVSaleRpt/BDate=2024-03-05\n145ORVSaleRpt/EDate=2024-03-05\n"
            "145ORVSaleRpt/FCurrencyNumber=\n145ORVSaleRpt/FCurrencyID=1\n"
            "145ORVSaleRpt/FCurrencyName=本位币\n145ORVSaleRpt/FExchangeRate=1\n"
            "145ORVSaleRpt/BCustEmp=C1\n145ORVSaleRpt/BCustEmpID=55\n145ORVSaleRpt/ECustEmp=d\n"
            "145ORVSaleRpt/ECustEmpID=\n145ORVSaleRpt/CreditObj=0\n");
  const Json cancelled = RanBare("frmFirter146", steps + R"(cmdCacel"}]})");
  EXPECT_EQ(FilterValue(cancelled, "OK"), false);
  EXPECT_EQ(cancelled.at("settings").size(), 11u);
}

TEST(CreditDialogs, TermLeavesNothingBehind) {
  EXPECT_EQ(Settings(RanBare("frmFirter149")), "");
}

}  // namespace
}  // namespace salerpt::shell
