// The order lists on a generated account set: the figures are those of plain SQL on the tables.
#include "tests/suite/middletier/generated_set.h"
#include "tests/suite/middletier/order_company.h"

namespace salerpt::middletier {
namespace {

// Plain SQL rounds some halves of a cent the other way than the server's decimals.
constexpr double kCents = 0.5;

// What a condition narrows: o the order, l its line, i the item, c the customer.
struct Narrowing {
  const char* name;
  std::vector<Dictionary::Entry> filter;
  const char* condition;
};

class GeneratedOrdersTest : public testing::TestWithParam<Narrowing> {
 protected:
  static void SetUpTestSuite() { set_ = std::make_unique<GeneratedSet>(11, 4000); }
  static void TearDownTestSuite() { set_.reset(); }
  GeneratedOrdersTest() { RegisterMiddleTier(runtime_, set_->Get(), Login{}); }

  static DictionaryRef Filter() {
    auto filter = std::make_shared<Dictionary>();
    filter->Set("BDate", "2023-01-01");
    filter->Set("EDate", "2027-12-31");
    filter->Set("bLongNumber", true);
    for (const auto& [key, value] : GetParam().filter) filter->Set(key, value);
    return filter;
  }
  static Variant Answer(std::string_view operation) {
    Variant filter = Filter();
    return Call(CreateObject("ORVMSaleRpt.Data"), operation, "", filter);
  }

  // Sums of columns over the rows of one level.
  static std::vector<double> Sums(const RecordsetRef& rows, std::int32_t level,
                                  std::initializer_list<std::string_view> fields) {
    std::vector<double> sums(fields.size());
    if (rows->RecordCount() > 0) rows->MoveFirst();
    for (; !rows->Eof(); rows->MoveNext()) {
      if (rows->Value("FSumSort").ToInt32() != level) continue;
      std::size_t i = 0;
      for (const std::string_view field : fields) {
        const Variant value = rows->Value(field);
        sums[i++] += value.IsNull() ? 0 : value.ToDouble();
      }
    }
    return sums;
  }
  static void ExpectNear(const std::vector<double>& sums, const std::vector<double>& plain) {
    ASSERT_EQ(sums.size(), plain.size());
    for (std::size_t i = 0; i < sums.size(); ++i) EXPECT_NEAR(sums[i], plain[i], kCents) << "column " << i;
  }

  // `columns` of the lines that the narrowing lets through.
  static std::vector<double> Plain(const std::string& columns, const std::string& more = "") {
    return set_->Numbers(Join(
        "SELECT ", columns,
        " FROM SEOrder o JOIN SEOrderEntry l USING(FInterID) JOIN t_ICItem i ON i.FItemID=l.FItemID "
        "JOIN t_Organization c ON c.FItemID=o.FCustID LEFT JOIN t_SonCompany s ON s.FItemID=o.FRelateBrID "
        "LEFT JOIN t_Department d ON d.FItemID=o.FDeptID LEFT JOIN t_Emp e ON e.FItemID=o.FEmpID WHERE "
        "o.FCancelLation=0",
        GetParam().condition, more));
  }

  static std::unique_ptr<GeneratedSet> set_;
  Runtime runtime_;
};
std::unique_ptr<GeneratedSet> GeneratedOrdersTest::set_;

// What was delivered of a line: outbound bills, for straight sales invoices.
constexpr const char* kDelivered =
    "(ifnull((SELECT sum(x.FQty) FROM ICStockBillEntry x JOIN ICStockBill b USING(FInterID) WHERE "
    "b.FTranType=21 AND "
    "(b.FStatus>0 OR b.FUpStockWhenSave>0) AND b.FCancelLation=0 AND x.FOrderInterID=o.FInterID AND "
    "x.FOrderEntryID=l.FEntryID),0)+ifnull((SELECT sum(x.FQty) FROM ICSaleEntry x JOIN ICSale b "
    "USING(FInterID) WHERE "
    "o.FSaleStyle=20296 AND b.FStatus>0 AND b.FCancelLation=0 AND x.FOrderInterID=o.FInterID AND "
    "x.FOrderEntryID=l.FEntryID),0))";

TEST_P(GeneratedOrdersTest, ExecutionIsThatOfTheTables) {
  const auto rows = As<Recordset>(Answer("GetRpt137Data_new"));
  const std::vector<double> plain =
      Plain(Join("sum(l.FQty),sum(", kDelivered, "),sum(l.FQty-", kDelivered, ")"));
  EXPECT_GT(plain[0], 0);
  for (const std::int32_t level : {0, 102, 101})
    ExpectNear(Sums(rows, level, {"FSaleQty", "FCommitQty", "FUnCommitQty"}), plain);
}

TEST_P(GeneratedOrdersTest, ReceiptsAreThoseOfTheTables) {
  const auto rows = As<Recordset>(Answer("GetRpt1010Data"));
  const auto invoiced = [](const char* column) {
    return Join(
        "sum(ifnull((SELECT sum(", column,
        ") FROM ICSaleEntry x JOIN ICSale b USING(FInterID) WHERE b.FTranType IN (80,86) AND b.FStatus>0 AND "
        "b.FCancelLation=0 AND x.FOrderInterID=o.FInterID AND x.FOrderEntryID=l.FEntryID),0))");
  };
  const std::vector<double> plain = Plain(Join("sum(round(l.FAllAmount*o.FExchangeRate,2)),",
                                               invoiced("x.FStdAmount+(b.FTranType=80)*x.FStdTaxAmount"), ",",
                                               invoiced("x.FReceiveAmount")));
  for (const std::int32_t level : {0, 101})
    ExpectNear(Sums(rows, level, {"FOrderAmount", "FInvoiceAmount", "FReceiveAmount"}), plain);
}

TEST_P(GeneratedOrdersTest, TasksReceiptsAndIssuesAreThoseOfTheTables) {
  const auto sets = As<Dictionary>(Answer("GetRpt192Data"));
  const std::vector<double> plain = Plain("count(*),sum(l.FQty)");
  const auto count = [&sets](const char* name) { return As<Recordset>(sets->Get(name))->RecordCount(); };
  EXPECT_EQ(count("rsOrder"), static_cast<std::int32_t>(plain[0]));
  const std::string task =
      "SELECT 1 FROM ICMO m WHERE m.FOrderInterID=o.FInterID AND m.FSourceEntryID=l.FEntryID";
  EXPECT_EQ(count("rsWorkBill"),
            static_cast<std::int32_t>(
                Plain("ifnull(sum((" + Replace(task, "1 FROM", "count(*) FROM") + ")),0)")[0]));
  for (const auto& [name, kind] : {std::pair{"rsInStock", "2"}, std::pair{"rsOutStock", "24"}}) {
    const std::string entries = Join(
        "ifnull(sum((SELECT count(*) FROM ICMO m JOIN ICStockBillEntry x ON x.FICMOInterID=m.FInterID JOIN "
        "ICStockBill b ON b.FInterID=x.FInterID WHERE b.FTranType=",
        kind, " AND b.FStatus>0 AND m.FOrderInterID=o.FInterID AND m.FSourceEntryID=l.FEntryID)),0)");
    EXPECT_EQ(count(name), static_cast<std::int32_t>(Plain(entries)[0])) << name;
  }
}

INSTANTIATE_TEST_SUITE_P(
    Narrowings, GeneratedOrdersTest,
    testing::Values(Narrowing{"audited", {}, " AND o.FStatus>0"}, Narrowing{"all", {{"CheckState", 2}}, ""},
                    Narrowing{"closed", {{"CloseState", 2}}, " AND o.FStatus=3"},
                    Narrowing{"open", {{"CloseState", 1}}, " AND o.FStatus IN (1,2)"},
                    Narrowing{"oneQuarter",
                              {{"BDate", "2024-01-01"}, {"EDate", "2024-03-31"}},
                              " AND o.FStatus>0 AND date(o.FDate) BETWEEN '2024-01-01' AND '2024-03-31'"},
                    Narrowing{"goodsOfTheFirstClass",
                              {{"BItemNumber", "01.01"}, {"EItemNumber", "01.02"}},
                              " AND o.FStatus>0 AND i.FNumber BETWEEN '01.01' AND '01.02'"},
                    Narrowing{"customersAndState",
                              {{"BCustNumber", "01.02"}, {"ECustNumber", "03"}, {"CloseState", 2}},
                              " AND o.FStatus=3 AND c.FNumber BETWEEN '01.02' AND '03'"}),
    [](const auto& narrowing) { return narrowing.param.name; });

// Lists that narrow differently.
class GeneratedDueTest : public GeneratedOrdersTest {};

TEST_P(GeneratedDueTest, DueLinesAreThoseOfTheTables) {
  const auto rows = As<Recordset>(Answer("GetRpt189Data"));
  EXPECT_EQ(rows->RecordCount(), static_cast<std::int32_t>(Plain(
                                     "count(*)", Join(" AND o.FStatus<>3 AND l.FQty>", kDelivered))[0]));
}

INSTANTIATE_TEST_SUITE_P(
    Narrowings, GeneratedDueTest,
    testing::Values(Narrowing{"all", {}, ""},
                    Narrowing{"audited", {{"AuditType", "已审核"}}, " AND o.FStatus>0"},
                    Narrowing{"dueDays",
                              {{"BDate", "2024-01-01"}, {"EDate", "2024-12-31"}},
                              " AND date(l.FAdviceConsignDate) BETWEEN '2024-01-01' AND '2024-12-31'"},
                    Narrowing{"customers", {{"BCustomerNumber", "01.02"}}, " AND c.FNumber>='01.02'"}),
    [](const auto& narrowing) { return narrowing.param.name; });

}  // namespace
}  // namespace salerpt::middletier
