// Filters on row sets: which rows pass, where the set stands, and what appended and changed rows do to it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cctype>
#include <functional>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "runtime/recordset.h"
#include "tests/runtime/error_check.h"

namespace salerpt {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

enum Fields { kRow, kSmall, kItem, kQty, kAmount, kDay, kIsRed, kName };

RecordsetRef EmptySet() {
  RecordsetRef set = MakeRecordset();
  set->AppendField("FRow", FieldType::kInteger, 0);
  set->AppendField("FSmall", FieldType::kSmallInt, 0);
  set->AppendField("FItemID", FieldType::kInteger, 0);
  set->AppendField("FQty", FieldType::kDouble, 0);
  set->AppendField("FAmount", FieldType::kCurrency, 0);
  set->AppendField("FDate", FieldType::kDate, 0);
  set->AppendField("FIsRed", FieldType::kBoolean, 0);
  set->AppendField("Name of item", FieldType::kVarChar, 30);
  set->Open();
  return set;
}

// A row with a number of its own; all other cells null.
void AddRow(Recordset& set, int row, const std::vector<std::pair<int, Variant>>& values) {
  set.AddNew();
  set.SetInt32(kRow, row);
  for (const auto& [field, value] : values) set.SetValue(field, value);
  set.Update();
}

// Five rows; the last has nulls only.
RecordsetRef SampleSet() {
  RecordsetRef set = EmptySet();
  const auto amount = [](std::int64_t scaled) { return Currency::FromScaled(scaled); };
  AddRow(*set, 0,
         {{kSmall, 1},
          {kItem, 10},
          {kQty, 1.5},
          {kAmount, amount(12'345)},
          {kDay, "2003-07-01"},
          {kIsRed, true},
          {kName, "Kettle"}});
  AddRow(*set, 1,
         {{kSmall, 2},
          {kItem, 10},
          {kQty, 0.0},
          {kAmount, amount(20'000)},
          {kDay, "2003-07-02"},
          {kIsRed, false},
          {kName, "KETTLE lid"}});
  AddRow(*set, 2,
         {{kSmall, 1},
          {kItem, 11},
          {kQty, -0.0},
          {kAmount, amount(1)},
          {kDay, "2003-07-01 08:30"},
          {kIsRed, false},
          {kName, "O'Neil"}});
  AddRow(*set, 3,
         {{kSmall, -1},
          {kItem, 12},
          {kQty, 2.5},
          {kAmount, amount(-12'345)},
          {kDay, "1999-12-31"},
          {kIsRed, true},
          {kName, ""}});
  AddRow(*set, 4, {});
  return set;
}

std::vector<std::int32_t> Rows(Recordset& set) {
  std::vector<std::int32_t> rows;
  for (; !set.Eof(); set.MoveNext()) rows.push_back(set.Int32(kRow));
  return rows;
}

std::vector<std::int32_t> RowsThatPass(std::string_view filter) {
  const RecordsetRef set = SampleSet();
  set->SetFilter(filter);
  return Rows(*set);
}

// --- Which rows pass

TEST(RecordsetFilter, ComparesWholeNumbers) {
  EXPECT_THAT(RowsThatPass("FItemID=10"), ElementsAre(0, 1));
  EXPECT_THAT(RowsThatPass("FItemID<>10"), ElementsAre(2, 3));
  EXPECT_THAT(RowsThatPass("FItemID<11"), ElementsAre(0, 1));
  EXPECT_THAT(RowsThatPass("FItemID>10"), ElementsAre(2, 3));
  EXPECT_THAT(RowsThatPass("FItemID<=11"), ElementsAre(0, 1, 2));
  EXPECT_THAT(RowsThatPass("FItemID>=11"), ElementsAre(2, 3));
  EXPECT_THAT(RowsThatPass("FSmall=-1"), ElementsAre(3));
  EXPECT_THAT(RowsThatPass("fitemid='10'"), ElementsAre(0, 1));
}

TEST(RecordsetFilter, ComparesWholeNumbersWithNumbersBetweenThem) {
  EXPECT_THAT(RowsThatPass("FItemID=10.0"), ElementsAre(0, 1));
  EXPECT_THAT(RowsThatPass("FItemID=1e1"), ElementsAre(0, 1));
  EXPECT_THAT(RowsThatPass("FItemID=10.5"), IsEmpty());
  EXPECT_THAT(RowsThatPass("FItemID<>10.5"), ElementsAre(0, 1, 2, 3));
  EXPECT_THAT(RowsThatPass("FItemID>10.5"), ElementsAre(2, 3));
  EXPECT_THAT(RowsThatPass("FItemID<99999999999999999999"), ElementsAre(0, 1, 2, 3));
}

TEST(RecordsetFilter, ComparesDoubles) {
  EXPECT_THAT(RowsThatPass("FQty=1.5"), ElementsAre(0));
  EXPECT_THAT(RowsThatPass("FQty=15e-1"), ElementsAre(0));
  EXPECT_THAT(RowsThatPass("FQty=0"), ElementsAre(1, 2));
  EXPECT_THAT(RowsThatPass("FQty=-0"), ElementsAre(1, 2));
  EXPECT_THAT(RowsThatPass("FQty>1"), ElementsAre(0, 3));
}

TEST(RecordsetFilter, ComparesAmountsExactly) {
  EXPECT_THAT(RowsThatPass("FAmount=1.2345"), ElementsAre(0));
  EXPECT_THAT(RowsThatPass("FAmount=2"), ElementsAre(1));
  EXPECT_THAT(RowsThatPass("FAmount=1e-4"), ElementsAre(2));
  EXPECT_THAT(RowsThatPass("FAmount=-1.2345"), ElementsAre(3));
  EXPECT_THAT(RowsThatPass("FAmount=-.00010"), IsEmpty());
  EXPECT_THAT(RowsThatPass("FAmount=1.23454"), IsEmpty());
  EXPECT_THAT(RowsThatPass("FAmount<>1.23454"), ElementsAre(0, 1, 2, 3));
  EXPECT_THAT(RowsThatPass("FAmount<1.23454 And FAmount>1.23444"), ElementsAre(0));
}

TEST(RecordsetFilter, TellsLargeAmountsApartByTheirLastDecimal) {
  const RecordsetRef set = EmptySet();
  AddRow(*set, 0, {{kAmount, Currency::FromScaled(9'223'372'036'854'775'806)}});
  AddRow(*set, 1, {{kAmount, Currency::FromScaled(9'223'372'036'854'775'807)}});
  set->SetFilter("FAmount=922337203685477.5807");
  EXPECT_THAT(Rows(*set), ElementsAre(1));
  set->SetFilter("FAmount<922337203685477.5807");
  EXPECT_THAT(Rows(*set), ElementsAre(0));
}

TEST(RecordsetFilter, ComparesDates) {
  EXPECT_THAT(RowsThatPass("FDate=#2003-07-01#"), ElementsAre(0));
  EXPECT_THAT(RowsThatPass("FDate=#2003/7/1 8:30#"), ElementsAre(2));
  EXPECT_THAT(RowsThatPass("FDate=#7/1/2003#"), ElementsAre(0));
  EXPECT_THAT(RowsThatPass("FDate=#7/1/2003 08:30:00#"), ElementsAre(2));
  EXPECT_THAT(RowsThatPass("FDate='2003-07-02'"), ElementsAre(1));
  EXPECT_THAT(RowsThatPass("FDate>=#2003-07-01# And FDate<#2003-07-02#"), ElementsAre(0, 2));
  // 1900-01-01 is day 2.
  EXPECT_THAT(RowsThatPass("FDate>36524"), ElementsAre(0, 1, 2, 3));
  EXPECT_THAT(RowsThatPass("FDate=36525"), ElementsAre(3));
}

TEST(RecordsetFilter, ComparesFlags) {
  EXPECT_THAT(RowsThatPass("FIsRed=True"), ElementsAre(0, 3));
  EXPECT_THAT(RowsThatPass("FIsRed=1"), ElementsAre(0, 3));
  EXPECT_THAT(RowsThatPass("FIsRed=-1"), ElementsAre(0, 3));
  EXPECT_THAT(RowsThatPass("FIsRed='true'"), ElementsAre(0, 3));
  EXPECT_THAT(RowsThatPass("FIsRed=0"), ElementsAre(1, 2));
  EXPECT_THAT(RowsThatPass("FIsRed<>true"), ElementsAre(1, 2));
}

TEST(RecordsetFilter, ComparesTextsWithoutRegardToCase) {
  EXPECT_THAT(RowsThatPass("[Name of item]='kettle'"), ElementsAre(0));
  EXPECT_THAT(RowsThatPass("[Name of item]<>'kettle'"), ElementsAre(1, 2, 3));
  EXPECT_THAT(RowsThatPass("[Name of item]='O''NEIL'"), ElementsAre(2));
  EXPECT_THAT(RowsThatPass("[Name of item]=''"), ElementsAre(3));
  EXPECT_THAT(RowsThatPass("[Name of item]>'kettle'"), ElementsAre(1, 2));
  EXPECT_THAT(RowsThatPass("[Name of item]<='KETTLE'"), ElementsAre(0, 3));
}

TEST(RecordsetFilter, ComparesATextWithANumberAsItIsSpelled) {
  const RecordsetRef set = EmptySet();
  AddRow(*set, 0, {{kName, "12"}});
  AddRow(*set, 1, {{kName, "012"}});
  set->SetFilter("[Name of item]=012");
  EXPECT_THAT(Rows(*set), ElementsAre(1));
}

TEST(RecordsetFilter, MatchesPatterns) {
  EXPECT_THAT(RowsThatPass("[Name of item] Like 'kettle*'"), ElementsAre(0, 1));
  EXPECT_THAT(RowsThatPass("[Name of item] LIKE '%ET%'"), ElementsAre(0, 1));
  EXPECT_THAT(RowsThatPass("[Name of item] like 'kettle'"), ElementsAre(0));
  EXPECT_THAT(RowsThatPass("[Name of item] like '*'"), ElementsAre(0, 1, 2, 3));
}

TEST(RecordsetFilter, FindsNullsOnlyWhereAskedForNull) {
  EXPECT_THAT(RowsThatPass("FItemID=Null"), ElementsAre(4));
  EXPECT_THAT(RowsThatPass("FItemID<>null"), ElementsAre(0, 1, 2, 3));
  EXPECT_THAT(RowsThatPass("[Name of item]=null And FItemID=null"), ElementsAre(4));
  EXPECT_THAT(RowsThatPass("[Name of item]=''"), ElementsAre(3));
}

TEST(RecordsetFilter, JoinsCriteria) {
  EXPECT_THAT(RowsThatPass("FItemID=10 and FSmall=2"), ElementsAre(1));
  EXPECT_THAT(RowsThatPass("FSmall=2 and FItemID=10"), ElementsAre(1));
  EXPECT_THAT(RowsThatPass("FItemID=10 and FQty>1"), ElementsAre(0));
  EXPECT_THAT(RowsThatPass("FItemID=10 and FItemID=11"), IsEmpty());
  EXPECT_THAT(RowsThatPass("FItemID=10 and FItemID=10"), ElementsAre(0, 1));
  EXPECT_THAT(RowsThatPass("FItemID=12 Or FSmall=2"), ElementsAre(1, 3));
  EXPECT_THAT(RowsThatPass("(FItemID=10 And FSmall=1) Or (FItemID=11 And FSmall=1)"), ElementsAre(0, 2));
  EXPECT_THAT(RowsThatPass("FItemID=10 And FSmall=3 Or FItemID=11"), ElementsAre(2));
}

// --- Where the set stands

TEST(RecordsetFilter, StandsOnTheFirstRowThatPasses) {
  const RecordsetRef set = SampleSet();
  set->SetFilter("FItemID=11");
  EXPECT_EQ(set->Int32(kRow), 2);
  EXPECT_EQ(set->RecordCount(), 1);
  EXPECT_EQ(set->Filter(), "FItemID=11");
}

TEST(RecordsetFilter, CountsTheRowsThatPass) {
  const RecordsetRef set = SampleSet();
  set->SetFilter(" FSmall <>2 ");
  EXPECT_EQ(set->RecordCount(), 3);
  EXPECT_EQ(set->Filter(), " FSmall <>2 ");
}

TEST(RecordsetFilter, StandsAtTheEndWhereNoRowPasses) {
  const RecordsetRef set = SampleSet();
  set->SetFilter("FItemID=99");
  EXPECT_TRUE(set->Eof());
  EXPECT_EQ(set->RecordCount(), 0);
  EXPECT_EQ(NumberRaisedBy([&] { static_cast<void>(set->Int32(kRow)); }), error_number::kNoCurrentRow);
  EXPECT_EQ(NumberRaisedBy([&] { set->MoveNext(); }), error_number::kNoCurrentRow);
}

TEST(RecordsetFilter, IsTakenAwayByAnEmptyText) {
  const RecordsetRef set = SampleSet();
  set->SetFilter("FItemID=11");
  set->SetFilter("");
  EXPECT_EQ(set->Filter(), "");
  EXPECT_EQ(set->RecordCount(), 5);
  EXPECT_THAT(Rows(*set), ElementsAre(0, 1, 2, 3, 4));
  set->SetFilter("FItemID=11");
  set->SetFilter("  ");
  EXPECT_EQ(set->Filter(), "");
  EXPECT_EQ(set->Int32(kRow), 0);
}

TEST(RecordsetFilter, MovesAmongTheRowsThatPass) {
  for (const char* filter : {"FSmall=1 Or FSmall=-1", "FIsRed=True"}) {
    const RecordsetRef set = SampleSet();
    AddRow(*set, 5, {{kSmall, 1}, {kIsRed, true}});
    set->SetFilter(filter);
    set->Move(1);
    const std::int32_t second = set->Int32(kRow);
    set->Move(5);
    EXPECT_TRUE(set->Eof());
    set->Move(-1);
    EXPECT_EQ(set->Int32(kRow), 5);
    set->MoveFirst();
    EXPECT_EQ(set->Int32(kRow), 0);
    set->MoveNext();
    EXPECT_EQ(set->Int32(kRow), second);
  }
}

// --- Wrong filters

TEST(RecordsetFilter, StaysWhereTheNextOneIsWrong) {
  const RecordsetRef set = SampleSet();
  set->SetFilter("FItemID=10");
  set->MoveNext();
  EXPECT_EQ(NumberRaisedBy([&] { set->SetFilter("FItemID=11 And"); }), error_number::kWrongArguments);
  EXPECT_EQ(NumberRaisedBy([&] { set->SetFilter("FSmall=1 And FBom=11"); }), error_number::kNoSuchField);
  EXPECT_EQ(NumberRaisedBy([&] { set->SetFilter("FSmall='one'"); }), error_number::kWrongArguments);
  EXPECT_EQ(set->Filter(), "FItemID=10");
  EXPECT_EQ(set->Int32(kRow), 1);
  EXPECT_EQ(set->RecordCount(), 2);
}

TEST(RecordsetFilter, RefusesLiteralsAndTestsThatDoNotSuitTheField) {
  const RecordsetRef set = SampleSet();
  const auto refusal = [&](std::string_view filter) {
    const auto error = RaisedBy([&] { set->SetFilter(filter); });
    EXPECT_EQ(error ? error->Number() : 0, error_number::kWrongArguments) << filter;
    return error ? error->Description() : std::string();
  };
  EXPECT_EQ(refusal("FItemID='ten'"), "the filter on field FItemID has \"ten\" where a number was expected");
  EXPECT_THAT(refusal("FItemID=#2003-07-01#"), HasSubstr("a number was expected"));
  EXPECT_THAT(refusal("FAmount=True"), HasSubstr("a number was expected"));
  EXPECT_THAT(refusal("FItemID=''"), HasSubstr("a number was expected"));
  EXPECT_THAT(refusal("FDate=#2003-02-30#"), AllOf(HasSubstr("2003-02-30"), HasSubstr("a date")));
  EXPECT_THAT(refusal("FDate=#1/2#"), HasSubstr("a date"));
  EXPECT_THAT(refusal("FDate=##"), HasSubstr("a date"));
  EXPECT_THAT(refusal("FDate=True"), HasSubstr("a date"));
  EXPECT_THAT(refusal("FIsRed>0"), HasSubstr("only = or <> on a flag"));
  EXPECT_THAT(refusal("FIsRed='red'"), HasSubstr("True, False or a number"));
  EXPECT_THAT(refusal("FItemID>Null"), HasSubstr("only = or <> before Null"));
  EXPECT_THAT(refusal("FItemID Like '1*'"), HasSubstr("a text field"));
  EXPECT_THAT(refusal("[Name of item] Like 1"), HasSubstr("a 'text'"));
  EXPECT_THAT(refusal("[Name of item]=#2003-07-01#"), HasSubstr("a 'text'"));
}

// --- Rows appended and changed. Each is tried by index (an equality) and by scan (the same with an Or).

class FilterRoads : public ::testing::TestWithParam<const char*> {};
INSTANTIATE_TEST_SUITE_P(Recordset, FilterRoads,
                         ::testing::Values("FItemID=10", "FItemID=10 Or FItemID=10",
                                           "FItemID=10 And FRow>=0"));

TEST_P(FilterRoads, FindRowsAppendedAfterAnEarlierUse) {
  const RecordsetRef set = SampleSet();
  set->SetFilter(GetParam());
  EXPECT_EQ(set->RecordCount(), 2);
  set->SetFilter("");
  AddRow(*set, 5, {{kItem, 10}});
  AddRow(*set, 6, {{kItem, 11}});
  set->SetFilter(GetParam());
  EXPECT_THAT(Rows(*set), ElementsAre(0, 1, 5));
}

TEST_P(FilterRoads, SeeRowsAppendedWhileTheyAreInForce) {
  const RecordsetRef set = SampleSet();
  set->SetFilter(GetParam());
  AddRow(*set, 5, {{kItem, 10}});
  EXPECT_EQ(set->Int32(kRow), 5);
  EXPECT_EQ(set->RecordCount(), 3);
  set->Move(-1);
  EXPECT_EQ(set->Int32(kRow), 1);
  AddRow(*set, 6, {{kItem, 99}});
  // Current until the set is moved, though it does not pass.
  EXPECT_EQ(set->Int32(kRow), 6);
  EXPECT_EQ(set->RecordCount(), 3);
  set->Move(-1);
  EXPECT_EQ(set->Int32(kRow), 5);
  AddRow(*set, 7, {{kItem, 99}});
  set->MoveNext();
  EXPECT_TRUE(set->Eof());
  set->MoveFirst();
  EXPECT_THAT(Rows(*set), ElementsAre(0, 1, 5));
}

TEST_P(FilterRoads, FindRowsAppendedWhereNonePassedBefore) {
  const RecordsetRef set = EmptySet();
  set->SetFilter(GetParam());
  EXPECT_TRUE(set->Eof());
  AddRow(*set, 0, {{kItem, 9}});
  EXPECT_EQ(set->RecordCount(), 0);
  AddRow(*set, 1, {{kItem, 10}});
  EXPECT_EQ(set->RecordCount(), 1);
  set->MoveFirst();
  EXPECT_THAT(Rows(*set), ElementsAre(1));
}

TEST_P(FilterRoads, KeepRowsChangedUnderThemUntilTheNextFilter) {
  const RecordsetRef set = SampleSet();
  AddRow(*set, 5, {{kItem, 10}});
  set->SetFilter(GetParam());
  std::vector<std::int32_t> seen;
  for (; !set->Eof(); set->MoveNext()) {
    seen.push_back(set->Int32(kRow));
    set->SetInt32(kItem, 77);
  }
  EXPECT_THAT(seen, ElementsAre(0, 1, 5));
  EXPECT_EQ(set->RecordCount(), 3);
  AddRow(*set, 6, {{kItem, 10}});
  EXPECT_EQ(set->RecordCount(), 4);
  set->SetFilter(GetParam());
  EXPECT_THAT(Rows(*set), ElementsAre(6));
  set->SetFilter("FItemID=77");
  EXPECT_THAT(Rows(*set), ElementsAre(0, 1, 5));
}

TEST_P(FilterRoads, TakeAnAppendedRowAsItWasEnded) {
  const RecordsetRef set = SampleSet();
  set->SetFilter(GetParam());
  AddRow(*set, 5, {{kItem, 10}});
  set->SetInt32(kItem, 11);
  EXPECT_EQ(set->RecordCount(), 3);
  AddRow(*set, 6, {{kItem, 11}});
  set->SetInt32(kItem, 10);
  EXPECT_EQ(set->RecordCount(), 3);
}

TEST_P(FilterRoads, SeeValuesChangedBeforeThem) {
  const RecordsetRef set = SampleSet();
  set->SetFilter(GetParam());
  set->SetFilter("FRow=3");
  set->SetInt32(kItem, 10);
  set->SetFilter(GetParam());
  EXPECT_THAT(Rows(*set), ElementsAre(0, 1, 3));
  set->SetFilter("FRow=0");
  set->SetValue(kItem, Null());
  set->SetFilter(GetParam());
  EXPECT_THAT(Rows(*set), ElementsAre(1, 3));
}

TEST_P(FilterRoads, IgnoreARowThatIsNotEnded) {
  const RecordsetRef set = SampleSet();
  set->SetFilter(GetParam());
  set->AddNew();
  set->SetInt32(kRow, 5);
  set->SetInt32(kItem, 10);
  EXPECT_EQ(set->RecordCount(), 2);
  set->SetInt32(kItem, 11);
  set->Update();
  EXPECT_EQ(set->RecordCount(), 2);
  set->SetInt32(kItem, 10);
  set->SetFilter(GetParam());
  EXPECT_THAT(Rows(*set), ElementsAre(0, 1, 5));
}

TEST(RecordsetFilter, IndexesTextsOfEachSpelling) {
  const RecordsetRef set = EmptySet();
  for (int row = 0; row < 3000; ++row) {
    AddRow(*set, row, {{kName, (row % 2 == 0 ? "Item " : "ITEM ") + std::to_string(row / 3)}});
  }
  set->SetFilter("[Name of item]='item 700'");
  EXPECT_THAT(Rows(*set), ElementsAre(2100, 2101, 2102));
  set->SetFilter("[Name of item]='ITEM 999'");
  EXPECT_THAT(Rows(*set), ElementsAre(2997, 2998, 2999));
}

TEST(RecordsetFilter, FindsEveryRowOfManyByIndex) {
  const RecordsetRef set = EmptySet();
  for (int row = 0; row < 5000; ++row) AddRow(*set, row, {{kItem, row * 4096}, {kSmall, row % 7}});
  for (int row = 0; row < 5000; ++row) {
    set->SetFilter("FItemID=" + std::to_string(row * 4096) + " and FSmall=" + std::to_string(row % 7));
    ASSERT_EQ(set->RecordCount(), 1);
    ASSERT_EQ(set->Int32(kRow), row);
  }
}

// --- Random rows and criteria against a plain filter

struct PlainRow {
  std::optional<int> small, item, quarters;
  std::optional<std::string> name;
};
struct PlainCriterion {
  std::string text;
  std::function<bool(const PlainRow&)> passes;
};

class RandomFilters {
 public:
  explicit RandomFilters(unsigned seed) : random_(seed) {}

  int Below(int end) { return std::uniform_int_distribution<int>(0, end - 1)(random_); }

  PlainRow Row() {
    PlainRow row;
    if (Below(8) != 0) row.small = Below(4) - 1;
    if (Below(8) != 0) row.item = Below(20);
    if (Below(8) != 0) row.quarters = Below(9) - 4;
    if (Below(8) != 0) row.name = Name();
    return row;
  }

  // Alternatives of conjunctions, with their text.
  PlainCriterion Filter() {
    PlainCriterion filter{"", [](const PlainRow&) { return false; }};
    const int groups = Below(3) == 0 ? 2 : 1;
    for (int i = 0; i < groups; ++i) {
      const PlainCriterion group = Group();
      if (i > 0) filter.text += " or ";
      filter.text += groups > 1 && Below(2) == 0 ? "(" + group.text + ")" : group.text;
      filter.passes = [a = filter.passes, b = group.passes](const PlainRow& row) { return a(row) || b(row); };
    }
    return filter;
  }

 private:
  std::string Name() {
    static const std::vector<std::string> names{"",    "a",  "A",          "ab",        "aB",
                                                "b'c", "壶", "abcdefghij", "ABCDEFGHIJ"};
    return names[static_cast<std::size_t>(Below(static_cast<int>(names.size())))];
  }

  PlainCriterion Group() {
    PlainCriterion group = Criterion();
    for (int more = Below(3); more > 0; --more) {
      const PlainCriterion next = Criterion();
      group.text += " and " + next.text;
      group.passes = [a = group.passes, b = next.passes](const PlainRow& row) { return a(row) && b(row); };
    }
    return group;
  }

  PlainCriterion Criterion() {
    switch (Below(4)) {
      case 0:
        return Compare<int>("FSmall", &PlainRow::small, Below(4) - 1,
                            [](int v) { return std::to_string(v); });
      case 1:
        return Compare<int>("[FItemID]", &PlainRow::item, Below(20), [](int v) { return std::to_string(v); });
      case 2:
        return Compare<int>("FQty", &PlainRow::quarters, Below(9) - 4, [](int v) {
          return (v < 0 ? "-" : "") + std::to_string(std::abs(v) / 4) + "." +
                 std::to_string(std::abs(v) % 4 * 25);
        });
      default:
        return Compare<std::string>("[Name of item]", &PlainRow::name, Name(), [](const std::string& v) {
          std::string quoted = "'";
          for (const char c : v) quoted += c == '\'' ? std::string("''") : std::string(1, c);
          return quoted + "'";
        });
    }
  }

  static int Plain(int value) { return value; }
  static std::string Plain(std::string value) {
    for (char& c : value) {
      if (static_cast<unsigned char>(c) < 0x80) c = static_cast<char>(std::toupper(c));
    }
    return value;
  }

  template <typename T>
  PlainCriterion Compare(const std::string& field, std::optional<T> PlainRow::*cell, const T& literal,
                         const std::function<std::string(const T&)>& spell) {
    if (Below(10) == 0)
      return {field + " = null", [cell](const PlainRow& row) { return !(row.*cell).has_value(); }};
    static const std::vector<std::string> tests{"=", "=", "=", "<>", "<", ">", "<=", ">="};
    const std::string test = tests[static_cast<std::size_t>(Below(static_cast<int>(tests.size())))];
    return {field + test + spell(literal), [cell, test, literal](const PlainRow& row) {
              if (!(row.*cell).has_value()) return false;
              const auto a = Plain(*(row.*cell));
              const auto b = Plain(literal);
              if (test == "=") return a == b;
              if (test == "<>") return a != b;
              if (test == "<") return a < b;
              if (test == ">") return a > b;
              return test == "<=" ? a <= b : a >= b;
            }};
  }

  std::mt19937 random_;
};

void Store(Recordset& set, const PlainRow& row) {
  const auto store = [&set](int field, const auto& cell) {
    if (cell) {
      set.SetValue(field, *cell);
    } else {
      set.SetValue(field, Null());
    }
  };
  store(kSmall, row.small);
  store(kItem, row.item);
  store(kQty, row.quarters ? std::optional(*row.quarters / 4.0) : std::nullopt);
  store(kName, row.name);
}

TEST(RecordsetFilter, AgreesWithAPlainFilterOnRandomRowsAndCriteria) {
  for (unsigned seed = 1; seed <= 20; ++seed) {
    RandomFilters random(seed);
    const RecordsetRef set = EmptySet();
    std::vector<PlainRow> plain;
    for (int step = 0; step < 400; ++step) {
      set->SetFilter("");
      const int kind = random.Below(10);
      if (kind < 3 || plain.empty()) {
        for (int more = random.Below(20); more >= 0; --more) {
          plain.push_back(random.Row());
          set->AddNew();
          set->SetInt32(kRow, static_cast<std::int32_t>(plain.size()) - 1);
          Store(*set, plain.back());
          set->Update();
        }
      } else if (kind == 3) {
        const int changed = random.Below(static_cast<int>(plain.size()));
        set->Move(changed);
        plain[static_cast<std::size_t>(changed)] = random.Row();
        Store(*set, plain[static_cast<std::size_t>(changed)]);
      }
      const PlainCriterion filter = random.Filter();
      std::vector<std::int32_t> expected;
      for (std::size_t row = 0; row < plain.size(); ++row) {
        if (filter.passes(plain[row])) expected.push_back(static_cast<std::int32_t>(row));
      }
      set->SetFilter(filter.text);
      if (random.Below(2) == 0) {
        ASSERT_EQ(set->RecordCount(), static_cast<std::int32_t>(expected.size())) << filter.text;
      }
      ASSERT_EQ(Rows(*set), expected) << filter.text << ", seed " << seed;
    }
  }
}

}  // namespace
}  // namespace salerpt
