-- Tables of the system database: menus, the registry of protected objects, definitions of documents and
-- queries.
--
-- Texts are of a binary collation, column by column: the database keeps a collation without regard to case,
-- since the statements name one table in several cases.

if object_id(N'Tree', N'U') is null
create table Tree (
  NodeID      int not null,
  NodeAtt     int,
  NodeCaption nvarchar(200) collate Latin1_General_100_BIN2,
  NodeLevel   int,
  ParentID    int,
  PrecedID    int,
  NodeDesc    nvarchar(500) collate Latin1_General_100_BIN2,
  Functions   nvarchar(max) collate Latin1_General_100_BIN2,
  IconNo      int,
  ObjectID    int,
  NeedHide    bit default 0,
  constraint PK_Tree primary key (NodeID)
);

-- No key: one console registers an object under a number that is taken.
if object_id(N'ObjectRegister', N'U') is null
create table ObjectRegister (
  ObjectID int not null,
  TypeID   int,
  Object   nvarchar(200) collate Latin1_General_100_BIN2,
  OwnerID  int
);

if object_id(N'ExFunction', N'U') is null
create table ExFunction (
  SType  nvarchar(20) collate Latin1_General_100_BIN2,
  SID    int,
  ID     int,
  Note2  nvarchar(200) collate Latin1_General_100_BIN2,
  SDesc  nvarchar(200) collate Latin1_General_100_BIN2,
  SOrder int
);

if object_id(N'ST_DataParams', N'U') is null
create table ST_DataParams (
  ParamType  nvarchar(100) collate Latin1_General_100_BIN2,
  ID         int,
  ParamName  nvarchar(200) collate Latin1_General_100_BIN2,
  ParamValue nvarchar(500) collate Latin1_General_100_BIN2,
  ParamDesc  nvarchar(500) collate Latin1_General_100_BIN2,
  ParamXML   nvarchar(max) collate Latin1_General_100_BIN2
);

if object_id(N'MlDy', N'U') is null
create table MlDy (
  YyDm       int not null,
  MlDm       int not null,
  MlDisOrder int,
  MlCName    nvarchar(200) collate Latin1_General_100_BIN2,
  constraint PK_MlDy primary key (YyDm, MlDm)
);

if object_id(N'DjDy', N'U') is null
create table DjDy (
  YyDm    int not null,
  DjDm    int not null,
  MlDm    int,
  DjType  int,
  DjCName nvarchar(200) collate Latin1_General_100_BIN2,
  constraint PK_DjDy primary key (YyDm, DjDm)
);

if object_id(N'XmDy', N'U') is null
create table XmDy (
  YyDm              int not null,
  DjDm              int not null,
  XmDm              int not null,
  XmPosition        nvarchar(20) collate Latin1_General_100_BIN2,
  XmDisOrder        int,
  XmEName           nvarchar(200) collate Latin1_General_100_BIN2,
  XmCName           nvarchar(200) collate Latin1_General_100_BIN2,
  XmDataType        nvarchar(50) collate Latin1_General_100_BIN2,
  PermissionControl int default 0,
  constraint PK_XmDy primary key (YyDm, DjDm, XmDm)
);

if object_id(N'CxDy', N'U') is null
create table CxDy (
  YyDm       int not null,
  CxDm       int not null,
  GroupName  nvarchar(200) collate Latin1_General_100_BIN2,
  CxDisOrder int,
  CxCName    nvarchar(200) collate Latin1_General_100_BIN2,
  constraint PK_CxDy primary key (YyDm, CxDm)
);

if object_id(N'CxXsDy', N'U') is null
create table CxXsDy (
  YyDm              int not null,
  CxDm              int not null,
  XsDm              int not null,
  CxDisOrder        int,
  XsEName           nvarchar(200) collate Latin1_General_100_BIN2,
  XsCName           nvarchar(200) collate Latin1_General_100_BIN2,
  XsDataType        nvarchar(50) collate Latin1_General_100_BIN2,
  PermissionControl int default 0,
  constraint PK_CxXsDy primary key (YyDm, CxDm, XsDm)
);

if object_id(N'ViewDy', N'U') is null
create table ViewDy (
  YyDm      int not null,
  ViewDm    int not null,
  GroupName nvarchar(200) collate Latin1_General_100_BIN2,
  ViewCName nvarchar(200) collate Latin1_General_100_BIN2,
  constraint PK_ViewDy primary key (YyDm, ViewDm)
);

if object_id(N'WebMenu', N'U') is null
create table WebMenu (
  MID          int not null,
  parent       int,
  Idx          int,
  title        nvarchar(200) collate Latin1_General_100_BIN2,
  hrefLink     nvarchar(1000) collate Latin1_General_100_BIN2,
  hint         nvarchar(500) collate Latin1_General_100_BIN2,
  normalImage  nvarchar(500) collate Latin1_General_100_BIN2,
  overImage    nvarchar(500) collate Latin1_General_100_BIN2,
  disableImage nvarchar(500) collate Latin1_General_100_BIN2,
  target       nvarchar(200) collate Latin1_General_100_BIN2,
  expMode      bit,
  constraint PK_WebMenu primary key (MID)
);

-- The older store of rights stands in both databases: objects that leave the registry are deleted from this one.
if object_id(N'Permission', N'U') is null
create table Permission (
  UserID     int,
  ObjectID   int,
  Oprate     nvarchar(200) collate Latin1_General_100_BIN2,
  Permission int
);

-- Of the host itself.
-- Parameters that plug-ins keep: one text for each group, object and name.
if object_id(N'ZanPluginParam', N'U') is null
create table ZanPluginParam (
  ParamGroup nvarchar(100) collate Latin1_General_100_BIN2 not null,
  ObjectID   int not null,
  ParamName  nvarchar(200) collate Latin1_General_100_BIN2 not null,
  ParamText  nvarchar(max) collate Latin1_General_100_BIN2,
  constraint PK_ZanPluginParam primary key (ParamGroup, ObjectID, ParamName)
);
