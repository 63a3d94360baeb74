// A small report result made by hand, for the formats.
#pragma once

#include "runtime/recordset.h"
#include "runtime/vector.h"
#include "shell/sheet.h"

namespace salerpt::shell {

// A group of two columns, a hidden column, all kinds of cells, texts that need quoting, a null, a detail row
// each with other decimals, a subtotal and a grand total.
inline RecordsetRef SampleRows() {
  RecordsetRef rows = MakeRecordset();
  rows->AppendField("FName", FieldType::kVarChar, 50);
  rows->AppendField("FDate", FieldType::kDate, 0);
  rows->AppendField("FQty", FieldType::kDouble, 0);
  rows->AppendField("FPrice", FieldType::kDouble, 0);
  rows->AppendField("FAmount", FieldType::kCurrency, 0);
  rows->AppendField("FQtyDecimal", FieldType::kSmallInt, 0);
  rows->AppendField("FPriceDecimal", FieldType::kSmallInt, 0);
  rows->AppendField("FSumSort", FieldType::kInteger, 0);
  rows->Open();
  const auto add = [&rows](const char* name, const Variant& date, const Variant& qty, const Variant& price,
                           std::int64_t amount, int qty_decimal, int price_decimal, int sum_sort) {
    rows->AddNew();
    rows->SetValue("FName", name);
    rows->SetValue("FDate", date);
    rows->SetValue("FQty", qty);
    rows->SetValue("FPrice", price);
    rows->SetValue("FAmount", Currency::FromScaled(amount));
    rows->SetValue("FQtyDecimal", qty_decimal);
    rows->SetValue("FPriceDecimal", price_decimal);
    rows->SetValue("FSumSort", sum_sort);
    rows->Update();
  };
  add("茶杯, \"大\"", Date::FromYmd(2024, 3, 1), 2.5, 10.125, 253125, 1, 3, 0);
  add("A<b>&c", Date::FromYmd(2024, 3, 2, 8, 30), 4, Null(), -40000, 0, 2, 0);
  add("杯(小计)", Null(), 6.5, Null(), 213125, 4, 6, 106);
  add("合计", Null(), 6.5, 3.278846, 213125, 4, 6, 101);
  return rows;
}

inline VectorRef SampleHeader() {
  auto header = std::make_shared<Vector>();
  AddHeader(*header, "产品名称$", "", ColumnType::kText, "FName", true, ForceHide{0});
  AddHeader(*header, "日期$", "", ColumnType::kDate, "FDate", true, ForceHide{0});
  AddHeader(*header, "单价$", "", ColumnType::kPrice, "FPrice", true, ForceHide{0});
  AddHeader(*header, "内码$", "", ColumnType::kText, "FInterID", false, ForceHide{0});
  AddHeader(*header, "出库+|", "数量", ColumnType::kQuantity, "FQty", true, ForceHide{0});
  AddHeader(*header, " ", "金额", ColumnType::kAmount, "FAmount", true, ForceHide{0});
  return header;
}

inline Sheet SampleSheet() {
  Sheet sheet;
  sheet.report = "Rpt128";
  sheet.name = "销售出库汇总表";
  sheet.lines = {"起始日期：2024-03-01", "客户代码范围: \"A\" -- B,C"};
  sheet.columns = LayOutHeader(*SampleHeader());
  sheet.rows = SampleRows();
  return sheet;
}

}  // namespace salerpt::shell
