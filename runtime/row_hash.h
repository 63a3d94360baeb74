// Hashes of row keys.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "runtime/case_blind.h"

namespace salerpt {

// Hashes are chained: the hash of a key is that of its last cell upon that of the cells before it, the first
// upon 0. A step loses nothing of the value, so that the keys of a single number never meet.
constexpr std::uint64_t HashStep(std::uint64_t hash, std::uint64_t value) {
  hash = (std::rotl(hash, 29) ^ value) * 0x9E3779B97F4A7C15;
  return hash ^ (hash >> 32);
}

constexpr std::uint64_t HashWhole(std::uint64_t hash, std::int64_t value) {
  return HashStep(hash, static_cast<std::uint64_t>(value));
}
// Zero and minus zero are one value.
constexpr std::uint64_t HashNumber(std::uint64_t hash, double value) {
  return HashStep(hash, std::bit_cast<std::uint64_t>(value + 0.0));
}
constexpr std::uint64_t HashNull(std::uint64_t hash) {
  return HashStep(hash, 0x6E756C6C00000001);
}

// Agrees with EqualCaseBlind.
inline std::uint64_t HashCaseBlind(std::uint64_t hash, std::string_view text) {
  hash = HashStep(hash, text.size());
  for (std::size_t i = 0; i < text.size(); i += 8) {
    hash = HashStep(hash, UpperCaseWord(text.data() + i, text.size() - i));
  }
  return hash;
}

}  // namespace salerpt
