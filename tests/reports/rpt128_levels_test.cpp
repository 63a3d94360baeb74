// The outbound summary by class levels: the whole request of each grouping, to the letter.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/reports/rpt128_level_spans.h"
#include "tests/reports/rpt128_world.h"

namespace salerpt::testing {
namespace {

// The part of a grouping's request that differs, each for a span of levels.
struct Grouping {
  std::int32_t sum_mode;
  // Columns of #DATA before the common ones; the same as the column list of the re-sort pass has them.
  const char* columns;
  const char* list;
  // Group columns and row codes.
  const char* groups;
  const char* codes;
  // How items or customers meet their levels.
  const char* on;
  const char* group_by;
  // Labels, behind those of the levels.
  const char* labels;
  // The field of #DATA2 that spares rows, and the class of #ItemLevel.
  const char* item_field;
  const char* item_class;
};

constexpr const char* kFinalSelect = "SELECT * FROM #DATA  {ONLYTOTALS}\r\n Order by FID \r\n";

class Rpt128ByLevels : public Rpt128World {
 protected:
  static Pieces ExpectedRequest(const Grouping& grouping, const char* final_select) {
    return {{"SELECT",
             "SET NOCOUNT ON\r\n"
             "{FILL}\r\n"
             "{LEVELTABLE}\r\n"
             "{SORTTABLE}CREATE TABLE #DATA(\r\n"
             "{GROUPCOLUMNS}\r\n"
             "{COLUMNS}{SORTEND}INSERT INTO {TARGET}\r\n"
             "SELECT {GROUPS},{VALUES}CASE{CODES}  ELSE   0 END \r\n"
             "{FROM} Inner Join #ItemLevel tt1 \r\n"
             "{ON} WHERE 1=1 \r\n"},
            {"GROUPBY", std::string(grouping.group_by) + " WITH ROLLUP\r\n"},
            {"Append", "{UPDATE}\r\n{REORDER}\r\nDrop Table #DATA2 \r\n"},
            {"EndSel", std::string("{LABELS}{MORELABELS}\r\n") + final_select +
                           "DROP TABLE #DATA  \r\n"
                           "DROP TABLE #ItemLevel"},
            {"ITEMFILTER", " FItemID In (SELECT DISTINCT {ITEMFIELD} FROM #DATA2 )"},
            {"NoPrice", ""},
            {"NoTaxRate", ""},
            {"NoDate", ""},
            {"RptID", "Rpt128"}};
  }
  static Pieces ExpectedPieces(const Grouping& grouping, const LevelSpan& span) {
    Pieces pieces = span.pieces;
    pieces["GROUPCOLUMNS"] = grouping.columns;
    pieces["LIST"] = std::string(" ") + grouping.list + " {COMMON}";
    pieces["GROUPS"] = grouping.groups;
    pieces["CODES"] = grouping.codes;
    pieces["ON"] = grouping.on;
    pieces["MORELABELS"] = grouping.labels;
    pieces["ITEMFIELD"] = grouping.item_field;
    pieces["CLASS"] = grouping.item_class;
    pieces["RANGE"] = "";
    pieces["ONLYTOTALS"] = "";
    pieces["SORTTABLE"] = "";
    pieces["SORTEND"] = "";
    pieces["TARGET"] = " #DATA ";
    pieces["REORDER"] = "";
    return pieces;
  }
  static void Sort(Pieces& pieces, const char* order) {
    pieces["SORTTABLE"] = "CREATE TABLE #TemDATA(\r\n{GROUPCOLUMNS}\r\n{COLUMNS}\r\n";
    pieces["SORTEND"] = "\r\n";
    pieces["TARGET"] = " #TemData ";
    pieces["TABLE"] = "#TemData";
    pieces["ORDER"] = order;
    pieces["REORDER"] = "{RESORT}Drop Table #TemOrder  Drop Table #TemData \r\n";
  }
  // For each span, without an order and with one; each by a report of its own.
  void ExpectGrouping(const Grouping& grouping, const char* final_select, const Pieces& more = {}) {
    for (const LevelSpan& span : LevelSpans()) {
      for (const char* order : {"", "FOutAmount DESC,FName1"}) {
        SCOPED_TRACE(std::string("levels from ") + std::to_string(span.begin) + ", order " + order);
        Pieces pieces = ExpectedPieces(grouping, span);
        for (const auto& [name, text] : more) pieces[name] = text;
        if (*order != '\0') Sort(pieces, order);
        report_ = nullptr;
        ExpectRequest(Fetch({{"GroupBy", std::int32_t{1}},
                             {"SumMode", grouping.sum_mode},
                             {"BLevel", span.begin},
                             {"ELevel", span.end},
                             {"OrderBy", order}}),
                      ExpectedRequest(grouping, final_select), pieces);
      }
    }
  }
  // One span without an order, with conditions.
  void ExpectWith(const Grouping& grouping, const char* final_select, Entries conditions,
                  const Pieces& more) {
    Pieces pieces = ExpectedPieces(grouping, LevelSpans()[1]);
    for (const auto& [name, text] : more) pieces[name] = text;
    std::vector<Dictionary::Entry> entries = {{"GroupBy", std::int32_t{1}},
                                              {"SumMode", grouping.sum_mode},
                                              {"BLevel", std::int32_t{1}},
                                              {"ELevel", std::int32_t{2}}};
    const DictionaryRef filter = Conditions(conditions);
    for (const Dictionary::Entry& entry : entries) filter->Set(entry.key, entry.value);
    SetMember(Report(), "Filter", filter);
    Call(Report(), "GetReportData");
    ASSERT_TRUE(Ok()) << Error();
    ExpectRequest(request_, ExpectedRequest(grouping, final_select), pieces);
  }
};

constexpr Grouping kItemClasses = {
    1,
    "{DEFS}",
    "{LISTED}",
    "{NAMES}t1.FNumber",
    "{CASES}  WHEN   Grouping(t1.FNumber)=1 THEN {NEXT}",
    " On t1.FItemID=tt1.FItemID",
    " Group By {NAMES}t1.FNumber",
    "Update #Data Set {FIRST}='合计' WHERE FSumSort={FIRSTCODE}\r\n"
    "Update #Data Set FSumSort=101   WHERE FSumSort={FIRSTCODE}\r\n",
    " FItemID ",
    "4",
};

constexpr Grouping kCustomerClasses = {
    2,
    "{DEFS}",
    "{LISTED}",
    "{NAMES}t1.FNumber",
    "{CASES}  WHEN   Grouping(t1.FNumber)=1 THEN {NEXT}",
    " On t2.FItemID=tt1.FItemID",
    " Group By {NAMES}t1.FNumber",
    "Update #Data Set {FIRST}='合计' WHERE FSumSort={FIRSTCODE}\r\n"
    "Update #Data Set FSumSort=101   WHERE FSumSort={FIRSTCODE}\r\n",
    " FCustID ",
    "1",
};

constexpr Grouping kItemClassesAndCustomer = {
    3,
    "{DEFS}FCustName varchar(355) Null,",
    "{LISTED} FCustName,",
    "{NAMES}t2.FName,t1.FNumber",
    "{CASES}  WHEN   Grouping(t2.FName)=1 THEN  {NEXT}  WHEN   Grouping(t1.FNumber)=1 THEN {BEHIND}",
    " On t1.FItemID=tt1.FItemID",
    "  Group By {NAMES}t2.FName,t1.FNumber",
    "Update #Data Set FCustName=FCustName+'(小计)' WHERE FSumSort={BEHIND}\r\n"
    "Update #Data Set {FIRST}='合计' WHERE FSumSort={FIRSTCODE}\r\n"
    "Update #Data Set FSumSort=101   WHERE FSumSort={FIRSTCODE}\r\n",
    " FItemID ",
    "4",
};

constexpr Grouping kCustomerClassesAndCustomer = {
    8,
    "{DEFS}FCustName varchar(355) Null,",
    "{LISTED} FCustName,",
    "{NAMES}t2.FName,t1.FNumber",
    "{CASES}  WHEN   Grouping(t2.FName)=1 THEN  {NEXT}  WHEN   Grouping(t1.FNumber)=1 THEN {BEHIND}",
    " On t2.FItemID=tt1.FItemID",
    "  Group By {NAMES}t2.FName,t1.FNumber",
    "Update #Data Set FCustName=FCustName+'(小计)' WHERE FSumSort={BEHIND}\r\n"
    "Update #Data Set {FIRST}='合计' WHERE FSumSort={FIRSTCODE}\r\n"
    "Update #Data Set FSumSort=101   WHERE FSumSort={FIRSTCODE}\r\n",
    " FCustID ",
    "1",
};

constexpr Grouping kCustomerAndItemClasses = {
    4,
    "FCustNumber varchar(355) null,\r\nFCustName varchar(355) Null,\r\n{DEFS}",
    "FCustNumber, FCustName, {LISTED}",
    "t2.FNumber, t2.FName,{NAMES}t1.FNumber",
    "  WHEN   Grouping(t2.FName)=1 THEN 101 {CASES}  WHEN   Grouping(t1.FNumber)=1 THEN {NEXT}",
    " On t1.FItemID=tt1.FItemID",
    " Group By t2.FNumber, t2.FName,{NAMES}t1.FNumber",
    "Update #Data Set FCustName=FCustName+'(小计)' WHERE FSumSort={FIRSTCODE}\r\n"
    "Update #Data Set FCustName='合计' WHERE FSumSort=101\r\n"
    "update t1 set t1.FCustName=t2.FName+t1.FCustName from  #DATA t1 inner join t_Organization t2 on "
    "t1.FCustNumber=t2.FNumber\r\n"
    "where t1.FSumSort=101\r\n"
    "declare @lMaxID int\r\n"
    "set @lMaxID=0\r\n"
    "select @lMaxID=max(FID) from #Data\r\n"
    "update #Data set FCustName=(Select top 1 FCustName from #Data where FID<@lMaxID order by FCustName "
    "desc) "
    "where FID=@lMaxID\r\n"
    "delete from #data where isnull(FCustNumber,'')<>'' and fsumsort=101",
    " FItemID ",
    "4",
};

constexpr const char* kCustomerFinalSelect =
    "Select case when charindex('合计',FCustName)>0 then '合计' else FCustName end as "
    "FCustName,FCustNumber,FCustName as FCustName1,\r\n"
    "{ONLYNAMES}FNumber,FShortNumber,FName,FModel,FUnitName,\r\n"
    "FQtyDecimal,FPriceDecimal,FOutQty,FOutAmount,FCommitQty,FCommitAmount,FNotCommitAmount,FNotCommitQty,"
    "FConsignAmount,FCUUnitName,FCUUnitOutQty,\r\n"
    "FCUUnitCommitQty,FCUUnitNotCommitQty,FSumSort,FID,FSecUnitName,FSecQty,FSecInvoiceQty,FSecNInvoiceQty"
    "  FROM #DATA  {ONLYTOTALS}\r\n"
    "Order by FID \r\n";

constexpr Grouping kEmployeeCustomerAndItemClasses = {
    12,
    "FEmpName varchar(355) null,\r\nFCustNumber varchar(355) null,\r\nFCustName varchar(355) Null,\r\n{DEFS}",
    "FEmpName, FCustNumber, FCustName, {LISTED}",
    "v1.FEmp,t2.FNumber, t2.FName,{NAMES}t1.FNumber",
    "  WHEN   Grouping(v1.FEmp)=1 THEN 101 \r\n"
    "  WHEN   Grouping(t2.FNumber)=1 THEN 102 \r\n"
    "  WHEN   Grouping(t2.FName)=1 THEN 103 {CASES}  WHEN   Grouping(t1.FNumber)=1 THEN {NEXT}",
    " On t1.FItemID=tt1.FItemID",
    "  Group By v1.FEmp, t2.FNumber, t2.FName,{NAMES}t1.FNumber",
    "Update #Data Set FCustName=FCustName+'(小计)' WHERE FSumSort={FIRSTCODE}\r\n"
    "Update #Data Set FEmpName=isNull(FEmpName, '')+'(小计)' where FSumSort = 102\r\n"
    "Update #Data Set FEmpName='合计' WHERE FSumSort=101\r\n"
    "update t1 set t1.FCustName=t2.FName+t1.FCustName from  #DATA t1 inner join t_Organization t2 on "
    "t1.FCustNumber=t2.FNumber\r\n"
    "where t1.FSumSort=103\r\n"
    "delete from #data where fsumsort=103",
    " FItemID ",
    "4",
};

Pieces EmployeeInTheFill() {
  return {{"OTHERCOL", "FEmp varchar(355) null,"},
          {"COLNAME", "FEmp,"},
          {"COLVALUE", "e.FName,"},
          {"JOINTABLE", "Left Join t_Emp e On v1.FEmpID=e.FItemID "}};
}

TEST_F(Rpt128ByLevels, SendsItemClasses) {
  ExpectGrouping(kItemClasses, kFinalSelect);
}

TEST_F(Rpt128ByLevels, SendsCustomerClasses) {
  ExpectGrouping(kCustomerClasses, kFinalSelect);
}

TEST_F(Rpt128ByLevels, SendsItemClassesWithTheCustomerBehindThem) {
  ExpectGrouping(kItemClassesAndCustomer, kFinalSelect);
}

TEST_F(Rpt128ByLevels, SendsCustomerClassesWithTheCustomerBehindThem) {
  ExpectGrouping(kCustomerClassesAndCustomer, kFinalSelect);
}

TEST_F(Rpt128ByLevels, SendsTheCustomerBeforeItemClasses) {
  ExpectGrouping(kCustomerAndItemClasses, kCustomerFinalSelect);
}

TEST_F(Rpt128ByLevels, SendsEmployeeAndCustomerBeforeItemClasses) {
  ExpectGrouping(kEmployeeCustomerAndItemClasses, kFinalSelect, EmployeeInTheFill());
}

TEST_F(Rpt128ByLevels, ShowsTotalsOnly) {
  ExpectWith(kItemClasses, kFinalSelect, {{"OnlyShowSum", std::int32_t{1}}},
             {{"ONLYTOTALS", "WHERE FSumSort>100"}});
}

TEST_F(Rpt128ByLevels, ShowsTotalsOnlyOfCustomersBeforeItemClasses) {
  ExpectWith(kCustomerAndItemClasses, kCustomerFinalSelect, {{"OnlyShowSum", std::int32_t{1}}},
             {{"ONLYTOTALS", " WHERE FSumSort>100"}});
}

TEST_F(Rpt128ByLevels, BoundsTheLevelsOfItemsByTheItemRange) {
  ExpectWith(
      kItemClasses, kFinalSelect,
      {{"BItemNumber", "01'1"}, {"EItemNumber", "09"}, {"BCustNumber", "02"}, {"ECustNumber", "03"}},
      {{"RANGE", " AND FNumber>='01''1' AND FNumber<='09'"},
       {"ITEM", " AND t1.FNumber>='01''1' AND t1.FNumber<='09' AND t2.FNumber>='02' AND t2.FNumber<='03'"}});
}

TEST_F(Rpt128ByLevels, BoundsTheLevelsOfCustomersByTheCustomerRange) {
  ExpectWith(kCustomerClassesAndCustomer, kFinalSelect, {{"BItemNumber", "01"}, {"BCustNumber", "02"}},
             {{"RANGE", " AND FNumber>='02'"}, {"ITEM", " AND t1.FNumber>='01' AND t2.FNumber>='02'"}});
}

TEST_F(Rpt128ByLevels, BoundsTheLevelsByTheShortCodeWhereThatIsInUse) {
  UseShortCode();
  ExpectWith(kCustomerClasses, kFinalSelect, {{"BCustNumber", "2"}, {"ECustNumber", "3"}},
             {{"RANGE", " AND FShortNumber>='2' AND FShortNumber<='3'"},
              {"ITEM", " AND t2.FShortNumber>='2' AND t2.FShortNumber<='3'"}});
}

TEST_F(Rpt128ByLevels, KeepsAmountsAtTheScaleOfTheBaseCurrency) {
  UseScale("4");
  ExpectWith(kCustomerAndItemClasses, kCustomerFinalSelect, {}, {{"D", "4"}});
}

TEST_F(Rpt128ByLevels, RestrictsBothHalvesToTheCustomersThatTheUserMaySee) {
  RestrictCustomers();
  ExpectGrouping(kItemClassesAndCustomer, kFinalSelect,
                 {{"TAIL", " And  CharIndex('16394',t2.FRightUserID)>0 "}});
}

TEST_F(Rpt128ByLevels, NeedsNoTableOfAnOrderWhereNoneIsAsked) {
  for (const auto& [key, text] : Fetch({{"GroupBy", std::int32_t{1}},
                                        {"SumMode", std::int32_t{1}},
                                        {"BLevel", std::int32_t{1}},
                                        {"ELevel", std::int32_t{1}}})) {
    EXPECT_EQ(text.find("#Tem"), std::string::npos) << "under " << key;
  }
}

TEST_F(Rpt128ByLevels, GivesTheOneLevelBothTheTotalLabelAndSubtotals) {
  const std::string labels = Fetch({{"GroupBy", std::int32_t{1}},
                                    {"SumMode", std::int32_t{1}},
                                    {"BLevel", std::int32_t{3}},
                                    {"ELevel", std::int32_t{3}}})
                                 .at("EndSel");
  EXPECT_NE(labels.find("Update t1 Set  FName3="), std::string::npos);
  EXPECT_NE(labels.find("from #data t1 WHERE FSumSort=109\r\n"), std::string::npos);
  EXPECT_NE(labels.find("Update #Data Set FName3='合计' WHERE FSumSort=108\r\n"), std::string::npos);
}

}  // namespace
}  // namespace salerpt::testing
