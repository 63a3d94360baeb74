// The credit reports run on the middle tier over a generated account set, beside plain SQL on the tables.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "reports/reports.h"
#include "tests/suite/middletier/company.h"
#include "tests/suite/middletier/report_rows.h"

namespace salerpt::middletier {
namespace {

// What a class of credit is about, in plain SQL: the holders, and whose a bill is (b the bill, c its
// customer's column).
struct HolderCase {
  const char* name;
  int credit_class;
  const char* holders;  // id, code, name
  const char* owner;
};
void PrintTo(const HolderCase& holder, std::ostream* out) {
  *out << holder.name;
}

constexpr HolderCase kHolderCases[] = {
    {"Customers", 0, "SELECT FItemID id,FNumber code,FName name FROM t_Organization", "b.cust"},
    {"Employees", 1, "SELECT FItemID id,FNumber code,FName name FROM t_Emp", "b.FEmpID"},
    {"Departments", 2, "SELECT FItemID id,FNumber code,FName name FROM t_Department", "b.FDeptID"},
    {"CustomerClasses", 3, "SELECT FInterID id,FID code,FName name FROM t_SubMessage WHERE FTypeID=28",
     "(SELECT o.FTypeID FROM t_Organization o WHERE o.FItemID=b.cust)"},
    {"EmployeeClasses", 4, "SELECT FInterID id,FID code,FName name FROM t_SubMessage WHERE FTypeID=29",
     "(SELECT p.FTypeID FROM t_Emp p WHERE p.FItemID=b.FEmpID)"},
};

// Lines of the bills of a group with what they are worth: b(cust, FEmpID, FDeptID, day, item, qty, cur,
// owed, owed_base).
std::string BillsOf(int group) {
  switch (group) {
    case 0:
    case 1: {
      const std::string head = group == 0 ? "SEContract" : "SEOrder";
      return "SELECT h.FCustID cust,h.FEmpID,h.FDeptID,date(h.FDate) day,e.FItemID item,e.FQty qty,"
             "h.FCurrencyID cur,e.FAllAmount-e.FReceiveAmountFor owed,e.FStdAllAmount-e.FReceiveAmount "
             "owed_base FROM " +
             head + " h JOIN " + head + "Entry e USING(FInterID) WHERE h.FStatus>0 AND NOT h.FCancelLation";
    }
    case 2:
      return "SELECT h.FSupplyID cust,h.FEmpID,h.FDeptID,date(h.FDate) day,e.FItemID item,e.FQty qty,1 cur,"
             "w.owed owed,w.owed owed_base FROM ICStockBill h JOIN ICStockBillEntry e USING(FInterID) JOIN "
             "(SELECT l.FInterID i,l.FEntryID n,half_up(l.FConsignAmount*(1+coalesce((SELECT q.FTaxRate FROM "
             "SEOrderEntry q WHERE q.FInterID=l.FOrderInterID AND q.FEntryID=l.FOrderEntryID),(SELECT "
             "t.FTaxRate FROM t_ICItem t WHERE t.FItemID=l.FItemID))/100.0),2)-coalesce(s.paid,0) owed FROM "
             "ICStockBillEntry l LEFT JOIN (SELECT x.FSourceInterID i,x.FSourceEntryID "
             "n,sum(x.FReceiveAmount) "
             "paid FROM ICSale y JOIN ICSaleEntry x USING(FInterID) WHERE y.FTranType IN (80,86) AND "
             "y.FStatus>0 AND NOT y.FCancelLation AND x.FSourceTranType=21 GROUP BY 1,2) s ON s.i=l.FInterID "
             "AND s.n=l.FEntryID) w ON w.i=e.FInterID AND w.n=e.FEntryID WHERE h.FTranType=21 AND "
             "(h.FStatus>0 "
             "OR h.FUpStockWhenSave) AND NOT h.FCancelLation";
    default:
      return "SELECT h.FCustID cust,h.FEmpID,h.FDeptID,date(h.FDate) day,e.FItemID item,e.FQty qty,"
             "h.FCurrencyID cur,e.FAmount+(h.FTranType=80)*e.FTaxAmount-e.FReceiveAmountFor owed,"
             "e.FStdAmount+(h.FTranType=80)*e.FStdTaxAmount-e.FReceiveAmount owed_base FROM ICSale h JOIN "
             "ICSaleEntry e USING(FInterID) WHERE h.FTranType IN (80,86) AND h.FStatus>0 AND NOT "
             "h.FCancelLation";
  }
}

class CreditRows : public ReportRows, public testing::WithParamInterface<HolderCase> {
 protected:
  static RecordsetRef Run(std::string_view prog_id, const DictionaryRef& filter) {
    const ObjectRef report = CreateObject(prog_id);
    SetMember(report, "Filter", filter);
    Call(report, "GetReportData");
    const auto result = As<Dictionary>(GetMember(report, "Result"));
    EXPECT_TRUE(result->Get("OK").ToBoolean()) << result->Get("Error").TextOrEmpty();
    return As<Recordset>(GetMember(report, "Rs"));
  }

  static std::vector<PlainRow> Taken(const RecordsetRef& rows, const std::vector<const char*>& keys,
                                     const std::vector<const char*>& numbers) {
    std::vector<PlainRow> taken;
    for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext()) {
      PlainRow row;
      for (std::size_t i = 0; i < keys.size(); ++i)
        row.key += (i > 0 ? "|" : "") + rows->Value(keys[i]).TextOrEmpty();
      for (const char* field : numbers) row.numbers.push_back(rows->Value(field).ToDouble());
      taken.push_back(std::move(row));
    }
    return taken;
  }

  // Lines of a group in the half-year, with their owners.
  static std::string Owned(int group, const std::string& days) {
    return std::string("(SELECT b.*,") + GetParam().owner + " owner FROM (" + BillsOf(group) + ") b WHERE " +
           days + ")";
  }
  static constexpr const char* kDays = "b.day BETWEEN '2024-01-01' AND '2024-06-30'";
  static std::string Class() { return std::to_string(GetParam().credit_class); }
};

TEST_P(CreditRows, ShowsQuantitiesOfEachGroup) {
  for (int group = 0; group < 4; ++group) {
    SCOPED_TRACE(group);
    const RecordsetRef rows =
        Run("ORVSaleRpt.Rpt145", std::make_shared<Dictionary>(std::initializer_list<Dictionary::Entry>{
                                     {"BDate", "2024-01-01"},
                                     {"EDate", "2024-06-30"},
                                     {"FICItemIDFrom", "01"},
                                     {"FICItemIDTo", "01.99"},
                                     {"FCreditClass", GetParam().credit_class},
                                     {"FGroupID", group}}));
    const std::vector<PlainRow> plain = Plain(
        "SELECT h.code,h.name,i.FNumber,i.FShortNumber,i.FName,i.FModel,u.FName,s.FName,l.FCreditQty,"
        "coalesce(x.qty,0),l.FCreditQty-coalesce(x.qty,0),l.FCreditQty*1.0/s.FCoefficient,"
        "coalesce(x.qty,0)*1.0/s.FCoefficient FROM ICCreditQty l JOIN (" +
            std::string(GetParam().holders) +
            ") h ON h.id=l.FItemID JOIN t_ICItem i ON i.FItemID=l.FICItemID JOIN t_MeasureUnit u ON "
            "u.FUnitGroupID=i.FUnitGroupID AND u.FStandard JOIN t_MeasureUnit s ON "
            "s.FMeasureUnitID=i.FSaleUnitID LEFT JOIN (SELECT owner,item,sum(qty) qty FROM " +
            Owned(group, kDays) +
            " GROUP BY 1,2) x ON x.owner=l.FItemID AND x.item=l.FICItemID WHERE l.FCreditClass=" + Class() +
            " AND i.FNumber BETWEEN '01' AND '01.99' ORDER BY h.code,i.FNumber",
        8);
    ExpectRows(Taken(rows,
                     {"FNumber", "FName", "FICNumber", "FICShortNumber", "FICName", "FModel", "FUnitName",
                      "FSaleUnitName"},
                     {"FCreditQty", "FQty", "FBalQty", "FSaleUnitCreditQty", "FSaleUnitQty"}),
               plain);
    EXPECT_GT(plain.size(), 1U);
  }
}

TEST_P(CreditRows, ShowsAmountsOfEachGroup) {
  for (int group = 0; group < 4; ++group) {
    SCOPED_TRACE(group);
    const RecordsetRef rows =
        Run("ORVSaleRpt.Rpt146", std::make_shared<Dictionary>(std::initializer_list<Dictionary::Entry>{
                                     {"BDate", "2024-01-01"},
                                     {"EDate", "2024-06-30"},
                                     {"FCurrencyID", 2},
                                     {"FExchangeRate", 7.2},
                                     {"FCreditClass", GetParam().credit_class},
                                     {"FGroupID", group}}));
    // A holder has one limit: bills in its currency count as they are, others by their base amount.
    const std::string text =
        "WITH r AS (SELECT h.code code,h.name name,l.FCreditLevel level,c.FName cname,l.FCurrencyID cur,"
        "l.FCreditAmount lim,CASE l.FCurrencyID WHEN 1 THEN 1.0 WHEN 2 THEN 7.2 ELSE c.FExchangeRate END "
        "rate,"
        "half_up(coalesce((SELECT sum(CASE WHEN x.cur=l.FCurrencyID THEN x.owed WHEN l.FCurrencyID=1 THEN "
        "x.owed_base ELSE x.owed_base/c.FExchangeRate END) FROM " +
        Owned(group, kDays) + " x WHERE x.owner=l.FItemID),0),c.FScale) used FROM ICCreditAmount l JOIN (" +
        std::string(GetParam().holders) +
        ") h ON h.id=l.FItemID JOIN t_Currency c USING(FCurrencyID) WHERE l.FCreditClass=" + Class() +
        ") SELECT code,name,level,cname,used,lim,lim-used,half_up(used*rate/7.2,2),half_up(lim*rate/7.2,2),"
        "half_up(lim*rate/7.2,2)-half_up(used*rate/7.2,2) FROM r ORDER BY code,cur";
    const std::vector<PlainRow> plain = Plain(text, 4);
    ExpectRows(Taken(rows, {"FNumber", "FName", "FCreditLevel", "FCurrencyName"},
                     {"FStdAmt", "FCreditStdAmt", "FBalStdAmt", "FAmt", "FCreditAmt", "FBalAmt"}),
               plain);
    EXPECT_GT(plain.size(), 2U);
  }
}

TEST_P(CreditRows, ShowsWhatHasStoodForHowLong) {
  const RecordsetRef rows =
      Run("ORVSaleRpt.Rpt149", std::make_shared<Dictionary>(std::initializer_list<Dictionary::Entry>{
                                   {"FDate", "2025-05-20"}, {"FCreditClass", GetParam().credit_class}}));
  const std::string text =
      "WITH a AS (SELECT x.owner,x.owed_base,(SELECT min(d.FDays) FROM ICCreditDiscount d WHERE "
      "d.FCreditClass=" +
      Class() + " AND d.FItemID=x.owner AND d.FDays>=julianday('2025-05-20')-julianday(x.day)) days FROM " +
      Owned(3, "b.day<='2025-05-20'") +
      " x) SELECT h.code,h.name,l.FCreditLevel,l.FCreditTime,half_up(sum(a.owed_base),2),"
      "coalesce(d.FDiscountRate,0),half_up(half_up(sum(a.owed_base),2)*(100-coalesce(d.FDiscountRate,0))/"
      "100,2)"
      " FROM a JOIN ICCreditAmount l ON l.FCreditClass=" +
      Class() + " AND l.FItemID=a.owner JOIN (" + std::string(GetParam().holders) +
      ") h ON h.id=a.owner LEFT JOIN ICCreditDiscount d ON d.FCreditClass=l.FCreditClass AND "
      "d.FItemID=a.owner AND d.FDays=a.days GROUP BY h.code,a.days HAVING half_up(sum(a.owed_base),2)<>0 "
      "ORDER "
      "BY h.code,a.days IS NULL,a.days";
  const std::vector<PlainRow> plain = Plain(text, 3);
  ExpectRows(Taken(rows, {"FNumber", "FName", "FCreditLevel"},
                   {"FCreditTime", "FAmount", "FDiscountRate", "FDicAmount"}),
             plain);
  EXPECT_GT(plain.size(), 2U);
}

INSTANTIATE_TEST_SUITE_P(Holders, CreditRows, testing::ValuesIn(kHolderCases),
                         [](const auto& holder) { return std::string(holder.param.name); });

// --- The reports with what the credit object answers

class CreditAnswers : public CompanyTest {
 protected:
  CreditAnswers() { RegisterReports(runtime_); }
  static DictionaryRef ResultOf(std::string_view prog_id, std::initializer_list<Dictionary::Entry> filter) {
    const ObjectRef report = CreateObject(prog_id);
    SetMember(report, "Filter", std::make_shared<Dictionary>(filter));
    Call(report, "GetReportData");
    return As<Dictionary>(GetMember(report, "Result"));
  }
};

TEST_F(CreditAnswers, EndsWithoutRowsWhereNoLimitsAreSet) {
  for (const char* report : {"ORVSaleRpt.Rpt145", "ORVSaleRpt.Rpt146", "ORVSaleRpt.Rpt149"}) {
    const DictionaryRef result =
        ResultOf(report, {{"BDate", "2024-01-01"}, {"EDate", "2024-06-30"}, {"FDate", "2024-06-30"}});
    EXPECT_FALSE(result->Get("OK").ToBoolean());
    EXPECT_EQ(result->Get("Error").TextOrEmpty(), "");
  }
}

TEST_F(CreditAnswers, TellsWhatIsWrongWithTheConditions) {
  Sql("INSERT INTO ICCreditQty VALUES (0,201,101,24)");
  const DictionaryRef result = ResultOf("ORVSaleRpt.Rpt145", {{"BDate", "2024-01-01"}});
  EXPECT_FALSE(result->Get("OK").ToBoolean());
  EXPECT_EQ(result->Get("Error").TextOrEmpty(), "EDate is missing; a date was expected");
  EXPECT_EQ(result->Get("ErrorSource").TextOrEmpty(), "ORVMSaleCredit.clsGetData:GetCreditRptByQty");
}

}  // namespace
}  // namespace salerpt::middletier
