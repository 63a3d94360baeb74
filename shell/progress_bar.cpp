#include "shell/progress_bar.h"

#include <algorithm>
#include <ostream>

#include "runtime/text.h"

namespace salerpt::shell {
namespace {

constexpr std::string_view kClearLine = "\r\x1b[K";
constexpr int kBarCells = 30;
constexpr int kLineStep = 10;
constexpr int kAll = 100;
constexpr std::chrono::milliseconds kMinPause{50};

}  // namespace

ProgressBar::~ProgressBar() {
  try {
    Clear();
  } catch (...) {  // NOLINT(bugprone-empty-catch): a lost message stream is no reason to end here
  }
}

void ProgressBar::SetMessage(std::string_view message) {
  if (style_ == Style::kOff || message == message_) return;
  message_ = message;
  percent_ = -1;
  if (style_ == Style::kLines) {
    err_ << message_ << '\n' << std::flush;
  } else {
    Draw();
  }
}

void ProgressBar::SetBar(std::int64_t done, std::int64_t total) {
  if (style_ == Style::kOff) return;
  const int percent =
      total <= 0 ? -1 : static_cast<int>(std::clamp<std::int64_t>(done, 0, total) * kAll / total);
  if (percent == percent_) return;
  if (style_ == Style::kLines) {
    if (percent >= 0 && percent / kLineStep == std::max(percent_, 0) / kLineStep && percent != kAll) return;
    percent_ = percent;
    if (percent >= 0) err_ << message_ << ' ' << percent << "%\n" << std::flush;
    return;
  }
  percent_ = percent;
  if (percent == kAll || Clock::now() - last_drawn_ >= kMinPause) Draw();
}

void ProgressBar::Clear() {
  if (!drawn_) return;
  drawn_ = false;
  err_ << kClearLine << std::flush;
}

void ProgressBar::Draw() {
  std::string line(kClearLine);
  if (percent_ >= 0) {
    const auto filled = static_cast<std::size_t>(percent_ * kBarCells / kAll);
    line.append("[").append(filled, '#').append(kBarCells - filled, '-');
    Append(line, "] ", percent_, "% ");
  }
  err_ << line << message_ << std::flush;
  drawn_ = true;
  last_drawn_ = Clock::now();
}

}  // namespace salerpt::shell
