#include "runtime/runtime.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>

#include "runtime/progress_form.h"
#include "runtime/vector.h"
#include "tests/runtime/error_check.h"

namespace salerpt {
namespace {

class FakeDialog final : public FilterDialog {
 public:
  [[nodiscard]] std::string_view Name() const override { return "frmFirter128"; }
  void SetRptID(std::int32_t /*family*/) override {}
  void Confirm() override { ++confirmed; }
  void ShowFinish(std::string_view /*plan*/) override {}
  [[nodiscard]] DictionaryRef Filter() const override { return nullptr; }
  int confirmed = 0;
};

class FixedPlatform final : public Platform {
 public:
  [[nodiscard]] Date Now() const override { return Date::FromYmd(2003, 7, 1); }
};

// Asks for the world in force when it is released.
class LastWords final : public Object {
 public:
  explicit LastWords(const Runtime** heard) : heard_(heard) {}
  ~LastWords() override { *heard_ = &Runtime::Current(); }
  LastWords(const LastWords&) = delete;
  LastWords& operator=(const LastWords&) = delete;
  [[nodiscard]] std::string_view ClassName() const override { return "Test.LastWords"; }
  Variant Invoke(std::string_view member, InvokeKind /*kind*/, Arguments /*arguments*/) override {
    RaiseNoSuchMember(*this, member);
  }

 private:
  const Runtime** heard_;
};

// Sets an environment variable for the life of a test.
class Environment {
 public:
  Environment(const char* name, const char* value) : name_(name) {
    if (const char* earlier = std::getenv(name)) earlier_ = earlier;
    setenv(name, value, 1);
  }
  ~Environment() { earlier_.empty() ? unsetenv(name_) : setenv(name_, earlier_.c_str(), 1); }
  Environment(const Environment&) = delete;
  Environment& operator=(const Environment&) = delete;

 private:
  const char* name_;
  std::string earlier_;
};

TEST(Runtime, IsInForceWhileItLives) {
  EXPECT_EQ(NumberRaisedBy([] { Runtime::Current(); }), error_number::kObjectNotSet);
  {
    Runtime runtime;
    EXPECT_EQ(&Runtime::Current(), &runtime);
  }
  EXPECT_EQ(NumberRaisedBy([] { Runtime::Current(); }), error_number::kObjectNotSet);
}

TEST(Runtime, GivesWayToANewerOneAndComesBack) {
  Runtime outer;
  outer.gLongNumber = false;
  {
    Runtime inner;
    EXPECT_EQ(&Runtime::Current(), &inner);
    EXPECT_TRUE(inner.gLongNumber);
  }
  EXPECT_EQ(&Runtime::Current(), &outer);
  EXPECT_FALSE(Runtime::Current().gLongNumber);
}

TEST(Runtime, IsStillInForceWhenItsObjectsAreReleased) {
  const Runtime* heard = nullptr;
  const Runtime* lived = nullptr;
  {
    Runtime runtime;
    lived = &runtime;
    runtime.gl_data = std::make_shared<LastWords>(&heard);
  }
  EXPECT_EQ(heard, lived);
}

TEST(Runtime, MakesObjectsByProgIDWithoutRegardToCase) {
  Runtime runtime;
  runtime.Register("QFO.Vector", [] { return std::make_shared<Vector>(); });
  EXPECT_TRUE(runtime.IsRegistered("qfo.vector"));
  const ObjectRef first = CreateObject("QFO.VECTOR");
  EXPECT_EQ(first->ClassName(), "QFO.Vector");
  EXPECT_NE(ObjectFactory::CreateServerObject("QFO.Vector"), first);
}

TEST(Runtime, LetsALaterRegistrationReplace) {
  Runtime runtime;
  runtime.Register("A.B", [] { return std::make_shared<Vector>(); });
  runtime.Register("a.b", [] { return std::make_shared<Dictionary>(); });
  EXPECT_EQ(CreateObject("A.B")->ClassName(), "QFO.Dictionary");
}

TEST(Runtime, RaisesTheObjectMakersErrorNamingTheProgID) {
  Runtime runtime;
  EXPECT_FALSE(runtime.IsRegistered("ORVSaleRpt.Rpt129"));
  EXPECT_EQ(NumberRaisedBy([] { (void)CreateObject("ORVSaleRpt.Rpt129"); }), 429);
  EXPECT_EQ(DescriptionRaisedBy([] { (void)CreateObject("ORVSaleRpt.Rpt129"); }),
            "no object is registered under the ProgID \"ORVSaleRpt.Rpt129\"");
}

TEST(Runtime, MakesDialogsByName) {
  Runtime runtime;
  runtime.RegisterDialog("frmFirter128", [] { return std::make_unique<FakeDialog>(); });
  EXPECT_EQ(runtime.MakeDialog("FrmFirter128")->Name(), "frmFirter128");
  EXPECT_EQ(DescriptionRaisedBy([&] { (void)runtime.MakeDialog("frmFirter999"); }),
            "no dialog is registered under the name \"frmFirter999\"");
}

TEST(Runtime, TakesNothingToMeanTheDefaultPlatform) {
  Runtime runtime;
  runtime.SetPlatform(std::make_shared<FixedPlatform>());
  EXPECT_EQ(runtime.GetPlatform().Now().ToText(), "2003-07-01");
  runtime.SetPlatform(nullptr);
  EXPECT_GT(runtime.GetPlatform().Now(), Date::FromYmd(2020, 1, 1));
}

TEST(Toolkit, ConfirmsADialogAsItStands) {
  Runtime runtime;
  runtime.SetToolkit(nullptr);
  FakeDialog dialog;
  runtime.GetToolkit().ShowModal(dialog);
  EXPECT_EQ(dialog.confirmed, 1);
}

TEST(Toolkit, ActivatesAProgressFormOnce) {
  const Runtime runtime;
  const auto relay = std::make_shared<clsPass>();
  ProgressForm form(relay);
  int activated = 0;
  relay->OnActive.Connect([&] {
    ++activated;
    relay->Unload();
  });
  runtime.GetToolkit().ShowModal(form);
  EXPECT_EQ(activated, 1);
  EXPECT_TRUE(form.IsUnloaded());
}

TEST(Toolkit, DoesNotActivateAProgressFormThatIsUnloaded) {
  const Runtime runtime;
  const auto relay = std::make_shared<clsPass>();
  ProgressForm form(relay);
  int activated = 0;
  relay->OnActive.Connect([&] { ++activated; });
  relay->Unload();
  runtime.GetToolkit().ShowModal(form);
  EXPECT_EQ(activated, 0);
}

TEST(Toolkit, AnswersBoxesWithOkAndCancelsInput) {
  Toolkit toolkit;
  EXPECT_EQ(toolkit.MessageBox("text", kBoxInformation, "title"), BoxAnswer::kOk);
  EXPECT_EQ(toolkit.InputBox("prompt", "title", "preset"), "");
}

TEST(Platform, TellsLocalTime) {
  const std::time_t before = std::time(nullptr);
  const Date::Parts now = Platform().Now().Split();
  const std::time_t after = std::time(nullptr);
  std::tm local{};
  local.tm_year = now.year - 1900;
  local.tm_mon = now.month - 1;
  local.tm_mday = now.day;
  local.tm_hour = now.hour;
  local.tm_min = now.minute;
  local.tm_sec = now.second;
  local.tm_isdst = -1;
  const std::time_t told = std::mktime(&local);
  EXPECT_GE(told, before);
  EXPECT_LE(told, after);
}

TEST(Platform, TellsAProcessIDThatStays) {
  EXPECT_GT(Platform().ProcessID(), 0);
  EXPECT_EQ(Platform().ProcessID(), Platform().ProcessID());
}

TEST(Platform, FindsTheDirectoryOfTheProgram) {
  EXPECT_TRUE(std::filesystem::is_directory(Platform().ApplicationDirectory()));
}

TEST(Platform, KeepsSettingsFilesInTheUsersFolder) {
  const Environment config("XDG_CONFIG_HOME", "/settings");
  EXPECT_EQ(Platform().SettingsFile("JXCQ7SaleRpt.INI"), "/settings/salerpt/JXCQ7SaleRpt.INI");
  const Environment none("XDG_CONFIG_HOME", "");
  const Environment home("HOME", "/home/someone");
  EXPECT_EQ(Platform().SettingsFile("JXCQ7SaleRpt.INI"), "/home/someone/.config/salerpt/JXCQ7SaleRpt.INI");
}

}  // namespace
}  // namespace salerpt
