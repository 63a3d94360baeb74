// The order execution summary by class levels: the request of each grouping as the server reads it.
#include <gtest/gtest.h>

#include "sqltoolkit/item_level.h"
#include "tests/reports/rpt138_world.h"

namespace salerpt::testing {
namespace {

constexpr std::int32_t kBranchClass = 10;

struct Span {
  std::int32_t begin;
  std::int32_t end;
  Pieces pieces;
};

// A subtotal carries the class's name, its code in brackets and the word for a subtotal.
constexpr const char* kLabel =
    "Update t1 Set  FName{LEVEL}=ISNULL(FName{LEVEL},'')+'['+\r\n"
    "ISNULL((Select FNumber{LEVEL} from #ItemLevel where FName{LEVEL}=t1.FName{LEVEL} and FNumber=(select "
    "top "
    "1 FNumber from #data where FID<t1.FID and len(FNumber)>0 order by FID desc)),'')+'](小计)'  from #data "
    "t1 "
    "WHERE FSumSort={CODE}\r\n"
    "Update #data Set  FName{LEVEL}=Replace(FName{LEVEL},'[]','')  WHERE FSumSort={CODE}\r\n";

std::string Label(const char* level, const char* code) {
  return Expand(kLabel, {{"LEVEL", level}, {"CODE", code}});
}

Span OneLevel() {
  return {1,
          1,
          {{"DEFS", "FName1 varchar(355) Null,\r\n"},
           {"NAMES", "tt1.FName1,"},
           {"CASES", "  WHEN   Grouping(tt1.FName1)=1 THEN 106\r\n"},
           {"LABELS", Label("1", "107")},
           {"NOBRANCH", " Update #ItemLevel Set FName1='' Where FItemID=0 "},
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
           {"LABELS", Label("2", "108") + Label("3", "109")},
           {"NOBRANCH",
            " Update #ItemLevel Set FName2='' Where FItemID=0 \r\n"
            " Update #ItemLevel Set FName3='' Where FItemID=0 "},
           {"FIRST", "FName2"},
           {"FIRSTCODE", "107"},
           {"NEXT", "109"},
           {"BEHIND", "110"}}};
}

struct Grouping {
  std::int32_t sum_mode;
  std::int32_t level_class;
  const char* item_field;
  const char* columns;
  const char* groups;
  const char* codes;
  const char* group_by;
  const char* from;
  const char* on;
  const char* labels;
};

constexpr const char* kTotal =
    "Update #Data Set {FIRST}='合计' WHERE FSumSort={FIRSTCODE}\r\n"
    "Update #Data Set FSumSort=101   WHERE FSumSort={FIRSTCODE}\r\n";

constexpr Grouping kItemClasses = {
    1,
    kItemClass,
    " FItemID ",
    "{DEFS}",
    "SELECT {NAMES}t1.FNumber",
    "{CASES}  WHEN   Grouping(t1.FNumber)=1 THEN {NEXT}",
    " Group By {NAMES} t1.FNumber",
    "{FROM}",
    " And t1.FItemID=tt1.FItemID",
    "{TOTAL}",
};

constexpr Grouping kCustomerClasses = {
    2,
    kCustomerClass,
    " FCustID ",
    "{DEFS}",
    "SELECT {NAMES}t1.FNumber",
    "{CASES}  WHEN   Grouping(t1.FNumber)=1 THEN {NEXT}",
    " Group By {NAMES} t1.FNumber",
    "{FROM}",
    " And t2.FItemID=tt1.FItemID",
    "{TOTAL}",
};

constexpr Grouping kItemClassesAndCustomer = {
    3,
    kItemClass,
    " FItemID ",
    "{DEFS}FCustName varchar(355) Null,",
    "SELECT {NAMES}t2.FName,t1.FNumber",
    "{CASES}  WHEN   Grouping(t2.FName)=1 THEN  {NEXT}  WHEN   Grouping(t1.FNumber)=1 THEN {BEHIND}",
    "  Group By {NAMES}t2.FName,t1.FNumber",
    "{FROM}",
    " And t1.FItemID=tt1.FItemID",
    "Update #Data Set FCustName=FCustName+'(小计)' WHERE FSumSort={BEHIND}\r\n{TOTAL}",
};

constexpr Grouping kCustomerAndItemClasses = {
    4,
    kItemClass,
    " FItemID ",
    " FCustName varchar(355) Null,{DEFS}",
    "SELECT  t2.FName,{NAMES}t1.FNumber",
    "  WHEN   Grouping(t2.FName)=1 THEN 101 {CASES}  WHEN   Grouping(t1.FNumber)=1 THEN {NEXT}",
    " Group By  t2.FName,{NAMES}t1.FNumber",
    "{FROM}",
    " And t1.FItemID=tt1.FItemID",
    "Update #Data Set FCustName=FCustName+'(小计)' WHERE FSumSort={FIRSTCODE}\r\n"
    "Update #Data Set FCustName='合计' WHERE FSumSort=101\r\n",
};

// Orders without a branch company stand under the level row of id 0.
constexpr Grouping kBranchClasses = {
    6,
    kBranchClass,
    " FCompanyID ",
    "{DEFS}",
    "SELECT {NAMES}t1.FNumber",
    "{CASES}  WHEN   Grouping(t1.FNumber)=1 THEN {NEXT}",
    " Group By {NAMES} t1.FNumber",
    "{BRANCHFROM}",
    " And ISNull(v1.FCompanyID,0) =tt1.FItemID ",
    "{TOTAL}",
};

class Rpt138ByLevels : public Rpt138World {
 protected:
  static Pieces ExpectedRequest(const char* only_sum = "0") {
    return With(CommonKeys(only_sum),
                {{"SELECT",
                  "SET NOCOUNT ON\r\n"
                  "{WORK}\r\n"
                  "{LEVELTABLE}\r\n"
                  "{NOBRANCHROW}\r\n"
                  "IF object_id('tempdb..#DATA') IS NOT NULL DROP TABLE  #DATA   CREATE TABLE #DATA(\r\n"
                  "{GROUPCOLUMNS}\r\n"
                  "{COLUMNS}\r\n"
                  "Insert Into #DATA \r\n"
                  "{GROUPS},\r\n"
                  "{VALUES}CASE\r\n"
                  "{CODES}  ELSE   0 END \r\n"
                  "{SUMFROM},#ItemLevel tt1\r\n"
                  "{WHERE}{ON}"},
                 {"GROUPBY", "{GROUPBY} WITH ROLLUP\r\n{LABELS}{MORELABELS}"},
                 {"ITEMFILTER", " FItemID In (Select DISTINCT {ITEMFIELD} From #DATA2 )"},
                 {"EndSel",
                  "Select * From #DATA  {ONLYTOTALS}\r\n"
                  " Order By FID \r\n"
                  "DROP TABLE #DATA  \r\n"
                  "DROP TABLE #ItemLevel"}});
  }
  static Pieces ExpectedPieces(const Grouping& grouping, const Span& span, const char* begin = "",
                               const char* end = "") {
    Pieces pieces = span.pieces;
    pieces["ITEMFIELD"] = grouping.item_field;
    pieces["GROUPCOLUMNS"] = grouping.columns;
    pieces["GROUPS"] = grouping.groups;
    pieces["CODES"] = grouping.codes;
    pieces["GROUPBY"] = grouping.group_by;
    pieces["SUMFROM"] = grouping.from;
    pieces["ON"] = grouping.on;
    pieces["MORELABELS"] = grouping.labels;
    pieces["TOTAL"] = kTotal;
    pieces["NOBRANCHROW"] = grouping.level_class == kBranchClass
                                ? " Insert Into #ItemLevel(FItemID) Select 0 \r\n{NOBRANCH}"
                                : "";
    pieces["LEVELTABLE"] =
        BuildItemLevelSQL(grouping.level_class, "", begin, end, true, span.begin, span.end, 0);
    return pieces;
  }
  void ExpectGrouping(const Grouping& grouping) {
    for (const Span& span : {OneLevel(), TwoLevels()}) {
      SCOPED_TRACE("levels from " + std::to_string(span.begin));
      ExpectRead(FetchLevels(grouping.sum_mode, span.begin, span.end), ExpectedRequest(),
                 ExpectedPieces(grouping, span));
    }
  }
  void ExpectQuotedTexts(const Grouping& grouping) {
    const Pieces pieces = ExpectedPieces(grouping, TwoLevels());
    FetchLevels(grouping.sum_mode, 2, 3);
    const std::string& select = request_.at("SELECT");
    for (const char* piece :
         {"SET NOCOUNT ON\r\n", "{WORK}", "{LEVELTABLE}",
          "IF object_id('tempdb..#DATA') IS NOT NULL DROP TABLE  #DATA   CREATE TABLE #DATA(\r\n", "{DEFS}",
          "{COLUMNS}", "Insert Into #DATA ", "{VALUES}", "CASE\r\n", "{CASES}", "  ELSE   0 END ",
          "{SUMFROM},#ItemLevel tt1", " Where 1=1 ", "{ON}"}) {
      ExpectPiece(select, piece, pieces);
    }
    ExpectPiece(request_.at("GROUPBY"), "{GROUPBY} WITH ROLLUP\r\n", pieces);
    ExpectPiece(request_.at("GROUPBY"), "{LABELS}", pieces);
    EXPECT_TRUE(SameText(request_.at("ITEMFILTER"),
                         Text(" FItemID In (Select DISTINCT {ITEMFIELD} From #DATA2 )", pieces)));
  }
};

TEST_F(Rpt138ByLevels, SendsItemClasses) {
  ExpectGrouping(kItemClasses);
  ExpectQuotedTexts(kItemClasses);
}

TEST_F(Rpt138ByLevels, SendsCustomerClasses) {
  ExpectGrouping(kCustomerClasses);
  ExpectQuotedTexts(kCustomerClasses);
}

TEST_F(Rpt138ByLevels, SendsItemClassesWithTheCustomerBehindThem) {
  ExpectGrouping(kItemClassesAndCustomer);
  ExpectQuotedTexts(kItemClassesAndCustomer);
}

TEST_F(Rpt138ByLevels, SendsTheCustomerBeforeItemClasses) {
  ExpectGrouping(kCustomerAndItemClasses);
  ExpectQuotedTexts(kCustomerAndItemClasses);
}

TEST_F(Rpt138ByLevels, SendsBranchClassesWithARowForOrdersWithoutABranch) {
  ExpectGrouping(kBranchClasses);
  ExpectQuotedTexts(kBranchClasses);
  const std::string& select = request_.at("SELECT");
  ExpectPiece(select, " Insert Into #ItemLevel(FItemID) Select 0 \r\n");
  ExpectPiece(select, " Update #ItemLevel Set FName3='' Where FItemID=0 ");
  EXPECT_LT(select.find("CREATE TABLE #ItemLevel("), select.find(" Insert Into #ItemLevel(FItemID)"));
}

TEST_F(Rpt138ByLevels, ShowsTotalsOnly) {
  for (const Grouping& grouping :
       {kItemClasses, kCustomerClasses, kItemClassesAndCustomer, kCustomerAndItemClasses, kBranchClasses}) {
    Pieces pieces = ExpectedPieces(grouping, OneLevel());
    pieces["ONLYTOTALS"] = "Where FSumSort>100";
    ExpectRead(FetchLevels(grouping.sum_mode, 1, 1, {{"OnlyShowSum", std::int32_t{1}}}), ExpectedRequest("1"),
               pieces);
  }
}

TEST_F(Rpt138ByLevels, BoundsTheFillAndTheLevels) {
  Pieces pieces = ExpectedPieces(kItemClasses, OneLevel(), "01'1", "09");
  pieces["ITEM"] = " And t10.FNumber>='01''1' And t10.FNumber<='09' And t11.FNumber>='02'";
  ExpectRead(FetchLevels(1, 1, 1, {{"BItemNumber", "01'1"}, {"EItemNumber", "09"}, {"BCustNumber", "02"}}),
             ExpectedRequest(), pieces);
  pieces = ExpectedPieces(kCustomerClasses, OneLevel(), "02", "03");
  pieces["ITEM"] = " And t11.FNumber>='02' And t11.FNumber<='03'";
  ExpectRead(FetchLevels(2, 1, 1, {{"BCustNumber", "02"}, {"ECustNumber", "03"}}), ExpectedRequest(), pieces);
}

TEST_F(Rpt138ByLevels, JoinsBranchCompaniesWhereABoundIsSet) {
  Pieces pieces = ExpectedPieces(kItemClasses, OneLevel());
  pieces["SUMFROM"] = "{BRANCHFROM}";
  pieces["ITEM"] = " And t12.FNumber<='20'";
  pieces["BRANCHBOUND"] = " And t4.FNumber<='20'";
  ExpectRead(FetchLevels(1, 1, 1, {{"ECompanyNumber", "20"}}), ExpectedRequest(), pieces);
}

TEST_F(Rpt138ByLevels, RestrictsTheFillToTheCustomersThatTheUserMaySee) {
  RestrictCustomers();
  Pieces pieces = ExpectedPieces(kBranchClasses, OneLevel());
  pieces["ITEM"] = " And  CharIndex('16394',t11.FRightUserID)>0 ";
  ExpectRead(FetchLevels(6, 1, 1), ExpectedRequest(), pieces);
}

TEST_F(Rpt138ByLevels, KnowsNoOrder) {
  const Request plain = FetchLevels(1, 1, 2);
  EXPECT_EQ(FetchLevels(1, 1, 2, {{"OrderBy", "FOrderQty"}}), plain);
}

}  // namespace
}  // namespace salerpt::testing
