#include "suite/middletier/server.h"

#include <sqlite3.h>

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

// Changes that happen together: what is not committed is taken back.
class Transaction {
 public:
  // Waits for another program's changes to end, so that none can come in between.
  explicit Transaction(sqlite3* connection) : connection_(connection) { Run("BEGIN IMMEDIATE"); }
  ~Transaction() {
    // The engine itself takes everything back when disk or memory is full.
    if (sqlite3_get_autocommit(connection_) == 0) {
      sqlite3_exec(connection_, "ROLLBACK", nullptr, nullptr, nullptr);
    }
  }
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  void Commit() { Run("COMMIT"); }

 private:
  void Run(const char* statement) {
    const int code = sqlite3_exec(connection_, statement, nullptr, nullptr, nullptr);
    if (code == SQLITE_OK) return;
    throw RuntimeError(
        error_number::kInvalidCall, "MiddleTier",
        Join("the account set cannot be changed: ",
             code == SQLITE_BUSY ? "another program is writing to it" : sqlite3_errmsg(connection_)));
  }
  sqlite3* connection_;
};

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

Server::Server(std::shared_ptr<accountset::AccountSet> account_set, Login login, ListWindow window,
               Chooser chooser)
    : account_set_(std::move(account_set)),
      login_(std::move(login)),
      window_(std::move(window)),
      chooser_(chooser ? std::move(chooser) : Chooser(ChooseTheOnlyOne)),
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

void Server::ExecuteWhole(std::string_view batch) {
  Transaction transaction(account_set_->Connection());
  Execute(batch);
  transaction.Commit();
}

std::optional<std::int32_t> Server::Choose(const Candidates& candidates) const {
  const std::optional<std::int32_t> row = chooser_(candidates);
  if (!row) return row;
  Recordset& rows = *candidates.list.rows;
  if (*row < 0 || *row >= rows.RecordCount()) {
    throw RuntimeError(error_number::kSubscript, "MiddleTier",
                       Join("row ", *row, " was chosen from ", rows.RecordCount(), " rows, counted from 0"));
  }
  rows.MoveFirst();
  if (*row > 0) rows.Move(*row);
  return row;
}

}  // namespace salerpt::middletier
