// The outbound detail line by line: the whole request, to the letter.
#include <gtest/gtest.h>

#include "tests/reports/rpt129_world.h"

namespace salerpt::testing {
namespace {

class Rpt129LineByLine : public Rpt129World {
 protected:
  const Request& FetchWith(std::int32_t item_sum, std::int32_t date_sum, std::int32_t only_sum = 0) {
    return Fetch({{"chkShowItemSum", item_sum}, {"chkShowDateSum", date_sum}, {"OnlyShowSum", only_sum}});
  }
  // The column definitions of #DATA as the batch has them: names and types have a test of their own.
  static std::string Definitions(const std::string& select) {
    const std::string begin = "CREATE TABLE #DATA(\r\n";
    const std::string end = "  Insert Into #DATA  \r\n";
    const std::size_t from = select.find(begin);
    const std::size_t to = select.find(end);
    if (from == std::string::npos || to == std::string::npos) {
      ADD_FAILURE() << "no table of the rows, or nothing is put into it: " << Shown(select);
      return "";
    }
    return select.substr(from + begin.size(), to - from - begin.size());
  }
  void ExpectBatch(const Request& request, const Pieces& more = {}) {
    ExpectKeys(request, {"SELECT", "GROUPBY", "Append", "EndSel", "ITEMFILTER", "NoPrice", "NoTaxRate",
                         "NoDate", "RptID"});
    ExpectFixedKeys(request);
    EXPECT_EQ(request.at("GROUPBY"), "");
    EXPECT_EQ(request.at("ITEMFILTER"), " FItemID In (Select Distinct ##ITEMID## From #DATA2) ");
    const std::string& select = request.at("SELECT");
    ExpectLines(select,
                "SET NOCOUNT ON\r\n"
                "{FILL}\r\n"
                "CREATE TABLE #DATA(\r\n" +
                    Definitions(select) +
                    "  Insert Into #DATA  \r\n"
                    " Select {VALUES}\r\n"
                    "{FROM}\r\n"
                    " Where 1=1 \r\n",
                more);
    const std::string& append = request.at("Append");
    EXPECT_TRUE(SameSql(append, Text("{APPEND}", more)));
    EXPECT_TRUE(HasText(append, Text("{NAMES}", more)));
    EXPECT_TRUE(HasText(append, Text("{ITEMSECTION}", more)));
  }
};

constexpr const char* kItemHead =
    "Select ( case FName when '合计' then (Select max(fnumber)+'1' From #Data ) Else fnumber End ) as "
    "FOrderNumber ,* From #DATA  ";
constexpr const char* kDateHead =
    "Select ( case FDate when '合计' then (Select max(isnull(FDate, ''))+'1' From #Data ) Else FDate End ) "
    "as "
    "FOrderNumber ,* From #DATA  ";

TEST_F(Rpt129LineByLine, SendsTheBatchWithoutSubtotals) {
  const Request& request = FetchWith(0, 0);
  ExpectBatch(request, OpenTotalWithoutDates());
  EXPECT_TRUE(SameText(request.at("EndSel"),
                       "Select * From #DATA  \r\n"
                       " Order by FSumSort, FDate,FBillNo,Fentryid \r\n"
                       "DROP TABLE #DATA  \r\n"));
}

TEST_F(Rpt129LineByLine, SendsTheBatchWithSubtotalsOfItems) {
  const Request& request = FetchWith(1, 0);
  ExpectBatch(request, Both(OpenItemSection(), OpenTotalWithoutDates()));
  EXPECT_TRUE(SameText(request.at("EndSel"), std::string(kItemHead) +
                                                 "\r\n"
                                                 " Order by FOrderNumber,FNumber,FSumSort, "
                                                 "FDate,FBillNo,Fentryid \r\n"
                                                 "DROP TABLE #DATA  \r\n"));
}

TEST_F(Rpt129LineByLine, SendsTheBatchWithSubtotalsOfDates) {
  const Request& request = FetchWith(0, 1);
  ExpectBatch(request, OpenDateSections());
  EXPECT_TRUE(SameText(request.at("EndSel"), std::string(kDateHead) +
                                                 "\r\n"
                                                 " Order by FOrderNumber,FDate,FSumSort, "
                                                 "FNumber,FBillNo,Fentryid \r\n"
                                                 "DROP TABLE #DATA  \r\n"));
}

TEST_F(Rpt129LineByLine, RunsBothSectionsAndSortsByItemsWhereBothSubtotalsAreAsked) {
  const Request& request = FetchWith(1, 1);
  ExpectBatch(request, Both(OpenItemSection(), OpenDateSections()));
  EXPECT_TRUE(SameText(request.at("EndSel"), std::string(kItemHead) +
                                                 "\r\n"
                                                 " Order by FOrderNumber,FNumber,FSumSort, "
                                                 "FDate,FBillNo,Fentryid \r\n"
                                                 "DROP TABLE #DATA  \r\n"));
}

TEST_F(Rpt129LineByLine, ShowsBothSubtotalsWhereNothingIsSaidAboutThem) {
  const Request both = FetchWith(1, 1);
  EXPECT_EQ(Fetch({{"OnlyShowSum", std::int32_t{0}}}), both);
}

TEST_F(Rpt129LineByLine, TakesAnyGroupByButOneForLineByLine) {
  const Request plain = FetchWith(0, 0);
  for (const std::int32_t group_by : {0, 2}) {
    EXPECT_EQ(Fetch({{"GroupBy", group_by},
                     {"SumMode", std::int32_t{3}},
                     {"chkShowItemSum", std::int32_t{0}},
                     {"chkShowDateSum", std::int32_t{0}}}),
              plain);
  }
}

TEST_F(Rpt129LineByLine, ShowsTotalsOnlyByTheFinalSelect) {
  ExpectBatch(FetchWith(0, 0, 1), OpenTotalWithoutDates());
  EXPECT_TRUE(SameText(request_.at("EndSel"),
                       "Select * From #DATA  Where FSumSort>=101\r\n"
                       " Order by FSumSort, FDate,FBillNo,Fentryid \r\n"
                       "DROP TABLE #DATA  \r\n"));
  FetchWith(1, 0, 1);
  EXPECT_TRUE(HasText(request_.at("EndSel"), std::string(kItemHead) +
                                                 "Where FSumSort>=101\r\n"
                                                 " Order by FOrderNumber,FNumber,FSumSort, "));
  FetchWith(0, 1, 1);
  EXPECT_TRUE(HasText(request_.at("EndSel"), std::string(kDateHead) +
                                                 "Where FSumSort>=101\r\n"
                                                 " Order by FOrderNumber,FDate,FSumSort, "));
}

TEST_F(Rpt129LineByLine, DefinesTheColumnsOfTheRowsInTheirOrder) {
  const std::string select = FetchWith(0, 0).at("SELECT");
  // What a definition begins with.
  const std::vector<std::pair<std::string, std::string>> expected = {
      {"fitemid", "int default ( 0 )"},
      {"fauxpropid", "varchar ( 355 ) null"},
      {"fauxpropname", "varchar ( 255 )"},
      {"fdate", "varchar ( 30 ) null"},
      {"ftrantype", "int"},
      {"finterid", "int"},
      {"fentryid", "int"},
      {"fbillno", "varchar ( 355 )"},
      {"fnumber", "varchar ( 355 )"},
      {"fshortnumber", "varchar ( 355 )"},
      {"fname", "varchar ( 355 )"},
      {"fmodel", "varchar ( 355 )"},
      {"funitid", "int"},
      {"fauxunitname", "varchar ( 355 )"},
      {"funitname", "varchar ( 355 )"},
      {"fqtydecimal", "smallint"},
      {"fpricedecimal", "smallint"},
      {"fauxoutqty", "decimal ( 23 , 10 )"},
      {"foutqty", "decimal ( 23 , 10 )"},
      {"foutamount", "decimal ( 28 , 2 )"},
      {"fconsignamount", "decimal ( 28 , 2 )"},
      {"fauxcommitqty", "decimal ( 23 , 10 )"},
      {"fcommitqty", "decimal ( 23 , 10 )"},
      {"fcurrencyname", "varchar ( 355 )"},
      {"famountdecimal", "int"},
      {"fcommitamount", "decimal ( 28 , 10 )"},
      {"fglcommitamount", "decimal ( 28 , 2 )"},
      {"fnote", "varchar ( 355 )"},
      {"fcuunitname", "varchar ( 355 )"},
      {"fcuunitoutqty", "decimal ( 23 , 10 )"},
      {"fcuunitcommitqty", "decimal ( 23 , 10 )"},
      {"fsumsort", "smallint not null default ( 0 )"},
      {"fsecunitname", "varchar ( 355 )"},
      {"fsecqty", "decimal ( 23 , 10 )"},
      {"fsecinvoiceqty", "decimal ( 23 , 10 )"},
      {"fcustname", "varchar ( 355 )"},
      {"fcustnumber", "varchar ( 355 )"},
      {"fcustshortnumber", "varchar ( 355 )"},
      {"fsaleunitprice", "decimal ( 18 , 2 )"},
      {"fdstock", "varchar ( 355 )"},
      {"fbatchno", "varchar ( 200 ) null"},
  };
  const auto columns = CreatedColumns(select, "#DATA(");
  ASSERT_EQ(columns.size(), expected.size()) << ::testing::PrintToString(columns);
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_EQ(columns[i].first, expected[i].first);
    EXPECT_EQ(columns[i].second.substr(0, expected[i].second.size()), expected[i].second)
        << expected[i].first;
  }
  const std::string definitions = Definitions(select);
  EXPECT_TRUE(HasText(definitions, "FItemID int default(0),"));
  EXPECT_TRUE(HasText(definitions, "     FDate  Varchar(30) null,      "));
  EXPECT_TRUE(HasText(definitions, "     FSumSort smallint not null Default(0), "));
  EXPECT_TRUE(HasText(definitions, "      FBatchNo varchar(200) null) "));
}

TEST_F(Rpt129LineByLine, GivesEachColumnOfTheRowsOneValue) {
  const std::vector<std::pair<std::string, std::string>> columns =
      CreatedColumns(FetchWith(0, 0).at("SELECT"), "#DATA(");
  EXPECT_EQ(SplitAtCommas(Text("{VALUES}")).size(), columns.size());
}

TEST_F(Rpt129LineByLine, KeepsAmountsAtTheScaleOfTheBaseCurrency) {
  UseScale("4");
  const Request& request = FetchWith(0, 0);
  ExpectBatch(request, Both(OpenTotalWithoutDates(), {{"D", "4"}}));
  const auto columns = CreatedColumns(request.at("SELECT"), "#DATA(");
  for (const auto& [name, definition] : columns) {
    if (name == "foutamount" || name == "fconsignamount" || name == "fglcommitamount") {
      EXPECT_TRUE(Contains(definition, "decimal ( 28 , 4 )")) << name << ": " << definition;
    }
  }
}

TEST_F(Rpt129LineByLine, RestrictsBothHalvesToTheCustomersThatTheUserMaySee) {
  RestrictCustomers();
  ExpectBatch(FetchWith(0, 0),
              Both(OpenTotalWithoutDates(), {{"TAIL", " And  CharIndex('16394',T2.FRightUserID)>0 "}}));
}

TEST_F(Rpt129LineByLine, PutsTheConditionIntoBothHalvesOfTheFillAndNowhereElse) {
  const char* condition = " And t1.FNumber>='01.01' And t2.FNumber<='02' And v2.FBatchNo>='B1'";
  ExpectBatch(Fetch({{"chkShowItemSum", std::int32_t{0}},
                     {"chkShowDateSum", std::int32_t{0}},
                     {"BItemNumber", "01.01"},
                     {"ECustNumber", "02"},
                     {"BBatchNo", "B1"}}),
              Both(OpenTotalWithoutDates(), {{"ITEM", condition}}));
}

TEST_F(Rpt129LineByLine, AsksTheMiddleTierOnceWithTheLoginAndTakesItsRows) {
  Fetch();
  ASSERT_EQ(sales_->CalledMembers(), std::vector<std::string>{"GetSaleDetailData"});
  EXPECT_EQ(sales_->Calls()[0].arguments[0].ToText(), kProps);
  EXPECT_EQ(sales_->Calls()[0].arguments.size(), 2U);
  EXPECT_EQ(GetMember(Report(), "Rs").ToObject(), rows_);
  EXPECT_EQ(Error(), "");
}

TEST_F(Rpt129LineByLine, EndsTheStatementsBehindTheInsertWithALineEnd) {
  const std::string& append = FetchWith(0, 0).at("Append");
  ASSERT_GE(append.size(), 2U);
  EXPECT_EQ(append.substr(append.size() - 2), "\r\n");
}

}  // namespace
}  // namespace salerpt::testing
