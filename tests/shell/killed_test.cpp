// Programs that are killed while they write, and programs that share an account set: it stays whole.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <signal.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <thread>

#include "runtime/dictionary.h"
#include "runtime/vector.h"
#include "suite/accountset/accountset.h"
#include "suite/middletier/middletier.h"
#include "tests/shell/program_run.h"

namespace salerpt::shell {
namespace {

namespace fs = std::filesystem;
using std::chrono::microseconds;
using std::chrono::milliseconds;
using std::chrono::steady_clock;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

constexpr int kKills = 12;

// A folder of its own, and the program run in it.
class SharedFolder : public ::testing::Test {
 protected:
  SharedFolder() {
    std::string name = (fs::temp_directory_path() / "salerpt-killed-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder: " + name);
    folder_ = name;
  }
  ~SharedFolder() override { fs::remove_all(folder_); }

  // Starts `salerpt` with these words; what it says goes to .out and .err.
  [[nodiscard]] pid_t Start(std::vector<std::string> words) const {
    const pid_t child = ::fork();
    if (child != 0) return child;
    std::vector<char*> arguments = {const_cast<char*>("salerpt")};
    for (std::string& word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    const std::string out = (folder_ / ".out").string();
    const std::string err = (folder_ / ".err").string();
    if (::chdir(folder_.c_str()) != 0) ::_exit(126);
    ::dup2(::open("/dev/null", O_RDONLY), 0);
    ::dup2(::open(out.c_str(), O_CREAT | O_TRUNC | O_WRONLY, 0600), 1);
    ::dup2(::open(err.c_str(), O_CREAT | O_TRUNC | O_WRONLY, 0600), 2);
    ::execv(tests::Program(), arguments.data());
    ::_exit(127);
  }
  // The exit status, or 128 and the signal.
  static int StatusOf(pid_t child) {
    int state = 0;
    ::waitpid(child, &state, 0);
    return WIFEXITED(state) ? WEXITSTATUS(state) : 128 + WTERMSIG(state);
  }
  [[nodiscard]] int Run(const std::vector<std::string>& words) const { return StatusOf(Start(words)); }
  static void Kill(pid_t child, microseconds after) {
    std::this_thread::sleep_for(after);
    ::kill(child, SIGKILL);
    StatusOf(child);
  }

  [[nodiscard]] std::string Said(const char* stream) const { return Content(folder_ / stream); }
  // What lies in the folder beside the messages and what was there before.
  [[nodiscard]] std::vector<std::string> Files() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder_)) {
      const std::string name = entry.path().filename().string();
      if (!name.starts_with('.') && name != "shop.csv") names.push_back(name);
    }
    std::ranges::sort(names);
    return names;
  }
  // The first cell of a query on an account set, as text.
  [[nodiscard]] std::string Cell(const char* db, const std::string& sql) const {
    const auto set = accountset::AccountSet::Open(folder_ / db);
    sqlite3_stmt* statement = nullptr;
    EXPECT_EQ(sqlite3_prepare_v2(set.Connection(), sql.c_str(), -1, &statement, nullptr), SQLITE_OK) << sql;
    EXPECT_EQ(sqlite3_step(statement), SQLITE_ROW) << sql;
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, 0));
    std::string cell = text == nullptr ? "" : text;
    sqlite3_finalize(statement);
    return cell;
  }
  void ExpectSound(const char* db) const { EXPECT_EQ(Cell(db, "PRAGMA integrity_check"), "ok"); }

  // Kills a program that makes `t.db` at random moments of its life: the account set is there whole or not at
  // all, and the next run makes it, with nothing left beside it.
  void KillTheMaking(const std::vector<std::string>& words, const std::string& count) const {
    const auto begin = steady_clock::now();
    ASSERT_EQ(Run(words), 0) << Said(".err");
    const auto life = std::chrono::duration_cast<microseconds>(steady_clock::now() - begin);
    const std::string lines = Cell("t.db", count);
    std::mt19937 random(20240229);
    std::uniform_int_distribution<std::int64_t> moment(0, life.count());
    int broken_off = 0;
    for (int i = 0; i < kKills; ++i) {
      fs::remove(folder_ / "t.db");
      Kill(Start(words), microseconds(moment(random)));
      if (fs::exists(folder_ / "t.db")) {
        ExpectSound("t.db");
        EXPECT_EQ(Cell("t.db", count), lines);
        continue;
      }
      ++broken_off;
      if (i % 3 != 0) continue;
      ASSERT_EQ(Run(words), 0) << Said(".err");
      EXPECT_EQ(Cell("t.db", count), lines);
      EXPECT_THAT(Files(), ElementsAre("t.db"));
    }
    EXPECT_GT(broken_off, 0);
    fs::remove(folder_ / "t.db");
    ASSERT_EQ(Run(words), 0) << Said(".err");
    EXPECT_THAT(Files(), ElementsAre("t.db"));
  }

  fs::path folder_;
};

// --- Killed

using Killed = SharedFolder;

TEST_F(Killed, InitLeavesTheAccountSetWholeOrNone) {
  KillTheMaking({"init", "t.db", "--lines", "2000"}, "SELECT count(*) FROM ICSaleEntry");
}

TEST_F(Killed, ImportLeavesTheAccountSetWholeOrNone) {
  std::ofstream csv(folder_ / "shop.csv");
  csv << "InvoiceNo,StockCode,Description,Quantity,InvoiceDate,UnitPrice,CustomerID,Country\n";
  for (int i = 0; i < 4000; ++i) {
    csv << 536365 + i / 4 << ',' << 22000 + i % 300 << ",LANTERN,6,2010-12-01 08:26,2.55," << 17850 + i % 50
        << ",United Kingdom\n";
  }
  csv.close();
  KillTheMaking({"import", "t.db", "shop.csv"}, "SELECT count(*) FROM ICSaleEntry");
}

TEST_F(Killed, TheNextInitLeavesWhatAnotherProgramIsWritingAndForeignFiles) {
  const pid_t other = Start({"init", "t.db", "--lines", "5000000"});
  for (int i = 0; i < 1000 && (Files().empty() || fs::file_size(folder_ / Files().front()) == 0); ++i) {
    std::this_thread::sleep_for(milliseconds(5));
  }
  ASSERT_EQ(Files().size(), 1U);
  const std::string others = Files().front();
  for (const char* name : {"t.db.bak.tmp", "t.db.tmp", "t.db..tmp", "other.db.12.tmp"}) {
    std::ofstream(folder_ / name) << "mine";
  }
  EXPECT_EQ(Run({"init", "t.db", "--lines", "200"}), 0) << Said(".err");
  EXPECT_THAT(Files(),
              ElementsAre("other.db.12.tmp", "t.db", "t.db..tmp", others, "t.db.bak.tmp", "t.db.tmp"));
  Kill(other, microseconds(0));
}

// Saves a plan of 40 rows under one name, first with one value in every row, then with another, for ever.
// Tells by a byte that the first is saved.
[[noreturn]] void SavePlans(const fs::path& db, int saved) {
  Runtime runtime;
  const auto set = std::make_shared<accountset::AccountSet>(accountset::AccountSet::Open(db));
  middletier::RegisterMiddleTier(runtime, set, {});
  const ObjectRef profile = CreateObject("ORVMCaculateRpt.Profile");
  for (int round = 0;; ++round) {
    const auto rows = std::make_shared<Vector>();
    for (int i = 0; i < 40; ++i) {
      const auto row = std::make_shared<Dictionary>();
      row->Set("RptID", 166);
      row->Set("Plan", "month");
      row->Set("Key", "Key" + std::to_string(i));
      row->Set("Value", std::to_string(round % 2));
      rows->Add(row);
    }
    Call(profile, "SaveProfile", "", rows);
    if (round == 0 && ::write(saved, "s", 1) != 1) ::_exit(1);
  }
}

TEST_F(Killed, APlanSaveLeavesTheOldPlanOrTheNew) {
  ASSERT_EQ(Run({"init", "t.db", "--lines", "200"}), 0);
  std::mt19937 random(20240229);
  std::uniform_int_distribution<int> moment(0, 20'000);
  for (int i = 0; i < kKills; ++i) {
    int saved[2];
    ASSERT_EQ(::pipe(saved), 0);
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) SavePlans(folder_ / "t.db", saved[1]);
    char byte = 0;
    ::close(saved[1]);
    EXPECT_EQ(::read(saved[0], &byte, 1), 1);
    ::close(saved[0]);
    Kill(child, microseconds(moment(random)));
    ExpectSound("t.db");
    EXPECT_EQ(Cell("t.db", "SELECT group_concat(FPlan||FStatus) FROM t_RptPlan"), "month1");
    EXPECT_EQ(
        Cell("t.db", "SELECT count(*)||' rows, '||count(DISTINCT FValue)||' values' FROM t_RptPlanValue"),
        "40 rows, 1 values");
  }
  // What a killed program has left is taken back by the next one.
  EXPECT_EQ(Run({"show", "Rpt134", "--db", "t.db", "--save-plan", "mine"}), 0) << Said(".err");
  EXPECT_THAT(Files(), ElementsAre("t.db"));
}

// --- Together

// Another program in the midst of its changes: `begin` opens its transaction, which it gives up after a
// while.
class OtherProgram {
 public:
  OtherProgram(const fs::path& db, const char* begin) : set_(accountset::AccountSet::Open(db)) {
    Do(begin);
    Do("INSERT INTO t_Log(FDate,FUserID,FKey,FKind) VALUES('',1,'other',3)");
  }
  void Commit() { Do("COMMIT"); }

 private:
  void Do(const char* sql) {
    EXPECT_EQ(sqlite3_exec(set_.Connection(), sql, nullptr, nullptr, nullptr), SQLITE_OK) << sql;
  }
  accountset::AccountSet set_;
};

class Together : public SharedFolder {
 protected:
  Together() { EXPECT_EQ(Run({"init", "t.db", "--lines", "500"}), 0); }
  [[nodiscard]] static std::vector<std::string> Show(const std::vector<std::string>& more = {}) {
    std::vector<std::string> words = {
        "show", "Rpt134", "--db", "t.db", "BDate=2023-01-01", "EDate=2025-12-31", "--format", "csv"};
    words.insert(words.end(), more.begin(), more.end());
    return words;
  }
};

// Nobody else may read while such a transaction is open, as while a commit is written.
constexpr const char* kAlone = "BEGIN EXCLUSIVE";
// Others may read.
constexpr const char* kWriting = "BEGIN IMMEDIATE";

TEST_F(Together, AReportWaitsForTheChangesOfAnotherProgram) {
  ASSERT_EQ(Run(Show()), 0);
  const std::string rows = Said(".out");
  OtherProgram other(folder_ / "t.db", kAlone);
  const pid_t child = Start(Show());
  std::this_thread::sleep_for(milliseconds(600));
  int state = 0;
  EXPECT_EQ(::waitpid(child, &state, WNOHANG), 0) << "it did not wait: " << Said(".err");
  other.Commit();
  EXPECT_EQ(StatusOf(child), 0) << Said(".err");
  EXPECT_EQ(Said(".out"), rows);
  EXPECT_EQ(Said(".err"), "");
}

TEST_F(Together, APlanIsSavedBehindTheChangesOfAnotherProgram) {
  OtherProgram other(folder_ / "t.db", kWriting);
  const pid_t child = Start(Show({"--save-plan", "mine"}));
  std::this_thread::sleep_for(milliseconds(600));
  other.Commit();
  EXPECT_EQ(StatusOf(child), 0) << Said(".err");
  EXPECT_EQ(Said(".err"), "");
  EXPECT_EQ(Cell("t.db", "SELECT group_concat(FPlan) FROM t_RptPlan"), "mine");
}

TEST_F(Together, AReportTellsThatAnotherProgramDoesNotLetGo) {
  OtherProgram other(folder_ / "t.db", kAlone);
  EXPECT_EQ(Run(Show()), 2);
  EXPECT_EQ(Said(".out"), "");
  EXPECT_EQ(Said(".err"), "salerpt: t.db: another program is writing to it\n");
  other.Commit();
}

TEST_F(Together, APlanSaveTellsThatAnotherProgramDoesNotLetGo) {
  OtherProgram other(folder_ / "t.db", kWriting);
  EXPECT_EQ(Run(Show({"--save-plan", "mine"})), 2);
  EXPECT_EQ(Said(".out"), "");
  EXPECT_EQ(
      Said(".err"),
      "salerpt: --save-plan mine: the account set cannot be changed: another program is writing to it\n");
  other.Commit();
  EXPECT_EQ(Cell("t.db", "SELECT count(*) FROM t_RptPlan"), "0");
}

TEST_F(Together, ReportsAndPlanSavesRunSideBySide) {
  std::vector<pid_t> children;
  for (int i = 0; i < 6; ++i) {
    children.push_back(Start(i % 2 == 0 ? Show() : Show({"--save-plan", "plan" + std::to_string(i)})));
  }
  for (const pid_t child : children) EXPECT_EQ(StatusOf(child), 0) << Said(".err");
  ExpectSound("t.db");
  EXPECT_EQ(Cell("t.db", "SELECT count(*) FROM t_RptPlan"), "3");
}

}  // namespace
}  // namespace salerpt::shell
