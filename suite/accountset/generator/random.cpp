#include "suite/accountset/generator/random.h"

#include <algorithm>
#include <bit>
#include <numeric>
#include <utility>

namespace salerpt::accountset::generator {

Random::Random(std::uint64_t seed) {
  // splitmix64, as the generator's authors advise for filling its state.
  for (auto& word : state_) {
    seed += 0x9E3779B97F4A7C15U;
    std::uint64_t mixed = seed;
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9U;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBU;
    word = mixed ^ (mixed >> 31);
  }
}

std::uint64_t Random::Next() {
  const std::uint64_t result = std::rotl(state_[1] * 5, 7) * 9;
  const std::uint64_t shifted = state_[1] << 17;
  state_[2] ^= state_[0];
  state_[3] ^= state_[1];
  state_[1] ^= state_[2];
  state_[0] ^= state_[3];
  state_[2] ^= shifted;
  state_[3] = std::rotl(state_[3], 45);
  return result;
}

std::int64_t Random::Below(std::int64_t bound) {
  // 53 bits scaled: the bias is below one in a billion for every bound in use.
  const double unit = static_cast<double>(Next() >> 11) * 0x1.0p-53;
  return static_cast<std::int64_t>(unit * static_cast<double>(bound));
}

Popularity::Popularity(std::size_t count, Random& random) : sums_(count), order_(count) {
  constexpr std::int64_t kScale = 1'000'000'000;
  constexpr std::int64_t kFlatHead = 6;
  std::int64_t sum = 0;
  for (std::size_t rank = 0; rank < count; ++rank) {
    sum += kScale / (static_cast<std::int64_t>(rank) + kFlatHead);
    sums_[rank] = sum;
  }
  std::iota(order_.begin(), order_.end(), std::size_t{0});
  for (std::size_t i = count; i > 1; --i) {
    std::swap(order_[i - 1], order_[static_cast<std::size_t>(random.Below(static_cast<std::int64_t>(i)))]);
  }
}

std::size_t Popularity::Draw(Random& random) const {
  const std::int64_t point = random.Below(sums_.back());
  const auto rank = std::upper_bound(sums_.begin(), sums_.end(), point) - sums_.begin();
  return order_[static_cast<std::size_t>(rank)];
}

}  // namespace salerpt::accountset::generator
