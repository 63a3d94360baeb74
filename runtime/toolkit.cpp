#include "runtime/toolkit.h"

#include "runtime/filter_dialog.h"
#include "runtime/list_form.h"
#include "runtime/progress_form.h"

namespace salerpt {

void Toolkit::ShowModal(ProgressForm& form) {
  form.Load();
  if (!form.IsUnloaded()) form.Activate();
}

void Toolkit::ShowModal(FilterDialog& dialog) {
  dialog.Load();
  dialog.Activate();
  if (!dialog.IsUnloaded()) dialog.Confirm();
}

void Toolkit::ShowModal(ListForm& form) {
  form.Load();
  form.Activate();
  if (form.IsVisible()) form.OnAction("Exit");
}

BoxAnswer Toolkit::MessageBox(std::string_view /*text*/, int /*style*/, std::string_view /*title*/) {
  return BoxAnswer::kOk;
}

std::string Toolkit::InputBox(std::string_view /*prompt*/, std::string_view /*title*/,
                              std::string_view /*preset*/) {
  return {};
}

void Toolkit::SendKeys(std::string_view /*keys*/) {}

void Toolkit::KeybdEvent(int /*virtual_key*/) {}

}  // namespace salerpt
