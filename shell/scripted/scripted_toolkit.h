// A toolkit without a screen whose user is a script.
#pragma once

#include <deque>
#include <memory>
#include <string>
#include <string_view>

#include "runtime/toolkit.h"
#include "shell/recorded/json_place.h"
#include "shell/scripted/dialog_suite.h"

namespace salerpt::shell {

// Answers boxes from a queue (OK, or cancelled, when it is empty), picks from lists what the suite's look-ups
// give, and notes what was shown and which keys were sent.
class ScriptedToolkit final : public Toolkit {
 public:
  ScriptedToolkit(std::shared_ptr<DialogSuite> suite, const std::vector<std::string>& replies)
      : suite_(std::move(suite)), replies_(replies.begin(), replies.end()) {}

  using Toolkit::ShowModal;
  void ShowModal(ListForm& form) override;
  // Raises wrong-arguments for a queued answer that is none of a box.
  BoxAnswer MessageBox(std::string_view text, int style, std::string_view title) override;
  std::string InputBox(std::string_view prompt, std::string_view title, std::string_view preset) override;
  void SendKeys(std::string_view keys) override;
  void KeybdEvent(int virtual_key) override;

  // Whether a Tab was sent since the last call: it reaches the form when the key in hand is done with.
  [[nodiscard]] bool TakeTab() { return std::exchange(tab_sent_, false); }

  // {"text", "title", "style"}
  Json boxes = Json::array();
  // {"prompt", "title", "preset"}
  Json inputs = Json::array();
  // Texts of SendKeys, virtual key codes of KeybdEvent.
  Json keys = Json::array();

 private:
  std::shared_ptr<DialogSuite> suite_;
  std::deque<std::string> replies_;
  bool tab_sent_ = false;
};

}  // namespace salerpt::shell
