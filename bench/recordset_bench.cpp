// Recordsets of a million rows beside SQLite in memory.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <array>
#include <memory>
#include <string>
#include <string_view>

#include "runtime/memory_recordset.h"
#include "runtime/text.h"

namespace {

using salerpt::Currency;
using salerpt::Date;
using salerpt::FieldType;
using salerpt::Join;
using salerpt::MakeRecordset;
using salerpt::MemoryRecordset;
using salerpt::Recordset;
using salerpt::RecordsetRef;

constexpr std::int32_t kRows = 1'000'000;
constexpr std::int32_t kFurtherFilters = 100'000;

struct FieldSketch {
  std::string_view name;
  FieldType type;
  std::int32_t size;
};

// The fields of the sales income detail.
constexpr std::array<FieldSketch, 22> kFields{{
    {"FYear", FieldType::kSmallInt, 0},
    {"FPeriod", FieldType::kSmallInt, 0},
    {"FPeriodName", FieldType::kVarChar, 30},
    {"FInterID", FieldType::kInteger, 0},
    {"FEntryID", FieldType::kInteger, 0},
    {"FDate", FieldType::kDate, 0},
    {"FVoucherNo", FieldType::kVarChar, 50},
    {"FNote", FieldType::kVarChar, 355},
    {"FBillNo", FieldType::kVarChar, 50},
    {"FTranType", FieldType::kInteger, 0},
    {"FItemID", FieldType::kInteger, 0},
    {"FNumber", FieldType::kVarChar, 255},
    {"FShortNumber", FieldType::kVarChar, 255},
    {"FName", FieldType::kVarChar, 255},
    {"FModel", FieldType::kVarChar, 255},
    {"FUnitName", FieldType::kVarChar, 255},
    {"FQtyDecimal", FieldType::kSmallInt, 0},
    {"FPriceDecimal", FieldType::kSmallInt, 0},
    {"FQty", FieldType::kDouble, 0},
    {"FPrice", FieldType::kDouble, 0},
    {"FAmount", FieldType::kCurrency, 0},
    {"FSumSort", FieldType::kInteger, 0},
}};

RecordsetRef EmptySet() {
  RecordsetRef set = MakeRecordset();
  for (const FieldSketch& field : kFields) set->AppendField(field.name, field.type, field.size);
  set->SetCursorLocation(Recordset::kClientSide);
  set->Open();
  return set;
}

void AppendSample(Recordset& set, std::int32_t row) {
  set.AddNew();
  set.SetInt32(0, 2003);
  set.SetInt32(1, row % 12 + 1);
  set.SetText(2, "2003.7");
  set.SetInt32(3, row / 5);
  set.SetInt32(4, row % 5 + 1);
  set.SetDate(5, Date(37803 + row % 365));
  set.SetText(6, "记-12");
  set.SetText(7, "销售商品");
  set.SetText(8, Join("XSFP", row / 5));
  set.SetInt32(9, 80);
  set.SetInt32(10, row % 20'000);
  set.SetText(11, Join("01.02.0", row % 20'000));
  set.SetText(12, Join("0", row % 20'000));
  set.SetText(13, "不锈钢水壶");
  set.SetText(14, "2.0L");
  set.SetText(15, "只");
  set.SetInt32(16, 2);
  set.SetInt32(17, 4);
  set.SetDouble(18, row % 100);
  set.SetDouble(19, 12.5);
  set.SetMoney(20, Currency::FromScaled(std::int64_t{row % 100} * 125'000));
  set.SetInt32(21, 0);
  set.Update();
}

const RecordsetRef& SampleSet() {
  static const RecordsetRef set = [] {
    RecordsetRef made = EmptySet();
    for (std::int32_t row = 0; row < kRows; ++row) AppendSample(*made, row);
    return made;
  }();
  return set;
}

void CopyField(const Recordset& from, Recordset& to, int field) {
  switch (kFields[static_cast<std::size_t>(field)].type) {
    case FieldType::kVarChar:
      return to.SetText(field, from.Text(field));
    case FieldType::kDouble:
      return to.SetDouble(field, from.Double(field));
    case FieldType::kCurrency:
      return to.SetMoney(field, from.Money(field));
    case FieldType::kDate:
      return to.SetDate(field, from.DateOf(field));
    default:
      return to.SetInt32(field, from.Int32(field));
  }
}

void BM_PourMillionRows(benchmark::State& state) {
  const RecordsetRef from = SampleSet();
  for (auto _ : state) {
    const RecordsetRef to = EmptySet();
    from->MoveFirst();
    for (; !from->Eof(); from->MoveNext()) {
      to->AddNew();
      for (int field = 0; field < static_cast<int>(kFields.size()); ++field) CopyField(*from, *to, field);
      to->Update();
    }
    state.PauseTiming();
    const auto& memory = dynamic_cast<const MemoryRecordset&>(*to);
    state.counters["cell_bytes_per_row"] = static_cast<double>(memory.CellBytes()) / to->RecordCount();
    state.counters["text_bytes_per_row"] = static_cast<double>(memory.TextBytes()) / to->RecordCount();
    state.ResumeTiming();
  }
}

class Sqlite {
 public:
  Sqlite() { sqlite3_open(":memory:", &connection_); }
  ~Sqlite() { sqlite3_close_v2(connection_); }
  Sqlite(const Sqlite&) = delete;
  Sqlite& operator=(const Sqlite&) = delete;
  void Run(const char* sql) { sqlite3_exec(connection_, sql, nullptr, nullptr, nullptr); }
  sqlite3_stmt* Prepare(const char* sql) {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(connection_, sql, -1, &statement, nullptr);
    return statement;
  }

 private:
  sqlite3* connection_ = nullptr;
};

void FillSqlite(Sqlite& sqlite) {
  sqlite.Run(
      "create table rows(FInterID integer, FEntryID integer, FItemID integer, FName text, FQty real, FAmount "
      "real)");
  sqlite.Run("begin");
  sqlite3_stmt* insert = sqlite.Prepare("insert into rows values(?,?,?,?,?,?)");
  for (std::int32_t row = 0; row < kRows; ++row) {
    sqlite3_bind_int(insert, 1, row / 5);
    sqlite3_bind_int(insert, 2, row % 5 + 1);
    sqlite3_bind_int(insert, 3, row % 20'000);
    sqlite3_bind_text(insert, 4, "不锈钢水壶", -1, SQLITE_STATIC);
    sqlite3_bind_double(insert, 5, row % 100);
    sqlite3_bind_double(insert, 6, row % 100 * 12.5);
    sqlite3_step(insert);
    sqlite3_reset(insert);
  }
  sqlite3_finalize(insert);
  sqlite.Run("commit");
}

// The peer: a million rows of six columns into SQLite in memory.
void BM_SqliteInsertSixColumns(benchmark::State& state) {
  for (auto _ : state) {
    Sqlite sqlite;
    FillSqlite(sqlite);
  }
}

std::string_view KeyFilter(std::string& text, std::int32_t row) {
  text = Join("FInterID=", row / 5, " and FItemID=", row % 20'000, " and FEntryID=", row % 5 + 1);
  return text;
}

// The row that the n-th filter looks for: all over the set.
std::int32_t Target(std::int32_t n) {
  return static_cast<std::int32_t>(std::int64_t{n} * 7919 % kRows);
}

// Drops the indexes by changing a key value to itself.
void ForgetIndexes(Recordset& set) {
  set.SetFilter("");
  for (const int field : {3, 4, 10}) set.SetInt32(field, set.Int32(field));
  set.SetText(8, std::string(set.Text(8)));
}

void BM_FirstFilterByThreeNumbers(benchmark::State& state) {
  const RecordsetRef set = SampleSet();
  std::string text;
  for (auto _ : state) {
    set->SetFilter(KeyFilter(text, 777'777));
    if (set->RecordCount() != 1) state.SkipWithError("one row was expected");
    state.PauseTiming();
    ForgetIndexes(*set);
    state.ResumeTiming();
  }
}

void BM_FirstFilterByText(benchmark::State& state) {
  const RecordsetRef set = SampleSet();
  for (auto _ : state) {
    set->SetFilter("FBillNo='XSFP77777'");
    if (set->RecordCount() != 5) state.SkipWithError("five rows were expected");
    state.PauseTiming();
    ForgetIndexes(*set);
    state.ResumeTiming();
  }
}

void BM_FurtherFilters(benchmark::State& state) {
  const RecordsetRef set = SampleSet();
  std::string text;
  set->SetFilter(KeyFilter(text, 1));
  for (auto _ : state) {
    for (std::int32_t n = 0; n < kFurtherFilters; ++n) {
      set->SetFilter(KeyFilter(text, Target(n)));
      if (set->Eof()) state.SkipWithError("a row was expected");
    }
  }
  ForgetIndexes(*set);
}

// The peer: the same look-ups through an SQLite index.
void BM_SqliteLookUps(benchmark::State& state) {
  Sqlite sqlite;
  FillSqlite(sqlite);
  sqlite.Run("create index keys on rows(FInterID, FItemID, FEntryID)");
  sqlite3_stmt* select =
      sqlite.Prepare("select rowid from rows where FInterID=? and FItemID=? and FEntryID=?");
  for (auto _ : state) {
    for (std::int32_t n = 0; n < kFurtherFilters; ++n) {
      const std::int32_t row = Target(n);
      sqlite3_bind_int(select, 1, row / 5);
      sqlite3_bind_int(select, 2, row % 20'000);
      sqlite3_bind_int(select, 3, row % 5 + 1);
      if (sqlite3_step(select) != SQLITE_ROW) state.SkipWithError("a row was expected");
      sqlite3_reset(select);
    }
  }
  sqlite3_finalize(select);
}

void BM_ScanFilter(benchmark::State& state) {
  const RecordsetRef set = SampleSet();
  for (auto _ : state) {
    set->SetFilter(" FSumSort <>102 ");
    benchmark::DoNotOptimize(set->RecordCount());
  }
  set->SetFilter("");
}

BENCHMARK(BM_PourMillionRows)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SqliteInsertSixColumns)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FirstFilterByThreeNumbers)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FirstFilterByText)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FurtherFilters)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SqliteLookUps)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ScanFilter)->Unit(benchmark::kMillisecond);

}  // namespace
