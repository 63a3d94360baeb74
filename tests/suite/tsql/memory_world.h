// An account set in memory with a session on it, and a sink that keeps what it is given.
#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <memory>
#include <string>
#include <vector>

#include "suite/tsql/session.h"

namespace salerpt::tsql::test {

// Keeps the rows of all selects as text, cells parted by |.
class KeptRows final : public RowSink {
 public:
  void BeginRows(std::span<const Column> given) override {
    columns.assign(given.begin(), given.end());
    ++selects;
  }
  void Row(std::span<const Value> cells) override {
    std::string row;
    for (std::size_t i = 0; i < cells.size(); ++i)
      row.append(i == 0 ? "" : "|").append(cells[i].Format(columns[i].type));
    rows.push_back(row);
  }
  void EndRows() override { ++ended; }

  std::vector<Column> columns;
  std::vector<std::string> rows;
  int selects = 0;
  int ended = 0;
};

class MemoryWorld {
 public:
  explicit MemoryWorld(const char* schema = "") {
    EXPECT_EQ(sqlite3_open(":memory:", &connection_), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(connection_, schema, nullptr, nullptr, nullptr), SQLITE_OK)
        << sqlite3_errmsg(connection_);
    session_ = std::make_unique<Session>(connection_);
  }
  ~MemoryWorld() {
    session_.reset();
    sqlite3_close_v2(connection_);
  }
  MemoryWorld(const MemoryWorld&) = delete;
  MemoryWorld& operator=(const MemoryWorld&) = delete;

  Session& GetSession() { return *session_; }
  sqlite3* Connection() { return connection_; }

  std::vector<std::string> Rows(std::string_view batch) {
    KeptRows sink;
    session_->Execute(batch, sink);
    return sink.rows;
  }
  // "number@line text" of the failure, empty when there is none.
  std::string Failure(std::string_view batch) {
    try {
      session_->Execute(batch);
    } catch (const TsqlError& error) {
      return std::to_string(error.Number()) + "@" + std::to_string(error.Line()) + " " + error.Description();
    }
    return {};
  }

 private:
  sqlite3* connection_ = nullptr;
  std::unique_ptr<Session> session_;
};

}  // namespace salerpt::tsql::test
