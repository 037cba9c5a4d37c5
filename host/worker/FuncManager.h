#pragma once

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "Frame/Host/Un_glfuncmanager.h"
#include "host/worker/Module.h"

namespace zanhost {

/// One function that the installation has.
struct TFunction {
  std::string Name;
  std::string Description;
  zanrole::TFuncType Type;
  std::string ClassName;
  /// The shared description. Never null.
  std::unique_ptr<zanrole::TFuncInfo> Info;
  std::unique_ptr<zanrole::TBaseFunc> (*Create)();
};

/// The functions of the module by name, kept apart by family: a system function and a menu function may bear
/// one name. The module's table is walked at first use, when the session it belongs to is current.
class THostFuncManager final : public zanrole::TFuncManager {
 public:
  /// `module` must outlive the manager.
  explicit THostFuncManager(const TModule& module) : FModule(&module) {}

  const zanrole::TFuncInfo* FindFuncInfo(std::string_view name, zanrole::TFuncType type) override;
  /// Menu functions come before system functions, those before linked ones.
  bool RunFuncName(std::string_view name, int style) override;
  /// False when the description belongs to no function of this manager. What the function answers stands in
  /// `info`'s outputs; its own result is not reported.
  bool RunFunc(zanrole::TFuncInfo& info, zanrole::TZanParser* parser, int style) override;

  /// Null when there is none. The function lives as long as the manager.
  const TFunction* Find(std::string_view name, zanrole::TFuncType type);
  /// Like Find, in the families in the order of RunFuncName.
  const TFunction* FindInAny(std::string_view name);
  /// Runs a function on a description that the caller has filled; gives what Execute gives.
  static bool Execute(const TFunction& function, zanrole::TFuncInfo& info, int style);
  /// In the order of the module's table.
  const std::vector<TFunction>& Functions();
  /// One sentence for each class whose name another class of its family took before it; such a class is left
  /// out.
  const std::vector<std::string>& Duplicates();

 private:
  struct TNameHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view name) const { return std::hash<std::string_view>()(name); }
  };
  /// Places among the functions.
  using TPlaces = std::unordered_map<std::string, std::size_t, TNameHash, std::equal_to<>>;
  TPlaces& PlacesOf(zanrole::TFuncType type) { return FPlaces[static_cast<std::size_t>(type)]; }
  void Walk();
  void Enter(const zanrole::TFuncClass& funcClass);

  const TModule* FModule;
  bool FWalked = false;
  std::vector<TFunction> FFunctions;
  std::array<TPlaces, 3> FPlaces;  ///< one for each family
  std::vector<std::string> FDuplicates;
};

}  // namespace zanhost
