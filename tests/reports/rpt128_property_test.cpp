// The outbound summary by one property: the whole request, to the letter.
#include <gtest/gtest.h>

#include "tests/reports/rpt128_world.h"

namespace salerpt::testing {
namespace {

class Rpt128ByProperty : public Rpt128World {
 protected:
  static DictionaryRef Property(const char* name, const char* id, const char* item_class,
                                const char* column) {
    return std::make_shared<Dictionary>(Entries{{"FName", name},
                                                {"FPropID", id},
                                                {"FItemClassID", item_class},
                                                {"FSrcTable", ""},
                                                {"FDisplayField", ""},
                                                {"FSQLColumnName", column},
                                                {"FSrcField", ""}});
  }
  static DictionaryRef PropertyWithTable(const char* name, const char* id, const char* item_class,
                                         const char* column, const char* table, const char* display,
                                         const char* field) {
    const DictionaryRef property = Property(name, id, item_class, column);
    property->Set("FSrcTable", table);
    property->Set("FDisplayField", display);
    property->Set("FSrcField", field);
    return property;
  }
  // Under a mode that no other grouping has.
  const Request& FetchBy(const DictionaryRef& property, const char* order = "") {
    return Fetch({{"GroupBy", std::int32_t{1}},
                  {"SumMode", std::int32_t{5}},
                  {"SumField", property},
                  {"OrderBy", order}});
  }
};

// NAME is the value column of #DATA.
Pieces ExpectedRequest(const char* insert, const char* group_by, const char* end_select) {
  return {{"SELECT",
           "SET NOCOUNT ON\r\n"
           "{FILL}\r\n"
           "CREATE TABLE #DATA(\r\n"
           "FPropNumber varchar(355) null,\r\n"
           "  {NAME} varchar(355) null,\r\n"
           "{COLUMNS}\r\n"
           "\r\n" +
               std::string(insert)},
          {"GROUPBY", group_by},
          {"Append", "{UPDATE}\r\n\r\nDrop Table #DATA2 \r\n"},
          {"EndSel", end_select},
          {"Filter", ""},
          {"ITEMFILTER", " FItemID In (SELECT DISTINCT ##ITEMID## FROM #DATA2 )"},
          {"NoPrice", ""},
          {"NoTaxRate", ""},
          {"NoDate", ""},
          {"RptID", "Rpt128"}};
}

constexpr const char* kPlainEnd =
    "SELECT * FROM #DATA  \r\n"
    " Order by FID \r\n"
    "DROP TABLE #DATA  \r\n";

constexpr const char* kCustomerEnd =
    "SELECT case when charindex('合计',{NAME})>0 then '合计' else {NAME} end as {NAME},{NAME} as FProp02, "
    "\r\n"
    "FPropNumber, FNumber,FShortNumber,FName,FModel,FUnitName,FQtyDecimal,FOutQty,FOutAmount,\r\n"
    "FCommitQty,FCommitAmount,FNotCommitAmount,FNotCommitQty,FConsignAmount,FCUUnitName,FCuUnitOutQty,\r\n"
    "FCuUnitCommitQty , FCuUnitNotCommitQty, FSumSort, FID,FSecUnitName,FSecQty,FSecInvoiceQty,"
    "FSecNInvoiceQty FROM #DATA{ONLYTOTALS}\r\n"
    "Order by FID    \r\n"
    "DROP TABLE #DATA  \r\n";

constexpr const char* kCustomerUpdates =
    "update t1 set t1.{NAME}=t2.FName+t1.{NAME} from  #DATA t1 inner join t_Organization t2 on "
    "t1.FPropNumber=t2.FNumber where t1.FSumSort=101\r\n"
    "declare @iMaxID int\r\n"
    "set @iMaxID=0 \r\n"
    "select @iMaxID=max(FID) from #Data\r\n"
    "update #Data set {NAME}=(Select top 1 {NAME} from #Data where FID<@iMaxID order by {NAME} desc) where "
    "FID=@iMaxID\r\n"
    "delete from #data where isnull(FPropNumber,'')<>'' and fsumsort=101\r\n";

// Of a customer, on its own column; FIRST the table that the rows go to, SOURCE the one that they come from.
constexpr const char* kCustomerInsert =
    "INSERT INTO #DATA  SELECT t2.FNumber, CASE  WHEN GROUPING(t2.FName)=1 THEN '合计'\r\n"
    " WHEN GROUPING(t1.FNumber)=1 THEN  CONVERT(varchar(355),t2.FName)+'(小计)' \r\n"
    " ELSE CONVERT(varchar(355),t2.FName) END, \r\n"
    " t1.FNumber,{VALUES} CASE WHEN GROUPING(t2.FName)=1 THEN 101\r\n"
    " WHEN  GROUPING(t1.FNumber)=1 THEN 102 ELSE 0 END {FROM} WHERE 1=1 \r\n"
    "\r\n"
    " AND t2.FNumber>=''";

Pieces CustomerRequest() {
  Pieces request = ExpectedRequest(
      kCustomerInsert, " GROUP BY  t2.FNumber,  t2.FName,t1.FNumber WITH ROLLUP\r\n", kCustomerEnd);
  request["UpdateAppend"] = kCustomerUpdates;
  return request;
}

// Of an item, with a table of values.
Pieces ItemWithTableRequest() {
  return ExpectedRequest(
      "INSERT INTO #DATA  SELECT '',CASE WHEN   GROUPING(tt2.FName)=1 THEN '合计'\r\n"
      "WHEN   GROUPING(t1.FNumber)=1 THEN  CONVERT(varchar(355),tt2.FName)+'(小计)' \r\n"
      " ELSE CONVERT(varchar(355),tt2.FName) END, \r\n"
      " t1.FNumber,{VALUES} CASE WHEN GROUPING(tt2.FName)=1 THEN 101\r\n"
      " WHEN  GROUPING(t1.FNumber)=1 THEN 102 ELSE 0 END {FROM} Left Join t_SubMessage tt2 On "
      "t1.FSource=tt2.FInterID WHERE 1=1 \r\n"
      "\r\n"
      " AND t2.FNumber>=''",
      " GROUP BY  tt2.FName,t1.FNumber WITH ROLLUP \r\n", kPlainEnd);
}

TEST_F(Rpt128ByProperty, GroupsByTheCustomerOnItsOwnColumn) {
  ExpectRequest(FetchBy(Property("客户", "0", "1", "FName")), CustomerRequest(),
                {{"NAME", "FProp01"}, {"ONLYTOTALS", ""}});
}

TEST_F(Rpt128ByProperty, NamesTheColumnsOfACustomerPropertyByItsNumber) {
  ExpectRequest(FetchBy(Property("联系人", "7", "1", "FName")), CustomerRequest(),
                {{"NAME", "FProp71"}, {"ONLYTOTALS", ""}});
}

TEST_F(Rpt128ByProperty, ShowsTotalsOnlyOfCustomers) {
  ExpectRequest(Fetch({{"GroupBy", std::int32_t{1}},
                       {"SumMode", std::int32_t{5}},
                       {"SumField", Property("客户", "0", "1", "FName")},
                       {"OnlyShowSum", std::int32_t{1}}}),
                CustomerRequest(), {{"NAME", "FProp01"}, {"ONLYTOTALS", " WHERE FSumSort>100"}});
}

TEST_F(Rpt128ByProperty, GroupsByACustomerPropertyWithATableOfValues) {
  Pieces request = ExpectedRequest(
      "INSERT INTO #DATA  SELECT t2.FNumber,CASE WHEN   GROUPING(tt2.FName)=1 THEN '合计'\r\n"
      "WHEN   GROUPING(t1.FNumber)=1 THEN  CONVERT(varchar(355),tt2.FName)+'(小计)' \r\n"
      " ELSE CONVERT(varchar(355),tt2.FName) END, \r\n"
      " t1.FNumber,{VALUES} CASE WHEN GROUPING(tt2.FName)=1 THEN 101\r\n"
      " WHEN  GROUPING(t1.FNumber)=1 THEN 102 ELSE 0 END {FROM} Left Join t_SubMessage tt2 On "
      "t2.FRegionID=tt2.FInterID WHERE 1=1 \r\n"
      "\r\n"
      " AND t2.FNumber>=''",
      " GROUP BY  t2.FNumber,  tt2.FName,t1.FNumber WITH ROLLUP \r\n", kCustomerEnd);
  request["UpdateAppend"] = kCustomerUpdates;
  ExpectRequest(
      FetchBy(PropertyWithTable("区域", "12", "1", "FRegionID", "t_SubMessage", "FName", "FInterID")),
      request, {{"NAME", "FProp121"}, {"ONLYTOTALS", ""}});
}

TEST_F(Rpt128ByProperty, GroupsByAnItemPropertyWithATableOfValues) {
  ExpectRequest(
      FetchBy(PropertyWithTable("物料来源", "5", "4", "FSource", "t_SubMessage", "FName", "FInterID")),
      ItemWithTableRequest(), {{"NAME", "FProp54"}});
}

TEST_F(Rpt128ByProperty, GroupsByAnItemPropertyOnItsOwnColumn) {
  ExpectRequest(
      FetchBy(Property("规格型号", "3", "4", "FModel")),
      ExpectedRequest("INSERT INTO #DATA  SELECT '', CASE  WHEN GROUPING(t1.FModel)=1 THEN '合计'\r\n"
                      " WHEN GROUPING(t1.FNumber)=1 THEN  CONVERT(varchar(355),t1.FModel)+'(小计)' \r\n"
                      " ELSE CONVERT(varchar(355),t1.FModel) END, \r\n"
                      " t1.FNumber,{VALUES} CASE WHEN GROUPING(t1.FModel)=1 THEN 101\r\n"
                      " WHEN  GROUPING(t1.FNumber)=1 THEN 102 ELSE 0 END {FROM} WHERE 1=1 \r\n"
                      "\r\n"
                      " AND t2.FNumber>=''",
                      " GROUP BY  t1.FModel,t1.FNumber WITH ROLLUP\r\n", kPlainEnd),
      {{"NAME", "FProp34"}});
}

TEST_F(Rpt128ByProperty, GroupsByTheColumnAsItStandsInAnyOtherClass) {
  ExpectRequest(
      FetchBy(Property("出库类型", "9", "2", "v1.FSaleStyle")),
      ExpectedRequest("INSERT INTO #DATA  SELECT '', CASE  WHEN GROUPING(v1.FSaleStyle)=1 THEN '合计'\r\n"
                      " WHEN GROUPING(t1.FNumber)=1 THEN  CONVERT(varchar(355),v1.FSaleStyle)+'(小计)' \r\n"
                      " ELSE CONVERT(varchar(355),v1.FSaleStyle) END, \r\n"
                      " t1.FNumber,{VALUES} CASE WHEN GROUPING(v1.FSaleStyle)=1 THEN 101\r\n"
                      " WHEN  GROUPING(t1.FNumber)=1 THEN 102 ELSE 0 END {FROM} WHERE 1=1 \r\n"
                      "\r\n"
                      " AND t2.FNumber>=''",
                      " GROUP BY  v1.FSaleStyle,t1.FNumber WITH ROLLUP\r\n", kPlainEnd),
      {{"NAME", "FProp92"}});
}

TEST_F(Rpt128ByProperty, ShowsTotalsOnlyOfOtherClasses) {
  Pieces request = ItemWithTableRequest();
  request["EndSel"] =
      "SELECT * FROM #DATA  WHERE FSumSort>100\r\n"
      " Order by FID \r\n"
      "DROP TABLE #DATA  \r\n";
  ExpectRequest(Fetch({{"GroupBy", std::int32_t{1}},
                       {"SumMode", std::int32_t{5}},
                       {"SumField", PropertyWithTable("物料来源", "5", "4", "FSource", "t_SubMessage",
                                                      "FName", "FInterID")},
                       {"OnlyShowSum", std::int32_t{1}}}),
                request, {{"NAME", "FProp54"}});
}

TEST_F(Rpt128ByProperty, TakesAnyModeThatNoOtherGroupingHas) {
  for (const std::int32_t mode : {0, 13, 99}) {
    ExpectRequest(Fetch({{"GroupBy", std::int32_t{1}},
                         {"SumMode", mode},
                         {"SumField", Property("客户", "0", "1", "FName")}}),
                  CustomerRequest(), {{"NAME", "FProp01"}, {"ONLYTOTALS", ""}});
  }
}

TEST_F(Rpt128ByProperty, MovesWholeBlocksIntoTheAskedOrder) {
  Pieces request = CustomerRequest();
  request["SELECT"] =
      "SET NOCOUNT ON\r\n"
      "{FILL}\r\n"
      "CREATE TABLE #DATA(\r\n"
      "FPropNumber varchar(355) null,\r\n"
      "  {NAME} varchar(355) null,\r\n"
      "{COLUMNS}\r\n"
      "\r\n"
      "CREATE TABLE #TemData(\r\n"
      "FPropNumber varchar(355) null,\r\n"
      "  {NAME} varchar(355) null,\r\n"
      "{COLUMNS}\r\n"
      "\r\n"
      "INSERT INTO #TemData  SELECT t2.FNumber, CASE  WHEN GROUPING(t2.FName)=1 THEN '合计'\r\n"
      " WHEN GROUPING(t1.FNumber)=1 THEN  CONVERT(varchar(355),t2.FName)+'(小计)' \r\n"
      " ELSE CONVERT(varchar(355),t2.FName) END, \r\n"
      " t1.FNumber,{VALUES} CASE WHEN GROUPING(t2.FName)=1 THEN 101\r\n"
      " WHEN  GROUPING(t1.FNumber)=1 THEN 102 ELSE 0 END  From #Data2 v1\r\n"
      " Inner Join t_ICItem t1 On v1.FItemID=t1.FItemID\r\n"
      " Left Join t_Organization t2 On v1.FCustID=t2.FItemID\r\n"
      " Inner Join T_MeasureUnit t3 On t1.FSaleUnitID = t3.FMeasureUnitID\r\n"
      " WHERE 1=1 \r\n"
      "\r\n"
      " AND t2.FNumber>=''";
  request["Append"] =
      "{UPDATE}\r\n"
      "{RESORT}Drop Table #TemOrder  Drop Table #TemData \r\n"
      "Drop Table #DATA2 \r\n";
  ExpectRequest(FetchBy(Property("客户", "0", "1", "FName"), "FOutQty"), request,
                {{"NAME", "FProp01"},
                 {"ONLYTOTALS", ""},
                 {"TABLE", "#TemData"},
                 {"ORDER", "FOutQty"},
                 {"LIST", " FPropNumber, {NAME}, {COMMON}"}});
}

TEST_F(Rpt128ByProperty, BoundsTheRowsByTheFirstCustomerWhetherSetOrNot) {
  Pieces request = CustomerRequest();
  request["SELECT"].replace(request["SELECT"].rfind("''"), 2, "'02''1'");
  request["Filter"] = "{ITEM}";
  ExpectRequest(
      Fetch({{"GroupBy", std::int32_t{1}},
             {"SumMode", std::int32_t{5}},
             {"SumField", Property("客户", "0", "1", "FName")},
             {"BCustNumber", "02'1"},
             {"ECustNumber", "05"}}),
      request,
      {{"NAME", "FProp01"}, {"ONLYTOTALS", ""}, {"ITEM", " AND t2.FNumber>='02''1' AND t2.FNumber<='05'"}});
}

TEST_F(Rpt128ByProperty, BoundsTheRowsByTheShortCodeWhereThatIsInUse) {
  UseShortCode();
  const std::string select = FetchBy(Property("规格型号", "3", "4", "FModel")).at("SELECT");
  const std::string end = " AND t2.FShortNumber>=''";
  ASSERT_GT(select.size(), end.size());
  EXPECT_EQ(select.substr(select.size() - end.size()), end);
}

TEST_F(Rpt128ByProperty, KeepsAmountsAtTheScaleOfTheBaseCurrency) {
  UseScale("4");
  ExpectRequest(FetchBy(Property("客户", "0", "1", "FName")), CustomerRequest(),
                {{"NAME", "FProp01"}, {"ONLYTOTALS", ""}, {"D", "4"}});
}

TEST_F(Rpt128ByProperty, RestrictsBothHalvesToTheCustomersThatTheUserMaySee) {
  RestrictCustomers();
  ExpectRequest(
      FetchBy(Property("客户", "0", "1", "FName")), CustomerRequest(),
      {{"NAME", "FProp01"}, {"ONLYTOTALS", ""}, {"TAIL", " And  CharIndex('16394',t2.FRightUserID)>0 "}});
}

}  // namespace
}  // namespace salerpt::testing
