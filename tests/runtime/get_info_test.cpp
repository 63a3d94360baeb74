#include "runtime/get_info.h"

#include <gtest/gtest.h>

#include <memory>

#include "error_check.h"
#include "runtime/error.h"
#include "runtime/runtime.h"

namespace salerpt {
namespace {

TEST(GetInfo, HasItsMembersInInterfaceOrder) {
  std::vector<std::string_view> names;
  for (const auto& member : GetInfo::Members()) names.push_back(member.name);
  EXPECT_EQ(names, (std::vector<std::string_view>{"PropsString", "ConStr", "GetProperty", "ParseString",
                                                  "GetRefreshFunc", "GetCloseMoudle", "GetISStarted",
                                                  "IInputEventListener_OnKeyPressed"}));
}

TEST(GetInfo, AnswersLateBoundCallsInAnyCase) {
  const ObjectRef info = std::make_shared<GetInfo>();
  EXPECT_EQ(info->ClassName(), "ORVSaleRpt.GetInfo");
  EXPECT_TRUE(Call(info, "parsestring", "UserID=7;ConnectString={Provider=p;Data Source=d}").ToBoolean());
  EXPECT_EQ(GetMember(info, "propsstring").ToText(), "UserID=7;ConnectString={Provider=p;Data Source=d}");
  EXPECT_EQ(GetMember(info, "CONSTR").ToText(), "Provider=p;Data Source=d");
  EXPECT_EQ(Call(info, "GetProperty", "userid").ToText(), "7");
}

TEST(GetInfo, RaisesForAMemberThatItDoesNotHave) {
  const ObjectRef info = std::make_shared<GetInfo>();
  EXPECT_EQ(NumberRaisedBy([&] { Call(info, "GetNothing"); }), error_number::kNoSuchMember);
  EXPECT_EQ(NumberRaisedBy([&] { LetMember(info, "PropsString", "x"); }), error_number::kNoSuchMember);
  EXPECT_EQ(NumberRaisedBy([&] { Call(info, "GetProperty"); }), error_number::kWrongArguments);
}

TEST(GetInfo, HasAnEmptyTextAndNoPropertiesBeforeItParses) {
  const GetInfo info;
  EXPECT_EQ(info.PropsString(), "");
  EXPECT_EQ(NumberRaisedBy([&] { static_cast<void>(info.GetProperty("UserID")); }),
            error_number::kObjectNotSet);
  EXPECT_EQ(NumberRaisedBy([&] { static_cast<void>(info.ConStr()); }), error_number::kObjectNotSet);
}

TEST(GetInfo, RaisesForAPropertyThatIsNotThere) {
  GetInfo info;
  info.ParseString("a=1");
  EXPECT_EQ(NumberRaisedBy([&] { static_cast<void>(info.GetProperty("nosuchname")); }),
            error_number::kInvalidCall);
}

TEST(GetInfo, RaisesForANameGivenTwiceAndKeepsTheTextGiven) {
  GetInfo info;
  info.ParseString("a=1");
  EXPECT_EQ(NumberRaisedBy([&] { info.ParseString("b=1;b=2"); }), error_number::kDuplicateKey);
  EXPECT_EQ(info.PropsString(), "b=1;b=2");
  EXPECT_EQ(NumberRaisedBy([&] { static_cast<void>(info.GetProperty("a")); }), error_number::kInvalidCall);
}

TEST(GetInfo, HasPropertiesOfItsOwn) {
  Runtime runtime;
  ParseString("UserID=1");
  GetInfo one;
  GetInfo other;
  one.ParseString("UserID=2");
  other.ParseString("UserID=3");
  EXPECT_EQ(one.GetProperty("UserID"), "2");
  EXPECT_EQ(other.GetProperty("UserID"), "3");
  EXPECT_EQ(GetUserID(), 1);
}

TEST(GetInfo, ParsesItsOwnTextOnceMore) {
  GetInfo info;
  info.ParseString("a=1;b=2");
  info.ParseString(info.PropsString());
  EXPECT_EQ(info.GetProperty("b"), "2");
}

}  // namespace
}  // namespace salerpt
