// Runs one filter dialog, driven by the steps of a case, and tells what came of it.
#pragma once

#include <string_view>

#include "runtime/runtime.h"
#include "shell/scripted/dialog_case.h"

namespace salerpt::shell {

// Makes the dialog of the class ("frmFirter128", without regard to case), loads and activates it, and does
// what the steps say; a first step "finish" runs a plan in place of showing it. Steps behind the closing of
// the dialog find nobody to act on and are left out, but "state". The answer has the keys `Filter`, `closed`,
// `CurrentPlan`, `boxes`, `inputs`, `calls`, `keys`, `settings`, `controls` and `states`.
//
// Raises invalid call for a class that is none, and wrong-arguments, with the JSON pointer, for a step that
// names a control or value that the dialog does not have.
Json RunDialog(std::string_view class_name, const DialogCase& dialog_case);
// The same in a world whose dialogs are registered; the suite's objects, toolkit and platform are put into
// it.
Json RunDialog(Runtime& runtime, std::string_view class_name, const DialogCase& dialog_case);

}  // namespace salerpt::shell
