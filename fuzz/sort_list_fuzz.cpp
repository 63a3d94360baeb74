// Any text as the order of a list: it is read or refused, and what was read, written anew, reads the same.
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/require.h"
#include "runtime/error.h"
#include "suite/middletier/sort_list.h"

namespace {

using salerpt::RuntimeError;
using salerpt::fuzz::Require;
using salerpt::middletier::ReadSortList;
using salerpt::middletier::SortTerm;

std::string Written(const std::vector<SortTerm>& terms) {
  std::string text;
  for (const SortTerm& term : terms) {
    if (!text.empty()) text += ',';
    text += term.name + (term.descending ? " DESC" : " ASC");
  }
  return text;
}

bool HasNamelessTerm(const std::vector<SortTerm>& terms) {
  for (const SortTerm& term : terms) {
    if (term.name.empty()) return true;
  }
  return false;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    const auto terms = ReadSortList(salerpt::fuzz::AsText(data, size));
    // Between two commas stands a term without a name, whose direction would read as one.
    if (HasNamelessTerm(terms)) return 0;
    const auto again = ReadSortList(Written(terms));
    Require(again.size() == terms.size());
    for (std::size_t i = 0; i < terms.size(); ++i) {
      Require(again[i].name == terms[i].name && again[i].descending == terms[i].descending);
    }
  } catch (const RuntimeError& error) {
    Require(error.Number() == salerpt::error_number::kInvalidCall);
  }
  return 0;
}
