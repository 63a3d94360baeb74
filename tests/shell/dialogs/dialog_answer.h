// What came of one dialog case, in the form in which tests write down what they expect.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "shell/scripted/dialog_run.h"

namespace salerpt::shell {

// The case is a JSON text as `salerpt dialog` reads it; "today" is 2024-03-05 where it does not say.
class DialogAnswer {
 public:
  explicit DialogAnswer(std::string_view dialog, std::string_view case_text = "{}") {
    Json document = Json::parse(case_text);
    if (!document.contains("today")) document["today"] = "2024-03-05";
    answer_ = RunDialog(dialog, ReadDialogCase(document));
  }

  [[nodiscard]] const Json& All() const { return answer_; }
  // The entries in order; those of a dictionary inside are sorted, as nobody sees their order.
  [[nodiscard]] std::string Filter() const { return Lines(answer_.at("Filter")); }
  [[nodiscard]] Json FilterValue(const std::string& key) const {
    return answer_.at("Filter").value(key, Json("(no such key)"));
  }
  // Key and value of the rows of the last save, in order; plan and family stand in front.
  [[nodiscard]] std::string SavedPlan() const {
    Json plan = Json::object();
    for (const Json& call : answer_.at("calls")) {
      if (call.at("member") != "SaveProfile") continue;
      plan = Json::object();
      for (const Json& row : call.at("args").at(1)) {
        plan["plan"] = row.at("Plan");
        plan["family"] = row.at("RptID");
        plan[row.at("Key").get<std::string>()] = row.at("Value");
      }
    }
    return Lines(plan);
  }
  // The members called, in order, with their objects.
  [[nodiscard]] std::vector<std::string> Members() const {
    std::vector<std::string> members;
    for (const Json& call : answer_.at("calls")) {
      members.push_back(call.at("object").get<std::string>() + "." + call.at("member").get<std::string>());
    }
    return members;
  }
  // The arguments of each call of a member, as compact texts.
  [[nodiscard]] std::vector<std::string> ArgumentsOf(std::string_view member) const {
    std::vector<std::string> found;
    for (const Json& call : answer_.at("calls")) {
      if (call.at("member") == member) found.push_back(call.at("args").dump());
    }
    return found;
  }
  // A member of a control's state; of one that was written down under a label, with it.
  [[nodiscard]] Json State(const std::string& control, const std::string& member,
                           const std::string& label = "") const {
    const Json& controls = label.empty() ? answer_.at("controls") : answer_.at("states").at(label);
    return controls.at(control).at(member);
  }
  [[nodiscard]] std::string Text(const std::string& control, const std::string& label = "") const {
    return State(control, "text", label).get<std::string>();
  }
  [[nodiscard]] int Value(const std::string& control, const std::string& label = "") const {
    return State(control, "value", label).get<int>();
  }
  [[nodiscard]] int Index(const std::string& control, const std::string& label = "") const {
    return State(control, "listIndex", label).get<int>();
  }
  [[nodiscard]] bool IsEnabled(const std::string& control, const std::string& label = "") const {
    return State(control, "enabled", label).get<bool>();
  }
  // Whether the user reaches it.
  [[nodiscard]] bool IsAvailable(const std::string& control) const {
    return IsEnabled(control) && State(control, "visible").get<bool>();
  }
  // The texts of a combo box.
  [[nodiscard]] std::vector<std::string> Items(const std::string& control) const {
    std::vector<std::string> items;
    for (const Json& item : State(control, "items")) items.push_back(item.at(0).get<std::string>());
    return items;
  }
  // The captions of all controls.
  [[nodiscard]] std::vector<std::string> Captions() const {
    std::vector<std::string> captions;
    for (const Json& control : answer_.at("controls")) {
      if (control.contains("caption")) captions.push_back(control.at("caption").get<std::string>());
    }
    return captions;
  }
  [[nodiscard]] bool IsClosed() const { return answer_.at("closed").get<bool>(); }
  [[nodiscard]] std::string Boxes() const { return answer_.at("boxes").dump(); }

  // An expected object in the same form.
  static std::string Expected(std::string_view object_text) { return Lines(Json::parse(object_text)); }

 private:
  static std::string Lines(const Json& object) {
    std::string lines;
    for (const auto& [key, value] : object.items()) {
      lines += key + "=" + (value.is_object() ? nlohmann::json(value).dump() : value.dump()) + "\n";
    }
    return lines;
  }

  Json answer_;
};

}  // namespace salerpt::shell
