#include "support.h"

#include <sqlite3.h>
#include <unistd.h>
#include <zlib.h>

#include <algorithm>
#include <atomic>
#include <fstream>

#include "runtime/error.h"
#include "suite/accountset/accountset.h"

namespace salerpt::accountset {

FolderTest::FolderTest() {
  static std::atomic<int> count{0};
  folder_ = std::filesystem::temp_directory_path() /
            ("salerpt_accountset_" + std::to_string(getpid()) + "_" + std::to_string(++count));
  std::filesystem::create_directories(folder_);
}

FolderTest::~FolderTest() {
  std::error_code error;
  std::filesystem::remove_all(folder_, error);
}

std::filesystem::path FolderTest::WriteFile(const std::string& name, const std::string& bytes) const {
  std::ofstream(Path(name), std::ios::binary) << bytes;
  return Path(name);
}

std::filesystem::path FolderTest::WriteGzip(const std::string& name, const std::string& bytes) const {
  gzFile file = gzopen(Path(name).c_str(), "wb");
  gzwrite(file, bytes.data(), static_cast<unsigned>(bytes.size()));
  gzclose(file);
  return Path(name);
}

std::vector<std::string> FolderTest::Files() const {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder_))
    names.push_back(entry.path().filename());
  std::sort(names.begin(), names.end());
  return names;
}

std::vector<Row> Query(const std::filesystem::path& db, const std::string& sql) {
  const auto account_set = AccountSet::Open(db);
  std::vector<Row> rows;
  const auto collect = [](void* to, int count, char** cells, char**) {
    Row row;
    for (int i = 0; i < count; ++i) row.emplace_back(cells[i] != nullptr ? cells[i] : "NULL");
    static_cast<std::vector<Row>*>(to)->push_back(std::move(row));
    return 0;
  };
  char* message = nullptr;
  const int code = sqlite3_exec(account_set.Connection(), sql.c_str(), collect, &rows, &message);
  EXPECT_EQ(code, SQLITE_OK) << sql << ": " << (message != nullptr ? message : "");
  sqlite3_free(message);
  return rows;
}

std::string Cell(const std::filesystem::path& db, const std::string& sql) {
  const auto rows = Query(db, sql);
  if (rows.size() != 1 || rows.front().size() != 1) {
    ADD_FAILURE() << sql << ": " << rows.size() << " rows where one cell was expected";
    return "";
  }
  return rows.front().front();
}

std::int64_t Number(const std::filesystem::path& db, const std::string& sql) {
  return std::strtoll(Cell(db, sql).c_str(), nullptr, 10);
}

std::uint64_t ContentHash(const std::filesystem::path& db) {
  std::uint64_t hash = 14695981039346656037U;
  for (const auto& table : Query(db, "SELECT name FROM sqlite_master WHERE type='table' ORDER BY name")) {
    for (const auto& row : Query(db, "SELECT * FROM " + table.front())) {
      for (const auto& cell : row) {
        for (const char c : cell + '\n') hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211U;
      }
    }
  }
  return hash;
}

std::string ErrorOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const RuntimeError& error) {
    return error.Description();
  }
  ADD_FAILURE() << "no error was raised";
  return "";
}

}  // namespace salerpt::accountset
