// Sales income detail: the progress dialog, and how a fetch ends.
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "tests/reports/rpt147_world.h"

namespace salerpt {
namespace {

using testing::Lines;
using testing::RegisterFake;

class Rpt147FetchTest : public testing::Rpt147World {};

// --- Progress

TEST_F(Rpt147FetchTest, TellsOfEachPeriodWhatIsDone) {
  Give(2002, 12, OneSale());
  Fetch(Periods(2002, 12, 2003, 1));
  EXPECT_EQ(toolkit_->messages, (Lines{"正在连接中间层...", "正在从服务器读取2002年第12期数据...",
                                       "正在汇总2002年第12期数据...", "正在从服务器读取2003年第1期数据..."}));
}

TEST_F(Rpt147FetchTest, ShowsTheBarWhileRowsArePouredOnly) {
  const RecordsetRef rows = Sales();
  for (int i = 0; i < 3; ++i) AddSale(*rows);
  Give(2003, 7, rows);
  on_call_ = [this](Arguments) { toolkit_->steps.emplace_back("server"); };
  Fetch(Periods(2003, 7, 2003, 8));
  EXPECT_EQ(toolkit_->steps,
            (Lines{"正在连接中间层...", "hidden", "正在从服务器读取2003年第7期数据...", "server",
                   "正在汇总2003年第7期数据...", "0 of 0..100", "0 of 0..3", "1 of 0..3", "2 of 0..3",
                   "3 of 0..3", "hidden", "正在从服务器读取2003年第8期数据...", "server"}));
  EXPECT_TRUE(toolkit_->unloaded);
}

TEST_F(Rpt147FetchTest, StartsTheBarAnewForAShorterPeriod) {
  const RecordsetRef rows = Sales();
  for (int i = 0; i < 3; ++i) AddSale(*rows);
  Give(2003, 7, rows);
  Give(2003, 8, OneSale());
  Fetch(Periods(2003, 7, 2003, 8));
  EXPECT_EQ(toolkit_->steps.back(), "1 of 0..1");
}

// --- Success

TEST_F(Rpt147FetchTest, ReplacesRowsAndColumnsAtARefreshAndKeepsTheTitle) {
  Give(2003, 7, OneSale());
  Fetch(Periods(2003, 7, 2003, 7));
  const ObjectRef rows = Rs();
  const ObjectRef header = GetMember(Report(), "Header").ToObject();
  const ObjectRef title = GetMember(Report(), "Title").ToObject();
  Give(2003, 7, OneSale());
  Call(Report(), "Refresh");
  EXPECT_TRUE(Ok());
  EXPECT_NE(Rs(), rows);
  EXPECT_EQ(Rs()->RecordCount(), 2);
  EXPECT_NE(GetMember(Report(), "Header").ToObject(), header);
  EXPECT_EQ(GetMember(Report(), "Title").ToObject(), title);
}

TEST_F(Rpt147FetchTest, TakesTheConditionsOfItsDialog) {
  profile_->On("GetProfile", [](Arguments arguments) -> Variant {
    const std::string key = arguments.back().ToText();
    if (key == "UseShortNumber") return "0";
    if (key == "PeriodCount") return 12;
    if (key == "CurrentYear") return "2004";
    if (key == "CurrentPeriod") return "3";
    return Null();
  });
  Call(Report(), "ShowFilter");
  ASSERT_TRUE(Ok()) << Error();
  Call(Report(), "GetReportData");
  EXPECT_TRUE(Ok()) << Error();
  EXPECT_EQ(asked_, (Lines{"2004.3"}));
}

// --- No calendar

TEST_F(Rpt147FetchTest, LeavesRowsAndResultAloneWithoutACalendar) {
  Give(2003, 7, OneSale());
  Fetch(Periods(2003, 7, 2003, 7));
  const ObjectRef rows = Rs();
  AnswerProfile("0", 0);
  toolkit_->unloaded = false;
  Call(Report(), "Refresh");
  EXPECT_EQ(Rs(), rows);
  EXPECT_TRUE(Ok());
  EXPECT_EQ(Error(), "");
  EXPECT_TRUE(toolkit_->unloaded);
  EXPECT_EQ(asked_.size(), 1u);
}

TEST_F(Rpt147FetchTest, LeavesAFailureStandingWithoutACalendar) {
  data_->Raises("GetSaleData", RuntimeError(5, "Data", "查询超时"));
  Run(Periods(2003, 7, 2003, 7));
  AnswerProfile("0", 0);
  Call(Report(), "Refresh");
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "查询超时");
  EXPECT_TRUE(toolkit_->unloaded);
}

TEST_F(Rpt147FetchTest, TakesACalendarThatCannotBeReadForNone) {
  profile_->Raises("GetProfile", RuntimeError(5, "SystemProfile", "没有连接"));
  Run(Periods(2003, 7, 2003, 7));
  EXPECT_TRUE(Ok()) << "as the filter left it";
  EXPECT_EQ(Rs(), nullptr);
  EXPECT_TRUE(asked_.empty());
  EXPECT_TRUE(toolkit_->unloaded);
}

TEST_F(Rpt147FetchTest, AsksForAFirstPeriodBeyondTheCalendarAllTheSame) {
  Run(Periods(2003, 13, 2003, 13));
  EXPECT_EQ(asked_, (Lines{"2003.13"}));
  asked_.clear();
  Run(Periods(2003, 13, 2003, 14));
  EXPECT_EQ(asked_, (Lines{"2003.13", "2003.14"}));
}

TEST_F(Rpt147FetchTest, NamesTheConditionThatIsNoPeriod) {
  const DictionaryRef filter = Periods(2003, 7, 2003, 7);
  filter->Set("EPeriod", 40000);
  Run(filter);
  EXPECT_EQ(Error(), "Filter(\"EPeriod\") is 40000, expected a 16-bit number");
  EXPECT_TRUE(asked_.empty());
}

// --- Failures

TEST_F(Rpt147FetchTest, DropsTheEarlierPeriodsWithTheOneThatFails) {
  for (int period = 1; period <= 5; ++period) Give(2003, period, OneSale());
  on_call_ = [](Arguments arguments) {
    if (arguments[2].ToInt32() == 3) throw RuntimeError(-2147217871, "ORVMCaculateRpt.Data", "查询超时");
  };
  Run(Periods(2003, 1, 2003, 5));
  ExpectFailed();
  EXPECT_EQ(asked_, (Lines{"2003.1", "2003.2", "2003.3"}));
  EXPECT_EQ(Error(), "查询超时");
  EXPECT_EQ(ResultOf("ErrorSource"), Variant("ORVMCaculateRpt.Data"));
}

TEST_F(Rpt147FetchTest, PassesOnTheErrorOfTheRights) {
  rights_->Raises("GetDataRight", RuntimeError(-2147217843, "ORVEBSGLItem.ItemInfo", "登录失败。"));
  Run(Periods(2003, 7, 2003, 7));
  ExpectFailed();
  EXPECT_EQ(Error(), "登录失败。");
  EXPECT_EQ(ResultOf("ErrorSource"), Variant("ORVEBSGLItem.ItemInfo"));
  EXPECT_TRUE(asked_.empty());
}

TEST_F(Rpt147FetchTest, NamesTheDataObjectThatCannotBeMade) {
  runtime_.Register("ORVMCaculateRpt.Data", []() -> ObjectRef {
    throw RuntimeError(error_number::kObjectMaker, "", "ORVMCaculateRpt.Data: 没有注册");
  });
  Run(Periods(2003, 7, 2003, 7));
  ExpectFailed();
  EXPECT_EQ(Error(), "ORVMCaculateRpt.Data: 没有注册");
}

TEST_F(Rpt147FetchTest, FailsWhereTheMiddleTierGivesNoRows) {
  data_->Gives("GetSaleData", nullptr);
  Run(Periods(2003, 7, 2003, 7));
  ExpectFailed();
}

TEST_F(Rpt147FetchTest, FailsWhereTheMiddleTierGivesSomethingElse) {
  data_->Gives("GetSaleData", std::make_shared<Dictionary>());
  Run(Periods(2003, 7, 2003, 7));
  ExpectFailed();
}

TEST_F(Rpt147FetchTest, FailsWhereTheMiddleTierTakesTheFilterAway) {
  on_call_ = [](Arguments arguments) { arguments[3] = nullptr; };
  Run(Periods(2003, 7, 2003, 8));
  ExpectFailed();
  EXPECT_EQ(asked_.size(), 1u);
}

TEST_F(Rpt147FetchTest, FailsWhereAFaultOfAnotherKindStrikes) {
  on_call_ = [](Arguments) { throw std::runtime_error("管道已关闭"); };
  Run(Periods(2003, 7, 2003, 7));
  ExpectFailed();
  EXPECT_EQ(Error(), "管道已关闭");
}

TEST_F(Rpt147FetchTest, FailsOnAYearThatIsNoNumberOrTooLarge) {
  for (const Variant& year : {Variant("abc"), Variant(40000)}) {
    const DictionaryRef filter = Periods(2003, 7, 2003, 7);
    filter->Set("BYear", year);
    Run(filter);
    ExpectFailed();
    EXPECT_TRUE(asked_.empty());
  }
}

TEST_F(Rpt147FetchTest, FailsWhenRefreshedWithoutAFilter) {
  EXPECT_NO_THROW(Call(Report(), "Refresh"));
  ExpectFailed();
}

TEST_F(Rpt147FetchTest, EndsInTheResultWhenTheHostFetchesOutsideOfTheDialog) {
  SetMember(Report(), "Filter", Periods(2003, 7, 2003, 7));
  Variant rows;
  EXPECT_NO_THROW(rows = Call(Report(), "GetRptList", std::int16_t{2003}, std::int16_t{7}, std::int16_t{2003},
                              std::int16_t{7}));
  EXPECT_EQ(rows.ToObject(), nullptr);
  EXPECT_FALSE(Ok());
}

TEST_F(Rpt147FetchTest, SucceedsAgainAfterAFailure) {
  Give(2003, 7, OneSale());
  on_call_ = [](Arguments) { throw RuntimeError(5, "Data", "查询超时"); };
  Run(Periods(2003, 7, 2003, 7));
  on_call_ = nullptr;
  Call(Report(), "Refresh");
  EXPECT_TRUE(Ok());
  EXPECT_EQ(Error(), "");
  EXPECT_EQ(Rs()->RecordCount(), 2);
}

// A null that must not pass unseen.
class Rpt147NullTest : public testing::Rpt147World, public ::testing::WithParamInterface<const char*> {};

TEST_P(Rpt147NullTest, FailsTheFetch) {
  Give(2003, 6, OneSale());
  Give(2003, 7, OneSale({{GetParam(), Null()}}));
  Run(Periods(2003, 6, 2003, 7));
  ExpectFailed();
}

INSTANTIATE_TEST_SUITE_P(DirectFields, Rpt147NullTest,
                         ::testing::Values("FShortNumber", "FName", "FUnitName", "FQtyDecimal",
                                           "FPriceDecimal", "FQty", "FPrice", "FAmount", "FDate"),
                         [](const auto& param_info) { return std::string(param_info.param); });

// A field that the middle tier forgets.
class Rpt147MissingFieldTest : public testing::Rpt147World,
                               public ::testing::WithParamInterface<const char*> {};

TEST_P(Rpt147MissingFieldTest, FailsTheFetchByName) {
  const RecordsetRef rows = Sales({}, GetParam());
  AddSale(*rows);
  Give(2003, 7, rows);
  Run(Periods(2003, 7, 2003, 7));
  ExpectFailed();
  EXPECT_NE(Error().find(GetParam()), std::string::npos) << Error();
}

INSTANTIATE_TEST_SUITE_P(AllFields, Rpt147MissingFieldTest,
                         ::testing::Values("FQty", "FAmount", "FInterID", "FEntryID", "FDate", "FVoucherNo",
                                           "FNote", "FBillNo", "FTranType", "FItemID", "FNumber",
                                           "FShortNumber", "FName", "FModel", "FUnitName", "FQtyDecimal",
                                           "FPriceDecimal", "FPrice"),
                         [](const auto& param_info) { return std::string(param_info.param); });

}  // namespace
}  // namespace salerpt
