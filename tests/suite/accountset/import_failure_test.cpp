#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>

#include "suite/accountset/accountset.h"
#include "support.h"

namespace salerpt::accountset {
namespace {

const std::string kHeader =
    "InvoiceNo,StockCode,Description,Quantity,InvoiceDate,UnitPrice,CustomerID,Country\n";
const std::string kLine = "1,A,a,3,2011-12-09,2.5,1,X\n";

class ImportFailureTest : public FolderTest {
 protected:
  // The error of importing the file; nothing may be left beside it.
  std::string ErrorOfImport(const std::filesystem::path& csv) {
    std::ostringstream rejects;
    const auto before = Files();
    const std::string error = ErrorOf([&] { Import(Path("shop.db"), csv, rejects); });
    EXPECT_EQ(Files(), before);
    return error;
  }
};

TEST_F(ImportFailureTest, NamesTheHeaderThatItExpected) {
  const auto csv =
      WriteFile("shop.csv", "InvoiceNo,StockCode,Description,Quantity,Date,UnitPrice,CustomerID,Country\n");
  EXPECT_EQ(ErrorOfImport(csv),
            csv.string() +
                ":1: the header is \"InvoiceNo,StockCode,Description,Quantity,Date,UnitPrice,Cust...\", "
                "expected was \"InvoiceNo,StockCode,Description,Quantity,InvoiceDate,UnitPrice,CustomerID,"
                "Country\"");
}

TEST_F(ImportFailureTest, RefusesAnEmptyFile) {
  const auto csv = WriteFile("shop.csv", "");
  EXPECT_EQ(ErrorOfImport(csv), csv.string() +
                                    ":1: the header is \"\", expected was \"InvoiceNo,StockCode,Description,"
                                    "Quantity,InvoiceDate,UnitPrice,CustomerID,Country\"");
}

TEST_F(ImportFailureTest, RefusesAFileWithoutAUsableLine) {
  const auto csv = WriteFile("shop.csv", kHeader + "1,A\n");
  EXPECT_EQ(ErrorOfImport(csv), csv.string() + ": no usable invoice line in it (1 rejected)");
}

TEST_F(ImportFailureTest, TellsOfAMissingFile) {
  const auto csv = Path("none.csv");
  EXPECT_EQ(ErrorOfImport(csv), csv.string() + ": no such file");
}

TEST_F(ImportFailureTest, RefusesAFolder) {
  std::filesystem::create_directory(Path("folder"));
  EXPECT_EQ(ErrorOfImport(Path("folder")),
            Path("folder").string() + ": a folder, where a file of invoice lines was expected");
}

TEST_F(ImportFailureTest, TellsOfAPackedFileThatBreaksOff) {
  std::string lines;
  for (int i = 0; i < 5000; ++i) lines += std::to_string(i * 7919 % 10007) + ",A,a,3,2011-12-09,2.5,1,X\n";
  const auto csv = WriteGzip("shop.csv.gz", kHeader + lines);
  std::filesystem::resize_file(csv, std::filesystem::file_size(csv) / 2);
  EXPECT_EQ(ErrorOfImport(csv), csv.string() + ": the packed file breaks off");
}

TEST_F(ImportFailureTest, TellsOfAPackedFileThatIsDamaged) {
  const auto csv = WriteGzip("shop.csv.gz", kHeader + kLine);
  std::fstream file(csv, std::ios::binary | std::ios::in | std::ios::out);
  file.seekp(-8, std::ios::end);  // the sum of the contents
  file.write("\0\0\0\0", 4);
  file.close();
  EXPECT_EQ(ErrorOfImport(csv),
            csv.string() + ": cannot be unpacked: " + csv.string() + ": incorrect data check");
}

TEST_F(ImportFailureTest, NeverOverwrites) {
  const auto csv = WriteFile("shop.csv", kHeader + kLine);
  const auto db = WriteFile("shop.db", "something else");
  EXPECT_EQ(ErrorOfImport(csv), db.string() + ": exists already; an account set is never overwritten");
  std::ifstream file(db);
  std::string contents;
  std::getline(file, contents);
  EXPECT_EQ(contents, "something else");
}

TEST_F(ImportFailureTest, LeavesNothingBehindWhenItIsBrokenOff) {
  const auto csv = WriteFile("shop.csv", kHeader + kLine);
  std::ostringstream rejects;
  EXPECT_THROW(Import(Path("shop.db"), csv, rejects,
                      [](std::int64_t, std::int64_t) { throw std::runtime_error("enough"); }),
               std::runtime_error);
  EXPECT_EQ(Files(), (std::vector<std::string>{"shop.csv"}));
}

}  // namespace
}  // namespace salerpt::accountset
