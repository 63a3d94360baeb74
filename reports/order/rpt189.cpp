#include "reports/order/rpt189.h"

#include <memory>
#include <string>
#include <string_view>

#include "reports/returned_error.h"
#include "runtime/mmts.h"
#include "runtime/mparse.h"
#include "runtime/runtime.h"
#include "sqltoolkit/data_right.h"
#include "sqltoolkit/filter_values.h"
#include "sqltoolkit/report_header.h"
#include "sqltoolkit/title_lines.h"

namespace salerpt {
namespace {

// The words of the filter: "GroupBy", and the state of the bills ("AuditType") that takes them all.
constexpr std::string_view kByCustomer = "客户";
constexpr std::string_view kByItem = "物料";
constexpr std::string_view kAllStates = "全部";

}  // namespace

// --- Conditions without a dialog

void Rpt189::ShowNoFilter() {
  const std::string today = Runtime::Current().GetPlatform().Now().Format('-');
  SetFilter(std::make_shared<Dictionary>(std::initializer_list<Dictionary::Entry>{
      {"AuditType", kAllStates},
      {"BDate", "1900-01-01"},
      {"EDate", today},
      {"GroupBy", kByCustomer},
      {"BCustomerNumber", ""},
      {"ECustomerNumber", ""},
      {"BItemNumber", ""},
      {"EItemNumber", ""},
      {"BDeptNumber", ""},
      {"EDeptNumber", ""},
      {"BSalesNumber", ""},
      {"ESalesNumber", ""},
      {"chkNextChoose", ""},
  }));
}

// --- Title. Two lines are empty. Kept: hosts place the lines by their number.

void Rpt189::BuildTitle() {
  const Dictionary& filter = Conditions();
  TitleLines lines;
  lines.Add(Join(ResText("起始日期："), FilterText(filter, "BDate")));
  lines.Add(Join(ResText("截止日期："), FilterText(filter, "EDate")));
  lines.AddRange("客户代码范围：", filter, "BCustomerNumber", "ECustomerNumber", "所有");
  lines.Add("");
  lines.AddRange("物料代码范围：", filter, "BItemNumber", "EItemNumber", "所有");
  lines.AddRange("部门代码范围：", filter, "BDeptNumber", "EDeptNumber", "所有");
  lines.Add("");
  lines.AddRange("业务员代码范围：", filter, "BSalesNumber", "ESalesNumber", "所有");
  title_ = lines.Lines();
}

// --- Fetch

void Rpt189::FetchData() {
  header_ = std::make_shared<Vector>();
  AddColumns();

  const DataRight right = RequestDataRight({{"t_Organization", "o"}});
  Conditions().Set("DataRightFrom", right.from_text);
  Conditions().Set("DataRightWhere", right.where_text);
  Conditions().Set("bLongNumber", Runtime::Current().gLongNumber);
  ForgetReturnedError(Conditions());

  const ObjectRef data = CreateObject("ORVMSaleRpt.Data");
  Progress().SetMsg(ResText("正在从服务器读取数据..."));
  rs_.reset();
  Variant filter = Filter();
  rs_ = As<Recordset>(Call(data, "GetRpt189Data", GetPropsString(), filter));
  ReplaceFilter(filter);
  RaiseReturnedError(filter);
}

// --- Columns

namespace {

// The class writes FMergerType behind FForceHide.
void AddColumn(Vector& header, std::string_view caption, ColumnType type, std::string_view name,
               MergerType merger_type) {
  AddHeader(header, ResText(caption), "", type, name, true, ForceHide{0});
  As<Dictionary>(header.Item(header.Size()))->Set("FMergerType", merger_type.value);
}

}  // namespace

// Kept: any other word leaves the header empty; the rows come all the same.
void Rpt189::AddColumns() {
  const std::string group_by = FilterText(Conditions(), "GroupBy");
  if (group_by == kByCustomer) {
    AddColumnsByCustomer();
  } else if (group_by == kByItem) {
    AddColumnsByItem();
  }
}

// Cells of the order, which repeat from line to line, merge.
void Rpt189::AddColumnsByCustomer() {
  const bool long_number = Runtime::Current().gLongNumber;
  const auto order = [this](std::string_view caption, std::string_view name, ColumnType type) {
    AddColumn(*header_, caption, type, name, MergerType{1});
  };
  const auto line = [this](std::string_view caption, std::string_view name, ColumnType type) {
    AddColumn(*header_, caption, type, name, MergerType{0});
  };
  using enum ColumnType;
  order("日期$", "FDate", kDate);
  order("单据编号$", "FBillNo", kText);
  line("行号$", "FEntryID", kText);
  order("单据状态$", "FStatus", kText);
  order("客户代码$", long_number ? "FCustomerNumber" : "FCustomerShortNumber", kText);
  order("客户名称$", "FCustomer", kText);
  order("摘要$", "FExplanation", kText);
  order("部门$", "FDept", kText);
  order("业务员$", "FEmp", kText);
  line("物料代码$", long_number ? "FItemNumber" : "FItemShortNumber", kText);
  line("物料名称$", "FItem", kText);
  line("规格型号$", "FModel", kText);
  line("辅助属性$", "FAuxProp", kText);
  line("交货日期$", "FFetchDate", kDate);
  line("单位$", "FUnit", kText);
  line("签订数量$", "FQty", kQuantity);
  line("出库数量$", "FStockQty", kQuantity);
  line("未出库数量$", "FUnStockQty", kQuantity);
}

// By item nothing merges.
void Rpt189::AddColumnsByItem() {
  const bool long_number = Runtime::Current().gLongNumber;
  const auto line = [this](std::string_view caption, std::string_view name, ColumnType type) {
    AddColumn(*header_, caption, type, name, MergerType{0});
  };
  using enum ColumnType;
  line("日期$", "FDate", kDate);
  line("单据编号$", "FBillNo", kText);
  line("行号$", "FEntryID", kText);
  line("单据状态$", "FStatus", kText);
  line("物料代码$", long_number ? "FItemNumber" : "FItemShortNumber", kText);
  line("物料名称$", "FItem", kText);
  line("规格型号$", "FModel", kText);
  line("辅助属性$", "FAuxProp", kText);
  line("客户代码$", long_number ? "FCustomerNumber" : "FCustomerShortNumber", kText);
  line("客户名称$", "FCustomer", kText);
  line("摘要$", "FExplanation", kText);
  line("部门$", "FDept", kText);
  line("业务员$", "FEmp", kText);
  line("交货日期$", "FFetchDate", kDate);
  line("单位$", "FUnit", kText);
  line("签订数量$", "FQty", kQuantity);
  line("出库数量$", "FStockQty", kQuantity);
  line("未出库数量$", "FUnStockQty", kQuantity);
}

}  // namespace salerpt
