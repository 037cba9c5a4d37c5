call MySql_execute_MultiSql(
Delete From T Where ID=1;
Insert Into T (ID, Parent)
select 1, 'a;b' union all
select 2, 3 ;
)