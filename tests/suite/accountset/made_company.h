// One made-up company for all tests of a program that only read it.
#pragma once

#include <filesystem>
#include <string>

#include "suite/accountset/accountset.h"
#include "support.h"

namespace salerpt::accountset {

class MadeCompanyTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    folder_ = new Folder;
    Create(folder_->Path("a.db"), {3, 10000});
  }
  static void TearDownTestSuite() {
    delete folder_;
    folder_ = nullptr;
  }
  static std::filesystem::path Db() { return folder_->Path("a.db"); }
  // How many rows there are of what stands behind FROM.
  static std::int64_t Count(const std::string& from) { return Number(Db(), "SELECT count(*) FROM " + from); }

 private:
  class Folder : public FolderTest {
    void TestBody() override {}

   public:
    using FolderTest::Path;
  };
  static inline Folder* folder_ = nullptr;
};

}  // namespace salerpt::accountset
