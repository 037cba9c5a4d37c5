-- Tables of the data database: accounts, rights, organisation, domains, field permissions.
--
-- Texts are of a binary collation, column by column: the database keeps a collation without regard to case,
-- since the statements name one table in several cases.

if object_id(N'STUsers', N'U') is null
create table STUsers (
  OID              int not null,
  UserID           nvarchar(200) collate Latin1_General_100_BIN2,
  UserName         nvarchar(800) collate Latin1_General_100_BIN2,
  UserDesc         nvarchar(500) collate Latin1_General_100_BIN2,
  Password         nvarchar(1000) collate Latin1_General_100_BIN2,
  uGroup           int,
  UnUsed           int default 0,
  IsAdministrator  int default 0,
  Property1        nvarchar(200) collate Latin1_General_100_BIN2,
  Property2        nvarchar(200) collate Latin1_General_100_BIN2,
  Categories       nvarchar(500) collate Latin1_General_100_BIN2,
  DomainUserName   nvarchar(200) collate Latin1_General_100_BIN2,
  Creator          int,
  CreatorName      nvarchar(200) collate Latin1_General_100_BIN2,
  CreateTime       datetime,
  ModifierName     nvarchar(200) collate Latin1_General_100_BIN2,
  ModifyTime       datetime,
  EmpowermentRight int default 0,
  RelateOrg        int,
  RelateUserH      int,
  constraint PK_STUsers primary key (OID)
);

-- No key: a membership may be written twice (appending people to a position does not look first).
if object_id(N'STUserGroup', N'U') is null
create table STUserGroup (
  UserID  int not null,
  GroupID int not null
);

if object_id(N'STUserPasswordStrategy', N'U') is null
create table STUserPasswordStrategy (
  UserID         nvarchar(200) collate Latin1_General_100_BIN2 not null,
  NeedReset      bit default 0,
  CanModify      bit default 1,
  NeverExpires   bit default 0,
  LastModifyTime datetime,
  constraint PK_STUserPasswordStrategy primary key (UserID)
);

-- A row that is inserted without a value for Permission allows.
if object_id(N'STPermission', N'U') is null
create table STPermission (
  UserID     int not null,
  ObjectID   int not null,
  Oprate     nvarchar(200) collate Latin1_General_100_BIN2 not null,
  Permission int default 1,
  constraint PK_STPermission primary key (UserID, ObjectID, Oprate)
);

-- The older store of rights: two statements still delete from it, nothing reads or fills it.
if object_id(N'Permission', N'U') is null
create table Permission (
  UserID     int,
  ObjectID   int,
  Oprate     nvarchar(200) collate Latin1_General_100_BIN2,
  Permission int
);

if object_id(N'PartyH', N'U') is null
create table PartyH (
  DjLsh             int not null,
  Parent            int,
  Type              nvarchar(20) collate Latin1_General_100_BIN2,
  Name              nvarchar(200) collate Latin1_General_100_BIN2,
  Title             nvarchar(200) collate Latin1_General_100_BIN2,
  Code              nvarchar(200) collate Latin1_General_100_BIN2,
  Sequence          int,
  IsActive          bit,
  LongName          nvarchar(4000) collate Latin1_General_100_BIN2,
  LongCode          nvarchar(2000) collate Latin1_General_100_BIN2,
  ParentPath        nvarchar(2000) collate Latin1_General_100_BIN2,
  NodeLevel         int,
  IsLastLevel       int,
  FullName          nvarchar(800) collate Latin1_General_100_BIN2,
  UserOID           int,
  UserLsh           int,
  isSTUser          int,
  isHeadPosition    int,
  isCapitalPosition int,
  Inputer           nvarchar(200) collate Latin1_General_100_BIN2,
  InputTime         datetime,
  Modifier          nvarchar(200) collate Latin1_General_100_BIN2,
  ModifyTime        datetime,
  constraint PK_PartyH primary key (DjLsh)
);

if object_id(N'CompanyH', N'U') is null
create table CompanyH (
  Djlsh int not null,
  ObjID int,
  code  nvarchar(200) collate Latin1_General_100_BIN2,
  Name  nvarchar(200) collate Latin1_General_100_BIN2,
  Title nvarchar(200) collate Latin1_General_100_BIN2,
  constraint PK_CompanyH primary key (Djlsh)
);

if object_id(N'DepartmentH', N'U') is null
create table DepartmentH (
  Djlsh int not null,
  ObjID int,
  code  nvarchar(200) collate Latin1_General_100_BIN2,
  Name  nvarchar(200) collate Latin1_General_100_BIN2,
  Title nvarchar(200) collate Latin1_General_100_BIN2,
  constraint PK_DepartmentH primary key (Djlsh)
);

-- A document of the platform, read by the name of a department. It is not DepartmentH.
if object_id(N'DepartmentsH', N'U') is null
create table DepartmentsH (
  DjLsh int not null,
  ID    nvarchar(200) collate Latin1_General_100_BIN2,
  Name  nvarchar(200) collate Latin1_General_100_BIN2,
  constraint PK_DepartmentsH primary key (DjLsh)
);

if object_id(N'PositionH', N'U') is null
create table PositionH (
  DjLsh int not null,
  Code  nvarchar(200) collate Latin1_General_100_BIN2,
  Name  nvarchar(200) collate Latin1_General_100_BIN2,
  constraint PK_PositionH primary key (DjLsh)
);

if object_id(N'PositionEntityH', N'U') is null
create table PositionEntityH (
  Djlsh         int not null,
  ObjID         int,
  code          nvarchar(200) collate Latin1_General_100_BIN2,
  Name          nvarchar(200) collate Latin1_General_100_BIN2,
  Title         nvarchar(200) collate Latin1_General_100_BIN2,
  PositionCode  nvarchar(200) collate Latin1_General_100_BIN2,
  UpperPosition int,
  isManager     int default 0,
  constraint PK_PositionEntityH primary key (Djlsh)
);

if object_id(N'PositionMapH', N'U') is null
create table PositionMapH (
  Djlsh         int not null,
  PositionID    int,
  PositionName  nvarchar(200) collate Latin1_General_100_BIN2,
  UpperPosition int,
  MapID         int,
  constraint PK_PositionMapH primary key (Djlsh)
);

if object_id(N'UserH', N'U') is null
create table UserH (
  DjLsh         int not null,
  ObjID         int,
  code          nvarchar(200) collate Latin1_General_100_BIN2,
  name          nvarchar(200) collate Latin1_General_100_BIN2,
  title         nvarchar(200) collate Latin1_General_100_BIN2,
  birth         nvarchar(30) collate Latin1_General_100_BIN2,
  handPhone     nvarchar(50) collate Latin1_General_100_BIN2,
  bbsusername   nvarchar(200) collate Latin1_General_100_BIN2,
  bbspassword   nvarchar(200) collate Latin1_General_100_BIN2,
  sex           nvarchar(20) collate Latin1_General_100_BIN2,
  married       bit,
  address       nvarchar(500) collate Latin1_General_100_BIN2,
  zipcode       nvarchar(20) collate Latin1_General_100_BIN2,
  phone         nvarchar(50) collate Latin1_General_100_BIN2,
  email         nvarchar(200) collate Latin1_General_100_BIN2,
  noteNumber    nvarchar(50) collate Latin1_General_100_BIN2,
  isAdmin       bit,
  loginPassword nvarchar(1000) collate Latin1_General_100_BIN2,
  face          nvarchar(500) collate Latin1_General_100_BIN2,
  visual        nvarchar(500) collate Latin1_General_100_BIN2,
  customItem1   nvarchar(500) collate Latin1_General_100_BIN2,
  customItem2   nvarchar(500) collate Latin1_General_100_BIN2,
  customItem3   nvarchar(500) collate Latin1_General_100_BIN2,
  constraint PK_UserH primary key (DjLsh)
);

if object_id(N'STDomains', N'U') is null
create table STDomains (
  ID         int not null,
  Code       nvarchar(50) collate Latin1_General_100_BIN2,
  Name       nvarchar(50) collate Latin1_General_100_BIN2,
  Remark     nvarchar(200) collate Latin1_General_100_BIN2,
  ParentID   int,
  NodeLevel  int,
  Sequence   int,
  FullName   nvarchar(4000) collate Latin1_General_100_BIN2,
  FullCode   nvarchar(1000) collate Latin1_General_100_BIN2,
  ParentCode nvarchar(1000) collate Latin1_General_100_BIN2,
  ParentName nvarchar(4000) collate Latin1_General_100_BIN2,
  UserLimit  int default 0,
  RelateOrg  int,
  constraint PK_STDomains primary key (ID)
);

if object_id(N'STDomainMembers', N'U') is null
create table STDomainMembers (
  DomainID   int not null,
  UserOID    int not null,
  MemberType int not null,
  IsOwned    int not null,
  constraint PK_STDomainMembers primary key (DomainID, UserOID, MemberType, IsOwned)
);

if object_id(N'STDomainInherits', N'U') is null
create table STDomainInherits (
  AncestorID   int not null,
  DescendantID int not null,
  constraint PK_STDomainInherits primary key (AncestorID, DescendantID)
);

if object_id(N'STDomainPermission', N'U') is null
create table STDomainPermission (
  DomainID   int not null,
  MenuNodeID int not null,
  constraint PK_STDomainPermission primary key (DomainID, MenuNodeID)
);

if object_id(N'STDomainOAPermission', N'U') is null
create table STDomainOAPermission (
  DomainID int not null,
  MenuID   int not null,
  constraint PK_STDomainOAPermission primary key (DomainID, MenuID)
);

if object_id(N'STDomainWebPermission', N'U') is null
create table STDomainWebPermission (
  DomainID int not null,
  ObjID    int not null,
  constraint PK_STDomainWebPermission primary key (DomainID, ObjID)
);

if object_id(N'STFieldPermissionControl', N'U') is null
create table STFieldPermissionControl (
  ObjType           int not null,
  ObjDm             int not null,
  XmDm              int not null,
  PermissionControl int,
  constraint PK_STFieldPermissionControl primary key (ObjType, ObjDm, XmDm)
);

if object_id(N'STFieldPermissionSet', N'U') is null
create table STFieldPermissionSet (
  UserOID      int not null,
  ObjType      int not null,
  ObjDm        int not null,
  XmDm         int not null,
  Permission   int default 0,
  AddReadOnly  int default 0,
  EditReadOnly int default 0,
  constraint PK_STFieldPermissionSet primary key (UserOID, ObjType, ObjDm, XmDm)
);

if object_id(N'WebPermission', N'U') is null
create table WebPermission (
  RoleID     int not null,
  ObjID      int not null,
  TypeName   nvarchar(50) collate Latin1_General_100_BIN2 not null,
  Operate    nvarchar(50) collate Latin1_General_100_BIN2 not null,
  Permission int,
  constraint PK_WebPermission primary key (RoleID, ObjID, TypeName, Operate)
);

if object_id(N'OA_MenusH', N'U') is null
create table OA_MenusH (
  OA_ID int not null,
  PID   int,
  Name  nvarchar(200) collate Latin1_General_100_BIN2,
  Sort  int,
  constraint PK_OA_MenusH primary key (OA_ID)
);

if object_id(N'STOAPermission', N'U') is null
create table STOAPermission (
  RoleID     int not null,
  MenuID     int not null,
  Permission int,
  constraint PK_STOAPermission primary key (RoleID, MenuID)
);

if object_id(N'DocumentTempletH', N'U') is null
create table DocumentTempletH (
  DjLsh int not null,
  Name  nvarchar(200) collate Latin1_General_100_BIN2,
  Title nvarchar(200) collate Latin1_General_100_BIN2,
  constraint PK_DocumentTempletH primary key (DjLsh)
);

-- Messages of the platform, kept by it: the console of users removes the rows of an account that it deletes.
if object_id(N'ST_msgUser', N'U') is null
create table ST_msgUser (
  UserID       nvarchar(200) collate Latin1_General_100_BIN2,
  userownorder nvarchar(max) collate Latin1_General_100_BIN2
);

if object_id(N'ST_MsgKu', N'U') is null
create table ST_MsgKu (
  RecUserId nvarchar(200) collate Latin1_General_100_BIN2
);
