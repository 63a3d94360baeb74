#include <array>
#include <span>

#include "runtime/mrpt.h"
#include "suite/middletier/objects.h"
#include "suite/middletier/suite_object.h"

namespace salerpt::middletier {
namespace {

// `ORVBillDataAccess.SysInfo`: the parameters of the account set, as the bills read them.
class SysInfo final : public SuiteObject<SysInfo> {
 public:
  static constexpr std::string_view kClassName = "ORVBillDataAccess.SysInfo";
  using SuiteObject::SuiteObject;

  // The value of a parameter; empty text where it was never set.
  static Variant GetSysValue(SysInfo& self, Arguments arguments) {
    const RecordsetRef rows = self.GetServer().Query(
        Join("Select FValue From t_SystemProfile Where FCategory=", QuoteSql(arguments[1]),
             " And FKey=", QuoteSql(arguments[2])));
    return rows->RecordCount() == 0 ? std::string() : rows->Value(0).TextOrEmpty();
  }

  static std::span<const Member<SysInfo>> Members() {
    static constexpr std::array<Member<SysInfo>, 1> kMembers{{
        {"GetSysValue", InvokeKind::kMethod, "(props As String, category As String, key As String) As String",
         GetSysValue, 3},
    }};
    return kMembers;
  }
};

}  // namespace

ObjectRef MakeSysInfo(ServerRef server) {
  return std::make_shared<SysInfo>(std::move(server));
}

}  // namespace salerpt::middletier
