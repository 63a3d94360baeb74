// The customer sales summary by class levels: the request of each grouping as the server reads it.
#include <gtest/gtest.h>

#include "sqltoolkit/item_level.h"
#include "tests/reports/rpt133_world.h"

namespace salerpt::testing {
namespace {

struct Span {
  std::int32_t begin;
  std::int32_t end;
  Pieces pieces;
};

Span OneLevel() {
  return {1,
          1,
          {{"DEFS", "FName1 varchar(355) Null,\r\n"},
           {"NAMES", "tt1.FName1,"},
           {"CASES", "  WHEN   Grouping(tt1.FName1)=1 THEN 106\r\n"},
           {"LABELS", "Update #Data Set  FName1=FName1+'(小计)'  WHERE FSumSort=107\r\n"},
           {"FIRST", "FName1"},
           {"FIRSTCODE", "106"},
           {"NEXT", "107"},
           {"BEHIND", "108"}}};
}

Span TwoLevels() {
  return {2,
          3,
          {{"DEFS", "FName2 varchar(355) Null,\r\nFName3 varchar(355) Null,\r\n"},
           {"NAMES", "tt1.FName2,tt1.FName3,"},
           {"CASES",
            "  WHEN   Grouping(tt1.FName2)=1 THEN 107\r\n"
            "  WHEN   Grouping(tt1.FName3)=1 THEN 108\r\n"},
           {"LABELS",
            "Update #Data Set  FName2=FName2+'(小计)'  WHERE FSumSort=108\r\n"
            "Update #Data Set  FName3=FName3+'(小计)'  WHERE FSumSort=109\r\n"},
           {"FIRST", "FName2"},
           {"FIRSTCODE", "107"},
           {"NEXT", "109"},
           {"BEHIND", "110"}}};
}

struct Grouping {
  std::int32_t sum_mode;
  std::int32_t item_class;
  const char* item_field;
  const char* columns;
  const char* groups;
  const char* codes;
  const char* group_by;
  const char* on;
  const char* labels;
};

constexpr const char* kTotal =
    "Update #Data Set {FIRST}='合计' WHERE FSumSort={FIRSTCODE}\r\n"
    "Update #Data Set FSumSort=101   WHERE FSumSort={FIRSTCODE}\r\n";

constexpr Grouping kItemClasses = {
    1,
    4,
    " v2.FItemID ",
    "{DEFS}",
    "SELECT {NAMES}t1.FNumber",
    "{CASES}  WHEN   Grouping(t1.FNumber)=1 THEN {NEXT}",
    " Group By {NAMES}t1.FNumber",
    " AND t1.FItemID=tt1.FItemID",
    "{TOTAL}",
};

constexpr Grouping kCustomerClasses = {
    2,
    1,
    " v1.FCustID ",
    "{DEFS}",
    "SELECT {NAMES}t1.FNumber",
    "{CASES}  WHEN   Grouping(t1.FNumber)=1 THEN {NEXT}",
    " Group By {NAMES}t1.FNumber",
    " AND t2.FItemID=tt1.FItemID",
    "{TOTAL}",
};

constexpr Grouping kItemClassesAndCustomer = {
    3,
    4,
    " v2.FItemID ",
    "{DEFS}FCustName varchar(355) Null,",
    "SELECT {NAMES}t2.FName,t1.FNumber",
    "{CASES}  WHEN   Grouping(t2.FName)=1 THEN  {NEXT}  WHEN   Grouping(t1.FNumber)=1 THEN {BEHIND}",
    "  Group By {NAMES}t2.FName,t1.FNumber",
    " AND t1.FItemID=tt1.FItemID",
    "Update #Data Set FCustName=FCustName+'(小计)' WHERE FSumSort={BEHIND}\r\n{TOTAL}",
};

// The label of the customer's row goes to the grand total, which then reads as a total again.
constexpr Grouping kCustomerAndItemClasses = {
    4,
    4,
    " v2.FItemID ",
    "FCustNumber varchar(355) null,\r\nFCustName varchar(355) Null,\r\n{DEFS}",
    "SELECT t2.FNumber, t2.FName,{NAMES}t1.FNumber",
    "  WHEN   Grouping(t2.FName)=1 THEN 101 {CASES}  WHEN   Grouping(t1.FNumber)=1 THEN {NEXT}",
    " Group By t2.FNumber, t2.FName,{NAMES}t1.FNumber",
    " AND t1.FItemID=tt1.FItemID",
    "Update #Data Set FCustName=FCustName+'(小计)' WHERE FSumSort={FIRSTCODE}\r\n"
    "Update #Data Set FCustName='合计' WHERE FSumSort=101\r\n"
    "update t1 set t1.FCustName=t2.FName+t1.FCustName from  #DATA t1 inner join t_Organization t2 on "
    "t1.FCustNumber=t2.FNumber\r\n"
    "where t1.FSumSort=101\r\n"
    "declare @lMaxID int\r\n"
    "set @lMaxID=0\r\n"
    "select @lMaxID=max(FID) from #Data\r\n"
    "update #Data set FCustName=(Select top 1 FCustName from #Data where FID<@lMaxID order by FCustName "
    "desc) where FID=@lMaxID\r\n"
    "delete from #data where isnull(FCustNumber,'')<>'' and fsumsort=101\r\n"
    "Update #Data Set FCustName='合计' WHERE FSumSort=101\r\n",
};

class Rpt133ByLevels : public Rpt133World {
 protected:
  static Pieces ExpectedRequest(const Grouping& grouping) {
    return {{"SELECT",
             "SET NOCOUNT ON\r\n"
             "{LEVELTABLE}\r\n"
             "CREATE TABLE #DATA(\r\n"
             "{GROUPCOLUMNS}\r\n"
             "{COLUMNS}\r\n"
             "INSERT INTO  #DATA \r\n"
             "{GROUPS},{VALUES}CASE{CODES}  ELSE   0 END \r\n"
             "{FROM},#ItemLevel tt1{WHERE}{BEFOREON}{ON}{BEHINDON}"},
            {"GROUPBY", std::string(grouping.group_by) + " WITH ROLLUP\r\n"},
            {"ITEMFILTER", "{ITEMFILTER}"},
            {"EndSel",
             "{LABELS}{MORELABELS}\r\n"
             "SELECT * FROM #DATA  {ONLYTOTALS} Order by FID \r\n"
             "DROP TABLE #DATA  \r\n"
             "DROP TABLE #ItemLevel"}};
  }
  static Pieces ExpectedPieces(const Grouping& grouping, const Span& span, const char* begin = "",
                               const char* end = "") {
    Pieces pieces = span.pieces;
    pieces["ITEMFIELD"] = grouping.item_field;
    pieces["GROUPCOLUMNS"] = grouping.columns;
    pieces["GROUPS"] = grouping.groups;
    pieces["CODES"] = grouping.codes;
    pieces["ON"] = grouping.on;
    pieces["MORELABELS"] = grouping.labels;
    pieces["TOTAL"] = kTotal;
    pieces["BEFOREON"] = pieces["BEHINDON"] = "";
    pieces["LEVELTABLE"] =
        BuildItemLevelSQL(grouping.item_class, "", begin, end, true, span.begin, span.end, 0);
    return pieces;
  }
  void ExpectGrouping(const Grouping& grouping) {
    for (const Span& span : {OneLevel(), TwoLevels()}) {
      SCOPED_TRACE("levels from " + std::to_string(span.begin));
      ExpectRead(FetchLevels(grouping.sum_mode, span.begin, span.end), ExpectedRequest(grouping),
                 ExpectedPieces(grouping, span));
    }
  }
};

TEST_F(Rpt133ByLevels, SendsItemClasses) {
  ExpectGrouping(kItemClasses);
}

TEST_F(Rpt133ByLevels, SendsCustomerClasses) {
  ExpectGrouping(kCustomerClasses);
}

TEST_F(Rpt133ByLevels, SendsItemClassesWithTheCustomerBehindThem) {
  ExpectGrouping(kItemClassesAndCustomer);
}

TEST_F(Rpt133ByLevels, SendsTheCustomerBeforeItemClasses) {
  ExpectGrouping(kCustomerAndItemClasses);
}

TEST_F(Rpt133ByLevels, WritesTheSettledWordsToTheLetter) {
  FetchLevels(1, 1, 1);
  const std::string& select = request_.at("SELECT");
  ExpectPiece(select, "{COLUMNS}");
  ExpectPiece(select, "{VALUES}CASE  WHEN   Grouping(tt1.FName1)=1 THEN 106\r\n");
  ExpectPiece(select, "{FROM},#ItemLevel tt1");
  ExpectPiece(select, "{WHERE}");
  ExpectPiece(select, " AND t1.FItemID=tt1.FItemID");
  ExpectPiece(request_.at("EndSel"), "Update #Data Set  FName1=FName1+'(小计)'  WHERE FSumSort=107");
  EXPECT_TRUE(SameText(request_.at("ITEMFILTER"), Text("{ITEMFILTER}", {{"ITEMFIELD", " v2.FItemID "}})));
}

TEST_F(Rpt133ByLevels, ShowsTotalsOnly) {
  for (const Grouping& grouping : {kItemClasses, kCustomerAndItemClasses}) {
    Pieces pieces = ExpectedPieces(grouping, OneLevel());
    pieces["ONLYTOTALS"] = "WHERE FSumSort>100";
    ExpectRead(FetchLevels(grouping.sum_mode, 1, 1, {{"OnlyShowSum", std::int32_t{1}}}),
               ExpectedRequest(grouping), pieces);
  }
}

TEST_F(Rpt133ByLevels, BoundsRowsAndLevels) {
  Pieces pieces = ExpectedPieces(kItemClasses, OneLevel(), "01'1", "09");
  pieces["BEHINDON"] = " AND t1.FNumber>='01''1' AND t1.FNumber<='09' AND t2.FNumber>='02'";
  ExpectRead(FetchLevels(1, 1, 1, {{"BItemNumber", "01'1"}, {"EItemNumber", "09"}, {"BCustNumber", "02"}}),
             ExpectedRequest(kItemClasses), pieces);
  pieces = ExpectedPieces(kCustomerClasses, OneLevel(), "02", "03");
  pieces["BEHINDON"] = " AND t2.FNumber>='02' AND t2.FNumber<='03'";
  ExpectRead(FetchLevels(2, 1, 1, {{"BCustNumber", "02"}, {"ECustNumber", "03"}}),
             ExpectedRequest(kCustomerClasses), pieces);
}

TEST_F(Rpt133ByLevels, RestrictsInvoicesToTheCustomersThatTheUserMaySee) {
  RestrictCustomers();
  for (const Grouping& grouping : {kCustomerClasses, kItemClassesAndCustomer}) {
    Pieces pieces = ExpectedPieces(grouping, OneLevel());
    pieces["TAIL"] = " And  CharIndex('16394',t2.FRightUserID)>0 ";
    ExpectRead(FetchLevels(grouping.sum_mode, 1, 1), ExpectedRequest(grouping), pieces);
  }
}

TEST_F(Rpt133ByLevels, JoinsTheDepartmentsThatBoundTheRows) {
  FetchLevels(1, 1, 1, {{"BDeptNumber", "31"}});
  ExpectPiece(request_.at("SELECT"), " FROM ICSale v1 LEFT JOIN t_Department t3 ON v1.FDeptID=t3.FItemID");
  ExpectPiece(request_.at("SELECT"), " AND t3.FNumber>='31'");
}

}  // namespace
}  // namespace salerpt::testing
