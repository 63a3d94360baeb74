// The figures of a run of the benchmarks.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace salerpt::bench {

struct Figure {
  double nanoseconds = 0;  // the median where it was run several times
  std::map<std::string, double> counters;
  std::string error;  // why there is no time
};

struct Figures {
  // By the benchmark's name without what says how it was run: "BM_Report/Rpt126/10000".
  std::map<std::string, Figure> by_name;
  double load = -1;  // of the machine when the first program began; -1 unknown

  // Null where it was not measured.
  [[nodiscard]] const Figure* Find(std::string_view name) const;
  // Those measured whose names begin so.
  [[nodiscard]] std::vector<const Figure*> Under(std::string_view prefix) const;
};

// Reads what programs wrote with --benchmark_out. Raises std::runtime_error naming a file that cannot be
// read.
Figures ReadFigures(const std::vector<std::filesystem::path>& files);

}  // namespace salerpt::bench
