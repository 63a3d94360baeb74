// The frames that the statistics of virtual items send, and what goes along with them.
#include <gtest/gtest.h>

#include <algorithm>

#include "sqltoolkit/item_level.h"
#include "tests/reports/rpt300_world.h"

namespace salerpt::testing {
namespace {

class Rpt300Frames : public Rpt300World {
 protected:
  void ExpectWords(std::string_view key, std::string_view text) {
    EXPECT_TRUE(SameSql(Sent(key), text)) << "under " << key;
  }
  void ExpectLines(std::string_view key, std::string_view text) {
    EXPECT_TRUE(SameText(WithoutEmptyLines(Sent(key)), WithoutEmptyLines(text))) << "under " << key;
  }
};

TEST_F(Rpt300Frames, GoAsANewDictionaryWithTheLoginAndGiveTheRows) {
  Fetch();
  ASSERT_EQ(sales_->CalledMembers(), std::vector<std::string>{"GetRpt300Data"});
  ASSERT_EQ(sales_->Calls()[0].arguments.size(), 2U);
  EXPECT_EQ(sales_->Calls()[0].arguments[0].ToText(), kProps);
  EXPECT_NE(SentDictionary(), As<Dictionary>(GetMember(Report(), "Filter")));
  EXPECT_EQ(GetMember(Report(), "Rs").ToObject(), rows_);
}

TEST_F(Rpt300Frames, CarryTheConditionsAndTheirOwnKeysAndNoOther) {
  for (const std::int32_t group_by : {0, 1}) {
    Fetch({{"GroupBy", group_by},
           {"SumMode", kYes},
           {"LngBLevel", kYes},
           {"LngELevel", kYes},
           {"SaleType", std::int32_t{201}},
           {"OrderType", std::int32_t{20302}},
           {"OnlyShowSum", std::int32_t{0}}});
    const auto filter = As<Dictionary>(GetMember(Report(), "Filter"));
    const std::vector<std::string> own = {"Select",         "GROUPBY",     "ITEMFILTER",
                                          "OnlyShowSum",    "EndSel",      "DataRightFrom",
                                          "DataRightWhere", "bLongNumber", "RptID"};
    const DictionaryRef sent = SentDictionary();
    for (const std::string& key : own) EXPECT_TRUE(sent->Lookup(key)) << key;
    for (const auto& entry : filter->Entries()) {
      EXPECT_TRUE(sent->Lookup(entry.key)) << entry.key;
      if (EqualNames(entry.key, "GroupBy")) continue;
      EXPECT_EQ(sent->Get(entry.key), entry.value) << entry.key;
    }
    for (const auto& entry : sent->Entries()) {
      const bool is_own =
          std::ranges::any_of(own, [&](const std::string& key) { return EqualNames(key, entry.key); });
      EXPECT_TRUE(is_own || filter->Lookup(entry.key)) << "nothing is expected under " << entry.key;
    }
  }
}

TEST_F(Rpt300Frames, LeaveTheConditionsOfTheHostAsTheyAre) {
  const DictionaryRef filter =
      Conditions({{"GroupBy", kYes}, {"SumMode", kYes}, {"LngBLevel", kYes}, {"LngELevel", kYes}});
  const std::size_t keys = filter->Entries().size();
  SetMember(Report(), "Filter", filter);
  Call(Report(), "GetReportData");
  EXPECT_TRUE(Ok()) << Error();
  EXPECT_EQ(GetMember(Report(), "Filter").ToObject(), filter);
  EXPECT_EQ(filter->Entries().size(), keys);
  EXPECT_EQ(filter->Get("GroupBy").ToInt32(), 1);
}

TEST_F(Rpt300Frames, ListPlainly) {
  Fetch();
  ExpectWords("Select", "SET NOCOUNT ON Create Table #Data( Insert Into #Data Select");
  EXPECT_TRUE(HasText(Sent("Select"), "Create Table #Data("));
  EXPECT_TRUE(HasText(Sent("Select"), " Insert Into #Data  \r\n Select "));
  EXPECT_EQ(Sent("GROUPBY"), "");
  ExpectLines("EndSel",
              "Select * From #Data  \r\n"
              " Order by FSumSort,FDate,FNumber,Fentryid \r\n"
              "DROP Table #Data  ");
  EXPECT_EQ(Sent("OnlyShowSum"), "0");
}

TEST_F(Rpt300Frames, ListPlainlyForAnyGroupByButOne) {
  Fetch();
  const std::string select = Sent("Select");
  const std::string end = Sent("EndSel");
  for (const std::int32_t group_by : {0, 2}) {
    Fetch({{"GroupBy", group_by},
           {"SumMode", std::int32_t{3}},
           {"SumField", SumField("区域", 1, "FRegionID")},
           {"LngBLevel", kYes},
           {"LngELevel", kYes}});
    EXPECT_EQ(Sent("Select"), select);
    EXPECT_EQ(Sent("GROUPBY"), "");
    EXPECT_EQ(Sent("EndSel"), end);
  }
}

TEST_F(Rpt300Frames, ListTotalsOnly) {
  Fetch({{"OnlyShowSum", kYes}});
  ExpectLines("EndSel",
              "Select * From #Data  WHERE FSumSort>100\r\n"
              " Order by FSumSort,FDate,FNumber,Fentryid \r\n"
              "DROP Table #Data  ");
  EXPECT_EQ(Sent("OnlyShowSum"), "1");
}

TEST_F(Rpt300Frames, HaveNoOrder) {
  Fetch();
  const std::string select = Sent("Select");
  Fetch({{"OrderBy", "FSaleQty"}});
  EXPECT_EQ(Sent("Select"), select);
  FetchLevels(1, 1, 1, {{"OrderBy", "FSaleQty"}});
  EXPECT_FALSE(Contains(Sent("Select"), "#Tem"));
  EXPECT_FALSE(SentDictionary()->Lookup("Append"));
}

// The batch of a level grouping, of which the middle tier fills the columns and joins.
std::string LevelSelect(const std::string& level_table, const std::string& columns, const std::string& head,
                        const std::string& codes, const std::string& on) {
  return "SET NOCOUNT ON " + level_table +
         " IF object_id('tempdb..#DATA') IS NOT NULL DROP TABLE  #DATA   CREATE TABLE #DATA( " + columns +
         " Insert Into #Data Select " + head + ", CASE " + codes + " ELSE 0 END " + on;
}

constexpr const char* kItemJoin = "Join #ItemLevel tt1 On t1.FItemID=tt1.FItemID";
constexpr const char* kCustomerJoin = "Join #ItemLevel tt1 On t2.FItemID=tt1.FItemID";
constexpr const char* kLevelEnd =
    "SELECT * FROM #DATA  \r\n Order by FID \r\nDROP TABLE #DATA  \r\nDROP TABLE #ItemLevel";

TEST_F(Rpt300Frames, GroupByItemAndCustomerClasses) {
  for (const std::int32_t mode : {1, 2}) {
    SCOPED_TRACE(mode);
    FetchLevels(mode, 2, 3);
    ExpectWords(
        "Select",
        LevelSelect(BuildItemLevelSQL(mode == 1 ? 4 : 1, "", "", "", true, 2, 3, 0),
                    "FName2 varchar(355) Null, FName3 varchar(355) Null,", "tt1.FName2,tt1.FName3,t1.FNumber",
                    "WHEN Grouping(tt1.FName2)=1 THEN 107 WHEN Grouping(tt1.FName3)=1 THEN 108 "
                    "WHEN Grouping(t1.FNumber)=1 THEN 109",
                    mode == 1 ? kItemJoin : kCustomerJoin));
    ExpectLines("GROUPBY",
                " Group By tt1.FName2,tt1.FName3, t1.FNumber WITH ROLLUP\r\n"
                "Update #Data Set  FName2=FName2+'(小计)' WHERE FSumSort=108\r\n"
                "Update #Data Set  FName3=FName3+'(小计)' WHERE FSumSort=109\r\n"
                "Update #Data Set FName2='合计' WHERE FSumSort=107\r\n"
                "Update #Data Set FSumSort=101   WHERE FSumSort=107\r\n");
    ExpectWords("EndSel", kLevelEnd);
  }
}

TEST_F(Rpt300Frames, GroupByCustomerAndItemClasses) {
  FetchLevels(4, 1, 1);
  ExpectWords("Select", LevelSelect(BuildItemLevelSQL(4, "", "", "", true, 1, 1, 0),
                                    "FCustName varchar(355) Null, FName1 varchar(355) Null,",
                                    "t2.FName,tt1.FName1,t1.FNumber",
                                    "WHEN Grouping(t2.FName)=1 THEN 101 WHEN Grouping(tt1.FName1)=1 THEN 106 "
                                    "WHEN Grouping(t1.FNumber)=1 THEN 107",
                                    kItemJoin));
  ExpectLines("GROUPBY",
              " Group By  t2.FName,tt1.FName1,t1.FNumber WITH ROLLUP\r\n"
              "Update #Data Set  FName1=FName1+'(小计)' WHERE FSumSort=107\r\n"
              "Update #Data Set FCustName=FCustName+'(小计)' WHERE FSumSort=106\r\n"
              "Update #Data Set FCustName='合计' WHERE FSumSort=101\r\n");
  ExpectWords("EndSel", kLevelEnd);
}

TEST_F(Rpt300Frames, GroupByItemClassesAndCustomerWithoutAProperty) {
  for (const std::int32_t mode : {0, 3, 5, 99}) {
    SCOPED_TRACE(mode);
    FetchLevels(mode, 1, 1, {{"SumField", SumField("", 1, "")}});
    ExpectWords("Select",
                LevelSelect(BuildItemLevelSQL(4, "", "", "", true, 1, 1, 0),
                            "FName1 varchar(355) Null, FCustName varchar(355) Null,",
                            "tt1.FName1,t2.FName,t1.FNumber",
                            "WHEN Grouping(tt1.FName1)=1 THEN 106 WHEN Grouping(t2.FName)=1 THEN 107 "
                            "WHEN Grouping(t1.FNumber)=1 THEN 108",
                            kItemJoin));
    ExpectLines("GROUPBY",
                "  Group By tt1.FName1,t2.FName,t1.FNumber WITH ROLLUP\r\n"
                "Update #Data Set  FName1=FName1+'(小计)' WHERE FSumSort=107\r\n"
                "Update #Data Set FCustName=FCustName+'(小计)' WHERE FSumSort=108\r\n"
                "Update #Data Set FName1='合计' WHERE FSumSort=106\r\n"
                "Update #Data Set FSumSort=101   WHERE FSumSort=106\r\n");
  }
}

TEST_F(Rpt300Frames, WriteTheInsertInCapitalsOfItsOwn) {
  FetchLevels(1, 1, 1);
  EXPECT_TRUE(HasText(Sent("Select"), "Insert Into #Data Select"));
  FetchBy(SumField("助记", 4, "FHelp"));
  EXPECT_TRUE(HasText(Sent("Select"), "Insert Into #Data Select"));
}

TEST_F(Rpt300Frames, BoundTheLevelTable) {
  FetchLevels(1, 1, 1, {{"BItemNumber", "0'1"}, {"EItemNumber", "09"}, {"BCustNumber", "02"}});
  EXPECT_TRUE(HasText(Sent("Select"), BuildItemLevelSQL(4, "", "0'1", "09", true, 1, 1, 0)));
  FetchLevels(2, 1, 1, {{"BItemNumber", "01"}, {"BCustNumber", "02"}, {"ECustNumber", "03"}});
  EXPECT_TRUE(HasText(Sent("Select"), BuildItemLevelSQL(1, "", "02", "03", true, 1, 1, 0)));
}

TEST_F(Rpt300Frames, TakeTheLevelsOfTheDialogWhereTheirOwnAreNotThere) {
  Fetch({{"GroupBy", kYes}, {"SumMode", kYes}, {"BLevel", std::int32_t{2}}, {"ELevel", std::int32_t{2}}});
  EXPECT_TRUE(HasText(Sent("Select"), BuildItemLevelSQL(4, "", "", "", true, 2, 2, 0)));
  Fetch({{"GroupBy", kYes},
         {"SumMode", kYes},
         {"BLevel", std::int32_t{2}},
         {"ELevel", std::int32_t{2}},
         {"LngBLevel", std::int32_t{3}},
         {"LngELevel", std::int32_t{4}}});
  EXPECT_TRUE(HasText(Sent("Select"), BuildItemLevelSQL(4, "", "", "", true, 3, 4, 0)));
}

TEST_F(Rpt300Frames, GroupByAProperty) {
  const struct {
    DictionaryRef property;
    const char* name;
    const char* column;
    const char* join;
  } properties[] = {
      {SumField("助记", 1, "FHelp"), "FProp71", "t2.FHelp", ""},
      {SumField("助记", 3, "FHelp"), "FProp73", "t4.FHelp", ""},
      {SumField("助记", 4, "FHelp"), "FProp74", "t1.FHelp", ""},
      {SumField("助记", 29, "FHelp"), "FProp729", "v1.FHelp", ""},
      {SumField("区域", 1, "FRegionID", "t_SubMessage"), "FProp71", " tt2.FName",
       "Left Join t_SubMessage tt2 On FRegionID=tt2.FInterID"},
  };
  for (const auto& [property, name, column, join] : properties) {
    SCOPED_TRACE(name);
    const Pieces pieces = {{"NAME", name}, {"C", column}, {"JOIN", join}};
    FetchBy(property);
    ExpectWords("Select", Expand("SET NOCOUNT ON CREATE TABLE #DATA( {NAME} varchar(355) null, "
                                 "Insert Into #Data Select CASE WHEN GROUPING({C})=1 THEN '合计' "
                                 "WHEN GROUPING(t1.FNumber)=1 THEN CONVERT(varchar(355),{C})+'(小计)' "
                                 "ELSE CONVERT(varchar(355),{C}) END, t1.FNumber, "
                                 "CASE WHEN GROUPING({C})=1 THEN 101 WHEN GROUPING(t1.FNumber)=1 THEN 102 "
                                 "ELSE 0 END {JOIN}",
                                 pieces));
    EXPECT_TRUE(HasText(Sent("Select"), Expand(" CASE WHEN GROUPING({C})=1 THEN 101\r\n"
                                               " WHEN  GROUPING(t1.FNumber)=1 THEN 102 ELSE 0 END ",
                                               pieces)));
    ExpectLines("GROUPBY", Expand(" GROUP BY {C},t1.FNumber WITH ROLLUP ", pieces));
    ExpectWords("EndSel", "SELECT * FROM #DATA Order by FID DROP TABLE #DATA");
  }
}

TEST_F(Rpt300Frames, TakeAPropertyForAnyModeThatIsNoLevelGrouping) {
  for (const std::int32_t mode : {0, 3, 5, 99}) {
    Fetch({{"GroupBy", kYes}, {"SumMode", mode}, {"SumField", SumField("助记", 4, "FHelp")}});
    ExpectLines("GROUPBY", " GROUP BY t1.FHelp,t1.FNumber WITH ROLLUP ");
  }
}

TEST_F(Rpt300Frames, ShowTotalsOnlyOfAGrouping) {
  FetchLevels(1, 1, 1, {{"OnlyShowSum", kYes}});
  ExpectWords("EndSel",
              "SELECT * FROM #DATA WHERE FSumSort>100 Order by FID DROP TABLE #DATA DROP TABLE #ItemLevel");
  EXPECT_EQ(Sent("OnlyShowSum"), "1");
}

TEST_F(Rpt300Frames, TellTheCodeInUseAndTheReport) {
  Fetch();
  EXPECT_EQ(SentValue("bLongNumber"), Variant(true));
  EXPECT_EQ(Sent("RptID"), "300");
  report_ = nullptr;
  UseShortCode();
  Fetch();
  EXPECT_EQ(SentValue("bLongNumber"), Variant(false));
}

TEST_F(Rpt300Frames, RestrictOrdersToTheCustomersThatTheUserMaySee) {
  Fetch();
  EXPECT_EQ(Sent("DataRightFrom"), "");
  EXPECT_EQ(Sent("DataRightWhere"), "");
  RestrictCustomers();
  Fetch();
  EXPECT_EQ(Sent("DataRightFrom"), "");
  EXPECT_EQ(Sent("DataRightWhere"), " CharIndex('16394',v1.FRightUserID)>0 ");
  for (const RecordedCall& call : rights_->Calls()) {
    EXPECT_EQ(call.member, "GetDataRight");
    EXPECT_EQ(call.arguments[2].ToInt32(), 1) << "items have no right of their own";
  }
}

TEST_F(Rpt300Frames, LeaveNoPlaceOpenThatTheReportFills) {
  for (const std::int32_t group_by : {0, 1}) {
    Fetch({{"GroupBy", group_by}, {"SumMode", kYes}, {"LngBLevel", kYes}, {"LngELevel", kYes}});
    for (const char* place : {"##CHECKITEM##", "##CHECKSTATE##", "##CHECKSTOCK##", "##CHECKDATE##"}) {
      EXPECT_FALSE(Contains(Sent("Select"), place)) << place;
      EXPECT_FALSE(Contains(Sent("ITEMFILTER"), place)) << place;
    }
  }
}

}  // namespace
}  // namespace salerpt::testing
