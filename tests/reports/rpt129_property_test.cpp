// The outbound detail by one property: statements and columns.
#include <gtest/gtest.h>

#include "tests/reports/rpt129_world.h"

namespace salerpt::testing {
namespace {

class Rpt129ByProperty : public Rpt129World {
 protected:
  static DictionaryRef Property(const char* id, const char* item_class, const char* column,
                                const char* table = "", const char* display = "", const char* field = "") {
    return std::make_shared<Dictionary>(Entries{{"FName", "分类"},
                                                {"FPropID", id},
                                                {"FItemClassID", item_class},
                                                {"FSrcTable", table},
                                                {"FDisplayField", display},
                                                {"FSQLColumnName", column},
                                                {"FSrcField", field}});
  }
  const Request& FetchBy(const DictionaryRef& property, std::int32_t mode = 0, std::int32_t only_sum = 0) {
    return Fetch(
        {{"GroupBy", std::int32_t{1}}, {"SumMode", mode}, {"SumField", property}, {"OnlyShowSum", only_sum}});
  }
  void ExpectFrame(const Request& request, const Pieces& more = {}) {
    ExpectKeys(request, {"SELECT", "GROUPBY", "Append", "EndSel", "Filter", "ITEMFILTER", "NoPrice",
                         "NoTaxRate", "NoDate", "RptID"});
    ExpectFixedKeys(request);
    EXPECT_EQ(request.at("ITEMFILTER"), " FItemID In (Select Distinct ##ITEMID## From #DATA2) ");
    const std::string select = WithoutEmptyLines(request.at("SELECT"));
    const std::string begin = "SET NOCOUNT ON\r\n" + WithoutEmptyLines(Text("{FILL}", more));
    EXPECT_TRUE(SameText(select.substr(0, begin.size()), begin));
    EXPECT_FALSE(Contains(select, "#Tem"));
    EXPECT_TRUE(SameSql(request.at("Append"), Text("{APPEND}"))) << "no section opens in a grouping";
  }
  // The group value, its column and the codes; GROUP is what is grouped by.
  void ExpectGroup(const Request& request, const char* column, const char* group) {
    auto selected = SelectedByColumn(request.at("SELECT"), "#DATA");
    const Pieces more = {{"GROUP", group}};
    EXPECT_EQ(
        selected[column],
        JoinedWords(Text("CASE WHEN GROUPING({GROUP})=1 THEN '合计' WHEN GROUPING(t1.FNumber)=1 THEN "
                         "CONVERT(varchar(355),{GROUP})+'(小计)' ELSE CONVERT(varchar(355),{GROUP}) END",
                         more)));
    EXPECT_EQ(selected["fsumsort"], JoinedWords(Text("CASE WHEN GROUPING({GROUP})=1 THEN 101 WHEN "
                                                     "GROUPING(t1.FNumber)=1 THEN 102 ELSE 0 END",
                                                     more)));
    EXPECT_EQ(selected["fnumber"], "t1.fnumber");
    EXPECT_EQ(selected["fqtydecimal"], "4");
    EXPECT_EQ(selected["fpricedecimal"], "4");
    for (const char* name : {"fauxoutqty", "foutqty", "foutamount", "fconsignamount", "fauxcommitqty",
                             "fcommitqty", "fcommitamount", "fglcommitamount", "fsecqty", "fsecinvoiceqty"}) {
      EXPECT_EQ(selected[name].substr(0, 6), "sum ( ") << name << ": " << selected[name];
      EXPECT_TRUE(Contains(selected[name], name)) << selected[name];
    }
    EXPECT_TRUE(SameSql(request.at("GROUPBY"), Text("GROUP BY {GROUP},t1.FNumber WITH ROLLUP", more)));
  }
};

constexpr const char* kEnd =
    "Select * From #DATA  \r\n"
    "DROP TABLE #DATA  \r\n";

TEST_F(Rpt129ByProperty, GroupsByTheNameOfTheCustomer) {
  for (const std::int32_t mode : {5, 0}) {
    const Request& request = FetchBy(Property("0", "1", "FName"), mode);
    ExpectFrame(request);
    ExpectGroup(request, "fprop01", "v1.FCustName");
    EXPECT_EQ(SelectedByColumn(request.at("SELECT"), "#DATA")["fcustnumber"], "max ( v1.fcustnumber )");
    EXPECT_TRUE(HasText(request.at("SELECT"), " Insert Into #DATA  Select CASE "));
    EXPECT_TRUE(SameSql(request.at("EndSel"), kEnd));
    EXPECT_TRUE(HasText(request.at("EndSel"), "Select * From #DATA  "));
    EXPECT_EQ(request.at("Filter"), "");
  }
}

TEST_F(Rpt129ByProperty, GroupsByACustomerPropertyWithATableOfValues) {
  const Request& request = FetchBy(Property("12", "1", "FRegionID", "t_SubMessage", "FName", "FInterID"));
  ExpectFrame(request);
  ExpectGroup(request, "fprop121", "tt2.FName");
  EXPECT_TRUE(HasText(request.at("SELECT"), "Insert Into #DATA Select CASE WHEN   GROUPING(tt2."));
  const std::string words = JoinedWords(request.at("SELECT"));
  const std::string from = words.substr(words.rfind("from #data2 v1"));
  EXPECT_TRUE(Contains(from, "join t_organization ")) << from;
  EXPECT_TRUE(Contains(from, "v1.fcustnumber =") || Contains(from, "= v1.fcustnumber")) << from;
  EXPECT_TRUE(Contains(from, "left join t_submessage tt2 on ")) << from;
  EXPECT_TRUE(Contains(from, ".fregionid = tt2.finterid")) << from;
}

TEST_F(Rpt129ByProperty, GroupsByAnItemPropertyWithATableOfValues) {
  const Request& request = FetchBy(Property("5", "4", "FSource", "t_SubMessage", "FName", "FInterID"));
  ExpectFrame(request);
  ExpectGroup(request, "fprop54", "tt2.FName");
  EXPECT_TRUE(HasText(request.at("SELECT"), "Insert Into #DATA Select CASE WHEN   GROUPING(tt2."));
  EXPECT_TRUE(Contains(JoinedWords(request.at("SELECT")),
                       JoinedWords("Left Join t_SubMessage tt2 On t1.FSource=tt2.FInterID")));
  EXPECT_TRUE(SameSql(request.at("EndSel"), kEnd));
}

TEST_F(Rpt129ByProperty, GroupsByAnItemPropertyOnItsOwnColumn) {
  const Request& request = FetchBy(Property("3", "4", "FModel"));
  ExpectFrame(request);
  ExpectGroup(request, "fprop34", "t1.FModel");
  EXPECT_TRUE(HasText(request.at("SELECT"), " Insert Into #DATA  Select CASE "));
  EXPECT_FALSE(Contains(request.at("SELECT"), "tt2"));
  EXPECT_TRUE(SameSql(request.at("EndSel"), kEnd));
}

TEST_F(Rpt129ByProperty, NeverTakesAUnitForACustomer) {
  const std::string words = JoinedWords(FetchBy(Property("3", "4", "FModel")).at("SELECT"));
  const std::string insert = words.substr(words.rfind("from #data2 v1"));
  EXPECT_FALSE(Contains(insert, "t2.fnumber")) << insert;
  EXPECT_FALSE(Contains(insert, "t2.fshortnumber")) << insert;
}

TEST_F(Rpt129ByProperty, BoundsTheRowsByTheFirstCustomerWhetherSetOrNot) {
  EXPECT_TRUE(FetchBy(Property("3", "4", "FModel")).at("SELECT").ends_with(" AND v1.FCustNumber>=''"));
  const Request& bound = Fetch({{"GroupBy", std::int32_t{1}},
                                {"SumMode", std::int32_t{0}},
                                {"SumField", Property("0", "1", "FName")},
                                {"BCustNumber", "02'1"}});
  EXPECT_TRUE(bound.at("SELECT").ends_with(" AND v1.FCustNumber>='02''1'"));
  report_ = nullptr;
  UseShortCode();
  EXPECT_TRUE(FetchBy(Property("3", "4", "FModel")).at("SELECT").ends_with(" AND v1.FCustShortNumber>=''"));
}

TEST_F(Rpt129ByProperty, AsksForNoRowNumberThatTheTableHasNot) {
  const Request& request = FetchBy(Property("0", "1", "FName"));
  for (const auto& [key, text] : request) {
    for (const std::string& word : SqlWords(text)) EXPECT_NE(word, "fid") << "under " << key;
  }
}

TEST_F(Rpt129ByProperty, ShowsTotalsOnly) {
  const std::string& end = FetchBy(Property("3", "4", "FModel"), 0, 1).at("EndSel");
  EXPECT_TRUE(HasText(end, "Select * From #DATA  "));
  const std::string words = JoinedWords(end);
  EXPECT_TRUE(Contains(words, "where fsumsort > = 101") || Contains(words, "where fsumsort > 100")) << words;
}

TEST_F(Rpt129ByProperty, GivesTheConditionTwiceInTheFillAndUnderItsKey) {
  const char* condition = " And t1.FNumber>='01' And v2.FBatchNo<='B9'";
  const Request& request = Fetch({{"GroupBy", std::int32_t{1}},
                                  {"SumMode", std::int32_t{0}},
                                  {"SumField", Property("3", "4", "FModel")},
                                  {"BItemNumber", "01"},
                                  {"EBatchNo", "B9"}});
  ExpectFrame(request, {{"ITEM", condition}});
  EXPECT_EQ(request.at("Filter"), condition);
  EXPECT_EQ(CountOf(request.at("SELECT"), condition), 2);
}

TEST_F(Rpt129ByProperty, KeepsAmountsAtTheScaleOfTheBaseCurrency) {
  UseScale("4");
  ExpectFrame(FetchBy(Property("0", "1", "FName")), {{"D", "4"}});
}

TEST_F(Rpt129ByProperty, RestrictsBothHalvesToTheCustomersThatTheUserMaySee) {
  RestrictCustomers();
  ExpectFrame(FetchBy(Property("0", "1", "FName")),
              {{"TAIL", " And  CharIndex('16394',T2.FRightUserID)>0 "}});
}

TEST_F(Rpt129ByProperty, RefusesAPropertyThatIsNoDictionary) {
  Run({{"GroupBy", std::int32_t{1}}, {"SumMode", std::int32_t{0}}, {"SumField", "客户"}});
  EXPECT_FALSE(Ok());
  EXPECT_NE(Error(), "");
  EXPECT_TRUE(sales_->Calls().empty());
  EXPECT_EQ(toolkit_->shown, toolkit_->unloaded);
}

}  // namespace
}  // namespace salerpt::testing
