// The report object: what every sales report has in common.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "runtime/bar.h"
#include "runtime/dictionary.h"
#include "runtime/filter_dialog.h"
#include "runtime/object.h"
#include "runtime/recordset.h"
#include "runtime/report_class.h"
#include "runtime/vector.h"

namespace salerpt {

// The skeleton of a report. A host creates a report by ProgID, optionally sets `RptID` and `ExtFirter`, calls
// `ShowFilter` or sets `Filter`, calls `GetReportData`, reads `Result`, and on "OK" true reads `Rs`,
// `Header`, `Title` and `Property`. No error leaves a public operation but `GetDetailReport`: it ends in
// `Result`.
//
// A class supplies `InitProperty` where it has set-up of its own, `BuildTitle`, `FetchData` and its member
// table; MakeReport makes an object of it.
class Report : public Object {
 public:
  ~Report() override;

  // --- Members of the interface; their order differs by class and stands in the class's member table.
  [[nodiscard]] std::int32_t RptID() const { return rpt_id_; }
  virtual void SetRptID(std::int32_t number) { rpt_id_ = number; }
  [[nodiscard]] const DictionaryRef& Filter() const { return filter_; }
  // Takes the conditions; nothing takes the report back to the state of a failed filter.
  void SetFilter(DictionaryRef filter);
  // The number of the filter plan family as decimal text; runs InitProperty again.
  void SetExtFirter(std::string_view family);
  [[nodiscard]] const DictionaryRef& Property() const { return property_; }
  [[nodiscard]] const DictionaryRef& Result() const { return result_; }
  [[nodiscard]] const VectorRef& Header() const { return header_; }
  [[nodiscard]] const VectorRef& Title() const { return title_; }
  [[nodiscard]] const RecordsetRef& Rs() const { return rs_; }
  // Runs the fetch under the progress dialog. `Title` stays as it is.
  void Refresh();
  // Opens the filter dialog; with `auto_filter`, in the classes of the fuller form, the marked plan runs
  // without it.
  void ShowFilter(bool auto_filter);
  // Builds title and rows. Does nothing while `Result` "OK" is false.
  void GetReportData();
  // A report object for the row (from 0, among the rows that the host sees), or nothing. Raises with number
  // -1 what the detail report answered.
  virtual ObjectRef GetDetailReport(std::int32_t row);
  // Extra menu items that the report offers the host.
  [[nodiscard]] virtual VectorRef PackMenuInfo() const;
  // Free read for the host. False, after a message box, where it fails.
  static bool GetRsBySQL(std::string_view sql, RecordsetRef& rows);
  // The fetch proper, in the classes that name it so.
  virtual Variant GetRptList(Arguments arguments);
  // `Rpt189` only: runs with default conditions, without a dialog.
  virtual void ShowNoFilter();

  [[nodiscard]] std::string_view ClassName() const override { return prog_id_; }
  Variant Invoke(std::string_view member, InvokeKind kind, Arguments arguments) override;
  // The class's interface in its order.
  [[nodiscard]] virtual std::span<const Member<Report>> Members() const = 0;
  [[nodiscard]] const ReportClass& Class() const { return class_; }

 protected:
  explicit Report(std::string_view class_name);

  // Set-up: `Property`, made anew from the table of classes, and whatever texts a class fixes once. It is
  // called when the object is made, by SetExtFirter and by the fuller ShowFilter; what it raises ends in
  // `Result`, and the next fetch tries again.
  virtual void InitProperty(std::int32_t number);
  // What a class sets on its new dialog before it is shown: in the fuller form of ShowFilter the status.
  virtual void PrepareDialog(FilterDialog& dialog);
  // `Title` from `Filter`.
  virtual void BuildTitle() = 0;
  // Between the title and the fetch: conditions from `Filter`.
  virtual void BuildConditions() {}
  // What the activated progress dialog runs: the message, then the fetch.
  virtual void OnActive();
  // The fetch: header, rows. Runs in the closing frame of RunFetch.
  virtual void FetchData() = 0;

  // Runs `fetch` in the closing frame: success unloads the progress dialog and sets "OK" true; any failure
  // sets "OK" false, "ErrorSource", "Error", drops the rows and unloads the progress dialog. Inside it a
  // failed set-up is tried again.
  template <typename Fetch>
  void RunFetch(Fetch&& fetch) {
    RunGuarded([&] {
      RetrySetUp();
      std::forward<Fetch>(fetch)();
      FinishFetch();
    });
  }
  // The failing half of the closing frame alone, around what comes before a fetch.
  template <typename Work>
  void RunGuarded(Work&& work) {
    try {
      std::forward<Work>(work)();
    } catch (const std::exception& failure) {
      FailFetch(failure);
    }
  }

  // The conditions; raises object-not-set where the filter is nothing.
  [[nodiscard]] Dictionary& Conditions() const;
  // The progress bar of the running fetch; raises object-not-set outside of one.
  [[nodiscard]] Bar& Progress() const;
  // Ends the progress dialog, if one shows.
  void UnloadProgress();
  // The number of the filter plan family: the numeric value of the extended filter text.
  [[nodiscard]] std::int32_t PlanFamily() const;
  // Takes back a filter that went to the middle tier by reference.
  void ReplaceFilter(const Variant& filter);

  std::string ext_filter_;  // the extended filter text
  DictionaryRef property_;
  VectorRef header_;
  VectorRef title_;
  RecordsetRef rs_;

 private:
  template <typename T>
  friend std::shared_ptr<T> MakeReport();

  void ClassInitialize();
  void TrySetUp();
  void SetUp();
  void RetrySetUp();
  void FinishFetch();
  void FailFetch(const std::exception& failure);
  void SetResult(bool ok, std::string_view error);
  void TakeDialogFilter(const DictionaryRef& filter);

  const ReportClass& class_;
  std::string prog_id_;
  std::int32_t rpt_id_ = 0;
  DictionaryRef filter_;
  DictionaryRef result_;
  std::shared_ptr<Bar> m_ProgBar;
  bool is_set_up_ = false;
};

// A new object of a report class, made the way a ProgID makes it.
template <typename T>
std::shared_ptr<T> MakeReport() {
  auto report = std::make_shared<T>();
  report->ClassInitialize();
  return report;
}

}  // namespace salerpt
