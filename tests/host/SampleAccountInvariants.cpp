#include "tests/host/SampleInvariants.h"

namespace zantest {

namespace {

// clang-format off
constexpr TSampleInvariant kInvariants[] = {
    {"a node of a user stands for the account of that login",
     "select a.DjLsh from PartyH a left outer join STUsers b on a.UserOID = b.OID and b.uGroup = 0 "
     "and b.UserID = a.Code and b.UserName = a.Name where a.Type = 'User' "
     "and ((a.isSTUser = 1 and b.OID is null) or (a.isSTUser = 0 and a.UserOID is not null))"},
    {"the account of a person is known by all of his posts",
     "select a.DjLsh from PartyH a inner join STUsers b on b.UserID = a.Code and b.uGroup = 0 "
     "where a.Type = 'User' and a.UserOID <> b.OID"},
    {"the role of a position bears its full name and no login",
     "select a.DjLsh from PartyH a left outer join STUsers b on a.UserOID = b.OID and b.uGroup = 1 "
     "and b.UserName = a.FullName and b.UserID = '' "
     "where a.Type = 'PositionEntity' and a.UserOID is not null and b.OID is null"},
    {"who holds a position with a role is a member of it",
     "select a.DjLsh from PartyH a inner join PartyH b on a.Parent = b.DjLsh "
     "where a.Type = 'User' and b.Type = 'PositionEntity' and a.UserOID is not null and b.UserOID is not null "
     "and not exists (select 1 from STUserGroup c where c.UserID = a.UserOID and c.GroupID = b.UserOID)"},
    {"members are users and belong to roles",
     "select a.UserID from STUserGroup a left outer join STUsers b on a.UserID = b.OID and b.uGroup = 0 "
     "left outer join STUsers c on a.GroupID = c.OID and c.uGroup = 1 where b.OID is null or c.OID is null"},
    {"no membership comes twice",
     "select UserID from STUserGroup group by UserID, GroupID having count(*) > 1"},
    {"password rules belong to users",
     "select UserID from STUserPasswordStrategy where UserID not in "
     "(select UserID from STUsers where uGroup = 0)"},
    {"users have a password, roles none",
     "select OID from STUsers where (uGroup = 0) <> (ifnull(Password, '') <> '')"},
    {"a linked user is tied to himself",
     "select a.OID from STUsers a left outer join UserH b on a.RelateUserH = b.DjLsh and b.code = a.UserID "
     "left outer join PartyH c on a.RelateOrg = c.DjLsh and c.Type = 'User' and c.UserOID = a.OID "
     "where a.uGroup = 0 and (a.RelateOrg is not null or a.RelateUserH is not null) "
     "and (b.DjLsh is null or c.DjLsh is null)"},
    {"there is one super user",
     "select count(*) from STUsers where uGroup = 0 and IsAdministrator = 1 and UnUsed = 0 having count(*) <> 1"},
    {"the role of the managers is as the console keeps it",
     "select 1 where 1 <> (select count(*) from STUsers where uGroup = 1 and IsAdministrator = 2 and UnUsed = 0 "
     "and UserID = '域管理员' and UserName = '域管理员' and UserDesc = '勿修改，勿删除，勿停用！')"},
    {"the role of the empowered users is as the console keeps it",
     "select 1 where 1 <> (select count(*) from STUsers where uGroup = 1 and IsAdministrator = 3 and UnUsed = 0 "
     "and UserID = 'EmpowermentRightRole' and UserName = '拥有授权权的用户' "
     "and UserDesc = '不要修改，不要删除，不要停用！')"},
    {"who is empowered has that role and nobody else",
     "select OID from STUsers a where uGroup = 0 and (EmpowermentRight = 1) <> exists (select 1 "
     "from STUserGroup b inner join STUsers c on b.GroupID = c.OID "
     "where b.UserID = a.OID and c.UserID = 'EmpowermentRightRole')"},
    {"everything was created by somebody",
     "select a.OID from STUsers a left outer join STUsers b on a.Creator = b.OID and b.UserName = a.CreatorName "
     "where b.OID is null or a.CreateTime is null"},
    {"rights belong to accounts and objects that exist",
     "select UserID from STPermission where UserID not in (select OID from STUsers) "
     "or ObjectID not in (select ObjectID from ObjectRegister)"},
    {"rights on menus have the word of menus, others do not",
     "select a.UserID from STPermission a inner join ObjectRegister b on a.ObjectID = b.ObjectID "
     "where (b.TypeID = 7) <> (a.Oprate = '执行')"},
};
// clang-format on

}  // namespace

std::span<const TSampleInvariant> AccountInvariants() { return kInvariants; }

}  // namespace zantest
