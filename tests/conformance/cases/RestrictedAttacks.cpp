#include <chrono>
#include <fstream>
#include <sstream>

#include "host/query/Trace.h"
#include "tests/conformance/cases/RestrictedWorld.h"
#include "tests/conformance/faults/TableDump.h"
#include "tests/support/TemporaryFolder.h"

// What callers who write a part of a statement do not get from a restricted session: a password, a change, a
// second statement, a file, or more than a few seconds.

namespace zantest {

namespace {

const char* const kBothEngines[]{
    // Read a password, or ask about one.
    "(select Password from STUsers where OID=1)",
    "(select max(loginPassword) from UserH)",
    "(select max(bbsPassword) from main.UserH)",
    "(select max(u.[Password]) from STUsers u)",
    "(select max(u.\"Password\") from STUsers u)",
    "(select max(u.`Password`) from STUsers u)",
    "(select count(*) from STUsers where Password like 'geheim%')",
    "(select UserID from STUsers order by Password limit 1)",
    "(select UserID from STUsers group by UserID, Password limit 1)",
    "(select max(x) from (select Password x from STUsers) y)",
    "(select count(*) from (select * from STUsers) y)",
    "* from STUsers where OID = 1 --",
    "Name from STDomains union select Password from STUsers -- ",
    "Name from STDomains union all select loginPassword from UserH order by 1 desc #",
    "(select max(case when Password > 'a' then 1 else 0 end) from STUsers)",
    // Joins by columns that are not named, which engines do not look at.
    "(select count(*) from STUsers natural join (select 'geheim-4711' as Password) g)",
    "(select count(*) from STUsers join (select 'geheim-4711' as Password) g using (Password))",
    "(select count(*) from STUsers NaTuRal\tleft join (select 'geheim-4711' as 'Password') g)",
    "(select count(*) from STUsers /*!natural*/ join (select 'geheim-4711' as Password) g)",
    "(select count(*) from STDomains a join STUsers b on 1=1.natural join (select 'geheim-4711' as Password) "
    "g)",
    "(select count(*) from STDomains a join STUsers b on \\Nnatural join (select 'geheim-4711' as Password) "
    "g)",
    "(select count(*) from STUsers \xEF\xBB\xBFnatural join (select 'geheim-4711' as Password) g)",
    "(select count(*) from STUsers # '\nnatural join (select 'geheim-4711' as Password) g -- '\n)",
    // A second statement, or one that is no select.
    "1; delete from STDomains",
    "1; select Password from STUsers",
    "1; begin; update STUsers set Password = ''; end;",
    // What grows without end.
    "(with recursive c(n) as (select 1 union all select n + 1 from c) select max(n) from c)",
    "(select max(n) from (with c(n) as (select 1 union all select n + 1 from c) select n from c) x)",
    // A parameter is none of the caller's business.
    ":Name",
};

const char* const kSqlite[]{
    "load_extension('x')",
    "readfile('/etc/passwd')",
    "randomblob(1000000000)",
    "zeroblob(1000000000)",
    "printf('%1000000000d', 1)",
    "fts3_tokenizer('simple')",
    "(select group_concat(name) from pragma_table_info('STUsers'))",
    "(select count(*) from pragma_database_list)",
    "(select count(*) from dbstat)",
    "(select max(sql) from sqlite_stmt)",
    "(select max(value) from json_each('[1]'))",
    "(select max(ParamText) from ZanPluginParam)",
    "(select count(*) from sqlite_temp_master)",
};

const char* const kMariaDb[]{
    "1 into outfile '/tmp/zan_restricted' --",
    "1 from STDomains into dumpfile '/tmp/zan_restricted' --",
    "1 into @x --",
    "(select max(Host) from mysql.user)",
    "(select max(Priv) from mysql.global_priv)",
    "Name from STDomains where ID = 1 for update --",
    "Name from STDomains where ID = 1 lock in share mode --",
    "get_UserFullDeptName(1)",
    "(select max(ParamText) from ZanPluginParam)",
    "(select 1 /*! ; delete from STDomains */ + 1)",
};

std::string WhatStandsIn(const std::filesystem::path& file) {
  std::ifstream stream(file);
  std::stringstream text;
  text << stream.rdbuf();
  return text.str();
}

/// A caller without scruples before the functions of a restricted session.
class TAttacker {
 public:
  TAttacker(TEngine& engine, zanhost::TDatabase& database)
      : World(engine, database), FTrace((FFolder / "trace").string()) {
    World.Restricted->SetTrace(&FTrace);
  }
  ~TAttacker() { World.Restricted->SetTrace(nullptr); }

  /// The text in the place of a field, and of a condition.
  void TryEverywhere(const std::string& text) {
    Try("GetDomainInfo", {{"返回内容", text}, {"查询条件", ""}});
    Try("GetDomainInfo", {{"返回内容", "Name"}, {"查询条件", "1 = " + text}});
    Try("GetDomains", {{"返回内容", text}, {"查询范围", "Auth"}, {"是否包含下级域", "false"}});
    for (const char* function : {"GetDomainUsers", "GetDomainRoles", "GetDomainManagers"})
      Try(function, {{"返回内容", text}, {"查询范围", "Auth"}, {"是否包含下级域", "true"}});
  }

  void Try(const std::string& function, const TFunctionInputs& inputs) {
    const std::string answer = CallOn(*World.Restricted, 1, function, inputs);
    EXPECT_TRUE(answer.starts_with("! ")) << function << testing::PrintToString(inputs) << " gave " << answer;
    EXPECT_EQ(answer.find(kPassword), std::string::npos) << answer;
  }

  std::string Trace() const { return WhatStandsIn(FFolder / "trace"); }

  TRestrictedWorld World;

 private:
  TTemporaryFolder FFolder;
  zanhost::TTrace FTrace;
};

}  // namespace

TEST_P(Conformance, Restricted_AttacksAreRefusedAndChangeNothing) {
  if (!TRestrictedWorld::CanBeRestricted(Engine())) GTEST_SKIP() << "no restricted session over ODBC";
  TAttacker attacker(Engine(), Database());
  const TTables tables(Engine(), Database());
  const TTableDump before = tables.Dump();
  for (const char* const text : kBothEngines) attacker.TryEverywhere(text);
  if (Database().Server() == zanhost::TServerKind::Sqlite)
    for (const char* const text : kSqlite) attacker.TryEverywhere(text);
  else
    for (const char* const text : kMariaDb) attacker.TryEverywhere(text);
  attacker.Try("CheckDomainAuthByCode",
               {{"域代码", "x' or exists (select 1 from STUsers where Password like 'geheim%') or '1'='2"}});
  attacker.Try("CheckDomainAuthByName", {{"域名称", "x' union select Password from STUsers where '1'='1"}});
  attacker.Try("CheckDomainAuthByNodeCode", {{"域代码", "x'; delete from STDomains where '1'='1"}});
  attacker.Try("RoleSuperiorAllEx", {{"当前用户", "x' union select Password from STUsers where '1'='1"}});
  EXPECT_EQ(Difference(tables.Dump(), before), "");
  EXPECT_NE(attacker.Trace(), "");
  EXPECT_EQ(attacker.Trace().find(kPassword), std::string::npos);
}

TEST_P(Conformance, Restricted_ARefusalTellsWhyWithoutAValue) {
  if (!TRestrictedWorld::CanBeRestricted(Engine())) GTEST_SKIP() << "no restricted session over ODBC";
  TRestrictedWorld world(Engine(), Database());
  const auto ask = [&](const char* field) {
    return CallOn(*world.Restricted, 1, "GetDomainInfo", {{"返回内容", field}, {"查询条件", ""}});
  };
  const std::string column = ask("(select Password from STUsers where OID = 1)");
  EXPECT_NE(column.find("assword"), std::string::npos) << column;
  const bool embedded = Database().Server() == zanhost::TServerKind::Sqlite;
  EXPECT_NE(column.find(embedded ? "is not read here" : "does not let the restricted user"),
            std::string::npos)
      << column;
  EXPECT_NE(ask("1; delete from STDomains").find("Only a single select"), std::string::npos);
  EXPECT_NE(ask("(select 1 from STDomains natural join STUsers)").find("The word 'natural'"),
            std::string::npos);
}

TEST_P(Conformance, Restricted_ALargeStatementEndsAfterSeconds) {
  if (!TRestrictedWorld::CanBeRestricted(Engine())) GTEST_SKIP() << "no restricted session over ODBC";
  TRestrictedWorld world(Engine(), Database());
  const auto start = std::chrono::steady_clock::now();
  const std::string answer =
      CallOn(*world.Restricted, 1, "GetDomainInfo",
             {{"返回内容",
               "(select count(*) from STUsers a, STUsers b, STUsers c, STUsers d, STUsers e, STUsers f, "
               "STUsers g where a.OID + b.OID <> c.OID * d.OID + e.OID * f.OID - g.OID)"},
              {"查询条件", ""}});
  EXPECT_NE(answer.find("stopped after 5 seconds"), std::string::npos) << answer;
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

TEST_P(Conformance, Restricted_ALargeResultEnds) {
  if (!TRestrictedWorld::CanBeRestricted(Engine())) GTEST_SKIP() << "no restricted session over ODBC";
  TRestrictedWorld world(Engine(), Database());
  const auto query = world.Restricted->GetQuery();
  query->SQL().SetText("select a.OID from STUsers a, STUsers b, STUsers c, STUsers d, STUsers e");
  try {
    query->Open();
    FAIL() << "it ended by itself";
  } catch (const zanrole::EDatabaseError& fault) {
    EXPECT_NE(fault.Message().find("result is too large"), std::string::npos) << fault.Message();
  }
  query->SQL().SetText("select 1 from STDomains where ID = 1");
  query->Open();
  EXPECT_EQ(query->Fields(0).AsInteger(), 1) << "the session is of use afterwards";
}

TEST_P(Conformance, Restricted_AFileOfTheServerIsNotRead) {
  if (Database().Server() != zanhost::TServerKind::MariaDb || !TRestrictedWorld::CanBeRestricted(Engine()))
    GTEST_SKIP() << "a function of MariaDB";
  TRestrictedWorld world(Engine(), Database());
  EXPECT_EQ(CallOn(*world.Restricted, 1, "GetDomainInfo",
                   {{"返回内容", "load_file('/etc/passwd')"}, {"查询条件", "ID = 1"}}),
            "= ");
}

}  // namespace zantest
