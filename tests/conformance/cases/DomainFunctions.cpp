#include <map>
#include <set>

#include "Domain/U_DomainFuncs.h"
#include "Domain/U_DomainFuncsImp.h"
#include "tests/conformance/Conformance.h"

namespace zantest {

namespace {

// A range of domains small enough to be checked by hand:
//
//   1 A ── 2 B域 ── 3 C        4 D (without a code)
//
// The operator 10 manages B域 (owned), has B域 and D in his range, and created C.
constexpr std::string_view kOrganisation = R"(
insert into STDomains(ID, Code, Name, ParentID, NodeLevel, FullName, FullCode) values(1, 'A', 'A', -1, 0, '\A', '\1\');
insert into STDomains(ID, Code, Name, ParentID, NodeLevel, FullName, FullCode) values(2, 'B', 'B域', 1, 1, '\A\B域', '\1\2\');
insert into STDomains(ID, Code, Name, ParentID, NodeLevel, FullName, FullCode) values(3, 'C', 'C', 2, 2, '\A\B域\C', '\1\2\3\');
insert into STDomains(ID, Code, Name, ParentID, NodeLevel, FullName, FullCode) values(4, null, 'D', -1, 0, '\D', '\4\');
insert into STUsers(OID, UserID, UserName, uGroup, IsAdministrator, UnUsed) values(10, 'operator', 'Op', 0, 2, 0);
insert into STUsers(OID, UserID, UserName, uGroup, IsAdministrator, UnUsed) values(11, 'u11', 'Eleven', 0, 0, 0);
insert into STUsers(OID, UserID, UserName, uGroup, IsAdministrator, UnUsed) values(12, 'u12', 'Twelve', 0, 0, 0);
insert into STUsers(OID, UserID, UserName, uGroup, IsAdministrator, UnUsed) values(13, 'u13', 'Thirteen', 0, 0, 0);
insert into STUsers(OID, UserID, UserName, uGroup, IsAdministrator, UnUsed) values(14, 'u14', 'Disabled', 0, 0, 1);
insert into STUsers(OID, UserID, UserName, uGroup, IsAdministrator, UnUsed) values(15, 'u15', 'Fifteen', 0, 0, 0);
insert into STUsers(OID, UserID, UserName, uGroup, IsAdministrator, UnUsed) values(16, 'm16', 'Manager', 0, 2, 0);
insert into STUsers(OID, UserID, UserName, uGroup, IsAdministrator, UnUsed) values(21, 'r21', 'Role of A', 1, 0, 0);
insert into STUsers(OID, UserID, UserName, uGroup, IsAdministrator, UnUsed) values(22, 'r22', 'Role of B', 1, 0, 0);
insert into STUsers(OID, UserID, UserName, uGroup, IsAdministrator, UnUsed) values(23, 'r23', 'Role of C', 1, 0, 0);
insert into STUsers(OID, UserID, UserName, uGroup, IsAdministrator, UnUsed) values(24, 'r24', 'Disabled role', 1, 0, 1);
insert into STUsers(OID, UserID, UserName, uGroup, IsAdministrator, UnUsed) values(25, 'r25', 'Shared role', 1, 0, 0);
insert into STUsers(OID, UserID, UserName, uGroup, IsAdministrator, UnUsed) values(26, 'r26', 'Free role', 1, 0, 0);
)";

struct TPair {
  int First, Second;
};
constexpr TPair kClosure[] = {{1, 1}, {1, 2}, {1, 3}, {2, 2}, {2, 3}, {3, 3}, {4, 4}};

struct TMember {
  int Domain, User, Type, Owned;
};
constexpr TMember kMembers[] = {
    {2, 10, 2, 1}, {2, 10, 2, 0}, {4, 10, 2, 0}, {3, 10, 3, 1},                    // the operator
    {1, 11, 0, 1}, {2, 12, 0, 1}, {3, 13, 0, 1}, {2, 14, 0, 1}, {4, 15, 0, 1},     // users by owner
    {1, 13, 0, 0},                                                                 // a range of a user
    {2, 16, 2, 1},                                                                 // another manager
    {1, 21, 1, 1}, {2, 22, 1, 1}, {3, 23, 1, 1}, {2, 24, 1, 1}, {-100, 25, 1, 1},  // roles
};

using TArguments = std::map<std::string, std::string>;

/// What the function answers; "(no result)" when it stops early.
std::string Ask(const std::string& name, const TArguments& arguments) {
  std::vector<zanrole::TFuncClass> classes;
  zanrole::AppendDomainFuncClasses(classes);
  for (const zanrole::TFuncClass& funcClass : classes) {
    const auto function = funcClass.Create();
    if (function->FuncName() != name) continue;
    const auto info = function->NewFuncInfo();
    for (const auto& [parameter, value] : arguments) {
      zanrole::TFuncParam* const found = info->InParams.find(parameter);
      if (found == nullptr) return "(no parameter " + parameter + ")";
      found->Value = value;
    }
    function->FuncInfo = info.get();
    return function->Execute() ? info->OutParams.find("Result")->Value : "(no result)";
  }
  return "(no function)";
}

std::set<std::string> NamesOfSystemFunctions() {
  std::vector<zanrole::TFuncClass> classes;
  zanrole::AppendDomainFuncClasses(classes);
  std::set<std::string> names;
  for (const zanrole::TFuncClass& funcClass : classes) {
    if (funcClass.Type == zanrole::TFuncType::System) names.insert(funcClass.Create()->FuncName());
  }
  return names;
}

TArguments General(const std::string& field, const std::string& scope, bool lower) {
  return {{"返回内容", field}, {"查询范围", scope}, {"是否包含下级域", zanrole::BoolToStr(lower)}};
}

struct TExpectation {
  std::string Function;
  std::string Answer;
  TArguments Arguments;
};

const std::vector<TExpectation> kExpectations{
    {"GetAuthDomainIDs", "2,4", {}},
    {"GetAuthDomainIDss", "2,3,4", {}},
    {"GetAuthDomainCodes", "B", {}},
    {"GetAuthDomainCodess", "B,C", {}},
    {"GetOwnDomainIDs", "2", {}},
    {"GetOwnDomainIDss", "2,3", {}},
    {"GetOwnDomainCodes", "B", {}},
    {"GetOwnDomainCodess", "B,C", {}},
    {"GetCreatedDomainIDs", "3", {}},
    {"GetCreatedDomainCodes", "C", {}},
    {"GetAuthDomainOIDs", "12,15", {}},
    {"GetAuthDomainOIDss", "12,13,15", {}},
    {"GetAuthDomainUserIDs", "u12,u15", {}},
    {"GetAuthDomainUserIDss", "u12,u13,u15", {}},
    {"GetOwnDomainOIDs", "12", {}},
    {"GetOwnDomainOIDss", "12,13", {}},
    {"GetOwnDomainUserIDs", "u12", {}},
    {"GetOwnDomainUserIDss", "u12,u13", {}},
    {"GetCurDomainID", "2", {}},
    {"GetCurDomainCode", "B", {}},
    {"GetCurDomainNodeCode", "\\1\\2\\", {}},
    {"GetCurDomainName", "B域", {}},
    {"GetCurDomainFullName", "\\A\\B域", {}},
    {"GetCurDomainOIDs", "12", {}},
    {"GetCurDomainOIDss", "12,13", {}},
    {"GetCurDomainUserIDs", "u12", {}},
    {"GetCurDomainUserIDss", "u12,u13", {}},
    {"GetAuthDomainRoleOIDs", "22", {}},
    {"GetAuthDomainRoleOIDss", "22,23", {}},
    {"GetAuthDomainRolesEx", "22,25", {}},
    {"GetCurUserType", "2", {}},
    {"CheckDomainAuthById", "True", {{"域ID", "3"}}},
    {"CheckDomainAuthById", "False", {{"域ID", "1"}}},
    {"CheckDomainAuthById", "(no result)", {{"域ID", "x"}}},
    {"CheckDomainAuthByCode", "True", {{"域代码", "C"}}},
    {"CheckDomainAuthByCode", "False", {{"域代码", "c"}}},
    {"CheckDomainAuthByName", "True", {{"域名称", "B域"}}},
    {"CheckDomainAuthByName", "False", {{"域名称", "A"}}},
    {"CheckDomainAuthByNodeCode", "(no result)", {{"域节点代码", "\\1\\2\\"}}},
    {"GetDomains", "2", General("", "", false)},
    {"GetDomains", "2,3", General("ID", "无此范围", true)},
    {"GetDomains", "B", General("Code", "域范围", false)},
    {"GetDomains", "B,C", General("Code", "域范围", true)},
    {"GetDomains", "2,4", General("ID", "Own,Auth", false)},
    {"GetDomains", "C", General("Name", "创建域", false)},
    {"GetDomainUsers", "12", General("OID", "Current", false)},
    {"GetDomainUsers", "12,13", General("OID", "Current", true)},
    {"GetDomainUsers", "Fifteen,Twelve", General("UserName", "auth", false)},
    {"GetDomainRoles", "22", General("", "域范围", false)},
    {"GetDomainRoles", "22,23", General("", "域范围", true)},
    {"GetDomainManagers", "10,16", General("", "当前域", false)},
    {"GetDomainManagers", "m16,operator", General("UserID", "所属域", true)},
    {"GetDomainInfo", "C", {{"返回内容", "Name"}, {"查询条件", "ID = 3"}}},
    {"GetDomainInfo", "4", {{"返回内容", "count(*)"}, {"查询条件", ""}}},
};

std::string InsertOf(const TPair& pair) {
  return "insert into STDomainInherits(AncestorID, DescendantID) values(" + std::to_string(pair.First) +
         ", " + std::to_string(pair.Second) + ")";
}

std::string InsertOf(const TMember& member) {
  return "insert into STDomainMembers(DomainID, UserOID, MemberType, IsOwned) values(" +
         std::to_string(member.Domain) + ", " + std::to_string(member.User) + ", " +
         std::to_string(member.Type) + ", " + std::to_string(member.Owned) + ")";
}

}  // namespace

TEST_P(Conformance, DomainFunctions_AnswerOverAHandCheckedOrganisation) {
  Engine().InstallSchema();
  Database().ExecScript(kOrganisation);
  for (const TPair& pair : kClosure) Exec(InsertOf(pair));
  for (const TMember& member : kMembers) Exec(InsertOf(member));
  Host().SystemInfo().LoginUserOID = 10;
  EXPECT_EQ(Ask("GetCurDomainID", {}), "-1");
  EXPECT_EQ(Ask("GetCurDomainOIDss", {}), "");
  EXPECT_EQ(Ask("GetDomains", General("Name", "", false)), "");
  zanrole::TDomainFuncImpl::SetCurrentDomainID(2);

  std::set<std::string> asked;
  for (const TExpectation& expected : kExpectations) {
    EXPECT_EQ(Ask(expected.Function, expected.Arguments), expected.Answer)
        << expected.Function << testing::PrintToString(expected.Arguments);
    asked.insert(expected.Function);
  }
  EXPECT_EQ(asked, NamesOfSystemFunctions()) << "a function without an expectation";
  EXPECT_EQ(asked.size(), 40u);
}

}  // namespace zantest
