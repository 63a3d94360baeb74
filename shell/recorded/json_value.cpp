#include "shell/recorded/json_value.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <vector>

#include "runtime/vector.h"
#include "shell/recorded/empty_recordset.h"

namespace salerpt::shell {
namespace {

using Int32Limits = std::numeric_limits<std::int32_t>;

Variant ToNumber(const Json& value) {
  const double number = value.get<double>();
  if (number >= Int32Limits::min() && number <= Int32Limits::max() && std::trunc(number) == number) {
    return static_cast<std::int32_t>(number);
  }
  return number;
}

void AppendField(Recordset& rows, const JsonPlace& place) {
  std::vector<JsonPlace> parts;
  place.Elements([&](const JsonPlace& part) { parts.push_back(part); });
  if (parts.size() != 3) place.RaiseExpected("a field [name, type, size]");
  const std::string name = parts[0].Text();
  const auto type = static_cast<FieldType>(parts[1].Whole(0, std::numeric_limits<std::int16_t>::max()));
  const auto size = static_cast<std::int32_t>(parts[2].Whole(0, Int32Limits::max()));
  try {
    // A text of size 0 is one without a limit.
    rows.AppendField(name, type, size > 0 ? size : Recordset::kUnspecified);
  } catch (const RuntimeError& failure) {
    place.Raise(failure.Description());
  }
}

void AppendRow(Recordset& rows, const JsonPlace& place) {
  if (!place.Value().is_array() || place.Value().size() != static_cast<std::size_t>(rows.FieldCount())) {
    place.RaiseExpected("a row of " + std::to_string(rows.FieldCount()) + " values");
  }
  rows.AddNew();
  int field = 0;
  place.Elements([&](const JsonPlace& cell) {
    const Variant value = ToScalar(cell);
    try {
      if (!value.IsNull()) rows.SetValue(field, value);
    } catch (const RuntimeError& failure) {
      cell.Raise(failure.Description());
    }
    ++field;
  });
  rows.Update();
}

// A set that is built needs a field to be opened.
RecordsetRef WithoutFields(const JsonPlace& place) {
  place.IfPresent("rows", [](const JsonPlace& rows) {
    rows.Elements([](const JsonPlace& row) { row.Raise("a row in a row set without fields"); });
  });
  return MakeEmptyRecordset();
}

bool IsRecordset(const Json& value) {
  return value.is_object() && value.size() == 2 && value.contains("fields") && value.contains("rows");
}

}  // namespace

Variant ToScalar(const JsonPlace& place) {
  const Json& value = place.Value();
  if (value.is_null()) return Null{};
  if (value.is_boolean()) return value.get<bool>();
  if (value.is_number()) return ToNumber(value);
  if (value.is_string()) return value.get<std::string>();
  place.RaiseExpected("a number, a text, true, false or null");
}

DictionaryRef ToConditions(const JsonPlace& place) {
  place.CheckDepth();
  auto conditions = std::make_shared<Dictionary>();
  place.Members([&](std::string_view key, const JsonPlace& member) {
    if (member.Value().is_object()) {
      conditions->Set(key, ToConditions(member));
    } else if (member.Value().is_array()) {
      member.RaiseExpected("a number, a text, a boolean, null or an object");
    } else {
      conditions->Set(key, ToScalar(member));
    }
  });
  return conditions;
}

Variant ToAnswer(const JsonPlace& place) {
  place.CheckDepth();
  const Json& value = place.Value();
  if (value.is_null()) return ObjectRef();
  if (IsRecordset(value)) return ToRecordset(place);
  if (value.is_object()) {
    auto dictionary = std::make_shared<Dictionary>();
    place.Members(
        [&](std::string_view key, const JsonPlace& member) { dictionary->Set(key, ToAnswer(member)); });
    return dictionary;
  }
  if (value.is_array()) {
    auto vector = std::make_shared<Vector>();
    place.Elements([&](const JsonPlace& element) { vector->Add(ToAnswer(element)); });
    return vector;
  }
  return ToScalar(place);
}

RecordsetRef ToRecordset(const JsonPlace& place) {
  place.RequireKeys({"fields", "rows"});
  RecordsetRef rows = MakeRecordset();
  rows->SetCursorLocation(Recordset::kClientSide);
  place.IfPresent("fields", [&](const JsonPlace& fields) {
    fields.Elements([&](const JsonPlace& field) { AppendField(*rows, field); });
  });
  if (rows->FieldCount() == 0) return WithoutFields(place);
  rows->Open();
  place.IfPresent("rows", [&](const JsonPlace& lines) {
    lines.Elements([&](const JsonPlace& row) { AppendRow(*rows, row); });
  });
  if (rows->RecordCount() > 0) rows->MoveFirst();
  return rows;
}

}  // namespace salerpt::shell
