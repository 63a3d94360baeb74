#include <array>
#include <span>

#include "runtime/runtime.h"
#include "suite/middletier/objects.h"
#include "suite/middletier/suite_object.h"

namespace salerpt::middletier {
namespace {

// `ORVPropsMgr.ShareProps`: the store is one for the process, however often the object is made.
class ShareProps final : public SuiteObject<ShareProps> {
 public:
  static constexpr std::string_view kClassName = "ORVPropsMgr.ShareProps";
  using SuiteObject::SuiteObject;

  // The value of a property of a process; an empty value for one that the store does not hold.
  static Variant GetProperty(ShareProps& self, Arguments arguments) {
    if (!IsThisProcess(arguments[0])) return {};
    return self.GetServer().Properties().Get(arguments[1].ToText());
  }

  // Removes a property by its number and leaves its value in the third argument.
  static Variant DelProperty(ShareProps& self, Arguments arguments) {
    arguments[2] = IsThisProcess(arguments[0]) ? self.GetServer().Properties().Remove(arguments[1].ToInt32())
                                               : Variant();
    return {};
  }

  static std::span<const Member<ShareProps>> Members() {
    static constexpr std::array<Member<ShareProps>, 2> kMembers{{
        {"GetProperty", InvokeKind::kMethod, "(processID As Long, name As String) As Variant", GetProperty,
         2},
        {"DelProperty", InvokeKind::kMethod, "(processID As Long, propertyID As Long, value As Variant)",
         DelProperty, 3},
    }};
    return kMembers;
  }

 private:
  static bool IsThisProcess(const Variant& process_id) {
    return process_id.ToInt32() == Runtime::Current().GetPlatform().ProcessID();
  }
};

}  // namespace

ObjectRef MakeShareProps(ServerRef server) {
  return std::make_shared<ShareProps>(std::move(server));
}

}  // namespace salerpt::middletier
