// Columns and title lines as the host reads them.
#include "sqltoolkit/report_header.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace salerpt {
namespace {

using Kind = Variant::Kind;

DictionaryRef OnlyRow(const Vector& rows) {
  EXPECT_EQ(rows.Size(), 1);
  return rows.Size() == 1 ? As<Dictionary>(rows.Item(1)) : std::make_shared<Dictionary>();
}

std::string Keys(const Dictionary& row) {
  std::string keys;
  for (const Dictionary::Entry& entry : row.Entries()) keys += entry.key + " ";
  return keys;
}

TEST(AddHeader, WritesTheFiveKeysOfEveryColumnInOrder) {
  Vector header;
  AddHeader(header, "产品代码$", "", ColumnType::kText, "FNumber", true);
  const DictionaryRef row = OnlyRow(header);
  EXPECT_EQ(Keys(*row), "FColCaption FHeadSecond FColType FColName FVisible ");
  EXPECT_EQ(row->Get("FColCaption"), Variant("产品代码$"));
  EXPECT_EQ(row->Get("FHeadSecond"), Variant(""));
  EXPECT_EQ(row->Get("FColType"), Variant("1"));
  EXPECT_EQ(row->Get("FColName"), Variant("FNumber"));
  EXPECT_EQ(row->Get("FVisible"), Variant(std::int16_t{1}));
}

TEST(AddHeader, HidesAColumnWithAZero) {
  Vector header;
  AddHeader(header, "行号", "", ColumnType::kText, "FEntryID", false);
  EXPECT_EQ(OnlyRow(header)->Get("FVisible"), Variant(std::int16_t{0}));
}

TEST(AddHeader, WritesForceHideBehindVisible) {
  Vector header;
  AddHeader(header, "出库金额$", "", ColumnType::kBaseAmount, "FOutAmount", true, ForceHide{1});
  const DictionaryRef row = OnlyRow(header);
  EXPECT_EQ(Keys(*row), "FColCaption FHeadSecond FColType FColName FVisible FForceHide ");
  EXPECT_EQ(row->Get("FColType"), Variant("40"));
  EXPECT_EQ(row->Get("FForceHide"), Variant(std::int16_t{1}));
}

TEST(AddHeader, WritesMergerTypeBehindVisible) {
  Vector header;
  AddHeader(header, "订单编号$", "", ColumnType::kText, "FBillNo", true, MergerType{2});
  const DictionaryRef row = OnlyRow(header);
  EXPECT_EQ(Keys(*row), "FColCaption FHeadSecond FColType FColName FVisible FMergerType ");
  EXPECT_EQ(row->Get("FMergerType"), Variant(std::int16_t{2}));
}

TEST(AddHeader, WritesMergerTypeBeforeForceHide) {
  Vector header;
  AddHeader(header, "日期$", "", ColumnType::kDate, "FDate", true, MergerType{0}, ForceHide{0});
  const DictionaryRef row = OnlyRow(header);
  EXPECT_EQ(Keys(*row), "FColCaption FHeadSecond FColType FColName FVisible FMergerType FForceHide ");
  EXPECT_EQ(row->Get("FMergerType"), Variant(std::int16_t{0}));
  EXPECT_EQ(row->Get("FForceHide"), Variant(std::int16_t{0}));
}

TEST(AddHeader, WritesEachKindOfColumnAsItsNumberInText) {
  const std::pair<ColumnType, const char*> kinds[] = {
      {ColumnType::kDate, "0"},         {ColumnType::kText, "1"},    {ColumnType::kQuantity, "2"},
      {ColumnType::kPrice, "4"},        {ColumnType::kAmount, "6"},  {ColumnType::kPercentage, "8"},
      {ColumnType::kExchangeRate, "9"}, {ColumnType::kPeriod, "10"}, {ColumnType::kBaseAmount, "40"}};
  for (const auto& [type, text] : kinds) {
    Vector header;
    AddHeader(header, "", "", type, "F", true);
    EXPECT_EQ(OnlyRow(header)->Get("FColType"), Variant(text));
  }
}

TEST(AddHeader, KeepsTheColumnsOfAGroupInOrder) {
  Vector header;
  AddHeader(header, "出库+|", "数量", ColumnType::kQuantity, "FOutQty", true);
  AddHeader(header, " ", "金额", ColumnType::kAmount, "FOutAmount", true);
  ASSERT_EQ(header.Size(), 2);
  EXPECT_EQ(As<Dictionary>(header.Item(1))->Get("FColCaption"), Variant("出库+|"));
  EXPECT_EQ(As<Dictionary>(header.Item(1))->Get("FHeadSecond"), Variant("数量"));
  EXPECT_EQ(As<Dictionary>(header.Item(2))->Get("FColCaption"), Variant(" "));
  EXPECT_EQ(As<Dictionary>(header.Item(2))->Get("FHeadSecond"), Variant("金额"));
}

TEST(AddTitle, WritesCaptionAndPlace) {
  Vector title;
  AddTitle(title, "起始日期：2003-01-01", 3);
  const DictionaryRef row = OnlyRow(title);
  EXPECT_EQ(Keys(*row), "FCaption FIndex ");
  EXPECT_EQ(row->Get("FCaption"), Variant("起始日期：2003-01-01"));
  EXPECT_EQ(row->Get("FIndex"), Variant(std::int16_t{3}));
}

TEST(AddTitle, LetsTwoLinesShareAPlace) {
  Vector title;
  AddTitle(title, "一", 0);
  AddTitle(title, "二", 0);
  ASSERT_EQ(title.Size(), 2);
  EXPECT_EQ(As<Dictionary>(title.Item(2))->Get("FCaption"), Variant("二"));
  EXPECT_EQ(As<Dictionary>(title.Item(2))->Get("FIndex"), Variant(std::int16_t{0}));
}

TEST(RangeCaption, SaysAllOnlyWhereBothEndsAreEmpty) {
  EXPECT_EQ(RangeCaption("", "", "所有产品"), "所有产品");
  EXPECT_EQ(RangeCaption("01.01", "", "所有产品"), "01.01  --  ");
  EXPECT_EQ(RangeCaption("", "02.99", "所有产品"), "  --  02.99");
  EXPECT_EQ(RangeCaption("01.01", "02.99", "所有产品"), "01.01  --  02.99");
}

}  // namespace
}  // namespace salerpt
