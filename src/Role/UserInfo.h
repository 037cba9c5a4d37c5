#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "Frame/Host/Classes.h"

namespace zanrole {

class TUserInfo;

/// Users and roles in an order. The list does not own them: they belong to the console that read them.
class ZAN_EXPORT TUserList {
 public:
  int Count() const { return static_cast<int>(FItems.size()); }
  /// REQUIRES: 0 <= index < Count().
  TUserInfo* GetItem(int index) const { return FItems[static_cast<std::size_t>(index)]; }
  void Add(TUserInfo* user) { FItems.push_back(user); }
  /// Takes every mention of the user out.
  void Remove(const TUserInfo* user) { std::erase(FItems, user); }
  void Clear() { FItems.clear(); }
  auto begin() const { return FItems.begin(); }
  auto end() const { return FItems.end(); }

 private:
  std::vector<TUserInfo*> FItems;
};

/// `uGroup` of STUsers.
enum TUserType : int { utUser = 0, utRole = 1 };

/// `UnUsed` of STUsers. The last two mark an account that a superior single sign-on server governs.
enum TUserState : int { usUsed = 0, usUnUsed = 1, usUnposited = 2, usSuperior = 3 };

/// How a kind, and a state, is shown in the language of the session.
std::string UserTypeText(TUserType type);
/// Empty for the two states that a superior server gives.
std::string UserStateText(TUserState state);

/// A user or a role: a row of STUsers, with his row of STUserPasswordStrategy.
class ZAN_EXPORT TUserInfo {
 public:
  /// A record made by the operator just now, not yet stored.
  TUserInfo();
  TUserInfo(const TUserInfo&) = delete;

  /// Takes over everything but newUser and readRelate; the lists take over their elements by reference.
  void Assign(const TUserInfo& from);

  TUserList FParentList;  ///< the roles of a user
  TUserList FChildList;   ///< the members of a role
  int oID = 0;            ///< 0 until assigned
  std::string ID;         ///< `UserID`, the login
  std::string Name;       ///< `UserName`
  std::string FullName;   ///< carried along, not stored
  /// As it is stored, or a new one in plain text: see SavePassword.
  std::string Password;
  std::string Office;  ///< carried along, not stored, as is Phone
  std::string Phone;
  TUserType uType = utUser;
  TUserState uState = usUsed;
  std::string Describe;     ///< `UserDesc`
  bool newUser = true;      ///< the next save inserts
  bool readRelate = false;  ///< the two lists have been read
  bool isAdministrator = false;
  std::string Categories;  ///< path of the group; empty for none
  std::string Property1;
  std::string Property2;
  bool NeedReset = false;  ///< these three stand in STUserPasswordStrategy; a role has none of them
  bool CanModify = true;
  bool NeverExpires = false;
  std::string DomainUserName;
  int Creator;
  TDateTime CreateTime;
  std::string CreatorName;
  std::string ModifierName;
  TDateTime ModifyTime{};  ///< the epoch until the record was changed

 private:
  TUserInfo& operator=(const TUserInfo&) = default;
};

}  // namespace zanrole
