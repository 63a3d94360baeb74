// The batches of `Rpt301`: by fee, by one property and by class levels.
#include <memory>
#include <string>

#include "reports/flow/rpt301.h"
#include "reports/flow/rpt301_side.h"
#include "runtime/text.h"
#include "sqltoolkit/filter_values.h"
#include "sqltoolkit/group_columns.h"
#include "sqltoolkit/item_level.h"

namespace salerpt {
namespace {

// Classes of the code tree.
constexpr std::int32_t kSupplierClass = 8;
constexpr std::int32_t kFeeClass = 2014;

// The texts stand as they are sent.
// clang-format off
constexpr std::string_view kColumnDefinitions =
    "    FNumber  varchar(355) null,\r\n"
    "     FFeeType varchar(355) null,\r\n"
    "     FName  varchar(355) null,\r\n"
    "     FUnit  varchar(355) null,\r\n"
    "     FQtyDecimal smallint null, \r\n"
    "     FPriceDecimal smallint null, \r\n"
    "     FAuxQty decimal(23,10) null default (0),\r\n"
    "     FAmount decimal(23,10) null default (0),\r\n"
    "     FTaxAmount decimal(23,10) null default (0),\r\n"
    "     FAmountEx decimal(23,10) null default (0),\r\n"
    "     FSumSort smallint not null Default(0))\r\n";

// Fee type, name and unit stay blank here: the middle tier fills them.
constexpr std::string_view kValueList =
    "'','','',4,4,Sum (v1.FAuxQty), Sum(v1.FAmount), Sum(v1.FTaxAmount),Sum(v1.FAmount)-Sum(v1.FTaxAmount) ,";

constexpr std::string_view kFromText =
    " From  #T301B v1\r\n"
    "Left Join t_Organization t2 On v1.FCustID=t2.FItemID\r\n"
    "Left Join t_Supplier t3 On v1.FSupplyID=t3.FItemID\r\n"
    "Left Join t_Fee t4 On v1.FItemID=t4.FItemID\r\n"
    "Left Join t_SubMessage k1 On t4.FFeeType=k1.FInterID\r\n";

constexpr std::string_view kWhereText = " WHERE 1=1 ";

// Kept open: the middle tier closes the bracket, behind conditions of its own.
constexpr std::string_view kItemFilterTemplate = " FItemID In (SELECT DISTINCT ##ITEMID## FROM #T301B ";

}  // namespace

// --- By fee

DictionaryRef Rpt301::BuildByFee() const {
  auto request = std::make_shared<Dictionary>();
  request->Set("SElECT", Join("\r\n"
                              "    SET NOCOUNT ON\r\n"
                              "CREATE TABLE #DATA(", kColumnDefinitions,
                              "  INSERT INTO #DATA  SELECT CASE "
                              "  WHEN GROUPING(t4.FNumber)=1 THEN '合计' \r\n"
                              " ELSE t4.FNumber END, ", kValueList,
                              " CASE WHEN  GROUPING(t4.FNumber)=1 THEN 101 \r\n"
                              " ELSE 0 END ",
                              kFromText, kWhereText, "\r\n"));
  request->Set("GROUPBY", "Group by t4.FNumber WITH ROLLUP ");
  request->Set("EndSel", Join("SELECT * FROM #DATA  ", SumOnly(Conditions(), "WHERE FSumSort>100"), "\r\n"));
  request->Set("ITEMFILTER", kItemFilterTemplate);
  return request;
}

// --- By a property of the customer, the supplier or the fee type

namespace {

std::string_view PropertyPrefix(int item_class) {
  switch (item_class) {
    case 1:
      return "t2.";
    case 3:
    case kSupplierClass:
      return "t3.";
    default:
      return "k1.";
  }
}

}  // namespace

DictionaryRef Rpt301::BuildByProperty() const {
  const Dictionary& filter = Conditions();
  const DictionaryRef sum_field = FilterSumField(filter);
  const int item_class = FilterInt(*sum_field, "FItemClassID");
  const bool by_customer = item_class == 1;
  const std::string source_table = FilterText(*sum_field, "FSrcTable");
  const std::string source_column = FilterText(*sum_field, "FSQLColumnName");
  const std::string column = Join(PropertyPrefix(item_class), source_column);

  const std::string create = Join("CREATE TABLE #DATA(\r\n"
                                  "FPropNumber varchar(355) null,\r\n"
                                  "  ", PropertyColumnName(filter), " varchar(355) null,\r\n",
                                  kColumnDefinitions, "\r\n");
  // FPropNumber: the customer's number, or nothing for a property that has none.
  std::string insert = Join("INSERT INTO #DATA  SELECT ", by_customer ? "t2.FNumber," : "'',");
  std::string group_by = Join(" GROUP BY ", by_customer ? " t2.FNumber, " : "");
  if (!source_table.empty()) {
    const std::string value = Join("tt2.", FilterText(*sum_field, "FDisplayField"));
    Append(group_by, " ", value, ",t4.FNumber WITH ROLLUP ");
    Append(insert,
           "CASE WHEN   GROUPING(", value, ")=1 THEN '合计'\r\n"
           "WHEN   GROUPING(t4.FNumber)=1 THEN  isnull(CONVERT(varchar(355),", value, "),'')+'(小计)' \r\n"
           " ELSE CONVERT(varchar(355),", value, ") END, \r\n"
           " t4.FNumber,", kValueList,
           " CASE WHEN GROUPING(", value, ")=1 THEN 101\r\n"
           " WHEN  GROUPING(t4.FNumber)=1 THEN 105 ELSE 0 END ", kFromText,
           " Left Join ", source_table, " tt2 On ", column, "=tt2.", FilterText(*sum_field, "FSrcField"));
  } else {
    // A period shows as a whole number.
    const std::string shown = Trim(source_column) == "FKFPeriod" ? Join("convert(int,", column, ")") : column;
    Append(group_by, " ", column, ",t4.FNumber WITH ROLLUP");
    Append(insert,
           " CASE "
           " WHEN GROUPING(", column, ")=1 THEN '合计'\r\n"
           " WHEN GROUPING(t4.FNumber)=1 THEN "
           " isnull(CONVERT(varchar(355),", shown, "),'')+'(小计)' \r\n"
           " ELSE CONVERT(varchar(355),", shown, ") END, \r\n"
           " t4.FNumber,", kValueList,
           " CASE WHEN GROUPING(", column, ")=1 THEN 101\r\n"
           " WHEN  GROUPING(t4.FNumber)=1 THEN 105 ELSE 0 END ", kFromText);
  }
  Append(insert, kWhereText, "\r\n");

  auto request = std::make_shared<Dictionary>();
  request->Set("SElECT", Join("SET NOCOUNT ON\r\n", create, "\r\n", insert));
  request->Set("GROUPBY", Join(group_by, "\r\n"));
  request->Set("EndSel", Join("SELECT * FROM #DATA  ", SumOnly(filter, "WHERE FSumSort>100"), "\r\n"));
  request->Set("ITEMFILTER", kItemFilterTemplate);
  // The row with the customer's number and rolled-up name is no total of the report.
  if (by_customer) {
    request->Set("UpdateAppend", "delete from #data where isnull(FPropNumber,'')<>'' and fsumsort=101\r\n");
  }
  return request;
}

// --- By class levels of fees or parties, alone or with the party

struct Rpt301::LevelTexts {
  std::string columns;   // L: column definitions of the groups
  std::string select;    // S: select head
  std::string group;     // G: group head
  std::string sum_sort;  // K: the cases of FSumSort
  std::string labels;    // U: label updates
};

Rpt301::LevelTexts Rpt301::LevelTextsOf(Grouping grouping) const {
  const Dictionary& filter = Conditions();
  const auto [begin_level, end_level] = FilterLevels(filter);
  std::string definitions;
  std::string cases;
  std::string names;
  LevelTexts texts;
  for (int i = begin_level; i <= end_level; ++i) {
    Append(definitions, "FName", i, " varchar(355) Null,\r\n");
    Append(cases, "  WHEN   Grouping(tt1.FName", i, ")=1 THEN ", i + 105, "\r\n");
    Append(names, "tt1.FName", i, ",");
    Append(texts.labels,
           "Update #Data Set  FName", i, "=isnull(FName", i, ",'')+'(小计)'  WHERE FSumSort=", i + 106, "\r\n");
  }

  // The row in which the first level is rolled up is the grand total.
  const auto total = [begin = begin_level](std::string& labels) {
    Append(labels,
           "Update #Data Set FName", begin, "='合计' WHERE FSumSort=", begin + 105, "\r\n"
           "Update #Data Set FSumSort=101   WHERE FSumSort=", begin + 105, "\r\n");
  };
  const std::string_view party = IsSupplierSide(filter) ? "t3.FName" : "t2.FName";
  switch (grouping) {
    case Grouping::kFeeLevelsAndParty:
      texts.columns = Join(definitions, "FCustName varchar(355) Null,");
      texts.select = Join("SELECT ", names, " ", party, ",t4.FNumber");
      texts.group = Join("  Group By ", names, " ", party, ",t4.FNumber");
      texts.sum_sort = Join(cases, "  WHEN   Grouping(", party, ")=1 THEN  ", end_level + 106,
                            "  WHEN   Grouping(t4.FNumber)=1 THEN ", end_level + 107);
      Append(texts.labels,
             "Update #Data Set FCustName=isnull(FCustName,'')+'(小计)' WHERE FSumSort=", end_level + 107, "\r\n");
      total(texts.labels);
      break;
    case Grouping::kPartyAndFeeLevels:
      texts.columns = Join("FCustName varchar(355) Null,\r\n", definitions);
      texts.select = Join("SELECT ", " ", party, ",", names, "t4.FNumber");
      texts.group = Join(" Group By ", " ", party, ",", names, "t4.FNumber");
      texts.sum_sort = Join("  WHEN   Grouping(", party, ")=1 THEN 101 ", cases,
                            "  WHEN   Grouping(t4.FNumber)=1 THEN ", end_level + 106);
      Append(texts.labels,
             "Update #Data Set FCustName=isnull(FCustName,'')+'(小计)' WHERE FSumSort=", begin_level + 105, "\r\n"
             "Update #Data Set FCustName='合计' WHERE FSumSort=101\r\n");
      break;
    default:
      texts.columns = definitions;
      texts.select = Join("SELECT ", names, "t4.FNumber");
      texts.group = Join(" Group By ", names, "t4.FNumber");
      texts.sum_sort = Join(cases, "  WHEN   Grouping(t4.FNumber)=1 THEN ", end_level + 106);
      total(texts.labels);
      break;
  }
  texts.sum_sort = Join("CASE", texts.sum_sort, "  ELSE   0 END \r\n");
  return texts;
}

namespace {

// Whose class levels #ItemLevel holds: the class of the code tree, its range in the filter, and the column of
// #T301B that it joins on.
struct LevelSource {
  std::int32_t item_class;
  std::string_view begin_key;
  std::string_view end_key;
  std::string_view column;
};
constexpr LevelSource kFees{kFeeClass, "BFeeNumber", "EFeeNumber", "FItemID"};
constexpr LevelSource kSuppliers{kSupplierClass, "BSupply", "ESupply", "FSupplyID"};
constexpr LevelSource kCustomers{kCustomerClass, "BCust", "ECust", "FCustID"};

}  // namespace

DictionaryRef Rpt301::BuildByLevel(Grouping grouping) const {
  const Dictionary& filter = Conditions();
  const auto [begin_level, end_level] = FilterLevels(filter);
  const LevelSource& parties = IsSupplierSide(filter) ? kSuppliers : kCustomers;
  const LevelSource& source = grouping == Grouping::kPartyLevels ? parties : kFees;
  const std::string level_sql =
      BuildItemLevelSQL(source.item_class, "", FilterText(filter, source.begin_key),
                        FilterText(filter, source.end_key), true, begin_level, end_level, 0);
  const LevelTexts texts = LevelTextsOf(grouping);

  auto request = std::make_shared<Dictionary>();
  request->Set("SElECT", Join("SET NOCOUNT ON\r\n",
                              level_sql, "\r\n"
                              "CREATE TABLE #DATA(\r\n",
                              texts.columns, "\r\n", kColumnDefinitions,
                              "INSERT INTO  #DATA \r\n",
                              texts.select, ",", kValueList, texts.sum_sort,
                              kFromText, "Left Join #ItemLevel tt1 On v1.", source.column, "=tt1.FItemID",
                              kWhereText));
  request->Set("GROUPBY", Join(texts.group, " WITH ROLLUP\r\n"));
  request->Set("EndSel", Join(texts.labels, "\r\n"
                              "SELECT * FROM #DATA  ", SumOnly(filter, "WHERE FSumSort>100"), "\r\n"
                              "DROP TABLE #ItemLevel"));
  request->Set("ITEMFILTER", Replace(kItemFilterTemplate, "##ITEMID##", Join(" ", source.column, " ")));
  return request;
}
// clang-format on

}  // namespace salerpt
