#include <array>
#include <string_view>

#include "runtime/text.h"
#include "suite/middletier/middletier.h"

namespace salerpt::middletier {
namespace {

// The fields by which a user names a row.
constexpr std::array<std::string_view, 4> kNames{"FNumber", "FShortNumber", "FName", "FBillNo"};

bool IsNamed(const Recordset& rows, const std::array<int, kNames.size()>& fields, std::string_view search) {
  for (const int field : fields) {
    if (field >= 0 && EqualNames(rows.Value(field).TextOrEmpty(), search)) return true;
  }
  return false;
}

}  // namespace

std::optional<std::int32_t> ChooseTheOnlyOne(const Candidates& candidates) {
  const std::string_view search = Trim(candidates.search);
  Recordset& rows = *candidates.list.rows;
  if (search.empty() || rows.RecordCount() == 0) return std::nullopt;
  if (rows.RecordCount() == 1) return 0;
  std::array<int, kNames.size()> fields{};
  for (std::size_t i = 0; i < kNames.size(); ++i) fields[i] = rows.FindField(kNames[i]);

  std::optional<std::int32_t> named;
  std::int32_t row = 0;
  for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext(), ++row) {
    if (!IsNamed(rows, fields, search)) continue;
    if (named) return std::nullopt;
    named = row;
  }
  return named;
}

}  // namespace salerpt::middletier
