#include "shell/host.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <map>
#include <sstream>

#include "runtime/dictionary.h"
#include "runtime/error.h"
#include "shell/failure.h"
#include "suite/accountset/accountset.h"

namespace salerpt::shell {
namespace {

namespace fs = std::filesystem;

// Stands for the detail report: keeps what it is given and answers what it is told to.
class FakeDetail final : public Object {
 public:
  [[nodiscard]] std::string_view ClassName() const override { return "ORVSaleRpt.Rpt129"; }
  Variant Invoke(std::string_view member, InvokeKind kind, Arguments arguments) override {
    if (EqualNames(member, "GetReportData")) return {};
    if (kind == InvokeKind::kLet || kind == InvokeKind::kSet) {
      given[std::string(member)] = arguments[0];
      return {};
    }
    return answers[std::string(member)];
  }
  std::map<std::string, Variant> given, answers;
};

DictionaryRef ResultOf(bool ok, const char* error) {
  return std::make_shared<Dictionary>(std::initializer_list<Dictionary::Entry>{{"OK", ok}, {"Error", error}});
}

class HostTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    db_ = fs::temp_directory_path() / ("salerpt-host-" + std::to_string(::getpid()) + ".db");
    accountset::Create(db_, {.seed = 3, .lines = 1000});
  }
  static void TearDownTestSuite() { fs::remove(db_); }

  HostTest() : shell_{out_, err_}, host_(db_, shell_, ProgressBar::Style::kOff) {
    Runtime::Current().Register("ORVSaleRpt.Rpt129", [this] { return detail_; });
  }

  ObjectRef Summary(const std::vector<std::string>& more = {}) {
    std::vector<Choice> choices;
    for (const char* argument : {"BDate=2023-01-01", "EDate=2025-12-31", "GroupBy=0", "OnlyShowSum=0"}) {
      choices.push_back(ParseChoice(argument));
    }
    for (const std::string& argument : more) choices.push_back(ParseChoice(argument));
    return host_.Run(rpt128_, {choices, "", false, ""});
  }

  static fs::path db_;
  const ReportClass& rpt128_ = RequireReportClass("rpt128");
  std::shared_ptr<FakeDetail> detail_ = std::make_shared<FakeDetail>();
  std::ostringstream out_, err_;
  Shell shell_;
  Host host_;
};
fs::path HostTest::db_;

TEST_F(HostTest, GivesTheDetailReportOfARow) {
  detail_->answers["Result"] = ResultOf(true, "");
  const ObjectRef report = Summary();
  EXPECT_EQ(host_.Detail(rpt128_, report, 2), detail_);
  // The third row's item is what the detail report was asked for.
  const auto rows = As<Recordset>(GetMember(report, "Rs"));
  rows->MoveFirst();
  rows->Move(2);
  const auto filter = As<Dictionary>(detail_->given.at("Filter"));
  EXPECT_EQ(filter->Get("BItemNumber").ToText(), rows->Value("FNumber").ToText());
  EXPECT_EQ(filter->Get("EItemNumber").ToText(), rows->Value("FNumber").ToText());
  EXPECT_EQ(detail_->given.at("RptID").ToInt32(), 128);
}

TEST_F(HostTest, PassesOnWhatTheDetailReportAnswered) {
  detail_->answers["Result"] = ResultOf(false, "数据授权取数发生错误");
  const ObjectRef report = Summary();
  try {
    host_.Detail(rpt128_, report, 0);
    FAIL() << "no error";
  } catch (const ReportFailure& failure) {
    EXPECT_EQ(failure.Description(), "Rpt129: 数据授权取数发生错误");
  }
}

TEST_F(HostTest, TellsThatATotalRowHasNoDetail) {
  const ObjectRef report = Summary();
  const std::int32_t last = As<Recordset>(GetMember(report, "Rs"))->RecordCount() - 1;
  EXPECT_THROW(host_.Detail(rpt128_, report, last), ReportFailure);
}

TEST_F(HostTest, ReadsTitleColumnsAndRows) {
  const Sheet sheet = host_.Read(Summary());
  EXPECT_EQ(sheet.report, "Rpt128");
  EXPECT_EQ(sheet.name, "销售出库汇总表");
  EXPECT_EQ(sheet.amount_scale, 2);
  EXPECT_EQ(sheet.columns.front().caption, "产品代码");
  EXPECT_EQ(sheet.lines.front(), "起始日期：2023-01-01");
  EXPECT_GT(sheet.rows->RecordCount(), 1);
}

TEST_F(HostTest, RaisesTheFailureOfAReportWithItsSource) {
  try {
    Summary({"Orderby=FNoSuchColumn"});
    FAIL() << "no error";
  } catch (const ReportFailure& failure) {
    EXPECT_THAT(failure.Description(),
                ::testing::AllOf(::testing::StartsWith("Rpt128: "), ::testing::HasSubstr("FNoSuchColumn"),
                                 ::testing::EndsWith("(ORVMSaleRpt.Data:GetSaleAmountData)")));
  }
}

// One class serves two lists, which the host tells apart by the report's number.
TEST_F(HostTest, SetsTheNumberOfTheReport) {
  const ReportClass& rpt303 = RequireReportClass("Rpt303");
  const auto shown = [&](const char* number) {
    return host_.Read(host_.Run(
        rpt303, {{ParseChoice("BDate=2023-01-01"), ParseChoice("EDate=2025-12-31"), ParseChoice(number)},
                 "",
                 false,
                 ""}));
  };
  EXPECT_EQ(shown("RptID=303").name, "委托代销清单");
  EXPECT_EQ(shown("rptid=304").name, "分期收款清单");
  EXPECT_THROW(shown("RptID=abc"), RuntimeError);
}

}  // namespace
}  // namespace salerpt::shell
