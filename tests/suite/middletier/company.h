// A small company, every row of it written by hand, and a world with the middle tier on its account set.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/dictionary.h"
#include "runtime/recordset.h"
#include "runtime/runtime.h"
#include "suite/accountset/accountset.h"
#include "suite/middletier/middletier.h"

namespace salerpt::middletier {

// A folder that goes with the object.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

// Items 101 to 103, customers 201 to 203, employees 301 and 302, departments 401 and 402, and the invoices
// XS001 to XS007; see company.cpp.
class CompanyTest : public testing::Test {
 protected:
  CompanyTest();

  // Plain SQL on the account set, past the middle tier.
  void Sql(const std::string& sql) const;
  // The account set as another program opens it.
  [[nodiscard]] accountset::AccountSet OpenAgain() const { return accountset::AccountSet::Open(path_); }

  // A query through the middle tier.
  static RecordsetRef Query(std::string_view sql);
  // Raises the error of an unknown table for a temporary table that is gone.
  static void ExpectNoTable(std::string_view temporary_table);

  static constexpr std::string_view kProps = "UserName=test;UserID=16394;";

 private:
  TemporaryFolder folder_;
  std::filesystem::path path_;

 protected:
  std::shared_ptr<accountset::AccountSet> account_set_;
  Runtime runtime_;
};

// The cells of a column, top to bottom, as texts; "null" for a null. Moves the set to its end.
std::vector<std::string> Cells(const RecordsetRef& rows, std::string_view field);

}  // namespace salerpt::middletier
