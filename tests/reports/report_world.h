// A world in which a report runs: a login, and a middle tier that writes down what it is asked.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <initializer_list>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "reports/reports.h"
#include "runtime/dictionary.h"
#include "runtime/progress_form.h"
#include "runtime/recordset.h"
#include "runtime/runtime.h"
#include "runtime/vector.h"
#include "tests/reports/expected_text.h"
#include "tests/runtime/fake_object.h"
#include "tests/runtime/fake_world.h"

namespace salerpt::testing {

// Shows the progress dialog and writes down its texts.
class ProgressToolkit : public FakeToolkit {
 public:
  using FakeToolkit::ShowModal;
  void ShowModal(ProgressForm& form) override {
    ++shown;
    form.MessageChanged.Connect([this](const std::string& text) { messages.push_back(text); });
    form.Load();
    form.Activate();
    if (form.IsUnloaded()) ++unloaded;
  }
  std::vector<std::string> messages;
  int shown = 0;
  int unloaded = 0;
};

// One report class over one operation of `ORVMSaleRpt.Data`: the test of a class derives from it and names
// both, and gives the pieces of its texts.
class ReportWorld : public ::testing::Test {
 protected:
  using Request = std::map<std::string, std::string>;
  using Entries = std::initializer_list<Dictionary::Entry>;

  static constexpr const char* kProps = "UserName=abc;UserID=16394;";

  // `request_argument`: the place, from 0, of the dictionary that the operation gets and that the tests read.
  ReportWorld(std::string class_name, std::string operation, std::size_t request_argument)
      : class_name_(std::move(class_name)),
        operation_(std::move(operation)),
        request_argument_(request_argument) {
    runtime_.SetToolkit(toolkit_);
    host_ = LogIn(runtime_, kProps);
    RegisterReports(runtime_);
    profile_ = RegisterFake(runtime_, "ORVEBSBase.SystemProfile");
    currency_ = RegisterFake(runtime_, "ORVMPurchaseRpt.Data");
    rights_ = RegisterFake(runtime_, "ORVEBSGLItem.ItemInfo");
    ledger_ = RegisterFake(runtime_, "ORVEBCGLView.GLData");
    connection_ = RegisterFake(runtime_, "ORVConnection.AppConnection");
    sales_ = RegisterFake(runtime_, "ORVMSaleRpt.Data");
    profile_->Gives("GetProfile", "0");
    currency_->Gives("GetData", OneValue("FScale", "2"));
    rights_->Gives("GetDataRight", false);
    ledger_->Gives("AccessCheck", true).Gives("WriteLog", true);
    connection_->Gives("Execute", OneField("FValue"));
    AnswerFetch();
  }

  static RecordsetRef OneField(std::string_view field) {
    const RecordsetRef rows = MakeRecordset();
    rows->AppendField(field, FieldType::kVarChar, 255);
    rows->Open();
    return rows;
  }
  static RecordsetRef OneValue(std::string_view field, const Variant& value) {
    const RecordsetRef rows = OneField(field);
    rows->AddNew();
    rows->SetValue(0, value);
    rows->Update();
    rows->MoveFirst();
    return rows;
  }

  // The call of the fetch: keeps the dictionary as it arrives and gives `rows_`.
  void AnswerFetch() {
    sales_->On(operation_, [this](Arguments arguments) -> Variant {
      request_.clear();
      for (const auto& entry : As<Dictionary>(arguments[request_argument_])->Entries()) {
        request_[KeyName(entry.key)] = entry.value.IsObject() ? "<object>" : entry.value.TextOrEmpty();
      }
      if (on_fetch_) on_fetch_(arguments);
      return rows_;
    });
  }
  // Keys ignore case; the one that is written in two ways is told apart by nobody.
  static std::string KeyName(const std::string& key) { return EqualNames(key, "SELECT") ? "SELECT" : key; }

  // The system in which the short code is in use; before the report is made.
  void UseShortCode() { profile_->Gives("GetProfile", "1"); }
  void UseScale(const Variant& scale) { currency_->Gives("GetData", OneValue("FScale", scale)); }
  // Rows restricted for the user.
  void RestrictCustomers() { rights_->Gives("GetDataRight", true); }

  ObjectRef Report() {
    if (!report_) report_ = CreateObject("ORVSaleRpt." + class_name_);
    return report_;
  }
  // The first quarter of 2003, audited bills of both colours, and `more` over it.
  static DictionaryRef Conditions(Entries more = {}) {
    auto filter = std::make_shared<Dictionary>(Entries{{"BDate", Date::FromYmd(2003, 1, 1)},
                                                       {"EDate", Date::FromYmd(2003, 3, 31)},
                                                       {"BItemNumber", ""},
                                                       {"EItemNumber", ""},
                                                       {"BCustNumber", ""},
                                                       {"ECustNumber", ""},
                                                       {"CheckState", std::int32_t{0}},
                                                       {"FROB", std::int32_t{0}}});
    for (const Dictionary::Entry& entry : more) filter->Set(entry.key, entry.value);
    return filter;
  }
  // Sets the filter and fetches; the request as the middle tier got it. The fetch must succeed.
  const Request& Fetch(Entries more = {}) {
    Run(more);
    EXPECT_TRUE(Ok()) << Error();
    return request_;
  }
  // The same, where the fetch may fail.
  void Run(Entries more = {}) {
    request_.clear();
    SetMember(Report(), "Filter", Conditions(more));
    Call(Report(), "GetReportData");
  }

  Variant ResultOf(std::string_view key) { return As<Dictionary>(GetMember(Report(), "Result"))->Get(key); }
  bool Ok() { return ResultOf("OK").ToBoolean(); }
  std::string Error() { return ResultOf("Error").ToText(); }
  std::string ErrorSource() { return ResultOf("ErrorSource").ToText(); }
  bool HasRows() { return GetMember(Report(), "Rs").ToObject() != nullptr; }

  // The named pieces of the report's texts.
  [[nodiscard]] virtual const Pieces& Texts() const = 0;
  [[nodiscard]] std::string Text(std::string_view pattern, const Pieces& more = {}) const {
    return Expand(pattern, Texts(), more);
  }
  // Exactly these keys, with exactly these texts.
  void ExpectRequest(const Request& request, const Pieces& expected, const Pieces& more = {}) const {
    for (const auto& [key, text] : request) {
      if (!expected.contains(key))
        ADD_FAILURE() << "nothing is expected under " << key << ": " << Shown(text);
    }
    for (const auto& [key, pattern] : expected) {
      const auto found = request.find(key);
      if (found == request.end()) {
        ADD_FAILURE() << "the request has no " << key;
        continue;
      }
      EXPECT_TRUE(SameText(found->second, Text(pattern, more))) << "under " << key;
    }
  }
  // The caption and the place of each title line.
  std::vector<std::pair<std::string, int>> TitleLines() {
    std::vector<std::pair<std::string, int>> lines;
    const auto title = As<Vector>(GetMember(Report(), "Title"));
    for (std::int32_t i = 1; i <= title->Size(); ++i) {
      const auto line = As<Dictionary>(title->Item(i));
      lines.emplace_back(line->Get("FCaption").ToText(), line->Get("FIndex").ToInt32());
    }
    return lines;
  }
  // One line for each column of the header: "caption|second|type|column|visible", and "|force hide" where the
  // class writes it.
  std::vector<std::string> HeaderLines() {
    std::vector<std::string> lines;
    const auto header = As<Vector>(GetMember(Report(), "Header"));
    for (std::int32_t i = 1; i <= header->Size(); ++i) {
      const auto column = As<Dictionary>(header->Item(i));
      std::string line;
      for (const std::string_view key : {"FColCaption", "FHeadSecond", "FColType", "FColName", "FVisible"}) {
        Append(line, line.empty() && key == "FColCaption" ? "" : "|", column->Get(key).ToText());
      }
      if (column->Lookup("FForceHide")) Append(line, "|", column->Get("FForceHide").ToText());
      lines.push_back(std::move(line));
    }
    return lines;
  }

  Runtime runtime_;
  std::shared_ptr<ProgressToolkit> toolkit_ = std::make_shared<ProgressToolkit>();
  FakeRef host_, profile_, currency_, rights_, ledger_, connection_, sales_;
  // What the middle tier got last, and the rows that it gives.
  Request request_;
  RecordsetRef rows_ = MakeRecordset();
  // What runs within the middle tier's call.
  std::function<void(Arguments)> on_fetch_;
  ObjectRef report_;

 private:
  std::string class_name_;
  std::string operation_;
  std::size_t request_argument_;
};

}  // namespace salerpt::testing
