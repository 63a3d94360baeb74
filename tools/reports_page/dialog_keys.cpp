#include "reports_page/dialog_keys.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

#include "runtime/text.h"
#include "shell/scripted/dialog_run.h"

namespace salerpt::tools {
namespace {

// A day, a year and a period that no constant of a dialog is taken for.
constexpr const char* kToday = "2031-07-19";
constexpr const char* kYesterday = "2031-07-18";
constexpr const char* kTomorrow = "2031-07-20";
constexpr int kYear = 2031;
constexpr int kPeriod = 7;
// Of the class trees, so that it differs from a level that a dialog opens with.
constexpr int kDeepestLevel = 4;
// One level is enough to see the columns of a level.
constexpr int kOneLevel = 1;

// The property that stands for all those that an account set may define.
constexpr const char* kProperty = "(a property)";

bool StartsWith(std::string_view text, std::string_view start) {
  return text.substr(0, start.size()) == start;
}

// --- Running the dialog

Json CaseOf(Json steps, int deepest_level) {
  Json levels = Json::object();
  for (const char* item_class : {"1", "2", "3", "4", "5", "8", "10", "2014"})
    levels[item_class] = deepest_level;
  return {{"today", kToday},
          {"profile",
           {{"IC/UseShortNumber", 0},
            {"GL/PeriodCount", 12},
            {"GL/StartYear", 2000},
            {"GL/StartPeriod", 1},
            {"GL/CurrentYear", kYear},
            {"GL/CurrentPeriod", kPeriod},
            {"IC/StartYear", 2000},
            {"IC/StartPeriod", 1},
            {"IC/CurrentYear", kYear},
            {"IC/CurrentPeriod", kPeriod}}},
          {"saleTypes", Json::array({Json::array({2, "现销"})})},
          {"orderTypes", Json::array({Json::array({2, "内销"})})},
          {"propDescs",
           {{{"FItemClassID", 1},
             {"FName", kProperty},
             {"FPropID", 1},
             {"FSQLColumnName", "F_1"},
             {"FSrcTable", ""},
             {"FSrcField", ""},
             {"FDisplayField", ""}}}},
          {"itemMaxLevel", std::move(levels)},
          {"lookups", Json::array({{{"Number", "8"},
                                    {"FNumber", "8"},
                                    {"FShortNumber", "8"},
                                    {"FItemID", 8},
                                    {"FInterID", 8},
                                    {"Name", "8"},
                                    {"FName", "8"},
                                    {"FBillNo", "8"}}})},
          {"steps", std::move(steps)}};
}

// The dialog confirmed behind the steps. A refused one has no filter.
struct Run {
  Json filter;
  Json controls;
};
Run Confirm(std::string_view dialog, Json steps, int deepest_level = kDeepestLevel) {
  steps.push_back({{"state", "shown"}});
  steps.push_back({{"click", "cmdOK"}});
  Json answer = shell::RunDialog(dialog, shell::ReadDialogCase(CaseOf(std::move(steps), deepest_level)));
  const bool confirmed = answer.at("Filter").is_object() && answer.at("Filter").value("OK", false);
  return {confirmed ? std::move(answer.at("Filter")) : Json::object(),
          std::move(answer.at("states").at("shown"))};
}

// --- Controls

// "txtItem(3)": its index; nothing for a control that is none of an array.
std::optional<int> IndexOf(std::string_view control) {
  const std::size_t open = control.find('(');
  if (open == std::string_view::npos) return std::nullopt;
  return std::stoi(std::string(control.substr(open + 1)));
}

bool IsComboBox(std::string_view name) {
  return StartsWith(name, "cmb") || StartsWith(name, "Cmb") || StartsWith(name, "cbo");
}

// The step that changes a control; nothing where it is no field, or there is nothing to change it to. Ends of
// ranges move away from each other, so that they stay in order.
std::optional<Json> Change(const std::string& name, const Json& state) {
  const bool is_end = IndexOf(name).value_or(0) % 2 == 1 || StartsWith(name, "DtpE");
  if (StartsWith(name, "Dtp")) return Json{{"date", name}, {"value", is_end ? kTomorrow : kYesterday}};
  if (StartsWith(name, "chk") || StartsWith(name, "Chk")) {
    return Json{{"check", name}, {"value", 1 - state.at("value").get<int>()}};
  }
  if (IsComboBox(name)) {
    const int rows = static_cast<int>(state.at("items").size());
    if (rows < 2) return std::nullopt;
    return Json{{"select", name}, {"index", (state.at("listIndex").get<int>() + 1) % rows}};
  }
  if (StartsWith(name, "txtlevel")) return Json{{"paste", name}, {"text", "2"}};
  if (StartsWith(name, "txtPeriod")) {
    const int index = IndexOf(name).value_or(0);
    const int number = (index % 2 == 0 ? kYear : kPeriod) + (index < 2 ? -1 : 1);
    return Json{{"paste", name}, {"text", std::to_string(number)}};
  }
  if (StartsWith(name, "txt")) return Json{{"paste", name}, {"text", "7"}};
  if (StartsWith(name, "cmdItem")) return Json{{"click", name}};
  return std::nullopt;
}

std::string WithoutColon(std::string_view caption) {
  caption = Trim(caption);
  for (const std::string_view end : {":", "："}) {
    if (caption.ends_with(end)) caption.remove_suffix(end.size());
  }
  return std::string(caption);
}

// The caption of a control, or of the label that is named after it: "lblFROB" for "cmbFROB", "lblItem(2)" for
// both ends "txtItem(2)" and "txtItem(3)". Else of the label before it.
std::string CaptionOf(const std::string& name, const Json& controls) {
  const auto caption = [&controls](const std::string& control) {
    const auto found = controls.find(control);
    return found == controls.end() ? std::string() : WithoutColon(found->value("caption", ""));
  };
  if (StartsWith(name, "txtlevel")) return caption("Label7");
  if (StartsWith(name, "txtPeriod")) return IndexOf(name).value_or(0) % 2 == 0 ? "会计年度" : "会计期间";
  if (std::string own = caption(name); !own.empty()) return own;
  std::string label = "lbl" + name.substr(name[3] == '_' ? 4 : 3);
  if (const auto index = IndexOf(name)) {
    label = Join("lbl", name.substr(3, name.find('(') - 3), "(", *index - *index % 2, ")");
  }
  if (std::string named = caption(label); !named.empty()) return named;
  // A label stands before its field, or before the fields and look-up buttons of its range.
  const std::string array = name.substr(0, name.find('('));
  std::string before;
  for (auto control = controls.begin(); control != controls.end() && control.key() != name; ++control) {
    const std::string& key = control.key();
    if (StartsWith(key, "Label") || StartsWith(key, "lbl")) {
      if (key != "lblTo") before = caption(key);
    } else if (array == name || !(StartsWith(key, array) || StartsWith(key, "cmdItem"))) {
      before.clear();
    }
  }
  return before;
}

// --- Keys

struct Effect {
  std::string control;
  std::vector<std::string> keys;
};

// What each control changes, those that change least first: a key belongs to the control that changes it and
// little else.
std::vector<Effect> EffectsOf(std::string_view dialog, const Run& opened) {
  std::vector<Effect> effects;
  for (const auto& [name, state] : opened.controls.items()) {
    const auto change = Change(name, state);
    if (!change) continue;
    const Run changed = Confirm(dialog, Json::array({*change}));
    Effect effect{name, {}};
    for (const auto& [key, value] : changed.filter.items()) {
      const auto before = opened.filter.find(key);
      if (before == opened.filter.end() || *before != value) effect.keys.push_back(key);
    }
    effects.push_back(std::move(effect));
  }
  std::stable_sort(effects.begin(), effects.end(),
                   [](const Effect& a, const Effect& b) { return a.keys.size() < b.keys.size(); });
  return effects;
}

std::string KindOf(const Json& value) {
  if (value.is_boolean()) return "boolean";
  if (value.is_number()) return "number";
  if (value.is_object()) return "object";
  return value == kToday ? "date" : "text";
}

std::string DefaultOf(const std::string& key, const Json& value) {
  if (value == kToday) return "today";
  if (value == kYear) return "current year";
  if (value == kDeepestLevel && key == "ELevel") return "deepest level";
  if (value == kPeriod && key.find("Period") != std::string::npos) return "current period";
  if (value.is_object() || value == "") return "";
  return Join("`", value.is_string() ? value.get<std::string>() : value.dump(), "`");
}

// A combo box writes the index of its row, the number of the row, its text, or a number of the dialog's own;
// each row is confirmed once to see.
std::vector<std::string> ChoicesOf(std::string_view dialog, const std::string& control, const Json& state,
                                   const std::string& key) {
  std::vector<std::string> choices;
  int index = 0;
  for (const Json& item : state.at("items")) {
    const Run chosen = Confirm(dialog, Json::array({{{"select", control}, {"index", index++}}}));
    const Json value = chosen.filter.value(key, Json());
    const std::string text = item.at(0).get<std::string>();
    choices.push_back(value.is_string() ? text : Join(value.dump(), " ", text));
  }
  return choices;
}

void DescribeKeys(std::string_view dialog, const Run& opened, DialogKeys& told) {
  std::map<std::string, std::string> control_of;
  // Its rows may hang on another box, which then changes the key too.
  if (opened.controls.contains("cmbGroupBy")) control_of.emplace("SumMode", "cmbGroupBy");
  for (const Effect& effect : EffectsOf(dialog, opened)) {
    for (const std::string& key : effect.keys) control_of.try_emplace(key, effect.control);
  }
  for (const auto& [key, value] : opened.filter.items()) {
    if (key == "OK") continue;
    DialogKey described{key, KindOf(value), DefaultOf(key, value), "", {}};
    const auto found = control_of.find(key);
    if (found != control_of.end()) {
      const std::string& control = found->second;
      const bool is_look_up = StartsWith(control, "cmdItem");
      described.caption =
          is_look_up ? Join(CaptionOf("txtItem" + control.substr(7), opened.controls), " (by its look-up)")
                     : CaptionOf(control, opened.controls);
      const Json& state = opened.controls.at(control);
      const bool is_account_sets =
          control.find("SaleType") != std::string::npos || control.find("OrderType") != std::string::npos;
      if (state.contains("items") && control != "cmbGroupBy" && !is_account_sets) {
        described.choices = ChoicesOf(dialog, control, state, key);
      }
    }
    told.keys.push_back(std::move(described));
  }
}

// --- Groupings

void DescribeGroupings(std::string_view dialog, const Run& opened, DialogKeys& told) {
  const bool has_box = opened.controls.contains("chkGroupBy");
  if (has_box) {
    const Json plain = {{"check", "chkGroupBy"}, {"value", 0}};
    told.groupings.push_back({"", "", Confirm(dialog, Json::array({plain}), kOneLevel).filter});
  }
  if (!opened.controls.contains("cmbGroupBy")) {
    if (!has_box) told.groupings.push_back({"", "", opened.filter});
    return;
  }
  // The rows of the fee invoices hang on the style of the invoices.
  std::vector<std::pair<std::string, Json>> openings = {{"", Json::array()}};
  if (const auto styles = opened.controls.find("cmbInvoiceStyle"); styles != opened.controls.end()) {
    for (int style = 1; style < static_cast<int>(styles->at("items").size()); ++style) {
      openings.push_back({Join("InvoiceStyle=", style, " "),
                          Json::array({{{"select", "cmbInvoiceStyle"}, {"index", style}}})});
    }
  }
  for (const auto& [before, opening] : openings) {
    Json steps = opening;
    if (has_box) steps.push_back({{"check", "chkGroupBy"}, {"value", 1}});
    const Run grouped = Confirm(dialog, steps);
    int index = 0;
    for (const Json& item : grouped.controls.at("cmbGroupBy").at("items")) {
      Json chosen = steps;
      chosen.push_back({{"select", "cmbGroupBy"}, {"index", index++}});
      const std::string text = item.at(0).get<std::string>();
      const std::string choice = has_box ? Join("SumMode=", item.at(1).get<int>()) : Join("GroupBy=", text);
      const bool known = std::any_of(told.groupings.begin(), told.groupings.end(), [&](const Grouping& g) {
        return g.choice.ends_with(choice) && g.text == text;
      });
      if (!known) {
        told.groupings.push_back({before + choice, text, Confirm(dialog, chosen, kOneLevel).filter});
      }
    }
  }
}

// --- Check boxes, which may add columns to the plain list

void DescribeOptions(std::string_view dialog, const Run& opened, DialogKeys& told) {
  const Json plain = told.groupings.front().filter;
  for (const auto& [name, state] : opened.controls.items()) {
    const bool is_box = StartsWith(name, "chk") || StartsWith(name, "Chk");
    if (!is_box || name == "chkGroupBy" || name == "chkOnlyShowSum" || name == "chkNextChoose") continue;
    Json steps = Json::array({*Change(name, state)});
    if (opened.controls.contains("chkGroupBy")) steps.push_back({{"check", "chkGroupBy"}, {"value", 0}});
    const Json filter = Confirm(dialog, steps, kOneLevel).filter;
    for (const auto& [key, value] : filter.items()) {
      if (!value.is_number() || plain.value(key, Json()) == value) continue;
      told.groupings.push_back({Join(key, "=", value.dump()), "", filter, true});
      break;
    }
  }
}

// --- The sort pane: fields chosen already, and those on offer, whose text carries the field behind blanks.

void DescribeSortFields(std::string_view dialog, const Run& opened, DialogKeys& told) {
  if (!opened.controls.contains("listOrderFields")) return;
  Json steps = Json::array();
  if (opened.controls.contains("chkGroupBy")) steps.push_back({{"check", "chkGroupBy"}, {"value", 0}});
  const Run plain = Confirm(dialog, steps);
  const auto add = [&told](std::string_view caption, std::string_view field) {
    std::string shown = Join(caption, caption.empty() ? "" : " ", "`", field, "`");
    const bool known =
        std::any_of(told.sort_fields.begin(), told.sort_fields.end(),
                    [field](const std::string& f) { return f.ends_with(Join("`", field, "`")); });
    if (!known) told.sort_fields.push_back(std::move(shown));
  };
  for (const Json& item : plain.controls.at("listOrderFields").at("items")) {
    const std::string text = item.at(0).get<std::string>();
    const std::size_t blank = text.rfind(' ');
    add(Trim(std::string_view(text).substr(0, blank)), std::string_view(text).substr(blank + 1));
  }
  for (const Json& row : plain.controls.at("vsOrder").at("rows")) {
    add(row.at(0).get_ref<const std::string&>(), row.at(3).get_ref<const std::string&>());
  }
}

}  // namespace

DialogKeys ReadDialogKeys(std::string_view dialog) {
  DialogKeys told;
  const Run opened = Confirm(dialog, Json::array());
  DescribeKeys(dialog, opened, told);
  DescribeGroupings(dialog, opened, told);
  DescribeOptions(dialog, opened, told);
  DescribeSortFields(dialog, opened, told);
  return told;
}

}  // namespace salerpt::tools
