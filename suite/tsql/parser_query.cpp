// SELECT and its clauses.
#include "runtime/text.h"
#include "suite/tsql/error.h"
#include "suite/tsql/parser.h"

namespace salerpt::tsql {

QueryPtr Parser::ParseQuery() {
  const DepthGuard guard(*this);
  auto query = std::make_unique<Query>();
  // A whole query in parentheses, as in INSERT … (SELECT …).
  if (AtSymbol("(") && (AtWord("select", 1) || AtSymbol("(", 1))) {
    Take();
    query = ParseQuery();
    ExpectSymbol(")");
    if (query->order_by.empty() && !AtWord("union")) return query;
  } else {
    query->blocks.push_back(ParseQueryBlock());
  }
  while (true) {
    if (TakeWord("union")) {
      query->operators.push_back(TakeWord("all") ? SetOperator::kUnionAll : SetOperator::kUnion);
    } else if (TakeWord("except")) {
      query->operators.push_back(SetOperator::kExcept);
    } else if (TakeWord("intersect")) {
      query->operators.push_back(SetOperator::kIntersect);
    } else {
      break;
    }
    const bool parenthesis = TakeSymbol("(");
    query->blocks.push_back(ParseQueryBlock());
    if (parenthesis) ExpectSymbol(")");
  }
  if (TakeWord("order")) {
    ExpectWord("by");
    query->order_by = ParseOrderList();
  }
  if (AtWord("for") || AtWord("compute") || AtWord("option")) RefuseHere(UpperCase(Peek().text));
  return query;
}

QueryBlock Parser::ParseQueryBlock() {
  QueryBlock block;
  block.line = Peek().line;
  ExpectWord("select");
  if (TakeWord("distinct")) {
    block.distinct = true;
  } else {
    TakeWord("all");
  }
  ParseTop(block);
  do {
    block.items.push_back(ParseSelectItem());
  } while (TakeSymbol(","));
  if (TakeWord("into")) block.into = TakeNameParts();
  if (TakeWord("from")) block.from = ParseFromList();
  if (TakeWord("where")) block.where = ParseCondition();
  if (AtWord("group")) ParseGroupBy(block);
  if (TakeWord("having")) block.having = ParseCondition();
  return block;
}

void Parser::ParseTop(QueryBlock& block) {
  if (!TakeWord("top")) return;
  if (TakeSymbol("(")) {
    block.top = ParseExpression();
    ExpectSymbol(")");
  } else if (Peek().kind == TokenKind::kInteger) {
    block.top = ParseLiteral();
  } else if (Peek().kind == TokenKind::kVariable) {
    block.top = ParseVariable();
  } else {
    FailHere();
  }
  if (AtWord("percent")) RefuseHere("TOP ... PERCENT");
  if (AtWord("with") && AtWord("ties", 1)) RefuseHere("TOP ... WITH TIES");
}

SelectItem Parser::ParseSelectItem() {
  SelectItem item;
  if (Peek().kind == TokenKind::kVariable && AtSymbol("=", 1) && !Peek().text.starts_with("@@")) {
    CheckVariable(Peek());
    item.variable = Take().text;
    Take();
    item.expression = ParseExpression();
    return item;
  }
  if (AtSymbol("*")) {
    Take();
    item.expression = NewExpression(ExpressionKind::kStar);
    return item;
  }
  const bool named_in_front = (AtName() || Peek().kind == TokenKind::kText) && AtSymbol("=", 1);
  if (named_in_front) {
    item.alias = Take().text;
    Take();
    item.expression = ParseExpression();
    return item;
  }
  item.expression = ParseExpression();
  if (item.expression->kind != ExpressionKind::kStar) item.alias = ParseOptionalAlias();
  return item;
}

std::string Parser::ParseOptionalAlias() {
  if (TakeWord("as")) {
    if (Peek().kind == TokenKind::kText) return Take().text;
    return TakeName();
  }
  if (AtName() || Peek().kind == TokenKind::kText) return Take().text;
  return {};
}

std::vector<TableSourcePtr> Parser::ParseFromList() {
  std::vector<TableSourcePtr> list;
  do {
    list.push_back(ParseJoins());
  } while (TakeSymbol(","));
  return list;
}

bool Parser::TakeJoin(JoinKind& kind) {
  if (TakeWord("join")) {
    kind = JoinKind::kInner;
    return true;
  }
  if (AtWord("outer") || AtWord("cross")) {
    if (AtWord("apply", 1)) RefuseHere("APPLY");
  }
  if (TakeWord("inner")) {
    kind = JoinKind::kInner;
  } else if (TakeWord("cross")) {
    kind = JoinKind::kCross;
  } else if (TakeWord("left")) {
    kind = JoinKind::kLeft;
  } else if (TakeWord("right")) {
    kind = JoinKind::kRight;
  } else if (TakeWord("full")) {
    kind = JoinKind::kFull;
  } else {
    return false;
  }
  TakeWord("outer");
  if (TakeWord("hash") || TakeWord("loop") || TakeWord("merge")) {
  }
  ExpectWord("join");
  return true;
}

TableSourcePtr Parser::ParseJoins() {
  const DepthGuard guard(*this);
  TableSourcePtr left = ParseTableSource();
  JoinKind kind = JoinKind::kInner;
  int length = 0;
  while (TakeJoin(kind)) {
    if (++length > 60) Raise(191, std::string(kTooDeepText), Peek().line);
    auto join = std::make_unique<TableSource>();
    join->join = kind;
    join->left = std::move(left);
    join->right = ParseTableSource();
    if (kind != JoinKind::kCross) {
      // "a join b join c on … on …": the inner condition closes the inner join.
      while (!AtWord("on")) {
        JoinKind inner_kind = JoinKind::kInner;
        if (!TakeJoin(inner_kind)) FailHere();
        auto inner = std::make_unique<TableSource>();
        inner->join = inner_kind;
        inner->left = std::move(join->right);
        inner->right = ParseTableSource();
        if (++length > 60) Raise(191, std::string(kTooDeepText), Peek().line);
        ExpectWord("on");
        inner->on = ParseCondition();
        join->right = std::move(inner);
      }
      ExpectWord("on");
      join->on = ParseCondition();
    }
    left = std::move(join);
  }
  return left;
}

TableSourcePtr Parser::ParseTableSource() {
  const DepthGuard guard(*this);
  auto source = std::make_unique<TableSource>();
  if (AtSymbol("(")) {
    bool derived = true;
    for (std::size_t ahead = 0; AtSymbol("(", ahead); ++ahead) derived = AtWord("select", ahead + 1);
    Take();
    if (!derived) {
      source = ParseJoins();
      ExpectSymbol(")");
      return source;
    }
    source->query = ParseQuery();
    ExpectSymbol(")");
    TakeWord("as");
    source->alias = TakeName();
    if (AtSymbol("(")) source->column_aliases = ParseColumnNames();
    return source;
  }
  source->name = TakeNameParts();
  if (AtSymbol("(") && !AtWord("nolock", 1) && !AtWord("index", 1)) RefuseHere("A table-valued function");
  SkipTableHints();
  if (TakeWord("as") || AtName()) source->alias = TakeName();
  SkipTableHints();
  if (AtWord("pivot") || AtWord("unpivot")) RefuseHere(UpperCase(Peek().text));
  return source;
}

// WITH (NOLOCK) and its like speak about locks, of which there are none.
void Parser::SkipTableHints() {
  static constexpr std::string_view kHints[] = {"nolock",  "readuncommitted", "rowlock", "tablock",
                                                "updlock", "holdlock",        "tablockx"};
  std::size_t ahead = AtWord("with") ? 1 : 0;
  if (!AtSymbol("(", ahead)) return;
  bool hint = false;
  for (const std::string_view word : kHints) hint = hint || AtWord(word, ahead + 1);
  if (!hint) return;
  for (ahead += 1; ahead > 0; --ahead) Take();
  while (!TakeSymbol(")")) {
    if (Peek().kind == TokenKind::kEnd) FailHere();
    Take();
  }
}

void Parser::ParseGroupBy(QueryBlock& block) {
  Take();
  ExpectWord("by");
  block.grouping = Grouping::kPlain;
  if (AtWord("rollup") || AtWord("cube") || AtWord("grouping")) {
    if (AtSymbol("(", 1) || AtWord("sets", 1)) RefuseHere("GROUP BY " + UpperCase(Peek().text));
  }
  do {
    block.group_by.push_back(ParseExpression());
  } while (TakeSymbol(","));
  if (!TakeWord("with")) return;
  if (AtWord("cube")) RefuseHere("WITH CUBE");
  ExpectWord("rollup");
  block.grouping = Grouping::kRollup;
}

std::vector<OrderItem> Parser::ParseOrderList() {
  std::vector<OrderItem> list;
  do {
    OrderItem item;
    item.expression = ParseExpression();
    if (TakeWord("desc")) {
      item.descending = true;
    } else {
      TakeWord("asc");
    }
    list.push_back(std::move(item));
  } while (TakeSymbol(","));
  return list;
}

}  // namespace salerpt::tsql
