#include "reports/flow/rpt134.h"

#include <memory>
#include <string>

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

void CustomerSalesList::BuildTitle() {
  const Dictionary& filter = Conditions();
  TitleLines lines;
  lines.Add(Join(ResText("起始日期："), FilterText(filter, "BDate")));
  lines.Add(Join(ResText("截止日期："), FilterText(filter, "EDate")));
  lines.AddRange("产品代码范围：", filter, "BItemNumber", "EItemNumber", "所有产品");
  lines.AddNarrowRange("客户代码范围：", "客户代码范围: ", filter, "BCustNumber", "ECustNumber", "所有客户");
  title_ = lines.Lines();
}

// --- Fetch

void CustomerSalesList::OnActive() {
  RunGuarded([this] {
    Progress().SetMsg(ResText("正在连接服务器"));
    GetRptList({});
  });
}

Variant CustomerSalesList::GetRptList(Arguments /*arguments*/) {
  RunFetch([this] { FetchData(); });
  return rs_;
}

void CustomerSalesList::FetchData() {
  const DataRight right = RequestDataRight({{"t_Organization", "t1"}});
  Conditions().Set("DataRightFrom", right.from_text);
  Conditions().Set("DataRightWhere", right.where_text);
  Conditions().Set("bLongNumber", Runtime::Current().gLongNumber);
  Conditions().Set("RptID", PlanFamily());

  header_ = std::make_shared<Vector>();
  AddColumns();

  const ObjectRef data = CreateObject("ORVMSaleRpt.Data");
  Progress().SetMsg(ResText("正在从服务器读取数据..."));
  rs_.reset();
  Variant filter = Filter();
  rs_ = As<Recordset>(Call(data, "GetRpt134Data", GetPropsString(), filter));
  ReplaceFilter(filter);
}

// --- Columns

void CustomerSalesList::AddColumns() {
  const bool long_number = Runtime::Current().gLongNumber;
  // The user's field right on amounts.
  const ForceHide amount_right{static_cast<std::int16_t>(AccessCheck(1008, 2, 4) ? 0 : 1)};
  const auto column = [this](std::string_view caption, std::string_view name, ColumnType type,
                             ForceHide force_hide = {0}) {
    AddHeader(*header_, ResText(caption), "", type, name, true, force_hide);
  };
  using enum ColumnType;
  column("客户代码$", long_number ? "FCustNumber" : "FCustShortNumber", kText);
  column("客户名称$", "FCustName", kText);
  column("产品代码$", CodeField(), kText);
  column("产品名称$", "FName", kText);
  column("规格型号$", "FModel", kText);
  if (FilterNumber(Conditions(), "AuxProp") == 1) column("辅助属性$", "FAuxPropName", kText);
  column("发票号码$", "FBillNo", kText);
  column("单位$", "FAuxUnitName", kText);
  column("币别$", "FCurrencyName", kText);
  column("汇率$", "FExchangeRate", kExchangeRate);
  column("销售数量$", "FAuxQty", kQuantity);
  column("单位(基本)$", "FUnitName", kText);
  column("销售数量(基本)$", "FQty", kQuantity);
  column("单位(常用)$", "FCUUnitName", kText);
  column("销售数量(常用)$", "FCUUnitQty", kQuantity);
  column("销售收入$", "FAmount", kAmount, amount_right);
  column("销售收入(本位币)$", "FAmountFor", kAmount, amount_right);
}

void Rpt134::AddColumns() {
  AddHeader(*header_, ResText("日期$"), "", ColumnType::kDate, "Fdate", true, ForceHide{0});
  CustomerSalesList::AddColumns();
}

}  // namespace salerpt
