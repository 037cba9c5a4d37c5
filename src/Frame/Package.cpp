#include "Frame/Package.h"

#include "Frame/Session.h"

namespace zanrole {

int ZanroleContractVersion() { return kContractVersion; }

bool ZanroleSetHostServices(THostServices* services) {
  if (services != nullptr && services->ContractVersion() != kContractVersion) return false;
  SetHostServices(services);
  return true;
}

// The units keep their state in sessions, so there is nothing to prepare, and nothing to free but the
// services.
void PackageLoad() {}
void PackageUnload() { SetHostServices(nullptr); }

TSession* ZanroleSessionCreate(THostSession* host) { return std::make_unique<TSession>(*host).release(); }

void ZanroleSessionDestroy(TSession* session) { std::unique_ptr<TSession>{session}.reset(); }

TSession* ZanroleSessionMakeCurrent(TSession* session) { return TSession::MakeCurrent(session); }

}  // namespace zanrole
