// The frames of `Rpt139` around the middle tier's #T139: a plain list, and class levels of items.
#include <memory>
#include <string>
#include <string_view>

#include "reports/order/rpt139.h"
#include "runtime/text.h"
#include "sqltoolkit/filter_values.h"
#include "sqltoolkit/item_level.h"

namespace salerpt {
namespace {

// The texts stand as they are sent.
// clang-format off

constexpr std::string_view kItemFilterTemplate = " FItemID In (SELECT DISTINCT ##ITEMID## FROM #T139) ";

constexpr std::string_view kColumnDefinitions =
    "      FInterID int Not Null,\r\n"
    "    FEntryID int Not Null,\r\n"
    "    FDate varchar(10) Not Null,\r\n"
    "    FBillNo nvarchar(255)  Not Null,\r\n"
    "    FCustNumber varchar(80) Null,\r\n"
    "    FCustName varchar(255) Null,\r\n"
    "    FAdviceConsignDate varchar(10) null,\r\n"
    "    FItemID int Not Null, \r\n"
    "    FItemNumber  varchar(355) null, \r\n"
    "    FItemShortNumber  varchar(355) null, \r\n"
    "    FName  varchar(255) Null,\r\n"
    "    FModel varchar(255) Null,\r\n"
    "    FAuxName varchar(80) Null, \r\n"
    "    FBaseUnitName  varchar(355) null, \r\n"
    "    FStockUnitName  varchar(355) null, \r\n"
    "    FLevel int Not Null Default(0), \r\n"
    "    FQty Decimal(23,10) Not Null Default(0),             --订单(基本)数量 \r\n"
    "    FAuxQty Decimal(23,10)  Not Null Default(0),         --订单(常用)数量 \r\n"
    "    FBCommitQty Decimal(23,10)  Not Null Default(0),     --生产(基本)数量 \r\n"
    "    FAuxBCommitQty Decimal(23,10)  Not Null Default(0),  --生产(常用)数量 \r\n"
    "    FInStockQty Decimal(23,10)  Not Null Default(0),     --入库(基本)数量 \r\n"
    "    FInAuxStockQty Decimal(23,10)  Not Null Default(0),  --入库(常用)数量 \r\n"
    "    FOutStockQty Decimal(23,10)  Not Null Default(0),    --出库(基本)数量 \r\n"
    "    FOutAuxStockQty Decimal(23,10)  Not Null Default(0), --出库(常用)数量 \r\n"
    "    FUnFinishQty Decimal(23,10)  Not Null Default(0),    --未执行(基本)数量 \r\n"
    "    FUnAuxFinishQty Decimal(23,10)  Not Null Default(0), --未执行(常用)数量  \r\n"
    "    FQtyDecimal smallint null,FExecutionStatus Varchar(20),FSumSort smallint not null Default(0))   \r\n";

// The texts of a line and its state stay blank here: the middle tier fills them. FName and FItemShortNumber
// stand in the other order than their columns. Kept: both are blank, and the texts are fixed.
constexpr std::string_view kValueList =
    " CASE WHEN GROUPING(V1.FInterID)=1 THEN 0 ELSE V1.FInterID END, \r\n"
    " CASE WHEN GROUPING(V1.FEntryID)=1 THEN 0 ELSE V1.FEntryID END, \r\n"
    " '' as FDate, \r\n"
    " '' as FBillNo, \r\n"
    " '' as FCustNumber, \r\n"
    " '' as FCustName, \r\n"
    " '' as FAdviceConsignDate, \r\n"
    " CASE WHEN GROUPING(V1.FItemID)=1 THEN 0 ELSE V1.FItemID END, \r\n"
    " CASE WHEN GROUPING(t1.FNumber)=1 THEN '' ELSE t1.FNumber END, \r\n"
    " '' as FName, \r\n"
    " '' as FItemShortNumber, \r\n"
    " '' as FModel, \r\n"
    " '' as FAuxName, \r\n"
    " '' as FBaseUnitName, \r\n"
    " '' as FStockUnitName, \r\n"
    " 0  as FLevel, \r\n"
    " Sum(round(V1.FQty,t1.FQtyDecimal)) as FQty, \r\n"
    " Sum(round(V1.FAuxQty,t1.FQtyDecimal)) as FAuxQty, \r\n"
    " Sum(round(V1.FBCommitQty,t1.FQtyDecimal)) as FBCommitQty, \r\n"
    " Sum(round(V1.FAuxBCommitQty,t1.FQtyDecimal)) as FAuxBCommitQty, \r\n"
    " Sum(round(V1.FInStockQty,t1.FQtyDecimal)) as FInStockQty,Sum(round(V1.FInAuxStockQty,t1.FQtyDecimal)) as FInAuxStockQty, \r\n"
    " Sum(round(V1.FOutStockQty,t1.FQtyDecimal)) as FOutStockQty, \r\n"
    " Sum(round(V1.FOutAuxStockQty,t1.FQtyDecimal)) as FOutAuxStockQty, \r\n"
    " Sum(round(V1.FUnFinishQty,t1.FQtyDecimal)) as FUnFinishQty,Sum(round(V1.FUnAuxFinishQty,t1.FQtyDecimal)) as FUnAuxFinishQty, \r\n"
    " 4, '', \r\n";

constexpr std::string_view kFrom =
    " FROM #T139 v1\r\n"
    "Join t_ICItem t1 On v1.FItemID=t1.FItemID\r\n";

constexpr std::string_view kWhere = " WHERE 1=1 \r\n";

}  // namespace

// --- Plain list: of the rollup only the order lines and the grand total stay

DictionaryRef Rpt139::BuildPlain() const {
  const Dictionary& filter = Conditions();
  auto frames = std::make_shared<Dictionary>();
  frames->Set("SElECT", Join("SET NOCOUNT ON\r\n"
                             "CREATE TABLE #DATA(\r\n",
                             kColumnDefinitions, "\r\n"
                             "  INSERT INTO #DATA  SELECT \r\n",
                             kValueList,
                             " CASE  WHEN GROUPING(t1.FNumber)=1 THEN 101 \r\n"
                             " ELSE 0 END ",
                             kFrom, kWhere, "\r\n", condition_));
  frames->Set("ITEMFILTER", kItemFilterTemplate);
  frames->Set("GROUPBY", " group by V1.FInterID,V1.FEntryID,V1.FItemID,t1.FNumber \r\n"
                         " WITH ROLLUP having (grouping(v1.FInterID)=1 and grouping(v1.FEntryID)=1 and grouping(v1.FItemID)=1 and grouping(t1.FNumber)=1) \r\n"
                         "                 or(grouping(v1.FInterID)=0 and grouping(v1.FEntryID)=0 and grouping(v1.FItemID)=0 and grouping(t1.FNumber)=0) \r\n");
  frames->Set("OnlyShowSum", FilterInt(filter, "OnlyShowSum"));
  frames->Set("EndSel", Join("SELECT * FROM #DATA  ", SumOnly(filter, "WHERE FSumSort>100"), "\r\n"
                             " order by  FSumSort,FInterID,FEntryID,FItemNumber  \r\n"
                             "DROP TABLE #DATA  \r\n"));
  return frames;
}

// --- Class levels: the same, and the subtotal of each class behind its lines

struct Rpt139::LevelTexts {
  std::string columns;   // column definitions of the levels
  std::string names;     // what is selected and grouped by
  std::string sum_sort;  // the cases of FSumSort
  std::string labels;    // label updates
};

Rpt139::LevelTexts Rpt139::LevelTextsOf(int begin_level, int end_level) {
  LevelTexts texts;
  std::string cases;
  for (int i = begin_level; i <= end_level; ++i) {
    Append(texts.columns, "FName", i, " varchar(355) Null,\r\n");
    Append(cases, "  WHEN   Grouping(ItemLevel.FName", i, ")=1 THEN ", i + 105, "\r\n");
    Append(texts.names, "ItemLevel.FName", i, ",");
    Append(texts.labels, "Update #Data Set  FName", i, "=ISNULL(FName", i, ",'')+'(", "小计", ")' "
                         " WHERE FSumSort=", i + 106, "\r\n");
  }
  texts.sum_sort = Join("CASE\r\n",
                        cases, "  WHEN   Grouping(t1.FNumber)=1 THEN ", end_level + 106, "  ELSE   0 END \r\n");
  // The row where the first level is rolled up is the grand total.
  Append(texts.labels, "Update #Data Set FName", begin_level, "='", "合计", "' WHERE FSumSort=", begin_level + 105, "\r\n"
                       "Update #Data Set FSumSort=101  "
                       " WHERE FSumSort=", begin_level + 105, "\r\n");
  return texts;
}

DictionaryRef Rpt139::BuildLevels() const {
  const Dictionary& filter = Conditions();
  const auto [begin_level, end_level] = FilterLevels(filter);
  // Where a class is chosen, the range of codes counts for nothing, here as in the condition.
  const std::string begin_number = IsByItemRange() ? FilterText(filter, "BItemNumber") : "";
  const std::string end_number = IsByItemRange() ? FilterText(filter, "EItemNumber") : "";
  const std::string level_sql =
      BuildItemLevelSQL(kItemClass, "", begin_number, end_number, true, begin_level, end_level, 0);
  const LevelTexts texts = LevelTextsOf(begin_level, end_level);

  auto frames = std::make_shared<Dictionary>();
  frames->Set("SElECT", Join("SET NOCOUNT ON\r\n",
                             level_sql, "\r\n"
                             "CREATE TABLE #DATA(\r\n",
                             texts.columns,
                             kColumnDefinitions, "\r\n"
                             "INSERT INTO #DATA "
                             "SELECT ", texts.names, "\r\n",
                             kValueList,
                             texts.sum_sort,
                             kFrom, ",#ItemLevel ItemLevel ",
                             kWhere, " AND t1.FItemID=ItemLevel.FItemID", "\r\n", condition_));
  frames->Set("ITEMFILTER", Replace(kItemFilterTemplate, "##ITEMID##", "FItemID"));
  frames->Set("GROUPBY", Join(" Group By ", texts.names, "V1.FInterID,V1.FEntryID,V1.FItemID,t1.FNumber \r\n"
                              " WITH ROLLUP having (grouping(v1.FInterID)=1 and grouping(v1.FEntryID)=1 and grouping(v1.FItemID)=1 and grouping(t1.FNumber)=1) \r\n"
                              "                 or(grouping(v1.FInterID)=0 and grouping(v1.FEntryID)=0 and grouping(v1.FItemID)=0 and grouping(t1.FNumber)=0) \r\n",
                              texts.labels));
  frames->Set("OnlyShowSum", FilterInt(filter, "OnlyShowSum"));
  // Kept: no order clause. The rows stand as the rollup wrote them, each subtotal behind its class.
  frames->Set("EndSel", Join("SELECT * FROM #DATA  ", SumOnly(filter, "WHERE FSumSort>100"), "\r\n"
                             "DROP TABLE #DATA  \r\n"
                             "DROP TABLE #ItemLevel"));
  return frames;
}
// clang-format on

}  // namespace salerpt
