#include "runtime/object.h"

#include <gtest/gtest.h>

#include "runtime/dictionary.h"
#include "runtime/vector.h"
#include "tests/runtime/error_check.h"

namespace salerpt {
namespace {

// An object with a member of each kind.
class Counter final : public Object {
 public:
  static constexpr std::string_view kClassName = "Test.Counter";
  [[nodiscard]] std::string_view ClassName() const override { return kClassName; }

  static std::span<const Member<Counter>> Members() {
    static constexpr std::array<Member<Counter>, 4> kMembers{{
        {"Value", InvokeKind::kGet, "() As Long",
         [](Counter& self, Arguments) -> Variant { return self.value; }},
        {"Value", InvokeKind::kLet, "(Value As Long)",
         [](Counter& self, Arguments arguments) {
           self.value = arguments[0].ToInt32();
           return Variant();
         },
         1},
        {"Double", InvokeKind::kMethod, "(Number As Variant)",
         [](Counter&, Arguments arguments) {
           arguments[0] = arguments[0].ToInt32() * 2;
           return Variant("done");
         },
         1},
        {"Sum", InvokeKind::kMethod, "(A As Long, Optional B As Long) As Long",
         [](Counter&, Arguments arguments) {
           std::int32_t sum = 0;
           for (const Variant& argument : arguments) sum += argument.ToInt32();
           return Variant(sum);
         },
         1, 2},
    }};
    return kMembers;
  }
  Variant Invoke(std::string_view member, InvokeKind kind, Arguments arguments) override {
    return Dispatch(*this, Members(), member, kind, arguments);
  }

  std::int32_t value = 0;
};

TEST(Object, FindsMembersWithoutRegardToCase) {
  const ObjectRef counter = std::make_shared<Counter>();
  LetMember(counter, "VALUE", 5);
  EXPECT_EQ(GetMember(counter, "value"), Variant(5));
}

TEST(Object, ReadsAPropertyThatIsCalledAsAMethod) {
  const auto counter = std::make_shared<Counter>();
  counter->value = 9;
  EXPECT_EQ(Call(counter, "Value"), Variant(9));
}

TEST(Object, TakesSetWhereLetIsMeant) {
  const auto counter = std::make_shared<Counter>();
  SetMember(counter, "Value", 4);
  EXPECT_EQ(counter->value, 4);
}

TEST(Object, PassesVariantVariablesByReference) {
  const ObjectRef counter = std::make_shared<Counter>();
  Variant number = 21;
  EXPECT_EQ(Call(counter, "Double", number), Variant("done"));
  EXPECT_EQ(number, Variant(42));
}

TEST(Object, PassesEverythingElseByValue) {
  const ObjectRef counter = std::make_shared<Counter>();
  const Variant constant = 21;
  std::int32_t plain = 21;
  Call(counter, "Double", constant);
  Call(counter, "Double", plain);
  EXPECT_EQ(constant, Variant(21));
  EXPECT_EQ(plain, 21);
}

TEST(Object, WritesBackOnlyTheArgumentsByReference) {
  const ObjectRef counter = std::make_shared<Counter>();
  Variant first = 1;
  Variant second = 2;
  EXPECT_EQ(Call(counter, "Sum", first, second), Variant(3));
  EXPECT_EQ(Call(counter, "Sum", 10, second), Variant(12));
  EXPECT_EQ(first, Variant(1));
  EXPECT_EQ(second, Variant(2));
}

TEST(Object, RaisesNoSuchMember) {
  const ObjectRef counter = std::make_shared<Counter>();
  EXPECT_EQ(NumberRaisedBy([&] { Call(counter, "Missing"); }), error_number::kNoSuchMember);
  EXPECT_EQ(NumberRaisedBy([&] { LetMember(counter, "Sum", 1); }), error_number::kNoSuchMember);
  EXPECT_EQ(DescriptionRaisedBy([&] { Call(counter, "Missing"); }),
            "an object of class Test.Counter has no member \"Missing\" of the kind asked for");
}

TEST(Object, RaisesWrongArgumentsForTheirCount) {
  const ObjectRef counter = std::make_shared<Counter>();
  EXPECT_EQ(NumberRaisedBy([&] { Call(counter, "Sum"); }), error_number::kWrongArguments);
  EXPECT_EQ(NumberRaisedBy([&] { Call(counter, "Sum", 1, 2, 3); }), error_number::kWrongArguments);
  EXPECT_EQ(DescriptionRaisedBy([&] { Call(counter, "Sum", 1, 2, 3); }),
            "member \"Sum\" of class Test.Counter does not take 3 arguments");
  EXPECT_EQ(Call(counter, "Sum", 1, 2), Variant(3));
}

TEST(Object, RaisesObjectNotSetForACallOnNothing) {
  EXPECT_EQ(NumberRaisedBy([] { Call(ObjectRef(), "Sum", 1); }), error_number::kObjectNotSet);
  EXPECT_EQ(NumberRaisedBy([] { GetMember(ObjectRef(), "Value"); }), error_number::kObjectNotSet);
  EXPECT_EQ(NumberRaisedBy([] { LetMember(ObjectRef(), "Value", 1); }), error_number::kObjectNotSet);
  EXPECT_EQ(NumberRaisedBy([] { SetMember(ObjectRef(), "Value", 1); }), error_number::kObjectNotSet);
  EXPECT_EQ(DescriptionRaisedBy([] { GetMember(ObjectRef(), "Value"); }),
            "member \"Value\" was called on an object that is not set");
}

TEST(As, GivesTheObjectOfItsClass) {
  const auto list = std::make_shared<Vector>();
  EXPECT_EQ(As<Vector>(list), list);
}

TEST(As, KeepsNothingAsNothing) {
  EXPECT_EQ(As<Vector>(Variant()), nullptr);
  EXPECT_EQ(As<Vector>(nullptr), nullptr);
}

TEST(As, RaisesTypeMismatchForAnotherClass) {
  const Variant value = std::make_shared<Dictionary>();
  EXPECT_EQ(NumberRaisedBy([&] { As<Vector>(value); }), error_number::kTypeMismatch);
  EXPECT_EQ(DescriptionRaisedBy([&] { As<Vector>(value); }),
            "an object of class QFO.Vector was expected, not QFO.Dictionary");
  EXPECT_EQ(NumberRaisedBy([] { As<Vector>(Variant("text")); }), error_number::kTypeMismatch);
}

}  // namespace
}  // namespace salerpt
