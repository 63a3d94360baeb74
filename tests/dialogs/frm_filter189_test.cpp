// The filter dialog of the delivery due warning: its whole Filter and plan, the server's date, the objects.
#include "dialogs/frm_filter189.h"

#include "tests/dialogs/dialog_suite.h"

namespace salerpt {
namespace {

using ::testing::Contains;
using testing::DialogSuiteTest;
using ::testing::Not;
using testing::PlanValues;
using testing::TextEntries;
using testing::TextRows;
using testing::Texts;

class FrmFilter189Test : public DialogSuiteTest {
 protected:
  FrmFilter189Test() {
    dialog_.SetRptID(189);
    testing::RegisterFake(runtime_, "ORVEBCBASE.UserProfile");
    report_data_->Gives("GetRsBySQL", TextRows({"Today"}, {{"2003-08-15 17:45:00"}}));
  }
  FrmFilter189 dialog_;
};

TEST_F(FrmFilter189Test, WritesTheWholeFilter) {
  dialog_.Load();
  dialog_.Confirm();
  EXPECT_EQ(report_data_->Calls().front().arguments.at(1), Variant("SELECT GETDATE()"));
  EXPECT_EQ(Texts(*dialog_.Filter()), (TextEntries{{"OK", "True"},
                                                   {"BDate", "2003-08-15"},
                                                   {"EDate", "2003-08-15"},
                                                   {"BCustomerNumber", ""},
                                                   {"ECustomerNumber", ""},
                                                   {"BItemNumber", ""},
                                                   {"EItemNumber", ""},
                                                   {"BSalesNumber", ""},
                                                   {"ESalesNumber", ""},
                                                   {"BDeptNumber", ""},
                                                   {"EDeptNumber", ""},
                                                   {"AuditType", "全部"},
                                                   {"GroupBy", "客户"},
                                                   {"chkNextChoose", "0"},
                                                   {"CommodityType", "0"}}));
}

TEST_F(FrmFilter189Test, SavesUnderTheObjectOfTheWarnings) {
  dialog_.Load();
  auto& form = dialog_.GetForm();
  form.Get<TextBox>("txtItem(0)").SetText(" 01.O'Neil ");
  form.Get<ListControl>("CmbAuditType").SetListIndex(2);
  form.Get<ListControl>("cmbGroupBy").SetListIndex(1);
  dialog_.Confirm();
  EXPECT_EQ(Saved("默认方案", 189), (PlanValues{{"BDate", "2003-08-15"},
                                                {"EDate", "2003-08-15"},
                                                {"BCustomerNumber", " 01.O''Neil "},
                                                {"ECustomerNumber", ""},
                                                {"BItemNumber", ""},
                                                {"EItemNumber", ""},
                                                {"BSalesNumber", ""},
                                                {"ESalesNumber", ""},
                                                {"BDeptNumber", ""},
                                                {"EDeptNumber", ""},
                                                {"AuditType", "未审核"},
                                                {"GroupBy", "物料"},
                                                {"chkNextChoose", "0"},
                                                {"CommodityType", "0"}}));
  EXPECT_THAT(warning_profile_->CalledMembers(), Contains("SaveProfile"));
  EXPECT_THAT(profile_->CalledMembers(), Not(Contains("SaveProfile")));
  EXPECT_THAT(profile_->CalledMembers(), Contains("UpdateNextChooseValue"));
}

TEST_F(FrmFilter189Test, RestoresTheWords) {
  plans_["默认方案"] = {{"BDate", "2003-06-01"}, {"AuditType", "已审核"}, {"GroupBy", "物料"}};
  dialog_.Load();
  dialog_.Confirm();
  const Dictionary& filter = *dialog_.Filter();
  EXPECT_EQ(filter.Get("BDate"), Variant("2003-06-01"));
  EXPECT_EQ(filter.Get("EDate"), Variant("2003-08-15"));
  EXPECT_EQ(filter.Get("AuditType"), Variant("已审核"));
  EXPECT_EQ(filter.Get("GroupBy"), Variant("物料"));
}

TEST_F(FrmFilter189Test, AServerThatDoesNotTellLeavesThisMachinesDay) {
  report_data_->Raises("GetRsBySQL", RuntimeError(-3, "Server", "the server is down"));
  dialog_.Load();
  EXPECT_EQ(dialog_.GetForm().Get<DatePicker>("DtpBDate").Text(), "2003-07-01");
}

TEST_F(FrmFilter189Test, TheTestSwitchDoesNotConfirmIt) {
  folder_.Write("C:\\RptTest.Ini", "[Para]\r\nDebug=1\r\n");
  TableDialog other(kFrmFilter189);
  other.Load();
  other.Activate();
  EXPECT_TRUE(other.IsUnloaded());
  dialog_.Load();
  dialog_.Activate();
  EXPECT_FALSE(dialog_.IsUnloaded());
}

}  // namespace
}  // namespace salerpt
