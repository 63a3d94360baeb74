// The consignment list by class levels: the whole request of each grouping, to the letter.
#include <gtest/gtest.h>

#include "sqltoolkit/item_level.h"
#include "tests/reports/rpt303_world.h"

namespace salerpt::testing {
namespace {

// What a span of class levels adds to the batch.
struct Span {
  std::int32_t begin;
  std::int32_t end;
  Pieces pieces;
};

Span OneLevel() {
  return {1,
          1,
          {{"DEFS", "FName1 VARCHAR(355) Null,\r\n"},
           {"NAMES", "tt1.FName1,"},
           {"CASES", "  WHEN   Grouping(tt1.FName1)=1 THEN 106\r\n"},
           {"LABELS", "Update #Data Set  FName1=FName1+'小计'  WHERE FSumSort=107\r\n"},
           {"FIRST", "FName1"},
           {"FIRSTCODE", "106"},
           {"NEXT", "107"},
           {"BEHIND", "108"}}};
}

Span TwoLevels() {
  return {2,
          3,
          {{"DEFS", "FName2 VARCHAR(355) Null,\r\nFName3 VARCHAR(355) Null,\r\n"},
           {"NAMES", "tt1.FName2,tt1.FName3,"},
           {"CASES",
            "  WHEN   Grouping(tt1.FName2)=1 THEN 107\r\n"
            "  WHEN   Grouping(tt1.FName3)=1 THEN 108\r\n"},
           {"LABELS",
            "Update #Data Set  FName2=FName2+'小计'  WHERE FSumSort=108\r\n"
            "Update #Data Set  FName3=FName3+'小计'  WHERE FSumSort=109\r\n"},
           {"FIRST", "FName2"},
           {"FIRSTCODE", "107"},
           {"NEXT", "109"},
           {"BEHIND", "110"}}};
}

// The part of a grouping's request that differs.
struct Grouping {
  std::int32_t sum_mode;
  std::int32_t item_class;
  const char* item_field;
  // Columns of #DATA before the common ones, group columns, row codes.
  const char* columns;
  const char* groups;
  const char* codes;
  const char* group_by;
  // How items or customers meet their levels; labels behind those of the levels.
  const char* on;
  const char* labels;
};

constexpr const char* kTotal =
    "Update #Data Set {FIRST}='合计' WHERE FSumSort={FIRSTCODE}\r\n"
    "Update #Data Set FSumSort=101   WHERE FSumSort={FIRSTCODE}\r\n";

constexpr Grouping kItemClasses = {
    1,
    4,
    " v1.FItemID ",
    "{DEFS}",
    "SELECT {NAMES}t1.FNumber",
    "{CASES}  WHEN   Grouping(t1.FNumber)=1 THEN {NEXT}",
    " Group By {NAMES}t1.FNumber",
    "  t1.FItemID=tt1.FItemID",
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
    "  t2.FItemID=tt1.FItemID",
    "{TOTAL}",
};

constexpr Grouping kCustomerAndItemClasses = {
    4,
    4,
    " v1.FItemID ",
    "FCustName VARCHAR(355) Null,\r\n{DEFS}",
    "SELECT  t2.FName,{NAMES}t1.FNumber",
    "  WHEN   Grouping(t2.FName)=1 THEN 101 {CASES}  WHEN   Grouping(t1.FNumber)=1 THEN {NEXT}",
    " Group By  t2.FName,{NAMES}t1.FNumber",
    "  t1.FItemID=tt1.FItemID",
    "Update #Data Set FCustName=FCustName+'小计' WHERE FSumSort={FIRSTCODE}\r\n"
    "Update #Data Set FCustName='合计' WHERE FSumSort=101\r\n",
};

constexpr Grouping kItemClassesAndCustomer = {
    3,
    4,
    " v1.FItemID ",
    "{DEFS}\r\nFCustName VARCHAR(355) Null,",
    "SELECT {NAMES}t2.FName,t1.FNumber",
    "{CASES}  WHEN   Grouping(t2.FName)=1 THEN  {NEXT}  WHEN   Grouping(t1.FNumber)=1 THEN {BEHIND}",
    "  Group By {NAMES}t2.FName,t1.FNumber",
    "  t1.FItemID=tt1.FItemID",
    "Update #Data Set FCustName=FCustName+'小计' WHERE FSumSort={BEHIND}\r\n{TOTAL}",
};

class Rpt303ByLevels : public Rpt303World {
 protected:
  static Pieces ExpectedRequest(const Grouping& grouping) {
    return {{"SELECT",
             "SET NOCOUNT ON\r\n"
             "{LEVELTABLE}\r\n"
             "CREATE TABLE #DATA(\r\n"
             "{GROUPCOLUMNS}{COLUMNS}INSERT INTO #DATA \r\n"
             "{GROUPS},{VALUES}CASE{CODES}  ELSE   0 END \r\n"
             "{FROM} Inner Join #ItemLevel tt1 on \r\n"
             "{ON}\r\n"
             "{WHERE}{CONDITION}"},
            {"GROUPBY", std::string(grouping.group_by) + " WITH ROLLUP"},
            {"ITEMFILTER", "{ITEMFILTER}"},
            {"Filter", "{CONDITION}"},
            {"EndSel",
             "{LABELS}{MORELABELS}\r\n"
             "SELECT * FROM #DATA  {ONLYTOTALS}\r\n"
             " ORDER BY FID \r\n"
             "DROP TABLE #ItemLevel"}};
  }
  // `begin`, `end`: the code range of the class that the levels are of.
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
    pieces["LEVELTABLE"] =
        BuildItemLevelSQL(grouping.item_class, "", begin, end, true, span.begin, span.end, 0);
    return pieces;
  }
  void ExpectGrouping(const Grouping& grouping) {
    for (const Span& span : {OneLevel(), TwoLevels()}) {
      SCOPED_TRACE("levels from " + std::to_string(span.begin));
      ExpectBatch(FetchLevels(grouping.sum_mode, span.begin, span.end), ExpectedRequest(grouping),
                  ExpectedPieces(grouping, span));
    }
  }
  // One level, with further conditions.
  void ExpectWith(const Grouping& grouping, Entries conditions, const Pieces& more) {
    SCOPED_TRACE("mode " + std::to_string(grouping.sum_mode));
    Pieces pieces = ExpectedPieces(grouping, OneLevel());
    for (const auto& [name, text] : more) pieces[name] = text;
    ExpectBatch(FetchLevels(grouping.sum_mode, 1, 1, conditions), ExpectedRequest(grouping), pieces);
  }
};

TEST_F(Rpt303ByLevels, SendsItemClasses) {
  ExpectGrouping(kItemClasses);
}

TEST_F(Rpt303ByLevels, SendsCustomerClasses) {
  ExpectGrouping(kCustomerClasses);
}

TEST_F(Rpt303ByLevels, SendsTheCustomerBeforeItemClasses) {
  ExpectGrouping(kCustomerAndItemClasses);
}

TEST_F(Rpt303ByLevels, SendsItemClassesWithTheCustomerBehindThem) {
  ExpectGrouping(kItemClassesAndCustomer);
}

TEST_F(Rpt303ByLevels, TakesTheirModeWhateverPropertyIsNamed) {
  Pieces pieces = ExpectedPieces(kItemClasses, OneLevel());
  ExpectBatch(FetchLevels(1, 1, 1, {{"SumField", SumField("客户", 1, 0)}}), ExpectedRequest(kItemClasses),
              pieces);
}

TEST_F(Rpt303ByLevels, ShowsTotalsOnly) {
  for (const Grouping& grouping :
       {kItemClasses, kCustomerClasses, kCustomerAndItemClasses, kItemClassesAndCustomer}) {
    ExpectWith(grouping, {{"OnlyShowSum", std::int32_t{1}}}, {{"ONLYTOTALS", "WHERE FSumSort>100"}});
  }
}

TEST_F(Rpt303ByLevels, BoundsTheLevelsOfItemsByTheItemRange) {
  Pieces pieces = ExpectedPieces(kItemClassesAndCustomer, OneLevel(), "01'1", "09");
  pieces["CONDITION"] =
      " AND t1.FNumber>='01''1' AND t1.FNumber<='09' AND t2.FNumber>='02' AND t3.FNumber<='3'";
  ExpectWith(kItemClassesAndCustomer,
             {{"BItemNumber", "01'1"}, {"EItemNumber", "09"}, {"BCustNumber", "02"}, {"EEmpNumber", "3"}},
             pieces);
}

TEST_F(Rpt303ByLevels, BoundsTheLevelsOfCustomersByTheCustomerRange) {
  Pieces pieces = ExpectedPieces(kCustomerClasses, OneLevel(), "02", "03");
  pieces["CONDITION"] = " AND t1.FNumber>='01' AND t2.FNumber>='02' AND t2.FNumber<='03'";
  ExpectWith(kCustomerClasses, {{"BItemNumber", "01"}, {"BCustNumber", "02"}, {"ECustNumber", "03"}}, pieces);
}

TEST_F(Rpt303ByLevels, BoundsTheLevelsByTheShortCodeWhereThatIsInUse) {
  UseShortCode();
  Report();
  Pieces pieces = ExpectedPieces(kItemClasses, OneLevel(), "1", "");
  pieces["CONDITION"] = " AND t1.FShortNumber>='1'";
  ExpectWith(kItemClasses, {{"BItemNumber", "1"}}, pieces);
  EXPECT_NE(request_.at("SELECT").find(" AND FShortNumber>='1'"), std::string::npos);
}

TEST_F(Rpt303ByLevels, KeepsAmountsAtTheScaleOfTheBaseCurrency) {
  UseScale("4");
  ExpectWith(kCustomerAndItemClasses, {}, {{"D", "4"}});
}

TEST_F(Rpt303ByLevels, RestrictsRowsToTheCustomersThatTheUserMaySee) {
  RestrictCustomers();
  for (const Grouping& grouping :
       {kItemClasses, kCustomerClasses, kCustomerAndItemClasses, kItemClassesAndCustomer}) {
    ExpectWith(grouping, {}, {{"TAIL", kCustomerRight}});
  }
}

TEST_F(Rpt303ByLevels, RefusesALevelThatIsNoNumber) {
  Run({{"GroupBy", std::int32_t{1}},
       {"SumMode", std::int32_t{1}},
       {"BLevel", "1; Drop Table t_Item"},
       {"ELevel", std::int32_t{1}}});
  EXPECT_FALSE(Ok());
  EXPECT_NE(Error(), "");
  EXPECT_TRUE(sales_->Calls().empty());
}

}  // namespace
}  // namespace salerpt::testing
