// Any text as a batch: its tokens, written again with blanks between, are the same tokens. And any value that
// enters SQL is one text there, whatever it holds.
#include <algorithm>
#include <string>
#include <vector>

#include "fuzz/require.h"
#include "runtime/mrpt.h"
#include "runtime/text.h"
#include "suite/tsql/lexer.h"
#include "suite/tsql/session.h"

namespace {

using salerpt::Replace;
using salerpt::fuzz::Require;
using salerpt::tsql::Token;
using salerpt::tsql::Tokenize;
using salerpt::tsql::TokenKind;

std::string Written(const std::vector<Token>& tokens) {
  std::string text;
  for (const Token& token : tokens) {
    text += ' ';
    if (token.kind == TokenKind::kText) {
      text += (token.national ? "N'" : "'") + Replace(token.text, "'", "''") + "'";
    } else if (token.kind == TokenKind::kName) {
      text += "[" + Replace(token.text, "]", "]]") + "]";
    } else {
      text += token.text;
    }
  }
  return text;
}

void CheckTokens(std::string_view batch) {
  std::vector<Token> tokens;
  try {
    tokens = Tokenize(batch);
  } catch (const salerpt::tsql::TsqlError& error) {
    Require(!error.Description().empty());
    return;
  }
  Require(!tokens.empty() && tokens.back().kind == TokenKind::kEnd);
  Require(tokens.back().line == 1 + std::count(batch.begin(), batch.end(), '\n'));
  Require(std::is_sorted(tokens.begin(), tokens.end(),
                         [](const Token& a, const Token& b) { return a.line < b.line; }));
  const std::vector<Token> again = Tokenize(Written(tokens));
  Require(std::equal(again.begin(), again.end(), tokens.begin(), tokens.end(),
                     [](const Token& a, const Token& b) {
                       return a.kind == b.kind && a.national == b.national && a.text == b.text;
                     }));
}

void CheckQuoting(std::string_view value) {
  const std::vector<Token> tokens = Tokenize(salerpt::QuoteSql(value));
  Require(tokens.size() == 2 && tokens[0].kind == TokenKind::kText);
  std::string plain(salerpt::Trim(value));
  std::erase_if(plain, [](char c) { return c == '\0' || c == '\r' || c == '\n'; });
  Require(tokens[0].text == plain);
  const std::vector<Token> whole = Tokenize(salerpt::QuoteSql(value, true, false, false));
  Require(whole.size() == 2 && whole[0].text == value);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text = salerpt::fuzz::AsText(data, size);
  CheckTokens(text);
  CheckQuoting(text);
  return 0;
}
