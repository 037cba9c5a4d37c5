-- Routines of the data database that the statements for SQL Server call.

if object_id(N'P_RefreshPartyParentPath', N'P') is null
  exec (N'create procedure P_RefreshPartyParentPath as return 0');
go

-- What follows from Parent, for every row. A row whose parent is no row is a top: companies (-1), people in the
-- recycle bin (-9), rows that lost their parent.
alter procedure P_RefreshPartyParentPath as
begin
  set nocount on;
  with T (DjLsh, LongName, LongCode, ParentPath, NodeLevel) as (
    select a.DjLsh, cast(isnull(a.Name, N'') as nvarchar(4000)), cast(a.DjLsh as nvarchar(2000)),
           cast(N'' as nvarchar(2000)), 0
      from PartyH a
      left outer join PartyH b on a.Parent = b.DjLsh
     where b.DjLsh is null
    union all
    select a.DjLsh, cast(T.LongName + N'\' + isnull(a.Name, N'') as nvarchar(4000)),
           cast(T.LongCode + N'\' + cast(a.DjLsh as nvarchar(16)) as nvarchar(2000)),
           cast(T.ParentPath + cast(T.DjLsh as nvarchar(16)) + N',' as nvarchar(2000)), T.NodeLevel + 1
      from PartyH a
     inner join T on a.Parent = T.DjLsh)
  update p
     set LongName = T.LongName, LongCode = T.LongCode, ParentPath = T.ParentPath, NodeLevel = T.NodeLevel,
         IsLastLevel = case when exists (select 1 from PartyH c where c.Parent = p.DjLsh) then 0 else 1 end
    from PartyH p
   inner join T on p.DjLsh = T.DjLsh
  option (maxrecursion 1000);
end
go
