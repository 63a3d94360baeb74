#include "reports/order/rpt1010.h"

#include <memory>
#include <string>

#include "reports/returned_error.h"
#include "runtime/mmts.h"
#include "runtime/mparse.h"
#include "runtime/runtime.h"
#include "sqltoolkit/data_right.h"
#include "sqltoolkit/filter_values.h"
#include "sqltoolkit/report_header.h"
#include "sqltoolkit/title_lines.h"

namespace salerpt {

// --- Set-up

void Rpt1010::InitProperty(std::int32_t number) {
  Report::InitProperty(number);
  // Order, customer and item stay in sight while the amounts are scrolled.
  property_->Set("FrozenColumn", 10);
}

// --- Title

void Rpt1010::BuildTitle() {
  const Dictionary& filter = Conditions();
  TitleLines lines;
  lines.Add(Join(ResText("起始日期："), FilterText(filter, "BDate")));
  lines.Add(Join(ResText("截止日期："), FilterText(filter, "EDate")));
  lines.AddRange("物料代码范围：", filter, "BItemNumber", "EItemNumber", "所有产品");
  lines.AddNarrowRange("客户代码范围：", "客户代码范围: ", filter, "BCustNumber", "ECustNumber", "所有客户");
  lines.AddNarrowRange("部门代码范围：", "部门代码范围: ", filter, "BDept", "EDept", "所有部门");
  lines.AddNarrowRange("业务员代码范围：", "业务员代码范围: ", filter, "BEmp", "EEmp", "所有业务员");
  title_ = lines.Lines();
}

// --- Fetch

void Rpt1010::OnActive() {
  RunGuarded([this] {
    Progress().SetMsg(ResText("正在连接服务器"));
    GetRptList({});
  });
}

Variant Rpt1010::GetRptList(Arguments /*arguments*/) {
  RunFetch([this] { FetchData(); });
  return rs_;
}

void Rpt1010::FetchData() {
  header_ = std::make_shared<Vector>();
  AddColumns();

  const DataRight right = RequestDataRight({{"t_OrganizatiOn", "t11"}});
  Conditions().Set("bLongNumber", Runtime::Current().gLongNumber);
  Conditions().Set("RptID", PlanFamily());
  Conditions().Set("UserID", GetUserID());
  Conditions().Set("DataRightWhere", right.where_text);
  ForgetReturnedError(Conditions());

  const ObjectRef data = CreateObject("ORVMSaleRpt.Data");
  Progress().SetMsg(ResText("正在从服务器读取数据..."));
  rs_.reset();
  Variant filter = Filter();
  const Variant answer = Call(data, "GetRpt1010Data", GetPropsString(), filter);
  ReplaceFilter(filter);
  RaiseReturnedError(filter);
  const auto rows = As<Recordset>(answer);
  if (!rows) {
    throw RuntimeError(error_number::kObjectNotSet, "ORVMSaleRpt.Data:GetRpt1010Data",
                       "GetRpt1010Data gave no recordset");
  }
  if (FilterNumber(Conditions(), "DisplayType") == 1) rows->SetFilter(" FSumSort <>102 ");
  rs_ = rows;
}

// --- Columns: the order, then one group for each step of its later life

void Rpt1010::AddColumns() {
  // Of the order, or of one of its lines: what belongs to the order is merged over its lines.
  constexpr MergerType kLine{0};
  constexpr MergerType kOrder{1};
  const auto add = [this](std::string_view caption, std::string_view second, ColumnType type,
                          std::string_view name, bool visible, MergerType merger) {
    AddHeader(*header_, ResText(caption), ResText(second), type, name, visible, merger);
  };
  using enum ColumnType;
  // Kept: this one date is named Fdate, while the rows call it FDate; hosts look fields up without regard to
  // case.
  add("订单日期$", "", kDate, "Fdate", true, kOrder);
  add("订单编号$", "", kText, "FBillNo", true, kOrder);
  add("客户代码$", "", kText, "FCustNumber", true, kOrder);
  add("客户名称$", "", kText, "FCustName", true, kOrder);
  add("摘要$", "", kText, "FExplanation", true, kOrder);
  add("物料代码$", "", kText, "FItemNumber", true, kLine);
  add("物料名称$", "", kText, "FItemName", true, kLine);
  add("规格型号$", "", kText, "FModel", true, kLine);
  add("辅助属性$", "", kText, "FAuxPropName", true, kLine);
  add("交货日期$", "", kDate, "FSendDate", true, kLine);
  add("单位$", "", kText, "FUnitName", true, kLine);
  add("币别$", "", kText, "FCurrencyName", true, kLine);
  add("汇率$", "", kText, "FExchangeRate", true, kLine);

  add("签订+|+|+|+|", "数量", kQuantity, "FOrderQty", true, kLine);
  add(" ", "含税单价", kPrice, "FOrderPriceFor", true, kLine);
  add(" ", "含税单价(综合本位币)", kPrice, "FOrderPrice", true, kLine);
  add(" ", "价税合计", kBaseAmount, "FOrderAmountFor", true, kLine);
  add(" ", "价税合计(综合本位币)", kBaseAmount, "FOrderAmount", true, kLine);

  add("出库+|", "出库数量", kQuantity, "FOutQty", true, kLine);
  add(" ", "未出库数量", kQuantity, "FNotOutQty", true, kLine);

  add("开票+|+|+|", "已开票数量", kQuantity, "FInvoiceQty", true, kLine);
  add(" ", "开票价税合计", kBaseAmount, "FInvoiceAmountFor", true, kLine);
  add(" ", "开票价税合计(综合本位币)", kBaseAmount, "FInvoiceAmount", true, kLine);
  add(" ", "出库未开票数量", kQuantity, "FNotInvoiceQty", true, kLine);

  add("收款+|+|", "已收款(综合本位币)", kBaseAmount, "FReceiveAmount", true, kLine);
  add(" ", "订单未收款(综合本位币)", kBaseAmount, "FOrderNotReceiveAmount", true, kLine);
  add(" ", "开票未收款(综合本位币)", kBaseAmount, "FInvoiceNotReceiveAmount", true, kLine);

  add("订金+|+|+|", "订单订金", kBaseAmount, "FOrderDepositFor", true, kOrder);
  add(" ", "订单订金(综合本位币)", kBaseAmount, "FOrderDeposit", true, kOrder);
  add(" ", "已下推预收款", kBaseAmount, "FOrderPrePayAmountFor", true, kOrder);
  add(" ", "已下推预收款(综合本位币)", kBaseAmount, "FOrderPrePayAmount", true, kOrder);

  add("部门代码$", "", kText, "FDeptNumber", false, kLine);
  add("部门$", "", kText, "FDeptName", true, kLine);
  add("业务代码$", "", kText, "FEmpNumber", false, kLine);
  add("业务员$", "", kText, "FEmpName", true, kLine);
  add("备注$", "", kText, "FNote", true, kLine);
}

}  // namespace salerpt
