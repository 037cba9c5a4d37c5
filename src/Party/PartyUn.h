#pragma once

#include <string>

#include "Frame/Host/Export.h"

namespace zanrole {

/// What business expressions ask about the organisation. Each question runs its statements on a fresh query
/// of the data database; a failing statement raises EDatabaseError. Who is unknown gives an empty answer.
///
/// A user is told by his login. Several values are one text, joined by commas; three questions leave a comma
/// behind the last value too, as told with them.
///
/// Superiors come from two sources: the chain of `PositionEntityH.UpperPosition`, and named position maps
/// (for the operations that end in Ex), where an empty name is the first map.
class ZAN_EXPORT TPartyFuncs {
 public:
  TPartyFuncs() = delete;

  // The chain, one level. A superior is looked for from every row that bears the login, underlings only from
  // posts of people.

  /// Logins on the superior positions, each followed by a comma. A position without a superior holds -9 in
  /// its place, which is also where detached people are: they answer then.
  static std::string Superior(const std::string& user);
  static std::string Underling(const std::string& user);
  // The login of these two enters the statement as it stands.
  /// `UpperPosition` of the user's position, of any of them when he holds several.
  static std::string SuperOID(const std::string& user);
  /// `ObjID` of the subordinate positions.
  static std::string UnderOIDS(const std::string& user);

  // A map, one level: logins on the positions directly above or below in the map.

  static std::string SuperiorEx(const std::string& user, const std::string& mapName);
  static std::string UnderlingEx(const std::string& user, const std::string& mapName);

  // A map, from the session's list of maps: a change made elsewhere is seen only after FreeMapList.

  /// All levels upward or downward. Where the map places the user (and, downward, something stands below
  /// him), the statement for the logins holds a list that ends in a comma, which every database rejects:
  /// EDatabaseError. It lists the places of the map, not their positions.
  static std::string SuperiorAllEx(const std::string& user, const std::string& mapName);
  static std::string UnderlingAllEx(const std::string& user, const std::string& mapName);
  /// `Djlsh` of the place above the user's own, and of the places directly below it.
  static std::string SuperOIDEx(const std::string& user, const std::string& mapName);
  static std::string UnderOIDSEx(const std::string& user, const std::string& mapName);

  // Department and company of the user's main post.

  /// A login without a main post may be the code of a department: then that is the answer.
  static std::string DepartmentOID(const std::string& user);
  static std::string DepartmentCode(const std::string& user);
  static std::string DepartmentName(const std::string& user);
  static std::string CompanyOID(const std::string& user);
  static std::string CompanyCode(const std::string& user);
  static std::string CompanyName(const std::string& user);
  /// The nearest company above the department; empty when there is none. Does not end where the departments
  /// stand in a circle.
  static std::string CompanyCodeByDepartmentOid(const std::string& departmentOid);

  // Position of the user's main post: the node, and the job title of the catalogue.

  static std::string PositionEntityOID(const std::string& user);
  static std::string PositionEntityCode(const std::string& user);
  static std::string PositionEntityName(const std::string& user);
  static std::string PositionCode(const std::string& user);
  static std::string PositionName(const std::string& user);

  // People on the positions of a code.

  /// `UserH.DjLsh` of the people, main post or not.
  static std::string PositionUserOIDs(const std::string& positionCode);
  static std::string PositionUsercodes(const std::string& positionCode);
  static std::string PositionUserNames(const std::string& positionCode);
  /// The column "code" or "name" of the people on one position.
  static std::string GetPositionUserValues(int positionEntity, const std::string& column);

  // Managers of the company or department of a code: the people on the first manager post right below it.

  static std::string GetManagerCode(const std::string& code);
  static std::string GetManagerName(const std::string& code);
  /// `DjLsh` of that manager post; -1 when there is none.
  static int GetManagerPositionEntity(const std::string& code);

  /// `UserH.ObjID`: the row of the user's main post.
  static std::string GetUserOID(const std::string& user);
  /// The same for logins joined by commas, in the order of the database.
  static std::string GetUserOIDS(const std::string& users);

  /// Identity of the map of this name, of the first map for an empty name; -1 when there is none.
  static int findMapId(const std::string& name);
};

}  // namespace zanrole
