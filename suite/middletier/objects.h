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
ObjectRef MakeShopData(ServerRef server);       // ORVMShopRpt.Data: free reads
ObjectRef MakeClassInfo(ServerRef server);      // ORVMClass.ClassInfo: free reads
ObjectRef MakeListServer(ServerRef server);     // ORVListServer.clsListServer: free reads for the host
ObjectRef MakeCalculatedData(ServerRef server);  // ORVMCaculateRpt.Data: the period reports
ObjectRef MakeSaleData(ServerRef server);        // ORVMSaleRpt.Data: the batches of the sales reports
ObjectRef MakeCreditData(ServerRef server);   // ORVMSaleCredit.clsGetData: the batches of the credit reports
ObjectRef MakeSystem(ServerRef server);       // ORVMSystem.System: whether the system has been started
ObjectRef MakeStockQuery(ServerRef server);   // ORVStockQuery.StockQueryFace: the window of stock balances
ObjectRef MakeStockStatus(ServerRef server);  // ORVStockStatus.SSFace: the window of stock movements
ObjectRef MakePlanProfile(ServerRef server);  // ORVMCaculateRpt.Profile, ORVMYWARAPRpt.Profile: stored plans
ObjectRef MakeUserProfile(ServerRef server);  // ORVEBCBASE.UserProfile: settings of the user
ObjectRef MakeGLView(ServerRef server);       // ORVEBCGLView.GLView: look-ups of the master data
ObjectRef MakeBaseList(ServerRef server);     // ORVBaseList.BaseList: lists of the master data
ObjectRef MakeBillList(ServerRef server);     // ORVList.ICList: lists of bills
ObjectRef MakeFrameData(ServerRef server);    // ORV_APFC.FrameData: the log of use
ObjectRef MakeFormResources(ServerRef server);  // ORVFrmRes.FrmResLoader: fonts and strings of forms
ObjectRef MakeSysInfo(ServerRef server);        // ORVBillDataAccess.SysInfo: parameters, for bills
ObjectRef MakeConnection(ServerRef server);     // ADODB.Connection: the local switch file

}  // namespace salerpt::middletier
