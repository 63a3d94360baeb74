// A toolkit without a screen that notes what would be shown.
#pragma once

#include <memory>
#include <string_view>

#include "runtime/toolkit.h"

namespace salerpt::shell {

class RecordedSuite;

// Message boxes are noted and answered with OK; the texts of the progress dialog are noted. Everything else
// as the default.
class RecordingToolkit final : public Toolkit {
 public:
  explicit RecordingToolkit(std::shared_ptr<RecordedSuite> suite);

  using Toolkit::ShowModal;
  void ShowModal(ProgressForm& form) override;
  BoxAnswer MessageBox(std::string_view text, int style, std::string_view title) override;

 private:
  std::shared_ptr<RecordedSuite> suite_;
};

}  // namespace salerpt::shell
