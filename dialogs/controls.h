// The controls of a filter dialog: their state, and the events that a dialog's rules hang on.
//
// A window toolkit draws these and feeds them: it sets what the user changed through the operations named
// "User…", and repaints from the state. Nothing here depends on pixels. Code that changes a control raises
// the same change events as the user does, as dialogs rely on it.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/date.h"
#include "runtime/event.h"
#include "runtime/form_services.h"
#include "sqltoolkit/plan_store.h"

namespace salerpt {

// Key codes that the dialogs know, as the keyboard sends them.
namespace key_code {
inline constexpr int kBackspace = 8;
inline constexpr int kTab = 9;
inline constexpr int kEnter = 13;
inline constexpr int kEscape = 27;
inline constexpr int kApostrophe = 39;
inline constexpr int kDelete = 46;
inline constexpr int kF7 = 118;
inline constexpr int kF8 = 119;
inline constexpr int kF9 = 120;
}  // namespace key_code

// A key on its way to a control. A handler that sets `code` to 0 swallows it.
struct KeyStroke {
  int code;
  int shift = 0;
};

// What all controls have. `Control` is the form services' view of it.
class FormControl : public Control {
 public:
  FormControl(std::string name, std::string_view type_name) : name_(std::move(name)), type_name_(type_name) {}
  FormControl(const FormControl&) = delete;
  FormControl& operator=(const FormControl&) = delete;

  // "cmdOK"; a control of an array is named with its index, "txtItem(3)".
  [[nodiscard]] const std::string& Name() const { return name_; }
  // The class of the control, such as "TextBox".
  [[nodiscard]] std::string_view TypeName() const override { return type_name_; }
  // Controls without a text of their own ignore it.
  void SetText(std::string_view /*text*/) override {}
  // Whether the focus may enter.
  [[nodiscard]] virtual bool CanFocus() const { return false; }
  [[nodiscard]] bool IsAvailable() const {
    return enabled && visible && (container == nullptr || container->IsAvailable());
  }

  bool enabled = true;
  bool visible = true;
  // The frame that it stands in: the user reaches it only where the frame is available too.
  const FormControl* container = nullptr;
  std::string caption;
  std::string tool_tip;
  // The font that a toolkit draws it in: its size in points, and its weight.
  double font_size = 9;
  bool bold = false;
  // Place in the tab order, from 0.
  int tab_index = 0;

  Event<> Click;
  Event<> GotFocus;
  Event<> LostFocus;
  // Before the focus leaves.
  Event<> Validate;
  Event<KeyStroke&> KeyDown;
  Event<KeyStroke&> KeyPress;
  Event<KeyStroke&> KeyUp;

 private:
  std::string name_;
  std::string_view type_name_;
};

class Label final : public FormControl {
 public:
  explicit Label(std::string name) : FormControl(std::move(name), "Label") {}
};

class Frame final : public FormControl {
 public:
  explicit Frame(std::string name) : FormControl(std::move(name), "Frame") {}
};

class Button final : public FormControl {
 public:
  explicit Button(std::string name) : FormControl(std::move(name), "CommandButton") {}
  [[nodiscard]] bool CanFocus() const override { return IsAvailable(); }
  // The button that Enter presses.
  bool is_default = false;
};

class CheckBox final : public FormControl {
 public:
  explicit CheckBox(std::string name) : FormControl(std::move(name), "CheckBox") {}
  [[nodiscard]] bool CanFocus() const override { return IsAvailable(); }
  [[nodiscard]] int Value() const { return value_; }
  [[nodiscard]] bool IsChecked() const { return value_ == 1; }
  // 0 or 1; raises invalid call, naming the control and the value, for any other. A change raises Click.
  void SetValue(int value);

 private:
  int value_ = 0;
};

class TextBox final : public FormControl {
 public:
  explicit TextBox(std::string name) : FormControl(std::move(name), "TextBox") {}
  [[nodiscard]] bool CanFocus() const override { return IsAvailable(); }
  [[nodiscard]] const std::string& Text() const { return text_; }
  // Cut to MaxLength. A change raises Change.
  void SetText(std::string_view text) override;
  // The whole text is marked: the next character replaces it.
  void SelectAll() { is_selected_ = true; }
  // A character of the keyboard (a code point), or backspace: replaces what is marked, else goes to the end.
  void TypeCharacter(char32_t character);
  // Longest text, in characters; 0 for no limit.
  void SetMaxLength(std::size_t length) { max_length_ = length; }

  Event<> Change;

 private:
  std::string text_;
  std::size_t max_length_ = 0;
  bool is_selected_ = false;
};

// A row of a combo box or list box.
struct ListItem {
  std::string text;
  std::int32_t item_data = 0;
};

// A combo box, whose row is chosen from a closed list, or a list box.
class ListControl final : public FormControl, public ComboBox {
 public:
  enum class Style { kCombo, kList };
  ListControl(std::string name, Style style)
      : FormControl(std::move(name), style == Style::kCombo ? "ComboBox" : "ListBox") {}
  [[nodiscard]] bool CanFocus() const override { return IsAvailable(); }

  // Takes all rows away; no row is selected then, without a Click.
  void Clear() override;
  void AddItem(std::string_view text, std::int32_t item_data) override;
  [[nodiscard]] const std::vector<ListItem>& Items() const { return items_; }
  // -1 where no row is selected.
  [[nodiscard]] int ListIndex() const { return list_index_; }
  // -1 to the last row; raises invalid call, naming the control and the index, beyond. Raises Click, also for
  // the row that is selected already: setting the index is how a dialog's code "clicks" a row.
  void SetListIndex(std::int32_t index) override;
  // The selected row; raises invalid call where none is.
  [[nodiscard]] const ListItem& Selected() const;
  // Its text, empty where none is selected.
  [[nodiscard]] std::string Text() const;
  // Its item data, 0 where none is selected.
  [[nodiscard]] std::int32_t ItemData() const;
  // A double click on the selected row of a list box.
  Event<> DoubleClick;

 private:
  std::vector<ListItem> items_;
  int list_index_ = -1;
};

class DatePicker final : public FormControl {
 public:
  explicit DatePicker(std::string name) : FormControl(std::move(name), "DTPicker") {}
  [[nodiscard]] bool CanFocus() const override { return IsAvailable(); }
  [[nodiscard]] Date Value() const { return value_; }
  // The day alone counts.
  void SetValue(Date value);
  // "YYYY-MM-DD".
  [[nodiscard]] std::string Text() const { return value_.Format('-'); }
  Event<> Change;

 private:
  Date value_;
};

// The arrows beside a text box, its buddy; the value stands in the buddy's text.
class UpDown final : public FormControl {
 public:
  explicit UpDown(std::string name) : FormControl(std::move(name), "UpDown") {}
  std::int32_t min = 0;
  std::int32_t max = 0;
};

class TabControl final : public FormControl {
 public:
  struct Tab {
    std::string caption;
    bool enabled = true;
  };
  explicit TabControl(std::string name) : FormControl(std::move(name), "SSTab") {}
  std::vector<Tab> tabs;
};

// The plan list: rows with an icon, in one of four views.
class ListView final : public FormControl, public PlanList {
 public:
  struct Row {
    std::string key;
    std::string text;
    int icon = 0;
  };
  explicit ListView(std::string name) : FormControl(std::move(name), "ListView") {}
  [[nodiscard]] bool CanFocus() const override { return IsAvailable(); }

  void Clear() override;
  void Add(std::string_view key, std::string_view text) override;
  void SetIcons(int icon);
  [[nodiscard]] const std::vector<Row>& Rows() const { return rows_; }
  // From 0; -1 where no row is selected. The first row that is added is selected.
  [[nodiscard]] int SelectedIndex() const { return selected_; }
  void Select(int index);
  // Selects the row with this key, without regard to case; false where there is none.
  bool SelectKey(std::string_view key) override;
  // Text of the selected row, empty where none is.
  [[nodiscard]] std::string SelectedText() const;
  // The user's click on a row: selects it and raises ItemClick. Raises invalid call for no such row.
  void UserClick(std::string_view text);

  // 0 large icons, 1 small icons, 2 list, 3 details.
  int view = 0;
  std::string column_header;
  Event<> ItemClick;
  // Before a label is edited; a handler that sets the flag cancels it.
  Event<bool&> BeforeLabelEdit;

 private:
  std::vector<Row> rows_;
  int selected_ = -1;
};

class Toolbar final : public FormControl {
 public:
  struct ToolButton {
    std::string key;
    std::string tool_tip;
    int tag = 0;
    std::vector<std::string> menu;
  };
  explicit Toolbar(std::string name) : FormControl(std::move(name), "Toolbar") {}
  // The button of a key, without regard to case; null where there is none.
  [[nodiscard]] ToolButton* Find(std::string_view key);

  std::vector<ToolButton> buttons;
  Event<ToolButton&> ButtonClick;
  // An entry of a button's menu, from 1.
  Event<ToolButton&, int> MenuClick;
};

// The grid of chosen sort fields: up to 40 rows.
class OrderGrid final : public FormControl {
 public:
  static constexpr int kCapacity = 40;
  static constexpr int kCaptionColumn = 1;
  static constexpr int kAscendingColumn = 2;
  static constexpr int kDescendingColumn = 3;
  static constexpr int kFieldColumn = 4;
  enum class CellType : std::uint8_t { kStatic = 5, kCheckBox = 10 };
  struct Row {
    std::string caption;
    int ascending = 0;
    int descending = 0;
    std::string field;
    CellType check_cells = CellType::kStatic;
    // Painted as the selected row.
    bool marked = false;
  };
  explicit OrderGrid(std::string name) : FormControl(std::move(name), "vaSpread") {}
  [[nodiscard]] bool CanFocus() const override { return IsAvailable(); }

  // The user's click in a cell, row and column from 1; the row may lie beyond the rows in use. Raises
  // CellClick; in a check cell of a used row the mark changes then, and ButtonClicked follows.
  void UserClick(int row, int column);

  // The rows in use, in order.
  std::vector<Row> rows;
  // Of the columns 1 to 4; a column without a header is hidden.
  std::array<std::string, kFieldColumn> headers;
  Event<int, int> CellClick;
  // After the user has set or cleared the mark of a check cell.
  Event<int, int> ButtonClicked;
};

}  // namespace salerpt
