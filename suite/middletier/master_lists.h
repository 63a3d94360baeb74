// The lists of the master data from which a look-up picks.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "suite/middletier/account_switches.h"
#include "suite/middletier/server.h"

namespace salerpt::middletier {

// Each list is narrowed by `search`, a part of a code, short code or name (blank: all), and `condition`, SQL
// about the alias x2 (blank: none). Every row has FItemID, FNumber, FShortNumber and FName, whatever its
// table calls them, beside the columns of its table. Deleted rows are left out, and so are those that the
// user may not see. They raise the engine's error.

// Which code a class of items goes by, for the order of the rows and the codes that the user sees.
enum class CodeInUse { kLong, kShort };

// Customers (1), departments (2), employees (3), items (4), stocks (5), suppliers (8), branches (10), fees
// (2014). Raises invalid-call for any other class.
Candidates ItemList(Server& server, std::int32_t item_class, std::string_view search,
                    std::string_view condition, CodeInUse code);
// The class rows of such a class, into which its items are sorted.
Candidates ItemClassList(Server& server, std::int32_t item_class);
// The batches that the stocks have had of the items, one row for an item and a batch, with FBatchNo.
Candidates BatchList(Server& server, std::string_view search, std::string_view condition);
// The units of a group; 0 for those of all groups.
Candidates UnitList(Server& server, std::int32_t unit_group, std::string_view search);
// The entries of an auxiliary class. Classes 501 and 30 are those of customers and of employees.
Candidates AuxiliaryList(Server& server, std::int32_t item_class, std::string_view search);
Candidates CurrencyList(Server& server, std::string_view search);

// The condition that the user may see the row of a table under data rights, with " And " in front. Blank
// where the rule is not in force for him.
std::string RightText(Server& server, RightKind kind, std::string_view alias);

}  // namespace salerpt::middletier
