#include "reports/analysis/rpt143.h"

#include "runtime/mparse.h"
#include "runtime/text.h"

namespace salerpt {

// --- Title: the period; its partner of the year before is the middle tier's to find

void Rpt143::AddPeriodLines(TitleLines& lines) const {
  lines.Add(Join(ResText("年份："), FilterText(Conditions(), "BYear")));
  lines.Add(Join(ResText("期间："), FilterText(Conditions(), "BPeriod")));
}

// --- Condition on the state

std::string_view Rpt143::StateCondition() const {
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

void Rpt143::AddColumns() {
  using enum ColumnType;
  AddCodeColumn();
  AddColumn("产品类别$", kText, "FClassName");
  AddNameColumn();
  AddColumn("规格型号$", kText, "FItemModel");
  AddAuxPropColumn();
  AddColumn("单位(基本)$", kText, "FUnitName");
  AddColumn("单位(常用)$", kText, "FCUUnitName");
  AddColumn("销售数量(基本)$", kQuantity, "FThisQty");
  AddColumn("销售数量(常用)$", kQuantity, "FCUUnitThisQty");
  AddColumn("销售收入$", kBaseAmount, "FThisAmount");
  AddColumn("占同类销售%$", kPercentage, "FClassAmountCent");
  AddColumn("上年同期销售额$", kBaseAmount, "FLastAmount");
  AddColumn("增长%$", kPercentage, "FAmountAddCent");
}

}  // namespace salerpt
