// What a report shows while it works, on the message stream of a terminal program.
#pragma once

#include <functional>
#include <iosfwd>
#include <string>
#include <utility>

#include "runtime/toolkit.h"
#include "shell/progress_bar.h"

namespace salerpt::shell {

// Draws the progress dialog as a line with a bar, and message boxes as lines answered with OK, or with Yes
// where they ask. A filter dialog is used by what the command line says in the user's place.
class ShellToolkit final : public Toolkit {
 public:
  ShellToolkit(std::ostream& err, ProgressBar& bar) : err_(err), bar_(bar) {}

  // Who uses the dialogs that are shown; nothing: they are confirmed as they stand.
  using User = std::function<void(FilterDialog& dialog)>;
  void SetUser(User user) { user_ = std::move(user); }
  // What is typed into input boxes.
  void SetTypedText(std::string_view text) { typed_ = text; }

  using Toolkit::ShowModal;
  void ShowModal(ProgressForm& form) override;
  void ShowModal(FilterDialog& dialog) override;
  BoxAnswer MessageBox(std::string_view text, int style, std::string_view title) override;
  std::string InputBox(std::string_view prompt, std::string_view title, std::string_view preset) override;

 private:
  std::ostream& err_;
  ProgressBar& bar_;
  User user_;
  std::string typed_;
};

}  // namespace salerpt::shell
