#include "runtime/mparse.h"

#include <memory>

#include "runtime/error.h"
#include "runtime/mmts.h"
#include "runtime/runtime.h"
#include "runtime/variant.h"

namespace salerpt {
namespace {

constexpr std::string_view kLanguageName = "LANGUAGE";
constexpr std::string_view kPinnedLanguage = "chs";

// The value of an entry; `text` goes on behind the entry.
std::string_view ReadValue(std::string_view& text) {
  text = Trim(text);
  if (!text.starts_with('{')) return Trim(CutAt(text, ';'));
  text.remove_prefix(1);
  const std::string_view value = CutAt(text, '}');
  CutAt(text, ';');
  return Trim(value);
}

// Where "name=" begins in the text, without regard to case; npos where it does not.
std::size_t FindEntry(std::string_view text, std::string_view name) {
  for (std::size_t sign = text.find('='); sign != std::string_view::npos; sign = text.find('=', sign + 1)) {
    if (sign >= name.size() && EqualNames(text.substr(sign - name.size(), name.size()), name)) {
      return sign - name.size();
    }
  }
  return std::string_view::npos;
}

}  // namespace

std::string_view CutAt(std::string_view& text, char separator) {
  const std::size_t at = text.find(separator);
  const std::string_view first = text.substr(0, at);
  text.remove_prefix(at == std::string_view::npos ? text.size() : at + 1);
  return first;
}

void PropertyCollection::Parse(std::string_view text) {
  text_ = text;
  values_.clear();
  std::string_view rest = text_;
  while (true) {
    const std::string_view name = Trim(CutAt(rest, '='));
    const std::string_view value = ReadValue(rest);
    if (name.empty()) return;
    if (!values_.try_emplace(std::string(name), value).second) {
      throw RuntimeError(error_number::kDuplicateKey, "",
                         Join("the property string holds \"", name, "\" twice; each name may stand once"));
    }
  }
}

const std::string& PropertyCollection::Get(std::string_view name) const {
  if (const auto found = values_.find(name); found != values_.end()) return found->second;
  throw RuntimeError(error_number::kInvalidCall, "", Join("the property string holds no \"", name, "\""));
}

bool ParseString(std::string_view text) {
  // In place before it reads: after a failure nobody finds the properties of an earlier login.
  const auto properties = std::make_shared<PropertyCollection>();
  Runtime::Current().properties = properties;
  properties->Parse(text);
  return true;
}

std::string GetProperty(std::string_view name) {
  if (const auto& properties = Runtime::Current().properties) return properties->Get(name);
  throw RuntimeError(error_number::kObjectNotSet, "",
                     Join("property \"", name, "\" was asked for before a property string was parsed"));
}

std::int16_t GetUserID() {
  return Variant(GetProperty("UserID")).ToInt16();
}

std::string GetPropertyFromText(std::string_view name) {
  if (EqualNames(name, kLanguageName)) return std::string(kPinnedLanguage);
  const std::string props = GetPropsString();
  const std::size_t at = FindEntry(props, name);
  if (at == std::string::npos) return {};
  std::string_view value = std::string_view(props).substr(at + name.size() + 1);
  return std::string(CutAt(value, ';'));
}

std::string ResText(std::string_view text) {
  return std::string(text);
}

}  // namespace salerpt
