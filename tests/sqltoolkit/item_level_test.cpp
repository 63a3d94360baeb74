// The text that makes and fills #ItemLevel.
#include "sqltoolkit/item_level.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "runtime/runtime.h"

namespace salerpt {
namespace {

class ItemLevelTest : public ::testing::Test {
 protected:
  static std::string Build(int begin_level, int end_level, std::int16_t show_code = 0) {
    return BuildItemLevelSQL(kItemClass, "", "", "", true, begin_level, end_level, show_code);
  }
  // What stands between the detail condition and the placeholder.
  static std::string Range(std::string_view prefix, std::string_view begin, std::string_view end) {
    const std::string text = BuildItemLevelSQL(kItemClass, prefix, begin, end, true, 1, 1, 0);
    constexpr std::string_view kBefore = " AND FDetail=1";
    constexpr std::string_view kBehind = " ##ITEMFILTER##\r\n Update t0 SET ";
    const std::size_t from = text.find(kBefore);
    const std::size_t to = text.find(kBehind);
    if (from == std::string::npos || to == std::string::npos) return "not found in " + text;
    return text.substr(from + kBefore.size(), to - from - kBefore.size());
  }

  Runtime runtime_;
};

TEST_F(ItemLevelTest, CutsTheFirstLevelAtTheFirstDot) {
  EXPECT_EQ(Build(1, 1),
            "CREATE TABLE #ItemLevel( \r\n"
            " FNumber1 Varchar(355),\r\n"
            " FName1 Varchar(355),\r\n"
            " FItemID int,\r\n"
            " FNumber VARCHAR(355))\r\n"
            "\r\n"
            " Insert Into #ItemLevel SELECT  \r\n"
            " Case When CharIndex('.',FFullNumber)-1= -1 or FLevel<2 THEN FFullNumber"
            " ELSE SUBSTRING(FNumber, 1,CharIndex('.',FFullNumber)-1)  END, \r\n"
            " '',\r\n"
            " FItemID,FNumber From t_Item\r\n"
            " Where FItemClassID=4\r\n"
            " AND FDetail=1 ##ITEMFILTER##\r\n"
            " Update t0 SET t0.FName1=t1.FName\r\n"
            " From #ItemLevel t0"
            " left join t_Item t1 On t0.FNumber1=t1.FNumber  AND t1.FItemClassID=4 AND t1.FDetail=0 \r\n");
}

TEST_F(ItemLevelTest, GoesOneDotFurtherForEachLevel) {
  EXPECT_EQ(Build(1, 2),
            "CREATE TABLE #ItemLevel( \r\n"
            " FNumber1 Varchar(355),\r\n"
            " FName1 Varchar(355),\r\n"
            " FNumber2 Varchar(355),\r\n"
            " FName2 Varchar(355),\r\n"
            " FItemID int,\r\n"
            " FNumber VARCHAR(355))\r\n"
            "\r\n"
            " Insert Into #ItemLevel SELECT  \r\n"
            " Case When CharIndex('.',FFullNumber)-1= -1 or FLevel<2 THEN FFullNumber"
            " ELSE SUBSTRING(FNumber, 1,CharIndex('.',FFullNumber)-1)  END, \r\n"
            " '',\r\n"
            " Case When CharIndex('.',FFullNumber,CharIndex('.',FFullNumber)+1)-1= -1 or FLevel<3 THEN NULL"
            " ELSE SUBSTRING(FNumber, 1,CharIndex('.',FFullNumber,CharIndex('.',FFullNumber)+1)-1)  END, \r\n"
            " '',\r\n"
            " FItemID,FNumber From t_Item\r\n"
            " Where FItemClassID=4\r\n"
            " AND FDetail=1 ##ITEMFILTER##\r\n"
            " Update t0 SET t0.FName1=t1.FName,t0.FName2=t2.FName\r\n"
            " From #ItemLevel t0"
            " left join t_Item t1 On t0.FNumber1=t1.FNumber  AND t1.FItemClassID=4 AND t1.FDetail=0 \r\n"
            " left join t_Item t2 On t0.FNumber2=t2.FNumber  AND t2.FItemClassID=4 AND t2.FDetail=0 \r\n");
}

TEST_F(ItemLevelTest, BeginsAtADeeperLevelWithoutTheOnesAbove) {
  EXPECT_EQ(
      Build(3, 3),
      "CREATE TABLE #ItemLevel( \r\n"
      " FNumber3 Varchar(355),\r\n"
      " FName3 Varchar(355),\r\n"
      " FItemID int,\r\n"
      " FNumber VARCHAR(355))\r\n"
      "\r\n"
      " Insert Into #ItemLevel SELECT  \r\n"
      " Case When CharIndex('.',FFullNumber,CharIndex('.',FFullNumber,CharIndex('.',FFullNumber)+1)+1)-1= -1"
      " or FLevel<4 THEN NULL ELSE SUBSTRING(FNumber, 1,"
      "CharIndex('.',FFullNumber,CharIndex('.',FFullNumber,CharIndex('.',FFullNumber)+1)+1)-1)  END, \r\n"
      " '',\r\n"
      " FItemID,FNumber From t_Item\r\n"
      " Where FItemClassID=4\r\n"
      " AND FDetail=1 ##ITEMFILTER##\r\n"
      " Update t0 SET t0.FName3=t3.FName\r\n"
      " From #ItemLevel t0"
      " left join t_Item t3 On t0.FNumber3=t3.FNumber  AND t3.FItemClassID=4 AND t3.FDetail=0 \r\n");
}

TEST_F(ItemLevelTest, PutsTheCodeBeforeTheNameWhereItIsToShow) {
  const std::string text = Build(1, 2, 1);
  EXPECT_NE(text.find(" Update t0 SET t0.FName1='[' + t1.FNumber + ']'+ t1.FName,"
                      "t0.FName2='[' + t2.FNumber + ']'+ t2.FName\r\n From #ItemLevel t0"),
            std::string::npos)
      << text;
}

TEST_F(ItemLevelTest, ShowsTheNameAloneForAnyOtherCodeSwitch) {
  EXPECT_EQ(Build(1, 1, 2), Build(1, 1, 0));
  EXPECT_EQ(Build(1, 1, -1), Build(1, 1, 0));
}

TEST_F(ItemLevelTest, ReadsTheTreeOfTheClassAsked) {
  const std::string text = BuildItemLevelSQL(kCustomerClass, "", "", "", true, 1, 1, 0);
  EXPECT_NE(text.find("\r\n Where FItemClassID=1\r\n AND FDetail=1 ##ITEMFILTER##"), std::string::npos);
  EXPECT_NE(text.find(" AND t1.FItemClassID=1 AND t1.FDetail=0 \r\n"), std::string::npos);
  EXPECT_EQ(text.find("FItemClassID=4"), std::string::npos);
}

TEST_F(ItemLevelTest, MakesTheSameTextWhateverIsReserved) {
  EXPECT_EQ(BuildItemLevelSQL(kItemClass, "01", "", "", false, 1, 3, 0),
            BuildItemLevelSQL(kItemClass, "01", "", "", true, 1, 3, 0));
}

// --- The range

TEST_F(ItemLevelTest, HasNoRangeConditionWithoutARange) {
  EXPECT_EQ(Range("", "", ""), "");
}

TEST_F(ItemLevelTest, TakesTheRowsBelowThePrefix) {
  EXPECT_EQ(Range("01.02", "", ""), " AND FNumber Like '01.02.%'");
}

TEST_F(ItemLevelTest, BoundsTheLongCode) {
  runtime_.gLongNumber = true;
  EXPECT_EQ(Range("", "01.01", "02.99"), " AND FNumber>='01.01' AND FNumber<='02.99'");
  EXPECT_EQ(Range("", "01.01", ""), " AND FNumber>='01.01'");
  EXPECT_EQ(Range("", "", "02.99"), " AND FNumber<='02.99'");
}

TEST_F(ItemLevelTest, BoundsTheShortCodeWhereThatIsInUse) {
  runtime_.gLongNumber = false;
  EXPECT_EQ(Range("", "A1", "B9"), " AND FShortNumber>='A1' AND FShortNumber<='B9'");
}

TEST_F(ItemLevelTest, PutsThePrefixBeforeTheRangeAndOnTheLongCodeAlways) {
  runtime_.gLongNumber = false;
  EXPECT_EQ(Range("01", "A1", ""), " AND FNumber Like '01.%' AND FShortNumber>='A1'");
}

TEST_F(ItemLevelTest, ChangesTheLevelsInNothingForTheShortCode) {
  const std::string with_long = Build(1, 3);
  runtime_.gLongNumber = false;
  EXPECT_EQ(Build(1, 3), with_long);
}

TEST_F(ItemLevelTest, DoublesApostrophesAndTrimsTheEnds) {
  EXPECT_EQ(Range("O'N", " it's ", "''"),
            " AND FNumber Like 'O''N.%' AND FNumber>='it''s' AND FNumber<=''''''");
}

}  // namespace
}  // namespace salerpt
