#include "shell/recorded/recorded_case.h"

#include <charconv>
#include <limits>

#include "shell/recorded/json_value.h"

namespace salerpt::shell {
namespace {

// Unspecified failure, for a fault that gives no number.
constexpr auto kUnspecified = static_cast<std::int32_t>(0x80004005);

std::optional<std::int32_t> ParseWhole(std::string_view text) {
  text = Trim(text);
  std::int32_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

void ReadProfile(const JsonPlace& place, RecordedCase& recorded) {
  place.Members([&](std::string_view key, const JsonPlace& member) {
    if (key.find('/') == std::string_view::npos) member.Raise("the key is not of the form CATEGORY/KEY");
    const Json& value = member.Value();
    if (!value.is_number() && !value.is_string() && !value.is_null()) {
      member.RaiseExpected("a text, a number or null");
    }
    recorded.profile.insert_or_assign(std::string(key), ToScalar(member));
  });
}

void ReadDataRight(const JsonPlace& place, RecordedCase& recorded) {
  place.Members([&](std::string_view key, const JsonPlace& member) {
    const auto kind = ParseWhole(key);
    if (!kind) member.Raise("the key is not the number of a kind of data right");
    recorded.data_right[*kind] = member.Boolean();
  });
}

std::optional<std::array<std::int32_t, 3>> ParseRight(std::string_view key) {
  std::array<std::int32_t, 3> right{};
  for (std::size_t i = 0; i < right.size(); ++i) {
    const std::size_t comma = key.find(',');
    if ((comma == std::string_view::npos) != (i + 1 == right.size())) return std::nullopt;
    const auto number = ParseWhole(key.substr(0, comma));
    if (!number) return std::nullopt;
    right[i] = *number;
    if (comma != std::string_view::npos) key.remove_prefix(comma + 1);
  }
  return right;
}

void ReadAccess(const JsonPlace& place, RecordedCase& recorded) {
  place.Members([&](std::string_view key, const JsonPlace& member) {
    const auto right = ParseRight(key);
    if (!right) member.Raise("the key is not three whole numbers \"a,b,c\"");
    recorded.access[*right] = member.Boolean();
  });
}

void ReadAnswers(const JsonPlace& place, RecordedCase& recorded) {
  place.Members([&](std::string_view key, const JsonPlace& member) {
    ToAnswer(member);
    recorded.answers.insert_or_assign(std::string(key), member.Value());
  });
}

void ReadReplies(const JsonPlace& place, RecordedCase& recorded) {
  place.Members([&](std::string_view key, const JsonPlace& member) {
    member.RequireObject();
    ToAnswer(member);
    recorded.replies.insert_or_assign(std::string(key), member.Value());
  });
}

Fault ReadFault(const JsonPlace& place) {
  place.RequireKeys({"number", "source", "description"});
  Fault fault{kUnspecified, "", ""};
  place.IfPresent("number", [&](const JsonPlace& number) {
    // 2147745892 (0x80040064) is the same number as -2147221404.
    fault.number = static_cast<std::int32_t>(
        number.Whole(std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::uint32_t>::max()));
  });
  place.IfPresent("source", [&](const JsonPlace& source) { fault.source = source.Text(); });
  place.IfPresent("description", [&](const JsonPlace& text) { fault.description = text.Text(); });
  return fault;
}

void ReadFaults(const JsonPlace& place, RecordedCase& recorded) {
  place.Members([&](std::string_view key, const JsonPlace& member) {
    const std::string_view name = EqualNames(key, "ApplyDataRight") ? "GetDataRight" : key;
    recorded.faults.insert_or_assign(std::string(name), ReadFault(member));
  });
}

}  // namespace

RecordedCase ReadRecordedCase(const JsonPlace& document) {
  document.RequireObject();
  RecordedCase recorded;
  document.IfPresent("props", [&](const JsonPlace& place) { recorded.props = place.Text(); });
  document.IfPresent("profile", [&](const JsonPlace& place) { ReadProfile(place, recorded); });
  document.IfPresent("amountScale", [&](const JsonPlace& place) {
    recorded.amount_scale.reset();
    if (place.Value().is_null()) return;
    recorded.amount_scale =
        static_cast<std::int16_t>(place.Whole(0, std::numeric_limits<std::int16_t>::max()));
  });
  document.IfPresent("dataRight", [&](const JsonPlace& place) { ReadDataRight(place, recorded); });
  document.IfPresent("access", [&](const JsonPlace& place) { ReadAccess(place, recorded); });
  document.IfPresent("answers", [&](const JsonPlace& place) { ReadAnswers(place, recorded); });
  document.IfPresent("replies", [&](const JsonPlace& place) { ReadReplies(place, recorded); });
  document.IfPresent("faults", [&](const JsonPlace& place) { ReadFaults(place, recorded); });
  return recorded;
}

}  // namespace salerpt::shell
