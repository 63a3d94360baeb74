#include "shell/shell_toolkit.h"

#include <ostream>
#include <string>

#include "runtime/progress_form.h"
#include "shell/escape.h"

namespace salerpt::shell {

void ShellToolkit::ShowModal(ProgressForm& form) {
  form.MessageChanged.Connect([this](const std::string& message) { bar_.SetMessage(message); });
  form.BarChanged.Connect([this, &form] {
    const bool has_bar = form.IsBarVisible() && form.Value() > form.Min();
    bar_.SetBar(form.Value() - form.Min(), has_bar ? form.Max() - form.Min() : 0);
  });
  Toolkit::ShowModal(form);
  bar_.Clear();
}

void ShellToolkit::ShowModal(FilterDialog& dialog) {
  if (user_) {
    user_(dialog);
  } else {
    Toolkit::ShowModal(dialog);
  }
}

std::string ShellToolkit::InputBox(std::string_view /*prompt*/, std::string_view /*title*/,
                                   std::string_view /*preset*/) {
  return typed_;
}

BoxAnswer ShellToolkit::MessageBox(std::string_view text, int style, std::string_view title) {
  if (style == kBoxYesNo) return BoxAnswer::kYes;

  bar_.Clear();
  std::string line(title);
  line += ' ';
  AppendTerminalText(line, text);
  err_ << "salerpt: " << line << '\n' << std::flush;
  return BoxAnswer::kOk;
}

}  // namespace salerpt::shell
