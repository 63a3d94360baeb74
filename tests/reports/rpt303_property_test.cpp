// The consignment list by one property and by batch: the whole request, to the letter.
#include <gtest/gtest.h>

#include "tests/reports/rpt303_world.h"

namespace salerpt::testing {
namespace {

class Rpt303ByProperty : public Rpt303World {
 protected:
  // NAME is the value column of #DATA, NUMBER what the number column gets, VALUE the value of the group.
  static Pieces ExpectedRequest(const char* insert, const char* group_by) {
    return {{"SELECT",
             "SET NOCOUNT ON\r\n"
             "CREATE TABLE #DATA(\r\n"
             "FPropNumber varchar(355) null,\r\n"
             "  {NAME} varchar(355) null,\r\n"
             "{COLUMNS}\r\n"
             "\r\n" +
                 std::string(insert) + "\r\n AND t2.{CODE}>={BOUND}"},
            {"GROUPBY", group_by},
            {"ITEMFILTER", "{ITEMFILTER}"},
            {"Filter", "{CONDITION}"},
            {"EndSel",
             "SELECT * FROM #DATA  {ONLYTOTALS}\r\n"
             " Order by FID \r\n"
             "DROP TABLE #DATA  \r\n"}};
  }
  static constexpr const char* kOwnColumn =
      "INSERT INTO #DATA  SELECT {NUMBER}, CASE  WHEN GROUPING({VALUE})=1 THEN '合计'\r\n"
      " WHEN GROUPING(t1.FNumber)=1 THEN  CONVERT(varchar(355),{VALUE})+'(小计)' \r\n"
      " ELSE CONVERT(varchar(355),{VALUE}) END, \r\n"
      " t1.FNumber,{VALUES} CASE WHEN GROUPING({VALUE})=1 THEN 101\r\n"
      " WHEN  GROUPING(t1.FNumber)=1 THEN 102 ELSE 0 END {FROM}{WHERE}";
  static constexpr const char* kTableOfValues =
      "INSERT INTO #DATA  SELECT {NUMBER},CASE WHEN   GROUPING(tt2.FDisplay)=1 THEN '合计'\r\n"
      "WHEN   GROUPING(t1.FNumber)=1 THEN  CONVERT(varchar(355),tt2.FDisplay)+'(小计)' \r\n"
      " ELSE CONVERT(varchar(355),tt2.FDisplay) END, \r\n"
      " t1.FNumber,{VALUES} CASE WHEN GROUPING(tt2.FDisplay)=1 THEN 101\r\n"
      " WHEN  GROUPING(t1.FNumber)=1 THEN 102 ELSE 0 END {FROM} Left Join t_SubMessage tt2 On "
      "{VALUE}=tt2.FInterID{WHERE}";
  static constexpr const char* kCustomerUpdates =
      "update t1 set t1.{NAME}=t2.FName+t1.{NAME} from  #DATA t1 inner join t_Organization t2 on "
      "t1.FPropNumber=t2.FNumber where t1.FSumSort=101\r\n"
      "declare @iMaxID int\r\n"
      "set @iMaxID=0 \r\n"
      "select @iMaxID=max(FID) from #Data\r\n"
      "update #Data set {NAME}=(Select top 1 {NAME} from #Data where FID<@iMaxID order by {NAME} desc) where "
      "FID=@iMaxID\r\n"
      "delete from #data where isnull(FPropNumber,'')<>'' and fsumsort=101\r\n"
      "Update #Data Set {NAME}='合计' WHERE FSumSort=101\r\n";

  static Pieces CustomerRequest() {
    return ExpectedRequest(kOwnColumn, " GROUP BY  t2.FNumber,  {VALUE},t1.FNumber WITH ROLLUP\r\n");
  }
  static Pieces CustomerRequestWithTable() {
    return ExpectedRequest(kTableOfValues,
                           " GROUP BY  t2.FNumber,  tt2.FDisplay,t1.FNumber WITH ROLLUP \r\n");
  }
  static Pieces OtherRequest() {
    return ExpectedRequest(kOwnColumn, " GROUP BY  {VALUE},t1.FNumber WITH ROLLUP\r\n");
  }
  static Pieces OtherRequestWithTable() {
    return ExpectedRequest(kTableOfValues, " GROUP BY  tt2.FDisplay,t1.FNumber WITH ROLLUP \r\n");
  }
  static Pieces Named(const char* name, const char* number, const char* value) {
    return {{"NAME", name}, {"NUMBER", number}, {"VALUE", value}, {"CODE", "FNumber"}, {"BOUND", "''"}};
  }
  // Of customers the request has a text of updates, too.
  void ExpectCustomers(const Request& request, Pieces expected, const Pieces& pieces) {
    expected["UpdateAppend"] = kCustomerUpdates;
    ExpectBatch(request, expected, pieces);
  }
};

TEST_F(Rpt303ByProperty, GroupsByTheCustomer) {
  ExpectCustomers(FetchBy(SumField("客户", 1, 0)), CustomerRequest(),
                  Named("FProp01", "t2.FNumber", "t2.FName"));
}

TEST_F(Rpt303ByProperty, GroupsByTheDepartment) {
  ExpectBatch(FetchBy(SumField("部门", 2, 0)), OtherRequest(), Named("FProp02", "''", "t4.FName"));
}

TEST_F(Rpt303ByProperty, GroupsByTheEmployee) {
  ExpectBatch(FetchBy(SumField("业务员", 3, 0)), OtherRequest(), Named("FProp03", "''", "t3.FName"));
}

TEST_F(Rpt303ByProperty, GroupsByAnItemProperty) {
  ExpectBatch(FetchBy(SumField("规格型号", 4, 3, "FModel")), OtherRequest(),
              Named("FProp34", "''", "t1.FModel"));
}

TEST_F(Rpt303ByProperty, GroupsByATableOfValues) {
  ExpectBatch(FetchBy(SumFieldWithTable("物料来源", 4, 5, "FSource")), OtherRequestWithTable(),
              Named("FProp54", "''", "t1.FSource"));
  ExpectBatch(FetchBy(SumFieldWithTable("职务", 3, 8, "FDuty")), OtherRequestWithTable(),
              Named("FProp83", "''", "t3.FDuty"));
  ExpectBatch(FetchBy(SumFieldWithTable("部门属性", 2, 9, "FDProperty")), OtherRequestWithTable(),
              Named("FProp92", "''", "t4.FDProperty"));
}

TEST_F(Rpt303ByProperty, GroupsByATableOfValuesOfCustomers) {
  ExpectCustomers(FetchBy(SumFieldWithTable("区域", 1, 12, "FRegionID")), CustomerRequestWithTable(),
                  Named("FProp121", "t2.FNumber", "t2.FRegionID"));
}

TEST_F(Rpt303ByProperty, TakesEveryModeThatNoOtherGroupingHas) {
  for (const std::int32_t mode : {0, 5, 7, 8, 9, 12, 99}) {
    SCOPED_TRACE("mode " + std::to_string(mode));
    ExpectBatch(FetchBy(SumField("部门", 2, 0), {{"SumMode", mode}}), OtherRequest(),
                Named("FProp02", "''", "t4.FName"));
  }
}

TEST_F(Rpt303ByProperty, ReadsThePropertyWrittenAsTextToo) {
  const DictionaryRef property = SumField("部门", 2, 0);
  property->Set("FItemClassID", "2");
  property->Set("FPropID", "0");
  ExpectBatch(FetchBy(property), OtherRequest(), Named("FProp02", "''", "t4.FName"));
}

TEST_F(Rpt303ByProperty, ShowsTotalsOnly) {
  Pieces pieces = Named("FProp01", "t2.FNumber", "t2.FName");
  pieces["ONLYTOTALS"] = "WHERE FSumSort>100";
  ExpectCustomers(FetchBy(SumField("客户", 1, 0), {{"OnlyShowSum", std::int32_t{1}}}), CustomerRequest(),
                  pieces);
  pieces = Named("FProp03", "''", "t3.FName");
  pieces["ONLYTOTALS"] = "WHERE FSumSort>100";
  ExpectBatch(FetchBy(SumField("业务员", 3, 0), {{"OnlyShowSum", std::int32_t{1}}}), OtherRequest(), pieces);
}

TEST_F(Rpt303ByProperty, BoundsTheRowsByTheFirstCustomerAndLeavesTheRestToTheMiddleTier) {
  Pieces pieces = Named("FProp02", "''", "t4.FName");
  pieces["BOUND"] = "'02''1'";
  pieces["CONDITION"] = " AND t1.FNumber>='01' AND t2.FNumber>='02''1' AND t4.FNumber<='09'";
  ExpectBatch(
      FetchBy(SumField("部门", 2, 0), {{"BItemNumber", "01"}, {"BCustNumber", "02'1"}, {"EDptNumber", "09"}}),
      OtherRequest(), pieces);
}

TEST_F(Rpt303ByProperty, BoundsTheRowsByTheShortCodeWhereThatIsInUse) {
  UseShortCode();
  Pieces pieces = Named("FProp02", "''", "t4.FName");
  pieces["CODE"] = "FShortNumber";
  ExpectBatch(FetchBy(SumField("部门", 2, 0)), OtherRequest(), pieces);
}

TEST_F(Rpt303ByProperty, KeepsAmountsAtTheScaleOfTheBaseCurrency) {
  UseScale("4");
  Pieces pieces = Named("FProp03", "''", "t3.FName");
  pieces["D"] = "4";
  ExpectBatch(FetchBy(SumField("业务员", 3, 0)), OtherRequest(), pieces);
}

TEST_F(Rpt303ByProperty, RestrictsRowsToTheCustomersThatTheUserMaySee) {
  RestrictCustomers();
  Pieces pieces = Named("FProp01", "t2.FNumber", "t2.FName");
  pieces["TAIL"] = kCustomerRight;
  ExpectCustomers(FetchBy(SumField("客户", 1, 0)), CustomerRequest(), pieces);
  pieces = Named("FProp54", "''", "t1.FSource");
  pieces["TAIL"] = kCustomerRight;
  ExpectBatch(FetchBy(SumFieldWithTable("物料来源", 4, 5, "FSource")), OtherRequestWithTable(), pieces);
}

TEST_F(Rpt303ByProperty, RefusesAPropertyThatIsNoDictionary) {
  Run({{"GroupBy", std::int32_t{1}}, {"SumMode", std::int32_t{0}}, {"SumField", "客户"}});
  EXPECT_FALSE(Ok());
  EXPECT_NE(Error(), "");
  EXPECT_TRUE(sales_->Calls().empty());
}

class Rpt303ByBatch : public Rpt303World {
 protected:
  void ExpectBatches(const Request& request, const Pieces& pieces = {}) {
    ExpectBatch(
        request,
        {{"SELECT",
          "SET NOCOUNT ON\r\n"
          "CREATE TABLE #DATA( FBatchNo   VARCHAR(355) null,{COLUMNS} INSERT INTO #DATA ( FBatchNo,{LIST} "
          "SELECT CASE  WHEN GROUPING(t1.FNumber)=1  THEN '合计' WHEN GROUPING(v1.FBatchNo)=1 THEN  "
          "t1.FNumber+'小计' ELSE v1.FBatchNo END,  t1.FNumber,{VALUES} CASE WHEN "
          "GROUPING(t1.FNumber)=1 THEN 101 WHEN  GROUPING(v1.FBatchNo)=1 THEN 102 ELSE 0 END "
          "{FROM}{WHERE}"},
         {"GROUPBY", " GROUP BY t1.FNumber,v1.FBatchNo WITH ROLLUP"},
         {"ITEMFILTER", "{ITEMFILTER}"},
         {"Filter", "{CONDITION}"},
         {"EndSel",
          "SELECT * FROM #DATA  {ONLYTOTALS}\r\n"
          " ORDER BY FID \r\n"}},
        pieces);
  }
};

TEST_F(Rpt303ByBatch, SendsTheWholeBatch) {
  ExpectBatches(FetchBatches());
}

TEST_F(Rpt303ByBatch, TakesItsModeWhateverPropertyIsNamed) {
  ExpectBatches(FetchBatches({{"SumField", SumField("业务员", 3, 0)}}));
}

TEST_F(Rpt303ByBatch, ShowsTotalsOnly) {
  ExpectBatches(FetchBatches({{"OnlyShowSum", std::int32_t{1}}}), {{"ONLYTOTALS", "WHERE FSumSort>100"}});
}

TEST_F(Rpt303ByBatch, LeavesTheConditionToTheMiddleTier) {
  ExpectBatches(FetchBatches({{"BItemNumber", "01"}, {"ECustNumber", "O'Neil"}}),
                {{"CONDITION", " AND t1.FNumber>='01' AND t2.FNumber<='O''Neil'"}});
}

TEST_F(Rpt303ByBatch, KeepsAmountsAtTheScaleOfTheBaseCurrency) {
  UseScale("4");
  ExpectBatches(FetchBatches(), {{"D", "4"}});
}

TEST_F(Rpt303ByBatch, RestrictsRowsToTheCustomersThatTheUserMaySee) {
  RestrictCustomers();
  ExpectBatches(FetchBatches(), {{"TAIL", kCustomerRight}});
}

}  // namespace
}  // namespace salerpt::testing
