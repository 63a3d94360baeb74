// The fee invoice summary by one property: the whole request, to the letter.
#include <gtest/gtest.h>

#include "tests/reports/rpt301_world.h"

namespace salerpt::testing {
namespace {

class Rpt301ByProperty : public Rpt301World {
 protected:
  // NAME is the value column of #DATA, NUMBER what the number column gets, VALUE the value of the group, TEXT
  // the same as a text, GROUPNUMBER what is grouped by before it.
  static Pieces ExpectedRequest(const char* insert, const char* behind) {
    return {
        {"SELECT",
         "SET NOCOUNT ON\r\n"
         "CREATE TABLE #DATA(\r\n"
         "FPropNumber varchar(355) null,\r\n"
         "  {NAME} varchar(355) null,\r\n"
         "{COLUMNS}\r\n"
         "\r\n" +
             std::string(insert) + "\r\n"},
        {"GROUPBY", std::string(" GROUP BY {GROUPNUMBER} {GROUP},t4.FNumber WITH ROLLUP") + behind + "\r\n"},
        {"ITEMFILTER", "{ITEMFILTER}"},
        {"EndSel", "SELECT * FROM #DATA  {ONLYTOTALS}\r\n"}};
  }
  static Pieces OwnColumn() {
    return ExpectedRequest(
        "INSERT INTO #DATA  SELECT {NUMBER}, CASE  WHEN GROUPING({GROUP})=1 THEN '合计'\r\n"
        " WHEN GROUPING(t4.FNumber)=1 THEN  isnull({TEXT},'')+'(小计)' \r\n"
        " ELSE {TEXT} END, \r\n"
        " t4.FNumber,{VALUES} CASE WHEN GROUPING({GROUP})=1 THEN 101\r\n"
        " WHEN  GROUPING(t4.FNumber)=1 THEN 105 ELSE 0 END {FROM}{WHERE}",
        "");
  }
  static Pieces TableOfValues() {
    return ExpectedRequest(
        "INSERT INTO #DATA  SELECT {NUMBER},CASE WHEN   GROUPING({GROUP})=1 THEN '合计'\r\n"
        "WHEN   GROUPING(t4.FNumber)=1 THEN  isnull({TEXT},'')+'(小计)' \r\n"
        " ELSE {TEXT} END, \r\n"
        " t4.FNumber,{VALUES} CASE WHEN GROUPING({GROUP})=1 THEN 101\r\n"
        " WHEN  GROUPING(t4.FNumber)=1 THEN 105 ELSE 0 END {FROM} Left Join t_SubMessage tt2 On "
        "{VALUE}=tt2.FInterID{WHERE}",
        " ");
  }
  static Pieces Named(const char* name, const char* value) {
    return {{"NAME", name},   {"NUMBER", "''"},   {"GROUP", value}, {"TEXT", "CONVERT(varchar(355),{GROUP})"},
            {"VALUE", value}, {"GROUPNUMBER", ""}};
  }
  static Pieces NamedInTable(const char* name, const char* value) {
    Pieces pieces = Named(name, value);
    pieces["GROUP"] = "tt2.FDisplay";
    return pieces;
  }
  // Of customers the number stands before the value, and the row that only the number rolled up goes again.
  void ExpectCustomers(const Request& request, Pieces expected, Pieces pieces) {
    pieces["NUMBER"] = "t2.FNumber";
    pieces["GROUPNUMBER"] = " t2.FNumber, ";
    expected["UpdateAppend"] = "delete from #data where isnull(FPropNumber,'')<>'' and fsumsort=101\r\n";
    ExpectBatch(request, expected, pieces);
  }
};

TEST_F(Rpt301ByProperty, GroupsByTheCustomer) {
  ExpectCustomers(FetchBy(SumField("客户", 1, 0), {{"InvoiceStyle", std::int32_t{1}}}), OwnColumn(),
                  Named("FProp01", "t2.FName"));
}

TEST_F(Rpt301ByProperty, GroupsByTheSupplier) {
  ExpectBatch(FetchBy(SumField("供应商", 8, 0)), OwnColumn(), Named("FProp08", "t3.FName"));
  ExpectBatch(FetchBy(SumField("供应商", 3, 0)), OwnColumn(), Named("FProp03", "t3.FName"));
}

TEST_F(Rpt301ByProperty, GroupsByTheKindOfFee) {
  ExpectBatch(FetchBy(SumField("费用类型", 2014, 0)), OwnColumn(), Named("FProp02014", "k1.FName"));
  ExpectBatch(FetchBy(SumField("类型", 4, 6)), OwnColumn(), Named("FProp64", "k1.FName"));
}

TEST_F(Rpt301ByProperty, GroupsByATableOfValues) {
  ExpectBatch(FetchBy(SumFieldWithTable("区域", 8, 12, "FRegionID")), TableOfValues(),
              NamedInTable("FProp128", "t3.FRegionID"));
  ExpectBatch(FetchBy(SumFieldWithTable("区域", 3, 12, "FRegionID")), TableOfValues(),
              NamedInTable("FProp123", "t3.FRegionID"));
  ExpectBatch(FetchBy(SumFieldWithTable("类型", 2014, 5, "FSource")), TableOfValues(),
              NamedInTable("FProp52014", "k1.FSource"));
}

TEST_F(Rpt301ByProperty, GroupsByATableOfValuesOfCustomers) {
  ExpectCustomers(FetchBy(SumFieldWithTable("区域", 1, 12, "FRegionID")), TableOfValues(),
                  NamedInTable("FProp121", "t2.FRegionID"));
}

TEST_F(Rpt301ByProperty, TakesThePeriodOfCreditForANumber) {
  Pieces pieces = Named("FProp78", "t3.FKFPeriod");
  pieces["TEXT"] = "CONVERT(varchar(355),convert(int,{GROUP}))";
  ExpectBatch(FetchBy(SumField("信用期限", 8, 7, "FKFPeriod")), OwnColumn(), pieces);
  pieces = Named("FProp71", "t2.FKFPeriod");
  pieces["TEXT"] = "CONVERT(varchar(355),convert(int,{GROUP}))";
  ExpectCustomers(FetchBy(SumField("信用期限", 1, 7, "FKFPeriod")), OwnColumn(), pieces);
}

TEST_F(Rpt301ByProperty, KnowsThePeriodOfCreditWithBlanksRoundItsName) {
  EXPECT_NE(FetchBy(SumField("信用期限", 8, 7, " FKFPeriod ")).at("SELECT").find("convert(int,"),
            std::string::npos);
}

TEST_F(Rpt301ByProperty, TakesEveryModeThatIsNoClassWherePropertyHasAName) {
  for (const std::int32_t mode : {0, 2, 5, 6, 99}) {
    SCOPED_TRACE("mode " + std::to_string(mode));
    ExpectBatch(FetchBy(SumField("供应商", 8, 0), {{"SumMode", mode}}), OwnColumn(),
                Named("FProp08", "t3.FName"));
  }
}

TEST_F(Rpt301ByProperty, NamesNoTableTwice) {
  for (const std::int32_t item_class : {1, 3, 8, 2014}) {
    FetchBy(SumFieldWithTable("区域", item_class, 12, "FRegionID"));
    const std::string& select = request_.at("SELECT");
    for (const char* table : {"t_Organization t2", "t_Supplier t3", "t_SubMessage k1", "t_SubMessage tt2"}) {
      EXPECT_EQ(select.find(table), select.rfind(table)) << table << ", class " << item_class;
    }
  }
}

TEST_F(Rpt301ByProperty, HasNoBoundOfTheFirstCustomer) {
  const Request open = FetchBy(SumField("客户", 1, 0));
  EXPECT_EQ(FetchBy(SumField("客户", 1, 0), {{"BCust", "02"}, {"BCustNumber", "02"}}), open);
}

TEST_F(Rpt301ByProperty, ShowsTotalsOnly) {
  Pieces pieces = Named("FProp08", "t3.FName");
  pieces["ONLYTOTALS"] = "WHERE FSumSort>100";
  ExpectBatch(FetchBy(SumField("供应商", 8, 0), {{"OnlyShowSum", std::int32_t{1}}}), OwnColumn(), pieces);
  pieces = Named("FProp01", "t2.FName");
  pieces["ONLYTOTALS"] = "WHERE FSumSort>100";
  ExpectCustomers(FetchBy(SumField("客户", 1, 0), {{"OnlyShowSum", std::int32_t{1}}}), OwnColumn(), pieces);
}

TEST_F(Rpt301ByProperty, ReadsThePropertyWrittenAsTextToo) {
  const DictionaryRef property = SumField("供应商", 8, 0);
  property->Set("FItemClassID", "8");
  property->Set("FPropID", "0");
  ExpectBatch(FetchBy(property), OwnColumn(), Named("FProp08", "t3.FName"));
}

TEST_F(Rpt301ByProperty, RefusesAPropertyThatIsNoDictionary) {
  RunInvoices({{"GroupBy", std::int32_t{1}}, {"SumMode", std::int32_t{0}}, {"SumField", "客户"}});
  EXPECT_FALSE(Ok());
  EXPECT_NE(Error(), "");
  EXPECT_TRUE(sales_->Calls().empty());
}

}  // namespace
}  // namespace salerpt::testing
