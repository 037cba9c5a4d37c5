-- Tables of the host itself in the data database.
--
-- Texts are of a binary collation, column by column: the database keeps a collation without regard to case,
-- since the statements name one table in several cases.

-- One row: the version of the installed schema.
if object_id(N'ZanSchemaVersion', N'U') is null
create table ZanSchemaVersion (
  Version     int not null,
  InstalledAt datetime not null,
  constraint PK_ZanSchemaVersion primary key (Version)
);

-- The last number that each counter gave out. Names are kept in lower case.
if object_id(N'ZanCounter', N'U') is null
create table ZanCounter (
  Name      nvarchar(100) collate Latin1_General_100_BIN2 not null,
  LastValue int not null,
  constraint PK_ZanCounter primary key (Name)
);
