// Building a request of each report in each of its modes, from the host's call to the middle tier's: title,
// condition, columns, batch. The middle tier counts the text that it gets and drops it. The peer appends 37
// KB of text, the size of a large batch, in pieces of 100 characters.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <utility>

#include "dialogs/tables/tables.h"
#include "dialogs/unattended.h"
#include "reports/reports.h"
#include "runtime/dictionary.h"
#include "runtime/mparse.h"
#include "runtime/recordset.h"
#include "runtime/report_class.h"
#include "runtime/runtime.h"
#include "sqltoolkit/report_header.h"

namespace {

std::size_t allocations = 0;

// Allocations of the batch alone: counted from the last read of a right, where the builder begins, to the
// read of the profile, behind the common columns, and from there to the call of the middle tier. The common
// columns are counted apart and taken off.
struct BatchCount {
  std::size_t begin = 0;
  std::size_t total = 0;
  bool counts = false;
  void Start() {
    total = 0;
    Resume();
  }
  void Resume() {
    begin = allocations;
    counts = true;
  }
  void Pause() {
    if (counts) total += allocations - begin;
    counts = false;
  }
} batch;

}  // namespace

// Not inlined: the compiler would take malloc and free for a mismatched pair.
[[gnu::noinline]] void* operator new(std::size_t size) {
  ++allocations;
  if (void* memory = std::malloc(size)) return memory;
  throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* memory) noexcept {
  std::free(memory);
}
[[gnu::noinline]] void operator delete(void* memory, std::size_t /*size*/) noexcept {
  std::free(memory);
}

namespace {

using salerpt::Call;
using salerpt::ObjectRef;
using salerpt::Runtime;
using salerpt::Variant;

// Text of the calls that carry requests, where it is counted at all.
struct {
  bool counts = false;
  std::size_t bytes = 0;
} sent;

std::size_t BytesOf(const Variant& value) {
  if (value.IsText()) return value.TextOrEmpty().size();
  if (!value.IsObject()) return 0;
  const auto keys = salerpt::As<salerpt::Dictionary>(value);
  std::size_t bytes = 0;
  for (const auto& [key, held] : keys->Entries()) bytes += BytesOf(held);
  return bytes;
}

// The middle tier's answers without the recording.
class SilentData final : public salerpt::Object {
 public:
  [[nodiscard]] std::string_view ClassName() const override { return "ORVMSaleRpt.Data"; }
  Variant Invoke(std::string_view member, salerpt::InvokeKind, salerpt::Arguments arguments) override {
    batch.Pause();
    if (sent.counts) {
      for (const Variant& argument : arguments) sent.bytes += BytesOf(argument);
    }
    static const salerpt::RecordsetRef rows = [] {
      auto set = salerpt::MakeRecordset();
      set->AppendField("FSumSort", salerpt::FieldType::kInteger, 0);
      set->Open();
      return set;
    }();
    if (member != "GetRpt192Data") return rows;
    return std::make_shared<salerpt::Dictionary>(std::initializer_list<salerpt::Dictionary::Entry>{
        {"rsOrder", rows}, {"rsWorkBill", rows}, {"rsInStock", rows}, {"rsOutStock", rows}});
  }
};
class SilentTrue final : public salerpt::Object {
 public:
  [[nodiscard]] std::string_view ClassName() const override { return "ORVEBCGLView.GLData"; }
  Variant Invoke(std::string_view, salerpt::InvokeKind, salerpt::Arguments) override {
    batch.Start();
    return true;
  }
};
class SilentRows final : public salerpt::Object {
 public:
  [[nodiscard]] std::string_view ClassName() const override { return "ORVConnection.AppConnection"; }
  Variant Invoke(std::string_view, salerpt::InvokeKind, salerpt::Arguments) override {
    batch.Pause();
    static const salerpt::RecordsetRef rows = [] {
      auto set = salerpt::MakeRecordset();
      set->AppendField("FValue", salerpt::FieldType::kVarChar, 30);
      set->Open();
      return set;
    }();
    batch.Resume();
    return rows;
  }
};
class SilentProps final : public salerpt::Object {
 public:
  [[nodiscard]] std::string_view ClassName() const override { return "Host"; }
  Variant Invoke(std::string_view, salerpt::InvokeKind, salerpt::Arguments) override {
    return "UserName=test;UserID=16394;LANGUAGE=chs;";
  }
};

// An object of one operation, or of several that answer alike.
class Silent final : public salerpt::Object {
 public:
  using Answer = std::function<Variant(salerpt::Arguments)>;
  explicit Silent(Answer answer) : answer_(std::move(answer)) {}
  [[nodiscard]] std::string_view ClassName() const override { return "Silent"; }
  Variant Invoke(std::string_view, salerpt::InvokeKind, salerpt::Arguments arguments) override {
    return answer_(arguments);
  }

 private:
  Answer answer_;
};

// Twelve periods a year; every other setting 0.
Variant Setting(salerpt::Arguments arguments) {
  return std::int32_t{arguments.back().TextOrEmpty() == "PeriodCount" ? 12 : 0};
}
// The formula of the credit reports.
Variant GiveFormula(salerpt::Arguments arguments) {
  salerpt::As<salerpt::Dictionary>(arguments.back())->Set("Sql", "Select 1");
  return {};
}

// What the fourteen columns that every grouping shows cost.
std::size_t CommonColumnAllocations() {
  salerpt::Vector header;
  const std::size_t before = allocations;
  for (const char* caption : {"产品代码$", "产品名称$", "规格型号$", "单位(基本)$", "出库数量(基本)$",
                              "出库金额$", "开票数量(基本)$", "开票金额$", "销售金额$", "未开票数量(基本)$",
                              "单位(常用)$", "出库数量(常用)$", "开票数量(常用)$", "未开票数量(常用)$"}) {
    salerpt::AddHeader(header, salerpt::ResText(caption), "", salerpt::ColumnType::kText,
                       "FCUUnitNotCommitQty", true, salerpt::ForceHide{0});
  }
  return allocations - before;
}

struct World {
  Runtime runtime;
  World() {
    salerpt::RegisterReports(runtime);
    runtime.host_object = std::make_shared<SilentProps>();
    runtime.Register("ORVMSaleRpt.Data", [] { return std::make_shared<SilentData>(); });
    runtime.Register("ORVEBCGLView.GLData", [] { return std::make_shared<SilentTrue>(); });
    runtime.Register("ORVConnection.AppConnection", [] { return std::make_shared<SilentRows>(); });
    runtime.Register("ORVMPurchaseRpt.Data", [] { return std::make_shared<SilentRows>(); });
    runtime.Register("ORVMCaculateRpt.Data", [] { return std::make_shared<SilentData>(); });
    RegisterSilent("ORVEBSBase.SystemProfile", Setting);
    RegisterSilent("ORVEBSGLItem.ItemInfo", [](salerpt::Arguments) -> Variant { return true; });
    RegisterSilent("ORVMSaleCredit.clsGetData", GiveFormula);
  }
  void RegisterSilent(const char* prog_id, const Silent::Answer& answer) {
    runtime.Register(prog_id, [object = std::make_shared<Silent>(answer)] { return object; });
  }
};

// One more call, whose text is counted.
double SentBytes(const ObjectRef& report) {
  sent = {true, 0};
  Call(report, "GetReportData");
  sent.counts = false;
  return static_cast<double>(sent.bytes);
}

void RequireSuccess(benchmark::State& state, const ObjectRef& report) {
  const auto result = salerpt::As<salerpt::Dictionary>(GetMember(report, "Result"));
  if (!result->Get("OK").ToBoolean()) state.SkipWithError(result->Get("Error").TextOrEmpty().c_str());
}

// The outbound summary, with what it allocates.
void BM_OutboundSummary(benchmark::State& state) {
  World world;
  const ObjectRef report = salerpt::CreateObject("ORVSaleRpt.Rpt128");
  std::vector<salerpt::Dictionary::Entry> chosen = {
      {"BDate", "2024-01-01"},
      {"EDate", "2024-12-31"},
      {"BItemNumber", "01"},
      {"ECustNumber", "99"},
      {"GroupBy", std::int32_t{state.range(0) == 0 ? 0 : 1}},
      {"SumMode", static_cast<std::int32_t>(state.range(0))},
  };
  if (state.range(1) != 0) chosen.push_back({"Orderby", "FOutAmount DESC"});
  SetMember(report, "Filter", salerpt::ConfirmedFilter("frmFirter128", chosen));
  std::size_t most = 0;
  std::size_t most_of_batch = 0;
  const std::size_t columns = CommonColumnAllocations();
  for (auto _ : state) {
    const std::size_t before = allocations;
    Call(report, "GetReportData");
    most = std::max(most, allocations - before);
    most_of_batch = std::max(most_of_batch, batch.total - columns);
  }
  RequireSuccess(state, report);
  state.counters["sent_bytes"] = SentBytes(report);
  state.counters["allocations"] = static_cast<double>(most);
  state.counters["of_batch"] = static_cast<double>(most_of_batch);
}
BENCHMARK(BM_OutboundSummary)
    ->ArgNames({"SumMode", "ordered"})
    ->ArgsProduct({{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}, {0, 1}});

// Any other report: class, and the row of "sum by", 0 for the report without grouping. What its dialog does
// not have of the days and periods stands in the filter unread.
constexpr int kNoGroups = -1;  // the dialog does not group
void BM_Request(benchmark::State& state, const salerpt::ReportClass& report_class, int sum_mode) {
  World world;
  const ObjectRef report = salerpt::CreateObject(salerpt::ReportProgID(report_class.name));
  std::vector<salerpt::Dictionary::Entry> chosen = {
      {"BDate", "2024-01-01"}, {"EDate", "2024-12-31"}, {"FDate", "2024-12-31"}, {"BYear", "2024"},
      {"BPeriod", "6"},        {"EYear", "2024"},       {"EPeriod", "6"}};
  if (sum_mode != kNoGroups) chosen.push_back({"GroupBy", std::int32_t{sum_mode == 0 ? 0 : 1}});
  if (sum_mode > 0) chosen.push_back({"SumMode", std::int32_t{sum_mode}});
  SetMember(report, "Filter", salerpt::ConfirmedFilter(report_class.dialog, chosen));
  for (auto _ : state) Call(report, "GetReportData");
  RequireSuccess(state, report);
  state.counters["sent_bytes"] = SentBytes(report);
}

// The analyses group as the filter tells, though no control of their dialogs does.
constexpr std::string_view kAnalyses[] = {"Rpt140", "Rpt142", "Rpt143"};
constexpr int kAnalysisModes[] = {1, 2, 4};

const bool kRegistered = [] {
  for (const salerpt::ReportClass& report_class : salerpt::ReportClasses()) {
    if (report_class.name == "Rpt128") continue;
    const auto add = [&](int sum_mode) {
      benchmark::RegisterBenchmark(
          salerpt::Join("BM_Request/", report_class.name, "/SumMode:", sum_mode).c_str(), BM_Request,
          report_class, sum_mode);
    };
    const salerpt::DialogTable* table = salerpt::FindDialogTable(report_class.dialog);
    if (table == nullptr || table->group_by == nullptr) {
      add(kNoGroups);
      if (std::ranges::find(kAnalyses, report_class.name) != std::end(kAnalyses)) {
        for (const int mode : kAnalysisModes) add(mode);
      }
      continue;
    }
    add(0);
    for (const salerpt::GroupByRow& row : table->group_by->rows) add(row.code);
  }
  return true;
}();

void BM_PeerAppend37KB(benchmark::State& state) {
  const std::string piece(100, 'x');
  for (auto _ : state) {
    std::string text;
    for (int i = 0; i < 370; ++i) text += piece;
    benchmark::DoNotOptimize(text.data());
  }
}
BENCHMARK(BM_PeerAppend37KB);

}  // namespace
