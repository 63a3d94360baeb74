// The fee invoice summary as an object that lives, and each call that it makes failing once.
#include <gtest/gtest.h>

#include "runtime/error.h"
#include "runtime/report.h"
#include "tests/reports/rpt301_world.h"

namespace salerpt::testing {
namespace {

const RuntimeError kServerDown(-2147467259, "Server", "the server is not there");

// A dialog that is confirmed as it stands; the report asks nothing else of it.
class ConfirmedDialog final : public FilterDialog {
 public:
  ConfirmedDialog(std::vector<std::string>& steps, DictionaryRef filter)
      : steps_(steps), filter_(std::move(filter)) {}
  [[nodiscard]] std::string_view Name() const override { return "frmFirter301"; }
  void SetRptID(std::int32_t family) override { steps_.push_back("family " + std::to_string(family)); }
  void SetStatus(std::int32_t, bool) override { steps_.emplace_back("status"); }
  void Confirm() override { steps_.emplace_back("confirmed"); }
  void ShowFinish(std::string_view) override { steps_.emplace_back("plan"); }
  [[nodiscard]] DictionaryRef Filter() const override { return filter_; }

 private:
  std::vector<std::string>& steps_;
  DictionaryRef filter_;
};

using Rpt301State = Rpt301World;

class Rpt301Failure : public Rpt301World {
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

TEST_F(Rpt301State, TellsWhatItIs) {
  const auto property = As<Dictionary>(GetMember(Report(), "Property"));
  EXPECT_EQ(property->Entries().size(), 3U);
  EXPECT_EQ(property->Get("Name").ToText(), "销售费用发票汇总表");
  EXPECT_EQ(property->Get("RptProperty").ToInt32(), 2);
  EXPECT_EQ(property->Get("DetailRptID").ToInt32(), 302);
}

TEST_F(Rpt301State, LeavesTheSettingsFileAsItIs) {
  runtime_.ini_file.SetFileName("other.ini");
  Report();
  EXPECT_EQ(runtime_.ini_file.FileName(), "other.ini");
}

TEST_F(Rpt301State, HasItsMembersInTheirOrder) {
  const auto report = std::dynamic_pointer_cast<salerpt::Report>(Report());
  ASSERT_NE(report, nullptr);
  std::vector<std::string> names;
  const auto members = report->Members();
  for (const auto& member : members) names.emplace_back(member.name);
  EXPECT_EQ(names, (std::vector<std::string>{"RptID", "RptID", "ExtFirter", "Filter", "Filter", "Title",
                                             "Property", "Result", "Header", "Rs", "GetDetailReport",
                                             "ShowFilter", "Refresh", "GetReportData"}));
}

TEST_F(Rpt301State, OpensItsDialogWithoutAPlanAndWithoutALog) {
  std::vector<std::string> steps;
  const DictionaryRef filter = Invoices({{"OK", true}});
  runtime_.RegisterDialog("frmFirter301", [&] { return std::make_unique<ConfirmedDialog>(steps, filter); });
  Call(Report(), "ShowFilter", true);
  EXPECT_EQ(steps, (std::vector<std::string>{"family 301", "confirmed"}));
  EXPECT_TRUE(Ok());
  EXPECT_EQ(GetMember(Report(), "Filter").ToObject(), filter);
  Call(Report(), "GetReportData");
  EXPECT_TRUE(Ok()) << Error();
  EXPECT_TRUE(ledger_->Calls().empty());
}

TEST_F(Rpt301State, ShowsItsTwoTextsInTheProgressDialogAndTakesItAway) {
  std::vector<std::string> messages;
  on_fetch_ = [&](Arguments) { messages = toolkit_->messages; };
  FetchInvoices();
  EXPECT_EQ(messages, (std::vector<std::string>{"正在连接服务器", "正在从服务器读取数据，请稍候..."}));
  EXPECT_EQ(toolkit_->shown, 1);
  EXPECT_EQ(toolkit_->unloaded, 1);
}

TEST_F(Rpt301State, DoesNothingWithoutAFilter) {
  SetMember(Report(), "Filter", nullptr);
  Call(Report(), "GetReportData");
  EXPECT_TRUE(sales_->Calls().empty());
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "请选择过滤条件！");
}

TEST_F(Rpt301State, SendsTheSameAgainWhereAFetchIsRepeated) {
  for (const std::int32_t mode : {0, 1, 3, 4, 5}) {
    const Request first =
        FetchLevels(mode, 1, 2, {{"SumField", mode == 0 ? SumField("客户", 1, 0) : NoSumField()}});
    const auto conditions = sent_;
    request_.clear();
    Call(Report(), "Refresh");
    EXPECT_EQ(request_, first) << "mode " << mode;
    EXPECT_EQ(sent_["DataRightWhereOrg"], conditions.at("DataRightWhereOrg"));
  }
}

TEST_F(Rpt301State, KeepsNothingOfAnEarlierFetch) {
  const Request plain = FetchInvoices();
  FetchLevels(3, 1, 2, {{"InvoiceStyle", std::int32_t{1}}});
  FetchBy(SumField("客户", 1, 0));
  EXPECT_EQ(FetchInvoices(), plain);
}

TEST_F(Rpt301State, KeepsTheConditionsOfTheHostWhateverTheMiddleTierLeavesInTheRequest) {
  on_fetch_ = [](Arguments arguments) { arguments[2] = std::make_shared<Dictionary>(); };
  const DictionaryRef filter = Invoices({{"BFeeNumber", "01"}});
  SetMember(Report(), "Filter", filter);
  Call(Report(), "GetReportData");
  EXPECT_TRUE(Ok()) << Error();
  EXPECT_EQ(GetMember(Report(), "Filter").ToObject(), filter);
  EXPECT_EQ(filter->Get("BFeeNumber"), Variant("01"));
}

TEST_F(Rpt301Failure, OfTheSystemProfileMeansTheLongCode) {
  profile_->Raises("GetProfile", kServerDown);
  FetchInvoices();
  EXPECT_EQ(sent_["bLongNumber"], Variant(true));
}

TEST_F(Rpt301Failure, OfTheDataRightIsMendedByTheNextFetch) {
  rights_->Raises("GetDataRight", kServerDown);
  ASSERT_NE(Report(), nullptr);
  RunInvoices();
  ExpectServerDown();
  RestrictCustomers();
  FetchInvoices();
  EXPECT_EQ(sent_["DataRightWhereSupply"], Variant(" CharIndex('16394',V1.FRightUserID)>0 "));
  EXPECT_EQ(sent_["DataRightWhereOrg"], Variant(" CharIndex('16394',V1.FRightUserID)>0 "));
}

TEST_F(Rpt301Failure, OfOneDataRightAloneNeverLetsAFetchThroughWithoutIt) {
  for (const std::int32_t kind : {1, 2}) {
    report_ = nullptr;
    rights_->On("GetDataRight", [kind](Arguments arguments) -> Variant {
      if (arguments[2].ToInt32() == kind) throw kServerDown;
      return false;
    });
    RunInvoices();
    ExpectServerDown();
    EXPECT_TRUE(sales_->Calls().empty()) << kind;
  }
}

TEST_F(Rpt301Failure, OfTheDataRightAtExtFirterIsMendedByTheNextFetch) {
  Report();
  rights_->Raises("GetDataRight", kServerDown);
  LetMember(Report(), "ExtFirter", "301");
  RestrictCustomers();
  FetchInvoices();
  EXPECT_EQ(sent_["DataRightWhereOrg"], Variant(" CharIndex('16394',V1.FRightUserID)>0 "));
}

TEST_F(Rpt301Failure, OfTheLoginEndsTheFetch) {
  Report();
  host_->Raises("PropsString", kServerDown);
  RunInvoices();
  ExpectServerDown();
}

TEST_F(Rpt301Failure, OfTheMiddleTierEndsTheFetchWithItsWordsAndDropsEarlierRows) {
  FetchInvoices();
  ASSERT_TRUE(HasRows());
  sales_->Raises("GetRpt301Data", kServerDown);
  RunInvoices();
  ExpectServerDown();
  AnswerFetch();
  FetchInvoices();
  EXPECT_TRUE(HasRows());
}

TEST_F(Rpt301Failure, OfRefreshIsToldByResultToo) {
  FetchInvoices();
  sales_->Raises("GetRpt301Data", kServerDown);
  Call(Report(), "Refresh");
  ExpectServerDown();
}

TEST_F(Rpt301Failure, OfTheObjectMakerEndsTheFetch) {
  runtime_.Register("ORVMSaleRpt.Data", []() -> ObjectRef {
    throw RuntimeError(error_number::kObjectMaker, "Maker", "there is no such object");
  });
  RunInvoices();
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "there is no such object");
  EXPECT_EQ(ErrorSource(), "Maker");
  EXPECT_FALSE(HasRows());
  EXPECT_EQ(toolkit_->unloaded, 1);
}

}  // namespace
}  // namespace salerpt::testing
