#include "suite/middletier/account_switches.h"

#include "runtime/text.h"

namespace salerpt::middletier {

bool LongCodesInUse(Server& server) {
  const RecordsetRef rows =
      server.Query("Select FValue From t_SystemProfile Where FCategory='IC' And FKey='UseShortNumber'");
  return rows->RecordCount() > 0 && Val(rows->Value(0).TextOrEmpty()) == 0;
}

bool LongCodesInUse(Server& server, const Dictionary& filter) {
  if (filter.Lookup("bLongNumber")) return filter.Get("bLongNumber").ToBoolean();
  return LongCodesInUse(server);
}

bool DataRightInForce(Server& server, std::int32_t user, RightKind kind) {
  const RecordsetRef rows =
      server.Query(Join("Select FUsed From t_DataRight Where FUsed=1 And FUserID=", user,
                        " And FKind=", static_cast<std::int32_t>(kind)));
  return rows->RecordCount() > 0;
}

}  // namespace salerpt::middletier
