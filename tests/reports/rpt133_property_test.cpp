// The customer sales summary by one property: the request as the server reads it.
#include <gtest/gtest.h>

#include "tests/reports/rpt133_world.h"

namespace salerpt::testing {
namespace {

class Rpt133ByProperty : public Rpt133World {
 protected:
  // NAME is the column of the value, PARTY what stands for the number, GROUP the value.
  static Pieces ExpectedRequest(const char* group_by) {
    return {{"SELECT",
             "SET NOCOUNT ON\r\n"
             "CREATE TABLE #DATA(\r\n"
             "FPropNumber varchar(355) null,\r\n"
             "  {NAME} varchar(355) null,\r\n"
             "{COLUMNS}\r\n"
             "\r\n"
             "INSERT INTO #DATA  SELECT {PARTY}, CASE  WHEN GROUPING({GROUP})=1 THEN '合计'\r\n"
             " WHEN GROUPING(t1.FNumber)=1 THEN  CONVERT(varchar(355),{GROUP})+'(小计)' \r\n"
             " ELSE CONVERT(varchar(355),{GROUP}) END, \r\n"
             " t1.FNumber,{VALUES} CASE WHEN GROUPING({GROUP})=1 THEN 101\r\n"
             " WHEN  GROUPING(t1.FNumber)=1 THEN 102 ELSE 0 END {FROM}{TABLE}{WHERE}{CONDITION}\r\n"
             "{BOUND}"},
            {"GROUPBY", group_by},
            {"ITEMFILTER", "{ITEMFILTER}"},
            {"EndSel",
             "SELECT * FROM #DATA  {ONLYTOTALS}\r\n Order by FID \r\n"
             "DROP TABLE #DATA  \r\n"}};
  }
  static Pieces CustomerRequest() {
    Pieces request = ExpectedRequest(" GROUP BY  t2.FNumber,  {GROUP},t1.FNumber WITH ROLLUP\r\n");
    request["UpdateAppend"] =
        "update t1 set t1.{NAME}=t2.FName+t1.{NAME} from  #DATA t1 inner join t_Organization t2 on "
        "t1.FPropNumber=t2.FNumber where t1.FSumSort=101\r\n"
        "declare @iMaxID int\r\n"
        "set @iMaxID=0 \r\n"
        "select @iMaxID=max(FID) from #Data\r\n"
        "update #Data set {NAME}=(Select top 1 {NAME} from #Data where FID<@iMaxID order by {NAME} desc) "
        "where FID=@iMaxID\r\n"
        "delete from #data where isnull(FPropNumber,'')<>'' and fsumsort=101\r\n"
        "Update #Data Set {NAME}='合计' WHERE FSumSort=101\r\n";
    return request;
  }
  static Pieces OtherRequest() { return ExpectedRequest(" GROUP BY {GROUP},t1.FNumber WITH ROLLUP\r\n"); }
  // Departments and employees stand behind the invoices where they are grouped by.
  static Pieces WithPeople(Pieces pieces) {
    pieces["JOINS"] = "{PEOPLE}";
    return pieces;
  }
  static Pieces Named(const char* name, const char* party, const char* group) {
    return {
        {"NAME", name}, {"PARTY", party}, {"GROUP", group}, {"TABLE", ""}, {"BOUND", " AND t2.FNumber>=''"}};
  }
};

TEST_F(Rpt133ByProperty, GroupsByTheCustomer) {
  ExpectRead(FetchBy(SumField("客户", 1, 0)), CustomerRequest(), Named("FProp01", "t2.FNumber", "t2.FName"));
}

TEST_F(Rpt133ByProperty, GroupsByTheDepartment) {
  ExpectRead(FetchBy(SumField("部门", 2, 0)), OtherRequest(), WithPeople(Named("FProp02", "''", "t3.FName")));
}

TEST_F(Rpt133ByProperty, GroupsByTheEmployee) {
  ExpectRead(FetchBy(SumField("业务员", 3, 0)), OtherRequest(),
             WithPeople(Named("FProp03", "''", "t4.FName")));
}

TEST_F(Rpt133ByProperty, GroupsByAnItemProperty) {
  const DictionaryRef property = SumField("规格", 4, 3);
  property->Set("FSQLColumnName", "FModel");
  ExpectRead(FetchBy(property), OtherRequest(), Named("FProp34", "''", "t1.FModel"));
}

TEST_F(Rpt133ByProperty, TakesEveryModeThatIsNoLevelGrouping) {
  for (const std::int32_t mode : {0, 5, 6, 7, 8, 12, 99}) {
    FetchBy(SumField("客户", 1, 0), {{"SumMode", mode}});
    ExpectRead(request_, CustomerRequest(), Named("FProp01", "t2.FNumber", "t2.FName"));
  }
}

TEST_F(Rpt133ByProperty, JoinsATableOfValues) {
  const DictionaryRef property = SumField("区域", 1, 12);
  property->Set("FSQLColumnName", "FRegionID");
  property->Set("FSrcTable", "t_SubMessage");
  property->Set("FSrcField", "FInterID");
  property->Set("FDisplayField", "FName");
  FetchBy(property);
  const std::string& select = request_.at("SELECT");
  ExpectPiece(select, " LEFT JOIN t_SubMessage tt2 ON ");
  ExpectPiece(select, "FRegionID=tt2.FInterID");
  ExpectPiece(select, " AND  v2.FItemID=t1.FItemID ");
  const std::string read = AsTheServerReads(select);
  EXPECT_NE(read.find("case when grouping(tt2.fname)=1 then '合计'"), std::string::npos);
  EXPECT_NE(read.find("case when grouping(tt2.fname)=1 then 101"), std::string::npos);
  EXPECT_EQ(AsTheServerReads(request_.at("GROUPBY")), "group by t2.fnumber,tt2.fname,t1.fnumber with rollup");
  EXPECT_NE(request_.at("UpdateAppend").find("FProp121"), std::string::npos);
}

TEST_F(Rpt133ByProperty, ShowsTotalsOnly) {
  Pieces pieces = Named("FProp01", "t2.FNumber", "t2.FName");
  pieces["ONLYTOTALS"] = "WHERE FSumSort>100";
  ExpectRead(FetchBy(SumField("客户", 1, 0), {{"OnlyShowSum", std::int32_t{1}}}), CustomerRequest(), pieces);
}

TEST_F(Rpt133ByProperty, BoundsTheRowsByTheFirstCustomerWhetherSetOrNot) {
  Pieces pieces = Named("FProp01", "t2.FNumber", "t2.FName");
  pieces["CONDITION"] = " AND t1.FNumber>='01' AND t2.FNumber>='02''1'";
  pieces["BOUND"] = " AND t2.FNumber>='02''1'";
  ExpectRead(FetchBy(SumField("客户", 1, 0), {{"BItemNumber", "01"}, {"BCustNumber", "02'1"}}),
             CustomerRequest(), pieces);
}

TEST_F(Rpt133ByProperty, RestrictsInvoicesToTheCustomersThatTheUserMaySee) {
  RestrictCustomers();
  Pieces pieces = Named("FProp01", "t2.FNumber", "t2.FName");
  pieces["TAIL"] = " And  CharIndex('16394',t2.FRightUserID)>0 ";
  ExpectRead(FetchBy(SumField("客户", 1, 0)), CustomerRequest(), pieces);
}

}  // namespace
}  // namespace salerpt::testing
