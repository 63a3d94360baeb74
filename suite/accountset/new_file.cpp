#include "suite/accountset/new_file.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "suite/accountset/errors.h"
#include "suite/accountset/schema.h"

namespace salerpt::accountset {
namespace {

// No journal: a file that breaks off is thrown away as a whole, so nothing need ever be rolled back.
constexpr const char* kLoadingPragmas =
    "PRAGMA page_size=8192; PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF; PRAGMA locking_mode=EXCLUSIVE;"
    "PRAGMA cache_size=-131072; PRAGMA temp_store=MEMORY; PRAGMA encoding='UTF-8';";

constexpr std::string_view kEnding = ".tmp";

// Whether a file of this name was made on the way to `target`: its name, a process number, the ending.
bool IsOnTheWayTo(const std::string& target, std::string_view name) {
  if (!name.starts_with(target + ".") || !name.ends_with(kEnding)) return false;
  const std::size_t begin = target.size() + 1;
  if (name.size() <= begin + kEnding.size()) return false;
  const std::string_view process = name.substr(begin, name.size() - begin - kEnding.size());
  return std::ranges::all_of(process, [](char c) { return c >= '0' && c <= '9'; });
}

// The program that writes a file holds a lock on it as long as it lives.
bool IsLocked(const std::filesystem::path& file) {
  const int descriptor = open(file.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW);
  if (descriptor < 0) return true;
  struct flock lock = {};
  lock.l_type = F_WRLCK;
  lock.l_whence = SEEK_SET;
  const bool is_locked = fcntl(descriptor, F_GETLK, &lock) != 0 || lock.l_type != F_UNLCK;
  close(descriptor);
  return is_locked;
}

}  // namespace

NewFile::NewFile(std::filesystem::path target, std::string source)
    : target_(std::move(target)), temporary_(target_), source_(std::move(source)) {
  RemoveLeftOvers();
  RefuseExisting();
  temporary_ += fmt::format(".{}{}", getpid(), kEnding);
  const auto folder = target_.has_parent_path() ? target_.parent_path() : std::filesystem::path(".");
  std::error_code error;
  if (!std::filesystem::is_directory(folder, error)) {
    throw RuntimeError(kPathAccess, source_,
                       fmt::format("{}: cannot be made: {} is no folder", target_.string(), folder.string()));
  }
  if (access(folder.c_str(), W_OK) != 0) {
    throw RuntimeError(kPermissionDenied, source_,
                       fmt::format("{}: cannot be made: no right to write to the folder {}", target_.string(),
                                   folder.string()));
  }
  try {
    database_ = std::make_unique<Database>(temporary_, true, target_.string(), source_);
    database_->Execute(kLoadingPragmas);
    CreateTables(*database_);
    database_->Execute("BEGIN");
  } catch (...) {
    // The destructor does not run for an object that was never finished.
    database_.reset();
    std::filesystem::remove(temporary_, error);
    throw;
  }
}

NewFile::~NewFile() {
  database_.reset();
  std::error_code error;
  std::filesystem::remove(temporary_, error);
}

void NewFile::Publish() {
  CreateIndexes(*database_);
  database_->Execute("COMMIT");
  // The planner sees every row: by a sample of a shop's bills, which lie day by day, a range of years would
  // look like that of a few days.
  database_->Execute("ANALYZE");
  database_->Finish();
  database_.reset();
  // A link, unlike a renaming, fails when the name was taken meanwhile.
  std::error_code error;
  std::filesystem::create_hard_link(temporary_, target_, error);
  if (!error) return;
  RefuseExisting();
  std::filesystem::rename(temporary_, target_, error);
  if (error) {
    throw RuntimeError(kPathAccess, source_,
                       fmt::format("{}: cannot be made: {}", target_.string(), error.message()));
  }
}

void NewFile::RemoveLeftOvers() const {
  std::error_code error;
  const auto folder = target_.has_parent_path() ? target_.parent_path() : std::filesystem::path(".");
  std::vector<std::filesystem::path> left;
  for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    if (IsOnTheWayTo(target_.filename().string(), entry->path().filename().string())) {
      left.push_back(entry->path());
    }
  }
  for (const std::filesystem::path& file : left) {
    if (!IsLocked(file)) std::filesystem::remove(file, error);
  }
}

void NewFile::RefuseExisting() const {
  std::error_code error;
  if (std::filesystem::symlink_status(target_, error).type() != std::filesystem::file_type::not_found) {
    throw RuntimeError(
        kFileExists, source_,
        fmt::format("{}: exists already; an account set is never overwritten", target_.string()));
  }
}

}  // namespace salerpt::accountset
