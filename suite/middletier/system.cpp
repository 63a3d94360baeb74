#include <array>
#include <span>

#include "suite/middletier/objects.h"
#include "suite/middletier/suite_object.h"

namespace salerpt::middletier {
namespace {

// `ORVMSystem.System`: the state of the system as a whole.
class System final : public SuiteObject<System> {
 public:
  static constexpr std::string_view kClassName = "ORVMSystem.System";
  using SuiteObject::SuiteObject;

  // Whether the opening balances are closed and business has begun: parameter "SystemStarted" of "IC" is not
  // 0. An account set that does not say has not been started.
  static Variant ISStarted(System& self, Arguments /*arguments*/) {
    const RecordsetRef rows = self.GetServer().Query(
        "Select FValue From t_SystemProfile Where FCategory='IC' And FKey='SystemStarted'");
    return rows->RecordCount() > 0 && Val(rows->Value(0).TextOrEmpty()) != 0;
  }

  static std::span<const Member<System>> Members() {
    static constexpr std::array<Member<System>, 1> kMembers{{
        {"ISStarted", InvokeKind::kMethod, "(props As String) As Boolean", ISStarted, 1},
    }};
    return kMembers;
  }
};

}  // namespace

ObjectRef MakeSystem(ServerRef server) {
  return std::make_shared<System>(std::move(server));
}

}  // namespace salerpt::middletier
