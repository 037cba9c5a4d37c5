-- Tables of the host itself in the data database.
--
-- Texts compare byte by byte, trailing blanks included. The server must fold the case of table names
-- (lower_case_table_names=1): the statements name one table in several cases.

-- One row: the version of the installed schema.
create table if not exists ZanSchemaVersion (
  Version     int not null,
  InstalledAt datetime not null,
  primary key (Version)
) character set utf8mb4 collate utf8mb4_nopad_bin;

-- The last number that each counter gave out. Names are kept in lower case.
create table if not exists ZanCounter (
  Name      varchar(100) not null,
  LastValue int not null,
  primary key (Name)
) character set utf8mb4 collate utf8mb4_nopad_bin;
