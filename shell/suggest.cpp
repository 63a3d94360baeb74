#include "shell/suggest.h"

#include <algorithm>
#include <numeric>
#include <vector>

#include "runtime/text.h"

namespace salerpt::shell {
namespace {

// Letters to insert, to take away or to change to come from one name to the other.
std::size_t Distance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 1; i <= a.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t changed = diagonal + (a[i - 1] == b[j - 1] ? 0 : 1);
      diagonal = row[j];
      row[j] = std::min({changed, row[j] + 1, row[j - 1] + 1});
    }
  }
  return row.back();
}

}  // namespace

std::string_view NearestName(std::string_view mistyped, std::span<const std::string_view> known) {
  constexpr std::size_t kPartThatMayDiffer = 3;
  const std::string wanted = UpperCase(mistyped);
  std::string_view nearest;
  std::size_t best = std::max<std::size_t>(1, wanted.size() / kPartThatMayDiffer) + 1;
  for (const std::string_view name : known) {
    const std::size_t distance = Distance(wanted, UpperCase(name));
    if (distance < best) {
      best = distance;
      nearest = name;
    }
  }
  return nearest;
}

std::string KnownNames(std::string_view mistyped, std::span<const std::string_view> known) {
  std::string text;
  const std::string_view nearest = NearestName(mistyped, known);
  if (!nearest.empty()) Append(text, "; did you mean ", nearest, "?");
  std::string_view separator = "; known: ";
  for (const std::string_view name : known) {
    Append(text, separator, name);
    separator = ", ";
  }
  return text;
}

}  // namespace salerpt::shell
