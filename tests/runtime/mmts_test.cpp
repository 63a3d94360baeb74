#include "runtime/mmts.h"

#include <gtest/gtest.h>

#include "fake_object.h"
#include "fake_world.h"
#include "runtime/error.h"
#include "runtime/runtime.h"

namespace salerpt {
namespace {

using testing::FakeObject;
using testing::FakePlatform;
using testing::RegisterFake;

// Gives the property's name and the process, so that a test sees what was asked.
Variant Echo(Arguments arguments) {
  return Join(arguments[1].ToText(), " of ", arguments[0].ToInt32());
}

TEST(GetPropsString, ComesFromTheHostObjectWhereThereIsOne) {
  Runtime runtime;
  int made = 0;
  RegisterFake(runtime, "ORVPropsMgr.ShareProps", nullptr, &made)->On("GetProperty", Echo);
  const auto host = testing::LogIn(runtime, "UserID=1", "morning");
  EXPECT_EQ(GetPropsString(), "UserID=1");
  EXPECT_EQ(GetUserName(), "morning");
  EXPECT_EQ(host->CalledMembers(), (std::vector<std::string>{"PropsString", "UserName"}));
  EXPECT_EQ(made, 0);
}

TEST(GetPropsString, ComesFromTheStoreOfThisProcessWithoutAHostObject) {
  Runtime runtime;
  runtime.SetPlatform(std::make_shared<FakePlatform>("/"));
  int made = 0;
  RegisterFake(runtime, "ORVPropsMgr.ShareProps", nullptr, &made)->On("GetProperty", Echo);
  EXPECT_EQ(GetPropsString(), "PropsString of 4711");
  EXPECT_EQ(GetUserName(), "UserName of 4711");
  EXPECT_EQ(made, 2);
}

TEST(GetPropsString, RaisesWithoutHostAndStore) {
  Runtime runtime;
  try {
    GetPropsString();
    FAIL() << "nothing was raised";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), error_number::kObjectMaker);
    EXPECT_NE(error.Description().find("ORVPropsMgr.ShareProps"), std::string::npos);
  }
}

TEST(GetPropsString, PassesOnWhatTheHostRaises) {
  Runtime runtime;
  const auto host = std::make_shared<FakeObject>("Host");
  host->Raises("PropsString", RuntimeError(-7, "Host", "no login"));
  runtime.host_object = host;
  try {
    GetPropsString();
    FAIL() << "nothing was raised";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), -7);
    EXPECT_EQ(error.Description(), "no login");
  }
}

TEST(GetSharedProperty, KeepsAnObjectAsAnObject) {
  Runtime runtime;
  const auto kept = std::make_shared<FakeObject>("Kept");
  RegisterFake(runtime, "ORVPropsMgr.ShareProps")->Gives("GetProperty", Variant(kept));
  EXPECT_EQ(GetSharedProperty("Anything").ToObject(), kept);
}

TEST(GetSharedProperty, PassesOnAnEmptyAnswer) {
  Runtime runtime;
  RegisterFake(runtime, "ORVPropsMgr.ShareProps")->Gives("GetProperty", Variant());
  EXPECT_TRUE(GetSharedProperty("Nothing").IsEmpty());
  EXPECT_EQ(GetPropsString(), "");
}

}  // namespace
}  // namespace salerpt
