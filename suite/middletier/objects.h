// The closed objects, one maker each. Members and their signatures stand in the member table of each object's
// file.
#pragma once

#include "runtime/object.h"
#include "suite/middletier/server.h"

namespace salerpt::middletier {

ObjectRef MakeShareProps(ServerRef server);     // ORVPropsMgr.ShareProps: the properties of the login
ObjectRef MakeSystemProfile(ServerRef server);  // ORVEBSBase.SystemProfile: the parameters of the account set
ObjectRef MakeClsReport(ServerRef server);      // ORVMReport.ClsReport: SQL for the reports
ObjectRef MakeAppConnection(ServerRef server);  // ORVConnection.AppConnection: the host's connection
ObjectRef MakeGLData(ServerRef server);         // ORVEBCGLView.GLData: field rights and the log
ObjectRef MakeItemInfo(ServerRef server);       // ORVEBSGLItem.ItemInfo: data rights
ObjectRef MakePurchaseData(ServerRef server);   // ORVMPurchaseRpt.Data: free reads
ObjectRef MakeClassInfo(ServerRef server);      // ORVMClass.ClassInfo: free reads
ObjectRef MakeListServer(ServerRef server);     // ORVListServer.clsListServer: free reads for the host
ObjectRef MakeCalculatedData(ServerRef server);  // ORVMCaculateRpt.Data: the period reports
ObjectRef MakeSaleData(ServerRef server);        // ORVMSaleRpt.Data: the batches of the sales reports

}  // namespace salerpt::middletier
