// `clsPass`: the relay between a report's progress bar and the progress dialog.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "runtime/base_data.h"
#include "runtime/event.h"

namespace salerpt {

// Made of events: each operation but QuickLookUpBase raises the event of its name, SetActive raises Active.
// Not part of the public interface; the host never sees it.
class clsPass {
 public:
  // Events, in declaration order.
  Event<std::int32_t> OnSetBarMaxValue;
  Event<std::int32_t> OnSetBarMinValue;
  Event<std::int32_t> OnSetBarValue;
  Event<const std::string&> OnSetMsg;
  Event<> OnSetBarValueWithMax;
  Event<> OnUnload;
  Event<> OnActive;
  Event<> OnHideProgBar;
  Event<> OnShowProgBar;

  // Operations, in interface order.
  void SetBarMaxValue(std::int32_t value) { OnSetBarMaxValue.Raise(value); }
  void SetBarMinValue(std::int32_t value) { OnSetBarMinValue.Raise(value); }
  void SetBarValue(std::int32_t value) { OnSetBarValue.Raise(value); }
  void SetBarValueWithMax() { OnSetBarValueWithMax.Raise(); }
  void SetMsg(const std::string& text) { OnSetMsg.Raise(text); }
  void SetActive() { OnActive.Raise(); }
  void Unload() { OnUnload.Raise(); }
  void ShowProgBar() { OnShowProgBar.Raise(); }
  void HideProgBar() { OnHideProgBar.Raise(); }
  // The rows that the user picks from a base-data list; nothing where the user cancels.
  static RecordsetRef QuickLookUpBase(std::int32_t item_class, std::string_view key_word,
                                      std::string_view filter) {
    return ShowBaseList(item_class, key_word, filter);
  }
};

}  // namespace salerpt
