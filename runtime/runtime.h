// The one place of process-wide state.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "runtime/filter_dialog.h"
#include "runtime/ini_file.h"
#include "runtime/object.h"
#include "runtime/platform.h"
#include "runtime/text.h"
#include "runtime/toolkit.h"

namespace salerpt {

// What the system shares by nature within a process: the ProgID registry, the long-code flag, the objects
// kept after their first use, the cached language, the host object, the toolkit, the platform. Making a
// Runtime makes a fresh world and puts it in force until it is destroyed, when the earlier one comes back; a
// test makes one in a line. One thread.
class Runtime {
 public:
  using ObjectMaker = std::function<ObjectRef()>;
  using DialogMaker = std::function<std::unique_ptr<FilterDialog>()>;

  Runtime();
  ~Runtime();
  Runtime(const Runtime&) = delete;
  Runtime& operator=(const Runtime&) = delete;

  // The world in force. Raises object-not-set where none was made.
  static Runtime& Current();

  // --- Objects by ProgID ("ORVSaleRpt.Rpt128"), names without regard to case. A later registration replaces.
  void Register(std::string_view prog_id, ObjectMaker maker);
  [[nodiscard]] bool IsRegistered(std::string_view prog_id) const;
  // What makes the objects of a ProgID; nothing where none is registered.
  [[nodiscard]] ObjectMaker FindMaker(std::string_view prog_id) const;
  // Raises the object maker's error, naming the ProgID, where none is registered.
  [[nodiscard]] ObjectRef CreateObject(std::string_view prog_id) const;

  // --- Dialogs by class name ("frmFirter128")
  void RegisterDialog(std::string_view name, DialogMaker maker);
  [[nodiscard]] std::unique_ptr<FilterDialog> MakeDialog(std::string_view name) const;

  // --- Seams. Never null; the setters take nothing to mean the default.
  [[nodiscard]] Toolkit& GetToolkit() const { return *toolkit_; }
  void SetToolkit(std::shared_ptr<Toolkit> toolkit);
  [[nodiscard]] Platform& GetPlatform() const { return *platform_; }
  void SetPlatform(std::shared_ptr<Platform> platform);

  // --- State of the modules, kept for the life of the library
  // True when the long code `FNumber` is shown and filtered on, false for `FShortNumber`; written by every
  // report object that is made.
  bool gLongNumber = true;
  // Through which a hosting module gives the context; nothing below a shell that only has the property store.
  ObjectRef host_object;
  // Language of the form resources; empty until the first use.
  std::string language;
  // Made on first use: `ORVEBCGLView.GLData`, `ORVEBCGLView.GLView`, the loader of form resources.
  ObjectRef gl_data;
  ObjectRef gl_view;
  ObjectRef form_loader;
  IniFile ini_file;
  // Text last given to the process-wide ParseString, and what came of it (see mparse.h).
  std::shared_ptr<class PropertyCollection> properties;

 private:
  std::map<std::string, ObjectMaker, NameLess> makers_;
  std::map<std::string, DialogMaker, NameLess> dialog_makers_;
  std::shared_ptr<Toolkit> toolkit_;
  std::shared_ptr<Platform> platform_;
  Runtime* previous_;
};

// `CreateObject`: an object of the world in force.
inline ObjectRef CreateObject(std::string_view prog_id) {
  return Runtime::Current().CreateObject(prog_id);
}

// `ObjectFactory`: gives middle-tier objects.
namespace ObjectFactory {
inline ObjectRef CreateServerObject(std::string_view prog_id) {
  return CreateObject(prog_id);
}
}  // namespace ObjectFactory

}  // namespace salerpt
