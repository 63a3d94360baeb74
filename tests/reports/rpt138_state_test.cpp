// The order execution summary as an object that lives, and each call that it makes failing once.
#include <gtest/gtest.h>

#include "runtime/error.h"
#include "runtime/report.h"
#include "tests/reports/rpt138_world.h"

namespace salerpt::testing {
namespace {

const RuntimeError kServerDown(-2147467259, "Server", "the server is not there");

// A dialog that is confirmed as it stands.
class ConfirmedDialog final : public FilterDialog {
 public:
  ConfirmedDialog(std::vector<std::string>& steps, DictionaryRef filter)
      : steps_(steps), filter_(std::move(filter)) {}
  [[nodiscard]] std::string_view Name() const override { return "frmFirter138"; }
  void SetRptID(std::int32_t family) override { steps_.push_back("family " + std::to_string(family)); }
  void Confirm() override { steps_.emplace_back("shown and confirmed"); }
  void ShowFinish(std::string_view plan) override { steps_.push_back("plan " + std::string(plan)); }
  [[nodiscard]] DictionaryRef Filter() const override { return filter_; }

 private:
  std::vector<std::string>& steps_;
  DictionaryRef filter_;
};

class Rpt138State : public Rpt138World {
 protected:
  void ExpectProperty() {
    const auto property = As<Dictionary>(GetMember(Report(), "Property"));
    ASSERT_EQ(property->Entries().size(), 3U);
    EXPECT_EQ(property->Get("Name").ToText(), "销售订单执行情况汇总表");
    EXPECT_EQ(property->Get("RptProperty").ToInt32(), 2);
    EXPECT_EQ(property->Get("DetailRptID").ToInt32(), 137);
  }
};

TEST_F(Rpt138State, TellsWhatItIs) {
  ExpectProperty();
  EXPECT_FALSE(Ok());
  EXPECT_EQ(ResultOf("Error"), Variant(""));
  LetMember(Report(), "ExtFirter", "138");
  ExpectProperty();
}

TEST_F(Rpt138State, NamesItsSettingsFile) {
  runtime_.ini_file.SetFileName("other.ini");
  Report();
  EXPECT_EQ(runtime_.ini_file.FileName(), "JXCQ7SaleRpt.INI");
}

TEST_F(Rpt138State, HasItsMembersInTheirOrder) {
  const auto report = std::dynamic_pointer_cast<salerpt::Report>(Report());
  ASSERT_NE(report, nullptr);
  std::vector<std::string> names;
  for (const auto& member : report->Members()) names.emplace_back(member.name);
  EXPECT_EQ(names, (std::vector<std::string>{"RptID", "RptID", "ExtFirter", "Filter", "Filter", "Title",
                                             "Property", "Result", "Header", "Rs", "GetDetailReport",
                                             "ShowFilter", "Refresh", "GetReportData", "GetRsBySQL"}));
}

TEST_F(Rpt138State, WritesItsLineInTheLogAndOpensItsDialog) {
  std::vector<std::string> steps;
  runtime_.RegisterDialog("frmFirter138", [&steps] {
    return std::make_unique<ConfirmedDialog>(steps, Conditions({{"OK", true}}));
  });
  Call(Report(), "ShowFilter", false);
  EXPECT_EQ(steps, (std::vector<std::string>{"family 138", "shown and confirmed"}));
  EXPECT_TRUE(Ok());
  ASSERT_EQ(ledger_->CalledMembers(), std::vector<std::string>{"WriteLog"});
  EXPECT_EQ(ledger_->Calls()[0].arguments[0].ToText(), "SysRptLog0010");
  EXPECT_EQ(ledger_->Calls()[0].arguments[1].ToInt32(), 3);
  EXPECT_EQ(ledger_->Calls()[0].arguments[2].ToText(), "销售订单执行情况汇总表查询");
}

TEST_F(Rpt138State, TakesThePlanThatIsChosenForEveryOpening) {
  std::vector<std::string> steps;
  runtime_.RegisterDialog("frmFirter138", [&steps] {
    return std::make_unique<ConfirmedDialog>(steps, Conditions({{"OK", true}}));
  });
  const FakeRef plans = RegisterFake(runtime_, "ORVMCaculateRpt.Profile");
  plans->Gives("FindChooseValue", "March");
  Call(Report(), "ShowFilter", true);
  EXPECT_EQ(steps, (std::vector<std::string>{"family 138", "plan March"}));
  ASSERT_EQ(plans->Calls().size(), 1U);
  EXPECT_EQ(plans->Calls()[0].arguments[1].ToText(), "138");
}

TEST_F(Rpt138State, TellsThatADialogGaveNoConditions) {
  std::vector<std::string> steps;
  runtime_.RegisterDialog("frmFirter138",
                          [&steps] { return std::make_unique<ConfirmedDialog>(steps, nullptr); });
  Call(Report(), "ShowFilter", false);
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "过滤条件有误，请重新过滤！");
}

TEST_F(Rpt138State, CallsTheMiddleTierOnceWithTheLoginAndTheRequest) {
  Fetch();
  ASSERT_EQ(sales_->CalledMembers(), std::vector<std::string>{"GetSaleAmountData"});
  ASSERT_EQ(sales_->Calls()[0].arguments.size(), 2U);
  EXPECT_EQ(sales_->Calls()[0].arguments[0].ToText(), kProps);
  EXPECT_NE(sales_->Calls()[0].arguments[1].ToObject(), GetMember(Report(), "Filter").ToObject());
  EXPECT_EQ(GetMember(Report(), "Rs").ToObject(), rows_);
}

TEST_F(Rpt138State, ShowsItsTwoTextsInTheProgressDialogAndTakesItAway) {
  Fetch();
  EXPECT_EQ(toolkit_->messages, (std::vector<std::string>{"正在连接服务器", "正在从服务器读取数据..."}));
  EXPECT_EQ(toolkit_->shown, 1);
  EXPECT_EQ(toolkit_->unloaded, 1);
}

TEST_F(Rpt138State, SendsTheSameAgainWhereAFetchIsRepeated) {
  for (const std::int32_t mode : {0, 1, 2, 3, 4, 5, 6, 7, 8}) {
    const Request first =
        FetchBy(mode, Customer(),
                {{"BLevel", std::int32_t{1}}, {"ELevel", std::int32_t{2}}, {"ECompanyNumber", "10"}});
    request_.clear();
    Call(Report(), "Refresh");
    EXPECT_EQ(request_, first) << "mode " << mode;
  }
}

TEST_F(Rpt138State, KeepsNothingOfAnEarlierFetch) {
  const Request plain = Fetch();
  FetchLevels(6, 1, 2, {{"ECompanyNumber", "10"}, {"CloseState", std::int32_t{1}}});
  FetchBy(7, Employee());
  EXPECT_EQ(Fetch(), plain);
}

TEST_F(Rpt138State, KeepsTheConditionsOfTheHostWhateverTheMiddleTierLeavesInTheRequest) {
  on_fetch_ = [](Arguments arguments) { arguments[1] = std::make_shared<Dictionary>(); };
  const DictionaryRef filter = Conditions();
  SetMember(Report(), "Filter", filter);
  Call(Report(), "GetReportData");
  EXPECT_TRUE(Ok()) << Error();
  EXPECT_EQ(GetMember(Report(), "Filter").ToObject(), filter);
}

TEST_F(Rpt138State, AsksForTheRightsOnCustomersAlone) {
  Fetch();
  EXPECT_FALSE(rights_->Calls().empty());
  for (const RecordedCall& call : rights_->Calls()) {
    EXPECT_EQ(call.arguments[0].ToText(), kProps);
    EXPECT_EQ(call.arguments[1].ToInt32(), 16394);
    EXPECT_EQ(call.arguments[2].ToInt32(), 1);
  }
}

TEST_F(Rpt138State, ReadsFreelyForTheHost) {
  const FakeRef lists = RegisterFake(runtime_, "ORVListServer.clsListServer");
  const RecordsetRef rows = OneValue("FValue", "1");
  lists->Gives("Users_GetDataFreely", rows);
  std::vector<Variant> arguments = {Variant("select 1"), Variant()};
  EXPECT_TRUE(Report()->Invoke("GetRsBySQL", InvokeKind::kMethod, arguments).ToBoolean());
  EXPECT_EQ(arguments[1].ToObject(), rows);
  ASSERT_EQ(lists->Calls().size(), 1U);
  EXPECT_EQ(lists->Calls()[0].arguments[0].ToText(), kProps);
  EXPECT_EQ(lists->Calls()[0].arguments[1].ToText(), "select 1");
  EXPECT_EQ(lists->Calls()[0].arguments[2].ToInt32(), -1);
}

class Rpt138Failure : public Rpt138World {
 protected:
  void ExpectFailed(const char* error, const char* source) {
    EXPECT_FALSE(Ok());
    EXPECT_EQ(Error(), error);
    EXPECT_EQ(ErrorSource(), source);
    EXPECT_FALSE(HasRows());
    EXPECT_GT(toolkit_->shown, 0);
    EXPECT_EQ(toolkit_->shown, toolkit_->unloaded);
  }
  void ExpectServerDown() { ExpectFailed("the server is not there", "Server"); }
};

TEST_F(Rpt138Failure, OfTheSystemProfileMeansTheLongCode) {
  profile_->Raises("GetProfile", kServerDown);
  Fetch({{"BItemNumber", "01"}});
  EXPECT_TRUE(Contains(request_.at("SELECT"), " And t10.FNumber>='01'"));
}

TEST_F(Rpt138Failure, OfTheDataRightIsToldAtCreationAndNeverLetsAFetchThrough) {
  rights_->Raises("GetDataRight", kServerDown);
  ASSERT_NE(Report(), nullptr);
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "the server is not there");
  Run();
  ExpectServerDown();
  EXPECT_TRUE(sales_->Calls().empty());
  RestrictCustomers();
  Fetch();
  EXPECT_EQ(CountOf(request_.at("SELECT"), " And  CharIndex('16394',t11.FRightUserID)>0 "), 3);
}

TEST_F(Rpt138Failure, OfTheDataRightAtExtFirterIsToldByResult) {
  Report();
  rights_->Raises("GetDataRight", kServerDown);
  LetMember(Report(), "ExtFirter", "138");
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "the server is not there");
}

TEST_F(Rpt138Failure, OfTheLoginEndsTheFetch) {
  Report();
  host_->Raises("PropsString", kServerDown);
  Run();
  ExpectServerDown();
}

TEST_F(Rpt138Failure, OfTheMiddleTierEndsTheFetchWithItsWords) {
  Fetch();
  ASSERT_TRUE(HasRows());
  sales_->Raises("GetSaleAmountData", kServerDown);
  Run();
  ExpectServerDown();
  AnswerFetch();
  Fetch();
  EXPECT_TRUE(HasRows());
}

TEST_F(Rpt138Failure, OfRefreshIsToldByResultToo) {
  Fetch();
  sales_->Raises("GetSaleAmountData", kServerDown);
  Call(Report(), "Refresh");
  ExpectServerDown();
}

TEST_F(Rpt138Failure, OfTheObjectMakerEndsTheFetch) {
  runtime_.Register("ORVMSaleRpt.Data", []() -> ObjectRef {
    throw RuntimeError(error_number::kObjectMaker, "Maker", "there is no such object");
  });
  Run();
  ExpectFailed("there is no such object", "Maker");
}

TEST_F(Rpt138Failure, AnsweredInTheRequestEndsTheFetchWithItsText) {
  on_fetch_ = [](Arguments arguments) {
    As<Dictionary>(arguments[1])->Set("Error", "the account set is closed");
    As<Dictionary>(arguments[1])->Set("ErrorSource", "GetSaleAmountData");
  };
  Run();
  ExpectFailed("the account set is closed", "GetSaleAmountData");
  on_fetch_ = nullptr;
  Fetch();
  EXPECT_TRUE(HasRows());
}

TEST_F(Rpt138Failure, AnsweredWithoutASourceHasAnEmptyOne) {
  on_fetch_ = [](Arguments arguments) { As<Dictionary>(arguments[1])->Set("Error", "closed"); };
  Run();
  ExpectFailed("closed", "");
}

TEST_F(Rpt138Failure, OfALevelThatIsNoNumberIsToldByResult) {
  Run({{"GroupBy", std::int32_t{1}},
       {"SumMode", std::int32_t{1}},
       {"BLevel", "1; Drop Table t_Item"},
       {"ELevel", std::int32_t{1}}});
  EXPECT_FALSE(Ok());
  EXPECT_NE(Error(), "");
  EXPECT_TRUE(sales_->Calls().empty());
  EXPECT_EQ(toolkit_->shown, toolkit_->unloaded);
}

}  // namespace
}  // namespace salerpt::testing
