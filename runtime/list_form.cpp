#include "runtime/list_form.h"

#include <array>
#include <utility>

#include "runtime/mparse.h"
#include "runtime/runtime.h"

namespace salerpt {

ListForm::~ListForm() {
  try {
    Unload();
  } catch (const RuntimeError&) {
    // The control goes with the form, whether or not it could put its list in order.
  }
}

void ListForm::SetISShowReport(bool value) {
  LetControl("ISShowReport", value);
}

void ListForm::SetListShowStatus(std::int16_t mode) {
  LetControl("ListShowStatus", mode);
}

void ListForm::SetDestBillTransType(std::string_view type) {
  LetControl("DestBillTransType", type);
}

void ListForm::SetListID(std::int32_t id) {
  LetControl("ListID", id);
}

void ListForm::SetTranType(std::int16_t type) {
  LetControl("TranType", type);
}

void ListForm::SetBaseInfo(std::string_view info) {
  LetControl("BaseInfo", info);
}

void ListForm::SetMultiSelect(bool value) {
  LetControl("MultiSelect", value);
}

void ListForm::SetCanSelectMultiRow(bool value) {
  LetControl("CanSelectMultiRow", value);
}

VectorRef ListForm::Selected() {
  return As<Vector>(GetMember(ListControl(), "Selected"));
}

RecordsetRef ListForm::GetListRs() {
  return As<Recordset>(GetMember(ListControl(), "GetListRs"));
}

Variant ListForm::GetListFieldsDes() {
  return GetMember(ListControl(), "GetListFieldsDes");
}

void ListForm::SetFilter(std::string_view condition) {
  LetControl("Filter", condition);
}

void ListForm::SetLocalCnn(std::string_view connect_string) {
  LetControl("LocalCnn", connect_string);
}

void ListForm::SetSystemName(std::string_view name) {
  LetControl("SystemName", name);
}

void ListForm::InitData() {
  try {
    const ObjectRef& control = ListControl();
    ok_ = false;
    // By reference: the control may decide which bills, blue or red, it shows.
    Variant rob = rob_;
    control->Invoke("ROB", InvokeKind::kLet, std::span(&rob, 1));
    rob_ = rob.ToInt32();
    if (!Call(control, "Load").ToBoolean()) return;
    const bool is_opened = GetMember(control, "IsOpened").ToBoolean();
    const ObjectRef description = GetMember(control, "GetListDes").ToObject();
    caption_ = Join(Call(description, "Item", "FName").TextOrEmpty(), ResText("序时簿"));
    ok_ = is_opened;
  } catch (const RuntimeError&) {
    // The list has no messages of its own: `OK` stays false, which is what a caller tests.
  }
}

void ListForm::SelectFlag(std::int32_t row) {
  Call(ListControl(), "SelectFlag", row);
}

void ListForm::PaintBar() {
  bar_text_.clear();
}

void ListForm::Load() {
  if (control_) return;
  control_ = CreateObject("ORVList.ICList");
  PaintBar();
  LetMember(control_, "Left", 0);
  LetMember(control_, "Top", 0);
  LetMember(control_, "Visible", true);
  ok_ = false;
}

void ListForm::Activate() {
  if (ok_) {
    visible_ = true;
  } else {
    Unload();
  }
}

void ListForm::Resize(std::int32_t width, std::int32_t height, std::int32_t bar_height) {
  const std::int32_t list_height = height - bar_height;
  if (list_height > 0) LetControl("Height", list_height);
  if (width > 0) LetControl("Width", width);
}

void ListForm::OnAction(std::string_view action) {
  if (action == "SelectOK") {
    if (!GetMember(ListControl(), "IsSelected").ToBoolean()) return;
    ok_ = true;
    visible_ = false;
  } else if (action == "Exit") {
    visible_ = false;
    ok_ = false;
  }
}

void ListForm::Unload() {
  if (unloaded_) return;
  unloaded_ = true;
  ok_ = false;
  visible_ = false;
  if (control_) Call(control_, "Release");
}

const ObjectRef& ListForm::ListControl() {
  Load();
  return control_;
}

void ListForm::LetControl(std::string_view property, Variant value) {
  LetMember(ListControl(), property, std::move(value));
}

std::span<const Member<ListForm>> ListForm::Members() {
  static constexpr std::array<Member<ListForm>, 20> kMembers{{
      {"ISShowReport", InvokeKind::kLet, "(Value As Boolean)",
       [](ListForm& self, Arguments arguments) {
         self.SetISShowReport(arguments[0].ToBoolean());
         return Variant();
       },
       1},
      {"ListShowStatus", InvokeKind::kLet, "(Value As Integer)",
       [](ListForm& self, Arguments arguments) {
         self.SetListShowStatus(arguments[0].ToInt16());
         return Variant();
       },
       1},
      {"DestBillTransType", InvokeKind::kLet, "(Value As String)",
       [](ListForm& self, Arguments arguments) {
         self.SetDestBillTransType(arguments[0].ToText());
         return Variant();
       },
       1},
      {"ListID", InvokeKind::kLet, "(Value As Long)",
       [](ListForm& self, Arguments arguments) {
         self.SetListID(arguments[0].ToInt32());
         return Variant();
       },
       1},
      {"TranType", InvokeKind::kLet, "(Value As Integer)",
       [](ListForm& self, Arguments arguments) {
         self.SetTranType(arguments[0].ToInt16());
         return Variant();
       },
       1},
      {"BaseInfo", InvokeKind::kLet, "(Value As String)",
       [](ListForm& self, Arguments arguments) {
         self.SetBaseInfo(arguments[0].ToText());
         return Variant();
       },
       1},
      {"MultiSelect", InvokeKind::kLet, "(Value As Boolean)",
       [](ListForm& self, Arguments arguments) {
         self.SetMultiSelect(arguments[0].ToBoolean());
         return Variant();
       },
       1},
      {"CanSelectMultiRow", InvokeKind::kLet, "(Value As Boolean)",
       [](ListForm& self, Arguments arguments) {
         self.SetCanSelectMultiRow(arguments[0].ToBoolean());
         return Variant();
       },
       1},
      {"Selected", InvokeKind::kGet, "() As Vector",
       [](ListForm& self, Arguments) -> Variant { return self.Selected(); }},
      {"GetListRs", InvokeKind::kGet, "() As Recordset",
       [](ListForm& self, Arguments) -> Variant { return self.GetListRs(); }},
      {"GetListFieldsDes", InvokeKind::kGet, "() As Variant",
       [](ListForm& self, Arguments) { return self.GetListFieldsDes(); }},
      {"Filter", InvokeKind::kLet, "(Value As String)",
       [](ListForm& self, Arguments arguments) {
         self.SetFilter(arguments[0].ToText());
         return Variant();
       },
       1},
      {"LocalCnn", InvokeKind::kLet, "(Value As String)",
       [](ListForm& self, Arguments arguments) {
         self.SetLocalCnn(arguments[0].ToText());
         return Variant();
       },
       1},
      {"SystemName", InvokeKind::kLet, "(Value As String)",
       [](ListForm& self, Arguments arguments) {
         self.SetSystemName(arguments[0].ToText());
         return Variant();
       },
       1},
      {"OK", InvokeKind::kGet, "() As Boolean",
       [](ListForm& self, Arguments) -> Variant { return self.OK(); }},
      {"ROB", InvokeKind::kGet, "() As Long",
       [](ListForm& self, Arguments) -> Variant { return self.ROB(); }},
      {"ROB", InvokeKind::kLet, "(Value As Long)",
       [](ListForm& self, Arguments arguments) {
         self.SetROB(arguments[0].ToInt32());
         return Variant();
       },
       1},
      {"InitData", InvokeKind::kMethod, "()",
       [](ListForm& self, Arguments) {
         self.InitData();
         return Variant();
       }},
      {"SelectFlag", InvokeKind::kMethod, "(Row As Long)",
       [](ListForm& self, Arguments arguments) {
         self.SelectFlag(arguments[0].ToInt32());
         return Variant();
       },
       1},
      {"PaintBar", InvokeKind::kMethod, "()",
       [](ListForm& self, Arguments) {
         self.PaintBar();
         return Variant();
       }},
  }};
  return kMembers;
}

Variant ListForm::Invoke(std::string_view member, InvokeKind kind, Arguments arguments) {
  return Dispatch(*this, Members(), member, kind, arguments);
}

}  // namespace salerpt
