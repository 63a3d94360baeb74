// The gross profit report as an object that lives: what it is, its dialog, repeated fetches; each call that
// it makes fails once; from a row to the outbound detail.
#include <gtest/gtest.h>

#include <optional>

#include "runtime/error.h"
#include "runtime/report.h"
#include "tests/reports/rpt176_world.h"

namespace salerpt::testing {
namespace {

class ConfirmedDialog final : public FilterDialog {
 public:
  ConfirmedDialog(std::vector<std::string>& steps, DictionaryRef filter)
      : steps_(steps), filter_(std::move(filter)) {}
  [[nodiscard]] std::string_view Name() const override { return "frmFirter176"; }
  void SetRptID(std::int32_t family) override { steps_.push_back("family " + std::to_string(family)); }
  void Confirm() override { steps_.emplace_back("shown and confirmed"); }
  void ShowFinish(std::string_view plan) override { steps_.push_back("plan " + std::string(plan)); }
  [[nodiscard]] DictionaryRef Filter() const override { return filter_; }

 private:
  std::vector<std::string>& steps_;
  DictionaryRef filter_;
};

class Rpt176State : public Rpt176World {
 protected:
  DictionaryRef Property() { return As<Dictionary>(GetMember(Report(), "Property")); }
  void ExpectProperty() {
    ASSERT_EQ(Property()->Entries().size(), 2U);
    EXPECT_EQ(Property()->Get("Name").ToText(), "销售毛利润表");
    EXPECT_EQ(Property()->Get("RptProperty").ToInt32(), 3);
  }
};

TEST_F(Rpt176State, BeginsWithoutAFilterAndWithoutAnError) {
  EXPECT_FALSE(Ok());
  EXPECT_EQ(ResultOf("Error"), Variant(""));
  EXPECT_FALSE(HasRows());
  ExpectProperty();
  LetMember(Report(), "ExtFirter", "166");
  ExpectProperty();
}

TEST_F(Rpt176State, HasItsMembersInTheirOrder) {
  const auto report = std::dynamic_pointer_cast<salerpt::Report>(Report());
  ASSERT_NE(report, nullptr);
  std::vector<std::string> names;
  for (const auto& member : report->Members()) names.emplace_back(member.name);
  EXPECT_EQ(names, (std::vector<std::string>{"RptID", "RptID", "ExtFirter", "Filter", "Filter", "Title",
                                             "Property", "Result", "Header", "Rs", "GetDetailReport",
                                             "ShowFilter", "Refresh", "GetReportData", "GetRsBySQL"}));
}

TEST_F(Rpt176State, ShowsItsDialogWhateverIsSaidAboutPlansAndWritesNoLog) {
  std::vector<std::string> steps;
  runtime_.RegisterDialog("frmFirter176", [&steps] {
    return std::make_unique<ConfirmedDialog>(steps, Conditions({{"OK", true}}));
  });
  Call(Report(), "ShowFilter", true);
  EXPECT_EQ(steps, (std::vector<std::string>{"family 166", "shown and confirmed"}));
  EXPECT_TRUE(Ok());
  EXPECT_TRUE(ledger_->Calls().empty());
}

TEST_F(Rpt176State, ShowsItsTwoTextsInTheProgressDialogAndTakesItAway) {
  Fetch();
  EXPECT_EQ(toolkit_->messages, (std::vector<std::string>{"正在连接服务器", "正在从服务器读取数据..."}));
  EXPECT_EQ(toolkit_->shown, 1);
  EXPECT_EQ(toolkit_->unloaded, 1);
}

TEST_F(Rpt176State, SendsTheSameAgainWhereTheFetchIsRepeated) {
  const Request first = Fetch({{"Cost", std::int32_t{1}}, {"IncludeTax", std::int32_t{1}}});
  request_.clear();
  Call(Report(), "Refresh");
  EXPECT_EQ(request_, first);
}

TEST_F(Rpt176State, GoesByTheCostAndStateOfTheFetchAndNotOfAnEarlierOne) {
  const Request first = Fetch();
  Fetch({{"Cost", std::int32_t{2}}, {"CheckState", std::int32_t{1}}, {"SaleType", std::int32_t{201}}});
  EXPECT_EQ(Fetch(), first);
}

TEST_F(Rpt176State, KeepsTheConditionsOfTheHostWhateverTheMiddleTierLeavesInTheRequest) {
  on_fetch_ = [](Arguments arguments) { arguments[1] = std::make_shared<Dictionary>(); };
  const DictionaryRef filter = Conditions({{"BItemNumber", "01"}});
  SetMember(Report(), "Filter", filter);
  Call(Report(), "GetReportData");
  EXPECT_TRUE(Ok()) << Error();
  EXPECT_EQ(GetMember(Report(), "Filter").ToObject(), filter);
}

TEST_F(Rpt176State, AsksForTheRightsOnCustomersAlone) {
  Fetch();
  for (const RecordedCall& call : rights_->Calls()) {
    EXPECT_EQ(call.arguments[0].ToText(), kProps);
    EXPECT_EQ(call.arguments[1].ToInt32(), 16394);
    EXPECT_EQ(call.arguments[2].ToInt32(), 1);
  }
  EXPECT_FALSE(rights_->Calls().empty());
}

TEST_F(Rpt176State, ReadsTheRightsAnewAtExtFirter) {
  Report();
  RestrictCustomers();
  LetMember(Report(), "ExtFirter", "166");
  EXPECT_EQ(CountOf(Fetch().at("SELECT"), " And  CharIndex('16394',T2.FRightUserID)>0 "), 3);
}

const RuntimeError kServerDown(-2147467259, "Server", "the server is not there");

class Rpt176Failure : public Rpt176World {
 protected:
  void ExpectServerDown() {
    EXPECT_FALSE(Ok());
    EXPECT_EQ(Error(), "the server is not there");
    EXPECT_EQ(ErrorSource(), "Server");
    EXPECT_FALSE(HasRows());
    EXPECT_EQ(toolkit_->shown, 1);
    EXPECT_EQ(toolkit_->unloaded, 1);
  }
  void ExpectFetchIsGoodAgain() {
    Fetch();
    EXPECT_TRUE(HasRows());
    EXPECT_EQ(Error(), "");
    EXPECT_EQ(toolkit_->shown, toolkit_->unloaded);
  }
};

TEST_F(Rpt176Failure, OfTheMiddleTierEndsTheFetchWithItsWords) {
  Fetch();
  toolkit_->shown = toolkit_->unloaded = 0;
  sales_->Raises("GetSaleAmountData", kServerDown);
  Run();
  ExpectServerDown();
  AnswerFetch();
  ExpectFetchIsGoodAgain();
}

TEST_F(Rpt176Failure, OfRefreshIsToldByResultToo) {
  Fetch();
  toolkit_->shown = toolkit_->unloaded = 0;
  sales_->Raises("GetSaleAmountData", kServerDown);
  Call(Report(), "Refresh");
  ExpectServerDown();
}

TEST_F(Rpt176Failure, OfTheDataRightIsToldAtCreationAndNeverLetsAFetchThrough) {
  rights_->Raises("GetDataRight", kServerDown);
  ASSERT_NE(Report(), nullptr);
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "the server is not there");
  Run();
  ExpectServerDown();
  EXPECT_TRUE(sales_->Calls().empty());
  RestrictCustomers();
  ExpectFetchIsGoodAgain();
  EXPECT_EQ(CountOf(request_.at("SELECT"), " And  CharIndex('16394',T2.FRightUserID)>0 "), 3);
}

TEST_F(Rpt176Failure, OfTheLoginEndsTheFetch) {
  Report();
  host_->Raises("PropsString", kServerDown);
  Run();
  ExpectServerDown();
}

TEST_F(Rpt176Failure, OfTheObjectMakerEndsTheFetchBeforeItTellsThatItReads) {
  runtime_.Register("ORVMSaleRpt.Data", []() -> ObjectRef { throw kServerDown; });
  Run();
  ExpectServerDown();
  EXPECT_EQ(toolkit_->messages, std::vector<std::string>{"正在连接服务器"});
}

TEST_F(Rpt176Failure, OfALevelThatIsNoNumberIsToldByResult) {
  Run({{"GroupBy", std::int32_t{1}},
       {"SumMode", std::int32_t{1}},
       {"BLevel", "1; Drop Table t_Item"},
       {"ELevel", std::int32_t{1}}});
  EXPECT_FALSE(Ok());
  EXPECT_NE(Error(), "");
  EXPECT_TRUE(sales_->Calls().empty());
  EXPECT_EQ(toolkit_->shown, toolkit_->unloaded);
}

using Filter = std::map<std::string, Variant>;

class Rpt176Drill : public Rpt176World {
 protected:
  Rpt176Drill() {
    rows_ = MakeRecordset();
    for (const char* field : {"FNumber", "FShortNumber", "FPropNumber", "FCustNumber"}) {
      rows_->AppendField(field, FieldType::kVarChar, 355);
    }
    rows_->AppendField("FSumSort", FieldType::kSmallInt, 0);
    rows_->Open();
    AddRow({"01.01", "1", "02.01", "07.01", std::int16_t{0}});
    AddRow({"合计", "", "", "", std::int16_t{101}});
    child_ = RegisterFake(runtime_, "ORVSaleRpt.Rpt129");
    child_->OnAssign("RptID", [](Arguments) { return Variant(); })
        .OnAssign("ExtFirter", [](Arguments) { return Variant(); })
        .OnAssign("Filter", [this](Arguments arguments) {
          child_filter_ = As<Dictionary>(arguments[0]);
          return Variant();
        });
    child_->Gives("GetReportData", Variant());
    AnswerChild(true, "");
  }
  void AddRow(std::initializer_list<Variant> values) {
    rows_->AddNew();
    int field = 0;
    for (const Variant& value : values) rows_->SetValue(field++, value);
    rows_->Update();
  }
  void AnswerChild(bool ok, const char* error) {
    child_->Gives("Result", std::make_shared<Dictionary>(Entries{{"OK", ok}, {"Error", error}}));
  }
  Filter DetailFilter(Entries conditions = {}) {
    Fetch(conditions);
    EXPECT_EQ(Call(Report(), "GetDetailReport", std::int32_t{0}).ToObject(), child_);
    Filter filter;
    if (!child_filter_) return filter;
    for (const auto& entry : child_filter_->Entries()) filter[entry.key] = entry.value;
    return filter;
  }

  FakeRef child_;
  DictionaryRef child_filter_;
};

TEST_F(Rpt176Drill, GivesTheDetailReportTheItemAndTheConditions) {
  Filter filter = DetailFilter({{"BItemNumber", "01"},
                                {"BCustNumber", "02"},
                                {"ECustNumber", "03"},
                                {"CheckState", std::int32_t{1}},
                                {"SaleType", std::int32_t{10144}},
                                {"SaleTypeName", "赊销"},
                                {"Cost", std::int32_t{2}}});
  EXPECT_EQ(filter["BDate"], Variant(Date::FromYmd(2003, 1, 1)));
  EXPECT_EQ(filter["EDate"], Variant(Date::FromYmd(2003, 3, 31)));
  EXPECT_EQ(filter["BItemNumber"], Variant("01.01"));
  EXPECT_EQ(filter["EItemNumber"], Variant("01.01"));
  EXPECT_EQ(filter["BCustNumber"], Variant("02"));
  EXPECT_EQ(filter["ECustNumber"], Variant("03"));
  EXPECT_EQ(filter["CheckState"].ToInt32(), 1);
  EXPECT_EQ(filter["SaleType"].ToInt32(), 10144);
  EXPECT_EQ(filter["SaleTypeName"], Variant("赊销"));
  EXPECT_EQ(filter["chkShowItemSum"].ToInt32(), 1);
  for (const char* key : {"GroupBy", "OnlyShowSum", "chkShowDateSum", "AuxProp"}) {
    EXPECT_EQ(filter[key].ToInt32(), 0) << key;
  }
  EXPECT_FALSE(filter.contains("Cost"));
}

TEST_F(Rpt176Drill, DrivesTheDetailReportInTheOrderOfAHost) {
  DetailFilter();
  ASSERT_GE(child_->Calls().size(), 5U);
  EXPECT_EQ(child_->Calls()[0].member, "RptID");
  EXPECT_EQ(child_->Calls()[0].arguments[0].ToInt32(), 128);
  EXPECT_EQ(child_->Calls()[1].member, "Filter");
  EXPECT_EQ(child_->Calls()[2].member, "ExtFirter");
  EXPECT_EQ(child_->Calls()[2].arguments[0].ToText(), "129");
  EXPECT_EQ(child_->Calls()[3].member, "GetReportData");
}

TEST_F(Rpt176Drill, TakesTheCustomerOfTheRow) {
  Filter filter = DetailFilter({{"GroupBy", std::int32_t{1}},
                                {"SumMode", std::int32_t{4}},
                                {"BLevel", std::int32_t{1}},
                                {"ELevel", std::int32_t{1}},
                                {"BCustNumber", "02"}});
  EXPECT_EQ(filter["BCustNumber"], Variant("07.01"));
  EXPECT_EQ(filter["ECustNumber"], Variant("07.01"));
  filter = DetailFilter({{"GroupBy", std::int32_t{1}},
                         {"SumMode", std::int32_t{5}},
                         {"SumField", std::make_shared<Dictionary>(Entries{{"FName", "客户"},
                                                                           {"FPropID", "0"},
                                                                           {"FItemClassID", "1"},
                                                                           {"FSrcTable", ""},
                                                                           {"FSQLColumnName", "FName"}})}});
  EXPECT_EQ(filter["BCustNumber"], Variant("02.01"));
  EXPECT_EQ(filter["ECustNumber"], Variant("02.01"));
}

TEST_F(Rpt176Drill, GivesNothingForATotalRow) {
  Fetch();
  EXPECT_EQ(Call(Report(), "GetDetailReport", std::int32_t{1}).ToObject(), nullptr);
  EXPECT_TRUE(child_->Calls().empty());
}

TEST_F(Rpt176Drill, RaisesTheErrorOfTheDetailReport) {
  AnswerChild(false, "the detail rows cannot be read");
  Fetch();
  try {
    Call(Report(), "GetDetailReport", std::int32_t{0});
    ADD_FAILURE() << "nothing was raised";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), -1);
    EXPECT_EQ(error.Description(), "the detail rows cannot be read");
  }
}

}  // namespace
}  // namespace salerpt::testing
