// From a row of a summary over outbound bills to `Rpt129` over its item.
#pragma once

#include <string_view>

#include "runtime/dictionary.h"
#include "runtime/object.h"
#include "runtime/recordset.h"

namespace salerpt {

// The outbound detail of the current row of `rows`: its item, the dates, customers, states and sale style of
// `filter`, and, where the summary is grouped by customer or sale style, that of the row. `parent` is the
// ProgID of the summary, for errors.
ObjectRef OpenOutboundDetail(std::string_view parent, const Dictionary& filter, Recordset& rows);

}  // namespace salerpt
