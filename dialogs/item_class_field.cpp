#include "dialogs/item_class_field.h"

#include "dialogs/ignoring.h"
#include "runtime/base_data.h"

namespace salerpt {
namespace {

// The look-up of this field takes the class in the short form.
constexpr std::int16_t kItems = 4;

}  // namespace

ItemClassField::ItemClassField(Form& form) : code_(form.Add<TextBox>("txtItemClass")) {
  form.Add<Button>("cmdItemClass").Click.Connect([this] { Ignoring([this] { Pick(); }); });
}

// The long code under both code rules.
void ItemClassField::Pick() {
  const ObjectRef look_up = Call(GLViewObject(), "ItemLookUp", kItems).ToObject();
  if (!GetMember(look_up, "returnok").ToBoolean()) return;
  const ObjectRef picked = GetMember(look_up, "ReturnObject").ToObject();
  code_.SetText(GetMember(picked, "Number").TextOrEmpty());
  item_id_ = GetMember(picked, "ItemID").ToInt32();
}

}  // namespace salerpt
