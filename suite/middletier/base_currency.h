// The base currency of the account set.
#pragma once

#include <cstdint>

#include "suite/middletier/server.h"

namespace salerpt::middletier {

// Decimals to which amounts in base currency are rounded; 2 where the currency has no row. Raises the
// engine's errors. Not for use inside a conversation, which it would end.
std::int16_t BaseCurrencyScale(Server& server);

}  // namespace salerpt::middletier
