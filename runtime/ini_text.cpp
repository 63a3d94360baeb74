#include "runtime/ini_text.h"

#include "runtime/error.h"
#include "runtime/text.h"

namespace salerpt {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kBlanks = " \t\r";

std::string_view TrimBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string_view Unquote(std::string_view value) {
  const bool quoted =
      value.size() >= 2 && value.front() == value.back() && (value.front() == '"' || value.front() == '\'');
  return quoted ? value.substr(1, value.size() - 2) : value;
}

std::string_view SectionName(std::string_view line) {
  line.remove_prefix(1);
  return TrimBlanks(line.substr(0, line.find(']')));
}

struct Place {
  // Behind the section's last line that says something; npos where there is no such section.
  std::size_t section_end = std::string_view::npos;
  // What stands behind the key's sign, up to the end of the line; npos where the key is not there.
  std::size_t value_begin = std::string_view::npos;
  std::size_t value_end = 0;
};

Place FindPlace(std::string_view text, std::string_view section, std::string_view key) {
  section = TrimBlanks(section);
  key = TrimBlanks(key);
  Place place;
  bool inside = false;
  std::size_t next = 0;
  for (std::size_t at = text.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0; at < text.size();
       at = next) {
    const std::size_t line_end = std::min(text.find('\n', at), text.size());
    next = std::min(line_end + 1, text.size());
    const std::string_view line = TrimBlanks(text.substr(at, line_end - at));
    if (line.starts_with('[')) {
      if (inside) return place;
      inside = EqualNames(SectionName(line), section);
    }
    if (!inside || line.empty()) continue;
    place.section_end = next;
    const std::size_t sign = text.find('=', at);
    if (line.starts_with('[') || line.starts_with(';') || sign >= line_end) continue;
    if (!EqualNames(TrimBlanks(text.substr(at, sign - at)), key)) continue;
    place.value_begin = sign + 1;
    place.value_end = line_end > sign + 1 && text[line_end - 1] == '\r' ? line_end - 1 : line_end;
    return place;
  }
  return place;
}

void RequireWritable(std::string_view section, std::string_view key, std::string_view value) {
  constexpr std::string_view kLineEnds = "\r\n";
  const auto refuse = [](std::string_view what, std::string_view text, std::string_view expected) {
    throw RuntimeError(error_number::kInvalidCall, "IniFile",
                       Join(what, " \"", text, "\" cannot stand in a settings file: ", expected));
  };
  if (section.find_first_of("]\r\n") != std::string_view::npos) {
    refuse("section", section, "one line without \"]\" was expected");
  }
  const std::string_view name = TrimBlanks(key);
  if (name.empty() || name.starts_with('[') || name.starts_with(';') ||
      name.find_first_of("=\r\n") != std::string_view::npos) {
    refuse("key", key, "one line without \"=\" was expected, not beginning with \"[\" or \";\"");
  }
  if (value.find_first_of(kLineEnds) != std::string_view::npos)
    refuse("value", value, "one line was expected");
}

// The value as it must stand to be read back as it is.
std::string WrittenValue(std::string_view value) {
  if (Unquote(TrimBlanks(value)) == value) return std::string(value);
  return Join("\"", value, "\"");
}

}  // namespace

std::optional<std::string_view> FindIniValue(std::string_view text, std::string_view section,
                                             std::string_view key) {
  const Place place = FindPlace(text, section, key);
  if (place.value_begin == std::string_view::npos) return std::nullopt;
  return Unquote(TrimBlanks(text.substr(place.value_begin, place.value_end - place.value_begin)));
}

std::string SetIniValue(std::string_view text, std::string_view section, std::string_view key,
                        std::string_view value) {
  RequireWritable(section, key, value);
  const std::string written = WrittenValue(value);
  const Place place = FindPlace(text, section, key);
  if (place.value_begin != std::string_view::npos) {
    return Join(text.substr(0, place.value_begin), written, text.substr(place.value_end));
  }
  const std::size_t first_end = text.find('\n');
  const bool crlf = first_end == std::string_view::npos || (first_end > 0 && text[first_end - 1] == '\r');
  const std::string_view line_end = crlf ? kCrLf : "\n";
  const bool has_section = place.section_end != std::string_view::npos;
  const std::string_view before = has_section ? text.substr(0, place.section_end) : text;
  std::string result(before);
  const bool ends_inside_a_line = !before.empty() && before != kByteOrderMark && before.back() != '\n';
  if (ends_inside_a_line) Append(result, line_end);
  if (!has_section) Append(result, "[", TrimBlanks(section), "]", line_end);
  Append(result, TrimBlanks(key), "=", written, line_end, text.substr(before.size()));
  return result;
}

}  // namespace salerpt
