// `salerpt show Rpt128` as a whole process on an account set of 10,000 lines, beside a process that does
// nothing.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "suite/accountset/accountset.h"

namespace {

namespace fs = std::filesystem;

void BM_ShowOutboundSummary(benchmark::State& state) {
  const fs::path db = fs::temp_directory_path() / "salerpt-bench-show.db";
  fs::remove(db);
  salerpt::accountset::Create(db, {.seed = 1, .lines = 10'000});
  const std::string command = std::string(SALERPT_SHELL) + " show Rpt128 --db " + db.string() +
                              " BDate=2023-01-01 EDate=2025-12-31 OnlyShowSum=0 >/dev/null";
  for (auto _ : state) {
    if (std::system(command.c_str()) != 0) state.SkipWithError("the command failed");
  }
  fs::remove(db);
}
BENCHMARK(BM_ShowOutboundSummary)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_PeerEmptyProcess(benchmark::State& state) {
  for (auto _ : state) {
    if (std::system("true >/dev/null") != 0) state.SkipWithError("the command failed");
  }
}
BENCHMARK(BM_PeerEmptyProcess)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
