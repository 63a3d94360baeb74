// `salerpt import`: the invoice lines of a real shop into a new account set.
#include <memory>
#include <ostream>
#include <streambuf>
#include <string>

#include "shell/commands.h"
#include "shell/interrupt.h"
#include "shell/progress_bar.h"
#include "shell/report_command.h"
#include "suite/accountset/accountset.h"

namespace salerpt::shell {
namespace {

// Passes texts on to the message stream, after the progress line has made room for them.
class MessageBuffer : public std::streambuf {
 public:
  MessageBuffer(std::ostream& err, ProgressBar& bar) : err_(err), bar_(bar) {}

 protected:
  std::streamsize xsputn(const char* text, std::streamsize size) override {
    bar_.Clear();
    err_.write(text, size);
    return size;
  }
  int_type overflow(int_type character) override {
    const char c = traits_type::to_char_type(character);
    xsputn(&c, 1);
    return traits_type::not_eof(character);
  }

 private:
  std::ostream& err_;
  ProgressBar& bar_;
};

struct ImportOptions {
  std::string db;
  std::string csv;
};

accountset::ImportReport Import(const ImportOptions& options, Shell& shell) {
  ProgressBar bar(shell.err, ProgressStyle(shell, false));
  MessageBuffer buffer(shell.err, bar);
  std::ostream rejects(&buffer);
  const InterruptGuard guard;
  bar.SetMessage("reading " + options.csv);
  return accountset::Import(options.db, options.csv, rejects, [&bar](std::int64_t done, std::int64_t total) {
    InterruptGuard::Check();
    bar.SetBar(done, total);
  });
}

void RunImport(const ImportOptions& options, Shell& shell) {
  const accountset::ImportReport report = Import(options, shell);
  shell.out << options.db << ": account set made\n"
            << "lines     " << report.lines << '\n'
            << "rejected  " << report.rejected << '\n'
            << "invoices  " << report.bills << " (" << report.red_bills << " red)\n"
            << "items     " << report.items << '\n'
            << "customers " << report.customers << '\n';
}

}  // namespace

void AddImportCommand(CLI::App& app, Shell& shell) {
  auto options = std::make_shared<ImportOptions>();
  CLI::App* command = app.add_subcommand("import", "Load the invoice lines of a shop into a new account set");
  command->add_option("DB", options->db, "File to make; an existing one is never overwritten")->required();
  command->add_option("FILE", options->csv, "Invoice lines: FILE.csv or FILE.csv.gz")->required();
  command->footer(
      "Columns: InvoiceNo,StockCode,Description,Quantity,InvoiceDate,UnitPrice,CustomerID,Country.\n"
      "An invoice number that begins with C is a return. Each invoice also makes the outbound bill that it "
      "settles.\n"
      "Lines that cannot be used are counted, and listed with their line numbers on standard error.");
  command->callback([options, &shell] { RunImport(*options, shell); });
}

}  // namespace salerpt::shell
