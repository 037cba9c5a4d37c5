-- Indexes of the data database that the statements want. Keys of the tables stand with the tables.

begin ZanMake('create index IX_STUsers_UserID on STUsers (UserID)'); end;
/
begin ZanMake('create index IX_STUsers_UserName on STUsers (UserName)'); end;
/
begin ZanMake('create index IX_STUsers_IsAdministrator on STUsers (IsAdministrator, uGroup)'); end;
/
begin ZanMake('create index IX_STUsers_RelateUserH on STUsers (RelateUserH)'); end;
/

begin ZanMake('create index IX_STUserGroup_UserID on STUserGroup (UserID, GroupID)'); end;
/
begin ZanMake('create index IX_STUserGroup_GroupID on STUserGroup (GroupID, UserID)'); end;
/

begin ZanMake('create index IX_STPermission_ObjectID on STPermission (ObjectID, Oprate)'); end;
/
begin ZanMake('create index IX_Permission_UserID on Permission (UserID, ObjectID)'); end;
/
begin ZanMake('create index IX_Permission_ObjectID on Permission (ObjectID)'); end;
/

begin ZanMake('create index IX_PartyH_Parent on PartyH (Parent, Type, Sequence)'); end;
/
begin ZanMake('create index IX_PartyH_Type on PartyH (Type, Parent)'); end;
/
begin ZanMake('create index IX_PartyH_Code on PartyH (Code, Type)'); end;
/
begin ZanMake('create index IX_PartyH_UserOID on PartyH (UserOID)'); end;
/
begin ZanMake('create index IX_PartyH_UserLsh on PartyH (UserLsh)'); end;
/

begin ZanMake('create index IX_CompanyH_ObjID on CompanyH (ObjID)'); end;
/
begin ZanMake('create index IX_DepartmentH_ObjID on DepartmentH (ObjID)'); end;
/
begin ZanMake('create index IX_PositionEntityH_ObjID on PositionEntityH (ObjID)'); end;
/
begin ZanMake('create index IX_PosEntityH_UpperPosition on PositionEntityH (UpperPosition)'); end;
/
begin ZanMake('create index IX_PositionEntityH_code on PositionEntityH (code)'); end;
/
begin ZanMake('create index IX_PositionH_Code on PositionH (Code)'); end;
/
begin ZanMake('create index IX_PositionMapH_MapID on PositionMapH (MapID, PositionID)'); end;
/
begin ZanMake('create index IX_PositionMapH_UpperPosition on PositionMapH (UpperPosition)'); end;
/
begin ZanMake('create index IX_PositionMapH_PositionID on PositionMapH (PositionID)'); end;
/
begin ZanMake('create index IX_UserH_code on UserH (code)'); end;
/
begin ZanMake('create index IX_UserH_name on UserH (name)'); end;
/
begin ZanMake('create index IX_UserH_ObjID on UserH (ObjID)'); end;
/

begin ZanMake('create index IX_STDomains_ParentID on STDomains (ParentID, Sequence)'); end;
/
begin ZanMake('create index IX_STDomains_Code on STDomains (Code)'); end;
/
begin ZanMake('create index IX_STDomains_FullName on STDomains (FullName)'); end;
/
begin ZanMake('create index IX_STDomains_FullCode on STDomains (FullCode)'); end;
/
begin ZanMake('create index IX_STDomainMembers_UserOID on STDomainMembers (UserOID, MemberType, IsOwned, DomainID)'); end;
/
begin ZanMake('create index IX_STDomainInherits_DescID on STDomainInherits (DescendantID, AncestorID)'); end;
/
begin ZanMake('create index IX_STDomainPerm_MenuNodeID on STDomainPermission (MenuNodeID)'); end;
/
begin ZanMake('create index IX_STDomainOAPerm_MenuID on STDomainOAPermission (MenuID)'); end;
/
begin ZanMake('create index IX_STDomainWebPerm_ObjID on STDomainWebPermission (ObjID)'); end;
/

begin ZanMake('create index IX_WebPermission_ObjID on WebPermission (ObjID)'); end;
/
begin ZanMake('create index IX_STOAPermission_MenuID on STOAPermission (MenuID)'); end;
/
begin ZanMake('create index IX_ST_msgUser_UserID on ST_msgUser (UserID)'); end;
/
begin ZanMake('create index IX_ST_MsgKu_RecUserId on ST_MsgKu (RecUserId)'); end;
/
