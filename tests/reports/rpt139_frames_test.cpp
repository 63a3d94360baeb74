// The frames that the order tracking sends over its work table, line by line and by class levels.
#include <gtest/gtest.h>

#include "sqltoolkit/item_level.h"
#include "tests/reports/rpt139_world.h"

namespace salerpt::testing {
namespace {

class Rpt139Plain : public Rpt139World {
 protected:
  static Pieces ExpectedRequest(const char* only_sum = "0") {
    return {{"SELECT",
             "SET NOCOUNT ON\r\n"
             "CREATE TABLE #DATA(\r\n"
             "{COLUMNS}\r\n"
             "  INSERT INTO #DATA  SELECT \r\n"
             "{VALUES}\r\n"
             " CASE  WHEN GROUPING(t1.FNumber)=1 THEN 101 \r\n"
             " ELSE 0 END {FROM}{WHERE}\r\n"
             "{CONDITION}"},
            {"ITEMFILTER", " FItemID In (SELECT DISTINCT ##ITEMID## FROM #T139) "},
            {"GROUPBY", " group by V1.FInterID,V1.FEntryID,V1.FItemID,t1.FNumber \r\n{ROLLUP}"},
            {"OnlyShowSum", only_sum},
            {"EndSel",
             "SELECT * FROM #DATA  {ONLYTOTALS}\r\n"
             " order by  FSumSort,FInterID,FEntryID,FItemNumber  \r\n"
             "DROP TABLE #DATA  "}};
  }
  void ExpectCondition(const char* condition, Entries more) {
    ExpectRead(Fetch(more), ExpectedRequest(), {{"CONDITION", condition}});
    ExpectPiece(request_.at("SELECT"), condition);
  }
  void ExpectRefused(Entries more) {
    Run(more);
    EXPECT_FALSE(Ok());
    EXPECT_NE(Error(), "");
    EXPECT_TRUE(sales_->Calls().empty()) << "nothing goes to the server";
    EXPECT_EQ(toolkit_->shown, toolkit_->unloaded);
  }
};

TEST_F(Rpt139Plain, SendsTheWholeFrame) {
  ExpectRead(Fetch(), ExpectedRequest());
}

TEST_F(Rpt139Plain, WritesTheSettledTextsToTheByte) {
  Fetch();
  const std::string& select = request_.at("SELECT");
  ExpectPiece(select, "SET NOCOUNT ON\r\n");
  ExpectPiece(select, "CREATE TABLE #DATA(\r\n{COLUMNS}\r\n");
  ExpectPiece(select, "\r\n  INSERT INTO #DATA  SELECT \r\n{VALUES}");
  ExpectPiece(select, " CASE  WHEN GROUPING(t1.FNumber)=1 THEN 101 \r\n ELSE 0 END {FROM}{WHERE}");
  EXPECT_TRUE(SameText(request_.at("GROUPBY"),
                       Text(" group by V1.FInterID,V1.FEntryID,V1.FItemID,t1.FNumber \r\n{ROLLUP}")));
  EXPECT_TRUE(SameText(request_.at("ITEMFILTER"), " FItemID In (SELECT DISTINCT ##ITEMID## FROM #T139) "));
  ExpectPiece(request_.at("EndSel"),
              "SELECT * FROM #DATA  \r\n order by  FSumSort,FInterID,FEntryID,FItemNumber  ");
  ExpectPiece(request_.at("EndSel"), "DROP TABLE #DATA  ");
}

TEST_F(Rpt139Plain, ShowsTotalsOnly) {
  ExpectRead(Fetch({{"OnlyShowSum", std::int32_t{1}}}), ExpectedRequest("1"),
             {{"ONLYTOTALS", "WHERE FSumSort>100"}});
  ExpectPiece(request_.at("EndSel"), "SELECT * FROM #DATA  WHERE FSumSort>100\r\n order by  FSumSort,");
}

TEST_F(Rpt139Plain, IsTheFrameOfEverySettingButLevelsOfItems) {
  const Request plain = Fetch();
  for (const std::int32_t mode : {0, 2, 3, 4, 5}) {
    EXPECT_EQ(Fetch({{"GroupBy", std::int32_t{1}},
                     {"SumMode", mode},
                     {"BLevel", std::int32_t{1}},
                     {"ELevel", std::int32_t{2}}}),
              plain)
        << "mode " << mode;
  }
  for (const std::int32_t group_by : {0, 2}) {
    EXPECT_EQ(Fetch({{"GroupBy", group_by},
                     {"SumMode", std::int32_t{1}},
                     {"BLevel", std::int32_t{1}},
                     {"ELevel", std::int32_t{2}}}),
              plain)
        << "GroupBy " << group_by;
  }
}

TEST_F(Rpt139Plain, BoundsItems) {
  ExpectCondition(" AND t1.FNumber>='01'", {{"BItemNumber", "01"}});
  ExpectCondition(" AND t1.FNumber>='01' AND t1.FNumber<='0''9'",
                  {{"BItemNumber", "01"}, {"EItemNumber", "0'9"}, {"Mode", std::int32_t{0}}});
}

TEST_F(Rpt139Plain, BoundsItemsByTheShortCodeWhereThatIsInUse) {
  UseShortCode();
  ExpectCondition(" AND t1.FShortNumber>='1' AND t1.FShortNumber<='9'",
                  {{"BItemNumber", "1"}, {"EItemNumber", "9"}});
}

TEST_F(Rpt139Plain, TakesOneItemClassInTheOtherModes) {
  for (const std::int32_t mode : {1, 2}) {
    ExpectCondition(
        " AND t1.FNumber Like '01.02.%'",
        {{"Mode", mode}, {"ItemClassNumber", "01.02"}, {"BItemNumber", "05"}, {"EItemNumber", "09"}});
    ExpectCondition("", {{"Mode", mode}, {"ItemClassNumber", ""}, {"BItemNumber", "05"}});
  }
  ExpectCondition("", {{"Mode", std::int32_t{0}}, {"ItemClassNumber", "01"}});
}

TEST_F(Rpt139Plain, KeepsTheLongCodeOfAClassWhereTheShortCodeIsInUse) {
  UseShortCode();
  ExpectCondition(" AND t1.FNumber Like '0''1.%'", {{"Mode", std::int32_t{1}}, {"ItemClassNumber", "0'1"}});
}

TEST_F(Rpt139Plain, TakesCommoditiesOnlyOrAllButThem) {
  ExpectCondition(" And t1.FErpClsID=4", {{"CommodityType", std::int32_t{1}}});
  ExpectCondition(" And t1.FErpClsID<>4", {{"CommodityType", std::int32_t{2}}});
  ExpectCondition("", {{"CommodityType", std::int32_t{3}}});
  ExpectCondition(" AND t1.FNumber>='01' And t1.FErpClsID=4",
                  {{"CommodityType", std::int32_t{1}}, {"BItemNumber", "01"}});
}

TEST_F(Rpt139Plain, LeavesEveryOtherConditionToTheMiddleTier) {
  const Request plain = Fetch();
  EXPECT_EQ(Fetch({{"BClientNumber", "02"},
                   {"EClientNumber", "03"},
                   {"BEmp", "51"},
                   {"BBillNo", "SE1"},
                   {"BDept", "31"},
                   {"FSaleStyle", std::int32_t{201}},
                   {"CheckState", std::int32_t{1}},
                   {"CheckClose", std::int32_t{1}},
                   {"Unexecuted", std::int32_t{1}}}),
            plain);
}

TEST_F(Rpt139Plain, KeepsTheRightsOutOfTheFrame) {
  const Request plain = Fetch();
  RestrictCustomers();
  EXPECT_EQ(Fetch(), plain);
}

TEST_F(Rpt139Plain, RefusesANumberThatIsNone) {
  ExpectRefused({{"CommodityType", "all"}});
  ExpectRefused({{"Mode", "class"}});
}

struct Span {
  std::int32_t begin;
  std::int32_t end;
  Pieces pieces;
};

Span OneLevel() {
  return {1,
          1,
          {{"DEFS", "FName1 varchar(355) Null,\r\n"},
           {"NAMES", "ItemLevel.FName1,"},
           {"CASES", "  WHEN   Grouping(ItemLevel.FName1)=1 THEN 106\r\n"},
           {"LABELS", "Update #Data Set  FName1=ISNULL(FName1,'')+'(小计)'  WHERE FSumSort=107\r\n"},
           {"FIRST", "FName1"},
           {"FIRSTCODE", "106"},
           {"NEXT", "107"}}};
}

Span TwoLevels() {
  return {2,
          3,
          {{"DEFS", "FName2 varchar(355) Null,\r\nFName3 varchar(355) Null,\r\n"},
           {"NAMES", "ItemLevel.FName2,ItemLevel.FName3,"},
           {"CASES",
            "  WHEN   Grouping(ItemLevel.FName2)=1 THEN 107\r\n"
            "  WHEN   Grouping(ItemLevel.FName3)=1 THEN 108\r\n"},
           {"LABELS",
            "Update #Data Set  FName2=ISNULL(FName2,'')+'(小计)'  WHERE FSumSort=108\r\n"
            "Update #Data Set  FName3=ISNULL(FName3,'')+'(小计)'  WHERE FSumSort=109\r\n"},
           {"FIRST", "FName2"},
           {"FIRSTCODE", "107"},
           {"NEXT", "109"}}};
}

class Rpt139ByLevels : public Rpt139World {
 protected:
  static Pieces ExpectedRequest(const char* only_sum = "0") {
    return {{"SELECT",
             "SET NOCOUNT ON\r\n"
             "{LEVELTABLE}\r\n"
             "CREATE TABLE #DATA(\r\n"
             "{DEFS}{COLUMNS}\r\n"
             "INSERT INTO #DATA \r\n"
             "SELECT {NAMES}\r\n"
             "{VALUES}"
             "CASE\r\n"
             "{CASES}  WHEN   Grouping(t1.FNumber)=1 THEN {NEXT}  ELSE   0 END \r\n"
             "{FROM},#ItemLevel ItemLevel \r\n"
             "{WHERE} AND t1.FItemID=ItemLevel.FItemID\r\n"
             "{CONDITION}"},
            {"ITEMFILTER", " FItemID In (SELECT DISTINCT FItemID FROM #T139) "},
            {"GROUPBY",
             " Group By {NAMES}V1.FInterID,V1.FEntryID,V1.FItemID,t1.FNumber {ROLLUP}"
             "{LABELS}"
             "Update #Data Set {FIRST}='合计' WHERE FSumSort={FIRSTCODE}\r\n"
             "Update #Data Set FSumSort=101   WHERE FSumSort={FIRSTCODE}\r\n"},
            {"OnlyShowSum", only_sum},
            {"EndSel",
             "SELECT * FROM #DATA  {ONLYTOTALS}\r\n"
             "DROP TABLE #DATA  \r\n"
             "DROP TABLE #ItemLevel"}};
  }
  static Pieces ExpectedPieces(const Span& span, const char* begin = "", const char* end = "") {
    Pieces pieces = span.pieces;
    pieces["LEVELTABLE"] = BuildItemLevelSQL(kItemClass, "", begin, end, true, span.begin, span.end, 0);
    return pieces;
  }
};

TEST_F(Rpt139ByLevels, SendsTheWholeFrame) {
  for (const Span& span : {OneLevel(), TwoLevels()}) {
    SCOPED_TRACE("levels from " + std::to_string(span.begin));
    ExpectRead(FetchLevels(span.begin, span.end), ExpectedRequest(), ExpectedPieces(span));
  }
}

TEST_F(Rpt139ByLevels, WritesTheSettledTextsToTheByte) {
  FetchLevels(2, 3);
  const Pieces pieces = ExpectedPieces(TwoLevels());
  const std::string& select = request_.at("SELECT");
  for (const char* piece :
       {"SET NOCOUNT ON\r\n", "{LEVELTABLE}", "CREATE TABLE #DATA(\r\n", "{DEFS}", "{COLUMNS}\r\n",
        "INSERT INTO #DATA ", "SELECT {NAMES}", "{VALUES}", "CASE\r\n{CASES}",
        "  WHEN   Grouping(t1.FNumber)=1 THEN 109", "  ELSE   0 END ", "{FROM},#ItemLevel ItemLevel ",
        " WHERE 1=1 ", " AND t1.FItemID=ItemLevel.FItemID"}) {
    ExpectPiece(select, piece, pieces);
  }
  ExpectPiece(request_.at("GROUPBY"),
              " Group By {NAMES}V1.FInterID,V1.FEntryID,V1.FItemID,t1.FNumber \r\n{ROLLUP}", pieces);
  ExpectPiece(request_.at("GROUPBY"), "{LABELS}", pieces);
  ExpectPiece(request_.at("GROUPBY"), "Update #Data Set FName2='合计' WHERE FSumSort=107");
  ExpectPiece(request_.at("GROUPBY"), "Update #Data Set FSumSort=101   WHERE FSumSort=107");
}

TEST_F(Rpt139ByLevels, ShowsTotalsOnly) {
  Pieces pieces = ExpectedPieces(OneLevel());
  pieces["ONLYTOTALS"] = "WHERE FSumSort>100";
  ExpectRead(FetchLevels(1, 1, {{"OnlyShowSum", std::int32_t{1}}}), ExpectedRequest("1"), pieces);
}

TEST_F(Rpt139ByLevels, BoundsRowsAndLevels) {
  Pieces pieces = ExpectedPieces(OneLevel(), "01'1", "09");
  pieces["CONDITION"] = " AND t1.FNumber>='01''1' AND t1.FNumber<='09' And t1.FErpClsID=4";
  ExpectRead(
      FetchLevels(1, 1, {{"BItemNumber", "01'1"}, {"EItemNumber", "09"}, {"CommodityType", std::int32_t{1}}}),
      ExpectedRequest(), pieces);
}

TEST_F(Rpt139ByLevels, TakesOneItemClassInTheOtherModes) {
  FetchLevels(1, 1, {{"Mode", std::int32_t{1}}, {"ItemClassNumber", "01"}});
  ExpectPiece(request_.at("SELECT"), " AND t1.FNumber Like '01.%'");
}

TEST_F(Rpt139ByLevels, LeavesNoPlaceOpen) {
  FetchLevels(1, 2);
  EXPECT_EQ(request_.at("ITEMFILTER").find("##"), std::string::npos);
  EXPECT_EQ(CountOf(request_.at("SELECT"), "##"), CountOf(request_.at("SELECT"), "##ITEMFILTER##") * 2);
}

}  // namespace
}  // namespace salerpt::testing
