#include "tests/suite/middletier/company.h"

#include <sqlite3.h>
#include <stdlib.h>

#include <stdexcept>
#include <system_error>

#include "suite/accountset/new_file.h"
#include "tests/runtime/error_check.h"

namespace salerpt::middletier {
namespace {

// Bolts are sold in boxes, nuts have no model and the secondary unit "*", the secondary unit of rings is
// unknown.
constexpr const char* kMasterData = R"sql(
INSERT INTO t_Currency(FCurrencyID,FNumber,FName,FExchangeRate,FScale)
  VALUES (1,'RMB','人民币',1,2),(2,'USD','美元',7,2);
INSERT INTO t_UnitGroup(FUnitGroupID,FName,FDefaultUnitID) VALUES (1,'数量组',1),(2,'重量组',3);
INSERT INTO t_MeasureUnit(FMeasureUnitID,FUnitGroupID,FNumber,FName,FCoefficient,FStandard)
  VALUES (1,1,'01','件',1,1),(2,1,'02','箱',12,0),(3,2,'03','千克',1,1),(0,0,'*','*',1,0);
INSERT INTO t_ICItem(FItemID,FNumber,FShortNumber,FName,FModel,FUnitGroupID,FUnitID,FOrderUnitID,FSaleUnitID,
    FStoreUnitID,FProductUnitID,FCUUnitID,FSecUnitID,FQtyDecimal,FPriceDecimal)
  VALUES (101,'01.01','9','螺栓','M8',1,1,1,2,1,1,1,3,0,2),
         (102,'01.02','5','螺母',NULL,1,1,1,1,1,1,1,0,3,4),
         (103,'01.03','7','O''Ring','R-5',2,3,3,3,3,3,3,77,1,1);
INSERT INTO t_Organization(FItemID,FNumber,FShortNumber,FName,FRightUserID)
  VALUES (201,'C.01','3','东风商行','16394,16395'),(202,'C.02','2','西岭商行','16395'),
         (203,'C.O''3','1','南港商行','16394');
INSERT INTO t_Emp(FItemID,FNumber,FShortNumber,FName)
  VALUES (301,'E.01','01','周明'),(302,'E.02','02','吴芳');
INSERT INTO t_Department(FItemID,FNumber,FShortNumber,FName)
  VALUES (401,'D.01','01','一部'),(402,'D.02','02','二部');
INSERT INTO t_VoucherGroup(FGroupID,FName) VALUES (1,'记');
INSERT INTO t_Voucher(FVoucherID,FDate,FYear,FPeriod,FGroupID,FNumber) VALUES (501,'2024-03-06 00:00:00',2024,3,1,12);
INSERT INTO t_SystemProfile(FCategory,FKey,FValue)
  VALUES ('GL','PeriodCount','12'),('GL','TaxRate','17'),('IC','UseShortNumber','0'),('IC','Remark',NULL);
)sql";

// XS004 is not audited, XS005 is cancelled, XS006 is red and has neither salesperson nor department, XS007 is
// no sales invoice of the two kinds. XS002 is in dollars, at the last day of March, with a time.
constexpr const char* kInvoices = R"sql(
INSERT INTO ICSale(FInterID,FTranType,FBillNo,FDate,FCustID,FDeptID,FEmpID,FCurrencyID,FExchangeRate,FSaleStyle,
    FROB,FStatus,FCancelLation,FVchInterID,FNote)
  VALUES (1,80,'XS001','2024-03-05 00:00:00',201,401,301,1,1,101,1,1,0,501,'三月货款'),
         (2,86,'XS002','2024-03-31 18:30:00',202,402,302,2,7,101,1,1,0,0,NULL),
         (3,80,'XS003','2024-04-01 00:00:00',203,401,301,1,1,101,1,1,0,0,NULL),
         (4,80,'XS004','2024-03-10 00:00:00',201,401,301,1,1,101,1,0,0,0,NULL),
         (5,80,'XS005','2024-03-11 00:00:00',201,401,301,1,1,101,1,1,1,0,NULL),
         (6,80,'XS006','2024-03-20 00:00:00',203,0,0,1,1,101,-1,1,0,0,NULL),
         (7,79,'XS007','2024-03-21 00:00:00',201,401,301,1,1,101,1,1,0,0,NULL);
INSERT INTO ICSaleEntry(FInterID,FEntryID,FItemID,FUnitID,FQty,FAuxQty,FPrice,FAuxPrice,FAmount,
    FTaxAmount,FStdAmount)
  VALUES (1,2,102,1,4,4,2.5315,2.5315,10.126,1.72,10.126),(1,1,101,1,10,10,10,10,100,17,100),
         (2,1,101,1,2,2,11.7,11.7,23.4,3.4,140),(3,1,103,3,0,0,5,5,5,0.85,5),(4,1,102,1,1,1,8,8,8,1.36,8),
         (5,1,102,1,1,1,9,9,9,1.53,9),(6,1,103,3,-3,-3,10,10,-30,-5.1,-30),(7,1,102,1,1,1,6,6,6,1,6);
)sql";

std::filesystem::path MakeFolder() {
  std::string name = (std::filesystem::temp_directory_path() / "salerpt-middletier-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder " + name);
  return name;
}

std::filesystem::path MakeCompany(const std::filesystem::path& path) {
  accountset::NewFile file(path, "CompanyTest");
  file.Db().Execute(kMasterData);
  file.Db().Execute(kInvoices);
  file.Publish();
  return path;
}

}  // namespace

TemporaryFolder::TemporaryFolder() : path_(MakeFolder()) {}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

CompanyTest::CompanyTest()
    : path_(MakeCompany(folder_.Path() / "company.db")),
      account_set_(std::make_shared<accountset::AccountSet>(OpenAgain())) {
  RegisterMiddleTier(runtime_, account_set_, Login{});
}

void CompanyTest::Sql(const std::string& sql) const {
  char* message = nullptr;
  sqlite3_exec(OpenAgain().Connection(), sql.c_str(), nullptr, nullptr, &message);
  const std::string text = message != nullptr ? message : "";
  sqlite3_free(message);
  if (!text.empty()) throw std::runtime_error(text + " in " + sql);
}

RecordsetRef CompanyTest::Query(std::string_view sql) {
  return As<Recordset>(Call(CreateObject("ORVMSaleRpt.Data"), "GetData", kProps, sql));
}

void CompanyTest::ExpectNoTable(std::string_view temporary_table) {
  EXPECT_EQ(DescriptionRaisedBy([&] { Query(Join("Select * From ", temporary_table)); }),
            Join("Invalid object name '", temporary_table, "'."));
}

std::vector<std::string> Cells(const RecordsetRef& rows, std::string_view field) {
  std::vector<std::string> cells;
  const int index = rows->FieldIndex(field);
  for (; !rows->Eof(); rows->MoveNext()) {
    const Variant value = rows->Value(index);
    cells.push_back(value.IsNull() ? "null" : value.ToText());
  }
  return cells;
}

}  // namespace salerpt::middletier
