-- Tables of the system database: menus, the registry of protected objects, definitions of documents and
-- queries.
--
-- Run by a client that ends a block at "/" (sqlplus, sqlcl). Texts compare exactly under the default NLS_COMP.
-- An empty text is null here.

begin ZanMake('create table Tree (
  NodeID      number(10) not null,
  NodeAtt     number(10),
  NodeCaption nvarchar2(200),
  NodeLevel   number(10),
  ParentID    number(10),
  PrecedID    number(10),
  NodeDesc    nvarchar2(500),
  Functions   nclob,
  IconNo      number(10),
  ObjectID    number(10),
  NeedHide    number(1) default 0,
  constraint PK_Tree primary key (NodeID)
)'); end;
/

-- No key: one console registers an object under a number that is taken.
begin ZanMake('create table ObjectRegister (
  ObjectID number(10) not null,
  TypeID   number(10),
  Object   nvarchar2(200),
  OwnerID  number(10)
)'); end;
/

begin ZanMake('create table ExFunction (
  SType  nvarchar2(20),
  SID    number(10),
  ID     number(10),
  Note2  nvarchar2(200),
  SDesc  nvarchar2(200),
  SOrder number(10)
)'); end;
/

begin ZanMake('create table ST_DataParams (
  ParamType  nvarchar2(100),
  ID         number(10),
  ParamName  nvarchar2(200),
  ParamValue nvarchar2(500),
  ParamDesc  nvarchar2(500),
  ParamXML   nclob
)'); end;
/

begin ZanMake('create table MlDy (
  YyDm       number(10) not null,
  MlDm       number(10) not null,
  MlDisOrder number(10),
  MlCName    nvarchar2(200),
  constraint PK_MlDy primary key (YyDm, MlDm)
)'); end;
/

begin ZanMake('create table DjDy (
  YyDm    number(10) not null,
  DjDm    number(10) not null,
  MlDm    number(10),
  DjType  number(10),
  DjCName nvarchar2(200),
  constraint PK_DjDy primary key (YyDm, DjDm)
)'); end;
/

begin ZanMake('create table XmDy (
  YyDm              number(10) not null,
  DjDm              number(10) not null,
  XmDm              number(10) not null,
  XmPosition        nvarchar2(20),
  XmDisOrder        number(10),
  XmEName           nvarchar2(200),
  XmCName           nvarchar2(200),
  XmDataType        nvarchar2(50),
  PermissionControl number(10) default 0,
  constraint PK_XmDy primary key (YyDm, DjDm, XmDm)
)'); end;
/

begin ZanMake('create table CxDy (
  YyDm       number(10) not null,
  CxDm       number(10) not null,
  GroupName  nvarchar2(200),
  CxDisOrder number(10),
  CxCName    nvarchar2(200),
  constraint PK_CxDy primary key (YyDm, CxDm)
)'); end;
/

begin ZanMake('create table CxXsDy (
  YyDm              number(10) not null,
  CxDm              number(10) not null,
  XsDm              number(10) not null,
  CxDisOrder        number(10),
  XsEName           nvarchar2(200),
  XsCName           nvarchar2(200),
  XsDataType        nvarchar2(50),
  PermissionControl number(10) default 0,
  constraint PK_CxXsDy primary key (YyDm, CxDm, XsDm)
)'); end;
/

begin ZanMake('create table ViewDy (
  YyDm      number(10) not null,
  ViewDm    number(10) not null,
  GroupName nvarchar2(200),
  ViewCName nvarchar2(200),
  constraint PK_ViewDy primary key (YyDm, ViewDm)
)'); end;
/

begin ZanMake('create table WebMenu (
  MID          number(10) not null,
  parent       number(10),
  Idx          number(10),
  title        nvarchar2(200),
  hrefLink     nvarchar2(1000),
  hint         nvarchar2(500),
  normalImage  nvarchar2(500),
  overImage    nvarchar2(500),
  disableImage nvarchar2(500),
  target       nvarchar2(200),
  expMode      number(1),
  constraint PK_WebMenu primary key (MID)
)'); end;
/

-- The older store of rights stands in both databases: objects that leave the registry are deleted from this one.
begin ZanMake('create table Permission (
  UserID     number(10),
  ObjectID   number(10),
  Oprate     nvarchar2(200),
  Permission number(10)
)'); end;
/

-- Of the host itself.
-- Parameters that plug-ins keep: one text for each group, object and name.
begin ZanMake('create table ZanPluginParam (
  ParamGroup nvarchar2(100) not null,
  ObjectID   number(10) not null,
  ParamName  nvarchar2(200) not null,
  ParamText  nclob,
  constraint PK_ZanPluginParam primary key (ParamGroup, ObjectID, ParamName)
)'); end;
/
