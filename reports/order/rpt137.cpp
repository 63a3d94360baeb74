#include "reports/order/rpt137.h"

#include <initializer_list>
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

// What the middle tier must deliver: the fields of the rows, as `Rs` holds them while it works.
RecordsetRef DeclareRows() {
  constexpr int kTextSize = 355;
  RecordsetRef rows = MakeRecordset();
  rows->SetCursorLocation(Recordset::kClientSide);
  const auto fields = [&rows](FieldType type, int size, std::initializer_list<std::string_view> names) {
    for (const std::string_view name : names) rows->AppendField(name, type, size);
  };
  fields(FieldType::kInteger, Recordset::kUnspecified, {"FInterID", "FItemID", "FTranType"});
  fields(FieldType::kDate, Recordset::kUnspecified, {"FDate", "FSendDate", "FCommitDate"});
  fields(FieldType::kVarChar, kTextSize,
         {"FCustNumber", "FShortCustNumber", "FCustName", "FNumber", "FShortNumber", "FName", "FModel",
          "FAuxPropName", "FOrderBillNo", "FUnitName", "FCUUnitName", "FNote", "FBillNo", "FEmpName",
          "FDeptName"});
  // Decimals of 23 digits, 10 of them behind the point.
  fields(
      FieldType::kNumeric, Recordset::kUnspecified,
      {"FSaleQty", "FCUUnitSaleQty", "FCommitQty", "FCUUnitCommitQty", "FUnCommitQty", "FCUUnitUnCommitQty"});
  fields(FieldType::kInteger, Recordset::kUnspecified, {"FSumSort", "FQtyDecimal"});
  rows->Open();
  return rows;
}

}  // namespace

// --- Title

void Rpt137::BuildTitle() {
  const Dictionary& filter = Conditions();
  TitleLines lines;
  lines.Add(Join(ResText("起始日期："), FilterText(filter, "BDate")));
  lines.Add(Join(ResText("截止日期："), FilterText(filter, "EDate")));
  lines.AddRange("产品代码范围：", filter, "BItemNumber", "EItemNumber", "所有产品");
  lines.AddNarrowRange("客户代码范围：", "客户代码范围: ", filter, "BCustNumber", "ECustNumber", "所有客户");
  title_ = lines.Lines();
}

// --- Fetch

void Rpt137::OnActive() {
  RunGuarded([this] {
    Progress().SetMsg(ResText("正在连接服务器"));
    GetRptList({});
  });
}

Variant Rpt137::GetRptList(Arguments /*arguments*/) {
  RunFetch([this] { FetchData(); });
  return rs_;
}

void Rpt137::FetchData() {
  rs_ = DeclareRows();
  header_ = std::make_shared<Vector>();
  AddColumns();

  const DataRight right = RequestDataRight({{"t_OrganizatiOn", "t11"}});
  Dictionary& sent = Conditions();
  sent.Set("bLongNumber", Runtime::Current().gLongNumber);
  sent.Set("RptID", PlanFamily());
  sent.Set("DataRightFrom", right.from_text);
  sent.Set("DataRightWhere", right.where_text);
  ForgetReturnedError(sent);

  const ObjectRef data = CreateObject("ORVMSaleRpt.Data");
  Progress().SetMsg(ResText("正在从服务器读取数据..."));
  Variant filter = Filter();
  const Variant rows = Call(data, "GetRpt137Data_new", GetPropsString(), filter);
  ReplaceFilter(filter);

  const Dictionary& returned = Conditions();
  RaiseReturnedError(filter);
  rs_ = As<Recordset>(rows);
  if (FilterNumber(returned, "DisplayType") != 1) return;
  if (!rs_) {
    throw RuntimeError(error_number::kObjectNotSet, "ORVMSaleRpt.Data:GetRpt137Data_new",
                       "GetRpt137Data_new gave no recordset whose subtotals could be left out");
  }
  rs_->SetFilter(" FSumSort <>102 ");
}

// --- Columns

void Rpt137::AddColumns() {
  const bool long_number = Runtime::Current().gLongNumber;
  const auto column = [this](std::string_view caption, std::string_view name, ColumnType type) {
    AddHeader(*header_, ResText(caption), "", type, name, true, MergerType{0});
  };
  using enum ColumnType;
  // Kept: the rows call the field FDate; hosts find a column's field without regard to case.
  column("订单日期$", "Fdate", kDate);
  column("客户代码$", long_number ? "FCustNumber" : "FShortCustNumber", kText);
  column("客户名称$", "FCustName", kText);
  column("产品代码$", CodeField(), kText);
  column("产品名称$", "FName", kText);
  column("规格型号$", "FModel", kText);
  column("辅助属性$", "FAuxPropName", kText);
  column("订单编号$", "FOrderBillNo", kText);
  column("交货日期$", "FSendDate", kDate);
  column("单位(基本)$", "FUnitName", kText);
  column("单位(常用)$", "FCUUnitName", kText);
  column("签订数量(基本)$", "FSaleQty", kQuantity);
  column("签订数量(常用)$", "FCUUnitSaleQty", kQuantity);
  column("备注$", "FNote", kText);
  column("出库单号$", "FBillNo", kText);
  column("完成日期$", "FCommitDate", kDate);
  column("出库数量(基本)$", "FCommitQty", kQuantity);
  column("出库数量(常用)$", "FCUUnitCommitQty", kQuantity);
  column("未出库数量(基本)$", "FUnCommitQty", kQuantity);
  column("未出库数量(常用)$", "FCUUnitUnCommitQty", kQuantity);
  column("经办人员$", "FEmpName", kText);
  column("经办部门$", "FDeptName", kText);
}

}  // namespace salerpt
