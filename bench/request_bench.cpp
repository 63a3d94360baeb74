// Building a request of each report, from the host's call to the middle tier's: title, condition, columns,
// batch. The middle tier is a recorder that drops what it gets. The peer appends 37 KB of text, the size of a
// large batch, in pieces of 100 characters.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <new>
#include <string>

#include "dialogs/tables/tables.h"
#include "dialogs/unattended.h"
#include "reports/reports.h"
#include "runtime/dictionary.h"
#include "runtime/mparse.h"
#include "runtime/recordset.h"
#include "runtime/runtime.h"
#include "sqltoolkit/report_header.h"
#include "tests/runtime/fake_object.h"

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
using salerpt::testing::RegisterFake;

// The middle tier's answers without the recording.
class SilentData final : public salerpt::Object {
 public:
  [[nodiscard]] std::string_view ClassName() const override { return "ORVMSaleRpt.Data"; }
  Variant Invoke(std::string_view member, salerpt::InvokeKind, salerpt::Arguments) override {
    batch.Pause();
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
    RegisterFake(runtime, "ORVEBSBase.SystemProfile")->Gives("GetProfile", 0);
    RegisterFake(runtime, "ORVEBSGLItem.ItemInfo")->Gives("GetDataRight", true);
  }
};

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
  state.counters["allocations"] = static_cast<double>(most);
  state.counters["of_batch"] = static_cast<double>(most_of_batch);
}
BENCHMARK(BM_OutboundSummary)
    ->ArgNames({"SumMode", "ordered"})
    ->ArgsProduct({{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}, {0, 1}});

// Any other report: class, and the row of "sum by", 0 for the report without grouping.
constexpr int kNoGroups = -1;  // the dialog does not group
void BM_Request(benchmark::State& state, const char* class_name, const char* dialog_name, int sum_mode) {
  World world;
  const ObjectRef report = salerpt::CreateObject(salerpt::Join("ORVSaleRpt.", class_name));
  std::vector<salerpt::Dictionary::Entry> chosen = {{"BDate", "2024-01-01"}, {"EDate", "2024-12-31"}};
  if (sum_mode != kNoGroups) chosen.push_back({"GroupBy", std::int32_t{sum_mode == 0 ? 0 : 1}});
  if (sum_mode > 0) chosen.push_back({"SumMode", std::int32_t{sum_mode}});
  SetMember(report, "Filter", salerpt::ConfirmedFilter(dialog_name, chosen));
  for (auto _ : state) Call(report, "GetReportData");
  RequireSuccess(state, report);
}

const bool kRegistered = [] {
  struct Case {
    const char* class_name;
    const char* dialog;
  };
  constexpr Case kCases[] = {
      {"Rpt126", "frmFirter126"}, {"Rpt129", "frmFirter129"},   {"Rpt133", "frmFirter126"},
      {"Rpt134", "frmFirter134"}, {"Rpt135", "frmFirter135"},   {"Rpt176", "frmFirter176"},
      {"Rpt301", "frmFirter301"}, {"Rpt302", "frmFirter302"},   {"Rpt303", "FrmFilter303"},
      {"Rpt136", "frmFirter136"}, {"Rpt137", "frmFirter137"},   {"Rpt138", "frmFirter138"},
      {"Rpt139", "FrmFilter139"}, {"Rpt189", "frmFilter189"},   {"Rpt192", "frmFilter192"},
      {"Rpt300", "frmFirter300"}, {"Rpt1010", "frmFirter1010"},
  };
  for (const auto& [class_name, dialog] : kCases) {
    const auto add = [&](int sum_mode) {
      benchmark::RegisterBenchmark(salerpt::Join("BM_Request/", class_name, "/SumMode:", sum_mode).c_str(),
                                   BM_Request, class_name, dialog, sum_mode);
    };
    const salerpt::DialogTable* table = salerpt::FindDialogTable(dialog);
    if (table == nullptr || table->group_by == nullptr) {
      add(kNoGroups);
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
