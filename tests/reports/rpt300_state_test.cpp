// The statistics of virtual items as an object that lives: its columns and title lines, its dialog, and each
// call that it makes failing once.
#include <gtest/gtest.h>

#include <algorithm>

#include "runtime/error.h"
#include "runtime/report.h"
#include "tests/reports/rpt300_world.h"

namespace salerpt::testing {
namespace {

using Lines = std::vector<std::string>;

const RuntimeError kServerDown(-2147467259, "Server", "the server is not there");

// A dialog that is confirmed as it stands; the report asks nothing else of it.
class ConfirmedDialog final : public FilterDialog {
 public:
  ConfirmedDialog(Lines& steps, DictionaryRef filter) : steps_(steps), filter_(std::move(filter)) {}
  [[nodiscard]] std::string_view Name() const override { return "frmFirter300"; }
  void SetRptID(std::int32_t family) override { steps_.push_back("family " + std::to_string(family)); }
  void SetStatus(std::int32_t, bool) override { steps_.emplace_back("status"); }
  void Confirm() override { steps_.emplace_back("confirmed"); }
  void ShowFinish(std::string_view) override { steps_.emplace_back("plan"); }
  [[nodiscard]] DictionaryRef Filter() const override { return filter_; }

 private:
  Lines& steps_;
  DictionaryRef filter_;
};

Lines ListColumns() {
  return {"日期$||0|FDate|1|0",
          "客户代码$||1|FCustNumber|1|0",
          "客户名称$||1|FCustName|1|0",
          "订单编号$||1|FBillNo|1|0",
          "产品代码$||1|FNumber|1|0",
          "产品名称$||1|FName|1|0",
          "子物料名称$||1|FChildName|1|0",
          "规格型号$||1|FModel|1|0",
          "单位(基本)$||1|FUnitName|1|0",
          "签订数量(基本)$||2|FSaleQty|1|0",
          "子物料签订数量(基本)$||2|FChildSaleQty|1|0",
          "签订金额$||40|FSaleAmount|1|0",
          "子物料签订金额$||40|FChildSaleAmount|1|0",
          "发货数量(基本)$||2|FCommitQty|1|0",
          "发货差额(基本)$||2|FDiffQty|1|0",
          "单位(常用)$||1|FCUUnitName|1|0",
          "签订数量(常用)$||2|FCUUnitSaleQty|1|0",
          "子物料签订数量(常用)$||2|FCUUnitChildSaleQty|1|0",
          "发货数量(常用)$||2|FCUUnitCommitQty|1|0",
          "发货差额(常用)$||2|FCUUnitDiffQty|1|0"};
}

class Rpt300Header : public Rpt300World {
 protected:
  void ExpectGroupColumns(std::int32_t mode, const Lines& groups, const DictionaryRef& property) {
    SCOPED_TRACE(mode);
    Lines expected = groups;
    for (const std::string& line : ListColumns()) expected.push_back(line);
    FetchLevels(mode, 2, 3, {{"SumField", property}});
    EXPECT_EQ(HeaderLines(), expected);
  }
};

using Rpt300Title = Rpt300World;
using Rpt300State = Rpt300World;

class Rpt300Failure : public Rpt300World {
 protected:
  void ExpectFailed(const char* error, const char* source) {
    EXPECT_FALSE(Ok());
    EXPECT_EQ(Error(), error);
    EXPECT_EQ(ErrorSource(), source);
    EXPECT_FALSE(HasRows());
    EXPECT_GT(toolkit_->shown, 0);
    EXPECT_EQ(toolkit_->shown, toolkit_->unloaded);
  }
  void ExpectServerDown() { ExpectFailed("the server is not there", "Server"); }
};

TEST_F(Rpt300Header, GivesTheColumnsOfTheList) {
  Fetch();
  EXPECT_EQ(HeaderLines(), ListColumns());
}

TEST_F(Rpt300Header, ShowsTheShortCodeWhereThatIsInUse) {
  UseShortCode();
  Fetch();
  EXPECT_EQ(HeaderLines()[4], "产品代码$||1|FShortNumber|1|0");
}

TEST_F(Rpt300Header, HidesAmountsByForceWithoutTheirRight) {
  ledger_->Gives("AccessCheck", false);
  Fetch();
  Lines expected = ListColumns();
  expected[11].back() = '1';
  expected[12].back() = '1';
  EXPECT_EQ(HeaderLines(), expected);
}

TEST_F(Rpt300Header, AsksForTheRightOnAmounts) {
  Fetch();
  std::vector<std::vector<int>> asked;
  for (const RecordedCall& call : ledger_->Calls()) {
    if (!EqualNames(call.member, "AccessCheck")) continue;
    asked.emplace_back();
    for (const Variant& argument : call.arguments) asked.back().push_back(argument.ToInt32());
  }
  EXPECT_EQ(asked, (std::vector<std::vector<int>>{{1008, 6, 4}}));
}

TEST_F(Rpt300Header, HidesWhatDescribesAnItemWhereTotalsOnlyAreShown) {
  FetchLevels(1, 1, 1, {{"OnlyShowSum", kYes}});
  std::vector<std::string> hidden;
  for (const std::string& line : HeaderLines()) {
    if (line.ends_with("|0|0")) hidden.push_back(line.substr(0, line.find('|')));
  }
  for (const char* caption : {"产品代码$", "产品名称$", "规格型号$", "单位(基本)$", "单位(常用)$"}) {
    EXPECT_NE(std::ranges::find(hidden, caption), hidden.end()) << caption;
  }
  for (const char* caption : {"日期$", "客户代码$", "客户名称$", "订单编号$", "签订数量(基本)$"}) {
    EXPECT_EQ(std::ranges::find(hidden, caption), hidden.end()) << caption;
  }
}

TEST_F(Rpt300Header, PutsTheGroupingFirst) {
  const DictionaryRef none = SumField("", 1, "");
  ExpectGroupColumns(1, {"2级物料类别$||1|FName2|1|0", "3级物料类别$||1|FName3|1|0"}, none);
  ExpectGroupColumns(2, {"2级客户类别$||1|FName2|1|0", "3级客户类别$||1|FName3|1|0"}, none);
  ExpectGroupColumns(
      4, {"客户$||1|FCustName|1|0", "2级物料类别$||1|FName2|1|0", "3级物料类别$||1|FName3|1|0"}, none);
  for (const std::int32_t mode : {0, 3, 5, 99}) {
    ExpectGroupColumns(
        mode, {"2级物料类别$||1|FName2|1|0", "3级物料类别$||1|FName3|1|0", "客户$||1|FCustName|1|0"}, none);
    ExpectGroupColumns(mode, {"区域$||1|FProp71|1|0"}, SumField("区域", 1, "FRegionID"));
  }
}

TEST_F(Rpt300Title, TellsDatesItemsAndCustomersFirst) {
  Fetch();
  auto lines = TitleLines();
  ASSERT_GE(lines.size(), 4U);
  lines.resize(4);
  EXPECT_EQ(lines, (std::vector<std::pair<std::string, int>>{{"起始日期：2003-01-01", 0},
                                                             {"截止日期：2003-03-31", 1},
                                                             {"产品代码范围：所有产品", 2},
                                                             {"客户代码范围：所有客户", 3}}));
  Fetch({{"BItemNumber", "01"}, {"EItemNumber", "09"}, {"BCustNumber", "02"}, {"ECustNumber", "03"}});
  EXPECT_EQ(TitleLines()[2].first, "产品代码范围：01  --  09");
  EXPECT_EQ(TitleLines()[3].first, "客户代码范围: 02 -- 03");
}

TEST_F(Rpt300Title, TellsWhatIsGroupedByLast) {
  FetchLevels(1, 2, 3, {{"SumName", "物料类别"}});
  EXPECT_EQ(TitleLines().back().first, "汇总依据：2--3级物料类别");
  FetchLevels(4, 2, 3);
  EXPECT_EQ(TitleLines().back().first, "汇总依据：客户+2--3级物料类别");
  FetchBy(SumField("区域", 1, "FRegionID"));
  EXPECT_EQ(TitleLines().back().first, "汇总依据：区域");
}

TEST_F(Rpt300State, TellsWhatItIs) {
  const auto property = As<Dictionary>(GetMember(Report(), "Property"));
  EXPECT_EQ(property->Entries().size(), 2U);
  EXPECT_EQ(property->Get("Name").ToText(), "虚拟物料订单统计表");
  EXPECT_EQ(property->Get("RptProperty").ToInt32(), 1);
}

TEST_F(Rpt300State, NamesItsSettingsFile) {
  runtime_.ini_file.SetFileName("other.ini");
  Report();
  EXPECT_EQ(runtime_.ini_file.FileName(), "JXCQ7SaleRpt.INI");
}

TEST_F(Rpt300State, HasItsMembersInTheirOrder) {
  const auto report = std::dynamic_pointer_cast<salerpt::Report>(Report());
  ASSERT_NE(report, nullptr);
  Lines names;
  for (const auto& member : report->Members()) names.emplace_back(member.name);
  EXPECT_EQ(names, (Lines{"RptID", "RptID", "ExtFirter", "Title", "Filter", "Filter", "Property", "Result",
                          "Header", "Rs", "ShowFilter", "Refresh", "GetReportData"}));
}

TEST_F(Rpt300State, OpensItsDialogWithoutAPlanAndWithoutALog) {
  Lines steps;
  const DictionaryRef filter = Conditions({{"OK", true}});
  runtime_.RegisterDialog("frmFirter300", [&] { return std::make_unique<ConfirmedDialog>(steps, filter); });
  Call(Report(), "ShowFilter", true);
  EXPECT_EQ(steps, (Lines{"family 300", "confirmed"}));
  EXPECT_TRUE(Ok());
  EXPECT_EQ(GetMember(Report(), "Filter").ToObject(), filter);
  EXPECT_TRUE(ledger_->Calls().empty());
}

TEST_F(Rpt300State, ShowsItsTwoTextsInTheProgressDialogAndTakesItAway) {
  Fetch();
  EXPECT_EQ(toolkit_->messages, (Lines{"正在连接服务器", "正在从服务器读取数据..."}));
  EXPECT_EQ(toolkit_->shown, 1);
  EXPECT_EQ(toolkit_->unloaded, 1);
}

TEST_F(Rpt300State, SendsTheSameAgainWhereAFetchIsRepeated) {
  for (const std::int32_t mode : {1, 2, 3, 4, 5}) {
    FetchLevels(mode, 1, 2);
    const Request first = request_;
    Call(Report(), "Refresh");
    EXPECT_EQ(request_, first) << "mode " << mode;
  }
  const Request plain = Fetch();
  FetchBy(SumField("区域", 1, "FRegionID"));
  EXPECT_EQ(Fetch(), plain);
}

TEST_F(Rpt300State, KeepsTheConditionsOfTheHostWhateverTheMiddleTierLeavesInTheRequest) {
  on_fetch_ = [](Arguments arguments) { arguments[1] = std::make_shared<Dictionary>(); };
  const DictionaryRef filter = Conditions();
  SetMember(Report(), "Filter", filter);
  Call(Report(), "GetReportData");
  EXPECT_TRUE(Ok()) << Error();
  EXPECT_EQ(GetMember(Report(), "Filter").ToObject(), filter);
}

TEST_F(Rpt300State, DoesNothingWithoutAFilter) {
  SetMember(Report(), "Filter", nullptr);
  Call(Report(), "GetReportData");
  EXPECT_TRUE(sales_->Calls().empty());
  EXPECT_EQ(Error(), "请选择过滤条件！");
}

TEST_F(Rpt300Failure, OfTheRequestIsToldByTheErrorThatComesBackInIt) {
  on_fetch_ = [](Arguments arguments) {
    As<Dictionary>(arguments[1])->Set("Error", "the batch was refused");
  };
  Run();
  ExpectFailed("the batch was refused", "");
}

TEST_F(Rpt300Failure, OfTheDataRightNeverLetsAFetchThroughAndIsMendedByTheNext) {
  rights_->Raises("GetDataRight", kServerDown);
  Run();
  ExpectServerDown();
  EXPECT_TRUE(sales_->Calls().empty());
  RestrictCustomers();
  Fetch();
  EXPECT_EQ(Sent("DataRightWhere"), " CharIndex('16394',v1.FRightUserID)>0 ");
}

TEST_F(Rpt300Failure, OfTheSystemProfileMeansTheLongCode) {
  profile_->Raises("GetProfile", kServerDown);
  Fetch();
  EXPECT_EQ(SentValue("bLongNumber"), Variant(true));
}

TEST_F(Rpt300Failure, OfTheLoginEndsTheFetch) {
  Report();
  host_->Raises("PropsString", kServerDown);
  Run();
  ExpectServerDown();
}

TEST_F(Rpt300Failure, OfTheFieldRightEndsTheFetch) {
  ledger_->Raises("AccessCheck", kServerDown);
  Run();
  ExpectServerDown();
}

TEST_F(Rpt300Failure, OfTheMiddleTierEndsTheFetchWithItsWordsAndDropsTheRows) {
  Fetch();
  ASSERT_TRUE(HasRows());
  sales_->Raises("GetRpt300Data", kServerDown);
  Run();
  ExpectServerDown();
  AnswerFetch();
  Fetch();
  EXPECT_TRUE(HasRows());
}

TEST_F(Rpt300Failure, OfRefreshIsToldByResultToo) {
  Fetch();
  sales_->Raises("GetRpt300Data", kServerDown);
  Call(Report(), "Refresh");
  ExpectServerDown();
}

TEST_F(Rpt300Failure, OfTheObjectMakerEndsTheFetch) {
  for (const char* prog_id : {"ORVMSaleRpt.Data", "ORVEBCGLView.GLData"}) {
    Report();
    runtime_.Register(prog_id, []() -> ObjectRef {
      throw RuntimeError(error_number::kObjectMaker, "Maker", "there is no such object");
    });
    runtime_.gl_data = nullptr;
    Run();
    ExpectFailed("there is no such object", "Maker");
  }
}

TEST_F(Rpt300Failure, OfAConditionThatIsNoNumberIsToldByResult) {
  for (const char* key : {"SaleType", "OrderType"}) {
    Run({{key, "2 Or 1=1"}});
    EXPECT_FALSE(Ok()) << key;
    EXPECT_NE(Error(), "") << key;
    EXPECT_TRUE(sales_->Calls().empty()) << key;
  }
}

}  // namespace
}  // namespace salerpt::testing
