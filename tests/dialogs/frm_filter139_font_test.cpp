// The font of the dialog over the filter control.
#include "dialogs/dialogs.h"
#include "tests/dialogs/dialog_suite.h"

namespace salerpt::testing {
namespace {

class FrmFilter139FontTest : public DialogSuiteTest {};

TEST_F(FrmFilter139FontTest, ActivationSetsItForBoxesAndLabels) {
  RegisterDialogs(runtime_);
  const auto made = runtime_.MakeDialog("FrmFilter139");
  auto& dialog = dynamic_cast<FormDialog&>(*made);
  dialog.Load();
  for (const auto& control : dialog.GetForm().Controls()) EXPECT_EQ(control->font_size, 9);
  dialog.Activate();
  for (const auto& control : dialog.GetForm().Controls()) {
    const std::string_view type = control->TypeName();
    const bool is_meant = type == "CheckBox" || type == "ComboBox" || type == "Label";
    EXPECT_EQ(control->font_size, is_meant ? 9.5 : 9) << control->Name();
    EXPECT_FALSE(control->bold);
  }
}

}  // namespace
}  // namespace salerpt::testing
