// How a report fetches: title, conditions, progress dialog, and how a fetch ends.
#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>

#include "report_probe.h"

namespace salerpt {
namespace {

using testing::ProbeReport;
using testing::Steps;

class ReportFetchTest : public testing::ReportProbeTest {
 protected:
  static std::function<void(ProbeReport&)> Failing() {
    return [](ProbeReport&) {
      throw RuntimeError(-2147217900, "ORVMSaleRpt.Data", "第 3 行: ')' 附近有语法错误。");
    };
  }
};

TEST_F(ReportFetchTest, DoesNothingBeforeAFilterWasSet) {
  const ObjectRef report = Make("Rpt128");
  Call(report, "GetReportData");
  EXPECT_EQ(script_.journal, (Steps{"messages run"}));
  EXPECT_FALSE(Ok(report));
  EXPECT_EQ(Error(report), "");
}

TEST_F(ReportFetchTest, BuildsTitleAndConditionsThenFetchesUnderTheProgressDialog) {
  const ObjectRef report = MakeFiltered("Rpt128");
  EXPECT_TRUE(Call(report, "GetReportData").IsEmpty());
  EXPECT_EQ(script_.journal, (Steps{"messages run", "title", "conditions", "messages run",
                                    "message 正在连接服务器", "fetch", "progress gone"}));
  EXPECT_TRUE(Ok(report));
  EXPECT_EQ(Error(report), "");
  EXPECT_NE(ObjectOf(report, "Rs"), nullptr);
  EXPECT_NE(ObjectOf(report, "Header"), nullptr);
  EXPECT_NE(ObjectOf(report, "Title"), nullptr);
}

TEST_F(ReportFetchTest, ReplacesTitleColumnsAndRowsAtEachFetch) {
  const ObjectRef report = MakeFiltered("Rpt128");
  Call(report, "GetReportData");
  const ObjectRef title = ObjectOf(report, "Title");
  const ObjectRef header = ObjectOf(report, "Header");
  const ObjectRef rows = ObjectOf(report, "Rs");
  Call(report, "GetReportData");
  EXPECT_NE(ObjectOf(report, "Title"), title);
  EXPECT_NE(ObjectOf(report, "Header"), header);
  EXPECT_NE(ObjectOf(report, "Rs"), rows);
}

TEST_F(ReportFetchTest, KeepsTheTitleInARefresh) {
  const ObjectRef report = MakeFiltered("Rpt128");
  Call(report, "GetReportData");
  const ObjectRef title = ObjectOf(report, "Title");
  const ObjectRef rows = ObjectOf(report, "Rs");
  script_.journal.clear();
  EXPECT_TRUE(Call(report, "Refresh").IsEmpty());
  EXPECT_EQ(script_.journal, (Steps{"message 正在连接服务器", "fetch", "progress gone"}));
  EXPECT_EQ(ObjectOf(report, "Title"), title);
  EXPECT_NE(ObjectOf(report, "Rs"), rows);
}

TEST_F(ReportFetchTest, UnloadsTheProgressDialogBeforeItSaysThatAllIsWell) {
  const ObjectRef report = MakeFiltered("Rpt128");
  bool ok_while_it_goes = true;
  script_.fetch = [&](ProbeReport&) {
    Result(report)->Set("OK", false);
    toolkit_->on_messages = [&] { ok_while_it_goes = Ok(report); };
  };
  Call(report, "GetReportData");
  toolkit_->on_messages = nullptr;
  EXPECT_FALSE(ok_while_it_goes);
  EXPECT_TRUE(Ok(report));
}

TEST_F(ReportFetchTest, CanBeUsedAgainAfterAFailure) {
  const ObjectRef report = MakeFiltered("Rpt128");
  script_.fetch = Failing();
  Call(report, "GetReportData");
  script_.fetch = nullptr;
  Call(report, "Refresh");
  EXPECT_TRUE(Ok(report));
  EXPECT_EQ(Error(report), "");
  EXPECT_NE(ObjectOf(report, "Rs"), nullptr);
}

// --- Failures

TEST_F(ReportFetchTest, EndsInTheResultWhenTheFetchFails) {
  const ObjectRef report = MakeFiltered("Rpt128");
  script_.fetch = Failing();
  EXPECT_NO_THROW(Call(report, "GetReportData"));
  EXPECT_EQ(Result(report)->Get("OK"), Variant(false));
  EXPECT_EQ(Result(report)->Get("Error"), Variant("第 3 行: ')' 附近有语法错误。"));
  EXPECT_EQ(Result(report)->Get("ErrorSource"), Variant("ORVMSaleRpt.Data"));
  EXPECT_EQ(ObjectOf(report, "Rs"), nullptr);
  EXPECT_EQ(script_.journal.back(), "progress gone");
}

TEST_F(ReportFetchTest, DropsTheEarlierRowsWhenARefreshFails) {
  const ObjectRef report = MakeFiltered("Rpt128");
  Call(report, "GetReportData");
  script_.fetch = Failing();
  EXPECT_NO_THROW(Call(report, "Refresh"));
  EXPECT_FALSE(Ok(report));
  EXPECT_EQ(ObjectOf(report, "Rs"), nullptr);
  EXPECT_EQ(script_.journal.back(), "progress gone");
}

TEST_F(ReportFetchTest, EndsInTheResultWhateverTheFetchFailsWith) {
  const ObjectRef report = MakeFiltered("Rpt128");
  script_.fetch = [](ProbeReport&) { throw std::length_error("基本字符串过长"); };
  EXPECT_NO_THROW(Call(report, "GetReportData"));
  EXPECT_FALSE(Ok(report));
  EXPECT_EQ(Error(report), "基本字符串过长");
  EXPECT_TRUE(Result(report)->Lookup("ErrorSource"));
  EXPECT_EQ(ObjectOf(report, "Rs"), nullptr);
  EXPECT_EQ(script_.journal.back(), "progress gone");
}

TEST_F(ReportFetchTest, EndsInTheResultWhenTheBarIsGivenMoreThanItHolds) {
  const ObjectRef report = MakeFiltered("Rpt128");
  script_.fetch = [](ProbeReport& probe) {
    probe.Progress().SetBarMaxValue(3);
    probe.Progress().SetBarValue(4);
  };
  Call(report, "GetReportData");
  EXPECT_FALSE(Ok(report));
  EXPECT_NE(Error(report), "");
  EXPECT_EQ(script_.journal.back(), "progress gone");
}

TEST_F(ReportFetchTest, StopsAtATitleThatFails) {
  const ObjectRef report = MakeFiltered("Rpt128");
  script_.title = [] { throw RuntimeError(13, "Filter", "类型不匹配"); };
  EXPECT_NO_THROW(Call(report, "GetReportData"));
  EXPECT_EQ(script_.journal, (Steps{"messages run", "title"}));
  EXPECT_FALSE(Ok(report));
  EXPECT_EQ(Error(report), "类型不匹配");
  EXPECT_FALSE(Result(report)->Lookup("ErrorSource")) << "no fetch has run";
}

TEST_F(ReportFetchTest, StopsAtConditionsThatFail) {
  const ObjectRef report = MakeFiltered("Rpt128");
  script_.conditions = [] { throw RuntimeError(13, "Filter", "日期有误"); };
  Call(report, "GetReportData");
  EXPECT_EQ(script_.journal, (Steps{"messages run", "title", "conditions"}));
  EXPECT_FALSE(Ok(report));
  EXPECT_EQ(Error(report), "日期有误");
}

}  // namespace
}  // namespace salerpt
