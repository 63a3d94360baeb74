#include "shell/recorded/recording_toolkit.h"

#include <string>
#include <utility>

#include "runtime/progress_form.h"
#include "shell/recorded/recorded_suite.h"

namespace salerpt::shell {

RecordingToolkit::RecordingToolkit(std::shared_ptr<RecordedSuite> suite) : suite_(std::move(suite)) {}

void RecordingToolkit::ShowModal(ProgressForm& form) {
  // The form is made for one showing: the connection ends with it.
  form.MessageChanged.Connect(
      [suite = suite_](const std::string& text) { suite->Noted().progress.push_back(text); });
  Toolkit::ShowModal(form);
}

BoxAnswer RecordingToolkit::MessageBox(std::string_view text, int style, std::string_view title) {
  suite_->Noted().boxes.push_back({{"text", text}, {"title", title}, {"style", style}});
  return BoxAnswer::kOk;
}

}  // namespace salerpt::shell
