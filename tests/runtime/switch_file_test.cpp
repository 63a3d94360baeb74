#include "runtime/switch_file.h"

#include <gtest/gtest.h>

#include "fake_object.h"
#include "fake_world.h"
#include "runtime/error.h"
#include "runtime/runtime.h"

namespace salerpt {
namespace {

using testing::FakeObject;
using testing::FakePlatform;
using testing::FakeRef;
using testing::FakeToolkit;
using testing::RecordedBox;
using testing::RegisterFake;
using testing::TempFolder;
namespace fs = std::filesystem;

class SwitchFileTest : public ::testing::Test {
 protected:
  SwitchFileTest() {
    runtime_.SetPlatform(std::make_shared<FakePlatform>(folder_.Path()));
    runtime_.SetToolkit(toolkit_);
    connection_->Gives("Open", Variant()).Gives("Close", Variant()).Gives("ConnectionString", "as opened");
  }
  // The connection strings that were tried.
  [[nodiscard]] std::vector<std::string> Tried() const {
    std::vector<std::string> tried;
    for (const auto& call : connection_->Calls()) {
      if (call.member == "Open") tried.push_back(call.arguments.at(0).ToText());
    }
    return tried;
  }
  static std::string Older(const fs::path& file) {
    return "PROVIDER=Microsoft.Jet.OLEDB.3.51;Data Source=" + file.string() + ";";
  }
  static std::string Newer(const fs::path& file) {
    return "PROVIDER=Microsoft.Jet.OLEDB.4.0;Data Source=" + file.string() + ";";
  }

  Runtime runtime_;
  TempFolder folder_;
  std::shared_ptr<FakeToolkit> toolkit_ = std::make_shared<FakeToolkit>();
  FakeRef connection_ = RegisterFake(runtime_, "ADODB.Connection");
};

TEST_F(SwitchFileTest, OpensReadsAndClosesTheConnection) {
  const fs::path file = folder_.Write("ErpSwitch.sss", "");
  EXPECT_EQ(ConnectSwitchFile(), "as opened");
  EXPECT_EQ(Tried(), std::vector<std::string>{Older(file)});
  EXPECT_EQ(connection_->CalledMembers(), (std::vector<std::string>{"Open", "ConnectionString", "Close"}));
  EXPECT_TRUE(toolkit_->boxes.empty());
}

TEST_F(SwitchFileTest, GivesEmptyTextWithoutASwitchFile) {
  EXPECT_EQ(ConnectSwitchFile(), "");
  EXPECT_TRUE(connection_->Calls().empty());
  EXPECT_TRUE(toolkit_->boxes.empty());
}

TEST_F(SwitchFileTest, LooksInTheSystemFolderToo) {
  const fs::path file = folder_.Write("erpSystem/ErpSwitch.sss", "");
  EXPECT_EQ(ConnectSwitchFile(), "as opened");
  EXPECT_EQ(Tried(), std::vector<std::string>{Older(file)});
}

TEST_F(SwitchFileTest, PrefersTheApplicationsFolder) {
  folder_.Write("erpSystem/ErpSwitch.sss", "");
  const fs::path file = folder_.Write("ErpSwitch.sss", "");
  ConnectSwitchFile();
  EXPECT_EQ(Tried(), std::vector<std::string>{Older(file)});
}

TEST_F(SwitchFileTest, TakesAFileThatIsGiven) {
  folder_.Write("ErpSwitch.sss", "");
  const fs::path given = folder_.Write("mine.sss", "");
  EXPECT_EQ(ConnectSwitchFile(given), "as opened");
  EXPECT_EQ(Tried(), std::vector<std::string>{Older(given)});
}

TEST_F(SwitchFileTest, MakesAReadOnlyFileWritable) {
  const fs::path file = folder_.Write("ErpSwitch.sss", "");
  fs::permissions(file, fs::perms::owner_read);
  EXPECT_EQ(ConnectSwitchFile(), "as opened");
  EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(SwitchFileTest, TriesTheNewerProviderAfterTheOlderOne) {
  const fs::path file = folder_.Write("ErpSwitch.sss", "");
  connection_->On("Open", [](Arguments arguments) -> Variant {
    if (arguments[0].ToText().find("3.51") == std::string::npos) return {};
    throw RuntimeError(3706, "Provider", "not installed");
  });
  EXPECT_EQ(ConnectSwitchFile(), "as opened");
  EXPECT_EQ(Tried(), (std::vector<std::string>{Older(file), Newer(file)}));
  EXPECT_TRUE(toolkit_->boxes.empty());
}

TEST_F(SwitchFileTest, TellsInABoxThatNeitherProviderOpensTheFile) {
  const fs::path file = folder_.Write("ErpSwitch.sss", "");
  connection_->Raises("Open", RuntimeError(3706, "Provider", "not installed"));
  EXPECT_EQ(ConnectSwitchFile(), "");
  EXPECT_EQ(Tried(), (std::vector<std::string>{Older(file), Newer(file)}));
  EXPECT_EQ(toolkit_->boxes,
            std::vector<RecordedBox>(
                {{"由于你的ODBC有误，系统不能与文件:\"" + file.string() + "\"", 64, "青岚提示"}}));
}

TEST_F(SwitchFileTest, TellsInABoxThatThereIsNoConnectionObject) {
  folder_.Write("ErpSwitch.sss", "");
  runtime_.Register("ADODB.Connection", []() -> ObjectRef {
    throw RuntimeError(error_number::kObjectMaker, "", "ADODB.Connection is not installed");
  });
  EXPECT_EQ(ConnectSwitchFile(), "");
  EXPECT_EQ(toolkit_->boxes.size(), 1U);
}

TEST_F(SwitchFileTest, TellsInABoxThatAGivenFileIsMissing) {
  connection_->Raises("Open", RuntimeError(-1, "Provider", "no such file"));
  EXPECT_EQ(ConnectSwitchFile(folder_.Path() / "missing.sss"), "");
  EXPECT_EQ(toolkit_->boxes.size(), 1U);
}

}  // namespace
}  // namespace salerpt
