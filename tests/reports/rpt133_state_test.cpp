// The customer sales summary as an object that lives, and each call that it makes failing once.
#include <gtest/gtest.h>

#include "runtime/error.h"
#include "runtime/report.h"
#include "tests/reports/rpt133_world.h"

namespace salerpt::testing {
namespace {

const RuntimeError kServerDown(-2147467259, "Server", "the server is not there");

// A dialog that is confirmed as it stands; the report asks nothing else of it.
class ConfirmedDialog final : public FilterDialog {
 public:
  ConfirmedDialog(std::vector<std::string>& steps, DictionaryRef filter)
      : steps_(steps), filter_(std::move(filter)) {}
  [[nodiscard]] std::string_view Name() const override { return "frmFirter126"; }
  void SetRptID(std::int32_t family) override { steps_.push_back("family " + std::to_string(family)); }
  void SetStatus(std::int32_t, bool) override { steps_.emplace_back("status"); }
  void Confirm() override { steps_.emplace_back("confirmed"); }
  void ShowFinish(std::string_view) override { steps_.emplace_back("plan"); }
  [[nodiscard]] DictionaryRef Filter() const override { return filter_; }

 private:
  std::vector<std::string>& steps_;
  DictionaryRef filter_;
};

using Rpt133State = Rpt133World;

class Rpt133Failure : public Rpt133World {
 protected:
  void ExpectServerDown() {
    EXPECT_FALSE(Ok());
    EXPECT_EQ(Error(), "the server is not there");
    EXPECT_EQ(ErrorSource(), "Server");
    EXPECT_FALSE(HasRows());
    EXPECT_GT(toolkit_->shown, 0);
    EXPECT_EQ(toolkit_->shown, toolkit_->unloaded);
  }
};

TEST_F(Rpt133State, TellsWhatItIs) {
  const auto property = As<Dictionary>(GetMember(Report(), "Property"));
  EXPECT_EQ(property->Entries().size(), 2U);
  EXPECT_EQ(property->Get("Name").ToText(), "客户单位销售情况汇总表");
  EXPECT_EQ(property->Get("RptProperty").ToInt32(), 3);
}

TEST_F(Rpt133State, LeavesTheSettingsFileAsItIs) {
  runtime_.ini_file.SetFileName("other.ini");
  Report();
  EXPECT_EQ(runtime_.ini_file.FileName(), "other.ini");
}

TEST_F(Rpt133State, HasItsMembersInTheirOrder) {
  const auto report = std::dynamic_pointer_cast<salerpt::Report>(Report());
  ASSERT_NE(report, nullptr);
  std::vector<std::string> names;
  for (const auto& member : report->Members()) names.emplace_back(member.name);
  EXPECT_EQ(names, (std::vector<std::string>{"RptID", "RptID", "ExtFirter", "Filter", "Filter", "Title",
                                             "Property", "Result", "Header", "Rs", "GetDetailReport",
                                             "ShowFilter", "Refresh", "GetReportData"}));
}

TEST_F(Rpt133State, OpensTheDialogOfTheIncomeStatisticsWithoutAPlanAndWithoutALog) {
  std::vector<std::string> steps;
  const DictionaryRef filter = Conditions({{"OK", true}});
  runtime_.RegisterDialog("frmFirter126", [&] { return std::make_unique<ConfirmedDialog>(steps, filter); });
  Call(Report(), "ShowFilter", true);
  EXPECT_EQ(steps, (std::vector<std::string>{"family 166", "confirmed"}));
  EXPECT_TRUE(Ok());
  EXPECT_EQ(GetMember(Report(), "Filter").ToObject(), filter);
  EXPECT_TRUE(ledger_->Calls().empty());
}

TEST_F(Rpt133State, HasNoDetailOfAnyRow) {
  EXPECT_EQ(Call(Report(), "GetDetailReport", std::int32_t{0}).ToObject(), nullptr);
  Fetch();
  EXPECT_EQ(Call(Report(), "GetDetailReport", std::int32_t{7}).ToObject(), nullptr);
}

TEST_F(Rpt133State, ShowsTheProgressDialogAndTakesItAway) {
  Fetch();
  ASSERT_FALSE(toolkit_->messages.empty());
  EXPECT_EQ(toolkit_->messages[0], "正在连接服务器");
  EXPECT_EQ(toolkit_->unloaded, 1);
}

TEST_F(Rpt133State, SendsTheSameAgainWhereAFetchIsRepeated) {
  for (const std::int32_t mode : {0, 1, 2, 3, 4}) {
    const Request first = FetchLevels(mode, 1, 2, {{"SumField", SumField("部门", 2, 0)}});
    request_.clear();
    Call(Report(), "Refresh");
    EXPECT_EQ(request_, first) << "mode " << mode;
  }
}

TEST_F(Rpt133State, KeepsNothingOfAnEarlierFetch) {
  const Request plain = Fetch();
  FetchLevels(4, 1, 2, {{"BDeptNumber", "31"}});
  FetchBy(SumField("业务员", 3, 0));
  EXPECT_EQ(Fetch(), plain);
}

TEST_F(Rpt133State, KeepsTheConditionsOfTheHostWhateverTheMiddleTierLeavesInTheRequest) {
  on_fetch_ = [](Arguments arguments) { arguments[3] = std::make_shared<Dictionary>(); };
  const DictionaryRef filter = Conditions();
  SetMember(Report(), "Filter", filter);
  Call(Report(), "GetReportData");
  EXPECT_TRUE(Ok()) << Error();
  EXPECT_EQ(GetMember(Report(), "Filter").ToObject(), filter);
}

TEST_F(Rpt133Failure, OfTheSystemProfileMeansTheLongCode) {
  profile_->Raises("GetProfile", kServerDown);
  Fetch({{"BItemNumber", "01"}});
  EXPECT_NE(request_.at("SELECT").find(" AND t1.FNumber>='01'"), std::string::npos);
}

TEST_F(Rpt133Failure, OfTheDataRightAtCreationIsToldByResultAndMendedByTheNextFetch) {
  rights_->Raises("GetDataRight", kServerDown);
  ASSERT_NE(Report(), nullptr);
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "the server is not there");
  RestrictCustomers();
  Fetch();
  EXPECT_NE(request_.at("SELECT").find(" And  CharIndex('16394',t2.FRightUserID)>0 "), std::string::npos);
}

TEST_F(Rpt133Failure, OfTheDataRightNeverLetsAFetchThroughWithoutIt) {
  rights_->Raises("GetDataRight", kServerDown);
  Run();
  ExpectServerDown();
  EXPECT_TRUE(sales_->Calls().empty());
}

TEST_F(Rpt133Failure, OfTheLoginEndsTheFetch) {
  Report();
  host_->Raises("PropsString", kServerDown);
  Run();
  ExpectServerDown();
}

TEST_F(Rpt133Failure, OfTheMiddleTierEndsTheFetchWithItsWords) {
  Fetch();
  ASSERT_TRUE(HasRows());
  sales_->Raises("GetPurchaseData", kServerDown);
  Run();
  ExpectServerDown();
  AnswerFetch();
  Fetch();
  EXPECT_TRUE(HasRows());
}

TEST_F(Rpt133Failure, OfRefreshIsToldByResultToo) {
  Fetch();
  sales_->Raises("GetPurchaseData", kServerDown);
  Call(Report(), "Refresh");
  ExpectServerDown();
}

TEST_F(Rpt133Failure, OfTheObjectMakerEndsTheFetch) {
  runtime_.Register("ORVMSaleRpt.Data", []() -> ObjectRef {
    throw RuntimeError(error_number::kObjectMaker, "Maker", "there is no such object");
  });
  Run();
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "there is no such object");
  EXPECT_EQ(ErrorSource(), "Maker");
  EXPECT_FALSE(HasRows());
  EXPECT_EQ(toolkit_->unloaded, 1);
}

}  // namespace
}  // namespace salerpt::testing
