// The account set: one SQLite file that stands in for the database of the suite.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <iosfwd>
#include <memory>
#include <string>

struct sqlite3;

namespace salerpt::accountset {

// The mark in the file's header (SQLite's application_id) by which an account set is told from any other
// file, and the version of the tables in it (user_version). An older or newer version is refused, not
// migrated.
inline constexpr std::int32_t kApplicationId = 0x53524153;  // "SRAS"
inline constexpr std::int32_t kSchemaVersion = 2;

// The user that a session logs in with when nothing else is said; data rights list this number.
inline constexpr std::int32_t kLoginUser = 16394;

// Told from time to time during long work: how much is done, out of how much. The unit is the work's own
// (bytes of the CSV file as it lies on the disk, lines made). `total` is never 0 and `done` never above it.
using Progress = std::function<void(std::int64_t done, std::int64_t total)>;

struct GenerateOptions {
  // Two account sets made with one seed and one number of lines hold the same rows, to the last cell.
  std::uint64_t seed = 1;
  // About how many bill lines the company has in all: the entry rows of orders, outbound bills, invoices,
  // purchases, receipts, issues and all other bills together, a production task counting as one line. 100 to
  // 20,000,000. The tables come within a tenth of it, or within 400 lines where that is more. The few lines
  // of the sales contracts are not counted.
  std::int64_t lines = 10000;
};

// Makes a new account set with a made-up company: master data in class trees, and bills of 30 periods from
// January 2023 on.
// Refuses to overwrite. The file appears whole or not at all: it is written under a temporary name beside
// `db`. Raises RuntimeError (source "AccountSet:Create") when `db` exists, `lines` is out of range, or the
// file cannot be written (no such folder, no right, no room), with the file and the reason in the
// description.
void Create(const std::filesystem::path& db, const GenerateOptions& options, const Progress& progress = {});

// What an import did.
struct ImportReport {
  std::int64_t lines = 0;      // invoice lines loaded
  std::int64_t rejected = 0;   // lines refused, each told on `rejects`
  std::int64_t bills = 0;      // invoices made; as many outbound bills
  std::int64_t red_bills = 0;  // of these, returns
  std::int64_t items = 0;      // items, classes not counted
  std::int64_t customers = 0;  // customers, countries not counted
};

// Makes a new account set from the invoice lines of a shop: a CSV file (RFC 4180, UTF-8 with or without a
// byte order mark), plain or packed with gzip, with the columns
//   InvoiceNo,StockCode,Description,Quantity,InvoiceDate,UnitPrice,CustomerID,Country
// Each invoice also makes the outbound bill that it settles: the same lines, hooked to each other.
// A line that cannot be used is left out, counted, and told on `rejects` as one line of text with the file,
// the line number (of its first line, header = 1), the reason and the value. Raises RuntimeError (source
// "AccountSet:Import") when `db` exists, `csv` cannot be read, is damaged, has another header, holds no
// usable line, or the account set cannot be written. Then no file is left behind.
ImportReport Import(const std::filesystem::path& db, const std::filesystem::path& csv, std::ostream& rejects,
                    const Progress& progress = {});

// An open account set. Owns the connection; it closes with the object.
class AccountSet {
 public:
  // Opens an existing account set to read and write; another process may hold it open too (a write waits five
  // seconds for its lock). Raises RuntimeError (source "AccountSet:Open") when the file is missing, cannot be
  // read, is no database, is no account set or one of another version.
  static AccountSet Open(const std::filesystem::path& db);

  // The connection, valid as long as this object (moving the object keeps it).
  [[nodiscard]] sqlite3* Connection() const { return connection_.get(); }
  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }

 private:
  struct Close {
    void operator()(sqlite3* connection) const noexcept;
  };
  AccountSet(std::filesystem::path path, sqlite3* connection);

  std::filesystem::path path_;
  std::unique_ptr<sqlite3, Close> connection_;
};

}  // namespace salerpt::accountset
