// The dialog toolkit, as a seam: everything that reaches a person's screen and keyboard.
#pragma once

#include <string>
#include <string_view>

namespace salerpt {

class ProgressForm;
class FilterDialog;
class ListForm;

// Styles of a message box.
inline constexpr int kBoxInformation = 64;
inline constexpr int kBoxYesNo = 68;

enum class BoxAnswer { kOk = 1, kCancel = 2, kYes = 6, kNo = 7 };

// The default is a toolkit without a screen: a progress form is activated once, a dialog is confirmed as it
// stands, lists and input boxes are cancelled, boxes answered with OK.
class Toolkit {
 public:
  virtual ~Toolkit() = default;
  // Lets pending user-interface messages run.
  virtual void DoEvents() {}
  // Shows the progress form modally: loads it, activates it once, and returns when it has been unloaded.
  virtual void ShowModal(ProgressForm& form);
  // Shows a filter dialog modally and returns when the user has left it.
  virtual void ShowModal(FilterDialog& dialog);
  virtual BoxAnswer MessageBox(std::string_view text, int style, std::string_view title);
  // The text typed; empty where the user cancelled.
  virtual std::string InputBox(std::string_view prompt, std::string_view title, std::string_view preset);
  // Synthetic keys, such as "{TAB}".
  virtual void SendKeys(std::string_view keys);
  // `keybd_event`: the press of a virtual key, without a release.
  virtual void KeybdEvent(int virtual_key);
  // Shows the list dialog modally and returns when it has been hidden.
  virtual void ShowModal(ListForm& form);
  virtual void Beep() {}
  // The screen's mouse pointer back to normal.
  virtual void ResetMousePointer() {}
};

}  // namespace salerpt
