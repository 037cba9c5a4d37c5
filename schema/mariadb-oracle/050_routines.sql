-- Routines that the statements for Oracle call, and what MariaDB needs in the place of Oracle's own. To be made in
-- both databases: a name without a prefix is looked up in the database of the session.

-- Some statements say getdate() to every server.
create or replace function getdate return date as
begin
  return sysdate;
end;
/

-- In the place of sys.login_user: what stands before a table of the session's database.
create or replace function ZanLoginUser return varchar2 as
begin
  return database();
end;
/

-- In the place of to_char with a format. A format of nines gives a number its width and a place for the sign.
create or replace function ZanToChar(p_value varchar2, p_format varchar2) return varchar2 as
  v_width int := length(p_format) + 1;
begin
  if p_format not like '9%' then
    return to_char(cast(p_value as date), p_format);
  end if;
  if length(abs(round(p_value))) >= v_width then
    return lpad('#', v_width, '#');
  end if;
  return lpad(round(p_value), v_width, ' ');
end;
/

-- What follows from Parent, for every row. A row whose parent is no row is a top: companies (-1), people in the
-- recycle bin (-9), rows that lost their parent.
create or replace procedure P_RefreshPartyParentPath as
begin
  update PartyH a
   inner join (
     with recursive T (DjLsh, LongName, LongCode, ParentPath, NodeLevel) as (
       select a.DjLsh, cast(a.Name as varchar2(2000)), cast(a.DjLsh as varchar2(2000)),
              cast(null as varchar2(2000)), 0
         from PartyH a
         left outer join PartyH b on a.Parent = b.DjLsh
        where b.DjLsh is null
       union all
       select a.DjLsh, T.LongName || '\' || a.Name, T.LongCode || '\' || a.DjLsh,
              T.ParentPath || T.DjLsh || ',', T.NodeLevel + 1
         from PartyH a
        inner join T on a.Parent = T.DjLsh)
     select * from T) p on a.DjLsh = p.DjLsh
    left outer join (select distinct Parent from PartyH) c on a.DjLsh = c.Parent
     set a.LongName = p.LongName, a.LongCode = p.LongCode, a.ParentPath = p.ParentPath,
         a.NodeLevel = p.NodeLevel, a.IsLastLevel = case when c.Parent is null then 1 else 0 end;
end;
/
