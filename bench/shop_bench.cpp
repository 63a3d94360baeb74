// A real shop of 541,909 invoice lines: its import beside a bare load of the same columns, the outbound
// summary by customer class and the income by item beside queries written by hand on the same file, and the
// memory of the outbound detail over shorter and longer ranges of days. Skipped where the data is not at
// hand.
#include <benchmark/benchmark.h>
#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <zlib.h>

#include <array>
#include <filesystem>
#include <memory>
#include <sstream>
#include <string>

#include "bench/by_hand.h"
#include "dialogs/unattended.h"
#include "reports/reports.h"
#include "runtime/dictionary.h"
#include "runtime/recordset.h"
#include "runtime/runtime.h"
#include "suite/accountset/accountset.h"
#include "suite/middletier/middletier.h"

namespace {

namespace fs = std::filesystem;

const fs::path kShop = fs::path(SALERPT_SHARED_DATA) / "online_retail.csv.gz";

fs::path TemporaryFile(const char* name) {
  return fs::temp_directory_path() / name;
}

void BM_Import(benchmark::State& state) {
  if (!fs::exists(kShop)) return state.SkipWithError("the shop's data is not at hand");
  const fs::path db = TemporaryFile("salerpt-bench-import.db");
  for (auto _ : state) {
    fs::remove(db);
    std::ostringstream rejects;
    const auto report = salerpt::accountset::Import(db, kShop, rejects);
    if (report.lines != 541'909) state.SkipWithError("not every line was loaded");
  }
  fs::remove(db);
}
BENCHMARK(BM_Import)->Unit(benchmark::kMillisecond);

// Unpacks the file and puts each line, cut at its commas without regard to quotes, into one table of eight
// columns.
void BM_PeerBareLoad(benchmark::State& state) {
  if (!fs::exists(kShop)) return state.SkipWithError("the shop's data is not at hand");
  const fs::path db = TemporaryFile("salerpt-bench-bare.db");
  for (auto _ : state) {
    fs::remove(db);
    sqlite3* connection = nullptr;
    sqlite3_open(db.c_str(), &connection);
    sqlite3_exec(connection,
                 "pragma journal_mode=off; pragma synchronous=off; create table t(a,b,c,d,e,f,g,h); begin",
                 nullptr, nullptr, nullptr);
    sqlite3_stmt* insert = nullptr;
    sqlite3_prepare_v2(connection, "insert into t values(?,?,?,?,?,?,?,?)", -1, &insert, nullptr);
    gzFile file = gzopen(kShop.c_str(), "rb");
    std::array<char, 4096> line{};
    while (gzgets(file, line.data(), static_cast<int>(line.size())) != nullptr) {
      const std::string_view text(line.data());
      std::size_t begin = 0;
      for (int column = 1; column <= 8; ++column) {
        const std::size_t end = std::min(text.find(',', begin), text.size());
        sqlite3_bind_text(insert, column, text.data() + begin, static_cast<int>(end - begin), SQLITE_STATIC);
        begin = std::min(end + 1, text.size());
      }
      sqlite3_step(insert);
      sqlite3_reset(insert);
    }
    gzclose(file);
    sqlite3_finalize(insert);
    sqlite3_exec(connection, "commit", nullptr, nullptr, nullptr);
    sqlite3_close(connection);
  }
  fs::remove(db);
}
BENCHMARK(BM_PeerBareLoad)->Unit(benchmark::kMillisecond);

// The imported shop, made once for all measurements and removed at the end.
class Shop {
 public:
  Shop() : db_(TemporaryFile("salerpt-bench-shop.db")) {
    fs::remove(db_);
    std::ostringstream rejects;
    salerpt::accountset::Import(db_, kShop, rejects);
  }
  ~Shop() { fs::remove(db_); }
  static const fs::path& File() {
    static const Shop shop;
    return shop.db_;
  }

 private:
  fs::path db_;
};

// The reports over the shop.
struct World {
  World() {
    salerpt::middletier::RegisterMiddleTier(runtime,
                                            std::make_shared<salerpt::accountset::AccountSet>(
                                                salerpt::accountset::AccountSet::Open(Shop::File())),
                                            {});
    salerpt::RegisterReports(runtime);
  }
  salerpt::Runtime runtime;
};

void BM_OutboundByCustomerClass(benchmark::State& state) {
  if (!fs::exists(kShop)) return state.SkipWithError("the shop's data is not at hand");
  const World world;
  const std::vector<salerpt::Dictionary::Entry> chosen = {
      {"BDate", "2010-01-01"}, {"EDate", "2011-12-31"},
      {"SumMode", 2},          {"OnlyShowSum", static_cast<std::int32_t>(state.range(0))},
      {"BLevel", 1},           {"ELevel", 1},
      {"Orderby", ""},
  };
  const auto filter = salerpt::ConfirmedFilter("frmFirter128", chosen);
  const salerpt::ObjectRef report = salerpt::CreateObject("ORVSaleRpt.Rpt128");
  SetMember(report, "Filter", filter);
  for (auto _ : state) Call(report, "GetReportData");
  const auto rows = salerpt::As<salerpt::Recordset>(GetMember(report, "Rs"));
  if (!rows) return state.SkipWithError("the report failed");
  state.counters["rows"] = rows->RecordCount();
}
BENCHMARK(BM_OutboundByCustomerClass)->ArgName("OnlyShowSum")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void RunByHand(benchmark::State& state, const salerpt::bench::QueryByHand& query) {
  if (!fs::exists(kShop)) return state.SkipWithError("the shop's data is not at hand");
  sqlite3* connection = nullptr;
  sqlite3_open(Shop::File().c_str(), &connection);
  sqlite3_exec(connection, "pragma temp_store=memory", nullptr, nullptr, nullptr);
  std::string error;
  std::int64_t rows = 0;
  for (auto _ : state) rows = salerpt::bench::RunByHand(connection, query, error);
  sqlite3_close(connection);
  if (!error.empty()) return state.SkipWithError(error.c_str());
  state.counters["rows"] = static_cast<double>(rows);
}

void BM_PeerCascadeByHand(benchmark::State& state) {
  RunByHand(state, salerpt::bench::kOutboundByCustomerClass);
}
BENCHMARK(BM_PeerCascadeByHand)->Unit(benchmark::kMillisecond);

void BM_IncomeByItem(benchmark::State& state) {
  if (!fs::exists(kShop)) return state.SkipWithError("the shop's data is not at hand");
  const World world;
  const std::vector<salerpt::Dictionary::Entry> chosen = {
      {"BDate", "2010-01-01"}, {"EDate", "2011-12-31"}, {"GroupBy", 0}, {"OnlyShowSum", 0}, {"BillType", 2},
  };
  const auto filter = salerpt::ConfirmedFilter("frmFirter126", chosen);
  const salerpt::ObjectRef report = salerpt::CreateObject("ORVSaleRpt.Rpt126");
  SetMember(report, "Filter", filter);
  for (auto _ : state) Call(report, "GetReportData");
  const auto rows = salerpt::As<salerpt::Recordset>(GetMember(report, "Rs"));
  if (!rows) return state.SkipWithError("the report failed");
  state.counters["rows"] = rows->RecordCount();
}
BENCHMARK(BM_IncomeByItem)->Unit(benchmark::kMillisecond);

void BM_PeerIncomeByHand(benchmark::State& state) {
  RunByHand(state, salerpt::bench::kIncomeByItem);
}
BENCHMARK(BM_PeerIncomeByHand)->Unit(benchmark::kMillisecond);

// What a process needs at most beyond what it had before: pages of the file, temporary tables, rows.
struct Footprint {
  double rows = 0;
  double bytes = 0;
};

double PeakBytes() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) * 1024;
}

Footprint OutboundDetailFootprint(const char* last_day) {
  const World world;
  const std::vector<salerpt::Dictionary::Entry> chosen = {
      {"BDate", "2010-12-01"}, {"EDate", last_day}, {"GroupBy", 0}, {"OnlyShowSum", 0}, {"chkShowItemSum", 1},
  };
  const auto filter = salerpt::ConfirmedFilter("frmFirter129", chosen);
  const salerpt::ObjectRef report = salerpt::CreateObject("ORVSaleRpt.Rpt129");
  SetMember(report, "Filter", filter);
  const double before = PeakBytes();
  Call(report, "GetReportData");
  const auto rows = salerpt::As<salerpt::Recordset>(GetMember(report, "Rs"));
  return rows ? Footprint{static_cast<double>(rows->RecordCount()), PeakBytes() - before} : Footprint{};
}

// The peak is that of a whole process, so that each range runs in one of its own. What a process has free
// from the start hides a part of it: what a further row needs shows between one range and the next.
void BM_OutboundDetail(benchmark::State& state) {
  if (!fs::exists(kShop)) return state.SkipWithError("the shop's data is not at hand");
  static_cast<void>(Shop::File());
  constexpr std::array<const char*, 4> kLastDays = {"2011-01-15", "2011-03-31", "2011-07-31", "2011-12-31"};
  Footprint footprint;
  for (auto _ : state) {
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0) return state.SkipWithError("no pipe");
    const pid_t child = fork();
    if (child == 0) {
      const Footprint mine = OutboundDetailFootprint(kLastDays[static_cast<std::size_t>(state.range(0))]);
      const bool told = write(ends[1], &mine, sizeof(mine)) == sizeof(mine);
      _exit(told ? 0 : 1);
    }
    close(ends[1]);
    if (read(ends[0], &footprint, sizeof(footprint)) != sizeof(footprint)) footprint = {};
    close(ends[0]);
    waitpid(child, nullptr, 0);
  }
  if (footprint.rows == 0) return state.SkipWithError("the report failed");
  static Footprint shorter;
  state.counters["rows"] = footprint.rows;
  if (shorter.rows > 0) {
    state.counters["bytes_a_further_row"] =
        (footprint.bytes - shorter.bytes) / (footprint.rows - shorter.rows);
  }
  shorter = footprint;
}
BENCHMARK(BM_OutboundDetail)
    ->DenseRange(0, 3)
    ->Iterations(1)
    ->Repetitions(1)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
