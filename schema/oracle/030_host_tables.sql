-- Tables of the host itself in the data database.
--
-- Run by a client that ends a block at "/" (sqlplus, sqlcl). Texts compare exactly under the default NLS_COMP.
-- An empty text is null here.

-- One row: the version of the installed schema.
begin ZanMake('create table ZanSchemaVersion (
  Version     number(10) not null,
  InstalledAt date not null,
  constraint PK_ZanSchemaVersion primary key (Version)
)'); end;
/

-- The last number that each counter gave out. Names are kept in lower case.
begin ZanMake('create table ZanCounter (
  Name      nvarchar2(100) not null,
  LastValue number(10) not null,
  constraint PK_ZanCounter primary key (Name)
)'); end;
/
