#include "sqltoolkit/data_right.h"

#include <array>
#include <memory>

#include "runtime/dictionary.h"
#include "runtime/error.h"
#include "runtime/mmts.h"
#include "runtime/mparse.h"
#include "runtime/runtime.h"
#include "runtime/text.h"

namespace salerpt {
namespace {

// A master table under the rule, its kind of right, and whether the rule is in force for the user.
struct RightKind {
  std::string_view table;
  std::int32_t kind;
  bool in_force = false;
};
using RightKinds = std::array<RightKind, 3>;

RightKind* FindKind(RightKinds& kinds, std::string_view table) {
  for (RightKind& kind : kinds) {
    if (EqualNames(kind.table, table)) return &kind;
  }
  return nullptr;
}

std::string TableOf(const Dictionary& info) {
  return info.Get("DataTable").TextOrEmpty();
}

}  // namespace

bool ApplyDataRight(const Vector& table_names, const Vector& table_infos, std::string& /*from_text*/,
                    std::string& where_text, bool /*flag*/) {
  const std::string props = GetPropsString();
  ParseString(props);
  const std::int16_t user_id = GetUserID();

  RightKinds kinds = {{{"t_organization", 1}, {"t_supplier", 2}, {"t_stock", 4}}};
  bool any = false;
  {
    const ObjectRef item_info = ObjectFactory::CreateServerObject("ORVEBSGLItem.ItemInfo");
    for (std::int32_t i = 1; i <= table_names.Size(); ++i) {
      RightKind* kind = FindKind(kinds, TableOf(*As<Dictionary>(table_infos.Item(i))));
      if (kind == nullptr) continue;
      kind->in_force = Call(item_info, "GetDataRight", props, user_id, kind->kind).ToBoolean();
    }
    for (const RightKind& kind : kinds) any = any || kind.in_force;
  }
  if (!any) return true;

  // A table that names no alias takes the one of the table before it. Kept: reports rest on the texts as they
  // are.
  std::string alias;
  for (std::int32_t i = 1; i <= table_names.Size(); ++i) {
    const auto info = As<Dictionary>(table_infos.Item(i));
    if (info->Lookup("DataTableAs")) {
      alias = info->Get("DataTableAs").TextOrEmpty();
    } else if (info->Lookup("BillTableAs")) {
      alias = info->Get("BillTableAs").TextOrEmpty();
    }
    const RightKind* kind = FindKind(kinds, TableOf(*info));
    if (kind == nullptr || !kind->in_force) continue;
    if (!Trim(where_text).empty()) where_text += " And ";
    Append(where_text, " CharIndex('", user_id, "',", alias, ".FRightUserID)>0 ");
  }
  return true;
}

DataRight RequestDataRight(std::initializer_list<RightTable> tables) {
  Vector table_names;
  Vector table_infos;
  for (const RightTable& table : tables) {
    table_names.Add(table.data_table);
    auto info = std::make_shared<Dictionary>();
    info->Set("DataTable", table.data_table);
    info->Set("DataTableAs", table.data_table_as);
    table_infos.Add(info);
  }
  DataRight right;
  if (!ApplyDataRight(table_names, table_infos, right.from_text, right.where_text, true)) {
    throw RuntimeError(error_number::kDataRight, "SetRptProperty", ResText("数据授权取数发生错误"));
  }
  return right;
}

std::string AndIfAny(std::string_view condition) {
  return Trim(condition).empty() ? std::string() : Join(" And ", condition);
}

}  // namespace salerpt
