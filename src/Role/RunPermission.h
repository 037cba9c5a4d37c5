#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Frame/Host/Zandbs.h"

namespace zanrole {

/// What the running client asks: which menus the logged-in user may run, and which operations of an object
/// are denied to him. The menus are read once; a change of rights shows after LoadPermissionList or at the
/// next login.
class ZAN_EXPORT TRunPermission {
 public:
  /// The session's service, made for the user who is logged in at the first call. Making it raises
  /// EDatabaseError when a statement fails.
  static TRunPermission& GetInstance();

  TRunPermission();
  TRunPermission(const TRunPermission&) = delete;
  TRunPermission& operator=(const TRunPermission&) = delete;

  /// Reads the user's roles. Raises EDatabaseError.
  void SetUserStr();
  /// Reads the allowed menus anew. Raises EDatabaseError.
  void LoadPermissionList();
  /// Forgets the allowed menus: each then reads as denied to anybody but the super user.
  void ClearPermissionList() { PermissionList.clear(); }

  /// Is the menu among the loaded ones? Runs no statement.
  bool FindPermissionInList(int objectID) const;
  /// May the user run the menu? The super user may run any. Runs no statement.
  bool GetMenuPermission(int objectID) const;

  /// The `ObjectID` of an object by its name within a type; -1 when the type or the object is unknown.
  int GetObjID(std::string_view typeName, std::string_view objectName);
  /// The denied operations of an object, in the order of their rows: empty when nothing is denied, or the
  /// object is unknown. Raises EAssertionFailed for a denied operation of an object whose type is unknown.
  TStringList GetObjOperates(std::string_view typeName, std::string_view objectName);
  TStringList GetObjOperates(std::string_view typeName, int objectID);

  /// `OID` values, as text, and names of the user's roles, in the same order. They live until SetUserStr.
  const TStringList& GetGroupids() const { return FGroupids; }
  const TStringList& GetGroups() const { return FGroupNames; }

 private:
  int FUserID;
  std::string FUserStr;
  TStringList FGroupNames;
  TStringList FGroupids;
  /// `ObjectID` values of the allowed menus, sorted. As numbers they are found faster than as texts.
  std::vector<int> PermissionList;
  std::unique_ptr<TZANQuery> FQuery;
  std::unique_ptr<TZANQuery> FSysQuery;
};

}  // namespace zanrole
