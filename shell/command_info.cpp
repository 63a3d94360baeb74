// `salerpt info`: what the library answers to the host's questions about the module as a whole.
#include <array>
#include <cstdint>
#include <memory>
#include <ostream>
#include <string>

#include "runtime/text.h"
#include "shell/cell_format.h"
#include "shell/commands.h"
#include "shell/failure.h"
#include "shell/filter_file.h"
#include "shell/host.h"
#include "shell/recorded/shown.h"
#include "shell/report_command.h"
#include "shell/suggest.h"
#include "shell/text_grid.h"

namespace salerpt::shell {
namespace {

struct InfoOptions {
  std::string db = "salerpt.db";
  std::string request_file;
  std::int16_t key = 0;
  std::int16_t shift = 0;
};

constexpr std::array<std::string_view, 3> kRequestKeys = {"FRefreshType", "FSubSysID", "FSubFuncID"};

DictionaryRef ReadRequest(const std::string& file) {
  auto request = std::make_shared<Dictionary>();
  for (const Choice& choice : ReadFilterFile(file)) {
    const auto* known = std::ranges::find_if(
        kRequestKeys, [&choice](std::string_view key) { return EqualNames(key, choice.key); });
    if (known == kRequestKeys.end()) {
      RaiseUsage(Join(choice.place, ": unknown key", KnownNames(choice.key, kRequestKeys)));
    }
    if (choice.value.GetKind() != Variant::Kind::kInt32) {
      RaiseUsage(Join(choice.place, ": a whole number was expected"));
    }
    request->Set(choice.key, choice.value);
  }
  return request;
}

void AskRefresh(const InfoOptions& options, Shell& shell) {
  const DictionaryRef request = ReadRequest(options.request_file);
  const Host host(options.db, shell, ProgressBar::Style::kOff);
  const Variant answer = Call(CreateObject("ORVSaleRpt.GetInfo"), "GetRefreshFunc", request);
  Json shown;
  shown["request"] = Show(request);
  shown["answer"] = Show(answer);
  shell.out << shown.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

// A cell as a person reads it; `decimals` is the field that tells the decimals, or -1.
std::string CellText(const Recordset& rows, int field, int decimals) {
  const Variant value = rows.Value(field);
  if (value.IsNull()) return "";
  if (decimals < 0) return value.ToText();
  std::string text;
  AppendFixed(text, value.ToDouble(), rows.Value(decimals).ToInt32());
  return text;
}

void PrintList(const middletier::ShownList& list, std::ostream& out) {
  std::vector<TextGrid::Column> columns;
  std::vector<int> fields;
  std::vector<int> decimals;
  for (const auto& column : list.columns) {
    columns.push_back({column.caption, !column.decimals.empty()});
    fields.push_back(list.rows->FieldIndex(column.field));
    decimals.push_back(column.decimals.empty() ? -1 : list.rows->FieldIndex(column.decimals));
  }
  TextGrid grid(std::move(columns));
  for (list.rows->MoveFirst(); !list.rows->Eof(); list.rows->MoveNext()) {
    std::vector<std::string> row;
    for (std::size_t i = 0; i < fields.size(); ++i)
      row.push_back(CellText(*list.rows, fields[i], decimals[i]));
    grid.Add(std::move(row));
  }
  out << list.title << '\n';
  grid.Write(out);
}

void PressKey(const InfoOptions& options, Shell& shell) {
  const Host host(options.db, shell, ProgressBar::Style::kOff,
                  [&shell](const middletier::ShownList& list) { PrintList(list, shell.out); });
  Call(CreateObject("ORVSaleRpt.GetInfo"), "IInputEventListener_OnKeyPressed", options.key, options.shift);
}

}  // namespace

void AddInfoCommand(CLI::App& app, Shell& shell) {
  auto options = std::make_shared<InfoOptions>();
  CLI::App* command = app.add_subcommand(
      "info", "Print what the library answers to a refresh request, or the list that a key opens");
  AddDbOption(*command, options->db);
  CLI::Option* request = command->add_option(
      "REQUEST.json", options->request_file,
      "The request: an object with FRefreshType, FSubSysID and FSubFuncID (- for standard input)");
  CLI::Option* key =
      command->add_option("--key", options->key, "Send a key in place of a request; 123 is F12")
          ->check(CLI::Range(0, 32767))
          ->type_name("CODE")
          ->excludes(request);
  CLI::Option* shift = command->add_option("--shift", options->shift, "Shift state with the key; 1 is Shift")
                           ->check(CLI::Range(0, 32767))
                           ->type_name("N");
  shift->needs(key);
  command->footer(
      "A refresh is printed as one JSON object: \"request\" as it was left, \"answer\" as an array. F12 "
      "opens "
      "the\n"
      "stock query, Shift+F12 the stock status; any other key does nothing.\n"
      "Exit status: 0 done, 2 wrong usage or unreadable input.");
  command->callback([options, request, key, &shell] {
    if (key->count() > 0) return PressKey(*options, shell);
    if (request->count() == 0) RaiseUsage("REQUEST.json or --key was expected");
    AskRefresh(*options, shell);
  });
}

}  // namespace salerpt::shell
