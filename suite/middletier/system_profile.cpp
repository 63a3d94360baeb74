#include <array>
#include <span>

#include "runtime/mrpt.h"
#include "suite/middletier/objects.h"
#include "suite/middletier/suite_object.h"

namespace salerpt::middletier {
namespace {

// `ORVEBSBase.SystemProfile`: the parameters of the account set, texts by category and key.
class SystemProfile final : public SuiteObject<SystemProfile> {
 public:
  static constexpr std::string_view kClassName = "ORVEBSBase.SystemProfile";
  using SuiteObject::SuiteObject;

  // The value of a parameter. Null where there is no such row, as for a row without a value: callers take
  // both for "never set".
  static Variant GetProfile(SystemProfile& self, Arguments arguments) {
    const RecordsetRef rows = self.GetServer().Query(
        Join("Select FValue From t_SystemProfile Where FCategory=", QuoteSql(arguments[1]),
             " And FKey=", QuoteSql(arguments[2])));
    if (rows->RecordCount() == 0) return Null();
    return rows->Value(0);
  }

  static std::span<const Member<SystemProfile>> Members() {
    static constexpr std::array<Member<SystemProfile>, 1> kMembers{{
        {"GetProfile", InvokeKind::kMethod, "(props As String, category As String, key As String) As Variant",
         GetProfile, 3},
    }};
    return kMembers;
  }
};

}  // namespace

ObjectRef MakeSystemProfile(ServerRef server) {
  return std::make_shared<SystemProfile>(std::move(server));
}

}  // namespace salerpt::middletier
