#pragma once

#include <filesystem>
#include <memory>

#include "Frame/Package.h"

namespace zanhost {

/// The module cannot be used: missing, incomplete, or of another version of the contract.
class EModuleError : public zanrole::EZanError {
 public:
  using EZanError::EZanError;
};

/// What the host calls in the module, one member for each symbol of Frame/Package.h.
struct TModule {
  decltype(&zanrole::ZanroleContractVersion) ContractVersion = nullptr;
  decltype(&zanrole::ZanroleSetHostServices) SetHostServices = nullptr;
  decltype(&zanrole::PackageLoad) Load = nullptr;
  decltype(&zanrole::PackageUnload) Unload = nullptr;
  decltype(&zanrole::ZanroleFuncClasses) FuncClasses = nullptr;
  decltype(&zanrole::ZanroleEntries) Entries = nullptr;
  decltype(&zanrole::ZanroleServiceOperations) ServiceOperations = nullptr;
  decltype(&zanrole::ZanroleSessionCreate) SessionCreate = nullptr;
  decltype(&zanrole::ZanroleSessionDestroy) SessionDestroy = nullptr;
  decltype(&zanrole::ZanroleSessionMakeCurrent) SessionMakeCurrent = nullptr;
  /// Keeps the shared library in memory; null for a module that is linked into the program.
  std::shared_ptr<void> Library;
};

/// `zanrole.so` in the folder of the running program.
std::filesystem::path ModuleBesideProgram();

/// Loads the shared library and looks the symbols up; nothing of the module has run yet.
/// Raises EModuleError with the path and the reason.
TModule LoadModule(const std::filesystem::path& path);

/// A module between PackageLoad and PackageUnload. Sessions end before it does.
class TModuleInUse {
 public:
  /// Checks the version of the contract and hands the services over; they must outlive the object.
  /// Raises EModuleError when host and module are of different versions.
  TModuleInUse(TModule module, zanrole::THostServices& services);
  ~TModuleInUse();
  TModuleInUse(const TModuleInUse&) = delete;
  TModuleInUse& operator=(const TModuleInUse&) = delete;

  const TModule& Symbols() const { return FModule; }

 private:
  TModule FModule;
};

/// One session of the module, current on the thread that made it for as long as it lives.
class TModuleSession {
 public:
  /// `module` and `host` must outlive the session.
  TModuleSession(const TModule& module, zanrole::THostSession& host);
  ~TModuleSession();
  TModuleSession(const TModuleSession&) = delete;
  TModuleSession& operator=(const TModuleSession&) = delete;

 private:
  const TModule* FModule;
  zanrole::TSession* FSession;
  zanrole::TSession* FBefore;
};

}  // namespace zanhost
