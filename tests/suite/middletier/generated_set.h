// An account set of the generator, and plain SQL on it.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "suite/accountset/accountset.h"
#include "tests/suite/middletier/company.h"

namespace salerpt::middletier {

// Lives in a folder of its own, which goes with it.
class GeneratedSet {
 public:
  GeneratedSet(std::uint64_t seed, std::int64_t lines);

  [[nodiscard]] const std::shared_ptr<accountset::AccountSet>& Get() const { return account_set_; }
  // The numbers in the first row of a query, past the middle tier and its engine.
  [[nodiscard]] std::vector<double> Numbers(const std::string& sql) const;
  // Runs a statement, likewise.
  void Run(const std::string& sql) const;

 private:
  TemporaryFolder folder_;
  std::shared_ptr<accountset::AccountSet> account_set_;
};

}  // namespace salerpt::middletier
