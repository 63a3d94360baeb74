// The program as it is used: one run of the built binary for each behaviour that shows outside of it.
#include <gmock/gmock.h>
#include <pty.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <thread>

#include "tests/shell/program_run.h"

namespace salerpt::shell {
namespace {

namespace fs = std::filesystem;
using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

// A folder with a small account set; gone at the end.
class Program : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    folder_ = fs::temp_directory_path() / ("salerpt-program-" + std::to_string(::getpid()));
    fs::create_directory(folder_);
    ASSERT_EQ(Run("init t.db --seed 7 --lines 2000").status, 0);
  }
  static void TearDownTestSuite() { fs::remove_all(folder_); }

  // Runs `salerpt` with these words, as a shell would, in the folder.
  static Outcome Run(const std::string& words, const std::string& before = "") {
    return RunProgramIn(folder_, words, before);
  }
  static void Write(const std::string& name, const std::string& text) {
    std::ofstream(folder_ / name) << text;
  }

  static void ExpectError(const Outcome& outcome, int status, const std::string& message) {
    EXPECT_EQ(outcome.status, status);
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(outcome.err, StartsWith("salerpt: " + message));
    EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
  }

  static fs::path folder_;
};
fs::path Program::folder_;

const std::string kProgram = tests::Program();
constexpr const char* kYears = "BDate=2023-01-01 EDate=2025-12-31";

TEST_F(Program, TellsItsCommandsAndTheHelpOfEach) {
  const Outcome all = Run("--help");
  EXPECT_EQ(all.status, 0);
  EXPECT_EQ(all.err, "");
  for (const char* command : {"init", "import", "reports", "show", "drill", "sql", "request"}) {
    EXPECT_THAT(all.out, HasSubstr(command));
    const Outcome help = Run(std::string(command) + " --help");
    EXPECT_EQ(help.status, 0);
    EXPECT_THAT(help.out, HasSubstr("Usage: salerpt " + std::string(command)));
  }
}

TEST_F(Program, TellsThatRowsAreCountedFromZero) {
  EXPECT_THAT(Run("drill --help").out, HasSubstr("counted from 0"));
}

TEST_F(Program, RefusesWrongUsage) {
  ExpectError(Run(""), 2, "A subcommand is required");
  ExpectError(Run("shw"), 2, "unknown command \"shw\"; did you mean show?; known: init, import, reports,");
  ExpectError(Run("show"), 2, "CLASS is required");
  ExpectError(Run("show Rpt128 --colour"), 2, "The following argument was not expected: --colour");
  ExpectError(Run("init x.db --lines many"), 2, "Could not convert: --lines = many");
}

TEST_F(Program, ListsAll25Classes) {
  const Outcome outcome = Run("reports");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(std::count(outcome.out.begin(), outcome.out.end(), '\n'), 27);
  EXPECT_THAT(outcome.out,
              HasSubstr("\nRpt128  | 销售出库汇总表             | 166         | frmFirter128  | Rpt129\n"));
}

TEST_F(Program, ShowsAReportInEveryFormat) {
  const std::string words =
      std::string("show Rpt128 ") + kYears + " GroupBy=1 SumMode=2 BLevel=1 ELevel=1 OnlyShowSum=0";
  const Outcome table = Run(words);
  EXPECT_EQ(table.status, 0);
  EXPECT_EQ(table.err, "");
  EXPECT_THAT(table.out, AllOf(StartsWith("销售出库汇总表\n起始日期：2023-01-01\n截止日期：2025-12-31\n"),
                               HasSubstr("汇总依据：1--1级客户类别\n"), HasSubstr("\n* | 合计 ")));
  EXPECT_THAT(Run(words + " --format csv").out, HasSubstr("\n1级客户类别,产品代码,"));
  EXPECT_THAT(Run(words + " --format html").out,
              HasSubstr("<tr data-FSumSort=\"101\" class=\"total grand\"><td>合计</td>"));
  EXPECT_THAT(Run(words + " --format xlsx").out, StartsWith("PK"));
}

TEST_F(Program, ShowsDetailsThatAddUpToTheGrandTotal) {
  const Outcome shown =
      Run(std::string("show Rpt128 ") + kYears + " CheckState=2 GroupBy=0 OnlyShowSum=0 --format json");
  ASSERT_EQ(shown.status, 0) << shown.err;
  const auto rows = nlohmann::json::parse(shown.out).at("rows");
  ASSERT_FALSE(rows.empty());
  EXPECT_EQ(rows.back().at("FSumSort"), 101);
  double sum = 0;
  for (const auto& row : rows) {
    if (row.at("FSumSort") == 0) sum += row.at("FOutQty").get<double>();
  }
  EXPECT_NEAR(sum, rows.back().at("FOutQty").get<double>(), 1e-6);
}

TEST_F(Program, ShowsThePeriodReport) {
  const Outcome outcome = Run("show Rpt147 BYear=2024 BPeriod=3 EYear=2024 EPeriod=4 --format csv");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_THAT(outcome.out, StartsWith("销售收入明细表\n起始期间：2024年 第3期\n截止期间：2024年 第4期\n"));
  EXPECT_THAT(outcome.out, AllOf(HasSubstr("2024.3,,,本期合计:,"), HasSubstr("2024.4,,,本期合计:,")));
}

TEST_F(Program, RefusesAnUnknownClassKeyOrFormat) {
  ExpectError(Run("show Rpt127"), 2,
              "unknown report class \"Rpt127\"; did you mean Rpt126?; known: Rpt126, Rpt128,");
  ExpectError(Run("show Rpt128 BDat=2024-01-01"), 2,
              "BDat=2024-01-01: frmFirter128 has no key \"BDat\"; did you mean BDate?");
  ExpectError(Run("show Rpt128 --format pdf"), 2, "unknown format \"pdf\"");
}

TEST_F(Program, RefusesAValueThatIsNone) {
  ExpectError(Run("show Rpt128 BDate=2024-13-01"), 2, "BDate=2024-13-01: a date YYYY-MM-DD was expected");
}

TEST_F(Program, TakesConditionsFromAFileAndLetsTheCommandLineWin) {
  Write("f.json", R"({"BDate": "2023-01-01", "EDate": "2023-06-30", "GroupBy": 0})");
  EXPECT_THAT(Run("show Rpt128 --filter f.json EDate=2023-12-31").out,
              HasSubstr("起始日期：2023-01-01\n截止日期：2023-12-31\n"));
}

TEST_F(Program, TellsWhereAFilterFileIsWrong) {
  Write("f.json", R"({"BDate": "2023-01-01",
 "GroupBy": "yes"})");
  ExpectError(Run("show Rpt128 --filter f.json"), 2,
              "f.json: /GroupBy: \"yes\": a whole number was expected\n");
  Write("f.json", "{\n \"BDate\" 1}");
  ExpectError(Run("show Rpt128 --filter f.json"), 2, "f.json: line 2, column 10: this is no JSON\n");
}

TEST_F(Program, RefusesWhatIsNoAccountSet) {
  Write("junk.db", std::string(5000, 'x'));
  ExpectError(Run("show Rpt128 --db junk.db"), 2, "junk.db: ");
  ExpectError(Run("show Rpt128 --db none.db"), 2, "none.db: ");
}

TEST_F(Program, TellsTheFailureOfAReportAndEndsWithOne) {
  ExpectError(Run(std::string("show Rpt128 ") + kYears + " GroupBy=0 Orderby=FNoSuchColumn"), 1, "Rpt128: ");
}

TEST_F(Program, RefusesADrillIntoNoRow) {
  const std::string words = std::string("drill Rpt128 ") + kYears + " GroupBy=0 OnlyShowSum=1";
  ExpectError(Run(words + " --row 5"), 2, "--row 5: Rpt128 answered 1 rows, counted from 0");
  ExpectError(Run(words + " --row=-1"), 2, "--row -1: Rpt128 answered 1 rows, counted from 0");
  ExpectError(Run(words + " --row 0"), 1, "row 0 of Rpt128 has no detail: a total row has none");
  ExpectError(Run("drill Rpt147 --row 0"), 2, "Rpt147 has no detail report; known: Rpt128,");
}

TEST_F(Program, WritesAFileInTheFormatOfItsName) {
  EXPECT_EQ(Run(std::string("show Rpt128 ") + kYears + " --out a.csv").out, "");
  EXPECT_THAT(Content(folder_ / "a.csv"), AllOf(StartsWith("销售出库汇总表\n"), HasSubstr(",FSumSort\n")));
  EXPECT_EQ(Run(std::string("show Rpt128 ") + kYears + " --out a.xlsx").status, 0);
  EXPECT_THAT(Content(folder_ / "a.xlsx"), StartsWith("PK"));
}

TEST_F(Program, RefusesToWriteAReportOverTheAccountSet) {
  ExpectError(Run(std::string("show Rpt128 ") + kYears + " --out t.db --format csv"), 2,
              "--out t.db: this is the account set");
  EXPECT_EQ(Run(std::string("show Rpt128 ") + kYears).status, 0);
}

TEST_F(Program, RefusesAConditionThatIsNoUtf8) {
  ExpectError(Run("show Rpt128 BItemNumber=$(printf '\\377')"), 2, "BItemNumber: the value is no UTF-8 text");
}

TEST_F(Program, LeavesNoFileWhereTheReportFails) {
  EXPECT_EQ(Run(std::string("show Rpt128 ") + kYears + " GroupBy=0 Orderby=FNoSuchColumn --out b.csv").status,
            1);
  EXPECT_FALSE(fs::exists(folder_ / "b.csv"));
}

TEST_F(Program, LeavesNoFileWhereThereIsNoRoom) {
  fs::create_directory(folder_ / "full");
  const Outcome outcome =
      Run(std::string("show Rpt128 ") + kYears + " OnlyShowSum=0 --format html --out full/b.html",
          "ulimit -f 2;");
  EXPECT_EQ(outcome.status, 2);
  EXPECT_THAT(outcome.err, StartsWith("salerpt: full/b.html: cannot be written: "));
  EXPECT_TRUE(fs::is_empty(folder_ / "full"));
}

TEST_F(Program, TellsThatStandardOutputIsFull) {
  const std::string command = "'" + kProgram + "' reports >/dev/full 2>'" + (folder_ / ".err").string() + "'";
  const int state = std::system(command.c_str());
  EXPECT_EQ(WEXITSTATUS(state), 2);
  EXPECT_EQ(Content(folder_ / ".err"),
            "salerpt: standard output: cannot be written: No space left on device\n");
}

TEST_F(Program, EndsQuietlyWhenItsReaderGoesAway) {
  const std::string command = "cd '" + folder_.string() + "' && { '" + kProgram +
                              "' show Rpt147 --db t.db BYear=2023 BPeriod=1 2>.err; "
                              "echo $? >.status; } | head -1 >.out";
  ASSERT_EQ(std::system(command.c_str()), 0);
  EXPECT_EQ(Content(folder_ / ".err"), "");
  EXPECT_EQ(Content(folder_ / ".status"), "0\n");
  EXPECT_EQ(Content(folder_ / ".out"), "销售收入明细表\n");
}

TEST_F(Program, ShowsProgressOnStandardErrorWhenAsked) {
  const Outcome outcome = Run(std::string("show Rpt128 ") + kYears + " --progress");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(outcome.err, StartsWith("正在连接服务器\n正在从服务器读取数据...\n"));
  EXPECT_THAT(outcome.out, StartsWith("销售出库汇总表\n"));
}

// Runs the program on a terminal of its own and gives what it drew there.
std::string Drawn(const fs::path& folder, const char* no_color) {
  int terminal = -1;
  const pid_t child = ::forkpty(&terminal, nullptr, nullptr, nullptr);
  if (child == 0) {
    ::setenv("TERM", "xterm", 1);
    ::setenv("NO_COLOR", no_color, 1);
    const std::string db = (folder / "t.db").string();
    ::execl(kProgram.c_str(), "salerpt", "show", "Rpt128", "--db", db.c_str(), "BDate=2023-01-01",
            "EDate=2025-12-31", "GroupBy=0", nullptr);
    ::_exit(127);
  }
  std::string text;
  char block[4096];
  for (ssize_t size = 0; (size = ::read(terminal, block, sizeof block)) > 0;) {
    text.append(block, static_cast<std::size_t>(size));
  }
  ::waitpid(child, nullptr, 0);
  ::close(terminal);
  return text;
}

TEST_F(Program, DrawsProgressAndBoldTotalsOnATerminal) {
  const std::string text = Drawn(folder_, "");
  EXPECT_THAT(text, HasSubstr("\r\x1b[K正在连接服务器"));
  EXPECT_THAT(text, HasSubstr("\n\x1b[1m* | 合计 "));
  EXPECT_THAT(text, HasSubstr("101\x1b[0m\r\n"));
}

TEST_F(Program, DrawsNothingBoldWhereNoColorIsSet) {
  const std::string text = Drawn(folder_, "1");
  EXPECT_THAT(text, HasSubstr("\n* | 合计 "));
  EXPECT_THAT(text, ::testing::Not(HasSubstr("\x1b[1m")));
}

TEST_F(Program, RunsSqlAndPrintsTheRowsOfEachSelect) {
  Write("q.sql", "declare @n int\nset @n = 2\nselect @n as n\nGO\nselect 'x' as t\n");
  const Outcome outcome = Run("sql q.sql");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out, "n\n-\n2\n\nt\n-\nx\n");
}

TEST_F(Program, TellsFileAndLineOfAFailedBatch) {
  Write("q.sql", "select 1 as a\nGO\n\nselect *\nfrom t_Foo\n");
  const Outcome outcome = Run("sql q.sql");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "a\n-\n1\n");
  EXPECT_THAT(outcome.err,
              ::testing::MatchesRegex("salerpt: q.sql:[45]: Msg 208: Invalid object name 't_Foo'.\n"));
}

TEST_F(Program, RefusesToOverwriteAnAccountSet) {
  ExpectError(Run("init t.db"), 2, "t.db: ");
  ExpectError(Run("import t.db x.csv"), 2, "");
}

TEST_F(Program, ImportsInvoicesAndListsWhatItRejects) {
  Write("shop.csv",
        "InvoiceNo,StockCode,Description,Quantity,InvoiceDate,UnitPrice,CustomerID,Country\n"
        "536365,85123A,HOLDER,6,2010-12-01 08:26,2.55,17850,United Kingdom\n"
        "536365,71053,LANTERN,x,2010-12-01 08:26,3.39,17850,United Kingdom\n"
        "C536379,85123A,HOLDER,-1,2010-12-01 09:41,2.55,17850,United Kingdom\n");
  const Outcome outcome = Run("import shop.db shop.csv");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_THAT(outcome.err, AllOf(HasSubstr("shop.csv"), HasSubstr("3")));
  EXPECT_EQ(outcome.out,
            "shop.db: account set made\n"
            "lines     2\n"
            "rejected  1\n"
            "invoices  2 (1 red)\n"
            "items     1\n"
            "customers 1\n");
}

TEST_F(Program, LeavesNothingBehindWhenItIsInterrupted) {
  const fs::path folder = folder_ / "interrupted";
  fs::create_directory(folder);
  const pid_t child = ::fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    const std::string db = (folder / "big.db").string();
    ::execl(kProgram.c_str(), "salerpt", "init", db.c_str(), "--lines", "5000000", nullptr);
    ::_exit(127);
  }
  // Once there is a file, it is at work.
  for (int i = 0; i < 500 && fs::is_empty(folder); ++i)
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  EXPECT_FALSE(fs::is_empty(folder));
  ::kill(child, SIGINT);
  int state = 0;
  ASSERT_EQ(::waitpid(child, &state, 0), child);
  EXPECT_TRUE(WIFSIGNALED(state));
  EXPECT_TRUE(fs::is_empty(folder));
}

}  // namespace
}  // namespace salerpt::shell
