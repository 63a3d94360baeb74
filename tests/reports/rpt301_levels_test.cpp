// The fee invoice summary by class levels: the request of each grouping to the letter.
#include <gtest/gtest.h>

#include "sqltoolkit/item_level.h"
#include "tests/reports/rpt301_world.h"

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
          {{"DEFS", "FName1 varchar(355) Null,\r\n"},
           {"NAMES", "tt1.FName1,"},
           {"CASES", "  WHEN   Grouping(tt1.FName1)=1 THEN 106\r\n"},
           {"LABELS", "Update #Data Set  FName1=isnull(FName1,'')+'(小计)'  WHERE FSumSort=107\r\n"},
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
            "Update #Data Set  FName2=isnull(FName2,'')+'(小计)'  WHERE FSumSort=108\r\n"
            "Update #Data Set  FName3=isnull(FName3,'')+'(小计)'  WHERE FSumSort=109\r\n"},
           {"FIRST", "FName2"},
           {"FIRSTCODE", "107"},
           {"NEXT", "109"},
           {"BEHIND", "110"}}};
}

// The part of a grouping's request that differs; PARTY is the name of the supplier or of the customer.
struct Grouping {
  std::int32_t sum_mode;
  // Columns of #DATA before the common ones, group columns, the words before them, row codes, labels behind
  // those of the levels.
  const char* columns;
  const char* groups;
  const char* group_by;
  const char* codes;
  const char* labels;
};

constexpr Grouping kFeeClasses = {
    1,
    "{DEFS}",
    "{NAMES}t4.FNumber",
    " Group By ",
    "{CASES}  WHEN   Grouping(t4.FNumber)=1 THEN {NEXT}",
    "Update #Data Set {FIRST}='合计' WHERE FSumSort={FIRSTCODE}\r\n"
    "Update #Data Set FSumSort=101   WHERE FSumSort={FIRSTCODE}\r\n",
};

constexpr Grouping kPartyClasses = {
    3, kFeeClasses.columns, kFeeClasses.groups, kFeeClasses.group_by, kFeeClasses.codes, kFeeClasses.labels,
};

constexpr Grouping kFeeClassesAndParty = {
    4,
    "{DEFS}FCustName varchar(355) Null,",
    "{NAMES} {PARTY},t4.FNumber",
    "  Group By ",
    "{CASES}  WHEN   Grouping({PARTY})=1 THEN  {NEXT}  WHEN   Grouping(t4.FNumber)=1 THEN {BEHIND}",
    "Update #Data Set FCustName=isnull(FCustName,'')+'(小计)' WHERE FSumSort={BEHIND}\r\n"
    "Update #Data Set {FIRST}='合计' WHERE FSumSort={FIRSTCODE}\r\n"
    "Update #Data Set FSumSort=101   WHERE FSumSort={FIRSTCODE}\r\n",
};

constexpr Grouping kPartyAndFeeClasses = {
    5,
    "FCustName varchar(355) Null,\r\n{DEFS}",
    " {PARTY},{NAMES}t4.FNumber",
    " Group By ",
    "  WHEN   Grouping({PARTY})=1 THEN 101 {CASES}  WHEN   Grouping(t4.FNumber)=1 THEN {NEXT}",
    "Update #Data Set FCustName=isnull(FCustName,'')+'(小计)' WHERE FSumSort={FIRSTCODE}\r\n"
    "Update #Data Set FCustName='合计' WHERE FSumSort=101\r\n",
};

class Rpt301ByLevels : public Rpt301World {
 protected:
  static constexpr std::int32_t kFees = 2014;
  static constexpr std::int32_t kSuppliers = 8;
  static constexpr std::int32_t kCustomers = 1;

  static Pieces ExpectedRequest(const Grouping& grouping) {
    return {{"SELECT",
             "SET NOCOUNT ON\r\n"
             "{LEVELTABLE}\r\n"
             "CREATE TABLE #DATA(\r\n"
             "{GROUPCOLUMNS}\r\n"
             "{COLUMNS}INSERT INTO  #DATA \r\n"
             "SELECT {GROUPS},{VALUES}CASE{CODES}  ELSE   0 END \r\n"
             "{FROM}Left Join #ItemLevel tt1 On v1.{LEVELFIELD}=tt1.FItemID{WHERE}"},
            {"GROUPBY", std::string(grouping.group_by) + "{GROUPS} WITH ROLLUP\r\n"},
            {"ITEMFILTER", "{ITEMFILTER}"},
            {"EndSel",
             "{LABELS}{MORELABELS}\r\n"
             "SELECT * FROM #DATA  {ONLYTOTALS}\r\n"
             "DROP TABLE #ItemLevel"}};
  }
  // `style`: whose invoices; `begin`, `end`: the code range of the class that the levels are of.
  static Pieces ExpectedPieces(const Grouping& grouping, const Span& span, std::int32_t style = 0,
                               const char* begin = "", const char* end = "") {
    const bool of_party = grouping.sum_mode == 3;
    const std::int32_t party_class = style == 0 ? kSuppliers : kCustomers;
    const char* party_field = style == 0 ? "FSupplyID" : "FCustID";
    Pieces pieces = span.pieces;
    pieces["GROUPCOLUMNS"] = grouping.columns;
    pieces["GROUPS"] = grouping.groups;
    pieces["CODES"] = grouping.codes;
    pieces["MORELABELS"] = grouping.labels;
    pieces["PARTY"] = style == 0 ? "t3.FName" : "t2.FName";
    pieces["LEVELFIELD"] = of_party ? party_field : "FItemID";
    pieces["ITEMFIELD"] = " {LEVELFIELD} ";
    pieces["LEVELTABLE"] =
        BuildItemLevelSQL(of_party ? party_class : kFees, "", begin, end, true, span.begin, span.end, 0);
    return pieces;
  }
  void ExpectGrouping(const Grouping& grouping) {
    for (const std::int32_t style : {0, 1, 2}) {
      for (const Span& span : {OneLevel(), TwoLevels()}) {
        SCOPED_TRACE("levels from " + std::to_string(span.begin) + ", invoices " + std::to_string(style));
        ExpectBatch(FetchLevels(grouping.sum_mode, span.begin, span.end,
                                {{"InvoiceStyle", style}, {"SumField", NoSumField()}}),
                    ExpectedRequest(grouping), ExpectedPieces(grouping, span, style));
      }
    }
  }
};

TEST_F(Rpt301ByLevels, SendsFeeClasses) {
  ExpectGrouping(kFeeClasses);
}

TEST_F(Rpt301ByLevels, SendsSupplierOrCustomerClasses) {
  ExpectGrouping(kPartyClasses);
}

TEST_F(Rpt301ByLevels, SendsFeeClassesWithTheSupplierOrCustomerBehindThem) {
  ExpectGrouping(kFeeClassesAndParty);
}

TEST_F(Rpt301ByLevels, SendsTheSupplierOrCustomerBeforeFeeClasses) {
  ExpectGrouping(kPartyAndFeeClasses);
}

TEST_F(Rpt301ByLevels, TakesTheSupplierFirstInAnyOtherModeThatNamesNoProperty) {
  for (const std::int32_t mode : {0, 2, 5, 6, 99}) {
    SCOPED_TRACE("mode " + std::to_string(mode));
    ExpectBatch(FetchLevels(mode, 1, 1, {{"SumField", NoSumField()}}), ExpectedRequest(kPartyAndFeeClasses),
                ExpectedPieces(kPartyAndFeeClasses, OneLevel()));
  }
  ExpectBatch(FetchLevels(5, 1, 1), ExpectedRequest(kPartyAndFeeClasses),
              ExpectedPieces(kPartyAndFeeClasses, OneLevel()));
}

TEST_F(Rpt301ByLevels, KeepsTheModesOfClassesWhateverPropertyIsNamed) {
  for (const Grouping& grouping : {kFeeClasses, kPartyClasses, kFeeClassesAndParty}) {
    ExpectBatch(FetchLevels(grouping.sum_mode, 1, 1, {{"SumField", SumField("客户", 1, 0)}}),
                ExpectedRequest(grouping), ExpectedPieces(grouping, OneLevel()));
  }
}

TEST_F(Rpt301ByLevels, ShowsTotalsOnly) {
  for (const Grouping& grouping : {kFeeClasses, kPartyClasses, kFeeClassesAndParty, kPartyAndFeeClasses}) {
    SCOPED_TRACE("mode " + std::to_string(grouping.sum_mode));
    Pieces pieces = ExpectedPieces(grouping, OneLevel());
    pieces["ONLYTOTALS"] = "WHERE FSumSort>100";
    ExpectBatch(FetchLevels(grouping.sum_mode, 1, 1, {{"OnlyShowSum", std::int32_t{1}}}),
                ExpectedRequest(grouping), pieces);
  }
}

TEST_F(Rpt301ByLevels, BoundsTheLevelsByTheRangeOfTheirClass) {
  for (const Grouping& grouping : {kFeeClasses, kFeeClassesAndParty, kPartyAndFeeClasses}) {
    SCOPED_TRACE("mode " + std::to_string(grouping.sum_mode));
    ExpectBatch(FetchLevels(grouping.sum_mode, 1, 1,
                            {{"BFeeNumber", "01'1"},
                             {"EFeeNumber", "09"},
                             {"BCust", "02"},
                             {"ECust", "03"},
                             {"BSupply", "04"},
                             {"ESupply", "05"}}),
                ExpectedRequest(grouping), ExpectedPieces(grouping, OneLevel(), 0, "01'1", "09"));
  }
}

TEST_F(Rpt301ByLevels, BoundsTheLevelsOfSuppliersOrCustomersByTheirRange) {
  for (const std::int32_t style : {0, 1}) {
    ExpectBatch(
        FetchLevels(3, 1, 1,
                    {{"InvoiceStyle", style},
                     {"BFeeNumber", "01"},
                     {"BCust", "02"},
                     {"ECust", "03"},
                     {"BSupply", "04"},
                     {"ESupply", "05"}}),
        ExpectedRequest(kPartyClasses),
        ExpectedPieces(kPartyClasses, OneLevel(), style, style == 0 ? "04" : "02", style == 0 ? "05" : "03"));
  }
}

TEST_F(Rpt301ByLevels, BoundsTheLevelsByTheShortCodeWhereThatIsInUse) {
  UseShortCode();
  Report();
  ExpectBatch(FetchLevels(1, 1, 1, {{"BFeeNumber", "1"}}), ExpectedRequest(kFeeClasses),
              ExpectedPieces(kFeeClasses, OneLevel(), 0, "1", ""));
  EXPECT_NE(request_.at("SELECT").find(" AND FShortNumber>='1'"), std::string::npos);
}

TEST_F(Rpt301ByLevels, RefusesALevelThatIsNoNumber) {
  RunInvoices({{"GroupBy", std::int32_t{1}},
               {"SumMode", std::int32_t{1}},
               {"BLevel", "1; Drop Table t_Item"},
               {"ELevel", std::int32_t{1}}});
  EXPECT_FALSE(Ok());
  EXPECT_NE(Error(), "");
  EXPECT_TRUE(sales_->Calls().empty());
}

}  // namespace
}  // namespace salerpt::testing
