// An account set in the making: it appears whole or not at all.
#pragma once

#include <filesystem>
#include <string>

#include "suite/accountset/sqlite.h"

namespace salerpt::accountset {

// Writes to a temporary file beside the one asked for and gives it its name only when all is written. Gone
// before that (an error, no room), it takes the temporary file along. What a killed program could not take
// along goes with the next attempt at the same name.
class NewFile {
 public:
  // Raises RuntimeError from `source` when `target` exists or its folder cannot be written. The tables stand
  // ready and a transaction is open.
  NewFile(std::filesystem::path target, std::string source);
  ~NewFile();
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  [[nodiscard]] Database& Db() { return *database_; }

  // Ends the transaction, makes the indexes, and gives the file its name.
  void Publish();

 private:
  void RemoveLeftOvers() const;
  void RefuseExisting() const;

  std::filesystem::path target_;
  std::filesystem::path temporary_;
  std::string source_;
  std::unique_ptr<Database> database_;
};

}  // namespace salerpt::accountset
