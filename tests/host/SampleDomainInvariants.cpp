#include "tests/host/SampleInvariants.h"

namespace zantest {

namespace {

// clang-format off
constexpr TSampleInvariant kInvariants[] = {
    {"a top domain has a backslash as the paths above it",
     "select ID from STDomains where ParentID = -1 and (NodeLevel <> 0 or ParentCode <> '\\' or ParentName <> '\\' "
     "or FullName <> '\\' || Name or FullCode <> '\\' || ID || '\\')"},
    {"paths and level of a domain follow from its parent",
     "select a.ID from STDomains a left outer join STDomains b on a.ParentID = b.ID where a.ParentID <> -1 "
     "and (b.ID is null or a.NodeLevel <> b.NodeLevel + 1 or a.ParentCode <> b.FullCode "
     "or a.ParentName <> b.FullName || '\\' or a.FullName <> b.FullName || '\\' || a.Name "
     "or a.FullCode <> b.FullCode || a.ID || '\\')"},
    {"a parent is older than its child", "select ID from STDomains where ParentID >= ID"},
    {"siblings are numbered from 1 without gaps",
     "select ParentID from STDomains group by ParentID "
     "having min(Sequence) <> 1 or max(Sequence) <> count(*) or count(distinct Sequence) <> count(*)"},
    {"siblings have names of their own",
     "select ParentID from STDomains group by ParentID, Name having count(*) > 1"},
    {"codes come once", "select Code from STDomains group by Code having count(*) > 1 or Code = ''"},
    {"there are five levels", "select max(NodeLevel) from STDomains having max(NodeLevel) <> 4"},
    {"the closure holds every pair of the tree",
     "select * from (with T(AncestorID, DescendantID) as (select ID, ID from STDomains union all "
     "select T.AncestorID, a.ID from STDomains a inner join T on a.ParentID = T.DescendantID) select * from T) "
     "except select AncestorID, DescendantID from STDomainInherits"},
    {"the closure holds nothing else",
     "select AncestorID, DescendantID from STDomainInherits except select * from ("
     "with T(AncestorID, DescendantID) as (select ID, ID from STDomains union all "
     "select T.AncestorID, a.ID from STDomains a inner join T on a.ParentID = T.DescendantID) select * from T)"},
    {"members belong to domains, or are shared roles",
     "select a.UserOID from STDomainMembers a left outer join STDomains b on a.DomainID = b.ID "
     "where b.ID is null and not (a.DomainID = -100 and a.MemberType = 1 and a.IsOwned = 1)"},
    {"the kind of a member is the kind of its account",
     "select a.UserOID from STDomainMembers a left outer join STUsers b on a.UserOID = b.OID where b.OID is null "
     "or not ((a.MemberType = 0 and b.uGroup = 0 and b.IsAdministrator = 0) "
     "or (a.MemberType = 1 and b.uGroup = 1 and b.IsAdministrator = 0 and a.IsOwned = 1) "
     "or (a.MemberType = 2 and b.uGroup = 0 and b.IsAdministrator = 2) "
     "or (a.MemberType = 3 and b.uGroup = 0 and b.IsAdministrator > 0 and a.IsOwned = 1))"},
    {"every domain has one creator",
     "select ID from STDomains a where 1 <> (select count(*) from STDomainMembers b "
     "where b.DomainID = a.ID and b.MemberType = 3)"},
    {"a member is owned by one domain",
     "select UserOID from STDomainMembers where IsOwned = 1 and MemberType < 3 group by UserOID having count(*) > 1"},
    {"a range belongs to an owned member",
     "select UserOID from STDomainMembers a where IsOwned = 0 and not exists (select 1 from STDomainMembers b "
     "where b.UserOID = a.UserOID and b.IsOwned = 1 and b.MemberType = a.MemberType)"},
    {"managers are owned by a domain and have their role",
     "select OID from STUsers a where uGroup = 0 and (IsAdministrator = 2) <> exists (select 1 "
     "from STDomainMembers b, STUserGroup c, STUsers d where b.UserOID = a.OID and b.MemberType = 2 "
     "and b.IsOwned = 1 and c.UserID = a.OID and c.GroupID = d.OID and d.UserID = '域管理员')"},
    {"there is a manager with a range",
     "select 1 where not exists (select 1 from STDomainMembers where MemberType = 2 and IsOwned = 0)"},
    {"there are owned users and ranges of users",
     "select 1 where 2 <> (select count(distinct IsOwned) from STDomainMembers where MemberType = 0)"},
    {"no domain is over its quota",
     "select a.ID from STDomains a where a.UserLimit > 0 and a.UserLimit < (select count(distinct b.UserOID) "
     "from STDomainMembers b inner join STDomainInherits c on b.DomainID = c.DescendantID "
     "where c.AncestorID = a.ID and b.MemberType in (0, 2) and b.IsOwned = 1)"},
    {"some domains have a quota, as the editor takes it",
     "select 1 where not exists (select 1 from STDomains where UserLimit > 0) "
     "or exists (select 1 from STDomains where UserLimit not between 0 and 10000)"},
    {"a role of a domain is named after it",
     "select a.OID from STUsers a inner join STDomainMembers b on a.OID = b.UserOID and b.MemberType = 1 "
     "inner join STDomains c on b.DomainID = c.ID where substr(a.UserID, 1, 2) <> '\\\\' "
     "or a.UserName <> c.FullName || '\\' || substr(a.UserID, 3)"},
    {"the names of a domain's roles come once",
     "select b.DomainID from STUsers a inner join STDomainMembers b on a.OID = b.UserOID and b.MemberType = 1 "
     "where b.DomainID > 0 group by b.DomainID, a.UserID having count(*) > 1"},
    {"every domain has a role",
     "select ID from STDomains where ID not in (select DomainID from STDomainMembers where MemberType = 1)"},
    {"there are shared roles",
     "select 1 where not exists (select 1 from STDomainMembers where DomainID = -100)"},
    {"a shared role has no login and its bare name",
     "select a.OID from STUsers a inner join STDomainMembers b on a.OID = b.UserOID and b.DomainID = -100 "
     "where a.UserID <> '' or a.UserName like '%\\%'"},
    {"a domain covers a company or a department",
     "select ID from STDomains a where RelateOrg <> 0 and not exists (select 1 from PartyH b "
     "where b.DjLsh = a.RelateOrg and b.Type in ('Company', 'Department'))"},
    {"a role of a domain has its mirror below the nearest organisation",
     "select a.OID from STUsers a inner join STDomainMembers b on a.OID = b.UserOID and b.MemberType = 1 "
     "and b.DomainID > 0 left outer join PartyH c on a.RelateOrg = c.DjLsh and c.Type = 'UserGroup' "
     "and c.Name = a.UserName and c.Title = substr(a.UserID, 3) and c.Code = c.Title and c.Sequence = 0 "
     "where c.DjLsh is null or c.Parent <> ifnull((select d.RelateOrg from STDomainInherits e "
     "inner join STDomains d on e.AncestorID = d.ID where e.DescendantID = b.DomainID and d.RelateOrg > 0 "
     "order by d.NodeLevel desc limit 1), -100)"},
    {"no mirror without a role",
     "select DjLsh from PartyH where Type = 'UserGroup' and DjLsh not in "
     "(select RelateOrg from STUsers where uGroup = 1 and RelateOrg is not null)"},
};
// clang-format on

}  // namespace

std::span<const TSampleInvariant> DomainInvariants() { return kInvariants; }

}  // namespace zantest
