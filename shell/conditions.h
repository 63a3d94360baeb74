// The conditions of a report: what its dialog gives, and over it what the user chose.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "runtime/dictionary.h"

namespace salerpt::shell {

// One condition as the user gave it.
struct Choice {
  std::string key;
  Variant value;
  // Where it was given, for messages: "BDate=2024-13-01", or a file and a JSON pointer.
  std::string place;
  // From the command line: a text that still has to become what the key holds. Values of a file have their
  // type already.
  bool is_text = false;
};

// "KEY=VALUE". Raises invalid-call for an argument without a key or without "=".
Choice ParseChoice(std::string_view argument);

// The value of a choice as its key holds it, told by the key's default:
// - a date: YYYY-MM-DD, a real day; a key whose default is the text of a day holds such a text;
// - a number: whole ones as 32-bit integers, others as doubles; a key whose default is whole takes no others;
// - a boolean: true or false;
// - a text: as it stands, "0101" included; from a file also a number, written out;
// - an object: from a file only.
// Raises invalid-call naming place and value, and what was expected.
Variant TypedValue(const Choice& choice, const Variant& by_default);

// The choices as conditions of the dialog (by class name), whose defaults tell their types; a later choice
// for a key replaces an earlier one. Raises invalid-call for a key that the dialog does not have, naming it
// and the known ones, for a value of a wrong type, and for a "SumMode" that is not in the dialog's list.
std::vector<Dictionary::Entry> TypedConditions(std::string_view dialog, const std::vector<Choice>& choices);

}  // namespace salerpt::shell
