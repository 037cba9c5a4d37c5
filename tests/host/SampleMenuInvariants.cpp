#include "tests/host/SampleInvariants.h"

namespace zantest {

namespace {

// clang-format off
constexpr TSampleInvariant kInvariants[] = {
    {"the menu has one root, which is no object",
     "select 1 where 1 <> (select count(*) from Tree where NodeLevel = 0 and NodeID = 0 and ParentID = -1 "
     "and ObjectID = 0)"},
    {"a node hangs one level below its parent",
     "select a.NodeID from Tree a left outer join Tree b on a.ParentID = b.NodeID "
     "where a.NodeID <> 0 and (b.NodeID is null or a.NodeLevel <> b.NodeLevel + 1)"},
    {"a node is registered under its caption",
     "select a.NodeID from Tree a where a.NodeID <> 0 and 1 <> (select count(*) from ObjectRegister b "
     "where b.ObjectID = a.ObjectID and b.TypeID = 7 and b.Object = a.NodeCaption and b.OwnerID = a.NodeID)"},
    {"no object has the number of another",
     "select ObjectID from ObjectRegister group by ObjectID having count(*) > 1"},
    {"no menu object without a node",
     "select ObjectID from ObjectRegister where TypeID = 7 and ObjectID not in (select ObjectID from Tree)"},
    {"the entry of the domain console names its function first",
     "select 1 where 1 <> (select count(*) from Tree where NodeCaption = '域管理' "
     "and Functions like '函数域管理(菜单)%')"},
    {"documents are registered, defined and named by an entry",
     "select a.DjDm from DjDy a inner join MlDy d on a.YyDm = d.YyDm and a.MlDm = d.MlDm "
     "where 1 <> (select count(*) from ObjectRegister b where b.TypeID = 1 and b.Object = a.DjCName) "
     "or not exists (select 1 from Tree c where c.Functions like '%' || a.DjCName || '(单据)%')"},
    {"queries are registered, defined and named by an entry",
     "select a.CxDm from CxDy a where 1 <> (select count(*) from ObjectRegister b "
     "where b.TypeID = 2 and b.Object = a.CxCName) "
     "or not exists (select 1 from Tree c where c.Functions like '%' || a.CxCName || '(查询)%')"},
    {"every registered document and query is defined",
     "select ObjectID from ObjectRegister where (TypeID = 1 and Object not in (select DjCName from DjDy)) "
     "or (TypeID = 2 and Object not in (select CxCName from CxDy))"},
    {"every document has a folder",
     "select DjDm from DjDy where MlDm not in (select MlDm from MlDy)"},
    {"documents and queries have fields, and some for field permissions",
     "select DjDm from DjDy where DjDm not in (select DjDm from XmDy where PermissionControl = 1) "
     "union all select CxDm from CxDy where CxDm not in (select CxDm from CxXsDy where PermissionControl = 1)"},
    {"only fields that the designer marked are under control",
     "select ObjDm from STFieldPermissionControl a where PermissionControl <> 1 or not exists (select 1 "
     "from XmDy b where a.ObjType = 0 and b.DjDm = a.ObjDm and b.XmDm = a.XmDm and b.PermissionControl = 1 "
     "union all select 1 from CxXsDy c where a.ObjType = 1 and c.CxDm = a.ObjDm and c.XsDm = a.XmDm "
     "and c.PermissionControl = 1)"},
    {"fields that are set are under control",
     "select UserOID from STFieldPermissionSet a where not exists (select 1 from STFieldPermissionControl b "
     "where a.ObjType = b.ObjType and a.ObjDm = b.ObjDm and a.XmDm = b.XmDm)"},
    {"extra operations belong to documents and queries",
     "select SID from ExFunction where not ((SType = 'DJ' and SID in (select DjDm from DjDy)) "
     "or (SType = 'CX' and SID in (select CxDm from CxDy)))"},
    {"a domain may hand down no more than the domain above",
     "select a.DomainID from STDomainPermission a inner join STDomains b on a.DomainID = b.ID "
     "where b.ParentID <> -1 and not exists (select 1 from STDomainPermission c "
     "where c.DomainID = b.ParentID and c.MenuNodeID = a.MenuNodeID)"},
    {"a domain that holds a menu holds the menu above",
     "select a.DomainID from STDomainPermission a inner join Tree b on a.MenuNodeID = b.NodeID "
     "where b.NodeID <> 0 and not exists (select 1 from STDomainPermission c "
     "where c.DomainID = a.DomainID and c.MenuNodeID = b.ParentID)"},
    {"a domain holds the root of the menu",
     "select ID from STDomains where ID not in (select DomainID from STDomainPermission where MenuNodeID = 0)"},
    {"web and office menus go down the same way",
     "select a.DomainID from STDomainWebPermission a inner join STDomains b on a.DomainID = b.ID "
     "where b.ParentID <> -1 and not exists (select 1 from STDomainWebPermission c "
     "where c.DomainID = b.ParentID and c.ObjID = a.ObjID) "
     "union all select a.DomainID from STDomainOAPermission a inner join STDomains b on a.DomainID = b.ID "
     "where b.ParentID <> -1 and not exists (select 1 from STDomainOAPermission c "
     "where c.DomainID = b.ParentID and c.MenuID = a.MenuID)"},
    {"a role of a domain is allowed no menu that its domain lacks",
     "select a.UserID from STPermission a inner join STDomainMembers b on a.UserID = b.UserOID "
     "and b.MemberType = 1 and b.DomainID > 0 inner join Tree c on a.ObjectID = c.ObjectID "
     "where a.Permission <> 0 and not exists (select 1 from STDomainPermission d "
     "where d.DomainID = b.DomainID and d.MenuNodeID = c.NodeID)"},
    {"a role of a domain is granted no web or office menu that its domain lacks",
     "select a.RoleID from WebPermission a inner join STDomainMembers b on a.RoleID = b.UserOID "
     "and b.MemberType = 1 where not exists (select 1 from STDomainWebPermission d "
     "where d.DomainID = b.DomainID and d.ObjID = a.ObjID) "
     "union all select a.RoleID from STOAPermission a inner join STDomainMembers b on a.RoleID = b.UserOID "
     "and b.MemberType = 1 where not exists (select 1 from STDomainOAPermission d "
     "where d.DomainID = b.DomainID and d.MenuID = a.MenuID)"},
    {"who is allowed a menu is allowed the folders above",
     "select a.UserID from STPermission a inner join Tree b on a.ObjectID = b.ObjectID "
     "inner join Tree c on b.ParentID = c.NodeID and c.NodeID <> 0 where a.Permission <> 0 "
     "and not exists (select 1 from STPermission d where d.UserID = a.UserID and d.ObjectID = c.ObjectID "
     "and d.Permission <> 0)"},
    {"the managers may open the domain console",
     "select 1 where not exists (select 1 from STPermission a inner join STUsers b on a.UserID = b.OID "
     "inner join Tree c on a.ObjectID = c.ObjectID where b.UserID = '域管理员' and c.NodeCaption = '域管理' "
     "and a.Oprate = '执行' and a.Permission = 1)"},
    {"grants of web menus bear their fixed words",
     "select RoleID from WebPermission where TypeName <> '菜单' or Operate <> '操作' or Permission <> 1 "
     "or ObjID not in (select MID from WebMenu)"},
    {"the web menu has one root", "select 1 where 1 <> (select count(*) from WebMenu where parent = 0)"},
    {"web and office menus hang together",
     "select MID from WebMenu where parent <> 0 and parent not in (select MID from WebMenu) "
     "union all select OA_ID from OA_MenusH where PID <> -1 and PID not in (select OA_ID from OA_MenusH)"},
};
// clang-format on

}  // namespace

std::span<const TSampleInvariant> MenuInvariants() { return kInvariants; }

}  // namespace zantest
