// The outbound detail by class levels: statements, columns and labels of each grouping.
#include <gtest/gtest.h>

#include "sqltoolkit/item_level.h"
#include "tests/reports/rpt129_world.h"

namespace salerpt::testing {
namespace {

class Rpt129ByLevels : public Rpt129World {
 protected:
  const Request& FetchLevels(std::int32_t mode, std::int32_t from, std::int32_t to, Entries more = {}) {
    const DictionaryRef filter = Conditions({{"GroupBy", std::int32_t{1}},
                                             {"SumMode", mode},
                                             {"BLevel", from},
                                             {"ELevel", to},
                                             {"chkShowItemSum", std::int32_t{1}},
                                             {"chkShowDateSum", std::int32_t{1}}});
    for (const Dictionary::Entry& entry : more) filter->Set(entry.key, entry.value);
    SetMember(Report(), "Filter", filter);
    Call(Report(), "GetReportData");
    EXPECT_TRUE(Ok()) << Error();
    return request_;
  }
  // What does not depend on how the rows are grouped.
  void ExpectFrame(const Request& request, const char* item_field, const Pieces& more = {}) {
    ExpectKeys(request, {"SELECT", "GROUPBY", "Append", "EndSel", "ITEMFILTER", "NoPrice", "NoTaxRate",
                         "NoDate", "RptID"});
    ExpectFixedKeys(request);
    EXPECT_EQ(request.at("ITEMFILTER"),
              " FItemID In (Select Distinct " + std::string(item_field) + " From #DATA2) ");
    const std::string select = WithoutEmptyLines(request.at("SELECT"));
    const std::string begin = "SET NOCOUNT ON\r\n" + WithoutEmptyLines(Text("{FILL}", more));
    EXPECT_TRUE(SameText(select.substr(0, begin.size()), begin));
    EXPECT_TRUE(Contains(JoinedWords(select), JoinedWords("From #DATA2 v1 Join t_ICItem t1 On "
                                                          "v1.FItemID=t1.FItemID Left Join t_MeasureUnit t2 "
                                                          "On t1.FSaleUnitID =t2.FMeasureUnitID")));
    EXPECT_TRUE(HasText(select, "Join #ItemLevel tt1 On t1.FItemID=tt1.FItemID"));
    EXPECT_FALSE(Contains(select, "#Tem"));
    EXPECT_TRUE(SameSql(request.at("Append"), Text("{APPEND}"))) << "no section opens in a grouping";
  }
  static void ExpectLevelTable(const Request& request, std::int32_t item_class, const char* begin,
                               const char* end, std::int32_t from, std::int32_t to) {
    EXPECT_TRUE(
        HasText(request.at("SELECT"), BuildItemLevelSQL(item_class, "", begin, end, true, from, to, 0)));
  }
  // What each column of a line gets; empty for a column that is free to be '' or 0.
  static void ExpectRows(const Request& request, const Pieces& group_columns, const char* codes) {
    auto selected = SelectedByColumn(request.at("SELECT"), "#DATA");
    for (const auto& [name, value] : group_columns) {
      EXPECT_EQ(selected[name], JoinedWords(value)) << name;
    }
    EXPECT_EQ(selected["fnumber"], "t1.fnumber");
    EXPECT_EQ(selected["fqtydecimal"], "4");
    EXPECT_EQ(selected["fpricedecimal"], "4");
    EXPECT_EQ(selected["fsumsort"], JoinedWords(codes));
    for (const char* name : {"fauxoutqty", "foutqty", "foutamount", "fconsignamount", "fauxcommitqty",
                             "fcommitqty", "fcommitamount", "fglcommitamount", "fsecqty", "fsecinvoiceqty"}) {
      EXPECT_EQ(selected[name].substr(0, 6), "sum ( ") << name << ": " << selected[name];
      EXPECT_TRUE(Contains(selected[name], name)) << selected[name];
    }
    EXPECT_TRUE(Contains(selected["fcuunitoutqty"], "sum ( v1.foutqty / ( case when"))
        << selected["fcuunitoutqty"];
    EXPECT_TRUE(Contains(selected["fcuunitcommitqty"], "sum ( v1.fcommitqty / ( case when"))
        << selected["fcuunitcommitqty"];
    for (const char* name : {"ftrantype", "finterid", "fentryid", "fbillno", "fdate", "fauxpropname", "fnote",
                             "fsaleunitprice", "fdstock", "fbatchno", "fshortnumber", "fname", "fmodel"}) {
      EXPECT_TRUE(selected[name] == "' '" || selected[name] == "0") << name << ": " << selected[name];
    }
  }
  // The first columns of the table of the rows.
  static std::vector<std::string> FirstColumns(const Request& request, std::size_t count) {
    std::vector<std::string> names;
    for (const auto& [name, definition] : CreatedColumns(request.at("SELECT"), "#DATA(")) {
      if (names.size() < count) names.push_back(name);
    }
    return names;
  }
};

constexpr const char* kEnd =
    "Select * From #DATA  \r\n"
    "DROP TABLE #DATA  \r\n"
    "DROP TABLE #ItemLevel";

TEST_F(Rpt129ByLevels, SendsOneLevelOfItemClasses) {
  const Request& request = FetchLevels(1, 1, 1);
  ExpectFrame(request, " v2.FItemID ");
  ExpectLevelTable(request, 4, "", "", 1, 1);
  EXPECT_EQ(FirstColumns(request, 2), (std::vector<std::string>{"fname1", "fitemid"}));
  ExpectRows(request, {{"fname1", "tt1.FName1"}},
             "CASE WHEN Grouping(tt1.FName1)=1 THEN 106 WHEN Grouping(t1.FNumber)=1 THEN 107 ELSE 0 END");
  EXPECT_TRUE(SameSql(request.at("GROUPBY"), "Group By tt1.FName1,t1.FNumber WITH ROLLUP"));
  EXPECT_TRUE(SameSql(request.at("EndSel"),
                      "Update #Data Set  FName1=FName1+'(小计)'  Where FSumSort=107\r\n"
                      "Update #Data Set FName1='合计' WHERE FSumSort=106\r\n"
                      "Update #Data Set FSumSort=101   WHERE FSumSort=106\r\n" +
                          std::string(kEnd)));
  EXPECT_TRUE(HasText(request.at("EndSel"), "Update #Data Set  FName1=FName1+'(小计)'  Where FSumSort=107"));
  EXPECT_TRUE(request.at("EndSel").ends_with(kEnd)) << Shown(request.at("EndSel"));
}

TEST_F(Rpt129ByLevels, SendsTwoLevelsOfItemClasses) {
  const Request& request = FetchLevels(1, 2, 3);
  ExpectFrame(request, " v2.FItemID ");
  ExpectLevelTable(request, 4, "", "", 2, 3);
  EXPECT_EQ(FirstColumns(request, 3), (std::vector<std::string>{"fname2", "fname3", "fitemid"}));
  ExpectRows(request, {{"fname2", "tt1.FName2"}, {"fname3", "tt1.FName3"}},
             "CASE WHEN Grouping(tt1.FName2)=1 THEN 107 WHEN Grouping(tt1.FName3)=1 THEN 108 WHEN "
             "Grouping(t1.FNumber)=1 THEN 109 ELSE 0 END");
  EXPECT_TRUE(SameSql(request.at("GROUPBY"), "Group By tt1.FName2,tt1.FName3,t1.FNumber WITH ROLLUP"));
  EXPECT_TRUE(SameSql(request.at("EndSel"),
                      "Update #Data Set  FName2=FName2+'(小计)'  Where FSumSort=108\r\n"
                      "Update #Data Set  FName3=FName3+'(小计)'  Where FSumSort=109\r\n"
                      "Update #Data Set FName2='合计' WHERE FSumSort=107\r\n"
                      "Update #Data Set FSumSort=101   WHERE FSumSort=107\r\n" +
                          std::string(kEnd)));
}

TEST_F(Rpt129ByLevels, SendsCustomerClasses) {
  const Request& request = FetchLevels(2, 1, 2);
  ExpectFrame(request, " v1.FCustID ");
  ExpectLevelTable(request, 1, "", "", 1, 2);
  ExpectRows(request, {{"fname1", "tt1.FName1"}, {"fname2", "tt1.FName2"}},
             "CASE WHEN Grouping(tt1.FName1)=1 THEN 106 WHEN Grouping(tt1.FName2)=1 THEN 107 WHEN "
             "Grouping(t1.FNumber)=1 THEN 108 ELSE 0 END");
  EXPECT_TRUE(SameSql(request.at("GROUPBY"), "Group By tt1.FName1,tt1.FName2,t1.FNumber WITH ROLLUP"));
  EXPECT_TRUE(SameSql(request.at("EndSel"),
                      "Update #Data Set  FName1=FName1+'(小计)'  Where FSumSort=107\r\n"
                      "Update #Data Set  FName2=FName2+'(小计)'  Where FSumSort=108\r\n"
                      "Update #Data Set FName1='合计' WHERE FSumSort=106\r\n"
                      "Update #Data Set FSumSort=101   WHERE FSumSort=106\r\n" +
                          std::string(kEnd)));
}

TEST_F(Rpt129ByLevels, SendsItemClassesWithTheCustomerBehindThem) {
  const Request& request = FetchLevels(3, 1, 2);
  ExpectFrame(request, " v2.FItemID ");
  ExpectLevelTable(request, 4, "", "", 1, 2);
  ExpectRows(request,
             {{"fname1", "tt1.FName1"},
              {"fname2", "tt1.FName2"},
              {"fcustname", "v1.FCustName"},
              {"fcustnumber", "Max(v1.FCustNumber)"}},
             "CASE WHEN Grouping(tt1.FName1)=1 THEN 106 WHEN Grouping(tt1.FName2)=1 THEN 107 WHEN "
             "Grouping(v1.FCustName)=1 THEN 108 WHEN Grouping(t1.FNumber)=1 THEN 109 ELSE 0 END");
  EXPECT_TRUE(
      SameSql(request.at("GROUPBY"), "Group By tt1.FName1,tt1.FName2,v1.FCustName,t1.FNumber WITH ROLLUP"));
  EXPECT_TRUE(SameSql(request.at("EndSel"),
                      "Update #Data Set  FName1=FName1+'(小计)'  Where FSumSort=107\r\n"
                      "Update #Data Set  FName2=FName2+'(小计)'  Where FSumSort=108\r\n"
                      "Update #Data Set FCustName=FCustName+'(小计)' WHERE FSumSort=109\r\n"
                      "Update #Data Set FName1='合计' WHERE FSumSort=106\r\n"
                      "Update #Data Set FSumSort=101   WHERE FSumSort=106\r\n"
                      "Update #Data Set FCustName='合计' Where FSumSort=101\r\n" +
                          std::string(kEnd)));
}

TEST_F(Rpt129ByLevels, SendsTheCustomerBeforeItemClasses) {
  const Request& request = FetchLevels(4, 1, 2);
  ExpectFrame(request, " v2.FItemID ");
  ExpectLevelTable(request, 4, "", "", 1, 2);
  ExpectRows(request,
             {{"fname1", "tt1.FName1"},
              {"fname2", "tt1.FName2"},
              {"fcustname", "v1.FCustName"},
              {"fcustnumber", "Max(v1.FCustNumber)"}},
             "CASE WHEN Grouping(v1.FCustName)=1 THEN 101 WHEN Grouping(tt1.FName1)=1 THEN 106 WHEN "
             "Grouping(tt1.FName2)=1 THEN 107 WHEN Grouping(t1.FNumber)=1 THEN 108 ELSE 0 END");
  EXPECT_TRUE(
      SameSql(request.at("GROUPBY"), "Group By v1.FCustName,tt1.FName1,tt1.FName2,t1.FNumber WITH ROLLUP"));
  EXPECT_TRUE(SameSql(request.at("EndSel"),
                      "Update #Data Set  FName1=FName1+'(小计)'  Where FSumSort=107\r\n"
                      "Update #Data Set  FName2=FName2+'(小计)'  Where FSumSort=108\r\n"
                      "Update #Data Set FCustName=FCustName+'(小计)' WHERE FSumSort=106\r\n"
                      "Update #Data Set FCustName='合计' Where FSumSort=101\r\n" +
                          std::string(kEnd)));
}

TEST_F(Rpt129ByLevels, HasTheColumnsOfTheCustomerOnceOnly) {
  for (const std::int32_t mode : {3, 4}) {
    int names = 0;
    for (const auto& [name, definition] : CreatedColumns(FetchLevels(mode, 1, 1).at("SELECT"), "#DATA(")) {
      if (name == "fcustname") ++names;
    }
    EXPECT_EQ(names, 1) << "mode " << mode;
  }
}

TEST_F(Rpt129ByLevels, ShowsTotalsOnly) {
  for (const std::int32_t mode : {1, 2, 3, 4}) {
    const std::string& end = FetchLevels(mode, 1, 1, {{"OnlyShowSum", std::int32_t{1}}}).at("EndSel");
    EXPECT_TRUE(
        end.ends_with("Select * From #DATA  Where FSumSort>=101\r\n"
                      "DROP TABLE #DATA  \r\n"
                      "DROP TABLE #ItemLevel"))
        << Shown(end);
  }
}

TEST_F(Rpt129ByLevels, BoundsTheLevelsByTheRangeOfTheirClass) {
  const Entries ranges = {
      {"BItemNumber", "01'1"}, {"EItemNumber", "09"}, {"BCustNumber", "02"}, {"ECustNumber", "03"}};
  ExpectLevelTable(FetchLevels(1, 1, 2, ranges), 4, "01'1", "09", 1, 2);
  ExpectFrame(
      request_, " v2.FItemID ",
      {{"ITEM", " And t1.FNumber>='01''1' And t1.FNumber<='09' And t2.FNumber>='02' And t2.FNumber<='03'"}});
  ExpectLevelTable(FetchLevels(2, 1, 2, ranges), 1, "02", "03", 1, 2);
}

TEST_F(Rpt129ByLevels, BoundsTheLevelsByTheShortCodeWhereThatIsInUse) {
  UseShortCode();
  ExpectLevelTable(FetchLevels(3, 1, 1, {{"BItemNumber", "5"}}), 4, "5", "", 1, 1);
  EXPECT_TRUE(HasText(request_.at("SELECT"), " AND FShortNumber>='5'"));
}

TEST_F(Rpt129ByLevels, KeepsAmountsAtTheScaleOfTheBaseCurrency) {
  UseScale("4");
  ExpectFrame(FetchLevels(4, 1, 1), " v2.FItemID ", {{"D", "4"}});
}

TEST_F(Rpt129ByLevels, RestrictsBothHalvesToTheCustomersThatTheUserMaySee) {
  RestrictCustomers();
  ExpectFrame(FetchLevels(2, 1, 1), " v1.FCustID ",
              {{"TAIL", " And  CharIndex('16394',T2.FRightUserID)>0 "}});
}

TEST_F(Rpt129ByLevels, RefusesALevelThatIsNoNumber) {
  Run({{"GroupBy", std::int32_t{1}},
       {"SumMode", std::int32_t{1}},
       {"BLevel", "1; Drop Table t_Item"},
       {"ELevel", std::int32_t{1}}});
  EXPECT_FALSE(Ok());
  EXPECT_NE(Error(), "");
  EXPECT_TRUE(sales_->Calls().empty());
  EXPECT_EQ(toolkit_->shown, toolkit_->unloaded);
}

}  // namespace
}  // namespace salerpt::testing
