// #ItemLevel: the table of class levels that grouped reports join.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace salerpt {

// Classes of the code tree `t_Item`.
inline constexpr std::int32_t kCustomerClass = 1;
inline constexpr std::int32_t kItemClass = 4;

// T-SQL that creates and fills #ItemLevel: for each detail row of `t_Item` in the class its ancestors' codes
// and names, a pair of columns FNumber<i>, FName<i> for each level from `begin_level` to `end_level`. A code
// such as 01.02.0003 carries the path, each dot marks a level.
//   prefix        only rows below this code; may be empty
//   begin_number, end_number   code range, long or short code as gLongNumber says; either may be empty
//   reserved      callers pass true; not used
//   show_code     1: a class name shows with its code in front
// The placeholder ##ITEMFILTER## stays in the text; the middle tier replaces it.
std::string BuildItemLevelSQL(std::int32_t item_class_id, std::string_view prefix,
                              std::string_view begin_number, std::string_view end_number, bool reserved,
                              std::int32_t begin_level, std::int32_t end_level, std::int16_t show_code);

}  // namespace salerpt
