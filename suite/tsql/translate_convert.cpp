// Conversions between types. What SQLite can do by itself stays in SQLite; a function of ours is called only
// where a value must be checked, rounded or spelled as the server does.
#include <fmt/format.h>

#include <cmath>
#include <optional>

#include "suite/tsql/datetime.h"
#include "suite/tsql/decimal.h"
#include "suite/tsql/error.h"
#include "suite/tsql/number_text.h"
#include "suite/tsql/translator.h"

namespace salerpt::tsql {
namespace {

bool IsNational(const ColumnType& type) {
  return type.kind == TypeKind::kNChar || type.kind == TypeKind::kNVarChar;
}
bool IsFixed(const ColumnType& type) {
  return type.kind == TypeKind::kChar || type.kind == TypeKind::kNChar;
}

// Texts that need no more than `size` places whatever the value is.
bool TextFits(const Sql& value, int size) {
  if (value.type.IsText())
    return value.type.size <= size && !(value.type.size == size && size == kMaxTextSize);
  return false;
}

// A text literal is read once, here. One that cannot be read stays a call: it fails when it is reached, and
// not before.
template <typename Read>
bool ReadLiteral(const Sql& value, const Read& read, std::string& text) {
  if (!value.literal || !value.type.IsText()) return false;
  try {
    text = read();
    return true;
  } catch (const TsqlError&) {
    return false;
  }
}

// Styles whose text is a part of the stored form 'YYYY-MM-DD HH:MM:SS'.
std::string PlainDateText(const std::string& text, int style, int size) {
  const int length = size < 19 ? size : 19;
  switch (style) {
    case 111:
      return fmt::format("replace(substr({},1,{}),'-','/')", text, size < 10 ? size : 10);
    case 23:
      return fmt::format("substr({},1,{})", text, size < 10 ? size : 10);
    case 112:
      if (size < 8) return {};
      return fmt::format("replace(substr({},1,10),'-','')", text);
    case 20:
    case 120:
      return fmt::format("substr({},1,{})", text, length);
    case 21:
    case 121:
      return size <= 19 ? fmt::format("substr({},1,{})", text, length) : std::string();
    default:
      return {};
  }
}

}  // namespace

Sql Translator::Convert(Sql value, const ColumnType& to, ConvertMode mode, int style) {
  if (value.type.IsDate() && to.IsNumber()) {  // days since 1900
    value.text = fmt::format("ts_datenumber({},{})", value.text, to.IsInteger() ? 1 : 0);
    value.type = SimpleType(TypeKind::kFloat);
    value.literal = false;
  }
  if (value.type.kind == TypeKind::kNull) {
    value.type = to;
    value.literal = false;
    return value;
  }
  if (to.kind == TypeKind::kNull) return value;
  Sql result;
  if (to.IsText()) {
    result = ToText(std::move(value), to, mode, style);
  } else if (to.IsDate()) {
    result = ToDate(std::move(value), style);
  } else if (to.IsInteger()) {
    result = ToInteger(std::move(value), to);
  } else if (to.IsScaled()) {
    result = ToScaled(std::move(value), to);
  } else {
    result = ToFloat(std::move(value), to);
  }
  if (mode == ConvertMode::kImplicit && to.IsText() && result.type.IsText()) return result;
  result.type = to;
  return result;
}

Sql Translator::ToText(Sql value, const ColumnType& to, ConvertMode mode, int style) {
  Sql result;
  result.type = to;
  if (value.type.IsText()) {
    if (mode == ConvertMode::kImplicit) return value;
    result.nocase = value.nocase;
    if (IsFixed(to)) {
      if (mode == ConvertMode::kStore && !TextFits(value, to.size)) {
        value.text = fmt::format("ts_fit({},{},{})", value.text, to.size, IsNational(to) ? 1 : 0);
      }
      result.text = fmt::format("ts_pad({},{},{})", value.text, to.size, IsNational(to) ? 1 : 0);
      result.nocase = false;
    } else if (TextFits(value, to.size) || to.size == kMaxTextSize) {
      result.text = value.text;
      result.constant = value.constant;
      result.literal = value.literal;
    } else {
      result.text = fmt::format("{}({},{},{})", mode == ConvertMode::kStore ? "ts_fit" : "ts_cut", value.text,
                                to.size, IsNational(to) ? 1 : 0);
      result.nocase = false;
    }
    return result;
  }
  if (mode == ConvertMode::kImplicit) result.type = TextType(30);
  const int size = result.type.size;
  if (value.type.IsDate()) {
    const int used = style < 0 ? 0 : style;
    result.text = PlainDateText(value.text, used, size);
    if (result.text.empty()) result.text = fmt::format("ts_datetext({},{},{})", value.text, used, size);
  } else if (value.type.IsInteger()) {
    result.text = size >= 20 ? fmt::format("CAST({} AS TEXT)", value.text)
                             : fmt::format("ts_inttext({},{})", value.text, size);
  } else if (value.type.IsScaled()) {
    const int scale = value.type.kind == TypeKind::kMoney ? 2 : value.type.scale;
    result.text = fmt::format("ts_dectext({},{},{})", value.text, scale, size);
  } else {
    result.text = fmt::format("ts_floattext({},{})", value.text, size);
  }
  if (IsFixed(to) && mode != ConvertMode::kImplicit) {
    result.text = fmt::format("ts_pad({},{},0)", result.text, to.size);
  }
  return result;
}

Sql Translator::ToDate(Sql value, int style) {
  Sql result;
  result.type = SimpleType(TypeKind::kDateTime);
  result.literal = value.literal;
  if (value.type.IsDate()) {
    result.text = value.text;
  } else if (!ReadLiteral(
                 value, [&] { return QuoteLiteral(ParseDateTime(value.constant, style).Canonical()); },
                 result.text)) {
    result.literal = false;
    result.text = fmt::format("ts_date({},{})", value.text, style < 0 ? 0 : style);
  }
  return result;
}

Sql Translator::ToInteger(Sql value, const ColumnType& to) {
  if (value.type.kind == to.kind) return value;
  const bool widens = value.type.IsInteger() && value.type.kind < to.kind && to.kind != TypeKind::kBit;
  if (widens) return value;
  Sql result;
  result.nonzero = value.nonzero && value.type.IsInteger();
  result.literal = value.literal;
  const int kind = static_cast<int>(to.kind);
  if (ReadLiteral(
          value, [&] { return std::to_string(IntegerOfText(value.constant, to.kind, value.type.Word())); },
          result.text)) {
    return result;
  }
  if (value.literal && value.type.IsInteger() && to.kind != TypeKind::kBit) {
    const bool negative = value.text.starts_with("(-");
    const std::optional<std::int64_t> number =
        ReadInteger(negative ? value.text.substr(2, value.text.size() - 3) : value.text);
    if (number && FitsInteger(negative ? -*number : *number, to.kind)) {
      result.text = value.text;
      return result;
    }
  }
  // Money rounds where other numbers are cut.
  if (value.type.kind == TypeKind::kMoney) value.text = fmt::format("ts_round({},0)", value.text);
  result.literal = false;
  const std::string_view word = IsNational(value.type)       ? ",'nvarchar'"
                                : value.type.IsApproximate() ? ",'float'"
                                                             : "";
  result.text = fmt::format("ts_int({},{}{})", value.text, kind, word);
  return result;
}

Sql Translator::ToScaled(Sql value, const ColumnType& to) {
  Sql result = value;
  result.constant.clear();
  if (ReadLiteral(
          value, [&] { return NumberLiteral(DecimalOfText(value.constant, to, value.type.Word())); },
          result.text)) {
    return result;
  }
  result.literal = false;
  if (value.type.IsNumber()) {
    const ColumnType from = AsDecimal(value.type);
    const bool rounds = value.type.IsApproximate() ? value.digits < 0 || value.digits > to.scale
                                                   : !value.exact || value.Digits() > to.scale;
    const bool fits = value.type.IsApproximate() || from.precision - from.scale <= to.precision - to.scale;
    if (!rounds && fits) return result;
  }
  const std::string_view word = IsNational(value.type)       ? ",'nvarchar'"
                                : value.type.IsApproximate() ? ",'float'"
                                                             : "";
  result.text = fmt::format("ts_dec({},{},{}{})", value.text, to.precision, to.scale, word);
  result.exact = true;
  result.digits = value.type.IsNumber() && value.digits >= 0 && value.digits < to.scale ? value.digits : -1;
  result.nonzero = false;
  return result;
}

Sql Translator::ToFloat(Sql value, const ColumnType& to) {
  if (value.type.IsNumber()) return value;
  Sql result;
  result.literal = value.literal;
  const auto read = [&] { return NumberLiteral(FloatOfText(value.constant, to.Word(), value.type.Word())); };
  if (!ReadLiteral(value, read, result.text)) {
    result.literal = false;
    result.text = fmt::format("ts_float({}{})", value.text, IsNational(value.type) ? ",'nvarchar'" : "");
  }
  return result;
}

Sql Translator::Exact(Sql value) const {
  if (!value.type.IsScaled() || value.exact) return value;
  value.text = fmt::format("ts_round({},{})", value.text, value.type.scale);
  value.exact = true;
  return value;
}

std::string Translator::Collated(const Sql& value) const {
  if (!value.type.IsText() || value.nocase) return value.text;
  return value.text + " COLLATE NOCASE";
}

}  // namespace salerpt::tsql
