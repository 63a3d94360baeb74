#include "reports/detail_report.h"

#include <string>

#include "runtime/mmts.h"
#include "runtime/runtime.h"
#include "runtime/text.h"

namespace salerpt {

bool MoveToDetailRow(const RecordsetRef& rows, std::int32_t row, std::string_view parent) {
  if (!rows) {
    throw RuntimeError(error_number::kObjectNotSet, std::string(parent),
                       Join(parent, ": there are no rows, row ", row, " has no detail"));
  }
  rows->MoveFirst();
  rows->Move(row);
  return rows->Value("FSumSort").ToInt32() <= 0;
}

ObjectRef RunDetailReport(std::string_view parent, std::string_view prog_id, std::int32_t number,
                          std::optional<std::int32_t> family, const DictionaryRef& filter) {
  ObjectRef detail = CreateObject(prog_id);
  LetMember(detail, "RptID", number);
  SetMember(detail, "Filter", filter);
  if (family) LetMember(detail, "ExtFirter", *family);
  Call(detail, "GetReportData");
  const auto result = As<Dictionary>(GetMember(detail, "Result"));
  if (result->Get("OK").ToBoolean()) return detail;
  const std::string error = result->Get("Error").TextOrEmpty();
  if (!error.empty()) throw RuntimeError(-1, std::string(parent), error);
  Runtime::Current().GetToolkit().ResetMousePointer();
  return nullptr;
}

}  // namespace salerpt
