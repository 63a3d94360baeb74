// The stand-in middle tier: the suite's closed objects, made by ProgID, working on an account set.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "runtime/runtime.h"
#include "suite/accountset/accountset.h"

namespace salerpt::middletier {

// Who is logged in. It becomes the property string that every call of the library carries.
struct Login {
  std::string user_name = "Administrator";
  // The number that `FRightUserID` lists name; at most 32767, since the library reads it as a 16-bit integer.
  std::int32_t user_id = accountset::kLoginUser;
  std::string language = "chs";
};

// Puts the middle tier of an account set into a world: from then on `CreateObject` gives these objects, which
// share one connection of the engine and keep it, and the account set, as long as the world or an object
// lives:
//   ORVPropsMgr.ShareProps      ORVEBSBase.SystemProfile     ORVEBCGLView.GLData       ORVEBSGLItem.ItemInfo
//   ORVMReport.ClsReport        ORVConnection.AppConnection  ORVListServer.clsListServer
//   ORVMPurchaseRpt.Data        ORVMClass.ClassInfo          ORVMCaculateRpt.Data      ORVMSaleRpt.Data
// A second call puts another account set in their place; objects made before keep the first.
// Raises invalid-call (source "MiddleTier") where there is no account set or the user number is out of range.
void RegisterMiddleTier(Runtime& runtime, std::shared_ptr<accountset::AccountSet> account_set,
                        const Login& login);

}  // namespace salerpt::middletier
