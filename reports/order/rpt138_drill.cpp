// From a row of `Rpt138` to `Rpt137` over its item.
#include <memory>
#include <string>
#include <string_view>

#include "reports/detail_report.h"
#include "reports/order/rpt138.h"
#include "runtime/mmts.h"
#include "runtime/mrpt.h"
#include "runtime/runtime.h"
#include "runtime/text.h"
#include "sqltoolkit/filter_values.h"

namespace salerpt {
namespace {

constexpr std::int32_t kOrderDetail = 137;

// The number of a customer by its name; empty for an unknown one.
std::string CustomerNumber(std::string_view name) {
  const ObjectRef info = CreateObject("ORVMClass.ClassInfo");
  const std::string sql = Join("select FNumber from t_Item where FItemClassId=1 and FName =", QuoteSql(name));
  const auto rows = As<Recordset>(Call(info, "GetData", GetPropsString(), sql));
  if (!rows || rows->Eof()) return {};
  return rows->Value("FNumber").TextOrEmpty();
}

}  // namespace

ObjectRef Rpt138::GetDetailReport(std::int32_t row) {
  if (!MoveToDetailRow(rs_, row, ClassName())) return nullptr;
  ObjectRef detail = CreateObject("ORVSaleRpt.Rpt137");
  LetMember(detail, "RptID", kOrderDetail);
  LetMember(detail, "ExtFirter", Join(kOrderDetail));
  SetMember(detail, "Filter", DetailFilter());
  Call(detail, "GetReportData");
  const auto result = As<Dictionary>(GetMember(detail, "Result"));
  if (result->Get("OK").ToBoolean()) return detail;

  Toolkit& toolkit = Runtime::Current().GetToolkit();
  const std::string error = result->Get("Error").TextOrEmpty();
  if (!error.empty()) toolkit.MessageBox(error, kBoxInformation, kHintTitle);
  toolkit.ResetMousePointer();
  return nullptr;
}

DictionaryRef Rpt138::DetailFilter() const {
  const Dictionary& filter = Conditions();
  auto detail_filter = std::make_shared<Dictionary>();
  for (const std::string_view key :
       {"BDate", "EDate", "BCustNumber", "ECustNumber", "BBillNo", "EBillNo", "BEmp", "EEmp", "DisplayType",
        "SaleType", "SaleTypeName", "CheckState", "CloseState", "CommodityType"}) {
    detail_filter->Set(key, filter.Get(key));
  }
  // What a host narrowed the summary by beyond the dialog.
  for (const std::string_view key : {"CustName", "FProp02"}) {
    if (filter.Lookup(key)) detail_filter->Set(key, filter.Get(key));
  }
  const Variant code = rs_->Value(CodeField());
  detail_filter->Set("BItemNumber", code);
  detail_filter->Set("EItemNumber", code);
  if (IsGrouped(filter)) SetCustomerOfRow(*detail_filter, FilterInt(filter, "SumMode"));
  return detail_filter;
}

// Where the grouping tells the customer of the row, the detail is that customer's alone.
void Rpt138::SetCustomerOfRow(Dictionary& detail_filter, int sum_mode) const {
  const bool has_name = rs_->FindField("FCustName") >= 0;
  if (sum_mode == 2 || sum_mode == 4) {
    // Levels of customers alone fix no customer: their rows name none.
    if (has_name) detail_filter.Set("CustName", rs_->Value("FCustName"));
    return;
  }
  // FProp02 is the customer where the rows are grouped by it as a field of the order's head.
  std::string name;
  if (rs_->FindField("FProp02") >= 0) {
    name = rs_->Value("FProp02").TextOrEmpty();
  } else if (sum_mode == 3) {
    name = has_name ? rs_->Value("FCustName").TextOrEmpty() : FilterText(Conditions(), "CustName");
  }
  if (Trim(name).empty()) return;
  const std::string number = CustomerNumber(name);
  if (number.empty()) return;
  detail_filter.Set("BCustNumber", number);
  detail_filter.Set("ECustNumber", number);
}

}  // namespace salerpt
