#include "runtime/dictionary.h"

#include <algorithm>
#include <array>
#include <bit>
#include <utility>

namespace salerpt {
namespace {

// Up to here a walk over the entries finds a key faster than the index does.
constexpr std::size_t kWalked = 8;

Variant SetItem(Dictionary& self, Arguments arguments) {
  self.Set(arguments[0].ToText(), arguments[1]);
  return {};
}

}  // namespace

Dictionary::Dictionary(std::initializer_list<Entry> entries) {
  entries_.reserve(std::max(entries.size(), kWalked));
  for (const Entry& entry : entries) Set(entry.key, entry.value);
}

std::size_t Dictionary::SlotOf(std::string_view key) const {
  const std::size_t mask = slots_.size() - 1;
  std::size_t slot = HashName(key) & mask;
  while (slots_[slot] != 0 && !EqualNames(entries_[slots_[slot] - 1].key, key)) slot = (slot + 1) & mask;
  return slot;
}

void Dictionary::IndexLastEntry() {
  const auto count = static_cast<std::uint32_t>(entries_.size());
  if (std::size_t{count} * 2 <= slots_.size()) {
    slots_[SlotOf(entries_.back().key)] = count;
    return;
  }
  slots_.assign(std::bit_ceil(std::size_t{count} * 4), 0);
  for (std::uint32_t i = 0; i < count; ++i) slots_[SlotOf(entries_[i].key)] = i + 1;
}

const Dictionary::Entry* Dictionary::Find(std::string_view key) const {
  if (!slots_.empty()) {
    const std::uint32_t found = slots_[SlotOf(key)];
    return found == 0 ? nullptr : &entries_[found - 1];
  }
  const auto found = std::find_if(entries_.begin(), entries_.end(),
                                  [key](const Entry& entry) { return EqualNames(entry.key, key); });
  return found == entries_.end() ? nullptr : &*found;
}

const Variant& Dictionary::Get(std::string_view key) const {
  static const Variant empty;
  const Entry* entry = Find(key);
  return entry == nullptr ? empty : entry->value;
}

Variant Dictionary::GetValue(std::string_view key, const Variant& absent) const {
  const Entry* entry = Find(key);
  return entry == nullptr ? absent : entry->value;
}

bool Dictionary::Lookup(std::string_view key) const {
  return Find(key) != nullptr;
}

void Dictionary::Set(std::string_view key, Variant value) {
  if (const Entry* entry = Find(key)) {
    entries_[static_cast<std::size_t>(entry - entries_.data())].value = std::move(value);
    return;
  }
  if (entries_.empty()) entries_.reserve(kWalked);
  entries_.push_back({std::string(key), std::move(value)});
  if (entries_.size() > kWalked) IndexLastEntry();
}

std::shared_ptr<Dictionary> Dictionary::Copy() const {
  auto copy = std::make_shared<Dictionary>();
  copy->entries_ = entries_;
  copy->slots_ = slots_;
  return copy;
}

std::span<const Member<Dictionary>> Dictionary::Members() {
  static constexpr std::array<Member<Dictionary>, 5> kMembers{{
      {"Item", InvokeKind::kGet, "(Key As String) As Variant",
       [](Dictionary& self, Arguments arguments) { return self.Get(arguments[0].ToText()); }, 1},
      {"Item", InvokeKind::kLet, "(Key As String, Value As Variant)", SetItem, 2},
      {"Item", InvokeKind::kSet, "(Key As String, Value As Object)", SetItem, 2},
      {"GetValue", InvokeKind::kMethod, "(Key As String, Default As Variant) As Variant",
       [](Dictionary& self, Arguments arguments) {
         return self.GetValue(arguments[0].ToText(), arguments[1]);
       },
       2},
      {"Lookup", InvokeKind::kMethod, "(Key As String) As Boolean",
       [](Dictionary& self, Arguments arguments) -> Variant { return self.Lookup(arguments[0].ToText()); },
       1},
  }};
  return kMembers;
}

Variant Dictionary::Invoke(std::string_view member, InvokeKind kind, Arguments arguments) {
  return Dispatch(*this, Members(), member.empty() ? "Item" : member, kind, arguments);
}

}  // namespace salerpt
