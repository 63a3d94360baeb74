#include "dialogs/dialogs.h"

#include <memory>
#include <string_view>

#include "dialogs/frm_filter139.h"
#include "dialogs/frm_filter189.h"
#include "dialogs/frm_filter303.h"
#include "dialogs/frm_firter1010.h"
#include "dialogs/frm_firter128.h"
#include "dialogs/frm_firter145.h"
#include "dialogs/frm_firter146.h"
#include "dialogs/frm_firter149.h"
#include "dialogs/frm_firter176.h"
#include "dialogs/frm_firter301.h"
#include "dialogs/frm_firter302.h"
#include "dialogs/tables/tables.h"

namespace salerpt {
namespace {

template <typename Dialog>
std::unique_ptr<FilterDialog> Make() {
  return std::make_unique<Dialog>();
}

template <const DialogTable& table>
std::unique_ptr<FilterDialog> MakeFromTable() {
  return std::make_unique<TableDialog>(table);
}

struct Registration {
  std::string_view name;
  std::unique_ptr<FilterDialog> (*make)();
};

constexpr Registration kDialogs[] = {
    {"frmFirter126", MakeFromTable<kFrmFirter126>}, {"frmFirter128", Make<FrmFirter128>},
    {"frmFirter129", MakeFromTable<kFrmFirter129>}, {"FrmFilter133", MakeFromTable<kFrmFilter133>},
    {"frmFirter134", MakeFromTable<kFrmFirter134>}, {"frmFirter135", MakeFromTable<kFrmFirter135>},
    {"frmFirter136", MakeFromTable<kFrmFirter136>}, {"frmFirter137", MakeFromTable<kFrmFirter137>},
    {"frmFirter138", MakeFromTable<kFrmFirter138>}, {"FrmFilter139", Make<FrmFilter139>},
    {"frmFirter140", MakeFromTable<kFrmFirter140>}, {"frmFirter142", MakeFromTable<kFrmFirter142>},
    {"frmFirter143", MakeFromTable<kFrmFirter143>}, {"frmFirter145", Make<FrmFirter145>},
    {"frmFirter146", Make<FrmFirter146>},           {"frmFilter147", MakeFromTable<kFrmFilter147>},
    {"frmFilter148", MakeFromTable<kFrmFilter148>}, {"frmFirter149", Make<FrmFirter149>},
    {"frmFirter176", Make<FrmFirter176>},           {"frmFilter189", Make<FrmFilter189>},
    {"frmFilter192", MakeFromTable<kFrmFilter192>}, {"frmFirter300", MakeFromTable<kFrmFirter300>},
    {"frmFirter301", Make<FrmFirter301>},           {"frmFirter302", Make<FrmFirter302>},
    {"FrmFilter303", Make<FrmFilter303>},           {"frmFirter1010", Make<FrmFirter1010>},
};

}  // namespace

void RegisterDialogs(Runtime& runtime) {
  for (const Registration& dialog : kDialogs) runtime.RegisterDialog(dialog.name, dialog.make);
}

std::vector<std::string> DialogNames() {
  std::vector<std::string> names;
  for (const Registration& dialog : kDialogs) names.emplace_back(dialog.name);
  return names;
}

}  // namespace salerpt
