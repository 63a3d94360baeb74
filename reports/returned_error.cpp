#include "reports/returned_error.h"

#include <string>
#include <string_view>

#include "runtime/error.h"

namespace salerpt {

void RaiseReturnedError(const Variant& returned) {
  const auto answer = As<Dictionary>(returned);
  if (!answer) return;
  const std::string error = answer->Get("Error").TextOrEmpty();
  if (!error.empty()) throw RuntimeError(-1, answer->Get("ErrorSource").TextOrEmpty(), error);
}

void ForgetReturnedError(Dictionary& filter) {
  for (const std::string_view key : {"Error", "ErrorSource"}) {
    if (filter.Lookup(key)) filter.Set(key, "");
  }
}

}  // namespace salerpt
