// What a report shows while it works, on the message stream of a terminal program.
#pragma once

#include <iosfwd>

#include "runtime/toolkit.h"
#include "shell/progress_bar.h"

namespace salerpt::shell {

// Draws the progress dialog as a line with a bar, and message boxes as lines answered with OK.
class ShellToolkit final : public Toolkit {
 public:
  ShellToolkit(std::ostream& err, ProgressBar& bar) : err_(err), bar_(bar) {}

  using Toolkit::ShowModal;
  void ShowModal(ProgressForm& form) override;
  BoxAnswer MessageBox(std::string_view text, int style, std::string_view title) override;

 private:
  std::ostream& err_;
  ProgressBar& bar_;
};

}  // namespace salerpt::shell
