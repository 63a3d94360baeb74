// The order statistics as an object that lives, and each call that they make failing once.
#include <gtest/gtest.h>

#include "runtime/error.h"
#include "runtime/report.h"
#include "tests/reports/rpt136_world.h"

namespace salerpt::testing {
namespace {

const RuntimeError kServerDown(-2147467259, "Server", "the server is not there");

// A dialog that is confirmed as it stands; writes down what the report asks of it.
class ConfirmedDialog final : public FilterDialog {
 public:
  ConfirmedDialog(std::vector<std::string>& steps, DictionaryRef filter)
      : steps_(steps), filter_(std::move(filter)) {}
  [[nodiscard]] std::string_view Name() const override { return "frmFirter136"; }
  void SetRptID(std::int32_t family) override { steps_.push_back("family " + std::to_string(family)); }
  void SetStatus(std::int32_t value, bool visible) override {
    steps_.push_back("status " + std::to_string(value) + (visible ? " shown" : " hidden"));
  }
  void Confirm() override { steps_.emplace_back("confirmed"); }
  void ShowFinish(std::string_view plan) override { steps_.push_back("plan " + std::string(plan)); }
  [[nodiscard]] DictionaryRef Filter() const override { return filter_; }

 private:
  std::vector<std::string>& steps_;
  DictionaryRef filter_;
};

class Rpt136State : public Rpt136World {
 protected:
  void RegisterDialog(const DictionaryRef& filter) {
    runtime_.RegisterDialog("frmFirter136",
                            [this, filter] { return std::make_unique<ConfirmedDialog>(steps_, filter); });
  }
  std::vector<std::string> steps_;
};

class Rpt136Failure : public Rpt136World {
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

TEST_F(Rpt136State, TellsWhatItIs) {
  const auto property = As<Dictionary>(GetMember(Report(), "Property"));
  EXPECT_EQ(property->Entries().size(), 3U);
  EXPECT_EQ(property->Get("Name").ToText(), "销售订单统计表");
  EXPECT_EQ(property->Get("RptProperty").ToInt32(), 3);
  EXPECT_EQ(property->Get("DetailRptID").ToInt32(), 129);
}

TEST_F(Rpt136State, NamesItsSettingsFile) {
  runtime_.ini_file.SetFileName("other.ini");
  Report();
  EXPECT_EQ(runtime_.ini_file.FileName(), "JXCQ7SaleRpt.INI");
}

TEST_F(Rpt136State, HasItsMembersInTheirOrder) {
  const auto report = std::dynamic_pointer_cast<salerpt::Report>(Report());
  ASSERT_NE(report, nullptr);
  std::vector<std::string> names;
  for (const auto& member : report->Members()) names.emplace_back(member.name);
  EXPECT_EQ(names, (std::vector<std::string>{"RptID", "RptID", "ExtFirter", "Filter", "Filter", "Title",
                                             "Property", "Result", "Header", "Rs", "GetDetailReport",
                                             "ShowFilter", "Refresh", "GetReportData", "GetRsBySQL"}));
}

TEST_F(Rpt136State, WritesItsLineInTheLogAndShowsItsDialog) {
  const DictionaryRef filter = Conditions({{"OK", true}});
  RegisterDialog(filter);
  Call(Report(), "ShowFilter", false);
  EXPECT_EQ(steps_, (std::vector<std::string>{"family 166", "status 0 hidden", "confirmed"}));
  EXPECT_TRUE(Ok());
  EXPECT_EQ(GetMember(Report(), "Filter").ToObject(), filter);
  ASSERT_FALSE(ledger_->Calls().empty());
  EXPECT_EQ(ledger_->Calls()[0].member, "WriteLog");
  EXPECT_EQ(ledger_->Calls()[0].arguments[0].ToText(), "SysRptLog0009");
  EXPECT_EQ(ledger_->Calls()[0].arguments[1].ToInt32(), 3);
  EXPECT_EQ(ledger_->Calls()[0].arguments[2].ToText(), "销售订单统计表查询");
}

TEST_F(Rpt136State, ConfirmsTheChosenPlanUnseen) {
  RegisterDialog(Conditions({{"OK", true}}));
  const FakeRef plans = RegisterFake(runtime_, "ORVMCaculateRpt.Profile");
  plans->Gives("FindChooseValue", "三月");
  Call(Report(), "ShowFilter", true);
  EXPECT_EQ(steps_, (std::vector<std::string>{"family 166", "status 0 hidden", "plan 三月"}));
  ASSERT_EQ(plans->Calls().size(), 1U);
  EXPECT_EQ(plans->Calls()[0].arguments[0].ToText(), kProps);
  EXPECT_EQ(plans->Calls()[0].arguments[1].ToText(), "166");
}

TEST_F(Rpt136State, TellsADialogThatGivesNoConditions) {
  RegisterDialog(nullptr);
  Call(Report(), "ShowFilter", false);
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "过滤条件有误，请重新过滤！");
}

TEST_F(Rpt136State, DoesNothingWithoutAFilter) {
  SetMember(Report(), "Filter", nullptr);
  Call(Report(), "GetReportData");
  EXPECT_TRUE(sales_->Calls().empty());
  EXPECT_EQ(toolkit_->shown, 0);
  EXPECT_EQ(Error(), "请选择过滤条件！");
}

TEST_F(Rpt136State, ShowsItsTwoTextsInTheProgressDialogAndTakesItAway) {
  std::vector<std::string> messages;
  on_fetch_ = [&](Arguments) { messages = toolkit_->messages; };
  Fetch();
  EXPECT_EQ(messages, (std::vector<std::string>{"正在连接服务器", "正在从服务器读取数据..."}));
  EXPECT_EQ(toolkit_->shown, 1);
  EXPECT_EQ(toolkit_->unloaded, 1);
}

TEST_F(Rpt136State, ReadsTheScaleAndTheRightsOnceAtSetUp) {
  Report();
  Fetch();
  ASSERT_EQ(currency_->Calls().size(), 1U);
  EXPECT_EQ(currency_->Calls()[0].arguments[1].ToText(),
            "select  FScale from t_currency where FCurrencyID=1");
  ASSERT_EQ(rights_->CalledMembers(), std::vector<std::string>{"GetDataRight"});
  EXPECT_EQ(rights_->Calls()[0].arguments[1].ToInt32(), 16394);
  EXPECT_EQ(rights_->Calls()[0].arguments[2].ToInt32(), 1);
}

TEST_F(Rpt136State, ReadsTheScaleAndTheRightsAnewAtExtFirter) {
  Report();
  UseScale("4");
  RestrictCustomers();
  LetMember(Report(), "ExtFirter", "166");
  Fetch();
  EXPECT_TRUE(Contains(request_.at("SELECT"), "FAmount decimal(18, 4) null"));
  EXPECT_TRUE(Contains(request_.at("SELECT"), " And  CharIndex('16394',t2.FRightUserID)>0 "));
}

TEST_F(Rpt136State, SendsTheSameAgainWhereAFetchIsRepeated) {
  for (const std::int32_t mode : {1, 2, 3, 4, 5}) {
    for (const std::int32_t by_currency : {0, 1}) {
      const Request first = FetchLevels(mode, 1, 2, {{"ChkbyCurrency", by_currency}, {"OrderBy", "FQty"}});
      request_.clear();
      Call(Report(), "Refresh");
      EXPECT_EQ(request_, first) << "mode " << mode;
    }
  }
}

TEST_F(Rpt136State, KeepsNothingOfAnEarlierFetch) {
  const Request plain = Fetch();
  FetchLevels(4, 1, 2, {{"ChkbyCurrency", kYes}, {"OrderBy", "FQty"}, {"BItemNumber", "01"}});
  FetchBy(SumField("区域", 1, "FRegionID", "t_SubMessage"), {{"OrderBy", "FQty"}});
  EXPECT_EQ(Fetch(), plain);
}

TEST_F(Rpt136State, KeepsTheConditionsOfTheHostWhateverTheMiddleTierLeavesInTheRequest) {
  on_fetch_ = [](Arguments arguments) {
    As<Dictionary>(arguments[1])->Set("BItemNumber", "changed");
    arguments[1] = std::make_shared<Dictionary>();
  };
  const DictionaryRef filter = Conditions({{"BItemNumber", "01"}});
  SetMember(Report(), "Filter", filter);
  Call(Report(), "GetReportData");
  EXPECT_TRUE(Ok()) << Error();
  EXPECT_EQ(GetMember(Report(), "Filter").ToObject(), filter);
  EXPECT_EQ(filter->Get("BItemNumber"), Variant("01"));
}

TEST_F(Rpt136State, AddsNothingToTheConditionsOfTheHost) {
  const std::size_t keys = Conditions()->Entries().size();
  Fetch();
  EXPECT_EQ(As<Dictionary>(GetMember(Report(), "Filter"))->Entries().size(), keys);
}

TEST_F(Rpt136State, RunsATextForTheHost) {
  const FakeRef server = RegisterFake(runtime_, "ORVListServer.clsListServer");
  server->Gives("Users_GetDataFreely", rows_);
  Variant rows;
  EXPECT_TRUE(Call(Report(), "GetRsBySQL", "select 1", rows).ToBoolean());
  ASSERT_EQ(server->Calls().size(), 1U);
  EXPECT_EQ(server->Calls()[0].arguments[0].ToText(), kProps);
  EXPECT_EQ(server->Calls()[0].arguments[1].ToText(), "select 1");
  EXPECT_EQ(server->Calls()[0].arguments[2].ToInt32(), -1);
}

TEST_F(Rpt136Failure, OfATextForTheHostIsShownInABox) {
  RegisterFake(runtime_, "ORVListServer.clsListServer")->Raises("Users_GetDataFreely", kServerDown);
  Variant rows;
  EXPECT_FALSE(Call(Report(), "GetRsBySQL", "select 1", rows).ToBoolean());
  ASSERT_EQ(toolkit_->boxes.size(), 1U);
  EXPECT_TRUE(toolkit_->boxes[0].text.starts_with("数据访问错误："));
  EXPECT_TRUE(toolkit_->boxes[0].text.ends_with("the server is not there"));
  EXPECT_TRUE(toolkit_->boxes[0].title.starts_with("青岚提示"));
}

TEST_F(Rpt136Failure, OfTheRequestIsToldByTheErrorThatComesBackInIt) {
  Fetch();
  on_fetch_ = [](Arguments arguments) {
    As<Dictionary>(arguments[1])->Set("Error", "the batch was refused");
  };
  Run();
  ExpectFailed("the batch was refused", "");
}

TEST_F(Rpt136Failure, OfTheRequestIsToldByAnotherDictionaryThatComesBack) {
  on_fetch_ = [](Arguments arguments) {
    arguments[1] = std::make_shared<Dictionary>(
        Entries{{"Error", "the batch was refused"}, {"ErrorSource", "GetSaleAmountData"}});
  };
  Run();
  ExpectFailed("the batch was refused", "GetSaleAmountData");
}

TEST_F(Rpt136Failure, IsNoneWhereTheErrorThatComesBackIsEmpty) {
  on_fetch_ = [](Arguments arguments) { As<Dictionary>(arguments[1])->Set("Error", ""); };
  Fetch();
  EXPECT_TRUE(HasRows());
}

TEST_F(Rpt136Failure, OfTheSystemProfileMeansTheLongCode) {
  profile_->Raises("GetProfile", kServerDown);
  Fetch({{"BItemNumber", "01"}});
  EXPECT_TRUE(Contains(request_.at("SELECT"), " AND t1.FNumber>='01'"));
}

TEST_F(Rpt136Failure, OfTheScaleIsToldAtCreationAndMendedByTheNextFetch) {
  currency_->Raises("GetData", kServerDown);
  ASSERT_NE(Report(), nullptr);
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "the server is not there");
  Run();
  ExpectServerDown();
  EXPECT_TRUE(sales_->Calls().empty());
  UseScale("4");
  Fetch();
  EXPECT_TRUE(Contains(request_.at("SELECT"), "FAmount decimal(18, 4) null"));
}

TEST_F(Rpt136Failure, OfTheDataRightIsToldAtCreationAndMendedByTheNextFetch) {
  rights_->Raises("GetDataRight", kServerDown);
  ASSERT_NE(Report(), nullptr);
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "the server is not there");
  Run();
  ExpectServerDown();
  EXPECT_TRUE(sales_->Calls().empty()) << "no fetch goes through without the right";
  RestrictCustomers();
  Fetch();
  EXPECT_TRUE(Contains(request_.at("SELECT"), " And  CharIndex('16394',t2.FRightUserID)>0 "));
}

TEST_F(Rpt136Failure, OfTheDataRightAtExtFirterIsToldByResult) {
  Report();
  rights_->Raises("GetDataRight", kServerDown);
  LetMember(Report(), "ExtFirter", "166");
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "the server is not there");
  RestrictCustomers();
  Fetch();
  EXPECT_TRUE(Contains(request_.at("SELECT"), " And  CharIndex('16394',t2.FRightUserID)>0 "));
}

TEST_F(Rpt136Failure, OfTheLoginEndsTheFetch) {
  Report();
  host_->Raises("PropsString", kServerDown);
  Run();
  ExpectServerDown();
}

TEST_F(Rpt136Failure, OfTheFieldRightEndsTheFetch) {
  ledger_->Raises("AccessCheck", kServerDown);
  Run();
  ExpectServerDown();
  EXPECT_TRUE(sales_->Calls().empty());
}

TEST_F(Rpt136Failure, OfTheMiddleTierEndsTheFetchWithItsWordsAndDropsTheRows) {
  Fetch();
  ASSERT_TRUE(HasRows());
  sales_->Raises("GetSaleAmountData", kServerDown);
  Run();
  ExpectServerDown();
  AnswerFetch();
  Fetch();
  EXPECT_TRUE(HasRows());
}

TEST_F(Rpt136Failure, OfRefreshIsToldByResultToo) {
  Fetch();
  sales_->Raises("GetSaleAmountData", kServerDown);
  Call(Report(), "Refresh");
  ExpectServerDown();
}

TEST_F(Rpt136Failure, OfTheObjectMakerEndsTheFetch) {
  for (const char* prog_id : {"ORVMSaleRpt.Data", "ORVEBCGLView.GLData"}) {
    Report();
    runtime_.Register(prog_id, []() -> ObjectRef {
      throw RuntimeError(error_number::kObjectMaker, "Maker", "there is no such object");
    });
    runtime_.gl_data = nullptr;
    Run();
    ExpectFailed("there is no such object", "Maker");
  }
}

TEST_F(Rpt136Failure, OfAPropertyThatIsNoDictionaryIsToldByResult) {
  Run({{"GroupBy", kYes}, {"SumMode", std::int32_t{3}}, {"SumField", "区域"}});
  EXPECT_FALSE(Ok());
  EXPECT_NE(Error(), "");
  EXPECT_TRUE(sales_->Calls().empty());
}

}  // namespace
}  // namespace salerpt::testing
