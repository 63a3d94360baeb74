// `frmList`: the dialog in which the user picks a bill from a list.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "runtime/object.h"
#include "runtime/recordset.h"
#include "runtime/vector.h"

namespace salerpt {

// A thin shell around the closed list control, `ORVList.ICList`: what is set here goes straight to the
// control, and the control says what was chosen. Life: made, the properties set, InitData, shown modally
// (Toolkit::ShowModal), `OK` and `Selected` read, gone. A toolkit loads and activates the form, draws the
// control and the status bar while IsVisible, and hands on what the control reports (OnAction).
//
// The control is asked for Left, Top, Width, Height, Visible, the properties of `frmList` under their own
// names, and Load (true where it worked), IsOpened, IsSelected, GetListDes (a dictionary with "FName"),
// SelectFlag and Release. The first use of the control loads the form; it raises what the control raises.
class ListForm final : public Object {
 public:
  static constexpr std::string_view kClassName = "frmList";

  ListForm() = default;
  ~ListForm() override;

  // --- Members in interface order.
  // Whether the list may show a report.
  void SetISShowReport(bool value);
  // Display mode.
  void SetListShowStatus(std::int16_t mode);
  // Target bill type, as a text.
  void SetDestBillTransType(std::string_view type);
  // Which list.
  void SetListID(std::int32_t id);
  // Bill type.
  void SetTranType(std::int16_t type);
  // Connection, "|", user id, "|", user name.
  void SetBaseInfo(std::string_view info);
  // Whether several lines may be marked, and the same for rows.
  void SetMultiSelect(bool value);
  void SetCanSelectMultiRow(bool value);
  // The chosen rows. A row gives a field by name through Item, and the field its value through Value.
  [[nodiscard]] VectorRef Selected();
  // The list's rows.
  [[nodiscard]] RecordsetRef GetListRs();
  // Description of the list's fields, as the control gives it.
  [[nodiscard]] Variant GetListFieldsDes();
  // A further condition of the list.
  void SetFilter(std::string_view condition);
  // Connection string of the local switch file.
  void SetLocalCnn(std::string_view connect_string);
  // Name of the system.
  void SetSystemName(std::string_view name);
  // Before the form is shown: the list is set up. Afterwards: the user confirmed.
  [[nodiscard]] bool OK() const { return ok_; }
  // Given to the control when the list is loaded; the control may change it.
  [[nodiscard]] std::int32_t ROB() const { return rob_; }
  void SetROB(std::int32_t value) { rob_ = value; }
  // Loads the list. `OK` and the caption tell what came of it: a list that cannot be loaded, for whatever
  // reason, leaves `OK` false, and the form does not stay on the screen.
  void InitData();
  // Marks a row.
  void SelectFlag(std::int32_t row);
  // Empties the status bar.
  void PaintBar();

  // --- What a toolkit runs.
  // Form load. Once; later calls do nothing.
  void Load();
  // Shows a list that is set up; a list that is not leaves the screen at once.
  void Activate();
  // New inner size of the window, and the height of its status bar.
  void Resize(std::int32_t width, std::int32_t height, std::int32_t bar_height);
  // The action event of the control: "SelectOK" confirms where a row is selected, "Exit" leaves without one.
  void OnAction(std::string_view action);
  // The window is closed. Once; later calls do nothing.
  void Unload();
  [[nodiscard]] bool IsVisible() const { return visible_; }
  [[nodiscard]] bool IsUnloaded() const { return unloaded_; }
  [[nodiscard]] const std::string& Caption() const { return caption_; }
  // `ICListSel`: the control. Loads the form.
  [[nodiscard]] const ObjectRef& ListControl();
  // `SBar`: the text of the first panel of the status bar.
  [[nodiscard]] const std::string& BarText() const { return bar_text_; }
  void SetBarText(std::string_view text) { bar_text_ = text; }

  [[nodiscard]] std::string_view ClassName() const override { return kClassName; }
  Variant Invoke(std::string_view member, InvokeKind kind, Arguments arguments) override;
  static std::span<const Member<ListForm>> Members();

 private:
  // Hands a value to the control's property of the same name.
  void LetControl(std::string_view property, Variant value);

  ObjectRef control_;
  std::string caption_;
  std::string bar_text_;
  std::int32_t rob_ = 0;
  bool ok_ = false;
  bool visible_ = false;
  bool unloaded_ = false;
};

}  // namespace salerpt
