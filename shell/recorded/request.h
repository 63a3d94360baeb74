// Runs a report against a recorded suite and tells what it sent and what it shows.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "runtime/dictionary.h"
#include "runtime/runtime.h"
#include "shell/recorded/recorded_case.h"

namespace salerpt::shell {

// What the host does, and the suite that it does it on.
struct RequestCase {
  RecordedCase suite;
  // Set on the report before the filter, where they are given: a 32-bit integer and a text (or a number, as
  // hosts give it).
  std::optional<std::int32_t> rpt_id;
  std::optional<Variant> ext_filter;
  // Nothing: the report's filter is set to nothing.
  DictionaryRef filter;
  // Row, from 0, of which the detail report is asked for.
  std::optional<std::int32_t> drill;
  // Further calls of `Refresh` behind the fetch.
  std::int32_t repeat = 0;
};

// Reads a case file's document. Raises wrong-arguments with JSON pointer, value and what was expected, for an
// unknown key too.
RequestCase ReadRequestCase(const Json& document);

// Drives a report of the class ("Rpt128", without regard to case) as a host does: makes it, sets `RptID`,
// `ExtFirter` and `Filter`, fetches, refreshes, asks for the detail report unless `Result` tells a failure.
// The answer has the keys `Result`, `Property`, `Title`, `Header`, `calls`, `progress`, `boxes`, `log`, `Rs`,
// `Filter` and `detail`: null, or the same object for the detail report behind its `class`. What the drill
// calls and shows stands in `detail` only; where it raises, `detail` holds these beside `error`
// {"number", "source", "description"}, and where it gives nothing, they follow those of the report.
//
// Raises invalid call for a class that is none, and the object maker's error for one that is not there.
Json RunRequest(std::string_view class_name, const RequestCase& request);
Json RunRequest(std::string_view class_name, const Json& case_json);
// The same in a world whose reports are registered; the suite's objects and toolkit are put into it.
Json RunRequest(Runtime& runtime, std::string_view class_name, const RequestCase& request);

// Whether the report, or its drill, answered a failure.
bool IsFailure(const Json& answer);

}  // namespace salerpt::shell
