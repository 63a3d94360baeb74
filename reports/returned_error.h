// The error that the middle tier answers in a dictionary that it was given by reference.
#pragma once

#include "runtime/dictionary.h"
#include "runtime/variant.h"

namespace salerpt {

// Fails the fetch where "Error" of the returned dictionary is not empty: raises it with number -1 and the
// returned "ErrorSource", empty where there is none. Nothing where the dictionary is gone.
void RaiseReturnedError(const Variant& returned);

// Blanks "Error" and "ErrorSource" of a filter before it is sent: what an earlier fetch was answered is no
// answer to this one, and a refresh must work.
void ForgetReturnedError(Dictionary& filter);

}  // namespace salerpt
