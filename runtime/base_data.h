// `LookupBaseData`, `ShowBaseList`: the closed look-ups in which the user picks from the base data.
#pragma once

#include <cstdint>
#include <string_view>

#include "runtime/object.h"
#include "runtime/recordset.h"

namespace salerpt {

// The general-ledger view object, `ORVEBCGLView.GLView`, made on first use and kept.
ObjectRef GLViewObject();

// The look-up of a base-data class, after the user has picked: its `ReturnObject` has `Number` and
// `Properties(name)`. `search` is what the look-up begins with, `condition` narrows it (for units: the number
// of the unit group). Nothing where the user cancelled, for a class without a look-up, and, after a message
// box, where it fails.
ObjectRef LookupBaseData(std::int32_t class_id, std::string_view search, std::string_view condition,
                         std::int16_t data_type);

// The rows that the user picked from the list of a base-data class, `ORVBaseList.BaseList`; nothing where the
// user cancelled. Raises what the list raises.
RecordsetRef ShowBaseList(std::int32_t item_class, std::string_view key_word, std::string_view filter);

}  // namespace salerpt
