// `Dictionary`: the keyed bag that the host, the reports, the dialogs and the middle tier speak in.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/object.h"

namespace salerpt {

// Named values. Keys compare without regard to case ("SElECT" and "SELECT" are one entry); the order and the
// spelling of a key's first setting are kept, for showing.
class Dictionary final : public Object {
 public:
  static constexpr std::string_view kClassName = "QFO.Dictionary";
  struct Entry {
    std::string key;
    Variant value;
  };

  Dictionary() = default;
  // Keys and values in order; a key given twice keeps its first place and its last value.
  Dictionary(std::initializer_list<Entry> entries);

  // The value of a key; an empty value where the key was never set, which is no error.
  [[nodiscard]] const Variant& Get(std::string_view key) const;
  // The value of a key, or `absent` where it was never set.
  [[nodiscard]] Variant GetValue(std::string_view key, const Variant& absent) const;
  // True where the key is there, whatever its value.
  [[nodiscard]] bool Lookup(std::string_view key) const;
  void Set(std::string_view key, Variant value);

  // In the order of first setting.
  [[nodiscard]] const std::vector<Entry>& Entries() const { return entries_; }
  // A new dictionary with the same entries; objects inside are shared, not copied.
  [[nodiscard]] std::shared_ptr<Dictionary> Copy() const;

  [[nodiscard]] std::string_view ClassName() const override { return kClassName; }
  Variant Invoke(std::string_view member, InvokeKind kind, Arguments arguments) override;
  static std::span<const Member<Dictionary>> Members();

 private:
  [[nodiscard]] const Entry* Find(std::string_view key) const;
  // The slot of a key: the one that tells its entry, or the free one where it belongs.
  [[nodiscard]] std::size_t SlotOf(std::string_view key) const;
  void IndexLastEntry();

  std::vector<Entry> entries_;
  // A hash table with open addressing, only once there are more entries than a walk finds quickly: the
  // position of an entry plus 1, or 0 for a free slot. A power of two in size, at most half full.
  std::vector<std::uint32_t> slots_;
};
using DictionaryRef = std::shared_ptr<Dictionary>;

}  // namespace salerpt
