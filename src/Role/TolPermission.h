#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Frame/Host/Veshpublics.h"
#include "Frame/Host/Zandbs.h"
#include "Role/EffectiveRights.h"
#include "Role/MyPerHash.h"

namespace zanrole {

/// One protected object.
struct TSubDef {
  int ID = 0;   ///< `ObjectID`
  int SID = 0;  ///< owner within the type: for a menu the node, otherwise a value of the caller
  std::string Name;
};

/// An object type as the rights editor sees it.
struct TTypeDef {
  int TypeID = 0;
  std::string TypeName;
  bool ReadOnly = false;
  bool NoUsedB = false;
  std::vector<TSubDef> Objects;          ///< in ascending ID, once read
  const TStringList* Oprates = nullptr;  ///< the list of the type, shared; lives as long as the session
  bool ReadObjects = false;              ///< `Objects` has been read
  bool ReadOprates = false;

  /// Inserts before the first object whose ID is not smaller. The reference lives until the next insertion.
  TSubDef& Place(TSubDef object);
};

/// A right as the rights editor hands it over to be stored.
struct TObjOpraRight {
  int objectID = 0;
  std::string oprate;
  int permission = 0;  ///< 0 denies, any other value allows
};

/// The registry of protected objects and, for one holder at a time (a user or a role), his rights. All rights
/// of the holder are read when he becomes the holder; questions are answered from memory.
///
/// A right is told as "允许" (allowed), "禁止" (denied) or, where none was set, as an empty text.
class ZAN_EXPORT TTolPermission {
 public:
  /// The session's one, turned to the logged-in user at each call. Raises EDatabaseError when his roles
  /// or rights cannot be read.
  static TTolPermission& GetInstance();

  TTolPermission();
  TTolPermission(const TTolPermission&) = delete;
  TTolPermission& operator=(const TTolPermission&) = delete;

  // The registry. Operations that run a statement raise EDatabaseError when it fails.

  /// Registers an object and gives its new `ObjectID`; -1, and no row, for an unknown type.
  int AddObject(int typeID, std::string_view name, int owner);
  /// Removes an object from the registry, and its rows of the legacy table `Permission`; then does Clear.
  void DeleteObject(int objectID);
  void DeleteObject(int typeID, std::string_view name);
  /// -1 when the type or the object is unknown. Names compare exactly.
  int GetObjectIDByName(std::string_view name, int typeID);
  /// Reads the objects of a type into its record.
  void GetObjectsInfo(TTypeDef& type);
  /// The object at a place in ascending ID; nothing for an unknown type or a place past the end.
  std::optional<TSubDef> GetObjectByIndex(int index, int typeID);

  // The table of types. No statement runs.

  /// A fresh record whose objects have not been read; nothing for an unknown type.
  std::optional<TTypeDef> FindType(int typeID) const;
  /// 0 for an unknown type.
  int GetOprateCount(int typeID) const;
  /// Empty for an unknown type or an index past the end.
  std::string GetOprateName(int index, int typeID) const;
  /// The list of the type itself, not a copy; null for an unknown name.
  const TStringList* GetOpratesByTypeName(std::string_view typeName) const;
  /// -1 for an unknown name.
  int GetTypeIDByName(std::string_view typeName) const;

  // The holder. Operations that run a statement raise EDatabaseError when it fails.

  /// Turns to another holder and reads his roles and rights. Does nothing when he is the holder already.
  void SetUserID(int userID);
  /// Reads the rights anew: those of the holder's own and those of his roles, one statement each.
  void LoadAllPermissions();
  /// Number of the holder's roles.
  int GetGroupCount();
  /// `OID` of a role. REQUIRES: 0 <= index < GetGroupCount().
  int GetGroupIDs(int index);
  /// Names of the roles. Those of earlier holders stay in front of them.
  const TStringList& GetGroups() const { return FGroupNames; }
  /// Forgets what was read of the holder, until the next SetUserID of a different one.
  void Clear();

  // What the holder may. No statement runs.

  /// The effective right. A denial by a role is final; otherwise the holder's own right counts before that of
  /// his roles. To the super user everything is allowed, whoever the holder is.
  std::string GetPermission(int objectID, std::string_view oprate) const;
  /// The holder's own right; everything is allowed to the super user.
  std::string GetUserSelfPermission(int objectID, std::string_view oprate) const;
  /// The right that the roles give, also for the super user: it shows what stands in the rows.
  std::string GetGroupsPermission(int objectID, std::string_view oprate) const;

  // Changes of the holder's own rights. What was read of him stays as it was until LoadAllPermissions.

  /// Allows or takes away. A change that was made last already is not repeated; a statement that fails is
  /// passed over in silence. Raises EAssertionFailed when there is no holder.
  void SetPermission(int objectID, std::string_view oprate, bool allow);
  /// Stores a right, whether or not its row is there. Raises EDatabaseError.
  void saveObjPer(const TObjOpraRight& right);
  /// Deletes the row of a right. Raises EDatabaseError.
  void DeleteObjPer(const TObjOpraRight& right);

  /// May the holder run the menu, by his own rows and those of his roles? Asks once for each object.
  /// Raises EDatabaseError.
  bool LoadPermissionList(int objectID);

 private:
  /// Reads the holder's roles if that was not done yet.
  void SetUserStr();
  void PrepareForRight(std::string_view statement, const TObjOpraRight& right);
  bool HasRow(const TObjOpraRight& right);
  TObjOpraRight ReadMenuRight(int objectID);

  int FUserID = 0;
  bool FSetUserStr = false;
  std::string FUserStr;
  std::vector<int> FGroupList;
  TStringList FGroupNames;
  /// Rights that were changed by SetPermission since the holder was read.
  TMyPerHash FHash;
  /// Rights of the holder's roles, and his own.
  TEffectiveRights FRights;
  /// The record of the login; it outlives the session.
  const TSystemInfo* FSystemInfo;
  /// Answers of LoadPermissionList by object.
  std::map<int, TObjOpraRight> PermissionList;
  /// On the system database, for the registry, and on the data database, for rights and roles.
  std::unique_ptr<TZANQuery> FOprateQuery;
  std::unique_ptr<TZANQuery> FPerQuery;
};

}  // namespace zanrole
