// reports_page --write FILE   writes the page
// reports_page --check FILE   0 where the file holds it, 1 where it does not
#include <exception>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>

#include "reports_page/reports_page.h"

namespace {

std::string ReadAll(const char* path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// The first line in which they differ.
void TellDifference(const std::string& stored, const std::string& page) {
  std::istringstream stored_lines(stored);
  std::istringstream page_lines(page);
  std::string old_line;
  std::string new_line;
  for (int number = 1;; ++number) {
    const bool has_old = static_cast<bool>(std::getline(stored_lines, old_line));
    const bool has_new = static_cast<bool>(std::getline(page_lines, new_line));
    if (has_old && has_new && old_line == new_line) continue;
    std::cerr << "line " << number << "\n  page: " << (has_old ? old_line : "(none)")
              << "\n  code: " << (has_new ? new_line : "(none)") << '\n';
    return;
  }
}

int Check(const char* path, const std::string& page) {
  const std::string stored = ReadAll(path);
  if (stored == page) return 0;
  std::cerr << path << " does not tell what the code does. Accept the change with\n"
            << "  cmake --build --preset release --target reports_page_update\n";
  TellDifference(stored, page);
  return 1;
}

int Write(const char* path, const std::string& page) {
  std::ofstream file(path, std::ios::binary);
  file << page;
  file.close();
  if (file) return 0;
  std::cerr << path << " cannot be written\n";
  return 2;
}

}  // namespace

int main(int count, char** arguments) {
  const std::string_view command = count == 3 ? arguments[1] : "";
  if (command != "--write" && command != "--check") {
    std::cerr << "reports_page --write FILE or --check FILE\n";
    return 2;
  }
  try {
    const std::string page = salerpt::tools::ReportsPage();
    return command == "--write" ? Write(arguments[2], page) : Check(arguments[2], page);
  } catch (const std::exception& failure) {
    std::cerr << "reports_page: " << failure.what() << '\n';
    return 2;
  }
}
