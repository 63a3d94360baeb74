// Any text as a settings file, behind one line each of section, key and value to set: what is set is found
// again, setting it twice changes nothing, and every other value stays.
#include <optional>
#include <string>
#include <vector>

#include "fuzz/require.h"
#include "runtime/error.h"
#include "runtime/ini_text.h"
#include "runtime/text.h"

namespace {

using salerpt::EqualNames;
using salerpt::FindIniValue;
using salerpt::SetIniValue;
using salerpt::fuzz::Require;
using salerpt::fuzz::TakeLine;

struct Name {
  std::string section;
  std::string key;
};

std::string Bare(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(kBlanks) - first + 1));
}

// The names that stand in the text, as a reader with a pencil would find them.
std::vector<Name> NamesIn(std::string_view text) {
  if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
  std::vector<Name> names;
  std::optional<std::string> section;
  while (!text.empty()) {
    const std::string line = Bare(TakeLine(text));
    if (line.starts_with('[')) {
      section = Bare(std::string_view(line).substr(1, line.find(']') - 1));
    } else if (section && !line.starts_with(';') && line.find('=') != std::string::npos) {
      names.push_back({*section, Bare(std::string_view(line).substr(0, line.find('=')))});
    }
  }
  return names;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view text = salerpt::fuzz::AsText(data, size);
  const std::string_view section = TakeLine(text);
  const std::string_view key = TakeLine(text);
  const std::string_view value = TakeLine(text);
  std::string changed;
  try {
    changed = SetIniValue(text, section, key, value);
  } catch (const salerpt::RuntimeError& error) {
    Require(error.Number() == salerpt::error_number::kInvalidCall);
    return 0;
  }
  Require(FindIniValue(changed, section, key) == value);
  Require(SetIniValue(changed, section, key, value) == changed);
  for (const Name& name : NamesIn(text)) {
    const bool is_set = EqualNames(name.section, Bare(section)) && EqualNames(name.key, Bare(key));
    if (is_set) continue;
    Require(FindIniValue(changed, name.section, name.key) == FindIniValue(text, name.section, name.key));
  }
  return 0;
}
