#include "tests/support/LinkedModule.h"

namespace zantest {

zanhost::TModule LinkedModule() {
  zanhost::TModule module;
  module.ContractVersion = &zanrole::ZanroleContractVersion;
  module.SetHostServices = &zanrole::ZanroleSetHostServices;
  module.Load = &zanrole::PackageLoad;
  module.Unload = &zanrole::PackageUnload;
  module.FuncClasses = &zanrole::ZanroleFuncClasses;
  module.Entries = &zanrole::ZanroleEntries;
  module.ServiceOperations = &zanrole::ZanroleServiceOperations;
  module.SessionCreate = &zanrole::ZanroleSessionCreate;
  module.SessionDestroy = &zanrole::ZanroleSessionDestroy;
  module.SessionMakeCurrent = &zanrole::ZanroleSessionMakeCurrent;
  return module;
}

}  // namespace zantest
