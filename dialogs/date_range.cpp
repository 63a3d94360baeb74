#include "dialogs/date_range.h"

#include "runtime/mparse.h"
#include "runtime/runtime.h"
#include "runtime/toolkit.h"

namespace salerpt {

bool AcceptDateRange(const Form& form) {
  auto& begin = form.Get<DatePicker>("DtpBDate");
  const auto& end = form.Get<DatePicker>("DtpEDate");
  if (begin.Text() <= end.Text()) return true;
  Runtime::Current().GetToolkit().MessageBox(ResText("起始日期不能大于截止日期!"), kBoxInformation,
                                             ResText("青岚提示："));
  begin.SetValue(end.Value());
  return false;
}

}  // namespace salerpt
