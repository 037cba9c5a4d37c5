#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "tests/support/RecordingHost.h"
#include "tests/unit/Domain/DomainCall.h"

// What the functions tell the host about themselves.

namespace zantest {
namespace {

using testing::ElementsAre;
using testing::FieldsAre;
using testing::IsEmpty;
using namespace zanrole;

struct TSignature {
  const char* ClassName;
  const char* FuncName;
  const char* Description;
  TFuncDataType ResultType;
};

// clang-format off
constexpr TSignature kSignatures[] = {
    {"TSysFunc_CurDomainID", "GetCurDomainID", "取当前域ID", TFuncDataType::Integer},
    {"TSysFunc_CurDomainCode", "GetCurDomainCode", "取当前域代码", TFuncDataType::String},
    {"TSysFunc_CurDomainNodeCode", "GetCurDomainNodeCode", "取当前域节点代码", TFuncDataType::String},
    {"TSysFunc_CurDomainName", "GetCurDomainName", "取当前域名称", TFuncDataType::String},
    {"TSysFunc_CurDomainFullName", "GetCurDomainFullName", "取当前域全称", TFuncDataType::String},
    {"TSysFunc_GetAuthDomainIDs", "GetAuthDomainIDs", "当前用户域范围的域ID列表", TFuncDataType::String},
    {"TSysFunc_GetAuthDomainIDss", "GetAuthDomainIDss", "当前用户域范围的域ID列表（包含下级域）", TFuncDataType::String},
    {"TSysFunc_CheckDomainAuthById", "CheckDomainAuthById", "检查指定ID的域对于当前用户是否有权访问", TFuncDataType::Boolean},
    {"TSysFunc_CheckDomainAuthByCode", "CheckDomainAuthByCode", "检查指定代码的域对于当前用户是否有权访问", TFuncDataType::Boolean},
    {"TSysFunc_CheckDomainAuthByNodeCode", "CheckDomainAuthByNodeCode", "检查指定节点代码的域对于当前用户是否有权访问", TFuncDataType::Boolean},
    {"TSysFunc_CheckDomainAuthByName", "CheckDomainAuthByName", "检查指定名称的域对于当前用户是否有权访问", TFuncDataType::Boolean},
    {"TSysFunc_GetOwnDomainIDs", "GetOwnDomainIDs", "当前用户的所属域ID（不包括下级域）", TFuncDataType::String},
    {"TSysFunc_GetOwnDomainIDss", "GetOwnDomainIDss", "当前用户的所属域ID列表（包括下级域）", TFuncDataType::String},
    {"TSysFunc_GetAuthDomainOIDs", "GetAuthDomainOIDs", "当前用户域范围内的所有用户OID列表（不包括下级域中的用户）", TFuncDataType::String},
    {"TSysFunc_GetAuthDomainOIDss", "GetAuthDomainOIDss", "当前用户域范围内的所有用户OID列表（包括下级域中的用户）", TFuncDataType::String},
    {"TSysFunc_GetAuthDomainUserIDs", "GetAuthDomainUserIDs", "当前用户域范围内的所有用户的登录号列表（不包括下级域中的用户）", TFuncDataType::String},
    {"TSysFunc_GetAuthDomainUserIDss", "GetAuthDomainUserIDss", "当前用户域范围内的所有用户的登录号列表（包括下级域中的用户）", TFuncDataType::String},
    {"TSysFunc_GetOwnDomainOIDs", "GetOwnDomainOIDs", "当前用户所属域中的所有用户的OID列表（不包括下级域中的用户）", TFuncDataType::String},
    {"TSysFunc_GetOwnDomainOIDss", "GetOwnDomainOIDss", "当前用户所属域中的所有用户的OID列表（包括下级域中的用户）", TFuncDataType::String},
    {"TSysFunc_GetOwnDomainUserIDs", "GetOwnDomainUserIDs", "当前用户所属域中的所有用户的登录号列表（不包括下级域中的用户）", TFuncDataType::String},
    {"TSysFunc_GetOwnDomainUserIDss", "GetOwnDomainUserIDss", "当前用户所属域中的所有用户的登录号列表（包括下级域中的用户）", TFuncDataType::String},
    {"TSysFunc_GetCurDomainOIDs", "GetCurDomainOIDs", "当前域中的所有用户的OID列表（不包括下级域中的用户）", TFuncDataType::String},
    {"TSysFunc_GetCurDomainOIDss", "GetCurDomainOIDss", "当前域及其下级域中的所有用户的OID列表", TFuncDataType::String},
    {"TSysFunc_GetCurDomainUserIDs", "GetCurDomainUserIDs", "当前域中的所有用户的登录号列表（不包括下级域中的用户）", TFuncDataType::String},
    {"TSysFunc_GetCurDomainUserIDss", "GetCurDomainUserIDss", "当前域及其下级域中的所有用户的登录号列表", TFuncDataType::String},
    {"TSysFunc_GetAuthDomainRoleOIDs", "GetAuthDomainRoleOIDs", "当前操作员域范围（不包括下级域）之内的角色", TFuncDataType::String},
    {"TSysFunc_GetAuthDomainRoleOIDss", "GetAuthDomainRoleOIDss", "当前操作员域范围（包括下级域）之内的角色", TFuncDataType::String},
    {"TSysFunc_GetAuthDomainRolesEx", "GetAuthDomainRolesEx", "当前操作员域范围（不包括下级域）之内的角色，以及已共享的全局角色", TFuncDataType::String},
    {"TSysFunc_GetCurUserType", "GetCurUserType", "当前操作员的用户类型：0普通用户；1超级用户；2域管理员", TFuncDataType::Integer},
    {"TSysFunc_GetCreatedDomainIDs", "GetCreatedDomainIDs", "返回当前操作员创建的域的ID列表", TFuncDataType::String},
    {"TSysFunc_GetCreatedDomainCodes", "GetCreatedDomainCodes", "返回当前操作员创建的域的编码列表", TFuncDataType::String},
    {"TSysFunc_GetAuthDomainCodes", "GetAuthDomainCodes", "返回当前操作员域范围内的域编码列表（不包括下级域）", TFuncDataType::String},
    {"TSysFunc_GetAuthDomainCodess", "GetAuthDomainCodess", "返回当前操作员域范围内的域编码列表（包括下级域）", TFuncDataType::String},
    {"TSysFunc_GetOwnDomainCodes", "GetOwnDomainCodes", "返回当前操作员所属域的编码（不包括下级域）", TFuncDataType::String},
    {"TSysFunc_GetOwnDomainCodess", "GetOwnDomainCodess", "返回当前操作员所属域的编码（包括下级域）", TFuncDataType::String},
    {"TSysFunc_GetDomains", "GetDomains", "获取域列表", TFuncDataType::String},
    {"TSysFunc_GetDomainUsers", "GetDomainUsers", "获取域用户列表", TFuncDataType::String},
    {"TSysFunc_GetDomainRoles", "GetDomainRoles", "获取域角色列表", TFuncDataType::String},
    {"TSysFunc_GetDomainManagers", "GetDomainManagers", "获取域管理员列表", TFuncDataType::String},
    {"TSysFunc_GetDomainInfo", "GetDomainInfo", "获取域信息", TFuncDataType::String},
};
// clang-format on

std::vector<TFuncParam> Params(const TFuncParamList& list) { return {list.begin(), list.end()}; }

std::vector<TFuncClass> Classes() {
  std::vector<TFuncClass> classes;
  AppendDomainFuncClasses(classes);
  return classes;
}

TEST(DomainFuncSignatures, TheTableHoldsTheFortyClassesUnderTheirNames) {
  const std::vector<TFuncClass> classes = Classes();
  ASSERT_EQ(classes.size(), std::size(kSignatures));
  ASSERT_EQ(classes.size(), 40u);
  for (std::size_t i = 0; i < classes.size(); ++i) {
    SCOPED_TRACE(kSignatures[i].ClassName);
    EXPECT_STREQ(classes[i].ClassName, kSignatures[i].ClassName);
    EXPECT_EQ(classes[i].Type, TFuncType::System);
    const std::unique_ptr<TBaseFunc> func = classes[i].Create();
    EXPECT_EQ(func->FuncName(), kSignatures[i].FuncName);
    EXPECT_EQ(func->FuncDescription(), kSignatures[i].Description);
  }
}

TEST(DomainFuncSignatures, EachHasOneResultOfItsType) {
  for (const TSignature& signature : kSignatures) {
    SCOPED_TRACE(signature.FuncName);
    const TDomainCall call(signature.FuncName);
    EXPECT_THAT(Params(call.Info->OutParams),
                ElementsAre(FieldsAre(TFuncParamKind::None, "Result", "", "", signature.ResultType)));
  }
}

auto Declares(const char* name, TFuncDataType type, const char* description = "") {
  return FieldsAre(TFuncParamKind::None, name, description, "", type);
}

TEST(DomainFuncSignatures, NineTakeInputsAndAllOthersNone) {
  const std::set<std::string> withInputs = {"CheckDomainAuthById",
                                            "CheckDomainAuthByCode",
                                            "CheckDomainAuthByNodeCode",
                                            "CheckDomainAuthByName",
                                            "GetDomains",
                                            "GetDomainUsers",
                                            "GetDomainRoles",
                                            "GetDomainManagers",
                                            "GetDomainInfo"};
  for (const TSignature& signature : kSignatures) {
    SCOPED_TRACE(signature.FuncName);
    EXPECT_EQ(TDomainCall(signature.FuncName).Info->InParams.Count() > 0,
              withInputs.contains(signature.FuncName));
  }
}

TEST(DomainFuncSignatures, TheAccessTestsTakeOneNameOfADomain) {
  const auto inputs = [](const char* function) { return Params(TDomainCall(function).Info->InParams); };
  EXPECT_THAT(inputs("CheckDomainAuthById"), ElementsAre(Declares("域ID", TFuncDataType::Integer)));
  EXPECT_THAT(inputs("CheckDomainAuthByCode"), ElementsAre(Declares("域代码", TFuncDataType::String)));
  EXPECT_THAT(inputs("CheckDomainAuthByNodeCode"),
              ElementsAre(Declares("域节点代码", TFuncDataType::String)));
  EXPECT_THAT(inputs("CheckDomainAuthByName"), ElementsAre(Declares("域名称", TFuncDataType::String)));
}

TEST(DomainFuncSignatures, TheGeneralQueriesTakeFieldScopeAndFlagInThisOrder) {
  const std::pair<const char*, const char*> fieldDescriptions[] = {
      {"GetDomains", "指定要返回的内容，如（ID/Code/Name），只能选择一个"},
      {"GetDomainUsers", "指定要返回的内容，如（OID/UserID/UserName），只能选择一个"},
      {"GetDomainRoles", "指定要返回的内容，如（OID/UserName），只能选择一个"},
      {"GetDomainManagers", "指定要返回的内容，如（OID/UserID/UserName），只能选择一个"},
  };
  for (const auto& [function, description] : fieldDescriptions) {
    SCOPED_TRACE(function);
    EXPECT_THAT(Params(TDomainCall(function).Info->InParams),
                ElementsAre(Declares("返回内容", TFuncDataType::String, description),
                            Declares("查询范围", TFuncDataType::String,
                                     "可选择（当前域/创建域/所属域/域范围），多选时以逗号分隔"),
                            Declares("是否包含下级域", TFuncDataType::Boolean)));
  }
}

TEST(DomainFuncSignatures, GetDomainInfoTakesFieldAndCondition) {
  EXPECT_THAT(Params(TDomainCall("GetDomainInfo").Info->InParams),
              ElementsAre(Declares("返回内容", TFuncDataType::String,
                                   "指定要返回的字段名，如（ID/Code/Name），只能选择一个"),
                          Declares("查询条件", TFuncDataType::String, "用于搜索具体记录的where表达式")));
}

}  // namespace
}  // namespace zantest
