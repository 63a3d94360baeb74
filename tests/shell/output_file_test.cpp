#include "shell/output_file.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <fstream>
#include <sstream>

#include "runtime/error.h"

namespace salerpt::shell {
namespace {

namespace fs = std::filesystem;

class OutputFileTest : public ::testing::Test {
 protected:
  OutputFileTest() : folder_(fs::temp_directory_path() / ("salerpt-out-" + std::to_string(::getpid()))) {
    fs::create_directory(folder_);
  }
  ~OutputFileTest() override { fs::remove_all(folder_); }

  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder_)) names.push_back(entry.path().filename());
    return names;
  }
  static std::string Content(const fs::path& file) {
    std::ostringstream text;
    text << std::ifstream(file).rdbuf();
    return text.str();
  }

  fs::path folder_;
};

TEST_F(OutputFileTest, AppearsWithItsContentAtTheCommit) {
  OutputFile file(folder_ / "a.csv");
  file.Stream() << "x,y\n";
  file.Stream().flush();
  EXPECT_FALSE(fs::exists(folder_ / "a.csv"));
  file.Commit();
  EXPECT_EQ(Content(folder_ / "a.csv"), "x,y\n");
  EXPECT_THAT(Names(), ::testing::ElementsAre("a.csv"));
}

TEST_F(OutputFileTest, WritesWhatALinkLeadsToAndKeepsTheLink) {
  std::ofstream(folder_ / "a.csv") << "old";
  fs::create_symlink(folder_ / "a.csv", folder_ / "link.csv");
  OutputFile file(folder_ / "link.csv");
  file.Stream() << "new";
  file.Commit();
  EXPECT_TRUE(fs::is_symlink(folder_ / "link.csv"));
  EXPECT_EQ(Content(folder_ / "a.csv"), "new");
}

TEST_F(OutputFileTest, WritesToADeviceAndNeverReplacesIt) {
  // A pipe of the test's own: a device of the system is not put at risk.
  const fs::path pipe = folder_ / "pipe";
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  const int reader = ::open(pipe.c_str(), O_RDONLY | O_NONBLOCK);
  ASSERT_GE(reader, 0);
  {
    OutputFile file(pipe);
    file.Stream() << "through";
    file.Commit();
  }
  std::array<char, 16> taken{};
  EXPECT_EQ(::read(reader, taken.data(), taken.size()), 7);
  EXPECT_STREQ(taken.data(), "through");
  ::close(reader);
  EXPECT_TRUE(fs::is_fifo(pipe));
}

TEST_F(OutputFileTest, LeavesNothingWithoutACommit) {
  {
    OutputFile file(folder_ / "a.csv");
    file.Stream() << "half";
  }
  EXPECT_THAT(Names(), ::testing::IsEmpty());
}

TEST_F(OutputFileTest, LeavesAnExistingFileAsItIsUntilTheCommit) {
  std::ofstream(folder_ / "a.csv") << "old";
  {
    OutputFile file(folder_ / "a.csv");
    file.Stream() << "new";
  }
  EXPECT_EQ(Content(folder_ / "a.csv"), "old");
  OutputFile file(folder_ / "a.csv");
  file.Stream() << "new";
  file.Commit();
  EXPECT_EQ(Content(folder_ / "a.csv"), "new");
  EXPECT_THAT(Names(), ::testing::ElementsAre("a.csv"));
}

TEST_F(OutputFileTest, NamesAFolderThatIsNotThere) {
  try {
    OutputFile file(folder_ / "none" / "a.csv");
    FAIL() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Description(),
              (folder_ / "none" / "a.csv").string() + ": cannot be written: No such file or directory");
  }
}

TEST_F(OutputFileTest, RefusesAFolderAsItsTarget) {
  try {
    OutputFile file{folder_};
    FAIL() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Description(), folder_.string() + ": cannot be written: Is a directory");
  }
}

TEST_F(OutputFileTest, LeavesNothingWhenThereIsNoRoom) {
  ::signal(SIGXFSZ, SIG_IGN);
  rlimit before{};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
  const rlimit small{1000, before.rlim_max};
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
  std::string error;
  try {
    OutputFile file(folder_ / "a.csv");
    file.Stream() << std::string(5000, 'x');
    file.Commit();
  } catch (const RuntimeError& failure) {
    error = failure.Description();
  }
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
  EXPECT_EQ(error, (folder_ / "a.csv").string() + ": cannot be written: File too large");
  EXPECT_THAT(Names(), ::testing::IsEmpty());
}

TEST(FdStream, TellsThatTheReaderWentAway) {
  ::signal(SIGPIPE, SIG_IGN);
  int ends[2];
  ASSERT_EQ(::pipe(ends), 0);
  ::close(ends[0]);
  FdStream stream(ends[1], "the pipe");
  stream << "text";
  EXPECT_THROW(stream.flush(), BrokenPipe);
  ::close(ends[1]);
}

TEST(FdStream, WritesMoreThanItsBufferHoldsInOrder) {
  const fs::path path = fs::temp_directory_path() / ("salerpt-fd-" + std::to_string(::getpid()));
  std::FILE* file = std::fopen(path.c_str(), "w+");
  ASSERT_NE(file, nullptr);
  std::string expected;
  {
    FdStream stream(fileno(file), "file");
    for (int i = 0; i < 30000; ++i) stream << i << '\n';
    stream << std::string(200000, 'x') << "end";
    stream.flush();
  }
  for (int i = 0; i < 30000; ++i) expected += std::to_string(i) + '\n';
  expected += std::string(200000, 'x') + "end";
  std::fclose(file);
  std::ostringstream text;
  text << std::ifstream(path).rdbuf();
  EXPECT_EQ(text.str(), expected);
  fs::remove(path);
}

}  // namespace
}  // namespace salerpt::shell
