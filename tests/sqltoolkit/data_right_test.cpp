// Who may see which customers, suppliers and stocks.
#include "sqltoolkit/data_right.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "runtime/dictionary.h"
#include "runtime/runtime.h"
#include "tests/runtime/error_check.h"
#include "tests/runtime/fake_object.h"

namespace salerpt {
namespace {

using testing::FakeRef;

using Info = std::initializer_list<Dictionary::Entry>;

class DataRightTest : public ::testing::Test {
 protected:
  static constexpr const char* kProps = "UserName=abc;UserID=16394;";

  DataRightTest() {
    testing::LogIn(runtime_, kProps);
    items_ = testing::RegisterFake(runtime_, "ORVEBSGLItem.ItemInfo");
    InForceFor({1, 2, 4});
  }
  void InForceFor(std::vector<int> kinds) {
    items_->On("GetDataRight", [kinds = std::move(kinds)](Arguments arguments) -> Variant {
      return std::find(kinds.begin(), kinds.end(), arguments[2].ToInt32()) != kinds.end();
    });
  }
  // The where text that comes of `before`.
  std::string Where(std::initializer_list<Info> infos, std::string before = "") {
    Vector names;
    Vector descriptions;
    for (const Info& info : infos) {
      names.Add("a table");
      descriptions.Add(std::make_shared<Dictionary>(info));
    }
    from_ = "join";
    EXPECT_TRUE(ApplyDataRight(names, descriptions, from_, before, true));
    return before;
  }
  std::vector<int> KindsAsked() const {
    std::vector<int> kinds;
    for (const auto& call : items_->Calls()) kinds.push_back(call.arguments.at(2).ToInt32());
    return kinds;
  }

  Runtime runtime_;
  FakeRef items_;
  std::string from_;
};

TEST_F(DataRightTest, RestrictsTheCustomersToThoseOfTheUser) {
  EXPECT_EQ(Where({{{"DataTable", "t_Organization"}, {"DataTableAs", "T4"}}}),
            " CharIndex('16394',T4.FRightUserID)>0 ");
}

TEST_F(DataRightTest, LeavesTheFromTextAlone) {
  Where({{{"DataTable", "t_Organization"}, {"DataTableAs", "T4"}}});
  EXPECT_EQ(from_, "join");
}

TEST_F(DataRightTest, AsksForTheLoginsUserAndKind) {
  Where({{{"DataTable", "t_Organization"}, {"DataTableAs", "T4"}}});
  ASSERT_EQ(items_->Calls().size(), 1u);
  EXPECT_EQ(items_->Calls()[0].member, "GetDataRight");
  const auto& arguments = items_->Calls()[0].arguments;
  ASSERT_EQ(arguments.size(), 3u);
  EXPECT_EQ(arguments[0], Variant(kProps));
  EXPECT_EQ(arguments[1].ToInt32(), 16394);
  EXPECT_EQ(arguments[2].ToInt32(), 1);
}

TEST_F(DataRightTest, AsksForTheKindOfEachTableThatIsNamed) {
  Where({{{"DataTable", "t_Stock"}, {"DataTableAs", "t9"}}});
  EXPECT_EQ(KindsAsked(), (std::vector<int>{4}));
  Where({{{"DataTable", "t_supplier"}, {"DataTableAs", "t8"}},
         {{"DataTable", "t_organization"}, {"DataTableAs", "t1"}}});
  EXPECT_EQ(KindsAsked(), (std::vector<int>{4, 2, 1}));
}

TEST_F(DataRightTest, AsksForATableThatIsNamedTwiceAndRestrictsBoth) {
  EXPECT_EQ(Where({{{"DataTable", "t_Organization"}, {"DataTableAs", "t2"}},
                   {{"DataTable", "t_Organization"}, {"DataTableAs", "t5"}}}),
            " CharIndex('16394',t2.FRightUserID)>0  And  CharIndex('16394',t5.FRightUserID)>0 ");
  EXPECT_EQ(KindsAsked(), (std::vector<int>{1, 1}));
}

TEST_F(DataRightTest, AddsNothingWhereNoRuleIsInForce) {
  InForceFor({});
  EXPECT_EQ(Where({{{"DataTable", "t_Organization"}, {"DataTableAs", "T4"}}}), "");
  EXPECT_EQ(Where({{{"DataTable", "t_Organization"}, {"DataTableAs", "T4"}}}, " v1.FStatus=1 "),
            " v1.FStatus=1 ");
}

TEST_F(DataRightTest, AddsNothingForATableWithoutARule) {
  EXPECT_EQ(Where({{{"DataTable", "t_Emp"}, {"DataTableAs", "e"}}}), "");
  EXPECT_TRUE(items_->Calls().empty());
}

TEST_F(DataRightTest, KnowsATableInAnyCase) {
  for (const char* table : {"T_ORGANIZATION", "T_Organization", "t_organization"}) {
    EXPECT_EQ(Where({{{"DataTable", table}, {"DataTableAs", "t2"}}}),
              " CharIndex('16394',t2.FRightUserID)>0 ");
  }
}

TEST_F(DataRightTest, JoinsTheConditionsOfTwoTables) {
  EXPECT_EQ(Where({{{"DataTable", "t_Organization"}, {"DataTableAs", "t2"}},
                   {{"DataTable", "t_Stock"}, {"DataTableAs", "t99"}}}),
            " CharIndex('16394',t2.FRightUserID)>0  And  CharIndex('16394',t99.FRightUserID)>0 ");
}

TEST_F(DataRightTest, SkipsTheTableWhoseRuleIsOff) {
  InForceFor({2});
  EXPECT_EQ(Where({{{"DataTable", "t_Organization"}, {"DataTableAs", "t2"}},
                   {{"DataTable", "t_Supplier"}, {"DataTableAs", "t8"}},
                   {{"DataTable", "t_Stock"}, {"DataTableAs", "t99"}}}),
            " CharIndex('16394',t8.FRightUserID)>0 ");
}

TEST_F(DataRightTest, JoinsTheConditionToOneThatStandsAlready) {
  EXPECT_EQ(Where({{{"DataTable", "t_Organization"}, {"DataTableAs", "t2"}}}, "v1.FStatus=1"),
            "v1.FStatus=1 And  CharIndex('16394',t2.FRightUserID)>0 ");
}

TEST_F(DataRightTest, DoesNotJoinToBlanks) {
  EXPECT_EQ(Where({{{"DataTable", "t_Organization"}, {"DataTableAs", "t2"}}}, "  "),
            "   CharIndex('16394',t2.FRightUserID)>0 ");
}

// --- Aliases

TEST_F(DataRightTest, TakesTheBillsAliasWhereTheTableHasNone) {
  EXPECT_EQ(Where({{{"DataTable", "t_Stock"}, {"BillTableAs", "v2"}}}),
            " CharIndex('16394',v2.FRightUserID)>0 ");
}

TEST_F(DataRightTest, PrefersTheTablesAlias) {
  EXPECT_EQ(Where({{{"BillTableAs", "v2"}, {"DataTable", "t_Stock"}, {"DataTableAs", "t99"}}}),
            " CharIndex('16394',t99.FRightUserID)>0 ");
}

TEST_F(DataRightTest, KeepsTheAliasOfTheTableBefore) {
  EXPECT_EQ(Where({{{"DataTable", "t_Organization"}, {"DataTableAs", "t2"}}, {{"DataTable", "t_Stock"}}}),
            " CharIndex('16394',t2.FRightUserID)>0  And  CharIndex('16394',t2.FRightUserID)>0 ");
}

TEST_F(DataRightTest, KeepsTheAliasEvenOfATableWithoutARule) {
  EXPECT_EQ(Where({{{"DataTable", "t_Emp"}, {"DataTableAs", "e"}}, {{"DataTable", "t_Stock"}}}),
            " CharIndex('16394',e.FRightUserID)>0 ");
}

TEST_F(DataRightTest, HasNoAliasWhereTheFirstTableGivesNone) {
  EXPECT_EQ(Where({{{"DataTable", "t_Organization"}}}), " CharIndex('16394',.FRightUserID)>0 ");
}

TEST_F(DataRightTest, ReadsNoColumnNames) {
  EXPECT_EQ(Where({{{"DataTable", "t_Organization"},
                    {"DataTableAs", "t2"},
                    {"DataCol", "FItemID"},
                    {"BillCol", "FCustID"}}}),
            " CharIndex('16394',t2.FRightUserID)>0 ");
}

TEST_F(DataRightTest, AddsNothingForNoTables) {
  EXPECT_EQ(Where({}), "");
}

// --- Failures

TEST_F(DataRightTest, PassesAnErrorOnUnchanged) {
  items_->Raises("GetDataRight", RuntimeError(-2147217871, "ORVEBSGLItem", "查询超时"));
  const auto error = RaisedBy([this] { Where({{{"DataTable", "t_Stock"}, {"DataTableAs", "t9"}}}); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Number(), -2147217871);
  EXPECT_EQ(error->Source(), "ORVEBSGLItem");
  EXPECT_EQ(error->Description(), "查询超时");
}

TEST_F(DataRightTest, PassesAMissingLoginOn) {
  testing::LogIn(runtime_, "UserName=abc;");
  EXPECT_NE(NumberRaisedBy([this] { Where({{{"DataTable", "t_Stock"}, {"DataTableAs", "t9"}}}); }), 0);
}

TEST_F(DataRightTest, RefusesAUserBeyondSixteenBits) {
  testing::LogIn(runtime_, "UserID=40000;");
  EXPECT_EQ(NumberRaisedBy([this] {
              Where({{{"DataTable", "t_Stock"}, {"DataTableAs", "t9"}}});
            }),
            error_number::kOverflow);
}

TEST_F(DataRightTest, PassesAMissingObjectOn) {
  const Runtime empty;
  testing::LogIn(Runtime::Current(), kProps);
  EXPECT_EQ(NumberRaisedBy([this] {
              Where({{{"DataTable", "t_Stock"}, {"DataTableAs", "t9"}}});
            }),
            error_number::kObjectMaker);
}

// --- As reports ask

TEST_F(DataRightTest, GivesAReportTheTextsForItsTables) {
  const DataRight right = RequestDataRight({{"t_Organization", "t2"}, {"t_Stock", "t99"}});
  EXPECT_EQ(right.from_text, "");
  EXPECT_EQ(right.where_text,
            " CharIndex('16394',t2.FRightUserID)>0  And  CharIndex('16394',t99.FRightUserID)>0 ");
}

TEST_F(DataRightTest, PassesAReportTheErrorUnchanged) {
  items_->Raises("GetDataRight", RuntimeError(7, "ORVEBSGLItem", "查询超时"));
  const auto error = RaisedBy([] { RequestDataRight({{"t_Organization", "t2"}}); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Number(), 7);
  EXPECT_EQ(error->Source(), "ORVEBSGLItem");
  EXPECT_EQ(error->Description(), "查询超时");
}

TEST(AndIfAny, JoinsWhatIsNotBlank) {
  EXPECT_EQ(AndIfAny(" CharIndex('1',t2.FRightUserID)>0 "), " And  CharIndex('1',t2.FRightUserID)>0 ");
  EXPECT_EQ(AndIfAny(""), "");
  EXPECT_EQ(AndIfAny("   "), "");
}

}  // namespace
}  // namespace salerpt
