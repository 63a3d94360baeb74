#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <string>

#include "suite/accountset/accountset.h"
#include "support.h"

namespace salerpt::accountset {
namespace {

class OpenTest : public FolderTest {
 protected:
  std::filesystem::path Made() {
    Create(Path("a.db"), {1, 200});
    return Path("a.db");
  }
};

TEST_F(OpenTest, GivesAConnectionToReadAndWrite) {
  const auto db = Made();
  {
    const auto account_set = AccountSet::Open(db);
    EXPECT_EQ(account_set.Path(), db);
    ASSERT_EQ(sqlite3_exec(account_set.Connection(),
                           "INSERT INTO t_Log(FDate,FUserID,FKey,FKind) VALUES('',1,'k',3)", nullptr, nullptr,
                           nullptr),
              SQLITE_OK);
  }
  EXPECT_EQ(Number(db, "SELECT count(*) FROM t_Log WHERE FKey='k'"), 1);
}

TEST_F(OpenTest, KeepsTheConnectionWhenItIsMoved) {
  auto first = AccountSet::Open(Made());
  sqlite3* connection = first.Connection();
  const AccountSet second = std::move(first);
  EXPECT_EQ(second.Connection(), connection);
}

TEST_F(OpenTest, TellsOfAMissingFileAndMakesNone) {
  const auto db = Path("none.db");
  EXPECT_EQ(ErrorOf([&] { AccountSet::Open(db); }), db.string() + ": no such account set");
  EXPECT_TRUE(Files().empty());
}

TEST_F(OpenTest, RefusesAFolder) {
  const auto db = Path("folder");
  std::filesystem::create_directory(db);
  EXPECT_EQ(ErrorOf([&] { AccountSet::Open(db); }), db.string() + ": it is no account set (not a file)");
}

TEST_F(OpenTest, RefusesAFileThatIsNoDatabase) {
  const auto db = WriteFile("text.db", std::string(5000, 'x'));
  EXPECT_EQ(ErrorOf([&] { AccountSet::Open(db); }),
            db.string() + ": it is no account set (not a database file)");
}

TEST_F(OpenTest, RefusesADatabaseOfAnotherProgram) {
  const auto db = Path("other.db");
  sqlite3* connection = nullptr;
  ASSERT_EQ(sqlite3_open(db.c_str(), &connection), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(connection, "CREATE TABLE t_ICItem(a)", nullptr, nullptr, nullptr), SQLITE_OK);
  sqlite3_close(connection);
  EXPECT_EQ(ErrorOf([&] { AccountSet::Open(db); }),
            db.string() + ": it is no account set (a database of another program)");
}

TEST_F(OpenTest, RefusesAnotherVersion) {
  const auto db = Made();
  sqlite3* connection = nullptr;
  ASSERT_EQ(sqlite3_open(db.c_str(), &connection), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(connection, "PRAGMA user_version=77", nullptr, nullptr, nullptr), SQLITE_OK);
  sqlite3_close(connection);
  EXPECT_EQ(ErrorOf([&] { AccountSet::Open(db); }),
            db.string() + ": it is an account set of version 77, version 2 was expected");
}

}  // namespace
}  // namespace salerpt::accountset
