call MySql_execute_MultiSql('update T set Name = ''it''''s; '' + Note where ID = 5;
with c as (select 1) select 1;')