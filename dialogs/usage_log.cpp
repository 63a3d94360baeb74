#include "dialogs/usage_log.h"

#include "dialogs/ignoring.h"
#include "runtime/mmts.h"
#include "runtime/runtime.h"

namespace salerpt {

void WriteUsageLog(std::string_view name) {
  ObjectRef frame;
  Ignoring([&] { frame = CreateObject("ORV_APFC.FrameData"); });
  if (!frame) return;
  Ignoring([&] { LetMember(frame, "PropString", GetPropsString()); });
  Ignoring([&] { Call(frame, "WriteMGLog", "C001C029", name); });
}

}  // namespace salerpt
