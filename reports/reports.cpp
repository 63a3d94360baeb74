#include "reports/reports.h"

#include "dialogs/unattended_dialog.h"
#include "reports/flow/rpt128.h"
#include "reports/flow/rpt134.h"
#include "reports/flow/rpt135.h"
#include "reports/flow/rpt147.h"
#include "runtime/get_info.h"

namespace salerpt {
namespace {

template <typename T>
void RegisterReport(Runtime& runtime, std::string_view class_name) {
  runtime.Register(ReportProgID(class_name), [] { return MakeReport<T>(); });
}

}  // namespace

void RegisterReports(Runtime& runtime) {
  RegisterReport<Rpt128>(runtime, "Rpt128");
  RegisterReport<Rpt134>(runtime, "Rpt134");
  RegisterReport<Rpt135>(runtime, "Rpt135");
  RegisterReport<Rpt147>(runtime, "Rpt147");
  runtime.Register("ORVSaleRpt.GetInfo", [] { return std::make_shared<GetInfo>(); });
  RegisterUnattendedDialogs(runtime);
}

}  // namespace salerpt
