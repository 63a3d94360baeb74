// Each filter dialog opened, filled from the account set, and confirmed without a person. The peers fill a
// JSON object, or a bare dictionary, with the keys and values that the dialogs confirm.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "bench/account_sets.h"
#include "dialogs/dialogs.h"
#include "dialogs/unattended.h"
#include "reports/reports.h"
#include "runtime/dictionary.h"
#include "runtime/runtime.h"
#include "suite/accountset/accountset.h"
#include "suite/middletier/middletier.h"

namespace {

constexpr std::int64_t kLines = 10'000;

struct World {
  World() {
    auto set = std::make_shared<salerpt::accountset::AccountSet>(
        salerpt::accountset::AccountSet::Open(salerpt::bench::AccountSetOf(kLines)));
    salerpt::middletier::RegisterMiddleTier(runtime, std::move(set), {});
    salerpt::RegisterReports(runtime);
  }
  salerpt::Runtime runtime;
};

salerpt::DictionaryRef Confirmed(const std::string& dialog) {
  return salerpt::ConfirmedFilter(dialog, {});
}

void BM_Dialog(benchmark::State& state, const std::string& dialog) {
  const World world;
  salerpt::DictionaryRef filter;
  for (auto _ : state) filter = Confirmed(dialog);
  if (!filter || !filter->Get("OK").ToBoolean()) return state.SkipWithError("the dialog refused");
  state.counters["keys"] = static_cast<double>(filter->Entries().size());
}

const bool kRegistered = [] {
  for (const std::string& dialog : salerpt::DialogNames()) {
    benchmark::RegisterBenchmark(("BM_Dialog/" + dialog).c_str(), BM_Dialog, dialog)
        ->Unit(benchmark::kMicrosecond);
  }
  return true;
}();

void BM_AllDialogs(benchmark::State& state) {
  const World world;
  const std::vector<std::string> dialogs = salerpt::DialogNames();
  for (auto _ : state) {
    for (const std::string& dialog : dialogs) benchmark::DoNotOptimize(Confirmed(dialog));
  }
  state.counters["dialogs"] = static_cast<double>(dialogs.size());
}
BENCHMARK(BM_AllDialogs)->Unit(benchmark::kMicrosecond);

// What all dialogs confirm, as texts.
struct Field {
  std::string key;
  std::string value;
};
std::vector<std::vector<Field>> AllFields() {
  const World world;
  std::vector<std::vector<Field>> all;
  for (const std::string& dialog : salerpt::DialogNames()) {
    std::vector<Field>& fields = all.emplace_back();
    const salerpt::DictionaryRef filter = Confirmed(dialog);
    for (const auto& [key, value] : filter->Entries()) {
      fields.push_back({key, value.IsObject() ? std::string() : value.TextOrEmpty()});
    }
  }
  return all;
}

void BM_PeerJsonObjects(benchmark::State& state) {
  const auto all = AllFields();
  for (auto _ : state) {
    for (const std::vector<Field>& fields : all) {
      nlohmann::json object = nlohmann::json::object();
      for (const Field& field : fields) object[field.key] = field.value;
      benchmark::DoNotOptimize(object);
    }
  }
}
BENCHMARK(BM_PeerJsonObjects)->Unit(benchmark::kMicrosecond);

void BM_PeerDictionaries(benchmark::State& state) {
  const auto all = AllFields();
  for (auto _ : state) {
    for (const std::vector<Field>& fields : all) {
      salerpt::Dictionary object;
      for (const Field& field : fields) object.Set(field.key, field.value);
      benchmark::DoNotOptimize(object);
    }
  }
}
BENCHMARK(BM_PeerDictionaries)->Unit(benchmark::kMicrosecond);

}  // namespace
