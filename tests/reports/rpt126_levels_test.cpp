// The income statistics by class levels: the whole request of each grouping, to the letter.
#include <gtest/gtest.h>

#include "sqltoolkit/item_level.h"
#include "tests/reports/rpt126_world.h"

namespace salerpt::testing {
namespace {

// What a span of class levels adds to the batch, of class CLASS.
struct Span {
  std::int32_t begin;
  std::int32_t end;
  Pieces pieces;
};

Span OneLevel() {
  return {1,
          1,
          {{"DEFS", "FName1 Varchar(355) Null,\r\nFNumber1 VARCHAR(355) NULL,\r\n"},
           {"LEVELVALUES", "NULL,FNumber1,"},
           {"CASES", " WHEN GROUPING(tt1.FNumber1)=1 THEN 106\r\n"},
           {"NAMES", "tt1.FNumber1,"},
           {"LABELS",
            "UPDATE #Data SET FName1=t1.FName FROM #Data INNER JOIN t_Item t1 ON #Data.FNumber1=t1.FNumber "
            "AND t1.FItemClassID={CLASS}\r\n"
            "UPDATE #Data SET FName1=FName1+'(小计)'  WHERE FSumSort=107\r\n"},
           {"FIRST", "FName1"},
           {"FIRSTCODE", "106"},
           {"NEXT", "107"},
           {"BEHIND", "108"}}};
}

Span TwoLevels() {
  return {
      2,
      3,
      {{"DEFS",
        "FName2 Varchar(355) Null,\r\nFNumber2 VARCHAR(355) NULL,\r\n"
        "FName3 Varchar(355) Null,\r\nFNumber3 VARCHAR(355) NULL,\r\n"},
       {"LEVELVALUES", "NULL,FNumber2,NULL,FNumber3,"},
       {"CASES", " WHEN GROUPING(tt1.FNumber2)=1 THEN 107\r\n WHEN GROUPING(tt1.FNumber3)=1 THEN 108\r\n"},
       {"NAMES", "tt1.FNumber2,tt1.FNumber3,"},
       {"LABELS",
        "UPDATE #Data SET FName2=t1.FName FROM #Data INNER JOIN t_Item t1 ON #Data.FNumber2=t1.FNumber "
        "AND t1.FItemClassID={CLASS}\r\n"
        "UPDATE #Data SET FName2=FName2+'(小计)'  WHERE FSumSort=108\r\n"
        "UPDATE #Data SET FName3=t1.FName FROM #Data INNER JOIN t_Item t1 ON #Data.FNumber3=t1.FNumber "
        "AND t1.FItemClassID={CLASS}\r\n"
        "UPDATE #Data SET FName3=FName3+'(小计)'  WHERE FSumSort=109\r\n"},
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
  // Columns of #Data before the common ones, group columns, row codes.
  const char* columns;
  const char* groups;
  const char* codes;
  const char* group_by;
  // How items or customers meet their levels; labels behind those of the levels.
  const char* on;
  const char* labels;
  bool has_customer;
};

constexpr const char* kCustomerColumns =
    "FCustName Varchar(355) Null,FCustNumber Varchar(355) Null,FShortCustNumber Varchar(355) Null,";

constexpr const char* kTotal =
    "Update #Data Set {FIRST}='合计' Where FSumSort={FIRSTCODE}\r\n"
    "Update #Data Set FSumSort=101   Where FSumSort={FIRSTCODE}\r\n";

constexpr const char* kCustomerName =
    "UPDATE #Data SET FCustName=t1.FName FROM #Data INNER JOIN t_Item t1 ON #Data.FCustNumber=t1.FNumber "
    "AND t1.FItemClassID=1\r\n";

constexpr Grouping kItemClasses = {
    1,
    4,
    " v2.FItemID ",
    "{DEFS}",
    "Select {LEVELVALUES}",
    "{CASES} When Grouping(t1.FNumber)=1 Then {NEXT}",
    " Group By {NAMES}t1.FNumber",
    " On t1.FItemID=tt1.FItemID",
    "{TOTAL}",
    false,
};

constexpr Grouping kCustomerClasses = {
    2,
    1,
    " v1.FCustID ",
    "{DEFS}",
    "Select {LEVELVALUES}",
    "{CASES}  When   Grouping(t1.FNumber)=1 Then {NEXT}",
    " Group By {NAMES}t1.FNumber",
    " On t2.FItemID=tt1.FItemID",
    "{TOTAL}",
    false,
};

constexpr Grouping kCustomerAndItemClasses = {
    4,
    4,
    " v2.FItemID ",
    "{CUSTOMERCOLUMNS}{DEFS}\r\n",
    "Select NULL,t2.FNumber,NULL,{LEVELVALUES}",
    "  When   Grouping(t2.FNumber)=1 Then 101 {CASES}  When   Grouping(t1.FNumber)=1 Then {NEXT}",
    " Group By  t2.FNumber,{NAMES}t1.FNumber",
    " On t1.FItemID=tt1.FItemID",
    "{CUSTOMERNAME}Update #Data Set FCustName=FCustName+'(小计)' Where FSumSort={FIRSTCODE}\r\n"
    "Update #Data Set FCustName='合计' Where FSumSort=101\r\n",
    true,
};

constexpr Grouping kItemClassesAndCustomer = {
    3,
    4,
    " v2.FItemID ",
    "{DEFS}\r\n{CUSTOMERCOLUMNS}",
    "Select {LEVELVALUES}NULL,t2.FNumber,NULL,",
    "{CASES}  When   Grouping(t2.FNumber)=1 Then  {NEXT}  When   Grouping(t1.FNumber)=1 Then {BEHIND}",
    "  Group By {NAMES}t2.FNumber,t1.FNumber",
    " On t1.FItemID=tt1.FItemID",
    "{CUSTOMERNAME}Update #Data Set FCustName=FCustName+'(小计)' Where FSumSort={BEHIND}\r\n{TOTAL}",
    true,
};

// AUXVALUES, AUXCODE and AUXGROUP are empty without an auxiliary property.
constexpr const char* kSelect =
    "Set NoCount On\r\n"
    "{LEVELTABLE}\r\n"
    "Create Table #Data(\r\n"
    "{GROUPCOLUMNS}{COLUMNS}Insert Into #Data \r\n"
    "{GROUPS}{AUXVALUES}t1.FNumber,{VALUES}Case{CODES}{AUXCODE}  Else   0 End \r\n"
    "{FROM} Inner Join #ItemLevel tt1 \r\n"
    "\r\n"
    "{ON}{WHERE}{CONDITION}";

constexpr const char* kEndSel =
    "{LABELS}{MORELABELS}\r\n"
    "Update #Data Set FTaxRate=Null Where FSumSort=101 \r\n"
    "Select * From #Data  {ONLYTOTALS}\r\n"
    " Order by FID \r\n"
    "DROP Table #Data  \r\n"
    "DROP Table #ItemLevel";

class Rpt126ByLevels : public Rpt126World {
 protected:
  static Pieces ExpectedRequest(const Grouping& grouping) {
    Pieces request = {{"SELECT", kSelect},
                      {"GROUPBY", std::string(grouping.group_by) + "{AUXGROUP} With RollUp\r\n"},
                      {"ITEMFILTER", "{ITEMFILTER}"},
                      {"EndSel", kEndSel},
                      {"CurrencyShow", "0"},
                      {"AuxProp", "0"}};
    if (grouping.has_customer) request["IsUseCust"] = "True";
    return request;
  }
  // `begin`, `end`: the code range of the class that the levels are of.
  static Pieces ExpectedPieces(const Grouping& grouping, const Span& span, const char* begin = "",
                               const char* end = "") {
    Pieces pieces = span.pieces;
    pieces["CLASS"] = std::to_string(grouping.item_class);
    pieces["ITEMFIELD"] = grouping.item_field;
    pieces["GROUPCOLUMNS"] = grouping.columns;
    pieces["CUSTOMERCOLUMNS"] = kCustomerColumns;
    pieces["GROUPS"] = grouping.groups;
    pieces["CODES"] = grouping.codes;
    pieces["ON"] = grouping.on;
    pieces["MORELABELS"] = grouping.labels;
    pieces["CUSTOMERNAME"] = kCustomerName;
    pieces["TOTAL"] = kTotal;
    pieces["CURRENCYVALUES"] = "'',\r\n'',\r\n{D},";
    pieces["AUXVALUES"] = pieces["AUXCODE"] = pieces["AUXGROUP"] = "";
    pieces["LEVELTABLE"] =
        BuildItemLevelSQL(grouping.item_class, "", begin, end, true, span.begin, span.end, 0);
    return pieces;
  }
  void ExpectGrouping(const Grouping& grouping) {
    for (const Span& span : {OneLevel(), TwoLevels()}) {
      SCOPED_TRACE("levels from " + std::to_string(span.begin));
      ExpectRequest(FetchLevels(grouping.sum_mode, span.begin, span.end), ExpectedRequest(grouping),
                    ExpectedPieces(grouping, span));
    }
  }
  // One level, with further conditions.
  void ExpectWith(const Grouping& grouping, Entries conditions, const Pieces& more,
                  const Pieces& other_keys = {}) {
    Pieces pieces = ExpectedPieces(grouping, OneLevel());
    for (const auto& [name, text] : more) pieces[name] = text;
    Pieces request = ExpectedRequest(grouping);
    for (const auto& [key, text] : other_keys) request[key] = text;
    ExpectRequest(FetchLevels(grouping.sum_mode, 1, 1, conditions), request, pieces);
  }
  static Pieces Auxiliary(const char* code) {
    Pieces pieces = AuxiliaryColumns();
    pieces["AUXVALUES"] = "V2.FAuxPropID,'',";
    pieces["AUXCODE"] = std::string(" When Grouping(V2.FAuxPropID)=1 Then ") + code;
    pieces["AUXGROUP"] = ",V2.FAuxPropID";
    return pieces;
  }
};

TEST_F(Rpt126ByLevels, SendsItemClasses) {
  ExpectGrouping(kItemClasses);
}

TEST_F(Rpt126ByLevels, SendsCustomerClasses) {
  ExpectGrouping(kCustomerClasses);
}

TEST_F(Rpt126ByLevels, SendsTheCustomerBeforeItemClasses) {
  ExpectGrouping(kCustomerAndItemClasses);
}

TEST_F(Rpt126ByLevels, SendsItemClassesWithTheCustomerBehindThem) {
  ExpectGrouping(kItemClassesAndCustomer);
}

TEST_F(Rpt126ByLevels, SplitsItemsByTheirAuxiliaryProperty) {
  for (const Grouping& grouping :
       {kItemClasses, kCustomerClasses, kCustomerAndItemClasses, kItemClassesAndCustomer}) {
    SCOPED_TRACE("mode " + std::to_string(grouping.sum_mode));
    ExpectWith(grouping, {{"AuxProp", std::int32_t{1}}}, Auxiliary("108"), {{"AuxProp", "1"}});
  }
}

TEST_F(Rpt126ByLevels, KnowsNoCurrencyAsALevel) {
  Pieces pieces = BillCurrency();
  ExpectWith(kItemClasses, {{"CurrencyShow", std::int32_t{1}}}, pieces, {{"CurrencyShow", "1"}});
  for (const auto& [key, text] : request_) {
    EXPECT_EQ(text.find("本位币合计"), std::string::npos) << "under " << key;
    EXPECT_EQ(text.find("FAmountFor"), std::string::npos) << "under " << key;
    EXPECT_EQ(text.find("##ER##"), std::string::npos) << "under " << key;
  }
}

TEST_F(Rpt126ByLevels, ShowsTotalsOnly) {
  for (const Grouping& grouping : {kItemClasses, kCustomerAndItemClasses}) {
    ExpectWith(grouping, {{"OnlyShowSum", std::int32_t{1}}}, {{"ONLYTOTALS", "Where FSumSort>100"}});
  }
}

TEST_F(Rpt126ByLevels, BoundsTheLevelsOfItemsByTheItemRange) {
  Pieces pieces = ExpectedPieces(kItemClasses, OneLevel(), "01'1", "09");
  pieces["CONDITION"] =
      " And t1.FNumber>='01''1' And t1.FNumber<='09' And t2.FNumber>='02' And t2.FNumber<='03'";
  ExpectWith(kItemClasses,
             {{"BItemNumber", "01'1"}, {"EItemNumber", "09"}, {"BCustNumber", "02"}, {"ECustNumber", "03"}},
             pieces);
}

TEST_F(Rpt126ByLevels, BoundsTheLevelsOfCustomersByTheCustomerRange) {
  Pieces pieces = ExpectedPieces(kCustomerClasses, OneLevel(), "02", "03");
  pieces["CONDITION"] = " And t1.FNumber>='01' And t2.FNumber>='02' And t2.FNumber<='03'";
  ExpectWith(kCustomerClasses, {{"BItemNumber", "01"}, {"BCustNumber", "02"}, {"ECustNumber", "03"}}, pieces);
}

TEST_F(Rpt126ByLevels, BoundsTheLevelsByTheShortCodeWhereThatIsInUse) {
  UseShortCode();
  Report();
  Pieces pieces = ExpectedPieces(kItemClasses, OneLevel(), "1", "");
  pieces["CONDITION"] = " And t1.FShortNumber>='1'";
  ExpectWith(kItemClasses, {{"BItemNumber", "1"}}, pieces);
  EXPECT_NE(request_.at("SELECT").find(" AND FShortNumber>='1'"), std::string::npos);
}

TEST_F(Rpt126ByLevels, KeepsAmountsAtTheScaleOfTheBaseCurrency) {
  UseScale("4");
  ExpectWith(kItemClassesAndCustomer, {}, {{"D", "4"}});
}

TEST_F(Rpt126ByLevels, RestrictsInvoicesToTheCustomersThatTheUserMaySee) {
  RestrictCustomers();
  for (const Grouping& grouping : {kCustomerClasses, kCustomerAndItemClasses}) {
    ExpectWith(grouping, {}, {{"TAIL", " And  CharIndex('16394',t2.FRightUserID)>0 "}});
  }
}

TEST_F(Rpt126ByLevels, TakesTheStateOfTheBillIntoBothTexts) {
  ExpectWith(kItemClasses, {{"CheckState", std::int32_t{2}}, {"HookStatus", std::int32_t{1}}},
             {{"STATE", " And v1.FCancelLation=0  And v1.FHookStatus=1"}});
}

TEST_F(Rpt126ByLevels, TellsTheMiddleTierOfTheCustomerAsAFlag) {
  Variant flag;
  on_fetch_ = [&](Arguments arguments) { flag = As<Dictionary>(arguments[3])->Get("IsUseCust"); };
  FetchLevels(4, 1, 1);
  EXPECT_EQ(flag, Variant(true));
  FetchLevels(3, 1, 1);
  EXPECT_EQ(flag, Variant(true));
  FetchLevels(1, 1, 1);
  EXPECT_FALSE(flag.ToBoolean());
}

}  // namespace
}  // namespace salerpt::testing
