// The batches of `Rpt303`: by item, by one property, by batch number and by class levels.
#include <memory>
#include <string>

#include "reports/flow/rpt303.h"
#include "runtime/mrpt.h"
#include "runtime/text.h"
#include "sqltoolkit/filter_values.h"
#include "sqltoolkit/group_columns.h"
#include "sqltoolkit/item_level.h"

namespace salerpt {
namespace {

// The texts stand as they are sent.
// clang-format off
constexpr std::string_view kFromText =
    " FROM #Rpt303 v1 \r\n"
    " Inner Join t_ICItem t1 on v1.FItemID=t1.FItemID  \r\n"
    " Inner Join t_Organization t2 on v1.FCustID=t2.FItemID \r\n"
    " Left  Join t_Emp t3 on v1.FEmpID=t3.FItemID \r\n"
    " Left  Join t_DepartMent t4 on  v1.FDeptID=t4.FItemID \r\n";

constexpr std::string_view kItemFilterTemplate =
    " And FItemID In (SELECT DISTINCT ##ITEMID## FROM #Rpt303 v1) ";

// In the order of the column definitions.
constexpr std::string_view kColumnList =
    "FNumber,FShortNumber,FName,FModel,FUnitName,FCUUnitName,\r\n"
    " FQtyDecimal,FPriceDecimal,FBegQty,FBegPrice,FCUBegQty,FCUBegPrice,\r\n"
    " FBegAmount,FSendQty,FSendPrice,FCUSendQty,FCUSendPrice,FSendAmount,FVerifQty,FVerifPrice,\r\n"
    " FCUVerifQty,FCUVerifPrice,FVerifAmount,FEndQty,FEndPrice,FCUEndQty,FCUEndPrice,FEndAmount,FSumSort)\r\n";

}  // namespace

// --- By item

DictionaryRef Rpt303::BuildByItem() const {
  auto request = std::make_shared<Dictionary>();
  request->Set("SElECT", Join("\r\n"
                              "    SET NOCOUNT ON\r\n"
                              "CREATE TABLE #DATA(", column_definitions_, "\r\n"
                              "  INSERT INTO #DATA  SELECT CASE "
                              "  WHEN GROUPING(t1.FNumber)=1 THEN '合计' \r\n"
                              " ELSE t1.FNumber END, \r\n",
                              value_list_, "\r\n"
                              " CASE  WHEN GROUPING(t1.FNumber)=1 THEN 101 \r\n"
                              " ELSE 0 END ",
                              kFromText, where_text_, condition_, "\r\n"));
  request->Set("GROUPBY", "Group by t1.FNumber WITH ROLLUP ");
  request->Set("Filter", condition_);
  request->Set("EndSel", Join("SELECT * FROM #DATA  ", SumOnly(Conditions(), "WHERE FSumSort>100"), "\r\n"
                              " ORDER BY FID \r\n"
                              "DROP TABLE #DATA  \r\n"));
  request->Set("ITEMFILTER", kItemFilterTemplate);
  return request;
}

// --- By a property of the customer, item, department or employee

namespace {

std::string_view PropertyPrefix(int item_class) {
  switch (item_class) {
    case 1:
      return "t2.";
    case 2:
      return "t4.";
    case 3:
      return "t3.";
    case 4:
      return "t1.";
    default:
      return "";
  }
}

}  // namespace

DictionaryRef Rpt303::BuildByProperty() const {
  const Dictionary& filter = Conditions();
  const DictionaryRef sum_field = FilterSumField(filter);
  const int item_class = FilterInt(*sum_field, "FItemClassID");
  const bool by_customer = item_class == 1;
  const std::string source_table = FilterText(*sum_field, "FSrcTable");
  const std::string column = Join(PropertyPrefix(item_class), FilterText(*sum_field, "FSQLColumnName"));
  const std::string property = PropertyColumnName(filter);

  const std::string create = Join("CREATE TABLE #DATA(\r\n"
                                  "FPropNumber varchar(355) null,\r\n"
                                  "  ", property, " varchar(355) null,\r\n",
                                  column_definitions_, "\r\n");
  // FPropNumber: the customer's number, or nothing for a property that has none.
  std::string insert = Join("INSERT INTO #DATA  SELECT ", by_customer ? "t2.FNumber," : "'',");
  std::string group_by = Join(" GROUP BY ", by_customer ? " t2.FNumber, " : "");
  if (!source_table.empty()) {
    const std::string value = Join("tt2.", FilterText(*sum_field, "FDisplayField"));
    Append(group_by, " ", value, ",t1.FNumber WITH ROLLUP ");
    Append(insert,
           "CASE WHEN   GROUPING(", value, ")=1 THEN '合计'\r\n"
           "WHEN   GROUPING(t1.FNumber)=1 THEN  CONVERT(varchar(355),", value, ")+'(小计)' \r\n"
           " ELSE CONVERT(varchar(355),", value, ") END, \r\n"
           " t1.FNumber,", value_list_,
           " CASE WHEN GROUPING(", value, ")=1 THEN 101\r\n"
           " WHEN  GROUPING(t1.FNumber)=1 THEN 102 ELSE 0 END ", kFromText,
           " Left Join ", source_table, " tt2 On ", column, "=tt2.", FilterText(*sum_field, "FSrcField"));
  } else {
    Append(group_by, " ", column, ",t1.FNumber WITH ROLLUP");
    Append(insert,
           " CASE "
           " WHEN GROUPING(", column, ")=1 THEN '合计'\r\n"
           " WHEN GROUPING(t1.FNumber)=1 THEN "
           " CONVERT(varchar(355),", column, ")+'(小计)' \r\n"
           " ELSE CONVERT(varchar(355),", column, ") END, \r\n"
           " t1.FNumber,", value_list_,
           " CASE WHEN GROUPING(", column, ")=1 THEN 101\r\n"
           " WHEN  GROUPING(t1.FNumber)=1 THEN 102 ELSE 0 END ", kFromText);
  }
  // The bound stands whether or not the filter sets one. Kept: the texts of this grouping do not depend on
  // the range; the range itself reaches the rows through "Filter".
  Append(insert, where_text_, "\r\n", " AND t2.", CodeField(), ">=", QuoteSql(filter.Get("BCustNumber")));

  auto request = std::make_shared<Dictionary>();
  request->Set("SElECT", Join("SET NOCOUNT ON\r\n", create, "\r\n", insert));
  request->Set("GROUPBY", Join(group_by, "\r\n"));
  request->Set("Filter", condition_);
  request->Set("EndSel", Join("SELECT * FROM #DATA  ", SumOnly(filter, "WHERE FSumSort>100"), "\r\n"
                              " Order by FID \r\n"
                              "DROP TABLE #DATA  \r\n"));
  request->Set("ITEMFILTER", kItemFilterTemplate);
  if (!by_customer) return request;

  // The row with the customer's number and rolled-up name goes. It lends its label to the grand total first,
  // which the last line puts right.
  request->Set("UpdateAppend",
               Join("update t1 set t1.", property, "=t2.FName+t1.", property,
                    " from  #DATA t1 inner join t_Organization t2 on t1.FPropNumber=t2.FNumber"
                    " where t1.FSumSort=101\r\n"
                    "declare @iMaxID int\r\n"
                    "set @iMaxID=0 \r\n"
                    "select @iMaxID=max(FID) from #Data\r\n"
                    "update #Data set ", property, "=(Select top 1 ", property,
                    " from #Data where FID<@iMaxID order by ", property, " desc) where FID=@iMaxID\r\n"
                    "delete from #data where isnull(FPropNumber,'')<>'' and fsumsort=101\r\n"
                    "Update #Data Set ", property, "='合计' WHERE FSumSort=101\r\n"));
  return request;
}

// --- By item and batch number: items are the outer level

DictionaryRef Rpt303::BuildByBatchNo() const {
  auto request = std::make_shared<Dictionary>();
  request->Set("SElECT", Join("SET NOCOUNT ON\r\n"
                              "CREATE TABLE #DATA( FBatchNo   VARCHAR(355) null,", column_definitions_,
                              " INSERT INTO #DATA ( FBatchNo,", kColumnList,
                              " SELECT CASE "
                              " WHEN GROUPING(t1.FNumber)=1  THEN '合计'"
                              " WHEN GROUPING(v1.FBatchNo)=1 THEN "
                              " t1.FNumber+'小计'"
                              " ELSE v1.FBatchNo END, "
                              " t1.FNumber,", value_list_,
                              " CASE WHEN GROUPING(t1.FNumber)=1 THEN 101"
                              " WHEN  GROUPING(v1.FBatchNo)=1 THEN 102 ELSE 0 END ",
                              kFromText, where_text_));
  request->Set("GROUPBY", " GROUP BY t1.FNumber,v1.FBatchNo WITH ROLLUP");
  request->Set("Filter", condition_);
  request->Set("EndSel", Join("SELECT * FROM #DATA  ", SumOnly(Conditions(), "WHERE FSumSort>100"), "\r\n"
                              " ORDER BY FID \r\n"));
  request->Set("ITEMFILTER", kItemFilterTemplate);
  return request;
}

// --- By class levels of items or customers, alone or with the customer

struct Rpt303::LevelTexts {
  std::string columns;   // L: column definitions of the groups
  std::string select;    // H: select head
  std::string group;     // G: group head
  std::string sum_sort;  // K: the cases of FSumSort
  std::string labels;    // U: label updates
  std::string_view on;   // J: what #ItemLevel joins on
};

Rpt303::LevelTexts Rpt303::LevelTextsOf(int sum_mode, int begin_level, int end_level) {
  std::string definitions;
  std::string cases;
  std::string names;
  LevelTexts texts;
  for (int i = begin_level; i <= end_level; ++i) {
    Append(definitions, "FName", i, " VARCHAR(355) Null,\r\n");
    Append(cases, "  WHEN   Grouping(tt1.FName", i, ")=1 THEN ", i + 105, "\r\n");
    Append(names, "tt1.FName", i, ",");
    Append(texts.labels,
           "Update #Data Set  FName", i, "=FName", i, "+'小计'  WHERE FSumSort=", i + 106, "\r\n");
  }

  // The row in which the first level is rolled up is the grand total.
  const auto total = [begin_level](std::string& labels) {
    Append(labels,
           "Update #Data Set FName", begin_level, "='合计' WHERE FSumSort=", begin_level + 105, "\r\n"
           "Update #Data Set FSumSort=101   WHERE FSumSort=", begin_level + 105, "\r\n");
  };
  texts.on = sum_mode == 2 ? "\r\n  t2.FItemID=tt1.FItemID" : "\r\n  t1.FItemID=tt1.FItemID";
  switch (sum_mode) {
    case 3:
      texts.columns = Join(definitions, "\r\nFCustName VARCHAR(355) Null,");
      texts.select = Join("SELECT ", names, "t2.FName,t1.FNumber");
      texts.group = Join("  Group By ", names, "t2.FName,t1.FNumber");
      texts.sum_sort = Join(cases, "  WHEN   Grouping(t2.FName)=1 THEN  ", end_level + 106,
                            "  WHEN   Grouping(t1.FNumber)=1 THEN ", end_level + 107);
      Append(texts.labels,
             "Update #Data Set FCustName=FCustName+'小计' WHERE FSumSort=", end_level + 107, "\r\n");
      total(texts.labels);
      break;
    case 4:
      texts.columns = Join("FCustName VARCHAR(355) Null,\r\n", definitions);
      texts.select = Join("SELECT ", " t2.FName,", names, "t1.FNumber");
      texts.group = Join(" Group By ", " t2.FName,", names, "t1.FNumber");
      texts.sum_sort = Join("  WHEN   Grouping(t2.FName)=1 THEN 101 ", cases,
                            "  WHEN   Grouping(t1.FNumber)=1 THEN ", end_level + 106);
      Append(texts.labels,
             "Update #Data Set FCustName=FCustName+'小计' WHERE FSumSort=", begin_level + 105, "\r\n"
             "Update #Data Set FCustName='合计' WHERE FSumSort=101\r\n");
      break;
    default:
      texts.columns = definitions;
      texts.select = Join("SELECT ", names, "t1.FNumber");
      texts.group = Join(" Group By ", names, "t1.FNumber");
      texts.sum_sort = Join(cases, "  WHEN   Grouping(t1.FNumber)=1 THEN ", end_level + 106);
      total(texts.labels);
      break;
  }
  texts.sum_sort = Join("CASE", texts.sum_sort, "  ELSE   0 END \r\n");
  return texts;
}

DictionaryRef Rpt303::BuildByLevel(std::int32_t item_class, int sum_mode) const {
  const Dictionary& filter = Conditions();
  const auto [begin_level, end_level] = FilterLevels(filter);
  const bool by_customer = item_class == kCustomerClass;
  const std::string level_sql = BuildItemLevelSQL(
      item_class, "", FilterText(filter, by_customer ? "BCustNumber" : "BItemNumber"),
      FilterText(filter, by_customer ? "ECustNumber" : "EItemNumber"), true, begin_level, end_level, 0);
  const LevelTexts texts = LevelTextsOf(sum_mode, begin_level, end_level);

  auto request = std::make_shared<Dictionary>();
  request->Set("SElECT", Join("SET NOCOUNT ON\r\n",
                              level_sql, "\r\n"
                              "CREATE TABLE #DATA(\r\n",
                              texts.columns, column_definitions_,
                              "INSERT INTO #DATA \r\n",
                              texts.select, ",", value_list_, texts.sum_sort,
                              kFromText, " Inner Join #ItemLevel tt1 on ", texts.on, "\r\n",
                              where_text_, condition_));
  request->Set("GROUPBY", Join(texts.group, " WITH ROLLUP"));
  request->Set("Filter", condition_);
  request->Set("EndSel", Join(texts.labels, "\r\n"
                              "SELECT * FROM #DATA  ", SumOnly(filter, "WHERE FSumSort>100"), "\r\n"
                              " ORDER BY FID \r\n"
                              "DROP TABLE #ItemLevel"));
  request->Set("ITEMFILTER",
               Replace(kItemFilterTemplate, "##ITEMID##", by_customer ? " v1.FCustID " : " v1.FItemID "));
  return request;
}
// clang-format on

}  // namespace salerpt
