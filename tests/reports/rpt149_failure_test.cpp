// The three credit reports where something fails: an account set without a credit formula, an error in the
// answer of the credit object, and each call that a fetch makes failing once.
#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/reports/rpt149_world.h"

namespace salerpt::testing {
namespace {

class CreditFailure : public CreditWorld, public ::testing::WithParamInterface<CreditClass> {
 protected:
  CreditFailure() : CreditWorld(GetParam()) {}
};
INSTANTIATE_TEST_SUITE_P(Of, CreditFailure,
                         ::testing::Values(kCreditByQuantity, kCreditByAmount, kCreditTerm),
                         [](const auto& param_info) { return std::string(param_info.param.name); });
// The account set has no credit formula.
class CreditFormula : public CreditFailure {};
INSTANTIATE_TEST_SUITE_P(Of, CreditFormula,
                         ::testing::Values(kCreditByQuantity, kCreditByAmount, kCreditTerm),
                         [](const auto& param_info) { return std::string(param_info.param.name); });

// --- No formula

TEST_P(CreditFormula, IsToldMissingWhereNoStatementComesBack) {
  statement_ = Variant();
  Run();
  ExpectNoFormula();
}

TEST_P(CreditFormula, IsToldMissingWhereTheStatementIsEmpty) {
  statement_ = "";
  Run();
  ExpectNoFormula();
}

TEST_P(CreditFormula, IsToldMissingWhereTheStatementIsBlanksOnly) {
  statement_ = "     ";
  Run();
  ExpectNoFormula();
}

TEST_P(CreditFormula, ThatIsMissingLeavesTheTextOfTheConnectionAlone) {
  statement_ = Variant();
  Run();
  EXPECT_EQ(toolkit_->messages, Lines{"正在连接服务器"});
}

TEST_P(CreditFormula, ThatIsMissingLeavesColumnsAndTitleStanding) {
  Fetch();
  const Lines columns = HeaderLines();
  const TitleList title = TitleLines();
  statement_ = Variant();
  Run();
  EXPECT_EQ(HeaderLines(), columns);
  EXPECT_EQ(TitleLines(), title);
}

TEST_P(CreditFormula, ThatIsMissingWritesNeitherCodeNorNumber) {
  statement_ = Variant();
  Run();
  EXPECT_EQ(SortedKeys(*Filter()), KeysWith({"UserID", "sDsN"}));
}

TEST_P(CreditFormula, ThatIsMissingDropsTheRowsOfAnEarlierFetch) {
  Fetch();
  ASSERT_TRUE(HasRows());
  statement_ = Variant();
  Call(Report(), "Refresh");
  ExpectFailedFetch("", "");
}

TEST_P(CreditFormula, ThatIsMissingDropsTheReasonOfAnEarlierFailure) {
  sales_->Raises("GetData", kServerDown);
  Run();
  ExpectServerDown();
  statement_ = Variant();
  Call(Report(), "Refresh");
  ExpectFailedFetch("", "");
}

TEST_P(CreditFormula, IsAskedForAgainByTheNextFetch) {
  statement_ = Variant();
  Run();
  Call(Report(), "GetReportData");
  EXPECT_EQ(credit_->Calls().size(), 1U) << "no good filter stands";
  statement_ = kStatement;
  Call(Report(), "Refresh");
  EXPECT_TRUE(Ok()) << Error();
  EXPECT_EQ(Rs(), rows_);
  statement_ = Variant();
  Run();
  statement_ = kStatement;
  ExpectFetchIsGoodAgain();
}

// --- An error in the answer

TEST_P(CreditFailure, InTheAnswerOfTheCreditObjectEndsTheFetchAfterTheRowsWereRead) {
  on_credit_ = [](Arguments arguments) {
    const auto answer = As<Dictionary>(arguments[1]);
    answer->Set("Error", "the formula names no bill");
    answer->Set("ErrorSource", "Formula");
  };
  Run();
  EXPECT_EQ(sales_->Calls().size(), 1U);
  ExpectFailedFetch("the formula names no bill", "Formula");
  on_credit_ = nullptr;
  ExpectFetchIsGoodAgain();
}

TEST_P(CreditFailure, InTheAnswerIsLookedForWhenTheRowsHaveCome) {
  on_fetch_ = [this](Arguments) { answered_in_->Set("Error", "too late"); };
  Run();
  ExpectFailedFetch("too late", "");
}

TEST_P(CreditFailure, InTheAnswerHasNoSourceWhereNoneIsTold) {
  on_credit_ = [](Arguments arguments) { As<Dictionary>(arguments[1])->Set("Error", "no source"); };
  Run();
  ExpectFailedFetch("no source", "");
}

TEST_P(CreditFailure, InTheAnswerIsNoneWhereItIsEmpty) {
  on_credit_ = [](Arguments arguments) { As<Dictionary>(arguments[1])->Set("Error", ""); };
  Fetch();
  EXPECT_EQ(Rs(), rows_);
}

TEST_P(CreditFailure, IsNotReadFromTheConditions) {
  on_credit_ = [](Arguments arguments) { As<Dictionary>(arguments[0])->Set("Error", "one was skipped"); };
  Fetch();
  EXPECT_EQ(Rs(), rows_);
}

// --- Each call

TEST_P(CreditFailure, OfTheLoginEndsTheFetch) {
  Report();
  host_->Raises("PropsString", kServerDown);
  Run();
  ExpectServerDown();
  EXPECT_TRUE(credit_->Calls().empty());
  host_ = LogIn(runtime_, kProps);
  ExpectFetchIsGoodAgain();
}

TEST_P(CreditFailure, OfALoginWithoutAUserEndsTheFetch) {
  LogIn(runtime_, "UserName=abc;");
  Run();
  ExpectFailedFetch();
  EXPECT_TRUE(credit_->Calls().empty());
}

TEST_P(CreditFailure, OfAUserNumberThatIsTooLargeEndsTheFetch) {
  LogIn(runtime_, "UserName=abc;UserID=70000;");
  Run();
  ExpectFailedFetch();
  EXPECT_TRUE(credit_->Calls().empty());
}

TEST_P(CreditFailure, OfTheMakerOfTheCreditObjectEndsTheFetch) {
  RunWithoutMaker("ORVMSaleCredit.clsGetData");
  EXPECT_EQ(toolkit_->messages, Lines{"正在连接服务器"});
  EXPECT_TRUE(sales_->Calls().empty());
  EXPECT_TRUE(toolkit_->boxes.empty());
}

TEST_P(CreditFailure, OfTheCreditObjectEndsTheFetchWithItsWordsAndDropsTheRows) {
  Fetch();
  ASSERT_TRUE(HasRows());
  credit_->Raises(credit_class_.operation, kServerDown);
  Run();
  ExpectServerDown();
  EXPECT_EQ(sales_->Calls().size(), 1U);
  EXPECT_TRUE(toolkit_->boxes.empty());
  AnswerCredit();
  ExpectFetchIsGoodAgain();
}

TEST_P(CreditFailure, OfTheSystemProfileMeansTheLongCode) {
  profile_->Raises("GetProfile", kServerDown);
  Fetch();
  EXPECT_EQ(filter_at_rows_->Get("bLongNumber"), Variant(true));
}

TEST_P(CreditFailure, OfTheMakerOfTheDataObjectEndsTheFetch) {
  RunWithoutMaker("ORVMSaleRpt.Data");
  EXPECT_EQ(toolkit_->messages, (Lines{"正在连接服务器", "正在从服务器读取数据..."}));
}

TEST_P(CreditFailure, OfTheStatementEndsTheFetchWithTheServersWordsAndDropsTheRows) {
  Fetch();
  ASSERT_TRUE(HasRows());
  sales_->Raises("GetData", kServerDown);
  Run();
  ExpectServerDown();
  AnswerRows();
  ExpectFetchIsGoodAgain();
}

TEST_P(CreditFailure, OfRefreshIsToldByResultToo) {
  Fetch();
  sales_->Raises("GetData", kServerDown);
  Call(Report(), "Refresh");
  ExpectServerDown();
}

TEST_P(CreditFailure, OfAnotherKindIsToldByResultToo) {
  on_credit_ = [](Arguments) { throw std::runtime_error("the pipe is closed"); };
  Run();
  ExpectFailedFetch("the pipe is closed", "");
}

TEST_P(CreditFailure, ComesWhereTheServerGivesSomethingElseThanRows) {
  sales_->Gives("GetData", std::make_shared<Dictionary>());
  Run();
  ExpectFailedFetch();
}

TEST_P(CreditFailure, ComesWhereTheCreditObjectTakesTheConditionsAway) {
  on_credit_ = [](Arguments arguments) { arguments[0] = nullptr; };
  Run();
  EXPECT_FALSE(Ok());
  ExpectNothingLeft();
}

TEST_P(CreditFailure, ComesWhereTheCreditObjectTakesItsAnswerAway) {
  on_credit_ = [](Arguments arguments) { arguments[1] = nullptr; };
  Run();
  EXPECT_FALSE(Ok());
  ExpectNothingLeft();
  EXPECT_TRUE(sales_->Calls().empty());
}

}  // namespace
}  // namespace salerpt::testing
