-- A company of four accounts and three domains: what the questions of this example read.

create table STUsers (
  OID integer not null unique, UserID text, UserName text, uGroup int, UnUsed int, IsAdministrator int
);
insert into STUsers values
  (1, 'admin', 'Administrator', 0, 0, 1),
  (2, 'lin', '林娟', 0, 0, 0),
  (3, 'hu', '胡伟', 0, 0, 0),
  (4, '', 'Auditors', 1, 0, 0);

create table STUserGroup (UserID int, GroupID int);
insert into STUserGroup values (2, 4);

-- Lin may run menu 11 as an auditor, and menu 12 by a right of her own; menu 13 is denied to her.
create table STPermission (UserID int, ObjectID int, Oprate text, Permission int);
insert into STPermission values
  (4, 11, '执行', 1),
  (2, 12, '执行', 1),
  (4, 13, '执行', 1),
  (2, 13, '执行', 0);

-- Domain 1 holds 2, which holds 3. Lin manages 2, and belongs to 1.
create table STDomains (ID int, Code text, Name text);
insert into STDomains values (1, 'HQ', 'Headquarters'), (2, 'EAST', 'East'), (3, 'SH', 'Shanghai');
create table STDomainInherits (AncestorID int, DescendantID int);
insert into STDomainInherits values (1, 1), (1, 2), (1, 3), (2, 2), (2, 3), (3, 3);
create table STDomainMembers (DomainID int, UserOID int, MemberType int, IsOwned int);
insert into STDomainMembers values (2, 2, 0, 0), (1, 2, 0, 1), (3, 3, 0, 1);
