#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <stdexcept>
#include <string>

#include "runtime/error.h"
#include "suite/accountset/accountset.h"
#include "support.h"

namespace salerpt::accountset {
namespace {

class CreateTest : public FolderTest {};

// Lets no file of this process grow beyond `bytes` while it lives: a disk that is full.
class SmallDisk {
 public:
  explicit SmallDisk(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit small{bytes, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
  }
  ~SmallDisk() {
    setrlimit(RLIMIT_FSIZE, &before_);
    static_cast<void>(std::signal(SIGXFSZ, handler_));
  }
  SmallDisk(const SmallDisk&) = delete;
  SmallDisk& operator=(const SmallDisk&) = delete;

 private:
  rlimit before_{};
  void (*handler_)(int);
};

TEST_F(CreateTest, LeavesTheFileAndNothingElse) {
  Create(Path("a.db"), {1, 500});
  EXPECT_EQ(Files(), (std::vector<std::string>{"a.db"}));
}

TEST_F(CreateTest, GivesTheSameRowsForTheSameSeed) {
  Create(Path("a.db"), {7, 2000});
  Create(Path("b.db"), {7, 2000});
  EXPECT_EQ(ContentHash(Path("a.db")), ContentHash(Path("b.db")));
}

TEST_F(CreateTest, GivesOtherRowsForAnotherSeed) {
  Create(Path("a.db"), {7, 2000});
  Create(Path("b.db"), {8, 2000});
  EXPECT_NE(ContentHash(Path("a.db")), ContentHash(Path("b.db")));
}

TEST_F(CreateTest, MakesAboutAsManyLinesAsAsked) {
  Create(Path("a.db"), {1, 20000});
  const std::int64_t lines =
      Number(Path("a.db"),
             "SELECT (SELECT count(*) FROM SEOrderEntry)+(SELECT count(*) FROM ICStockBillEntry)+"
             "(SELECT count(*) FROM ICSaleEntry)+(SELECT count(*) FROM POOrderEntry)+"
             "(SELECT count(*) FROM ICPurchaseEntry)+(SELECT count(*) FROM ICMO)+"
             "(SELECT count(*) FROM ICFeeInvoiceEntry)");
  EXPECT_GE(lines, 18000);
  EXPECT_LE(lines, 22000);
}

TEST_F(CreateTest, NeverOverwrites) {
  const auto db = WriteFile("a.db", "precious");
  EXPECT_EQ(ErrorOf([&] { Create(db, {}); }),
            db.string() + ": exists already; an account set is never overwritten");
  EXPECT_EQ(std::filesystem::file_size(db), 8U);
}

TEST_F(CreateTest, RefusesNumbersOfLinesOutOfRange) {
  const auto db = Path("a.db");
  EXPECT_EQ(ErrorOf([&] {
              Create(db, {1, 99});
            }),
            db.string() + ": 99 bill lines cannot be made: 100 to 20000000 were expected");
  EXPECT_EQ(ErrorOf([&] {
              Create(db, {1, 20000001});
            }),
            db.string() + ": 20000001 bill lines cannot be made: 100 to 20000000 were expected");
  EXPECT_TRUE(Files().empty());
}

TEST_F(CreateTest, TellsOfAFolderThatIsNone) {
  const auto db = Path("none/a.db");
  EXPECT_EQ(ErrorOf([&] { Create(db, {}); }),
            db.string() + ": cannot be made: " + Path("none").string() + " is no folder");
}

TEST_F(CreateTest, TellsOfAFolderThatTakesNoFiles) {
  // No user can make a file there, whatever the rights.
  const std::string error = ErrorOf([] { Create("/proc/a.db", {}); });
  EXPECT_EQ(error.substr(0, 12), "/proc/a.db: ") << error;
}

TEST_F(CreateTest, LeavesNothingBehindOnAFullDisk) {
  std::string error;
  std::int32_t number = 0;
  {
    const SmallDisk disk(1'000'000);
    try {
      Create(Path("a.db"), {1, 20000});
    } catch (const RuntimeError& raised) {
      error = raised.Description();
      number = raised.Number();
    }
  }
  EXPECT_EQ(error, Path("a.db").string() + ": the disk did not take or give the data (is it full?)");
  EXPECT_EQ(number, 61);
  EXPECT_TRUE(Files().empty());
}

TEST_F(CreateTest, LeavesNothingBehindWhenItIsBrokenOff) {
  const auto enough = [](std::int64_t done, std::int64_t) {
    if (done > 1000) throw std::runtime_error("enough");
  };
  EXPECT_THROW(Create(Path("a.db"), {1, 5000}, enough), std::runtime_error);
  EXPECT_TRUE(Files().empty());
}

TEST_F(CreateTest, TellsHowFarItIs) {
  std::int64_t last = 0;
  Create(Path("a.db"), {1, 1000}, [&](std::int64_t done, std::int64_t total) {
    EXPECT_EQ(total, 1000);
    EXPECT_GE(done, last);
    EXPECT_LE(done, total);
    last = done;
  });
  EXPECT_GT(last, 900);
}

}  // namespace
}  // namespace salerpt::accountset
