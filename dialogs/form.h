// A form: named controls in tab order, the focus, and the road of a key.
#pragma once

#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "dialogs/controls.h"
#include "runtime/error.h"
#include "runtime/object.h"
#include "runtime/text.h"

namespace salerpt {

// "txtItem(3)": the name of a control of an array.
std::string ControlName(std::string_view array, int index);

// Holds the controls for as long as it lives and gives the keys of the user their way: first the form's own
// handlers (key preview), then the control's, then the control itself.
class Form {
 public:
  Form() = default;
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  // A new control at the end of the tab order. Names differ without regard to case; raises duplicate key.
  template <typename T, typename... Args>
  T& Add(std::string name, Args&&... args) {
    auto control = std::make_unique<T>(std::move(name), std::forward<Args>(args)...);
    T& made = *control;
    Take(std::move(control));
    return made;
  }
  // The control of a name, without regard to case; null where there is none.
  [[nodiscard]] FormControl* Find(std::string_view name) const;
  // The control of a name and kind; null where there is none such.
  template <typename T>
  [[nodiscard]] T* FindAs(std::string_view name) const {
    return dynamic_cast<T*>(Find(name));
  }
  // Raises invalid call, naming it and the form, where there is none such.
  template <typename T>
  [[nodiscard]] T& Get(std::string_view name) const {
    if (T* found = FindAs<T>(name)) return *found;
    RaiseNoControl(name);
  }
  template <typename T>
  [[nodiscard]] T& Get(std::string_view array, int index) const {
    return Get<T>(ControlName(array, index));
  }
  [[nodiscard]] const std::vector<std::unique_ptr<FormControl>>& Controls() const { return controls_; }

  // --- Focus
  [[nodiscard]] FormControl* Focused() const { return focused_; }
  // Leaves the control that has the focus (validation included) and enters this one. Nothing where it has the
  // focus already or cannot take it.
  void SetFocus(FormControl& control);
  // The focus leaves: Validate, then LostFocus.
  void LeaveFocus();
  // The next control in tab order that can take the focus.
  void FocusNext();

  // --- The user
  // A key pressed and released. Enter presses the default button where no handler has swallowed the press of
  // the key itself; a character goes into a text box.
  void PressKey(FormControl& control, int code, int shift = 0);
  // Marks the whole text and types `text` key by key.
  void Type(TextBox& control, std::string_view text);
  // A click with the mouse: the focus enters, then Click. Nothing where the control is not available.
  void UserClick(FormControl& control);
  // A row chosen in a combo box or list.
  void UserSelect(ListControl& control, int index);
  void UserCheck(CheckBox& control, int value);

  // The form's class, such as "frmFirter128".
  std::string form_name;
  std::string caption;
  Event<KeyStroke&> KeyDown;
  Event<KeyStroke&> KeyPress;
  // The form as the closed form services see it: an object with "Name" and "Caption".
  [[nodiscard]] ObjectRef AsObject();

 private:
  void Take(std::unique_ptr<FormControl> control);
  [[noreturn]] void RaiseNoControl(std::string_view name) const;
  void Character(FormControl& control, char32_t character);

  std::vector<std::unique_ptr<FormControl>> controls_;
  FormControl* focused_ = nullptr;
  ObjectRef object_;
};

}  // namespace salerpt
