// `Header` and `Title`: what tells the host how to draw columns and the lines above the grid.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "runtime/dictionary.h"
#include "runtime/vector.h"

namespace salerpt {

// Kinds of a column (`FColType`). The report formats nothing: it only says of what kind a column is.
enum class ColumnType : std::int16_t {
  kDate = 0,
  kText = 1,
  kQuantity = 2,
  kPrice = 4,
  kAmount = 6,
  kPercentage = 8,
  kExchangeRate = 9,
  kPeriod = 10,
  kBaseAmount = 40  // amount at the scale of the base currency
};

// `FMergerType`: kind of cell merging; only some classes write it.
struct MergerType {
  std::int16_t value;
};
// `FForceHide`: non-zero hides the column by force, for a right that the user lacks; only some classes write
// it.
struct ForceHide {
  std::int16_t value;
};

// Appends one column: a new dictionary with FColCaption, FHeadSecond, FColType (as text), FColName, FVisible,
// and the optional keys that the class writes. `caption` comes through ResText; it may end in "$" (one level)
// or in "+|" repeated (opens a group of further columns).
void AddHeader(Vector& header, std::string caption, std::string_view head_second, ColumnType type,
               std::string_view column, bool visible);
void AddHeader(Vector& header, std::string caption, std::string_view head_second, ColumnType type,
               std::string_view column, bool visible, ForceHide force_hide);
void AddHeader(Vector& header, std::string caption, std::string_view head_second, ColumnType type,
               std::string_view column, bool visible, MergerType merger_type);
void AddHeader(Vector& header, std::string caption, std::string_view head_second, ColumnType type,
               std::string_view column, bool visible, MergerType merger_type, ForceHide force_hide);

// Appends one line above the grid: FCaption and FIndex.
void AddTitle(Vector& title, std::string caption, std::int16_t index);
// A range as title lines write it: begin "  --  " end, or the word for all where both ends are empty.
std::string RangeCaption(std::string_view begin, std::string_view end, std::string_view all);

// A range line in the narrow form, label included: `label` and the word for all, or `narrow_label`
// ("客户代码范围: ", ASCII colon and blank) and begin " -- " end. The three texts pass through ResText here.
std::string NarrowRangeCaption(std::string_view label, std::string_view narrow_label, std::string_view begin,
                               std::string_view end, std::string_view all);

}  // namespace salerpt
