-- Makes tables and indexes that are not there yet: Oracle has no "create if not exists".
create or replace procedure ZanMake(p_statement varchar2) authid current_user as
  e_exists exception;
  pragma exception_init(e_exists, -955);
begin
  execute immediate p_statement;
exception
  when e_exists then null;
end;
/
