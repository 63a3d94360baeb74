// The run-time error: the one exception type of the system.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <utility>

namespace salerpt {

// Raised where an operation fails. It carries what the automation error object of the suite carries: a
// number, the source that raised it, and a description that names the thing, the value and what was expected.
// A report's public operations never let it out: it ends in `Result` ("Error" the description, "ErrorSource"
// the source).
class RuntimeError : public std::runtime_error {
 public:
  RuntimeError(std::int32_t number, std::string source, const std::string& description)
      : std::runtime_error(description), number_(number), source_(std::move(source)) {}

  // The automation error number; below zero for numbers of the form 0x8004....
  [[nodiscard]] std::int32_t Number() const { return number_; }
  // Who raised it, such as "ORVMReport.ClsReport:GetRsBySQL".
  [[nodiscard]] const std::string& Source() const { return source_; }
  [[nodiscard]] std::string Description() const { return what(); }

 private:
  std::int32_t number_;
  std::string source_;
};

// Numbers of the run-time's own errors, as far as the system tells them apart.
namespace error_number {
inline constexpr std::int32_t kInvalidCall = 5;     // invalid procedure call or argument
inline constexpr std::int32_t kOverflow = 6;        // a number does not fit its type
inline constexpr std::int32_t kSubscript = 9;       // an index out of range
inline constexpr std::int32_t kTypeMismatch = 13;   // a value that cannot be turned into the type asked
inline constexpr std::int32_t kFileAccess = 75;     // a file that cannot be read or written
inline constexpr std::int32_t kObjectNotSet = 91;   // a call on nothing
inline constexpr std::int32_t kInvalidNull = 94;    // null where a value is needed
inline constexpr std::int32_t kObjectMaker = 429;   // a ProgID that no object is registered for
inline constexpr std::int32_t kNoSuchMember = 438;  // a member that the object does not have
inline constexpr std::int32_t kDuplicateKey = 457;  // a key that the collection holds already
inline constexpr std::int32_t kDataRight =
    static_cast<std::int32_t>(0x80040064);              // data rights could not be read
inline constexpr std::int32_t kNoCurrentRow = 3021;     // a recordset before its first or behind its last row
inline constexpr std::int32_t kNoSuchField = 3265;      // a field or key that the collection does not hold
inline constexpr std::int32_t kWrongArguments = 3001;   // arguments of the wrong kind, a bad filter text
inline constexpr std::int32_t kClosedRecordset = 3704;  // an operation on a recordset that is not open
}  // namespace error_number

}  // namespace salerpt
