#include "suite/middletier/item_columns.h"

#include <string>

#include "runtime/text.h"
#include "suite/middletier/table_columns.h"

namespace salerpt::middletier {
namespace {

// What fills a column, and which table it is read from.
enum class Source : std::uint8_t { kItem, kBaseUnit, kCommonUnit, kSecondaryUnit };
struct ItemColumn {
  std::string_view name;
  std::string_view value;
  Source source;
  bool only_blank;
};
constexpr ItemColumn kItemColumns[] = {
    {"FShortNumber", "t2.FShortNumber", Source::kItem, true},
    {"FName", "t2.FName", Source::kItem, true},
    {"FModel", "t2.FModel", Source::kItem, true},
    {"FUnitName", "u1.FName", Source::kBaseUnit, true},
    {"FCUUnitName", "u2.FName", Source::kCommonUnit, true},
    {"FSecUnitName", "Case When u3.FName='*' Then '' Else u3.FName End", Source::kSecondaryUnit, true},
    {"FQtyDecimal", "t2.FQtyDecimal", Source::kItem, false},
    {"FPriceDecimal", "t2.FPriceDecimal", Source::kItem, false},
};

std::string_view JoinOf(Source source, CommonUnit common_unit) {
  switch (source) {
    case Source::kItem:
      return "";
    case Source::kBaseUnit:
      return " Left Join t_MeasureUnit u1 On t2.FUnitGroupID=u1.FUnitGroupID And u1.FStandard=1";
    case Source::kCommonUnit:
      return common_unit == CommonUnit::kSaleUnit
                 ? " Left Join t_MeasureUnit u2 On t2.FSaleUnitID=u2.FMeasureUnitID"
                 : " Left Join t_MeasureUnit u2 On t2.FCUUnitID=u2.FMeasureUnitID";
    case Source::kSecondaryUnit:
      return " Left Join t_MeasureUnit u3 On t2.FSecUnitID=u3.FMeasureUnitID";
  }
  return "";
}

std::string AssignmentOf(const ItemColumn& column) {
  const std::string value = Join("IsNull(", column.value, column.only_blank ? ",'')" : ",4)");
  if (!column.only_blank) return Join("t1.", column.name, "=", value);
  return Join("t1.", column.name, "=Case When IsNull(t1.", column.name, ",'')='' Then ", value, " Else t1.",
              column.name, " End");
}

// One statement for all columns; empty where the table has none of them.
std::string FillStatement(const TableColumns& columns, std::string_view table, CommonUnit common_unit) {
  std::string assignments;
  std::string joins;
  for (const ItemColumn& column : kItemColumns) {
    if (!columns.Has(column.name)) continue;
    Append(assignments, assignments.empty() ? "" : ",", AssignmentOf(column));
    joins += JoinOf(column.source, common_unit);
  }
  if (assignments.empty()) return "";
  return Join("Update t1 Set ", assignments, " From ", table,
              " t1 Inner Join t_ICItem t2 On t1.FNumber=t2.FNumber", joins);
}

}  // namespace

bool FillItemColumns(tsql::Session& session, std::string_view table, CommonUnit common_unit) {
  const TableColumns columns(session, table);
  if (columns.Empty()) return false;
  if (!columns.Has("FNumber")) return true;
  if (const std::string statement = FillStatement(columns, table, common_unit); !statement.empty())
    session.Execute(statement);
  return true;
}

}  // namespace salerpt::middletier
