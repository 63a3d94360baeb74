// Case files of `dialog`, behind a line that names the dialog: whatever bytes stand in one, reading and
// running it ends in an answer or in the run-time's error, and the same way twice.
#include <algorithm>
#include <string>

#include "fuzz/require.h"
#include "runtime/error.h"
#include "shell/recorded/case_file.h"
#include "shell/scripted/dialog_case.h"
#include "shell/scripted/dialog_run.h"

namespace {

using namespace salerpt;
using namespace salerpt::shell;

std::string Answer(std::string_view dialog, const DialogCase& dialog_case) {
  try {
    return RunDialog(dialog, dialog_case).dump(-1, ' ', false, Json::error_handler_t::replace);
  } catch (const RuntimeError& error) {
    return error.Description();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view text = fuzz::AsText(data, size);
  const std::string_view dialog = fuzz::TakeLine(text);
  DialogCase dialog_case;
  try {
    dialog_case = ReadDialogCase(ParseCase(text, "case.json"));
  } catch (const RuntimeError& error) {
    fuzz::Require(error.Number() == error_number::kWrongArguments);
    return 0;
  }
  constexpr std::size_t kMostSteps = 40;
  if (dialog_case.steps.size() > kMostSteps) return 0;
  // A day of its own: the clock may strike midnight between the two runs.
  if (!dialog_case.today) dialog_case.today = Date(37803);
  fuzz::Require(Answer(dialog, dialog_case) == Answer(dialog, dialog_case));
  return 0;
}
