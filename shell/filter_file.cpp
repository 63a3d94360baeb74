#include "shell/filter_file.h"

#include <algorithm>
#include <limits>
#include <nlohmann/json.hpp>

#include "runtime/error.h"
#include "runtime/text.h"
#include "shell/read_text.h"

namespace salerpt::shell {
namespace {

using Json = nlohmann::ordered_json;

// No condition is nested deeper, and what works on one goes down with its levels.
constexpr int kDeepestNesting = 64;

[[noreturn]] void Fail(std::string_view file, std::string_view what) {
  throw RuntimeError(error_number::kInvalidCall, "Shell", Join(file, ": ", what));
}

// Where in the file a value stands: "filter.json: /SumField/FName".
std::string PlaceOf(std::string_view file, const Json::json_pointer& pointer) {
  return Join(file, ": ", pointer.to_string());
}

// "line 3, column 7" of a byte, both from 1.
std::string LineOf(std::string_view json, std::size_t byte) {
  const std::string_view before = json.substr(0, std::min(byte > 0 ? byte - 1 : 0, json.size()));
  const auto line = std::count(before.begin(), before.end(), '\n') + 1;
  const std::size_t line_begin = before.rfind('\n') + 1;  // npos + 1 is 0
  return Join("line ", std::to_string(line), ", column ", std::to_string(before.size() - line_begin + 1));
}

Json Parse(std::string_view json, std::string_view file) {
  std::vector<std::vector<std::string>> keys;  // of the objects that are open
  std::string twice;
  const auto watch = [&](int depth, Json::parse_event_t event, Json& parsed) {
    if (depth > kDeepestNesting) Fail(file, Join("nested deeper than ", kDeepestNesting, " levels"));
    if (event == Json::parse_event_t::object_start) keys.emplace_back();
    if (event == Json::parse_event_t::object_end) keys.pop_back();
    if (event == Json::parse_event_t::key) {
      const auto key = UpperCase(parsed.get<std::string>());
      if (std::find(keys.back().begin(), keys.back().end(), key) != keys.back().end()) {
        twice = parsed.get<std::string>();
      }
      keys.back().push_back(key);
    }
    return true;
  };
  try {
    Json parsed = Json::parse(json, watch);
    if (!twice.empty()) Fail(file, Join("the key \"", twice, "\" stands there twice"));
    return parsed;
  } catch (const Json::parse_error& error) {
    Fail(file, Join(LineOf(json, error.byte), ": this is no JSON"));
  } catch (const Json::out_of_range&) {
    Fail(file, "a number is too large");
  }
}

Variant ValueOf(const Json& json, const Json::json_pointer& pointer, std::string_view file) {
  using Limits = std::numeric_limits<std::int32_t>;
  switch (json.type()) {
    case Json::value_t::boolean:
      return json.get<bool>();
    case Json::value_t::string:
      return json.get<std::string>();
    case Json::value_t::number_integer:
    case Json::value_t::number_unsigned:
    case Json::value_t::number_float: {
      const auto number = json.get<double>();
      const bool is_int32 = json.is_number_integer() && number >= Limits::min() && number <= Limits::max();
      return is_int32 ? Variant(json.get<std::int32_t>()) : Variant(number);
    }
    case Json::value_t::object: {
      auto dictionary = std::make_shared<Dictionary>();
      for (const auto& [key, value] : json.items()) dictionary->Set(key, ValueOf(value, pointer / key, file));
      return dictionary;
    }
    default:
      Fail(file, Join(pointer.to_string(), ": ", json.dump(),
                      ": a number, a text, a boolean or an object was expected"));
  }
}

}  // namespace

std::vector<Choice> ParseFilter(std::string_view json, std::string_view file) {
  const Json parsed = Parse(json, file);
  if (!parsed.is_object())
    Fail(file, Join(parsed.dump().substr(0, 40), ": an object of keys and values was expected"));
  std::vector<Choice> choices;
  for (const auto& [key, value] : parsed.items()) {
    const auto pointer = Json::json_pointer() / key;
    choices.push_back({key, ValueOf(value, pointer, file), Join(PlaceOf(file, pointer), ": ", value.dump())});
  }
  return choices;
}

std::vector<Choice> ReadFilterFile(const std::filesystem::path& file) {
  return ParseFilter(ReadTextFile(file), file.string());
}

}  // namespace salerpt::shell
