// Column lists and the re-sort pass.
#include "sqltoolkit/resort.h"

#include <gtest/gtest.h>

namespace salerpt {
namespace {

constexpr const char* kCreate =
    "CREATE TABLE #DATA(       FNumber  varchar(355) null,\r\n"
    "     FQtyDecimal smallint null, \r\n"
    "     FOutQty decimal(23, 10) null, \r\n"
    "     FSumSort smallint not null Default(0), \r\n"
    "     FID int IDENTITY )\r\n";

TEST(ColumnListOf, NamesTheColumnOfEachLineAndKeepsTheLeadingBlank) {
  EXPECT_EQ(ColumnListOf(kCreate), " FNumber, FQtyDecimal, FOutQty, FSumSort, FID");
}

TEST(ColumnListOf, TakesColumnsThatBeginOnTheNextLine) {
  EXPECT_EQ(ColumnListOf("CREATE TABLE #DATA(\r\nFName1 varchar(355) Null,\r\nFCustName varchar(355) Null,"
                         "       FNumber  varchar(355) null,\r\n     FID int IDENTITY )\r\n"),
            " FName1, FCustName, FID")
      << "a line has one column: what it begins with";
}

TEST(ColumnListOf, SkipsLinesOfOneCharacterAndNone) {
  EXPECT_EQ(ColumnListOf("CREATE TABLE #DATA(\r\n  FA int,\r\n\r\n \r\n)\r\n  FB int,\r\n"), " FA, FB");
}

TEST(ColumnListOf, LooksBehindTheFirstParenthesisOnly) {
  EXPECT_EQ(ColumnListOf("CREATE TABLE #T(FQty decimal(23, 10) null,\r\n FID int IDENTITY )"), " FQty, FID");
}

TEST(ColumnListOf, IsEmptyWithoutColumns) {
  EXPECT_EQ(ColumnListOf(""), "");
  EXPECT_EQ(ColumnListOf("CREATE TABLE #T"), "");
  EXPECT_EQ(ColumnListOf("CREATE TABLE #T("), "");
}

TEST(ColumnsWithoutIdentity, TakesTheIdentityOut) {
  EXPECT_EQ(ColumnsWithoutIdentity(kCreate), " FNumber, FQtyDecimal, FOutQty, FSumSort");
}

TEST(ColumnsWithoutIdentity, LeavesATableWithoutOneAsItIs) {
  EXPECT_EQ(ColumnsWithoutIdentity("CREATE TABLE #T(FA int,\r\nFB int )\r\n"), " FA, FB");
}

TEST(ResortPass, MovesWholeBlocksInTheOrderAsked) {
  EXPECT_EQ(ResortPass(" FName1, FNumber, FSumSort", "FOutAmount DESC,FNumber ASC"),
            "Declare @SumID int,@MaxID int,@MinID int \r\n"
            "Select Top 1 @SumID=FSumSort From #TemData Order By FID DESC \r\n"
            "Select Top 1 @SumID=FSumSort From #TemData Where FSumSort>@SumID Order By FID DESC \r\n"
            "Select FID,Row_Number() over(Order By FOutAmount DESC,FNumber ASC) as RowId Into #TemOrder "
            "From #TemData Where FSumSort=@SumID Order By FOutAmount DESC,FNumber ASC\r\n"
            "While Exists(Select * From #TemOrder) \r\n"
            "Begin  \r\n"
            "  Set @MinID=0   Select Top 1 @MaxID=FID From #TemOrder  order by RowId \r\n"
            "  Select Top 1 @MinID=IsNull(FID,0) From #TemData Where FSumSort=@SumID And FID<@MaxID "
            "Order By FID DESC  \r\n"
            "  Insert Into #Data Select   FName1, FNumber, FSumSort From #TemData "
            "Where FID>ISNull(@MinID,0) And FID<=@MaxID  \r\n"
            "  Delete From #TemOrder Where FID=@MaxID  \r\n"
            "End \r\n"
            "Insert Into #Data Select  FName1, FNumber, FSumSort From #TemData "
            "Where FSumSort>1 And FSumSort<@SumID \r\n");
}

}  // namespace
}  // namespace salerpt
