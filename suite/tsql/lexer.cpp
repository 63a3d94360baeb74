#include "suite/tsql/lexer.h"

#include <fmt/format.h>

#include <algorithm>

#include "suite/tsql/error.h"

namespace salerpt::tsql {
namespace {

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}
// Bytes above ASCII belong to names: column names and aliases may be Chinese.
bool StartsName(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == '#' ||
         static_cast<unsigned char>(c) >= 0x80;
}
bool ContinuesName(char c) {
  return StartsName(c) || IsDigit(c) || c == '@' || c == '$';
}
bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f' || c == '\v' || c == '\0';
}

class Lexer {
 public:
  explicit Lexer(std::string_view batch) : batch_(batch) {
    if (batch_.starts_with("\xEF\xBB\xBF")) position_ = 3;
  }

  std::vector<Token> Run() {
    std::vector<Token> tokens;
    tokens.reserve(batch_.size() / 5 + 1);
    while (SkipBlanksAndComments()) tokens.push_back(Next());
    tokens.push_back(Token{TokenKind::kEnd, false, line_, ""});
    return tokens;
  }

 private:
  [[nodiscard]] char Peek(std::size_t ahead = 0) const {
    return position_ + ahead < batch_.size() ? batch_[position_ + ahead] : '\0';
  }

  // False at the end of the batch.
  bool SkipBlanksAndComments() {
    while (position_ < batch_.size()) {
      const char c = batch_[position_];
      if (IsBlank(c)) {
        if (c == '\n') ++line_;
        ++position_;
      } else if (c == '-' && Peek(1) == '-') {
        while (position_ < batch_.size() && batch_[position_] != '\n') ++position_;
      } else if (c == '/' && Peek(1) == '*') {
        SkipBlockComment();
      } else {
        return true;
      }
    }
    return false;
  }

  void SkipBlockComment() {
    int depth = 0;
    do {
      if (position_ >= batch_.size()) Raise(113, "Missing end comment mark '*/'.", line_);
      if (Peek() == '/' && Peek(1) == '*') {
        ++depth;
        position_ += 2;
      } else if (Peek() == '*' && Peek(1) == '/') {
        --depth;
        position_ += 2;
      } else {
        if (Peek() == '\n') ++line_;
        ++position_;
      }
    } while (depth > 0);
  }

  Token Next() {
    Token token;
    token.line = line_;
    const char c = Peek();
    if (c == '\'' || ((c == 'N' || c == 'n') && Peek(1) == '\'')) {
      token.kind = TokenKind::kText;
      token.national = c != '\'';
      if (token.national) ++position_;
      ReadQuoted('\'', token);
    } else if (c == '[' || c == '"') {
      token.kind = TokenKind::kName;
      ReadQuoted(c == '[' ? ']' : '"', token);
    } else if (c == '@') {
      token.kind = TokenKind::kVariable;
      ReadWord(token);
    } else if (StartsName(c)) {
      token.kind = TokenKind::kWord;
      ReadWord(token);
    } else if (IsDigit(c) || (c == '.' && IsDigit(Peek(1)))) {
      ReadNumber(token);
    } else {
      ReadSymbol(token);
    }
    return token;
  }

  void ReadWord(Token& token) {
    const std::size_t start = position_++;
    while (position_ < batch_.size() && ContinuesName(batch_[position_])) ++position_;
    token.text = batch_.substr(start, position_ - start);
  }

  void ReadQuoted(char close, Token& token) {
    ++position_;
    for (; position_ < batch_.size(); ++position_) {
      const char c = batch_[position_];
      if (c == '\n') ++line_;
      if (c != close) {
        token.text += c;
      } else if (Peek(1) == close) {
        token.text += c;
        ++position_;
      } else {
        ++position_;
        return;
      }
    }
    Raise(105,
          fmt::format("Unclosed quotation mark after the character string '{}'.", token.text.substr(0, 128)),
          token.line);
  }

  void ReadDigits() {
    while (IsDigit(Peek())) ++position_;
  }

  void ReadNumber(Token& token) {
    const std::size_t start = position_;
    token.kind = TokenKind::kInteger;
    if (Peek() == '0' && (Peek(1) == 'x' || Peek(1) == 'X')) RaiseNotSupported("A binary literal", line_);
    ReadDigits();
    if (Peek() == '.') {
      token.kind = TokenKind::kDecimal;
      ++position_;
      ReadDigits();
    }
    if (Peek() == 'e' || Peek() == 'E') {
      token.kind = TokenKind::kFloat;
      ++position_;
      if (Peek() == '+' || Peek() == '-') ++position_;
      ReadDigits();
    }
    token.text = batch_.substr(start, position_ - start);
  }

  void ReadSymbol(Token& token) {
    static constexpr std::string_view kPairs[] = {"<>", "<=", ">=", "!=", "!<", "!>"};
    static constexpr std::string_view kSingles = "()*+-/%=<>,.;&|^~:";
    token.kind = TokenKind::kSymbol;
    const std::string_view pair = batch_.substr(position_, 2);
    if (std::find(std::begin(kPairs), std::end(kPairs), pair) != std::end(kPairs)) {
      token.text = std::string(pair);
    } else if (kSingles.find(Peek()) != std::string_view::npos) {
      token.text = std::string(pair.substr(0, 1));
    } else {
      Raise(102, fmt::format("Incorrect syntax near '{}'.", batch_.substr(position_, 1)), line_);
    }
    position_ += token.text.size();
  }

  std::string_view batch_;
  std::size_t position_ = 0;
  int line_ = 1;
};

}  // namespace

std::vector<Token> Tokenize(std::string_view batch) {
  return Lexer(batch).Run();
}

}  // namespace salerpt::tsql
