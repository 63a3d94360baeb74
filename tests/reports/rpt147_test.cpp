// Sales income detail: the walk over the periods, rows and totals, columns, title.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/reports/rpt147_world.h"

namespace salerpt {
namespace {

using testing::Lines;

class Rpt147Test : public testing::Rpt147World {};

// --- What is asked of the middle tier

TEST_F(Rpt147Test, AsksForEachPeriodWithTheLoginAndTheFilter) {
  const DictionaryRef filter = Periods(2003, 7, 2003, 7);
  Fetch(filter);
  ASSERT_EQ(data_->Calls().size(), 1u);
  EXPECT_EQ(data_->Calls()[0].member, "GetSaleData");
  EXPECT_EQ(data_->Calls()[0].arguments, (std::vector<Variant>{kProps, Variant(std::int16_t{2003}),
                                                               Variant(std::int16_t{7}), filter, 0.0}));
}

TEST_F(Rpt147Test, WritesRightsAndCodeIntoTheFilterBeforeTheCall) {
  Lines written;
  on_call_ = [&](Arguments arguments) {
    const auto filter = As<Dictionary>(arguments[3]);
    for (const char* key : {"DataRightFrom", "DataRightWhere", "bLongNumber"}) {
      written.push_back(testing::Shown(filter->Get(key)));
    }
  };
  rights_->Gives("GetDataRight", true);
  Fetch(Periods(2003, 7, 2003, 7));
  EXPECT_EQ(written, (Lines{"text ", "text  CharIndex('16394',T4.FRightUserID)>0 ", "flag True"}));
}

TEST_F(Rpt147Test, WritesAnEmptyWhereTextForAUserWhoMaySeeAll) {
  const DictionaryRef filter = Periods(2003, 7, 2003, 7);
  Fetch(filter);
  EXPECT_EQ(filter->Get("DataRightWhere"), Variant(""));
  ASSERT_EQ(rights_->Calls().size(), 1u);
  EXPECT_EQ(rights_->Calls()[0].arguments.at(2).ToInt32(), 1) << "the rule of customers alone";
}

TEST_F(Rpt147Test, TellsTheMiddleTierThatTheShortCodeIsInUse) {
  AnswerProfile("1", 12);
  const DictionaryRef filter = Periods(2003, 7, 2003, 7);
  Fetch(filter);
  EXPECT_EQ(filter->Get("bLongNumber"), Variant(false));
}

TEST_F(Rpt147Test, WalksAcrossTheEndOfAYear) {
  Fetch(Periods(2002, 11, 2003, 2));
  EXPECT_EQ(asked_, (Lines{"2002.11", "2002.12", "2003.1", "2003.2"}));
}

TEST_F(Rpt147Test, WalksYearsOfThirteenPeriods) {
  AnswerProfile("0", 13);
  Fetch(Periods(2002, 12, 2003, 1));
  EXPECT_EQ(asked_, (Lines{"2002.12", "2002.13", "2003.1"}));
}

TEST_F(Rpt147Test, WalksAWholeYearBetween) {
  Fetch(Periods(2001, 12, 2003, 1));
  EXPECT_EQ(asked_, (Lines{"2001.12", "2002.1", "2002.2", "2002.3", "2002.4", "2002.5", "2002.6", "2002.7",
                           "2002.8", "2002.9", "2002.10", "2002.11", "2002.12", "2003.1"}));
}

TEST_F(Rpt147Test, EndsWithTheYearWhereTheLastPeriodLiesBeyondIt) {
  Fetch(Periods(2003, 11, 2003, 15));
  EXPECT_EQ(asked_, (Lines{"2003.11", "2003.12"}));
}

TEST_F(Rpt147Test, AsksForTheFirstPeriodEvenBehindTheLastOfTheSameYear) {
  Fetch(Periods(2003, 5, 2003, 3));
  EXPECT_EQ(asked_, (Lines{"2003.5"}));
}

TEST_F(Rpt147Test, GivesAnEmptySetWhereTheFirstYearLiesBehindTheLast) {
  Fetch(Periods(2004, 1, 2003, 12));
  EXPECT_TRUE(asked_.empty());
  ASSERT_NE(Rs(), nullptr);
  EXPECT_EQ(Rs()->RecordCount(), 0);
  EXPECT_EQ(Rs()->FieldCount(), 22);
  EXPECT_EQ(As<Vector>(GetMember(Report(), "Header"))->Size(), 12);
  EXPECT_TRUE(toolkit_->unloaded);
}

TEST_F(Rpt147Test, ReadsPeriodsThatStandAsTextsOrDoubles) {
  auto filter = std::make_shared<Dictionary>(
      Entries{{"BYear", "2003"}, {"BPeriod", 7.0}, {"EYear", 2003}, {"EPeriod", "8"}});
  Fetch(filter);
  EXPECT_EQ(asked_, (Lines{"2003.7", "2003.8"}));
}

TEST_F(Rpt147Test, MakesOneDataObjectForAllPeriods) {
  Fetch(Periods(2003, 1, 2003, 6));
  EXPECT_EQ(asked_.size(), 6u);
  EXPECT_EQ(data_objects_made_, 1);
}

TEST_F(Rpt147Test, GoesOnWithTheFilterThatTheMiddleTierPutsInItsPlace) {
  const auto replaced = std::make_shared<Dictionary>(Entries{{"Own", 1}});
  std::vector<ObjectRef> filters;
  on_call_ = [&](Arguments arguments) {
    filters.push_back(arguments[3].ToObject());
    arguments[3] = replaced;
  };
  const DictionaryRef filter = Periods(2003, 7, 2003, 8);
  Fetch(filter);
  ASSERT_EQ(filters.size(), 2u);
  EXPECT_EQ(filters[0], filter);
  EXPECT_EQ(filters[1], replaced);
  EXPECT_EQ(Filter(), replaced);
  EXPECT_EQ(replaced->Get("bLongNumber"), Variant(true)) << "written again for each period";
}

// --- Rows

TEST_F(Rpt147Test, PoursALineIntoARow) {
  Give(2003, 7, OneSale());
  Fetch(Periods(2003, 7, 2003, 7));
  EXPECT_EQ(Row(0),
            (Lines{"short 2003", "short 7",     "text 2003.7",   "long 1001", "long 1",  "date 2003-07-15",
                   "text 记-12", "text 零售",   "text XSFP0001", "long 80",   "long 77", "text 01.02.0003",
                   "text 0003",  "text 台灯",   "text TD-40",    "text 只",   "short 0", "short 2",
                   "double 2",   "double 12.5", "money 25",      "long 0"}));
}

TEST_F(Rpt147Test, ClosesAPeriodWithItsTotal) {
  const RecordsetRef rows = Sales();
  AddSale(*rows);
  AddSale(*rows, {{"FQty", -0.5}, {"FAmount", Currency::FromDouble(-6.25)}});
  AddSale(*rows, {{"FQty", 1.0}, {"FAmount", Currency::FromScaled(1)}});
  Give(2003, 7, rows);
  Fetch(Periods(2003, 7, 2003, 7));
  ASSERT_EQ(Rs()->RecordCount(), 4);
  // 2 - 0.5 + 1 pieces for 25 - 6.25 + 0.0001.
  EXPECT_EQ(Row(3), (Lines{"short 2003", "short 7",        "text 2003.7",   "long 0",  "long 0",  "null",
                           "text ",      "text 本期合计:", "text ",         "long 0",  "long 0",  "text ",
                           "text ",      "text ",          "text ",         "text ",   "short 4", "short 6",
                           "double 2.5", "double 7.50004", "money 18.7501", "long 101"}));
}

TEST_F(Rpt147Test, GivesATotalPriceOfZeroWhereNothingWasSold) {
  const RecordsetRef rows = Sales();
  AddSale(*rows, {{"FQty", 0.0}});
  AddSale(*rows, {{"FQty", 0.0}});
  Give(2003, 7, rows);
  Fetch(Periods(2003, 7, 2003, 7));
  EXPECT_EQ(Column("FPrice"), (Lines{"double 12.5", "double 12.5", "double 0"}));
  EXPECT_EQ(Column("FAmount"), (Lines{"money 25", "money 25", "money 50"}));
}

TEST_F(Rpt147Test, GivesATotalPriceOfZeroWhereReturnsMakeUpForSales) {
  const RecordsetRef rows = Sales();
  AddSale(*rows, {{"FQty", 3.0}, {"FAmount", Currency::FromDouble(30)}});
  AddSale(*rows, {{"FQty", -3.0}, {"FAmount", Currency::FromDouble(-20)}});
  Give(2003, 7, rows);
  Fetch(Periods(2003, 7, 2003, 7));
  EXPECT_EQ(Last("FPrice"), "double 0");
  EXPECT_EQ(Last("FAmount"), "money 10");
}

TEST_F(Rpt147Test, TotalsEachPeriodByItself) {
  Give(2002, 12, OneSale());
  Give(2003, 2, OneSale({{"FQty", 5.0}, {"FAmount", Currency::FromDouble(10)}}));
  Fetch(Periods(2002, 12, 2003, 2));
  EXPECT_EQ(Column("FPeriodName"), (Lines{"text 2002.12", "text 2002.12", "text 2003.2", "text 2003.2"}));
  EXPECT_EQ(Column("FSumSort"), (Lines{"long 0", "long 101", "long 0", "long 101"}));
  EXPECT_EQ(Column("FQty"), (Lines{"double 2", "double 2", "double 5", "double 5"}));
  EXPECT_EQ(Column("FAmount"), (Lines{"money 25", "money 25", "money 10", "money 10"}));
  EXPECT_EQ(Column("FPrice"), (Lines{"double 12.5", "double 12.5", "double 12.5", "double 2"}));
}

TEST_F(Rpt147Test, AddsNothingForAPeriodWithoutRows) {
  Fetch(Periods(2003, 1, 2003, 3));
  EXPECT_EQ(asked_.size(), 3u);
  EXPECT_EQ(Rs()->RecordCount(), 0);
}

TEST_F(Rpt147Test, AddsAmountsToTheLastTenThousandth) {
  const RecordsetRef rows = Sales();
  for (int i = 0; i < 1000; ++i) AddSale(*rows, {{"FAmount", Currency::FromScaled(1001)}});
  Give(2003, 7, rows);
  Fetch(Periods(2003, 7, 2003, 7));
  EXPECT_EQ(Last("FAmount"), "money 100.1");
}

TEST_F(Rpt147Test, KeepsTheDayOfADateWithoutItsTime) {
  Give(2003, 7, OneSale({{"FDate", Date::FromYmd(2003, 7, 15, 16, 45)}}));
  Fetch(Periods(2003, 7, 2003, 7));
  EXPECT_EQ(First("FDate"), "date 2003-07-15");
}

TEST_F(Rpt147Test, LeavesTheDateNullOnALineOfTheFirstOfJanuary1900) {
  Give(2003, 7, OneSale({{"FDate", Date::FromYmd(1900, 1, 1)}}));
  Fetch(Periods(2003, 7, 2003, 7));
  EXPECT_EQ(Column("FDate"), (Lines{"null", "null"}));
}

TEST_F(Rpt147Test, ReadsNullTextsAsEmptyAndNullIdsAsZero) {
  Give(2003, 7,
       OneSale({{"FVoucherNo", Null()},
                {"FNote", Null()},
                {"FBillNo", Null()},
                {"FNumber", Null()},
                {"FModel", Null()},
                {"FInterID", Null()},
                {"FEntryID", Null()},
                {"FTranType", Null()},
                {"FItemID", Null()}}));
  Fetch(Periods(2003, 7, 2003, 7));
  EXPECT_EQ(Row(0),
            (Lines{"short 2003", "short 7",     "text 2003.7", "long 0",  "long 0",  "date 2003-07-15",
                   "text ",      "text ",       "text ",       "long 0",  "long 0",  "text ",
                   "text 0003",  "text 台灯",   "text ",       "text 只", "short 0", "short 2",
                   "double 2",   "double 12.5", "money 25",    "long 0"}));
}

TEST_F(Rpt147Test, TurnsIdsThatComeAsTextsIntoNumbersAndVoucherNumbersIntoTexts) {
  const RecordsetRef rows = Sales({{"FInterID", FieldType::kVarChar}, {"FVoucherNo", FieldType::kInteger}});
  AddSale(*rows, {{"FInterID", "1002"}, {"FVoucherNo", 12}});
  Give(2003, 7, rows);
  Fetch(Periods(2003, 7, 2003, 7));
  EXPECT_EQ(First("FInterID"), "long 1002");
  EXPECT_EQ(First("FVoucherNo"), "text 12");
}

TEST_F(Rpt147Test, TurnsNamesAndUnitsOfAnyKindIntoTexts) {
  const RecordsetRef rows = Sales({{"FShortNumber", FieldType::kInteger}, {"FName", FieldType::kInteger}});
  AddSale(*rows, {{"FShortNumber", 3}, {"FName", 7}});
  Give(2003, 7, rows);
  Fetch(Periods(2003, 7, 2003, 7));
  EXPECT_EQ(First("FShortNumber"), "text 3");
  EXPECT_EQ(First("FName"), "text 7");
}

TEST_F(Rpt147Test, TakesTheServersDecimalsAndDates) {
  const RecordsetRef rows = Sales({{"FQty", FieldType::kNumeric},
                                   {"FAmount", FieldType::kNumeric},
                                   {"FPrice", FieldType::kNumeric},
                                   {"FDate", FieldType::kTimestamp}});
  AddSale(*rows);
  Give(2003, 7, rows);
  Fetch(Periods(2003, 7, 2003, 7));
  EXPECT_EQ(First("FQty"), "double 2");
  EXPECT_EQ(First("FPrice"), "double 12.5");
  EXPECT_EQ(Column("FAmount"), (Lines{"money 25", "money 25"}));
  EXPECT_EQ(First("FDate"), "date 2003-07-15");
}

TEST_F(Rpt147Test, CanBeFilteredForItsTotals) {
  Give(2003, 7, OneSale());
  Give(2003, 8, OneSale());
  Fetch(Periods(2003, 7, 2003, 8));
  Rs()->SetFilter("FSumSort=101");
  EXPECT_EQ(Column("FPeriodName"), (Lines{"text 2003.7", "text 2003.8"}));
}

TEST_F(Rpt147Test, HasItsFieldsInOrderWithTypeAndSize) {
  Fetch(Periods(2003, 7, 2003, 7));
  Lines fields;
  for (int i = 0; i < Rs()->FieldCount(); ++i) {
    const FieldInfo& field = Rs()->Field(i);
    fields.push_back(field.name + " " + std::to_string(static_cast<int>(field.type)) + " " +
                     std::to_string(field.size));
  }
  EXPECT_EQ(fields, (Lines{"FYear 2 0",
                           "FPeriod 2 0",
                           "FPeriodName 200 30",
                           "FInterID 3 0",
                           "FEntryID 3 0",
                           "FDate 7 0",
                           "FVoucherNo 200 50",
                           "FNote 200 355",
                           "FBillNo 200 50",
                           "FTranType 3 0",
                           "FItemID 3 0",
                           "FNumber 200 255",
                           "FShortNumber 200 255",
                           "FName 200 255",
                           "FModel 200 255",
                           "FUnitName 200 255",
                           "FQtyDecimal 2 0",
                           "FPriceDecimal 2 0",
                           "FQty 5 0",
                           "FPrice 5 0",
                           "FAmount 6 0",
                           "FSumSort 3 0"}));
}

// --- Columns and title

class Rpt147HeaderTest : public testing::Rpt147World {
 protected:
  // The columns, a line each: caption, second line, kind, field, visible, and how many keys.
  Lines Columns() {
    Lines columns;
    const auto header = As<Vector>(GetMember(Report(), "Header"));
    for (std::int32_t i = 1; i <= header->Size(); ++i) {
      const auto row = As<Dictionary>(header->Item(i));
      columns.push_back(row->Get("FColCaption").ToText() + "|" + row->Get("FHeadSecond").ToText() + "|" +
                        row->Get("FColType").ToText() + "|" + row->Get("FColName").ToText() + "|" +
                        row->Get("FVisible").ToText() + "|" + std::to_string(row->Entries().size()));
    }
    return columns;
  }
  static Lines Expected(const std::string& code_field) {
    return {"会计期间$||1|FPeriodName|1|5", "日期$||1|FDate|1|5",       "凭证字号$||1|FVoucherNo|1|5",
            "摘要$||1|FNote|1|5",           "发票号码$||1|FBillNo|1|5", "产品代码$||1|" + code_field + "|1|5",
            "产品名称$||1|FName|1|5",       "规格型号$||1|FModel|1|5",  "计量单位$||1|FUnitName|1|5",
            "销售数量$||2|FQty|1|5",        "销售单价$||4|FPrice|1|5",  "销售收入$||6|FAmount|1|5"};
  }
};

TEST_F(Rpt147HeaderTest, ShowsTheLongCode) {
  Fetch(Periods(2003, 7, 2003, 7));
  EXPECT_EQ(Columns(), Expected("FNumber"));
}

TEST_F(Rpt147HeaderTest, ShowsTheShortCodeWhereThatIsInUse) {
  AnswerProfile("1", 12);
  Fetch(Periods(2003, 7, 2003, 7));
  EXPECT_EQ(Columns(), Expected("FShortNumber"));
}

class Rpt147TitleTest : public testing::Rpt147World {
 protected:
  Lines Title() {
    Lines lines;
    const auto title = As<Vector>(GetMember(Report(), "Title"));
    for (std::int32_t i = 1; i <= title->Size(); ++i) {
      const auto line = As<Dictionary>(title->Item(i));
      lines.push_back(testing::Shown(line->Get("FIndex")) + " " + line->Get("FCaption").ToText());
    }
    return lines;
  }
};

TEST_F(Rpt147TitleTest, SaysAllForEachRangeThatIsOpenAtBothEnds) {
  Fetch(Periods(2002, 11, 2003, 2, {{"BItemNumber", ""}, {"EItemNumber", ""}}));
  EXPECT_EQ(Title(), (Lines{"short 0 起始期间：2002年 第11期", "short 1 截止期间：2003年 第2期",
                            "short 2 产品代码范围：所有产品", "short 3 业务员代码范围：所有业务员",
                            "short 4 部门代码范围：所有部门", "short 5 客户代码范围：所有客户"}));
}

TEST_F(Rpt147TitleTest, NamesBothEndsOfEachRange) {
  Fetch(Periods(2003, 7, 2003, 7,
                {{"BItemNumber", "01.01"},
                 {"EItemNumber", "01.99"},
                 {"BEmpNumber", "E1"},
                 {"EEmpNumber", "E9"},
                 {"BDptNumber", "D1"},
                 {"EDptNumber", ""},
                 {"BCustNumber", ""},
                 {"ECustNumber", "C9"}}));
  EXPECT_EQ(Title(), (Lines{"short 0 起始期间：2003年 第7期", "short 1 截止期间：2003年 第7期",
                            "short 2 产品代码范围：01.01  --  01.99", "short 3 业务员代码范围：E1  --  E9",
                            "short 4 部门代码范围：D1  --  ", "short 5 客户代码范围：  --  C9"}));
}

}  // namespace
}  // namespace salerpt
