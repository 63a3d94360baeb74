// A world in which the period report runs: a login, a calendar, and a middle tier that gives rows by period.
#pragma once

#include <gtest/gtest.h>

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
#include "tests/runtime/fake_object.h"
#include "tests/runtime/fake_world.h"

namespace salerpt::testing {

using Lines = std::vector<std::string>;

// Writes down the texts of the progress dialog, and what its bar shows whenever that differs from before.
class PeriodToolkit : public FakeToolkit {
 public:
  using FakeToolkit::ShowModal;
  void ShowModal(ProgressForm& form) override {
    form.MessageChanged.Connect([this](const std::string& text) {
      messages.push_back(text);
      steps.push_back(text);
    });
    form.BarChanged.Connect([this, &form] { WriteBar(form); });
    form.Load();
    form.Activate();
    unloaded = form.IsUnloaded();
  }

  Lines messages;
  // Texts and bar together.
  Lines steps;
  bool unloaded = false;

 private:
  void WriteBar(const ProgressForm& form) {
    const std::string bar = form.IsBarVisible()
                                ? std::to_string(form.Value()) + " of " + std::to_string(form.Min()) + ".." +
                                      std::to_string(form.Max())
                                : "hidden";
    if (bar != last_bar_) steps.push_back(bar);
    last_bar_ = bar;
  }
  std::string last_bar_;
};

// The kind of a value and the value, for comparing whole rows.
inline std::string Shown(const Variant& value) {
  switch (value.GetKind()) {
    case Variant::Kind::kEmpty:
      return "empty";
    case Variant::Kind::kNull:
      return "null";
    case Variant::Kind::kBoolean:
      return "flag " + value.ToText();
    case Variant::Kind::kInt16:
      return "short " + value.ToText();
    case Variant::Kind::kInt32:
      return "long " + value.ToText();
    case Variant::Kind::kDouble:
      return "double " + value.ToText();
    case Variant::Kind::kCurrency:
      return "money " + value.ToText();
    case Variant::Kind::kDate:
      return "date " + value.ToText();
    case Variant::Kind::kText:
      return "text " + value.ToText();
    case Variant::Kind::kObject:
      return "object";
  }
  return "?";
}

class Rpt147World : public ::testing::Test {
 protected:
  using Entries = std::initializer_list<Dictionary::Entry>;
  struct SourceField {
    std::string_view name;
    FieldType type;
  };
  static constexpr const char* kProps = "UserName=abc;UserID=16394;";

  Rpt147World() {
    runtime_.SetToolkit(toolkit_);
    LogIn(runtime_, kProps);
    RegisterReports(runtime_);
    profile_ = RegisterFake(runtime_, "ORVEBSBase.SystemProfile");
    rights_ = RegisterFake(runtime_, "ORVEBSGLItem.ItemInfo");
    data_ = RegisterFake(runtime_, "ORVMCaculateRpt.Data", nullptr, &data_objects_made_);
    rights_->Gives("GetDataRight", false);
    AnswerProfile("0", 12);
    data_->On("GetSaleData", [this](Arguments arguments) { return SaleData(arguments); });
  }

  // Whether the short code is in use, and the periods of a year.
  void AnswerProfile(const Variant& use_short_number, const Variant& period_count) {
    profile_->On("GetProfile", [=](Arguments arguments) -> Variant {
      const std::string key = arguments.back().ToText();
      if (key == "UseShortNumber") return use_short_number;
      if (key == "PeriodCount") return period_count;
      return Null();
    });
  }

  // --- Rows of the middle tier
  static constexpr SourceField kSourceFields[] = {
      {"FQty", FieldType::kDouble},
      {"FAmount", FieldType::kCurrency},
      {"FInterID", FieldType::kInteger},
      {"FEntryID", FieldType::kInteger},
      {"FDate", FieldType::kDate},
      {"FVoucherNo", FieldType::kVarChar},
      {"FNote", FieldType::kVarChar},
      {"FBillNo", FieldType::kVarChar},
      {"FTranType", FieldType::kInteger},
      {"FItemID", FieldType::kInteger},
      {"FNumber", FieldType::kVarChar},
      {"FShortNumber", FieldType::kVarChar},
      {"FName", FieldType::kVarChar},
      {"FModel", FieldType::kVarChar},
      {"FUnitName", FieldType::kVarChar},
      {"FQtyDecimal", FieldType::kSmallInt},
      {"FPriceDecimal", FieldType::kSmallInt},
      {"FPrice", FieldType::kDouble},
  };
  // A set with the fields of the middle tier, some of another type, without one if so asked.
  static RecordsetRef Sales(const std::vector<SourceField>& other_types = {}, std::string_view without = "") {
    const RecordsetRef rows = MakeRecordset();
    for (SourceField field : kSourceFields) {
      if (field.name == without) continue;
      for (const SourceField& other : other_types) {
        if (other.name == field.name) field.type = other.type;
      }
      rows->AppendField(field.name, field.type, field.type == FieldType::kVarChar ? 255 : 0);
    }
    rows->Open();
    return rows;
  }
  // An invoice line of 2003-07-15: 2 pieces for 25, and `more` over it.
  static void AddSale(Recordset& rows, Entries more = {}) {
    Dictionary line{{"FQty", 2.0},
                    {"FAmount", Currency::FromDouble(25)},
                    {"FInterID", 1001},
                    {"FEntryID", 1},
                    {"FDate", Date::FromYmd(2003, 7, 15)},
                    {"FVoucherNo", "记-12"},
                    {"FNote", "零售"},
                    {"FBillNo", "XSFP0001"},
                    {"FTranType", 80},
                    {"FItemID", 77},
                    {"FNumber", "01.02.0003"},
                    {"FShortNumber", "0003"},
                    {"FName", "台灯"},
                    {"FModel", "TD-40"},
                    {"FUnitName", "只"},
                    {"FQtyDecimal", std::int16_t{0}},
                    {"FPriceDecimal", std::int16_t{2}},
                    {"FPrice", 12.5}};
    for (const Dictionary::Entry& entry : more) line.Set(entry.key, entry.value);
    rows.AddNew();
    for (const Dictionary::Entry& entry : line.Entries()) {
      if (rows.FindField(entry.key) >= 0) rows.SetValue(entry.key, entry.value);
    }
    rows.Update();
    rows.MoveFirst();
  }
  static RecordsetRef OneSale(Entries more = {}) {
    const RecordsetRef rows = Sales();
    AddSale(*rows, more);
    return rows;
  }
  // What the middle tier gives for a period; no rows where nothing is said.
  void Give(int year, int period, RecordsetRef rows) { sales_[{year, period}] = std::move(rows); }

  // --- Running
  static DictionaryRef Periods(int begin_year, int begin_period, int end_year, int end_period,
                               Entries more = {}) {
    auto filter = std::make_shared<Dictionary>(Entries{{"BYear", static_cast<std::int16_t>(begin_year)},
                                                       {"BPeriod", static_cast<std::int16_t>(begin_period)},
                                                       {"EYear", static_cast<std::int16_t>(end_year)},
                                                       {"EPeriod", static_cast<std::int16_t>(end_period)}});
    for (const Dictionary::Entry& entry : more) filter->Set(entry.key, entry.value);
    return filter;
  }
  ObjectRef Report() {
    if (!report_) report_ = CreateObject("ORVSaleRpt.Rpt147");
    return report_;
  }
  void Run(const DictionaryRef& filter) {
    SetMember(Report(), "Filter", filter);
    Call(Report(), "GetReportData");
  }
  // The fetch must succeed.
  void Fetch(const DictionaryRef& filter) {
    Run(filter);
    EXPECT_TRUE(Ok()) << Error();
  }

  // --- What came of it
  Variant ResultOf(std::string_view key) { return As<Dictionary>(GetMember(Report(), "Result"))->Get(key); }
  bool Ok() { return ResultOf("OK").ToBoolean(); }
  std::string Error() { return ResultOf("Error").ToText(); }
  RecordsetRef Rs() { return As<Recordset>(GetMember(Report(), "Rs")); }
  DictionaryRef Filter() { return As<Dictionary>(GetMember(Report(), "Filter")); }
  // A row from 0, its fields in order.
  Lines Row(int number) {
    Lines fields;
    const RecordsetRef rows = Rs();
    if (!rows || number >= rows->RecordCount()) return fields;
    rows->MoveFirst();
    rows->Move(number);
    for (int i = 0; i < rows->FieldCount(); ++i) fields.push_back(Shown(rows->Value(i)));
    return fields;
  }
  // One field of all rows.
  Lines Column(std::string_view field) {
    Lines values;
    const RecordsetRef rows = Rs();
    if (!rows) return values;
    for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext()) values.push_back(Shown(rows->Value(field)));
    return values;
  }
  // The same on the first row, and on the last.
  std::string First(std::string_view field) {
    const Lines values = Column(field);
    return values.empty() ? "no rows" : values.front();
  }
  std::string Last(std::string_view field) {
    const Lines values = Column(field);
    return values.empty() ? "no rows" : values.back();
  }
  // What a failed fetch leaves: no rows, no progress dialog, the reason.
  void ExpectFailed() {
    EXPECT_FALSE(Ok());
    EXPECT_NE(Error(), "");
    EXPECT_TRUE(As<Dictionary>(GetMember(Report(), "Result"))->Lookup("ErrorSource"));
    EXPECT_EQ(Rs(), nullptr);
    EXPECT_TRUE(toolkit_->unloaded);
  }

  Runtime runtime_;
  std::shared_ptr<PeriodToolkit> toolkit_ = std::make_shared<PeriodToolkit>();
  FakeRef profile_, rights_, data_;
  int data_objects_made_ = 0;
  // The periods asked for, in order: "2003.7".
  Lines asked_;
  // What runs within a call, before its rows are given.
  std::function<void(Arguments)> on_call_;
  ObjectRef report_;

 private:
  Variant SaleData(Arguments arguments) {
    const std::pair period(arguments[1].ToInt32(), arguments[2].ToInt32());
    asked_.push_back(std::to_string(period.first) + "." + std::to_string(period.second));
    if (on_call_) on_call_(arguments);
    const auto found = sales_.find(period);
    return found == sales_.end() ? Sales() : found->second;
  }
  std::map<std::pair<int, int>, RecordsetRef> sales_;
};

}  // namespace salerpt::testing
