#include "runtime/form_services.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "error_check.h"
#include "fake_object.h"
#include "runtime/error.h"
#include "runtime/recordset.h"
#include "runtime/runtime.h"

namespace salerpt {
namespace {

using testing::FakeObject;
using testing::FakeRef;
using testing::RegisterFake;

class FakeCombo : public ComboBox {
 public:
  void Clear() override {
    entries.clear();
    index = -1;
  }
  void AddItem(std::string_view text, std::int32_t item_data) override {
    entries.emplace_back(text, item_data);
  }
  void SetListIndex(std::int32_t list_index) override { index = list_index; }

  std::vector<std::pair<std::string, std::int32_t>> entries{{"left from before", 7}};
  std::int32_t index = -1;
};
using Entries = std::vector<std::pair<std::string, std::int32_t>>;

RecordsetRef EnumerationRows(std::initializer_list<std::pair<std::int32_t, const char*>> entries) {
  const RecordsetRef rows = MakeRecordset();
  rows->AppendField("FInterID", FieldType::kInteger, 0);
  rows->AppendField("FName", FieldType::kVarChar, 80);
  rows->Open();
  for (const auto& [id, name] : entries) {
    rows->AddNew();
    rows->SetInt32(0, id);
    rows->SetText(1, name);
    rows->Update();
  }
  return rows;
}

class FillComboTest : public ::testing::Test {
 protected:
  FillComboTest() { testing::LogIn(runtime_, "UserID=1;"); }
  Runtime runtime_;
  FakeRef server_ = RegisterFake(runtime_, "ORVMReport.ClsReport");
  FakeCombo combo_;
};

TEST_F(FillComboTest, OffersAllAndThenEveryOrderType) {
  server_->Gives("GetRsBySQL", Variant(EnumerationRows({{36680, "一般"}, {36681, "协议"}})));
  FillStatusCombo(combo_);
  EXPECT_EQ(combo_.entries, (Entries{{"全部", -1}, {"一般", 36680}, {"协议", 36681}}));
  EXPECT_EQ(combo_.index, 0);
  EXPECT_EQ(server_->Calls().at(0).arguments.at(1).ToText(),
            "Select FInterID,FName From t_SubMessage Where FTypeID =997");
}

TEST_F(FillComboTest, OffersAllWhereThereIsNoOrderType) {
  server_->Gives("GetRsBySQL", Variant(EnumerationRows({})));
  FillStatusCombo(combo_);
  EXPECT_EQ(combo_.entries, (Entries{{"全部", -1}}));
  EXPECT_EQ(combo_.index, 0);
}

TEST_F(FillComboTest, OffersTheConsignmentStyleAlone) {
  server_->Gives("GetRsBySQL", Variant(EnumerationRows({{20302, "委托代销"}})));
  FillConsignCombo(combo_);
  EXPECT_EQ(combo_.entries, (Entries{{"委托代销", 20302}}));
  EXPECT_EQ(combo_.index, 0);
  EXPECT_EQ(server_->Calls().at(0).arguments.at(1).ToText(),
            "Select FInterID,FName From t_SubMessage Where FInterID = 20302");
}

TEST_F(FillComboTest, SelectsNothingInAComboWithoutEntries) {
  server_->Gives("GetRsBySQL", Variant(EnumerationRows({})));
  FillConsignCombo(combo_);
  EXPECT_TRUE(combo_.entries.empty());
  EXPECT_EQ(combo_.index, -1);
}

TEST_F(FillComboTest, RaisesWhatTheReadRaises) {
  server_->Raises("GetRsBySQL", RuntimeError(-9, "Server", "no"));
  EXPECT_EQ(NumberRaisedBy([&] { FillStatusCombo(combo_); }), -9);
  EXPECT_EQ(NumberRaisedBy([&] { FillConsignCombo(combo_); }), -9);
}

class FakeControl : public Control {
 public:
  FakeControl(std::string type, std::string initial) : text(std::move(initial)), type_(std::move(type)) {}
  [[nodiscard]] std::string_view TypeName() const override { return type_; }
  void SetText(std::string_view value) override { text = value; }
  std::string text;

 private:
  std::string type_;
};

TEST(ClearTextBoxes, EmptiesTextBoxesAndNothingElse) {
  FakeControl box("TextBox", "a");
  FakeControl combo("ComboBox", "b");
  FakeControl other_box("TextBox", "c");
  ClearTextBoxes({&box, &combo, &other_box});
  EXPECT_EQ(box.text, "");
  EXPECT_EQ(combo.text, "b");
  EXPECT_EQ(other_box.text, "");
}

class FormResourcesTest : public ::testing::Test {
 protected:
  Runtime runtime_;
  int made_ = 0;
  FakeRef loader_ = RegisterFake(runtime_, "ORVFrmRes.FrmResLoader", nullptr, &made_);
  FakeRef form_ = std::make_shared<FakeObject>("Form");
};

TEST_F(FormResourcesTest, LoadsNothingInThePinnedLanguage) {
  EXPECT_EQ(LoadFormResources(form_, nullptr, "Q7INDUSTRY"), nullptr);
  const auto dictionary = std::make_shared<Dictionary>();
  EXPECT_EQ(LoadFormResources(form_, dictionary, "Q7INDUSTRY"), dictionary);
  runtime_.language = "CHS";
  LoadFormResources(form_, nullptr, "Q7INDUSTRY");
  EXPECT_EQ(made_, 0);
}

TEST_F(FormResourcesTest, LoadsTheStringsOfAnotherLanguage) {
  runtime_.language = "cht";
  loader_->Gives("LoadFrmResStrings", Variant());
  const DictionaryRef strings = LoadFormResources(form_, nullptr, "Q7INDUSTRY");
  ASSERT_EQ(loader_->Calls().size(), 1U);
  const auto& arguments = loader_->Calls()[0].arguments;
  ASSERT_EQ(arguments.size(), 5U);
  EXPECT_EQ(arguments[0].ToObject(), form_);
  EXPECT_EQ(arguments[1], Variant("cht"));
  EXPECT_EQ(arguments[2], Variant("Q7INDUSTRY"));
  EXPECT_EQ(arguments[3], Variant(""));
  EXPECT_EQ(arguments[4].ToObject(), strings);
  EXPECT_EQ(strings->Get("NeedMLColumnHeaders"), Variant(true));
}

TEST_F(FormResourcesTest, GivesTheDictionaryThatTheLoaderGaveBack) {
  runtime_.language = "cht";
  const auto given_back = std::make_shared<Dictionary>();
  loader_->On("LoadFrmResStrings", [given_back](Arguments arguments) {
    arguments[4] = Variant(given_back);
    return Variant();
  });
  EXPECT_EQ(LoadFormResources(form_, std::make_shared<Dictionary>(), "Q7INDUSTRY"), given_back);
}

TEST_F(FormResourcesTest, SetsTheFontThroughOneLoader) {
  loader_->Gives("SetFrmFont", Variant());
  ApplyFormFont(form_);
  ApplyFormFont(form_);
  EXPECT_EQ(made_, 1);
  EXPECT_EQ(runtime_.language, "chs");
  ASSERT_EQ(loader_->Calls().size(), 2U);
  EXPECT_EQ(loader_->Calls()[0].arguments, (std::vector<Variant>{Variant(form_), Variant("chs")}));
}

TEST_F(FormResourcesTest, RaisesWhatTheLoaderRaises) {
  EXPECT_EQ(NumberRaisedBy([&] { ApplyFormFont(form_); }), error_number::kNoSuchMember);
  runtime_.language = "cht";
  EXPECT_EQ(NumberRaisedBy([&] { LoadFormResources(form_, nullptr, "x"); }), error_number::kNoSuchMember);
}

}  // namespace
}  // namespace salerpt
