#include "suite/middletier/sale_batch.h"

#include <string>
#include <string_view>

#include "suite/middletier/item_columns.h"
#include "suite/middletier/recordset_sink.h"

namespace salerpt::middletier {
namespace {

// Empty where the request does not have the key.
std::string PartOf(const Dictionary& request, std::string_view key) {
  return Replace(request.Get(key).TextOrEmpty(), "##ITEMFILTER##", "");
}

void RunPart(tsql::Session& session, const std::string& batch) {
  if (!Trim(batch).empty()) session.Execute(batch);
}

// What stands behind the grouping clause: updates of the rows in #DATA.
std::string UpdatesOf(const std::string& group_by) {
  const std::size_t clause_end = group_by.find(kCrLf);
  return clause_end == std::string::npos ? "" : group_by.substr(clause_end);
}

RecordsetRef RunParts(tsql::Session& session, const Dictionary& request, const FillRows& fill) {
  const std::string group_by = PartOf(request, "GROUPBY");
  session.Execute(Join(PartOf(request, "SELECT"), kCrLf, group_by));
  const bool sorted = fill(session, "#TemData");
  const bool filled = sorted || fill(session, "#DATA");
  RunPart(session, PartOf(request, "Append"));
  if (!filled) fill(session, "#DATA");
  // Where an order is asked for, #DATA is filled only now: the updates behind the clause found it empty.
  if (sorted) RunPart(session, UpdatesOf(group_by));
  RunPart(session, PartOf(request, "UpdateAppend"));
  RecordsetSink sink;
  session.Execute(PartOf(request, "EndSel"), sink);
  if (!sink.HasRows()) {
    throw RuntimeError(error_number::kInvalidCall, "",
                       "\"EndSel\" of the request holds no select that gives rows");
  }
  return sink.Take();
}

}  // namespace

RecordsetRef RunSaleBatch(Server& server, const Dictionary& request, const FillRows& fill) {
  if (Trim(PartOf(request, "SELECT")).empty()) {
    throw RuntimeError(error_number::kInvalidCall, "",
                       "the request has no \"SELECT\"; the text of a batch was expected");
  }
  return server.Converse([&](tsql::Session& session) { return RunParts(session, request, fill); });
}

RecordsetRef RunSaleBatch(Server& server, const Dictionary& request) {
  return RunSaleBatch(server, request, [](tsql::Session& session, std::string_view table) {
    return FillItemColumns(session, table);
  });
}

}  // namespace salerpt::middletier
