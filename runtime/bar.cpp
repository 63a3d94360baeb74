#include "runtime/bar.h"

#include "runtime/error.h"
#include "runtime/runtime.h"

namespace salerpt {

void Bar::Show() {
  const auto relay = std::make_shared<clsPass>();
  const auto form = std::make_shared<ProgressForm>(relay);
  relay->OnActive.Connect([this] { Active.Raise(); });
  m_clsPass = relay;
  m_frm = form;

  // However the dialog goes, unloaded, left by the toolkit or with an error: nothing of this Show is left
  // behind.
  struct Release {
    Bar& bar;
    const clsPass* relay;
    ~Release() {
      if (bar.m_clsPass.get() != relay) return;
      bar.m_frm.reset();
      bar.m_clsPass.reset();
    }
  } const release{*this, relay.get()};
  Runtime::Current().GetToolkit().ShowModal(*form);
}

clsPass& Bar::Relay() {
  if (m_clsPass) return *m_clsPass;
  throw RuntimeError(error_number::kObjectNotSet, "Bar", "the progress dialog is not shown");
}

void Bar::SetBarMaxValue(std::int32_t value) {
  Relay().SetBarMaxValue(value);
}

void Bar::SetBarMinValue(std::int32_t value) {
  Relay().SetBarMinValue(value);
}

void Bar::SetBarValue(std::int32_t value) {
  Relay().SetBarValue(value);
}

void Bar::SetMsg(const std::string& text) {
  Relay().SetMsg(text);
}

void Bar::Unload() {
  // Held, since messages that run meanwhile may unload once more.
  if (const std::shared_ptr<clsPass> relay = m_clsPass) relay->Unload();
  m_frm.reset();
  m_clsPass.reset();
  Runtime::Current().GetToolkit().DoEvents();
}

void Bar::SetBarValueWithMax() {
  Relay().SetBarValueWithMax();
}

void Bar::ShowProgBar() {
  Relay().ShowProgBar();
}

void Bar::HideProgBar() {
  Relay().HideProgBar();
}

}  // namespace salerpt
