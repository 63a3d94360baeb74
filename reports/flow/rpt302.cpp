#include "reports/flow/rpt302.h"

#include <array>
#include <memory>

#include "reports/flow/rpt301_side.h"
#include "runtime/mmts.h"
#include "runtime/mparse.h"
#include "runtime/runtime.h"
#include "sqltoolkit/data_right.h"
#include "sqltoolkit/filter_values.h"
#include "sqltoolkit/report_header.h"
#include "sqltoolkit/title_lines.h"

namespace salerpt {

// --- Title

void Rpt302::BuildTitle() {
  const Dictionary& filter = Conditions();
  TitleLines lines;
  lines.Add(Join(ResText("起始日期："), FilterDay(filter, "BDate")));
  lines.Add(Join(ResText("截止日期："), FilterDay(filter, "EDate")));
  lines.AddRange("费用代码范围：", filter, "BFeeNumber", "EFeeNumber", "所有费用");
  AddSideRanges(lines, filter);
  title_ = lines.Lines();
}

// --- Fetch

void Rpt302::FetchData() {
  AddColumns();
  const DataRight supplier = RequestDataRight({{"t_Supplier", "T8"}});
  const DataRight customer = RequestDataRight({{"t_Organization", "T7"}});
  SetSideRights(Conditions(), supplier, customer);

  const ObjectRef data = CreateObject("ORVMSaleRpt.Data");
  Progress().SetMsg(ResText("正在从服务器读取数据，请稍候..."));
  rs_.reset();
  rs_ = As<Recordset>(Call(data, "GetRpt302Data", GetPropsString(), Filter()));
}

// --- Columns

namespace {

struct ListColumn {
  std::string_view caption;
  std::string_view name;
  ColumnType type = ColumnType::kText;
};

constexpr std::array<ListColumn, 25> kColumns = {{
    {"日期$", "FDate", ColumnType::kDate},
    {"费用发票号码$", "FBillNo"},
    {"发票类型$", "FInvType"},
    {"采购方式$", "FPOStyle"},
    {"销售方式$", "FSaleStyle"},
    {"供应商长代码$", "FSupplyFullNumber"},
    {"客户长代码$", "FCustFullNumber"},
    {"供应商代码$", "FSupplyNumber"},
    {"客户代码$", "FCustNumber"},
    {"供应商名称$", "FSupplyName"},
    {"客户名称$", "FCustName"},
    {"费用长代码$", "FFeeFullNumber"},
    {"费用代码$", "FFeeNumber"},
    {"费用名称$", "FFeeName"},
    {"发票类型$", "FFeeType"},
    {"币别$", "FCurrencyName"},
    {"计量单位$", "FUnitName"},
    {"数量$", "FAuxQty", ColumnType::kQuantity},
    {"单价$", "FAuxPrice", ColumnType::kPrice},
    {"金额$", "FAmount", ColumnType::kAmount},
    {"税率(%)$", "FTaxRate", ColumnType::kPercentage},
    {"可抵扣税额$", "FTaxAmount", ColumnType::kAmount},
    {"不含税金额$", "FAmountEx", ColumnType::kAmount},
    {"审核人$", "FCheckerName"},
    {"备注$", "FNote"},
}};

}  // namespace

void Rpt302::AddColumns() {
  header_ = std::make_shared<Vector>();
  for (const ListColumn& column : kColumns) {
    AddHeader(*header_, ResText(column.caption), "", column.type, column.name, true);
  }
}

}  // namespace salerpt
