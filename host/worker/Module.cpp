#include "host/worker/Module.h"

#include <dlfcn.h>
#include <fmt/format.h>

#include <bit>

namespace zanhost {

namespace {

std::string LastLoaderError() {
  const char* const text = dlerror();
  return text != nullptr ? text : "unknown reason";
}

std::shared_ptr<void> OpenLibrary(const std::filesystem::path& path) {
  void* const handle = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (handle == nullptr)
    throw EModuleError(fmt::format("The module {} cannot be loaded: {}", path.string(), LastLoaderError()));
  return {handle, [](void* library) { dlclose(library); }};
}

template <typename TFunction>
void LookUp(void* library, const char* name, const std::filesystem::path& path, TFunction& function) {
  void* const symbol = dlsym(library, name);
  if (symbol == nullptr)
    throw EModuleError(fmt::format("{} is no module of this host: it has no {}", path.string(), name));
  function = std::bit_cast<TFunction>(symbol);
}

}  // namespace

std::filesystem::path ModuleBesideProgram() {
  return std::filesystem::read_symlink("/proc/self/exe").parent_path() / "zanrole.so";
}

TModule LoadModule(const std::filesystem::path& path) {
  TModule module;
  module.Library = OpenLibrary(path);
  void* const library = module.Library.get();
  LookUp(library, "ZanroleContractVersion", path, module.ContractVersion);
  LookUp(library, "ZanroleSetHostServices", path, module.SetHostServices);
  LookUp(library, "PackageLoad", path, module.Load);
  LookUp(library, "PackageUnload", path, module.Unload);
  LookUp(library, "ZanroleFuncClasses", path, module.FuncClasses);
  LookUp(library, "ZanroleEntries", path, module.Entries);
  LookUp(library, "ZanroleServiceOperations", path, module.ServiceOperations);
  LookUp(library, "ZanroleSessionCreate", path, module.SessionCreate);
  LookUp(library, "ZanroleSessionDestroy", path, module.SessionDestroy);
  LookUp(library, "ZanroleSessionMakeCurrent", path, module.SessionMakeCurrent);
  return module;
}

TModuleInUse::TModuleInUse(TModule module, zanrole::THostServices& services) : FModule(std::move(module)) {
  const int theirs = FModule.ContractVersion();
  if (theirs != services.ContractVersion() || !FModule.SetHostServices(&services)) {
    throw EModuleError(fmt::format(
        "Host and module do not fit together: the host speaks version {} of the contract, the module {}",
        services.ContractVersion(), theirs));
  }
  FModule.Load();
}

TModuleInUse::~TModuleInUse() { FModule.Unload(); }

TModuleSession::TModuleSession(const TModule& module, zanrole::THostSession& host)
    : FModule(&module), FSession(module.SessionCreate(&host)), FBefore(module.SessionMakeCurrent(FSession)) {}

TModuleSession::~TModuleSession() {
  FModule->SessionDestroy(FSession);
  FModule->SessionMakeCurrent(FBefore);
}

}  // namespace zanhost
