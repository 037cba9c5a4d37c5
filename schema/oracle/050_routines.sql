-- Routines of the data database that the statements for Oracle call.

-- Some statements say getdate() to every server.
create or replace function getdate return date as
begin
  return sysdate;
end;
/

-- What follows from Parent, for every row. A row whose parent is no row is a top: companies (-1), people in the
-- recycle bin (-9), rows that lost their parent.
create or replace procedure P_RefreshPartyParentPath as
begin
  merge into PartyH p
  using (
    with T (DjLsh, LongName, LongCode, ParentPath, NodeLevel) as (
      select a.DjLsh, cast(a.Name as nvarchar2(2000)), cast(to_char(a.DjLsh) as nvarchar2(2000)),
             cast(null as nvarchar2(2000)), 0
        from PartyH a
        left outer join PartyH b on a.Parent = b.DjLsh
       where b.DjLsh is null
      union all
      select a.DjLsh, cast(T.LongName || '\' || a.Name as nvarchar2(2000)),
             cast(T.LongCode || '\' || to_char(a.DjLsh) as nvarchar2(2000)),
             cast(T.ParentPath || to_char(T.DjLsh) || ',' as nvarchar2(2000)), T.NodeLevel + 1
        from PartyH a
       inner join T on a.Parent = T.DjLsh)
    select T.*, case when exists (select 1 from PartyH c where c.Parent = T.DjLsh) then 0 else 1 end IsLastLevel
      from T) n
  on (p.DjLsh = n.DjLsh)
  when matched then update
   set p.LongName = n.LongName, p.LongCode = n.LongCode, p.ParentPath = n.ParentPath,
       p.NodeLevel = n.NodeLevel, p.IsLastLevel = n.IsLastLevel;
end;
/

-- Draws the next number of a counter that comes into being at its first use. Nobody else draws meanwhile, and what a
-- caller takes back later keeps its number.
create or replace function ZanNextNumber(p_name nvarchar2, p_lowest number) return number as
  pragma autonomous_transaction;
  v_number number(10);
begin
  lock table ZanCounter in exclusive mode;
  merge into ZanCounter c
  using dual
  on (c.Name = p_name)
  when matched then update
   set c.LastValue = greatest(c.LastValue + 1, p_lowest)
  when not matched then insert (Name, LastValue) values (p_name, p_lowest);
  select LastValue into v_number from ZanCounter where Name = p_name;
  commit;
  return v_number;
end;
/
