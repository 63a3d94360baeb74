// Any text as a filter file: it is refused in the shell's words, or becomes conditions that, shown as JSON,
// read the same.
#include <memory>
#include <set>
#include <string>

#include "fuzz/require.h"
#include "runtime/error.h"
#include "runtime/text.h"
#include "shell/filter_file.h"
#include "shell/recorded/shown.h"

namespace {

using salerpt::RuntimeError;
using salerpt::fuzz::Require;
using salerpt::shell::Choice;

std::string Shown(const std::vector<Choice>& choices) {
  auto conditions = std::make_shared<salerpt::Dictionary>();
  for (const Choice& choice : choices) conditions->Set(choice.key, choice.value);
  return salerpt::shell::Show(conditions).dump();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::vector<Choice> choices;
  try {
    choices = salerpt::shell::ParseFilter(salerpt::fuzz::AsText(data, size), "filter.json");
  } catch (const RuntimeError& error) {
    Require(error.Number() == salerpt::error_number::kInvalidCall);
    Require(error.Description().find("filter.json: ") == 0);
    return 0;
  }
  std::set<std::string> keys;
  for (const Choice& choice : choices) {
    Require(!choice.is_text && keys.insert(salerpt::UpperCase(choice.key)).second);
  }
  const std::string shown = Shown(choices);
  Require(Shown(salerpt::shell::ParseFilter(shown, "shown")) == shown);
  return 0;
}
