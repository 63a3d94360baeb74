// Case files: whatever bytes stand in one, reading it ends in a case or in the run-time's error.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "runtime/error.h"
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

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    CallMembers(ReadRequestCase(ParseCase(text, "case.json")));
  } catch (const RuntimeError&) {
    // The one way to refuse a case.
  }
  return 0;
}
