// Values: literals, columns, arithmetic, CASE, subqueries.
#include <fmt/format.h>

#include <algorithm>
#include <cstdlib>

#include "suite/tsql/error.h"
#include "suite/tsql/function_names.h"
#include "suite/tsql/number_text.h"
#include "suite/tsql/translator.h"

namespace salerpt::tsql {
namespace {

// A subquery that looks at more columns is hardly ever asked for the same ones again.
constexpr std::size_t kMaxKeptColumns = 8;

int CharacterCount(std::string_view text) {
  return static_cast<int>(std::count_if(
      text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

// A text literal of the server's code page: a character beyond ASCII takes two bytes there.
int ByteCount(std::string_view text) {
  int count = 0;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x80) count += 1;
    if (byte >= 0xC0) count += 2;
  }
  return count;
}

std::string_view OperationWord(char op) {
  switch (op) {
    case '-':
      return "subtract";
    case '*':
      return "multiply";
    case '/':
      return "divide";
    case '%':
      return "modulo";
    default:
      return "add";
  }
}

}  // namespace

Sql Translator::Value(const Expression& e, const Scope& scope) {
  if (scope.groups != nullptr && !scope.groups->suspended) {
    Sql key;
    if (GroupKey(e, scope, key)) return key;
  }
  return Dispatch(e, scope);
}

Sql Translator::Dispatch(const Expression& e, const Scope& scope) {
  switch (e.kind) {
    case ExpressionKind::kNull:
    case ExpressionKind::kInteger:
    case ExpressionKind::kDecimal:
    case ExpressionKind::kFloat:
    case ExpressionKind::kText:
      return Literal(e);
    case ExpressionKind::kVariable:
      return VariableValue(e);
    case ExpressionKind::kColumn:
      return ColumnValue(e, scope);
    case ExpressionKind::kUnary:
      return Unary(e, scope);
    case ExpressionKind::kBinary:
      return Binary(e, scope);
    case ExpressionKind::kCase:
      return Case(e, scope);
    case ExpressionKind::kFunction:
      return Function(e, scope);
    case ExpressionKind::kConvert:
      return ConvertValue(e, scope);
    case ExpressionKind::kSubquery:
      return Subquery(e, scope);
    case ExpressionKind::kRowNumber:
      return RowNumber(e, scope);
    case ExpressionKind::kStar:
      Raise(102, "Incorrect syntax near '*'.", e.line);
    default:
      Raise(102, fmt::format("Incorrect syntax near '{}'.", e.text), e.line);
  }
}

Sql Translator::Literal(const Expression& e) const {
  Sql result;
  result.literal = true;
  result.text = e.text;
  switch (e.kind) {
    case ExpressionKind::kInteger: {
      const std::optional<std::int64_t> value = ReadInteger(e.text);
      const int digits = std::clamp(static_cast<int>(e.text.size()), 1, kMaxPrecision);
      if (e.text.size() > 38) {
        Raise(1007,
              fmt::format(
                  "The number '{}' is out of the range for numeric representation (maximum precision 38).",
                  e.text));
      }
      const bool fits = value && FitsInteger(*value, TypeKind::kInt);
      result.type = fits ? IntegerType() : DecimalType(digits, 0);
      result.type.precision = digits;
      if (!fits) result.text += ".0";
      result.nonzero = value && *value != 0;
      break;
    }
    case ExpressionKind::kDecimal: {
      const std::size_t point = e.text.find('.');
      const int scale = static_cast<int>(e.text.size() - point - 1);
      const int whole = static_cast<int>(point);
      if (scale + whole > kMaxPrecision) {
        Raise(1007,
              fmt::format(
                  "The number '{}' is out of the range for numeric representation (maximum precision 38).",
                  e.text));
      }
      result.type = DecimalType(std::max(1, scale + whole), scale);
      if (scale == 0) result.text += "0";
      result.nonzero = std::strtod(e.text.c_str(), nullptr) != 0;
      break;
    }
    case ExpressionKind::kFloat: {
      const double value = std::strtod(e.text.c_str(), nullptr);
      result.type = SimpleType(TypeKind::kFloat);
      result.text = NumberLiteral(value);
      result.nonzero = value != 0;
      break;
    }
    case ExpressionKind::kText:
      result.constant = e.text;
      result.text = QuoteLiteral(e.text);
      result.type =
          e.national ? TextType(CharacterCount(e.text), TypeKind::kNVarChar) : TextType(ByteCount(e.text));
      result.type.size = std::max(1, result.type.size);
      break;
    default:
      result.text = "NULL";
      break;
  }
  return result;
}

Sql Translator::VariableValue(const Expression& e) {
  const int index = variables_.Get(e.text);
  Sql result;
  result.type = variables_.At(index).type;
  const bool changes = std::find(assigned_.begin(), assigned_.end(), index) != assigned_.end();
  if (changes) NoteUnsteady();
  result.text = changes ? fmt::format("ts_var({})", index) : fmt::format("?{}", index + 1);
  return result;
}

Sql Translator::ColumnValue(const Expression& e, const Scope& scope) {
  const ResolvedColumn column = Resolve(e.name, scope);
  if (column.scope->groups != nullptr && !column.scope->groups->suspended) {
    Sql key = GroupColumn(column);
    NoteOuterColumn(*column.scope, key.text);
    return key;
  }
  Sql result;
  result.text = column.GetSource().ColumnSql(column.column);
  result.type = column.Info().type;
  result.nocase = result.type.IsText() && !column.GetSource().derived;
  NoteOuterColumn(*column.scope, result.text);
  return result;
}

Sql Translator::Unary(const Expression& e, const Scope& scope) {
  Sql value = Value(*e.args[0], scope);
  if (value.type.IsText() && value.literal)
    value = Convert(std::move(value), IntegerType(), ConvertMode::kImplicit);
  if (!value.type.IsNumber() && value.type.kind != TypeKind::kNull) {
    Raise(8117, fmt::format("Operand data type {} is invalid for {} operator.", value.type.Word(),
                            e.text == "~" ? "'~'" : "minus"));
  }
  if (e.text == "+") return value;
  value.text = fmt::format("({}{})", e.text, value.text);
  if (e.text == "~") value.literal = false;
  return value;
}

Sql Translator::Binary(const Expression& e, const Scope& scope) {
  Sql a = Value(*e.args[0], scope);
  Sql b = Value(*e.args[1], scope);
  const char op = e.text[0];
  if (a.type.kind == TypeKind::kNull) a.type = b.type;
  if (b.type.kind == TypeKind::kNull) b.type = a.type;
  if (a.type.kind == TypeKind::kNull) a.type = b.type = IntegerType();
  if (a.type.IsText() && b.type.IsText()) {
    if (op == '+') return Concatenate(std::move(a), std::move(b));
    Raise(402, fmt::format("The data types {} and {} are incompatible in the {} operator.", a.type.Word(),
                           b.type.Word(), OperationWord(op)));
  }
  if (a.type.IsDate() || b.type.IsDate()) return DateArithmetic(op, std::move(a), std::move(b));
  return Arithmetic(op, std::move(a), std::move(b), e);
}

Sql Translator::Concatenate(Sql a, Sql b) {
  Sql result;
  result.text = fmt::format("({} || {})", a.text, b.text);
  result.type = CommonType(a.type, b.type);
  result.type.size = std::min(kMaxTextSize, a.type.size + b.type.size);
  return result;
}

Sql Translator::Arithmetic(char op, Sql a, Sql b, const Expression& e) {
  if (a.type.IsText()) a = Convert(std::move(a), b.type, ConvertMode::kImplicit);
  if (b.type.IsText()) b = Convert(std::move(b), a.type, ConvertMode::kImplicit);
  Sql result;
  if (op == '&' || op == '|' || op == '^') {
    if (!a.type.IsInteger() || !b.type.IsInteger()) {
      Raise(402, fmt::format("The data types {} and {} are incompatible in the '{}' operator.", a.type.Word(),
                             b.type.Word(), op));
    }
    result.type = CommonType(a.type, b.type);
    result.text = op == '^' ? fmt::format("ts_xor({},{})", a.text, b.text)
                            : fmt::format("({} {} {})", a.text, e.text, b.text);
    return result;
  }
  const ColumnType type = ArithmeticType(op, a.type, b.type);
  if (op == '/' || op == '%') return Divide(op, std::move(a), std::move(b), type);
  result.type = type;
  result.text = fmt::format("({} {} {})", a.text, op, b.text);
  if (type.IsInteger()) {
    result.text = fmt::format("ts_int({},{})", result.text, static_cast<int>(type.kind));
  } else if (type.IsScaled()) {
    result.exact = false;
    const int digits = op == '*' ? a.Digits() + b.Digits() : std::max(a.Digits(), b.Digits());
    // Where the 38 digits do not suffice the server gives up some behind the point.
    if (digits > type.scale) return Exact(std::move(result));
    result.digits = digits;
  }
  return result;
}

Sql Translator::Divide(char op, Sql a, Sql b, const ColumnType& type) {
  Sql result;
  result.type = type;
  if (type.IsInteger()) {
    const char* function = op == '/' ? "ts_idiv" : "ts_imod";
    result.text = b.nonzero ? fmt::format("({} {} {})", a.text, op, b.text)
                            : fmt::format("{}({},{})", function, a.text, b.text);
  } else if (op == '%') {
    result.text = fmt::format("ts_mod({},{},{})", a.text, b.text, type.scale);
  } else if (type.IsApproximate()) {
    result.text = b.nonzero ? fmt::format("({} * 1.0 / {})", a.text, b.text)
                            : fmt::format("ts_div({},{},99)", a.text, b.text);
  } else if (b.nonzero && type.scale > 12) {
    result.text = fmt::format("({} * 1.0 / {})", a.text, b.text);
    result.exact = false;
  } else {
    result.text = fmt::format("ts_div({},{},{})", a.text, b.text, type.scale);
  }
  return result;
}

Sql Translator::DateArithmetic(char op, Sql a, Sql b) {
  if (op != '+' && op != '-') {
    Raise(402, fmt::format("The data types {} and {} are incompatible in the {} operator.", a.type.Word(),
                           b.type.Word(), OperationWord(op)));
  }
  if (a.type.IsDate() && b.type.IsDate()) RaiseNotSupported("Arithmetic between two dates", line_);
  if (a.type.IsText() || b.type.IsText()) RaiseNotSupported("Arithmetic between a date and a text", line_);
  if (!a.type.IsDate()) std::swap(a, b);
  Sql result;
  result.type = SimpleType(TypeKind::kDateTime);
  result.text = fmt::format("ts_datemove({},{}{})", a.text, op == '-' ? "-" : "", b.text);
  return result;
}

// CASE WHEN IsNull(x,0)=0 THEN <not 0> ELSE x END, by which the batches guard their divisors.
bool Translator::NeverZero(const Expression& e, const Scope& scope) {
  if (e.kind != ExpressionKind::kCase || e.has_operand || !e.has_else || e.args.size() != 3) return false;
  const Expression& condition = *e.args[0];
  if (condition.kind != ExpressionKind::kCompare || condition.text != "=") return false;
  const Expression& zero = *condition.args[1];
  if (zero.kind != ExpressionKind::kInteger || zero.text != "0") return false;
  if (e.args[1]->kind != ExpressionKind::kInteger || !Literal(*e.args[1]).nonzero) return false;
  const Expression* guarded = condition.args[0].get();
  if (guarded->kind == ExpressionKind::kFunction && guarded->text == "isnull")
    guarded = guarded->args[0].get();
  return SameExpression(*guarded, *e.args[2], scope);
}

// What stands behind each WHEN. The operand, which `head` gets, stands once in the translation.
std::vector<std::string> Translator::CaseConditions(const Expression& e, const Scope& scope, std::size_t end,
                                                    std::string& head) {
  std::vector<std::string> conditions;
  if (!e.has_operand) {
    for (std::size_t i = 0; i < end; i += 2) conditions.push_back(Condition(*e.args[i], scope));
    return conditions;
  }
  Sql operand = Value(*e.args[0], scope);
  ColumnType common = operand.type;
  std::vector<Sql> values;
  for (std::size_t i = 1; i < end; i += 2) {
    values.push_back(Value(*e.args[i], scope));
    common = CommonType(common, values.back().type);
  }
  head += ' ';
  head += Collated(Exact(Convert(std::move(operand), common, ConvertMode::kImplicit)));
  for (Sql& value : values) {
    conditions.push_back(Exact(Convert(std::move(value), common, ConvertMode::kImplicit)).text);
  }
  return conditions;
}

Sql Translator::Case(const Expression& e, const Scope& scope) {
  const std::size_t first = e.has_operand ? 1 : 0;
  const std::size_t pairs_end = e.args.size() - (e.has_else ? 1 : 0);
  std::vector<Sql> results;
  for (std::size_t i = first + 1; i < pairs_end; i += 2) results.push_back(Value(*e.args[i], scope));
  if (e.has_else) results.push_back(Value(*e.args.back(), scope));
  Sql result;
  for (const Sql& branch : results) result.type = CommonType(result.type, branch.type);
  const auto is_null = [](const Sql& branch) {
    return branch.type.kind == TypeKind::kNull && branch.text == "NULL";
  };
  if (std::all_of(results.begin(), results.end(), is_null)) {
    Raise(8133,
          "At least one of the result expressions in a CASE specification must be an expression other than "
          "the NULL "
          "constant.");
  }
  result.digits = 0;
  for (Sql& branch : results) {
    branch = Convert(std::move(branch), result.type, ConvertMode::kImplicit);
    result.exact = result.exact && branch.exact;
    result.digits = std::max(result.digits, branch.Digits());
  }
  result.nonzero = NeverZero(e, scope);
  result.text = "CASE";
  std::size_t branch = 0;
  const std::vector<std::string> conditions = CaseConditions(e, scope, pairs_end, result.text);
  for (const std::string& condition : conditions) {
    result.text += fmt::format(" WHEN {} THEN {}", condition, results[branch++].text);
  }
  if (e.has_else) result.text += " ELSE " + results.back().text;
  result.text += " END";
  return result;
}

Sql Translator::ConvertValue(const Expression& e, const Scope& scope) {
  int style = -1;
  if (e.args.size() > 1) {
    const Expression& given = *e.args[1];
    if (given.kind != ExpressionKind::kInteger)
      RaiseNotSupported("A CONVERT style that is no number", e.line);
    style = static_cast<int>(ReadInteger(given.text).value_or(0));
  }
  return Convert(Value(*e.args[0], scope), e.type, ConvertMode::kExplicit, style);
}

Sql Translator::Subquery(const Expression& e, const Scope& scope) {
  OuterReads reads;
  reads.outer = &scope;
  outer_reads_.push_back(&reads);
  QuerySql query = TranslateQuery(*e.query, &scope, QueryUse::kSubquery, nullptr, nullptr);
  outer_reads_.pop_back();
  if (query.columns.size() != 1) Raise(116, std::string(kSubqueryColumnsText));
  Sql result = query.items[0];
  result.text = "(" + query.text + ")";
  const bool reads_tables = !e.query->blocks[0].from.empty();
  if (reads.steady && reads_tables && !reads.columns.empty() && reads.columns.size() <= kMaxKeptColumns) {
    result.text = Kept(result.text, reads.columns);
  }
  result.nocase = false;
  result.literal = false;
  result.nonzero = false;
  return result;
}

// The value of a correlated subquery, worked out once for equal columns of the outer row. A subquery that
// looks at no outer row SQLite works out once by itself.
std::string Translator::Kept(const std::string& subquery, const std::vector<std::string>& outer_columns) {
  const int number = kept_count_++;
  return fmt::format("(CASE ts_known({0},{1}) WHEN 1 THEN ts_known_value({0}) ELSE ts_keep({0},{2}) END)",
                     number, fmt::join(outer_columns, ","), subquery);
}

void Translator::NoteOuterColumn(const Scope& scope, const std::string& column) {
  for (OuterReads* reads : outer_reads_) {
    bool is_outer = false;
    for (const Scope* level = reads->outer; level != nullptr; level = level->parent) {
      is_outer = is_outer || level == &scope;
    }
    std::vector<std::string>& columns = reads->columns;
    if (is_outer && std::find(columns.begin(), columns.end(), column) == columns.end()) {
      columns.push_back(column);
    }
  }
}

void Translator::NoteUnsteady() {
  for (OuterReads* reads : outer_reads_) reads->steady = false;
}

Sql Translator::RowNumber(const Expression& e, const Scope& scope) {
  Sql result;
  result.type = IntegerType(TypeKind::kBigInt);
  std::string over;
  for (const ExpressionPtr& part : e.partition) {
    over += over.empty() ? "PARTITION BY " : ", ";
    over += Collated(Value(*part, scope));
  }
  std::string order;
  for (const OrderItem& item : e.order) {
    order += order.empty() ? " ORDER BY " : ", ";
    order += Collated(Value(*item.expression, scope));
    if (item.descending) order += " DESC";
  }
  result.text = fmt::format("row_number() OVER ({}{})", over, order);
  return result;
}

}  // namespace salerpt::tsql
