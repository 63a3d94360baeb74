#include "suite/middletier/master_lists.h"

#include <array>
#include <optional>
#include <string>
#include <utility>

#include "runtime/mrpt.h"

namespace salerpt::middletier {
namespace {

struct MasterTable {
  std::int32_t item_class;
  std::string_view title;
  std::string_view table;
  std::optional<RightKind> right;
};
constexpr std::array kMasterTables = {
    MasterTable{1, "客户", "t_Organization", RightKind::kCustomers},
    MasterTable{2, "部门", "t_Department", {}},
    MasterTable{3, "职员", "t_Emp", {}},
    MasterTable{4, "物料", "t_ICItem", {}},
    MasterTable{5, "仓库", "t_Stock", RightKind::kStocks},
    MasterTable{8, "供应商", "t_Supplier", RightKind::kSuppliers},
    MasterTable{10, "机构", "t_SonCompany", {}},
    MasterTable{2014, "费用", "t_Fee", {}},
};

const MasterTable& TableOf(std::int32_t item_class) {
  for (const MasterTable& table : kMasterTables) {
    if (table.item_class == item_class) return table;
  }
  throw RuntimeError(error_number::kInvalidCall, "",
                     Join("class ", item_class, " has no list: 1, 2, 3, 4, 5, 8, 10 or 2014 was expected"));
}

// By position and not by pattern: what the user types may hold a % or a [.
std::string SearchText(std::string_view search) {
  if (Trim(search).empty()) return {};
  const std::string text = QuoteSql(search);
  return Join(" And (CharIndex(", text, ",x2.FNumber)>0 Or CharIndex(", text,
              ",x2.FShortNumber)>0 Or CharIndex(", text, ",x2.FName)>0)");
}

std::string ConditionText(std::string_view condition) {
  return Trim(condition).empty() ? std::string() : Join(" And (", condition, ")");
}

// What a list was narrowed by, for who picks.
std::string Narrowed(std::string_view search, std::string_view condition) {
  return std::string(Trim(search).empty() ? condition : search);
}

std::vector<ShownList::Column> CodeAndName(std::string_view code = "FNumber") {
  return {{"代码", std::string(code), ""}, {"名称", "FName", ""}};
}

}  // namespace

std::string RightText(Server& server, RightKind kind, std::string_view alias) {
  const std::int32_t user = server.GetLogin().user_id;
  if (!DataRightInForce(server, user, kind)) return {};
  return Join(" And CharIndex(',", user, ",',','+", alias, ".FRightUserID+',')>0");
}

Candidates ItemList(Server& server, std::int32_t item_class, std::string_view search,
                    std::string_view condition, CodeInUse code) {
  const MasterTable& table = TableOf(item_class);
  const std::string_view code_field = code == CodeInUse::kShort ? "FShortNumber" : "FNumber";
  Candidates items{{std::string(table.title), CodeAndName(code_field), {}}, Narrowed(search, condition)};
  constexpr std::int32_t kItems = 4;
  if (item_class == kItems) items.list.columns.push_back({"规格型号", "FModel", ""});
  items.list.rows =
      server.Query(Join("Select x2.* From ", table.table, " x2 Where x2.FDeleted=0", SearchText(search),
                        table.right ? RightText(server, *table.right, "x2") : std::string(),
                        ConditionText(condition), " Order By x2.", code_field, ",x2.FItemID"));
  return items;
}

Candidates ItemClassList(Server& server, std::int32_t item_class) {
  const MasterTable& table = TableOf(item_class);
  return {{Join(table.title, "类别"), CodeAndName(),
           server.Query(Join("Select x2.* From t_Item x2 Where x2.FItemClassID=", item_class,
                             " And x2.FDetail=0 And x2.FDeleted=0 Order By x2.FNumber,x2.FItemID"))},
          ""};
}

Candidates BatchList(Server& server, std::string_view search, std::string_view condition) {
  Candidates batches{{"批号", CodeAndName(), {}}, Narrowed(search, condition)};
  batches.list.columns.push_back({"批号", "FBatchNo", ""});
  // clang-format off
  batches.list.rows = server.Query(Join(
      "Select x2.* From (\r\n"
      "Select i.FItemID,i.FNumber,i.FShortNumber,i.FName,b.FBatchNo\r\n"
      "From ICInventory b\r\n"
      "Inner Join t_ICItem i On b.FItemID=i.FItemID\r\n"
      "Left Join t_Stock s On b.FStockID=s.FItemID\r\n"
      "Where i.FDeleted=0", RightText(server, RightKind::kStocks, "s"), "\r\n"
      "Group By i.FItemID,i.FNumber,i.FShortNumber,i.FName,b.FBatchNo) x2\r\n"
      "Where 1=1", SearchText(search), ConditionText(condition), "\r\n"
      "Order By x2.FNumber,x2.FBatchNo"));
  // clang-format on
  return batches;
}

Candidates UnitList(Server& server, std::int32_t unit_group, std::string_view search) {
  // clang-format off
  return {{"计量单位", CodeAndName(), server.Query(Join(
      "Select x2.* From (\r\n"
      "Select FMeasureUnitID,FMeasureUnitID As FItemID,FUnitGroupID,FNumber,FNumber As FShortNumber,FName,\r\n"
      "FCoefficient,FStandard From t_MeasureUnit) x2\r\n"
      // Unit 0 stands for items that have no secondary unit.
      "Where x2.FMeasureUnitID<>0", unit_group == 0 ? "" : Join(" And x2.FUnitGroupID=", unit_group),
      SearchText(search), "\r\n"
      "Order By x2.FUnitGroupID,x2.FNumber,x2.FItemID"))}, std::string(search)};
  // clang-format on
}

Candidates AuxiliaryList(Server& server, std::int32_t item_class, std::string_view search) {
  constexpr std::int32_t kCustomerClasses = 501;
  constexpr std::int32_t kEmployeeClasses = 30;
  std::int32_t type = item_class;
  if (item_class == kCustomerClasses) type = 28;
  if (item_class == kEmployeeClasses) type = 29;
  // clang-format off
  return {{"辅助资料", CodeAndName(), server.Query(Join(
      "Select x2.* From (\r\n"
      "Select FInterID,FInterID As FItemID,FTypeID,FID,FID As FNumber,FID As FShortNumber,FName,FParentID,FDetail\r\n"
      "From t_SubMessage Where FDeleted=0 And FTypeID=", type, ") x2\r\n"
      "Where 1=1", SearchText(search), "\r\n"
      "Order By x2.FNumber,x2.FItemID"))}, std::string(search)};
  // clang-format on
}

Candidates CurrencyList(Server& server, std::string_view search) {
  // clang-format off
  return {{"币别", CodeAndName(), server.Query(Join(
      "Select x2.* From (\r\n"
      "Select FCurrencyID,FCurrencyID As FItemID,FNumber,FNumber As FShortNumber,FName,FExchangeRate,FRate,FScale\r\n"
      "From t_Currency Where FDeleted=0) x2\r\n"
      "Where 1=1", SearchText(search), "\r\n"
      "Order By x2.FNumber,x2.FItemID"))}, std::string(search)};
  // clang-format on
}

}  // namespace salerpt::middletier
