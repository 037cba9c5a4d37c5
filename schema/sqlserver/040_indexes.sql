-- Indexes of the data database that the statements want. Keys of the tables stand with the tables.

-- The index that leaves rows out is made under this setting only, which one of the command line clients turns off.
set quoted_identifier on;
go

-- A login belongs to one user. Roles and accounts without a login stay out of it.
if not exists (select 1 from sys.indexes where name = N'UX_STUsers_Login' and object_id = object_id(N'STUsers'))
  create unique index UX_STUsers_Login on STUsers (UserID) where uGroup = 0 and UserID <> '';
if not exists (select 1 from sys.indexes where name = N'IX_STUsers_UserID' and object_id = object_id(N'STUsers'))
  create index IX_STUsers_UserID on STUsers (UserID);
if not exists (select 1 from sys.indexes where name = N'IX_STUsers_UserName' and object_id = object_id(N'STUsers'))
  create index IX_STUsers_UserName on STUsers (UserName);
if not exists (select 1 from sys.indexes where name = N'IX_STUsers_IsAdministrator' and object_id = object_id(N'STUsers'))
  create index IX_STUsers_IsAdministrator on STUsers (IsAdministrator, uGroup);
if not exists (select 1 from sys.indexes where name = N'IX_STUsers_RelateUserH' and object_id = object_id(N'STUsers'))
  create index IX_STUsers_RelateUserH on STUsers (RelateUserH);

if not exists (select 1 from sys.indexes where name = N'IX_STUserGroup_UserID' and object_id = object_id(N'STUserGroup'))
  create index IX_STUserGroup_UserID on STUserGroup (UserID, GroupID);
if not exists (select 1 from sys.indexes where name = N'IX_STUserGroup_GroupID' and object_id = object_id(N'STUserGroup'))
  create index IX_STUserGroup_GroupID on STUserGroup (GroupID, UserID);

if not exists (select 1 from sys.indexes where name = N'IX_STPermission_ObjectID' and object_id = object_id(N'STPermission'))
  create index IX_STPermission_ObjectID on STPermission (ObjectID, Oprate);
if not exists (select 1 from sys.indexes where name = N'IX_Permission_UserID' and object_id = object_id(N'Permission'))
  create index IX_Permission_UserID on Permission (UserID, ObjectID);
if not exists (select 1 from sys.indexes where name = N'IX_Permission_ObjectID' and object_id = object_id(N'Permission'))
  create index IX_Permission_ObjectID on Permission (ObjectID);

if not exists (select 1 from sys.indexes where name = N'IX_PartyH_Parent' and object_id = object_id(N'PartyH'))
  create index IX_PartyH_Parent on PartyH (Parent, Type, Sequence);
if not exists (select 1 from sys.indexes where name = N'IX_PartyH_Type' and object_id = object_id(N'PartyH'))
  create index IX_PartyH_Type on PartyH (Type, Parent);
if not exists (select 1 from sys.indexes where name = N'IX_PartyH_Code' and object_id = object_id(N'PartyH'))
  create index IX_PartyH_Code on PartyH (Code, Type);
if not exists (select 1 from sys.indexes where name = N'IX_PartyH_UserOID' and object_id = object_id(N'PartyH'))
  create index IX_PartyH_UserOID on PartyH (UserOID);
if not exists (select 1 from sys.indexes where name = N'IX_PartyH_UserLsh' and object_id = object_id(N'PartyH'))
  create index IX_PartyH_UserLsh on PartyH (UserLsh);

if not exists (select 1 from sys.indexes where name = N'IX_CompanyH_ObjID' and object_id = object_id(N'CompanyH'))
  create index IX_CompanyH_ObjID on CompanyH (ObjID);
if not exists (select 1 from sys.indexes where name = N'IX_DepartmentH_ObjID' and object_id = object_id(N'DepartmentH'))
  create index IX_DepartmentH_ObjID on DepartmentH (ObjID);
if not exists (select 1 from sys.indexes where name = N'IX_PositionEntityH_ObjID' and object_id = object_id(N'PositionEntityH'))
  create index IX_PositionEntityH_ObjID on PositionEntityH (ObjID);
if not exists (select 1 from sys.indexes where name = N'IX_PositionEntityH_UpperPosition' and object_id = object_id(N'PositionEntityH'))
  create index IX_PositionEntityH_UpperPosition on PositionEntityH (UpperPosition);
if not exists (select 1 from sys.indexes where name = N'IX_PositionEntityH_code' and object_id = object_id(N'PositionEntityH'))
  create index IX_PositionEntityH_code on PositionEntityH (code);
if not exists (select 1 from sys.indexes where name = N'IX_PositionH_Code' and object_id = object_id(N'PositionH'))
  create index IX_PositionH_Code on PositionH (Code);
if not exists (select 1 from sys.indexes where name = N'IX_PositionMapH_MapID' and object_id = object_id(N'PositionMapH'))
  create index IX_PositionMapH_MapID on PositionMapH (MapID, PositionID);
if not exists (select 1 from sys.indexes where name = N'IX_PositionMapH_UpperPosition' and object_id = object_id(N'PositionMapH'))
  create index IX_PositionMapH_UpperPosition on PositionMapH (UpperPosition);
if not exists (select 1 from sys.indexes where name = N'IX_PositionMapH_PositionID' and object_id = object_id(N'PositionMapH'))
  create index IX_PositionMapH_PositionID on PositionMapH (PositionID);
if not exists (select 1 from sys.indexes where name = N'IX_UserH_code' and object_id = object_id(N'UserH'))
  create index IX_UserH_code on UserH (code);
if not exists (select 1 from sys.indexes where name = N'IX_UserH_name' and object_id = object_id(N'UserH'))
  create index IX_UserH_name on UserH (name);
if not exists (select 1 from sys.indexes where name = N'IX_UserH_ObjID' and object_id = object_id(N'UserH'))
  create index IX_UserH_ObjID on UserH (ObjID);

if not exists (select 1 from sys.indexes where name = N'IX_STDomains_ParentID' and object_id = object_id(N'STDomains'))
  create index IX_STDomains_ParentID on STDomains (ParentID, Sequence);
if not exists (select 1 from sys.indexes where name = N'IX_STDomains_Code' and object_id = object_id(N'STDomains'))
  create index IX_STDomains_Code on STDomains (Code);
-- FullName and FullCode are wider than the 1,700 bytes that a key may have here.
if not exists (select 1 from sys.indexes where name = N'IX_STDomainMembers_UserOID' and object_id = object_id(N'STDomainMembers'))
  create index IX_STDomainMembers_UserOID on STDomainMembers (UserOID, MemberType, IsOwned, DomainID);
if not exists (select 1 from sys.indexes where name = N'IX_STDomainInherits_DescendantID' and object_id = object_id(N'STDomainInherits'))
  create index IX_STDomainInherits_DescendantID on STDomainInherits (DescendantID, AncestorID);
if not exists (select 1 from sys.indexes where name = N'IX_STDomainPermission_MenuNodeID' and object_id = object_id(N'STDomainPermission'))
  create index IX_STDomainPermission_MenuNodeID on STDomainPermission (MenuNodeID);
if not exists (select 1 from sys.indexes where name = N'IX_STDomainOAPermission_MenuID' and object_id = object_id(N'STDomainOAPermission'))
  create index IX_STDomainOAPermission_MenuID on STDomainOAPermission (MenuID);
if not exists (select 1 from sys.indexes where name = N'IX_STDomainWebPermission_ObjID' and object_id = object_id(N'STDomainWebPermission'))
  create index IX_STDomainWebPermission_ObjID on STDomainWebPermission (ObjID);

if not exists (select 1 from sys.indexes where name = N'IX_WebPermission_ObjID' and object_id = object_id(N'WebPermission'))
  create index IX_WebPermission_ObjID on WebPermission (ObjID);
if not exists (select 1 from sys.indexes where name = N'IX_STOAPermission_MenuID' and object_id = object_id(N'STOAPermission'))
  create index IX_STOAPermission_MenuID on STOAPermission (MenuID);
if not exists (select 1 from sys.indexes where name = N'IX_ST_msgUser_UserID' and object_id = object_id(N'ST_msgUser'))
  create index IX_ST_msgUser_UserID on ST_msgUser (UserID);
if not exists (select 1 from sys.indexes where name = N'IX_ST_MsgKu_RecUserId' and object_id = object_id(N'ST_MsgKu'))
  create index IX_ST_MsgKu_RecUserId on ST_MsgKu (RecUserId);
