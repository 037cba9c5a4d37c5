-- A login belongs to one user. Roles and accounts without a login stay out of it. An index takes no expression:
-- the expression is a column.
alter table STUsers add column if not exists
  UserLogin varchar2(200) as (case when uGroup = 0 then UserID end) virtual;
begin ZanMake('create unique index UX_STUsers_Login on STUsers (UserLogin)'); end;
/
