// The recorded suite: middle-tier objects that answer from a case and note every call.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "runtime/recordset.h"
#include "runtime/runtime.h"
#include "shell/recorded/recorded_case.h"
#include "shell/recorded/recording.h"

namespace salerpt::shell {

// Stands behind every middle-tier object of a Runtime. Reads of the system are answered from the case and not
// noted: properties of the login, system settings (by `GetProfile`, and by a select on their table through
// any object), the scale of the base currency, data rights and access rights. Lines for the log are noted
// apart. Any other member, whatever its name, is noted and answered by the case: its fault, else its replies
// and its answer, else an empty row set.
//
// Use it where a test or a support engineer wants to see what a report sends; it checks no SQL and knows no
// data.
class RecordedSuite : public std::enable_shared_from_this<RecordedSuite> {
 public:
  explicit RecordedSuite(RecordedCase recorded_case);

  // What answers before the case does, for a suite that follows the calls; nothing leaves it to the case.
  using Answerer =
      std::function<std::optional<Variant>(std::string_view prog_id, std::string_view member, Arguments)>;
  void SetAnswerer(Answerer answerer) { answerer_ = std::move(answerer); }

  // Registers a maker for each middle-tier ProgID, and the toolkit that notes message boxes and progress.
  void Register(Runtime& runtime);
  // What was noted since the last TakeRecording.
  Recording TakeRecording();
  [[nodiscard]] Recording& Noted() { return recording_; }

  // A call on the object of a ProgID. Arguments are noted as they are before the call. Raises the member's
  // fault.
  Variant Invoke(std::string_view prog_id, std::string_view member, Arguments arguments);

 private:
  struct SystemMember;
  static const SystemMember* FindSystemMember(std::string_view prog_id, std::string_view member);

  void RaiseFault(std::string_view member) const;
  [[nodiscard]] Json ShowArguments(Arguments arguments) const;
  void WriteReplies(std::string_view member, Arguments arguments) const;
  Variant NextAnswer(std::string_view member);

  Variant SharedProperty(Arguments arguments);
  Variant DeleteProperty(Arguments arguments);
  Variant Profile(Arguments arguments);
  Variant DataRight(Arguments arguments);
  Variant Access(Arguments arguments);
  Variant Log(Arguments arguments);
  [[nodiscard]] RecordsetRef ProfileRows(std::string_view sql) const;
  [[nodiscard]] RecordsetRef CurrencyScale() const;

  RecordedCase case_;
  Answerer answerer_;
  Recording recording_;
  // Member to the number of answers that an array has given.
  std::map<std::string, std::size_t, NameLess> answered_;
};

}  // namespace salerpt::shell
