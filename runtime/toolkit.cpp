#include "runtime/toolkit.h"

#include "runtime/filter_dialog.h"
#include "runtime/progress_form.h"

namespace salerpt {

void Toolkit::ShowModal(ProgressForm& form) {
  form.Load();
  if (!form.IsUnloaded()) form.Activate();
}

void Toolkit::ShowModal(FilterDialog& dialog) {
  dialog.Confirm();
}

BoxAnswer Toolkit::MessageBox(std::string_view /*text*/, int /*style*/, std::string_view /*title*/) {
  return BoxAnswer::kOk;
}

std::string Toolkit::InputBox(std::string_view /*prompt*/, std::string_view /*title*/,
                              std::string_view /*preset*/) {
  return {};
}

void Toolkit::SendKeys(std::string_view /*keys*/) {}

}  // namespace salerpt
