// The gross profit by class levels and by one property: statements, columns and labels of each grouping.
#include <gtest/gtest.h>

#include "sqltoolkit/item_level.h"
#include "tests/reports/rpt176_world.h"

namespace salerpt::testing {
namespace {

// The part of a grouping by class levels that differs.
struct Grouping {
  std::int32_t sum_mode;
  const char* columns;     // of #Data before the common ones
  const char* groups;      // group columns of the select
  const char* codes;       // row codes
  const char* on;          // how items or customers meet their levels
  const char* labels;      // behind those of the levels
  const char* item_field;  // of #Data2
  std::int32_t item_class;
};

class Rpt176Groupings : public Rpt176World {
 protected:
  const Request& FetchLevels(std::int32_t mode, Entries more = {}) {
    const DictionaryRef filter = Conditions({{"GroupBy", std::int32_t{1}},
                                             {"SumMode", mode},
                                             {"BLevel", std::int32_t{1}},
                                             {"ELevel", std::int32_t{2}}});
    for (const Dictionary::Entry& entry : more) filter->Set(entry.key, entry.value);
    SetMember(Report(), "Filter", filter);
    Call(Report(), "GetReportData");
    EXPECT_TRUE(Ok()) << Error();
    return request_;
  }
  void ExpectLevels(const Grouping& grouping, Entries more = {}, const char* only_totals = "",
                    const char* begin = "", const char* end = "", const Pieces& fill = {}) {
    SCOPED_TRACE(grouping.sum_mode);
    const Request& request = FetchLevels(grouping.sum_mode, more);
    ExpectKeys(request, {});
    ExpectFill(request, fill);
    ExpectValues(request);
    EXPECT_EQ(request.at("ITEMFILTER"),
              " FItemID In (Select Distinct " + std::string(grouping.item_field) + " From #Data2 )");
    Pieces pieces = fill;
    pieces["LEVELS"] = BuildItemLevelSQL(grouping.item_class, "", begin, end, true, 1, 2, 0);
    pieces["GROUPCOLUMNS"] = grouping.columns;
    pieces["GROUPS"] = grouping.groups;
    pieces["CODES"] = grouping.codes;
    pieces["ON"] = grouping.on;
    pieces["MORELABELS"] = grouping.labels;
    pieces["ONLYTOTALS"] = only_totals;
    EXPECT_TRUE(HasText(request.at("SELECT"), pieces["LEVELS"]));
    EXPECT_TRUE(
        SameSql(request.at("SELECT"),
                Text("Set NoCount On {FILL} {LEVELS} Create Table #Data({GROUPCOLUMNS} {COLUMNS} Insert "
                     "Into #Data Select {GROUPS}, {VALUES} Case {CODES} Else 0 End {FROM} Inner Join "
                     "#ItemLevel tt1 {ON} Where 1=1",
                     pieces)));
    EXPECT_TRUE(SameSql(request.at("GROUPBY"), Text("Group By {GROUPS} With RollUp", pieces)));
    EXPECT_TRUE(SameSql(request.at("EndSel"),
                        Text("Update #Data Set  FName1=FName1+'(小计)'  Where FSumSort=107\r\n"
                             "Update #Data Set  FName2=FName2+'(小计)'  Where FSumSort=108\r\n"
                             "{MORELABELS}\r\n"
                             "{RATE} {ONLYTOTALS} Order By FID Drop Table #Data Drop Table #ItemLevel",
                             pieces)));
    EXPECT_TRUE(HasText(request.at("EndSel"), Text("{RATE}")));
    EXPECT_TRUE(
        HasText(request.at("EndSel"), "Update #Data Set  FName2=FName2+'(小计)'  Where FSumSort=108"));
  }
  static DictionaryRef Property(const char* id, const Variant& item_class, const char* column,
                                const char* table = "", const char* display = "", const char* field = "") {
    return std::make_shared<Dictionary>(Entries{{"FName", "分类"},
                                                {"FPropID", id},
                                                {"FItemClassID", item_class},
                                                {"FSrcTable", table},
                                                {"FDisplayField", display},
                                                {"FSQLColumnName", column},
                                                {"FSrcField", field}});
  }
  const Request& FetchBy(const DictionaryRef& property, Entries more = {}) {
    const DictionaryRef filter = Conditions({{"GroupBy", std::int32_t{1}}, {"SumMode", std::int32_t{0}}});
    filter->Set("SumField", property);
    for (const Dictionary::Entry& entry : more) filter->Set(entry.key, entry.value);
    SetMember(Report(), "Filter", filter);
    Call(Report(), "GetReportData");
    EXPECT_TRUE(Ok()) << Error();
    return request_;
  }
  // By a property: `column` of #Data, the group's expression, the number before it, the joins behind.
  void ExpectProperty(const Request& request, const Pieces& texts) {
    ExpectFill(request, texts);
    ExpectValues(request);
    EXPECT_EQ(request.at("ITEMFILTER"), " FItemID In (Select Distinct ##ITEMID## From #Data2 )");
    EXPECT_TRUE(SameSql(
        request.at("SELECT"),
        Text("Set NoCount On {FILL} Create Table #Data( FPropNumber varchar(355) null, {NAME} varchar(355) "
             "null, "
             "{COLUMNS} Insert Into #Data Select {NUMBER}, Case When Grouping({GROUP})=1 Then '合计' When "
             "Grouping(t1.FNumber)=1 Then Convert(varchar(355),{GROUP})+'(小计)' Else "
             "Convert(varchar(355),{GROUP}) End, t1.FNumber, {VALUES} Case When Grouping({GROUP})=1 Then 101 "
             "When "
             "Grouping(t1.FNumber)=1 Then 102 Else 0 End {FROM} {SOURCE} Where 1=1 And t2.FNumber>='{BOUND}'",
             texts)));
    EXPECT_TRUE(
        SameSql(request.at("GROUPBY"), Text("Group By {NUMBERGROUP} {GROUP},t1.FNumber With RollUp", texts)));
  }
};

constexpr const char* kTotalOfLevels =
    "Update #Data Set FName1='合计' Where FSumSort=106\r\n"
    "Update #Data Set FSumSort=101   Where FSumSort=106";

constexpr Grouping kItemClasses = {1,
                                   "FName1 varchar(355) Null, FName2 varchar(355) Null,",
                                   "tt1.FName1,tt1.FName2,t1.FNumber",
                                   "When Grouping(tt1.FName1)=1 Then 106 When Grouping(tt1.FName2)=1 Then "
                                   "107 When Grouping(t1.FNumber)=1 Then "
                                   "108",
                                   "On t1.FItemID=tt1.FItemID",
                                   kTotalOfLevels,
                                   " FItemID ",
                                   4};

constexpr Grouping kCustomerClasses = {2,
                                       "FName1 varchar(355) Null, FName2 varchar(355) Null,",
                                       "tt1.FName1,tt1.FName2,t1.FNumber",
                                       "When Grouping(tt1.FName1)=1 Then 106 When Grouping(tt1.FName2)=1 "
                                       "Then 107 When Grouping(t1.FNumber)=1 Then "
                                       "108",
                                       "On t2.FItemID=tt1.FItemID",
                                       kTotalOfLevels,
                                       " FCustID ",
                                       1};

constexpr const char* kLabelsWithCustomerBehind =
    "Update #Data Set FCustName=FCustName+'(小计)' Where FSumSort=109\r\n"
    "Update #Data Set FName1='合计' Where FSumSort=106\r\n"
    "Update #Data Set FSumSort=101   Where FSumSort=106";

constexpr Grouping kItemClassesAndCustomer = {
    3,
    "FName1 varchar(355) Null, FName2 varchar(355) Null, FCustName varchar(355) Null,",
    "tt1.FName1,tt1.FName2,t2.FName,t1.FNumber",
    "When Grouping(tt1.FName1)=1 Then 106 When Grouping(tt1.FName2)=1 Then 107 When Grouping(t2.FName)=1 "
    "Then 108 "
    "When Grouping(t1.FNumber)=1 Then 109",
    "On t1.FItemID=tt1.FItemID",
    kLabelsWithCustomerBehind,
    " FItemID ",
    4};

constexpr Grouping kCustomerClassesAndCustomer = {
    8,
    "FName1 varchar(355) Null, FName2 varchar(355) Null, FCustName varchar(355) Null,",
    "tt1.FName1,tt1.FName2,t2.FName,t1.FNumber",
    "When Grouping(tt1.FName1)=1 Then 106 When Grouping(tt1.FName2)=1 Then 107 When Grouping(t2.FName)=1 "
    "Then 108 "
    "When Grouping(t1.FNumber)=1 Then 109",
    "On t2.FItemID=tt1.FItemID",
    kLabelsWithCustomerBehind,
    " FCustID ",
    1};

constexpr Grouping kCustomerAndItemClasses = {
    4,
    "FCustNumber varchar(355) null, FCustName varchar(355) Null, FName1 varchar(355) Null, FName2 "
    "varchar(355) "
    "Null,",
    "t2.FNumber, t2.FName,tt1.FName1,tt1.FName2,t1.FNumber",
    "When Grouping(t2.FName)=1 Then 101 When Grouping(tt1.FName1)=1 Then 106 When Grouping(tt1.FName2)=1 "
    "Then 107 "
    "When Grouping(t1.FNumber)=1 Then 108",
    "On t1.FItemID=tt1.FItemID",
    "Update #Data Set FCustName=FCustName+'(小计)' Where FSumSort=106\r\n"
    "Update #Data Set FCustName='合计' Where FSumSort=101\r\n"
    "update t1 set t1.FCustName=t2.FName+t1.FCustName from  #DATA t1 inner join t_Organization t2 on "
    "t1.FCustNumber=t2.FNumber\r\n"
    "where t1.FSumSort=101\r\n"
    "declare @lMaxID int\r\n"
    "set @lMaxID=0\r\n"
    "select @lMaxID=max(FID) from #Data\r\n"
    "update #Data set FCustName=(Select top 1 FCustName from #Data where FID<@lMaxID order by FCustName "
    "desc) "
    "where FID=@lMaxID\r\n"
    "delete from #data where isnull(FCustNumber,'')<>'' and fsumsort=101\r\n"
    "Update #Data Set FCustName='合计' Where FSumSort=101",
    " FItemID ",
    4};

TEST_F(Rpt176Groupings, SendItemClasses) {
  ExpectLevels(kItemClasses);
}

TEST_F(Rpt176Groupings, SendCustomerClasses) {
  ExpectLevels(kCustomerClasses);
}

TEST_F(Rpt176Groupings, SendItemClassesWithTheCustomerBehindThem) {
  ExpectLevels(kItemClassesAndCustomer);
}

TEST_F(Rpt176Groupings, SendCustomerClassesWithTheCustomerBehindThem) {
  ExpectLevels(kCustomerClassesAndCustomer);
}

TEST_F(Rpt176Groupings, SendTheCustomerBeforeItemClasses) {
  ExpectLevels(kCustomerAndItemClasses);
}

TEST_F(Rpt176Groupings, ShowTotalsOnly) {
  for (const Grouping& grouping : {kItemClasses, kCustomerAndItemClasses}) {
    ExpectLevels(grouping, {{"OnlyShowSum", std::int32_t{1}}}, "Where FSumSort>100");
  }
}

TEST_F(Rpt176Groupings, BoundTheLevelsByTheRangeOfTheirClass) {
  const Entries ranges = {
      {"BItemNumber", "01'1"}, {"EItemNumber", "09"}, {"BCustNumber", "02"}, {"ECustNumber", "03"}};
  const Pieces fill = {
      {"ITEM", " And t1.FNumber>='01''1' And t1.FNumber<='09' And t2.FNumber>='02' And t2.FNumber<='03'"}};
  ExpectLevels(kItemClassesAndCustomer, ranges, "", "01'1", "09", fill);
  ExpectLevels(kCustomerClasses, ranges, "", "02", "03", fill);
}

TEST_F(Rpt176Groupings, RestrictAllThreeFillsByTheDataRight) {
  RestrictCustomers();
  ExpectLevels(kItemClasses, {}, "", "", "", {{"TAIL", " And  CharIndex('16394',T2.FRightUserID)>0 "}});
}

Pieces CustomerTexts() {
  return {{"NAME", "FProp01"},   {"NUMBER", "t2.FNumber"}, {"NUMBERGROUP", "t2.FNumber,"},
          {"GROUP", "t2.FName"}, {"SOURCE", ""},           {"BOUND", ""}};
}

TEST_F(Rpt176Groupings, SendTheCustomerAsAProperty) {
  const Request& request = FetchBy(Property("0", "1", "FName"));
  ExpectKeys(request, {"Filter", "UpdateAppend"});
  ExpectProperty(request, CustomerTexts());
  EXPECT_TRUE(
      SameSql(request.at("UpdateAppend"),
              "update t1 set t1.FProp01=t2.FName+t1.FProp01 from  #DATA t1 inner join t_Organization t2 on "
              "t1.FPropNumber=t2.FNumber where t1.FSumSort=101\r\n"
              "declare @iMaxID int\r\n"
              "set @iMaxID=0 \r\n"
              "select @iMaxID=max(FID) from #Data\r\n"
              "update #Data set FProp01=(Select top 1 FProp01 from #Data where FID<@iMaxID order by FProp01 "
              "desc) where "
              "FID=@iMaxID\r\n"
              "delete from #data where isnull(FPropNumber,'')<>'' and fsumsort=101\r\n"
              "Update #Data Set FProp01='合计' WHERE FSumSort=101"));
  EXPECT_TRUE(SameSql(request.at("EndSel"), Text("{RATE} Order By FID Drop Table #Data")));
}

TEST_F(Rpt176Groupings, SendTheCustomerWhereTheClassIsAbsent) {
  const auto property = std::make_shared<Dictionary>(
      Entries{{"FName", "客户"}, {"FPropID", "0"}, {"FSrcTable", ""}, {"FSQLColumnName", "FName"}});
  EXPECT_TRUE(HasText(FetchBy(property).at("SELECT"), Text("{FROM}")));
}

TEST_F(Rpt176Groupings, SendADepartmentProperty) {
  const Request& request = FetchBy(Property("0", "2", "FName"));
  ExpectKeys(request, {"Filter"});
  ExpectProperty(request, {{"NAME", "FProp02"},
                           {"NUMBER", "''"},
                           {"NUMBERGROUP", ""},
                           {"GROUP", "t2.FName"},
                           {"SOURCE", ""},
                           {"BOUND", ""},
                           {"PARTY", "Left Join t_Department t2 On v1.FDeptID=t2.FItemID"}});
  EXPECT_TRUE(SameSql(request.at("EndSel"), Text("{RATE} Order By FID Drop Table #Data")));
}

TEST_F(Rpt176Groupings, SendAnItemPropertyOnItsOwnColumn) {
  const Request& request = FetchBy(Property("3", "4", "FModel"));
  ExpectKeys(request, {"Filter"});
  ExpectProperty(request, {{"NAME", "FProp34"},
                           {"NUMBER", "''"},
                           {"NUMBERGROUP", ""},
                           {"GROUP", "t1.FModel"},
                           {"SOURCE", ""},
                           {"BOUND", ""}});
}

TEST_F(Rpt176Groupings, SendAnItemPropertyWithATableOfValues) {
  const Request& request = FetchBy(Property("5", "4", "FSource", "t_SubMessage", "FName", "FInterID"),
                                   {{"OnlyShowSum", std::int32_t{1}}});
  ExpectKeys(request, {"Filter"});
  ExpectProperty(request, {{"NAME", "FProp54"},
                           {"NUMBER", "''"},
                           {"NUMBERGROUP", ""},
                           {"GROUP", "tt2.FName"},
                           {"SOURCE", "Left Join t_SubMessage tt2 On t1.FSource=tt2.FInterID"},
                           {"BOUND", ""}});
  EXPECT_TRUE(SameSql(request.at("EndSel"), Text("{RATE} Where FSumSort>100 Order By FID Drop Table #Data")));
}

TEST_F(Rpt176Groupings, SendACustomerPropertyWithATableOfValues) {
  const Request& request = FetchBy(Property("12", "1", "FRegionID", "t_SubMessage", "FName", "FInterID"));
  Pieces texts = CustomerTexts();
  texts["NAME"] = "FProp121";
  texts["GROUP"] = "tt2.FName";
  texts["SOURCE"] = "Left Join t_SubMessage tt2 On t2.FRegionID=tt2.FInterID";
  ExpectKeys(request, {"Filter", "UpdateAppend"});
  ExpectProperty(request, texts);
  EXPECT_TRUE(Contains(JoinedWords(request.at("UpdateAppend")),
                       JoinedWords("Update #Data Set FProp121='合计' Where FSumSort=101")));
}

TEST_F(Rpt176Groupings, BoundTheRowsByTheFirstCustomerWhetherSetOrNot) {
  const Request& request = FetchBy(Property("0", "1", "FName"), {{"BCustNumber", "02'1"}});
  Pieces texts = CustomerTexts();
  texts["BOUND"] = "02''1";
  texts["ITEM"] = " And t2.FNumber>='02''1'";
  ExpectProperty(request, texts);
  EXPECT_EQ(request.at("Filter"), " And t2.FNumber>='02''1'");
}

TEST_F(Rpt176Groupings, SendTheSameAgainWhereRepeated) {
  const Request first = FetchLevels(4);
  request_.clear();
  Call(Report(), "Refresh");
  EXPECT_EQ(request_, first);
  const Request property = FetchBy(Property("0", "1", "FName"));
  Fetch();
  EXPECT_EQ(FetchBy(Property("0", "1", "FName")), property);
  EXPECT_EQ(FetchLevels(4), first);
}

}  // namespace
}  // namespace salerpt::testing
