#include "Role/RightReasons.h"

#include <algorithm>

#include "Frame/Commlib.h"
#include "Frame/Session.h"
#include "Role/RightRows.h"

namespace zanrole {

namespace {

// clang-format off
// In the order of the rows, as the first of several counts.
constexpr const char* kOwnRows =
    "Select UserID, Permission From STPermission"
    " Where UserID = :UserID And ObjectID = :ObjectID And Oprate = :Oprate";

// A membership counts also when the role's row in STUsers is gone.
constexpr const char* kRowsOfRoles =
    "Select p.UserID, p.Permission, r.UserName From STPermission p left join STUsers r on r.OID = p.UserID"
    " Where p.ObjectID = :ObjectID And p.Oprate = :Oprate"
    " And p.UserID in (Select GroupID From STUserGroup Where UserID = :UserID)"
    " order by p.UserID";
// clang-format on

/// What the effective right rests on.
enum class TGround { SuperUser, DeniedByRole, OwnRight, AllowedByRoles, NothingSet };

TGround GroundOf(TSetRight own, TSetRight ofRoles) {
  if (SystemInfo().IsSuperUser) return TGround::SuperUser;
  if (!RolesDecide(own, ofRoles)) return TGround::OwnRight;
  if (ofRoles == TSetRight::NotSet) return TGround::NothingSet;
  return ofRoles == TSetRight::Denied ? TGround::DeniedByRole : TGround::AllowedByRoles;
}

std::vector<TPermissionRow> ReadRows(const char* statement, int objectID, std::string_view oprate) {
  const auto query = QueryOnPair(statement, objectID, oprate);
  query->ParamByName("UserID").AsInteger(SystemInfo().LoginUserOID);
  return ReadPermissionRows(*query);
}

/// The word of a row's right in the session's language.
std::string TellRight(const TRightRow& row) {
  return TZanResEx::resByExFunc(row.Right.empty() ? std::string("没有值") : row.Right);
}

std::string TellOwnRow(const TRightRow& row, TGround ground) {
  const auto tell = [&](const char* sentence) { return TZanResEx::resFormat(sentence, {TellRight(row)}); };
  if (row.Decides) return tell("用户自己的权限为“%s”，角色没有禁止。");
  if (ground == TGround::SuperUser) return tell("用户自己的权限为“%s”，对超级用户不起作用。");
  if (ground == TGround::DeniedByRole) return tell("用户自己的权限为“%s”，但角色的禁止不可推翻。");
  return tell("用户自己还有一条权限为“%s”，但只有第一条起作用。");
}

std::string TellRowOfRole(const TRightRow& row, TGround ground, TSetRight ofRoles) {
  const auto tell = [&](const char* sentence) {
    const std::string name = row.HolderName.empty() ? std::to_string(row.HolderOID) : row.HolderName;
    return TZanResEx::resFormat(sentence, {name, TellRight(row)});
  };
  const bool denies = row.Right == WordOf(TSetRight::Denied);
  if (row.Decides) {
    return tell(ground == TGround::DeniedByRole ? "角色“%s”的权限为“%s”，角色的禁止不可推翻。"
                                                : "角色“%s”的权限为“%s”，用户自己没有设置，角色没有禁止。");
  }
  if (ground == TGround::SuperUser) return tell("角色“%s”的权限为“%s”，对超级用户不起作用。");
  if (denies && ofRoles == TSetRight::Allowed)
    return tell("角色“%s”的权限为“%s”，但各角色的值以最小的为准，它表示允许。");
  if (ground == TGround::OwnRight) return tell("角色“%s”的权限为“%s”，但用户自己的权限优先。");
  if (row.Right.empty()) return tell("角色“%s”的权限为“%s”，有其他角色的权限时不起作用。");
  return tell("角色“%s”的权限为“%s”，但另一个角色的禁止不可推翻。");
}

std::string TellRow(const TRightRow& row, TGround ground, TSetRight ofRoles) {
  return row.IsRole ? TellRowOfRole(row, ground, ofRoles) : TellOwnRow(row, ground);
}

std::vector<std::string> TellReason(const TRightReason& reason, TGround ground, TSetRight ofRoles) {
  std::vector<std::string> sentences;
  if (ground == TGround::SuperUser)
    sentences.push_back(TZanResEx::resByExFunc("用户是超级用户，拥有一切权限。"));
  if (ground == TGround::NothingSet)
    sentences.push_back(TZanResEx::resByExFunc("用户和他的角色都没有设置这项权限，视为不允许。"));
  for (const bool deciding : {true, false})
    for (const TRightRow& row : reason.Rows)
      if (row.Decides == deciding) sentences.push_back(TellRow(row, ground, ofRoles));
  const auto deniesWithoutValue = [](const TRightRow& row) { return row.Decides && row.Right.empty(); };
  if (std::any_of(reason.Rows.begin(), reason.Rows.end(), deniesWithoutValue))
    sentences.push_back(TZanResEx::resByExFunc("没有值的权限视为禁止。"));
  return sentences;
}

void AppendOwnRows(TRightReason& reason, const std::vector<TPermissionRow>& rows, TGround ground) {
  for (const TPermissionRow& row : rows) {
    TRightRow& record = reason.Rows.emplace_back(RecordOfRow(row, /*isRole*/ false));
    record.HolderLogin = SystemInfo().LoginUserID;
    record.HolderName = Trim(SystemInfo().LoginUserName);
    record.Decides = ground == TGround::OwnRight && &row == &rows.front();
  }
}

void AppendRowsOfRoles(TRightReason& reason, const std::vector<TPermissionRow>& rows,
                       const TRightOfRoles& ofRoles, TGround ground) {
  const bool rolesDecide = ground == TGround::DeniedByRole || ground == TGround::AllowedByRoles;
  for (const TPermissionRow& row : rows) {
    TRightRow& record = reason.Rows.emplace_back(RecordOfRow(row, /*isRole*/ true));
    record.Decides = rolesDecide && ofRoles.FollowsFrom(row.Value);
  }
}

}  // namespace

TRightReason ExplainRight(int objectID, std::string_view oprate) {
  const std::vector<TPermissionRow> ownRows = ReadRows(kOwnRows, objectID, oprate);
  const std::vector<TPermissionRow> rowsOfRoles = ReadRows(kRowsOfRoles, objectID, oprate);
  const TSetRight own = ownRows.empty() ? TSetRight::NotSet : RightOfValue(ownRows.front().Value);
  TRightOfRoles ofRoles;
  for (const TPermissionRow& row : rowsOfRoles) ofRoles.Add(row.Value);
  const TGround ground = GroundOf(own, ofRoles.Right());

  TRightReason reason;
  reason.IsSuperUser = ground == TGround::SuperUser;
  reason.Right = WordOf(reason.IsSuperUser ? TSetRight::Allowed : EffectiveRight(own, ofRoles.Right()));
  AppendOwnRows(reason, ownRows, ground);
  AppendRowsOfRoles(reason, rowsOfRoles, ofRoles, ground);
  reason.Sentences = TellReason(reason, ground, ofRoles.Right());
  return reason;
}

}  // namespace zanrole
