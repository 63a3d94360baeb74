#include <array>
#include <span>

#include "suite/middletier/log_line.h"
#include "suite/middletier/objects.h"
#include "suite/middletier/suite_object.h"

namespace salerpt::middletier {
namespace {

// `ORV_APFC.FrameData`: counts how often the parts of a window are used.
class FrameData final : public SuiteObject<FrameData> {
 public:
  static constexpr std::string_view kClassName = "ORV_APFC.FrameData";
  using SuiteObject::SuiteObject;

  static Variant GetPropString(FrameData& self, Arguments /*arguments*/) { return self.props_; }
  static Variant LetPropString(FrameData& self, Arguments arguments) {
    self.props_ = arguments[0].ToText();
    return {};
  }

  // One line in the log of the account set.
  static Variant WriteMGLog(FrameData& self, Arguments arguments) {
    WriteLogLine(self.GetServer(), arguments[0].TextOrEmpty(), kUsageLine, arguments[1].TextOrEmpty());
    return {};
  }

  static std::span<const Member<FrameData>> Members() {
    static constexpr std::array<Member<FrameData>, 3> kMembers{{
        {"PropString", InvokeKind::kGet, "() As String", GetPropString},
        {"PropString", InvokeKind::kLet, "(props As String)", LetPropString, 1},
        {"WriteMGLog", InvokeKind::kMethod, "(key As String, name As String)", WriteMGLog, 2},
    }};
    return kMembers;
  }

 private:
  std::string props_;
};

}  // namespace

ObjectRef MakeFrameData(ServerRef server) {
  return std::make_shared<FrameData>(std::move(server));
}

}  // namespace salerpt::middletier
