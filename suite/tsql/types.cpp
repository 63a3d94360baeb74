#include "suite/tsql/types.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>

#include "runtime/text.h"

namespace salerpt::tsql {
namespace {

struct KindEntry {
  TypeKind kind;
  std::string_view word;      // in messages and definitions
  std::string_view spelling;  // a second word that means the same
  int ado;
};

constexpr std::array<KindEntry, 16> kKinds = {{
    {TypeKind::kNull, "void type", "", 3},
    {TypeKind::kChar, "char", "character", 129},
    {TypeKind::kVarChar, "varchar", "text", 200},
    {TypeKind::kNChar, "nchar", "", 130},
    {TypeKind::kNVarChar, "nvarchar", "ntext", 202},
    {TypeKind::kBit, "bit", "", 11},
    {TypeKind::kTinyInt, "tinyint", "", 17},
    {TypeKind::kSmallInt, "smallint", "", 2},
    {TypeKind::kInt, "int", "integer", 3},
    {TypeKind::kBigInt, "bigint", "", 20},
    {TypeKind::kMoney, "money", "smallmoney", 6},
    {TypeKind::kDecimal, "numeric", "decimal", 131},
    {TypeKind::kDecimal, "numeric", "dec", 131},
    {TypeKind::kReal, "real", "", 4},
    {TypeKind::kFloat, "float", "double", 5},
    {TypeKind::kDateTime, "datetime", "smalldatetime", 135},
}};

const KindEntry& Entry(TypeKind kind) {
  return *std::find_if(kKinds.begin(), kKinds.end(),
                       [kind](const KindEntry& entry) { return entry.kind == kind; });
}

int IntegerDigits(const ColumnType& type) {
  if (type.precision > 0) return type.precision;
  switch (type.kind) {
    case TypeKind::kBit:
      return 1;
    case TypeKind::kTinyInt:
      return 3;
    case TypeKind::kSmallInt:
      return 5;
    case TypeKind::kBigInt:
      return 19;
    default:
      return 10;
  }
}

// Cuts a decimal type that would need more than 38 digits; digits behind the point go first, but six of them
// stay.
ColumnType Capped(int precision, int scale) {
  if (precision <= kMaxPrecision) return DecimalType(precision, scale);
  const int whole = precision - scale;
  const int kept = std::max(std::min(scale, kMaxPrecision - whole), std::min(scale, 6));
  return DecimalType(kMaxPrecision, kept);
}

ColumnType DecimalArithmetic(char op, const ColumnType& a, const ColumnType& b) {
  const int whole_a = a.precision - a.scale;
  const int whole_b = b.precision - b.scale;
  switch (op) {
    case '*':
      return Capped(a.precision + b.precision + 1, a.scale + b.scale);
    case '/': {
      const int scale = std::max(6, a.scale + b.precision + 1);
      return Capped(whole_a + b.scale + scale, scale);
    }
    case '%': {
      const int scale = std::max(a.scale, b.scale);
      return DecimalType(std::min(whole_a, whole_b) + scale, scale);
    }
    default: {
      const int scale = std::max(a.scale, b.scale);
      const int whole = std::max(whole_a, whole_b);
      if (whole + scale + 1 <= kMaxPrecision) return DecimalType(whole + scale + 1, scale);
      return DecimalType(kMaxPrecision, std::min(scale, kMaxPrecision - whole));
    }
  }
}

ColumnType CommonText(const ColumnType& a, const ColumnType& b) {
  const bool national = a.kind >= TypeKind::kNChar || b.kind >= TypeKind::kNChar;
  const bool varying = a.kind != b.kind || a.kind == TypeKind::kVarChar || a.kind == TypeKind::kNVarChar;
  TypeKind kind = national ? TypeKind::kNChar : TypeKind::kChar;
  if (varying) kind = national ? TypeKind::kNVarChar : TypeKind::kVarChar;
  return TextType(std::max(a.size, b.size), kind);
}

std::string_view NextWord(std::string_view& text) {
  while (!text.empty() && !(std::isalnum(static_cast<unsigned char>(text.front())) != 0))
    text.remove_prefix(1);
  std::size_t end = 0;
  while (end < text.size() && std::isalnum(static_cast<unsigned char>(text[end])) != 0) ++end;
  const std::string_view word = text.substr(0, end);
  text.remove_prefix(end);
  return word;
}

int NumberOf(std::string_view word, int absent) {
  int value = absent;
  std::from_chars(word.data(), word.data() + word.size(), value);
  return value;
}

}  // namespace

int ColumnType::AdoType() const {
  return Entry(kind).ado;
}

std::string_view ColumnType::Word() const {
  return Entry(kind).word;
}

std::string ColumnType::Name() const {
  if (kind == TypeKind::kDecimal) return fmt::format("decimal({},{})", precision, scale);
  if (IsText()) return fmt::format("{}({})", Word(), size);
  return std::string(Word());
}

ColumnType IntegerType(TypeKind kind) {
  ColumnType type;
  type.kind = kind;
  return type;
}

ColumnType DecimalType(int precision, int scale) {
  ColumnType type;
  type.kind = TypeKind::kDecimal;
  type.precision = precision;
  type.scale = scale;
  return type;
}

ColumnType TextType(int size, TypeKind kind) {
  ColumnType type;
  type.kind = kind;
  type.size = size;
  return type;
}

ColumnType SimpleType(TypeKind kind) {
  ColumnType type;
  type.kind = kind;
  if (kind == TypeKind::kMoney) {
    type.precision = 19;
    type.scale = 4;
  }
  return type;
}

ColumnType AsDecimal(const ColumnType& type) {
  if (type.kind == TypeKind::kDecimal) return type;
  if (type.kind == TypeKind::kMoney) return DecimalType(19, 4);
  if (type.IsInteger()) return DecimalType(IntegerDigits(type), 0);
  return DecimalType(18, 0);
}

ColumnType CommonType(const ColumnType& a, const ColumnType& b) {
  if (a.kind == TypeKind::kNull) return b;
  if (b.kind == TypeKind::kNull) return a;
  if (a.IsText() && b.IsText()) return CommonText(a, b);
  const ColumnType& higher = a.kind > b.kind ? a : b;
  if (higher.kind == TypeKind::kDecimal && a.IsNumber() && b.IsNumber()) {
    const ColumnType x = AsDecimal(a);
    const ColumnType y = AsDecimal(b);
    const int scale = std::max(x.scale, y.scale);
    const int whole = std::max(x.precision - x.scale, y.precision - y.scale);
    if (whole + scale <= kMaxPrecision) return DecimalType(whole + scale, scale);
    return DecimalType(kMaxPrecision, std::max(0, kMaxPrecision - whole));
  }
  ColumnType result = higher;
  if (result.IsInteger()) result.precision = 0;
  return result;
}

ColumnType ArithmeticType(char op, const ColumnType& a, const ColumnType& b) {
  if (a.IsApproximate() || b.IsApproximate()) return SimpleType(TypeKind::kFloat);
  if (a.kind == TypeKind::kDecimal || b.kind == TypeKind::kDecimal) {
    return DecimalArithmetic(op, AsDecimal(a), AsDecimal(b));
  }
  if (a.kind == TypeKind::kMoney || b.kind == TypeKind::kMoney) return SimpleType(TypeKind::kMoney);
  TypeKind kind = std::max(a.kind, b.kind);
  if (kind == TypeKind::kBit || kind == TypeKind::kNull) kind = TypeKind::kInt;
  return IntegerType(kind);
}

ColumnType ParseType(std::string_view declared) {
  std::string_view rest = declared;
  const std::string_view word = NextWord(rest);
  if (EqualNames(word, "text") || EqualNames(word, "ntext")) {
    return TextType(kMaxTextSize, EqualNames(word, "text") ? TypeKind::kVarChar : TypeKind::kNVarChar);
  }
  for (const KindEntry& entry : kKinds) {
    if (entry.kind == TypeKind::kNull) continue;
    if (!EqualNames(word, entry.word) && !(!entry.spelling.empty() && EqualNames(word, entry.spelling)))
      continue;
    ColumnType type = SimpleType(entry.kind);
    const std::string_view first = NextWord(rest);
    const std::string_view second = NextWord(rest);
    if (type.kind == TypeKind::kDecimal) {
      type.precision = NumberOf(first, 18);
      type.scale = NumberOf(second, 0);
    } else if (type.IsText()) {
      type.size = EqualNames(first, "max") ? kMaxTextSize : NumberOf(first, 1);
    }
    return type;
  }
  return {};
}

}  // namespace salerpt::tsql
