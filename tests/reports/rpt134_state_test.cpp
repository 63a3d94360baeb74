// The customers' sales detail as an object that lives, and each call that it makes failing once.
#include <gtest/gtest.h>

#include "runtime/error.h"
#include "tests/reports/rpt134_world.h"

namespace salerpt::testing {
namespace {

const RuntimeError kServerDown(-2147467259, "Server", "the server is not there");

using Rpt134State = Rpt134World;
using Rpt134Failure = Rpt134World;

TEST_F(Rpt134State, TellsWhatItIs) {
  const auto property = As<Dictionary>(GetMember(Report(), "Property"));
  EXPECT_EQ(property->Entries().size(), 2U);
  EXPECT_EQ(property->Get("Name").ToText(), "客户单位销售情况明细表");
  EXPECT_EQ(property->Get("RptProperty").ToInt32(), 1);
}

TEST_F(Rpt134State, NamesItsSettingsFile) {
  runtime_.ini_file.SetFileName("other.ini");
  Report();
  EXPECT_EQ(runtime_.ini_file.FileName(), "JXCQ7SaleRpt.INI");
}

TEST_F(Rpt134State, HasItsMembersInTheirOrder) {
  EXPECT_EQ(NamesOfMembers(),
            (std::vector<std::string>{"RptID", "RptID", "Filter", "Filter", "ExtFirter", "Property", "Result",
                                      "Header", "Title", "Rs", "Refresh", "ShowFilter", "GetReportData",
                                      "GetRptList"}));
}

TEST_F(Rpt134State, EndsInTheResultWhereTheHostFetchesOutsideOfTheDialog) {
  Fetch();
  Variant rows;
  EXPECT_NO_THROW(rows = Call(Report(), "GetRptList"));
  EXPECT_EQ(rows.ToObject(), nullptr);
  EXPECT_FALSE(Ok());
  EXPECT_FALSE(HasRows());
}

TEST_F(Rpt134State, WritesItsLineInTheLogWhereTheDialogIsOpened) {
  Call(Report(), "ShowFilter", false);
  ASSERT_FALSE(ledger_->Calls().empty());
  EXPECT_EQ(ledger_->Calls()[0].member, "WriteLog");
  EXPECT_EQ(ledger_->Calls()[0].arguments[0].ToText(), "SysRptLog0020");
  EXPECT_EQ(ledger_->Calls()[0].arguments[1].ToInt32(), 3);
  EXPECT_EQ(ledger_->Calls()[0].arguments[2].ToText(), "客户单位销售情况明细表查询");
}

TEST_F(Rpt134State, ShowsTheProgressDialogAndTakesItAway) {
  Fetch();
  ASSERT_FALSE(toolkit_->messages.empty());
  EXPECT_EQ(toolkit_->messages[0], "正在连接服务器");
  EXPECT_EQ(toolkit_->shown, 1);
  EXPECT_EQ(toolkit_->unloaded, 1);
}

TEST_F(Rpt134State, FetchesAgainAndKeepsTheTitle) {
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

TEST_F(Rpt134State, DoesNothingWithoutAFilter) {
  SetMember(Report(), "Filter", nullptr);
  Call(Report(), "GetReportData");
  EXPECT_TRUE(sales_->Calls().empty());
  EXPECT_EQ(Error(), "请选择过滤条件！");
}

TEST_F(Rpt134Failure, OfTheSystemProfileMeansTheLongCode) {
  profile_->Raises("GetProfile", kServerDown);
  Fetch();
  EXPECT_EQ(SentFilter()->Get("bLongNumber"), Variant(true));
}

TEST_F(Rpt134Failure, OfTheDataRightEndsTheFetchUnchanged) {
  Report();
  rights_->Raises("GetDataRight", kServerDown);
  Run();
  ExpectFailedFetch("the server is not there", "Server");
  EXPECT_TRUE(sales_->Calls().empty());
}

TEST_F(Rpt134Failure, OfTheDataRightIsMendedByTheNextFetch) {
  rights_->Raises("GetDataRight", kServerDown);
  Run();
  RestrictCustomers();
  Fetch();
  EXPECT_EQ(SentFilter()->Get("DataRightWhere"), Variant(" CharIndex('16394',t1.FRightUserID)>0 "));
}

TEST_F(Rpt134Failure, OfTheLoginEndsTheFetch) {
  Report();
  host_->Raises("PropsString", kServerDown);
  Run();
  ExpectFailedFetch("the server is not there", "Server");
}

TEST_F(Rpt134Failure, OfTheFieldRightEndsTheFetch) {
  ledger_->Raises("AccessCheck", kServerDown);
  Run();
  ExpectFailedFetch("the server is not there", "Server");
}

TEST_F(Rpt134Failure, OfTheMiddleTierEndsTheFetchWithItsWords) {
  Fetch();
  ASSERT_TRUE(HasRows());
  sales_->Raises("GetRpt134Data", kServerDown);
  Run();
  ExpectFailedFetch("the server is not there", "Server");
}

TEST_F(Rpt134Failure, OfRefreshIsToldByResultToo) {
  Fetch();
  sales_->Raises("GetRpt134Data", kServerDown);
  Call(Report(), "Refresh");
  ExpectFailedFetch("the server is not there", "Server");
}

TEST_F(Rpt134Failure, OfTheObjectMakerEndsTheFetch) {
  for (const char* prog_id : {"ORVMSaleRpt.Data", "ORVEBCGLView.GLData", "ORVEBSGLItem.ItemInfo"}) {
    Report();
    runtime_.Register(prog_id, []() -> ObjectRef {
      throw RuntimeError(error_number::kObjectMaker, "Maker", "there is no such object");
    });
    runtime_.gl_data = nullptr;
    Run();
    ExpectFailedFetch("there is no such object", "Maker");
  }
}

}  // namespace
}  // namespace salerpt::testing
