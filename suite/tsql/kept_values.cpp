#include "suite/tsql/kept_values.h"

#include <utility>

namespace salerpt::tsql {
namespace {

constexpr int kFlags = SQLITE_UTF8 | SQLITE_INNOCUOUS;  // not deterministic: each row is asked for

// Keeping pays where at least one row in four was asked for before; told after so many rows.
constexpr std::int64_t kTrialRows = 65'536;
constexpr std::int64_t kRowsForOneKnown = 4;

// Kind, length and bytes: columns that the server takes for equal may differ here, at the price of a second
// look-up.
void AppendColumn(sqlite3_value* column, std::string& key) {
  const int type = sqlite3_value_type(column);
  key += static_cast<char>(type);
  const auto append = [&key](const auto& number) {
    key.append(reinterpret_cast<const char*>(&number), sizeof(number));
  };
  if (type == SQLITE_INTEGER) {
    append(sqlite3_value_int64(column));
  } else if (type == SQLITE_FLOAT) {
    append(sqlite3_value_double(column));
  } else if (type != SQLITE_NULL) {
    const auto* bytes = static_cast<const char*>(sqlite3_value_blob(column));
    const int size = sqlite3_value_bytes(column);
    append(size);
    if (size > 0) key.append(bytes, static_cast<std::size_t>(size));
  }
}

}  // namespace

KeptValues::Subquery& KeptValues::At(sqlite3_value* number) {
  const auto index = static_cast<std::size_t>(sqlite3_value_int(number));
  if (index >= subqueries_.size()) subqueries_.resize(index + 1);
  return subqueries_[index];
}

bool KeptValues::Find(Subquery& subquery, int count, sqlite3_value** columns) {
  if (!subquery.pays) return false;
  subquery.key.clear();
  for (int i = 0; i < count; ++i) AppendColumn(columns[i], subquery.key);
  const auto kept = subquery.values.find(subquery.key);
  subquery.found = kept == subquery.values.end() ? nullptr : kept->second.get();
  if (subquery.found != nullptr) ++subquery.known;
  if (++subquery.asked == kTrialRows && subquery.known * kRowsForOneKnown < subquery.asked) {
    subquery.pays = false;
    subquery.values.clear();
    return false;
  }
  return subquery.found != nullptr;
}

void KeptValues::Register(sqlite3* connection) {
  sqlite3_create_function_v2(
      connection, "ts_known", -1, kFlags, this,
      [](sqlite3_context* context, int count, sqlite3_value** values) {
        auto* self = static_cast<KeptValues*>(sqlite3_user_data(context));
        sqlite3_result_int(context, self->Find(self->At(values[0]), count - 1, values + 1) ? 1 : 0);
      },
      nullptr, nullptr, nullptr);
  sqlite3_create_function_v2(
      connection, "ts_known_value", 1, kFlags, this,
      [](sqlite3_context* context, int /*count*/, sqlite3_value** values) {
        auto* self = static_cast<KeptValues*>(sqlite3_user_data(context));
        sqlite3_result_value(context, const_cast<sqlite3_value*>(self->At(values[0]).found));
      },
      nullptr, nullptr, nullptr);
  sqlite3_create_function_v2(
      connection, "ts_keep", 2, kFlags, this,
      [](sqlite3_context* context, int /*count*/, sqlite3_value** values) {
        auto* self = static_cast<KeptValues*>(sqlite3_user_data(context));
        Subquery& subquery = self->At(values[0]);
        if (subquery.pays) {
          subquery.values.insert_or_assign(subquery.key, KeptValue(sqlite3_value_dup(values[1])));
        }
        sqlite3_result_value(context, values[1]);
      },
      nullptr, nullptr, nullptr);
}

}  // namespace salerpt::tsql
