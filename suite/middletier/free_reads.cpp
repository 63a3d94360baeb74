#include <array>
#include <span>

#include "suite/middletier/objects.h"
#include "suite/middletier/suite_object.h"

namespace salerpt::middletier {
namespace {

// Of the data objects of other reports, the free read that the sales reports and their dialogs use them for.
template <typename Reports>
class FreeReads final : public SuiteObject<FreeReads<Reports>> {
 public:
  static constexpr std::string_view kClassName = Reports::kProgID;
  using SuiteObject<FreeReads>::SuiteObject;

  static Variant GetData(FreeReads& self, Arguments arguments) {
    return self.GetServer().Query(arguments[1].ToText());
  }

  static std::span<const Member<FreeReads>> Members() {
    static constexpr std::array<Member<FreeReads>, 1> kMembers{{
        {"GetData", InvokeKind::kMethod, "(props As String, sql As String) As Recordset", GetData, 2},
    }};
    return kMembers;
  }
};

// The purchase reports'.
struct PurchaseReports {
  static constexpr std::string_view kProgID = "ORVMPurchaseRpt.Data";
};
// The shop floor reports'.
struct ShopReports {
  static constexpr std::string_view kProgID = "ORVMShopRpt.Data";
};

// The classes of base data.
struct BaseDataClasses {
  static constexpr std::string_view kProgID = "ORVMClass.ClassInfo";
};

}  // namespace

ObjectRef MakePurchaseData(ServerRef server) {
  return std::make_shared<FreeReads<PurchaseReports>>(std::move(server));
}

ObjectRef MakeShopData(ServerRef server) {
  return std::make_shared<FreeReads<ShopReports>>(std::move(server));
}

ObjectRef MakeClassInfo(ServerRef server) {
  return std::make_shared<FreeReads<BaseDataClasses>>(std::move(server));
}

}  // namespace salerpt::middletier
