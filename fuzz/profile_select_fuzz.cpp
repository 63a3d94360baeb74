// Any text as a select on the system settings: it is none, or its conditions, written out again, are the
// same.
#include <string>

#include "fuzz/require.h"
#include "runtime/text.h"
#include "shell/recorded/profile_select.h"

namespace {

using salerpt::Replace;
using salerpt::fuzz::Require;
using salerpt::shell::ParseProfileSelect;
using salerpt::shell::ProfileSelect;

std::string Quoted(std::string_view text) {
  return "'" + Replace(text, "'", "''") + "'";
}

std::string Written(const ProfileSelect& select) {
  std::string sql = "Select FValue From t_SystemProfile";
  if (select.category) sql += " Where FCategory=" + Quoted(*select.category);
  if (select.keys) {
    std::string values;
    for (const std::string& key : *select.keys) values += (values.empty() ? "" : ",") + Quoted(key);
    sql += (select.category ? " And" : " Where") + (" FKey In(" + values + ")");
  }
  return sql;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto select = ParseProfileSelect(salerpt::fuzz::AsText(data, size));
  if (!select) return 0;
  const auto again = ParseProfileSelect(Written(*select));
  Require(again && again->category == select->category && again->keys == select->keys);
  if (!select->keys) return 0;
  const std::string category = select->category.value_or("IC");
  for (const std::string& key : *select->keys) {
    if (category.find('/') == std::string::npos) Require(select->Matches(category + "/" + key));
  }
  return 0;
}
