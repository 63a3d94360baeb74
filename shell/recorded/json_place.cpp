#include "shell/recorded/json_place.h"

#include <algorithm>

#include "runtime/error.h"
#include "runtime/text.h"
#include "shell/suggest.h"

namespace salerpt::shell {
namespace {

// Longer values are cut in messages, at a whole character.
constexpr std::size_t kShownBytes = 60;

std::string Shown(const Json& value) {
  std::string text = value.dump(-1, ' ', false, Json::error_handler_t::replace);
  if (text.size() <= kShownBytes) return text;
  std::size_t end = kShownBytes;
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;
  return text.substr(0, end) + "…";
}

std::string EscapedKey(std::string_view key) {
  return Replace(Replace(key, "~", "~0"), "/", "~1");
}

}  // namespace

std::string JsonPlace::Pointer() const {
  if (parent_ == nullptr) return std::string(name_);
  return parent_->Pointer() + "/" + (is_element_ ? std::to_string(index_) : EscapedKey(name_));
}

void JsonPlace::Raise(std::string_view what) const {
  const std::string pointer = Pointer();
  throw RuntimeError(error_number::kWrongArguments, "",
                     Join(pointer.empty() ? "the document" : pointer, ": ", what));
}

void JsonPlace::RaiseExpected(std::string_view expected) const {
  Raise(Join(depth_ > kMaxDepth ? "the value" : Shown(value_), " is not ", expected));
}

void JsonPlace::CheckDepth() const {
  if (depth_ > kMaxDepth) Raise(Join("nested deeper than ", kMaxDepth, " levels"));
}

std::string JsonPlace::Text() const {
  if (!value_.is_string()) RaiseExpected("a text");
  return value_.get<std::string>();
}

bool JsonPlace::Boolean() const {
  if (!value_.is_boolean()) RaiseExpected("true or false");
  return value_.get<bool>();
}

std::int64_t JsonPlace::Whole(std::int64_t low, std::int64_t high) const {
  const auto raise = [&] {
    RaiseExpected("a whole number from " + std::to_string(low) + " to " + std::to_string(high));
  };
  if (!value_.is_number()) raise();
  const double number = value_.get<double>();
  if (!(number >= static_cast<double>(low) && number <= static_cast<double>(high))) raise();
  const auto whole = static_cast<std::int64_t>(number);
  if (static_cast<double>(whole) != number) raise();
  return whole;
}

void JsonPlace::RequireObject() const {
  if (!value_.is_object()) RaiseExpected("an object");
}

void JsonPlace::RequireKeys(std::initializer_list<std::string_view> known) const {
  Members([&](std::string_view key, const JsonPlace& member) {
    if (std::find(known.begin(), known.end(), key) != known.end()) return;
    member.Raise(Join("unknown key", KnownNames(key, {known.begin(), known.size()})));
  });
}

}  // namespace salerpt::shell
