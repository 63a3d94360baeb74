// Case files of `request`, behind a line that may name a report class: whatever bytes stand in one, reading
// it ends in a case or in the run-time's error; every member that the case knows can be called; a report
// driven by it answers the same twice.
#include <algorithm>
#include <memory>
#include <string>

#include "fuzz/require.h"
#include "runtime/error.h"
#include "runtime/report_class.h"
#include "runtime/runtime.h"
#include "shell/recorded/case_file.h"
#include "shell/recorded/json_value.h"
#include "shell/recorded/recorded_suite.h"
#include "shell/recorded/request.h"
#include "shell/recorded/shown.h"

namespace {

using namespace salerpt;
using namespace salerpt::shell;

// Every member that the case knows is called with its filter, and what comes back is shown.
void CallMembers(const RequestCase& request) {
  Runtime runtime;
  const auto suite = std::make_shared<RecordedSuite>(request.suite);
  suite->Register(runtime);
  const ObjectRef data = CreateObject("ORVMSaleRpt.Data");
  for (const auto& [member, answer] : request.suite.answers) {
    Variant filter = request.filter;
    (void)Show(Call(data, member, request.suite.props, filter));
  }
  (void)suite->TakeRecording().calls.dump();
}

// What the report answers, or the error that it raises.
std::string Answer(std::string_view report_class, const RequestCase& request) {
  try {
    return RunRequest(report_class, request).dump(-1, ' ', false, Json::error_handler_t::replace);
  } catch (const RuntimeError& error) {
    return error.Description();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view text = fuzz::AsText(data, size);
  const std::string_view report_class = fuzz::TakeLine(text);
  try {
    RequestCase request = ReadRequestCase(ParseCase(text, "case.json"));
    constexpr std::int32_t kMostRefreshes = 2;
    request.repeat = std::min(request.repeat, kMostRefreshes);
    if (FindReportClass(report_class) == nullptr) {
      CallMembers(request);
    } else {
      fuzz::Require(Answer(report_class, request) == Answer(report_class, request));
    }
  } catch (const RuntimeError&) {
    // The one way to refuse a case.
  }
  return 0;
}
