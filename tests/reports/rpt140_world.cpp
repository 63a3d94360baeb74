#include "tests/reports/rpt140_world.h"

namespace salerpt::testing {

const Analysis kGrowthAnalysis = {
    "Rpt140",
    "销售增长分析",
    "GetRpt140Data",
    "SElECT",
    "frmFirter140",
    "SysRptLog0022",
    "销售增长分析查询",
    {"RptID", "RptID", "PackMenuInfo", "ExtFirter", "Filter", "Filter", "Title", "Property", "Result",
     "Header", "Rs", "ShowFilter", "Refresh", "GetReportData"},
};
const Analysis kFlowAnalysis = {
    "Rpt142",
    "销售流向分析",
    "GetRpt142Data",
    "Select",
    "frmFirter142",
    "SysRptLog0023",
    "销售流向分析查询",
    {"RptID", "RptID", "PackMenuInfo", "ExtFirter", "Title", "Filter", "Filter", "Property", "Result",
     "Header", "Rs", "ShowFilter", "Refresh", "GetReportData"},
};
const Analysis kStructureAnalysis = {
    "Rpt143",
    "销售结构分析",
    "GetRpt143Data",
    "Select",
    "frmFirter143",
    "SysRptLog0024",
    "销售结构分析查询",
    {"RptID", "RptID", "PackMenuInfo", "ExtFirter", "Title", "Filter", "Filter", "Property", "Result",
     "Header", "Rs", "ShowFilter", "Refresh", "GetReportData"},
};

std::span<const Analysis* const> AllAnalyses() {
  static constexpr const Analysis* analyses[] = {&kGrowthAnalysis, &kFlowAnalysis, &kStructureAnalysis};
  return analyses;
}
std::string NameOfAnalysis(const ::testing::TestParamInfo<const Analysis*>& analysis) {
  return analysis.param->class_name;
}

const std::vector<AnalysisLevels>& LevelsOfAnalyses() {
  static const std::vector<AnalysisLevels> levels = {
      {1,
       1,
       {{"COLUMNS", "FName1 varchar(355) Null,\r\n"},
        {"NAMES", "tt1.FName1,"},
        {"CASES", "  WHEN   Grouping(tt1.FName1)=1 THEN 106\r\n"},
        {"LABELS", "Update #Data Set  FName1=FName1+'(小计)' WHERE FSumSort=107\r\n"},
        {"FIRST", "FName1"},
        {"FIRSTCODE", "106"},
        {"E1", "107"},
        {"E2", "108"}}},
      {2,
       3,
       {{"COLUMNS", "FName2 varchar(355) Null,\r\nFName3 varchar(355) Null,\r\n"},
        {"NAMES", "tt1.FName2,tt1.FName3,"},
        {"CASES",
         "  WHEN   Grouping(tt1.FName2)=1 THEN 107\r\n"
         "  WHEN   Grouping(tt1.FName3)=1 THEN 108\r\n"},
        {"LABELS",
         "Update #Data Set  FName2=FName2+'(小计)' WHERE FSumSort=108\r\n"
         "Update #Data Set  FName3=FName3+'(小计)' WHERE FSumSort=109\r\n"},
        {"FIRST", "FName2"},
        {"FIRSTCODE", "107"},
        {"E1", "109"},
        {"E2", "110"}}},
  };
  return levels;
}

const AnalysisFrame& ItemClassFrame() {
  static const AnalysisFrame frame = {
      4,
      "SET NOCOUNT ON\r\n"
      "{LEVELTABLE}\r\n"
      "IF object_id('tempdb..#DATA') IS NOT NULL DROP TABLE  #DATA   CREATE TABLE #DATA(\r\n"
      "{COLUMNS}"
      "INSERT INTO  #DATA SELECT {NAMES}t1.FNumber,\r\n"
      "CASE\r\n"
      "{CASES}"
      "  WHEN   Grouping(t1.FNumber)=1 THEN {E1}\r\n"
      "  ELSE   0 END \r\n"
      " Inner Join #ItemLevel tt1  On t1.FItemID=tt1.FItemID\r\n",
      " Group By {NAMES} t1.FNumber WITH ROLLUP\r\n"
      "{LABELS}"
      "Update #Data Set {FIRST}='合计' WHERE FSumSort={FIRSTCODE}\r\n"
      "Update #Data Set FSumSort=101   WHERE FSumSort={FIRSTCODE}\r\n",
  };
  return frame;
}

const AnalysisFrame& CustomerClassFrame() {
  static const AnalysisFrame frame = {
      1,
      "SET NOCOUNT ON\r\n"
      "{LEVELTABLE}\r\n"
      "IF object_id('tempdb..#DATA') IS NOT NULL DROP TABLE  #DATA   CREATE TABLE #DATA(\r\n"
      "{COLUMNS}"
      "INSERT INTO  #DATA SELECT {NAMES}t1.FNumber,\r\n"
      "CASE\r\n"
      "{CASES}"
      "  WHEN   Grouping(t1.FNumber)=1 THEN {E1}\r\n"
      "  ELSE   0 END \r\n"
      " Inner Join #ItemLevel tt1  On t2.FItemID=tt1.FItemID\r\n",
      ItemClassFrame().group_by,
  };
  return frame;
}

const AnalysisFrame& CustomerAndItemClassFrame() {
  static const AnalysisFrame frame = {
      4,
      "SET NOCOUNT ON\r\n"
      "{LEVELTABLE}\r\n"
      "IF object_id('tempdb..#DATA') IS NOT NULL DROP TABLE  #DATA   CREATE TABLE #DATA(\r\n"
      " FCustName varchar(355) Null,\r\n"
      "{COLUMNS}"
      "INSERT INTO  #DATA SELECT  t2.FName,{NAMES}t1.FNumber,\r\n"
      "CASE\r\n"
      "  WHEN   Grouping(t2.FName)=1 THEN 101 \r\n"
      "{CASES}"
      "  WHEN   Grouping(t1.FNumber)=1 THEN {E1}\r\n"
      "  ELSE   0 END \r\n"
      " Inner Join #ItemLevel tt1  On t1.FItemID=tt1.FItemID\r\n",
      " Group By  t2.FName,{NAMES}t1.FNumber WITH ROLLUP\r\n"
      "{LABELS}"
      "Update #Data Set FCustName=FCustName+'(小计)' WHERE FSumSort={FIRSTCODE}\r\n"
      "Update #Data Set FCustName='合计' WHERE FSumSort=101\r\n",
  };
  return frame;
}

const AnalysisFrame& ItemClassAndCustomerFrame() {
  static const AnalysisFrame frame = {
      4,
      "SET NOCOUNT ON\r\n"
      "{LEVELTABLE}\r\n"
      "IF object_id('tempdb..#DATA') IS NOT NULL DROP TABLE  #DATA   CREATE TABLE #DATA(\r\n"
      "{COLUMNS}"
      "FCustName varchar(355) Null,\r\n"
      "INSERT INTO  #DATA SELECT {NAMES}t2.FName,t1.FNumber,\r\n"
      "CASE\r\n"
      "{CASES}"
      "  WHEN   Grouping(t2.FName)=1 THEN  {E1}\r\n"
      "  WHEN   Grouping(t1.FNumber)=1 THEN {E2}\r\n"
      "  ELSE   0 END \r\n"
      " Inner Join #ItemLevel tt1  On t1.FItemID=tt1.FItemID\r\n",
      "  Group By {NAMES}t2.FName,t1.FNumber WITH ROLLUP\r\n"
      "{LABELS}"
      "Update #Data Set FCustName=FCustName+'(小计)' WHERE FSumSort={E2}\r\n"
      "Update #Data Set {FIRST}='合计' WHERE FSumSort={FIRSTCODE}\r\n"
      "Update #Data Set FSumSort=101   WHERE FSumSort={FIRSTCODE}\r\n",
  };
  return frame;
}

const Pieces& AnalysisWorld::Texts() const {
  static const Pieces none;
  return none;
}

DictionaryRef AnalysisWorld::Conditions(Entries more) {
  auto filter = std::make_shared<Dictionary>(Entries{{"BDate", Date::FromYmd(2003, 3, 1)},
                                                     {"EDate", Date::FromYmd(2003, 3, 31)},
                                                     {"BYear", std::int32_t{2003}},
                                                     {"BPeriod", std::int32_t{3}},
                                                     {"BItemNumber", ""},
                                                     {"EItemNumber", ""},
                                                     {"BCustNumber", ""},
                                                     {"ECustNumber", ""},
                                                     {"CheckState", std::int32_t{0}}});
  for (const Dictionary::Entry& entry : more) filter->Set(entry.key, entry.value);
  return filter;
}

void AnalysisWorld::Fetch(Entries more) {
  FetchWith(Conditions(more));
}

void AnalysisWorld::FetchWith(const DictionaryRef& filter) {
  request_.clear();
  SetMember(Report(), "Filter", filter);
  Call(Report(), "GetReportData");
  ASSERT_TRUE(Ok()) << Error();
}

void AnalysisWorld::Run(Entries more) {
  SetMember(Report(), "Filter", Conditions(more));
  Call(Report(), "GetReportData");
}

void AnalysisWorld::FetchLevels(std::int32_t mode, std::int32_t begin, std::int32_t end, Entries more) {
  const DictionaryRef filter =
      Conditions({{"GroupBy", kYes}, {"SumMode", mode}, {"BLevel", begin}, {"ELevel", end}});
  for (const Dictionary::Entry& entry : more) filter->Set(entry.key, entry.value);
  FetchWith(filter);
}

void AnalysisWorld::FetchBy(const DictionaryRef& property, Entries more) {
  const DictionaryRef filter =
      Conditions({{"GroupBy", kYes}, {"SumMode", std::int32_t{3}}, {"SumField", property}});
  for (const Dictionary::Entry& entry : more) filter->Set(entry.key, entry.value);
  FetchWith(filter);
}

DictionaryRef AnalysisWorld::SumField(const char* name, std::int32_t item_class, const char* column,
                                      const char* table) {
  const bool has_table = *table != '\0';
  return std::make_shared<Dictionary>(Entries{{"FName", name},
                                              {"FPropID", "7"},
                                              {"FItemClassID", item_class},
                                              {"FSQLColumnName", column},
                                              {"FSrcTable", table},
                                              {"FDisplayField", has_table ? "FName" : ""},
                                              {"FSrcField", has_table ? "FInterID" : ""}});
}

DictionaryRef AnalysisWorld::SentDictionary() {
  if (sales_->Calls().empty()) {
    ADD_FAILURE() << "the middle tier was not asked";
    return std::make_shared<Dictionary>();
  }
  return As<Dictionary>(sales_->Calls().back().arguments[1]);
}

void AnalysisWorld::ExpectLines(std::string_view key, std::string_view text) {
  EXPECT_TRUE(SentDictionary()->Lookup(key)) << "the request has no " << key;
  EXPECT_TRUE(SameText(WithoutEmptyLines(Sent(key)), WithoutEmptyLines(text))) << "under " << key;
}

void AnalysisWorld::ExpectWords(std::string_view key, std::string_view text) {
  EXPECT_TRUE(SentDictionary()->Lookup(key)) << "the request has no " << key;
  EXPECT_TRUE(SameSql(Sent(key), text)) << "under " << key;
}

void AnalysisWorld::ExpectFailed(const char* error, const char* source) {
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), error);
  EXPECT_EQ(ErrorSource(), source);
  EXPECT_FALSE(HasRows());
  EXPECT_GT(toolkit_->shown, 0);
  EXPECT_EQ(toolkit_->shown, toolkit_->unloaded);
}

}  // namespace salerpt::testing
