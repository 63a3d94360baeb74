// The suite behind a scripted dialog: plans, look-ups, lists and settings answered from a case.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/recordset.h"
#include "runtime/runtime.h"
#include "runtime/vector.h"
#include "shell/recorded/recorded_suite.h"
#include "shell/scripted/dialog_case.h"

namespace salerpt::shell {

// Answers on top of a recorded suite, which answers reads of the system and raises the faults. Plans that the
// dialog saves are there when it reads them again.
class DialogSuite : public std::enable_shared_from_this<DialogSuite> {
 public:
  explicit DialogSuite(const DialogCase& dialog_case);

  // Registers the objects; `today` is what the server's clock shows.
  void Register(Runtime& runtime, Date today);
  // The next object of a look-up or list; nothing where the user cancels it.
  std::optional<Json> NextLookUp();
  // Calls on the plan store, on look-ups and lists, and usage log lines, in order.
  [[nodiscard]] Json Calls() const;

 private:
  std::optional<Variant> Answer(std::string_view prog_id, std::string_view member, Arguments arguments);
  std::optional<Variant> AnswerPlans(std::string_view member, Arguments arguments);
  std::optional<Variant> AnswerSaleData(std::string_view member, Arguments arguments);
  std::optional<Variant> AnswerList(std::string_view prog_id, std::string_view member);
  [[nodiscard]] RecordsetRef PlanList() const;
  [[nodiscard]] RecordsetRef PlanValues(std::string_view plan) const;
  void SavePlan(const Vector& rows);
  [[nodiscard]] std::string MarkedPlan() const;
  [[nodiscard]] StoredPlan* FindPlan(std::string_view name);

  DialogCase case_;
  std::shared_ptr<RecordedSuite> recorded_;
  Date today_;
  std::size_t next_look_up_ = 0;
  // What the user picked of the list last shown.
  Json picked_;
  // Profile and section that the settings object has loaded.
  std::string loaded_settings_;
};

}  // namespace salerpt::shell
