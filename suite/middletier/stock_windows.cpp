#include <array>
#include <span>

#include "runtime/runtime.h"
#include "suite/middletier/account_switches.h"
#include "suite/middletier/objects.h"
#include "suite/middletier/stock_balance.h"
#include "suite/middletier/suite_object.h"

namespace salerpt::middletier {
namespace {

// The columns that both windows begin with, by the codes in use.
std::vector<ShownList::Column> ColumnsOf(bool long_codes) {
  return {{"物料代码", long_codes ? "FNumber" : "FShortNumber", ""},
          {"物料名称", "FName", ""},
          {"规格型号", "FModel", ""},
          {"仓库代码", long_codes ? "FStockNumber" : "FStockShortNumber", ""},
          {"仓库名称", "FStockName", ""},
          {"单位(基本)", "FUnitName", ""}};
}

// `ORVStockQuery.StockQueryFace`: the window that shows what is left in the stocks.
class StockQuery final : public SuiteObject<StockQuery> {
 public:
  static constexpr std::string_view kClassName = "ORVStockQuery.StockQueryFace";
  using SuiteObject::SuiteObject;

  // Opens it, and returns when the user has left it.
  static Variant Show(StockQuery& self, Arguments /*arguments*/) {
    Server& server = self.GetServer();
    ShownList list{"库存查询", ColumnsOf(LongCodesInUse(server)), StockBalances(server)};
    list.columns.push_back({"库存数量", "FQty", "FQtyDecimal"});
    server.Show(list);
    return {};
  }

  static std::span<const Member<StockQuery>> Members() {
    static constexpr std::array<Member<StockQuery>, 1> kMembers{{{"Show", InvokeKind::kMethod, "()", Show}}};
    return kMembers;
  }
};

// `ORVStockStatus.SSFace`: the window that shows how it came to be there, too.
class StockStatus final : public SuiteObject<StockStatus> {
 public:
  static constexpr std::string_view kClassName = "ORVStockStatus.SSFace";
  using SuiteObject::SuiteObject;

  // Opens it, and returns when the user has left it.
  static Variant Show(StockStatus& self, Arguments /*arguments*/) {
    Server& server = self.GetServer();
    ShownList list{"库存状况", ColumnsOf(LongCodesInUse(server)), StockBalances(server)};
    list.columns.push_back({"收入数量", "FInQty", "FQtyDecimal"});
    list.columns.push_back({"发出数量", "FOutQty", "FQtyDecimal"});
    list.columns.push_back({"库存数量", "FQty", "FQtyDecimal"});
    server.Show(list);
    return {};
  }

  static std::span<const Member<StockStatus>> Members() {
    static constexpr std::array<Member<StockStatus>, 1> kMembers{{{"Show", InvokeKind::kMethod, "()", Show}}};
    return kMembers;
  }
};

}  // namespace

ObjectRef MakeStockQuery(ServerRef server) {
  return std::make_shared<StockQuery>(std::move(server));
}

ObjectRef MakeStockStatus(ServerRef server) {
  return std::make_shared<StockStatus>(std::move(server));
}

}  // namespace salerpt::middletier
