#include "reports/order/rpt136_answer.h"

#include <string>

#include "runtime/dictionary.h"
#include "runtime/error.h"
#include "sqltoolkit/filter_values.h"

namespace salerpt {

void RaiseReturnedError(const Variant& request) {
  const auto answer = As<Dictionary>(request);
  if (!answer) return;
  const std::string error = FilterText(*answer, "Error");
  if (!error.empty()) throw RuntimeError(-1, FilterText(*answer, "ErrorSource"), error);
}

}  // namespace salerpt
