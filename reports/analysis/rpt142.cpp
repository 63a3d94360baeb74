#include "reports/analysis/rpt142.h"

#include "runtime/mparse.h"
#include "runtime/text.h"

namespace salerpt {

// --- Title: the two days

void Rpt142::AddPeriodLines(TitleLines& lines) const {
  lines.Add(Join(ResText("起始日期："), FilterText(Conditions(), "BDate")));
  lines.Add(Join(ResText("截止日期："), FilterText(Conditions(), "EDate")));
}

// --- Condition on the state

std::string_view Rpt142::StateCondition() const {
  switch (FilterInt(Conditions(), "CheckState")) {
    case 0:
      return " And v1.FStatus>0 And v1.FCancelLation=0 ";
    case 1:
      return " And v1.FStatus=0 And v1.FCancelLation=0 ";
    default:
      return " And v1.FCancelLation=0 ";
  }
}

// --- Columns

void Rpt142::AddColumns() {
  using enum ColumnType;
  AddColumn("所属地区$", kText, "FRegionName");
  AddColumn("产品类别$", kText, "FClassName");
  AddCodeColumn();
  AddNameColumn();
  AddColumn("规格型号$", kText, "FModel");
  AddAuxPropColumn();
  AddColumn("销售客户$", kText, "FCustomerName");
  AddColumn("单位(基本)$", kText, "FUnitName");
  AddColumn("销售数量(基本)$", kQuantity, "FQty");
  AddColumn("单位(常用)$", kText, "FCUUnitName");
  AddColumn("销售数量(常用)$", kQuantity, "FCUUnitQty");
  AddColumn("销售收入$", kBaseAmount, "FAmount");
}

}  // namespace salerpt
