// The world in which the credit reports run: one object of the middle tier works out the formula of the
// account set and answers a statement, another one runs it.
#pragma once

#include <algorithm>
#include <ostream>

#include "runtime/error.h"
#include "runtime/report.h"
#include "tests/reports/report_world.h"

namespace salerpt::testing {

using Lines = std::vector<std::string>;
using TitleList = std::vector<std::pair<std::string, int>>;

inline const RuntimeError kServerDown(-2147467259, "Server", "the server is not there");

// What tells the three reports apart for the world around them.
struct CreditClass {
  const char* name;
  const char* operation;
  const char* title;
  const char* dialog;
  const char* box_title;
};
inline void PrintTo(const CreditClass& credit_class, std::ostream* out) {
  *out << credit_class.name;
}
inline constexpr CreditClass kCreditByQuantity{"Rpt145", "GetCreditRptByQty", "信用数量分析表",
                                               "frmFirter145", "系统提示"};
inline constexpr CreditClass kCreditByAmount{"Rpt146", "GetCreditRptByAmt", "信用额度分析表", "frmFirter146",
                                             "青岚提示"};
inline constexpr CreditClass kCreditTerm{"Rpt149", "GetCreditRptByDate", "信用期限分析表", "frmFirter149",
                                         "系统提示"};

class CreditWorld : public ReportWorld {
 protected:
  static constexpr const char* kStatement = "SELECT * FROM t_Organization";

  explicit CreditWorld(const CreditClass& credit_class)
      : ReportWorld(credit_class.name, "GetData", 1), credit_class_(credit_class) {
    credit_ = RegisterFake(runtime_, "ORVMSaleCredit.clsGetData");
    AnswerCredit();
    AnswerRows();
  }
  // These reports write no SQL.
  [[nodiscard]] const Pieces& Texts() const override {
    static const Pieces none;
    return none;
  }

  // The credit object: keeps what it got and answers `statement_`.
  void AnswerCredit() {
    credit_->On(credit_class_.operation, [this](Arguments arguments) -> Variant {
      asked_with_ = As<Dictionary>(arguments[0])->Copy();
      answered_in_ = As<Dictionary>(arguments[1]);
      keys_of_the_answer_ = answered_in_->Entries().size();
      progress_at_credit_ = toolkit_->messages;
      if (!statement_.IsEmpty()) answered_in_->Set("Sql", statement_);
      if (on_credit_) on_credit_(arguments);
      return {};
    });
  }
  // The object that runs the statement: keeps it and gives `rows_`.
  void AnswerRows() {
    sales_->On("GetData", [this](Arguments arguments) -> Variant {
      filter_at_rows_ = Filter();
      keys_at_rows_ = filter_at_rows_ ? SortedKeys(*filter_at_rows_) : Lines{};
      progress_at_rows_ = toolkit_->messages;
      if (on_fetch_) on_fetch_(arguments);
      return rows_;
    });
  }

  // What a host sets: nothing is restricted, a credit row is about a customer; `more` over it.
  static DictionaryRef Conditions(Entries more = {}) {
    auto filter = std::make_shared<Dictionary>(Entries{{"FCreditClass", std::int32_t{0}},
                                                       {"FItemIDFrom", ""},
                                                       {"FItemIDTo", ""},
                                                       {"FICItemIDFrom", ""},
                                                       {"FICItemIDTo", ""},
                                                       {"CreditTypeName", "销售订单"},
                                                       {"FDate", "2003-07-01"}});
    for (const Dictionary::Entry& entry : more) filter->Set(entry.key, entry.value);
    return filter;
  }
  void Run(Entries more = {}) {
    SetMember(Report(), "Filter", Conditions(more));
    Call(Report(), "GetReportData");
  }
  void Fetch(Entries more = {}) {
    Run(more);
    EXPECT_TRUE(Ok()) << Error();
  }

  DictionaryRef Filter() { return As<Dictionary>(GetMember(Report(), "Filter")); }
  ObjectRef Rs() { return GetMember(Report(), "Rs").ToObject(); }
  static Lines SortedKeys(const Dictionary& dictionary) {
    Lines keys;
    for (const auto& entry : dictionary.Entries()) keys.push_back(entry.key);
    std::sort(keys.begin(), keys.end());
    return keys;
  }
  // The keys that a host sets, and these.
  static Lines KeysWith(const Lines& more) {
    Lines keys = SortedKeys(*Conditions());
    keys.insert(keys.end(), more.begin(), more.end());
    std::sort(keys.begin(), keys.end());
    return keys;
  }
  Lines NamesOfMembers() {
    Lines names;
    const auto report = std::dynamic_pointer_cast<salerpt::Report>(Report());
    if (!report) return names;
    const auto members = report->Members();
    for (const auto& member : members) names.emplace_back(member.name);
    return names;
  }
  // The names of the menu items, each of which has a name and nothing else.
  Lines MenuNames() {
    Lines names;
    const auto menu = As<Vector>(Call(Report(), "PackMenuInfo"));
    for (std::int32_t i = 1; menu && i <= menu->Size(); ++i) {
      const auto item = As<Dictionary>(menu->Item(i));
      EXPECT_EQ(SortedKeys(*item), Lines{"FMenuName"}) << "item " << i;
      names.push_back(item->Get("FMenuName").ToText());
    }
    return names;
  }
  // The captions of the first two columns, which the credit class names.
  std::pair<std::string, std::string> ClassColumns(const Variant& credit_class) {
    Fetch({{"FCreditClass", credit_class}});
    const Lines columns = HeaderLines();
    if (columns.size() < 2) return {};
    return {columns[0], columns[1]};
  }

  // What a failed fetch leaves: the reason, no rows, no progress dialog.
  void ExpectFailedFetch(std::string_view error, std::string_view source) {
    EXPECT_FALSE(Ok());
    EXPECT_EQ(Error(), error);
    EXPECT_EQ(ErrorSource(), source);
    ExpectNothingLeft();
  }
  void ExpectFailedFetch() {
    EXPECT_FALSE(Ok());
    EXPECT_NE(Error(), "");
    ExpectNothingLeft();
  }
  void ExpectNothingLeft() {
    EXPECT_TRUE(As<Dictionary>(GetMember(Report(), "Result"))->Lookup("ErrorSource"));
    EXPECT_FALSE(HasRows());
    EXPECT_GT(toolkit_->shown, 0);
    EXPECT_EQ(toolkit_->shown, toolkit_->unloaded);
  }
  void ExpectServerDown() { ExpectFailedFetch("the server is not there", "Server"); }
  // An account set without a credit formula: a box says so, nothing is run, and no error is told.
  void ExpectNoFormula() {
    EXPECT_EQ(toolkit_->boxes,
              (std::vector<RecordedBox>{{"没有设信用公式", kBoxInformation, credit_class_.box_title}}));
    EXPECT_TRUE(sales_->Calls().empty());
    ExpectFailedFetch("", "");
  }
  void ExpectFetchIsGoodAgain() {
    Fetch();
    EXPECT_EQ(Rs(), rows_);
    EXPECT_EQ(Error(), "");
    EXPECT_EQ(toolkit_->shown, toolkit_->unloaded);
  }
  void RunWithoutMaker(const std::string& prog_id) {
    Report();
    runtime_.Register(prog_id, [prog_id]() -> ObjectRef {
      throw RuntimeError(error_number::kObjectMaker, "Maker", "no object is registered for " + prog_id);
    });
    Run();
    ExpectFailedFetch("no object is registered for " + prog_id, "Maker");
  }

  CreditClass credit_class_;
  FakeRef credit_;
  // The answer of the credit object; empty for none.
  Variant statement_ = kStatement;
  // What runs within its call.
  std::function<void(Arguments)> on_credit_;
  // What the credit object got last: the conditions as they were then, and the dictionary for its answer.
  DictionaryRef asked_with_, answered_in_;
  std::size_t keys_of_the_answer_ = 0;
  // The report's conditions while the rows are read.
  DictionaryRef filter_at_rows_;
  Lines keys_at_rows_;
  // What the progress dialog had told by then.
  Lines progress_at_credit_, progress_at_rows_;
};

class Rpt145World : public CreditWorld {
 protected:
  Rpt145World() : CreditWorld(kCreditByQuantity) {}
};
class Rpt146World : public CreditWorld {
 protected:
  Rpt146World() : CreditWorld(kCreditByAmount) {}
};
class Rpt149World : public CreditWorld {
 protected:
  Rpt149World() : CreditWorld(kCreditTerm) {}
};

// A dialog that is confirmed as it stands, and writes down what happens to it.
class CreditDialog final : public FilterDialog {
 public:
  CreditDialog(std::string_view name, Lines& steps, DictionaryRef filter)
      : name_(name), steps_(steps), filter_(std::move(filter)) {}
  [[nodiscard]] std::string_view Name() const override { return name_; }
  void SetRptID(std::int32_t family) override { steps_.push_back("family " + std::to_string(family)); }
  void SetStatus(std::int32_t, bool) override { steps_.emplace_back("status"); }
  void Confirm() override { steps_.emplace_back("confirmed"); }
  void ShowFinish(std::string_view) override { steps_.emplace_back("plan"); }
  [[nodiscard]] DictionaryRef Filter() const override { return filter_; }

 private:
  std::string name_;
  Lines& steps_;
  DictionaryRef filter_;
};

}  // namespace salerpt::testing
