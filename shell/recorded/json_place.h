// A value of a JSON document together with the place where it stands, for errors that name it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

namespace salerpt::shell {

// Keeps the order of keys: it is the order in which dictionaries are filled.
using Json = nlohmann::ordered_json;

// The place is spelled only when an error needs it, so that reading many cells stays cheap. A place refers to
// the one that it was made from and to the value: it lives on the stack while a document is read.
class JsonPlace {
 public:
  // Deeper nesting than this is refused by CheckDepth.
  static constexpr int kMaxDepth = 64;

  // The root of a document, or a part of one that stands behind `pointer`.
  explicit JsonPlace(const Json& value, std::string_view pointer = "") : value_(value), name_(pointer) {}

  [[nodiscard]] const Json& Value() const { return value_; }
  // RFC 6901: "/answers/GetSaleData/0".
  [[nodiscard]] std::string Pointer() const;

  // Raises the run-time's error for bad input: place, value and what was expected.
  [[noreturn]] void RaiseExpected(std::string_view expected) const;
  [[noreturn]] void Raise(std::string_view what) const;
  void CheckDepth() const;

  // Each raises where the value is not of the kind.
  [[nodiscard]] std::string Text() const;
  [[nodiscard]] bool Boolean() const;
  // A whole number from `low` to `high`.
  [[nodiscard]] std::int64_t Whole(std::int64_t low, std::int64_t high) const;
  void RequireObject() const;
  // An object with none but these keys.
  void RequireKeys(std::initializer_list<std::string_view> known) const;

  // Calls `visit(key, place)` for each member of an object, in its order.
  template <typename Visit>
  void Members(Visit&& visit) const {
    RequireObject();
    for (auto member = value_.begin(); member != value_.end(); ++member) {
      visit(member.key(), JsonPlace(*this, member.key(), member.value()));
    }
  }
  // Calls `visit(place)` for each element of an array.
  template <typename Visit>
  void Elements(Visit&& visit) const {
    if (!value_.is_array()) RaiseExpected("an array");
    for (std::size_t i = 0; i < value_.size(); ++i) visit(JsonPlace(*this, i, value_[i]));
  }
  // Calls `visit(place)` where the object has the key.
  template <typename Visit>
  void IfPresent(std::string_view key, Visit&& visit) const {
    if (const auto member = value_.find(key); member != value_.end()) {
      visit(JsonPlace(*this, key, member.value()));
    }
  }

 private:
  JsonPlace(const JsonPlace& parent, std::string_view key, const Json& value)
      : value_(value), parent_(&parent), name_(key), depth_(parent.depth_ + 1) {}
  JsonPlace(const JsonPlace& parent, std::size_t index, const Json& value)
      : value_(value), parent_(&parent), index_(index), is_element_(true), depth_(parent.depth_ + 1) {}

  const Json& value_;
  const JsonPlace* parent_ = nullptr;
  std::string_view name_;
  std::size_t index_ = 0;
  bool is_element_ = false;
  int depth_ = 0;
};

}  // namespace salerpt::shell
