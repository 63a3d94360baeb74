// What the middle tier writes into a request beside the rows that it gives.
#pragma once

#include "runtime/variant.h"

namespace salerpt {

// Raises the "Error" of a request that has come back from the middle tier, where it is not empty; the source
// is its "ErrorSource", or empty. A request that did not come back tells nothing.
void RaiseReturnedError(const Variant& request);

}  // namespace salerpt
