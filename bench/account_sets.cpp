#include "bench/account_sets.h"

#include <string>

#include "suite/accountset/accountset.h"

namespace salerpt::bench {

namespace fs = std::filesystem;

fs::path AccountSetOf(std::int64_t lines) {
  const fs::path folder = SALERPT_BENCH_SETS;
  fs::create_directories(folder);
  // The generator may change without the schema: whoever changes it empties the folder.
  const fs::path db = folder / ("company-" + std::to_string(accountset::kSchemaVersion) + "-" +
                                std::to_string(lines) + ".db");
  if (!fs::exists(db)) accountset::Create(db, {.seed = 1, .lines = lines});
  return db;
}

}  // namespace salerpt::bench
