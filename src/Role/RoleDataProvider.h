#pragma once

#include <memory>

#include "Frame/Host/Zandbs.h"
#include "Role/UserInfo.h"

namespace zanrole {

/// Stores users and roles. Operations raise EDatabaseError when a statement fails; what ran before it stays.
class ZAN_EXPORT TRoleDataProvider {
 public:
  TRoleDataProvider();
  TRoleDataProvider(const TRoleDataProvider&) = delete;
  TRoleDataProvider& operator=(const TRoleDataProvider&) = delete;

  /// The next free `OID`. Nothing reserves it.
  int GetOID();

  /// Inserts a new record, which then is a stored one, or updates the row of a stored one. A password is
  /// written with a new record only, as it stands there; SavePassword changes it.
  ///
  /// When one of the lists is to be saved, all memberships are removed first, on both sides: a caller who
  /// asks for one list alone drops the other side. A login that is taken already is not looked for.
  void SaveUserInfo(TUserInfo& user, bool saveParents, bool saveChildren);

 private:
  void Insert(TUserInfo& user);
  void Update(const TUserInfo& user);
  void InsertStrategy(const TUserInfo& user);
  void SaveStrategy(const TUserInfo& user);
  void SaveMemberships(const TUserInfo& user, bool saveParents, bool saveChildren);
  void Prepare(std::string_view statement);
  void SetOwnFields(const TUserInfo& user);
  void SetStrategyFields(const TUserInfo& user);

  std::unique_ptr<TZANQuery> FOprateQuery;
};

}  // namespace zanrole
