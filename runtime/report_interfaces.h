// The public interfaces of the report classes, in interface order.
#pragma once

#include <span>
#include <string_view>

#include "runtime/report.h"

namespace salerpt {

// The member table of a class, by its name ("Rpt128"). Hosts bind early, so the order is part of the
// interface; classes of one family share a table. Raises invalid call for a name that is no report class.
std::span<const Member<Report>> InterfaceOf(std::string_view class_name);

}  // namespace salerpt
