// A step that may fail without a word.
#pragma once

#include <utility>

#include "runtime/error.h"

namespace salerpt {

// Runs one step; where it raises, it is left undone and what stands behind it goes on. The dialogs reach the
// suite's closed objects so: they open, and can be confirmed, without a middle tier.
template <typename Step>
void Ignoring(Step&& step) {
  try {
    std::forward<Step>(step)();
  } catch (const RuntimeError&) {
    // Left undone.
  }
}

}  // namespace salerpt
