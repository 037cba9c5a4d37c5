#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/RecordingHost.h"
#include "tests/unit/Party/PartyCall.h"

// The role functions: what they tell the host about themselves, and how they take their parameters.

namespace zantest {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::FieldsAre;
using testing::IsEmpty;
using testing::SizeIs;
using namespace zanrole;

struct TSignature {
  const char* ClassName;
  const char* FuncName;
  const char* Description;
  std::vector<std::string> Inputs;
  const char* Output;
};

// clang-format off
const std::vector<TSignature> kSignatures = {
    {"TSysFunc_SuperiorEx", "RoleSuperiorEx", "上级用户号(可选岗位关系图)", {"当前用户", "岗位关系图"}, "上级用户"},
    {"TSysFunc_UnderlingEx", "RoleUnderlingEx", "下级用户集(可选岗位关系图)", {"当前用户", "岗位关系图"}, "下级用户"},
    {"TSysFunc_SuperiorAllEx", "RoleSuperiorAllEx", "各层上级用户号(可选岗位关系图)", {"当前用户", "岗位关系图"}, "上级用户"},
    {"TSysFunc_UnderlingAllEx", "RoleUnderlingAllEx", "各层下级用户集(可选岗位关系图)", {"当前用户", "岗位关系图"}, "下级用户"},
    {"TSysFunc_GetUserOID", "RoleGetUserOID", "取用户号的ObjID", {"用户号"}, "用户OID"},
    {"TSysFunc_GetUserOIDS", "RoleGetUserOIDS", "取用户号集的OID集", {"用户号集"}, "用户OID集"},
    {"TSysFunc_DepartmentOID", "RoleDepartmentOID", "取用户部门OID", {"用户号"}, "部门OID"},
    {"TSysFunc_DepartmentCode", "RoleDepartmentCode", "取用户部门号", {"用户号"}, "部门号"},
    {"TSysFunc_DepartmentName", "RoleDepartmentName", "取用户部门名称", {"用户号"}, "部门名称"},
    {"TSysFunc_CompanyOID", "RoleCompanyOID", "取用户公司OID", {"用户号"}, "公司OID"},
    {"TSysFunc_CompanyCode", "RoleCompanyCode", "取用户公司编码", {"用户号"}, "公司号"},
    {"TSysFunc_CompanyName", "RoleCompanyName", "取用户公司名称", {"用户号"}, "公司名称"},
    {"TSysFunc_PositionEntityOID", "RolePositionEntityOID", "取用户岗位成员OID", {"用户号"}, "岗位成员OID"},
    {"TSysFunc_PositionEntityCode", "RolePositionEntityCode", "取用户岗位成员号", {"用户号"}, "岗位成员号"},
    {"TSysFunc_PositionEntityName", "RolePositionEntityName", "取用户岗位成员名称", {"用户号"}, "岗位成员名称"},
    {"TSysFunc_PositionCode", "RolePositionCode", "取用户岗位号", {"用户号"}, "岗位号"},
    {"TSysFunc_PositionName", "RolePositionName", "取用户岗位名称", {"用户号"}, "岗位名称"},
    {"TSysFunc_PositionUserOIDs", "RolePositionUserOIDs", "取岗位的用户集OID", {"岗位号"}, "用户集OID"},
    {"TSysFunc_PositionUsercodes", "RolePositionUserCodes", "取岗位的用户集号", {"岗位号"}, "用户集号"},
    {"TSysFunc_PositionUserNames", "RolePositionUserNames", "取岗位的用户集名称", {"岗位号"}, "用户集名称"},
    {"TSysFunc_GetManagerCode", "RoleGetManagerCode", "得到公司/部门 负责人Code", {"ParentCode"}, "Result"},
    {"TSysFunc_GetManagerName", "RoleGetManagerName", "得到公司/部门 负责人名称", {"ParentCode"}, "Result"},
};
// clang-format on

bool TakesAMap(const TSignature& signature) { return signature.Inputs.size() == 2; }

TEST(PartyFuncSignatures, TheTableHoldsTheTwentyTwoClassesUnderTheirNames) {
  std::vector<TFuncClass> classes;
  AppendPartyFuncClasses(classes);
  ASSERT_THAT(classes, SizeIs(22));
  ASSERT_THAT(kSignatures, SizeIs(22));
  for (std::size_t i = 0; i < classes.size(); ++i) {
    EXPECT_STREQ(classes[i].ClassName, kSignatures[i].ClassName);
    EXPECT_EQ(classes[i].Type, TFuncType::System);
    const auto func = classes[i].Create();
    EXPECT_EQ(func->FuncName(), kSignatures[i].FuncName);
    EXPECT_EQ(func->FuncDescription(), kSignatures[i].Description);
  }
}

TEST(PartyFuncSignatures, EachTakesTextsWithoutDefaultsAndGivesOneText) {
  for (const TSignature& signature : kSignatures) {
    SCOPED_TRACE(signature.FuncName);
    const TPartyCall call(signature.FuncName);
    std::vector<std::string> names;
    for (const TFuncParam& input : call.Info->InParams) {
      names.push_back(input.Name);
      EXPECT_THAT(input, FieldsAre(TFuncParamKind::None, input.Name, "", "", TFuncDataType::String));
    }
    EXPECT_THAT(names, ElementsAreArray(signature.Inputs));
    EXPECT_THAT(
        std::vector<TFuncParam>(call.Info->OutParams.begin(), call.Info->OutParams.end()),
        ElementsAre(FieldsAre(TFuncParamKind::None, signature.Output, "", "", TFuncDataType::String)));
  }
}

TEST(PartyFuncCall, EachAsksItsOwnQuestionAndGivesWhatComesBack) {
  const std::pair<const char*, const char*> expected[] = {
      {"RoleGetUserOID", "select ObjID from UserH where (code= 'a')"},
      {"RoleGetUserOIDS", "select ObjID from UserH where (code in ('a'))"},
      {"RoleDepartmentOID", "select parent as oid from partyh where djlsh in"},
      {"RolePositionEntityOID", "select parent as oid from partyh where type='User'"},
      {"RolePositionEntityCode", "select code from partyh where djlsh in"},
      {"RolePositionEntityName", "select name from partyh where djlsh in"},
      {"RolePositionCode", "select code from PositionH"},
      {"RolePositionName", "select name from PositionH"},
      {"RolePositionUserOIDs", "select Djlsh as oid,Code,Name from UserH"},
  };
  for (const auto& [function, statement] : expected) {
    TRecordingHost host;
    host.Answer(statement, {"oid", "ObjID", "code", "name"}, {{"x", "x", "x", "x"}});
    EXPECT_EQ(AskParty(function, {"a"}), "x") << function;
    EXPECT_THAT(host.Statements, SizeIs(1)) << function;
  }
}

TEST(PartyFuncCall, CodeAndNameAreNotMixedUp) {
  TRecordingHost host;
  host.AlwaysAnswer("select code,name from PartyH", {"code", "name"}, {{"li", "李"}});
  host.AlwaysAnswer("select p.name as peName", {"peoid"}, {{4}});
  host.AlwaysAnswer("select parent as oid", {"oid"}, {{5}});
  host.AlwaysAnswer("select code from partyh where djlsh =", {"code"}, {{"D5"}});
  host.AlwaysAnswer("select name from partyh where djlsh =", {"name"}, {{"研发部"}});
  host.AlwaysAnswer("select parent from partyh where type = 'Department'", {"parent"}, {{1}});
  host.AlwaysAnswer("select type,code,parent", {"type", "code", "parent"}, {{"Company", "C1", -1}});
  host.AlwaysAnswer("select name from partyh where type='Company' and code= 'C1'", {"name"}, {{"公司"}});
  host.AlwaysAnswer("select djlsh from partyh where type='Company' and code= 'C1'", {"djlsh"}, {{1}});
  EXPECT_EQ(AskParty("RolePositionUserCodes", {"p"}), "li");
  EXPECT_EQ(AskParty("RolePositionUserNames", {"p"}), "李");
  EXPECT_EQ(AskParty("RoleGetManagerCode", {"D5"}), "li");
  EXPECT_EQ(AskParty("RoleGetManagerName", {"D5"}), "李");
  EXPECT_EQ(AskParty("RoleDepartmentCode", {"li"}), "D5");
  EXPECT_EQ(AskParty("RoleDepartmentName", {"li"}), "研发部");
  EXPECT_EQ(AskParty("RoleCompanyCode", {"li"}), "C1");
  EXPECT_EQ(AskParty("RoleCompanyName", {"li"}), "公司");
  EXPECT_EQ(AskParty("RoleCompanyOID", {"li"}), "1");
}

TEST(PartyFuncCall, AMapFunctionPassesUserAndMap) {
  for (const char* function : {"RoleSuperiorEx", "RoleUnderlingEx"}) {
    TRecordingHost host;
    host.Answer("(PositionName=:MapName)", {"MapId"}, {{7}});
    host.Answer("select code from partyH", {"code"}, {{"wang"}});
    EXPECT_EQ(AskParty(function, {"li", "行政图"}), "wang");
    EXPECT_EQ(std::get<std::string>(host.Statements.at(0).Params.at(0).second), "行政图");
    EXPECT_EQ(std::get<std::string>(host.Statements.at(1).Params.at(1).second), "li");
  }
}

TEST(PartyFuncCall, AnEmptyUserOfAMapFunctionGivesAnEmptyAnswerAndRunsNoStatement) {
  const TRecordingHost host;
  for (const TSignature& signature : kSignatures) {
    if (TakesAMap(signature)) {
      EXPECT_EQ(AskParty(signature.FuncName, {"", "行政图"}), "");
    }
  }
  EXPECT_THAT(host.Statements, IsEmpty());
}

TEST(PartyFuncCall, AnEmptyArgumentOfTheOthersDoesReachTheQuestion) {
  for (const TSignature& signature : kSignatures) {
    if (TakesAMap(signature)) continue;
    const TRecordingHost host;
    EXPECT_EQ(AskParty(signature.FuncName, {""}), "");
    EXPECT_GE(host.Statements.size(), 1u) << signature.FuncName;
  }
}

TEST(PartyFuncCall, AMissingInputIsSkippedInSilence) {
  const TRecordingHost host;
  for (const TSignature& signature : kSignatures) {
    TPartyCall call(signature.FuncName);
    call.Info->InParams = {};
    EXPECT_TRUE(call.Execute()) << signature.FuncName;
    EXPECT_EQ(call.Answer(), "");
  }
  EXPECT_THAT(host.Statements, IsEmpty());
}

TEST(PartyFuncCall, AMissingMapNameIsTheEmptyOne) {
  TRecordingHost host;
  TPartyCall call("RoleSuperiorEx");
  call.Info->InParams = {};
  call.Info->InParams.Add({.Name = "当前用户", .Value = "li"});
  EXPECT_TRUE(call.Execute());
  EXPECT_THAT(host.Texts(), ElementsAre(testing::StartsWith("select top 1 MapId, PositionName")));
}

TEST(PartyFuncCall, AMissingOutputIsSkippedInSilence) {
  for (const TSignature& signature : kSignatures) {
    const TRecordingHost host;
    TPartyCall call(signature.FuncName);
    for (TFuncParam& input : call.Info->InParams) input.Value = "x";
    call.Info->OutParams = {};
    EXPECT_TRUE(call.Execute()) << signature.FuncName;
    EXPECT_GE(host.Statements.size(), 1u) << signature.FuncName;
  }
}

TEST(PartyFuncCall, AFailedStatementReachesTheExpression) {
  for (const TSignature& signature : kSignatures) {
    TRecordingHost host;
    host.FailStatement(1);
    TPartyCall call(signature.FuncName);
    for (TFuncParam& input : call.Info->InParams) input.Value = "x";
    EXPECT_THROW(call.Execute(), EDatabaseError) << signature.FuncName;
    EXPECT_EQ(call.Answer(), "");
  }
}

}  // namespace
}  // namespace zantest
