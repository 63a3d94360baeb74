// The dialogs of the order reports: what a confirmation with the start values gives, and what a stored plan
// brings back.
#include "tests/shell/dialogs/ran_dialog.h"

#include <gtest/gtest.h>

namespace salerpt::shell {
namespace {

constexpr std::string_view kWorld =
    R"({"itemMaxLevel": {"4": 3, "1": 2}, "saleTypes": [[100, "现销"], [20298, "受托代销"], [101, "赊销"]],
        "orderTypes": [[40, "内销"], [41, "外销"]]})";

TEST(OrderDialogsConfirm, OrderStatisticsWritesItsStartValues) {
  const Json ran = RanBare("frmFirter136", kWorld);

  EXPECT_EQ(Filter(ran), InOrder(R"({
      "OK": true, "BDate": "2024-03-05", "EDate": "2024-03-05",
      "BItemNumber": "", "EItemNumber": "", "BCustNumber": "", "ECustNumber": "",
      "BDepartNumber": "", "EDepartNumber": "", "BEmpNumber": "", "EEmpNumber": "",
      "BCurrencyNumber": "", "ECurrencyNumber": "", "ChkByCurrency": 0, "GroupBy": 1, "OnlyShowSum": 1,
      "BLevel": 1, "ELevel": 3, "SumMode": 1, "SumName": "物料类别", "SaleType": 1, "SaleTypeName": "全部",
      "SumField": {"FPropID": 0, "FSQLColumnName": "FName", "FSrcTable": "", "FSrcField": "",
                   "FDisplayField": ""},
      "CheckState": 0, "OrderType": -1, "OrderTypeName": "全部", "Orderby": "FNumber ASC",
      "chkNextChoose": 0, "CommodityType": 0})"));
  EXPECT_EQ(SavedLines(ran), Lines(R"({
      "plan": "默认方案", "family": 166, "BDate": "2024-03-05", "EDate": "2024-03-05",
      "BItem": "", "EItem": "", "BCustomer": "", "ECustomer": "", "BDep": "", "EDep": "",
      "BEmp": "", "EEmp": "", "BCurrency": "", "ECurrency": "", "BLevel": "1", "ELevel": "3",
      "chkByCurrency": "0", "chkGroupBy": "1", "OnlyShowSum": "1", "GroupByListIndex": "0",
      "CheckState": "0", "SaleTypeListIndex": "0", "OrderType": "0", "OrderBy": "FNumber ASC",
      "chkNextChoose": "0", "CommodityType": "0"
})"));
}

TEST(OrderDialogsConfirm, ExecutionDetailWritesItsStartValues) {
  const Json ran = RanBare("frmFirter137", kWorld);

  EXPECT_EQ(Filter(ran), InOrder(R"({
      "OK": true, "BDate": "2024-03-05", "EDate": "2024-03-05",
      "BItemNumber": "", "EItemNumber": "", "BCustNumber": "", "ECustNumber": "",
      "BCompanyNumber": "", "ECompanyNumber": "", "BDept": "", "EDept": "", "BEmp": "", "EEmp": "",
      "BBillNo": "", "EBillNo": "", "CheckState": 0, "DisplayType": 0, "CloseState": 0,
      "SaleType": 1, "SaleTypeName": "全部", "OrderType": -1, "OrderTypeName": "全部", "Implement": 0,
      "chkNextChoose": 0, "CommodityType": 0})"));
  EXPECT_EQ(SavedLines(ran), Lines(R"({
      "plan": "默认方案", "family": 134, "BDate": "2024-03-05", "EDate": "2024-03-05",
      "BItem": "", "EItem": "", "BCustomer": "", "ECustomer": "", "BCompany": "", "ECompany": "",
      "BDept": "", "EDept": "", "BEmp": "", "EEmp": "", "BBillNo": "", "EBillNo": "",
      "CheckState": "0", "DisplayType": "0", "CloseState": "0", "SaleTypeListIndex": "0", "Implement": "0",
      "OrderType": "0", "chkNextChoose": "0", "CommodityType": "0"
})"));
}

TEST(OrderDialogsConfirm, ExecutionSummaryWritesItsStartValues) {
  const Json ran = RanBare("frmFirter138", kWorld);

  EXPECT_EQ(Filter(ran), InOrder(R"({
      "OK": true, "BDate": "2024-03-05", "EDate": "2024-03-05",
      "BItemNumber": "", "EItemNumber": "", "BCustNumber": "", "ECustNumber": "",
      "BCompanyNumber": "", "ECompanyNumber": "", "BDept": "", "EDept": "", "BEmp": "", "EEmp": "",
      "BBillNo": "", "EBillNo": "", "GroupBy": 1, "OnlyShowSum": 1, "BLevel": 1, "ELevel": 3,
      "SumMode": 1, "SumName": "物料类别", "SaleType": 1, "SaleTypeName": "全部",
      "OrderType": -1, "OrderTypeName": "全部",
      "SumField": {"FPropID": 0, "FSQLColumnName": "FName", "FSrcTable": "", "FSrcField": "",
                   "FDisplayField": ""},
      "CheckState": 0, "CloseState": 0, "chkNextChoose": 0, "CommodityType": 0})"));
  EXPECT_EQ(SavedLines(ran), Lines(R"({
      "plan": "默认方案", "family": 138, "BDate": "2024-03-05", "EDate": "2024-03-05",
      "BItem": "", "EItem": "", "BCustomer": "", "ECustomer": "", "BCompany": "", "ECompany": "",
      "BDept": "", "EDept": "", "BEmp": "", "EEmp": "", "BBillNo": "", "EBillNo": "",
      "BLevel": "1", "ELevel": "3", "chkGroupBy": "1", "OnlyShowSum": "1", "GroupByListIndex": "0",
      "CheckState": "0", "CloseState": "0", "SaleTypeListIndex": "0", "OrderType": "0",
      "chkNextChoose": "0", "CommodityType": "0"
})"));
}

TEST(OrderDialogsConfirm, OutboundAndReceiptTrackingWritesItsStartValues) {
  const Json ran = RanBare("frmFirter1010", kWorld);

  EXPECT_EQ(Filter(ran), InOrder(R"({
      "OK": true, "BDate": "2024-03-05", "EDate": "2024-03-05",
      "BItemNumber": "", "EItemNumber": "", "BCustNumber": "", "ECustNumber": "",
      "BDept": "", "EDept": "", "BEmp": "", "EEmp": "", "BBillNo": "", "EBillNo": "",
      "CheckState": 0, "CloseState": 0, "SaleType": 1, "SaleTypeName": "全部", "chkNextChoose": 0,
      "chkIsShowSum": 0, "chkIsShowDetail": 1, "CommodityType": 0, "Orderby": ""})"));
  EXPECT_EQ(SavedLines(ran), Lines(R"({
      "plan": "默认方案", "family": 1010, "BDate": "2024-03-05", "EDate": "2024-03-05",
      "BItem": "", "EItem": "", "BCustomer": "", "ECustomer": "", "BCompany": "", "ECompany": "",
      "BDept": "", "EDept": "", "BEmp": "", "EEmp": "", "BBillNo": "", "EBillNo": "",
      "CheckState": "0", "CloseState": "0", "SaleTypeListIndex": "0", "chkNextChoose": "0",
      "chkIsShowSum": "0", "chkIsShowDetail": "1", "CommodityType": "0", "OrderBy": ""
})"));
}

TEST(OrderDialogsConfirm, VirtualItemStatisticsWritesItsStartValues) {
  const Json ran = RanBare("frmFirter300", kWorld);

  EXPECT_EQ(Filter(ran), InOrder(R"({
      "OK": true, "BDate": "2024-03-05", "EDate": "2024-03-05",
      "BItemNumber": "", "EItemNumber": "", "BCustNumber": "", "ECustNumber": "",
      "GroupBy": 1, "OnlyShowSum": 1, "SaleType": 1, "SaleTypeName": "全部",
      "OrderType": -1, "OrderTypeName": "全部", "BLevel": 1, "ELevel": 3,
      "SumMode": 1, "SumName": "物料类别",
      "SumField": {"FPropID": 0, "FSQLColumnName": "FName", "FSrcTable": "", "FSrcField": "",
                   "FDisplayField": ""},
      "CheckState": 0})"));
  EXPECT_EQ(SavedLines(ran), Lines(R"({
      "plan": "默认方案", "family": 300, "BDate": "2024-03-05", "EDate": "2024-03-05",
      "BItem": "", "EItem": "", "BCustomer": "", "ECustomer": "", "BLevel": "1", "ELevel": "3",
      "chkGroupBy": "1", "OnlyShowSum": "1", "GroupByListIndex": "0", "CheckState": "0",
      "SaleTypeListIndex": "0", "OrderType": "0"
})"));
}

TEST(OrderDialogsConfirm, DueWarningWritesTextsOfItsBoxes) {
  const Json ran = RanBare("frmFilter189");

  EXPECT_EQ(Filter(ran), InOrder(R"({
      "OK": true, "BDate": "2024-03-05", "EDate": "2024-03-05",
      "BCustomerNumber": "", "ECustomerNumber": "", "BItemNumber": "", "EItemNumber": "",
      "BSalesNumber": "", "ESalesNumber": "", "BDeptNumber": "", "EDeptNumber": "",
      "AuditType": "全部", "GroupBy": "客户", "chkNextChoose": 0, "CommodityType": 0})"));
  EXPECT_EQ(SavedLines(ran), Lines(R"({
      "plan": "默认方案", "family": 188, "BDate": "2024-03-05", "EDate": "2024-03-05",
      "BCustomerNumber": "", "ECustomerNumber": "", "BItemNumber": "", "EItemNumber": "",
      "BSalesNumber": "", "ESalesNumber": "", "BDeptNumber": "", "EDeptNumber": "",
      "AuditType": "全部", "GroupBy": "客户", "chkNextChoose": "0", "CommodityType": "0"
})"));
  const std::vector<std::string> members = Members(ran);
  ASSERT_GE(members.size(), 2u);
  EXPECT_EQ(members[members.size() - 2], "ORVMCaculateRpt.Profile.UpdateNextChooseValue");
  EXPECT_EQ(members.back(), "ORVMYWARAPRpt.Profile.SaveProfile");
}

TEST(OrderDialogsConfirm, BatchTrackingWritesItsStartValues) {
  const Json ran = RanBare("frmFilter192");

  EXPECT_EQ(Filter(ran), InOrder(R"({
      "OK": true, "BDate": "2024-03-05", "EDate": "2024-03-05",
      "BItemNumber": "", "EItemNumber": "", "BCustNumber": "", "ECustNumber": "", "BBill": "", "EBill": "",
      "CheckState": 0, "DisplayType": 0, "CloseState": 0})"));
  EXPECT_EQ(SavedLines(ran), Lines(R"({
      "plan": "默认方案", "family": 192, "BDate": "2024-03-05", "EDate": "2024-03-05",
      "BItem": "", "EItem": "", "BCustomer": "", "ECustomer": "", "BBill": "", "EBill": "",
      "CheckState": "0", "DisplayType": "0", "CloseState": "0"
})"));
  EXPECT_EQ(Members(ran), (std::vector<std::string>{"ORVMCaculateRpt.Profile.GetPlanList",
                                                    "ORVMCaculateRpt.Profile.GetPlanValue",
                                                    "ORVMCaculateRpt.Profile.SaveProfile"}))
      << "a dialog without a next choice leaves the mark alone";
}

// --- Stored plans, each value off its start value

TEST(OrderDialogsConfirm, OrderStatisticsRestoresAPlan) {
  const Json ran = RanBare("frmFirter136", R"({"itemMaxLevel": {"4": 3, "1": 4},
      "saleTypes": [[100, "现销"], [20298, "受托代销"], [101, "赊销"]], "orderTypes": [[40, "内销"], [41, "外销"]],
      "plans": {"status": "夏", "夏": {"BDate": "2023-06-01", "EDate": "2023-08-31", "BItem": "a", "EItem": "b",
      "BCustomer": "c", "ECustomer": "d", "BDep": "e", "EDep": "f", "BEmp": "g", "EEmp": "h", "BCurrency": "i",
      "ECurrency": "j", "BLevel": "2", "ELevel": "4", "chkByCurrency": "1", "chkGroupBy": "1",
      "OnlyShowSum": "0", "GroupByListIndex": "1", "CheckState": "2", "SaleTypeListIndex": "2",
      "OrderType": "1", "OrderBy": "FQty DESC,FAmount ASC", "chkNextChoose": "1", "CommodityType": "2"}}})");

  EXPECT_EQ(Filter(ran), InOrder(R"({
      "OK": true, "BDate": "2023-06-01", "EDate": "2023-08-31",
      "BItemNumber": "a", "EItemNumber": "b", "BCustNumber": "c", "ECustNumber": "d",
      "BDepartNumber": "e", "EDepartNumber": "f", "BEmpNumber": "g", "EEmpNumber": "h",
      "BCurrencyNumber": "i", "ECurrencyNumber": "j", "ChkByCurrency": 1, "GroupBy": 1, "OnlyShowSum": 0,
      "BLevel": 2, "ELevel": 4, "SumMode": 2, "SumName": "客户类别", "SaleType": 101, "SaleTypeName": "赊销",
      "SumField": {"FPropID": 0, "FSQLColumnName": "FName", "FSrcTable": "", "FSrcField": "",
                   "FDisplayField": ""},
      "CheckState": 2, "OrderType": 40, "OrderTypeName": "内销", "Orderby": "FQty DESC,FAmount ASC",
      "chkNextChoose": 1, "CommodityType": 2})"));
  EXPECT_EQ(SavedLines(ran), "") << "a named plan stays as it was saved";
  EXPECT_EQ(ran.at("CurrentPlan"), "夏");
}

TEST(OrderDialogsConfirm, ExecutionDetailRestoresAPlan) {
  const Json ran = RanBare("frmFirter137", R"({
      "saleTypes": [[100, "现销"]], "orderTypes": [[40, "内销"], [41, "外销"]],
      "plans": {"status": "夏", "夏": {"BDate": "2023-06-01", "EDate": "2023-08-31", "BItem": "a", "EItem": "b",
      "BCustomer": "c", "ECustomer": "d", "BCompany": "e", "ECompany": "f", "BDept": "g", "EDept": "h",
      "BEmp": "i", "EEmp": "j", "BBillNo": "k", "EBillNo": "l", "CheckState": "1", "DisplayType": "1",
      "CloseState": "2", "SaleTypeListIndex": "1", "Implement": "2", "OrderType": "2", "chkNextChoose": "1",
      "CommodityType": "1"}}})");

  EXPECT_EQ(Filter(ran), InOrder(R"({
      "OK": true, "BDate": "2023-06-01", "EDate": "2023-08-31",
      "BItemNumber": "a", "EItemNumber": "b", "BCustNumber": "c", "ECustNumber": "d",
      "BCompanyNumber": "e", "ECompanyNumber": "f", "BDept": "g", "EDept": "h", "BEmp": "i", "EEmp": "j",
      "BBillNo": "k", "EBillNo": "l", "CheckState": 1, "DisplayType": 1, "CloseState": 2,
      "SaleType": 100, "SaleTypeName": "现销", "OrderType": 41, "OrderTypeName": "外销", "Implement": 2,
      "chkNextChoose": 1, "CommodityType": 1})"));
}

TEST(OrderDialogsConfirm, ExecutionSummaryRestoresAPlan) {
  const Json ran = RanBare("frmFirter138", R"({
      "saleTypes": [[100, "现销"]], "orderTypes": [[40, "内销"], [41, "外销"]],
      "plans": {"status": "夏", "夏": {"BDate": "2023-06-01", "EDate": "2023-08-31", "BItem": "a", "EItem": "b",
      "BCustomer": "c", "ECustomer": "d", "BCompany": "e", "ECompany": "f", "BDept": "g", "EDept": "h",
      "BEmp": "i", "EEmp": "j", "BBillNo": "k", "EBillNo": "l", "BLevel": "2", "ELevel": "4",
      "chkGroupBy": "0", "OnlyShowSum": "0", "GroupByListIndex": "6", "CheckState": "2", "CloseState": "1",
      "SaleTypeListIndex": "1", "OrderType": "1", "chkNextChoose": "1", "CommodityType": "1"}}})");

  EXPECT_EQ(Filter(ran), InOrder(R"({
      "OK": true, "BDate": "2023-06-01", "EDate": "2023-08-31",
      "BItemNumber": "a", "EItemNumber": "b", "BCustNumber": "c", "ECustNumber": "d",
      "BCompanyNumber": "e", "ECompanyNumber": "f", "BDept": "g", "EDept": "h", "BEmp": "i", "EEmp": "j",
      "BBillNo": "k", "EBillNo": "l", "GroupBy": 0, "OnlyShowSum": 0, "BLevel": 2, "ELevel": 4,
      "SumMode": 0, "SumName": "销售方式", "SaleType": 100, "SaleTypeName": "现销",
      "OrderType": 40, "OrderTypeName": "内销",
      "SumField": {"FItemClassID": 1, "FName": "销售方式", "FPropID": 29, "FSQLColumnName": "FSaleStyle",
                   "FSrcTable": "t_SubMessage", "FSrcField": "FInterID", "FDisplayField": "FName"},
      "CheckState": 2, "CloseState": 1, "chkNextChoose": 1, "CommodityType": 1})"));
}

TEST(OrderDialogsConfirm, OutboundAndReceiptTrackingRestoresAPlanWithItsCompanyRange) {
  const Json ran = RanBare("frmFirter1010", R"({"saleTypes": [[100, "现销"]],
      "plans": {"status": "夏", "夏": {"BDate": "2023-06-01", "EDate": "2023-08-31", "BItem": "a", "EItem": "b",
      "BCustomer": "c", "ECustomer": "d", "BCompany": "e", "ECompany": "f", "BDept": "g", "EDept": "h",
      "BEmp": "i", "EEmp": "j", "BBillNo": "k", "EBillNo": "l", "CheckState": "2", "CloseState": "2",
      "SaleTypeListIndex": "1", "chkNextChoose": "1", "chkIsShowSum": "1", "chkIsShowDetail": "0",
      "CommodityType": "2", "OrderBy": "FOrderbyEmpNumber DESC,FOrderbyDate ASC"}}})");

  EXPECT_EQ(Filter(ran), InOrder(R"({
      "OK": true, "BDate": "2023-06-01", "EDate": "2023-08-31",
      "BItemNumber": "a", "EItemNumber": "b", "BCustNumber": "c", "ECustNumber": "d",
      "BDept": "g", "EDept": "h", "BEmp": "i", "EEmp": "j", "BBillNo": "k", "EBillNo": "l",
      "CheckState": 2, "CloseState": 2, "SaleType": 100, "SaleTypeName": "现销", "chkNextChoose": 1,
      "chkIsShowSum": 1, "chkIsShowDetail": 0, "CommodityType": 2,
      "Orderby": "FOrderbyEmpNumber DESC,FOrderbyDate ASC"})"));
  EXPECT_EQ(Text(ran, "txtItem(4)"), "e");
  EXPECT_EQ(Text(ran, "txtItem(5)"), "f");
  EXPECT_EQ(Shown(ran, "vsOrder").at("rows").dump(),
            R"([["业务员代码",0,1,"FOrderbyEmpNumber"],["订单日期",1,0,"FOrderbyDate"]])");
}

TEST(OrderDialogsConfirm, VirtualItemStatisticsRestoresAPlan) {
  const Json ran = RanBare("frmFirter300", R"({
      "saleTypes": [[100, "现销"]], "orderTypes": [[40, "内销"], [41, "外销"]],
      "propDescs": [{"FName": "区域", "FPropID": 7, "FSQLColumnName": "F_101", "FSrcTable": "t_x",
                     "FSrcField": "FId", "FDisplayField": "FTitle", "FItemClassID": 1}],
      "plans": {"status": "夏", "夏": {"BDate": "2023-06-01", "EDate": "2023-08-31", "BItem": "a", "EItem": "b",
      "BCustomer": "c", "ECustomer": "d", "BLevel": "2", "ELevel": "4", "chkGroupBy": "0", "OnlyShowSum": "0",
      "GroupByListIndex": "5", "CheckState": "2", "SaleTypeListIndex": "1", "OrderType": "2"}}})");

  EXPECT_EQ(Filter(ran), InOrder(R"({
      "OK": true, "BDate": "2023-06-01", "EDate": "2023-08-31",
      "BItemNumber": "a", "EItemNumber": "b", "BCustNumber": "c", "ECustNumber": "d",
      "GroupBy": 0, "OnlyShowSum": 0, "SaleType": 100, "SaleTypeName": "现销",
      "OrderType": 41, "OrderTypeName": "外销", "BLevel": 2, "ELevel": 4, "SumMode": 0, "SumName": "区域",
      "SumField": {"FName": "区域", "FPropID": 7, "FSQLColumnName": "F_101", "FSrcTable": "t_x",
                   "FSrcField": "FId", "FDisplayField": "FTitle", "FItemClassID": 1},
      "CheckState": 2})"));
}

TEST(OrderDialogsConfirm, DueWarningRestoresAPlanByTheTextsOfItsBoxes) {
  const Json ran = RanBare("frmFilter189", R"({"plans": {"status": "夏", "夏": {
      "BDate": "2023-06-01", "EDate": "2023-08-31", "BCustomerNumber": "a", "ECustomerNumber": "b",
      "BItemNumber": "c", "EItemNumber": "d", "BSalesNumber": "e", "ESalesNumber": "f", "BDeptNumber": "g",
      "EDeptNumber": "h", "AuditType": "未审核", "GroupBy": "物料", "chkNextChoose": "1",
      "CommodityType": "2"}}})");

  EXPECT_EQ(Filter(ran), InOrder(R"({
      "OK": true, "BDate": "2023-06-01", "EDate": "2023-08-31",
      "BCustomerNumber": "a", "ECustomerNumber": "b", "BItemNumber": "c", "EItemNumber": "d",
      "BSalesNumber": "e", "ESalesNumber": "f", "BDeptNumber": "g", "EDeptNumber": "h",
      "AuditType": "未审核", "GroupBy": "物料", "chkNextChoose": 1, "CommodityType": 2})"));
}

TEST(OrderDialogsConfirm, BatchTrackingRestoresAPlan) {
  const Json ran = RanBare("frmFilter192", R"({"plans": {"status": "夏", "夏": {
      "BDate": "2023-06-01", "EDate": "2023-08-31", "BItem": "a", "EItem": "b", "BCustomer": "c",
      "ECustomer": "d", "BBill": "e", "EBill": "f", "CheckState": "2", "DisplayType": "1",
      "CloseState": "2"}}})");

  EXPECT_EQ(Filter(ran), InOrder(R"({
      "OK": true, "BDate": "2023-06-01", "EDate": "2023-08-31",
      "BItemNumber": "a", "EItemNumber": "b", "BCustNumber": "c", "ECustNumber": "d",
      "BBill": "e", "EBill": "f", "CheckState": 2, "DisplayType": 1, "CloseState": 2})"));
}

}  // namespace
}  // namespace salerpt::shell
