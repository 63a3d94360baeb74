// Runs the *.test files of this folder, each as one test.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <algorithm>
#include <memory>

#include "suite/tsql/session.h"
#include "test_places.h"
#include "tests/suite/tsql/script.h"

namespace salerpt::tsql::test {
namespace {

class Collector final : public RowSink {
 public:
  void BeginRows(std::span<const Column> columns) override {
    columns_.assign(columns.begin(), columns.end());
    any = true;
    types.clear();
    for (const Column& column : columns) types += Letter(column.type);
  }
  void Row(std::span<const Value> cells) override {
    std::string row;
    for (std::size_t i = 0; i < cells.size(); ++i) {
      if (i > 0) row += '|';
      const std::string cell = cells[i].Format(columns_[i].type);
      row += cell.empty() ? "(empty)" : cell;
    }
    rows.push_back(row);
  }
  void EndRows() override {}

  bool any = false;
  std::string types;
  std::vector<std::string> rows;

 private:
  static char Letter(const ColumnType& type) {
    if (type.IsText()) return 'T';
    if (type.IsDate()) return 'D';
    if (type.IsScaled()) return 'N';
    return type.IsApproximate() ? 'R' : 'I';
  }

  std::vector<Column> columns_;
};

class World {
 public:
  World() {
    sqlite3_open(":memory:", &connection_);
    session_ = std::make_unique<Session>(connection_);
  }
  ~World() {
    session_.reset();
    sqlite3_close_v2(connection_);
  }
  World(const World&) = delete;
  World& operator=(const World&) = delete;

  sqlite3* Connection() { return connection_; }
  Session& GetSession() { return *session_; }

 private:
  sqlite3* connection_ = nullptr;
  std::unique_ptr<Session> session_;
};

std::string Joined(const std::vector<std::string>& rows) {
  std::string text;
  for (const std::string& row : rows) text += row + "\n";
  return text;
}

class LogicTest : public testing::TestWithParam<std::filesystem::path> {
 protected:
  void Run(const Entry& entry) {
    switch (entry.kind) {
      case Entry::Kind::kReset:
        world_ = std::make_unique<World>();
        break;
      case Entry::Kind::kSchema: {
        char* message = nullptr;
        const int result = sqlite3_exec(world_->Connection(), entry.sql.c_str(), nullptr, nullptr, &message);
        if (result != SQLITE_OK) Report(entry, message);
        sqlite3_free(message);
        break;
      }
      case Entry::Kind::kError:
        RunError(entry);
        break;
      default:
        RunQuery(entry);
        break;
    }
  }

 private:
  void Report(const Entry& entry, const std::string& what) const {
    ADD_FAILURE_AT(GetParam().c_str(), entry.line) << entry.sql << "\n" << what;
  }

  void RunQuery(const Entry& entry) {
    Collector rows;
    try {
      world_->GetSession().Execute(entry.sql, rows);
    } catch (const TsqlError& error) {
      Report(entry, "failed with " + std::to_string(error.Number()) + " in line " +
                        std::to_string(error.Line()) + ": " + error.Description());
      return;
    }
    if (entry.kind != Entry::Kind::kQuery) return;
    std::vector<std::string> expected = entry.rows;
    if (entry.sorted) {
      std::sort(expected.begin(), expected.end());
      std::sort(rows.rows.begin(), rows.rows.end());
    }
    // A batch may take a way on which no select stands.
    const bool nothing = !rows.any && expected.empty();
    if (!nothing && rows.types != entry.types)
      Report(entry, "has the types " + rows.types + ", not " + entry.types);
    if (rows.rows != expected) Report(entry, "gave\n" + Joined(rows.rows) + "and not\n" + Joined(expected));
  }

  void RunError(const Entry& entry) {
    try {
      world_->GetSession().Execute(entry.sql);
    } catch (const TsqlError& error) {
      if (error.Number() != entry.error_number || error.Description() != entry.error_text) {
        Report(entry, "failed with\n" + std::to_string(error.Number()) + " " + error.Description() +
                          "\nand not\n" + std::to_string(entry.error_number) + " " + entry.error_text);
      }
      if (entry.error_line > 0 && entry.error_line != error.Line()) {
        Report(entry, "failed in line " + std::to_string(error.Line()));
      }
      return;
    }
    Report(entry, "did not fail");
  }

  std::unique_ptr<World> world_ = std::make_unique<World>();
};

TEST_P(LogicTest, HoldsEntryByEntry) {
  const std::vector<Entry> entries = ReadScript(GetParam());
  ASSERT_FALSE(entries.empty());
  for (const Entry& entry : entries) Run(entry);
}

std::vector<std::filesystem::path> Scripts() {
  std::vector<std::filesystem::path> files;
  for (const auto& file :
       std::filesystem::directory_iterator(std::string(tests::kTestsFolder) + "/suite/tsql")) {
    if (file.path().extension() == ".test") files.push_back(file.path());
  }
  std::sort(files.begin(), files.end());
  return files;
}

INSTANTIATE_TEST_SUITE_P(Tsql, LogicTest, testing::ValuesIn(Scripts()), [](const auto& file) {
  std::string name = file.param.stem().string();
  std::replace_if(
      name.begin(), name.end(), [](char c) { return std::isalnum(static_cast<unsigned char>(c)) == 0; }, '_');
  return name;
});

TEST(LogicTests, TellEnoughQueriesAndFailures) {
  std::size_t queries = 0;
  std::size_t failures = 0;
  for (const std::filesystem::path& file : Scripts()) {
    for (const Entry& entry : ReadScript(file)) {
      queries += entry.kind == Entry::Kind::kQuery ? 1 : 0;
      failures += entry.kind == Entry::Kind::kError ? 1 : 0;
    }
  }
  RecordProperty("queries", static_cast<int>(queries));
  RecordProperty("failures", static_cast<int>(failures));
  EXPECT_GE(queries, 1000U);
  EXPECT_GE(failures, 200U);
}

}  // namespace
}  // namespace salerpt::tsql::test
