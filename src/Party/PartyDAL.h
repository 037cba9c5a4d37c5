#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Frame/Host/Zandbs.h"
#include "Party/PartyModel.h"

namespace zanrole {

/// Reads the organisation, the users and the roles for other modules of the platform; nothing in this module
/// calls it. It belongs to the session that made it and must be freed before that ends.
/// Operations raise EDatabaseError when a statement fails; their query is closed then.
class ZAN_EXPORT TPartyDAL {
 public:
  using TEntityList = std::vector<party::TPartyEntityInfo*>;
  using TUserList = std::vector<std::unique_ptr<party::TUserInfo>>;
  using TRoleList = std::vector<std::unique_ptr<party::TRoleInfo>>;

  TPartyDAL();
  ~TPartyDAL();
  TPartyDAL(const TPartyDAL&) = delete;
  TPartyDAL& operator=(const TPartyDAL&) = delete;

  // The first call of each makes its list and fills UserDataSet or RoleDataSet; later calls do not reload.
  // What was read stands in the data sets: the lists stay empty.
  TUserList& GetUserList();
  TRoleList& GetRoleList();

  // A fresh list each time. The objects belong to the service and live as long as it.

  /// The companies without a row above them, a parent that was removed included.
  TEntityList LoadPartyTopLevel();
  TEntityList LoadPartyByParentID(int ParentID);

  /// Fills RoleDataSet anew with the roles in use.
  void LoadRoles();
  /// Fills UserDataSet anew with the users in use. `UserRange` is a condition on the columns of STUsers,
  /// without prefix, pasted into the statement as it stands; empty for none.
  void LoadUsers(std::string_view UserRange);
  /// Opens RoleOfOrganizationQuery on the active departments.
  void LoadRoleOfOrganization();
  /// Opens UserOfOrganizationQuery on the active people placed in the tree. `UserRange` is a further
  /// condition on PartyH under the name a.
  void LoadUserOfOrganization(std::string_view UserRange);

  // Columns `OID`, `UserID`, `UserName`, `UserDesc`, `Categories`, `UserDept`; texts of at most 200
  // characters.
  TDataSet& UserDataSet() { return FUserDataSet; }
  TDataSet& RoleDataSet() { return FRoleDataSet; }
  // Columns `DjLsh`, `Code`, `Name`, `Title`, `Parent`, `Remark`.
  TZANQuery& RoleOfOrganizationQuery() { return *FRoleOfOrganizationQuery; }
  TZANQuery& UserOfOrganizationQuery() { return *FUserOfOrganizationQuery; }

 private:
  TEntityList LoadParty(std::string_view rest);
  TEntityList loadPartyFromDataSet(TDataSet& dataSet);

  std::unique_ptr<TZANQuery> FQuery;
  std::unique_ptr<TZANQuery> FRoleOfOrganizationQuery;
  std::unique_ptr<TZANQuery> FUserOfOrganizationQuery;
  TDataSet FUserDataSet;
  TDataSet FRoleDataSet;
  std::optional<TUserList> FUserList;
  std::optional<TRoleList> FRoleList;
  std::vector<std::unique_ptr<party::TPartyEntityInfo>> FPartyEntityList;
};

}  // namespace zanrole
