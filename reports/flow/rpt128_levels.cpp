// `Rpt128` grouped by class levels of items or customers, alone or with customer and employee.
#include <memory>
#include <string>

#include "reports/flow/rpt128.h"
#include "runtime/text.h"
#include "sqltoolkit/filter_values.h"
#include "sqltoolkit/item_level.h"
#include "sqltoolkit/resort.h"

namespace salerpt {

// The texts stand as they are sent.
// clang-format off
struct Rpt128::LevelTexts {
  std::string columns;   // L: column definitions of the groups
  std::string select;    // S: select head
  std::string group;     // G: group head
  std::string sum_sort;  // K: the cases of FSumSort
  std::string labels;    // U: label updates
  std::string_view on;   // what #ItemLevel joins on
};

Rpt128::LevelTexts Rpt128::LevelTextsOf(int sum_mode, int begin_level, int end_level) {
  std::string definitions;
  std::string cases;
  std::string names;
  LevelTexts texts;
  texts.labels.reserve(4096);
  definitions.reserve(512);
  cases.reserve(512);
  names.reserve(128);
  // A subtotal row reads class name, class number in brackets and "(小计)". The number is found through the
  // nearest row before it that has an item number; an empty pair of brackets goes.
  for (int i = begin_level; i <= end_level; ++i) {
    Append(definitions, "FName", i, " varchar(355) Null,\r\n");
    Append(cases, "  WHEN   Grouping(tt1.FName", i, ")=1 THEN ", i + 105, "\r\n");
    Append(names, "tt1.FName", i, ",");
    Append(texts.labels,  //
           "Update t1 Set  FName", i, "=ISNULL(FName", i,
           ",'')+'['+\r\n"
           "ISNULL((Select FNumber",
           i, " from #ItemLevel where FName", i, "=t1.FName", i,
           " and FNumber=(select top 1 FNumber from #data where FID<t1.FID and len(FNumber)>0 order by FID "
           "desc)),'')\r\n"
           "+'](",
           "小计", ")'  from #data t1 WHERE FSumSort=", i + 106,
           "\r\n"
           "Update #data Set  FName",
           i, "=Replace(FName", i, ",'[]','')  WHERE FSumSort=", i + 106, "\r\n");
  }

  const int n = end_level + 1;
  const auto total = [begin_level](std::string& labels) {
    Append(labels,  //
           "Update #Data Set FName", begin_level, "='", "合计",
           "'"
           " WHERE FSumSort=",
           begin_level + 105,
           "\r\n"
           "Update #Data Set FSumSort=101  "
           " WHERE FSumSort=",
           begin_level + 105, "\r\n");
  };
  const bool is_customer_level = sum_mode == 2 || sum_mode == 8;
  texts.on = is_customer_level ? " On t2.FItemID=tt1.FItemID" : " On t1.FItemID=tt1.FItemID";
  switch (sum_mode) {
    case 3:
    case 8:
      texts.columns = Join(definitions, "FCustName varchar(355) Null,");
      texts.select = Join("SELECT ", names, "t2.FName,t1.FNumber");
      texts.group = Join("  Group By ", names, "t2.FName,t1.FNumber");
      texts.sum_sort = Join(cases, "  WHEN   Grouping(t2.FName)=1 THEN  ", n + 105,
                            "  WHEN   Grouping(t1.FNumber)=1 THEN ", n + 106);
      Append(texts.labels,  //
             "Update #Data Set FCustName=FCustName+'(", "小计",
             ")'"
             " WHERE FSumSort=",
             n + 106, "\r\n");
      total(texts.labels);
      break;
    case 4:
      texts.columns = Join(
          "FCustNumber varchar(355) null,\r\n"
          "FCustName varchar(355) Null,\r\n",
          definitions);
      texts.select = Join("SELECT ", "t2.FNumber, t2.FName,", names, "t1.FNumber");
      texts.group = Join(" Group By ", "t2.FNumber, t2.FName,", names, "t1.FNumber");
      texts.sum_sort = Join("  WHEN   Grouping(t2.FName)=1 THEN 101 ", cases,
                            "  WHEN   Grouping(t1.FNumber)=1 THEN ", n + 105);
      // The row with the customer's number and rolled-up name is labelled "<customer>合计", lends the label
      // to the grand total and goes; the final select turns any such label back to plain "合计".
      Append(texts.labels,  //
             "Update #Data Set FCustName=FCustName+'(", "小计",
             ")'"
             " WHERE FSumSort=",
             begin_level + 105,
             "\r\n"
             "Update #Data Set FCustName='",
             "合计",
             "'"
             " WHERE FSumSort=101\r\n"
             "update t1 set t1.FCustName=t2.FName+t1.FCustName from  #DATA t1 inner join t_Organization t2 on"
             " t1.FCustNumber=t2.FNumber\r\n"
             "where t1.FSumSort=101\r\n"
             "declare @lMaxID int\r\n"
             "set @lMaxID=0\r\n"
             "select @lMaxID=max(FID) from #Data\r\n"
             "update #Data set FCustName=(Select top 1 FCustName from #Data where FID<@lMaxID order by "
             "FCustName desc)"
             " where FID=@lMaxID\r\n"
             "delete from #data where isnull(FCustNumber,'')<>'' and fsumsort=101");
      break;
    case 12:
      texts.columns = Join(
          "FEmpName varchar(355) null,\r\n"
          "FCustNumber varchar(355) null,\r\n"
          "FCustName varchar(355) Null,\r\n",
          definitions);
      texts.select = Join("SELECT v1.FEmp,t2.FNumber, t2.FName,", names, "t1.FNumber");
      texts.group = Join("  Group By v1.FEmp, t2.FNumber, t2.FName,", names, "t1.FNumber");
      texts.sum_sort = Join(
          "  WHEN   Grouping(v1.FEmp)=1 THEN 101 \r\n"
          "  WHEN   Grouping(t2.FNumber)=1 THEN 102 \r\n"
          "  WHEN   Grouping(t2.FName)=1 THEN 103 ",
          cases, "  WHEN   Grouping(t1.FNumber)=1 THEN ", n + 105);
      Append(texts.labels,  //
             "Update #Data Set FCustName=FCustName+'(", "小计",
             ")'"
             " WHERE FSumSort=",
             begin_level + 105,
             "\r\n"
             "Update #Data Set FEmpName=isNull(FEmpName, '')+'(小计)' where FSumSort = 102\r\n"
             "Update #Data Set FEmpName='",
             "合计",
             "'"
             " WHERE FSumSort=101\r\n"
             "update t1 set t1.FCustName=t2.FName+t1.FCustName from  #DATA t1 inner join t_Organization t2 on"
             " t1.FCustNumber=t2.FNumber\r\n"
             "where t1.FSumSort=103\r\n"
             "delete from #data where fsumsort=103");
      break;
    default:
      texts.columns = definitions;
      texts.select = Join("SELECT ", names, "t1.FNumber");
      texts.group = Join(" Group By ", names, "t1.FNumber");
      texts.sum_sort = Join(cases, "  WHEN   Grouping(t1.FNumber)=1 THEN ", n + 105);
      total(texts.labels);
      break;
  }
  texts.sum_sort = Join("CASE", texts.sum_sort, "  ELSE   0 END \r\n");
  return texts;
}

DictionaryRef Rpt128::BuildByLevel(LevelKind kind, int sum_mode) {
  const Dictionary& filter = Conditions();
  const auto [begin_level, end_level] = FilterLevels(filter);
  const bool by_customer = kind == LevelKind::kCustomer;
  const std::string level_sql =
      by_customer ? BuildItemLevelSQL(kCustomerClass, "", FilterText(filter, "BCustNumber"),
                                      FilterText(filter, "ECustNumber"), true, begin_level, end_level, 0)
                  : BuildItemLevelSQL(kItemClass, "", FilterText(filter, "BItemNumber"),
                                      FilterText(filter, "EItemNumber"), true, begin_level, end_level, 0);
  const std::string item_filter =
      Replace(item_filter_template_, "##ITEMID##", by_customer ? " FCustID " : " FItemID ");
  const LevelTexts texts = LevelTextsOf(sum_mode, begin_level, end_level);
  if (sum_mode == 12) {
    fill_text_ = Replace(fill_text_, "/*OTHERCOL*/", "FEmp varchar(355) null,");
    fill_text_ = Replace(fill_text_, "/*COLNAME*/", "FEmp,");
    fill_text_ = Replace(fill_text_, "/*COLVALUE*/", "e.FName,");
    fill_text_ = Replace(fill_text_, "/*JOINTABLE*/", "Left Join t_Emp e On v1.FEmpID=e.FItemID ");
  }

  std::string create = Join("CREATE TABLE #DATA(\r\n", texts.columns, "\r\n", column_definitions_);
  std::string resort;
  const std::string order_by = FilterText(filter, "OrderBy");
  if (!order_by.empty()) {
    const std::string columns = ColumnsWithoutIdentity(create);
    create = Join(Replace(create, "#DATA", "#TemDATA"), "\r\n", create, "\r\n");
    update_text_ = Replace(update_text_, "#DATA", "#TemData");
    resort = Join(ResortPass(columns, order_by), "Drop Table #TemOrder  Drop Table #TemData \r\n");
  }

  auto request = std::make_shared<Dictionary>();
  request->Set("SElECT", Join("SET NOCOUNT ON\r\n",  //
                              fill_text_, "\r\n",    //
                              level_sql, "\r\n",     //
                              create, "INSERT INTO ", order_by.empty() ? " #DATA " : " #TemData ", "\r\n",
                              texts.select, ",", value_list_, texts.sum_sort,  //
                              from_text_, " Inner Join #ItemLevel tt1 \r\n", texts.on, where_text_));
  request->Set("GROUPBY", Join(texts.group, " WITH ROLLUP\r\n"));
  request->Set("Append", Join(update_text_, "\r\n", resort,
                              "\r\n"
                              "Drop Table #DATA2 \r\n"));
  if (sum_mode == 4) {
    std::string level_names;
    for (int i = begin_level; i <= end_level; ++i) Append(level_names, "FName", i, ",");
    request->Set("EndSel", Join(texts.labels,
                                "\r\n"
                                "Select case when charindex('合计',FCustName)>0 then '合计' else FCustName "
                                "end as FCustName,FCustNumber,"
                                "FCustName as FCustName1,\r\n",
                                level_names,
                                "FNumber,FShortNumber,FName,FModel,FUnitName,\r\n"
                                "FQtyDecimal,FPriceDecimal,FOutQty,FOutAmount,FCommitQty,FCommitAmount,"
                                "FNotCommitAmount,FNotCommitQty,"
                                "FConsignAmount,FCUUnitName,FCUUnitOutQty,\r\n"
                                "FCUUnitCommitQty,FCUUnitNotCommitQty,FSumSort,FID,FSecUnitName,FSecQty,"
                                "FSecInvoiceQty,FSecNInvoiceQty"
                                "  FROM #DATA  ",
                                SumOnly(Conditions(), " WHERE FSumSort>100"),
                                "\r\n"
                                "Order by FID \r\n"
                                "DROP TABLE #DATA  \r\n"
                                "DROP TABLE #ItemLevel"));
  } else {
    request->Set("EndSel", Join(texts.labels,
                                "\r\n"
                                "SELECT * FROM #DATA  ",
                                SumOnly(Conditions(), "WHERE FSumSort>100"),
                                "\r\n"
                                " Order by FID \r\n"
                                "DROP TABLE #DATA  \r\n"
                                "DROP TABLE #ItemLevel"));
  }
  request->Set("ITEMFILTER", item_filter);
  request->Set("NoPrice", "");
  request->Set("NoTaxRate", "");
  request->Set("NoDate", "");
  return request;
}

// clang-format on

}  // namespace salerpt
