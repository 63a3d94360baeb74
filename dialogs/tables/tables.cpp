#include "dialogs/tables/tables.h"

#include <algorithm>

#include "runtime/text.h"

namespace salerpt {

constexpr std::array<const DialogTable*, 22> kDialogTables = {
    &kFrmFirter126, &kFrmFirter128, &kFrmFirter129, &kFrmFilter133,  &kFrmFirter134, &kFrmFirter135,
    &kFrmFirter136, &kFrmFirter137, &kFrmFirter138, &kFrmFirter140,  &kFrmFirter142, &kFrmFirter143,
    &kFrmFilter147, &kFrmFilter148, &kFrmFirter176, &kFrmFilter189,  &kFrmFilter192, &kFrmFirter300,
    &kFrmFirter301, &kFrmFirter302, &kFrmFilter303, &kFrmFirter1010,
};

const DialogTable* FindDialogTable(std::string_view name) {
  const auto found = std::find_if(kDialogTables.begin(), kDialogTables.end(),
                                  [name](const DialogTable* table) { return EqualNames(table->name, name); });
  return found == kDialogTables.end() ? nullptr : *found;
}

}  // namespace salerpt
