#include "runtime/filter_criteria.h"

#include <algorithm>

#include "runtime/case_blind.h"
#include "runtime/error.h"
#include "runtime/recordset.h"
#include "runtime/text.h"

namespace salerpt {
namespace {

constexpr bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}
constexpr bool IsNameStart(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' ||
         static_cast<unsigned char>(c) >= 0x80;
}
constexpr bool IsNamePart(char c) {
  return IsNameStart(c) || IsDigit(c);
}

// Walks the text once. Literals with doubled apostrophes are made single in place.
class CriteriaParser {
 public:
  CriteriaParser(std::string_view original, std::string& text, std::vector<Criterion>& criteria)
      : original_(original), text_(text), criteria_(criteria) {}

  void Run() {
    SkipBlanks();
    if (AtEnd()) return;
    ParseFilter(0);
    if (!AtEnd()) Fail("\"And\", \"Or\" or the end of the filter");
    criteria_.front().begins_group = true;
  }

 private:
  [[nodiscard]] bool AtEnd() const { return place_ == text_.size(); }
  [[nodiscard]] char Peek() const { return AtEnd() ? '\0' : text_[place_]; }
  void SkipBlanks() {
    while (!AtEnd() && static_cast<unsigned char>(text_[place_]) <= ' ') ++place_;
  }
  [[nodiscard]] std::string_view View(std::size_t from, std::size_t to) const {
    return std::string_view(text_).substr(from, to - from);
  }

  // The name that begins here, keywords included; empty where none begins.
  [[nodiscard]] std::string_view PeekName() const {
    if (!IsNameStart(Peek())) return {};
    std::size_t end = place_ + 1;
    while (end < text_.size() && IsNamePart(text_[end])) ++end;
    return View(place_, end);
  }
  bool TakeKeyword(std::string_view keyword) {
    const std::string_view name = PeekName();
    if (!EqualCaseBlind(name, keyword)) return false;
    place_ += name.size();
    SkipBlanks();
    return true;
  }

  void ParseFilter(int depth) {
    ParseGroup(depth);
    while (TakeKeyword("Or")) {
      const std::size_t first = criteria_.size();
      ParseGroup(depth);
      criteria_[first].begins_group = true;
    }
  }

  void ParseGroup(int depth) {
    bool has_or = ParseFactor(depth);
    while (TakeKeyword("And")) {
      const std::size_t factor = place_;
      if (has_or) FailAt(factor, "\"Or\" instead of \"And\" behind a bracket that holds an \"Or\"");
      has_or = ParseFactor(depth);
      if (has_or) FailAt(factor, "a bracket without \"Or\" behind \"And\"");
    }
  }

  // Gives whether the factor is a bracket that holds an Or.
  bool ParseFactor(int depth) {
    if (Peek() != '(') {
      ParseCriterion();
      return false;
    }
    if (depth == FilterCriteria::kDeepestNesting) Fail("no further bracket inside of 64 brackets");
    ++place_;
    SkipBlanks();
    const std::size_t first = criteria_.size();
    ParseFilter(depth + 1);
    if (Peek() != ')') Fail("\")\"");
    ++place_;
    SkipBlanks();
    return std::any_of(criteria_.begin() + static_cast<std::ptrdiff_t>(first), criteria_.end(),
                       [](const Criterion& criterion) { return criterion.begins_group; });
  }

  void ParseCriterion() {
    Criterion criterion;
    criterion.field = ParseField();
    criterion.test = ParseTest();
    ParseLiteral(criterion);
    criteria_.push_back(criterion);
  }

  std::string_view ParseField() {
    std::string_view name;
    if (Peek() == '[') {
      const std::size_t end = text_.find(']', place_);
      if (end == std::string::npos) Fail("\"]\" behind the field name");
      name = View(place_ + 1, end);
      if (name.empty()) Fail("a field name between \"[\" and \"]\"");
      place_ = end + 1;
    } else {
      name = PeekName();
      if (name.empty()) Fail("a field name");
      place_ += name.size();
    }
    SkipBlanks();
    return name;
  }

  CriterionTest ParseTest() {
    const char first = Peek();
    const char second = place_ + 1 < text_.size() ? text_[place_ + 1] : '\0';
    const auto take = [this](std::size_t length, CriterionTest test) {
      place_ += length;
      SkipBlanks();
      return test;
    };
    if (first == '=') return take(1, CriterionTest::kEqual);
    if (first == '<' && second == '>') return take(2, CriterionTest::kNotEqual);
    if (first == '<' && second == '=') return take(2, CriterionTest::kAtMost);
    if (first == '>' && second == '=') return take(2, CriterionTest::kAtLeast);
    if (first == '<') return take(1, CriterionTest::kLess);
    if (first == '>') return take(1, CriterionTest::kGreater);
    if (TakeKeyword("Like")) return CriterionTest::kLike;
    Fail("one of = <> < > <= >= Like");
  }

  void ParseLiteral(Criterion& criterion) {
    const char first = Peek();
    if (first == '\'') {
      criterion.kind = LiteralKind::kText;
      criterion.literal = ParseText();
    } else if (first == '#') {
      const std::size_t end = text_.find('#', place_ + 1);
      if (end == std::string::npos) Fail("\"#\" behind the date");
      criterion.kind = LiteralKind::kDate;
      criterion.literal = View(place_ + 1, end);
      place_ = end + 1;
    } else if (IsNameStart(first)) {
      ParseWord(criterion);
    } else {
      criterion.kind = LiteralKind::kNumber;
      criterion.literal = ParseNumber();
    }
    SkipBlanks();
  }

  void ParseWord(Criterion& criterion) {
    const std::string_view word = PeekName();
    if (EqualCaseBlind(word, "null")) {
      criterion.kind = LiteralKind::kNull;
    } else if (EqualCaseBlind(word, "true") || EqualCaseBlind(word, "false")) {
      criterion.kind = LiteralKind::kBoolean;
    } else {
      Fail("a number, 'text', #date#, Null, True or False");
    }
    criterion.literal = word;
    place_ += word.size();
  }

  std::string_view ParseText() {
    const std::size_t start = place_ + 1;
    std::size_t written = start;
    for (std::size_t i = start; i < text_.size(); ++i) {
      if (text_[i] == '\'') {
        if (i + 1 == text_.size() || text_[i + 1] != '\'') {
          place_ = i + 1;
          return View(start, written);
        }
        ++i;
      }
      text_[written++] = text_[i];
    }
    Fail("an apostrophe at the end of the text");
  }

  std::string_view ParseNumber() {
    std::size_t end = place_;
    const auto take_digits = [this, &end] {
      const std::size_t first = end;
      while (end < text_.size() && IsDigit(text_[end])) ++end;
      return end - first;
    };
    const auto take_one_of = [this, &end](std::string_view set) {
      const bool found = end < text_.size() && set.find(text_[end]) != std::string_view::npos;
      if (found) ++end;
      return found;
    };
    take_one_of("+-");
    std::size_t digits = take_digits();
    if (take_one_of(".")) digits += take_digits();
    if (digits == 0) Fail("a number, 'text', #date#, Null, True or False");
    if (take_one_of("eE")) {
      take_one_of("+-");
      if (take_digits() == 0) Fail("a number with digits behind the E");
    }
    const std::string_view number = View(place_, end);
    place_ = end;
    return number;
  }

  [[noreturn]] void Fail(std::string_view expected) const { FailAt(place_, expected); }
  [[noreturn]] void FailAt(std::size_t place, std::string_view expected) const {
    const auto characters =
        std::count_if(original_.begin(), original_.begin() + static_cast<std::ptrdiff_t>(place),
                      [](char c) { return (c & 0xC0) != 0x80; });
    throw RuntimeError(error_number::kWrongArguments, std::string(Recordset::kClassName),
                       Join("the filter \"", original_, "\" cannot be read: at character ",
                            static_cast<int>(characters) + 1, " ", expected, " was expected"));
  }

  std::string_view original_;
  std::string& text_;
  std::vector<Criterion>& criteria_;
  std::size_t place_ = 0;
};

}  // namespace

void FilterCriteria::Parse(std::string_view text) {
  text_.assign(text);
  criteria_.clear();
  CriteriaParser(text, text_, criteria_).Run();
}

}  // namespace salerpt
