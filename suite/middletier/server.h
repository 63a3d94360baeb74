// What the objects of the middle tier share: the connection to the account set and the login.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

#include "runtime/recordset.h"
#include "suite/middletier/middletier.h"
#include "suite/middletier/property_store.h"
#include "suite/tsql/session.h"

namespace salerpt::middletier {

// One engine session on an account set, for one login. The objects of the middle tier keep nothing of their
// own: they are made, called and dropped around each call, and all work on this.
class Server {
 public:
  // Raises invalid-call where there is no account set or the login cannot be (see middletier.h).
  Server(std::shared_ptr<accountset::AccountSet> account_set, Login login, ListWindow window = {},
         Chooser chooser = {});

  // Runs one batch; gives the rows of its last select. Raises the engine's error.
  RecordsetRef Query(std::string_view batch);
  // Runs one batch whose rows nobody reads. Raises the engine's error.
  void Execute(std::string_view batch);
  // The same, whole or not at all: where a statement fails, or the program dies, none of them has happened.
  // Raises the engine's error, and access to the account set being refused.
  void ExecuteWhole(std::string_view batch);

  // Holds one conversation: `talk` is given the session, runs its batches and gives a result, which is handed
  // on. Temporary tables live from batch to batch within the conversation and are gone when it ends, well or
  // not.
  template <typename Talk>
  auto Converse(const Talk& talk) {
    try {
      auto result = talk(session_);
      session_.DropTemporaryTables();
      return result;
    } catch (...) {
      session_.DropTemporaryTables();
      throw;
    }
  }

  // Opens a window of the suite with a list.
  void Show(const ShownList& list) const {
    if (window_) window_(list);
  }
  // Asks the user for a row of a list, which becomes the current one: its number, from 0, or nothing where he
  // cancels. Raises subscript-out-of-range for a row that the list does not have.
  [[nodiscard]] std::optional<std::int32_t> Choose(const Candidates& candidates) const;

  [[nodiscard]] const Login& GetLogin() const { return login_; }
  [[nodiscard]] PropertyStore& Properties() { return properties_; }

 private:
  std::shared_ptr<accountset::AccountSet> account_set_;
  Login login_;
  ListWindow window_;
  Chooser chooser_;
  PropertyStore properties_;
  tsql::Session session_;
};
using ServerRef = std::shared_ptr<Server>;

}  // namespace salerpt::middletier
