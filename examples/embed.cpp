// Embeds the library in a program with a middle tier of its own: one object with the four members that the
// list of invoice lines by customer, `Rpt134`, asks for. Prints what the report gives its host.
#include <iostream>

#include "reports/reports.h"
#include "runtime/report.h"

using namespace salerpt;

// The rows that a company would read from its own database; the report hands over all of its conditions.
RecordsetRef InvoiceLines(const Dictionary& conditions) {
  RecordsetRef rows = MakeRecordset();
  rows->AppendField("FDate", FieldType::kDate, Recordset::kUnspecified);
  rows->AppendField("FCustName", FieldType::kVarChar, Recordset::kUnspecified);
  rows->AppendField("FAmount", FieldType::kCurrency, Recordset::kUnspecified);
  rows->Open();
  const Variant lines[][3] = {{"2023-12-29", "Ash Ltd", "70"},
                              {"2024-01-05", "Ash Ltd", "29.70"},
                              {"2024-02-11", "Birch & Sons", "1250"}};
  for (const auto& line : lines) {
    if (line[0].ToDate() < conditions.Get("BDate").ToDate()) continue;
    rows->AddNew();
    for (int field = 0; field < 3; ++field) rows->SetValue(field, line[field]);
    rows->Update();
  }
  rows->MoveFirst();
  return rows;
}

class MiddleTier final : public Object {
 public:
  std::string_view ClassName() const override { return "Example.MiddleTier"; }
  Variant Invoke(std::string_view member, InvokeKind, Arguments arguments) override {
    if (EqualNames(member, "PropsString")) return "UserName=ann;UserID=1;";  // the login
    if (EqualNames(member, "GetDataRight")) return false;                    // every customer may be seen
    if (EqualNames(member, "AccessCheck")) return true;                      // and every amount
    if (EqualNames(member, "GetRpt134Data")) return InvoiceLines(*As<Dictionary>(arguments[1]));
    RaiseNoSuchMember(*this, member);
  }
};

int main() {
  Runtime world;
  RegisterReports(world);
  world.host_object = std::make_shared<MiddleTier>();
  for (const char* prog_id : {"ORVMSaleRpt.Data", "ORVEBSGLItem.ItemInfo", "ORVEBCGLView.GLData"})
    world.Register(prog_id, [&world] { return world.host_object; });

  const auto report = std::dynamic_pointer_cast<Report>(CreateObject("ORVSaleRpt.Rpt134"));
  report->SetFilter(Dictionary{{"BDate", "2024-01-01"}, {"EDate", "2024-12-31"}}.Copy());
  report->GetReportData();
  std::cout << report->Result()->Get("Error").ToText();  // empty where the report went well
  for (int i = 1; i <= report->Title()->Size(); ++i)
    std::cout << As<Dictionary>(report->Title()->Item(i))->Get("FCaption").ToText() << '\n';
  for (RecordsetRef rows = report->Rs(); rows && !rows->Eof(); rows->MoveNext())
    std::cout << rows->Value("FDate").ToText() << '\t' << rows->Value("FCustName").ToText() << '\t'
              << rows->Value("FAmount").ToText() << '\n';
}
