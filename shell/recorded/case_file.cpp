#include "shell/recorded/case_file.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <set>
#include <vector>

#include "runtime/text.h"
#include "shell/read_text.h"

namespace salerpt::shell {
namespace {

[[noreturn]] void Raise(std::string_view name, std::string_view what) {
  throw RuntimeError(error_number::kWrongArguments, "", Join(name, ": ", what));
}

// "line 3, column 5", both from 1, of a byte counted from 1; columns count bytes.
std::string PlaceOf(std::string_view text, std::size_t byte) {
  const std::string_view before = text.substr(0, std::min(byte > 0 ? byte - 1 : 0, text.size()));
  const auto line = std::count(before.begin(), before.end(), '\n') + 1;
  const std::size_t line_start = before.rfind('\n');
  const std::size_t column = before.size() - (line_start == std::string_view::npos ? 0 : line_start + 1) + 1;
  return "line " + std::to_string(line) + ", column " + std::to_string(column);
}

// The parser's message without its own name ("[json.exception…] ") and place ("parse error at line 1, column
// 7: ") in front, and without the bytes that are no UTF-8.
std::string_view Reason(std::string_view message) {
  if (const std::size_t name = message.find("] "); name != std::string_view::npos)
    message.remove_prefix(name + 2);
  if (message.starts_with("parse error"))
    message.remove_prefix(std::min(message.find(": "), message.size() - 2) + 2);
  if (const std::size_t bytes = message.find("ill-formed UTF-8 byte; "); bytes != std::string_view::npos) {
    message = message.substr(0, message.find(';', bytes));
  }
  return message;
}

// Far beyond any case: what works on a document goes down with its levels.
constexpr int kDeepestNesting = 256;

// Finds a key that stands twice in one object: the later value would silently win.
struct KeyWatch {
  std::vector<std::set<std::string>> open_objects;
  std::optional<std::string> twice;

  void See(Json::parse_event_t event, const Json& parsed) {
    if (event == Json::parse_event_t::object_start) open_objects.emplace_back();
    if (event == Json::parse_event_t::object_end) open_objects.pop_back();
    if (event != Json::parse_event_t::key) return;
    const auto& key = parsed.get_ref<const std::string&>();
    if (!open_objects.back().insert(key).second) twice = key;
  }
};

}  // namespace

Json ParseCase(std::string_view text, std::string_view name) {
  KeyWatch watch;
  try {
    Json document = Json::parse(text, [&](int depth, Json::parse_event_t event, const Json& parsed) {
      if (depth > kDeepestNesting) Raise(name, Join("nested deeper than ", kDeepestNesting, " levels"));
      watch.See(event, parsed);
      return true;
    });
    if (watch.twice) Raise(name, Join("the key \"", *watch.twice, "\" stands twice in one object"));
    return document;
  } catch (const Json::parse_error& failure) {
    Raise(name, Join(PlaceOf(text, failure.byte), ": ", Reason(failure.what())));
  } catch (const Json::out_of_range& failure) {
    Raise(name, Reason(failure.what()));
  }
}

Json LoadCase(const std::string& file) {
  return ParseCase(ReadTextFile(file), file);
}

}  // namespace salerpt::shell
