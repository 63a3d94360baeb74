#include "shell/recorded/profile_select.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <utility>

#include "runtime/text.h"

namespace salerpt::shell {
namespace {

struct Token {
  enum class Kind { kWord, kText, kSign, kEnd } kind = Kind::kEnd;
  std::string text;
};

// Words, texts in apostrophes, and single signs. A text that is not closed runs to the end.
class Reader {
 public:
  explicit Reader(std::string_view sql) : rest_(sql) { Advance(); }

  [[nodiscard]] bool AtEnd() const { return now_.kind == Token::Kind::kEnd; }
  bool Take(std::string_view word) {
    if (now_.kind == Token::Kind::kText || AtEnd() || !EqualNames(now_.text, word)) return false;
    Advance();
    return true;
  }
  std::optional<std::string> TakeText() {
    if (now_.kind != Token::Kind::kText) return std::nullopt;
    std::string text = std::exchange(now_.text, {});
    Advance();
    return text;
  }
  void Advance() {
    const auto is_space = [](char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; };
    const auto is_word = [](char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_'; };
    rest_.remove_prefix(
        static_cast<std::size_t>(std::find_if_not(rest_.begin(), rest_.end(), is_space) - rest_.begin()));
    if (rest_.empty()) {
      now_ = {};
    } else if (rest_.front() == '\'') {
      ReadText();
    } else {
      const auto end = std::find_if_not(rest_.begin(), rest_.end(), is_word);
      const auto size = std::max<std::size_t>(static_cast<std::size_t>(end - rest_.begin()), 1);
      now_ = {is_word(rest_.front()) ? Token::Kind::kWord : Token::Kind::kSign,
              std::string(rest_.substr(0, size))};
      rest_.remove_prefix(size);
    }
  }

 private:
  void ReadText() {
    now_ = {Token::Kind::kText, {}};
    rest_.remove_prefix(1);
    while (true) {
      const std::size_t apostrophe = rest_.find('\'');
      now_.text += rest_.substr(0, apostrophe);
      if (apostrophe == std::string_view::npos) {
        rest_ = {};
        return;
      }
      rest_.remove_prefix(apostrophe + 1);
      if (!rest_.starts_with('\'')) return;
      now_.text += '\'';
      rest_.remove_prefix(1);
    }
  }

  std::string_view rest_;
  Token now_;
};

std::optional<std::vector<std::string>> ReadValues(Reader& reader) {
  std::vector<std::string> values;
  if (reader.Take("=")) {
    auto value = reader.TakeText();
    if (!value) return std::nullopt;
    values.push_back(std::move(*value));
    return values;
  }
  if (!reader.Take("in") || !reader.Take("(")) return std::nullopt;
  do {
    auto value = reader.TakeText();
    if (!value) return std::nullopt;
    values.push_back(std::move(*value));
  } while (reader.Take(","));
  if (!reader.Take(")")) return std::nullopt;
  return values;
}

bool ReadCondition(Reader& reader, ProfileSelect& select) {
  const bool is_category = reader.Take("FCategory");
  if (!is_category && !reader.Take("FKey")) return false;
  auto values = ReadValues(reader);
  if (!values) return false;
  if (!is_category) {
    select.keys = std::move(values);
    return true;
  }
  if (values->size() != 1) return false;
  select.category = std::move(values->front());
  return true;
}

}  // namespace

bool ProfileSelect::Matches(std::string_view name) const {
  const std::size_t slash = name.find('/');
  const std::string_view key = slash == std::string_view::npos ? "" : name.substr(slash + 1);
  if (category && !EqualNames(*category, name.substr(0, slash))) return false;
  return !keys || std::any_of(keys->begin(), keys->end(),
                              [key](const std::string& wanted) { return EqualNames(wanted, key); });
}

std::optional<ProfileSelect> ParseProfileSelect(std::string_view sql) {
  Reader reader(sql);
  if (!reader.Take("select")) return std::nullopt;
  while (!reader.Take("from")) {
    if (reader.AtEnd()) return std::nullopt;
    reader.Advance();
  }
  if (!reader.Take("t_systemprofile")) return std::nullopt;
  ProfileSelect select;
  if (reader.Take("where")) {
    do {
      if (!ReadCondition(reader, select)) return std::nullopt;
    } while (reader.Take("and"));
  }
  if (!reader.AtEnd()) return std::nullopt;
  return select;
}

}  // namespace salerpt::shell
