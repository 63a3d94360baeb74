// The world in which the lists of orders run: reports that send their conditions themselves, add some keys to
// them, and take back what the middle tier leaves in their place.
#pragma once

#include <algorithm>

#include "runtime/error.h"
#include "runtime/report.h"
#include "tests/reports/report_world.h"

namespace salerpt::testing {

using Lines = std::vector<std::string>;
using TitleList = std::vector<std::pair<std::string, int>>;

inline const RuntimeError kServerDown(-2147467259, "Server", "the server is not there");

class OrderListWorld : public ReportWorld {
 protected:
  OrderListWorld(const char* class_name, const char* operation)
      : ReportWorld(class_name, operation, 1), operation_name_(operation) {}
  // These reports send no texts.
  [[nodiscard]] const Pieces& Texts() const override {
    static const Pieces none;
    return none;
  }

  DictionaryRef Filter() { return As<Dictionary>(GetMember(Report(), "Filter")); }
  // The conditions as they arrive in the middle tier.
  DictionaryRef SentFilter() { return As<Dictionary>(sales_->Calls().back().arguments[1]); }
  // What the report adds to the conditions, sorted by name.
  Lines AddedKeys() {
    Lines added;
    const DictionaryRef before = Conditions();
    const DictionaryRef sent = SentFilter();
    for (const auto& entry : sent->Entries()) {
      if (!before->Lookup(entry.key)) added.push_back(entry.key);
    }
    std::sort(added.begin(), added.end());
    return added;
  }
  Lines NamesOfMembers() {
    Lines names;
    const auto report = std::dynamic_pointer_cast<salerpt::Report>(Report());
    if (!report) return names;
    const auto members = report->Members();
    for (const auto& member : members) names.emplace_back(member.name);
    return names;
  }

  // One line for each column: "caption|second|type|column|visible|merger type", and "|force hide" where the
  // class writes it.
  Lines ColumnLines() {
    Lines lines;
    const auto header = As<Vector>(GetMember(Report(), "Header"));
    for (std::int32_t i = 1; i <= header->Size(); ++i) {
      const auto column = As<Dictionary>(header->Item(i));
      std::string line = column->Get("FColCaption").ToText();
      for (const std::string_view key : {"FHeadSecond", "FColType", "FColName", "FVisible", "FMergerType"}) {
        Append(line, "|", column->Get(key).ToText());
      }
      if (column->Lookup("FForceHide")) Append(line, "|", column->Get("FForceHide").ToText());
      lines.push_back(std::move(line));
    }
    return lines;
  }
  // The keys of each column, in the order in which they are added.
  void ExpectColumnKeys(const Lines& expected) {
    const auto header = As<Vector>(GetMember(Report(), "Header"));
    ASSERT_GT(header->Size(), 0);
    for (std::int32_t i = 1; i <= header->Size(); ++i) {
      const auto column = As<Dictionary>(header->Item(i));
      Lines keys;
      for (const auto& entry : column->Entries()) {
        keys.push_back(entry.key);
        const bool is_number =
            entry.key == "FVisible" || entry.key == "FMergerType" || entry.key == "FForceHide";
        EXPECT_EQ(entry.value.GetKind(), is_number ? Variant::Kind::kInt16 : Variant::Kind::kText)
            << entry.key << " of column " << i;
      }
      EXPECT_EQ(keys, expected) << "column " << i;
    }
  }

  // One call, with the login and the conditions themselves.
  void ExpectOneCall() {
    ASSERT_EQ(sales_->CalledMembers(), Lines{operation_name_});
    const std::vector<Variant>& arguments = sales_->Calls()[0].arguments;
    ASSERT_EQ(arguments.size(), 2U);
    EXPECT_EQ(arguments[0], Variant(kProps));
    EXPECT_EQ(arguments[1].ToObject(), Filter()) << "the conditions themselves";
  }
  void ExpectCustomersAsked() {
    ASSERT_EQ(rights_->CalledMembers(), Lines{"GetDataRight"});
    EXPECT_EQ(rights_->Calls()[0].arguments[0].ToText(), kProps);
    EXPECT_EQ(rights_->Calls()[0].arguments[1].ToInt32(), 16394);
    EXPECT_EQ(rights_->Calls()[0].arguments[2].ToInt32(), 1);
  }
  void ExpectTwoTextsOfProgress() {
    Lines before;
    on_fetch_ = [&](Arguments) { before = toolkit_->messages; };
    Fetch();
    EXPECT_EQ(before, (Lines{"正在连接服务器", "正在从服务器读取数据..."}));
    EXPECT_EQ(toolkit_->messages, before);
    EXPECT_EQ(toolkit_->shown, 1);
    EXPECT_EQ(toolkit_->unloaded, 1);
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
    EXPECT_TRUE(As<Dictionary>(GetMember(Report(), "Result"))->Lookup("ErrorSource"));
    ExpectNothingLeft();
  }
  void ExpectNothingLeft() {
    EXPECT_FALSE(HasRows());
    EXPECT_EQ(toolkit_->shown, toolkit_->unloaded);
    EXPECT_GT(toolkit_->shown, 0);
  }
  void ExpectServerDown() { ExpectFailedFetch("the server is not there", "Server"); }
  void ExpectFetchIsGoodAgain() {
    Fetch();
    EXPECT_TRUE(HasRows());
    EXPECT_EQ(Error(), "");
    EXPECT_EQ(toolkit_->shown, toolkit_->unloaded);
  }
  void RunWithoutMaker(const std::string& prog_id) {
    runtime_.Register(prog_id, [prog_id]() -> ObjectRef {
      throw RuntimeError(error_number::kObjectMaker, "Maker", "no object is registered for " + prog_id);
    });
    runtime_.gl_data = nullptr;
    Run();
    ExpectFailedFetch("no object is registered for " + prog_id, "Maker");
  }

 private:
  std::string operation_name_;
};

// A dialog that is confirmed as it stands, and writes down what happens to it.
class OrderListDialog final : public FilterDialog {
 public:
  OrderListDialog(std::string_view name, Lines& steps, DictionaryRef filter)
      : name_(name), steps_(steps), filter_(std::move(filter)) {}
  [[nodiscard]] std::string_view Name() const override { return name_; }
  void SetRptID(std::int32_t family) override { steps_.push_back("family " + std::to_string(family)); }
  void SetStatus(std::int32_t value, bool visible) override {
    steps_.push_back("status " + std::to_string(value) + (visible ? " shown" : " hidden"));
  }
  void Confirm() override { steps_.emplace_back("confirmed"); }
  void ShowFinish(std::string_view plan) override { steps_.push_back("plan " + std::string(plan)); }
  [[nodiscard]] DictionaryRef Filter() const override { return filter_; }

 private:
  std::string name_;
  Lines& steps_;
  DictionaryRef filter_;
};

}  // namespace salerpt::testing
