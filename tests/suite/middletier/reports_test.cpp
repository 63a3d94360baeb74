// Reports on the middle tier, on a generated account set: the figures are those of the tables.
#include "reports/reports.h"

#include "dialogs/unattended.h"
#include "tests/suite/middletier/generated_set.h"

namespace salerpt::middletier {
namespace {

constexpr const char* kOutbound =
    "SELECT sum(e.FQty), sum(round(e.FAmount,2)), sum(round(e.FConsignAmount,2)) FROM ICStockBill b "
    "JOIN ICStockBillEntry e USING(FInterID) JOIN t_Organization o ON o.FItemID=b.FSupplyID "
    "WHERE b.FTranType=21 AND b.FStatus>0 AND b.FCancelLation=0";
constexpr const char* kInvoiced =
    "SELECT sum(e.FQty), sum(round((CASE b.FTranType WHEN 80 THEN e.FAmount ELSE e.FAmount-e.FTaxAmount END)"
    "*b.FExchangeRate,2)) FROM ICSale b JOIN ICSaleEntry e USING(FInterID) "
    "JOIN t_Organization o ON o.FItemID=b.FCustID "
    "WHERE b.FTranType IN (80,86) AND b.FStatus>0 AND b.FCancelLation=0";
// Whom the login user may see.
constexpr const char* kSeen = " AND instr(o.FRightUserID,'16394')>0";

// Plain SQL rounds some halves of a cent the other way than the server's decimals.
constexpr double kCents = 0.5;

class ReportTest : public testing::Test {
 protected:
  // One account set for all tests here.
  static void SetUpTestSuite() { set_ = std::make_unique<GeneratedSet>(11, 4000); }
  static void TearDownTestSuite() { set_.reset(); }
  ReportTest() {
    RegisterReports(runtime_);
    RegisterMiddleTier(runtime_, set_->Get(), Login{});
  }

  // Runs a report with the defaults of its dialog and `chosen` over them.
  ObjectRef RunReport(std::string_view prog_id, std::string_view dialog_name,
                      std::initializer_list<Dictionary::Entry> chosen) const {
    ObjectRef report = CreateObject(prog_id);
    SetMember(report, "Filter", ConfirmedFilter(dialog_name, chosen));
    Call(report, "GetReportData");
    const auto result = As<Dictionary>(GetMember(report, "Result"));
    EXPECT_TRUE(result->Get("OK").ToBoolean()) << result->Get("Error").TextOrEmpty();
    return report;
  }

  static std::unique_ptr<GeneratedSet> set_;
  Runtime runtime_;
};

std::unique_ptr<GeneratedSet> ReportTest::set_;

constexpr const char* kSummedFields[] = {"FOutQty", "FOutAmount", "FConsignAmount", "FCommitQty",
                                         "FCommitAmount"};

// Sums of the rows whose FSumSort lies between `from` and `to`, in the order of kSummedFields.
std::vector<double> SumsOf(const RecordsetRef& rows, std::int32_t from, std::int32_t to) {
  std::vector<double> sums(std::size(kSummedFields));
  const int sum_sort = rows->FieldIndex("FSumSort");
  for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext()) {
    if (rows->Int32(sum_sort) < from || rows->Int32(sum_sort) > to) continue;
    for (std::size_t i = 0; i < sums.size(); ++i) sums[i] += rows->Value(kSummedFields[i]).ToDouble();
  }
  return sums;
}

void ExpectNear(const std::vector<double>& sums, const std::vector<double>& expected) {
  ASSERT_EQ(sums.size(), expected.size());
  for (std::size_t i = 0; i < sums.size(); ++i) EXPECT_NEAR(sums[i], expected[i], kCents) << kSummedFields[i];
}

// What the outbound summary must come to.
std::vector<double> PlainSums(const GeneratedSet& set, const std::string& more = "") {
  std::vector<double> sums = set.Numbers(kOutbound + more);
  for (const double sum : set.Numbers(kInvoiced + more)) sums.push_back(sum);
  return sums;
}

std::int32_t CountOf(const RecordsetRef& rows, std::int32_t code) {
  std::int32_t count = 0;
  for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext())
    count += rows->Value("FSumSort").ToInt32() == code ? 1 : 0;
  return count;
}

// The grouping, 0 for none, and the order asked for.
struct Grouping {
  std::int32_t mode;
  const char* order;
};

class OutboundSummary : public ReportTest, public testing::WithParamInterface<Grouping> {
 protected:
  RecordsetRef Rows() const {
    const Grouping& grouping = GetParam();
    const ObjectRef report = RunReport("ORVSaleRpt.Rpt128", "frmFirter128",
                                       {{"BDate", Date::FromYmd(2023, 1, 1)},
                                        {"EDate", Date::FromYmd(2027, 12, 31)},
                                        {"GroupBy", std::int32_t{grouping.mode > 0 ? 1 : 0}},
                                        {"SumMode", grouping.mode},
                                        {"BLevel", 1},
                                        {"ELevel", 2},
                                        {"OnlyShowSum", 0},
                                        {"Orderby", grouping.order}});
    return As<Recordset>(GetMember(report, "Rs"));
  }
};

TEST_P(OutboundSummary, TheGrandTotalIsWhatTheTablesSay) {
  const RecordsetRef rows = Rows();
  ASSERT_NE(rows, nullptr);
  EXPECT_EQ(CountOf(rows, 101), 1);
  ExpectNear(SumsOf(rows, 101, 101), PlainSums(*set_));
}

TEST_P(OutboundSummary, TheDetailsAddUpToTheGrandTotal) {
  const RecordsetRef rows = Rows();
  ASSERT_NE(rows, nullptr);
  EXPECT_GT(CountOf(rows, 0), 10);
  ExpectNear(SumsOf(rows, 0, 0), SumsOf(rows, 101, 101));
}

TEST_P(OutboundSummary, EveryDetailRowTellsItsItem) {
  const RecordsetRef rows = Rows();
  ASSERT_NE(rows, nullptr);
  for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext()) {
    if (rows->Value("FSumSort").ToInt32() != 0) continue;
    for (const char* field : {"FShortNumber", "FName", "FUnitName", "FCUUnitName"}) {
      EXPECT_FALSE(rows->Value(field).IsEmptyText()) << field << " of " << rows->Value("FNumber").ToText();
    }
  }
}

INSTANTIATE_TEST_SUITE_P(EveryGrouping, OutboundSummary,
                         testing::Values(Grouping{0, ""}, Grouping{1, ""}, Grouping{2, ""}, Grouping{3, ""},
                                         Grouping{4, ""}, Grouping{5, ""}, Grouping{6, ""}, Grouping{7, ""},
                                         Grouping{8, ""}, Grouping{9, ""}, Grouping{10, ""}, Grouping{11, ""},
                                         Grouping{12, ""}, Grouping{0, "FShortNumber DESC"},
                                         Grouping{1, "FOutAmount DESC"}, Grouping{2, "FOutAmount DESC"},
                                         Grouping{3, "FOutAmount DESC"}, Grouping{4, "FOutAmount DESC"},
                                         Grouping{5, "FOutAmount DESC"}, Grouping{6, "FOutAmount DESC"},
                                         Grouping{7, "FOutAmount DESC"}, Grouping{8, "FOutAmount DESC"},
                                         Grouping{9, "FOutAmount DESC"}, Grouping{10, "FOutAmount DESC"},
                                         Grouping{11, "FOutAmount DESC"}, Grouping{12, "FOutAmount DESC"}),
                         [](const auto& grouping) {
                           return "Mode" + std::to_string(grouping.param.mode) +
                                  (grouping.param.order[0] == '\0' ? "" : "Sorted");
                         });

TEST_F(ReportTest, TheIncomeDetailComesToWhatTheTablesSay) {
  const ObjectRef report = RunReport("ORVSaleRpt.Rpt147", "frmFilter147",
                                     {{"BYear", 2023}, {"BPeriod", 1}, {"EYear", 2026}, {"EPeriod", 12}});
  const auto rows = As<Recordset>(GetMember(report, "Rs"));
  ASSERT_NE(rows, nullptr);
  double details = 0;
  double totals = 0;
  for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext()) {
    (rows->Value("FSumSort").ToInt32() == 0 ? details : totals) += rows->Value("FAmount").ToDouble();
  }
  EXPECT_NEAR(details, totals, 1e-6);
  EXPECT_NEAR(details, set_->Numbers(kInvoiced)[1], kCents);
}

TEST_F(ReportTest, AUserSeesOnlyTheCustomersOfTheList) {
  set_->Run("UPDATE t_DataRight SET FUsed=1 WHERE FUserID=16394 AND FKind=1");
  const ObjectRef report = RunReport(
      "ORVSaleRpt.Rpt128", "frmFirter128",
      {{"BDate", Date::FromYmd(2023, 1, 1)}, {"EDate", Date::FromYmd(2027, 12, 31)}, {"GroupBy", 0}});
  set_->Run("UPDATE t_DataRight SET FUsed=0 WHERE FUserID=16394 AND FKind=1");
  const auto rows = As<Recordset>(GetMember(report, "Rs"));
  ASSERT_NE(rows, nullptr);
  const std::vector<double> seen = PlainSums(*set_, kSeen);
  ExpectNear(SumsOf(rows, 101, 101), seen);
  EXPECT_LT(seen[0], PlainSums(*set_)[0]);
}

}  // namespace
}  // namespace salerpt::middletier
