#include <array>
#include <span>

#include "suite/middletier/objects.h"
#include "suite/middletier/suite_object.h"

namespace salerpt::middletier {
namespace {

// `ORVMPurchaseRpt.Data`: of the purchase reports' data object, the free read that others use it for.
class PurchaseData final : public SuiteObject<PurchaseData> {
 public:
  static constexpr std::string_view kClassName = "ORVMPurchaseRpt.Data";
  using SuiteObject::SuiteObject;

  static Variant GetData(PurchaseData& self, Arguments arguments) {
    return self.GetServer().Query(arguments[1].ToText());
  }

  static std::span<const Member<PurchaseData>> Members() {
    static constexpr std::array<Member<PurchaseData>, 1> kMembers{{
        {"GetData", InvokeKind::kMethod, "(props As String, sql As String) As Recordset", GetData, 2},
    }};
    return kMembers;
  }
};

}  // namespace

ObjectRef MakePurchaseData(ServerRef server) {
  return std::make_shared<PurchaseData>(std::move(server));
}

}  // namespace salerpt::middletier
