// The re-sort pass: whole blocks of a rollup in the order that the user asked for.
#pragma once

#include <string>
#include <string_view>

namespace salerpt {

// `ColumnListOf`: the column names of a CREATE TABLE text whose columns stand on lines of their own, each
// with a blank in front, joined by commas: " FNumber, FName, FID".
std::string ColumnListOf(std::string_view create_text);

// The columns of a table without its identity: ", FID" taken out of ColumnListOf. Relies on FID never being
// the first column.
std::string ColumnsWithoutIdentity(std::string_view create_text);

// T-SQL that moves the blocks of #TemData, each closed by its subtotal row, to #Data in the order of the
// subtotal rows, and the total rows of lower code behind them. A plain ORDER BY would tear a block from its
// subtotal. `order_by` is an ORDER BY list.
std::string ResortPass(std::string_view columns, std::string_view order_by);

}  // namespace salerpt
