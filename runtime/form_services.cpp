#include "runtime/form_services.h"

#include <utility>

#include "runtime/mparse.h"
#include "runtime/mrpt.h"
#include "runtime/runtime.h"

namespace salerpt {
namespace {

constexpr std::string_view kFormResourceLoader = "ORVFrmRes.FrmResLoader";
// The language in which the forms are written: their strings need no loading.
constexpr std::string_view kFormLanguage = "chs";

const std::string& FormLanguage() {
  std::string& language = Runtime::Current().language;
  if (language.empty()) language = GetPropertyFromText("LANGUAGE");
  return language;
}

// Adds name and id of every row that the statement gives, and selects the first entry where there is one.
void AppendEnumeration(ComboBox& combo, std::string_view sql, bool has_entries) {
  const RecordsetRef rows = GetRsBySQL(sql);
  internal::Required(rows, "RecordCount");
  if (rows->RecordCount() > 0) {
    const int id = rows->FieldIndex("FInterID");
    const int name = rows->FieldIndex("FName");
    for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext()) {
      combo.AddItem(ResText(rows->Value(name).TextOrEmpty()), rows->Int32(id));
    }
    has_entries = true;
  }
  if (has_entries) combo.SetListIndex(0);
}

}  // namespace

void FillStatusCombo(ComboBox& combo) {
  combo.Clear();
  combo.AddItem(ResText("全部"), -1);
  AppendEnumeration(combo, "Select FInterID,FName From t_SubMessage Where FTypeID =997", true);
}

void FillConsignCombo(ComboBox& combo) {
  combo.Clear();
  AppendEnumeration(combo, "Select FInterID,FName From t_SubMessage Where FInterID = 20302", false);
}

void ClearTextBoxes(const std::vector<Control*>& controls) {
  for (Control* control : controls) {
    if (control->TypeName() == "TextBox") control->SetText("");
  }
}

DictionaryRef LoadFormResources(const ObjectRef& form, DictionaryRef dictionary, std::string_view name) {
  const std::string& language = FormLanguage();
  if (EqualNames(language, kFormLanguage)) return dictionary;
  if (!dictionary) dictionary = std::make_shared<Dictionary>();
  dictionary->Set("NeedMLColumnHeaders", true);
  Variant strings(std::move(dictionary));
  Call(CreateObject(kFormResourceLoader), "LoadFrmResStrings", form, language, name, "", strings);
  return As<Dictionary>(strings);
}

void ApplyFormFont(const ObjectRef& form) {
  const std::string& language = FormLanguage();
  ObjectRef& loader = Runtime::Current().form_loader;
  if (!loader) loader = CreateObject(kFormResourceLoader);
  Call(loader, "SetFrmFont", form, language);
}

}  // namespace salerpt
