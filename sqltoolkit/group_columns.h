// The columns of the groups of a rollup, as they stand before the common columns of a report.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "runtime/dictionary.h"

namespace salerpt {

// A text column: heading and field of the rows.
struct GroupColumn {
  std::string caption;
  std::string column;
};
using GroupColumns = std::vector<GroupColumn>;

// One column for each class level from "BLevel" to "ELevel": "1级物料类别$" over `FName1` and so on.
// `caption` is what stands behind the number; it passes through ResText.
void AddLevelColumns(GroupColumns& columns, const Dictionary& filter, std::string_view caption);

// "客户$" over `FCustName`.
void AddCustomerColumn(GroupColumns& columns);

// The property of "SumField": its name over the column "FProp" `FPropID` `FItemClassID`.
void AddPropertyColumn(GroupColumns& columns, const Dictionary& filter);
// The name of that column.
std::string PropertyColumnName(const Dictionary& filter);

}  // namespace salerpt
