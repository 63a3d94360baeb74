// Any text as a batch of the T-SQL engine: no batch may crash it, hang it, leave the connection in a
// transaction, or keep the session from running the next one.
#include <sqlite3.h>

#include "fuzz/require.h"
#include "suite/tsql/session.h"

namespace {

using salerpt::fuzz::Require;

constexpr const char* kSchema =
    "CREATE TABLE Item(FItemID INTEGER PRIMARY KEY, FNumber VARCHAR(20) COLLATE NOCASE, FQty DECIMAL(23,10), "
    "FRate FLOAT,"
    " FPrice MONEY, FDate DATETIME, FFlag BIT, FSort SMALLINT);"
    "INSERT INTO Item VALUES(1,'01.01',1.5,1,2,'2024-01-01 "
    "00:00:00',0,1),(2,'01.02',2,NULL,3,NULL,1,2),(3,NULL,NULL,2,1,"
    "'2024-02-29 12:00:00',0,3);";

class Rows final : public salerpt::tsql::RowSink {
 public:
  void BeginRows(std::span<const salerpt::tsql::Column> columns) override { columns_ = columns; }
  void Row(std::span<const salerpt::tsql::Value> cells) override {
    for (std::size_t i = 0; i < cells.size(); ++i) size += cells[i].Format(columns_[i].type).size();
  }
  void EndRows() override {}
  std::size_t size = 0;

 private:
  std::span<const salerpt::tsql::Column> columns_;
};

int StopLongStatement(void* rounds) {
  return ++*static_cast<int*>(rounds) > 200 ? 1 : 0;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  sqlite3* connection = nullptr;
  if (sqlite3_open(":memory:", &connection) != SQLITE_OK) return 0;
  sqlite3_exec(connection, kSchema, nullptr, nullptr, nullptr);
  sqlite3_limit(connection, SQLITE_LIMIT_LENGTH, 1'000'000);
  int rounds = 0;
  sqlite3_progress_handler(connection, 1000, &StopLongStatement, &rounds);
  {
    salerpt::tsql::Session session(connection);
    session.SetStatementLimit(100);
    Rows rows;
    try {
      session.Execute(salerpt::fuzz::AsText(data, size), rows);
    } catch (const salerpt::tsql::TsqlError& error) {
      Require(!error.Description().empty());
    }
    Require(sqlite3_get_autocommit(connection) != 0);
    rounds = -1'000'000;
    session.DropTemporaryTables();
    Rows answer;
    session.Execute("DECLARE @a int SET @a = 41 SELECT @a + 1 AS FAnswer INTO #t SELECT FAnswer FROM #t",
                    answer);
    Require(answer.size == 2);
    session.DropTemporaryTables();
  }
  Require(sqlite3_close(connection) == SQLITE_OK);
  return 0;
}
