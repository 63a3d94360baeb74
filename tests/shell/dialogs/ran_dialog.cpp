#include "tests/shell/dialogs/ran_dialog.h"

#include <gtest/gtest.h>

#include <utility>

#include "shell/scripted/dialog_run.h"

namespace salerpt::shell {
namespace {

Json RanOver(std::string_view base, std::string_view dialog, std::string_view case_text) {
  Json whole = Json::parse(base);
  whole.update(Json::parse(case_text));
  return RunDialog(dialog, ReadDialogCase(whole));
}

// Through an unordered object, whose keys stand in the alphabet's order.
std::string KeysSorted(const Json& object) {
  return nlohmann::json(object).dump();
}

std::string SumFieldSorted(Json filter) {
  if (filter.contains("SumField")) filter["SumField"] = Json::parse(KeysSorted(filter["SumField"]));
  return filter.dump();
}

std::string LinesOf(const Json& object) {
  std::string lines;
  for (const auto& [key, value] : object.items()) lines += key + "=" + value.dump() + "\n";
  return lines;
}

}  // namespace

Json Ran(std::string_view dialog, std::string_view case_text) {
  return RanOver(R"({
      "today": "2024-03-15", "RptID": 900, "itemMaxLevel": {"1": 3, "4": 4},
      "saleTypes": [[101, "现销"], [20296, "受托代销"], [20298, "委托代销"]]})",
                 dialog, case_text);
}

Json RanBare(std::string_view dialog, std::string_view case_text) {
  return RanOver(R"({"today": "2024-03-05"})", dialog, case_text);
}

std::string Filter(const Json& ran) {
  return SumFieldSorted(ran.at("Filter"));
}

std::string InOrder(std::string_view text) {
  return SumFieldSorted(Json::parse(text));
}

Json FilterValue(const Json& ran, std::string_view key) {
  return ran.at("Filter").value(std::string(key), Json("(no such key)"));
}

std::vector<std::vector<std::string>> SavedPlans(const Json& ran) {
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

std::vector<std::string> SavedPlan(const Json& ran) {
  const auto saved = SavedPlans(ran);
  return saved.empty() ? std::vector<std::string>{} : saved.back();
}

std::string SavedLines(const Json& ran) {
  Json plan = Json::object();
  for (const Json& call : ran.at("calls")) {
    if (call.at("member") != "SaveProfile") continue;
    plan = Json::object();
    for (const Json& row : call.at("args").at(1)) {
      plan["plan"] = row.at("Plan");
      plan["family"] = row.at("RptID");
      plan[row.at("Key").get<std::string>()] = row.at("Value");
    }
  }
  return LinesOf(plan);
}

std::string Lines(std::string_view object_text) {
  return LinesOf(Json::parse(object_text));
}

std::vector<std::string> SortRows(const Json& state) {
  std::vector<std::string> rows;
  for (const Json& row : state.at("vsOrder").at("rows")) {
    rows.push_back(row.at(0).get<std::string>() + "/" + row.at(1).dump() + "/" + row.at(2).dump() + "/" +
                   row.at(3).get<std::string>());
  }
  return rows;
}

std::vector<std::string> Calls(const Json& ran) {
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

std::vector<std::string> Members(const Json& ran) {
  std::vector<std::string> members;
  for (const Json& call : ran.at("calls")) {
    members.push_back(call.at("object").get<std::string>() + "." + call.at("member").get<std::string>());
  }
  return members;
}

std::vector<std::string> ArgumentsOf(const Json& ran, std::string_view member) {
  std::vector<std::string> found;
  for (const Json& call : ran.at("calls")) {
    if (call.at("member") == member) found.push_back(call.at("args").dump());
  }
  return found;
}

const Json& Shown(const Json& ran, std::string_view control) {
  return ran.at("controls").at(std::string(control));
}

const Json& Shown(const Json& ran, std::string_view state, std::string_view control) {
  return ran.at("states").at(std::string(state)).at(std::string(control));
}

std::string Text(const Json& ran, std::string_view control) {
  return Shown(ran, control).at("text");
}

std::string Text(const Json& ran, std::string_view state, std::string_view control) {
  return Shown(ran, state, control).at("text");
}

std::string Items(const Json& ran, std::string_view control) {
  return Shown(ran, control).at("items").dump();
}

std::vector<std::string> ItemTexts(const Json& ran, std::string_view control) {
  std::vector<std::string> texts;
  for (const Json& item : Shown(ran, control).at("items")) texts.push_back(item.at(0));
  return texts;
}

std::vector<std::string> Captions(const Json& ran) {
  std::vector<std::string> captions;
  for (const Json& control : ran.at("controls")) {
    if (control.contains("caption")) captions.push_back(control.at("caption"));
  }
  return captions;
}

std::vector<std::string> Boxes(const Json& ran) {
  std::vector<std::string> boxes;
  for (const Json& box : ran.at("boxes")) {
    boxes.push_back(box.at("text").get<std::string>() + " | " + box.at("title").get<std::string>() + " | " +
                    box.at("style").dump());
  }
  return boxes;
}

std::vector<std::string> Inputs(const Json& ran) {
  std::vector<std::string> inputs;
  for (const Json& input : ran.at("inputs")) {
    inputs.push_back(input.at("prompt").get<std::string>() + " | " + input.at("title").get<std::string>());
  }
  return inputs;
}

}  // namespace salerpt::shell
