// Any text as a script: its batches are pieces of it in order, each in the line that is told, and the script
// written anew from them has the same ones.
#include <algorithm>
#include <string>
#include <vector>

#include "fuzz/require.h"
#include "shell/sql_batches.h"

namespace {

using salerpt::fuzz::Require;
using salerpt::shell::SplitBatches;
using salerpt::shell::SqlBatch;

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view script = salerpt::fuzz::AsText(data, size);
  const std::vector<SqlBatch> batches = SplitBatches(script);
  const char* behind = script.data();
  std::string written;
  for (const SqlBatch& batch : batches) {
    Require(batch.text.data() >= behind && !batch.text.empty());
    behind = batch.text.data() + batch.text.size();
    Require(behind <= script.data() + script.size());
    Require(batch.first_line == 1 + std::count(script.data(), batch.text.data(), '\n'));
    written += std::string(batch.text) + (batch.text.ends_with('\n') ? "" : "\n") + " go\r\n";
  }
  const std::vector<SqlBatch> again = SplitBatches(written);
  Require(again.size() == batches.size());
  for (std::size_t i = 0; i < again.size(); ++i) {
    Require(again[i].text.starts_with(batches[i].text) && again[i].text.size() <= batches[i].text.size() + 1);
  }
  return 0;
}
