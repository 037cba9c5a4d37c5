-- Tables of the data database: accounts, rights, organisation, domains, field permissions.
--
-- Texts compare byte by byte (collation BINARY), so case and trailing blanks count. Every table with a key
-- is kept without a row id: a row id answers to the name OID and would hide a misspelt statement, and it
-- would let a null into an integer key.

create table if not exists STUsers (
  OID              int           not null,
  UserID           nvarchar(200),
  UserName         nvarchar(800),
  UserDesc         nvarchar(500),
  Password         nvarchar(1000),
  uGroup           int,
  UnUsed           int           default 0,
  IsAdministrator  int           default 0,
  Property1        nvarchar(200),
  Property2        nvarchar(200),
  Categories       nvarchar(500),
  DomainUserName   nvarchar(200),
  Creator          int,
  CreatorName      nvarchar(200),
  CreateTime       datetime,
  ModifierName     nvarchar(200),
  ModifyTime       datetime,
  EmpowermentRight int           default 0,
  RelateOrg        int,
  RelateUserH      int,
  primary key (OID)
) without rowid;

-- No key: a membership may be written twice (appending people to a position does not look first).
create table if not exists STUserGroup (
  UserID  int not null,
  GroupID int not null
);

create table if not exists STUserPasswordStrategy (
  UserID         nvarchar(200) not null,
  NeedReset      int           default 0,
  CanModify      int           default 1,
  NeverExpires   int           default 0,
  LastModifyTime datetime,
  primary key (UserID)
) without rowid;

-- A row that is inserted without a value for Permission allows.
create table if not exists STPermission (
  UserID     int          not null,
  ObjectID   int          not null,
  Oprate     nvarchar(200) not null,
  Permission int          default 1,
  primary key (UserID, ObjectID, Oprate)
) without rowid;

-- The older store of rights: two statements still delete from it, nothing reads or fills it.
create table if not exists Permission (
  UserID     int,
  ObjectID   int,
  Oprate     nvarchar(200),
  Permission int
);

create table if not exists PartyH (
  DjLsh             int           not null,
  Parent            int,
  Type              nvarchar(20),
  Name              nvarchar(200),
  Title             nvarchar(200),
  Code              nvarchar(200),
  Sequence          int,
  IsActive          int,
  LongName          nvarchar(4000),
  LongCode          nvarchar(2000),
  ParentPath        nvarchar(2000),
  NodeLevel         int,
  IsLastLevel       int,
  FullName          nvarchar(800),
  UserOID           int,
  UserLsh           int,
  isSTUser          int,
  isHeadPosition    int,
  isCapitalPosition int,
  Inputer           nvarchar(200),
  InputTime         datetime,
  Modifier          nvarchar(200),
  ModifyTime        datetime,
  primary key (DjLsh)
) without rowid;

create table if not exists CompanyH (
  Djlsh int           not null,
  ObjID int,
  code  nvarchar(200),
  Name  nvarchar(200),
  Title nvarchar(200),
  primary key (Djlsh)
) without rowid;

create table if not exists DepartmentH (
  Djlsh int           not null,
  ObjID int,
  code  nvarchar(200),
  Name  nvarchar(200),
  Title nvarchar(200),
  primary key (Djlsh)
) without rowid;

-- A document of the platform, read by the name of a department. It is not DepartmentH.
create table if not exists DepartmentsH (
  DjLsh int           not null,
  ID    nvarchar(200),
  Name  nvarchar(200),
  primary key (DjLsh)
) without rowid;

create table if not exists PositionH (
  DjLsh int           not null,
  Code  nvarchar(200),
  Name  nvarchar(200),
  primary key (DjLsh)
) without rowid;

create table if not exists PositionEntityH (
  Djlsh         int           not null,
  ObjID         int,
  code          nvarchar(200),
  Name          nvarchar(200),
  Title         nvarchar(200),
  PositionCode  nvarchar(200),
  UpperPosition int,
  isManager     int           default 0,
  primary key (Djlsh)
) without rowid;

create table if not exists PositionMapH (
  Djlsh         int           not null,
  PositionID    int,
  PositionName  nvarchar(200),
  UpperPosition int,
  MapID         int,
  primary key (Djlsh)
) without rowid;

create table if not exists UserH (
  DjLsh         int           not null,
  ObjID         int,
  code          nvarchar(200),
  name          nvarchar(200),
  title         nvarchar(200),
  birth         nvarchar(30),
  handPhone     nvarchar(50),
  bbsusername   nvarchar(200),
  bbspassword   nvarchar(200),
  sex           nvarchar(20),
  married       int,
  address       nvarchar(500),
  zipcode       nvarchar(20),
  phone         nvarchar(50),
  email         nvarchar(200),
  noteNumber    nvarchar(50),
  isAdmin       int,
  loginPassword nvarchar(1000),
  face          nvarchar(500),
  visual        nvarchar(500),
  customItem1   nvarchar(500),
  customItem2   nvarchar(500),
  customItem3   nvarchar(500),
  primary key (DjLsh)
) without rowid;

create table if not exists STDomains (
  ID         int            not null,
  Code       nvarchar(50),
  Name       nvarchar(50),
  Remark     nvarchar(200),
  ParentID   int,
  NodeLevel  int,
  Sequence   int,
  FullName   nvarchar(4000),
  FullCode   nvarchar(1000),
  ParentCode nvarchar(1000),
  ParentName nvarchar(4000),
  UserLimit  int            default 0,
  RelateOrg  int,
  primary key (ID)
) without rowid;

create table if not exists STDomainMembers (
  DomainID   int not null,
  UserOID    int not null,
  MemberType int not null,
  IsOwned    int not null,
  primary key (DomainID, UserOID, MemberType, IsOwned)
) without rowid;

create table if not exists STDomainInherits (
  AncestorID   int not null,
  DescendantID int not null,
  primary key (AncestorID, DescendantID)
) without rowid;

create table if not exists STDomainPermission (
  DomainID   int not null,
  MenuNodeID int not null,
  primary key (DomainID, MenuNodeID)
) without rowid;

create table if not exists STDomainOAPermission (
  DomainID int not null,
  MenuID   int not null,
  primary key (DomainID, MenuID)
) without rowid;

create table if not exists STDomainWebPermission (
  DomainID int not null,
  ObjID    int not null,
  primary key (DomainID, ObjID)
) without rowid;

create table if not exists STFieldPermissionControl (
  ObjType           int not null,
  ObjDm             int not null,
  XmDm              int not null,
  PermissionControl int,
  primary key (ObjType, ObjDm, XmDm)
) without rowid;

create table if not exists STFieldPermissionSet (
  UserOID      int not null,
  ObjType      int not null,
  ObjDm        int not null,
  XmDm         int not null,
  Permission   int default 0,
  AddReadOnly  int default 0,
  EditReadOnly int default 0,
  primary key (UserOID, ObjType, ObjDm, XmDm)
) without rowid;

create table if not exists WebPermission (
  RoleID     int          not null,
  ObjID      int          not null,
  TypeName   nvarchar(50) not null,
  Operate    nvarchar(50) not null,
  Permission int,
  primary key (RoleID, ObjID, TypeName, Operate)
) without rowid;

create table if not exists OA_MenusH (
  OA_ID int           not null,
  PID   int,
  Name  nvarchar(200),
  Sort  int,
  primary key (OA_ID)
) without rowid;

create table if not exists STOAPermission (
  RoleID     int not null,
  MenuID     int not null,
  Permission int,
  primary key (RoleID, MenuID)
) without rowid;

create table if not exists DocumentTempletH (
  DjLsh int           not null,
  Name  nvarchar(200),
  Title nvarchar(200),
  primary key (DjLsh)
) without rowid;

-- Messages of the platform, kept by it: the console of users removes the rows of an account that it deletes.
create table if not exists ST_msgUser (
  UserID       nvarchar(200),
  userownorder text
);

create table if not exists ST_MsgKu (
  RecUserId nvarchar(200)
);
