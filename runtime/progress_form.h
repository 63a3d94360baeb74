// `frmProgBar`: the small modal dialog with a message and a bar that shows while a report fetches.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "runtime/cls_pass.h"

namespace salerpt {

// Listens to the relay and holds what there is to show. A toolkit draws it: it loads the form, activates it
// once (the whole fetch runs inside the activation), and looks at the state whenever messages run
// (Toolkit::DoEvents) or Changed is raised.
class ProgressForm {
 public:
  explicit ProgressForm(std::shared_ptr<clsPass> relay);
  ~ProgressForm();
  ProgressForm(const ProgressForm&) = delete;
  ProgressForm& operator=(const ProgressForm&) = delete;

  // Form load: resources. Errors are cleared.
  void Load();
  // Form activate: the fetch runs in here. A form that has been unloaded is not activated any more.
  void Activate();
  // The form leaves the screen: when the fetch is done, or when the toolkit closes it earlier. Before its
  // activation nothing is fetched then; a fetch that runs is not broken off, and nobody sees its messages.
  void Unload();
  [[nodiscard]] bool IsUnloaded() const { return unloaded_; }

  // What there is to draw: the last message, and the bar between its bounds.
  [[nodiscard]] const std::string& Message() const { return message_; }
  [[nodiscard]] std::int32_t Min() const { return min_; }
  [[nodiscard]] std::int32_t Max() const { return max_; }
  [[nodiscard]] std::int32_t Value() const { return value_; }
  [[nodiscard]] bool IsBarVisible() const { return bar_visible_; }

  // After a new message.
  Event<const std::string&> MessageChanged;
  // After a change of the bar: value, bounds or visibility.
  Event<> BarChanged;

 private:
  // Raises invalid call, naming the value and the bounds, where the value lies outside of them.
  void SetValue(std::int32_t value);
  // New bounds take the value with them.
  void SetBounds(std::int32_t min, std::int32_t max);
  void SetMessage(const std::string& text);
  void SetBarVisible(bool visible);
  void FillBar();
  // Connects to an event of the relay for as long as the form lives.
  template <typename... Args, typename Handler>
  void Listen(Event<Args...>& event, Handler handler);

  std::shared_ptr<clsPass> m_clsPass;
  std::vector<std::function<void()>> disconnects_;
  std::string message_;
  std::int32_t min_ = 0;
  std::int32_t max_ = 100;
  std::int32_t value_ = 0;
  bool bar_visible_ = true;
  bool unloaded_ = false;
};

}  // namespace salerpt
