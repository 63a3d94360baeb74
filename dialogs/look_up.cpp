#include "dialogs/look_up.h"

#include <memory>

#include "runtime/base_data.h"
#include "runtime/list_form.h"
#include "runtime/mmts.h"
#include "runtime/mparse.h"
#include "runtime/mrpt.h"
#include "runtime/runtime.h"
#include "runtime/switch_file.h"
#include "runtime/text.h"

namespace salerpt {
namespace {

using Code = std::optional<std::string>;

constexpr std::int32_t kItemClass = 4;

// Look-ups stand beside the field, which can be typed into as well: one that fails is no more to the user
// than one that was cancelled.
template <typename F>
Code Quietly(F&& look_up) {
  try {
    return look_up();
  } catch (const RuntimeError&) {
    return std::nullopt;
  }
}

// The id of the bill chosen in a list, 0 where there is none.
std::int32_t ChosenBill(ListForm& form) {
  const VectorRef rows = form.Selected();
  if (!rows || rows->Size() == 0) return 0;
  const ObjectRef row = rows->Item(1).ToObject();
  return GetMember(Call(row, "Item", "FInterID").ToObject(), "Value").ToInt32();
}

Code ReadBillNumber(const BillList& list, std::int32_t id) {
  const auto rows =
      As<Recordset>(Call(CreateObject(list.data), "GetData", GetPropsString(), Join(list.select, id)));
  if (!rows || rows->RecordCount() == 0) return std::nullopt;
  rows->MoveFirst();
  return rows->Value("FBillNo").TextOrEmpty();
}

Code PickBill(const BillList& list, std::string_view search) {
  const std::string base_info = ListBaseInfo();
  // A switch file that cannot be opened is found out before the list is: the list would only stay empty.
  const ObjectRef connection = CreateObject("ADODB.Connection");
  Call(connection, "Open", ConnectSwitchFile());
  ClearProperty(list.list_id);

  const auto form = std::make_shared<ListForm>();
  form->SetBaseInfo(base_info);
  form->SetListID(list.list_id);
  form->SetListShowStatus(2);
  form->SetDestBillTransType("200192");
  if (!Trim(search).empty()) {
    form->SetFilter(Join(" FBillNo Like ", QuoteSql(Join("%", search, "%"))));
  }
  form->SetLocalCnn(GetMember(connection, "ConnectionString").ToText());
  form->SetMultiSelect(false);
  form->InitData();
  Toolkit& toolkit = Runtime::Current().GetToolkit();
  toolkit.ShowModal(*form);
  if (!form->OK()) return std::nullopt;

  const std::int32_t id = ChosenBill(*form);
  if (id == 0) {
    toolkit.MessageBox(ResText("未返回产品入库单的代码!"), kBoxInformation, "青岚提示：");
    return std::nullopt;
  }
  return ReadBillNumber(list, id);
}

// The condition of the list of batches: those of the items between two codes, in the code in use.
std::string BatchCondition(std::string_view begin_item, std::string_view end_item) {
  if (begin_item.empty() && end_item.empty()) return " FBatchNo>''";
  const std::string_view code = IsLongNumber() ? "FNumber" : "FShortNumber";
  std::string condition = " FItemID In (Select FItemID From t_ICItem Where  ";
  if (!begin_item.empty()) Append(condition, code, ">=", QuoteSql(begin_item));
  if (!begin_item.empty() && !end_item.empty()) Append(condition, " AND ");
  if (!end_item.empty()) Append(condition, code, "<=", QuoteSql(end_item));
  Append(condition, ")", " and FBatchNo>''");
  return condition;
}

}  // namespace

ObjectRef PickBaseData(std::int32_t item_class_id, std::string_view search, std::string_view condition) {
  constexpr std::int16_t kDataType = 1;
  const ObjectRef look_up = LookupBaseData(item_class_id, search, condition, kDataType);
  return look_up ? GetMember(look_up, "ReturnObject").ToObject() : nullptr;
}

std::string CodeInUse(const ObjectRef& picked) {
  return (IsLongNumber() ? GetMember(picked, "Number") : Call(picked, "Properties", "FShortNumber"))
      .TextOrEmpty();
}

Code LookUpCode(std::int32_t item_class_id, std::string_view search, std::string_view condition) {
  return Quietly([=]() -> Code {
    const ObjectRef picked = PickBaseData(item_class_id, search, condition);
    if (!picked) return std::nullopt;
    return CodeInUse(picked);
  });
}

Code LookUpNumber(std::int32_t item_class_id, std::string_view search) {
  return Quietly([=]() -> Code {
    const ObjectRef picked = PickBaseData(item_class_id, search, "");
    if (!picked) return std::nullopt;
    return GetMember(picked, "Number").TextOrEmpty();
  });
}

Code LookUpBillNumber(const BillList& list, std::string_view search) {
  return Quietly([&] { return PickBill(list, search); });
}

Code LookUpOrderNumber(std::string_view search) {
  constexpr BillList kOrders{32, "ORVMSaleRpt.Data", "Select FBillNo From SEOrder Where FInterID="};
  return LookUpBillNumber(kOrders, search);
}

std::string ListBaseInfo() {
  const std::string props = GetPropsString();
  std::string_view connection = props;
  CutAt(connection, '{');
  connection = CutAt(connection, '}');
  return Join(connection, "|", GetPropertyFromText("UserID"), "|", GetUserName());
}

Code LookUpBatchNumber(std::string_view begin_item, std::string_view end_item) {
  return Quietly([=]() -> Code {
    // Batches are no class of their own: they are listed under the items that they are batches of.
    const RecordsetRef rows = ShowBaseList(kItemClass, "", BatchCondition(begin_item, end_item));
    if (!rows || rows->RecordCount() == 0) return std::nullopt;
    return rows->Value("FBatchNo").TextOrEmpty();
  });
}

}  // namespace salerpt
