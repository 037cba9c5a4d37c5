-- A login belongs to one user. Roles and accounts without a login stay out of it.
begin ZanMake('create unique index UX_STUsers_Login on STUsers (case when uGroup = 0 then UserID end)'); end;
/
