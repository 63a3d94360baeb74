// One million rows poured through the sales income detail, total rows included, beside SQLite in memory
// taking six columns of as many rows.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "reports/reports.h"
#include "runtime/dictionary.h"
#include "runtime/memory_recordset.h"
#include "runtime/runtime.h"

namespace {

using salerpt::FieldType;
using salerpt::Variant;

constexpr std::int32_t kPeriods = 10;
constexpr std::int32_t kRowsOfPeriod = 100'000;

struct SourceField {
  const char* name;
  FieldType type;
  std::int32_t size;
};
constexpr std::array<SourceField, 18> kSource{{
    {"FQty", FieldType::kNumeric, 0},
    {"FAmount", FieldType::kNumeric, 0},
    {"FInterID", FieldType::kInteger, 0},
    {"FEntryID", FieldType::kInteger, 0},
    {"FDate", FieldType::kTimestamp, 0},
    {"FVoucherNo", FieldType::kVarChar, 50},
    {"FNote", FieldType::kVarChar, 255},
    {"FBillNo", FieldType::kVarChar, 50},
    {"FTranType", FieldType::kInteger, 0},
    {"FItemID", FieldType::kInteger, 0},
    {"FNumber", FieldType::kVarChar, 255},
    {"FShortNumber", FieldType::kVarChar, 255},
    {"FName", FieldType::kVarChar, 255},
    {"FModel", FieldType::kVarChar, 255},
    {"FUnitName", FieldType::kVarChar, 80},
    {"FQtyDecimal", FieldType::kSmallInt, 0},
    {"FPriceDecimal", FieldType::kSmallInt, 0},
    {"FPrice", FieldType::kNumeric, 0},
}};

// The lines of one period, as the middle tier gives them.
salerpt::RecordsetRef MakePeriod() {
  salerpt::RecordsetRef rows = salerpt::MakeRecordset();
  for (const SourceField& field : kSource) rows->AppendField(field.name, field.type, field.size);
  rows->Open();
  const salerpt::Date day = salerpt::Date::FromYmd(2024, 7, 1);
  for (std::int32_t i = 0; i < kRowsOfPeriod; ++i) {
    rows->AddNew();
    rows->SetDouble(0, i % 97 + 1);
    rows->SetDouble(1, (i % 97 + 1) * 12.5);
    rows->SetInt32(2, i / 4);
    rows->SetInt32(3, i % 4 + 1);
    rows->SetDate(4, day);
    rows->SetText(5, "转-1024");
    rows->SetText(6, "");
    rows->SetText(7, "XSFP0012345");
    rows->SetInt32(8, 80);
    rows->SetInt32(9, i % 3000);
    rows->SetText(10, "01.02.0003");
    rows->SetText(11, "0003");
    rows->SetText(12, "不锈钢保温杯");
    rows->SetText(13, "500ml");
    rows->SetText(14, "只");
    rows->SetInt32(15, 2);
    rows->SetInt32(16, 4);
    rows->SetDouble(17, 12.5);
    rows->Update();
  }
  rows->MoveFirst();
  return rows;
}

class PeriodData final : public salerpt::Object {
 public:
  explicit PeriodData(salerpt::RecordsetRef rows) : rows_(std::move(rows)) {}
  [[nodiscard]] std::string_view ClassName() const override { return "ORVMCaculateRpt.Data"; }
  Variant Invoke(std::string_view, salerpt::InvokeKind, salerpt::Arguments) override {
    rows_->MoveFirst();
    return rows_;
  }

 private:
  salerpt::RecordsetRef rows_;
};

// Answers of the rest of the middle tier: no data rights, twelve periods.
class Answer final : public salerpt::Object {
 public:
  explicit Answer(Variant value) : value_(std::move(value)) {}
  [[nodiscard]] std::string_view ClassName() const override { return "Answer"; }
  Variant Invoke(std::string_view, salerpt::InvokeKind, salerpt::Arguments) override { return value_; }

 private:
  Variant value_;
};

void BM_IncomeDetail(benchmark::State& state) {
  salerpt::Runtime runtime;
  salerpt::RegisterReports(runtime);
  const salerpt::RecordsetRef period = MakePeriod();
  runtime.Register("ORVMCaculateRpt.Data", [&period] { return std::make_shared<PeriodData>(period); });
  runtime.Register("ORVEBSBase.SystemProfile", [] { return std::make_shared<Answer>(12); });
  runtime.Register("ORVEBSGLItem.ItemInfo", [] { return std::make_shared<Answer>(false); });
  runtime.host_object = std::make_shared<Answer>("UserName=test;UserID=16394;");
  const salerpt::ObjectRef report = salerpt::CreateObject("ORVSaleRpt.Rpt147");
  auto filter = std::make_shared<salerpt::Dictionary>();
  filter->Set("BYear", 2024);
  filter->Set("BPeriod", 1);
  filter->Set("EYear", 2024);
  filter->Set("EPeriod", kPeriods);
  SetMember(report, "Filter", filter);
  for (auto _ : state) Call(report, "GetReportData");

  const auto rows = std::dynamic_pointer_cast<salerpt::MemoryRecordset>(GetMember(report, "Rs").ToObject());
  if (!rows || rows->RecordCount() != kPeriods * (kRowsOfPeriod + 1)) {
    state.SkipWithError("the report did not give a million rows and ten totals");
    return;
  }
  const auto count = static_cast<double>(rows->RecordCount());
  state.counters["bytes_a_row_beyond_texts"] = static_cast<double>(rows->CellBytes()) / count;
}
BENCHMARK(BM_IncomeDetail)->Unit(benchmark::kMillisecond);

void BM_PeerSqliteSixColumns(benchmark::State& state) {
  for (auto _ : state) {
    sqlite3* db = nullptr;
    sqlite3_open(":memory:", &db);
    sqlite3_exec(db, "create table t(a int, b varchar, c varchar, d decimal, e decimal, f int); begin",
                 nullptr, nullptr, nullptr);
    sqlite3_stmt* insert = nullptr;
    sqlite3_prepare_v2(db, "insert into t values(?,?,?,?,?,?)", -1, &insert, nullptr);
    for (std::int32_t i = 0; i < kPeriods * kRowsOfPeriod; ++i) {
      sqlite3_bind_int(insert, 1, i);
      sqlite3_bind_text(insert, 2, "XSFP0012345", -1, SQLITE_STATIC);
      sqlite3_bind_text(insert, 3, "不锈钢保温杯", -1, SQLITE_STATIC);
      sqlite3_bind_double(insert, 4, i % 97 + 1);
      sqlite3_bind_double(insert, 5, (i % 97 + 1) * 12.5);
      sqlite3_bind_int(insert, 6, 0);
      sqlite3_step(insert);
      sqlite3_reset(insert);
    }
    sqlite3_finalize(insert);
    sqlite3_exec(db, "commit", nullptr, nullptr, nullptr);
    sqlite3_close(db);
  }
}
BENCHMARK(BM_PeerSqliteSixColumns)->Unit(benchmark::kMillisecond);

}  // namespace
