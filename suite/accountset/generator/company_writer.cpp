#include "suite/accountset/generator/company_writer.h"

#include <fmt/format.h>

#include <optional>
#include <string>

#include "suite/accountset/accountset.h"
#include "suite/accountset/fixed_rows.h"

namespace salerpt::accountset::generator {
namespace {

// The users that may see a row.
std::string RightList(bool narrow, bool hidden = false) {
  std::string list = "16384";
  if (!hidden) list += fmt::format(",{}", kLoginUser);
  if (narrow) list += fmt::format(",{}", kNarrowUser);
  return list;
}

Decimal OfPrice(Price price) {
  return {price, 4};
}

// The tree, one writer for class rows and leaves of all classes.
class TreeWriter {
 public:
  explicit TreeWriter(Database& database)
      : insert_(database, "t_Item",
                {"FItemID", "FItemClassID", "FParentID", "FLevel", "FDetail", "FNumber", "FFullNumber",
                 "FShortNumber", "FName", "FFullName"}) {}
  void Write(int item_class, const Node& node) {
    insert_.Row(node.id, item_class, node.parent, node.level, node.leaf, node.number, node.number,
                node.short_number, node.name, node.full_name);
  }

 private:
  Insert insert_;
};

void WriteTree(Database& database, const Company& company) {
  TreeWriter tree(database);
  for (std::size_t i = 0; i < company.classes.size(); ++i)
    tree.Write(company.class_numbers[i], company.classes[i]);
  for (const auto& row : company.departments) tree.Write(2, row.node);
  for (const auto& row : company.employees) tree.Write(3, row.node);
  for (const auto& row : company.branches) tree.Write(10, row);
  for (const auto& row : company.stocks) tree.Write(5, row.node);
  for (const auto& row : company.fees) tree.Write(2014, row.node);
  for (const auto& row : company.suppliers) tree.Write(8, row.node);
  for (const auto& row : company.customers) tree.Write(1, row.node);
  for (const auto& row : company.items) tree.Write(4, row.node);
}

void WriteCurrenciesAndUnits(Database& database, const Company& company) {
  Insert currency(database, "t_Currency",
                  {"FCurrencyID", "FNumber", "FName", "FExchangeRate", "FRate", "FScale"});
  for (const auto& row : company.currencies) {
    currency.Row(row.id, row.number, row.name, OfPrice(row.rate), OfPrice(row.rate), row.scale);
  }
  Insert group(database, "t_UnitGroup", {"FUnitGroupID", "FName", "FDefaultUnitID"});
  Insert unit(database, "t_MeasureUnit",
              {"FMeasureUnitID", "FUnitGroupID", "FNumber", "FName", "FCoefficient", "FStandard"});
  for (const auto& row : company.units) {
    const bool base = row.id == row.group * 100 + 1;
    if (base) group.Row(row.group, fmt::format("{}组", row.name), row.id);
    unit.Row(row.id, row.group, std::to_string(row.id), row.name, row.coefficient, base);
  }
  Insert aux(database, "t_AuxItem", {"FItemID", "FItemClassID", "FNumber", "FName"});
  for (const auto& row : company.aux_items) aux.Row(row.id, row.aux_class, row.number, row.name);
}

void WriteOrganisation(Database& database, const Company& company) {
  Insert department(database, "t_Department",
                    {"FItemID", "FParentID", "FNumber", "FShortNumber", "FName", "FDProperty"});
  for (const auto& row : company.departments) {
    department.Row(row.node.id, row.node.parent, row.node.number, row.node.short_number, row.node.name,
                   row.workshop ? 3101 : 3102);
  }
  Insert employee(database, "t_Emp",
                  {"FItemID", "FParentID", "FNumber", "FShortNumber", "FName", "FDepartmentID", "FTypeID"});
  for (const auto& row : company.employees) {
    employee.Row(row.node.id, row.node.parent, row.node.number, row.node.short_number, row.node.name,
                 row.department, row.type);
  }
  Insert branch(database, "t_SonCompany", {"FItemID", "FParentID", "FNumber", "FShortNumber", "FName"});
  for (const auto& row : company.branches)
    branch.Row(row.id, row.parent, row.number, row.short_number, row.name);
  Insert stock(database, "t_Stock",
               {"FItemID", "FParentID", "FNumber", "FShortNumber", "FName", "FTypeID", "FRightUserID"});
  for (const auto& row : company.stocks) {
    stock.Row(row.node.id, row.node.parent, row.node.number, row.node.short_number, row.node.name, row.type,
              RightList(row.narrow));
  }
  Insert fee(database, "t_Fee",
             {"FItemID", "FParentID", "FNumber", "FShortNumber", "FName", "FFeeType", "FUnit"});
  for (const auto& row : company.fees) {
    fee.Row(row.node.id, row.node.parent, row.node.number, row.node.short_number, row.node.name, row.type,
            row.unit);
  }
}

void WritePartners(Database& database, const Company& company) {
  Insert customer(
      database, "t_Organization",
      {"FItemID", "FParentID", "FNumber", "FShortNumber", "FName", "FFullName", "FCity", "FRegionID",
       "FTrade", "FTypeID", "FDepartment", "FEmployee", "FCyID", "FIsCreditMgr", "FRightUserID"});
  for (const auto& row : company.customers) {
    customer.Row(row.node.id, row.node.parent, row.node.number, row.node.short_number, row.node.name,
                 row.node.full_name, row.city, row.region, row.trade, row.type, row.department, row.employee,
                 row.currency, row.type == kKeyCustomer, RightList(row.narrow, row.hidden));
  }
  Insert supplier(database, "t_Supplier",
                  {"FItemID", "FParentID", "FNumber", "FShortNumber", "FName", "FFullName", "FRegionID",
                   "FTrade", "FValueAddRate", "FRightUserID"});
  for (const auto& row : company.suppliers) {
    supplier.Row(row.node.id, row.node.parent, row.node.number, row.node.short_number, row.node.name,
                 row.node.full_name, row.region, row.trade, row.tax_rate, RightList(row.narrow));
  }
}

void WriteItems(Database& database, const Company& company) {
  Insert insert(
      database, "t_ICItem",
      {"FItemID",         "FParentID",   "FNumber",       "FShortNumber",   "FName",         "FFullName",
       "FModel",          "FErpClsID",   "FTypeID",       "FSource",        "FUnitGroupID",  "FUnitID",
       "FOrderUnitID",    "FSaleUnitID", "FStoreUnitID",  "FProductUnitID", "FCUUnitID",     "FSecUnitID",
       "FSecCoefficient", "FQtyDecimal", "FPriceDecimal", "FAuxClassID",    "FBatchManager", "FISKFPeriod",
       "FKFPeriod",       "FDefaultLoc", "FSalePrice",    "FStockPrice",    "FTaxRate"});
  for (const auto& row : company.items) {
    const std::optional<std::string> model = row.model.empty() ? std::nullopt : std::optional(row.model);
    insert.Row(row.node.id, row.node.parent, row.node.number, row.node.short_number, row.node.name,
               row.node.full_name, model, row.kind, row.type, row.source, row.unit_group, row.base_unit,
               row.sale_unit, row.sale_unit, row.base_unit, row.base_unit, row.sale_unit, row.second_unit,
               row.second_coefficient, row.quantity_decimals, 4, row.aux_class, row.batches,
               row.shelf_days > 0, row.shelf_days, row.stock, OfPrice(row.price), OfPrice(row.cost),
               row.tax_rate);
  }
}

void WriteBoms(Database& database, const Company& company) {
  Insert head(database, "ICBOM", {"FInterID", "FBOMNumber", "FItemID"});
  Insert line(database, "ICBOMChild", {"FInterID", "FEntryID", "FItemID", "FUnitID", "FQty", "FAuxQty"});
  for (const auto& bom : company.boms) {
    head.Row(bom.id, fmt::format("BOM{:06}", bom.id),
             company.items[static_cast<std::size_t>(bom.item)].node.id);
    int entry = 0;
    for (const auto& part : bom.lines) {
      const Item& item = company.items[static_cast<std::size_t>(part.item)];
      line.Row(bom.id, ++entry, item.node.id, item.base_unit, part.quantity, part.quantity);
    }
  }
}

}  // namespace

void WriteCompany(Database& database, const Company& company) {
  WriteTree(database, company);
  WriteCurrenciesAndUnits(database, company);
  WriteOrganisation(database, company);
  WritePartners(database, company);
  WriteItems(database, company);
  WriteBoms(database, company);
}

}  // namespace salerpt::accountset::generator
