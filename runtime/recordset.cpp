#include "runtime/recordset.h"

#include "runtime/error.h"
#include "runtime/text.h"

namespace salerpt {
namespace {

using Handler = Member<Recordset>;

// A field by name or, for a number, by place.
int FieldOf(const Recordset& self, const Variant& field) {
  if (field.IsNumber()) {
    const std::int32_t place = field.ToInt32();
    static_cast<void>(self.Field(place));
    return place;
  }
  return self.FieldIndex(field.ToText());
}

bool IsLeftOut(const Variant& argument) {
  return argument.IsEmpty() || (argument.IsNumber() && argument.ToInt32() == Recordset::kUnspecified);
}

Variant CallEof(Recordset& self, Arguments) {
  return self.Eof();
}
Variant CallRecordCount(Recordset& self, Arguments) {
  return self.RecordCount();
}
Variant CallFields(Recordset& self, Arguments arguments) {
  return self.Value(FieldOf(self, arguments[0]));
}
Variant CallLetFields(Recordset& self, Arguments arguments) {
  self.SetValue(FieldOf(self, arguments[0]), arguments[1]);
  return {};
}
Variant CallAppendField(Recordset& self, Arguments arguments) {
  const auto given = [&arguments](std::size_t i, std::int32_t otherwise) {
    return i < arguments.size() ? arguments[i].ToInt32() : otherwise;
  };
  self.AppendField(arguments[0].ToText(), static_cast<FieldType>(arguments[1].ToInt16()), given(2, 0),
                   given(3, Recordset::kUnspecified));
  return {};
}
Variant CallSetCursorLocation(Recordset& self, Arguments arguments) {
  self.SetCursorLocation(arguments[0].ToInt32());
  return {};
}
Variant CallOpen(Recordset& self, Arguments arguments) {
  for (const Variant& argument : arguments) {
    if (IsLeftOut(argument)) continue;
    throw RuntimeError(
        error_number::kWrongArguments, std::string(Recordset::kClassName),
        Join("Open was given ", KindName(argument.GetKind()),
             ", and a disconnected recordset has no source, connection, cursor, lock or options"));
  }
  self.Open();
  return {};
}
Variant CallAddNew(Recordset& self, Arguments) {
  self.AddNew();
  return {};
}
Variant CallUpdate(Recordset& self, Arguments) {
  self.Update();
  return {};
}
Variant CallClose(Recordset& self, Arguments) {
  self.Close();
  return {};
}
Variant CallMove(Recordset& self, Arguments arguments) {
  self.Move(arguments[0].ToInt32());
  return {};
}
Variant CallMoveFirst(Recordset& self, Arguments) {
  self.MoveFirst();
  return {};
}
Variant CallMoveNext(Recordset& self, Arguments) {
  self.MoveNext();
  return {};
}
Variant CallFilter(Recordset& self, Arguments) {
  return self.Filter();
}
// The number 0 takes the filter away, as empty text does.
Variant CallLetFilter(Recordset& self, Arguments arguments) {
  const bool is_none = arguments[0].IsNumber() && arguments[0].ToDouble() == 0;
  self.SetFilter(is_none ? "" : arguments[0].ToText());
  return {};
}

constexpr Handler kMembers[] = {
    {"EOF", InvokeKind::kGet, "() As Boolean", CallEof},
    {"Fields", InvokeKind::kGet, "(vField As Variant) As Variant", CallFields, 1},
    {"Fields", InvokeKind::kLet, "(vField As Variant, vValue As Variant)", CallLetFields, 2},
    {"RecordCount", InvokeKind::kGet, "() As Long", CallRecordCount},
    {"AppendField", InvokeKind::kMethod,
     "(sName As String, iType As Integer, [lSize As Long], [lAttributes As Long])", CallAppendField, 2, 4},
    {"CursorLocation", InvokeKind::kLet, "(lLocation As Long)", CallSetCursorLocation, 1},
    {"Open", InvokeKind::kMethod,
     "([Source], [Connection], [lCursor As Long], [lLock As Long], [lOptions As Long])", CallOpen, 0, 5},
    {"AddNew", InvokeKind::kMethod, "()", CallAddNew},
    {"Update", InvokeKind::kMethod, "()", CallUpdate},
    {"Close", InvokeKind::kMethod, "()", CallClose},
    {"Move", InvokeKind::kMethod, "(lRows As Long)", CallMove, 1},
    {"MoveNext", InvokeKind::kMethod, "()", CallMoveNext},
    {"MoveFirst", InvokeKind::kMethod, "()", CallMoveFirst},
    {"Filter", InvokeKind::kGet, "() As Variant", CallFilter},
    {"Filter", InvokeKind::kLet, "(vCriteria As Variant)", CallLetFilter, 1},
};

}  // namespace

int Recordset::FieldIndex(std::string_view name) const {
  const int field = FindField(name);
  if (field >= 0) return field;
  throw RuntimeError(error_number::kNoSuchField, std::string(kClassName),
                     Join("the recordset has no field \"", name, "\""));
}

std::span<const Member<Recordset>> Recordset::Members() {
  return kMembers;
}

Variant Recordset::Invoke(std::string_view member, InvokeKind kind, Arguments arguments) {
  return Dispatch(*this, Members(), member, kind, arguments);
}

}  // namespace salerpt
