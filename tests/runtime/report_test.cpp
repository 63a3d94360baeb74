// The skeleton of a report, from its making to its end, driven late bound as a host drives it.
#include "runtime/report.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "error_check.h"
#include "report_probe.h"

namespace salerpt {
namespace {

using testing::FakeRef;
using testing::RegisterFake;
using testing::Steps;

class ReportTest : public testing::ReportProbeTest {};

// --- Making

TEST_F(ReportTest, IsMadeWithoutFilterRowsColumnsOrLines) {
  const ObjectRef report = CreateObject("ORVSaleRpt.Rpt147");
  EXPECT_EQ(report->ClassName(), "ORVSaleRpt.Rpt147");
  EXPECT_EQ(GetMember(report, "RptID"), Variant(std::int32_t{0}));
  EXPECT_EQ(ObjectOf(report, "Filter"), nullptr);
  EXPECT_EQ(ObjectOf(report, "Rs"), nullptr);
  for (const char* member : {"Header", "Title"}) {
    const auto lines = As<Vector>(GetMember(report, member));
    EXPECT_TRUE(!lines || lines->Size() == 0) << member;
  }
}

TEST_F(ReportTest, StartsNotOkWithoutAnError) {
  const ObjectRef report = CreateObject("ORVSaleRpt.Rpt147");
  EXPECT_EQ(Result(report)->Get("OK"), Variant(false));
  EXPECT_EQ(Result(report)->Get("Error"), Variant(""));
  EXPECT_FALSE(Result(report)->Lookup("ErrorSource"));
}

TEST_F(ReportTest, SetsUpWithTheNumberOfItsClassesPlanFamily) {
  CreateObject("ORVSaleRpt.Rpt128");
  EXPECT_EQ(script_.journal, (Steps{"set-up 166"}));
}

TEST_F(ReportTest, KnowsTheCodeInUseBeforeItSetsUp) {
  runtime_.gLongNumber = true;
  profile_->Gives("GetProfile", "1");  // the short code is in use
  bool long_number = true;
  script_.set_up = [&] { long_number = runtime_.gLongNumber; };
  CreateObject("ORVSaleRpt.Rpt128");
  EXPECT_FALSE(long_number);
}

TEST_F(ReportTest, AsksForTheCodeInUseAtEachMaking) {
  CreateObject("ORVSaleRpt.Rpt147");
  EXPECT_TRUE(runtime_.gLongNumber);
  profile_->Gives("GetProfile", "1");
  CreateObject("ORVSaleRpt.Rpt147");
  EXPECT_FALSE(runtime_.gLongNumber);
}

TEST_F(ReportTest, NamesTheSettingsFileLast) {
  std::string name_at_set_up = "?";
  script_.set_up = [&] { name_at_set_up = runtime_.ini_file.FileName(); };
  CreateObject("ORVSaleRpt.Rpt128");
  EXPECT_EQ(name_at_set_up, "");
  EXPECT_EQ(runtime_.ini_file.FileName(), "JXCQ7SaleRpt.INI");
}

TEST_F(ReportTest, LeavesTheSettingsFileAloneInTheClassesWithoutOne) {
  RegisterProbe<"Rpt189">();
  runtime_.ini_file.SetFileName("other.ini");
  CreateObject("ORVSaleRpt.Rpt189");
  EXPECT_EQ(runtime_.ini_file.FileName(), "other.ini");
}

TEST_F(ReportTest, DescribesItselfByTitleKindAndDetail) {
  const auto property = As<Dictionary>(GetMember(CreateObject("ORVSaleRpt.Rpt128"), "Property"));
  ASSERT_EQ(property->Entries().size(), 3u);
  EXPECT_EQ(property->Get("Name"), Variant("销售出库汇总表"));
  EXPECT_EQ(property->Get("RptProperty").ToInt32(), 2);
  EXPECT_EQ(property->Get("DetailRptID").ToInt32(), 128);
}

TEST_F(ReportTest, DescribesNoDetailWhereTheClassHasNone) {
  const auto property = As<Dictionary>(GetMember(CreateObject("ORVSaleRpt.Rpt147"), "Property"));
  ASSERT_EQ(property->Entries().size(), 2u);
  EXPECT_EQ(property->Get("Name"), Variant("销售收入明细表"));
  EXPECT_EQ(property->Get("RptProperty").ToInt32(), 1);
}

TEST_F(ReportTest, SharesNothingWithAnotherReport) {
  const ObjectRef one = MakeFiltered("Rpt147");
  const ObjectRef other = Make("Rpt147");
  EXPECT_TRUE(Ok(one));
  EXPECT_FALSE(Ok(other));
  EXPECT_NE(ObjectOf(one, "Property"), ObjectOf(other, "Property"));
}

// --- RptID, Filter, ExtFirter

TEST_F(ReportTest, CarriesTheNumberThatTheHostGives) {
  const ObjectRef report = Make("Rpt147");
  LetMember(report, "RptID", std::int32_t{128});
  EXPECT_EQ(GetMember(report, "rptid"), Variant(std::int32_t{128}));
  EXPECT_TRUE(script_.journal.empty());
}

TEST_F(ReportTest, IsReadyOnceItHasAFilter) {
  const ObjectRef report = Make("Rpt147");
  const DictionaryRef filter = Conditions();
  SetMember(report, "Filter", filter);
  EXPECT_EQ(ObjectOf(report, "Filter"), filter);
  EXPECT_TRUE(Ok(report));
  EXPECT_EQ(Error(report), "");
}

TEST_F(ReportTest, AsksForConditionsWhenTheFilterIsSetToNothing) {
  const ObjectRef report = MakeFiltered("Rpt147");
  SetMember(report, "Filter", nullptr);
  EXPECT_EQ(ObjectOf(report, "Filter"), nullptr);
  EXPECT_FALSE(Ok(report));
  EXPECT_EQ(Error(report), "请选择过滤条件！");
}

TEST_F(ReportTest, DoesNothingAfterTheFilterWasSetToNothing) {
  const ObjectRef report = MakeFiltered("Rpt147");
  SetMember(report, "Filter", nullptr);
  EXPECT_TRUE(Call(report, "GetReportData").IsEmpty());
  EXPECT_EQ(script_.journal, (Steps{"messages run"}));
  EXPECT_EQ(Error(report), "请选择过滤条件！");
}

TEST_F(ReportTest, CannotBeAskedForTheFilterInTheOutboundDetail) {
  RegisterProbe<"Rpt129">();
  const ObjectRef report = MakeFiltered("Rpt129");
  EXPECT_TRUE(Ok(report));
  EXPECT_EQ(NumberRaisedBy([&] { GetMember(report, "Filter"); }), error_number::kNoSuchMember);
}

TEST_F(ReportTest, DescribesItselfAnewWhenTheFamilyIsSet) {
  const ObjectRef report = Make("Rpt128");
  const auto earlier = As<Dictionary>(GetMember(report, "Property"));
  earlier->Set("Extra", 1);
  LetMember(report, "ExtFirter", "129");
  EXPECT_EQ(script_.journal, (Steps{"set-up 129"}));
  const auto property = As<Dictionary>(GetMember(report, "Property"));
  EXPECT_NE(property, earlier);
  EXPECT_FALSE(property->Lookup("Extra"));
  EXPECT_EQ(property->Get("Name"), Variant("销售出库汇总表"));
}

TEST_F(ReportTest, TakesTheNumberThatTheFamilyBeginsWith) {
  const ObjectRef report = Make("Rpt128");
  LetMember(report, "ExtFirter", " 166x");
  LetMember(report, "ExtFirter", "");
  LetMember(report, "ExtFirter", std::int32_t{129});
  EXPECT_EQ(script_.journal, (Steps{"set-up 166", "set-up 0", "set-up 129"}));
}

TEST_F(ReportTest, TellsOfAFamilyThatIsNoNumberOfThirtyTwoBits) {
  const ObjectRef report = MakeFiltered("Rpt128");
  LetMember(report, "ExtFirter", "99999999999");
  EXPECT_TRUE(script_.journal.empty());
  EXPECT_FALSE(Ok(report));
  EXPECT_NE(Error(report), "");
}

TEST_F(ReportTest, KeepsTheResultWhenTheFamilyIsSet) {
  const ObjectRef report = MakeFiltered("Rpt128");
  LetMember(report, "ExtFirter", "129");
  EXPECT_TRUE(Ok(report));
}

TEST_F(ReportTest, GivesTheFamilyBackToNobody) {
  const ObjectRef report = Make("Rpt128");
  EXPECT_EQ(NumberRaisedBy([&] { GetMember(report, "ExtFirter"); }), error_number::kNoSuchMember);
}

// --- Set-up that fails

constexpr const char* kRightsFailed = "数据授权取数发生错误";

std::function<void()> FailingSetUp() {
  return [] { throw RuntimeError(error_number::kDataRight, "SetRptProperty", kRightsFailed); };
}

TEST_F(ReportTest, IsMadeThoughItsSetUpFails) {
  script_.set_up = FailingSetUp();
  const ObjectRef report = CreateObject("ORVSaleRpt.Rpt128");
  ASSERT_NE(report, nullptr);
  EXPECT_FALSE(Ok(report));
  EXPECT_EQ(Error(report), kRightsFailed);
  EXPECT_EQ(runtime_.ini_file.FileName(), "JXCQ7SaleRpt.INI");
}

TEST_F(ReportTest, SetsUpAgainAtTheFetchWhenItFailedAtTheMaking) {
  script_.set_up = FailingSetUp();
  const ObjectRef report = MakeFiltered("Rpt128");
  script_.set_up = nullptr;
  Call(report, "GetReportData");
  EXPECT_EQ(std::count(script_.journal.begin(), script_.journal.end(), "set-up 166"), 1);
  EXPECT_LT(std::find(script_.journal.begin(), script_.journal.end(), "set-up 166"),
            std::find(script_.journal.begin(), script_.journal.end(), "fetch"));
  EXPECT_TRUE(Ok(report)) << Error(report);
  Call(report, "Refresh");
  EXPECT_EQ(std::count(script_.journal.begin(), script_.journal.end(), "set-up 166"), 1) << "it stands now";
}

TEST_F(ReportTest, FailsTheFetchWhenTheSetUpFailsAgain) {
  script_.set_up = FailingSetUp();
  const ObjectRef report = MakeFiltered("Rpt128");
  Call(report, "GetReportData");
  EXPECT_EQ(std::count(script_.journal.begin(), script_.journal.end(), "fetch"), 0);
  EXPECT_FALSE(Ok(report));
  EXPECT_EQ(Error(report), kRightsFailed);
  EXPECT_EQ(Result(report)->Get("ErrorSource"), Variant("SetRptProperty"));
  EXPECT_EQ(script_.journal.back(), "progress gone");
}

TEST_F(ReportTest, TellsOfASetUpThatFailsWhenTheFamilyIsSet) {
  const ObjectRef report = MakeFiltered("Rpt128");
  script_.set_up = FailingSetUp();
  LetMember(report, "ExtFirter", "129");
  EXPECT_FALSE(Ok(report));
  EXPECT_EQ(Error(report), kRightsFailed);
  script_.set_up = nullptr;
  script_.journal.clear();
  SetMember(report, "Filter", Conditions());
  Call(report, "GetReportData");
  EXPECT_EQ(std::count(script_.journal.begin(), script_.journal.end(), "set-up 129"), 1);
  EXPECT_TRUE(Ok(report));
}

// --- GetDetailReport, PackMenuInfo, GetRsBySQL

TEST_F(ReportTest, HasNoDetailWhereTheClassGivesNone) {
  RegisterProbe<"Rpt133">();
  RegisterProbe<"Rpt303">();
  for (const char* name : {"Rpt133", "Rpt303"}) {
    const ObjectRef report = MakeFiltered(name);
    EXPECT_EQ(Call(report, "GetDetailReport", std::int32_t{0}).ToObject(), nullptr) << name;
    EXPECT_EQ(Call(report, "GetDetailReport", std::int32_t{7}).ToObject(), nullptr) << name;
  }
}

TEST_F(ReportTest, HasNoDetailMemberWhereTheClassHasNoDrill) {
  const ObjectRef report = Make("Rpt147");
  EXPECT_EQ(NumberRaisedBy([&] { Call(report, "GetDetailReport", std::int32_t{0}); }),
            error_number::kNoSuchMember);
}

TEST_F(ReportTest, OffersTheDecimalsMenuAnewEachTime) {
  RegisterProbe<"Rpt145">();
  const ObjectRef report = Make("Rpt145");
  const auto menu = As<Vector>(Call(report, "PackMenuInfo"));
  ASSERT_EQ(menu->Size(), 1);
  const auto item = As<Dictionary>(menu->Item(1));
  ASSERT_EQ(item->Entries().size(), 1u);
  EXPECT_EQ(item->Get("FMenuName"), Variant("iDecimal"));
  EXPECT_NE(As<Vector>(Call(report, "PackMenuInfo")), menu);
}

TEST_F(ReportTest, ReadsFreelyForTheHost) {
  const FakeRef server = RegisterFake(runtime_, "ORVListServer.clsListServer");
  const RecordsetRef answer = MakeRecordset();
  server->Gives("Users_GetDataFreely", answer);
  Variant rows;
  EXPECT_EQ(Call(Make("Rpt128"), "GetRsBySQL", "select 1", rows), Variant(true));
  EXPECT_EQ(rows.ToObject(), answer);
  ASSERT_EQ(server->Calls().size(), 1u);
  EXPECT_EQ(server->Calls()[0].arguments,
            (std::vector<Variant>{kProps, "select 1", Variant(std::int32_t{-1})}));
  EXPECT_TRUE(toolkit_->boxes.empty());
}

TEST_F(ReportTest, ShowsABoxWhenTheFreeReadFails) {
  RegisterFake(runtime_, "ORVListServer.clsListServer")
      ->Raises("Users_GetDataFreely", RuntimeError(-2147217900, "Server", "对象名无效"));
  const RecordsetRef earlier = MakeRecordset();
  Variant rows = earlier;
  EXPECT_EQ(Call(Make("Rpt128"), "GetRsBySQL", "select 1", rows), Variant(false));
  ASSERT_EQ(toolkit_->boxes.size(), 1u);
  EXPECT_EQ(toolkit_->boxes[0].text, "数据访问错误：\r\n对象名无效");
  EXPECT_EQ(toolkit_->boxes[0].title, "青岚提示：");
  EXPECT_EQ(toolkit_->boxes[0].style, kBoxInformation);
  EXPECT_EQ(rows.ToObject(), earlier);
}

TEST_F(ReportTest, RaisesNothingWhateverTheFreeReadFailsWith) {
  RegisterFake(runtime_, "ORVListServer.clsListServer")->On("Users_GetDataFreely", [](Arguments) -> Variant {
    throw std::runtime_error("连接已断开");
  });
  Variant rows;
  EXPECT_EQ(Call(Make("Rpt128"), "GetRsBySQL", "select 1", rows), Variant(false));
  ASSERT_EQ(toolkit_->boxes.size(), 1u);
  EXPECT_EQ(toolkit_->boxes[0].text, "数据访问错误：\r\n连接已断开");
}

TEST_F(ReportTest, LeavesTheResultAloneInAFreeRead) {
  const ObjectRef report = MakeFiltered("Rpt128");
  Variant rows;
  EXPECT_EQ(Call(report, "GetRsBySQL", "select 1", rows), Variant(false)) << "there is no list server";
  EXPECT_TRUE(Ok(report));
}

// --- The end

// Writes into the journal when it goes.
class Mark final : public Object {
 public:
  Mark(std::string name, Steps& journal) : name_(std::move(name)), journal_(journal) {}
  ~Mark() override { journal_.push_back(name_); }
  [[nodiscard]] std::string_view ClassName() const override { return name_; }
  Variant Invoke(std::string_view member, InvokeKind, Arguments) override {
    RaiseNoSuchMember(*this, member);
  }

 private:
  std::string name_;
  Steps& journal_;
};

TEST_F(ReportTest, ReleasesWhatItHoldsInItsOrder) {
  ObjectRef report = MakeFiltered("Rpt128");
  script_.fetch = [this](testing::ProbeReport& probe) {
    const RecordsetRef rows = MakeRecordset();
    probe.rs_ = RecordsetRef(rows.get(), [this, rows](Recordset*) { script_.journal.emplace_back("Rs"); });
  };
  Call(report, "GetReportData");
  const auto mark = [this](const char* name) { return std::make_shared<Mark>(name, script_.journal); };
  for (const char* name : {"Result", "Filter", "Property"}) {
    As<Dictionary>(GetMember(report, name))->Set("mark", mark(name));
  }
  for (const char* name : {"Header", "Title"}) As<Vector>(GetMember(report, name))->Add(mark(name));
  script_.journal.clear();
  report.reset();
  EXPECT_EQ(script_.journal, (Steps{"Result", "Rs", "Filter", "Header", "Property", "Title"}));
}

}  // namespace
}  // namespace salerpt
