// The fee invoice summary fee by fee: the request, the conditions that go with it, and the call.
#include <gtest/gtest.h>

#include "tests/reports/rpt301_world.h"

namespace salerpt::testing {
namespace {

class Rpt301ByFee : public Rpt301World {
 protected:
  static Pieces PlainRequest() {
    return {{"SELECT",
             "\r\n"
             "    SET NOCOUNT ON\r\n"
             "CREATE TABLE #DATA({COLUMNS}"
             "  INSERT INTO #DATA  SELECT CASE   WHEN GROUPING(t4.FNumber)=1 THEN '合计' \r\n"
             " ELSE t4.FNumber END, {VALUES} CASE WHEN  GROUPING(t4.FNumber)=1 THEN 101 \r\n"
             " ELSE 0 END {FROM}{WHERE}\r\n"},
            {"GROUPBY", "Group by t4.FNumber WITH ROLLUP "},
            {"ITEMFILTER", "{ITEMFILTER}"},
            {"EndSel", "SELECT * FROM #DATA  {ONLYTOTALS}\r\n"}};
  }
};

using Rpt301Rights = Rpt301World;

TEST_F(Rpt301ByFee, SendsTheWholeBatch) {
  ExpectBatch(FetchInvoices(), PlainRequest());
}

TEST_F(Rpt301ByFee, LeavesTheBracketOfTheItemFilterOpen) {
  EXPECT_EQ(FetchInvoices().at("ITEMFILTER"), " FItemID In (SELECT DISTINCT ##ITEMID## FROM #T301B ");
}

TEST_F(Rpt301ByFee, TakesAnyGroupByButOneForFeeByFee) {
  ExpectBatch(FetchInvoices({{"GroupBy", std::int32_t{0}}, {"SumMode", std::int32_t{3}}}), PlainRequest());
  ExpectBatch(FetchInvoices({{"GroupBy", std::int32_t{2}}, {"SumMode", std::int32_t{3}}}), PlainRequest());
}

TEST_F(Rpt301ByFee, ShowsTotalsOnlyByTheFinalSelect) {
  ExpectBatch(FetchInvoices({{"OnlyShowSum", std::int32_t{1}}}), PlainRequest(),
              {{"ONLYTOTALS", "WHERE FSumSort>100"}});
}

TEST_F(Rpt301ByFee, LeavesEveryConditionToTheMiddleTier) {
  ExpectBatch(FetchInvoices({{"BFeeNumber", "11"},
                             {"EFeeNumber", "12"},
                             {"BCust", "21"},
                             {"ECust", "22"},
                             {"BSupply", "31"},
                             {"ESupply", "32"},
                             {"CheckState", std::int32_t{1}},
                             {"HookStatus", std::int32_t{1}},
                             {"InvoiceStyle", std::int32_t{1}}}),
              PlainRequest());
  EXPECT_EQ(sent_["BFeeNumber"], Variant("11"));
  EXPECT_EQ(sent_["EFeeNumber"], Variant("12"));
  EXPECT_EQ(sent_["BCust"], Variant("21"));
  EXPECT_EQ(sent_["ECust"], Variant("22"));
  EXPECT_EQ(sent_["BSupply"], Variant("31"));
  EXPECT_EQ(sent_["ESupply"], Variant("32"));
  EXPECT_EQ(sent_["CheckState"].ToInt32(), 1);
  EXPECT_EQ(sent_["HookStatus"].ToInt32(), 1);
  EXPECT_EQ(sent_["InvoiceStyle"].ToInt32(), 1);
  EXPECT_EQ(sent_["BDate"], Variant(Date::FromYmd(2003, 1, 1)));
  EXPECT_EQ(sent_["EDate"], Variant(Date::FromYmd(2003, 3, 31)));
}

TEST_F(Rpt301ByFee, NeitherNumbersRowsNorDropsTheTableOfRows) {
  for (const std::int32_t mode : {0, 1, 3, 4, 5}) {
    FetchLevels(mode, 1, 2, {{"SumField", mode == 0 ? SumField("客户", 1, 0) : NoSumField()}});
    for (const auto& [key, text] : request_) {
      EXPECT_EQ(text.find("FID"), std::string::npos) << "mode " << mode << " under " << key;
      EXPECT_EQ(text.find("DROP TABLE #DATA"), std::string::npos) << "mode " << mode << " under " << key;
    }
  }
}

TEST_F(Rpt301ByFee, AsksTheMiddleTierOnceWithLoginConditionsAndRequestAndTakesItsRows) {
  FetchInvoices();
  ASSERT_EQ(sales_->CalledMembers(), std::vector<std::string>{"GetRpt301Data"});
  const std::vector<Variant>& arguments = sales_->Calls()[0].arguments;
  ASSERT_EQ(arguments.size(), 3U);
  EXPECT_EQ(arguments[0].ToText(), kProps);
  EXPECT_EQ(arguments[1].ToObject(), GetMember(Report(), "Filter").ToObject()) << "the conditions themselves";
  EXPECT_NE(arguments[2].ToObject(), arguments[1].ToObject());
  EXPECT_EQ(GetMember(Report(), "Rs").ToObject(), rows_);
  EXPECT_EQ(Error(), "");
}

TEST_F(Rpt301Rights, GoWithTheConditionsWhereNoneIsInForce) {
  FetchInvoices();
  for (const char* key :
       {"DataRightFromSupply", "DataRightWhereSupply", "DataRightFromOrg", "DataRightWhereOrg"}) {
    EXPECT_EQ(sent_.count(key), 1U) << key;
    EXPECT_EQ(sent_[key], Variant("")) << key;
  }
}

TEST_F(Rpt301Rights, RestrictBothSidesByTheInvoice) {
  RestrictCustomers();
  FetchInvoices();
  EXPECT_EQ(sent_["DataRightWhereSupply"], Variant(" CharIndex('16394',V1.FRightUserID)>0 "));
  EXPECT_EQ(sent_["DataRightWhereOrg"], Variant(" CharIndex('16394',V1.FRightUserID)>0 "));
  EXPECT_EQ(sent_["DataRightFromSupply"], Variant(""));
  EXPECT_EQ(sent_["DataRightFromOrg"], Variant(""));
}

TEST_F(Rpt301Rights, RestrictOneSideAlone) {
  for (const std::int32_t kind : {1, 2}) {
    report_ = nullptr;
    rights_->On("GetDataRight",
                [kind](Arguments arguments) -> Variant { return arguments[2].ToInt32() == kind; });
    FetchInvoices();
    const Variant right(" CharIndex('16394',V1.FRightUserID)>0 ");
    EXPECT_EQ(sent_["DataRightWhereSupply"], kind == 2 ? right : Variant(""));
    EXPECT_EQ(sent_["DataRightWhereOrg"], kind == 1 ? right : Variant(""));
  }
}

TEST_F(Rpt301Rights, AreAskedForSuppliersAndForCustomers) {
  FetchInvoices();
  std::vector<int> kinds;
  for (const RecordedCall& call : rights_->Calls()) {
    EXPECT_EQ(call.arguments[0].ToText(), kProps);
    EXPECT_EQ(call.arguments[1].ToInt32(), 16394);
    kinds.push_back(call.arguments[2].ToInt32());
  }
  EXPECT_EQ(kinds, (std::vector<int>{2, 1}));
}

TEST_F(Rpt301Rights, AreNoWordsOfTheBatch) {
  const Request open = FetchInvoices();
  report_ = nullptr;
  RestrictCustomers();
  EXPECT_EQ(FetchInvoices(), open);
}

TEST_F(Rpt301Rights, GoWithTheCodeInUse) {
  FetchInvoices();
  EXPECT_EQ(sent_["bLongNumber"], Variant(true));
  report_ = nullptr;
  UseShortCode();
  FetchInvoices();
  EXPECT_EQ(sent_["bLongNumber"], Variant(false));
}

}  // namespace
}  // namespace salerpt::testing
