#include "suite/middletier/dialog_lists.h"

#include <memory>

#include "runtime/dictionary.h"

namespace salerpt::middletier {

RecordsetRef SaleStyles(Server& server) {
  return server.Query(
      "Select FInterID,FName From t_SubMessage Where FTypeID=101 And FDeleted=0 Order By FInterID");
}

VectorRef PropertyDescriptions(Server& server, std::string_view condition) {
  const RecordsetRef rows = server.Query(
      Join("Select FName,FPropID,FSQLColumnName,FSrcTable,FSrcField,FDisplayField,FItemClassID From "
           "t_ItemPropDesc",
           Trim(condition).empty() ? "" : Join(" Where ", condition), " Order By FItemClassID,FPropID"));
  auto descriptions = std::make_shared<Vector>();
  for (; !rows->Eof(); rows->MoveNext()) {
    auto description = std::make_shared<Dictionary>();
    for (int field = 0; field < rows->FieldCount(); ++field)
      description->Set(rows->Field(field).name, rows->Value(field));
    descriptions->Add(description);
  }
  return descriptions;
}

}  // namespace salerpt::middletier
