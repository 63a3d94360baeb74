#include "dialogs/form.h"

#include <algorithm>
#include <array>
#include <span>

namespace salerpt {
namespace {

// What form services read of a form.
class FormObject final : public Object {
 public:
  explicit FormObject(const Form& form) : form_(form) {}
  [[nodiscard]] std::string_view ClassName() const override { return "Form"; }
  Variant Invoke(std::string_view member, InvokeKind kind, Arguments arguments) override {
    static constexpr std::array<Member<FormObject>, 2> kMembers{{
        {"Name", InvokeKind::kGet, "() As String",
         [](FormObject& self, Arguments) -> Variant { return self.form_.form_name; }},
        {"Caption", InvokeKind::kGet, "() As String",
         [](FormObject& self, Arguments) -> Variant { return self.form_.caption; }},
    }};
    return Dispatch<FormObject>(*this, kMembers, member, kind, arguments);
  }

 private:
  const Form& form_;
};

// The character that a key gives, 0 for a key without one (a function key, an arrow).
char32_t CharacterOfKey(int code) {
  using namespace key_code;
  const bool is_letter_or_digit = (code >= '0' && code <= '9') || (code >= 'A' && code <= 'Z');
  const bool is_control = code == kBackspace || code == kEnter || code == kEscape;
  if (is_letter_or_digit || is_control || code == ' ' || code == kApostrophe) {
    return static_cast<char32_t>(code);
  }
  return 0;
}

// The next code point of a UTF-8 text, which is cut off.
char32_t NextCharacter(std::string_view& text) {
  const auto byte = [&text](std::size_t at) { return static_cast<unsigned char>(text[at]); };
  const unsigned char lead = byte(0);
  const std::size_t size = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  char32_t character = size == 1 ? lead : lead & (0xFFU >> (size + 1));
  for (std::size_t at = 1; at < size && at < text.size(); ++at)
    character = character << 6 | (byte(at) & 0x3FU);
  text.remove_prefix(std::min(size, text.size()));
  return character;
}

}  // namespace

std::string ControlName(std::string_view array, int index) {
  return Join(array, "(", index, ")");
}

FormControl* Form::Find(std::string_view control_name) const {
  const auto found = std::find_if(controls_.begin(), controls_.end(), [control_name](const auto& control) {
    return EqualNames(control->Name(), control_name);
  });
  return found == controls_.end() ? nullptr : found->get();
}

void Form::Take(std::unique_ptr<FormControl> control) {
  if (Find(control->Name()) != nullptr) {
    throw RuntimeError(error_number::kDuplicateKey, form_name,
                       Join(form_name, " has a control \"", control->Name(), "\" already"));
  }
  control->tab_index = static_cast<int>(controls_.size());
  controls_.push_back(std::move(control));
}

void Form::RaiseNoControl(std::string_view control_name) const {
  throw RuntimeError(error_number::kInvalidCall, form_name,
                     Join(form_name, " has no control \"", control_name, "\" of that kind"));
}

ObjectRef Form::AsObject() {
  if (!object_) object_ = std::make_shared<FormObject>(*this);
  return object_;
}

void Form::SetFocus(FormControl& control) {
  if (focused_ == &control || !control.CanFocus()) return;
  LeaveFocus();
  focused_ = &control;
  control.GotFocus.Raise();
}

void Form::LeaveFocus() {
  if (focused_ == nullptr) return;
  FormControl& left = *focused_;
  left.Validate.Raise();
  focused_ = nullptr;
  left.LostFocus.Raise();
}

void Form::FocusNext() {
  const std::size_t count = controls_.size();
  const std::size_t from = focused_ == nullptr ? count - 1 : static_cast<std::size_t>(focused_->tab_index);
  for (std::size_t step = 1; step <= count; ++step) {
    FormControl& next = *controls_[(from + step) % count];
    if (!next.CanFocus()) continue;
    SetFocus(next);
    return;
  }
}

void Form::PressKey(FormControl& control, int code, int shift) {
  SetFocus(control);
  KeyStroke down{code, shift};
  KeyDown.Raise(down);
  if (down.code != 0) control.KeyDown.Raise(down);
  if (down.code != 0) {
    if (const char32_t character = CharacterOfKey(down.code)) Character(control, character);
  }
  if (code == key_code::kEnter) {
    for (const auto& candidate : controls_) {
      const auto* button = dynamic_cast<const Button*>(candidate.get());
      if (button != nullptr && button->is_default && button->IsAvailable()) {
        candidate->Click.Raise();
        break;
      }
    }
  }
  KeyStroke up{code, shift};
  control.KeyUp.Raise(up);
}

void Form::Character(FormControl& control, char32_t character) {
  KeyStroke press{static_cast<int>(character)};
  KeyPress.Raise(press);
  if (press.code != 0) control.KeyPress.Raise(press);
  if (press.code == 0 || press.code == key_code::kEnter || press.code == key_code::kEscape) return;
  if (auto* box = dynamic_cast<TextBox*>(&control)) box->TypeCharacter(static_cast<char32_t>(press.code));
}

void Form::Type(TextBox& control, std::string_view text) {
  SetFocus(control);
  control.SelectAll();
  while (!text.empty()) {
    const char32_t character = NextCharacter(text);
    // The key of a character is its upper case; characters that no key gives alone come without one.
    const bool is_letter = character >= 'a' && character <= 'z';
    KeyStroke down{is_letter ? static_cast<int>(character) - ('a' - 'A') : static_cast<int>(character)};
    KeyDown.Raise(down);
    if (down.code != 0) control.KeyDown.Raise(down);
    if (down.code != 0) Character(control, character);
    KeyStroke up{down};
    control.KeyUp.Raise(up);
  }
}

void Form::UserClick(FormControl& control) {
  if (!control.IsAvailable()) return;
  SetFocus(control);
  control.Click.Raise();
}

void Form::UserSelect(ListControl& control, int index) {
  if (!control.IsAvailable()) return;
  SetFocus(control);
  control.SetListIndex(index);
}

void Form::UserCheck(CheckBox& control, int value) {
  if (!control.IsAvailable()) return;
  SetFocus(control);
  control.SetValue(value);
}

}  // namespace salerpt
