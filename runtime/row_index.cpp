#include "runtime/row_index.h"

#include <algorithm>
#include <array>
#include <bit>

#include "runtime/row_hash.h"

namespace salerpt {
namespace {

constexpr int kFirstBits = 8;
constexpr int kTagBits = 32;
// No more slots than tags can tell apart.
constexpr std::size_t kMostSlots = std::size_t{1} << 31;

// The upper bits choose the slot, and a step leaves them poorly mixed for short texts.
constexpr std::uint32_t TagOf(std::uint64_t hash) {
  return static_cast<std::uint32_t>((hash * 0xD6E8FEB86659FD93) >> kTagBits);
}

}  // namespace

RowIndex::RowIndex(const RowStore& rows, std::span<const int> columns)
    : rows_(rows),
      columns_(columns.begin(), columns.end()),
      chains_(std::size_t{1} << kFirstBits),
      shift_(kTagBits - kFirstBits) {}

std::int32_t RowIndex::First(std::uint64_t hash) const {
  const Chain& chain = chains_[Find(TagOf(hash))];
  return chain.last == kNoRow ? kNoRow : next_[static_cast<std::size_t>(chain.last)];
}

void RowIndex::Append(std::int32_t end) {
  constexpr auto kBlock = static_cast<std::int32_t>(RowStore::kBlockRows);
  std::array<std::uint64_t, RowStore::kBlockRows> hashes;
  auto row = static_cast<std::int32_t>(next_.size());
  if (row == 0) next_.reserve(static_cast<std::size_t>(end));
  next_.resize(static_cast<std::size_t>(end), kNoRow);
  while (row < end) {
    const std::int32_t count = std::min(end - row, kBlock - row % kBlock);
    HashRows(row, static_cast<std::size_t>(count), hashes.data());
    for (std::int32_t i = 0; i < count; ++i) Link(row + i, TagOf(hashes[static_cast<std::size_t>(i)]));
    row += count;
  }
}

void RowIndex::HashRows(std::int32_t begin, std::size_t count, std::uint64_t* hashes) const {
  std::fill_n(hashes, count, 0);
  for (const int column : columns_) HashColumn(column, rows_.At(begin), count, hashes);
}

void RowIndex::HashColumn(int column, RowPlace place, std::size_t count, std::uint64_t* hashes) const {
  const auto hash_all = [&](auto hash_value) {
    for (std::size_t i = 0; i < count; ++i, ++place.slot) {
      hashes[i] = rows_.IsNull(place, column) ? HashNull(hashes[i]) : hash_value(hashes[i]);
    }
  };
  switch (rows_.Kind(column)) {
    case CellKind::kInt16:
      return hash_all(
          [&](std::uint64_t hash) { return HashWhole(hash, rows_.Get<std::int16_t>(place, column)); });
    case CellKind::kInt32:
      return hash_all(
          [&](std::uint64_t hash) { return HashWhole(hash, rows_.Get<std::int32_t>(place, column)); });
    case CellKind::kBoolean:
      return hash_all(
          [&](std::uint64_t hash) { return HashWhole(hash, rows_.Get<std::uint8_t>(place, column)); });
    case CellKind::kCurrency:
      return hash_all(
          [&](std::uint64_t hash) { return HashWhole(hash, rows_.Get<std::int64_t>(place, column)); });
    case CellKind::kDouble:
    case CellKind::kDate:
      return hash_all([&](std::uint64_t hash) { return HashNumber(hash, rows_.Get<double>(place, column)); });
    case CellKind::kText:
      return hash_all([&](std::uint64_t hash) { return HashCaseBlind(hash, rows_.GetText(place, column)); });
  }
}

void RowIndex::Link(std::int32_t row, Tag tag) {
  if (used_ * 2 >= chains_.size() && chains_.size() < kMostSlots) Grow(row);
  Chain& chain = chains_[Find(tag)];
  std::int32_t& next = next_[static_cast<std::size_t>(row)];
  if (chain.last == kNoRow) {
    chain.tag = tag;
    next = row;
    ++used_;
  } else {
    std::int32_t& behind_last = next_[static_cast<std::size_t>(chain.last)];
    next = behind_last;
    behind_last = row;
  }
  chain.last = row;
}

void RowIndex::Grow(std::int32_t row) {
  // With enough rows seen, the keys of the rows to come are foretold: growing in one step spares most of the
  // work.
  constexpr std::size_t kEnoughKeys = 4096;
  std::size_t slots = chains_.size() * 2;
  if (used_ >= kEnoughKeys) {
    const std::size_t keys = used_ * next_.size() / (static_cast<std::size_t>(row) + 1);
    slots = std::clamp(std::bit_ceil(keys * 2), slots, kMostSlots);
  }
  std::vector<Chain> before(slots);
  before.swap(chains_);
  shift_ = kTagBits - std::countr_zero(slots);
  for (const Chain& chain : before) {
    if (chain.last != kNoRow) chains_[Find(chain.tag)] = chain;
  }
}

}  // namespace salerpt
