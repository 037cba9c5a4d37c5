-- Makes tables and indexes that are not there yet: scripts for Oracle know no "create if not exists".
-- 1050 and 1061 are the server's numbers for a table and an index that are there.
create or replace procedure ZanMake(p_statement varchar2) as
begin
  execute immediate p_statement;
exception
  when 1050 then null;
  when 1061 then null;
end;
/
