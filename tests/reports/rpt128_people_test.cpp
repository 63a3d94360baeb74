// The outbound summary by sale style, employee, department, and by department or customer with the employee
// behind it: the whole request of each, to the letter. These groupings have a #DATA2 of their own.
#include <gtest/gtest.h>

#include "tests/reports/rpt128_world.h"

namespace salerpt::testing {
namespace {

constexpr const char* kSaleStyleFill =
    "Create Table #DATA2 ( \r\n"
    "         FSaleStyleName varchar(255) null, \r\n"
    "         FIndex int IDENTITY, \r\n"
    "         FItemID int null, \r\n"
    "         FCustID int null, \r\n"
    "         FOutQty Decimal(23,10) null, \r\n"
    "         FOutAmount Decimal(18,{D}) null, \r\n"
    "         FConsignAmount Decimal(18,{D}) null, \r\n"
    "         FCommitQty Decimal(23,10) null, \r\n"
    "         FCommitAmount Decimal(18,{D}) null,FSaleStyle  int,FSecQty decimal(23, 10) null,FSecInvoiceQty "
    "decimal(23, 10) null) \r\n"
    "Insert Into #DATA2 (FSaleStyleName,FItemID,FCustID,FOutQty,FOutAmount,FConsignAmount,FSaleStyle,FSecQty,"
    "FSecInvoiceQty) \r\n"
    "Select s.FName,v2.FItemID, v1.FSupplyID, v2.FQty,round(v2.FAmount,{D}),round(v2.FConsignAmount,{D}),"
    "FSaleStyle,FSecQty,0 FSecInvoiceQty\r\n"
    "From ICStockBill v1 Inner Join ICStockBillEntry v2 On v1.FInterID = v2.FInterID \r\n"
    "Inner Join t_ICItem t1 On v2.FItemID = t1.FItemID \r\n"
    "Inner Join t_SubMessage s On v1.FSaleStyle=s.FInterID \r\n"
    "Left Join t_Organization t2 On v1.FSupplyID=t2.FItemID \r\n"
    "Left Join t_Stock t99 On v2.FDCStockID=t99.FItemID \r\n"
    "\r\n"
    "Where v1.FTranType =21 \r\n"
    "  {STOCK}  {DATE} {ITEM}  \r\n"
    "{TAIL}\r\n"
    "Insert Into #DATA2 (FSaleStyleName,FItemID,FCustID,FCommitQty,FCommitAmount,FSaleStyle,FSecQty,"
    "FSecInvoiceQty) \r\n"
    "Select s.FName,v2.FItemID,v1.FCustID,v2.FQty, Round(case v1.FTranType when 80 then v2.FAmount * "
    "isnull(v1.FExchangeRate,1) else  (v2.FAmount - v2.FTaxAmount)* isnull(v1.FExchangeRate,1)  end,{D}),"
    "v1.FSaleStyle,0,v2.FSecQty\r\n"
    "FROM  ICSale v1 Inner Join ICSaleEntry v2 On v1.FInterID = v2.FInterID \r\n"
    "Inner Join t_ICItem t1 On v2.FItemID = t1.FItemID \r\n"
    "Inner Join t_SubMessage s On v1.FSaleStyle=s.FInterID \r\n"
    "Left Join t_Organization t2 On v1.FCustID = t2.FItemID \r\n"
    "\r\n"
    "Where v1.FTranType in (80,86)   {STATE}  {DATE} {ITEM} \r\n"
    "{TAIL}\r\n";

constexpr const char* kEmployeeFill =
    "Create Table #DATA2 ( \r\n"
    "         FEmpName varchar(255) null , \r\n"
    "         FIndex int IDENTITY, \r\n"
    "         FItemID int null, \r\n"
    "         FCustID int null, \r\n"
    "         FOutQty Decimal(23,10) null, \r\n"
    "         FOutAmount Decimal(18,{D}) null, \r\n"
    "         FConsignAmount Decimal(18,{D}) null, \r\n"
    "         FCommitQty Decimal(23,10) null, \r\n"
    "         FCommitAmount Decimal(18,{D}) null,FSaleStyle  int,FSecQty decimal(23, 10) null,FSecInvoiceQty "
    "decimal(23, 10) null) \r\n"
    "Insert Into #DATA2 (FEmpName,FItemID,FCustID,FOutQty,FOutAmount,FConsignAmount,FSaleStyle,FSecQty,"
    "FSecInvoiceQty) \r\n"
    "Select e.FName,v2.FItemID, v1.FSupplyID, v2.FQty,round(v2.FAmount,{D}),round(v2.FConsignAmount,{D}),"
    "FSaleStyle,FSecQty,0 FSecInvoiceQty\r\n"
    "From ICStockBill v1 Inner Join ICStockBillEntry v2 On v1.FInterID = v2.FInterID \r\n"
    "Inner Join t_ICItem t1 On v2.FItemID = t1.FItemID \r\n"
    "Left Join t_Emp e On v1.FEmpID=e.FItemID \r\n"
    "Left Join t_Organization t2 On v1.FSupplyID=t2.FItemID \r\n"
    "Left Join t_Stock t99 On v2.FDCStockID=t99.FItemID \r\n"
    "\r\n"
    "Where v1.FTranType =21 \r\n"
    "  {STOCK}  {DATE} {ITEM}  \r\n"
    "{TAIL}\r\n"
    "Insert Into #DATA2 (FEmpName,FItemID,FCustID,FCommitQty,FCommitAmount,FSecQty,FSecInvoiceQty) \r\n"
    "Select e.FName,v2.FItemID,v1.FCustID,v2.FQty, Round(case v1.FTranType when 80 then v2.FAmount * "
    "isnull(v1.FExchangeRate,1) else  (v2.FAmount - v2.FTaxAmount)* isnull(v1.FExchangeRate,1)  end,{D}),0,"
    "v2.FSecQty\r\n"
    "FROM  ICSale v1 Inner Join ICSaleEntry v2 On v1.FInterID = v2.FInterID \r\n"
    "Inner Join t_ICItem t1 On v2.FItemID = t1.FItemID \r\n"
    "Left Join t_Emp e On v1.FEmpID=e.FItemID \r\n"
    "Left Join t_Organization t2 On v1.FCustID = t2.FItemID \r\n"
    "\r\n"
    "Where v1.FTranType in (80,86)   {STATE}  {DATE} {ITEM} \r\n"
    "{TAIL}\r\n";

constexpr const char* kDepartmentFill =
    "Create Table #DATA2 ( \r\n"
    "         FDeptName varchar(255) null , \r\n"
    "         FIndex int IDENTITY, \r\n"
    "         FItemID int null, \r\n"
    "         FDeptID int null, \r\n"
    "         FOutQty Decimal(23,10) null, \r\n"
    "         FOutAmount Decimal(18,{D}) null, \r\n"
    "         FConsignAmount Decimal(18,{D}) null, \r\n"
    "         FCommitQty Decimal(23,10) null, \r\n"
    "         FCommitAmount Decimal(18,{D}) null,FSecQty decimal(23, 10) null,FSecInvoiceQty decimal(23, 10) "
    "null) \r\n"
    "Insert Into #DATA2 (FDeptName,FItemID,FDeptID,FOutQty,FOutAmount,FConsignAmount,FSecQty,FSecInvoiceQty) "
    "\r\n"
    "Select d.FName,v2.FItemID, v1.FDeptID, v2.FQty,round(v2.FAmount,{D}),round(v2.FConsignAmount,{D}),"
    "FSecQty,0 FSecInvoiceQty\r\n"
    "From ICStockBill v1 Inner Join ICStockBillEntry v2 On v1.FInterID = v2.FInterID \r\n"
    "Inner Join t_ICItem t1 On v2.FItemID = t1.FItemID \r\n"
    "Left Join t_Department d On v1.FDeptID=d.FItemID \r\n"
    "Left Join t_Organization t2 On v1.FSupplyID=t2.FItemID \r\n"
    "\r\n"
    "Where v1.FTranType =21 \r\n"
    "  {STOCK}  {DATE} {ITEM}  \r\n"
    "{TAIL}\r\n"
    "Insert Into #DATA2 (FDeptName,FItemID,FDeptID,FCommitQty,FCommitAmount,FSecQty,FSecInvoiceQty) \r\n"
    "Select d.FName,v2.FItemID,v1.FDeptID,v2.FQty, Round(case v1.FTranType when 80 then v2.FAmount * "
    "isnull(v1.FExchangeRate,1) else  (v2.FAmount - v2.FTaxAmount)* isnull(v1.FExchangeRate,1)  end,{D}),0,"
    "v2.FSecQty\r\n"
    "FROM  ICSale v1 Inner Join ICSaleEntry v2 On v1.FInterID = v2.FInterID \r\n"
    "Inner Join t_ICItem t1 On v2.FItemID = t1.FItemID \r\n"
    "Left Join t_Department d On v1.FDeptID=d.FItemID \r\n"
    "Left Join t_Organization t2 On v1.FCustID = t2.FItemID \r\n"
    "\r\n"
    "Where v1.FTranType in (80,86)   {STATE}  {DATE} {ITEM} \r\n"
    "{TAIL}\r\n";

// PROP is where the name of the first group comes from.
constexpr const char* kWithEmployeeFill =
    "Create Table #DATA2 ( \r\n"
    "         FPropName varchar(255) null , \r\n"
    "         FEmpName varchar(255) null , \r\n"
    "         FIndex int IDENTITY, \r\n"
    "         FItemID int null, \r\n"
    "         FCustID int null, \r\n"
    "         FOutQty Decimal(23,10) null, \r\n"
    "         FOutAmount Decimal(18,{D}) null, \r\n"
    "         FConsignAmount Decimal(18,{D}) null, \r\n"
    "         FCommitQty Decimal(23,10) null, \r\n"
    "         FCommitAmount Decimal(18,{D}) null,FSaleStyle  int,FSecQty decimal(23, 10) null,FSecInvoiceQty "
    "decimal(23, 10) null) \r\n"
    "Insert Into #DATA2 (FPropName,FEmpName,FItemID,FCustID,FOutQty,FOutAmount,FConsignAmount,FSaleStyle,"
    "FSecQty,FSecInvoiceQty) \r\n"
    "Select {PROP},e.FName,v2.FItemID, t2.FItemID, "
    "v2.FQty,round(v2.FAmount,{D}),round(v2.FConsignAmount,{D}),"
    "FSaleStyle,FSecQty,0 FSecInvoiceQty\r\n"
    "From ICStockBill v1 Inner Join ICStockBillEntry v2 On v1.FInterID = v2.FInterID \r\n"
    "Inner Join t_ICItem t1 On v2.FItemID = t1.FItemID \r\n"
    "Left Join t_Department d On v1.FDeptID=d.FItemID \r\n"
    "Left Join t_Emp e On v1.FEmpID=e.FItemID \r\n"
    "Left Join t_Organization t2 On v1.FSupplyID=t2.FItemID \r\n"
    "Left Join t_Stock t99 On v2.FDCStockID=t99.FItemID \r\n"
    "\r\n"
    "Where v1.FTranType =21 \r\n"
    "  {STOCK}  {DATE} {ITEM}  \r\n"
    "{TAIL}\r\n"
    "Insert Into #DATA2 (FPropName,FEmpName,FItemID,FCustID,FCommitQty,FCommitAmount,FSaleStyle,FSecQty,"
    "FSecInvoiceQty) \r\n"
    "Select {PROP},e.FName,v2.FItemID,t2.FItemID,v2.FQty, Round(case v1.FTranType when 80 then v2.FAmount * "
    "isnull(v1.FExchangeRate,1) else  (v2.FAmount - v2.FTaxAmount)* isnull(v1.FExchangeRate,1)  end,{D}),"
    "v1.FSaleStyle,0,v2.FSecQty\r\n"
    "FROM  ICSale v1 Inner Join ICSaleEntry v2 On v1.FInterID = v2.FInterID \r\n"
    "Inner Join t_ICItem t1 On v2.FItemID = t1.FItemID \r\n"
    "Left Join t_Department d On v1.FDeptID=d.FItemID \r\n"
    "Left Join t_Emp e On v1.FEmpID=e.FItemID \r\n"
    "Left Join t_Organization t2 On v1.FCustID = t2.FItemID \r\n"
    "\r\n"
    "Where v1.FTranType in (80,86)   {STATE}  {DATE} {ITEM} \r\n"
    "{TAIL}\r\n";

constexpr const char* kDepartmentFrom =
    " From #DATA2 v1\r\n"
    " Inner Join t_ICItem t1 On v1.FItemID=t1.FItemID\r\n"
    " Left Join t_Department t2 On v1.FDeptID=t2.FItemID\r\n"
    " Inner Join T_MeasureUnit t3 On t1.FSaleUnitID = t3.FMeasureUnitID\r\n";

// The part of a grouping's request that differs.
struct Grouping {
  std::int32_t sum_mode;
  const char* fill;
  // Columns of #DATA before the common ones, what stands behind those, and the same as the column list of
  // the re-sort pass has them.
  const char* columns;
  const char* columns_end;
  const char* list;
  const char* select;
  const char* codes;
  const char* group_by;
  const char* labels;
};

constexpr Grouping kSaleStyle = {
    7,
    kSaleStyleFill,
    "  FProp291 varchar(355) null,\r\n",
    "\r\n",
    "FProp291,",
    "CASE WHEN   GROUPING(v1.FSaleStyleName) =1 THEN '合计'\r\n"
    "WHEN   GROUPING(t1.FNumber)=1 THEN  CONVERT(varchar(355),v1.FSaleStyleName)+'(小计)' \r\n"
    " ELSE CONVERT(varchar(355),v1.FSaleStyleName) END,  t1.FNumber,",
    " CASE WHEN GROUPING(v1.FSaleStyleName)=1 THEN 101\r\n"
    " WHEN  GROUPING(t1.FNumber)=1 THEN 102 ELSE 0 END ",
    " GROUP BY v1.FSaleStyleName,t1.FNumber WITH ROLLUP \r\n",
    "",
};

constexpr Grouping kEmployee = {
    6,
    kEmployeeFill,
    "  FProp291 varchar(355) null,\r\n",
    "\r\n",
    "FProp291,",
    "CASE WHEN   GROUPING(v1.FEmpName) =1 THEN '合计'\r\n"
    "WHEN   GROUPING(t1.FNumber)=1 THEN  CONVERT(varchar(355),v1.FEmpName)+'(小计)' \r\n"
    " ELSE CONVERT(varchar(355),v1.FEmpName) END,  t1.FNumber,",
    " CASE WHEN GROUPING(v1.FEmpName)=1 THEN 101\r\n"
    " WHEN  GROUPING(t1.FNumber)=1 THEN 102 ELSE 0 END ",
    " GROUP BY v1.FEmpName,t1.FNumber WITH ROLLUP \r\n",
    "",
};

constexpr Grouping kDepartment = {
    9,
    kDepartmentFill,
    "  FProp01 varchar(355) null,\r\n",
    "\r\n",
    "FProp01,",
    "CASE WHEN   GROUPING(v1.FDeptName) =1 THEN '合计'\r\n"
    "WHEN   GROUPING(t1.FNumber)=1 THEN  ISNULL(CONVERT(varchar(355),v1.FDeptName), '')+'(小计)' \r\n"
    " ELSE CONVERT(varchar(355),v1.FDeptName) END,  t1.FNumber,",
    " CASE WHEN GROUPING(v1.FDeptName)=1 THEN 101\r\n"
    " WHEN  GROUPING(t1.FNumber)=1 THEN 102 ELSE 0 END ",
    " GROUP BY v1.FDeptName,t1.FNumber WITH ROLLUP \r\n",
    "",
};

constexpr const char* kWithEmployeeColumns =
    "  FProp01 varchar(355) null,\r\n"
    "  FEmpName varchar(355) null,\r\n"
    "  FPropNumber varchar(355) null,\r\n";
constexpr const char* kWithEmployeeCodes =
    " CASE WHEN GROUPING(v1.FPropName)=1 THEN 101\r\n"
    "WHEN GROUPING(v1.FEmpName)=1 THEN 102\r\n"
    " WHEN  GROUPING(t1.FNumber)=1 THEN 103 ELSE 0 END ";
constexpr const char* kWithEmployeeLabels =
    " Update #Data Set FEmpName=isNULL(FEmpName, '')+'(小计)' WHERE FSumSort=103 \r\n"
    "delete from #Data where FPropNumber is null\r\n";

constexpr Grouping kDepartmentWithEmployee = {
    10,
    kWithEmployeeFill,
    kWithEmployeeColumns,
    "",
    "FProp01, FEmpName, FPropNumber,",
    "CASE WHEN   GROUPING(v1.FPropName) =1 THEN '合计'\r\n"
    "WHEN   GROUPING(v1.FEmpName)=1 THEN  ISNULL(CONVERT(varchar(355),v1.FPropName), '')+'(小计)' \r\n"
    " ELSE CONVERT(varchar(355),v1.FPropName) END, v1.FEmpName, '',t1.FNumber,",
    kWithEmployeeCodes,
    " GROUP BY v1.FPropName, v1.FEmpName, t1.FNumber  WITH ROLLUP \r\n",
    kWithEmployeeLabels,
};

constexpr Grouping kCustomerWithEmployee = {
    11,
    kWithEmployeeFill,
    kWithEmployeeColumns,
    "",
    "FProp01, FEmpName, FPropNumber,",
    "CASE WHEN   GROUPING(v1.FPropName) =1 THEN '合计'\r\n"
    "WHEN   GROUPING(v1.FEmpName)=1 THEN  ISNULL(CONVERT(varchar(355),v1.FPropName), '')+'(小计)' \r\n"
    " ELSE CONVERT(varchar(355),v1.FPropName) END, v1.FEmpName, CASE WHEN GROUPING(v1.FPropName) = 1 THEN "
    "'合计'WHEN   GROUPING(t1.FNumber)=1 THEN  ISNULL(CONVERT(varchar(355),t2.FNumber), '')+'(小计)'ELSE "
    "CONVERT(varchar(355),t2.FNumber) END,t1.FNumber,",
    kWithEmployeeCodes,
    " GROUP BY v1.FPropName, v1.FEmpName, t1.FNumber ,t2.FNumber WITH ROLLUP \r\n",
    kWithEmployeeLabels,
};

class Rpt128ByPeople : public Rpt128World {
 protected:
  static DictionaryRef SaleStyle() {
    return std::make_shared<Dictionary>(Entries{{"FName", "销售方式"},
                                                {"FPropID", "29"},
                                                {"FItemClassID", "1"},
                                                {"FSrcTable", ""},
                                                {"FDisplayField", ""},
                                                {"FSQLColumnName", "FSaleStyle"},
                                                {"FSrcField", ""}});
  }
  static Pieces ExpectedRequest(const Grouping& grouping) {
    return {{"SELECT", std::string("SET NOCOUNT ON\r\n") + grouping.fill +
                           "\r\n"
                           "CREATE TABLE #DATA(\r\n"
                           "{GROUPCOLUMNS}{COLUMNS}{COLUMNSEND}\r\n"
                           "{SORTTABLE}INSERT INTO {TABLE} SELECT " +
                           grouping.select + "{VALUES}" + grouping.codes + "{FROM} WHERE 1=1 \r\n\r\n"},
            {"GROUPBY", grouping.group_by},
            {"Append", "{UPDATE}\r\n{REORDER}\r\nDrop Table #DATA2 \r\n"},
            {"EndSel", std::string(grouping.labels) + "SELECT * FROM #DATA  {ONLYTOTALS}\r\n"
                                                      " Order by FID \r\n"
                                                      "DROP TABLE #DATA  \r\n"},
            {"ITEMFILTER", " FItemID In (SELECT DISTINCT ##ITEMID## FROM #DATA2 )"},
            {"NoPrice", ""},
            {"NoTaxRate", ""},
            {"NoDate", ""},
            {"RptID", "Rpt128"}};
  }
  static Pieces ExpectedPieces(const Grouping& grouping, const Pieces& more) {
    Pieces pieces = {{"GROUPCOLUMNS", grouping.columns},
                     {"COLUMNSEND", grouping.columns_end},
                     {"SORTTABLE", ""},
                     {"REORDER", ""},
                     {"ONLYTOTALS", ""},
                     {"LIST", std::string(" ") + grouping.list + " {COMMON}"}};
    for (const auto& [name, text] : more) pieces[name] = text;
    return pieces;
  }
  // The joins of a sorted insert name #Data2 in mixed case.
  static std::string MixedCase(std::string from) { return from.replace(from.find("#DATA2"), 6, "#Data2"); }
  void Expect(const Grouping& grouping, Entries conditions, const Pieces& more) {
    const DictionaryRef filter = Conditions(conditions);
    filter->Set("GroupBy", std::int32_t{1});
    filter->Set("SumMode", grouping.sum_mode);
    filter->Set("SumField", SaleStyle());
    SetMember(Report(), "Filter", filter);
    Call(Report(), "GetReportData");
    ASSERT_TRUE(Ok()) << Error();
    ExpectRequest(request_, ExpectedRequest(grouping), ExpectedPieces(grouping, more));
  }
  // Without an order, with one, totals only, with a condition, at another scale, under data rights.
  void ExpectAllWays(const Grouping& grouping, const Pieces& more = {}) {
    const auto with = [&more](Pieces pieces) {
      pieces.insert(more.begin(), more.end());
      return pieces;
    };
    {
      SCOPED_TRACE("plain");
      Expect(grouping, {}, more);
    }
    {
      SCOPED_TRACE("totals only");
      Expect(grouping, {{"OnlyShowSum", std::int32_t{1}}}, with({{"ONLYTOTALS", "WHERE FSumSort>100"}}));
    }
    {
      SCOPED_TRACE("conditions");
      Expect(grouping, {{"BCustNumber", "02"}, {"CheckState", std::int32_t{2}}, {"FROB", std::int32_t{2}}},
             with({{"ITEM", " AND t2.FNumber>='02'"},
                   {"STOCK", " And v1.FCancelLation=0  AND v1.FROB=-1 "},
                   {"STATE", " And v1.FCancelLation=0  AND v1.FROB=-1 "}}));
    }
    {
      SCOPED_TRACE("order");
      const std::string from = more.contains("FROM") ? more.at("FROM") : Rpt128Pieces().at("FROM");
      Pieces sorted =
          with({{"SORTTABLE", "CREATE TABLE #TemData(\r\n{GROUPCOLUMNS}{COLUMNS}{COLUMNSEND}\r\n"},
                {"TABLE", "#TemData"},
                {"ORDER", "FOutQty DESC"},
                {"REORDER", "{RESORTPEOPLE}Drop Table #TemOrder  Drop Table #TemData "}});
      sorted["FROM"] = MixedCase(from);
      Expect(grouping, {{"OrderBy", "FOutQty DESC"}}, sorted);
    }
    report_ = nullptr;
    UseScale("4");
    RestrictCustomers();
    SCOPED_TRACE("scale and data rights");
    Expect(grouping, {}, with({{"D", "4"}, {"TAIL", " And  CharIndex('16394',t2.FRightUserID)>0 "}}));
  }
};

TEST_F(Rpt128ByPeople, SendsSaleStyles) {
  ExpectAllWays(kSaleStyle);
}

TEST_F(Rpt128ByPeople, SendsEmployees) {
  ExpectAllWays(kEmployee);
}

TEST_F(Rpt128ByPeople, SendsDepartments) {
  ExpectAllWays(kDepartment, {{"FROM", kDepartmentFrom}});
}

TEST_F(Rpt128ByPeople, SendsDepartmentsWithTheEmployeeBehindThem) {
  ExpectAllWays(kDepartmentWithEmployee, {{"PROP", "d.FName"}});
}

TEST_F(Rpt128ByPeople, SendsCustomersWithTheEmployeeBehindThem) {
  ExpectAllWays(kCustomerWithEmployee, {{"PROP", "t2.FName"}});
}

TEST_F(Rpt128ByPeople, NamesTheColumnOfAnEmployeeByTheProperty) {
  const auto property =
      std::make_shared<Dictionary>(Entries{{"FName", "业务员"}, {"FPropID", "3"}, {"FItemClassID", "0"}});
  const Request& request =
      Fetch({{"GroupBy", std::int32_t{1}}, {"SumMode", std::int32_t{6}}, {"SumField", property}});
  EXPECT_NE(request.at("SELECT").find("CREATE TABLE #DATA(\r\n  FProp30 varchar(355) null,\r\n"),
            std::string::npos);
}

TEST_F(Rpt128ByPeople, TakesBillsOfAKnownSaleStyleOnlyButAllBillsOfEmployeesAndDepartments) {
  const auto joins = [this](std::int32_t mode, const std::string& join) {
    const std::string select =
        Fetch({{"GroupBy", std::int32_t{1}}, {"SumMode", mode}, {"SumField", SaleStyle()}}).at("SELECT");
    int count = 0;
    for (std::size_t at = select.find(join); at != std::string::npos; at = select.find(join, at + 1)) ++count;
    return count;
  };
  EXPECT_EQ(joins(7, "Inner Join t_SubMessage s "), 2);
  EXPECT_EQ(joins(6, "Left Join t_Emp e "), 2);
  EXPECT_EQ(joins(6, "t_SubMessage"), 0);
  EXPECT_EQ(joins(9, "Left Join t_Department d "), 2);
  EXPECT_EQ(joins(9, "t_SubMessage"), 0);
}

TEST_F(Rpt128ByPeople, AsksForDataRightsAnew) {
  Report();
  const std::size_t at_creation = rights_->Calls().size();
  EXPECT_EQ(at_creation, 1U);
  Fetch({{"GroupBy", std::int32_t{1}}, {"SumMode", std::int32_t{7}}, {"SumField", SaleStyle()}});
  ASSERT_EQ(rights_->Calls().size(), 2U);
  EXPECT_EQ(rights_->Calls()[1].member, "GetDataRight");
  EXPECT_EQ(rights_->Calls()[1].arguments[0].ToText(), kProps);
  EXPECT_EQ(rights_->Calls()[1].arguments[1].ToInt32(), 16394);
  EXPECT_EQ(rights_->Calls()[1].arguments[2].ToInt32(), 1);
}

TEST_F(Rpt128ByPeople, GoesByTheRightsOfTheFetchAndNotByThoseOfTheCreation) {
  Report();
  RestrictCustomers();
  Expect(kEmployee, {}, {{"TAIL", " And  CharIndex('16394',t2.FRightUserID)>0 "}});
}

}  // namespace
}  // namespace salerpt::testing
