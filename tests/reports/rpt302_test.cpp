// The list of fee invoices: what it sends, columns, title, and each call failing once.
#include <gtest/gtest.h>

#include "runtime/error.h"
#include "runtime/report.h"
#include "tests/reports/report_world.h"

namespace salerpt::testing {
namespace {

using Lines = std::vector<std::string>;
using TitleList = std::vector<std::pair<std::string, int>>;

const RuntimeError kServerDown(-2147467259, "Server", "the server is not there");

// A dialog that is confirmed as it stands; the report asks nothing else of it.
class ConfirmedDialog final : public FilterDialog {
 public:
  ConfirmedDialog(std::vector<std::string>& steps, DictionaryRef filter)
      : steps_(steps), filter_(std::move(filter)) {}
  [[nodiscard]] std::string_view Name() const override { return "frmFirter302"; }
  void SetRptID(std::int32_t family) override { steps_.push_back("family " + std::to_string(family)); }
  void SetStatus(std::int32_t, bool) override { steps_.emplace_back("status"); }
  void Confirm() override { steps_.emplace_back("confirmed"); }
  void ShowFinish(std::string_view) override { steps_.emplace_back("plan"); }
  [[nodiscard]] DictionaryRef Filter() const override { return filter_; }

 private:
  std::vector<std::string>& steps_;
  DictionaryRef filter_;
};

class Rpt302Test : public ReportWorld {
 protected:
  Rpt302Test() : ReportWorld("Rpt302", "GetRpt302Data", 1) {
    on_fetch_ = [this](Arguments arguments) {
      sent_.clear();
      const auto conditions = As<Dictionary>(arguments[1]);
      for (const auto& entry : conditions->Entries()) sent_.insert_or_assign(entry.key, entry.value);
    };
  }
  // The report sends no texts.
  [[nodiscard]] const Pieces& Texts() const override {
    static const Pieces none;
    return none;
  }
  static DictionaryRef Invoices(Entries more = {}) {
    auto filter = std::make_shared<Dictionary>(Entries{{"BDate", Date::FromYmd(2003, 1, 1)},
                                                       {"EDate", Date::FromYmd(2003, 3, 31)},
                                                       {"BFeeNumber", ""},
                                                       {"EFeeNumber", ""},
                                                       {"BCust", ""},
                                                       {"ECust", ""},
                                                       {"BSupply", ""},
                                                       {"ESupply", ""},
                                                       {"CheckState", std::int32_t{0}},
                                                       {"HookStatus", std::int32_t{2}},
                                                       {"OrderBy", "FBillNo"},
                                                       {"InvoiceStyle", std::int32_t{0}}});
    for (const Dictionary::Entry& entry : more) filter->Set(entry.key, entry.value);
    return filter;
  }
  void RunInvoices(Entries more = {}) {
    SetMember(Report(), "Filter", Invoices(more));
    Call(Report(), "GetReportData");
  }
  void FetchInvoices(Entries more = {}) {
    RunInvoices(more);
    EXPECT_TRUE(Ok()) << Error();
  }
  void ExpectServerDown() {
    EXPECT_FALSE(Ok());
    EXPECT_EQ(Error(), "the server is not there");
    EXPECT_EQ(ErrorSource(), "Server");
    EXPECT_FALSE(HasRows());
    EXPECT_GT(toolkit_->shown, 0);
    EXPECT_EQ(toolkit_->shown, toolkit_->unloaded);
  }

  // The conditions as the middle tier got them.
  std::map<std::string, Variant> sent_;
};

using Rpt302Title = Rpt302Test;
using Rpt302Failure = Rpt302Test;

TEST_F(Rpt302Test, TellsWhatItIs) {
  const auto property = As<Dictionary>(GetMember(Report(), "Property"));
  EXPECT_EQ(property->Entries().size(), 2U);
  EXPECT_EQ(property->Get("Name").ToText(), "销售费用发票明细表");
  EXPECT_EQ(property->Get("RptProperty").ToInt32(), 1);
}

TEST_F(Rpt302Test, HasItsMembersInTheirOrder) {
  const auto report = std::dynamic_pointer_cast<salerpt::Report>(Report());
  ASSERT_NE(report, nullptr);
  Lines names;
  const auto members = report->Members();
  for (const auto& member : members) names.emplace_back(member.name);
  EXPECT_EQ(names, (Lines{"RptID", "RptID", "Filter", "Filter", "ExtFirter", "Title", "Property", "Result",
                          "Header", "Rs", "ShowFilter", "Refresh", "GetReportData"}));
}

TEST_F(Rpt302Test, OpensItsDialogWithoutAPlanAndWithoutALog) {
  std::vector<std::string> steps;
  const DictionaryRef filter = Invoices({{"OK", true}});
  runtime_.RegisterDialog("frmFirter302", [&] { return std::make_unique<ConfirmedDialog>(steps, filter); });
  runtime_.ini_file.SetFileName("other.ini");
  Call(Report(), "ShowFilter", true);
  EXPECT_EQ(steps, (Lines{"family 302", "confirmed"}));
  EXPECT_TRUE(Ok());
  Call(Report(), "GetReportData");
  EXPECT_TRUE(Ok()) << Error();
  EXPECT_TRUE(ledger_->Calls().empty());
  EXPECT_EQ(runtime_.ini_file.FileName(), "other.ini");
}

TEST_F(Rpt302Test, SendsTheConditionsThemselvesAndTakesTheRows) {
  FetchInvoices({{"BFeeNumber", "11"}, {"InvoiceStyle", std::int32_t{1}}});
  ASSERT_EQ(sales_->CalledMembers(), Lines{"GetRpt302Data"});
  const std::vector<Variant>& arguments = sales_->Calls()[0].arguments;
  ASSERT_EQ(arguments.size(), 2U);
  EXPECT_EQ(arguments[0].ToText(), kProps);
  EXPECT_EQ(arguments[1].ToObject(), GetMember(Report(), "Filter").ToObject());
  EXPECT_EQ(sent_["BFeeNumber"], Variant("11"));
  EXPECT_EQ(sent_["InvoiceStyle"].ToInt32(), 1);
  EXPECT_EQ(sent_["HookStatus"].ToInt32(), 2);
  EXPECT_EQ(sent_["BDate"], Variant(Date::FromYmd(2003, 1, 1)));
  EXPECT_EQ(GetMember(Report(), "Rs").ToObject(), rows_);
  EXPECT_EQ(Error(), "");
}

TEST_F(Rpt302Test, SendsOpenRightsAndTheCodeInUse) {
  FetchInvoices();
  for (const char* key :
       {"DataRightFromSupply", "DataRightWhereSupply", "DataRightFromOrg", "DataRightWhereOrg"}) {
    EXPECT_EQ(sent_.count(key), 1U) << key;
    EXPECT_EQ(sent_[key], Variant("")) << key;
  }
  EXPECT_EQ(sent_["bLongNumber"], Variant(true));
  report_ = nullptr;
  UseShortCode();
  FetchInvoices();
  EXPECT_EQ(sent_["bLongNumber"], Variant(false));
}

TEST_F(Rpt302Test, RestrictsSuppliersAndCustomersByTheirOwnTables) {
  RestrictCustomers();
  FetchInvoices();
  EXPECT_EQ(sent_["DataRightWhereSupply"], Variant(" CharIndex('16394',T8.FRightUserID)>0 "));
  EXPECT_EQ(sent_["DataRightWhereOrg"], Variant(" CharIndex('16394',T7.FRightUserID)>0 "));
  std::vector<int> kinds;
  for (const RecordedCall& call : rights_->Calls()) kinds.push_back(call.arguments[2].ToInt32());
  EXPECT_EQ(kinds, (std::vector<int>{2, 1}));
}

TEST_F(Rpt302Test, RestrictsOneSideAlone) {
  for (const std::int32_t kind : {1, 2}) {
    report_ = nullptr;
    rights_->On("GetDataRight",
                [kind](Arguments arguments) -> Variant { return arguments[2].ToInt32() == kind; });
    FetchInvoices();
    EXPECT_EQ(sent_["DataRightWhereSupply"],
              Variant(kind == 2 ? " CharIndex('16394',T8.FRightUserID)>0 " : ""));
    EXPECT_EQ(sent_["DataRightWhereOrg"], Variant(kind == 1 ? " CharIndex('16394',T7.FRightUserID)>0 " : ""));
  }
}

TEST_F(Rpt302Test, ShowsItsTwoTextsInTheProgressDialogAndTakesItAway) {
  FetchInvoices();
  EXPECT_EQ(toolkit_->messages, (Lines{"正在连接服务器", "正在从服务器读取数据，请稍候..."}));
  EXPECT_EQ(toolkit_->shown, 1);
  EXPECT_EQ(toolkit_->unloaded, 1);
}

TEST_F(Rpt302Test, GivesAllItsColumnsWhateverIsAsked) {
  const Lines all = {"日期$||0|FDate|1",
                     "费用发票号码$||1|FBillNo|1",
                     "发票类型$||1|FInvType|1",
                     "采购方式$||1|FPOStyle|1",
                     "销售方式$||1|FSaleStyle|1",
                     "供应商长代码$||1|FSupplyFullNumber|1",
                     "客户长代码$||1|FCustFullNumber|1",
                     "供应商代码$||1|FSupplyNumber|1",
                     "客户代码$||1|FCustNumber|1",
                     "供应商名称$||1|FSupplyName|1",
                     "客户名称$||1|FCustName|1",
                     "费用长代码$||1|FFeeFullNumber|1",
                     "费用代码$||1|FFeeNumber|1",
                     "费用名称$||1|FFeeName|1",
                     "发票类型$||1|FFeeType|1",
                     "币别$||1|FCurrencyName|1",
                     "计量单位$||1|FUnitName|1",
                     "数量$||2|FAuxQty|1",
                     "单价$||4|FAuxPrice|1",
                     "金额$||6|FAmount|1",
                     "税率(%)$||8|FTaxRate|1",
                     "可抵扣税额$||6|FTaxAmount|1",
                     "不含税金额$||6|FAmountEx|1",
                     "审核人$||1|FCheckerName|1",
                     "备注$||1|FNote|1"};
  FetchInvoices();
  EXPECT_EQ(HeaderLines(), all);
  FetchInvoices({{"InvoiceStyle", std::int32_t{1}}, {"OnlyShowSum", std::int32_t{1}}});
  EXPECT_EQ(HeaderLines(), all);
  report_ = nullptr;
  UseShortCode();
  FetchInvoices();
  EXPECT_EQ(HeaderLines(), all);
}

TEST_F(Rpt302Test, SendsTheSameAgainWhereAFetchIsRepeated) {
  RestrictCustomers();
  FetchInvoices();
  const auto first = sent_;
  Call(Report(), "Refresh");
  EXPECT_EQ(sent_, first);
}

TEST_F(Rpt302Title, TellsOpenRangesAsAllAndTheSideOfTheInvoicesFirst) {
  FetchInvoices();
  EXPECT_EQ(TitleLines(), (TitleList{{"起始日期：2003/01/01", 0},
                                     {"截止日期：2003/03/31", 1},
                                     {"费用代码范围：所有费用", 2},
                                     {"供应商代码范围：所有供应商", 3},
                                     {"客户代码范围：所有客户", 4}}));
  for (const std::int32_t style : {1, 2}) {
    FetchInvoices({{"InvoiceStyle", style}});
    EXPECT_EQ(TitleLines()[3], (std::pair<std::string, int>{"客户代码范围：所有客户", 3}));
    EXPECT_EQ(TitleLines()[4], (std::pair<std::string, int>{"供应商代码范围：所有供应商", 4}));
  }
}

TEST_F(Rpt302Title, TellsRangesAndNoGrouping) {
  FetchInvoices({{"BFeeNumber", "11"},
                 {"EFeeNumber", "12"},
                 {"BCust", "O'Neil"},
                 {"ESupply", "32"},
                 {"GroupBy", std::int32_t{1}}});
  EXPECT_EQ(TitleLines(), (TitleList{{"起始日期：2003/01/01", 0},
                                     {"截止日期：2003/03/31", 1},
                                     {"费用代码范围：11  --  12", 2},
                                     {"供应商代码范围：  --  32", 3},
                                     {"客户代码范围：O'Neil  --  ", 4}}));
}

TEST_F(Rpt302Failure, OfTheDataRightIsMendedByTheNextFetch) {
  rights_->Raises("GetDataRight", kServerDown);
  ASSERT_NE(Report(), nullptr);
  RunInvoices();
  ExpectServerDown();
  RestrictCustomers();
  FetchInvoices();
  EXPECT_EQ(sent_["DataRightWhereOrg"], Variant(" CharIndex('16394',T7.FRightUserID)>0 "));
}

TEST_F(Rpt302Failure, OfOneDataRightAloneNeverLetsAFetchThroughWithoutIt) {
  for (const std::int32_t kind : {1, 2}) {
    report_ = nullptr;
    rights_->On("GetDataRight", [kind](Arguments arguments) -> Variant {
      if (arguments[2].ToInt32() == kind) throw kServerDown;
      return false;
    });
    RunInvoices();
    ExpectServerDown();
    EXPECT_TRUE(sales_->Calls().empty()) << kind;
  }
}

TEST_F(Rpt302Failure, OfTheLoginEndsTheFetch) {
  Report();
  host_->Raises("PropsString", kServerDown);
  RunInvoices();
  ExpectServerDown();
}

TEST_F(Rpt302Failure, OfTheMiddleTierEndsTheFetchWithItsWordsAndDropsEarlierRows) {
  FetchInvoices();
  ASSERT_TRUE(HasRows());
  sales_->Raises("GetRpt302Data", kServerDown);
  RunInvoices();
  ExpectServerDown();
  AnswerFetch();
  FetchInvoices();
  EXPECT_TRUE(HasRows());
}

TEST_F(Rpt302Failure, OfRefreshIsToldByResultToo) {
  FetchInvoices();
  sales_->Raises("GetRpt302Data", kServerDown);
  Call(Report(), "Refresh");
  ExpectServerDown();
}

TEST_F(Rpt302Failure, OfTheObjectMakerEndsTheFetch) {
  runtime_.Register("ORVMSaleRpt.Data", []() -> ObjectRef {
    throw RuntimeError(error_number::kObjectMaker, "Maker", "there is no such object");
  });
  RunInvoices();
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), "there is no such object");
  EXPECT_EQ(ErrorSource(), "Maker");
  EXPECT_FALSE(HasRows());
  EXPECT_EQ(toolkit_->unloaded, 1);
}

}  // namespace
}  // namespace salerpt::testing
