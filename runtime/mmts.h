// `MMTS`: where the login's context comes from.
#pragma once

#include <string>
#include <string_view>

#include "runtime/variant.h"

namespace salerpt {

// The property string of the login, the first argument of every middle-tier call: from the host object where
// there is one, otherwise from the process-wide property store. Raises where neither is there.
std::string GetPropsString();
// The same for the user's name.
std::string GetUserName();
// A property of this process from `ORVPropsMgr.ShareProps`, which is made anew for the call.
Variant GetSharedProperty(std::string_view name);

}  // namespace salerpt
