#include "suite/middletier/log_line.h"

#include "runtime/mrpt.h"
#include "runtime/runtime.h"

namespace salerpt::middletier {

void WriteLogLine(Server& server, std::string_view key, std::int32_t kind, std::string_view text) {
  const Date now = Runtime::Current().GetPlatform().Now();
  server.Execute(Join("Insert Into t_Log(FDate,FUserID,FKey,FKind,FDescription) Values (",
                      QuoteSql(now.ToText()), ",", server.GetLogin().user_id, ",", QuoteSql(key), ",", kind,
                      ",", QuoteText(text), ")"));
}

}  // namespace salerpt::middletier
