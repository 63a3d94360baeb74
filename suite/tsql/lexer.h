// Splits a batch into tokens.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace salerpt::tsql {

enum class TokenKind : unsigned char {
  kWord,      // a keyword or a plain name, #temp names included
  kName,      // a name in brackets or double quotes: never a keyword
  kVariable,  // @x, @@x
  kText,      // 'text', without its quotes, doubled quotes made single
  kInteger,
  kDecimal,  // 1.5
  kFloat,    // 1e5
  kSymbol,   // operators and punctuation, two-character ones as one token
  kEnd,
};

struct Token {
  TokenKind kind = TokenKind::kEnd;
  bool national = false;  // N'text'
  int line = 1;           // 1-based line in the batch where it starts
  std::string text;
};

// Comments (-- to the end of the line, /* */ nested) and white space fall away; a kEnd token closes the list.
// Raises 105 for a quotation mark and 113 for a comment that is never closed, 102 for a character that starts
// no token.
std::vector<Token> Tokenize(std::string_view batch);

}  // namespace salerpt::tsql
