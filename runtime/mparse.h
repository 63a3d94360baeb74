// `MParse`: the property string of the login, cut into properties.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "runtime/text.h"

namespace salerpt {

// `CutAt`: the part of `text` before the first `separator`; `text` keeps what stands behind it, or becomes
// empty where there is none.
std::string_view CutAt(std::string_view& text, char separator);

// Name to value; names without regard to case.
class PropertyCollection {
 public:
  PropertyCollection() = default;
  explicit PropertyCollection(std::string_view text) { Parse(text); }
  // Reads "name=value;name={value;with=signs};…" in place of what was read before. An entry with an empty
  // name ends the text. Raises duplicate-key for a name given twice; the entries before it then stand.
  void Parse(std::string_view text);
  // Raises the run-time's error of a missing collection key (invalid call), naming it; never gives empty text
  // for it.
  [[nodiscard]] const std::string& Get(std::string_view name) const;
  // The text as it was given.
  [[nodiscard]] const std::string& Text() const { return text_; }

 private:
  std::string text_;
  std::map<std::string, std::string, NameLess> values_;
};

// Keeps the text and makes the process-wide collection anew. Always true.
bool ParseString(std::string_view text);
// A property of the process-wide collection. Raises as PropertyCollection::Get, and object-not-set where
// ParseString has not been called.
std::string GetProperty(std::string_view name);
// `GetProperty("UserID")` as a 16-bit number; overflow and type mismatch are raised.
std::int16_t GetUserID();
// The value behind "name=" in the login's property string, up to the next ";". "LANGUAGE" is always "chs".
// The match may lie inside a longer name; kept, since hosts rely on nothing else.
std::string GetPropertyFromText(std::string_view name);
// The seam for language resources: every visible text passes through it. Gives its argument back.
std::string ResText(std::string_view text);

}  // namespace salerpt
