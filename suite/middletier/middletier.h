// The stand-in middle tier: the suite's closed objects, made by ProgID, working on an account set.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "runtime/recordset.h"
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

// A list that one of the suite's own windows shows.
struct ShownList {
  struct Column {
    std::string caption;
    std::string field;
    // Numbers stand with so many decimals as the field of this name tells, where there is one.
    std::string decimals;
  };
  std::string title;
  std::vector<Column> columns;
  RecordsetRef rows;
};
// The screen on which it is shown: called while the window is open, which the user leaves as it returns.
using ListWindow = std::function<void(const ShownList& list)>;

// What a look-up offers to the user: a list, and what it was narrowed by (the text searched for, or the
// condition; blank where nothing narrows it).
struct Candidates {
  ShownList list;
  std::string search;
};
// Who picks: gives the row, from 0, or nothing where the user cancels.
using Chooser = std::function<std::optional<std::int32_t>(const Candidates& candidates)>;
// Picks where nobody can be asked: the row whose code or name is the text searched for, or else the only row;
// nothing where several answer to that, or where nothing was searched for.
std::optional<std::int32_t> ChooseTheOnlyOne(const Candidates& candidates);

// Puts the middle tier of an account set into a world: from then on `CreateObject` gives these objects, which
// share one connection of the engine and keep it, and the account set, as long as the world or an object
// lives:
//   ORVPropsMgr.ShareProps      ORVEBSBase.SystemProfile     ORVEBCGLView.GLData       ORVEBSGLItem.ItemInfo
//   ORVMReport.ClsReport        ORVConnection.AppConnection  ORVListServer.clsListServer
//   ORVMPurchaseRpt.Data        ORVMClass.ClassInfo          ORVMCaculateRpt.Data      ORVMSaleRpt.Data
//   ORVMSaleCredit.clsGetData   ORVMSystem.System            ORVStockQuery.StockQueryFace
//   ORVStockStatus.SSFace       ORVMCaculateRpt.Profile      ORVMYWARAPRpt.Profile     ORVEBCBASE.UserProfile
//   ORVEBCGLView.GLView         ORVBaseList.BaseList         ORVList.ICList            ORV_APFC.FrameData
//   ORVFrmRes.FrmResLoader      ORVBillDataAccess.SysInfo    ADODB.Connection
// The stock objects open windows of their own, which `window` shows; without one nobody sees them. The
// look-ups (GLView, BaseList, ICList) ask `chooser`, by default ChooseTheOnlyOne.
// A second call puts another account set in their place; objects made before keep the first.
// Raises invalid-call (source "MiddleTier") where there is no account set or the user number is out of range.
void RegisterMiddleTier(Runtime& runtime, std::shared_ptr<accountset::AccountSet> account_set,
                        const Login& login, ListWindow window = {}, Chooser chooser = {});

}  // namespace salerpt::middletier
