// What the tests of the account set share: a folder that vanishes, and plain questions to a file.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace salerpt::accountset {

using Row = std::vector<std::string>;

// A folder of its own for each test.
class FolderTest : public ::testing::Test {
 protected:
  FolderTest();
  ~FolderTest() override;

  [[nodiscard]] std::filesystem::path Path(const std::string& name) const { return folder_ / name; }
  // Writes a file of these bytes and gives its path.
  std::filesystem::path WriteFile(const std::string& name, const std::string& bytes) const;
  // The same packed with gzip.
  std::filesystem::path WriteGzip(const std::string& name, const std::string& bytes) const;
  // Names of what lies in the folder, sorted.
  [[nodiscard]] std::vector<std::string> Files() const;

 private:
  std::filesystem::path folder_;
};

// The rows of a query on an account set; null is shown as "NULL".
std::vector<Row> Query(const std::filesystem::path& db, const std::string& sql);
// Its one cell as text, as a whole number.
std::string Cell(const std::filesystem::path& db, const std::string& sql);
std::int64_t Number(const std::filesystem::path& db, const std::string& sql);

// A number made of every cell of every table.
std::uint64_t ContentHash(const std::filesystem::path& db);

// The description of the RuntimeError that the call raises; a failed test when it raises none.
std::string ErrorOf(const std::function<void()>& call);

}  // namespace salerpt::accountset
