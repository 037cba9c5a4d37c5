#include "tests/host/SampleInvariants.h"

namespace zantest {

namespace {

// clang-format off
constexpr TSampleInvariant kInvariants[] = {
    {"paths and level follow from the parent",
     "select a.DjLsh from PartyH a inner join PartyH b on a.Parent = b.DjLsh "
     "where a.LongName <> b.LongName || '\\' || a.Name or a.LongCode <> b.LongCode || '\\' || a.DjLsh "
     "or a.ParentPath <> b.ParentPath || b.DjLsh || ',' or a.NodeLevel <> b.NodeLevel + 1"},
    {"a top node has its name and number as paths",
     "select DjLsh from PartyH where Parent not in (select DjLsh from PartyH) "
     "and (LongName <> Name or LongCode <> cast(DjLsh as text) or ParentPath <> '' or NodeLevel <> 0)"},
    {"no node lacks a derived column",
     "select DjLsh from PartyH where LongName is null or LongCode is null or ParentPath is null "
     "or NodeLevel is null or IsLastLevel is null"},
    {"the leaf mark says whether there are children",
     "select DjLsh from PartyH a where IsLastLevel = exists (select 1 from PartyH b where b.Parent = a.DjLsh)"},
    {"a node hangs only where its kind may hang",
     "select a.DjLsh from PartyH a left outer join PartyH b on a.Parent = b.DjLsh where not ("
     "(a.Type = 'Company' and (a.Parent = -1 or b.Type = 'Company')) "
     "or (a.Type = 'Department' and b.Type in ('Company', 'Department')) "
     "or (a.Type = 'PositionEntity' and b.Type = 'Department') "
     "or (a.Type = 'User' and (a.Parent = -9 or b.Type in ('PositionEntity', 'Company'))) "
     "or (a.Type = 'UserGroup' and (a.Parent = -100 or b.Type in ('Company', 'Department'))))"},
    {"siblings of a kind are numbered from 1 without gaps",
     "select Parent from PartyH where Type <> 'UserGroup' and Parent <> -9 group by Parent, Type "
     "having min(Sequence) <> 1 or max(Sequence) <> count(*) or count(distinct Sequence) <> count(*)"},
    {"siblings of a kind have names of their own",
     "select Parent from PartyH where Type in ('Company', 'Department', 'PositionEntity') "
     "group by Parent, Type, Name having count(*) > 1"},
    {"codes of companies, departments and positions come once",
     "select Code from PartyH where Type not in ('User', 'UserGroup') group by Code having count(*) > 1"},
    {"only who is in the recycle bin is inactive",
     "select DjLsh from PartyH where IsActive = (Parent = -9)"},
    {"a company has its entity row",
     "select a.DjLsh from PartyH a where Type = 'Company' and 1 <> (select count(*) from CompanyH b "
     "where b.ObjID = a.DjLsh and b.code = a.Code and b.Name = a.Name and b.Title = a.Title)"},
    {"a department has its entity row",
     "select a.DjLsh from PartyH a where Type = 'Department' and 1 <> (select count(*) from DepartmentH b "
     "where b.ObjID = a.DjLsh and b.code = a.Code and b.Name = a.Name and b.Title = a.Title)"},
    {"a position has its entity row and a kind of the catalogue",
     "select a.DjLsh from PartyH a where Type = 'PositionEntity' and 1 <> (select count(*) "
     "from PositionEntityH b inner join PositionH c on b.PositionCode = c.Code where b.ObjID = a.DjLsh "
     "and b.code = a.Code and b.Name = a.Name and b.Title = a.Title and c.Name = a.Title)"},
    {"no entity row without a node",
     "select ObjID from CompanyH union all select ObjID from DepartmentH "
     "union all select ObjID from PositionEntityH except select DjLsh from PartyH"},
    {"a position is named after its department and its kind",
     "select a.DjLsh from PartyH a inner join PartyH b on a.Parent = b.DjLsh where a.Type = 'PositionEntity' "
     "and (a.Name <> b.Name || a.Title or a.FullName <> b.FullName || a.Title "
     "or a.Code <> b.Code || substr(a.Code, length(b.Code) + 1, 2))"},
    {"each department has one head position, its manager post",
     "select a.DjLsh from PartyH a where a.Type = 'Department' and 1 <> (select count(*) from PartyH b "
     "inner join PositionEntityH c on c.ObjID = b.DjLsh where b.Parent = a.DjLsh and b.isHeadPosition = 1 "
     "and c.isManager = 1)"},
    {"the chain of superiors ends, for every position, at one without a superior",
     "select ObjID from PositionEntityH except select * from (with T(ObjID) as ("
     "select ObjID from PositionEntityH where UpperPosition = -9 union all select a.ObjID "
     "from PositionEntityH a inner join T on a.UpperPosition = T.ObjID) select ObjID from T)"},
    {"there are two position maps",
     "select count(*) from PositionMapH where PositionID = -1 and UpperPosition = -1 and MapID = Djlsh "
     "having count(*) <> 2"},
    {"a node of a map hangs below a node of the same map",
     "select a.Djlsh from PositionMapH a left outer join PositionMapH b on a.UpperPosition = b.Djlsh "
     "where a.PositionID <> -1 and (b.MapID is null or b.MapID <> a.MapID)"},
    {"a map holds positions, each once, under their names",
     "select a.MapID from PositionMapH a left outer join PartyH b on a.PositionID = b.DjLsh "
     "and b.Type = 'PositionEntity' and b.Name = a.PositionName where a.PositionID <> -1 "
     "group by a.MapID, a.PositionID having count(*) > 1 or count(b.DjLsh) = 0"},
    {"each map has more than its root",
     "select MapID from PositionMapH group by MapID having count(*) < 2"},
    {"a person has one row by code",
     "select code from UserH group by code having count(*) > 1 or code = ''"},
    {"the main post of a person is a row of that person below a position",
     "select a.DjLsh from UserH a left outer join PartyH b on a.ObjID = b.DjLsh and b.Type = 'User' "
     "and b.Code = a.code and b.UserLsh = a.DjLsh and b.isCapitalPosition = 1 "
     "left outer join PartyH c on b.Parent = c.DjLsh and c.Type = 'PositionEntity' "
     "where a.ObjID <> 0 and c.DjLsh is null"},
    {"a person has one main post",
     "select UserLsh from PartyH where Type = 'User' and isCapitalPosition = 1 group by UserLsh "
     "having count(*) > 1 or UserLsh is null"},
    {"a person without a main post has no post",
     "select a.DjLsh from UserH a inner join PartyH b on b.Code = a.code where a.ObjID = 0 and b.Parent > 0"},
    {"all rows of a person bear his name",
     "select a.DjLsh from PartyH a left outer join UserH b on a.UserLsh = b.DjLsh and a.Code = b.code "
     "and a.Name = b.name and a.Title = b.title where a.Type = 'User' and b.DjLsh is null"},
    {"nobody holds a position twice",
     "select Parent from PartyH where Type = 'User' and Parent > 0 group by Parent, Code having count(*) > 1"},
    {"some people have several posts",
     "select 1 where not exists (select a.Code from PartyH a inner join PositionEntityH b on a.Parent = b.ObjID "
     "where a.Type = 'User' group by a.Code having count(*) > 1)"},
};
// clang-format on

}  // namespace

std::span<const TSampleInvariant> OrganisationInvariants() { return kInvariants; }

}  // namespace zantest
