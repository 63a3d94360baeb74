#include "dialogs/name_list.h"

#include <array>
#include <memory>
#include <utility>

#include "dialogs/ignoring.h"
#include "runtime/mrpt.h"
#include "runtime/runtime.h"

namespace salerpt {
namespace {

// The field as the list sees it.
class FieldObject final : public Object {
 public:
  explicit FieldObject(TextBox& field) : field_(field) {}
  [[nodiscard]] std::string_view ClassName() const override { return field_.TypeName(); }
  Variant Invoke(std::string_view member, InvokeKind kind, Arguments arguments) override {
    static constexpr std::array<Member<FieldObject>, 3> kMembers{{
        {"Name", InvokeKind::kGet, "() As String",
         [](FieldObject& self, Arguments) -> Variant { return self.field_.Name(); }},
        {"Text", InvokeKind::kGet, "() As String",
         [](FieldObject& self, Arguments) -> Variant { return self.field_.Text(); }},
        {"Text", InvokeKind::kLet, "(text As String)",
         [](FieldObject& self, Arguments text) -> Variant {
           self.field_.SetText(text[0].ToText());
           return {};
         },
         1},
    }};
    return Dispatch<FieldObject>(*this, kMembers, member, kind, arguments);
  }

 private:
  TextBox& field_;
};

}  // namespace

void NameList::Enter(TextBox& field, std::int32_t item_class_id) {
  constexpr std::int32_t kRows = 4;
  Detach();
  if (item_class_id == 0) return;
  if (!list_) {
    Ignoring([this] { list_ = CreateObject("ORVGLNameListLib.GLNameList"); });
    if (!list_) return;
    Ignoring([this] { LetMember(list_, "NoKeyDownKeyUp", false); });
  }
  Ignoring([&] { LetMember(list_, "ItemClassID", item_class_id); });
  Ignoring([&] { Call(list_, "Attach", std::make_shared<FieldObject>(field), kRows); });
  Ignoring([&] { LetMember(list_, "HotTrace", true); });
}

void NameList::OnChange() {
  if (list_) Runtime::Current().GetToolkit().KeybdEvent(key_code::kF9);
}

void NameList::OnKeyUp(const KeyStroke& key) {
  if (!list_ || !IsLongNumber()) return;
  Ignoring([&] { Call(list_, "OnKeyUp", std::int32_t{key.code}, std::int32_t{key.shift}); });
}

void NameList::Leave() {
  Detach();
}

void NameList::Detach() {
  if (list_) Ignoring([this] { Call(list_, "Detach"); });
}

}  // namespace salerpt
