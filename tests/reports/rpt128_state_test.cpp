// The outbound summary as an object that lives: what it is at creation, what a fetch leaves behind, what a
// set-up cleans, and how the progress dialog goes along.
#include <gtest/gtest.h>

#include "tests/reports/rpt128_world.h"

namespace salerpt::testing {
namespace {

class Rpt128State : public Rpt128World {
 protected:
  static Entries EmployeeGrouping() {
    static const Entries entries = {{"GroupBy", std::int32_t{1}},
                                    {"SumMode", std::int32_t{12}},
                                    {"BLevel", std::int32_t{1}},
                                    {"ELevel", std::int32_t{1}}};
    return entries;
  }
  bool FillHasEmployee() {
    const std::string& select = request_.at("SELECT");
    return select.find("     FEmp varchar(355) null,\r\n") != std::string::npos &&
           select.find("(FItemID,FCustID,FEmp,FOutQty,") != std::string::npos &&
           select.find("v1.FSupplyID,e.FName, v2.FQty,") != std::string::npos &&
           select.find("(FItemID,FCustID,FEmp,FCommitQty,") != std::string::npos &&
           select.find("v1.FCustID,e.FName,v2.FQty,") != std::string::npos &&
           select.find("\r\nLeft Join t_Emp e On v1.FEmpID=e.FItemID \r\n") != std::string::npos;
  }
  bool FillHasOpenHoles() {
    const std::string& select = request_.at("SELECT");
    for (const char* hole : {"/*OTHERCOL*/", "/*COLNAME*/", "/*COLVALUE*/", "/*JOINTABLE*/"}) {
      if (select.find(hole) == std::string::npos) return false;
    }
    return true;
  }
  DictionaryRef Property() { return As<Dictionary>(GetMember(Report(), "Property")); }
  void ExpectProperty() {
    ASSERT_EQ(Property()->Entries().size(), 3U);
    EXPECT_EQ(Property()->Get("Name").ToText(), "销售出库汇总表");
    EXPECT_EQ(Property()->Get("RptProperty").ToInt32(), 2);
    EXPECT_EQ(Property()->Get("DetailRptID").ToInt32(), 128);
  }
};

// A dialog that is confirmed as it stands.
class ConfirmedDialog final : public FilterDialog {
 public:
  explicit ConfirmedDialog(DictionaryRef filter) : filter_(std::move(filter)) {}
  [[nodiscard]] std::string_view Name() const override { return "frmFirter128"; }
  void SetRptID(std::int32_t) override {}
  void Confirm() override {}
  void ShowFinish(std::string_view) override {}
  [[nodiscard]] DictionaryRef Filter() const override { return filter_; }

 private:
  DictionaryRef filter_;
};

TEST_F(Rpt128State, BeginsWithoutAFilterAndWithoutAnError) {
  EXPECT_FALSE(Ok());
  EXPECT_EQ(ResultOf("Error"), Variant(""));
  EXPECT_FALSE(As<Dictionary>(GetMember(Report(), "Result"))->Lookup("ErrorSource"));
  EXPECT_EQ(GetMember(Report(), "Filter").ToObject(), nullptr);
  EXPECT_FALSE(HasRows());
}

TEST_F(Rpt128State, TellsWhatItIsFromTheBeginning) {
  ExpectProperty();
}

TEST_F(Rpt128State, TellsWhatItIsAnewAfterExtFirter) {
  Property()->Set("FrozenColumn", std::int32_t{3});
  LetMember(Report(), "ExtFirter", "166");
  ExpectProperty();
}

TEST_F(Rpt128State, NamesItsSettingsFile) {
  runtime_.ini_file.SetFileName("other.ini");
  Report();
  EXPECT_EQ(runtime_.ini_file.FileName(), "JXCQ7SaleRpt.INI");
}

TEST_F(Rpt128State, TakesTheCodeInUseFromTheSystemProfile) {
  UseShortCode();
  Report();
  EXPECT_FALSE(runtime_.gLongNumber);
  ASSERT_EQ(profile_->CalledMembers(), std::vector<std::string>{"GetProfile"});
  EXPECT_EQ(profile_->Calls()[0].arguments[0].ToText(), kProps);
  EXPECT_EQ(profile_->Calls()[0].arguments[1].ToText(), "IC");
  EXPECT_EQ(profile_->Calls()[0].arguments[2].ToText(), "UseShortNumber");
}

TEST_F(Rpt128State, ReadsTheScaleOnceAtSetUpAndNotAtTheFetch) {
  Report();
  ASSERT_EQ(currency_->Calls().size(), 1U);
  EXPECT_EQ(currency_->Calls()[0].arguments[0].ToText(), kProps);
  EXPECT_EQ(currency_->Calls()[0].arguments[1].ToText(),
            "select  FScale from t_currency where FCurrencyID=1");
  Fetch();
  EXPECT_EQ(currency_->Calls().size(), 1U);
}

TEST_F(Rpt128State, DoesNothingWithoutAFilter) {
  Call(Report(), "GetReportData");
  EXPECT_TRUE(sales_->Calls().empty());
  EXPECT_EQ(toolkit_->shown, 0);
  SetMember(Report(), "Filter", nullptr);
  Call(Report(), "GetReportData");
  EXPECT_TRUE(sales_->Calls().empty());
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "请选择过滤条件！");
}

TEST_F(Rpt128State, ShowsItsTwoTextsInTheProgressDialogAndTakesItAway) {
  Fetch();
  EXPECT_EQ(toolkit_->messages, (std::vector<std::string>{"正在连接服务器", "正在从服务器读取数据..."}));
  EXPECT_EQ(toolkit_->shown, 1);
  EXPECT_EQ(toolkit_->unloaded, 1);
}

TEST_F(Rpt128State, TellsThatItReadsBeforeTheMiddleTierIsAsked) {
  std::vector<std::string> messages;
  on_fetch_ = [&](Arguments) { messages = toolkit_->messages; };
  Fetch();
  EXPECT_EQ(messages, (std::vector<std::string>{"正在连接服务器", "正在从服务器读取数据..."}));
}

TEST_F(Rpt128State, DropsTheEarlierRowsBeforeTheMiddleTierIsAsked) {
  Fetch();
  ASSERT_TRUE(HasRows());
  bool had_rows = true;
  on_fetch_ = [&](Arguments) { had_rows = HasRows(); };
  Fetch();
  EXPECT_FALSE(had_rows);
  EXPECT_TRUE(HasRows());
}

TEST_F(Rpt128State, KeepsTheConditionsOfTheHostWhateverTheMiddleTierLeavesInTheRequest) {
  on_fetch_ = [](Arguments arguments) {
    As<Dictionary>(arguments[1])->Set("BItemNumber", "changed");
    arguments[1] = std::make_shared<Dictionary>();
  };
  const DictionaryRef filter = Conditions({{"BItemNumber", "01"}});
  SetMember(Report(), "Filter", filter);
  Call(Report(), "GetReportData");
  EXPECT_TRUE(Ok()) << Error();
  EXPECT_EQ(GetMember(Report(), "Filter").ToObject(), filter);
  EXPECT_EQ(filter->Get("BItemNumber"), Variant("01"));
}

TEST_F(Rpt128State, TakesAnErrorThatTheRequestCarriesForNoFailure) {
  on_fetch_ = [](Arguments arguments) { As<Dictionary>(arguments[1])->Set("Error", "one line was skipped"); };
  Fetch();
  EXPECT_TRUE(Ok());
  EXPECT_TRUE(HasRows());
}

TEST_F(Rpt128State, KeepsTheEmployeeOfAnEarlierGroupingInItsFill) {
  Fetch(EmployeeGrouping());
  ASSERT_TRUE(FillHasEmployee());
  Fetch();
  EXPECT_TRUE(FillHasEmployee());
  EXPECT_FALSE(FillHasOpenHoles());
}

TEST_F(Rpt128State, SendsTheSameAgainWhereTheEmployeeGroupingIsRepeated) {
  const Request first = Fetch(EmployeeGrouping());
  request_.clear();
  Call(Report(), "Refresh");
  EXPECT_EQ(request_, first);
}

TEST_F(Rpt128State, KeepsTheTableOfAnEarlierOrderInItsUpdates) {
  Fetch({{"OrderBy", "FOutQty"}});
  Fetch();
  EXPECT_TRUE(SameText(request_.at("Append"),
                       Text("{UPDATE}\r\n\r\nDrop Table #DATA2 \r\n", {{"TABLE", "#TemData"}})));
}

TEST_F(Rpt128State, SendsTheSameAgainWhereTheOrderIsRepeated) {
  const Request first = Fetch({{"OrderBy", "FOutQty"}});
  const Request second = Fetch({{"OrderBy", "FOutQty"}});
  EXPECT_EQ(second, first);
}

TEST_F(Rpt128State, KeepsTheItemFilterOfAnEarlierGroupingToItself) {
  Fetch({{"GroupBy", std::int32_t{1}},
         {"SumMode", std::int32_t{2}},
         {"BLevel", std::int32_t{1}},
         {"ELevel", std::int32_t{1}}});
  EXPECT_EQ(request_.at("ITEMFILTER"), " FItemID In (SELECT DISTINCT  FCustID  FROM #DATA2 )");
  Fetch();
  EXPECT_EQ(request_.at("ITEMFILTER"), " FItemID In (SELECT DISTINCT ##ITEMID## FROM #DATA2 )");
}

TEST_F(Rpt128State, BeginsWithCleanTextsAfterExtFirter) {
  Fetch(EmployeeGrouping());
  Fetch({{"OrderBy", "FOutQty"}});
  LetMember(Report(), "ExtFirter", "166");
  Fetch();
  EXPECT_FALSE(FillHasEmployee());
  EXPECT_TRUE(FillHasOpenHoles());
  EXPECT_TRUE(SameText(request_.at("Append"), Text("{UPDATE}\r\n\r\nDrop Table #DATA2 \r\n")));
}

TEST_F(Rpt128State, BeginsWithCleanTextsAfterShowFilter) {
  runtime_.RegisterDialog("frmFirter128", [] {
    const DictionaryRef filter = Conditions({{"OK", true}});
    return std::make_unique<ConfirmedDialog>(filter);
  });
  Fetch(EmployeeGrouping());
  Fetch({{"OrderBy", "FOutQty"}});
  Call(Report(), "ShowFilter", false);
  ASSERT_TRUE(Ok()) << Error();
  request_.clear();
  Call(Report(), "GetReportData");
  EXPECT_FALSE(FillHasEmployee());
  EXPECT_TRUE(FillHasOpenHoles());
  EXPECT_TRUE(SameText(request_.at("Append"), Text("{UPDATE}\r\n\r\nDrop Table #DATA2 \r\n")));
}

TEST_F(Rpt128State, TellsADialogThatGivesNoConditions) {
  runtime_.RegisterDialog("frmFirter128", [] { return std::make_unique<ConfirmedDialog>(nullptr); });
  Call(Report(), "ShowFilter", false);
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "过滤条件有误，请重新过滤！");
}

TEST_F(Rpt128State, ReadsTheScaleAndTheRightsAnewAtExtFirter) {
  Report();
  UseScale("4");
  RestrictCustomers();
  LetMember(Report(), "ExtFirter", "166");
  Fetch();
  const std::string& select = request_.at("SELECT");
  EXPECT_NE(select.find("FOutAmount Decimal(18,4) not null"), std::string::npos);
  EXPECT_EQ(select.find("Decimal(18,2)"), std::string::npos);
  EXPECT_NE(select.find(" And  CharIndex('16394',t2.FRightUserID)>0 "), std::string::npos);
}

TEST_F(Rpt128State, AsksForTheRightsOnCustomersOnlyOnceAtSetUp) {
  Report();
  Fetch();
  ASSERT_EQ(rights_->CalledMembers(), std::vector<std::string>{"GetDataRight"});
  EXPECT_EQ(rights_->Calls()[0].arguments[0].ToText(), kProps);
  EXPECT_EQ(rights_->Calls()[0].arguments[1].ToInt32(), 16394);
  EXPECT_EQ(rights_->Calls()[0].arguments[2].ToInt32(), 1);
}

TEST_F(Rpt128State, WorksOutTheFieldRightsBeforeTheBatchIsBuilt) {
  auto asked = std::make_shared<std::vector<std::string>>();
  rights_->On("GetDataRight", [asked](Arguments) -> Variant {
    asked->push_back("data right");
    return false;
  });
  ledger_->On("AccessCheck", [asked](Arguments arguments) -> Variant {
    asked->push_back("field right " + arguments[2].ToText());
    return true;
  });
  connection_->On("Execute", [asked](Arguments) -> Variant {
    asked->push_back("auxiliary unit");
    return OneField("FValue");
  });
  Report();
  asked->clear();
  Fetch({{"GroupBy", std::int32_t{1}}, {"SumMode", std::int32_t{9}}});
  EXPECT_EQ(*asked,
            (std::vector<std::string>{"field right 4", "field right 16", "data right", "auxiliary unit"}));
}

TEST_F(Rpt128State, LeavesTheTextsOfAnotherReportObjectAlone) {
  Fetch(EmployeeGrouping());
  report_ = nullptr;
  Fetch();
  EXPECT_TRUE(FillHasOpenHoles());
}

}  // namespace
}  // namespace salerpt::testing
