-- Tables of the host itself.

-- One row: the version of the installed schema.
create table if not exists ZanSchemaVersion (
  Version     int      not null,
  InstalledAt datetime not null,
  primary key (Version)
) without rowid;

-- The last number that each counter gave out. Names are kept in lower case.
create table if not exists ZanCounter (
  Name      nvarchar(100) not null,
  LastValue int           not null,
  primary key (Name)
) without rowid;

-- Parameters that plug-ins keep: one text for each group, object and name.
create table if not exists ZanPluginParam (
  ParamGroup nvarchar(100) not null,
  ObjectID   int           not null,
  ParamName  nvarchar(200) not null,
  ParamText  text,
  primary key (ParamGroup, ObjectID, ParamName)
) without rowid;
