-- Indexes of the data database that the statements want. Keys of the tables stand with the tables.

-- A login belongs to one user. Roles and accounts without a login stay out of it.
create unique index if not exists UX_STUsers_Login on STUsers (UserLogin);
create index if not exists IX_STUsers_UserID on STUsers (UserID);
create index if not exists IX_STUsers_UserName on STUsers (UserName(191));
create index if not exists IX_STUsers_IsAdministrator on STUsers (IsAdministrator, uGroup);
create index if not exists IX_STUsers_RelateUserH on STUsers (RelateUserH);

create index if not exists IX_STUserGroup_UserID on STUserGroup (UserID, GroupID);
create index if not exists IX_STUserGroup_GroupID on STUserGroup (GroupID, UserID);

create index if not exists IX_STPermission_ObjectID on STPermission (ObjectID, Oprate);
create index if not exists IX_Permission_UserID on Permission (UserID, ObjectID);
create index if not exists IX_Permission_ObjectID on Permission (ObjectID);

create index if not exists IX_PartyH_Parent on PartyH (Parent, Type, Sequence);
create index if not exists IX_PartyH_Type on PartyH (Type, Parent);
create index if not exists IX_PartyH_Code on PartyH (Code, Type);
create index if not exists IX_PartyH_UserOID on PartyH (UserOID);
create index if not exists IX_PartyH_UserLsh on PartyH (UserLsh);

create index if not exists IX_CompanyH_ObjID on CompanyH (ObjID);
create index if not exists IX_DepartmentH_ObjID on DepartmentH (ObjID);
create index if not exists IX_PositionEntityH_ObjID on PositionEntityH (ObjID);
create index if not exists IX_PositionEntityH_UpperPosition on PositionEntityH (UpperPosition);
create index if not exists IX_PositionEntityH_code on PositionEntityH (code);
create index if not exists IX_PositionH_Code on PositionH (Code);
create index if not exists IX_PositionMapH_MapID on PositionMapH (MapID, PositionID);
create index if not exists IX_PositionMapH_UpperPosition on PositionMapH (UpperPosition);
create index if not exists IX_PositionMapH_PositionID on PositionMapH (PositionID);
create index if not exists IX_UserH_code on UserH (code);
create index if not exists IX_UserH_name on UserH (name);
create index if not exists IX_UserH_ObjID on UserH (ObjID);

create index if not exists IX_STDomains_ParentID on STDomains (ParentID, Sequence);
create index if not exists IX_STDomains_Code on STDomains (Code);
create index if not exists IX_STDomains_FullName on STDomains (FullName(191));
create index if not exists IX_STDomains_FullCode on STDomains (FullCode(191));
create index if not exists IX_STDomainMembers_UserOID on STDomainMembers (UserOID, MemberType, IsOwned, DomainID);
create index if not exists IX_STDomainInherits_DescendantID on STDomainInherits (DescendantID, AncestorID);
create index if not exists IX_STDomainPermission_MenuNodeID on STDomainPermission (MenuNodeID);
create index if not exists IX_STDomainOAPermission_MenuID on STDomainOAPermission (MenuID);
create index if not exists IX_STDomainWebPermission_ObjID on STDomainWebPermission (ObjID);

create index if not exists IX_WebPermission_ObjID on WebPermission (ObjID);
create index if not exists IX_STOAPermission_MenuID on STOAPermission (MenuID);
create index if not exists IX_ST_msgUser_UserID on ST_msgUser (UserID);
create index if not exists IX_ST_MsgKu_RecUserId on ST_MsgKu (RecUserId);
