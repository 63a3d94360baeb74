#include "suite/middletier/sale_amounts.h"

#include <string_view>

#include "suite/middletier/item_columns.h"
#include "suite/middletier/price_columns.h"
#include "suite/middletier/sale_batch.h"

namespace salerpt::middletier {
namespace {

bool FillItemsAndUnitCost(tsql::Session& session, std::string_view table) {
  if (!FillItemColumns(session, table, CommonUnit::kSaleUnit)) return false;
  FillPrice(session, table, "FUnitCost", "FCostSale", "FQtySend");
  return true;
}

}  // namespace

RecordsetRef SaleAmounts(Server& server, const Dictionary& request) {
  if (request.Get("UnitCost").ToInt32() == 1) return RunSaleBatch(server, request, FillItemsAndUnitCost);
  return RunSaleBatch(server, request);
}

RecordsetRef SaleDetail(Server& server, const Dictionary& request) {
  if (!Trim(request.Get("GROUPBY").TextOrEmpty()).empty()) return RunSaleBatch(server, request);
  return RunSaleBatch(server, request, [](tsql::Session&, std::string_view) { return true; });
}

}  // namespace salerpt::middletier
