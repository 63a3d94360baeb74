// Function calls.
#include <fmt/format.h>

#include <algorithm>

#include "runtime/text.h"
#include "suite/tsql/datetime.h"
#include "suite/tsql/error.h"
#include "suite/tsql/function_names.h"
#include "suite/tsql/number_text.h"
#include "suite/tsql/translator.h"

namespace salerpt::tsql {
namespace {

Sql MakeText(std::string text, int size, TypeKind kind = TypeKind::kVarChar) {
  Sql result;
  result.text = std::move(text);
  result.type = TextType(std::clamp(size, 1, kMaxTextSize), kind);
  return result;
}

Sql MakeInt(std::string text) {
  Sql result;
  result.text = std::move(text);
  result.type = IntegerType();
  return result;
}

Sql MakeFloat(std::string text) {
  Sql result;
  result.text = std::move(text);
  result.type = SimpleType(TypeKind::kFloat);
  return result;
}

// The value of an integer literal; -1 for anything else.
int LiteralCount(const Expression& e) {
  if (e.kind != ExpressionKind::kInteger || e.text.size() > 6) return -1;
  return static_cast<int>(ReadInteger(e.text).value_or(-1));
}

DatePart PartArgument(const Expression& call) {
  const Expression& word = *call.args[0];
  if (word.kind == ExpressionKind::kColumn && word.name.size() == 1) {
    if (const std::optional<DatePart> part = DatePartOfWord(word.name[0])) return *part;
    Raise(155, fmt::format("'{}' is not a recognized {} option.", word.name[0], call.text));
  }
  Raise(1023, fmt::format("Invalid parameter 1 specified for {}.", call.text));
}

// Bytes that the server keeps a number or date in.
int StorageSize(const ColumnType& type) {
  switch (type.kind) {
    case TypeKind::kBit:
    case TypeKind::kTinyInt:
      return 1;
    case TypeKind::kSmallInt:
      return 2;
    case TypeKind::kInt:
    case TypeKind::kReal:
      return 4;
    case TypeKind::kDecimal:
      return type.precision < 10 ? 5 : type.precision < 20 ? 9 : type.precision < 29 ? 13 : 17;
    default:
      return 8;
  }
}

// {"tempdb", "", "#x"} of "tempdb..#x".
NameParts SplitName(std::string_view text) {
  NameParts parts(1);
  for (const char c : text) {
    if (c == '.') {
      parts.emplace_back();
    } else if (c != '[' && c != ']') {
      parts.back() += c;
    }
  }
  return parts;
}

}  // namespace

Sql Translator::Function(const Expression& e, const Scope& scope) {
  if (IsAggregateFunction(e.text)) return Aggregate(e, scope);
  if (e.text == "grouping") return GroupingFlag(e, scope);
  if (e.text == "isnull") return IsNull(e, scope);
  if (e.text == "coalesce") return Coalesce(e, scope);
  if (e.text == "nullif") return NullIf(e, scope);
  if (e.text == "object_id") return ObjectId(e);
  if (e.text == "row_number") {
    Raise(10753, "The function 'row_number' must have an OVER clause.", e.line);
  }
  using Family = Sql (Translator::*)(const Expression&, const Scope&, bool&);
  static constexpr Family kFamilies[] = {&Translator::SearchFunction, &Translator::MakingFunction,
                                         &Translator::TextFunction, &Translator::NumberFunction,
                                         &Translator::DateFunction};
  for (const Family family : kFamilies) {
    bool known = true;
    Sql result = (this->*family)(e, scope, known);
    if (known) return result;
  }
  RaiseNotSupported(UpperCase(e.text), e.line);
}

Sql Translator::AsText(Sql value) {
  if (value.type.kind == TypeKind::kNull) value.type = TextType(1);
  return Convert(std::move(value), TextType(kMaxTextSize), ConvertMode::kImplicit);
}

Sql Translator::Text(const Expression& e, const Scope& scope) {
  return AsText(Value(e, scope));
}

Sql Translator::Int(const Expression& e, const Scope& scope) {
  return Convert(Value(e, scope), IntegerType(TypeKind::kBigInt), ConvertMode::kImplicit);
}

Sql Translator::Date(const Expression& e, const Scope& scope) {
  return Convert(Value(e, scope), SimpleType(TypeKind::kDateTime), ConvertMode::kImplicit);
}

Sql Translator::Number(const Expression& e, const Scope& scope) {
  Sql value = Value(e, scope);
  if (value.type.kind == TypeKind::kNull) value.type = IntegerType();
  if (!value.type.IsNumber())
    value = Convert(std::move(value), SimpleType(TypeKind::kFloat), ConvertMode::kImplicit);
  return Exact(std::move(value));
}

// Functions that look into texts and give a number.
Sql Translator::SearchFunction(const Expression& e, const Scope& scope, bool& known) {
  const std::string& name = e.text;
  if (name == "len") return MakeInt(fmt::format("length(rtrim({}))", Text(*e.args[0], scope).text));
  if (name == "charindex") {
    std::string call =
        fmt::format("ts_charindex({},{}", Text(*e.args[0], scope).text, Text(*e.args[1], scope).text);
    if (e.args.size() > 2) call += fmt::format(",{}", Int(*e.args[2], scope).text);
    return MakeInt(call + ")");
  }
  if (name == "patindex") {
    return MakeInt(
        fmt::format("ts_patindex({},{})", Text(*e.args[0], scope).text, Text(*e.args[1], scope).text));
  }
  if (name == "ascii" || name == "unicode") {
    return MakeInt(fmt::format("unicode({})", Text(*e.args[0], scope).text));
  }
  if (name == "datalength") {
    const Sql value = Value(*e.args[0], scope);
    if (!value.type.IsText() && value.type.kind != TypeKind::kNull) {
      return MakeInt(
          fmt::format("CASE WHEN {} IS NOT NULL THEN {} END", value.text, StorageSize(value.type)));
    }
    const bool national = value.type.kind >= TypeKind::kNChar && value.type.IsText();
    return MakeInt(fmt::format("ts_datalength({},{})", value.text, national ? 1 : 0));
  }
  known = false;
  return {};
}

// Functions that make a text of a number.
Sql Translator::MakingFunction(const Expression& e, const Scope& scope, bool& known) {
  const std::string& name = e.text;
  if (name == "char") return MakeText(fmt::format("ts_char({},255)", Int(*e.args[0], scope).text), 1);
  if (name == "nchar") {
    return MakeText(fmt::format("ts_char({},65535)", Int(*e.args[0], scope).text), 1, TypeKind::kNVarChar);
  }
  if (name == "space")
    return MakeText(fmt::format("ts_replicate(' ',{})", Int(*e.args[0], scope).text), kMaxTextSize);
  if (name == "str") {
    const int length = e.args.size() > 1 ? LiteralCount(*e.args[1]) : 10;
    const std::string width = e.args.size() > 1 ? Int(*e.args[1], scope).text : "10";
    const std::string digits = e.args.size() > 2 ? Int(*e.args[2], scope).text : "0";
    return MakeText(fmt::format("ts_str({},{},{})", Number(*e.args[0], scope).text, width, digits),
                    length < 1 ? kMaxTextSize : length);
  }
  known = false;
  return {};
}

// Functions from text to text.
Sql Translator::TextFunction(const Expression& e, const Scope& scope, bool& known) {
  static constexpr std::string_view kNames[] = {"substring", "left",    "right",  "ltrim",
                                                "rtrim",     "upper",   "lower",  "stuff",
                                                "replicate", "reverse", "replace"};
  const std::string& name = e.text;
  if (std::find(std::begin(kNames), std::end(kNames), name) == std::end(kNames)) {
    known = false;
    return {};
  }
  Sql given = Value(*e.args[0], scope);
  if (name == "substring" && !given.type.IsText() && given.type.kind != TypeKind::kNull) {
    Raise(8116, fmt::format("Argument data type {} is invalid for argument 1 of substring function.",
                            given.type.Word()));
  }
  const Sql text = AsText(std::move(given));
  const TypeKind kind = text.type.kind >= TypeKind::kNChar ? TypeKind::kNVarChar : TypeKind::kVarChar;
  const int size = text.type.size;
  if (name == "substring" || name == "left" || name == "right") return PartFunction(e, text, scope);
  if (name == "stuff") {
    const Sql put = Text(*e.args[3], scope);
    return MakeText(fmt::format("ts_stuff({},{},{},{})", text.text, Int(*e.args[1], scope).text,
                                Int(*e.args[2], scope).text, put.text),
                    size + put.type.size, kind);
  }
  if (name == "replicate") {
    return MakeText(fmt::format("ts_replicate({},{})", text.text, Int(*e.args[1], scope).text), kMaxTextSize,
                    kind);
  }
  if (name == "replace") {
    // The result of a replacement by something shorter is no longer than the text.
    const Sql from = Text(*e.args[1], scope);
    const Sql to = Text(*e.args[2], scope);
    const bool shorter = from.literal && to.literal && to.constant.size() <= from.constant.size();
    return MakeText(fmt::format("ts_replace({},{},{})", text.text, from.text, to.text),
                    shorter ? size : kMaxTextSize, kind);
  }
  return MakeText(fmt::format("{}({})", name == "reverse" ? "ts_reverse" : name, text.text), size, kind);
}

// SUBSTRING, LEFT and RIGHT.
Sql Translator::PartFunction(const Expression& e, const Sql& text, const Scope& scope) {
  const TypeKind kind = text.type.kind >= TypeKind::kNChar ? TypeKind::kNVarChar : TypeKind::kVarChar;
  const std::string first = Int(*e.args[1], scope).text;
  if (e.text != "substring")
    return MakeText(fmt::format("ts_{}({},{})", e.text, text.text, first), text.type.size, kind);
  const int start = LiteralCount(*e.args[1]);
  const int count = LiteralCount(*e.args[2]);
  if (start > 0 && count >= 0) {
    return MakeText(fmt::format("substr({},{},{})", text.text, start, count),
                    std::min(text.type.size, count * 2), kind);
  }
  return MakeText(fmt::format("ts_substring({},{},{})", text.text, first, Int(*e.args[2], scope).text),
                  text.type.size, kind);
}

Sql Translator::NumberFunction(const Expression& e, const Scope& scope, bool& known) {
  const std::string& name = e.text;
  if (name == "round") return Round(e, scope);
  if (name == "isnumeric")
    return MakeInt(fmt::format("ifnull(ts_isnumeric({}),0)", Value(*e.args[0], scope).text));
  if (name == "isdate") return MakeInt(fmt::format("ts_isdate({})", Text(*e.args[0], scope).text));
  if (name == "scope_identity") {
    Sql result = MakeInt(fmt::format("?{}", Variables::kIdentity + 1));
    result.type = DecimalType(38, 0);
    return result;
  }
  if (name == "sqrt" || name == "square" || name == "exp" || name == "log") {
    return MakeFloat(fmt::format("ts_{}({})", name, Number(*e.args[0], scope).text));
  }
  if (name != "abs" && name != "floor" && name != "ceiling" && name != "sign" && name != "power") {
    known = false;
    return {};
  }
  Sql value = Number(*e.args[0], scope);
  value.nonzero = false;
  value.literal = false;
  if (value.type.IsInteger()) value.type = IntegerType(value.type.kind);
  if (name == "abs") {
    value.text = value.type.IsInteger()
                     ? fmt::format("ts_int(abs({}),{})", value.text, static_cast<int>(value.type.kind))
                     : fmt::format("abs({})", value.text);
    return value;
  }
  if (name == "power") {
    value.text = fmt::format("ts_power({},{})", value.text, Number(*e.args[1], scope).text);
    if (value.type.IsScaled()) value.text = fmt::format("ts_round({},{})", value.text, value.type.scale);
    if (value.type.IsInteger())
      value.text = fmt::format("ts_int({},{})", value.text, static_cast<int>(value.type.kind));
    return value;
  }
  if (value.type.IsInteger() && name != "sign") return value;
  value.text = fmt::format("ts_{}({})", name, value.text);
  value.digits = -1;
  if (value.type.kind == TypeKind::kDecimal && name != "sign") value.type.scale = 0;
  return value;
}

Sql Translator::Round(const Expression& e, const Scope& scope) {
  Sql value = Value(*e.args[0], scope);
  if (value.type.kind == TypeKind::kNull) value.type = IntegerType();
  if (!value.type.IsNumber())
    value = Convert(std::move(value), SimpleType(TypeKind::kFloat), ConvertMode::kImplicit);
  value.nonzero = false;
  value.literal = false;
  const int digits = LiteralCount(*e.args[1]);
  const bool cuts =
      e.args.size() > 2 && !(e.args[2]->kind == ExpressionKind::kInteger && e.args[2]->text == "0");
  if (value.type.IsInteger()) {
    if (digits >= 0) return value;
    value.text = fmt::format("ts_int(ts_round({},{},{}),{})", value.text, Int(*e.args[1], scope).text,
                             cuts ? 1 : 0, static_cast<int>(value.type.kind));
    return value;
  }
  if (value.type.IsScaled() && value.exact && digits >= value.Digits()) return value;
  if (digits < 0 || cuts) value = Exact(std::move(value));
  value.text = fmt::format("ts_round({},{}{})", value.text, Int(*e.args[1], scope).text, cuts ? ",1" : "");
  value.exact = true;
  value.digits = digits;
  return value;
}

Sql Translator::DateFunction(const Expression& e, const Scope& scope, bool& known) {
  const std::string& name = e.text;
  Sql result;
  result.type = SimpleType(TypeKind::kDateTime);
  if (name == "getdate") {
    NoteUnsteady();
    result.text = "ts_now()";
    return result;
  }
  if (name == "year" || name == "month" || name == "day") {
    const std::string date = Date(*e.args[0], scope).text;
    const char* place = name == "year" ? "1,4" : name == "month" ? "6,2" : "9,2";
    return MakeInt(fmt::format("CAST(substr({},{}) AS INTEGER)", date, place));
  }
  if (name == "dateadd") {
    const int part = static_cast<int>(PartArgument(e));
    result.text =
        fmt::format("ts_dateadd({},{},{})", part, Int(*e.args[1], scope).text, Date(*e.args[2], scope).text);
    return result;
  }
  if (name == "datediff") {
    const int part = static_cast<int>(PartArgument(e));
    return MakeInt(fmt::format("ts_int(ts_datediff({},{},{}),{})", part, Date(*e.args[1], scope).text,
                               Date(*e.args[2], scope).text, static_cast<int>(TypeKind::kInt)));
  }
  if (name == "datepart") {
    const int part = static_cast<int>(PartArgument(e));
    return MakeInt(fmt::format("ts_datepart({},{})", part, Date(*e.args[1], scope).text));
  }
  if (name == "datename") {
    const int part = static_cast<int>(PartArgument(e));
    return MakeText(fmt::format("ts_datename({},{})", part, Date(*e.args[1], scope).text), 30,
                    TypeKind::kNVarChar);
  }
  known = false;
  return {};
}

Sql Translator::IsNull(const Expression& e, const Scope& scope) {
  Sql value = Value(*e.args[0], scope);
  Sql substitute = Value(*e.args[1], scope);
  if (value.type.kind == TypeKind::kNull) value.type = substitute.type;
  const bool literal_number = value.type.IsInteger() && substitute.type.IsInteger() && substitute.literal;
  if (!literal_number) substitute = Convert(std::move(substitute), value.type, ConvertMode::kExplicit);
  Sql result;
  result.type = value.type;
  result.type.nullable = substitute.type.nullable && !substitute.literal;
  result.exact = value.exact && substitute.exact;
  result.digits = std::max(value.Digits(), substitute.literal ? 0 : substitute.Digits());
  if (substitute.literal && substitute.type.scale > 0) result.digits = -1;
  if (value.type.IsApproximate()) result.digits = value.digits;
  result.text = fmt::format("ifnull({},{})", value.text, substitute.text);
  return result;
}

Sql Translator::Coalesce(const Expression& e, const Scope& scope) {
  const auto is_null = [](const ExpressionPtr& argument) { return argument->kind == ExpressionKind::kNull; };
  if (std::all_of(e.args.begin(), e.args.end(), is_null)) {
    Raise(4127,
          "At least one of the arguments to COALESCE must be an expression that is not the NULL constant.");
  }
  std::vector<Sql> values;
  Sql result;
  for (const ExpressionPtr& argument : e.args) {
    values.push_back(Value(*argument, scope));
    result.type = CommonType(result.type, values.back().type);
  }
  for (Sql& value : values) {
    value = Convert(std::move(value), result.type, ConvertMode::kImplicit);
    result.exact = result.exact && value.exact;
    result.text += (result.text.empty() ? "coalesce(" : ",") + value.text;
  }
  result.text += ")";
  return result;
}

Sql Translator::NullIf(const Expression& e, const Scope& scope) {
  Sql result = Value(*e.args[0], scope);
  const Sql other = Value(*e.args[1], scope);
  const bool alike =
      result.type.IsNumber() == other.type.IsNumber() && result.type.IsDate() == other.type.IsDate();
  const std::string collated = Collated(result);
  Sql inner;
  inner.type = result.type;
  inner.exact = result.exact;
  inner.text = std::string(1, 'x');
  result.nocase = false;
  result.literal = false;
  result.nonzero = false;
  if (alike || result.type.kind == TypeKind::kNull || other.type.kind == TypeKind::kNull) {
    result.text = fmt::format("nullif({},{})", collated, other.text);
  } else {
    result.text = fmt::format("(SELECT CASE WHEN {} THEN NULL ELSE x END FROM (SELECT {} AS x))",
                              Compare("=", inner, other), result.text);
  }
  return result;
}

// Tells a batch whether a table is there; the id itself has no meaning.
Sql Translator::ObjectId(const Expression& e) {
  const Expression& name = *e.args[0];
  if (name.kind != ExpressionKind::kText) RaiseNotSupported("OBJECT_ID of an expression", e.line);
  return MakeInt(catalog_.Find(SplitName(name.text)) == nullptr ? "NULL" : "1");
}

}  // namespace salerpt::tsql
