// What the three credit reports have in common: the road of a fetch, the columns of the credit class, the
// object that lives.
#include <gtest/gtest.h>

#include "tests/reports/rpt149_world.h"

namespace salerpt::testing {
namespace {

class CreditReport : public CreditWorld, public ::testing::WithParamInterface<CreditClass> {
 protected:
  CreditReport() : CreditWorld(GetParam()) {}
};
INSTANTIATE_TEST_SUITE_P(Of, CreditReport, ::testing::Values(kCreditByQuantity, kCreditByAmount, kCreditTerm),
                         [](const auto& param_info) { return std::string(param_info.param.name); });

// --- The road of a fetch

TEST_P(CreditReport, AsksTheCreditObjectWithItsConditionsAndAnEmptyAnswer) {
  Fetch();
  ASSERT_EQ(credit_->CalledMembers(), Lines{credit_class_.operation});
  const std::vector<Variant>& arguments = credit_->Calls()[0].arguments;
  ASSERT_EQ(arguments.size(), 2U);
  EXPECT_EQ(arguments[0].ToObject(), ObjectRef(Filter())) << "the conditions themselves";
  EXPECT_NE(arguments[1].ToObject(), arguments[0].ToObject());
  EXPECT_EQ(keys_of_the_answer_, 0U);
}

TEST_P(CreditReport, TellsTheCreditObjectTheLoginAndTheUser) {
  Fetch();
  EXPECT_EQ(SortedKeys(*asked_with_), KeysWith({"UserID", "sDsN"}));
  EXPECT_EQ(asked_with_->Get("sDsN"), Variant(kProps));
  EXPECT_TRUE(asked_with_->Get("UserID").IsNumber());
  EXPECT_EQ(asked_with_->Get("UserID").ToInt32(), 16394);
}

TEST_P(CreditReport, WritesTheLoginOverTheOneThatTheHostSet) {
  Fetch({{"sDsN", "UserID=1;"}, {"UserID", std::int32_t{1}}});
  EXPECT_EQ(asked_with_->Get("sDsN"), Variant(kProps));
  EXPECT_EQ(asked_with_->Get("UserID").ToInt32(), 16394);
  EXPECT_EQ(sales_->Calls().at(0).arguments[0], Variant(kProps));
}

TEST_P(CreditReport, HandsEveryConditionOfTheHostOn) {
  Fetch({{"CreditType", std::int32_t{3}}, {"CreditObj", std::int32_t{2}}, {"FGroupID", std::int32_t{1}}});
  EXPECT_EQ(asked_with_->Get("CreditType").ToInt32(), 3);
  EXPECT_EQ(asked_with_->Get("CreditObj").ToInt32(), 2);
  EXPECT_EQ(asked_with_->Get("FGroupID").ToInt32(), 1);
  EXPECT_EQ(asked_with_->Get("CreditTypeName"), Variant("销售订单"));
}

TEST_P(CreditReport, RunsTheStatementThroughAnotherObject) {
  Fetch();
  ASSERT_EQ(sales_->CalledMembers(), Lines{"GetData"});
  const std::vector<Variant>& arguments = sales_->Calls()[0].arguments;
  EXPECT_EQ(arguments, (std::vector<Variant>{kProps, kStatement}));
  EXPECT_EQ(Rs(), rows_);
}

TEST_P(CreditReport, SendsTheStatementTrimmed) {
  statement_ = std::string("   SELECT 1 AS FName  ");
  Fetch();
  EXPECT_EQ(sales_->Calls().at(0).arguments.at(1), Variant("SELECT 1 AS FName"));
}

TEST_P(CreditReport, WritesTheCodeInUseAndItsNumberBeforeItReadsRows) {
  Fetch();
  EXPECT_EQ(keys_at_rows_, KeysWith({"RptID", "UserID", "bLongNumber", "sDsN"}));
  EXPECT_EQ(filter_at_rows_->Get("bLongNumber"), Variant(true));
  EXPECT_TRUE(filter_at_rows_->Get("RptID").IsNumber());
  EXPECT_EQ(filter_at_rows_->Get("RptID").ToInt32(), 145) << "one plan family for all three";
}

TEST_P(CreditReport, TellsThatTheShortCodeIsInUse) {
  UseShortCode();
  Fetch();
  EXPECT_EQ(filter_at_rows_->Get("bLongNumber"), Variant(false));
}

TEST_P(CreditReport, WritesTheNumberOfThePlanFamilyThatTheHostChose) {
  LetMember(Report(), "ExtFirter", "149");
  Fetch();
  EXPECT_EQ(filter_at_rows_->Get("RptID").ToInt32(), 149);
}

TEST_P(CreditReport, TakesTheConditionsThatTheCreditObjectLeaves) {
  const auto other = std::make_shared<Dictionary>(Entries{{"Own", std::int32_t{1}}});
  on_credit_ = [&](Arguments arguments) { arguments[0] = other; };
  Fetch();
  EXPECT_EQ(ObjectRef(Filter()), other);
  EXPECT_EQ(filter_at_rows_, other);
  EXPECT_EQ(other->Get("bLongNumber"), Variant(true));
  EXPECT_EQ(other->Get("RptID").ToInt32(), 145);
  EXPECT_EQ(sales_->Calls().at(0).arguments[0], Variant(kProps)) << "the login was read before";
}

TEST_P(CreditReport, ReadsTheAnswerThatTheCreditObjectPutsInPlaceOfItsOwn) {
  on_credit_ = [](Arguments arguments) {
    arguments[1] = std::make_shared<Dictionary>(Entries{{"Sql", "SELECT 2"}});
  };
  Fetch();
  EXPECT_EQ(sales_->Calls().at(0).arguments.at(1), Variant("SELECT 2"));
}

TEST_P(CreditReport, AsksForNoRightOfTheUser) {
  Fetch();
  EXPECT_TRUE(rights_->Calls().empty());
  EXPECT_TRUE(ledger_->Calls().empty());
}

TEST_P(CreditReport, ShowsItsTextsInTheProgressDialogAndTakesItAway) {
  Fetch();
  EXPECT_EQ(progress_at_credit_, Lines{"正在连接服务器"});
  EXPECT_EQ(progress_at_rows_, (Lines{"正在连接服务器", "正在从服务器读取数据..."}));
  EXPECT_EQ(toolkit_->messages, progress_at_rows_);
  EXPECT_EQ(toolkit_->shown, 1);
  EXPECT_EQ(toolkit_->unloaded, 1);
  EXPECT_TRUE(toolkit_->boxes.empty());
}

TEST_P(CreditReport, FetchesAnewAtARefreshAndKeepsTheTitle) {
  Fetch();
  const ObjectRef title = GetMember(Report(), "Title").ToObject();
  const ObjectRef header = GetMember(Report(), "Header").ToObject();
  const Lines columns = HeaderLines();
  const ObjectRef answered = answered_in_;
  rows_ = MakeRecordset();
  Call(Report(), "Refresh");
  EXPECT_TRUE(Ok()) << Error();
  EXPECT_EQ(Rs(), rows_);
  EXPECT_NE(ObjectRef(answered_in_), answered);
  EXPECT_EQ(keys_of_the_answer_, 0U);
  EXPECT_EQ(GetMember(Report(), "Title").ToObject(), title);
  EXPECT_NE(GetMember(Report(), "Header").ToObject(), header);
  EXPECT_EQ(HeaderLines(), columns) << "replaced, not added to";
  EXPECT_EQ(asked_with_->Get("sDsN"), Variant(kProps));
}

TEST_P(CreditReport, SendsNothingOfAnEarlierFetchThatTheHostDidNotSet) {
  Fetch({{"FItemIDFrom", "01"}});
  Fetch();
  EXPECT_EQ(SortedKeys(*asked_with_), KeysWith({"UserID", "sDsN"}));
  EXPECT_EQ(asked_with_->Get("FItemIDFrom"), Variant(""));
}

// --- Columns and title of the credit class

TEST_P(CreditReport, NamesItsFirstTwoColumnsByTheCreditClass) {
  using Pair = std::pair<std::string, std::string>;
  EXPECT_EQ(ClassColumns(0), (Pair{"客户代码$||1|FNumber|1", "客户名称$||1|FName|1"}));
  EXPECT_EQ(ClassColumns(1), (Pair{"业务员代码$||1|FNumber|1", "业务员名称$||1|FName|1"}));
  EXPECT_EQ(ClassColumns(2), (Pair{"部门代码$||1|FNumber|1", "部门名称$||1|FName|1"}));
  EXPECT_EQ(ClassColumns(3), (Pair{"客户类别代码$||1|FNumber|1", "客户类别名称$||1|FName|1"}));
  EXPECT_EQ(ClassColumns(4), (Pair{"业务员类别代码$||1|FNumber|1", "业务员类别名称$||1|FName|1"}));
  EXPECT_EQ(ClassColumns("4"), ClassColumns(4)) << "a number as text";
}

TEST_P(CreditReport, ChangesNoColumnButTheFirstTwoWithTheCreditClass) {
  Fetch();
  Lines expected = HeaderLines();
  expected.erase(expected.begin(), expected.begin() + 2);
  for (const std::int32_t credit_class : {1, 2, 3, 4, 5}) {
    Fetch({{"FCreditClass", credit_class}});
    Lines columns = HeaderLines();
    ASSERT_EQ(columns.size(), expected.size() + 2);
    columns.erase(columns.begin(), columns.begin() + 2);
    EXPECT_EQ(columns, expected) << credit_class;
  }
}

TEST_P(CreditReport, LeavesTwoCaptionsEmptyForACreditClassThatIsNone) {
  for (const std::int32_t credit_class : {-1, 5, 99}) {
    EXPECT_EQ(ClassColumns(credit_class),
              (std::pair<std::string, std::string>{"||1|FNumber|1", "||1|FName|1"}))
        << credit_class;
    EXPECT_EQ(Rs(), rows_) << "the rest runs";
    EXPECT_FALSE(TitleLines().empty());
  }
}

TEST_P(CreditReport, TakesAnAbsentCreditClassForCustomers) {
  const auto filter = std::make_shared<Dictionary>(Entries{{"CreditTypeName", "销售订单"}});
  SetMember(Report(), "Filter", filter);
  Call(Report(), "GetReportData");
  EXPECT_TRUE(Ok()) << Error();
  ASSERT_GT(HeaderLines().size(), 2U);
  EXPECT_EQ(HeaderLines()[0], "客户代码$||1|FNumber|1");
  EXPECT_EQ(HeaderLines()[1], "客户名称$||1|FName|1");
}

TEST_P(CreditReport, NamesTheRangeInTheTitleByTheCreditClass) {
  const struct {
    std::int32_t credit_class;
    const char* all;
    const char* range;
  } ranges[] = {{0, "客户代码范围：所有客户", "客户代码范围: 01 -- 09"},
                {1, "业务员代码范围：所有业务员", "业务员代码范围: 01 -- 09"},
                {2, "部门代码范围：所有部门", "部门代码范围: 01 -- 09"},
                {3, "客户类别范围：所有客户类别", "客户类别范围: 01 -- 09"},
                {4, "业务员类别范围：业务员类别", "业务员类别范围: 01 -- 09"}};
  for (const auto& [credit_class, all, range] : ranges) {
    const auto has_line = [this](const char* text) {
      const TitleList lines = TitleLines();
      return std::any_of(lines.begin(), lines.end(), [&](const auto& line) { return line.first == text; });
    };
    Fetch({{"FCreditClass", credit_class}});
    EXPECT_TRUE(has_line(all)) << all;
    Fetch({{"FCreditClass", credit_class}, {"FItemIDFrom", "01"}, {"FItemIDTo", "09"}});
    EXPECT_TRUE(has_line(range)) << range;
  }
}

TEST_P(CreditReport, WritesFiveKeysForEachColumn) {
  Fetch();
  const auto header = As<Vector>(GetMember(Report(), "Header"));
  ASSERT_GT(header->Size(), 0);
  for (std::int32_t i = 1; i <= header->Size(); ++i) {
    const auto column = As<Dictionary>(header->Item(i));
    Lines keys;
    for (const auto& entry : column->Entries()) {
      keys.push_back(entry.key);
      EXPECT_EQ(entry.value.GetKind(), entry.key == "FVisible" ? Variant::Kind::kInt16 : Variant::Kind::kText)
          << entry.key << " of column " << i;
    }
    EXPECT_EQ(keys, (Lines{"FColCaption", "FHeadSecond", "FColType", "FColName", "FVisible"}));
  }
}

// --- The object

TEST_P(CreditReport, BeginsWithoutAFilterAndWithoutAnError) {
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "");
  EXPECT_EQ(ObjectRef(Filter()), nullptr);
  EXPECT_FALSE(HasRows());
}

TEST_P(CreditReport, TellsWhatItIs) {
  const auto property = As<Dictionary>(GetMember(Report(), "Property"));
  EXPECT_EQ(SortedKeys(*property), (Lines{"Name", "RptProperty"}));
  EXPECT_EQ(property->Get("Name").ToText(), credit_class_.title);
  EXPECT_EQ(property->Get("RptProperty").ToInt32(), 1);
}

TEST_P(CreditReport, HasItsMembersInTheirOrder) {
  EXPECT_EQ(NamesOfMembers(),
            (Lines{"RptID", "RptID", "PackMenuInfo", "Filter", "Filter", "ExtFirter", "Property", "Result",
                   "Header", "Title", "Rs", "Refresh", "ShowFilter", "GetReportData", "GetRptList"}));
}

TEST_P(CreditReport, ChoosesItsSettingsFile) {
  runtime_.ini_file.SetFileName("other.ini");
  Report();
  EXPECT_EQ(runtime_.ini_file.FileName(), "JXCQ7SaleRpt.INI");
}

TEST_P(CreditReport, OpensItsDialogWithoutAPlanAndWithoutALog) {
  Lines steps;
  const DictionaryRef filter = Conditions({{"OK", true}});
  runtime_.RegisterDialog(credit_class_.dialog, [&] {
    return std::make_unique<CreditDialog>(credit_class_.dialog, steps, filter);
  });
  Call(Report(), "ShowFilter", true);
  EXPECT_EQ(steps, (Lines{"family 145", "confirmed"}));
  EXPECT_TRUE(Ok());
  EXPECT_EQ(Filter(), filter);
  EXPECT_TRUE(ledger_->Calls().empty());
}

TEST_P(CreditReport, EndsInTheResultWhenTheHostFetchesOutsideOfTheDialog) {
  Fetch();
  Variant rows;
  EXPECT_NO_THROW(rows = Call(Report(), "GetRptList"));
  EXPECT_EQ(rows.ToObject(), nullptr);
  EXPECT_FALSE(Ok());
  EXPECT_FALSE(HasRows());
}

TEST_P(CreditReport, DoesNothingWithoutAFilter) {
  SetMember(Report(), "Filter", nullptr);
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "请选择过滤条件！");
  Call(Report(), "GetReportData");
  EXPECT_EQ(Error(), "请选择过滤条件！");
  EXPECT_TRUE(credit_->Calls().empty());
  EXPECT_EQ(toolkit_->shown, 0);
}

TEST_P(CreditReport, CallsABadFilterByItsNameAtARefresh) {
  SetMember(Report(), "Filter", nullptr);
  EXPECT_NO_THROW(Call(Report(), "Refresh"));
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "过滤条件有误，请重新过滤！");
  EXPECT_TRUE(credit_->Calls().empty());
  EXPECT_TRUE(sales_->Calls().empty());
  EXPECT_EQ(toolkit_->shown, toolkit_->unloaded);
}

TEST_P(CreditReport, TellsThatADialogGaveNoConditions) {
  Lines steps;
  runtime_.RegisterDialog(credit_class_.dialog, [&] {
    return std::make_unique<CreditDialog>(credit_class_.dialog, steps, nullptr);
  });
  Call(Report(), "ShowFilter", false);
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "过滤条件有误，请重新过滤！");
}

}  // namespace
}  // namespace salerpt::testing
