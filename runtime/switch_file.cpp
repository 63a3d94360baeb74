#include "runtime/switch_file.h"

#include <array>
#include <system_error>

#include "runtime/mparse.h"
#include "runtime/mrpt.h"
#include "runtime/runtime.h"

namespace salerpt {
namespace {

namespace fs = std::filesystem;

std::string Utf8(const fs::path& file) {
  const std::u8string text = file.u8string();
  return {text.begin(), text.end()};
}

// Empty where the switch file does not stand in the application's directory.
fs::path FindSwitchFile() {
  const fs::path directory = Runtime::Current().GetPlatform().ApplicationDirectory();
  // One name is tried three times; kept, as installations were checked against this order.
  const std::array<fs::path, 4> candidates{"ErpSwitch.sss", "ErpSwitch.sss",
                                           fs::path("erpSystem") / "ErpSwitch.sss", "ErpSwitch.sss"};
  for (const fs::path& candidate : candidates) {
    std::error_code ignored;
    if (fs::is_regular_file(directory / candidate, ignored)) return directory / candidate;
  }
  return {};
}

void ClearReadOnly(const fs::path& file) {
  std::error_code failure;
  const fs::file_status status = fs::status(file, failure);
  // A file that is not there is told when it is opened.
  if (!fs::exists(status) || (status.permissions() & fs::perms::owner_write) != fs::perms::none) return;
  fs::permissions(file, fs::perms::owner_write, fs::perm_options::add, failure);
  if (failure) {
    throw RuntimeError(error_number::kFileAccess, "ConnectSwitchFile",
                       Join("the switch file \"", Utf8(file),
                            "\" is read-only and cannot be made writable: ", failure.message()));
  }
}

std::string OpenWith(std::string_view provider, std::string_view file) {
  const ObjectRef connection = CreateObject("ADODB.Connection");
  Call(connection, "Open", Join("PROVIDER=", provider, ";Data Source=", file, ";"));
  std::string connect_string = GetMember(connection, "ConnectionString").ToText();
  Call(connection, "Close");
  return connect_string;
}

}  // namespace

std::string ConnectSwitchFile(const std::optional<fs::path>& file) {
  const fs::path found = file ? *file : FindSwitchFile();
  if (found.empty()) return {};
  ClearReadOnly(found);
  return OpenJetConnectString(found);
}

std::string OpenJetConnectString(const fs::path& file) {
  const std::string name = Utf8(file);
  for (const std::string_view provider : {"Microsoft.Jet.OLEDB.3.51", "Microsoft.Jet.OLEDB.4.0"}) {
    try {
      return OpenWith(provider, name);
    } catch (const RuntimeError&) {
      // The next provider may be the one that is installed; the box below tells when none is.
    }
  }
  Runtime::Current().GetToolkit().MessageBox(
      Join(ResText("由于你的ODBC有误，系统不能与文件:"), "\"", name, "\""), kBoxInformation, kHintTitle);
  return {};
}

}  // namespace salerpt
