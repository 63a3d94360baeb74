// The text of a row filter, taken apart.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace salerpt {

enum class CriterionTest : std::uint8_t { kEqual, kNotEqual, kLess, kGreater, kAtMost, kAtLeast, kLike };
enum class LiteralKind : std::uint8_t { kNull, kBoolean, kNumber, kText, kDate };

// One comparison of a field with a literal. The views point into the criteria that it belongs to.
struct Criterion {
  std::string_view field;
  // The literal without its quotation marks, doubled apostrophes single: "12.5", "O'Neil", "2003-07-01",
  // "True".
  std::string_view literal;
  CriterionTest test = CriterionTest::kEqual;
  LiteralKind kind = LiteralKind::kNull;
  // First of a group: the groups are joined by Or, the criteria of a group by And.
  bool begins_group = false;
};

// Reads
//
//     filter    = group { Or group }
//     group     = factor { And factor }
//     factor    = field test literal | "(" filter ")"
//     field     = Name | [any name]
//     test      = "=" | "<>" | "<" | ">" | "<=" | ">=" | Like
//     literal   = 12.5 | 'text' | #2003-07-01# | Null | True | False
//
// with keywords in any case and blanks anywhere between. And binds before Or. As with the filters of the
// suite's row sets, a bracket that holds an Or cannot be joined to anything by And: write (A And C) Or (B And
// C).
class FilterCriteria {
 public:
  static constexpr int kDeepestNesting = 64;

  FilterCriteria() = default;
  FilterCriteria(const FilterCriteria&) = delete;
  FilterCriteria& operator=(const FilterCriteria&) = delete;

  // Takes the place of what was read before and uses its memory again. A text of blanks has no criteria.
  // Raises wrong-arguments with the text, the place (characters from 1) and what was expected there; what All
  // gives is then of no use before the next Parse.
  void Parse(std::string_view text);

  [[nodiscard]] std::span<const Criterion> All() const { return criteria_; }

 private:
  std::string text_;
  std::vector<Criterion> criteria_;
};

}  // namespace salerpt
