#include <array>
#include <span>

#include "suite/middletier/objects.h"
#include "suite/middletier/suite_object.h"

namespace salerpt::middletier {
namespace {

// `ORVEBSGLItem.ItemInfo`: whether the lists of users in `FRightUserID` are in force.
class ItemInfo final : public SuiteObject<ItemInfo> {
 public:
  static constexpr std::string_view kClassName = "ORVEBSGLItem.ItemInfo";
  using SuiteObject::SuiteObject;

  // True where the rule is on for the user and the kind: 1 customers, 2 suppliers, 4 stocks. A pair that the
  // account set does not name is off: everybody sees everything until somebody says otherwise.
  static Variant GetDataRight(ItemInfo& self, Arguments arguments) {
    const RecordsetRef rows = self.GetServer().Query(
        Join("Select FUsed From t_DataRight Where FUsed=1 And FUserID=", arguments[1].ToInt32(),
             " And FKind=", arguments[2].ToInt32()));
    return rows->RecordCount() > 0;
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
