// The frames that the analyses of growth, flow and structure send, and what goes along with them.
#include <gtest/gtest.h>

#include <algorithm>

#include "sqltoolkit/item_level.h"
#include "tests/reports/rpt140_world.h"

namespace salerpt::testing {
namespace {

class AnalysisFrames : public AnyAnalysis {
 protected:
  // What the report adds to the conditions, as it spells it.
  [[nodiscard]] static Lines KeysAdded() {
    return {"DataRightFrom", "DataRightWhere", "bLongNumber", "RptID"};
  }
  [[nodiscard]] Lines OwnKeys() const {
    Lines keys = {analysis_.select_key, "GROUPBY", "ITEMFILTER", "OnlyShowSum", "EndSel"};
    for (const std::string& key : KeysAdded()) keys.push_back(key);
    return keys;
  }
  // The conditions and the report's own keys, and no other; the conditions as the host wrote them.
  void ExpectKeys() {
    const DictionaryRef sent = SentDictionary();
    const DictionaryRef filter = Filter();
    for (const std::string& key : OwnKeys()) EXPECT_TRUE(sent->Lookup(key)) << "the request has no " << key;
    for (const auto& [key, value] : filter->Entries()) {
      EXPECT_TRUE(sent->Lookup(key)) << "the request has no " << key;
      if (EqualNames(key, "GROUPBY")) continue;
      EXPECT_EQ(sent->Get(key), value) << key;
    }
    for (const auto& [key, value] : sent->Entries()) {
      EXPECT_TRUE(filter->Lookup(key) || IsOwn(key)) << "nothing is expected under " << key;
    }
    EXPECT_EQ(Sent("DataRightFrom"), "");
    EXPECT_EQ(Sent("DataRightWhere"), "");
    EXPECT_EQ(SentValue("bLongNumber"), Variant(true));
    EXPECT_TRUE(SentValue("RptID").IsNumber());
    EXPECT_EQ(Sent("RptID"), "300");
  }
  void ExpectPlainFrame() {
    EXPECT_TRUE(SameText(Sent(analysis_.select_key),
                         "SET NOCOUNT ON\r\n"
                         "\r\n"
                         "CREATE TABLE #DATA(\r\n"
                         "\r\n"
                         "  INSERT INTO #DATA  \r\n"
                         " Select "));
    EXPECT_EQ(Sent("GROUPBY"), "");
  }
  void ExpectLevelFrame(std::int32_t mode, const AnalysisFrame& frame, Entries more = {}) {
    SCOPED_TRACE("mode " + std::to_string(mode));
    for (const AnalysisLevels& levels : LevelsOfAnalyses()) {
      SCOPED_TRACE("levels from " + std::to_string(levels.begin));
      FetchLevels(mode, levels.begin, levels.end, more);
      Pieces pieces = levels.pieces;
      pieces["LEVELTABLE"] =
          BuildItemLevelSQL(frame.item_class, "", "", "", true, levels.begin, levels.end, 0);
      ExpectKeys();
      ExpectLines(analysis_.select_key, Expand(frame.select, pieces));
      ExpectLines("GROUPBY", Expand(frame.group_by, pieces));
      ExpectLines("EndSel",
                  "SELECT * FROM #DATA  \r\n"
                  "DROP TABLE #DATA  \r\n"
                  "DROP TABLE #ItemLevel");
      EXPECT_EQ(Sent("OnlyShowSum"), "0");
    }
  }
  // `column` is the column grouped by, as it stands in the frame.
  void ExpectPropertyFrame(const char* name, const char* column, const char* join) {
    SCOPED_TRACE(name);
    const Pieces pieces = {{"NAME", name}, {"C", column}, {"JOIN", join}};
    const std::string& key = analysis_.select_key;
    ExpectKeys();
    ExpectWords(key, Expand("SET NOCOUNT ON CREATE TABLE #DATA( {NAME} varchar(355) null, "
                            "INSERT INTO #DATA SELECT CASE WHEN GROUPING({C})=1 THEN '合计' "
                            "WHEN GROUPING(t1.FNumber)=1 THEN CONVERT(varchar(355),{C})+'(小计)' "
                            "ELSE CONVERT(varchar(355),{C}) END, t1.FNumber, "
                            "CASE WHEN GROUPING({C})=1 THEN 101 WHEN GROUPING(t1.FNumber)=1 THEN 102 "
                            "ELSE 0 END {JOIN}",
                            pieces));
    EXPECT_TRUE(HasText(Sent(key), Expand("  {NAME} varchar(355) null,", pieces)));
    EXPECT_TRUE(HasText(Sent(key), Expand(" CASE WHEN GROUPING({C})=1 THEN 101\r\n"
                                          " WHEN  GROUPING(t1.FNumber)=1 THEN 102 ELSE 0 END ",
                                          pieces)));
    EXPECT_TRUE(HasText(Sent(key), join));
    EXPECT_EQ(Sent("GROUPBY"), Expand(" GROUP BY {C},t1.FNumber WITH ROLLUP ", pieces));
    ExpectLines("EndSel",
                "SELECT * FROM #DATA  \r\n"
                "DROP TABLE #DATA  ");
    EXPECT_EQ(Sent("OnlyShowSum"), "0");
  }
  [[nodiscard]] bool IsOwn(std::string_view key) const {
    const Lines own = OwnKeys();
    return std::ranges::any_of(own, [&](const std::string& name) { return EqualNames(key, name); });
  }
};

TEST_P(AnalysisFrames, GoAsANewDictionaryWithTheLoginAndGiveTheRows) {
  Fetch();
  ASSERT_EQ(sales_->CalledMembers(), Lines{analysis_.operation});
  ASSERT_EQ(sales_->Calls()[0].arguments.size(), 2U);
  EXPECT_EQ(sales_->Calls()[0].kind, InvokeKind::kMethod);
  EXPECT_EQ(sales_->Calls()[0].arguments[0].ToText(), kProps);
  EXPECT_NE(SentDictionary(), Filter());
  EXPECT_EQ(GetMember(Report(), "Rs").ToObject(), rows_);
}

TEST_P(AnalysisFrames, SpellTheirKeysAsTheyAlwaysDid) {
  Fetch();
  Lines spelled;
  const DictionaryRef sent = SentDictionary();
  for (const auto& [key, value] : sent->Entries()) {
    if (IsOwn(key)) spelled.push_back(key);
  }
  Lines expected = OwnKeys();
  std::ranges::sort(expected);
  std::ranges::sort(spelled);
  EXPECT_EQ(spelled, expected);
}

TEST_P(AnalysisFrames, ListPlainly) {
  Fetch();
  ExpectKeys();
  ExpectPlainFrame();
  ExpectLines("EndSel",
              "SELECT * FROM #DATA  \r\n"
              " Order by FSumSort,FDate,FNumber,Fentryid \r\n"
              "DROP TABLE #DATA  ");
  EXPECT_EQ(Sent("OnlyShowSum"), "0");
}

TEST_P(AnalysisFrames, ListPlainlyForAnyGroupByButOne) {
  for (const std::int32_t group_by : {0, 2, -1}) {
    Fetch({{"GroupBy", group_by},
           {"SumMode", std::int32_t{3}},
           {"SumField", SumField("区域", 1, "FRegionID")},
           {"BLevel", kYes},
           {"ELevel", kYes}});
    ExpectKeys();
    ExpectPlainFrame();
  }
}

TEST_P(AnalysisFrames, ListTotalsOnly) {
  Fetch({{"OnlyShowSum", kYes}});
  ExpectPlainFrame();
  ExpectLines("EndSel",
              "SELECT * FROM #DATA  WHERE FSumSort>100\r\n"
              " Order by FSumSort,FDate,FNumber,Fentryid \r\n"
              "DROP TABLE #DATA  ");
  EXPECT_EQ(Sent("OnlyShowSum"), "1");
}

TEST_P(AnalysisFrames, GroupByItemClasses) {
  ExpectLevelFrame(1, ItemClassFrame());
}

TEST_P(AnalysisFrames, GroupByCustomerClasses) {
  ExpectLevelFrame(2, CustomerClassFrame());
}

TEST_P(AnalysisFrames, GroupByCustomerAndItemClasses) {
  ExpectLevelFrame(4, CustomerAndItemClassFrame());
}

TEST_P(AnalysisFrames, GroupByItemClassesAndCustomerWithoutAProperty) {
  for (const std::int32_t mode : {0, 3, 5, 99}) {
    ExpectLevelFrame(mode, ItemClassAndCustomerFrame());
    ExpectLevelFrame(mode, ItemClassAndCustomerFrame(), {{"SumField", SumField("", 1, "")}});
  }
}

TEST_P(AnalysisFrames, BoundTheLevelTableByTheCodesOfTheClass) {
  const Entries bounds = {{"BItemNumber", "0'1"}, {"EItemNumber", "09"}, {"BCustNumber", "02"}};
  for (const std::int32_t mode : {1, 4, 5}) {
    FetchLevels(mode, 1, 1, bounds);
    EXPECT_TRUE(HasText(Sent(analysis_.select_key), BuildItemLevelSQL(4, "", "0'1", "09", true, 1, 1, 0)));
  }
  FetchLevels(2, 1, 1, bounds);
  EXPECT_TRUE(HasText(Sent(analysis_.select_key), BuildItemLevelSQL(1, "", "02", "", true, 1, 1, 0)));
}

TEST_P(AnalysisFrames, GroupByAPropertyThatStandsInItsColumn) {
  FetchBy(SumField("助记", 1, "FHelp"));
  ExpectPropertyFrame("FProp71", "t2.FHelp", "");
  FetchBy(SumField("助记", 4, "FHelp"));
  ExpectPropertyFrame("FProp74", "t1.FHelp", "");
}

TEST_P(AnalysisFrames, GiveAPropertyOfNeitherCustomersNorItemsNoTable) {
  FetchBy(SumField("职务", 3, "FDuty"));
  ExpectPropertyFrame("FProp73", "FDuty", "");
  FetchBy(SumField("方式", 29, "FSaleStyle"));
  ExpectPropertyFrame("FProp729", "FSaleStyle", "");
}

TEST_P(AnalysisFrames, GroupByAPropertyThatHasATable) {
  for (const std::int32_t item_class : {1, 4, 3}) {
    FetchBy(SumField("区域", item_class, "FRegionID", "t_SubMessage"));
    ExpectPropertyFrame(("FProp7" + std::to_string(item_class)).c_str(), " tt2.FName",
                        " Left Join t_SubMessage tt2 On FRegionID=tt2.FInterID");
  }
}

TEST_P(AnalysisFrames, TakeAPropertyForAnyModeThatIsNoLevelGrouping) {
  for (const std::int32_t mode : {0, 3, 5, 99}) {
    Fetch({{"GroupBy", kYes}, {"SumMode", mode}, {"SumField", SumField("助记", 4, "FHelp")}});
    ExpectPropertyFrame("FProp74", "t1.FHelp", "");
  }
}

TEST_P(AnalysisFrames, TakeNoPropertyForALevelGrouping) {
  for (const std::int32_t mode : {1, 2, 4}) {
    FetchLevels(mode, 1, 1);
    const std::string select = Sent(analysis_.select_key);
    FetchLevels(mode, 1, 1, {{"SumField", SumField("助记", 4, "FHelp")}});
    EXPECT_EQ(Sent(analysis_.select_key), select);
  }
}

TEST_P(AnalysisFrames, ShowTotalsOnlyOfAGrouping) {
  for (const std::int32_t mode : {1, 2, 4, 5}) {
    FetchLevels(mode, 1, 1, {{"OnlyShowSum", kYes}});
    ExpectLines("EndSel",
                "SELECT * FROM #DATA  WHERE FSumSort>100\r\n"
                "DROP TABLE #DATA  \r\n"
                "DROP TABLE #ItemLevel");
    EXPECT_EQ(Sent("OnlyShowSum"), "1");
  }
  FetchBy(SumField("助记", 4, "FHelp"), {{"OnlyShowSum", kYes}});
  ExpectLines("EndSel",
              "SELECT * FROM #DATA  WHERE FSumSort>100\r\n"
              "DROP TABLE #DATA  ");
  EXPECT_EQ(Sent("OnlyShowSum"), "1");
}

TEST_P(AnalysisFrames, HaveNoOrder) {
  Fetch();
  const std::string plain = Sent(analysis_.select_key);
  Fetch({{"OrderBy", "FThisQty"}});
  EXPECT_EQ(Sent(analysis_.select_key), plain);
  for (const std::int32_t mode : {1, 2, 3, 4, 5}) {
    FetchLevels(mode, 1, 1, {{"OrderBy", "FThisQty"}});
    EXPECT_FALSE(Contains(Sent(analysis_.select_key), "#Tem"));
    EXPECT_FALSE(SentDictionary()->Lookup("Append"));
  }
  FetchBy(SumField("助记", 4, "FHelp"), {{"OrderBy", "FThisQty"}});
  EXPECT_FALSE(Contains(Sent(analysis_.select_key), "#Tem"));
}

TEST_P(AnalysisFrames, LeaveNoPlaceOpenThatTheReportFills) {
  for (const std::int32_t mode : {-1, 1, 2, 3, 4, 5}) {
    for (const std::int32_t state : {0, 1, 2}) {
      FetchLevels(mode, 1, 2, {{"GroupBy", std::int32_t{mode < 0 ? 0 : 1}}, {"CheckState", state}});
      for (const char* place : {"##CHECKITEM##", "##CHECKSTATE##", "##CHECKSTOCK##", "##CHECKDATE##"}) {
        EXPECT_FALSE(Contains(Sent(analysis_.select_key), place)) << place;
      }
    }
  }
}

// The condition of the order statistics, whose frames these are, with its marks: the middle tier fills them.
std::string ItemFilter(std::string_view item_id) {
  return Join(" FItemID In (SELECT DISTINCT ", item_id,
              " FROM SEOrderEntry v2, t_ICItem t1,t_Organization t2 ,t_Currency t5 ,SEOrder v1 \r\n"
              "Left Join t_DepartMent t3 ON v1.FDeptID=t3.FItemID Left Join t_Emp t4 On v1.FEmpID=t4.FItemID "
              "\r\n"
              " WHERE v1.FInterID=v2.FInterID and v2.FItemID = t1.FItemID and v1.FCustID = t2.FItemID  \r\n"
              " ##CHECKSTATE## ##CHECKDATE## ##CHECKITEM## )");
}

TEST_P(AnalysisFrames, SendTheItemFilterOfTheOrderStatisticsWithItsMarks) {
  Fetch();
  EXPECT_EQ(Sent("ITEMFILTER"), ItemFilter("##ITEMID##"));
  for (const std::int32_t mode : {1, 4, 5}) {
    FetchLevels(mode, 1, 1);
    EXPECT_EQ(Sent("ITEMFILTER"), ItemFilter(" v2.FItemID ")) << "mode " << mode;
  }
  FetchLevels(2, 1, 1);
  EXPECT_EQ(Sent("ITEMFILTER"), ItemFilter(" v1.FCustID "));
  FetchBy(SumField("助记", 4, "FHelp"));
  EXPECT_EQ(Sent("ITEMFILTER"), ItemFilter("##ITEMID##"));
}

TEST_P(AnalysisFrames, LeaveTheConditionsToTheMiddleTierAsTheHostWroteThem) {
  FetchLevels(1, 1, 1,
              {{"BItemNumber", "0'1"},
               {"EItemNumber", "0'9"},
               {"BCustNumber", "A'"},
               {"ECustNumber", "B"},
               {"CheckState", std::int32_t{2}},
               {"AuxProp", kYes}});
  EXPECT_EQ(SentValue("BItemNumber"), Variant("0'1"));
  EXPECT_EQ(SentValue("EItemNumber"), Variant("0'9"));
  EXPECT_EQ(SentValue("BCustNumber"), Variant("A'"));
  EXPECT_EQ(SentValue("ECustNumber"), Variant("B"));
  EXPECT_EQ(SentValue("CheckState"), Variant(std::int32_t{2}));
  EXPECT_EQ(SentValue("AuxProp"), Variant(kYes));
  EXPECT_EQ(SentValue("BYear"), Variant(std::int32_t{2003}));
  EXPECT_EQ(SentValue("BPeriod"), Variant(std::int32_t{3}));
}

TEST_P(AnalysisFrames, AreTheSameWhateverTheState) {
  FetchLevels(1, 1, 1, {{"CheckState", std::int32_t{0}}});
  const std::string select = Sent(analysis_.select_key);
  for (const std::int32_t state : {1, 2, 7}) {
    FetchLevels(1, 1, 1, {{"CheckState", state}});
    EXPECT_EQ(Sent(analysis_.select_key), select);
  }
}

TEST_P(AnalysisFrames, LeaveTheRestOfTheConditionsOfTheHostAsItIs) {
  const DictionaryRef filter =
      Conditions({{"GroupBy", kYes}, {"SumMode", kYes}, {"BLevel", kYes}, {"ELevel", kYes}});
  const DictionaryRef before = filter->Copy();
  FetchWith(filter);
  EXPECT_EQ(Filter(), filter);
  for (const auto& [key, value] : before->Entries()) EXPECT_EQ(filter->Get(key), value) << key;
  const Lines added = KeysAdded();
  for (const auto& [key, value] : filter->Entries()) {
    EXPECT_TRUE(before->Lookup(key) || std::ranges::find(added, key) != added.end()) << key;
  }
}

TEST_P(AnalysisFrames, WriteWhatTheyAddIntoTheConditionsOfTheHostToo) {
  const DictionaryRef filter = Conditions();
  FetchWith(filter);
  for (const std::string& key : KeysAdded()) EXPECT_TRUE(filter->Lookup(key)) << key;
  EXPECT_EQ(filter->Get("DataRightFrom").TextOrEmpty(), "");
  EXPECT_EQ(filter->Get("DataRightWhere").TextOrEmpty(), "");
  EXPECT_EQ(filter->Get("bLongNumber"), Variant(true));
  EXPECT_EQ(filter->Get("RptID").TextOrEmpty(), "300");
  RestrictCustomers();
  FetchWith(filter);
  EXPECT_EQ(filter->Get("DataRightWhere").TextOrEmpty(), " CharIndex('16394',T3.FRightUserID)>0 ");
}

TEST_P(AnalysisFrames, TellTheFamilyThatTheHostChose) {
  LetMember(Report(), "RptID", std::int32_t{4711});
  LetMember(Report(), "ExtFirter", "142");
  Fetch();
  EXPECT_TRUE(SentValue("RptID").IsNumber());
  EXPECT_EQ(Sent("RptID"), "142");
}

TEST_P(AnalysisFrames, TellTheShortCodeWhereThatIsInUse) {
  UseShortCode();
  FetchLevels(1, 1, 1, {{"BItemNumber", "01"}});
  EXPECT_EQ(SentValue("bLongNumber"), Variant(false));
  EXPECT_TRUE(HasText(Sent(analysis_.select_key), " AND FShortNumber>='01'"));
}

TEST_P(AnalysisFrames, RestrictSalesToTheCustomersThatTheUserMaySee) {
  Fetch();
  EXPECT_EQ(Sent("DataRightWhere"), "");
  RestrictCustomers();
  Fetch();
  EXPECT_EQ(Sent("DataRightFrom"), "");
  EXPECT_EQ(Sent("DataRightWhere"), " CharIndex('16394',T3.FRightUserID)>0 ");
  ASSERT_FALSE(rights_->Calls().empty());
  for (const RecordedCall& call : rights_->Calls()) {
    EXPECT_EQ(call.member, "GetDataRight");
    ASSERT_EQ(call.arguments.size(), 3U);
    EXPECT_EQ(call.arguments[0].ToText(), kProps);
    EXPECT_EQ(call.arguments[1].ToInt32(), 16394);
    EXPECT_EQ(call.arguments[2].ToInt32(), 1);
  }
}

TEST_P(AnalysisFrames, TakeARestrictionAwayThatNoLongerHolds) {
  RestrictCustomers();
  const DictionaryRef filter = Conditions();
  FetchWith(filter);
  EXPECT_NE(Sent("DataRightWhere"), "");
  rights_->Gives("GetDataRight", false);
  FetchWith(filter);
  EXPECT_EQ(Sent("DataRightWhere"), "");
}

INSTANTIATE_TEST_SUITE_P(Sales, AnalysisFrames, ::testing::ValuesIn(AllAnalyses()), NameOfAnalysis);

}  // namespace
}  // namespace salerpt::testing
