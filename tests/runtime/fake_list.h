// The closed list control of `frmList` as a test has it, and a user in front of the list.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "fake_object.h"
#include "fake_world.h"
#include "runtime/dictionary.h"
#include "runtime/list_form.h"
#include "runtime/vector.h"

namespace salerpt::testing {

// A row that the user chose: one field, read through Item and Value.
inline FakeRef ChosenRow(const std::string& field, const Variant& value) {
  auto row = std::make_shared<FakeObject>("Row");
  row->On("Item", [field, value](Arguments arguments) -> Variant {
    if (arguments[0] != Variant(field)) return nullptr;
    auto cell = std::make_shared<FakeObject>("Field");
    cell->Gives("Value", value);
    return cell;
  });
  return row;
}

// A control that takes every property, loads, opens, and has the description "销售订单".
inline FakeRef RegisterList(Runtime& runtime, std::shared_ptr<FakeObject::Log> log = nullptr,
                            int* made = nullptr) {
  FakeRef control = RegisterFake(runtime, "ORVList.ICList", std::move(log), made);
  for (const char* property : {"Left", "Top", "Width", "Height", "Visible", "ISShowReport", "ListShowStatus",
                               "DestBillTransType", "ListID", "TranType", "BaseInfo", "MultiSelect",
                               "CanSelectMultiRow", "Filter", "LocalCnn", "SystemName", "ROB"}) {
    control->OnAssign(property, [](Arguments) { return Variant(); });
  }
  const auto description =
      std::make_shared<Dictionary>(std::initializer_list<Dictionary::Entry>{{"FName", "销售订单"}});
  control->Gives("Load", true).Gives("IsOpened", true).Gives("GetListDes", description);
  control->Gives("IsSelected", true).Gives("Selected", std::make_shared<Vector>());
  control->Gives("SelectFlag", Variant()).Gives("Release", Variant());
  return control;
}

// Shows the list as a window toolkit does; `user` acts while it is on the screen.
class ListToolkit : public FakeToolkit {
 public:
  std::function<void(ListForm&)> user = [](ListForm& form) { form.OnAction("Exit"); };
  int shown = 0;

  using FakeToolkit::ShowModal;
  void ShowModal(ListForm& form) override {
    form.Load();
    form.Activate();
    if (!form.IsVisible()) return;
    ++shown;
    user(form);
  }
};

}  // namespace salerpt::testing
