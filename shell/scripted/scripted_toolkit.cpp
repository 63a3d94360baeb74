#include "shell/scripted/scripted_toolkit.h"

#include <utility>

#include "dialogs/controls.h"
#include "runtime/error.h"
#include "runtime/list_form.h"
#include "runtime/text.h"

namespace salerpt::shell {

void ScriptedToolkit::ShowModal(ListForm& form) {
  form.Load();
  form.Activate();
  if (form.IsUnloaded()) return;
  form.OnAction(suite_->NextLookUp() ? "SelectOK" : "Exit");
}

BoxAnswer ScriptedToolkit::MessageBox(std::string_view text, int style, std::string_view title) {
  boxes.push_back({{"text", text}, {"title", title}, {"style", style}});
  if (replies_.empty()) return BoxAnswer::kOk;
  const std::string reply = std::move(replies_.front());
  replies_.pop_front();
  if (EqualNames(reply, "Yes")) return BoxAnswer::kYes;
  if (EqualNames(reply, "No")) return BoxAnswer::kNo;
  if (EqualNames(reply, "OK")) return BoxAnswer::kOk;
  if (EqualNames(reply, "Cancel")) return BoxAnswer::kCancel;
  throw RuntimeError(
      error_number::kWrongArguments, "",
      Join("/replies: \"", reply, "\" answers the box \"", text, "\"; Yes, No, OK or Cancel was expected"));
}

std::string ScriptedToolkit::InputBox(std::string_view prompt, std::string_view title,
                                      std::string_view preset) {
  inputs.push_back({{"prompt", prompt}, {"title", title}, {"preset", preset}});
  if (replies_.empty()) return {};
  std::string reply = std::move(replies_.front());
  replies_.pop_front();
  return reply;
}

void ScriptedToolkit::SendKeys(std::string_view sent) {
  keys.push_back(sent);
  if (EqualNames(sent, "{TAB}")) tab_sent_ = true;
}

void ScriptedToolkit::KeybdEvent(int virtual_key) {
  keys.push_back(virtual_key);
  if (virtual_key == key_code::kTab) tab_sent_ = true;
}

}  // namespace salerpt::shell
