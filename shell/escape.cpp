#include "shell/escape.h"

#include <nlohmann/json.hpp>

namespace salerpt::shell {
namespace {

bool IsPlainAscii(std::string_view text) {
  for (const char c : text) {
    if (c < ' ' || c > '~' || c == '"' || c == '\\') return false;
  }
  return true;
}

}  // namespace

void AppendCsvField(std::string& out, std::string_view text) {
  if (text.find_first_of(",\"\r\n") == std::string_view::npos) {
    out += text;
    return;
  }
  out += '"';
  for (const char c : text) {
    if (c == '"') out += '"';
    out += c;
  }
  out += '"';
}

void AppendJsonText(std::string& out, std::string_view text) {
  if (IsPlainAscii(text)) {
    out += '"';
    out += text;
    out += '"';
    return;
  }
  out += nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

void AppendHtmlText(std::string& out, std::string_view text) {
  for (const char c : text) {
    switch (c) {
      case '&':
        out += "&amp;";
        break;
      case '<':
        out += "&lt;";
        break;
      case '>':
        out += "&gt;";
        break;
      case '"':
        out += "&quot;";
        break;
      default:
        out += c;
    }
  }
}

void AppendTerminalText(std::string& out, std::string_view text) {
  for (const char c : text) {
    const bool is_control = static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
    out += is_control ? ' ' : c;
  }
}

}  // namespace salerpt::shell
