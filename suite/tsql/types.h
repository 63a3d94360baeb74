// Column and expression types of T-SQL, and how two types meet in an expression.
#pragma once

#include <cstdint>
#include <string>

namespace salerpt::tsql {

// In rising precedence within each family: where two families meet, the later one of the list wins
// (text gives way to number, number to date).
enum class TypeKind : std::uint8_t {
  kNull,  // the literal NULL, before it meets a typed neighbour
  kChar,
  kVarChar,
  kNChar,
  kNVarChar,
  kBit,
  kTinyInt,
  kSmallInt,
  kInt,
  kBigInt,
  kMoney,
  kDecimal,
  kReal,
  kFloat,
  kDateTime,
};

inline constexpr int kMaxPrecision = 38;
inline constexpr int kMaxTextSize = 8000;

// The type of a column, a variable or an expression.
struct ColumnType {
  TypeKind kind = TypeKind::kNull;
  int size = 0;       // characters, text types only
  int precision = 0;  // decimal digits in all, numbers only
  int scale = 0;      // digits behind the point; money has 4
  bool nullable = true;

  // The type number of the automation record set: 2 smallint, 3 int, 4 real, 5 float, 6 money, 11 bit, 17
  // tinyint, 20 bigint, 129 char, 130 nchar, 131 decimal, 135 datetime, 200 varchar, 202 nvarchar. The
  // untyped null is an int.
  [[nodiscard]] int AdoType() const;
  // As it is written in a definition, such as "decimal(18,2)".
  [[nodiscard]] std::string Name() const;
  // The bare word that error texts use, such as "numeric" or "varchar".
  [[nodiscard]] std::string_view Word() const;

  [[nodiscard]] bool IsText() const { return kind >= TypeKind::kChar && kind <= TypeKind::kNVarChar; }
  [[nodiscard]] bool IsInteger() const { return kind >= TypeKind::kBit && kind <= TypeKind::kBigInt; }
  // Numbers with a fixed scale: decimal and money.
  [[nodiscard]] bool IsScaled() const { return kind == TypeKind::kMoney || kind == TypeKind::kDecimal; }
  [[nodiscard]] bool IsApproximate() const { return kind == TypeKind::kReal || kind == TypeKind::kFloat; }
  [[nodiscard]] bool IsNumber() const { return kind >= TypeKind::kBit && kind <= TypeKind::kFloat; }
  [[nodiscard]] bool IsDate() const { return kind == TypeKind::kDateTime; }
};

ColumnType IntegerType(TypeKind kind = TypeKind::kInt);
ColumnType DecimalType(int precision, int scale);
ColumnType TextType(int size, TypeKind kind = TypeKind::kVarChar);
ColumnType SimpleType(TypeKind kind);  // money, real, float, datetime, null

// The type of a CASE, a COALESCE or a UNION column over two branches: the higher family, wide enough for
// both.
ColumnType CommonType(const ColumnType& a, const ColumnType& b);
// The type of `a op b` for the operators + - * / %, both sides numbers. Decimal results that would need more
// than 38 digits give up digits behind the point, down to six.
ColumnType ArithmeticType(char op, const ColumnType& a, const ColumnType& b);
// An integer or text seen as a decimal: an int has 10 digits, a smallint 5, a bit 1.
ColumnType AsDecimal(const ColumnType& type);

// Reads a declared type such as "decimal(23, 10)" or "VARCHAR(355)", any case; kNull when it is none of ours.
ColumnType ParseType(std::string_view declared);

}  // namespace salerpt::tsql
