#include "tests/suite/middletier/generated_set.h"

#include <sqlite3.h>

#include <filesystem>

namespace salerpt::middletier {

GeneratedSet::GeneratedSet(std::uint64_t seed, std::int64_t lines) {
  const std::filesystem::path path = folder_.Path() / "generated.db";
  accountset::Create(path, {.seed = seed, .lines = lines});
  account_set_ = std::make_shared<accountset::AccountSet>(accountset::AccountSet::Open(path));
}

std::vector<double> GeneratedSet::Numbers(const std::string& sql) const {
  sqlite3_stmt* statement = nullptr;
  EXPECT_EQ(sqlite3_prepare_v2(account_set_->Connection(), sql.c_str(), -1, &statement, nullptr), SQLITE_OK)
      << sql;
  EXPECT_EQ(sqlite3_step(statement), SQLITE_ROW) << sql;
  std::vector<double> numbers;
  for (int i = 0; i < sqlite3_column_count(statement); ++i)
    numbers.push_back(sqlite3_column_double(statement, i));
  sqlite3_finalize(statement);
  return numbers;
}

void GeneratedSet::Run(const std::string& sql) const {
  EXPECT_EQ(sqlite3_exec(account_set_->Connection(), sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
      << sql;
}

}  // namespace salerpt::middletier
