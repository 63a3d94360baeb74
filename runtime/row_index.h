// Hash index over columns of a row set.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "runtime/row_store.h"

namespace salerpt {

// Chains the rows whose key cells hash alike, in row order. A chain may hold rows of another key, since two
// keys may share a hash, so whoever follows it tests each row. Rows appended later are taken in by Extend; a
// row whose key cells change makes the index useless.
class RowIndex {
 public:
  static constexpr std::int32_t kNoRow = -1;

  // `columns` ascending.
  RowIndex(const RowStore& rows, std::span<const int> columns);

  [[nodiscard]] std::span<const int> Columns() const { return columns_; }
  // Takes in the rows before `end` that are not in yet.
  void Extend(std::int32_t end) {
    if (static_cast<std::size_t>(end) > next_.size()) Append(end);
  }
  // First row of the chain for a hash, and the one behind a row; kNoRow where there is none.
  [[nodiscard]] std::int32_t First(std::uint64_t hash) const;
  [[nodiscard]] std::int32_t Next(std::int32_t row) const {
    const std::int32_t next = next_[static_cast<std::size_t>(row)];
    return next > row ? next : kNoRow;
  }

 private:
  // Memory is what building costs most: half of the hash is enough to tell chains apart and to find their
  // slot.
  using Tag = std::uint32_t;
  struct Chain {
    Tag tag = 0;
    std::int32_t last = kNoRow;
  };

  void Append(std::int32_t end);
  // Hashes of `count` rows from `begin` on, all of one block.
  void HashRows(std::int32_t begin, std::size_t count, std::uint64_t* hashes) const;
  void HashColumn(int column, RowPlace place, std::size_t count, std::uint64_t* hashes) const;
  void Link(std::int32_t row, Tag tag);
  // Makes room for more keys, `row` being the one to link.
  void Grow(std::int32_t row);
  // Where the chain with the tag is or belongs.
  [[nodiscard]] std::size_t Find(Tag tag) const {
    std::size_t slot = tag >> shift_;
    while (chains_[slot].last != kNoRow && chains_[slot].tag != tag) slot = (slot + 1) & (chains_.size() - 1);
    return slot;
  }

  const RowStore& rows_;
  std::vector<int> columns_;
  // Per row the next one of its chain; the last row leads back to the first.
  std::vector<std::int32_t> next_;
  // Open addressing by the upper bits of the tag, at most half full; its size is a power of two.
  std::vector<Chain> chains_;
  std::size_t used_ = 0;
  int shift_;
};

}  // namespace salerpt
