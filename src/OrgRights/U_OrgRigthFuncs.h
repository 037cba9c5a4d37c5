#pragma once

#include <string>

#include "Frame/Host/Export.h"

namespace zanrole {

/// What expressions and scripts ask about a person's place in the organisation. Each question runs its
/// statements on a fresh query of the data database and keeps nothing; a failing statement raises
/// EDatabaseError.
///
/// A user is told by a text: empty for the logged-in user, a name between single quotes, which enters the
/// statement as it stands, or an `OID`; a text that is no number is nobody. Departments, positions and
/// second persons are told alike, but an empty text is nobody.
///
/// A list is fit to stand behind "in": comma text in brackets, "(NULL)" for no value. Texts stand in single
/// quotes; one with a blank or a comma stands in double quotes around these, as comma text wants it.
class ZAN_EXPORT TOrgRightFuncs {
 public:
  TOrgRightFuncs() = delete;

  /// `OID` of the logged-in user.
  static std::string OrgUserOID();

  // The people of the departments in which the user holds a position, without those whose position is a
  // higher one than his: who is no head does not see the head. `column` is an expression over the position b,
  // the person's row c and the account d; rows where it is null are left out, and so are disabled accounts
  // where it is a column of d.
  static std::string OrgDeptMembers(const std::string& user, const std::string& column, bool quoted);
  static std::string OrgDeptMemberIDs(const std::string& user);
  static std::string OrgDeptMemberCodes(const std::string& user);
  static std::string OrgDeptMemberNames(const std::string& user);

  // The people of the positions that the user holds, himself among them.
  static std::string OrgPositionMembers(const std::string& user, const std::string& column, bool quoted);
  static std::string OrgPositionMemberIDs(const std::string& user);
  static std::string OrgPositionMemberCodes(const std::string& user);
  static std::string OrgPositionMemberNames(const std::string& user);

  /// Does the user hold a position directly in the department?
  static bool OrgUserIsDeptMember(const std::string& user, const std::string& department);
  /// Does the user hold the position? A name is looked for as full name, as name and as title.
  static bool OrgUserIsPositionMember(const std::string& user, const std::string& position);
  /// Does the user hold a position in the department or anywhere below it?
  static bool OrgUserIsUnderDept(const std::string& user, const std::string& department);
  /// Is the second the user's superior: head of a department, or manager of a company, on the way up from
  /// the user's positions? An administrator stands above everybody who is none.
  static bool OrgUserIsUnderling(const std::string& user, const std::string& superior);
  /// The same question from the other side: here an empty `user` is nobody and an empty `underling` the
  /// logged-in user.
  static bool OrgUserIsSuperior(const std::string& user, const std::string& underling);

  // Statements that list the companies above the user, or the managers with an account of these companies:
  // the column, then 1 where the way up passes a head position, else 0; those first.
  static std::string OrgGetCompanySQL(const std::string& user, const std::string& column);
  static std::string OrgGetCompanyManagerSQL(const std::string& user, const std::string& column);

  // The first company or manager, empty when there is none, and the list of all.
  static std::string OrgCompanyID(const std::string& user);
  static std::string OrgCompanyName(const std::string& user);
  static std::string OrgCompanyIDs(const std::string& user);
  static std::string OrgCompanyNames(const std::string& user);
  static std::string OrgCompanyManagerID(const std::string& user);
  static std::string OrgCompanyManagerCode(const std::string& user);
  static std::string OrgCompanyManagerName(const std::string& user);
  static std::string OrgCompanyManagerIDs(const std::string& user);
  static std::string OrgCompanyManagerCodes(const std::string& user);
  static std::string OrgCompanyManagerNames(const std::string& user);

  // Names that scripts may bind. Each answers with the empty text, whoever is asked about.
  static std::string OrgSuperiorID(const std::string& user);
  static std::string OrgSuperiorIDs(const std::string& user);
  static std::string OrgSuperiorCode(const std::string& user);
  static std::string OrgSuperiorCodes(const std::string& user);
  static std::string OrgSuperiorName(const std::string& user);
  static std::string OrgSuperiorNames(const std::string& user);
  static std::string OrgDeptID(const std::string& user);
  static std::string OrgDeptIDs(const std::string& user);
  static std::string OrgDeptName(const std::string& user);
  static std::string OrgDeptNames(const std::string& user);
  static std::string OrgPositionID(const std::string& user);
  static std::string OrgPositionIDs(const std::string& user);
  static std::string OrgPositionName(const std::string& user);
  static std::string OrgPositionNames(const std::string& user);
  static std::string OrgPositionFullName(const std::string& user);
  static std::string OrgPositionFullNames(const std::string& user);
};

}  // namespace zanrole
