// The 26 filter dialogs, by class name.
#pragma once

#include <string>
#include <vector>

#include "runtime/runtime.h"

namespace salerpt {

// Registers every dialog under its class name, so that a report's ShowFilter finds it.
void RegisterDialogs(Runtime& runtime);
// Their class names.
std::vector<std::string> DialogNames();

}  // namespace salerpt
