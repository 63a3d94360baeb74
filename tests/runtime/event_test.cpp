#include "runtime/event.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace salerpt {
namespace {

using ::testing::ElementsAre;

TEST(Event, CallsHandlersInTheOrderOfConnecting) {
  Event<int> event;
  std::vector<std::string> calls;
  event.Connect([&](int value) { calls.push_back("first " + std::to_string(value)); });
  event.Connect([&](int value) { calls.push_back("second " + std::to_string(value)); });
  event.Raise(7);
  EXPECT_THAT(calls, ElementsAre("first 7", "second 7"));
}

TEST(Event, GivesEveryHandlerTheWholeText) {
  Event<std::string> event;
  std::vector<std::string> texts;
  event.Connect([&](std::string text) { texts.push_back(std::move(text)); });
  event.Connect([&](std::string text) { texts.push_back(std::move(text)); });
  event.Raise("a text too long for the short form");
  EXPECT_THAT(texts, ElementsAre("a text too long for the short form", "a text too long for the short form"));
}

TEST(Event, DoesNotCallADisconnectedHandler) {
  Event<> event;
  int first = 0;
  int second = 0;
  const auto token = event.Connect([&] { ++first; });
  event.Connect([&] { ++second; });
  event.Disconnect(token);
  event.Raise();
  event.Raise();
  EXPECT_EQ(first, 0);
  EXPECT_EQ(second, 2);
}

TEST(Event, KeepsTokensApartAfterADisconnect) {
  Event<> event;
  int calls = 0;
  event.Disconnect(event.Connect([] {}));
  event.Raise();
  const auto kept = event.Connect([&] { ++calls; });
  event.Disconnect(kept + 1);
  event.Raise();
  EXPECT_EQ(calls, 1);
}

TEST(Event, CallsAHandlerAddedMeanwhileFromTheNextRaiseOn) {
  Event<> event;
  int added = 0;
  bool connected = false;
  event.Connect([&] {
    if (!connected) event.Connect([&] { ++added; });
    connected = true;
  });
  event.Raise();
  EXPECT_EQ(added, 0);
  event.Raise();
  EXPECT_EQ(added, 1);
}

TEST(Event, SkipsAHandlerTakenAwayMeanwhile) {
  Event<> event;
  int calls = 0;
  Event<>::Token second = 0;
  event.Connect([&] { event.Disconnect(second); });
  second = event.Connect([&] { ++calls; });
  event.Connect([&] { calls += 10; });
  event.Raise();
  EXPECT_EQ(calls, 10);
}

TEST(Event, LetsAHandlerTakeItselfAway) {
  Event<> event;
  int calls = 0;
  Event<>::Token self = 0;
  self = event.Connect([&event, &calls, &self] {
    event.Disconnect(self);
    ++calls;
  });
  event.Raise();
  event.Raise();
  EXPECT_EQ(calls, 1);
}

TEST(Event, MayBeRaisedWithinItself) {
  Event<int> event;
  std::vector<int> depths;
  event.Connect([&](int depth) {
    depths.push_back(depth);
    if (depth < 3) event.Raise(depth + 1);
  });
  event.Raise(1);
  EXPECT_THAT(depths, ElementsAre(1, 2, 3));
}

TEST(Event, LetsAnErrorOutAndGoesOnWorking) {
  Event<> event;
  bool fails = true;
  int calls = 0;
  event.Connect([&] {
    if (fails) throw std::runtime_error("failed");
    ++calls;
  });
  EXPECT_THROW(event.Raise(), std::runtime_error);
  fails = false;
  event.Raise();
  EXPECT_EQ(calls, 1);
}

}  // namespace
}  // namespace salerpt
