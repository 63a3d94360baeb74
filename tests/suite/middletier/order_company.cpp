#include "tests/suite/middletier/order_company.h"

#include <ostream>

namespace salerpt::middletier {
namespace {

// The common unit of bolts is the box of twelve. Item 105 is a service.
constexpr const char* kMasterData = R"sql(
UPDATE t_ICItem SET FCUUnitID=2,FErpClsID=2 WHERE FItemID=101;
INSERT INTO t_ICItem(FItemID,FNumber,FShortNumber,FName,FModel,FErpClsID,FUnitGroupID,FUnitID,FOrderUnitID,FSaleUnitID,
    FStoreUnitID,FProductUnitID,FCUUnitID,FQtyDecimal)
  VALUES (105,'02.01','3','安装','',4,1,1,1,1,1,1,1,0);
INSERT INTO t_SonCompany(FItemID,FNumber,FShortNumber,FName) VALUES (701,'B.01','2','东分'),(702,'B.02','1','西分');
INSERT INTO t_AuxItem(FItemID,FItemClassID,FNumber,FName) VALUES (1,1,'01','小');
INSERT INTO ICBOM(FInterID,FBOMNumber,FItemID) VALUES (1,'BOM1',101);
)sql";

constexpr const char* kOrders = R"sql(
INSERT INTO SEOrder(FInterID,FBillNo,FDate,FCustID,FDeptID,FEmpID,FCurrencyID,FExchangeRate,FSaleStyle,FAreaPS,
    FRelateBrID,FStatus,FClosed,FCancelLation,FExplanation,FDepositFor,FDeposit,FPrePayAmountFor,FPrePayAmount)
  VALUES (1,'SE001','2024-03-05 00:00:00',201,401,301,1,1,101,20302,701,1,0,0,'急',100,100,50,50),
         (2,'SE002','2024-03-31 18:30:00',202,402,302,2,7,102,20303,702,3,1,0,NULL,10,70,0,0),
         (3,'SE003','2024-03-10 00:00:00',203,401,301,1,1,100,20302,0,0,0,0,NULL,0,0,0,0),
         (4,'SE004','2024-03-11 00:00:00',201,401,301,1,1,101,20302,0,1,0,1,NULL,0,0,0,0),
         (5,'SE005','2024-03-15 00:00:00',203,0,0,1,1,20296,20302,0,1,0,0,NULL,0,0,0,0),
         (6,'SE006','2024-04-01 00:00:00',201,401,301,1,1,101,20302,0,1,0,0,NULL,0,0,0,0);
INSERT INTO SEOrderEntry(FInterID,FEntryID,FItemID,FAuxPropID,FUnitID,FQty,FAuxQty,FPrice,FAuxPrice,FTaxPrice,FTaxRate,
    FAmount,FTaxAmount,FAllAmount,FStdAllAmount,FAdviceConsignDate,FDate,FBomInterID,FNote)
  VALUES (1,1,101,1,2,24,2,10,120,140.4,17,240,40.8,280.8,280.8,'2024-03-20 00:00:00','2024-03-21 00:00:00',1,'红'),
         (1,2,102,0,1,10,10,10,10,11.7,17,100,17,117,117,NULL,'2024-03-12 00:00:00',0,NULL),
         (2,1,103,0,3,2.5,2.5,10,10,11.7,17,25,4.25,29.25,204.75,'2024-04-10 00:00:00',NULL,0,NULL),
         (3,1,105,0,1,1,1,50,50,53,6,50,3,53,53,'2099-01-01 00:00:00',NULL,0,NULL),
         (4,1,101,0,1,5,5,10,10,11.7,17,50,8.5,58.5,58.5,'2024-03-20 00:00:00',NULL,0,NULL),
         (5,1,101,0,1,12,12,10,10,11.7,17,120,20.4,140.4,140.4,'2024-03-30 00:00:00',NULL,0,NULL),
         (6,1,101,0,1,1,1,10,10,11.7,17,10,1.7,11.7,11.7,'2099-01-02 00:00:00',NULL,0,NULL);
)sql";

// Of SE001: 12 out, 6 out of the stock though not audited, 3 back; 5 neither audited nor out, 7 cancelled, 8
// that are no outbound bill.
constexpr const char* kDeliveries = R"sql(
INSERT INTO ICStockBill(FInterID,FTranType,FBillNo,FDate,FSupplyID,FROB,FStatus,FCancelLation,FUpStockWhenSave)
  VALUES (11,21,'X1','2024-03-10 00:00:00',201,1,1,0,0),(12,21,'X2','2024-03-25 00:00:00',201,1,0,0,1),
         (13,21,'X3','2024-03-28 00:00:00',201,-1,1,0,0),(14,21,'X4','2024-03-26 00:00:00',201,1,0,0,0),
         (15,21,'X5','2024-03-26 00:00:00',201,1,1,1,0),(16,24,'S9','2024-03-26 00:00:00',201,1,1,0,0),
         (17,21,'X7','2024-03-18 00:00:00',201,1,1,0,0),(18,21,'X8','2024-04-02 00:00:00',202,1,1,0,0);
INSERT INTO ICStockBillEntry(FInterID,FEntryID,FItemID,FUnitID,FQty,FAuxQty,FOrderInterID,FOrderEntryID,FNote)
  VALUES (11,1,101,2,12,1,1,1,'先发'),(12,1,101,1,6,6,1,1,NULL),(13,1,101,1,-3,-3,1,1,NULL),(14,1,101,1,5,5,1,1,NULL),
         (15,1,101,1,7,7,1,1,NULL),(16,1,101,1,8,8,1,1,NULL),(17,1,102,1,10,10,1,2,NULL),(18,1,103,3,2.5,2.5,2,1,NULL);
)sql";

// Invoice 23 is not audited, 24 cancelled, 26 at another rate than its order.
constexpr const char* kInvoices = R"sql(
INSERT INTO ICSale(FInterID,FTranType,FBillNo,FDate,FCustID,FCurrencyID,FExchangeRate,FSaleStyle,FStatus,FCancelLation)
  VALUES (21,80,'I1','2024-03-12 00:00:00',201,1,1,101,1,0),(22,86,'I2','2024-03-19 00:00:00',201,1,1,101,1,0),
         (23,80,'I3','2024-03-20 00:00:00',201,1,1,101,0,0),(24,80,'I4','2024-03-21 00:00:00',201,1,1,101,1,1),
         (25,80,'I5','2024-03-16 00:00:00',203,1,1,20296,1,0),(26,86,'I6','2024-04-03 00:00:00',202,2,7.2,102,1,0);
INSERT INTO ICSaleEntry(FInterID,FEntryID,FItemID,FUnitID,FQty,FAuxQty,FPrice,FAuxPrice,FAmount,FTaxAmount,FStdAmount,
    FStdTaxAmount,FReceiveAmountFor,FReceiveAmount,FOrderInterID,FOrderEntryID)
  VALUES (21,1,101,2,12,1,8,100,100,17,100,17,60,60,1,1),(22,1,102,1,4,4,10,10,46.8,6.8,46.8,6.8,46.8,46.8,1,2),
         (23,1,101,1,3,3,10,10,30,5.1,30,5.1,30,30,1,1),(24,1,101,1,3,3,10,10,30,5.1,30,5.1,30,30,1,1),
         (25,1,101,1,12,12,10,10,120,20.4,120,20.4,0,0,5,1),(26,1,103,3,2.5,2.5,10,10,29.25,4.25,210.6,30.6,29.25,210.6,2,1);
)sql";

// Task 1 for the bolts of SE001, its receipt and its issues; task 2 is cancelled. Nuts came without a task.
constexpr const char* kProduction = R"sql(
INSERT INTO ICMO(FInterID,FBillNo,FItemID,FUnitID,FQty,FAuxQty,FCommitQty,FWorkShop,FOrderInterID,FSourceEntryID,FStatus,
    FCancelLation)
  VALUES (1,'W1',101,1,20,20,18,402,1,1,1,0),(2,'W2',101,1,9,9,9,402,1,1,1,1);
INSERT INTO ICStockBill(FInterID,FTranType,FBillNo,FDate,FStatus,FCancelLation)
  VALUES (31,2,'C1','2024-03-08 00:00:00',1,0),(32,2,'C2','2024-03-09 00:00:00',1,0),(33,24,'S1','2024-03-06 00:00:00',1,0),
         (34,24,'S2','2024-03-06 00:00:00',1,1),(35,2,'C3','2024-03-09 00:00:00',0,0),(36,1,'W1','2024-03-09 00:00:00',1,0);
INSERT INTO ICStockBillEntry(FInterID,FEntryID,FItemID,FBatchNo,FKFDate,FKFPeriod,FUnitID,FQty,FAuxQty,FPrice,FAmount,
    FOrderInterID,FOrderEntryID,FICMOInterID)
  VALUES (31,1,101,'P1','2024-03-08 00:00:00',30,1,18,18,5,90,1,1,1),(32,1,102,'',NULL,0,1,3,3,2,6.005,1,2,NULL),
         (33,1,103,'M1','2024-02-01 00:00:00',60,3,4,4,1.5,6,NULL,NULL,1),(34,1,103,'',NULL,0,3,9,9,1,9,NULL,NULL,1),
         (35,1,101,'',NULL,0,1,2,2,5,10,1,1,1),(36,1,102,'',NULL,0,1,4,4,2,8,1,2,NULL);
)sql";

}  // namespace

OrderCompanyTest::OrderCompanyTest() {
  for (const char* part : {kMasterData, kOrders, kDeliveries, kInvoices, kProduction}) Sql(part);
}

DictionaryRef OrderCompanyTest::March(std::initializer_list<Dictionary::Entry> chosen) {
  auto filter = std::make_shared<Dictionary>();
  filter->Set("BDate", "2024-03-01");
  filter->Set("EDate", "2024-03-31");
  filter->Set("bLongNumber", true);
  for (const auto& [key, value] : chosen) filter->Set(key, value);
  return filter;
}

RecordsetRef OrderCompanyTest::Rows(std::string_view operation, const DictionaryRef& filter) {
  Variant sent = filter;
  return As<Recordset>(Call(CreateObject("ORVMSaleRpt.Data"), operation, kProps, sent));
}

void PrintTo(const KeyCase& key_case, std::ostream* out) {
  *out << key_case.name;
}

std::vector<std::string> Column(const RecordsetRef& rows, std::string_view field) {
  if (rows->RecordCount() > 0) rows->MoveFirst();
  return Cells(rows, field);
}

std::string FieldNames(const RecordsetRef& rows) {
  std::string names;
  for (int i = 0; i < rows->FieldCount(); ++i) Append(names, names.empty() ? "" : " ", rows->Field(i).name);
  return names;
}

std::vector<std::string> Table(const RecordsetRef& rows, std::initializer_list<std::string_view> fields) {
  std::vector<std::string> lines;
  if (rows->RecordCount() > 0) rows->MoveFirst();
  for (; !rows->Eof(); rows->MoveNext()) {
    std::string line;
    bool first = true;
    for (const std::string_view field : fields) {
      const Variant value = rows->Value(field);
      Append(line, first ? "" : "|", value.IsNull() ? "" : value.ToText());
      first = false;
    }
    lines.push_back(line);
  }
  return lines;
}

}  // namespace salerpt::middletier
