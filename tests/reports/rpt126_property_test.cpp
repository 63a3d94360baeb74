// The income statistics by customer, department, employee or another property: the request as the server
// reads it.
#include <gtest/gtest.h>

#include "tests/reports/rpt126_world.h"

namespace salerpt::testing {
namespace {

class Rpt126ByProperty : public Rpt126World {
 protected:
  // NAME, NUMBER and SHORTNUMBER are the columns of the group, GROUP its value; INSERT gives them.
  static Pieces ExpectedRequest(const char* insert, const char* group_by, const char* labels) {
    return {{"SELECT", std::string("Set NoCount On\r\n"
                                   "Create Table #Data(\r\n"
                                   " {NAME} Varchar(355) Null,\r\n"
                                   " {NUMBER} Varchar(355) Null,\r\n"
                                   " {SHORTNUMBER} Varchar(355) Null,\r\n"
                                   "{COLUMNS}") +
                           insert + "{WHERE}{CONDITION}"},
            {"GROUPBY", group_by},
            {"ITEMFILTER", "{ITEMFILTER}"},
            {"EndSel", std::string(labels) + "UPDATE #Data SET FTaxRate=NULL WHERE FSumSort=101 \r\n"
                                             "SELECT * FROM #Data  {ONLYTOTALS} ORDER BY FID \r\n"
                                             "DROP TABLE #Data  "},
            {"CurrencyShow", "0"},
            {"AuxProp", "0"}};
  }
  // On the number of the customer, department, employee or item.
  static Pieces ByNumber() {
    return ExpectedRequest(
        " INSERT INTO #Data  SELECT CASE  WHEN GROUPING({GROUP})=1 THEN '合计' WHEN GROUPING(t1.FNumber)=1 "
        "THEN  CONVERT(VARCHAR(355),{GROUP})+'(小计)'  ELSE CONVERT(VARCHAR(355),{GROUP}) END, "
        "NULL,NULL{AUXVALUES},t1.FNumber,{VALUES} CASE WHEN GROUPING({GROUP})=1 THEN 101\r\n"
        " WHEN  GROUPING(t1.FNumber)=1 THEN 102 \r\n"
        "{AUXCODE} Else 0 End {FROM}",
        " GROUP BY {GROUP},t1.FNumber{AUXGROUP} WITH ROLLUP",
        "UPDATE #Data SET {NUMBER}=REPLACE(REPLACE({NAME},'合计',''),'(小计)','')\r\n"
        "UPDATE #Data SET {NAME}=CASE WHEN CHARINDEX('(小计)',{NAME})>0 THEN t1.FName+'(小计)' ELSE t1.FName "
        "END FROM #Data INNER JOIN t_Item t1 ON t1.FNumber=REPLACE(#Data.{NAME},'(小计)','') AND "
        "t1.FItemClassID={CLASS}\r\n");
  }
  // On what a table of values shows.
  static Pieces ByTable() {
    return ExpectedRequest(
        "Insert Into #Data Select Case When   Grouping(tt2.FName)=1 THEN '合计'\r\n"
        "WHEN   GROUPING(t1.FNumber)=1 THEN  CONVERT(varchar(355),tt2.FName)+'(小计)' \r\n"
        " ELSE CONVERT(varchar(355),tt2.FName) END, NULL,NULL{AUXVALUES},t1.FNumber,{VALUES} Case When "
        "Grouping(tt2.FName)=1 Then 101\r\n"
        " When  Grouping(t1.FNumber)=1 Then 102 \r\n"
        "{AUXCODE} Else 0 End {FROM} Left Join t_SubMessage tt2 On FRegionID=tt2.FInterID",
        " GROUP BY tt2.FName,t1.FNumber{AUXGROUP} With RollUp ", "");
  }
  static Pieces Columns(const char* word, const char* group, const char* item_class) {
    const std::string dimension(word);
    return {{"NAME", "F" + dimension + "Name"},
            {"NUMBER", "F" + dimension + "Number"},
            {"SHORTNUMBER", "FShort" + dimension + "Number"},
            {"GROUP", group},
            {"CLASS", item_class},
            {"CURRENCYVALUES", "'',\r\n'',\r\n{D},"},
            {"AUXVALUES", ""},
            {"AUXCODE", ""},
            {"AUXGROUP", ""}};
  }
  // The columns of a property that has one column only.
  static Pieces OneColumn(const char* name, const char* group, const char* item_class) {
    Pieces pieces = Columns("Prop", group, item_class);
    pieces["NAME"] = name;
    return pieces;
  }
  static void Split(Pieces& request, Pieces& pieces) {
    request["AuxProp"] = "1";
    for (const auto& [name, text] : AuxiliaryColumns()) pieces[name] = text;
    pieces["AUXVALUES"] = ",V2.FAuxPropID,''";
    pieces["AUXCODE"] = " When Grouping(V2.FAuxPropID)=1 Then 103";
    pieces["AUXGROUP"] = ",v2.FAuxPropID";
  }
  void ExpectRead(const Request& request, const Pieces& expected, const Pieces& more) const {
    for (const auto& [key, text] : request) {
      if (!expected.contains(key))
        ADD_FAILURE() << "nothing is expected under " << key << ": " << Shown(text);
    }
    for (const auto& [key, pattern] : expected) {
      const auto found = request.find(key);
      ASSERT_NE(found, request.end()) << "the request has no " << key;
      EXPECT_TRUE(SameText(AsTheServerReads(found->second), AsTheServerReads(Text(pattern, more))))
          << "under " << key;
    }
  }
};

TEST_F(Rpt126ByProperty, GroupsByTheCustomer) {
  ExpectRead(FetchBy(SumField("客户", 1, 0)), ByNumber(), Columns("Cust", "t2.FNumber", "1"));
}

TEST_F(Rpt126ByProperty, GroupsByTheDepartment) {
  ExpectRead(FetchBy(SumField("部门", 2, 0)), ByNumber(), Columns("Dept", "t3.FNumber", "2"));
}

TEST_F(Rpt126ByProperty, GroupsByTheEmployee) {
  ExpectRead(FetchBy(SumField("业务员", 3, 0)), ByNumber(), Columns("Emp", "t4.FNumber", "3"));
}

TEST_F(Rpt126ByProperty, TakesEveryModeThatIsNoLevelGrouping) {
  for (const std::int32_t mode : {0, 5, 6, 7, 99}) {
    ExpectRead(FetchInvoices(
                   {{"GroupBy", std::int32_t{1}}, {"SumMode", mode}, {"SumField", SumField("业务员", 3, 0)}}),
               ByNumber(), Columns("Emp", "t4.FNumber", "3"));
  }
}

TEST_F(Rpt126ByProperty, WritesTheSettledWordsToTheLetter) {
  FetchBy(SumField("客户", 1, 0));
  const std::string& select = request_.at("SELECT");
  for (const char* piece :
       {"{COLUMNS}", "{VALUES}", "{FROM}", "{WHERE}", " FCustName Varchar(355) Null,",
        " FCustNumber Varchar(355) Null,", " FShortCustNumber Varchar(355) Null,",
        " INSERT INTO #Data  SELECT CASE  WHEN GROUPING(t2.FNumber)=1 THEN '合计' WHEN "
        "GROUPING(t1.FNumber)=1 THEN  CONVERT(VARCHAR(355),t2.FNumber)+'(小计)'  ELSE "
        "CONVERT(VARCHAR(355),t2.FNumber) END, NULL,NULL,t1.FNumber,",
        " CASE WHEN GROUPING(t2.FNumber)=1 THEN 101\r\n WHEN  GROUPING(t1.FNumber)=1 THEN 102 "}) {
    EXPECT_NE(select.find(Text(piece, {{"CURRENCYVALUES", "'',\r\n'',\r\n{D},"}})), std::string::npos)
        << piece;
  }
  EXPECT_EQ(request_.at("GROUPBY").find(" GROUP BY t2.FNumber,t1.FNumber WITH ROLLUP"), 0U);
  const std::string& end = request_.at("EndSel");
  for (const char* piece :
       {"UPDATE #Data SET FCustNumber=REPLACE(REPLACE(FCustName,'合计',''),'(小计)','')",
        "UPDATE #Data SET FCustName=CASE WHEN CHARINDEX('(小计)',FCustName)>0 THEN t1.FName+'(小计)' ELSE "
        "t1.FName END FROM #Data INNER JOIN t_Item t1 ON t1.FNumber=REPLACE(#Data.FCustName,'(小计)','') "
        "AND t1.FItemClassID=1",
        "UPDATE #Data SET FTaxRate=NULL WHERE FSumSort=101 "}) {
    EXPECT_NE(end.find(piece), std::string::npos) << piece;
  }
}

TEST_F(Rpt126ByProperty, NamesTheOneColumnOfAnotherPropertyAsTheHeaderDoes) {
  ExpectRead(FetchBy(SumField("规格", 4, 3)), ByNumber(), OneColumn("FProp34", "t1.FNumber", "4"));
  ExpectRead(FetchBy(SumField("联系人", 1, 7)), ByNumber(), OneColumn("FProp71", "t2.FNumber", "1"));
  ExpectRead(FetchBy(SumField("部门属性", 2, 5)), ByNumber(), OneColumn("FProp52", "t3.FNumber", "2"));
  ExpectRead(FetchBy(SumField("职务", 3, 4)), ByNumber(), OneColumn("FProp43", "t4.FNumber", "3"));
}

TEST_F(Rpt126ByProperty, GroupsByATableOfValues) {
  ExpectRead(FetchBy(SumFieldWithTable("区域", 1, 12)), ByTable(), OneColumn("FProp121", "", "1"));
  ExpectRead(FetchBy(SumFieldWithTable("物料来源", 4, 5)), ByTable(), OneColumn("FProp54", "", "4"));
}

TEST_F(Rpt126ByProperty, WritesTheSettledWordsOfATableOfValuesToTheLetter) {
  FetchBy(SumFieldWithTable("区域", 1, 12), {{"AuxProp", std::int32_t{1}}});
  const std::string& select = request_.at("SELECT");
  for (const char* piece :
       {" FProp121 Varchar(355) Null,", "Insert Into #Data Select Case When   Grouping(tt2.FName)",
        " Case When Grouping(tt2.FName)=1 Then 101\r\n When  Grouping(t1.FNumber)=1 Then 102 ",
        " When Grouping(V2.FAuxPropID)=1 Then 103", " Else 0 End ",
        " Left Join t_SubMessage tt2 On FRegionID=tt2.FInterID", "{WHERE}"}) {
    EXPECT_NE(select.find(Text(piece)), std::string::npos) << piece;
  }
  EXPECT_EQ(request_.at("GROUPBY").find(" GROUP BY tt2.FName,t1.FNumber,v2.FAuxPropID With RollUp "), 0U);
}

TEST_F(Rpt126ByProperty, ReadsThePropertyWrittenAsTextToo) {
  const DictionaryRef property = SumField("部门", 2, 0);
  property->Set("FItemClassID", "2");
  property->Set("FPropID", "0");
  ExpectRead(FetchBy(property), ByNumber(), Columns("Dept", "t3.FNumber", "2"));
}

TEST_F(Rpt126ByProperty, SplitsItemsByTheirAuxiliaryProperty) {
  Pieces request = ByNumber();
  Pieces pieces = Columns("Cust", "t2.FNumber", "1");
  Split(request, pieces);
  ExpectRead(FetchBy(SumField("客户", 1, 0), {{"AuxProp", std::int32_t{1}}}), request, pieces);
}

TEST_F(Rpt126ByProperty, SplitsItemsUnderATableOfValues) {
  Pieces request = ByTable();
  Pieces pieces = OneColumn("FProp121", "", "1");
  Split(request, pieces);
  ExpectRead(FetchBy(SumFieldWithTable("区域", 1, 12), {{"AuxProp", std::int32_t{1}}}), request, pieces);
}

TEST_F(Rpt126ByProperty, KnowsNoCurrencyAsALevel) {
  Pieces request = ByNumber();
  request["CurrencyShow"] = "1";
  Pieces pieces = Columns("Cust", "t2.FNumber", "1");
  for (const auto& [name, text] : BillCurrency()) pieces[name] = text;
  ExpectRead(FetchBy(SumField("客户", 1, 0), {{"CurrencyShow", std::int32_t{1}}}), request, pieces);
  EXPECT_EQ(request_.at("SELECT").find("本位币合计"), std::string::npos);
}

TEST_F(Rpt126ByProperty, ShowsTotalsOnly) {
  Pieces pieces = Columns("Cust", "t2.FNumber", "1");
  pieces["ONLYTOTALS"] = "WHERE FSumSort>100";
  ExpectRead(FetchBy(SumField("客户", 1, 0), {{"OnlyShowSum", std::int32_t{1}}}), ByNumber(), pieces);
}

TEST_F(Rpt126ByProperty, PutsTheConditionBehindTheBillKinds) {
  Pieces pieces = Columns("Dept", "t3.FNumber", "2");
  pieces["CONDITION"] = " And t1.FNumber>='01' And t3.FNumber<='09'";
  ExpectRead(FetchBy(SumField("部门", 2, 0), {{"BItemNumber", "01"}, {"EDeptNumber", "09"}}), ByNumber(),
             pieces);
}

TEST_F(Rpt126ByProperty, KeepsAmountsAtTheScaleOfTheBaseCurrency) {
  UseScale("4");
  Pieces pieces = Columns("Emp", "t4.FNumber", "3");
  pieces["D"] = "4";
  ExpectRead(FetchBy(SumField("业务员", 3, 0)), ByNumber(), pieces);
}

TEST_F(Rpt126ByProperty, RestrictsInvoicesToTheCustomersThatTheUserMaySee) {
  RestrictCustomers();
  Pieces pieces = Columns("Emp", "t4.FNumber", "3");
  pieces["TAIL"] = " And  CharIndex('16394',t2.FRightUserID)>0 ";
  ExpectRead(FetchBy(SumField("业务员", 3, 0)), ByNumber(), pieces);
}

}  // namespace
}  // namespace salerpt::testing
