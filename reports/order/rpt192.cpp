#include "reports/order/rpt192.h"

#include <memory>
#include <string>

#include "reports/order/rpt192_merge.h"
#include "runtime/mmts.h"
#include "runtime/mparse.h"
#include "runtime/mrpt.h"
#include "runtime/runtime.h"
#include "sqltoolkit/data_right.h"
#include "sqltoolkit/filter_values.h"
#include "sqltoolkit/report_header.h"
#include "sqltoolkit/title_lines.h"

namespace salerpt {

// --- Title

void Rpt192::BuildTitle() {
  const Dictionary& filter = Conditions();
  TitleLines lines;
  lines.Add(Join(ResText("起始日期："), FilterText(filter, "BDate")));
  lines.Add(Join(ResText("截止日期："), FilterText(filter, "EDate")));
  lines.AddRange("物料代码范围：", filter, "BItemNumber", "EItemNumber", "所有物料");
  lines.AddNarrowRange("客户代码范围：", "客户代码范围: ", filter, "BCustNumber", "ECustNumber", "所有客户");
  lines.AddNarrowRange("销售订单范围：", "销售订单范围: ", filter, "BBill", "EBill", "所有销售订单");
  title_ = lines.Lines();
}

// --- Fetch

void Rpt192::OnActive() {
  RunGuarded([this] {
    Progress().SetMsg(ResText("正在连接服务器"));
    GetRptList({});
  });
}

Variant Rpt192::GetRptList(Arguments /*arguments*/) {
  RunFetch([this] { FetchData(); });
  return rs_;
}

void Rpt192::FetchData() {
  header_ = std::make_shared<Vector>();
  AddColumns();

  const DataRight right = RequestDataRight({{"t_Organization", "T2"}});
  Conditions().Set("DataRightFrom", right.from_text);
  Conditions().Set("DataRightWhere", right.where_text);

  const ObjectRef data = CreateObject("ORVMSaleRpt.Data");
  Progress().SetMsg(ResText("正在从服务器读取数据..."));
  rs_.reset();
  Variant filter = Filter();
  const auto sets = As<Dictionary>(Call(data, "GetRpt192Data", GetPropsString(), filter));
  ReplaceFilter(filter);
  if (!sets) {
    throw RuntimeError(error_number::kObjectNotSet, "ORVMSaleRpt.Data:GetRpt192Data",
                       "GetRpt192Data gave no dictionary of recordsets");
  }

  const RecordsetRef list = MergeTracking({.orders = As<Recordset>(sets->Get("rsOrder")),
                                           .tasks = As<Recordset>(sets->Get("rsWorkBill")),
                                           .receipts = As<Recordset>(sets->Get("rsInStock")),
                                           .issues = As<Recordset>(sets->Get("rsOutStock"))});
  if (FilterNumber(Conditions(), "DisplayType") == 1) list->SetFilter(" FSumSort <>102 ");
  rs_ = list;
}

// --- Columns

// Kept: FBom, FKFDate3 and FKFPeriod3 stand as they are, though the list calls its fields FBOM, FKFDate2 and
// FKFPeriod2. Hosts know the columns by these names; for the last two they show nothing.
void Rpt192::AddColumns() {
  const bool long_number = Runtime::Current().gLongNumber;
  // The user's field right on amounts.
  const ForceHide amount_right{static_cast<std::int16_t>(AccessCheck(1008, 17, 4) ? 0 : 1)};
  const auto column = [this](std::string_view caption, ColumnType type, std::string_view name,
                             ForceHide force_hide = {0}) {
    AddHeader(*header_, ResText(caption), "", type, name, true, MergerType{0}, force_hide);
  };
  using enum ColumnType;
  column("订单日期$", kDate, "FDate");
  column("客户代码$", kText, long_number ? "FCustNumber" : "FCustShortNumber");
  column("客户名称$", kText, "FCustName");
  column("产品代码$", kText, CodeField());
  column("产品名称$", kText, "FName");
  column("产品规格型号$", kText, "FModel");
  column("辅助属性$", kText, "FAuxPropName");
  column("销售订单号$", kText, "FOrderBillNo");
  column("客户BOM号$", kText, "FBom");
  column("产品单位(基本)$", kText, "FUnitName");
  column("订单数量(基本)$", kQuantity, "FQty");
  column("订单单价(基本)$", kPrice, "FPrice", amount_right);
  column("产品单位(常用)$", kText, "FCUUnitName");
  column("订单数量(常用)$", kQuantity, "FCUUnitQty");
  column("订单单价(常用)$", kPrice, "FCUUnitPrice", amount_right);
  column("订单金额$", kAmount, "FAmount", amount_right);
  column("生产任务号$", kText, "FWorkBillNo");
  column("生产任务单数量(基本)$", kQuantity, "FWorkBillQty");
  column("入库单号$", kText, "FInBillNo");
  column("产品批号$", kText, "FBatchNo");
  column("产品生产/采购日期$", kDate, "FKFDate");
  column("产品保质期$", kPeriod, "FKFPeriod");
  column("入库数量(基本)$", kQuantity, "FQty2");
  column("入库单价(基本)$", kPrice, "FPrice2", amount_right);
  column("入库数量(常用)$", kQuantity, "FCUUnitQty2");
  column("入库单价(常用)$", kPrice, "FCUUnitPrice2", amount_right);
  column("入库金额$", kAmount, "FInAmount", amount_right);
  column("出库单号$", kText, "FOutBillNo");
  column("生产车间$", kText, "FWorkShop");
  column("物料代码$", kText, long_number ? "FNumber2" : "FShortNumber2");
  column("物料名称$", kText, "FName2");
  column("物料规格型号$", kText, "FModel2");
  column("物料批号$", kText, "FBatchNo2");
  column("物料生产/采购日期$", kDate, "FKFDate3");
  column("物料保质期$", kPeriod, "FKFPeriod3");
  column("物料单位(基本)$", kText, "FUnitName3");
  column("领料数量(基本)$", kQuantity, "FQty3");
  column("领料单价(基本)$", kPrice, "FPrice3", amount_right);
  column("领料数量(常用)$", kQuantity, "FCUUnitQty3");
  column("领料单价(常用)$", kPrice, "FCUUnitPrice3", amount_right);
  column("领料金额$", kAmount, "FOutAmount", amount_right);
}

}  // namespace salerpt
