// The income statistics item by item: the whole request, to the letter.
#include <gtest/gtest.h>

#include "tests/reports/rpt126_world.h"

namespace salerpt::testing {
namespace {

using Rpt126ByItem = Rpt126World;

// AUXVALUES are the two columns of the auxiliary property, CODES the kinds of row.
constexpr const char* kSelect =
    "Set NoCount On\r\n"
    "Create Table #Data(\r\n"
    "{COLUMNS}  Insert Into #Data  Select {AUXVALUES}\r\n"
    "Case When Grouping(t1.FNumber)=1 Then '合计' \r\n"
    " Else t1.FNumber End, \r\n"
    "{VALUES}\r\n"
    "{CODES} Else 0 End \r\n"
    "{FROM}{WHERE}{CONDITION}\r\n";

constexpr const char* kEndSel =
    "Update #Data Set FTaxRate=Null Where FSumSort=101 \r\n"
    "update  t1 set t1.FAmountDecimal = (select FScale from t_Currency where FName = "
    "replace(t1.FCurrencyName,'(小计)','')) from #DATA t1 \r\n"
    "Select * From #Data  {ONLYTOTALS} Order by FID \r\n"
    "DROP Table #Data  ";

Pieces PlainRequest() {
  return {{"SELECT", kSelect},
          {"GROUPBY", "Group by t1.FNumber With RollUp "},
          {"ITEMFILTER", "{ITEMFILTER}"},
          {"EndSel", kEndSel},
          {"CurrencyShow", "0"},
          {"AuxProp", "0"}};
}

Pieces PlainPieces() {
  return {{"AUXVALUES", ""}, {"CODES", " Case When Grouping(t1.FNumber)=1 THEN 101 "}};
}

Pieces With(Pieces pieces, const Pieces& more) {
  for (const auto& [name, text] : more) pieces[name] = text;
  return pieces;
}

Pieces AuxiliaryRequest() {
  Pieces request = PlainRequest();
  request["GROUPBY"] = "Group by t1.FNumber,v2.FAuxPropID With RollUp ";
  request["AuxProp"] = "1";
  return request;
}

Pieces AuxiliaryPieces() {
  return With(AuxiliaryColumns(),
              {{"AUXVALUES", "Case When Grouping(v2.FAuxPropID)=1 Then -1  Else v2.FAuxPropID End, '',"},
               {"CODES",
                " Case  When Grouping(t1.FNumber)=0 And Grouping(v2.FAuxPropID)=1 Then 106 \r\n"
                "When Grouping(t1.FNumber)=1 And Grouping(v2.FAuxPropID)=1 Then 101 "}});
}

constexpr const char* kCurrencyColumns =
    "FCurrencyID Varchar(80) Null,\r\n"
    "FCurrencyName Varchar(80) Null,\r\n"
    "FAmountDecimal smallint default({D}),\r\n"
    "FAmountFor decimal(23,10)  Null,\r\n"
    "FTaxAmountFor decimal(23,10) Null,\r\n"
    "FCountAmountFor decimal(23,10) Null,";

// AND stands where the auxiliary property is a level of the rollup too.
constexpr const char* kCurrencyValues =
    "Case When Grouping(v1.FCurrencyID)=1 {AND}Then '本位币合计' Else cast(v1.FCurrencyID as Varchar(255)) "
    "End,\r\n"
    "'',\r\n"
    "{D},\r\n"
    "Sum(Round((Case v1.FTranType When 80 Then v2.FStdAmount Else v2.FStdAmount- v2.FStdTaxAmount "
    "End),{D})),\r\n"
    "Sum(Round(v2.FStdTaxAmount,{D})),\r\n"
    "Sum(Round(Case v1.FTranType When 80 Then (v2.FStdAmount + v2.FStdTaxAmount)  Else v2.FStdAmount "
    "End,{D})),";

Pieces CurrencyRequest() {
  Pieces request = PlainRequest();
  request["GROUPBY"] = "Group by t1.FNumber,v1.FCurrencyID With RollUp ";
  request["CurrencyShow"] = "1";
  return request;
}

Pieces CurrencyPieces() {
  return With(BillCurrency(),
              {{"CURRENCYCOLUMNS", kCurrencyColumns},
               {"CURRENCYVALUES", kCurrencyValues},
               {"AND", ""},
               {"AUXVALUES", ""},
               {"CODES",
                " Case When Grouping(t1.FNumber)=1 THEN 101  When (Grouping(v1.FCurrencyID)=1 And "
                "Grouping(t1.FNumber)<>1) Then 106"}});
}

TEST_F(Rpt126ByItem, SendsTheWholeBatch) {
  ExpectRequest(FetchInvoices(), PlainRequest(), PlainPieces());
}

TEST_F(Rpt126ByItem, TakesAnyGroupByButOneForItemByItem) {
  for (const std::int32_t group_by : {0, 2, -1}) {
    ExpectRequest(FetchInvoices({{"GroupBy", group_by}, {"SumMode", std::int32_t{3}}}), PlainRequest(),
                  PlainPieces());
  }
}

TEST_F(Rpt126ByItem, SplitsItemsByTheirAuxiliaryProperty) {
  ExpectRequest(FetchInvoices({{"AuxProp", std::int32_t{1}}}), AuxiliaryRequest(), AuxiliaryPieces());
}

TEST_F(Rpt126ByItem, SplitsItemsByTheCurrencyOfTheBillAndTellsTheBaseCurrencyToo) {
  ExpectRequest(FetchInvoices({{"CurrencyShow", std::int32_t{1}}}), CurrencyRequest(), CurrencyPieces());
}

TEST_F(Rpt126ByItem, SplitsItemsByAuxiliaryPropertyAndCurrency) {
  Pieces request = CurrencyRequest();
  request["GROUPBY"] = "Group by t1.FNumber,v2.FAuxPropID,v1.FCurrencyID With RollUp ";
  request["AuxProp"] = "1";
  Pieces pieces = With(CurrencyPieces(), AuxiliaryPieces());
  pieces["AND"] = "And Grouping(v2.FAuxPropID)=1 ";
  pieces["CODES"] =
      " Case  When Grouping(t1.FNumber)=0 And Grouping(v2.FAuxPropID)=1 Then 106 \r\n"
      "When Grouping(t1.FNumber)=1 And Grouping(v2.FAuxPropID)=1 Then 101  When (Grouping(v1.FCurrencyID)=1 "
      "And Grouping(t1.FNumber)<>1) Then 106";
  ExpectRequest(FetchInvoices({{"CurrencyShow", std::int32_t{1}}, {"AuxProp", std::int32_t{1}}}), request,
                pieces);
}

TEST_F(Rpt126ByItem, ShowsTotalsOnlyByTheFinalSelect) {
  ExpectRequest(FetchInvoices({{"OnlyShowSum", std::int32_t{1}}}), PlainRequest(),
                With(PlainPieces(), {{"ONLYTOTALS", "Where FSumSort>100"}}));
}

TEST_F(Rpt126ByItem, PutsTheConditionBehindTheBillKinds) {
  ExpectRequest(FetchInvoices({{"BItemNumber", "01.01"}, {"ECustNumber", "02"}}), PlainRequest(),
                With(PlainPieces(), {{"CONDITION", " And t1.FNumber>='01.01' And t2.FNumber<='02'"}}));
}

TEST_F(Rpt126ByItem, KeepsAmountsAtTheScaleOfTheBaseCurrency) {
  UseScale("4");
  ExpectRequest(FetchInvoices(), PlainRequest(), With(PlainPieces(), {{"D", "4"}}));
  ExpectRequest(FetchInvoices({{"CurrencyShow", std::int32_t{1}}}), CurrencyRequest(),
                With(CurrencyPieces(), {{"D", "4"}}));
}

TEST_F(Rpt126ByItem, KeepsWholeAmountsAtScaleNought) {
  UseScale("0");
  ExpectRequest(FetchInvoices(), PlainRequest(), With(PlainPieces(), {{"D", "0"}}));
}

TEST_F(Rpt126ByItem, TakesScaleTwoWhereTheBaseCurrencyHasNoRow) {
  currency_->Gives("GetData", OneField("FScale"));
  ExpectRequest(FetchInvoices(), PlainRequest(), PlainPieces());
}

TEST_F(Rpt126ByItem, RestrictsInvoicesToTheCustomersThatTheUserMaySee) {
  RestrictCustomers();
  ExpectRequest(FetchInvoices({{"BItemNumber", "01"}}), PlainRequest(),
                With(PlainPieces(), {{"TAIL", " And  CharIndex('16394',t2.FRightUserID)>0 "},
                                     {"CONDITION", " And t1.FNumber>='01'"}}));
}

TEST_F(Rpt126ByItem, LeavesTheDatesToTheMiddleTier) {
  FetchInvoices();
  EXPECT_NE(request_.at("SELECT").find("##CHECKDATE##"), std::string::npos);
  EXPECT_NE(request_.at("ITEMFILTER").find("##CHECKDATE##"), std::string::npos);
}

TEST_F(Rpt126ByItem, AsksTheMiddleTierOnceWithTheLoginAndTheDatesAndTakesItsRows) {
  FetchInvoices();
  ASSERT_EQ(sales_->CalledMembers(), std::vector<std::string>{"GetPurchaseData"});
  const std::vector<Variant>& arguments = sales_->Calls()[0].arguments;
  ASSERT_EQ(arguments.size(), 4U);
  EXPECT_EQ(arguments[0].ToText(), kProps);
  EXPECT_EQ(arguments[1], Variant(Date::FromYmd(2003, 1, 1)));
  EXPECT_EQ(arguments[2], Variant(Date::FromYmd(2003, 3, 31)));
  EXPECT_NE(As<Dictionary>(arguments[3]), nullptr);
  EXPECT_EQ(GetMember(Report(), "Rs").ToObject(), rows_);
  EXPECT_EQ(Error(), "");
}

TEST_F(Rpt126ByItem, WritesTheKeysInTheirOrderAndSpelling) {
  std::vector<std::string> keys;
  on_fetch_ = [&](Arguments arguments) {
    for (const auto& entry : As<Dictionary>(arguments[3])->Entries()) keys.push_back(entry.key);
  };
  FetchInvoices();
  EXPECT_EQ(keys, (std::vector<std::string>{"Select", "GROUPBY", "ITEMFILTER", "EndSel", "CurrencyShow",
                                            "AuxProp"}));
}

TEST_F(Rpt126ByItem, ReadsChoicesThatNobodyMadeAsNo) {
  Fetch();
  EXPECT_EQ(request_.at("GROUPBY"), "Group by t1.FNumber With RollUp ");
  EXPECT_EQ(request_.at("SELECT").find("FAuxProp"), std::string::npos);
  EXPECT_EQ(request_.at("SELECT").find("FAmountFor"), std::string::npos);
}

}  // namespace
}  // namespace salerpt::testing
