#include "reports/analysis/rpt140.h"

#include "runtime/mparse.h"
#include "runtime/text.h"

namespace salerpt {

// --- Title: the period; its partner of the year before is the middle tier's to find

void Rpt140::AddPeriodLines(TitleLines& lines) const {
  lines.Add(Join(ResText("年份："), FilterText(Conditions(), "BYear")));
  lines.Add(Join(ResText("期间："), FilterText(Conditions(), "BPeriod")));
}

// --- Condition on the state

std::string_view Rpt140::StateCondition() const {
  switch (FilterInt(Conditions(), "CheckState")) {
    case 0:
      return " AND v1.FStatus>0 And v1.FCancelLation=0 ";
    case 1:
      return " AND v1.FStatus=0 And v1.FCancelLation=0 ";
    default:
      return " And v1.FCancelLation=0 ";
  }
}

// --- Columns

void Rpt140::AddColumns() {
  using enum ColumnType;
  AddCodeColumn();
  AddNameColumn();
  AddColumn("规格型号$", kText, "FModel");
  AddAuxPropColumn();
  AddColumn("单位(基本)$", kText, "FUnitName");
  AddColumn("单位(常用)$", kText, "FCUUnitName");
  AddGroupedColumn("销售数量+|+|+|+|", "本期(基本)", kQuantity, "FThisQty");
  AddGroupedColumn(" ", "本期(常用)", kQuantity, "FCUUnitThisQty");
  AddGroupedColumn(" ", "上年同期(基本)", kQuantity, "FLastQty");
  AddGroupedColumn(" ", "上年同期(常用)", kQuantity, "FCUUnitLastQty");
  AddGroupedColumn(" ", "+/- %", kPercentage, "FQtyAddCent");
  AddGroupedColumn("销售收入+|+|", "本期", kBaseAmount, "FThisAmount");
  AddGroupedColumn(" ", "上年同期", kBaseAmount, "FLastAmount");
  AddGroupedColumn(" ", "+/- %", kPercentage, "FAmountAddCent");
  AddColumn("备注$", kText, "FNote");
}

void Rpt140::AddGroupedColumn(std::string_view caption, std::string_view head_second, ColumnType type,
                              std::string_view name) {
  AddHeader(*header_, ResText(caption), ResText(head_second), type, name, true);
}

}  // namespace salerpt
