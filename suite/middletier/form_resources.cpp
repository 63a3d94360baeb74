#include <array>
#include <span>

#include "suite/middletier/objects.h"
#include "suite/middletier/suite_object.h"

namespace salerpt::middletier {
namespace {

// `ORVFrmRes.FrmResLoader`: fonts and strings of forms by language. There is one language here, that in which
// the forms are written, so both leave a form as it is.
class FormResources final : public SuiteObject<FormResources> {
 public:
  static constexpr std::string_view kClassName = "ORVFrmRes.FrmResLoader";
  using SuiteObject::SuiteObject;

  static Variant LeaveForm(FormResources& /*self*/, Arguments /*arguments*/) { return {}; }

  static std::span<const Member<FormResources>> Members() {
    static constexpr std::array<Member<FormResources>, 2> kMembers{{
        {"SetFrmFont", InvokeKind::kMethod, "(form As Object, language As String)", LeaveForm, 2},
        {"LoadFrmResStrings", InvokeKind::kMethod,
         "(form As Object, language As String, name As String, reserved As String, strings As Dictionary)",
         LeaveForm, 5},
    }};
    return kMembers;
  }
};

}  // namespace

ObjectRef MakeFormResources(ServerRef server) {
  return std::make_shared<FormResources>(std::move(server));
}

}  // namespace salerpt::middletier
