#include "suite/middletier/sale_amounts.h"

#include <string>
#include <string_view>

#include "suite/middletier/item_columns.h"
#include "suite/middletier/price_columns.h"
#include "suite/middletier/sale_batch.h"

namespace salerpt::middletier {
namespace {

// Which of an item's units a batch calls common shows in its text: the order execution joins the common unit,
// all others the sale unit.
CommonUnit CommonUnitOf(const Dictionary& request) {
  const bool joins_common = request.Get("SELECT").TextOrEmpty().find("FCUUnitID") != std::string::npos;
  return joins_common ? CommonUnit::kCommonUnit : CommonUnit::kSaleUnit;
}

}  // namespace

RecordsetRef SaleAmounts(Server& server, const Dictionary& request) {
  const CommonUnit common_unit = CommonUnitOf(request);
  const bool with_unit_cost = request.Get("UnitCost").ToInt32() == 1;
  return RunSaleBatch(server, request, [&](tsql::Session& session, std::string_view table) {
    if (!FillItemColumns(session, table, common_unit)) return false;
    if (with_unit_cost) FillPrice(session, table, "FUnitCost", "FCostSale", "FQtySend");
    return true;
  });
}

RecordsetRef SaleDetail(Server& server, const Dictionary& request) {
  if (!Trim(request.Get("GROUPBY").TextOrEmpty()).empty()) return RunSaleBatch(server, request);
  return RunSaleBatch(server, request, [](tsql::Session&, std::string_view) { return true; });
}

}  // namespace salerpt::middletier
