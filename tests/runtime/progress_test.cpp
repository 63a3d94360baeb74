// The chain of a fetch: bar, relay, progress dialog.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "error_check.h"
#include "fake_object.h"
#include "fake_world.h"
#include "runtime/bar.h"
#include "runtime/cls_pass.h"
#include "runtime/error.h"
#include "runtime/progress_form.h"
#include "runtime/runtime.h"

namespace salerpt {
namespace {

using testing::FakeToolkit;
using Steps = std::vector<std::string>;

// Writes down what happens to the dialog, and may leave it without activating it.
class WatchingToolkit : public FakeToolkit {
 public:
  using FakeToolkit::ShowModal;
  void ShowModal(ProgressForm& form) override {
    shown = &form;
    steps.push_back("show");
    form.MessageChanged.Connect([this](const std::string& text) { steps.push_back("message " + text); });
    form.BarChanged.Connect([this, &form] {
      steps.push_back("bar " + std::to_string(form.Value()) + " of " + std::to_string(form.Min()) + ".." +
                      std::to_string(form.Max()) + (form.IsBarVisible() ? "" : " hidden"));
    });
    form.Load();
    if (before_activation) before_activation();
    if (!form.IsUnloaded()) form.Activate();
    steps.push_back(form.IsUnloaded() ? "unloaded" : "left");
    shown = nullptr;
  }
  void DoEvents() override {
    steps.push_back("messages run");
    FakeToolkit::DoEvents();
  }

  ProgressForm* shown = nullptr;
  std::function<void()> before_activation;
  Steps steps;
};

class ProgressTest : public ::testing::Test {
 protected:
  ProgressTest() { runtime_.SetToolkit(toolkit_); }
  // Runs the fetch under the dialog.
  void Run(std::function<void()> fetch) {
    bar_.Active.Connect(std::move(fetch));
    bar_.Show();
  }

  Runtime runtime_;
  std::shared_ptr<WatchingToolkit> toolkit_ = std::make_shared<WatchingToolkit>();
  Bar bar_;
};

TEST_F(ProgressTest, RunsTheFetchInsideOfTheActivation) {
  Run([this] {
    toolkit_->steps.push_back("fetch");
    bar_.SetMsg("正在连接服务器");
    bar_.Unload();
    toolkit_->steps.push_back("fetched");
  });
  EXPECT_EQ(toolkit_->steps,
            (Steps{"show", "fetch", "message 正在连接服务器", "messages run", "bar 100 of 0..100",
                   "messages run", "messages run", "fetched", "unloaded"}));
}

TEST_F(ProgressTest, CarriesEachOperationToTheDialog) {
  Run([this] {
    bar_.HideProgBar();
    bar_.ShowProgBar();
    bar_.SetBarMaxValue(7);
    bar_.SetBarMinValue(0);
    bar_.SetBarValue(3);
    bar_.SetBarValueWithMax();
    bar_.Unload();
  });
  EXPECT_EQ(toolkit_->steps,
            (Steps{"show", "bar 0 of 0..100 hidden", "messages run", "bar 0 of 0..100", "messages run",
                   "bar 0 of 0..7", "bar 0 of 0..7", "bar 3 of 0..7", "bar 7 of 0..7", "messages run",
                   "bar 7 of 0..7", "messages run", "messages run", "unloaded"}));
}

TEST_F(ProgressTest, StartsEachShowAnew) {
  int fetches = 0;
  bar_.Active.Connect([&] {
    ++fetches;
    EXPECT_EQ(toolkit_->shown->Max(), 100);
    EXPECT_EQ(toolkit_->shown->Value(), 0);
    EXPECT_EQ(toolkit_->shown->Message(), "");
    bar_.SetBarMaxValue(5);
    bar_.SetMsg("once");
    bar_.Unload();
  });
  bar_.Show();
  bar_.Show();
  EXPECT_EQ(fetches, 2);
}

TEST_F(ProgressTest, FetchesNothingWhenItIsUnloadedBeforeItsActivation) {
  bool fetched = false;
  toolkit_->before_activation = [this] { bar_.Unload(); };
  Run([&] { fetched = true; });
  EXPECT_FALSE(fetched);
  EXPECT_EQ(toolkit_->steps.back(), "unloaded");
}

TEST_F(ProgressTest, IsNotActivatedOnceItIsUnloaded) {
  int fetches = 0;
  Run([&] {
    ++fetches;
    ProgressForm& form = *toolkit_->shown;
    bar_.Unload();
    form.Activate();
  });
  EXPECT_EQ(fetches, 1);
}

TEST_F(ProgressTest, RunsTheFetchAgainWhenItIsActivatedTwice) {
  int fetches = 0;
  Run([&] {
    if (++fetches == 1) toolkit_->shown->Activate();
  });
  EXPECT_EQ(fetches, 2);
}

TEST_F(ProgressTest, RaisesForAValueOutsideOfItsBounds) {
  Run([this] {
    bar_.SetBarMaxValue(10);
    bar_.SetBarMinValue(1);
    EXPECT_EQ(NumberRaisedBy([&] { bar_.SetBarValue(11); }), error_number::kInvalidCall);
    EXPECT_EQ(NumberRaisedBy([&] { bar_.SetBarValue(0); }), error_number::kInvalidCall);
    bar_.SetBarValue(10);
    EXPECT_EQ(toolkit_->shown->Value(), 10);
  });
}

TEST_F(ProgressTest, TakesItsValueAlongToNewBounds) {
  Run([this] {
    bar_.SetBarValueWithMax();
    bar_.SetBarMaxValue(12);
    EXPECT_EQ(toolkit_->shown->Value(), 12);
    bar_.SetBarMinValue(0);
    bar_.SetBarValue(1);
    EXPECT_EQ(toolkit_->shown->Value(), 1);
  });
}

TEST_F(ProgressTest, LetsAFailureOfTheFetchOutAndReleasesTheDialog) {
  bar_.Active.Connect([this] { bar_.SetBarValue(101); });
  EXPECT_EQ(NumberRaisedBy([&] { bar_.Show(); }), error_number::kInvalidCall);
  EXPECT_EQ(NumberRaisedBy([&] { bar_.SetMsg("late"); }), error_number::kObjectNotSet);
}

TEST_F(ProgressTest, RaisesOutsideOfAShow) {
  EXPECT_EQ(NumberRaisedBy([&] { bar_.SetMsg("text"); }), error_number::kObjectNotSet);
  EXPECT_EQ(NumberRaisedBy([&] { bar_.SetBarMaxValue(1); }), error_number::kObjectNotSet);
  EXPECT_EQ(NumberRaisedBy([&] { bar_.SetBarMinValue(1); }), error_number::kObjectNotSet);
  EXPECT_EQ(NumberRaisedBy([&] { bar_.SetBarValue(1); }), error_number::kObjectNotSet);
  EXPECT_EQ(NumberRaisedBy([&] { bar_.SetBarValueWithMax(); }), error_number::kObjectNotSet);
  EXPECT_EQ(NumberRaisedBy([&] { bar_.ShowProgBar(); }), error_number::kObjectNotSet);
  EXPECT_EQ(NumberRaisedBy([&] { bar_.HideProgBar(); }), error_number::kObjectNotSet);
  EXPECT_NO_THROW(bar_.Unload());
}

TEST_F(ProgressTest, RaisesAfterAShow) {
  Run([this] { bar_.Unload(); });
  EXPECT_EQ(NumberRaisedBy([&] { bar_.SetMsg("text"); }), error_number::kObjectNotSet);
}

TEST_F(ProgressTest, RaisesAfterADialogThatTheToolkitLeft) {
  Run([] {});
  EXPECT_EQ(toolkit_->steps.back(), "left");
  EXPECT_EQ(NumberRaisedBy([&] { bar_.SetMsg("text"); }), error_number::kObjectNotSet);
}

TEST_F(ProgressTest, MayBeUnloadedOnceMoreFromTheMessagesOfItsUnload) {
  toolkit_->on_messages = [this] {
    toolkit_->on_messages = nullptr;
    bar_.Unload();
  };
  Run([this] { bar_.Unload(); });
  EXPECT_EQ(toolkit_->steps.back(), "unloaded");
}

TEST(ClsPass, RaisesTheEventOfEachOperation) {
  clsPass relay;
  Steps steps;
  relay.OnSetBarMaxValue.Connect(
      [&](std::int32_t value) { steps.push_back("max " + std::to_string(value)); });
  relay.OnSetBarMinValue.Connect(
      [&](std::int32_t value) { steps.push_back("min " + std::to_string(value)); });
  relay.OnSetBarValue.Connect([&](std::int32_t value) { steps.push_back("value " + std::to_string(value)); });
  relay.OnSetBarValueWithMax.Connect([&] { steps.push_back("with max"); });
  relay.OnSetMsg.Connect([&](const std::string& text) { steps.push_back("msg " + text); });
  relay.OnActive.Connect([&] { steps.push_back("active"); });
  relay.OnUnload.Connect([&] { steps.push_back("unload"); });
  relay.OnShowProgBar.Connect([&] { steps.push_back("show"); });
  relay.OnHideProgBar.Connect([&] { steps.push_back("hide"); });
  relay.SetBarMaxValue(3);
  relay.SetBarMinValue(1);
  relay.SetBarValue(2);
  relay.SetBarValueWithMax();
  relay.SetMsg("text");
  relay.SetActive();
  relay.Unload();
  relay.ShowProgBar();
  relay.HideProgBar();
  EXPECT_EQ(steps,
            (Steps{"max 3", "min 1", "value 2", "with max", "msg text", "active", "unload", "show", "hide"}));
}

TEST(ProgressForm, HearsNothingAnyMoreOnceItIsGone) {
  Runtime runtime;
  const auto relay = std::make_shared<clsPass>();
  { const ProgressForm form(relay); }
  EXPECT_NO_THROW(relay->SetBarValue(1000));
  EXPECT_NO_THROW(relay->SetMsg("text"));
}

TEST(ProgressForm, LoadsItsResourcesInALanguageOfItsOwn) {
  Runtime runtime;
  runtime.language = "eng";
  const auto loader = testing::RegisterFake(runtime, "ORVFrmRes.FrmResLoader");
  loader->Gives("LoadFrmResStrings", Variant());
  ProgressForm form(std::make_shared<clsPass>());
  form.Load();
  ASSERT_EQ(loader->Calls().size(), 1U);
  EXPECT_EQ(loader->Calls()[0].arguments.at(2).ToText(), "Q7INDUSTRY");
}

TEST(ProgressForm, LoadsWithoutItsResources) {
  Runtime runtime;
  runtime.language = "eng";
  ProgressForm form(std::make_shared<clsPass>());
  EXPECT_NO_THROW(form.Load());
}

}  // namespace
}  // namespace salerpt
