#include "runtime/progress_form.h"

#include <algorithm>
#include <utility>

#include "runtime/error.h"
#include "runtime/form_services.h"
#include "runtime/runtime.h"
#include "runtime/text.h"

namespace salerpt {
namespace {

void LetMessagesRun() {
  Runtime::Current().GetToolkit().DoEvents();
}

}  // namespace

template <typename... Args, typename Handler>
void ProgressForm::Listen(Event<Args...>& event, Handler handler) {
  const auto token = event.Connect(std::move(handler));
  disconnects_.emplace_back([&event, token] { event.Disconnect(token); });
}

ProgressForm::ProgressForm(std::shared_ptr<clsPass> relay) : m_clsPass(std::move(relay)) {
  Listen(m_clsPass->OnSetBarMaxValue, [this](std::int32_t value) { SetBounds(min_, value); });
  Listen(m_clsPass->OnSetBarMinValue, [this](std::int32_t value) { SetBounds(value, max_); });
  Listen(m_clsPass->OnSetBarValue, [this](std::int32_t value) { SetValue(value); });
  Listen(m_clsPass->OnSetBarValueWithMax, [this] { FillBar(); });
  Listen(m_clsPass->OnSetMsg, [this](const std::string& text) { SetMessage(text); });
  Listen(m_clsPass->OnHideProgBar, [this] { SetBarVisible(false); });
  Listen(m_clsPass->OnShowProgBar, [this] { SetBarVisible(true); });
  Listen(m_clsPass->OnUnload, [this] { Unload(); });
}

ProgressForm::~ProgressForm() {
  for (const auto& disconnect : disconnects_) disconnect();
}

void ProgressForm::Load() {
  try {
    // The form is drawn by the toolkit and is no automation object: the loader gets nothing for it.
    LoadFormResources(nullptr, nullptr, "Q7INDUSTRY");
  } catch (const RuntimeError&) {
    // A form without its resources still shows its progress.
  }
}

void ProgressForm::Activate() {
  if (unloaded_) return;
  // The fetch unloads the form; the relay must outlive the call all the same.
  const std::shared_ptr<clsPass> relay = m_clsPass;
  relay->SetActive();
}

void ProgressForm::SetValue(std::int32_t value) {
  if (value < min_ || value > max_) {
    throw RuntimeError(
        error_number::kInvalidCall, "frmProgBar",
        Join("the progress bar cannot stand at ", value, ": it goes from ", min_, " to ", max_));
  }
  value_ = value;
  BarChanged.Raise();
}

void ProgressForm::SetBounds(std::int32_t min, std::int32_t max) {
  min_ = min;
  max_ = max;
  value_ = std::max(min_, std::min(value_, max_));
  BarChanged.Raise();
}

void ProgressForm::SetMessage(const std::string& text) {
  message_ = text;
  MessageChanged.Raise(message_);
  LetMessagesRun();
}

void ProgressForm::SetBarVisible(bool visible) {
  bar_visible_ = visible;
  BarChanged.Raise();
  LetMessagesRun();
}

void ProgressForm::FillBar() {
  value_ = max_;
  BarChanged.Raise();
  LetMessagesRun();
}

void ProgressForm::Unload() {
  FillBar();
  unloaded_ = true;
}

}  // namespace salerpt
