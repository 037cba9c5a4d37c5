#pragma once

#include <cstddef>
#include <string>

#include "Frame/Host/Host.h"
#include "Frame/Host/Rights.h"
#include "Frame/Host/Services.h"
#include "Frame/Host/Un_basefunc.h"

// What a host looks up in the loaded module, each under its own name. The calling order is:
// ZanroleContractVersion, ZanroleSetHostServices, PackageLoad; then sessions; then PackageUnload.

namespace zanrole {

class TSession;

/// Operations that a host calls for the session that is current on its thread. Faults pass as exceptions.
struct TZanroleEntries {
  /// May the logged-in user run the menu entry of this object?
  bool (*GetMenuPermission)(int objectID);
  /// Chooses the current domain of the login.
  void (*SetCurrentDomainID)(int domainID);
  /// Stores a new password for a user's row, enciphered where the installation says so, and notes the time.
  void (*SavePassword)(int oid, const std::string& login, const std::string& password);
  /// The effective right of the logged-in user, and why it is so, from the rows as they stand now.
  TRightReason (*ExplainRight)(int objectID, const std::string& oprate);
  /// Who has a right set, whoever is logged in: users by OID, those after `afterOID`, at most `limit` of
  /// them. The host says who may ask. REQUIRES: limit >= 1.
  TRightHolders (*RightHolders)(int objectID, const std::string& oprate, int afterOID, int limit);
};

extern "C" {
/// kContractVersion of the module's build.
ZAN_EXPORT int ZanroleContractVersion();
/// Hands the host's services over. False, and nothing taken, when the versions of the contract differ.
ZAN_EXPORT bool ZanroleSetHostServices(THostServices* services);
/// Initialisation and finalisation of the units. REQUIRES of unload: no session is left.
ZAN_EXPORT void PackageLoad();
ZAN_EXPORT void PackageUnload();
/// The table of function classes, and how many rows it has. It lives as long as the module is loaded.
ZAN_EXPORT const TFuncClass* ZanroleFuncClasses(std::size_t* count);
ZAN_EXPORT const TZanroleEntries* ZanroleEntries();
/// The operations of the services that other modules use, and how many they are. They live as long as the
/// module is loaded.
ZAN_EXPORT const TServiceOperation* ZanroleServiceOperations(std::size_t* count);
/// A session for one login; ended by ZanroleSessionDestroy, which runs its finalisation.
ZAN_EXPORT TSession* ZanroleSessionCreate(THostSession* host);
ZAN_EXPORT void ZanroleSessionDestroy(TSession* session);
/// Makes a session current on the calling thread (null for none) and gives the one that was.
ZAN_EXPORT TSession* ZanroleSessionMakeCurrent(TSession* session);
}

}  // namespace zanrole
