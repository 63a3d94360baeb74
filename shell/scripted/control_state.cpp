#include "shell/scripted/control_state.h"

namespace salerpt::shell {
namespace {

void AddOwn(const FormControl& control, Json& state) {
  if (const auto* box = dynamic_cast<const TextBox*>(&control)) {
    state["text"] = box->Text();
  } else if (const auto* check = dynamic_cast<const CheckBox*>(&control)) {
    state["value"] = check->Value();
  } else if (const auto* date = dynamic_cast<const DatePicker*>(&control)) {
    state["value"] = date->Text();
  } else if (const auto* list = dynamic_cast<const ListControl*>(&control)) {
    state["text"] = list->Text();
    state["items"] = Json::array();
    for (const ListItem& item : list->Items()) state["items"].push_back({item.text, item.item_data});
    state["listIndex"] = list->ListIndex();
  } else if (const auto* arrows = dynamic_cast<const UpDown*>(&control)) {
    state["min"] = arrows->min;
    state["max"] = arrows->max;
  } else if (const auto* tabs = dynamic_cast<const TabControl*>(&control)) {
    state["tabs"] = Json::array();
    for (const TabControl::Tab& tab : tabs->tabs) state["tabs"].push_back({tab.caption, tab.enabled});
  } else if (const auto* plans = dynamic_cast<const ListView*>(&control)) {
    state["text"] = plans->SelectedText();
    state["items"] = Json::array();
    for (const ListView::Row& row : plans->Rows()) state["items"].push_back({row.text, row.icon});
    state["listIndex"] = plans->SelectedIndex();
    state["view"] = plans->view;
  } else if (const auto* grid = dynamic_cast<const OrderGrid*>(&control)) {
    state["rows"] = Json::array();
    for (const OrderGrid::Row& row : grid->rows) {
      state["rows"].push_back({row.caption, row.ascending, row.descending, row.field});
    }
  } else if (const auto* bar = dynamic_cast<const Toolbar*>(&control)) {
    state["items"] = Json::array();
    for (const Toolbar::ToolButton& button : bar->buttons) state["items"].push_back({button.key, button.tag});
  } else if (const auto* button = dynamic_cast<const Button*>(&control)) {
    state["default"] = button->is_default;
  }
}

}  // namespace

Json ShowControls(const Form& form) {
  Json states = Json::object();
  for (const auto& control : form.Controls()) {
    Json state = Json::object();
    if (!control->caption.empty()) state["caption"] = control->caption;
    AddOwn(*control, state);
    state["enabled"] = control->enabled;
    state["visible"] = control->visible;
    states[control->Name()] = std::move(state);
  }
  return states;
}

}  // namespace salerpt::shell
