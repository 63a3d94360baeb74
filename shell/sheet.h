// What a format draws: the title lines, the columns and the rows that a report answered.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "runtime/object.h"
#include "runtime/recordset.h"
#include "runtime/vector.h"
#include "shell/header_layout.h"

namespace salerpt::shell {

// One report result. The rows are the report's own, not a copy; drawing moves their cursor.
struct Sheet {
  // "Rpt128", and the report's name, "销售出库汇总表".
  std::string report;
  std::string name;
  // The lines above the grid.
  std::vector<std::string> lines;
  std::vector<SheetColumn> columns;
  // Nothing where the report has no rows to give at all.
  RecordsetRef rows;
  // Decimals of the base currency.
  int amount_scale = 2;
  // Leading columns that stay in place when the grid scrolls.
  int frozen_columns = 0;
};

// The lines above the grid from `Title`: in the order of `FIndex`, parts of one index side by side.
std::vector<std::string> TitleLines(const Vector& title);

// Reads `Property`, `Title`, `Header` and `Rs` of a report that has fetched, late bound as any host does.
Sheet ReadSheet(const ObjectRef& report, int amount_scale);

// Code of a total row's level; 0 is a detail row.
inline constexpr std::int32_t kDetailRow = 0;
inline constexpr std::int32_t kGrandTotal = 101;

}  // namespace salerpt::shell
