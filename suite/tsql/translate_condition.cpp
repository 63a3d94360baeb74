// Conditions: comparisons, IN, BETWEEN, LIKE, EXISTS.
#include <fmt/format.h>

#include "suite/tsql/datetime.h"
#include "suite/tsql/error.h"
#include "suite/tsql/translator.h"

namespace salerpt::tsql {
namespace {

// The x of CONVERT(datetime, CONVERT(varchar(n), x, style)): a date without its time of day.
const Expression* DayOf(const Expression& e) {
  if (e.kind != ExpressionKind::kConvert || !e.type.IsDate()) return nullptr;
  const Expression& text = *e.args[0];
  if (text.kind != ExpressionKind::kConvert || !text.type.IsText() || text.args.size() != 2) return nullptr;
  const Expression& style = *text.args[1];
  if (style.kind != ExpressionKind::kInteger) return nullptr;
  const bool day_style = style.text == "111" || style.text == "23" || style.text == "112";
  const bool cut_style = (style.text == "120" || style.text == "121") && text.type.size == 10;
  if (!cut_style && !(day_style && text.type.size >= 10)) return nullptr;
  return text.args[0].get();
}

std::string_view Mirrored(std::string_view op) {
  if (op == "<") return ">";
  if (op == "<=") return ">=";
  if (op == ">") return "<";
  if (op == ">=") return "<=";
  return op;
}

std::string PlainPattern(const std::string& pattern) {
  return pattern.find('[') == std::string::npos ? QuoteLiteral(pattern) : std::string();
}

}  // namespace

std::string Translator::Condition(const Expression& e, const Scope& scope) {
  switch (e.kind) {
    case ExpressionKind::kAnd:
    case ExpressionKind::kOr:
      return fmt::format("({} {} {})", Condition(*e.args[0], scope),
                         e.kind == ExpressionKind::kAnd ? "AND" : "OR", Condition(*e.args[1], scope));
    case ExpressionKind::kNot:
      return fmt::format("(NOT {})", Condition(*e.args[0], scope));
    case ExpressionKind::kCompare:
      return CompareExpressions(e, scope);
    case ExpressionKind::kIsNull:
      return fmt::format("({} IS {}NULL)", Value(*e.args[0], scope).text, e.negated ? "NOT " : "");
    case ExpressionKind::kIn:
      return In(e, scope);
    case ExpressionKind::kBetween:
      return Between(e, scope);
    case ExpressionKind::kLike:
      return Like(e, scope);
    case ExpressionKind::kExists:
      return Exists(e, scope);
    default:
      Raise(4145, "An expression of non-boolean type specified in a context where a condition is expected.",
            e.line);
  }
}

std::string Translator::CompareExpressions(const Expression& e, const Scope& scope) {
  std::string folded = FoldDayCompare(e.text, *e.args[0], *e.args[1], scope);
  if (folded.empty()) folded = FoldDayCompare(Mirrored(e.text), *e.args[1], *e.args[0], scope);
  if (!folded.empty()) return folded;
  return Compare(e.text, Value(*e.args[0], scope), Value(*e.args[1], scope));
}

// The batches cut dates to their day before they compare them with a day. A plain range over the column says
// the same, and an index can serve it.
std::string Translator::FoldDayCompare(std::string_view op, const Expression& a, const Expression& b,
                                       const Scope& scope) {
  const Expression* inner = DayOf(a);
  if (inner == nullptr || inner->kind != ExpressionKind::kColumn || b.kind != ExpressionKind::kText)
    return {};
  if (op == "<>" || op == "=") return {};
  const Sql column = Value(*inner, scope);
  if (!column.type.IsDate()) return {};
  const std::optional<DateTime> bound = TryParseDateTime(b.text, -1);
  if (!bound) return {};
  const DateTime day{bound->days, 0};
  const DateTime next{bound->days + 1, 0};
  const bool midnight = bound->milliseconds == 0;
  const bool from_next = (op == ">") || (op == ">=" && !midnight);
  const bool below_next = (op == "<=") || (op == "<" && !midnight);
  const DateTime& limit = from_next || below_next ? next : day;
  const bool lower = op == ">" || op == ">=";
  return fmt::format("({} {} {})", column.text, lower ? ">=" : "<", QuoteLiteral(limit.Canonical()));
}

std::string Translator::Compare(std::string_view op, Sql a, Sql b) {
  const ColumnType common = CommonType(a.type, b.type);
  a = Exact(Convert(std::move(a), common, ConvertMode::kImplicit));
  b = Exact(Convert(std::move(b), common, ConvertMode::kImplicit));
  const bool collate = common.IsText() && !a.nocase && !b.nocase;
  return fmt::format("({}{} {} {})", a.text, collate ? " COLLATE NOCASE" : "", op, b.text);
}

std::string Translator::In(const Expression& e, const Scope& scope) {
  Sql left = Value(*e.args[0], scope);
  const char* word = e.negated ? "NOT IN" : "IN";
  if (e.query != nullptr) {
    QuerySql query = TranslateQuery(*e.query, &scope, QueryUse::kDerived, nullptr, nullptr);
    if (query.columns.size() != 1) Raise(116, std::string(kSubqueryColumnsText));
    const ColumnType& found = query.columns[0].type;
    const ColumnType common = CommonType(left.type, found);
    left = Convert(std::move(left), common, ConvertMode::kImplicit);
    if (found.IsText() != common.IsText() || found.IsDate() != common.IsDate()) {
      Sql inner;
      inner.type = found;
      inner.text = "x";
      inner = Convert(std::move(inner), common, ConvertMode::kImplicit);
      query.text =
          fmt::format("WITH {0}(x) AS ({1}) SELECT {2} FROM {0}", NewAlias(), query.text, inner.text);
    }
    return fmt::format("({} {} ({}))", Collated(left), word, query.text);
  }
  std::vector<Sql> values;
  ColumnType common = left.type;
  for (std::size_t i = 1; i < e.args.size(); ++i) {
    values.push_back(Value(*e.args[i], scope));
    common = CommonType(common, values.back().type);
  }
  left = Exact(Convert(std::move(left), common, ConvertMode::kImplicit));
  std::string list;
  for (Sql& value : values) {
    if (!list.empty()) list += ", ";
    list += Exact(Convert(std::move(value), common, ConvertMode::kImplicit)).text;
  }
  return fmt::format("({} {} ({}))", Collated(left), word, list);
}

std::string Translator::Between(const Expression& e, const Scope& scope) {
  const char* negation = e.negated ? "NOT " : "";
  const std::string from = FoldDayCompare(">=", *e.args[0], *e.args[1], scope);
  const std::string to = FoldDayCompare("<=", *e.args[0], *e.args[2], scope);
  if (!from.empty() && !to.empty()) return fmt::format("({}({} AND {}))", negation, from, to);
  // The value stands once in the translation: written out twice, nested ranges would double it at every
  // level.
  Sql value = Value(*e.args[0], scope);
  Sql low = Value(*e.args[1], scope);
  Sql high = Value(*e.args[2], scope);
  const ColumnType common = CommonType(CommonType(value.type, low.type), high.type);
  value = Exact(Convert(std::move(value), common, ConvertMode::kImplicit));
  low = Exact(Convert(std::move(low), common, ConvertMode::kImplicit));
  high = Exact(Convert(std::move(high), common, ConvertMode::kImplicit));
  return fmt::format("({} {}BETWEEN {} AND {})", Collated(value), negation, low.text, high.text);
}

std::string Translator::Like(const Expression& e, const Scope& scope) {
  const Sql text = Convert(Value(*e.args[0], scope), TextType(kMaxTextSize), ConvertMode::kImplicit);
  const Sql pattern = Convert(Value(*e.args[1], scope), TextType(kMaxTextSize), ConvertMode::kImplicit);
  const char* negation = e.negated ? "NOT " : "";
  if (e.args.size() > 2) {
    return fmt::format("({}ts_like({}, {}, {}))", negation, pattern.text, text.text,
                       Value(*e.args[2], scope).text);
  }
  // Where blanks at the end of the text may fall away, only our own function knows how.
  const bool national = text.type.kind >= TypeKind::kNChar && text.type.IsText();
  if (e.args[1]->kind == ExpressionKind::kText && (national || pattern.constant.ends_with('%'))) {
    const std::string plain = PlainPattern(pattern.constant);
    if (!plain.empty()) return fmt::format("({} {}LIKE {})", text.text, negation, plain);
  }
  return fmt::format("({}ts_like({}, {}))", negation, pattern.text, text.text);
}

std::string Translator::Exists(const Expression& e, const Scope& scope) {
  return "EXISTS (" + TranslateQuery(*e.query, &scope, QueryUse::kDerived, nullptr, nullptr).text + ")";
}

}  // namespace salerpt::tsql
