-- Tables of the system database: menus, the registry of protected objects, definitions of documents and
-- queries.
--
-- Texts compare byte by byte, trailing blanks included. The server must fold the case of table names
-- (lower_case_table_names=1): the statements name one table in several cases.

create table if not exists Tree (
  NodeID      int not null,
  NodeAtt     int,
  NodeCaption varchar(200),
  NodeLevel   int,
  ParentID    int,
  PrecedID    int,
  NodeDesc    varchar(500),
  Functions   longtext,
  IconNo      int,
  ObjectID    int,
  NeedHide    tinyint default 0,
  primary key (NodeID)
) character set utf8mb4 collate utf8mb4_nopad_bin;

-- No key: one console registers an object under a number that is taken.
create table if not exists ObjectRegister (
  ObjectID int not null,
  TypeID   int,
  Object   varchar(200),
  OwnerID  int
) character set utf8mb4 collate utf8mb4_nopad_bin;

create table if not exists ExFunction (
  SType  varchar(20),
  SID    int,
  ID     int,
  Note2  varchar(200),
  SDesc  varchar(200),
  SOrder int
) character set utf8mb4 collate utf8mb4_nopad_bin;

create table if not exists ST_DataParams (
  ParamType  varchar(100),
  ID         int,
  ParamName  varchar(200),
  ParamValue varchar(500),
  ParamDesc  varchar(500),
  ParamXML   longtext
) character set utf8mb4 collate utf8mb4_nopad_bin;

create table if not exists MlDy (
  YyDm       int not null,
  MlDm       int not null,
  MlDisOrder int,
  MlCName    varchar(200),
  primary key (YyDm, MlDm)
) character set utf8mb4 collate utf8mb4_nopad_bin;

create table if not exists DjDy (
  YyDm    int not null,
  DjDm    int not null,
  MlDm    int,
  DjType  int,
  DjCName varchar(200),
  primary key (YyDm, DjDm)
) character set utf8mb4 collate utf8mb4_nopad_bin;

create table if not exists XmDy (
  YyDm              int not null,
  DjDm              int not null,
  XmDm              int not null,
  XmPosition        varchar(20),
  XmDisOrder        int,
  XmEName           varchar(200),
  XmCName           varchar(200),
  XmDataType        varchar(50),
  PermissionControl int default 0,
  primary key (YyDm, DjDm, XmDm)
) character set utf8mb4 collate utf8mb4_nopad_bin;

create table if not exists CxDy (
  YyDm       int not null,
  CxDm       int not null,
  GroupName  varchar(200),
  CxDisOrder int,
  CxCName    varchar(200),
  primary key (YyDm, CxDm)
) character set utf8mb4 collate utf8mb4_nopad_bin;

create table if not exists CxXsDy (
  YyDm              int not null,
  CxDm              int not null,
  XsDm              int not null,
  CxDisOrder        int,
  XsEName           varchar(200),
  XsCName           varchar(200),
  XsDataType        varchar(50),
  PermissionControl int default 0,
  primary key (YyDm, CxDm, XsDm)
) character set utf8mb4 collate utf8mb4_nopad_bin;

create table if not exists ViewDy (
  YyDm      int not null,
  ViewDm    int not null,
  GroupName varchar(200),
  ViewCName varchar(200),
  primary key (YyDm, ViewDm)
) character set utf8mb4 collate utf8mb4_nopad_bin;

create table if not exists WebMenu (
  MID          int not null,
  parent       int,
  Idx          int,
  title        varchar(200),
  hrefLink     varchar(1000),
  hint         varchar(500),
  normalImage  varchar(500),
  overImage    varchar(500),
  disableImage varchar(500),
  target       varchar(200),
  expMode      tinyint,
  primary key (MID)
) character set utf8mb4 collate utf8mb4_nopad_bin;

-- The older store of rights stands in both databases: objects that leave the registry are deleted from this one.
create table if not exists Permission (
  UserID     int,
  ObjectID   int,
  Oprate     varchar(200),
  Permission int
) character set utf8mb4 collate utf8mb4_nopad_bin;

-- Of the host itself.
-- Parameters that plug-ins keep: one text for each group, object and name.
create table if not exists ZanPluginParam (
  ParamGroup varchar(100) not null,
  ObjectID   int not null,
  ParamName  varchar(200) not null,
  ParamText  longtext,
  primary key (ParamGroup, ObjectID, ParamName)
) character set utf8mb4 collate utf8mb4_nopad_bin;
