// What the filter dialogs offer for choice.
#pragma once

#include "runtime/recordset.h"
#include "runtime/vector.h"
#include "suite/middletier/server.h"

namespace salerpt::middletier {

// The sale styles in use, `FInterID` and `FName`, by number.
RecordsetRef SaleStyles(Server& server);

// The properties by which a report can group, one Dictionary each with the keys "FName", "FPropID",
// "FSQLColumnName", "FSrcTable", "FSrcField", "FDisplayField", "FItemClassID", by class and number.
// `condition` narrows them, such as " FItemClassID IN (4,1) "; blank for all. Raises the engine's error.
VectorRef PropertyDescriptions(Server& server, std::string_view condition);

}  // namespace salerpt::middletier
