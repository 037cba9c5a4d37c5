-- Tables of the data database: accounts, rights, organisation, domains, field permissions.
--
-- Texts compare byte by byte, trailing blanks included. The server must fold the case of table names
-- (lower_case_table_names=1): the statements name one table in several cases.

create table if not exists STUsers (
  OID              int not null,
  UserID           varchar(200),
  UserName         varchar(800),
  UserDesc         varchar(500),
  Password         varchar(1000),
  uGroup           int,
  UnUsed           int default 0,
  IsAdministrator  int default 0,
  Property1        varchar(200),
  Property2        varchar(200),
  Categories       varchar(500),
  DomainUserName   varchar(200),
  Creator          int,
  CreatorName      varchar(200),
  CreateTime       datetime,
  ModifierName     varchar(200),
  ModifyTime       datetime,
  EmpowermentRight int default 0,
  RelateOrg        int,
  RelateUserH      int,
  -- The login of a user and null for all others: what the unique index looks at.
  UserLogin varchar(200) generated always as (case when uGroup = 0 and UserID <> '' then UserID end) virtual,
  primary key (OID)
) character set utf8mb4 collate utf8mb4_nopad_bin;

-- No key: a membership may be written twice (appending people to a position does not look first).
create table if not exists STUserGroup (
  UserID  int not null,
  GroupID int not null
) character set utf8mb4 collate utf8mb4_nopad_bin;

create table if not exists STUserPasswordStrategy (
  UserID         varchar(200) not null,
  NeedReset      tinyint default 0,
  CanModify      tinyint default 1,
  NeverExpires   tinyint default 0,
  LastModifyTime datetime,
  primary key (UserID)
) character set utf8mb4 collate utf8mb4_nopad_bin;

-- A row that is inserted without a value for Permission allows.
create table if not exists STPermission (
  UserID     int not null,
  ObjectID   int not null,
  Oprate     varchar(200) not null,
  Permission int default 1,
  primary key (UserID, ObjectID, Oprate)
) character set utf8mb4 collate utf8mb4_nopad_bin;

-- The older store of rights: two statements still delete from it, nothing reads or fills it.
create table if not exists Permission (
  UserID     int,
  ObjectID   int,
  Oprate     varchar(200),
  Permission int
) character set utf8mb4 collate utf8mb4_nopad_bin;

create table if not exists PartyH (
  DjLsh             int not null,
  Parent            int,
  Type              varchar(20),
  Name              varchar(200),
  Title             varchar(200),
  Code              varchar(200),
  Sequence          int,
  IsActive          tinyint,
  LongName          varchar(4000),
  LongCode          varchar(2000),
  ParentPath        varchar(2000),
  NodeLevel         int,
  IsLastLevel       int,
  FullName          varchar(800),
  UserOID           int,
  UserLsh           int,
  isSTUser          int,
  isHeadPosition    int,
  isCapitalPosition int,
  Inputer           varchar(200),
  InputTime         datetime,
  Modifier          varchar(200),
  ModifyTime        datetime,
  primary key (DjLsh)
) character set utf8mb4 collate utf8mb4_nopad_bin;

create table if not exists CompanyH (
  Djlsh int not null,
  ObjID int,
  code  varchar(200),
  Name  varchar(200),
  Title varchar(200),
  primary key (Djlsh)
) character set utf8mb4 collate utf8mb4_nopad_bin;

create table if not exists DepartmentH (
  Djlsh int not null,
  ObjID int,
  code  varchar(200),
  Name  varchar(200),
  Title varchar(200),
  primary key (Djlsh)
) character set utf8mb4 collate utf8mb4_nopad_bin;

-- A document of the platform, read by the name of a department. It is not DepartmentH.
create table if not exists DepartmentsH (
  DjLsh int not null,
  ID    varchar(200),
  Name  varchar(200),
  primary key (DjLsh)
) character set utf8mb4 collate utf8mb4_nopad_bin;

create table if not exists PositionH (
  DjLsh int not null,
  Code  varchar(200),
  Name  varchar(200),
  primary key (DjLsh)
) character set utf8mb4 collate utf8mb4_nopad_bin;

create table if not exists PositionEntityH (
  Djlsh         int not null,
  ObjID         int,
  code          varchar(200),
  Name          varchar(200),
  Title         varchar(200),
  PositionCode  varchar(200),
  UpperPosition int,
  isManager     int default 0,
  primary key (Djlsh)
) character set utf8mb4 collate utf8mb4_nopad_bin;

create table if not exists PositionMapH (
  Djlsh         int not null,
  PositionID    int,
  PositionName  varchar(200),
  UpperPosition int,
  MapID         int,
  primary key (Djlsh)
) character set utf8mb4 collate utf8mb4_nopad_bin;

create table if not exists UserH (
  DjLsh         int not null,
  ObjID         int,
  code          varchar(200),
  name          varchar(200),
  title         varchar(200),
  birth         varchar(30),
  handPhone     varchar(50),
  bbsusername   varchar(200),
  bbspassword   varchar(200),
  sex           varchar(20),
  married       tinyint,
  address       varchar(500),
  zipcode       varchar(20),
  phone         varchar(50),
  email         varchar(200),
  noteNumber    varchar(50),
  isAdmin       tinyint,
  loginPassword varchar(1000),
  face          varchar(500),
  visual        varchar(500),
  customItem1   varchar(500),
  customItem2   varchar(500),
  customItem3   varchar(500),
  primary key (DjLsh)
) character set utf8mb4 collate utf8mb4_nopad_bin;

create table if not exists STDomains (
  ID         int not null,
  Code       varchar(50),
  Name       varchar(50),
  Remark     varchar(200),
  ParentID   int,
  NodeLevel  int,
  Sequence   int,
  FullName   varchar(4000),
  FullCode   varchar(1000),
  ParentCode varchar(1000),
  ParentName varchar(4000),
  UserLimit  int default 0,
  RelateOrg  int,
  primary key (ID)
) character set utf8mb4 collate utf8mb4_nopad_bin;

create table if not exists STDomainMembers (
  DomainID   int not null,
  UserOID    int not null,
  MemberType int not null,
  IsOwned    int not null,
  primary key (DomainID, UserOID, MemberType, IsOwned)
) character set utf8mb4 collate utf8mb4_nopad_bin;

create table if not exists STDomainInherits (
  AncestorID   int not null,
  DescendantID int not null,
  primary key (AncestorID, DescendantID)
) character set utf8mb4 collate utf8mb4_nopad_bin;

create table if not exists STDomainPermission (
  DomainID   int not null,
  MenuNodeID int not null,
  primary key (DomainID, MenuNodeID)
) character set utf8mb4 collate utf8mb4_nopad_bin;

create table if not exists STDomainOAPermission (
  DomainID int not null,
  MenuID   int not null,
  primary key (DomainID, MenuID)
) character set utf8mb4 collate utf8mb4_nopad_bin;

create table if not exists STDomainWebPermission (
  DomainID int not null,
  ObjID    int not null,
  primary key (DomainID, ObjID)
) character set utf8mb4 collate utf8mb4_nopad_bin;

create table if not exists STFieldPermissionControl (
  ObjType           int not null,
  ObjDm             int not null,
  XmDm              int not null,
  PermissionControl int,
  primary key (ObjType, ObjDm, XmDm)
) character set utf8mb4 collate utf8mb4_nopad_bin;

create table if not exists STFieldPermissionSet (
  UserOID      int not null,
  ObjType      int not null,
  ObjDm        int not null,
  XmDm         int not null,
  Permission   int default 0,
  AddReadOnly  int default 0,
  EditReadOnly int default 0,
  primary key (UserOID, ObjType, ObjDm, XmDm)
) character set utf8mb4 collate utf8mb4_nopad_bin;

create table if not exists WebPermission (
  RoleID     int not null,
  ObjID      int not null,
  TypeName   varchar(50) not null,
  Operate    varchar(50) not null,
  Permission int,
  primary key (RoleID, ObjID, TypeName, Operate)
) character set utf8mb4 collate utf8mb4_nopad_bin;

create table if not exists OA_MenusH (
  OA_ID int not null,
  PID   int,
  Name  varchar(200),
  Sort  int,
  primary key (OA_ID)
) character set utf8mb4 collate utf8mb4_nopad_bin;

create table if not exists STOAPermission (
  RoleID     int not null,
  MenuID     int not null,
  Permission int,
  primary key (RoleID, MenuID)
) character set utf8mb4 collate utf8mb4_nopad_bin;

create table if not exists DocumentTempletH (
  DjLsh int not null,
  Name  varchar(200),
  Title varchar(200),
  primary key (DjLsh)
) character set utf8mb4 collate utf8mb4_nopad_bin;

-- Messages of the platform, kept by it: the console of users removes the rows of an account that it deletes.
create table if not exists ST_msgUser (
  UserID       varchar(200),
  userownorder longtext
) character set utf8mb4 collate utf8mb4_nopad_bin;

create table if not exists ST_MsgKu (
  RecUserId varchar(200)
) character set utf8mb4 collate utf8mb4_nopad_bin;
