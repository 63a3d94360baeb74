#include "shell/scripted/dialog_case.h"

#include <charconv>
#include <limits>

#include "shell/recorded/json_value.h"

namespace salerpt::shell {
namespace {

constexpr auto kLowest = std::numeric_limits<std::int32_t>::min();
constexpr auto kHighest = std::numeric_limits<std::int32_t>::max();

std::int32_t Int32(const JsonPlace& place) {
  return static_cast<std::int32_t>(place.Whole(kLowest, kHighest));
}

// A value as the plan store and the settings hold it: a text; a number is written out.
std::string StoredText(const JsonPlace& place) {
  const Json& value = place.Value();
  if (!value.is_string() && !value.is_number()) place.RaiseExpected("a text or a number");
  return ToScalar(place).ToText();
}

void ReadPlans(const JsonPlace& place, DialogCase& result) {
  place.Members([&](std::string_view name, const JsonPlace& plan) {
    if (name == "status") {
      result.chosen_plan = plan.Text();
      return;
    }
    StoredPlan values;
    plan.Members([&](std::string_view key, const JsonPlace& value) {
      std::optional<std::string> text;
      if (!value.Value().is_null()) text = StoredText(value);
      values.emplace_back(key, std::move(text));
    });
    result.plans.emplace_back(name, std::move(values));
  });
}

void ReadSettings(const JsonPlace& place, DialogCase& result) {
  place.Members([&](std::string_view key, const JsonPlace& value) {
    if (key.find('/') == key.rfind('/')) value.Raise("the key is not of the form PROFILE/SECTION/KEY");
    result.settings.insert_or_assign(std::string(key), StoredText(value));
  });
}

std::vector<DialogCase::Named> ReadNamed(const JsonPlace& place) {
  std::vector<DialogCase::Named> rows;
  place.Elements([&](const JsonPlace& row) {
    DialogCase::Named named{};
    int column = 0;
    row.Elements([&](const JsonPlace& cell) {
      if (column == 0) named.id = Int32(cell);
      if (column == 1) named.name = cell.Text();
      ++column;
    });
    if (column != 2) row.RaiseExpected("an array [FInterID, FName]");
    rows.push_back(std::move(named));
  });
  return rows;
}

void ReadLevels(const JsonPlace& place, DialogCase& result) {
  place.Members([&](std::string_view key, const JsonPlace& level) {
    std::int32_t item_class = 0;
    const auto [end, error] = std::from_chars(key.data(), key.data() + key.size(), item_class);
    if (error != std::errc() || end != key.data() + key.size()) level.Raise("the key is no class number");
    result.item_max_level[item_class] = Int32(level);
  });
}

// The steps' own keys are read when they run.
Json ObjectsOf(const JsonPlace& place, std::string_view expected, bool may_be_null) {
  place.Elements([&](const JsonPlace& element) {
    const Json& value = element.Value();
    if (!value.is_object() && !(may_be_null && value.is_null())) element.RaiseExpected(expected);
  });
  return place.Value();
}

}  // namespace

DialogCase ReadDialogCase(const Json& document) {
  const JsonPlace place(document);
  place.RequireKeys({"props", "profile", "dataRight", "access", "faults", "answers", "RptID", "today",
                     "plans", "settings", "saleTypes", "orderTypes", "propDescs", "itemMaxLevel", "lookups",
                     "replies", "steps"});
  DialogCase result;
  // "replies" of a dialog are the user's, not the operations'.
  Json system = document;
  system.erase("replies");
  result.suite = ReadRecordedCase(JsonPlace(system));
  place.IfPresent("RptID", [&](const JsonPlace& value) { result.rpt_id = Int32(value); });
  place.IfPresent("today", [&](const JsonPlace& value) {
    result.today = Date::Parse(value.Text());
    if (!result.today) value.RaiseExpected("a date YYYY-MM-DD");
  });
  place.IfPresent("plans", [&](const JsonPlace& value) { ReadPlans(value, result); });
  place.IfPresent("settings", [&](const JsonPlace& value) { ReadSettings(value, result); });
  place.IfPresent("saleTypes", [&](const JsonPlace& value) { result.sale_types = ReadNamed(value); });
  place.IfPresent("orderTypes", [&](const JsonPlace& value) { result.order_types = ReadNamed(value); });
  place.IfPresent("propDescs", [&](const JsonPlace& value) {
    result.property_descriptions = ObjectsOf(value, "an object", false);
  });
  place.IfPresent("itemMaxLevel", [&](const JsonPlace& value) { ReadLevels(value, result); });
  place.IfPresent("lookups", [&](const JsonPlace& value) {
    result.lookups = ObjectsOf(value, "an object, or null for a cancelled look-up", true);
  });
  place.IfPresent("replies", [&](const JsonPlace& value) {
    value.Elements([&](const JsonPlace& reply) { result.replies.push_back(reply.Text()); });
  });
  place.IfPresent("steps", [&](const JsonPlace& value) { result.steps = ObjectsOf(value, "a step", false); });
  return result;
}

}  // namespace salerpt::shell
