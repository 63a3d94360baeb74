// A report that writes down what happens to it, in a world that writes into the same journal.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "fake_object.h"
#include "fake_world.h"
#include "runtime/filter_dialog.h"
#include "runtime/progress_form.h"
#include "runtime/report.h"
#include "runtime/report_interfaces.h"
#include "runtime/runtime.h"

namespace salerpt::testing {

using Steps = std::vector<std::string>;

class ProbeReport;

// What the probes of a test do. Each part runs after its line in the journal.
struct ProbeScript {
  Steps journal;
  std::function<void()> set_up, title, conditions;
  std::function<void(ProbeReport&)> fetch;
};

// Every overridable part of the skeleton.
class ProbeReport : public Report {
 public:
  // The script of the running test; probes are made by ProgID, so it cannot be handed to them.
  static ProbeScript*& Script() {
    static ProbeScript* script = nullptr;
    return script;
  }
  // For a script to fill what a report's own fetch fills.
  using Report::header_;
  using Report::Progress;
  using Report::rs_;

 protected:
  explicit ProbeReport(std::string_view class_name) : Report(class_name) {}

  void InitProperty(std::int32_t number) override {
    Write("set-up " + std::to_string(number), Script()->set_up);
    Report::InitProperty(number);
  }
  void BuildTitle() override {
    title_ = std::make_shared<Vector>();
    Write("title", Script()->title);
  }
  void BuildConditions() override { Write("conditions", Script()->conditions); }
  void FetchData() override {
    Write("fetch", nullptr);
    header_ = std::make_shared<Vector>();
    rs_ = MakeRecordset();
    if (Script()->fetch) Script()->fetch(*this);
  }

 private:
  static void Write(std::string line, const std::function<void()>& part) {
    Script()->journal.push_back(std::move(line));
    if (part) part();
  }
};

template <std::size_t N>
struct ClassNameText {
  char text[N];
  consteval ClassNameText(const char (&name)[N]) { std::copy(name, name + N, text); }  // NOLINT
};

// A probe under the name, and so with the table row and the interface, of a report class.
template <ClassNameText kName>
class ProbeOf final : public ProbeReport {
 public:
  ProbeOf() : ProbeReport(kName.text) {}
  [[nodiscard]] std::span<const Member<Report>> Members() const override { return InterfaceOf(kName.text); }
};

// Writes down the progress dialog's texts and its going, filter dialogs shown, and messages let run outside
// of them.
class JournalToolkit : public FakeToolkit {
 public:
  explicit JournalToolkit(Steps& journal) : journal_(journal) {}
  void DoEvents() override {
    FakeToolkit::DoEvents();
    if (!is_modal_) journal_.emplace_back("messages run");
  }
  void ShowModal(ProgressForm& form) override {
    is_modal_ = true;
    form.MessageChanged.Connect([this](const std::string& text) { journal_.push_back("message " + text); });
    form.Load();
    form.Activate();
    is_modal_ = false;
    journal_.emplace_back(form.IsUnloaded() ? "progress gone" : "progress left standing");
  }
  void ShowModal(FilterDialog& dialog) override {
    journal_.emplace_back("dialog shown");
    dialog.Confirm();
  }

 private:
  Steps& journal_;
  bool is_modal_ = false;
};

// What a dialog of the test answers.
struct DialogAnswer {
  DictionaryRef filter;
  std::function<void()> on_confirm;
};

// A filter dialog that gives its answer and writes down what is asked of it.
class JournalDialog final : public FilterDialog {
 public:
  JournalDialog(std::string name, Steps& journal, const DialogAnswer& answer)
      : name_(std::move(name)), journal_(journal), answer_(answer) {
    journal_.push_back("made " + name_);
  }
  ~JournalDialog() override { journal_.emplace_back("dialog released"); }
  [[nodiscard]] std::string_view Name() const override { return name_; }
  void SetRptID(std::int32_t family) override { journal_.push_back("family " + std::to_string(family)); }
  void SetStatus(std::int32_t value, bool visible) override {
    journal_.push_back("status " + std::to_string(value) + (visible ? " visible" : " hidden"));
  }
  void Confirm() override {
    if (answer_.on_confirm) answer_.on_confirm();
  }
  void ShowFinish(std::string_view plan) override { journal_.push_back("finish " + std::string(plan)); }
  [[nodiscard]] DictionaryRef Filter() const override { return answer_.filter; }

 private:
  std::string name_;
  Steps& journal_;
  const DialogAnswer& answer_;
};

// A world in which probes can be made: a login, the code profile, the log.
class ReportProbeTest : public ::testing::Test {
 protected:
  static constexpr const char* kProps = "UserName=abc;UserID=16394;";

  ReportProbeTest() {
    ProbeReport::Script() = &script_;
    runtime_.SetToolkit(toolkit_);
    host_ = LogIn(runtime_, kProps);
    profile_ = RegisterFake(runtime_, "ORVEBSBase.SystemProfile");
    profile_->Gives("GetProfile", "0");
    log_ = RegisterFake(runtime_, "ORVEBCGLView.GLData");
    log_->On("WriteLog", [this](Arguments arguments) -> Variant {
      script_.journal.push_back("log " + arguments[0].ToText() + " " + arguments[1].ToText() + " " +
                                arguments[2].ToText());
      return {};
    });
    RegisterProbe<"Rpt128">();
    RegisterProbe<"Rpt147">();
  }
  ~ReportProbeTest() override { ProbeReport::Script() = nullptr; }

  template <ClassNameText kName>
  void RegisterProbe() {
    runtime_.Register(ReportProgID(kName.text), [] { return MakeReport<ProbeOf<kName>>(); });
  }
  // A new report, its making left out of the journal.
  ObjectRef Make(std::string_view class_name) {
    ObjectRef report = CreateObject(ReportProgID(class_name));
    script_.journal.clear();
    return report;
  }
  // The same with conditions in it.
  ObjectRef MakeFiltered(std::string_view class_name) {
    ObjectRef report = Make(class_name);
    SetMember(report, "Filter", Conditions());
    return report;
  }
  static DictionaryRef Conditions() { return std::make_shared<Dictionary>(); }
  static DictionaryRef Confirmed() {
    return std::make_shared<Dictionary>(std::initializer_list<Dictionary::Entry>{{"OK", true}});
  }

  static DictionaryRef Result(const ObjectRef& report) { return As<Dictionary>(GetMember(report, "Result")); }
  static bool Ok(const ObjectRef& report) { return Result(report)->Get("OK").ToBoolean(); }
  static std::string Error(const ObjectRef& report) { return Result(report)->Get("Error").ToText(); }
  static ObjectRef ObjectOf(const ObjectRef& report, std::string_view member) {
    return GetMember(report, member).ToObject();
  }

  ProbeScript script_;
  Runtime runtime_;
  std::shared_ptr<JournalToolkit> toolkit_ = std::make_shared<JournalToolkit>(script_.journal);
  FakeRef host_, profile_, log_;
};

}  // namespace salerpt::testing
