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
BENCHMARK(BM_Import)->Unit(benchmark::kMillisecond)->UseRealTime();

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
BENCHMARK(BM_PeerBareLoad)->Unit(benchmark::kMillisecond)->UseRealTime();

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
BENCHMARK(BM_OutboundByCustomerClass)
    ->ArgName("OnlyShowSum")
    ->Arg(0)
    ->Arg(1)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

// The finest group is summed once and the higher levels from it; the rows carry the item's master data and
// come in order.
constexpr const char* kCascade = R"sql(
create temp table fine as
select c.FName FName1, i.FNumber FNumber, sum(OutQty) OutQty, sum(OutAmount) OutAmount, sum(ConsignAmount) ConsignAmount,
       sum(InvoiceQty) InvoiceQty, sum(InvoiceAmount) InvoiceAmount, sum(OutQty/u.FCoefficient) CUOutQty,
       sum(InvoiceQty/u.FCoefficient) CUInvoiceQty
from (select e.FItemID, b.FSupplyID FCustID, e.FQty OutQty, round(e.FAmount,3) OutAmount,
             round(e.FConsignAmount,3) ConsignAmount, 0 InvoiceQty, 0 InvoiceAmount
      from ICStockBill b join ICStockBillEntry e on b.FInterID=e.FInterID
      where b.FTranType=21 and b.FStatus>0 and b.FCancelLation=0 and b.FDate>='2010-01-01' and b.FDate<'2012-01-01'
      union all
      select e.FItemID, b.FCustID, 0, 0, 0, e.FQty,
             round(case b.FTranType when 80 then e.FAmount else e.FAmount-e.FTaxAmount end*b.FExchangeRate,3)
      from ICSale b join ICSaleEntry e on b.FInterID=e.FInterID
      where b.FTranType in (80,86) and b.FStatus>0 and b.FCancelLation=0 and b.FDate>='2010-01-01' and b.FDate<'2012-01-01') d
join t_ICItem i on d.FItemID=i.FItemID
join t_MeasureUnit u on i.FSaleUnitID=u.FMeasureUnitID
join t_Item o on d.FCustID=o.FItemID
join t_Item c on o.FParentID=c.FItemID
group by c.FName, i.FNumber;
create temp table report as
select FName1, FNumber, OutQty, OutAmount, ConsignAmount, InvoiceQty, InvoiceAmount, CUOutQty, CUInvoiceQty, 0 FSumSort from fine
union all
select FName1, null, sum(OutQty), sum(OutAmount), sum(ConsignAmount), sum(InvoiceQty), sum(InvoiceAmount), sum(CUOutQty),
       sum(CUInvoiceQty), 107 from fine group by FName1
union all
select null, null, sum(OutQty), sum(OutAmount), sum(ConsignAmount), sum(InvoiceQty), sum(InvoiceAmount), sum(CUOutQty),
       sum(CUInvoiceQty), 101 from fine;
)sql";
constexpr const char* kCascadeRows = R"sql(
select r.*, OutQty-InvoiceQty, OutAmount-InvoiceAmount, CUOutQty-CUInvoiceQty, i.FShortNumber, i.FName, i.FModel, u.FName
from report r left join t_ICItem i on r.FNumber=i.FNumber left join t_MeasureUnit u on i.FUnitID=u.FMeasureUnitID
order by r.FName1 is null, r.FName1, r.FNumber is null, r.FNumber;
)sql";

// A query written by hand: `tables` makes temporary tables, which `drops` drops,
// `rows_of` reads the rows.
void RunByHand(benchmark::State& state, const char* tables, const char* rows_of, const char* drops) {
  if (!fs::exists(kShop)) return state.SkipWithError("the shop's data is not at hand");
  sqlite3* connection = nullptr;
  sqlite3_open(Shop::File().c_str(), &connection);
  sqlite3_exec(connection, "pragma temp_store=memory", nullptr, nullptr, nullptr);
  double rows = 0;
  for (auto _ : state) {
    char* error = nullptr;
    if (sqlite3_exec(connection, tables, nullptr, nullptr, &error) != SQLITE_OK) {
      state.SkipWithError(error);
      break;
    }
    sqlite3_stmt* select = nullptr;
    sqlite3_prepare_v2(connection, rows_of, -1, &select, nullptr);
    rows = 0;
    while (sqlite3_step(select) == SQLITE_ROW) {
      for (int i = 0; i < sqlite3_column_count(select); ++i)
        benchmark::DoNotOptimize(sqlite3_column_text(select, i));
      ++rows;
    }
    sqlite3_finalize(select);
    sqlite3_exec(connection, drops, nullptr, nullptr, nullptr);
  }
  state.counters["rows"] = rows;
  sqlite3_close(connection);
}

void BM_PeerCascadeByHand(benchmark::State& state) {
  RunByHand(state, kCascade, kCascadeRows, "drop table fine; drop table report");
}
BENCHMARK(BM_PeerCascadeByHand)->Unit(benchmark::kMillisecond)->UseRealTime();

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
BENCHMARK(BM_IncomeByItem)->Unit(benchmark::kMillisecond)->UseRealTime();

// The same columns: quantity in two units, income, tax, both, price and rate, item master data, total row
// last.
constexpr const char* kIncome = R"sql(
create temp table report as
select i.FNumber FNumber, i.FShortNumber FShortNumber, i.FName FName, i.FModel FModel, u.FName FUnitName,
       sum(round(e.FQty,i.FQtyDecimal)) FQty, c.FName FCUUnitName,
       sum(round(e.FQty*1.0/(case when ifnull(c.FCoefficient,0)=0 then 1 else c.FCoefficient end),i.FQtyDecimal)) FCUUnitQty,
       sum(round(case b.FTranType when 80 then e.FStdAmount else e.FStdAmount-e.FStdTaxAmount end,3)) FAmount,
       sum(round(e.FStdTaxAmount,3)) FTaxAmount,
       sum(round(case b.FTranType when 80 then e.FStdAmount+e.FStdTaxAmount else e.FStdAmount end,3)) FCountAmount
from ICSale b join ICSaleEntry e on b.FInterID=e.FInterID
left join t_ICItem i on e.FItemID=i.FItemID
left join t_Organization o on b.FCustID=o.FItemID
left join t_MeasureUnit u on i.FUnitGroupID=u.FUnitGroupID and u.FStandard=1
left join t_MeasureUnit c on i.FCUUnitID=c.FMeasureUnitID
where b.FTranType in (80,86) and b.FStatus>0 and b.FCancelLation=0 and b.FDate>='2010-01-01' and b.FDate<'2012-01-01'
group by i.FNumber;
)sql";
constexpr const char* kIncomeRows = R"sql(
select r.*, FAmount/FQty, 100*FTaxAmount/FAmount, 0 FSumSort from report r
union all
select '合计', null, null, null, null, sum(FQty), null, sum(FCUUnitQty), sum(FAmount), sum(FTaxAmount), sum(FCountAmount), null, null, 101
from report
order by 14, 1;
)sql";

void BM_PeerIncomeByHand(benchmark::State& state) {
  RunByHand(state, kIncome, kIncomeRows, "drop table report");
}
BENCHMARK(BM_PeerIncomeByHand)->Unit(benchmark::kMillisecond)->UseRealTime();

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
BENCHMARK(BM_OutboundDetail)->DenseRange(0, 3)->Iterations(1)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
