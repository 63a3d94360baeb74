// Comparing SQL word by word, and taking the columns of a batch's table apart: for texts of which the words
// matter and not each blank.
#pragma once

#include <gtest/gtest.h>

#include <cctype>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/reports/expected_text.h"

namespace salerpt::testing {

// The words of a text in lower case; a sign that belongs to no word stands for itself.
inline std::vector<std::string> SqlWords(std::string_view text) {
  std::vector<std::string> words;
  bool within = false;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    const bool letter =
        byte >= 0x80 || std::isalnum(byte) != 0 || c == '_' || c == '#' || c == '@' || c == '.';
    if (letter) {
      if (!within) words.emplace_back();
      words.back() += static_cast<char>(byte < 0x80 ? std::tolower(byte) : byte);
    } else if (std::isspace(byte) == 0) {
      words.emplace_back(1, c);
    }
    within = letter;
  }
  return words;
}

inline std::string JoinedWords(const std::vector<std::string>& words, std::size_t from = 0,
                               std::size_t count = std::string::npos) {
  std::string text;
  for (std::size_t i = from; i < words.size() && i - from < count; ++i) {
    if (!text.empty()) text += ' ';
    text += words[i];
  }
  return text;
}
inline std::string JoinedWords(std::string_view text) {
  return JoinedWords(SqlWords(text));
}

// Equal word by word, whatever blanks, line ends and capitals.
inline ::testing::AssertionResult SameSql(std::string_view actual, std::string_view expected) {
  const std::vector<std::string> got = SqlWords(actual);
  const std::vector<std::string> want = SqlWords(expected);
  if (got == want) return ::testing::AssertionSuccess();
  std::size_t at = 0;
  while (at < got.size() && at < want.size() && got[at] == want[at]) ++at;
  const std::size_t begin = at < 12 ? 0 : at - 12;
  return ::testing::AssertionFailure() << "the words differ at " << at << " (counts " << got.size() << " and "
                                       << want.size() << " expected)\n--- actual\n"
                                       << JoinedWords(got, begin, 40) << "\n--- expected\n"
                                       << JoinedWords(want, begin, 40);
}

// The text without its empty lines, which say nothing to the server.
inline std::string WithoutEmptyLines(std::string_view text) {
  std::string lines;
  while (!text.empty()) {
    const std::size_t end = text.find("\r\n");
    const std::string_view line = text.substr(0, end);
    if (!line.empty()) (lines += line) += "\r\n";
    if (end == std::string_view::npos) break;
    text.remove_prefix(end + 2);
  }
  return lines;
}

inline bool Contains(std::string_view text, std::string_view piece) {
  return text.find(piece) != std::string_view::npos;
}
// How often a piece stands in a text.
inline int CountOf(std::string_view text, std::string_view piece) {
  int count = 0;
  for (std::size_t at = text.find(piece); at != std::string_view::npos; at = text.find(piece, at + 1))
    ++count;
  return count;
}
// The piece stands in the text, to the letter; otherwise tells how far it got.
inline ::testing::AssertionResult HasText(std::string_view text, std::string_view piece) {
  if (Contains(text, piece)) return ::testing::AssertionSuccess();
  std::size_t longest = 0;
  std::size_t place = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    std::size_t length = 0;
    while (length < piece.size() && at + length < text.size() && text[at + length] == piece[length]) ++length;
    if (length > longest) {
      longest = length;
      place = at;
    }
  }
  return ::testing::AssertionFailure() << "the text is not there; its first " << longest << " of "
                                       << piece.size() << " bytes are\n--- actual\n"
                                       << Shown(text.substr(place, longest + 80)) << "\n--- expected\n"
                                       << Shown(piece.substr(0, longest + 80));
}

// The pieces between commas outside brackets and quotes.
inline std::vector<std::string> SplitAtCommas(std::string_view text) {
  std::vector<std::string> pieces(1);
  int depth = 0;
  bool quoted = false;
  for (const char c : text) {
    if (c == '\'') quoted = !quoted;
    if (!quoted && c == '(') ++depth;
    if (!quoted && c == ')') --depth;
    if (c == ',' && depth == 0 && !quoted) {
      pieces.emplace_back();
    } else {
      pieces.back() += c;
    }
  }
  return pieces;
}

// Name and definition, in lower case with single blanks, of each column of the first table that is created
// under this name, such as "#DATA("; the bracket belongs to the name.
inline std::vector<std::pair<std::string, std::string>> CreatedColumns(std::string_view batch,
                                                                       std::string_view table) {
  std::vector<std::pair<std::string, std::string>> columns;
  const std::string create = "create table " + std::string(table);
  std::string lower(batch);
  for (char& c : lower) {
    if (static_cast<unsigned char>(c) < 0x80)
      c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  }
  std::string sought = create;
  for (char& c : sought) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  const std::size_t begin = lower.find(sought);
  if (begin == std::string::npos) {
    ADD_FAILURE() << "no " << create;
    return columns;
  }
  const std::size_t from = begin + sought.size();
  std::size_t to = from;
  for (int depth = 1; to < lower.size(); ++to) {
    if (lower[to] == '(') ++depth;
    if (lower[to] == ')' && --depth == 0) break;
  }
  for (const std::string& column : SplitAtCommas(std::string_view(lower).substr(from, to - from))) {
    const std::vector<std::string> words = SqlWords(column);
    if (words.empty()) continue;
    columns.emplace_back(words[0], JoinedWords(words, 1));
  }
  return columns;
}

// What the batch selects into a table, column by column in lower case with single blanks: from the first
// "Insert Into" the table without a column list to its "From".
inline std::vector<std::string> SelectedColumns(std::string_view batch, std::string_view table) {
  const std::vector<std::string> words = SqlWords(batch);
  const std::string name = JoinedWords(table);
  std::vector<std::string> columns;
  std::size_t at = 0;
  while (at + 3 < words.size() && !(words[at] == "insert" && words[at + 1] == "into" &&
                                    words[at + 2] == name && words[at + 3] == "select")) {
    ++at;
  }
  if (at + 3 >= words.size()) {
    ADD_FAILURE() << "nothing is selected into " << table;
    return columns;
  }
  columns.emplace_back();
  int depth = 0;
  for (at += 4; at < words.size() && !(depth == 0 && words[at] == "from"); ++at) {
    if (words[at] == "(") ++depth;
    if (words[at] == ")") --depth;
    if (words[at] == "," && depth == 0) {
      columns.emplace_back();
      continue;
    }
    if (!columns.back().empty()) columns.back() += ' ';
    columns.back() += words[at];
  }
  return columns;
}

// Each column of the table with what is selected into it; an identity gets nothing. Fails where the counts
// differ.
inline std::map<std::string, std::string> SelectedByColumn(std::string_view batch, std::string_view table) {
  std::map<std::string, std::string> selected;
  const auto columns = CreatedColumns(batch, std::string(table) + "(");
  const auto values = SelectedColumns(batch, table);
  std::vector<std::string> names;
  for (const auto& [column, definition] : columns) {
    if (!Contains(definition, "identity")) names.push_back(column);
  }
  EXPECT_EQ(names.size(), values.size()) << "columns and values of " << table << "\n"
                                         << ::testing::PrintToString(names) << "\n"
                                         << ::testing::PrintToString(values);
  for (std::size_t i = 0; i < names.size() && i < values.size(); ++i) selected[names[i]] = values[i];
  return selected;
}

}  // namespace salerpt::testing
