// All reports, from the dialog to the rows in the host's hands, on account sets of 10 thousand, 100 thousand
// and one million bill lines, for some of them beside a query written by hand on the same file. Every fetch
// is of the whole time of the company, its rows not only the sums.
#include <benchmark/benchmark.h>
#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <exception>
#include <functional>
#include <iostream>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "bench/account_sets.h"
#include "bench/by_hand.h"
#include "runtime/recordset.h"
#include "runtime/report_class.h"
#include "runtime/text.h"
#include "shell/host.h"

namespace {

using salerpt::bench::AccountSetOf;

constexpr std::array<std::int64_t, 3> kSteps = {10'000, 100'000, 1'000'000};
constexpr rlim_t kLongest = 60;  // seconds of the processor; a report that takes longer is ended
// A short fetch is repeated, and the median counts.
constexpr std::size_t kMostRuns = 3;
constexpr double kEnough = 2;  // seconds of runs

struct Case {
  const char* report;
  const char* variant;  // stands behind the name where a report runs in several ways
  std::vector<const char*> conditions;
  const salerpt::bench::QueryByHand* by_hand = nullptr;
};

const char* const kFirstDay = "BDate=2023-01-01";
const char* const kLastDay = "EDate=2025-12-31";

// Reports that group list their items here; the two that analyse a month take one in the middle.
std::vector<Case> Cases() {
  const std::vector<const char*> days = {kFirstDay, kLastDay};
  const std::vector<const char*> items = {kFirstDay, kLastDay, "GroupBy=0", "OnlyShowSum=0"};
  const std::vector<const char*> month = {"BYear=2024", "BPeriod=6"};
  const auto and_also = [](std::vector<const char*> conditions, const char* further) {
    conditions.push_back(further);
    return conditions;
  };
  return {
      {"Rpt126", "", and_also(items, "BillType=2"), &salerpt::bench::kIncomeByItem},
      {"Rpt128", "", items},
      {"Rpt129", "", and_also(items, "chkShowItemSum=1")},
      {"Rpt133", "", items},
      {"Rpt134", "", days, &salerpt::bench::kCustomerLines},
      {"Rpt135", "", days},
      {"Rpt136", "", items},
      {"Rpt137", "", days},
      {"Rpt138", "", items, &salerpt::bench::kOrderExecution},
      {"Rpt139", "", days},
      {"Rpt140", "", month},
      {"Rpt142", "", days},
      {"Rpt143", "", month},
      {"Rpt145", "", days},
      {"Rpt146", "", days},
      {"Rpt147", "", {"BYear=2023", "BPeriod=1", "EYear=2025", "EPeriod=6"}},
      {"Rpt149", "", {"FDate=2025-06-30"}},
      {"Rpt176", "", items},
      {"Rpt176", " Cost=2", and_also(items, "Cost=2")},
      {"Rpt189", "", days},
      {"Rpt192", "", days},
      {"Rpt300", "", days},
      {"Rpt301", "", days},
      {"Rpt302", "", days},
      {"Rpt303", "", days},
      {"Rpt1010", "", days},
  };
}

std::string NameOf(const Case& report) {
  return salerpt::Join(report.report, report.variant);
}

// What a run tells: seconds, rows, and the most memory of its process.
struct Outcome {
  double seconds = 0;
  double rows = -1;  // it failed
  double peak_bytes = 0;
  bool too_long = false;
};
using Job = std::function<double()>;  // the rows

// Of the process, which does not wait for other work on the machine as the clock on the wall does.
double ProcessorSeconds() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
  };
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

Outcome Median(const Job& job) {
  std::vector<double> times;
  Outcome outcome;
  double spent = 0;
  while (times.size() < kMostRuns && spent < kEnough) {
    const double begin = ProcessorSeconds();
    outcome.rows = job();
    times.push_back(ProcessorSeconds() - begin);
    spent += times.back();
  }
  std::sort(times.begin(), times.end());
  outcome.seconds = times[times.size() / 2];
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  outcome.peak_bytes = static_cast<double>(usage.ru_maxrss) * 1024;
  return outcome;
}

// In a process of its own: its memory is its own, and it can be ended.
Outcome RunApart(const Job& job) {
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) return {};
  const pid_t child = fork();
  if (child == 0) {
    // Only the first fetch can take so long: further ones follow none but short ones.
    const rlimit limit{kLongest, RLIM_INFINITY};
    setrlimit(RLIMIT_CPU, &limit);
    Outcome mine;
    try {
      mine = Median(job);
    } catch (const std::exception& failure) {
      std::cerr << failure.what() << '\n';
    }
    const bool told = write(ends[1], &mine, sizeof(mine)) == sizeof(mine);
    _exit(told ? 0 : 1);
  }
  close(ends[1]);
  Outcome outcome;
  if (read(ends[0], &outcome, sizeof(outcome)) != sizeof(outcome)) outcome = {};
  close(ends[0]);
  int status = 0;
  waitpid(child, &status, 0);
  outcome.too_long = WIFSIGNALED(status) && WTERMSIG(status) == SIGXCPU;
  if (outcome.too_long) outcome.seconds = static_cast<double>(kLongest);
  return outcome;
}

// False where it took too long.
bool Measure(benchmark::State& state, const Job& job) {
  Outcome outcome;
  for (auto _ : state) {
    outcome = RunApart(job);
    state.SetIterationTime(outcome.seconds);
  }
  if (outcome.too_long) {
    state.SkipWithError("over a minute");
    return false;
  }
  if (outcome.rows < 0) {
    state.SkipWithError("it failed");
    return true;
  }
  state.counters["rows"] = outcome.rows;
  state.counters["peak_bytes"] = outcome.peak_bytes;
  return true;
}

double FetchRows(const Case& report, const std::filesystem::path& db) {
  salerpt::shell::Shell shell{std::cout, std::cerr};
  salerpt::shell::Host host(db, shell, salerpt::shell::ProgressBar::Style::kOff);
  salerpt::shell::DialogRun run;
  for (const char* condition : report.conditions) {
    run.choices.push_back(salerpt::shell::ParseChoice(condition));
  }
  const salerpt::ObjectRef fetched =
      host.Run(salerpt::shell::RequireReportClass(report.report), std::move(run));
  const auto rows = salerpt::As<salerpt::Recordset>(GetMember(fetched, "Rs"));
  return rows ? rows->RecordCount() : 0;
}

double RowsByHand(const salerpt::bench::QueryByHand& query, const std::filesystem::path& db) {
  sqlite3* connection = nullptr;
  sqlite3_open(db.c_str(), &connection);
  sqlite3_exec(connection, "pragma temp_store=memory", nullptr, nullptr, nullptr);
  std::string error;
  const std::int64_t rows = salerpt::bench::RunByHand(connection, query, error);
  sqlite3_close(connection);
  if (!error.empty()) std::cerr << error << '\n';
  return error.empty() ? static_cast<double>(rows) : -1;
}

// The report, step by step until one takes too long.
void BM_Report(benchmark::State& state, const Case& report, std::int64_t lines) {
  static std::set<std::string> too_long;
  const std::string name = NameOf(report);
  if (too_long.contains(name)) return state.SkipWithError("the step before took over a minute");
  const auto db = AccountSetOf(lines);
  if (!Measure(state, [&] { return FetchRows(report, db); })) too_long.insert(name);
}

void BM_ByHand(benchmark::State& state, const Case& report, std::int64_t lines) {
  const auto db = AccountSetOf(lines);
  Measure(state, [&] { return RowsByHand(*report.by_hand, db); });
}

const bool kRegistered = [] {
  const auto add = [](const char* kind, auto* run, const Case& report) {
    for (const std::int64_t lines : kSteps) {
      const std::string name = salerpt::Join(kind, "/", NameOf(report), "/", std::to_string(lines));
      benchmark::RegisterBenchmark(name.c_str(), run, report, lines)
          ->Iterations(1)
          ->Repetitions(1)
          ->UseManualTime()
          ->Unit(benchmark::kMillisecond);
    }
  };
  for (const Case& report : Cases()) {
    add("BM_Report", BM_Report, report);
    if (report.by_hand != nullptr) add("BM_ByHand", BM_ByHand, report);
  }
  return true;
}();

}  // namespace
