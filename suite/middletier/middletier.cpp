#include "suite/middletier/middletier.h"

#include <string_view>
#include <utility>

#include "suite/middletier/objects.h"

namespace salerpt::middletier {
namespace {

struct Registration {
  std::string_view prog_id;
  ObjectRef (*make)(ServerRef server);
};

constexpr Registration kObjects[] = {
    {"ORVPropsMgr.ShareProps", MakeShareProps},
    {"ORVEBSBase.SystemProfile", MakeSystemProfile},
    {"ORVMReport.ClsReport", MakeClsReport},
    {"ORVConnection.AppConnection", MakeAppConnection},
    {"ORVEBCGLView.GLData", MakeGLData},
    {"ORVEBSGLItem.ItemInfo", MakeItemInfo},
    {"ORVMPurchaseRpt.Data", MakePurchaseData},
    {"ORVMShopRpt.Data", MakeShopData},
    {"ORVMClass.ClassInfo", MakeClassInfo},
    {"ORVListServer.clsListServer", MakeListServer},
    {"ORVMCaculateRpt.Data", MakeCalculatedData},
    {"ORVMSaleRpt.Data", MakeSaleData},
    {"ORVMSaleCredit.clsGetData", MakeCreditData},
    {"ORVMSystem.System", MakeSystem},
    {"ORVStockQuery.StockQueryFace", MakeStockQuery},
    {"ORVStockStatus.SSFace", MakeStockStatus},
    {"ORVMCaculateRpt.Profile", MakePlanProfile},
    {"ORVMYWARAPRpt.Profile", MakePlanProfile},
    {"ORVEBCBASE.UserProfile", MakeUserProfile},
    {"ORVEBCGLView.GLView", MakeGLView},
    {"ORVBaseList.BaseList", MakeBaseList},
    {"ORVList.ICList", MakeBillList},
    {"ORV_APFC.FrameData", MakeFrameData},
    {"ORVFrmRes.FrmResLoader", MakeFormResources},
    {"ORVBillDataAccess.SysInfo", MakeSysInfo},
    {"ADODB.Connection", MakeConnection},
};

}  // namespace

void RegisterMiddleTier(Runtime& runtime, std::shared_ptr<accountset::AccountSet> account_set,
                        const Login& login, ListWindow window, Chooser chooser) {
  const ServerRef server =
      std::make_shared<Server>(std::move(account_set), login, std::move(window), std::move(chooser));
  for (const Registration& object : kObjects) {
    runtime.Register(object.prog_id, [server, make = object.make] { return make(server); });
  }
}

}  // namespace salerpt::middletier
