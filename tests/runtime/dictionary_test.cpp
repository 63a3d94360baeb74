#include "runtime/dictionary.h"

#include <gtest/gtest.h>

#include "runtime/vector.h"
#include "tests/runtime/error_check.h"

namespace salerpt {
namespace {

using ::testing::ElementsAre;

std::vector<std::string> KeysOf(const Dictionary& dictionary) {
  std::vector<std::string> keys;
  for (const auto& entry : dictionary.Entries()) keys.push_back(entry.key);
  return keys;
}

TEST(Dictionary, GivesEmptyForAKeyNeverSet) {
  const Dictionary dictionary;
  EXPECT_TRUE(dictionary.Get("Nothing").IsEmpty());
  EXPECT_TRUE(dictionary.Get("Nothing").IsEmptyText());
  EXPECT_FALSE(dictionary.Lookup("Nothing"));
}

TEST(Dictionary, ReadingAKeyDoesNotMakeIt) {
  Dictionary dictionary;
  (void)dictionary.Get("Key");
  (void)dictionary.GetValue("Key", 1);
  EXPECT_FALSE(dictionary.Lookup("Key"));
  EXPECT_TRUE(dictionary.Entries().empty());
}

TEST(Dictionary, GivesTheDefaultOnlyForAKeyThatIsNotThere) {
  Dictionary dictionary;
  EXPECT_EQ(dictionary.GetValue("SaleType", 0), Variant(0));
  dictionary.Set("SaleType", 3);
  EXPECT_EQ(dictionary.GetValue("SaleType", 0), Variant(3));
  dictionary.Set("SaleType", Variant());
  EXPECT_EQ(dictionary.GetValue("SaleType", 0), Variant());
}

TEST(Dictionary, LooksAKeyUpWhateverItsValue) {
  Dictionary dictionary;
  dictionary.Set("Empty", Variant());
  dictionary.Set("Null", Null());
  EXPECT_TRUE(dictionary.Lookup("Empty"));
  EXPECT_TRUE(dictionary.Lookup("Null"));
}

TEST(Dictionary, ComparesKeysWithoutRegardToCase) {
  Dictionary dictionary;
  dictionary.Set("SElECT", "one");
  dictionary.Set("SELECT", "two");
  EXPECT_EQ(dictionary.Get("Select"), Variant("two"));
  EXPECT_EQ(dictionary.Entries().size(), 1);
}

TEST(Dictionary, KeepsOrderAndSpellingOfTheFirstSetting) {
  Dictionary dictionary;
  dictionary.Set("Orderby", 1);
  dictionary.Set("GroupBy", 2);
  dictionary.Set("OrderBy", 3);
  EXPECT_THAT(KeysOf(dictionary), ElementsAre("Orderby", "GroupBy"));
}

TEST(Dictionary, IsMadeFromKeysAndValues) {
  const Dictionary dictionary{{"A", 1}, {"B", "x"}, {"a", 2}};
  EXPECT_THAT(KeysOf(dictionary), ElementsAre("A", "B"));
  EXPECT_EQ(dictionary.Get("A"), Variant(2));
}

TEST(Dictionary, FindsEveryKeyAmongMany) {
  Dictionary dictionary;
  for (int i = 0; i < 1000; ++i) dictionary.Set(Join("Key", i), i);
  dictionary.Set("KEY500", "changed");
  EXPECT_EQ(dictionary.Entries().size(), 1000);
  EXPECT_EQ(dictionary.Entries()[500].key, "Key500");
  EXPECT_EQ(dictionary.Get("key0"), Variant(0));
  EXPECT_EQ(dictionary.Get("Key8"), Variant(8));
  EXPECT_EQ(dictionary.Get("kEY999"), Variant(999));
  EXPECT_EQ(dictionary.Get("Key500"), Variant("changed"));
  EXPECT_FALSE(dictionary.Lookup("Key1000"));
}

TEST(Dictionary, FindsEveryKeyAtTheNinthEntry) {
  Dictionary dictionary;
  for (int count = 1; count <= 12; ++count) {
    dictionary.Set(Join("K", count), count);
    for (int i = 1; i <= count; ++i)
      EXPECT_EQ(dictionary.Get(Join("k", i)), Variant(i)) << i << " of " << count;
    EXPECT_FALSE(dictionary.Lookup(Join("k", count + 1)));
  }
}

TEST(Dictionary, CopyIsIndependentButSharesObjects) {
  const auto list = std::make_shared<Vector>();
  Dictionary dictionary{{"List", list}};
  for (int i = 0; i < 20; ++i) dictionary.Set(Join("Key", i), i);
  const auto copy = dictionary.Copy();
  copy->Set("Key3", "changed");
  copy->Set("New", 1);
  EXPECT_EQ(dictionary.Get("Key3"), Variant(3));
  EXPECT_FALSE(dictionary.Lookup("New"));
  EXPECT_EQ(copy->Get("key19"), Variant(19));
  EXPECT_EQ(copy->Get("List").ToObject(), list);
}

TEST(Dictionary, HoldsObjectsByReference) {
  Dictionary dictionary;
  const auto list = std::make_shared<Vector>();
  dictionary.Set("SumField", list);
  list->Add(1);
  EXPECT_EQ(As<Vector>(dictionary.Get("SumField"))->Size(), 1);
}

TEST(Dictionary, IsReachedByName) {
  const auto dictionary = std::make_shared<Dictionary>();
  Variant pair[] = {"Key", 5};
  dictionary->Invoke("item", InvokeKind::kLet, pair);
  EXPECT_EQ(Call(dictionary, "Item", "KEY"), Variant(5));
  EXPECT_EQ(Call(dictionary, "lookup", "key"), Variant(true));
  EXPECT_EQ(Call(dictionary, "Lookup", "other"), Variant(false));
  EXPECT_EQ(Call(dictionary, "GetValue", "other", 7), Variant(7));
  EXPECT_EQ(Call(dictionary, "GetValue", "key", 7), Variant(5));
}

TEST(Dictionary, HasADefaultMember) {
  const auto dictionary = std::make_shared<Dictionary>();
  const auto list = std::make_shared<Vector>();
  Variant pair[] = {"List", list};
  dictionary->Invoke("", InvokeKind::kSet, pair);
  Variant key("List");
  EXPECT_EQ(dictionary->Invoke("", InvokeKind::kGet, std::span(&key, 1)).ToObject(), list);
}

TEST(Dictionary, RaisesNoSuchMemberForAMemberThatItLacks) {
  const auto dictionary = std::make_shared<Dictionary>();
  EXPECT_EQ(NumberRaisedBy([&] { Call(dictionary, "Remove", "Key"); }), error_number::kNoSuchMember);
}

TEST(Dictionary, ListsItsMembersInInterfaceOrder) {
  std::vector<std::string_view> names;
  std::vector<InvokeKind> kinds;
  for (const auto& member : Dictionary::Members()) {
    names.push_back(member.name);
    kinds.push_back(member.kind);
  }
  EXPECT_THAT(names, ElementsAre("Item", "Item", "Item", "GetValue", "Lookup"));
  EXPECT_THAT(kinds, ElementsAre(InvokeKind::kGet, InvokeKind::kLet, InvokeKind::kSet, InvokeKind::kMethod,
                                 InvokeKind::kMethod));
}

}  // namespace
}  // namespace salerpt
