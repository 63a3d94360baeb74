#include <array>
#include <span>

#include "suite/middletier/objects.h"
#include "suite/middletier/suite_object.h"

namespace salerpt::middletier {
namespace {

// `ORVMClass.ClassInfo`: reads of classes and enumerations, as SQL.
class ClassInfo final : public SuiteObject<ClassInfo> {
 public:
  static constexpr std::string_view kClassName = "ORVMClass.ClassInfo";
  using SuiteObject::SuiteObject;

  static Variant GetData(ClassInfo& self, Arguments arguments) {
    return self.GetServer().Query(arguments[1].ToText());
  }

  static std::span<const Member<ClassInfo>> Members() {
    static constexpr std::array<Member<ClassInfo>, 1> kMembers{{
        {"GetData", InvokeKind::kMethod, "(props As String, sql As String) As Recordset", GetData, 2},
    }};
    return kMembers;
  }
};

}  // namespace

ObjectRef MakeClassInfo(ServerRef server) {
  return std::make_shared<ClassInfo>(std::move(server));
}

}  // namespace salerpt::middletier
