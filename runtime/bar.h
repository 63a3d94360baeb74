// `Bar`: the progress relay that a report holds.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "runtime/cls_pass.h"
#include "runtime/event.h"
#include "runtime/progress_form.h"

namespace salerpt {

// The chain of a fetch: report Refresh -> Bar.Show -> dialog modal -> dialog activate -> clsPass.SetActive ->
// event Active -> Bar -> event Active -> report handler -> fetch -> Bar.Unload -> clsPass.Unload -> event
// Unload -> dialog unloads -> Bar.Show returns. Relay and dialog are made anew at each Show. Outside of a
// Show the forwarding operations raise object-not-set; Unload does nothing then.
class Bar {
 public:
  // Opens the dialog modally; returns when it has been unloaded.
  void Show();
  void SetBarMaxValue(std::int32_t value);
  void SetBarMinValue(std::int32_t value);
  // A value above the maximum is a failure of the control.
  void SetBarValue(std::int32_t value);
  void SetMsg(const std::string& text);
  void Unload();
  void SetBarValueWithMax();
  void ShowProgBar();
  void HideProgBar();

  Event<> Active;

 private:
  clsPass& Relay();
  std::shared_ptr<ProgressForm> m_frm;
  std::shared_ptr<clsPass> m_clsPass;
};

}  // namespace salerpt
