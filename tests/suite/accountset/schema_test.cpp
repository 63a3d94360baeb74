// The tables and fields that reports name. The list is written by hand from what they send.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "suite/accountset/accountset.h"
#include "support.h"

namespace salerpt::accountset {
namespace {

std::string Upper(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::toupper(c); });
  return text;
}

struct TableFields {
  const char* table;
  std::vector<const char*> fields;
};

const std::vector<TableFields>& ReadByReports() {
  static const std::vector<TableFields> kTables = {
      {"t_Item",
       {"FItemID", "FItemClassID", "FParentID", "FLevel", "FDetail", "FNumber", "FFullNumber", "FShortNumber",
        "FName"}},
      {"t_ICItem",
       {"FItemID", "FNumber", "FShortNumber", "FName", "FModel", "FErpClsID", "FUnitGroupID", "FUnitID",
        "FSaleUnitID", "FCUUnitID", "FSecUnitID", "FQtyDecimal", "FPriceDecimal", "FStockPrice", "FTaxRate",
        "FKFPeriod"}},
      {"t_Organization", {"FItemID", "FNumber", "FShortNumber", "FName", "FRegionID", "FRightUserID"}},
      {"t_Supplier", {"FItemID", "FNumber", "FShortNumber", "FName", "FValueAddRate", "FRightUserID"}},
      {"t_Department", {"FItemID", "FNumber", "FShortNumber", "FName"}},
      {"t_Emp", {"FItemID", "FNumber", "FShortNumber", "FName"}},
      {"t_Stock", {"FItemID", "FNumber", "FShortNumber", "FName", "FTypeID", "FRightUserID"}},
      {"t_SonCompany", {"FItemID", "FNumber", "FShortNumber", "FName"}},
      {"t_Currency", {"FCurrencyID", "FNumber", "FName", "FScale", "FExchangeRate", "FRate"}},
      {"t_MeasureUnit", {"FMeasureUnitID", "FUnitGroupID", "FName", "FCoefficient", "FStandard"}},
      {"t_AuxItem", {"FItemID", "FName"}},
      {"t_Fee", {"FItemID", "FNumber", "FShortNumber", "FName", "FFeeType"}},
      {"t_SubMessage", {"FInterID", "FTypeID", "FID", "FName"}},
      {"t_SystemProfile", {"FCategory", "FKey", "FValue"}},
      {"t_ItemPropDesc",
       {"FItemClassID", "FPropID", "FName", "FSQLColumnName", "FSrcTable", "FSrcField", "FDisplayField"}},
      {"ICStockBill",
       {"FInterID", "FTranType", "FBillNo", "FDate", "FSupplyID", "FDeptID", "FEmpID", "FSaleStyle", "FROB",
        "FStatus", "FCancelLation", "FUpStockWhenSave"}},
      {"ICStockBillEntry",
       {"FInterID", "FEntryID", "FItemID", "FAuxPropID", "FBatchNo", "FUnitID", "FQty", "FAuxQty", "FSecQty",
        "FPrice", "FAmount", "FConsignPrice", "FConsignAmount", "FDCStockID", "FAllHookQTY", "FOrderInterID",
        "FOrderEntryID"}},
      {"ICSale",
       {"FInterID", "FTranType", "FBillNo", "FDate", "FCustID", "FDeptID", "FEmpID", "FCurrencyID",
        "FExchangeRate", "FSaleStyle", "FROB", "FStatus", "FCancelLation", "FHookStatus"}},
      {"ICSaleEntry",
       {"FInterID", "FEntryID", "FItemID", "FAuxPropID", "FBatchNo", "FUnitID", "FQty", "FAuxQty", "FSecQty",
        "FAmount", "FTaxAmount", "FStdAmount", "FStdTaxAmount", "FAllHookQTY", "FAllHookAmount",
        "FOrderInterID", "FOrderEntryID"}},
      {"SEOrder",
       {"FInterID", "FBrNo", "FBillNo", "FDate", "FCustID", "FDeptID", "FEmpID", "FCurrencyID",
        "FExchangeRate", "FSaleStyle", "FAreaPS", "FRelateBrID", "FStatus", "FCancelLation", "FCheckerID"}},
      {"SEOrderEntry", {"FInterID", "FBrNo", "FEntryID", "FItemID", "FQty", "FAmount", "FAllAmount"}},
      {"ICPurchase",
       {"FInterID", "FTranType", "FDate", "FSupplyID", "FDeptID", "FEmpID", "FPOStyle", "FSubSystemID",
        "FROB", "FStatus", "FCancelLation"}},
      {"ICPurchaseEntry",
       {"FInterID", "FEntryID", "FItemID", "FQty", "FPrice", "FAmount", "FTaxAmount", "FAllHookQTY"}},
      {"ICMO", {"FInterID", "FBillNo", "FItemID", "FQty", "FOrderInterID", "FSourceEntryID", "FWorkShop"}},
      {"ICFeeInvoice",
       {"FInterID", "FTranType", "FBillNo", "FDate", "FSupplyID", "FCustID", "FStatus", "FHookStatus"}},
      {"ICFeeInvoiceEntry",
       {"FInterID", "FEntryID", "FItemID", "FAuxQty", "FAuxPrice", "FAmount", "FTaxAmount"}},
      {"ICInventory", {"FItemID", "FBatchNo", "FStockID", "FQty"}},
      {"ICBOM", {"FInterID", "FBOMNumber", "FItemID"}},
      {"ICBOMChild", {"FInterID", "FEntryID", "FItemID", "FQty"}},
      {"POOrder", {"FInterID", "FBillNo", "FDate", "FSupplyID", "FStatus"}},
      {"POOrderEntry", {"FInterID", "FEntryID", "FItemID", "FQty", "FPrice"}},
  };
  return kTables;
}

class SchemaTest : public FolderTest {
 protected:
  std::filesystem::path Made() {
    Create(Path("a.db"), {1, 200});
    return Path("a.db");
  }
};

TEST_F(SchemaTest, HoldsEveryFieldThatReportsRead) {
  const auto db = Made();
  for (const auto& expected : ReadByReports()) {
    std::set<std::string> there;
    for (const auto& row : Query(db, std::string("PRAGMA table_info(") + expected.table + ")")) {
      there.insert(Upper(row.at(1)));
    }
    EXPECT_FALSE(there.empty()) << expected.table;
    for (const char* field : expected.fields)
      EXPECT_TRUE(there.contains(Upper(field))) << expected.table << '.' << field;
  }
}

TEST_F(SchemaTest, DeclaresTheTypesOfTheSuiteAndNoOthers) {
  const auto db = Made();
  const std::set<std::string> known = {"INT", "INTEGER", "SMALLINT", "BIT", "FLOAT", "MONEY", "DATETIME"};
  for (const auto& table :
       Query(db, "SELECT name FROM sqlite_master WHERE type='table' AND name NOT LIKE 'sqlite%'")) {
    for (const auto& row : Query(db, "PRAGMA table_info(" + table.at(0) + ")")) {
      const std::string& type = row.at(2);
      const bool sized = type.starts_with("VARCHAR(") || type.starts_with("DECIMAL(");
      EXPECT_TRUE(sized || known.contains(type)) << table.at(0) << '.' << row.at(1) << ' ' << type;
    }
  }
}

TEST_F(SchemaTest, KeepsDatesAsDayAndTime) {
  const auto db = Made();
  for (const char* head : {"SEOrder", "ICStockBill", "ICSale", "ICPurchase", "POOrder", "ICFeeInvoice"}) {
    EXPECT_EQ(Number(db, std::string("SELECT count(*) FROM ") + head +
                             " WHERE FDate NOT GLOB '[12][0-9][0-9][0-9]-[01][0-9]-[0-3][0-9] 00:00:00'"),
              0)
        << head;
  }
}

TEST_F(SchemaTest, ComparesTextsWithoutRegardToCase) {
  const auto db = Made();
  EXPECT_EQ(Number(db, "SELECT count(*) FROM t_SystemProfile WHERE FCategory='gl' AND FKey='PERIODCOUNT'"),
            1);
  EXPECT_EQ(Number(db, "SELECT count(*) FROM t_Currency WHERE FNumber='usd'"), 1);
}

TEST_F(SchemaTest, HoldsTheParametersThatReportsAskFor) {
  const auto db = Made();
  EXPECT_EQ(Query(db,
                  "SELECT FCategory,FKey,FValue FROM t_SystemProfile WHERE FKey IN ('PeriodCount','TaxRate',"
                  "'UseShortNumber','SecUnit','CurrentYear','CurrentPeriod','StartYear','StartPeriod',"
                  "'POOrderTaxInPrice','PurTaxRateOption','DoubleUnit') ORDER BY 1,2"),
            (std::vector<Row>{{"GL", "PeriodCount", "12"},
                              {"GL", "TaxRate", "17"},
                              {"IC", "CurrentPeriod", "6"},
                              {"IC", "CurrentYear", "2025"},
                              {"IC", "DoubleUnit", "0"},
                              {"IC", "POOrderTaxInPrice", "0"},
                              {"IC", "PurTaxRateOption", "0"},
                              {"IC", "SecUnit", "0"},
                              {"IC", "StartPeriod", "1"},
                              {"IC", "StartYear", "2023"},
                              {"IC", "UseShortNumber", "0"}}));
}

TEST_F(SchemaTest, HoldsSaleStylesAndOrderTypes) {
  const auto db = Made();
  EXPECT_EQ(Query(db, "SELECT FInterID,FName FROM t_SubMessage WHERE FTypeID=101 ORDER BY 1"),
            (std::vector<Row>{{"100", "现销"},
                              {"101", "赊销"},
                              {"102", "分期收款销售"},
                              {"103", "委托代销"},
                              {"20296", "受托代销"},
                              {"20298", "零售"}}));
  EXPECT_EQ(Query(db, "SELECT FInterID,FName FROM t_SubMessage WHERE FTypeID=997 ORDER BY 1"),
            (std::vector<Row>{{"20302", "购销"}, {"20303", "调拨"}}));
}

TEST_F(SchemaTest, HoldsBothUsersWithTheirDataRights) {
  const auto db = Made();
  EXPECT_EQ(Query(db, "SELECT FUserID,FKind,FUsed FROM t_DataRight ORDER BY 1,2"),
            (std::vector<Row>{{"16394", "1", "0"},
                              {"16394", "2", "0"},
                              {"16394", "4", "0"},
                              {"16395", "1", "1"},
                              {"16395", "2", "1"},
                              {"16395", "4", "1"}}));
}

TEST_F(SchemaTest, DescribesPropertiesThatExist) {
  const auto db = Made();
  const auto rows =
      Query(db,
            "SELECT d.FSQLColumnName,c.FSQLTableName,d.FSrcTable,d.FSrcField,d.FDisplayField FROM "
            "t_ItemPropDesc d JOIN t_ItemClass c USING(FItemClassID)");
  EXPECT_FALSE(rows.empty());
  for (const auto& row : rows) {
    Query(db, "SELECT " + row[0] + " FROM " + row[1] + " LIMIT 1");
    if (!row[2].empty()) Query(db, "SELECT " + row[3] + "," + row[4] + " FROM " + row[2] + " LIMIT 1");
  }
}

}  // namespace
}  // namespace salerpt::accountset
