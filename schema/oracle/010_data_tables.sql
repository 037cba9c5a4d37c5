-- Tables of the data database: accounts, rights, organisation, domains, field permissions.
--
-- Run by a client that ends a block at "/" (sqlplus, sqlcl). Texts compare exactly under the default NLS_COMP.
-- An empty text is null here.

begin ZanMake('create table STUsers (
  OID              number(10) not null,
  UserID           nvarchar2(200),
  UserName         nvarchar2(800),
  UserDesc         nvarchar2(500),
  Password         nvarchar2(1000),
  uGroup           number(10),
  UnUsed           number(10) default 0,
  IsAdministrator  number(10) default 0,
  Property1        nvarchar2(200),
  Property2        nvarchar2(200),
  Categories       nvarchar2(500),
  DomainUserName   nvarchar2(200),
  Creator          number(10),
  CreatorName      nvarchar2(200),
  CreateTime       date,
  ModifierName     nvarchar2(200),
  ModifyTime       date,
  EmpowermentRight number(10) default 0,
  RelateOrg        number(10),
  RelateUserH      number(10),
  constraint PK_STUsers primary key (OID)
)'); end;
/

-- No key: a membership may be written twice (appending people to a position does not look first).
begin ZanMake('create table STUserGroup (
  UserID  number(10) not null,
  GroupID number(10) not null
)'); end;
/

begin ZanMake('create table STUserPasswordStrategy (
  UserID         nvarchar2(200) not null,
  NeedReset      number(1) default 0,
  CanModify      number(1) default 1,
  NeverExpires   number(1) default 0,
  LastModifyTime date,
  constraint PK_STUserPasswordStrategy primary key (UserID)
)'); end;
/

-- A row that is inserted without a value for Permission allows.
begin ZanMake('create table STPermission (
  UserID     number(10) not null,
  ObjectID   number(10) not null,
  Oprate     nvarchar2(200) not null,
  Permission number(10) default 1,
  constraint PK_STPermission primary key (UserID, ObjectID, Oprate)
)'); end;
/

-- The older store of rights: two statements still delete from it, nothing reads or fills it.
begin ZanMake('create table Permission (
  UserID     number(10),
  ObjectID   number(10),
  Oprate     nvarchar2(200),
  Permission number(10)
)'); end;
/

begin ZanMake('create table PartyH (
  DjLsh             number(10) not null,
  Parent            number(10),
  Type              nvarchar2(20),
  Name              nvarchar2(200),
  Title             nvarchar2(200),
  Code              nvarchar2(200),
  Sequence          number(10),
  IsActive          number(1),
  LongName          nvarchar2(2000),
  LongCode          nvarchar2(2000),
  ParentPath        nvarchar2(2000),
  NodeLevel         number(10),
  IsLastLevel       number(10),
  FullName          nvarchar2(800),
  UserOID           number(10),
  UserLsh           number(10),
  isSTUser          number(10),
  isHeadPosition    number(10),
  isCapitalPosition number(10),
  Inputer           nvarchar2(200),
  InputTime         date,
  Modifier          nvarchar2(200),
  ModifyTime        date,
  constraint PK_PartyH primary key (DjLsh)
)'); end;
/

begin ZanMake('create table CompanyH (
  Djlsh number(10) not null,
  ObjID number(10),
  code  nvarchar2(200),
  Name  nvarchar2(200),
  Title nvarchar2(200),
  constraint PK_CompanyH primary key (Djlsh)
)'); end;
/

begin ZanMake('create table DepartmentH (
  Djlsh number(10) not null,
  ObjID number(10),
  code  nvarchar2(200),
  Name  nvarchar2(200),
  Title nvarchar2(200),
  constraint PK_DepartmentH primary key (Djlsh)
)'); end;
/

-- A document of the platform, read by the name of a department. It is not DepartmentH.
begin ZanMake('create table DepartmentsH (
  DjLsh number(10) not null,
  ID    nvarchar2(200),
  Name  nvarchar2(200),
  constraint PK_DepartmentsH primary key (DjLsh)
)'); end;
/

begin ZanMake('create table PositionH (
  DjLsh number(10) not null,
  Code  nvarchar2(200),
  Name  nvarchar2(200),
  constraint PK_PositionH primary key (DjLsh)
)'); end;
/

begin ZanMake('create table PositionEntityH (
  Djlsh         number(10) not null,
  ObjID         number(10),
  code          nvarchar2(200),
  Name          nvarchar2(200),
  Title         nvarchar2(200),
  PositionCode  nvarchar2(200),
  UpperPosition number(10),
  isManager     number(10) default 0,
  constraint PK_PositionEntityH primary key (Djlsh)
)'); end;
/

begin ZanMake('create table PositionMapH (
  Djlsh         number(10) not null,
  PositionID    number(10),
  PositionName  nvarchar2(200),
  UpperPosition number(10),
  MapID         number(10),
  constraint PK_PositionMapH primary key (Djlsh)
)'); end;
/

begin ZanMake('create table UserH (
  DjLsh         number(10) not null,
  ObjID         number(10),
  code          nvarchar2(200),
  name          nvarchar2(200),
  title         nvarchar2(200),
  birth         nvarchar2(30),
  handPhone     nvarchar2(50),
  bbsusername   nvarchar2(200),
  bbspassword   nvarchar2(200),
  sex           nvarchar2(20),
  married       number(1),
  address       nvarchar2(500),
  zipcode       nvarchar2(20),
  phone         nvarchar2(50),
  email         nvarchar2(200),
  noteNumber    nvarchar2(50),
  isAdmin       number(1),
  loginPassword nvarchar2(1000),
  face          nvarchar2(500),
  visual        nvarchar2(500),
  customItem1   nvarchar2(500),
  customItem2   nvarchar2(500),
  customItem3   nvarchar2(500),
  constraint PK_UserH primary key (DjLsh)
)'); end;
/

begin ZanMake('create table STDomains (
  ID         number(10) not null,
  Code       nvarchar2(50),
  Name       nvarchar2(50),
  Remark     nvarchar2(200),
  ParentID   number(10),
  NodeLevel  number(10),
  Sequence   number(10),
  FullName   nvarchar2(2000),
  FullCode   nvarchar2(1000),
  ParentCode nvarchar2(1000),
  ParentName nvarchar2(2000),
  UserLimit  number(10) default 0,
  RelateOrg  number(10),
  constraint PK_STDomains primary key (ID)
)'); end;
/

begin ZanMake('create table STDomainMembers (
  DomainID   number(10) not null,
  UserOID    number(10) not null,
  MemberType number(10) not null,
  IsOwned    number(10) not null,
  constraint PK_STDomainMembers primary key (DomainID, UserOID, MemberType, IsOwned)
)'); end;
/

begin ZanMake('create table STDomainInherits (
  AncestorID   number(10) not null,
  DescendantID number(10) not null,
  constraint PK_STDomainInherits primary key (AncestorID, DescendantID)
)'); end;
/

begin ZanMake('create table STDomainPermission (
  DomainID   number(10) not null,
  MenuNodeID number(10) not null,
  constraint PK_STDomainPermission primary key (DomainID, MenuNodeID)
)'); end;
/

begin ZanMake('create table STDomainOAPermission (
  DomainID number(10) not null,
  MenuID   number(10) not null,
  constraint PK_STDomainOAPermission primary key (DomainID, MenuID)
)'); end;
/

begin ZanMake('create table STDomainWebPermission (
  DomainID number(10) not null,
  ObjID    number(10) not null,
  constraint PK_STDomainWebPermission primary key (DomainID, ObjID)
)'); end;
/

begin ZanMake('create table STFieldPermissionControl (
  ObjType           number(10) not null,
  ObjDm             number(10) not null,
  XmDm              number(10) not null,
  PermissionControl number(10),
  constraint PK_STFieldPermissionControl primary key (ObjType, ObjDm, XmDm)
)'); end;
/

begin ZanMake('create table STFieldPermissionSet (
  UserOID      number(10) not null,
  ObjType      number(10) not null,
  ObjDm        number(10) not null,
  XmDm         number(10) not null,
  Permission   number(10) default 0,
  AddReadOnly  number(10) default 0,
  EditReadOnly number(10) default 0,
  constraint PK_STFieldPermissionSet primary key (UserOID, ObjType, ObjDm, XmDm)
)'); end;
/

begin ZanMake('create table WebPermission (
  RoleID     number(10) not null,
  ObjID      number(10) not null,
  TypeName   nvarchar2(50) not null,
  Operate    nvarchar2(50) not null,
  Permission number(10),
  constraint PK_WebPermission primary key (RoleID, ObjID, TypeName, Operate)
)'); end;
/

begin ZanMake('create table OA_MenusH (
  OA_ID number(10) not null,
  PID   number(10),
  Name  nvarchar2(200),
  Sort  number(10),
  constraint PK_OA_MenusH primary key (OA_ID)
)'); end;
/

begin ZanMake('create table STOAPermission (
  RoleID     number(10) not null,
  MenuID     number(10) not null,
  Permission number(10),
  constraint PK_STOAPermission primary key (RoleID, MenuID)
)'); end;
/

begin ZanMake('create table DocumentTempletH (
  DjLsh number(10) not null,
  Name  nvarchar2(200),
  Title nvarchar2(200),
  constraint PK_DocumentTempletH primary key (DjLsh)
)'); end;
/

-- Messages of the platform, kept by it: the console of users removes the rows of an account that it deletes.
begin ZanMake('create table ST_msgUser (
  UserID       nvarchar2(200),
  userownorder nclob
)'); end;
/

begin ZanMake('create table ST_MsgKu (
  RecUserId nvarchar2(200)
)'); end;
/
