#include "runtime/base_data.h"

#include <memory>

#include "runtime/dictionary.h"
#include "runtime/mparse.h"
#include "runtime/mrpt.h"
#include "runtime/runtime.h"

namespace salerpt {
namespace {

constexpr std::int32_t kItemClass = 4;

ObjectRef LookUpItem(std::int32_t class_id, std::string_view search, std::string_view condition,
                     std::int16_t data_type) {
  const auto options = std::make_shared<Dictionary>();
  options->Set("BeShortNumber", !Runtime::Current().gLongNumber);
  options->Set("GetDataType", data_type);
  options->Set("Search", search);
  // The look-up keeps the items that it read last; under a condition they are read anew.
  if (!condition.empty() && class_id == kItemClass) options->Set("Refresh", true);
  Call(GLDataObject(), "Refresh");
  Variant by_reference(options);
  return Call(GLViewObject(), "ItemLookUp", class_id, search, condition, by_reference).ToObject();
}

// The look-up that serves a class, shown and left; nothing where none does.
ObjectRef ShowLookUp(std::int32_t class_id, std::string_view search, std::string_view condition,
                     std::int16_t data_type) {
  switch (class_id) {
    case 1:     // customers
    case 2:     // departments
    case 3:     // employees
    case 4:     // items
    case 5:     // stock places
    case 8:     // suppliers
    case 10:    // organisations
    case 2014:  // fees
      return LookUpItem(class_id, search, condition, data_type);
    case 7:  // units, of one group
      return Call(GLViewObject(), "UnitLookup", Variant(Val(condition)).ToInt32(), search).ToObject();
    case 12:
      return Call(GLViewObject(), "CurrencyLookup", search).ToObject();
    case 13:
      return Call(GLViewObject(), "AccountLookup", search).ToObject();
    case 130:  // among the auxiliary classes by its number, but with a look-up of its own
      return Call(GLViewObject(), "SettTypeLookup", search).ToObject();
    default:
      break;
  }
  const bool is_auxiliary = class_id >= 20 && class_id <= 999;
  if (!is_auxiliary) return nullptr;
  return Call(GLViewObject(), "SubMesLookup", class_id, search).ToObject();
}

}  // namespace

ObjectRef GLViewObject() {
  ObjectRef& gl_view = Runtime::Current().gl_view;
  if (!gl_view) gl_view = CreateObject("ORVEBCGLView.GLView");
  return gl_view;
}

ObjectRef LookupBaseData(std::int32_t class_id, std::string_view search, std::string_view condition,
                         std::int16_t data_type) {
  try {
    ObjectRef look_up = ShowLookUp(class_id, search, condition, data_type);
    if (!look_up || !GetMember(look_up, "ReturnObject").ToObject()) return nullptr;
    return look_up;
  } catch (const RuntimeError& failure) {
    Runtime::Current().GetToolkit().MessageBox(
        Join(ResText("基础资料很有可能没有授权"), kCrLf, failure.Description()), kBoxInformation, kHintTitle);
    return nullptr;
  }
}

RecordsetRef ShowBaseList(std::int32_t item_class, std::string_view key_word, std::string_view filter) {
  const ObjectRef list = CreateObject("ORVBaseList.BaseList");
  LetMember(list, "KeyWord", key_word);
  LetMember(list, "Filter", filter);
  const Variant rows = Call(list, "Show", item_class, 0);
  Runtime::Current().GetToolkit().DoEvents();
  return As<Recordset>(rows);
}

}  // namespace salerpt
