#include "tests/conformance/cases/RestrictedWorld.h"

// What honest callers are answered by functions on a restricted session.

namespace zantest {

namespace {

struct TCall {
  std::string Function;
  TFunctionInputs Inputs;
};

void AddLists(std::vector<TCall>& calls, const std::string& function, std::vector<std::string> fields) {
  fields.emplace_back();
  for (const std::string& field : fields)
    for (const char* scope : {"", "域范围", "Own,Auth", "创建域", "没有"})
      for (const char* lower : {"true", "false"})
        calls.push_back({function, {{"返回内容", field}, {"查询范围", scope}, {"是否包含下级域", lower}}});
}

void AddInfos(std::vector<TCall>& calls) {
  const std::pair<const char*, const char*> questions[]{
      {"", ""},
      {"Name", "ID = 2"},
      {"FullName", "Code like '%1%' and ParentID > 0"},
      {"count(*)",
       "exists (select 1 from STDomainMembers m where m.DomainID = STDomains.ID and m.MemberType = 0)"},
      {"max(NodeLevel) - 1", "Name <> '没有'"},
      {"(select count(*) from STUsers where uGroup = 0)", "ID = 1"},
      {"upper(Code)", "ID in (1, 2) order by ID"},
      {"Nothing", "1=1"}};
  for (const auto& [field, condition] : questions)
    calls.push_back({"GetDomainInfo", {{"返回内容", field}, {"查询条件", condition}}});
}

void AddTests(std::vector<TCall>& calls, TRestrictedWorld& world) {
  const std::pair<const char*, std::pair<const char*, const char*>> tests[]{
      {"CheckDomainAuthByCode", {"域代码", "Code"}},
      {"CheckDomainAuthByNodeCode", {"域代码", "FullCode"}},
      {"CheckDomainAuthByName", {"域名称", "Name"}}};
  for (const auto& [function, input] : tests) {
    calls.push_back({function, {{input.first, "没有"}}});
    for (const std::string& value : world.Column(std::string("select ") + input.second + " from STDomains"))
      calls.push_back({function, {{input.first, value}}});
  }
}

std::vector<TCall> HonestCalls(TRestrictedWorld& world) {
  std::vector<TCall> calls;
  AddLists(calls, "GetDomains", {"ID", "Code", "Name", "FullName"});
  AddLists(calls, "GetDomainUsers", {"OID", "UserID", "UserName"});
  AddLists(calls, "GetDomainRoles", {"OID", "UserName"});
  AddLists(calls, "GetDomainManagers", {"OID", "UserID", "UserName"});
  AddInfos(calls);
  AddTests(calls, world);
  for (const std::string& login : world.Column("select Code from PartyH where Type = 'User'"))
    calls.push_back({"RoleSuperiorAllEx", {{"当前用户", login}}});
  return calls;
}

}  // namespace

TEST_P(Conformance, Restricted_HonestCallersAreAnsweredAsOnAFullSession) {
  if (!TRestrictedWorld::CanBeRestricted(Engine())) GTEST_SKIP() << "no restricted session over ODBC";
  TRestrictedWorld world(Engine(), Database());
  const std::string manager = "select UserOID from STDomainMembers where MemberType = 2 and IsOwned = 0";
  std::map<std::string, int> answered;
  for (const int oid : {std::stoi(world.Column(manager).at(0)), 1})
    for (const TCall& call : HonestCalls(world)) {
      const std::string expected = CallOn(Database(), oid, call.Function, call.Inputs);
      EXPECT_EQ(CallOn(*world.Restricted, oid, call.Function, call.Inputs), expected)
          << call.Function << testing::PrintToString(call.Inputs);
      if (expected.size() > 2 && expected.starts_with("= ")) ++answered[call.Function];
    }
  for (const char* function :
       {"GetDomains", "GetDomainUsers", "GetDomainRoles", "GetDomainManagers", "GetDomainInfo",
        "CheckDomainAuthByCode", "CheckDomainAuthByNodeCode", "CheckDomainAuthByName"})
    EXPECT_GT(answered[function], 1) << function << " was compared on nothing";
}

TEST_P(Conformance, Restricted_ASessionSeesWhatOthersCommit) {
  if (!TRestrictedWorld::CanBeRestricted(Engine())) GTEST_SKIP() << "no restricted session over ODBC";
  TRestrictedWorld world(Engine(), Database());
  const auto ask = [&] {
    return CallOn(*world.Restricted, 1, "GetDomainInfo", {{"返回内容", "Name"}, {"查询条件", "ID = 1"}});
  };
  for (const std::string name : {"甲", "乙"}) {
    Exec("update STDomains set Name = '" + name + "' where ID = 1");
    EXPECT_EQ(ask(), "= " + name);
  }
}

TEST_P(Conformance, Restricted_OverOdbcThereIsNoSuchSession) {
  if (TRestrictedWorld::CanBeRestricted(Engine())) GTEST_SKIP() << "the other engines have one";
  try {
    zanhost::OpenRestricted(Engine().Url());
    FAIL() << "it was opened";
  } catch (const zanrole::EDatabaseError& fault) {
    EXPECT_NE(fault.Message().find("ODBC"), std::string::npos) << fault.Message();
  }
}

}  // namespace zantest
