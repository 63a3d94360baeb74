// The report library's class factory.
#pragma once

#include "runtime/runtime.h"

namespace salerpt {

// Registers the report classes and `GetInfo` under their ProgIDs ("ORVSaleRpt.Rpt128", …), and the filter
// dialogs.
void RegisterReports(Runtime& runtime);

}  // namespace salerpt
