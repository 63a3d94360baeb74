// Expressions and conditions.
#include <fmt/format.h>

#include <algorithm>

#include "runtime/text.h"
#include "suite/tsql/error.h"
#include "suite/tsql/function_names.h"
#include "suite/tsql/parser.h"

namespace salerpt::tsql {
namespace {

// SQLite takes expression trees up to a depth of 1000; a translated node needs a few levels.
constexpr int kMaxExpressionDepth = 250;

bool IsCondition(const Expression& expression) {
  switch (expression.kind) {
    case ExpressionKind::kCompare:
    case ExpressionKind::kAnd:
    case ExpressionKind::kOr:
    case ExpressionKind::kNot:
    case ExpressionKind::kIsNull:
    case ExpressionKind::kIn:
    case ExpressionKind::kBetween:
    case ExpressionKind::kLike:
    case ExpressionKind::kExists:
      return true;
    default:
      return false;
  }
}

}  // namespace

ExpressionPtr Parser::NewExpression(ExpressionKind kind) const {
  auto expression = std::make_unique<Expression>();
  expression->kind = kind;
  expression->line = Peek().line;
  return expression;
}

void Parser::Adopt(Expression& parent, ExpressionPtr child) const {
  parent.depth = std::max(parent.depth, child->depth + 1);
  if (parent.depth > kMaxExpressionDepth) Raise(191, std::string(kTooDeepText), child->line);
  parent.args.push_back(std::move(child));
}

ExpressionPtr Parser::NewBinary(ExpressionKind kind, std::string text, ExpressionPtr left,
                                ExpressionPtr right) const {
  ExpressionPtr result = NewExpression(kind);
  result->text = std::move(text);
  Adopt(*result, std::move(left));
  Adopt(*result, std::move(right));
  return result;
}

// A value. A condition is none: the server has no booleans.
ExpressionPtr Parser::ParseExpression() {
  const DepthGuard guard(*this);
  ExpressionPtr expression = ParseSum();
  if (expression->kind == ExpressionKind::kCompare) {
    Raise(102, fmt::format("Incorrect syntax near '{}'.", expression->text), expression->line);
  }
  if (IsCondition(*expression)) FailHere();
  return expression;
}

ExpressionPtr Parser::ParseCondition() {
  const DepthGuard guard(*this);
  ExpressionPtr result = ParseOr();
  RequireCondition(*result);
  return result;
}

// The server has no booleans: a value is no condition. It names what stands behind it, at the end the last
// token.
void Parser::RequireCondition(const Expression& expression) const {
  if (IsCondition(expression)) return;
  const bool at_end = Peek().kind == TokenKind::kEnd && position_ > 0;
  const Token& token = at_end ? tokens_[position_ - 1] : Peek();
  Raise(4145,
        fmt::format(
            "An expression of non-boolean type specified in a context where a condition is expected, near "
            "'{}'.",
            token.text),
        token.line);
}

ExpressionPtr Parser::ParseOr() {
  ExpressionPtr left = ParseAnd();
  while (AtWord("or")) {
    RequireCondition(*left);
    Take();
    ExpressionPtr right = ParseAnd();
    RequireCondition(*right);
    left = NewBinary(ExpressionKind::kOr, "or", std::move(left), std::move(right));
  }
  return left;
}

ExpressionPtr Parser::ParseAnd() {
  ExpressionPtr left = ParseNot();
  while (AtWord("and")) {
    RequireCondition(*left);
    Take();
    ExpressionPtr right = ParseNot();
    RequireCondition(*right);
    left = NewBinary(ExpressionKind::kAnd, "and", std::move(left), std::move(right));
  }
  return left;
}

ExpressionPtr Parser::ParseNot() {
  const DepthGuard guard(*this);
  if (!TakeWord("not")) return ParsePredicate();
  ExpressionPtr result = NewExpression(ExpressionKind::kNot);
  Adopt(*result, ParseNot());
  return result;
}

ExpressionPtr Parser::ParsePredicate() {
  if (TakeWord("exists")) {
    ExpressionPtr result = NewExpression(ExpressionKind::kExists);
    ExpectSymbol("(");
    result->query = ParseQuery();
    ExpectSymbol(")");
    return result;
  }
  ExpressionPtr left = ParseSum();
  return IsCondition(*left) ? std::move(left) : ParsePredicateTail(std::move(left));
}

ExpressionPtr Parser::ParsePredicateTail(ExpressionPtr left) {
  static constexpr std::string_view kOperators[] = {"=", "<>", "<", "<=", ">", ">=", "!=", "!<", "!>"};
  for (const std::string_view symbol : kOperators) {
    if (!TakeSymbol(symbol)) continue;
    if (AtWord("any") || AtWord("all") || AtWord("some")) RefuseHere(UpperCase(Peek().text));
    std::string text(symbol);
    if (symbol == "!=") text = "<>";
    if (symbol == "!<") text = ">=";
    if (symbol == "!>") text = "<=";
    ExpressionPtr right = ParseSum();
    if (IsCondition(*right)) FailHere();
    return NewBinary(ExpressionKind::kCompare, text, std::move(left), std::move(right));
  }
  if (TakeWord("is")) {
    ExpressionPtr result = NewExpression(ExpressionKind::kIsNull);
    result->negated = TakeWord("not");
    ExpectWord("null");
    Adopt(*result, std::move(left));
    return result;
  }
  const bool negated = TakeWord("not");
  if (TakeWord("in")) return ParseIn(std::move(left), negated);
  ExpressionPtr result;
  if (TakeWord("between")) {
    result = NewExpression(ExpressionKind::kBetween);
    Adopt(*result, std::move(left));
    Adopt(*result, ParseSum());
    ExpectWord("and");
    Adopt(*result, ParseSum());
  } else if (TakeWord("like")) {
    result = NewExpression(ExpressionKind::kLike);
    Adopt(*result, std::move(left));
    Adopt(*result, ParseSum());
    if (TakeWord("escape")) Adopt(*result, ParseSum());
  } else {
    if (negated) FailHere();
    return left;
  }
  result->negated = negated;
  return result;
}

ExpressionPtr Parser::ParseIn(ExpressionPtr left, bool negated) {
  ExpressionPtr result = NewExpression(ExpressionKind::kIn);
  result->negated = negated;
  Adopt(*result, std::move(left));
  ExpectSymbol("(");
  if (AtWord("select")) {
    result->query = ParseQuery();
  } else {
    do {
      Adopt(*result, ParseExpression());
    } while (TakeSymbol(","));
  }
  ExpectSymbol(")");
  return result;
}

ExpressionPtr Parser::ParseSum() {
  ExpressionPtr left = ParseProduct();
  while (AtSymbol("+") || AtSymbol("-") || AtSymbol("&") || AtSymbol("|") || AtSymbol("^")) {
    std::string symbol = Take().text;
    left = NewBinary(ExpressionKind::kBinary, std::move(symbol), std::move(left), ParseProduct());
  }
  return left;
}

ExpressionPtr Parser::ParseProduct() {
  ExpressionPtr left = ParseUnary();
  while (AtSymbol("*") || AtSymbol("/") || AtSymbol("%")) {
    std::string symbol = Take().text;
    left = NewBinary(ExpressionKind::kBinary, std::move(symbol), std::move(left), ParseUnary());
  }
  return left;
}

ExpressionPtr Parser::ParseUnary() {
  const DepthGuard guard(*this);
  if (!AtSymbol("-") && !AtSymbol("+") && !AtSymbol("~")) return ParsePrimary();
  ExpressionPtr result = NewExpression(ExpressionKind::kUnary);
  result->text = Take().text;
  Adopt(*result, ParseUnary());
  return result;
}

ExpressionPtr Parser::ParsePrimary() {
  ExpressionPtr result;
  if (AtSymbol("(")) {
    result = ParseParenthesis();
  } else if (Peek().kind == TokenKind::kVariable) {
    result = ParseVariable();
  } else if (AtWord("case")) {
    result = ParseCase();
  } else if (AtWord("convert") && AtSymbol("(", 1)) {
    result = ParseConvert();
  } else if (AtWord("cast") && AtSymbol("(", 1)) {
    result = ParseCast();
  } else if (Peek().kind == TokenKind::kWord || Peek().kind == TokenKind::kName) {
    result = ParseNameExpression();
  } else {
    result = ParseLiteral();
  }
  if (AtWord("collate")) RefuseHere("COLLATE");
  return result;
}

ExpressionPtr Parser::ParseParenthesis() {
  const DepthGuard guard(*this);
  Take();
  ExpressionPtr result;
  if (AtWord("select")) {
    result = NewExpression(ExpressionKind::kSubquery);
    result->query = ParseQuery();
  } else {
    result = ParseOr();
  }
  ExpectSymbol(")");
  return result;
}

ExpressionPtr Parser::ParseLiteral() {
  ExpressionPtr result = NewExpression(ExpressionKind::kNull);
  const Token& token = Peek();
  switch (token.kind) {
    case TokenKind::kText:
      result->kind = ExpressionKind::kText;
      result->national = token.national;
      break;
    case TokenKind::kInteger:
      result->kind = ExpressionKind::kInteger;
      break;
    case TokenKind::kDecimal:
      result->kind = ExpressionKind::kDecimal;
      break;
    case TokenKind::kFloat:
      result->kind = ExpressionKind::kFloat;
      break;
    default:
      FailHere();
  }
  result->text = Take().text;
  return result;
}

ExpressionPtr Parser::ParseVariable() {
  CheckVariable(Peek());
  ExpressionPtr result = NewExpression(ExpressionKind::kVariable);
  result->text = Take().text;
  return result;
}

ExpressionPtr Parser::ParseNameExpression() {
  const Token token = Peek();
  const bool call = AtSymbol("(", 1);
  // These words are reserved and yet names of functions.
  const bool reserved_call =
      call && (AtWord("left") || AtWord("right") || AtWord("coalesce") || AtWord("nullif"));
  if (TakeWord("null")) return NewExpression(ExpressionKind::kNull);
  if (call && token.kind == TokenKind::kWord && (AtName() || reserved_call)) {
    Take();
    return ParseFunction(token.text, token.line);
  }
  if (AtWord("current_timestamp")) {
    Take();
    ExpressionPtr now = NewExpression(ExpressionKind::kFunction);
    now->text = "getdate";
    return now;
  }
  ExpressionPtr result = NewExpression(ExpressionKind::kColumn);
  result->name = {TakeName()};
  while (TakeSymbol(".")) {
    if (TakeSymbol("*")) {
      result->kind = ExpressionKind::kStar;
      return result;
    }
    result->name.push_back(AtSymbol(".") ? std::string() : TakeName());
    if (result->name.size() > 5) FailHere();
  }
  if (AtSymbol("(")) RefuseHere("A user-defined function");
  return result;
}

ExpressionPtr Parser::ParseFunction(const std::string& name, int line) {
  const DepthGuard guard(*this);
  ExpressionPtr result = NewExpression(ExpressionKind::kFunction);
  result->line = line;
  result->text = LowerName(name);
  if (!IsKnownFunction(result->text)) {
    Raise(195, fmt::format("'{}' is not a recognized built-in function name.", name), line);
  }
  ExpectSymbol("(");
  if (!AtSymbol(")")) {
    if (TakeWord("distinct")) {
      result->distinct = true;
    } else {
      TakeWord("all");
    }
    do {
      if (AtSymbol("*") && result->args.empty()) {
        Take();
        Adopt(*result, NewExpression(ExpressionKind::kStar));
      } else {
        Adopt(*result, ParseExpression());
      }
    } while (TakeSymbol(","));
  }
  ExpectSymbol(")");
  CheckArgumentCount(result->text, result->args.size(), line);
  return AtWord("over") ? ParseOver(std::move(result)) : std::move(result);
}

ExpressionPtr Parser::ParseOver(ExpressionPtr function) {
  if (function->text != "row_number") RefuseHere(UpperCase(function->text) + " OVER");
  Take();
  function->kind = ExpressionKind::kRowNumber;
  ExpectSymbol("(");
  if (TakeWord("partition")) {
    ExpectWord("by");
    do {
      function->partition.push_back(ParseExpression());
    } while (TakeSymbol(","));
  }
  ExpectWord("order");
  ExpectWord("by");
  function->order = ParseOrderList();
  ExpectSymbol(")");
  return function;
}

ExpressionPtr Parser::ParseCase() {
  const DepthGuard guard(*this);
  ExpressionPtr result = NewExpression(ExpressionKind::kCase);
  Take();
  if (!AtWord("when")) {
    result->has_operand = true;
    Adopt(*result, ParseExpression());
  }
  if (!AtWord("when")) FailHere();
  while (TakeWord("when")) {
    Adopt(*result, result->has_operand ? ParseExpression() : ParseCondition());
    ExpectWord("then");
    Adopt(*result, ParseExpression());
  }
  if (TakeWord("else")) {
    result->has_else = true;
    Adopt(*result, ParseExpression());
  }
  ExpectWord("end");
  return result;
}

ExpressionPtr Parser::ParseCast() {
  const DepthGuard guard(*this);
  ExpressionPtr result = NewExpression(ExpressionKind::kConvert);
  Take();
  ExpectSymbol("(");
  Adopt(*result, ParseExpression());
  ExpectWord("as");
  const bool sized = AtSymbol("(", 1);
  result->type = ParseTypeName();
  if (result->type.IsText() && !sized) result->type.size = 30;
  ExpectSymbol(")");
  return result;
}

ExpressionPtr Parser::ParseConvert() {
  const DepthGuard guard(*this);
  ExpressionPtr result = NewExpression(ExpressionKind::kConvert);
  Take();
  ExpectSymbol("(");
  const bool sized = AtSymbol("(", 1);
  result->type = ParseTypeName();
  if (result->type.IsText() && !sized) result->type.size = 30;
  ExpectSymbol(",");
  Adopt(*result, ParseExpression());
  if (TakeSymbol(",")) Adopt(*result, ParseExpression());
  ExpectSymbol(")");
  return result;
}

}  // namespace salerpt::tsql
