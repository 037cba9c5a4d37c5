-- Tables of the system database: menus, the registry of protected objects, definitions of documents and
-- queries. Here they lie in the same file as the data.

create table if not exists Tree (
  NodeID      int           not null,
  NodeAtt     int,
  NodeCaption nvarchar(200),
  NodeLevel   int,
  ParentID    int,
  PrecedID    int,
  NodeDesc    nvarchar(500),
  Functions   text,
  IconNo      int,
  ObjectID    int,
  NeedHide    int           default 0,
  primary key (NodeID)
) without rowid;

-- No key: one console registers an object under a number that is taken.
create table if not exists ObjectRegister (
  ObjectID int not null,
  TypeID   int,
  Object   nvarchar(200),
  OwnerID  int
);

create table if not exists ExFunction (
  SType  nvarchar(20),
  SID    int,
  ID     int,
  Note2  nvarchar(200),
  SDesc  nvarchar(200),
  SOrder int
);

create table if not exists ST_DataParams (
  ParamType  nvarchar(100),
  ID         int,
  ParamName  nvarchar(200),
  ParamValue nvarchar(500),
  ParamDesc  nvarchar(500),
  ParamXML   text
);

create table if not exists MlDy (
  YyDm       int           not null,
  MlDm       int           not null,
  MlDisOrder int,
  MlCName    nvarchar(200),
  primary key (YyDm, MlDm)
) without rowid;

create table if not exists DjDy (
  YyDm    int           not null,
  DjDm    int           not null,
  MlDm    int,
  DjType  int,
  DjCName nvarchar(200),
  primary key (YyDm, DjDm)
) without rowid;

create table if not exists XmDy (
  YyDm              int           not null,
  DjDm              int           not null,
  XmDm              int           not null,
  XmPosition        nvarchar(20),
  XmDisOrder        int,
  XmEName           nvarchar(200),
  XmCName           nvarchar(200),
  XmDataType        nvarchar(50),
  PermissionControl int           default 0,
  primary key (YyDm, DjDm, XmDm)
) without rowid;

create table if not exists CxDy (
  YyDm       int           not null,
  CxDm       int           not null,
  GroupName  nvarchar(200),
  CxDisOrder int,
  CxCName    nvarchar(200),
  primary key (YyDm, CxDm)
) without rowid;

create table if not exists CxXsDy (
  YyDm              int           not null,
  CxDm              int           not null,
  XsDm              int           not null,
  CxDisOrder        int,
  XsEName           nvarchar(200),
  XsCName           nvarchar(200),
  XsDataType        nvarchar(50),
  PermissionControl int           default 0,
  primary key (YyDm, CxDm, XsDm)
) without rowid;

create table if not exists ViewDy (
  YyDm      int           not null,
  ViewDm    int           not null,
  GroupName nvarchar(200),
  ViewCName nvarchar(200),
  primary key (YyDm, ViewDm)
) without rowid;

create table if not exists WebMenu (
  MID          int           not null,
  parent       int,
  Idx          int,
  title        nvarchar(200),
  hrefLink     nvarchar(1000),
  hint         nvarchar(500),
  normalImage  nvarchar(500),
  overImage    nvarchar(500),
  disableImage nvarchar(500),
  target       nvarchar(200),
  expMode      int,
  primary key (MID)
) without rowid;
