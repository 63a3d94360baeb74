#include "suite/tsql/groups.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <numeric>

#include "suite/tsql/functions.h"

namespace salerpt::tsql {
namespace {

constexpr std::size_t kFirstSlots = 1024;
constexpr std::size_t kArenaBlock = 65536;
constexpr std::uint64_t kHashStep = 0x9E3779B97F4A7C15ULL;

std::string_view WithoutBlanks(std::string_view text) {
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

// Eight bytes at a time, with the bit that tells the case of ASCII letters set in every byte: letters that
// differ in case only fall together, and the few other bytes that do so too are told apart by the comparison.
std::uint64_t HashText(std::string_view text) {
  constexpr std::uint64_t kCaseBits = 0x2020202020202020ULL;
  text = WithoutBlanks(text);
  std::uint64_t hash = text.size();
  while (text.size() >= 8) {
    std::uint64_t word = 0;
    std::memcpy(&word, text.data(), 8);
    hash = (hash ^ (word | kCaseBits)) * kHashStep;
    hash ^= hash >> 29;
    text.remove_prefix(8);
  }
  std::uint64_t word = 0;
  std::memcpy(&word, text.data(), text.size());
  hash = (hash ^ (word | kCaseBits)) * kHashStep;
  return hash ^ (hash >> 29);
}

std::uint64_t HashNumber(double number) {
  std::uint64_t bits = 0;
  number += 0.0;  // -0 is 0
  std::memcpy(&bits, &number, 8);
  return (bits ^ (bits >> 32)) * kHashStep;
}

std::uint64_t HashCell(const Cell& cell) {
  switch (cell.kind) {
    case Cell::Kind::kText:
      return HashText(cell.Text());
    case Cell::Kind::kDouble:
      return HashNumber(cell.number);
    case Cell::Kind::kInteger:
      return HashNumber(static_cast<double>(cell.integer));  // a whole decimal may come either way
    default:
      return 0x51ED270B;
  }
}

int Compare(const Cell& a, const Cell& b) {
  if (a.kind == Cell::Kind::kNull || b.kind == Cell::Kind::kNull) {
    return static_cast<int>(a.kind != Cell::Kind::kNull) - static_cast<int>(b.kind != Cell::Kind::kNull);
  }
  if (a.kind == Cell::Kind::kText && b.kind == Cell::Kind::kText) return CompareTexts(a.Text(), b.Text());
  if (a.kind == Cell::Kind::kInteger && b.kind == Cell::Kind::kInteger) {
    return a.integer < b.integer ? -1 : static_cast<int>(a.integer > b.integer);
  }
  const double x = a.kind == Cell::Kind::kInteger ? static_cast<double>(a.integer) : a.number;
  const double y = b.kind == Cell::Kind::kInteger ? static_cast<double>(b.integer) : b.number;
  return x < y ? -1 : static_cast<int>(x > y);
}

bool EqualCells(const Cell& a, const Cell& b) {
  if (a.kind == Cell::Kind::kText && b.kind == Cell::Kind::kText && a.size == b.size &&
      std::memcmp(a.text, b.text, a.size) == 0) {
    return true;
  }
  return Compare(a, b) == 0;
}

}  // namespace

Groups::Groups(const GroupPlan& plan)
    : rollup_(plan.rollup),
      key_count_(plan.keys.size()),
      aggregates_(plan.aggregates),
      current_(plan.keys.size()),
      slots_(kFirstSlots) {
  static_assert(sizeof(Cell) == sizeof(Int128) && sizeof(FloatSum) == sizeof(Int128));
  for (const AggregateSpec& spec : aggregates_) {
    scales_.emplace_back(spec.kind == AggregateKind::kSumScaled ? spec.type.scale : 0);
  }
}

Cell Groups::At(std::size_t row, std::size_t column) const {
  const std::size_t stored = key_count_ + aggregates_.size();
  if (column < key_count_) return rows_[row * stored + column];
  if (column >= 2 * key_count_) return rows_[row * stored + column - key_count_];
  Cell flag;
  flag.kind = Cell::Kind::kInteger;
  flag.integer = column - key_count_ < kept_keys_[row] ? 0 : 1;
  return flag;
}

Cell Groups::ReadCell(sqlite3_stmt* row, int column) const {
  Cell cell;
  switch (sqlite3_column_type(row, column)) {
    case SQLITE_INTEGER:
      cell.kind = Cell::Kind::kInteger;
      cell.integer = sqlite3_column_int64(row, column);
      break;
    case SQLITE_FLOAT:
      cell.kind = Cell::Kind::kDouble;
      cell.number = sqlite3_column_double(row, column);
      break;
    case SQLITE_NULL:
      break;
    default:
      cell.kind = Cell::Kind::kText;
      cell.text = reinterpret_cast<const char*>(sqlite3_column_text(row, column));
      cell.size = static_cast<std::uint32_t>(sqlite3_column_bytes(row, column));
      break;
  }
  return cell;
}

Cell Groups::Keep(Cell cell) {
  if (cell.kind != Cell::Kind::kText) return cell;
  if (arena_.empty() || arena_free_ < cell.size) {
    const std::size_t size = std::max<std::size_t>(kArenaBlock, cell.size);
    arena_.emplace_back(size, '\0');
    arena_free_ = size;
  }
  char* place = arena_.back().data() + (arena_.back().size() - arena_free_);
  if (cell.size > 0) std::memcpy(place, cell.text, cell.size);
  arena_free_ -= cell.size;
  cell.text = place;
  return cell;
}

void Groups::Grow() {
  std::vector<std::uint32_t> slots(slots_.size() * 2);
  const std::size_t mask = slots.size() - 1;
  for (std::size_t group = 0; group < group_count_; ++group) {
    std::size_t slot = hashes_[group] & mask;
    while (slots[slot] != 0) slot = (slot + 1) & mask;
    slots[slot] = static_cast<std::uint32_t>(group + 1);
  }
  slots_ = std::move(slots);
}

// The group of the current keys, made when it is new.
std::size_t Groups::FindGroup() {
  std::uint64_t hash = 0;
  for (const Cell& key : current_) hash = (hash ^ HashCell(key)) * kHashStep ^ (hash >> 31);
  hash ^= hash >> 32;
  const std::size_t mask = slots_.size() - 1;
  for (std::size_t slot = hash & mask;; slot = (slot + 1) & mask) {
    if (slots_[slot] == 0) {
      slots_[slot] = static_cast<std::uint32_t>(group_count_ + 1);
      break;
    }
    const std::size_t group = slots_[slot] - 1;
    if (hashes_[group] != hash) continue;
    if (std::equal(current_.begin(), current_.end(),
                   keys_.begin() + static_cast<std::ptrdiff_t>(group * key_count_), EqualCells)) {
      return group;
    }
  }
  for (const Cell& key : current_) keys_.push_back(Keep(key));
  hashes_.push_back(hash);
  accumulators_.resize(accumulators_.size() + aggregates_.size());
  ++group_count_;
  if (group_count_ * 2 > slots_.size()) Grow();
  return group_count_ - 1;
}

void Groups::Add(sqlite3_stmt* row) {
  for (std::size_t i = 0; i < key_count_; ++i) current_[i] = ReadCell(row, static_cast<int>(i));
  const std::size_t group = FindGroup();
  Accumulator* accumulators = accumulators_.data() + group * aggregates_.size();
  for (std::size_t i = 0; i < aggregates_.size(); ++i) Accumulate(accumulators[i], i, row);
}

void Groups::Accumulate(Accumulator& into, std::size_t aggregate, sqlite3_stmt* row) {
  const AggregateSpec& spec = aggregates_[aggregate];
  if (spec.argument < 0) {
    ++into.count;
    return;
  }
  const int column = static_cast<int>(key_count_) + spec.argument;
  const int type = sqlite3_column_type(row, column);
  if (type == SQLITE_NULL) return;
  ++into.count;
  switch (spec.kind) {
    case AggregateKind::kSumInteger:
    case AggregateKind::kSumScaled:
      into.state += type == SQLITE_INTEGER
                        ? scales_[aggregate].WholeOfInteger(sqlite3_column_int64(row, column))
                        : scales_[aggregate].Whole(sqlite3_column_double(row, column));
      break;
    case AggregateKind::kSumFloat:
      AddFloat(into, sqlite3_column_double(row, column));
      break;
    case AggregateKind::kMin:
    case AggregateKind::kMax: {
      const Cell cell = ReadCell(row, column);
      if (into.count == 1 || Replaces(spec, into, cell)) into.state = std::bit_cast<Int128>(Keep(cell));
      break;
    }
    case AggregateKind::kCount:
      break;
  }
}

// What each addition loses goes into the rest, so that the order of the rows hardly matters.
void Groups::AddFloat(Accumulator& into, double value) {
  auto state = std::bit_cast<FloatSum>(into.state);
  const double sum = state.sum + value;
  state.rest +=
      std::fabs(state.sum) >= std::fabs(value) ? (state.sum - sum) + value : (value - sum) + state.sum;
  state.sum = sum;
  into.state = std::bit_cast<Int128>(state);
}

bool Groups::Replaces(const AggregateSpec& spec, const Accumulator& into, const Cell& cell) {
  const int order = Compare(cell, std::bit_cast<Cell>(into.state));
  return spec.kind == AggregateKind::kMin ? order < 0 : order > 0;
}

void Groups::Merge(Accumulator& into, const AggregateSpec& spec, const Accumulator& from) {
  if (from.count == 0) return;
  switch (spec.kind) {
    case AggregateKind::kSumFloat: {
      const auto added = std::bit_cast<FloatSum>(from.state);
      AddFloat(into, added.sum);
      AddFloat(into, added.rest);
      break;
    }
    case AggregateKind::kMin:
    case AggregateKind::kMax:
      if (into.count == 0 || Replaces(spec, into, std::bit_cast<Cell>(from.state))) into.state = from.state;
      break;
    default:
      into.state += from.state;
      break;
  }
  into.count += from.count;
}

void Groups::MergeAll(Accumulator* into, const Accumulator* from) const {
  for (std::size_t i = 0; i < aggregates_.size(); ++i) Merge(into[i], aggregates_[i], from[i]);
}

Cell Groups::Result(std::size_t aggregate, const Accumulator& from) const {
  Cell cell;
  const AggregateKind kind = aggregates_[aggregate].kind;
  if (kind == AggregateKind::kCount) {
    cell.kind = Cell::Kind::kInteger;
    cell.integer = from.count;
    return cell;
  }
  if (from.count == 0) return cell;
  switch (kind) {
    case AggregateKind::kMin:
    case AggregateKind::kMax:
      return std::bit_cast<Cell>(from.state);
    case AggregateKind::kSumInteger:
      if (from.state == static_cast<std::int64_t>(from.state)) {
        cell.kind = Cell::Kind::kInteger;
        cell.integer = static_cast<std::int64_t>(from.state);
        return cell;
      }
      // Beyond every integer type: the conversion to the sum's type reports it.
      cell.number = static_cast<double>(from.state);
      break;
    case AggregateKind::kSumFloat: {
      const auto state = std::bit_cast<FloatSum>(from.state);
      cell.number = state.sum + state.rest;
      break;
    }
    default:
      cell.number = scales_[aggregate].Value(from.state);
      break;
  }
  cell.kind = Cell::Kind::kDouble;
  return cell;
}

void Groups::EmitRow(const Cell* keys, std::size_t kept_keys, const Accumulator* accumulators) {
  for (std::size_t i = 0; i < key_count_; ++i) rows_.push_back(i < kept_keys ? keys[i] : Cell{});
  for (std::size_t i = 0; i < aggregates_.size(); ++i) rows_.push_back(Result(i, accumulators[i]));
  kept_keys_.push_back(static_cast<std::uint16_t>(kept_keys));
}

std::vector<std::uint32_t> Groups::SortedGroups() const {
  std::vector<std::uint32_t> order(group_count_);
  std::iota(order.begin(), order.end(), 0U);
  std::sort(order.begin(), order.end(), [this](std::uint32_t a, std::uint32_t b) {
    for (std::size_t i = 0; i < key_count_; ++i) {
      const int difference = Compare(keys_[a * key_count_ + i], keys_[b * key_count_ + i]);
      if (difference != 0) return difference < 0;
    }
    return a < b;
  });
  return order;
}

void Groups::Finish() {
  if (group_count_ == 0) return;
  const std::vector<std::uint32_t> order = SortedGroups();
  if (rollup_) {
    EmitLevels(order);
    return;
  }
  rows_.reserve(group_count_ * (key_count_ + aggregates_.size()));
  for (const std::uint32_t group : order) {
    EmitRow(keys_.data() + group * key_count_, key_count_, accumulators_.data() + group * aggregates_.size());
  }
}

void Groups::EmitLevels(const std::vector<std::uint32_t>& order) {
  const auto key = [this](std::uint32_t group) { return keys_.data() + group * key_count_; };
  const auto common = [this, key](std::uint32_t a, std::uint32_t b) {
    std::size_t i = 0;
    while (i < key_count_ && EqualCells(key(a)[i], key(b)[i])) ++i;
    return i;
  };
  // levels[i] sums the groups that share the first i keys.
  const std::vector<Accumulator> blank(aggregates_.size());
  std::vector<std::vector<Accumulator>> levels(key_count_, blank);
  rows_.reserve(group_count_ * (key_count_ + aggregates_.size()) * 5 / 4);
  for (std::size_t n = 0; n < order.size(); ++n) {
    const std::uint32_t group = order[n];
    const Accumulator* finest = accumulators_.data() + group * aggregates_.size();
    EmitRow(key(group), key_count_, finest);
    MergeAll(levels[key_count_ - 1].data(), finest);
    const std::size_t shared = n + 1 < order.size() ? common(group, order[n + 1]) : 0;
    // Levels whose keys change close, the innermost first, and add up into the one around them.
    const std::size_t stop = n + 1 < order.size() ? shared + 1 : 0;
    for (std::size_t level = key_count_; level-- > stop;) {
      EmitRow(key(group), level, levels[level].data());
      if (level > 0) MergeAll(levels[level - 1].data(), levels[level].data());
      levels[level] = blank;
    }
  }
}

}  // namespace salerpt::tsql
