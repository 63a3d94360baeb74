// Chance that repeats: the same seed gives the same numbers on every machine.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace salerpt::accountset::generator {

// A xoshiro256** generator with its own distributions, since those of the standard library differ between
// libraries.
class Random {
 public:
  explicit Random(std::uint64_t seed);

  // 0 to bound-1; bound at least 1.
  std::int64_t Below(std::int64_t bound);
  // low to high, both included.
  std::int64_t Between(std::int64_t low, std::int64_t high) { return low + Below(high - low + 1); }
  // True in `percent` of a hundred cases.
  bool Percent(int percent) { return Below(100) < percent; }
  // An entry of a list that is not empty.
  template <typename List>
  const auto& Pick(const List& list) {
    return list[static_cast<std::size_t>(Below(static_cast<std::int64_t>(std::size(list))))];
  }

 private:
  std::uint64_t Next();
  std::array<std::uint64_t, 4> state_{};
};

// Popularity: a few entries are drawn often, most seldom, as customers and goods are (Zipf's law, its head
// cut flat).
class Popularity {
 public:
  // For `count` entries, at least 1. The order in which they are popular is drawn, too.
  Popularity(std::size_t count, Random& random);
  std::size_t Draw(Random& random) const;

 private:
  std::vector<std::int64_t> sums_;
  std::vector<std::size_t> order_;
};

}  // namespace salerpt::accountset::generator
