// What an account set has switched on: codes in use, data rights.
#pragma once

#include <cstdint>

#include "runtime/dictionary.h"
#include "suite/middletier/server.h"

namespace salerpt::middletier {

// Data rights by what they are about: `t_DataRight.FKind`.
enum class RightKind : std::int32_t { kCustomers = 1, kSuppliers = 2, kStocks = 4 };

// Whether long codes are in use; short ones where the account set says nothing. Raises the engine's errors.
// Not for use inside a conversation, which it would end.
bool LongCodesInUse(Server& server);
// The same where a request may tell it ("bLongNumber"). Not every report does before it runs its batch.
bool LongCodesInUse(Server& server, const Dictionary& filter);

// Whether a user sees only what names him in `FRightUserID`. A user and a kind that the account set does not
// name are free: everybody sees everything until somebody says otherwise. Raises the engine's errors. Not for
// use inside a conversation, which it would end.
bool DataRightInForce(Server& server, std::int32_t user, RightKind kind);

}  // namespace salerpt::middletier
