#include "shell/recorded/request.h"

#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "reports/reports.h"
#include "runtime/report.h"
#include "runtime/report_class.h"
#include "shell/recorded/json_value.h"
#include "shell/recorded/recorded_suite.h"
#include "shell/recorded/shown.h"
#include "shell/suggest.h"

namespace salerpt::shell {
namespace {

constexpr auto kLowest = std::numeric_limits<std::int32_t>::min();
constexpr auto kHighest = std::numeric_limits<std::int32_t>::max();

std::int32_t ReadInt32(const JsonPlace& place, std::int32_t low) {
  return static_cast<std::int32_t>(place.Whole(low, kHighest));
}

// A class may have no read of its filter for hosts; support sees it all the same.
Variant FilterOf(const ObjectRef& report) {
  try {
    return GetMember(report, "Filter");
  } catch (const RuntimeError& failure) {
    const auto typed = std::dynamic_pointer_cast<Report>(report);
    if (failure.Number() != error_number::kNoSuchMember || !typed) throw;
    return typed->Filter();
  }
}

void AddRecording(Json& shown, Recording recording) {
  shown["calls"] = std::move(recording.calls);
  shown["progress"] = std::move(recording.progress);
  shown["boxes"] = std::move(recording.boxes);
  shown["log"] = std::move(recording.log);
}

// Appends the members of a report to `shown`, as the host reads them.
void AddReport(Json& shown, const ObjectRef& report, Recording recording) {
  for (const char* member : {"Result", "Property", "Title", "Header"}) {
    shown[member] = Show(GetMember(report, member));
  }
  AddRecording(shown, std::move(recording));
  shown["Rs"] = Show(GetMember(report, "Rs"));
  shown["Filter"] = Show(FilterOf(report));
}

bool IsOk(const ObjectRef& report) {
  const auto result = As<Dictionary>(GetMember(report, "Result"));
  return result && result->Get("OK").ToBoolean();
}

void Append(Json& to, Json from) {
  for (Json& element : from) to.push_back(std::move(element));
}

void Append(Recording& to, Recording from) {
  Append(to.calls, std::move(from.calls));
  Append(to.progress, std::move(from.progress));
  Append(to.boxes, std::move(from.boxes));
  Append(to.log, std::move(from.log));
}

std::string ShortClassName(const Object& report) {
  const std::string_view prog_id = report.ClassName();
  return std::string(prog_id.substr(prog_id.find('.') + 1));
}

// What is noted until the detail report is made is the parent's own: its maker is told to hand it over first.
void HandOverWhenMade(Runtime& runtime, std::string_view prog_id, RecordedSuite& suite,
                      Recording& recording) {
  const Runtime::ObjectMaker make = runtime.FindMaker(prog_id);
  if (!make) return;
  runtime.Register(prog_id, [make, &suite, &recording] {
    Append(recording, suite.TakeRecording());
    return make();
  });
}

// The detail report of a row; nothing where there is none, and what was noted is then the report's own.
Json Drill(const ObjectRef& report, std::int32_t row, RecordedSuite& suite, Recording& recording) {
  Json shown = Json::object();
  ObjectRef detail;
  try {
    detail = Call(report, "GetDetailReport", row).ToObject();
  } catch (const RuntimeError& failure) {
    shown["error"] = {
        {"number", failure.Number()}, {"source", failure.Source()}, {"description", failure.Description()}};
    AddRecording(shown, suite.TakeRecording());
    return shown;
  }
  if (!detail) {
    Append(recording, suite.TakeRecording());
    return nullptr;
  }
  shown["class"] = ShortClassName(*detail);
  AddReport(shown, detail, suite.TakeRecording());
  shown["detail"] = nullptr;
  return shown;
}

std::string KnownClasses(std::string_view mistyped) {
  std::vector<std::string_view> names;
  for (const ReportClass& known : ReportClasses()) names.push_back(known.name);
  return KnownNames(mistyped, names);
}

void Fetch(const ObjectRef& report, const RequestCase& request) {
  if (request.rpt_id) LetMember(report, "RptID", *request.rpt_id);
  if (request.ext_filter) LetMember(report, "ExtFirter", *request.ext_filter);
  // The dictionary is the report's from here on, and the case may run again.
  SetMember(report, "Filter", request.filter ? request.filter->Copy() : nullptr);
  Call(report, "GetReportData");
  for (std::int32_t i = 0; i < request.repeat; ++i) Call(report, "Refresh");
}

}  // namespace

RequestCase ReadRequestCase(const Json& document) {
  const JsonPlace place(document);
  place.RequireKeys({"props", "profile", "amountScale", "dataRight", "access", "RptID", "ExtFirter", "Filter",
                     "answers", "replies", "faults", "drill", "repeat"});
  RequestCase request;
  request.suite = ReadRecordedCase(place);
  request.filter = std::make_shared<Dictionary>();
  place.IfPresent("RptID", [&](const JsonPlace& number) { request.rpt_id = ReadInt32(number, kLowest); });
  place.IfPresent("ExtFirter", [&](const JsonPlace& family) {
    request.ext_filter = family.Value().is_string() ? Variant(family.Text()) : ReadInt32(family, kLowest);
  });
  place.IfPresent("Filter", [&](const JsonPlace& filter) {
    request.filter = filter.Value().is_null() ? nullptr : ToConditions(filter);
  });
  place.IfPresent("drill", [&](const JsonPlace& row) { request.drill = ReadInt32(row, 0); });
  place.IfPresent("repeat", [&](const JsonPlace& times) { request.repeat = ReadInt32(times, 0); });
  return request;
}

Json RunRequest(Runtime& runtime, std::string_view class_name, const RequestCase& request) {
  const ReportClass* report_class = FindReportClass(class_name);
  if (report_class == nullptr) {
    throw RuntimeError(error_number::kInvalidCall, "",
                       Join("\"", class_name, "\" is no report class", KnownClasses(class_name)));
  }
  const auto suite = std::make_shared<RecordedSuite>(request.suite);
  suite->Register(runtime);
  const ObjectRef report = CreateObject(ReportProgID(report_class->name));
  Fetch(report, request);
  Recording recording = suite->TakeRecording();
  Json detail;
  if (request.drill && IsOk(report) && !report_class->drill_target.empty()) {
    HandOverWhenMade(runtime, ReportProgID(report_class->drill_target), *suite, recording);
    detail = Drill(report, *request.drill, *suite, recording);
  }
  Json shown = Json::object();
  AddReport(shown, report, std::move(recording));
  shown["detail"] = std::move(detail);
  return shown;
}

Json RunRequest(std::string_view class_name, const RequestCase& request) {
  Runtime runtime;
  RegisterReports(runtime);
  return RunRequest(runtime, class_name, request);
}

Json RunRequest(std::string_view class_name, const Json& case_json) {
  return RunRequest(class_name, ReadRequestCase(case_json));
}

bool IsFailure(const Json& answer) {
  const Json& detail = answer.at("detail");
  return !answer.at("Result").value("OK", false) || (detail.is_object() && detail.contains("error"));
}

}  // namespace salerpt::shell
