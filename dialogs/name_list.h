// The type-ahead list of codes and names under a code field.
#pragma once

#include <cstdint>

#include "dialogs/controls.h"
#include "runtime/object.h"

namespace salerpt {

// Attaches the suite's closed name list to the code field that has the focus. It helps while typing and never
// hinders: failures of the list are ignored.
class NameList {
 public:
  // The focus enters a field; class 0 is a field without base data, where the list is only taken away.
  void Enter(TextBox& field, std::int32_t item_class_id);
  // The text changed: the list is told to look again, by a key press that it listens to.
  void OnChange();
  // A key was released; under long codes the list hears of it.
  void OnKeyUp(const KeyStroke& key);
  void Leave();

 private:
  void Detach();
  ObjectRef list_;
};

}  // namespace salerpt
