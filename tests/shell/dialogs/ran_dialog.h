// A filter dialog run from the text of a case, and what came of it in a form that tests compare.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "shell/scripted/dialog_run.h"

namespace salerpt::shell {

// On 15 March 2024, with three class levels of customers and four of items, and three sale styles; what the
// case gives itself stands in place of these.
inline Json Ran(std::string_view dialog, std::string_view case_text) {
  Json whole = Json::parse(R"({
    "today": "2024-03-15", "RptID": 900, "itemMaxLevel": {"1": 3, "4": 4},
    "saleTypes": [[101, "现销"], [20296, "受托代销"], [20298, "委托代销"]]})");
  whole.update(Json::parse(case_text));
  return RunDialog(dialog, ReadDialogCase(whole));
}

// Keys in their order; the keys of "SumField", which no order is promised for, in the alphabet's.
inline std::string SumFieldSorted(Json filter) {
  if (filter.contains("SumField")) {
    filter["SumField"] = Json::parse(nlohmann::json::parse(filter["SumField"].dump()).dump());
  }
  return filter.dump();
}
inline std::string Filter(const Json& ran) {
  return SumFieldSorted(ran.at("Filter"));
}
inline std::string InOrder(std::string_view text) {
  return SumFieldSorted(Json::parse(text));
}

// "128/plan" and then "Key=Value" of each row, for each plan saved.
inline std::vector<std::vector<std::string>> SavedPlans(const Json& ran) {
  std::vector<std::vector<std::string>> saved;
  for (const Json& call : ran.at("calls")) {
    if (call.at("member") != "SaveProfile") continue;
    std::vector<std::string> rows;
    for (const Json& row : call.at("args").at(1)) {
      const std::string plan = row.at("RptID").dump() + "/" + row.at("Plan").get_ref<const std::string&>();
      if (rows.empty()) rows.push_back(plan);
      EXPECT_EQ(rows.front(), plan);
      rows.push_back(row.at("Key").get_ref<const std::string&>() + "=" +
                     row.at("Value").get_ref<const std::string&>());
    }
    saved.push_back(std::move(rows));
  }
  return saved;
}
// The last one; empty where none was saved.
inline std::vector<std::string> SavedPlan(const Json& ran) {
  const auto saved = SavedPlans(ran);
  return saved.empty() ? std::vector<std::string>{} : saved.back();
}

// Members called in order, with their last argument where it is a text: "DelPlan 月报".
inline std::vector<std::string> Calls(const Json& ran) {
  std::vector<std::string> calls;
  for (const Json& call : ran.at("calls")) {
    std::string shown = call.at("member");
    const Json& arguments = call.at("args");
    if (arguments.size() > 1 && arguments.back().is_string()) {
      shown += " " + arguments.back().get_ref<const std::string&>();
    }
    calls.push_back(std::move(shown));
  }
  return calls;
}
// Names that the usage log was written with.
inline std::vector<std::string> UsageLog(const Json& ran) {
  std::vector<std::string> names;
  for (const Json& call : ran.at("calls")) {
    if (call.at("member") == "WriteMGLog") names.push_back(call.at("args").back());
  }
  return names;
}

inline const Json& Shown(const Json& ran, std::string_view control) {
  return ran.at("controls").at(std::string(control));
}
inline const Json& Shown(const Json& ran, std::string_view state, std::string_view control) {
  return ran.at("states").at(std::string(state)).at(std::string(control));
}
inline std::string Text(const Json& ran, std::string_view control) {
  return Shown(ran, control).at("text");
}
inline std::string Text(const Json& ran, std::string_view state, std::string_view control) {
  return Shown(ran, state, control).at("text");
}
inline std::string Items(const Json& ran, std::string_view control) {
  return Shown(ran, control).at("items").dump();
}
// Of all controls.
inline std::vector<std::string> Captions(const Json& ran) {
  std::vector<std::string> captions;
  for (const Json& control : ran.at("controls")) {
    if (control.contains("caption")) captions.push_back(control.at("caption"));
  }
  return captions;
}
// "text | title | style" of each message box.
inline std::vector<std::string> Boxes(const Json& ran) {
  std::vector<std::string> boxes;
  for (const Json& box : ran.at("boxes")) {
    boxes.push_back(box.at("text").get<std::string>() + " | " + box.at("title").get<std::string>() + " | " +
                    box.at("style").dump());
  }
  return boxes;
}
// "prompt | title" of each input box.
inline std::vector<std::string> Inputs(const Json& ran) {
  std::vector<std::string> inputs;
  for (const Json& input : ran.at("inputs")) {
    inputs.push_back(input.at("prompt").get<std::string>() + " | " + input.at("title").get<std::string>());
  }
  return inputs;
}
// The sort grid: "caption/ascending/descending/field".
inline std::vector<std::string> SortRows(const Json& state) {
  std::vector<std::string> rows;
  for (const Json& row : state.at("vsOrder").at("rows")) {
    rows.push_back(row.at(0).get<std::string>() + "/" + row.at(1).dump() + "/" + row.at(2).dump() + "/" +
                   row.at(3).get<std::string>());
  }
  return rows;
}

}  // namespace salerpt::shell
