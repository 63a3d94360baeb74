// A filter dialog run without a person: conditions chosen by the keys of `Filter`.
#pragma once

#include <span>
#include <string_view>

#include "dialogs/table_dialog.h"

namespace salerpt {

// Sets the controls of a loaded dialog and confirms it, so that what follows from a choice (the text of a
// row, the description of a group, the other end of the levels) follows as it does for a person. A value that
// no control can show stands in `Filter` as it was given. Where the dialog refuses, `Filter` "OK" is false.
// The stored default plan stays as it is.
void ConfirmWith(FormDialog& dialog, std::span<const Dictionary::Entry> chosen);

// The same with a new dialog of the class: its `Filter`. Raises the object maker's error for a class that is
// not registered.
DictionaryRef ConfirmedFilter(std::string_view dialog, std::span<const Dictionary::Entry> chosen);

}  // namespace salerpt
