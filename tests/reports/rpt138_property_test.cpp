// The order execution summary by a property or by a field of the order head.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/reports/rpt138_world.h"

namespace salerpt::testing {
namespace {

// What sums by one group value: its column GROUPCOLUMN, its expression GROUP.
constexpr const char* kInsert =
    " INSERT INTO #DATA  SELECT CASE WHEN GROUPING({GROUP})=1 THEN '合计' WHEN GROUPING(t1.FNumber)=1 THEN "
    "CONVERT(varchar(355),{GROUP})+'(小计)' ELSE CONVERT(varchar(355),{GROUP}) END,t1.FNumber,\r\n"
    "{VALUES} CASE WHEN GROUPING({GROUP})=1 THEN 101\r\n"
    " WHEN  GROUPING(t1.FNumber)=1 THEN 102 ELSE 0 END ";

class Rpt138ByProperty : public Rpt138World {
 protected:
  static Pieces FramesAround(const char* work, const char* only_sum = "0") {
    return With(CommonKeys(only_sum),
                {{"SELECT", std::string("SET NOCOUNT ON\r\n") + work +
                                "\r\nCREATE TABLE #DATA(\r\n{GROUPCOLUMN}\r\n{COLUMNS}\r\n"
                                "{INSERT}{SUMFROM}\r\n{WHERE}"},
                 {"GROUPBY", " GROUP BY {GROUP},t1.FNumber WITH ROLLUP "},
                 {"ITEMFILTER", " FItemID In (Select DISTINCT ##ITEMID## From #DATA2 )"},
                 {"EndSel", "Select * From #DATA  {ONLYTOTALS}\r\n Order By FID \r\nDROP TABLE #DATA  "}});
  }
  // A property of customer or item, summed over the ordinary work table.
  static Pieces ItemProperty(const char* column, const char* group, const Pieces& more = {}) {
    return With({{"INSERT", kInsert}, {"GROUPCOLUMN", column}, {"GROUP", group}, {"SUMFROM", "{FROM}"}},
                more);
  }
};

TEST_F(Rpt138ByProperty, SendsAnyOtherGroupingByThePropertysOwnColumn) {
  ExpectRead(FetchBy(8, Property("客户", 1, 0, "FName")), FramesAround("{WORK}"),
             ItemProperty("  FProp01 varchar(355) null,", "t2.FName"));
  ExpectRead(FetchBy(9, Property("型号", 4, 7, "FModel")), FramesAround("{WORK}"),
             ItemProperty("  FProp74 varchar(355) null,", "t1.FModel"));
}

TEST_F(Rpt138ByProperty, JoinsTheTableThatShowsThePropertysValue) {
  FetchBy(8, Property("类型", 4, 12, "t1.FTypeID", "t_SubMessage", "FInterID", "FName"));
  ExpectRead(request_, FramesAround("{WORK}"),
             ItemProperty("  FProp124 varchar(355) null,", "tt2.FName",
                          {{"SUMFROM",
                            "{FROM}\r\n"
                            "Left Join t_SubMessage tt2 On t1.FTypeID=tt2.FInterID"}}));
  ExpectPiece(request_.at("SELECT"), "Left Join t_SubMessage tt2 On t1.FTypeID=tt2.FInterID\r\n");
}

TEST_F(Rpt138ByProperty, WritesTheSettledTextsOfAPropertyToTheByte) {
  FetchBy(8, Property("客户", 1, 0, "FName"));
  ExpectPiece(request_.at("SELECT"), "  FProp01 varchar(355) null,");
  ExpectPiece(request_.at("SELECT"), "{COLUMNS}");
  ExpectPiece(request_.at("SELECT"), "{VALUES}");
  ExpectPiece(
      request_.at("SELECT"),
      " CASE WHEN GROUPING(t2.FName)=1 THEN 101\r\n WHEN  GROUPING(t1.FNumber)=1 THEN 102 ELSE 0 END ");
  EXPECT_TRUE(SameText(request_.at("GROUPBY"), " GROUP BY t2.FName,t1.FNumber WITH ROLLUP "));
  EXPECT_TRUE(SameText(request_.at("ITEMFILTER"), " FItemID In (Select DISTINCT ##ITEMID## From #DATA2 )"));
}

TEST_F(Rpt138ByProperty, JoinsBranchCompaniesBeforeThePropertysTable) {
  FetchBy(8, Property("类型", 4, 12, "t1.FTypeID", "t_SubMessage", "FInterID", "FName"),
          {{"BCompanyNumber", "10"}});
  ExpectRead(request_, FramesAround("{WORK}"),
             ItemProperty("  FProp124 varchar(355) null,", "tt2.FName",
                          {{"SUMFROM",
                            "{BRANCHFROM}\r\n"
                            "Left Join t_SubMessage tt2 On t1.FTypeID=tt2.FInterID"},
                           {"ITEM", " And t12.FNumber<='10'"},
                           {"BRANCHBOUND", " And t4.FNumber<='10'"}}));
}

// --- Sale style, customer and employee are fields of the order head: the work table has the field itself.
struct HeadField {
  std::int32_t mode;
  const char* field;
  const char* stock_field;
  const char* table;
  const char* key;
  const char* column;
};
constexpr HeadField kSaleStyle = {
    0, "FSaleStyle", "FSaleStyle", "t_SubMessage", "FInterID", "  FProp291 varchar(355) null,"};
constexpr HeadField kCustomer = {
    5, "FCustID", "FSupplyID", "t_Organization", "FItemID", "  FProp02 varchar(355) null,"};
constexpr HeadField kEmployee = {7, "FEmpID", "FEmpID", "t_Emp", "FItemID", "  FProp03 varchar(355) null,"};

class Rpt138ByHeadField : public Rpt138ByProperty {
 protected:
  static DictionaryRef SumFieldOf(const HeadField& head) {
    if (head.mode == kSaleStyle.mode) return SaleStyle();
    return head.mode == kCustomer.mode ? Customer() : Employee();
  }
  static Pieces PiecesOf(const HeadField& head, const Pieces& more = {}) {
    return With({{"INSERT", kInsert},
                 {"GROUP", "t2.FName"},
                 {"GROUPCOLUMN", head.column},
                 {"FIELD", head.field},
                 {"STOCKFIELD", head.stock_field},
                 {"TABLE", head.table},
                 {"KEY", head.key},
                 {"SUMFROM", "{FROMBY}"}},
                more);
  }
  // From the first create of the table that is summed into.
  static std::string SummingPart(const std::string& select) {
    return select.substr(std::min(select.size(), select.find("CREATE TABLE #DATA(")));
  }
  void ExpectSum(const HeadField& head, const Pieces& more = {}) {
    const std::string part = SummingPart(request_.at("SELECT"));
    EXPECT_TRUE(SameSql(part, Text("CREATE TABLE #DATA(\r\n{GROUPCOLUMN}\r\n{COLUMNS}\r\n"
                                   "{INSERT}{SUMFROM}\r\n{WHERE}",
                                   PiecesOf(head, more))));
  }
};

TEST_F(Rpt138ByHeadField, SumsByTheNameBehindTheField) {
  for (const HeadField& head : {kSaleStyle, kCustomer, kEmployee}) {
    SCOPED_TRACE(head.field);
    FetchBy(head.mode, SumFieldOf(head));
    ExpectSum(head);
    Pieces expected = FramesAround("");
    expected.erase("SELECT");
    Request rest = request_;
    rest.erase("SELECT");
    ExpectRead(rest, expected, PiecesOf(head));
    ExpectPiece(request_.at("SELECT"), "{FROMBY}", PiecesOf(head));
  }
}

TEST_F(Rpt138ByHeadField, FillsTheFieldInsteadOfTheCustomer) {
  for (const HeadField& head : {kSaleStyle, kCustomer, kEmployee}) {
    SCOPED_TRACE(head.field);
    const Pieces pieces = PiecesOf(head);
    FetchBy(head.mode, SumFieldOf(head));
    const std::string& select = request_.at("SELECT");
    ExpectPiece(select, "{CREATEWORKBY}", pieces);
    ExpectPiece(select, "{ORDERSBYHEAD}", pieces);
    ExpectPiece(select, "{ORDERSWHERE}", pieces);
    const std::vector<std::string> words = SqlWords(select);
    const std::string read = JoinedWords(words);
    EXPECT_TRUE(Contains(read, JoinedWords(Text("{STOCKBILLS}", pieces)))) << Shown(select);
    EXPECT_TRUE(Contains(read, JoinedWords(Text("{INVOICES}", pieces)))) << Shown(select);
    EXPECT_EQ(CountOf(select, "Create Table #DATA2"), 1);
    EXPECT_EQ(CountOf(read, "insert into #data2"), 3);
  }
}

TEST_F(Rpt138ByHeadField, ReadsBranchAndSaleStyleInTheOrdersFill) {
  FetchBy(0, SaleStyle());
  const std::string& select = request_.at("SELECT");
  const std::size_t begin = select.find("Insert Into #Data2 (FSaleStyle,");
  ASSERT_NE(begin, std::string::npos);
  const std::string orders = select.substr(begin, select.find("Order By t3.FDate", begin) - begin);
  for (const char* join : {"   Inner Join t_ICItem t10 On v1.FItemID=t10.FItemID\r\n",
                           "   Left Join t_Organization t11 On t3.FCustID=t11.FItemID\r\n",
                           "   Left Join t_SOnCompany t12 On t3.FRelateBrID = t12.FItemID\r\n",
                           "   Left Join t_SubMessage t13 On t3.FSaleStyle=t13.FInterID ",
                           "   Left Join t_Department TD On t3.FDeptID=TD.FItemID\r\n",
                           "   Left Join t_Emp TE On t3.FEmpID=TE.FItemID\r\n"}) {
    EXPECT_TRUE(HasText(orders, join));
  }
}

TEST_F(Rpt138ByHeadField, GroupsByTheFieldThatThePropertyShows) {
  FetchBy(0, Property("销售方式", 1, 29, "FSaleStyle", "t_SubMessage", "FInterID", "FID"));
  EXPECT_TRUE(SameSql(request_.at("GROUPBY"), " GROUP BY t2.FID,t1.FNumber WITH ROLLUP "));
}

TEST_F(Rpt138ByHeadField, JoinsBranchCompaniesWhereABoundIsSet) {
  for (const HeadField& head : {kSaleStyle, kCustomer, kEmployee}) {
    FetchBy(head.mode, SumFieldOf(head), {{"BCompanyNumber", "10"}, {"ECompanyNumber", "20"}});
    ExpectSum(head, {{"SUMFROM", "{FROMBY}\r\nLeft Join t_SonCompany t4 On v1.FCompanyID =t4.FItemID"},
                     {"BRANCHBOUND", " And t4.FNumber<='10' And t4.FNumber<='20'"}});
    EXPECT_EQ(CountOf(request_.at("SELECT"), " And t12.FNumber<='10' And t12.FNumber<='20'"), 3);
  }
}

TEST_F(Rpt138ByHeadField, RestrictsEveryFillToTheCustomersThatTheUserMaySee) {
  RestrictCustomers();
  for (const HeadField& head : {kSaleStyle, kCustomer, kEmployee}) {
    FetchBy(head.mode, SumFieldOf(head), {{"BCustNumber", "02"}});
    EXPECT_EQ(
        CountOf(request_.at("SELECT"), " And t11.FNumber>='02' And  CharIndex('16394',t11.FRightUserID)>0 "),
        3);
  }
}

TEST_F(Rpt138ByHeadField, BoundsTheFillLikeAnyOther) {
  FetchBy(5, Customer(), {{"SaleType", std::int32_t{201}}, {"CheckState", std::int32_t{1}}, {"BDept", "31"}});
  ExpectPiece(request_.at("SELECT"), "{ORDERSWHERE}",
              {{"STATE", " And t3.FStatus=0 And t3.FCancelLation=0  And t3.FSaleStyle = 201"},
               {"ITEM", " And TD.FNumber>='31'"}});
}

TEST_F(Rpt138ByHeadField, ShowsTotalsOnly) {
  FetchBy(5, Customer(), {{"OnlyShowSum", std::int32_t{1}}});
  ExpectPiece(request_.at("EndSel"), "Select * From #DATA  Where FSumSort>100\r\n Order By FID ");
  EXPECT_EQ(request_.at("OnlyShowSum"), "1");
}

}  // namespace
}  // namespace salerpt::testing
