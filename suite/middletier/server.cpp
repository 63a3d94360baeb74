#include "suite/middletier/server.h"

#include <limits>
#include <utility>

#include "suite/middletier/recordset_sink.h"

namespace salerpt::middletier {
namespace {

const accountset::AccountSet& Required(const std::shared_ptr<accountset::AccountSet>& account_set) {
  if (account_set) return *account_set;
  throw RuntimeError(error_number::kInvalidCall, "MiddleTier", "there is no account set to work on");
}

// The library reads the user's number as a 16-bit integer.
void CheckUser(std::int32_t user_id) {
  if (user_id >= 1 && user_id <= std::numeric_limits<std::int16_t>::max()) return;
  throw RuntimeError(error_number::kInvalidCall, "MiddleTier",
                     Join("user number ", user_id, " is not between 1 and 32767"));
}

// The connect string names the account set. A closing brace in the path would end it early; nobody opens the
// file by this text, so it is written as in a web address.
std::string ConnectString(const accountset::AccountSet& account_set) {
  return Join("Provider=SQLite;Data Source=", Replace(account_set.Path().string(), "}", "%7D"));
}

PropertyStore PropertiesOf(const accountset::AccountSet& account_set, const Login& login) {
  const std::string user_id = Join(login.user_id);
  const std::string connect = ConnectString(account_set);
  PropertyStore store;
  store.Add("PropsString",
            Join(PropertyText("UserName", login.user_name), PropertyText("UserID", user_id),
                 PropertyText("ConnectString", connect), PropertyText("LANGUAGE", login.language)));
  store.Add("UserName", login.user_name);
  store.Add("UserID", login.user_id);
  store.Add("ConnectString", connect);
  store.Add("LANGUAGE", login.language);
  return store;
}

}  // namespace

Server::Server(std::shared_ptr<accountset::AccountSet> account_set, Login login)
    : account_set_(std::move(account_set)),
      login_(std::move(login)),
      properties_(PropertiesOf(Required(account_set_), login_)),
      session_(account_set_->Connection()) {
  CheckUser(login_.user_id);
}

RecordsetRef Server::Query(std::string_view batch) {
  return Converse([batch](tsql::Session& session) {
    RecordsetSink sink;
    session.Execute(batch, sink);
    return sink.Take();
  });
}

void Server::Execute(std::string_view batch) {
  Converse([batch](tsql::Session& session) {
    session.Execute(batch);
    return true;
  });
}

}  // namespace salerpt::middletier
