// Any text as a property string: it is read or refused, and what was read can be asked for.
#include <string>
#include <string_view>

#include "fuzz/require.h"
#include "runtime/error.h"
#include "runtime/mparse.h"

namespace {

using salerpt::PropertyCollection;
using salerpt::RuntimeError;
using salerpt::fuzz::Require;

// The pieces of a text and the separators between them are the text.
void CheckCutting(std::string_view text) {
  std::string_view rest = text;
  std::string joined;
  while (!rest.empty()) {
    const std::size_t before = rest.size();
    const std::string_view piece = salerpt::CutAt(rest, ';');
    joined.append(piece);
    if (before - rest.size() > piece.size()) joined += ';';
  }
  Require(joined == text);
}

// A value survives being written in braces, whatever it holds but a closing brace.
void CheckRoundTrip(std::string_view value) {
  if (value.find('}') != std::string_view::npos) return;
  const PropertyCollection properties("first=1;value={" + std::string(value) + "}x;last={2}");
  Require(properties.Get("VALUE") == salerpt::Trim(value));
  Require(properties.Get("first") == "1" && properties.Get("last") == "2");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text = salerpt::fuzz::AsText(data, size);
  CheckCutting(text);
  CheckRoundTrip(text);
  PropertyCollection properties;
  try {
    properties.Parse(text);
  } catch (const RuntimeError& error) {
    Require(error.Number() == salerpt::error_number::kDuplicateKey);
  }
  Require(properties.Text() == text);
  std::string_view rest = text;
  const std::string_view first = salerpt::Trim(salerpt::CutAt(rest, '='));
  if (!first.empty()) Require(properties.Get(first).size() <= text.size());
  return 0;
}
