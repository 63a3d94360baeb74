// A progress line on a terminal, or progress as plain lines elsewhere.
#pragma once

#include <chrono>
#include <cstdint>
#include <iosfwd>
#include <string>
#include <string_view>

namespace salerpt::shell {

// Shows a message and, where there is one, a bar. On a terminal one line is drawn over and over, at most some
// twenty times a second, and taken away at the end; elsewhere every message and every tenth of the bar is a
// line.
class ProgressBar {
 public:
  enum class Style : std::uint8_t { kOff, kLines, kTerminal };

  ProgressBar(std::ostream& err, Style style) : err_(err), style_(style) {}
  ~ProgressBar();
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;

  void SetMessage(std::string_view message);
  // How much is done, out of how much; `total` 0: no bar.
  void SetBar(std::int64_t done, std::int64_t total);
  // Takes the line off the terminal, so that other text can be written.
  void Clear();

 private:
  using Clock = std::chrono::steady_clock;
  void Draw();

  std::ostream& err_;
  Style style_;
  std::string message_;
  int percent_ = -1;  // none shown
  bool drawn_ = false;
  Clock::time_point last_drawn_{};
};

}  // namespace salerpt::shell
