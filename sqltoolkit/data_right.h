// Data rights: who may see which customers, suppliers and stocks.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "runtime/vector.h"

namespace salerpt {

// The where text for the user who is logged in, over the tables that a report reads. `table_infos` holds one
// Dictionary for each table with `DataTable` and its alias, `DataTableAs` or else `BillTableAs`; of
// `table_names` only the size counts. Master rows hold the user ids that may see them in `FRightUserID`;
// whether the rule is on, per table, `GetDataRight` of the middle tier says. `where_text` gets the condition,
// joined with " And "; `from_text` stays as it came. True always: a failure is raised.
bool ApplyDataRight(const Vector& table_names, const Vector& table_infos, std::string& from_text,
                    std::string& where_text, bool flag);

// A table that a report reads, and its alias in the report's SQL.
struct RightTable {
  std::string_view data_table;
  std::string_view data_table_as;
};
struct DataRight {
  std::string from_text;
  std::string where_text;
};
// ApplyDataRight over tables given as they are, as reports ask it; raises the data-rights error, source
// "SetRptProperty", where the answer is not true.
DataRight RequestDataRight(std::initializer_list<RightTable> tables);

// " And " and the condition, or nothing where the condition is blank: a where text as it joins a report's
// own.
std::string AndIfAny(std::string_view condition);

}  // namespace salerpt
