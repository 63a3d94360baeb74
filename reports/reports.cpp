#include "reports/reports.h"

#include "dialogs/dialogs.h"
#include "reports/analysis/rpt140.h"
#include "reports/analysis/rpt142.h"
#include "reports/analysis/rpt143.h"
#include "reports/analysis/rpt145.h"
#include "reports/analysis/rpt146.h"
#include "reports/analysis/rpt149.h"
#include "reports/flow/rpt126.h"
#include "reports/flow/rpt128.h"
#include "reports/flow/rpt129.h"
#include "reports/flow/rpt133.h"
#include "reports/flow/rpt134.h"
#include "reports/flow/rpt135.h"
#include "reports/flow/rpt147.h"
#include "reports/flow/rpt176.h"
#include "reports/flow/rpt301.h"
#include "reports/flow/rpt302.h"
#include "reports/flow/rpt303.h"
#include "reports/order/rpt1010.h"
#include "reports/order/rpt136.h"
#include "reports/order/rpt137.h"
#include "reports/order/rpt138.h"
#include "reports/order/rpt139.h"
#include "reports/order/rpt189.h"
#include "reports/order/rpt192.h"
#include "reports/order/rpt300.h"
#include "runtime/get_info.h"

namespace salerpt {
namespace {

template <typename T>
void RegisterReport(Runtime& runtime, std::string_view class_name) {
  runtime.Register(ReportProgID(class_name), [] { return MakeReport<T>(); });
}

}  // namespace

void RegisterReports(Runtime& runtime) {
  RegisterReport<Rpt126>(runtime, "Rpt126");
  RegisterReport<Rpt128>(runtime, "Rpt128");
  RegisterReport<Rpt129>(runtime, "Rpt129");
  RegisterReport<Rpt133>(runtime, "Rpt133");
  RegisterReport<Rpt134>(runtime, "Rpt134");
  RegisterReport<Rpt135>(runtime, "Rpt135");
  RegisterReport<Rpt136>(runtime, "Rpt136");
  RegisterReport<Rpt137>(runtime, "Rpt137");
  RegisterReport<Rpt138>(runtime, "Rpt138");
  RegisterReport<Rpt139>(runtime, "Rpt139");
  RegisterReport<Rpt140>(runtime, "Rpt140");
  RegisterReport<Rpt142>(runtime, "Rpt142");
  RegisterReport<Rpt143>(runtime, "Rpt143");
  RegisterReport<Rpt145>(runtime, "Rpt145");
  RegisterReport<Rpt146>(runtime, "Rpt146");
  RegisterReport<Rpt147>(runtime, "Rpt147");
  RegisterReport<Rpt149>(runtime, "Rpt149");
  RegisterReport<Rpt176>(runtime, "Rpt176");
  RegisterReport<Rpt189>(runtime, "Rpt189");
  RegisterReport<Rpt192>(runtime, "Rpt192");
  RegisterReport<Rpt300>(runtime, "Rpt300");
  RegisterReport<Rpt301>(runtime, "Rpt301");
  RegisterReport<Rpt302>(runtime, "Rpt302");
  RegisterReport<Rpt303>(runtime, "Rpt303");
  RegisterReport<Rpt1010>(runtime, "Rpt1010");
  runtime.Register("ORVSaleRpt.GetInfo", [] { return std::make_shared<GetInfo>(); });
  RegisterDialogs(runtime);
}

}  // namespace salerpt
