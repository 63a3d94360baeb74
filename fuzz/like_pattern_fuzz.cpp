// Like patterns of the engine and of row filters: the first line is the escape character, if any, the second
// the pattern, the rest the text. Both matchers agree with one that tries every way.
#include <algorithm>
#include <string>
#include <vector>

#include "fuzz/require.h"
#include "runtime/case_blind.h"
#include "suite/tsql/pattern.h"

namespace {

using salerpt::fuzz::Require;
using salerpt::fuzz::TakeLine;

// One step of a pattern.
struct Step {
  enum class Kind { kRun, kAny, kClass, kLiteral, kNothing } kind;
  // Of a class: lowest and highest character of each stretch. Of a literal: the character.
  std::vector<std::string> bounds = {};
  bool negated = false;
};

std::vector<std::string> Characters(std::string_view text) {
  std::vector<std::string> characters;
  for (const char c : text) {
    const bool continues = (static_cast<unsigned char>(c) & 0xC0) == 0x80;
    const char folded = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    if (continues && !characters.empty()) {
      characters.back() += folded;
    } else {
      characters.emplace_back(1, folded);
    }
  }
  return characters;
}

// Bytes of a damaged text may stand for no character: a continuation of nothing. What they match is nobody's
// concern.
bool HasCharacters(std::string_view text) {
  bool may_continue = false;
  for (const char c : text) {
    const bool continues = (static_cast<unsigned char>(c) & 0xC0) == 0x80;
    if (continues && !may_continue) return false;
    may_continue = static_cast<unsigned char>(c) >= 0x80;
  }
  return true;
}

Step ClassOf(const std::vector<std::string>& body) {
  Step step{Step::Kind::kClass};
  std::size_t at = 0;
  step.negated = !body.empty() && body.front() == "^";
  if (step.negated) ++at;
  while (at < body.size()) {
    const bool is_range = at + 2 < body.size() && body[at + 1] == "-";
    step.bounds.push_back(body[at]);
    step.bounds.push_back(is_range ? body[at + 2] : body[at]);
    at += is_range ? 3 : 1;
  }
  return step;
}

std::vector<Step> StepsOf(std::string_view pattern, char escape) {
  const auto characters = Characters(pattern);
  const std::string mark(escape == 0 ? 0 : 1, escape);
  std::vector<Step> steps;
  for (std::size_t i = 0; i < characters.size(); ++i) {
    const std::string& c = characters[i];
    if (!mark.empty() && Characters(mark).front() == c && pattern.find(escape) != std::string_view::npos &&
        i + 1 < characters.size()) {
      steps.push_back({Step::Kind::kLiteral, {characters[++i]}});
    } else if (c == "%") {
      steps.push_back({Step::Kind::kRun});
    } else if (c == "_") {
      steps.push_back({Step::Kind::kAny});
    } else if (c == "[") {
      const auto close =
          std::find(characters.begin() + static_cast<std::ptrdiff_t>(i) + 1, characters.end(), "]");
      if (close == characters.end()) {
        steps.push_back({Step::Kind::kNothing});
        return steps;
      }
      steps.push_back(ClassOf({characters.begin() + static_cast<std::ptrdiff_t>(i) + 1, close}));
      i = static_cast<std::size_t>(close - characters.begin());
    } else {
      steps.push_back({Step::Kind::kLiteral, {c}});
    }
  }
  return steps;
}

bool Takes(const Step& step, const std::string& character) {
  switch (step.kind) {
    case Step::Kind::kAny:
      return true;
    case Step::Kind::kLiteral:
      return step.bounds.front() == character;
    case Step::Kind::kClass:
      break;
    default:
      return false;
  }
  bool found = false;
  for (std::size_t i = 0; i < step.bounds.size(); i += 2) {
    found = found || (character >= step.bounds[i] && character <= step.bounds[i + 1]);
  }
  return found != step.negated;
}

// Which front parts of the text the steps so far match, step by step.
bool Matches(const std::vector<Step>& steps, const std::vector<std::string>& text) {
  std::vector<bool> reached(text.size() + 1, false);
  reached[0] = true;
  for (const Step& step : steps) {
    std::vector<bool> next(text.size() + 1, false);
    for (std::size_t i = 0; i <= text.size(); ++i) {
      if (step.kind == Step::Kind::kRun) {
        next[i] = reached[i] || (i > 0 && next[i - 1]);
      } else if (i > 0) {
        next[i] = reached[i - 1] && Takes(step, text[i - 1]);
      }
    }
    reached = std::move(next);
  }
  return reached.back();
}

// Row filters know only runs, and bytes.
bool MatchesOfFilter(std::string_view pattern, std::string_view text) {
  std::vector<Step> steps;
  std::vector<std::string> bytes;
  const auto folded = [](char c) { return std::string(1, static_cast<char>(salerpt::UpperCaseByte(c))); };
  for (const char c : pattern) {
    steps.push_back(c == '*' || c == '%' ? Step{Step::Kind::kRun} : Step{Step::Kind::kLiteral, {folded(c)}});
  }
  for (const char c : text) bytes.push_back(folded(c));
  return Matches(steps, bytes);
}

std::size_t PlainFind(std::string_view text, std::string_view sought) {
  for (std::size_t i = 0; i + sought.size() <= text.size(); ++i) {
    if (salerpt::EqualCaseBlind(text.substr(i, sought.size()), sought)) return i;
  }
  return std::string_view::npos;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view text = salerpt::fuzz::AsText(data, size);
  const std::string_view first = TakeLine(text);
  const std::string_view pattern = TakeLine(text);
  // An escape character is one of ASCII and no letter: a folded one would stand for two.
  char escape = first.empty() ? '\0' : first.front();
  if (static_cast<unsigned char>(escape) >= 0x80 || (escape >= 'A' && escape <= 'Z') ||
      (escape >= 'a' && escape <= 'z')) {
    escape = 0;
  }
  const bool matches = salerpt::tsql::MatchesPattern(pattern, text, escape);
  if (HasCharacters(pattern) && HasCharacters(text)) {
    Require(matches == Matches(StepsOf(pattern, escape), Characters(text)));
  }
  Require(salerpt::MatchesPattern(text, pattern) == MatchesOfFilter(pattern, text));
  Require(salerpt::tsql::FindText(text, pattern) == PlainFind(text, pattern));
  const std::size_t count = salerpt::tsql::CountCharacters(text);
  for (const std::size_t cut : {std::size_t{0}, count / 2, count}) {
    const std::string_view front = salerpt::tsql::CutToSize(text, cut, true);
    Require(text.starts_with(front) && salerpt::tsql::CountCharacters(front) <= cut);
    Require(salerpt::tsql::ServerBytes(front, true) <= 2 * cut);
  }
  return 0;
}
