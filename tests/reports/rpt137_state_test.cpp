// The order execution detail as an object that lives, and each call that it makes failing once.
#include <gtest/gtest.h>

#include "runtime/error.h"
#include "runtime/report.h"
#include "tests/reports/rpt137_world.h"

namespace salerpt::testing {
namespace {

const RuntimeError kServerDown(-2147467259, "Server", "the server is not there");

using Rpt137State = Rpt137World;

TEST_F(Rpt137State, TellsWhatItIs) {
  const auto property = As<Dictionary>(GetMember(Report(), "Property"));
  EXPECT_EQ(property->Entries().size(), 2U);
  EXPECT_EQ(property->Get("Name").ToText(), "销售订单执行情况明细表");
  EXPECT_EQ(property->Get("RptProperty").ToInt32(), 1);
}

TEST_F(Rpt137State, NamesItsSettingsFile) {
  runtime_.ini_file.SetFileName("other.ini");
  Report();
  EXPECT_EQ(runtime_.ini_file.FileName(), "JXCQ7SaleRpt.INI");
}

TEST_F(Rpt137State, HasItsMembersInTheirOrder) {
  const auto report = std::dynamic_pointer_cast<salerpt::Report>(Report());
  ASSERT_NE(report, nullptr);
  std::vector<std::string> names;
  for (const auto& member : report->Members()) names.emplace_back(member.name);
  EXPECT_EQ(names, (std::vector<std::string>{"RptID", "RptID", "Filter", "Filter", "ExtFirter", "Property",
                                             "Result", "Header", "Title", "Rs", "Refresh", "ShowFilter",
                                             "GetReportData", "GetRptList"}));
}

TEST_F(Rpt137State, WritesItsLineInTheLogWhereTheDialogIsOpened) {
  Call(Report(), "ShowFilter", false);
  ASSERT_FALSE(ledger_->Calls().empty());
  EXPECT_EQ(ledger_->Calls()[0].member, "WriteLog");
  EXPECT_EQ(ledger_->Calls()[0].arguments[0].ToText(), "SysRptLog0011");
  EXPECT_EQ(ledger_->Calls()[0].arguments[1].ToInt32(), 3);
  EXPECT_EQ(ledger_->Calls()[0].arguments[2].ToText(), "销售订单执行情况明细表查询");
}

TEST_F(Rpt137State, ShowsItsTwoTextsInTheProgressDialogAndTakesItAway) {
  Fetch();
  EXPECT_EQ(toolkit_->messages, (std::vector<std::string>{"正在连接服务器", "正在从服务器读取数据..."}));
  EXPECT_EQ(toolkit_->shown, 1);
  EXPECT_EQ(toolkit_->unloaded, 1);
}

TEST_F(Rpt137State, FetchesAgainAndKeepsTheTitle) {
  Fetch();
  const ObjectRef title = GetMember(Report(), "Title").ToObject();
  const ObjectRef header = GetMember(Report(), "Header").ToObject();
  rows_ = MakeRecordset();
  Call(Report(), "Refresh");
  EXPECT_TRUE(Ok()) << Error();
  EXPECT_EQ(GetMember(Report(), "Rs").ToObject(), rows_);
  EXPECT_EQ(GetMember(Report(), "Title").ToObject(), title);
  EXPECT_NE(GetMember(Report(), "Header").ToObject(), header);
}

TEST_F(Rpt137State, DoesNothingWithoutAFilter) {
  SetMember(Report(), "Filter", nullptr);
  Call(Report(), "GetReportData");
  EXPECT_TRUE(sales_->Calls().empty());
  EXPECT_EQ(Error(), "请选择过滤条件！");
}

class Rpt137Failure : public Rpt137World {
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

TEST_F(Rpt137Failure, OfTheSystemProfileMeansTheLongCode) {
  profile_->Raises("GetProfile", kServerDown);
  Fetch();
  EXPECT_EQ(SentFilter()->Get("bLongNumber"), Variant(true));
}

TEST_F(Rpt137Failure, OfTheDataRightNeverLetsAFetchThrough) {
  Report();
  rights_->Raises("GetDataRight", kServerDown);
  Run();
  ExpectServerDown();
  EXPECT_TRUE(sales_->Calls().empty());
  RestrictCustomers();
  Fetch();
  EXPECT_EQ(SentFilter()->Get("DataRightWhere"), Variant(" CharIndex('16394',t11.FRightUserID)>0 "));
}

TEST_F(Rpt137Failure, OfTheLoginEndsTheFetch) {
  Report();
  host_->Raises("PropsString", kServerDown);
  Run();
  ExpectServerDown();
}

TEST_F(Rpt137Failure, OfTheMiddleTierEndsTheFetchWithItsWords) {
  Fetch();
  ASSERT_TRUE(HasRows());
  sales_->Raises("GetRpt137Data_new", kServerDown);
  Run();
  ExpectServerDown();
  AnswerFetch();
  Fetch();
  EXPECT_TRUE(HasRows());
}

TEST_F(Rpt137Failure, OfRefreshIsToldByResultToo) {
  Fetch();
  sales_->Raises("GetRpt137Data_new", kServerDown);
  Call(Report(), "Refresh");
  ExpectServerDown();
}

TEST_F(Rpt137Failure, OfTheObjectMakerEndsTheFetch) {
  for (const char* prog_id : {"ORVMSaleRpt.Data", "ORVEBSGLItem.ItemInfo"}) {
    Report();
    runtime_.Register(prog_id, []() -> ObjectRef {
      throw RuntimeError(error_number::kObjectMaker, "Maker", "there is no such object");
    });
    Run();
    ExpectFailed("there is no such object", "Maker");
  }
}

TEST_F(Rpt137Failure, AnsweredInTheConditionsEndsTheFetch) {
  on_fetch_ = [](Arguments arguments) {
    As<Dictionary>(arguments[1])->Set("Error", "the account set is closed");
    As<Dictionary>(arguments[1])->Set("ErrorSource", "GetRpt137Data_new");
  };
  Run();
  ExpectFailed("the account set is closed", "GetRpt137Data_new");
  on_fetch_ = nullptr;
  Fetch();
  EXPECT_TRUE(HasRows());
}

TEST_F(Rpt137Failure, AnsweredWithoutASourceHasAnEmptyOne) {
  on_fetch_ = [](Arguments arguments) { As<Dictionary>(arguments[1])->Set("Error", "closed"); };
  Run();
  ExpectFailed("closed", "");
}

TEST_F(Rpt137Failure, AnsweredOnceIsNoAnswerToARefresh) {
  Fetch();
  on_fetch_ = [](Arguments arguments) { As<Dictionary>(arguments[1])->Set("Error", "closed"); };
  Call(Report(), "Refresh");
  ExpectFailed("closed", "");
  on_fetch_ = nullptr;
  Call(Report(), "Refresh");
  EXPECT_TRUE(Ok()) << Error();
  EXPECT_TRUE(HasRows());
}

TEST_F(Rpt137Failure, OfRowsThatCannotBeFilteredEndsTheFetch) {
  rows_ = OneField("FOrderBillNo");
  Run({{"DisplayType", std::int32_t{1}}});
  EXPECT_FALSE(Ok());
  EXPECT_NE(Error(), "");
  EXPECT_FALSE(HasRows());
  EXPECT_EQ(toolkit_->shown, toolkit_->unloaded);
}

TEST_F(Rpt137Failure, OfADisplayThatIsNoNumberIsToldByResult) {
  Run({{"DisplayType", "every"}});
  EXPECT_FALSE(Ok());
  EXPECT_NE(Error(), "");
  EXPECT_EQ(toolkit_->shown, toolkit_->unloaded);
}

}  // namespace
}  // namespace salerpt::testing
