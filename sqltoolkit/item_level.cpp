#include "sqltoolkit/item_level.h"

#include "runtime/mrpt.h"
#include "runtime/text.h"
#include "sqltoolkit/filter_values.h"

namespace salerpt {
namespace {

std::string RangeCondition(std::string_view prefix, std::string_view begin_number,
                           std::string_view end_number) {
  const std::string_view code = CodeField();
  std::string range;
  if (!prefix.empty()) Append(range, " AND FNumber Like ", QuoteText(Join(prefix, ".%")));
  if (!begin_number.empty()) Append(range, " AND ", code, ">=", QuoteText(begin_number));
  if (!end_number.empty()) Append(range, " AND ", code, "<=", QuoteText(end_number));
  return range;
}

// The place of the dot that ends a level, as an expression over the row; each step goes one dot further.
std::string DotAfter(std::string_view dot) {
  return Join("CharIndex('.',FFullNumber,", dot, "+1)");
}

}  // namespace

std::string BuildItemLevelSQL(std::int32_t item_class_id, std::string_view prefix,
                              std::string_view begin_number, std::string_view end_number, bool /*reserved*/,
                              std::int32_t begin_level, std::int32_t end_level, std::int16_t show_code) {
  std::string create;
  std::string select;
  std::string update = " Update t0 SET ";
  std::string from = " From #ItemLevel t0";
  create.reserve(512);
  select.reserve(4096);
  update.reserve(256);
  from.reserve(1024);
  Append(create, "CREATE TABLE #ItemLevel( ", kCrLf);
  Append(select, " Insert Into #ItemLevel SELECT  ", kCrLf);

  std::string dot = "CharIndex('.',FFullNumber)";
  for (std::int32_t level = 1; level < begin_level; ++level) dot = DotAfter(dot);

  for (std::int32_t i = begin_level; i <= end_level; ++i) {
    Append(create, " FNumber", i, " Varchar(355),", kCrLf,  //
           " FName", i, " Varchar(355),", kCrLf);
    // A row without a dot at this depth stands under its own code on level 1 and under no code on deeper
    // levels.
    Append(select, " Case When ", dot, "-1= -1 or FLevel<", i + 1, " THEN ", i == 1 ? "FFullNumber" : "NULL",
           " ELSE SUBSTRING(FNumber, 1,", dot, "-1)  END, ", kCrLf,  //
           " '',", kCrLf);
    dot = DotAfter(dot);
    Append(update, "t0.FName", i);
    if (show_code == 1) {
      Append(update, "='[' + t", i, ".FNumber + ']'+ t", i, ".FName");
    } else {
      Append(update, "=t", i, ".FName");
    }
    update += ',';
    Append(from, " left join t_Item t", i, " On t0.FNumber", i, "=t", i, ".FNumber ",  //
           " AND t", i, ".FItemClassID=", item_class_id,                               //
           " AND t", i, ".FDetail=0 ", kCrLf);
  }

  update.pop_back();
  Append(create, " FItemID int,", kCrLf,  //
         " FNumber VARCHAR(355))", kCrLf);
  Append(select, " FItemID,FNumber From t_Item", kCrLf,                       //
         " Where FItemClassID=", item_class_id, kCrLf,                        //
         " AND FDetail=1", RangeCondition(prefix, begin_number, end_number),  //
         " ##ITEMFILTER##");
  return Join(create, kCrLf, select, kCrLf, update, kCrLf, from);
}

}  // namespace salerpt
