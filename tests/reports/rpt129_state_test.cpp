// The outbound detail as an object that lives: what it is at creation, its interface and dialog, repeated
// fetches, and how the progress dialog goes along.
#include <gtest/gtest.h>

#include "runtime/error.h"
#include "runtime/report.h"
#include "tests/reports/rpt129_world.h"

namespace salerpt::testing {
namespace {

class ConfirmedDialog final : public FilterDialog {
 public:
  ConfirmedDialog(std::vector<std::string>& steps, DictionaryRef filter)
      : steps_(steps), filter_(std::move(filter)) {}
  [[nodiscard]] std::string_view Name() const override { return "frmFirter129"; }
  void SetRptID(std::int32_t family) override { steps_.push_back("family " + std::to_string(family)); }
  void Confirm() override { steps_.emplace_back("shown and confirmed"); }
  void ShowFinish(std::string_view plan) override { steps_.push_back("plan " + std::string(plan)); }
  [[nodiscard]] DictionaryRef Filter() const override { return filter_; }

 private:
  std::vector<std::string>& steps_;
  DictionaryRef filter_;
};

class Rpt129State : public Rpt129World {
 protected:
  DictionaryRef Property() { return As<Dictionary>(GetMember(Report(), "Property")); }
  void ExpectProperty() {
    ASSERT_EQ(Property()->Entries().size(), 2U);
    EXPECT_EQ(Property()->Get("Name").ToText(), "销售出库明细表");
    EXPECT_EQ(Property()->Get("RptProperty").ToInt32(), 1);
  }
};

TEST_F(Rpt129State, BeginsWithoutAFilterAndWithoutAnError) {
  EXPECT_FALSE(Ok());
  EXPECT_EQ(ResultOf("Error"), Variant(""));
  EXPECT_FALSE(HasRows());
  ExpectProperty();
}

TEST_F(Rpt129State, TellsWhatItIsAnewAfterExtFirter) {
  Property()->Set("FrozenColumn", std::int32_t{3});
  LetMember(Report(), "ExtFirter", "129");
  ExpectProperty();
}

TEST_F(Rpt129State, HasItsMembersInTheirOrder) {
  const auto report = std::dynamic_pointer_cast<salerpt::Report>(Report());
  ASSERT_NE(report, nullptr);
  std::vector<std::string> names;
  for (const auto& member : report->Members()) names.emplace_back(member.name);
  EXPECT_EQ(names,
            (std::vector<std::string>{"RptID", "RptID", "ExtFirter", "Title", "Filter", "Property", "Result",
                                      "Header", "Rs", "ShowFilter", "Refresh", "GetReportData"}));
}

TEST_F(Rpt129State, GivesNoWayToReadItsConditionsBack) {
  Fetch();
  EXPECT_THROW(GetMember(Report(), "Filter"), RuntimeError);
}

TEST_F(Rpt129State, HasNoDrill) {
  Fetch();
  EXPECT_THROW(Call(Report(), "GetDetailReport", std::int32_t{0}), RuntimeError);
}

TEST_F(Rpt129State, DoesNothingWithoutAFilter) {
  SetMember(Report(), "Filter", nullptr);
  Call(Report(), "GetReportData");
  EXPECT_TRUE(sales_->Calls().empty());
  EXPECT_EQ(toolkit_->shown, 0);
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "请选择过滤条件！");
}

TEST_F(Rpt129State, NamesItsSettingsFile) {
  runtime_.ini_file.SetFileName("other.ini");
  Report();
  EXPECT_EQ(runtime_.ini_file.FileName(), "JXCQ7SaleRpt.INI");
}

TEST_F(Rpt129State, ShowsItsTwoTextsInTheProgressDialogAndTakesItAway) {
  std::vector<std::string> messages;
  on_fetch_ = [&](Arguments) { messages = toolkit_->messages; };
  Fetch();
  EXPECT_EQ(messages, (std::vector<std::string>{"正在连接服务器", "正在从服务器读取数据..."}));
  EXPECT_EQ(toolkit_->messages, messages);
  EXPECT_EQ(toolkit_->shown, 1);
  EXPECT_EQ(toolkit_->unloaded, 1);
}

TEST_F(Rpt129State, DropsTheEarlierRowsBeforeTheMiddleTierIsAsked) {
  Fetch();
  bool had_rows = true;
  on_fetch_ = [&](Arguments) { had_rows = HasRows(); };
  Fetch();
  EXPECT_FALSE(had_rows);
  EXPECT_TRUE(HasRows());
}

TEST_F(Rpt129State, SendsTheSameAgainWhereTheFetchIsRepeated) {
  const Request first = Fetch({{"chkShowItemSum", std::int32_t{1}}, {"chkShowDateSum", std::int32_t{0}}});
  request_.clear();
  Call(Report(), "Refresh");
  EXPECT_EQ(request_, first);
}

TEST_F(Rpt129State, OpensTheSectionsByTheChoicesOfTheFetchAndNotOfAnEarlierOne) {
  const Request plain = Fetch({{"chkShowItemSum", std::int32_t{0}}, {"chkShowDateSum", std::int32_t{0}}});
  Fetch({{"chkShowItemSum", std::int32_t{1}}, {"chkShowDateSum", std::int32_t{1}}});
  EXPECT_EQ(Fetch({{"chkShowItemSum", std::int32_t{0}}, {"chkShowDateSum", std::int32_t{0}}}), plain);
}

TEST_F(Rpt129State, SendsTheSameAgainAfterAGrouping) {
  const Request plain = Fetch();
  Fetch({{"GroupBy", std::int32_t{1}},
         {"SumMode", std::int32_t{4}},
         {"BLevel", std::int32_t{1}},
         {"ELevel", std::int32_t{2}}});
  EXPECT_EQ(Fetch(), plain);
}

TEST_F(Rpt129State, KeepsTheConditionsOfTheHostWhateverTheMiddleTierLeavesInTheRequest) {
  on_fetch_ = [](Arguments arguments) {
    As<Dictionary>(arguments[1])->Set("BItemNumber", "changed");
    arguments[1] = std::make_shared<Dictionary>();
  };
  const DictionaryRef filter = Conditions({{"BItemNumber", "01"}});
  SetMember(Report(), "Filter", filter);
  Call(Report(), "GetReportData");
  EXPECT_TRUE(Ok()) << Error();
  EXPECT_EQ(filter->Get("BItemNumber"), Variant("01"));
  on_fetch_ = nullptr;
  Call(Report(), "Refresh");
  EXPECT_TRUE(Ok()) << Error();
  EXPECT_TRUE(HasText(request_.at("SELECT"), " And t1.FNumber>='01'"));
}

TEST_F(Rpt129State, ReadsScaleAndRightsAnewAtExtFirter) {
  Report();
  UseScale("4");
  RestrictCustomers();
  LetMember(Report(), "ExtFirter", "129");
  const std::string& select = Fetch().at("SELECT");
  EXPECT_TRUE(HasText(select, "FOutAmount decimal(28,4) null, "));
  EXPECT_TRUE(HasText(select, " And  CharIndex('16394',T2.FRightUserID)>0 "));
}

TEST_F(Rpt129State, AsksForTheRightsOnCustomersAlone) {
  Fetch();
  ASSERT_EQ(rights_->CalledMembers(), std::vector<std::string>{"GetDataRight"});
  EXPECT_EQ(rights_->Calls()[0].arguments[0].ToText(), kProps);
  EXPECT_EQ(rights_->Calls()[0].arguments[1].ToInt32(), 16394);
  EXPECT_EQ(rights_->Calls()[0].arguments[2].ToInt32(), 1);
}

TEST_F(Rpt129State, ServesAHostThatDrillsIntoOneItem) {
  LetMember(Report(), "RptID", std::int32_t{128});
  SetMember(Report(), "Filter",
            Conditions({{"BItemNumber", "01.01"},
                        {"EItemNumber", "01.01"},
                        {"GroupBy", std::int32_t{0}},
                        {"OnlyShowSum", std::int32_t{0}},
                        {"chkShowItemSum", std::int32_t{1}},
                        {"chkShowDateSum", std::int32_t{0}},
                        {"AuxProp", std::int32_t{0}}}));
  LetMember(Report(), "ExtFirter", "129");
  Call(Report(), "GetReportData");
  EXPECT_TRUE(Ok()) << Error();
  EXPECT_EQ(CountOf(request_.at("SELECT"), " And t1.FNumber>='01.01' And t1.FNumber<='01.01'"), 2);
  EXPECT_TRUE(HasRows());
}

TEST_F(Rpt129State, ShowsItsDialogAndWritesItsLineInTheLog) {
  std::vector<std::string> steps;
  const FakeRef plans = RegisterFake(runtime_, "ORVMCaculateRpt.Profile");
  plans->Gives("FindChooseValue", "月结");
  runtime_.RegisterDialog("frmFirter129", [&steps] {
    return std::make_unique<ConfirmedDialog>(steps, Conditions({{"OK", true}}));
  });
  Call(Report(), "ShowFilter", false);
  EXPECT_EQ(steps, (std::vector<std::string>{"family 129", "shown and confirmed"}));
  EXPECT_TRUE(Ok());
  ASSERT_EQ(ledger_->CalledMembers(), std::vector<std::string>{"WriteLog"});
  EXPECT_EQ(ledger_->Calls()[0].arguments[0].ToText(), "SysRptLog0018");
  EXPECT_EQ(ledger_->Calls()[0].arguments[1].ToInt32(), 3);
  EXPECT_EQ(ledger_->Calls()[0].arguments[2].ToText(), "销售出库明细表查询");
  steps.clear();
  Call(Report(), "ShowFilter", true);
  EXPECT_EQ(steps, (std::vector<std::string>{"family 129", "plan 月结"}));
}

}  // namespace
}  // namespace salerpt::testing
