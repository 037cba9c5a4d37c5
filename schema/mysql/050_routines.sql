-- Routines that the statements for MySQL call. To be made in both databases: a name without a prefix is looked
-- up in the database of the session.
--
-- The mode in force here stays with the routines. Without NO_BACKSLASH_ESCAPES the backslashes of paths would
-- vanish from the statements that these routines run.
set session sql_mode = 'STRICT_TRANS_TABLES,NO_ENGINE_SUBSTITUTION,NO_BACKSLASH_ESCAPES,PIPES_AS_CONCAT';
delimiter $$

create or replace function DB_NAME() returns varchar(64) character set utf8mb4
  deterministic no sql sql security invoker
return database() $$

-- Some statements say GetDate() to every server.
create or replace function GetDate() returns datetime
  not deterministic no sql sql security invoker
return now() $$

-- Where the statement that begins at p_from ends: the place of its ";", or 0 when p_text ends before it does.
-- Quotes (a doubled one closes and opens again) and comments hide what is in them.
-- The text is looked at through a window: cutting a long text at each mark would cost the square of its length.
create or replace function ZanStatementEnd(p_text longtext character set utf8mb4, p_from int) returns int
  deterministic no sql sql security invoker
begin
  declare v_base int default p_from;
  declare v_window varchar(1024) character set utf8mb4 collate utf8mb4_bin;
  declare v_in, v_found int;
  -- What ends the hidden piece; empty outside of one.
  declare v_mark varchar(2) character set utf8mb4 collate utf8mb4_bin default '';
  loop
    set v_window = substring(p_text, v_base, 1024), v_in = 1;
    look: loop
      if v_mark = '' then
        set v_found = regexp_instr(substring(v_window, v_in), '[;''"`]|--[[:space:]]|/[*]');
        if v_found = 0 then leave look; end if;
        set v_in = v_in + v_found - 1, v_mark = substring(v_window, v_in, 1);
        case v_mark
          when ';' then return v_base + v_in - 1;
          when '-' then set v_mark = char(10 using utf8mb4), v_in = v_in + 2;
          when '/' then set v_mark = '*/', v_in = v_in + 2;
          else set v_in = v_in + 1;
        end case;
      else
        set v_found = locate(v_mark, v_window, v_in);
        if v_found = 0 then leave look; end if;
        set v_in = v_found + char_length(v_mark), v_mark = '';
      end if;
    end loop;
    if char_length(v_window) < 1024 then return 0; end if;
    -- A mark of several signs may lie across the end of the window: the last two are looked at again.
    set v_base = v_base + greatest(v_in - 1, 1022);
  end loop;
end $$

create or replace procedure ZanExecute(in p_statement longtext character set utf8mb4)
  modifies sql data sql security invoker
begin
  if p_statement regexp '[^[:space:]]' then
    set @ZanStatement = p_statement;
    prepare ZanPrepared from @ZanStatement;
    execute ZanPrepared;
    deallocate prepare ZanPrepared;
  end if;
end $$

-- Runs the statements of a text, separated by ";", all of them or none. A select among them gives its result
-- to the caller.
-- The text is taken piece by piece, and cut once for each piece: cutting a long text for each statement would
-- cost the square of its length.
create or replace procedure MySql_execute_MultiSql(in p_sql longtext character set utf8mb4)
  modifies sql data sql security invoker
begin
  declare v_rest longtext character set utf8mb4 default p_sql;
  declare v_piece longtext character set utf8mb4;
  declare v_size int default 2048;
  declare v_start, v_end int;
  declare exit handler for sqlexception begin rollback; resignal; end;
  start transaction;
  while v_rest <> '' do
    set v_piece = left(v_rest, v_size), v_start = 1, v_end = ZanStatementEnd(v_piece, 1);
    while v_end > 0 do
      call ZanExecute(substring(v_piece, v_start, v_end - v_start));
      set v_start = v_end + 1;
      set v_end = ZanStatementEnd(v_piece, v_start);
    end while;
    if v_start > 1 then
      set v_rest = substring(v_rest, v_start), v_size = 2048;
    elseif char_length(v_rest) <= v_size then
      call ZanExecute(v_rest);
      set v_rest = '';
    else
      set v_size = v_size * 2;
    end if;
  end while;
  commit;
end $$

-- Whether the row is there is asked first: the count of rows of an update leaves out those that stay as they are.
create or replace procedure Mysql_Update_STUserPasswordStrategy(
    in p_login varchar(200) character set utf8mb4, in p_reset int, in p_modify int, in p_never int)
  modifies sql data sql security invoker
begin
  if exists (select 1 from STUserPasswordStrategy where UserID = p_login) then
    update STUserPasswordStrategy
       set NeedReset = p_reset, CanModify = p_modify, NeverExpires = p_never
     where UserID = p_login;
  else
    insert into STUserPasswordStrategy (UserID, NeedReset, CanModify, NeverExpires)
    values (p_login, p_reset, p_modify, p_never);
  end if;
end $$

-- What follows from Parent, for every row. A row whose parent is no row is a top: companies (-1), people in the
-- recycle bin (-9), rows that lost their parent.
create or replace procedure P_RefreshPartyParentPath()
  modifies sql data sql security invoker
begin
  update PartyH a
   inner join (
     with recursive T (DjLsh, LongName, LongCode, ParentPath, NodeLevel) as (
       select a.DjLsh, cast(ifnull(a.Name, '') as char(4000)), cast(a.DjLsh as char(2000)),
              cast('' as char(2000)), 0
         from PartyH a
         left outer join PartyH b on a.Parent = b.DjLsh
        where b.DjLsh is null
       union all
       select a.DjLsh, concat(T.LongName, '\', ifnull(a.Name, '')), concat(T.LongCode, '\', a.DjLsh),
              concat(T.ParentPath, T.DjLsh, ','), T.NodeLevel + 1
         from PartyH a
        inner join T on a.Parent = T.DjLsh)
     select * from T) p on a.DjLsh = p.DjLsh
    left outer join (select distinct Parent from PartyH) c on a.DjLsh = c.Parent
     set a.LongName = p.LongName, a.LongCode = p.LongCode, a.ParentPath = p.ParentPath,
         a.NodeLevel = p.NodeLevel, a.IsLastLevel = if(c.Parent is null, 1, 0);
end $$

-- FullName of a node and of all below it but people, and with it the names of the roles of positions.
create or replace procedure MySql_SetOrgFullName(in p_node int)
  modifies sql data sql security invoker
begin
  declare exit handler for sqlexception begin rollback; resignal; end;
  start transaction;
  update PartyH a
   inner join (
     with recursive T (DjLsh, FullName) as (
       select a.DjLsh, cast(concat(ifnull(ifnull(b.FullName, b.Title), ''), a.Title) as char(800))
         from PartyH a
         left outer join PartyH b on a.Parent = b.DjLsh
        where a.DjLsh = p_node
       union all
       select a.DjLsh, left(concat(T.FullName, a.Title), 800)
         from PartyH a
        inner join T on a.Parent = T.DjLsh
        where a.Type <> 'User')
     select * from T) p on a.DjLsh = p.DjLsh
     set a.FullName = p.FullName;
  update STUsers u
   inner join (
     with recursive T (DjLsh) as (
       select DjLsh from PartyH where DjLsh = p_node
       union all
       select a.DjLsh from PartyH a inner join T on a.Parent = T.DjLsh where a.Type <> 'User')
     select a.UserOID, a.FullName
       from PartyH a
      inner join T on a.DjLsh = T.DjLsh
      where a.Type = 'PositionEntity') p on u.OID = p.UserOID
     set u.UserName = p.FullName
   where u.uGroup = 1;
  commit;
end $$

-- The domain and all below it with the paths that follow from their names; both paths end with a backslash.
create or replace procedure MySql_STDomainsGetFullName(in p_domain int)
  reads sql data sql security invoker
  with recursive T (ID, ParentName, FullName) as (
    select ID, cast(ParentName as char(4000)), cast(concat(ParentName, Name, '\') as char(4000))
      from STDomains
     where ID = p_domain
    union all
    select a.ID, T.FullName, concat(T.FullName, a.Name, '\')
      from STDomains a
     inner join T on a.ParentID = T.ID)
  select ID, ParentName, FullName from T $$

-- Called in the system database: objects of the entries that open the graded console, and of all above them.
create or replace procedure MySql_RatingPermissionTreeNodes()
  reads sql data sql security invoker
  with recursive T (NodeID, ParentID, ObjectID) as (
    select NodeID, ParentID, ObjectID from Tree where Functions like '函数分级权限管理(%'
    union all
    select a.NodeID, a.ParentID, a.ObjectID from Tree a inner join T on a.NodeID = T.ParentID)
  select ObjectID from T where ObjectID > 0 $$

-- Names from the top down to a node, a backslash between them. For a person the path of his department, or of
-- the company that he manages.
create or replace function get_UserFullDeptName(p_node int) returns varchar(4000) character set utf8mb4
  reads sql data sql security invoker
begin
  declare v_node int default p_node;
  declare v_path varchar(4000) character set utf8mb4;
  select if(b.Type = 'PositionEntity', b.Parent, b.DjLsh) into v_node
    from PartyH a inner join PartyH b on a.Parent = b.DjLsh
   where a.DjLsh = p_node and a.Type = 'User';
  with recursive T (Parent, Path, Height) as (
    select Parent, cast(Name as char(4000)), 0 from PartyH where DjLsh = v_node
    union all
    select a.Parent, concat(a.Name, '\', T.Path), T.Height + 1 from PartyH a inner join T on a.DjLsh = T.Parent)
  select Path into v_path from T order by Height desc limit 1;
  return v_path;
end $$

-- Number of nodes above a node; null for none.
create or replace function get_Parthh_Nodelevel(p_node int) returns int
  reads sql data sql security invoker
begin
  declare v_level int;
  with recursive T (Parent, Height) as (
    select Parent, 0 from PartyH where DjLsh = p_node
    union all
    select a.Parent, T.Height + 1 from PartyH a inner join T on a.DjLsh = T.Parent)
  select max(Height) into v_level from T;
  return v_level;
end $$

-- The nodes of a comma list and all above them, as a comma list.
create or replace function Get_Partyh_Parent_DjLsh(p_list longtext character set utf8mb4)
  returns longtext character set utf8mb4
  reads sql data sql security invoker
begin
  declare v_found longtext character set utf8mb4;
  set session group_concat_max_len = 16777216;
  with recursive T (DjLsh, Parent) as (
    select DjLsh, Parent from PartyH where find_in_set(DjLsh, replace(p_list, ' ', ''))
    union
    select a.DjLsh, a.Parent from PartyH a inner join T on a.DjLsh = T.Parent)
  select group_concat(DjLsh order by DjLsh separator ',') into v_found from T;
  return v_found;
end $$

-- The nodes of a comma list and all below them, as a comma list.
create or replace function Get_Partyh_Children_DjLsh(p_list longtext character set utf8mb4)
  returns longtext character set utf8mb4
  reads sql data sql security invoker
begin
  declare v_found longtext character set utf8mb4;
  set session group_concat_max_len = 16777216;
  with recursive T (DjLsh) as (
    select DjLsh from PartyH where find_in_set(DjLsh, replace(p_list, ' ', ''))
    union
    select a.DjLsh from PartyH a inner join T on a.Parent = T.DjLsh)
  select group_concat(DjLsh order by DjLsh separator ',') into v_found from T;
  return v_found;
end $$

delimiter ;
