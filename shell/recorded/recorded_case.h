// What a recorded suite answers: the part of a case file that tells the system behind the library.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "runtime/text.h"
#include "runtime/variant.h"
#include "shell/recorded/json_place.h"

namespace salerpt::shell {

// An error that an operation raises in place of its answer.
struct Fault {
  std::int32_t number = 0;
  std::string source;
  std::string description;
};

// The login, the system's settings and rights, and the answers of the middle tier. Member names and profile
// keys compare without regard to case.
struct RecordedCase {
  std::string props =
      "UserName=test;UserID=16394;ConnectString={Provider=SQLOLEDB;Data Source=x};LANGUAGE=chs;";
  // "CATEGORY/KEY" to value; null is a row without a value. What is not here has no row.
  std::map<std::string, Variant, NameLess> profile = {{"IC/UseShortNumber", std::int32_t{0}},
                                                      {"GL/PeriodCount", std::int32_t{12}}};
  // Decimals of the base currency; nothing: the currency has no row.
  std::optional<std::int16_t> amount_scale = std::int16_t{2};
  // Kind of a data right to whether the rule is on; off where it is not here.
  std::map<std::int32_t, bool> data_right;
  // The three numbers of a right to whether the user has it; granted where it is not here.
  std::map<std::array<std::int32_t, 3>, bool> access;
  // Member to its answer, or to an array of answers, one a call. Checked when the case is read, built anew at
  // each call.
  std::map<std::string, Json, NameLess> answers;
  // Member to what it writes into the dictionaries that it is given.
  std::map<std::string, Json, NameLess> replies;
  // Member to the error that it raises. "ApplyDataRight" in a case file stands here as "GetDataRight".
  std::map<std::string, Fault, NameLess> faults;
};

// Reads the keys of the system: `props`, `profile`, `amountScale`, `dataRight`, `access`, `answers`,
// `replies`, `faults`; other keys are the caller's. Raises wrong-arguments with JSON pointer, value and what
// was expected.
RecordedCase ReadRecordedCase(const JsonPlace& document);

}  // namespace salerpt::shell
