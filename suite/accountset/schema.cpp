#include "suite/accountset/schema.h"

#include <fmt/format.h>

#include "suite/accountset/accountset.h"

namespace salerpt::accountset {

void CreateTables(Database& database) {
  database.Execute(
      fmt::format("PRAGMA application_id={}; PRAGMA user_version={};", kApplicationId, kSchemaVersion));
  database.Execute(kMasterTables);
  database.Execute(kSalesTables);
  database.Execute(kSupplyTables);
  database.Execute(kSuiteTables);
}

void CreateIndexes(Database& database) {
  database.Execute(R"sql(
CREATE INDEX t_Item_Number ON t_Item(FItemClassID, FNumber);
CREATE INDEX t_ICItem_Number ON t_ICItem(FNumber);
CREATE INDEX t_Organization_Number ON t_Organization(FNumber);
CREATE INDEX ICStockBillEntry_Order ON ICStockBillEntry(FOrderInterID, FOrderEntryID)
  WHERE FOrderInterID IS NOT NULL;
CREATE INDEX ICStockBillEntry_Item ON ICStockBillEntry(FItemID, FInterID);
CREATE INDEX ICStockBillEntry_Task ON ICStockBillEntry(FICMOInterID) WHERE FICMOInterID IS NOT NULL;
CREATE INDEX ICSaleEntry_Order ON ICSaleEntry(FOrderInterID, FOrderEntryID) WHERE FOrderInterID IS NOT NULL;
CREATE INDEX ICMO_Order ON ICMO(FOrderInterID, FSourceEntryID);
CREATE INDEX ICPurchaseEntry_Item ON ICPurchaseEntry(FItemID, FInterID);
)sql");
  // Which bills of a kind fall into a range of dates is what every report asks first.
  for (const char* head : {"ICStockBill", "ICSale", "SEOrder"}) {
    database.Execute(fmt::format("CREATE INDEX {0}_Date ON {0}(FTranType, FDate)", head));
  }
}

}  // namespace salerpt::accountset
