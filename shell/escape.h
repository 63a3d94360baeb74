// Texts as the output formats quote them.
#pragma once

#include <string>
#include <string_view>

namespace salerpt::shell {

// A CSV field: in quotation marks, inner ones doubled, where it holds a comma, a quotation mark or a line
// end.
void AppendCsvField(std::string& out, std::string_view text);
// A JSON string with its quotation marks. A byte that is no UTF-8 becomes U+FFFD.
void AppendJsonText(std::string& out, std::string_view text);
// Text between HTML tags or inside a quoted attribute.
void AppendHtmlText(std::string& out, std::string_view text);
// One line of a terminal: control characters, line ends among them, become blanks.
void AppendTerminalText(std::string& out, std::string_view text);

}  // namespace salerpt::shell
