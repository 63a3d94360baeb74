#include "shell/recorded/shown.h"

#include <cmath>
#include <cstdint>
#include <limits>

#include "runtime/dictionary.h"
#include "runtime/vector.h"

namespace salerpt::shell {
namespace {

// Up to here every whole double is one 64-bit integer.
constexpr double kExactWhole = 9007199254740992.0;

Json ShowDouble(double number) {
  if (std::trunc(number) == number && std::abs(number) <= kExactWhole)
    return static_cast<std::int64_t>(number);
  return number;
}

Json ShowCurrency(Currency amount) {
  if (amount.Scaled() % Currency::kUnit == 0) return amount.Scaled() / Currency::kUnit;
  return amount.ToDouble();
}

Json ShowValue(const Variant& value, int depth);

Json ShowObject(Object* object, int depth) {
  if (object == nullptr) return nullptr;
  if (const auto* dictionary = dynamic_cast<const Dictionary*>(object)) {
    Json shown = Json::object();
    for (const Dictionary::Entry& entry : dictionary->Entries()) {
      shown[entry.key] = ShowValue(entry.value, depth + 1);
    }
    return shown;
  }
  if (const auto* vector = dynamic_cast<const Vector*>(object)) {
    Json shown = Json::array();
    for (std::int32_t i = 1; i <= vector->Size(); ++i) shown.push_back(ShowValue(vector->Item(i), depth + 1));
    return shown;
  }
  if (auto* rows = dynamic_cast<Recordset*>(object)) return ShowRecordset(*rows);
  return Join("<", object->ClassName(), ">");
}

Json ShowValue(const Variant& value, int depth) {
  if (depth > JsonPlace::kMaxDepth) {
    throw RuntimeError(error_number::kInvalidCall, "",
                       Join("a value is nested deeper than ", JsonPlace::kMaxDepth, " levels"));
  }
  switch (value.GetKind()) {
    case Variant::Kind::kEmpty:
    case Variant::Kind::kNull:
      return nullptr;
    case Variant::Kind::kBoolean:
      return value.ToBoolean();
    case Variant::Kind::kInt16:
    case Variant::Kind::kInt32:
      return value.ToInt32();
    case Variant::Kind::kDouble:
      return ShowDouble(value.ToDouble());
    case Variant::Kind::kCurrency:
      return ShowCurrency(value.ToCurrency());
    case Variant::Kind::kDate:
    case Variant::Kind::kText:
      return value.ToText();
    case Variant::Kind::kObject:
      return ShowObject(value.ToObject().get(), depth);
  }
  return nullptr;
}

Json ShowFields(const Recordset& rows) {
  Json fields = Json::array();
  for (int i = 0; i < rows.FieldCount(); ++i) {
    const FieldInfo& field = rows.Field(i);
    const bool has_limit = field.size != std::numeric_limits<std::int32_t>::max();
    fields.push_back(Json::array({field.name, static_cast<int>(field.type), has_limit ? field.size : 0}));
  }
  return fields;
}

}  // namespace

Json Show(const Variant& value) {
  return ShowValue(value, 0);
}

Json ShowRecordset(Recordset& rows) {
  if (!rows.IsOpen()) return nullptr;
  Json lines = Json::array();
  if (rows.RecordCount() > 0) {
    const int fields = rows.FieldCount();
    for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext()) {
      Json line = Json::array();
      for (int i = 0; i < fields; ++i) line.push_back(Show(rows.Value(i)));
      lines.push_back(std::move(line));
    }
    rows.MoveFirst();
  }
  return {{"fields", ShowFields(rows)}, {"rows", std::move(lines)}};
}

}  // namespace salerpt::shell
