#include "dialogs/frm_filter189.h"

#include "dialogs/ignoring.h"
#include "runtime/mrpt.h"
#include "runtime/runtime.h"

namespace salerpt {
namespace {

// Due dates are counted from the server's day; from this machine's where the server does not tell.
Date Today() {
  Date today = Runtime::Current().GetPlatform().Now();
  Ignoring([&today] {
    const RecordsetRef rows = GetRsBySQL("SELECT GETDATE()");
    internal::Required(rows, "Value");
    constexpr int kOnlyField = 0;
    today = rows->Value(kOnlyField).ToDate();
  });
  return today;
}

}  // namespace

std::unique_ptr<PlanPane> FrmFilter189::MakePlanPane() {
  return std::make_unique<PlanPane>(form_, *this, PlanPane::Kind::kCurrent, "ORVMYWARAPRpt.Profile");
}

void FrmFilter189::LoadOwn() {
  const Date today = Today();
  form_.Get<DatePicker>("DtpBDate").SetValue(today);
  form_.Get<DatePicker>("DtpEDate").SetValue(today);
}

}  // namespace salerpt
