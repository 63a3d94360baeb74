#include "runtime/vector.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/runtime/error_check.h"

namespace salerpt {
namespace {

TEST(Vector, IsEmptyAtFirst) {
  EXPECT_EQ(Vector().Size(), 0);
}

TEST(Vector, KeepsTheOrderOfAdding) {
  Vector list;
  list.Add("b");
  list.Add(1);
  list.Add("a");
  EXPECT_EQ(list.Size(), 3);
  EXPECT_EQ(list.Item(1), Variant("b"));
  EXPECT_EQ(list.Item(2), Variant(1));
  EXPECT_EQ(list.Item(3), Variant("a"));
}

TEST(Vector, RaisesSubscriptOutsideOfItsRange) {
  Vector list;
  EXPECT_EQ(NumberRaisedBy([&] { (void)list.Item(1); }), error_number::kSubscript);
  list.Add("only");
  for (const std::int32_t index : {0, 2, -1, std::numeric_limits<std::int32_t>::min()}) {
    EXPECT_EQ(NumberRaisedBy([&] { (void)list.Item(index); }), error_number::kSubscript) << index;
  }
  EXPECT_EQ(DescriptionRaisedBy([&] { (void)list.Item(0); }),
            "index 0 is outside of the list; 1 to 1 was expected");
}

TEST(Vector, KeepsObjectsByReference) {
  Vector list;
  const auto inner = std::make_shared<Vector>();
  list.Add(inner);
  inner->Add("later");
  EXPECT_EQ(As<Vector>(list.Item(1))->Item(1), Variant("later"));
}

TEST(Vector, IsReachedByName) {
  const ObjectRef list = std::make_shared<Vector>();
  EXPECT_TRUE(Call(list, "add", "x").IsEmpty());
  Call(list, "Add", 5);
  EXPECT_EQ(GetMember(list, "SIZE"), Variant(2));
  EXPECT_EQ(Call(list, "Item", 1), Variant("x"));
  EXPECT_EQ(Call(list, "", 2), Variant(5));
  EXPECT_EQ(Call(list, "Item", "2"), Variant(5));
}

TEST(Vector, ListsItsMembersInInterfaceOrder) {
  std::vector<std::string_view> names;
  for (const auto& member : Vector::Members()) names.push_back(member.name);
  EXPECT_THAT(names, testing::ElementsAre("Size", "Add", "Item"));
}

}  // namespace
}  // namespace salerpt
