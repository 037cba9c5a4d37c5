// What the check is for: texts that a server would refuse are refused here.
import assert from "node:assert/strict";
import { test } from "node:test";
import { faultOf } from "./support/grammar.mjs";
import { readSchema } from "./support/schema.mjs";

const broken = {
  both: [
    "insert in to STUserGroup Values(1, 2)",
    "delete from STUsers where OID in (2,1,)",
    "select OID from STUsers where uGroup = 0and UnUsed = 0",
    "select OID from STUsers where UserID = 'it's'",
    "select OID from STUsers where (uGroup = 0",
    "select OID from STUsers where uGroup = 0 order UserName",
    "select OID from from STUsers",
    "select OID, from STUsers",
    "update STUsers set UserName = 'a' UnUsed = 1 where OID = 1",
    "insert into STUserGroup(UserID, GroupID) values(1, 2",
    "select OID from STUser where uGroup = 0",
    "select OIDs from STUsers where uGroup = 0",
    "select a.OID from STUsers a inner join STUserGroup b on a.OID = b.UserOID",
    "begin\r\nupdate STUsers set UnUsed = 1 where OID = 1;",
    "begin\r\nupdate STUsers set UnUsed = 1 where OID = 1;\r\nrubbish;\r\nend;",
    "select OID from STUsers limit 1",
    "select ifnull(UserName, '') from STUsers",
    "select `OID` from STUsers",
    "select * from STUsers where CreateTime < now()",
    "update STUsers set UserName = concat_all('a', 'b')",
    "gibberish",
    "",
  ],
  sqlserver: [
    "select nvl(UserName, '') from STUsers",
    "update STUsers set UserName = UserName || 'x'",
    "update STUsers set CreateTime = sysdate",
    "select 1 from dual",
    "select OID from STUsers where rownum = 1",
    "call P_RefreshPartyParentPath()",
    "exec P_RefreshPartyParentPaths",
    "merge into ZanCounter c using (select 1 Lowest n on c.Name = :Name",
    "select insert(UserName, 1, 2, 'a') from STUsers",
    "select substr(UserName, 1, 2) from STUsers",
  ],
  oracle: [
    "select isnull(UserName, N'') from STUsers",
    "select top 1 OID from STUsers",
    "update STUsers set UserName = UserName + 'x'",
    "select [OID] from STUsers",
    "select 1, 2",
    "select OID from STUsers as u",
    "insert into STUserGroup(UserID, GroupID) values(1, 2), (3, 4)",
    "update a set UnUsed = 1 from STUsers a inner join STUserGroup b on a.OID = b.UserID",
    "exec P_RefreshPartyParentPath",
    "call P_RefreshPartyParentPaths()",
    "select cast(UserName as nvarchar(20)) from STUsers",
    "begin if SQL%ROWCOUNT = 0 insert into STUserGroup(UserID, GroupID) values(1, 2); end if; end;",
  ],
};

const sound = {
  both: [
    "select OID from STUsers where UserID = 'it''s; [a] `b` limit' and UserName = :Name",
    "begin\r\ndelete from STUsers where OID = 1;\r\ndelete from STUserGroup where UserID = 1;\r\nend;",
    "with cte(ID, Up) as (select ID, ParentID from STDomains where ID = 1 union all select a.ID, a.ParentID" +
      " from STDomains a inner join cte b on a.ParentID = b.ID) select ID, Up from cte",
    "update STUsers set CreateTime = getdate() where OID = 1",
  ],
  sqlserver: [
    "exec P_RefreshPartyParentPath",
    "select top 1 a.OID, isnull(b.GroupID, 0) from STUsers a left outer join STUserGroup as b on a.OID = b.UserID",
    "select NodeID from VeshSysDBase.dbo.Tree, data..STUsers u where u.OID = NodeID",
    "begin update STUsers set UnUsed = 1 where OID = 1; if @@ROWCOUNT = 0 insert into STUserGroup values(1, 2); end;",
  ],
  oracle: [
    "call P_RefreshPartyParentPath()",
    "select nvl(a.UserName, '') || 'x', 5 + 1 from STUsers a where rownum = 1",
    "begin update STUsers set UnUsed = 1 where OID = 1; if SQL%ROWCOUNT = 0 then insert into STUserGroup values(1, 2);" +
      " end if; end;",
    "insert into STUserGroup (UserID, GroupID) select 1, 2 from dual union all select 3, 4 from dual",
  ],
};

for (const server of ["sqlserver", "oracle"]) {
  const schema = readSchema(server);
  for (const text of [...broken.both, ...broken[server]])
    test(`${server} refuses: ${text}`, () => assert.notEqual(faultOf(text, server, schema), null));
  for (const text of [...sound.both, ...sound[server]])
    test(`${server} takes: ${text}`, () => assert.equal(faultOf(text, server, schema), null));
}
