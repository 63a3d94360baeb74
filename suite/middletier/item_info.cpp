#include <array>
#include <span>

#include "suite/middletier/account_switches.h"
#include "suite/middletier/objects.h"
#include "suite/middletier/suite_object.h"

namespace salerpt::middletier {
namespace {

// `ORVEBSGLItem.ItemInfo`: whether the lists of users in `FRightUserID` are in force.
class ItemInfo final : public SuiteObject<ItemInfo> {
 public:
  static constexpr std::string_view kClassName = "ORVEBSGLItem.ItemInfo";
  using SuiteObject::SuiteObject;

  static Variant GetDataRight(ItemInfo& self, Arguments arguments) {
    return DataRightInForce(self.GetServer(), arguments[1].ToInt32(),
                            static_cast<RightKind>(arguments[2].ToInt32()));
  }

  static std::span<const Member<ItemInfo>> Members() {
    static constexpr std::array<Member<ItemInfo>, 1> kMembers{{
        {"GetDataRight", InvokeKind::kMethod, "(props As String, userID As Long, kind As Long) As Boolean",
         GetDataRight, 3},
    }};
    return kMembers;
  }
};

}  // namespace

ObjectRef MakeItemInfo(ServerRef server) {
  return std::make_shared<ItemInfo>(std::move(server));
}

}  // namespace salerpt::middletier
