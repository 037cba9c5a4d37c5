#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Domain/U_DomainFuncsImp.h"
#include "tests/support/RecordingHost.h"
#include "tests/support/StatementCorpus.h"
#include "tests/unit/Domain/DomainCall.h"

// How the functions unpack their inputs, and when they stop.

namespace zantest {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using namespace zanrole;

TEST(DomainFuncCall, GetCurDomainIDBeforeAnyDomainWasSetGivesMinusOneWithoutAStatement) {
  TRecordingHost host;
  TDomainCall call("GetCurDomainID");
  EXPECT_TRUE(call.Execute());
  EXPECT_EQ(call.Result(), "-1");
  EXPECT_THAT(host.Statements, IsEmpty());
}

TEST(DomainFuncCall, GetCurDomainIDGivesTheDecimalTextOfTheDomain) {
  TRecordingHost host;
  TDomainFuncImpl::SetCurrentDomainID(17);
  TDomainCall call("GetCurDomainID");
  EXPECT_TRUE(call.Execute());
  EXPECT_EQ(call.Result(), "17");
}

TEST(DomainFuncCall, GetCurUserTypeIsOneForASuperUserTwoForAManagerWithAnOwnedRowAndElseZero) {
  {
    TRecordingHost host;
    host.SystemInfo().IsSuperUser = true;
    TDomainCall call("GetCurUserType");
    EXPECT_TRUE(call.Execute());
    EXPECT_EQ(call.Result(), "1");
    EXPECT_THAT(host.Statements, IsEmpty());
  }
  {
    TRecordingHost host;
    host.Answer("MemberType=2 and IsOwned=1 and UserOID=12", {"C"}, {{2}});
    TDomainCall call("GetCurUserType");
    EXPECT_TRUE(call.Execute());
    EXPECT_EQ(call.Result(), "2");
  }
  const TRecordingHost host;
  TDomainCall call("GetCurUserType");
  EXPECT_TRUE(call.Execute());
  EXPECT_EQ(call.Result(), "0");
}

TEST(DomainFuncCall, CheckDomainAuthByIdSendsTheNumberAndAnswersInWords) {
  TRecordingHost host;
  host.Answer("DescendantID = 7", {"DescendantID"}, {{7}});
  TDomainCall allowed("CheckDomainAuthById");
  EXPECT_TRUE(allowed.With("域ID", "7").Execute());
  EXPECT_EQ(allowed.Result(), "True");

  TDomainCall denied("CheckDomainAuthById");
  EXPECT_TRUE(denied.With("域ID", "0").Execute());
  EXPECT_EQ(denied.Result(), "False");

  EXPECT_EQ(
      host.Statements[0].Text,
      "select DescendantID from STDomainInherits where AncestorID in ( select DomainID from STDomainMembers "
      "where IsOwned = 0 and UserOID = 12 ) and DescendantID = 7");
}

TEST(DomainFuncCall, CheckDomainAuthByIdStopsWithoutAResultOrStatementForWhatIsNoNumberOfADomain) {
  TRecordingHost host;
  for (const char* text : {"seven", "", "-1", "7.5", "99999999999"}) {
    SCOPED_TRACE(text);
    TDomainCall call("CheckDomainAuthById");
    EXPECT_FALSE(call.With("域ID", text).Execute());
    EXPECT_EQ(call.Result(), "");
  }
  EXPECT_THAT(host.Statements, IsEmpty());
}

struct TTextTest {
  const char* Function;
  const char* Input;
  const char* Condition;
};

constexpr TTextTest kTextTests[] = {
    {"CheckDomainAuthByCode", "域代码", "b.Code"},
    {"CheckDomainAuthByName", "域名称", "b.Name"},
};

void ExpectThatTheTextIsPasted(TDialect dialect, const TTextTest& test, const std::string& text) {
  TRecordingHost host(dialect);
  host.Answer("select b.FullCode", {"FullCode"}, {{"\\1\\"}});
  TDomainCall call(test.Function);
  EXPECT_TRUE(call.With(test.Input, text).Execute());
  EXPECT_EQ(call.Result(), "True");
  EXPECT_EQ(host.Statements.at(0).Text,
            "select b.FullCode from STDomainInherits a inner join STDomains b on a.DescendantID = b.ID "
            "where a.AncestorID in ( select DomainID from STDomainMembers where IsOwned = 0 and UserOID = "
            "12 ) and " +
                std::string(test.Condition) + " = '" + text + "'");
}

TEST(DomainFuncCall, TheTextTestsPasteTheTextUnchangedBetweenQuotes) {
  for (const TTextTest& test : kTextTests)
    for (const TDialect dialect : {TDialect::SqlServer, TDialect::Oracle, TDialect::MySql})
      ExpectThatTheTextIsPasted(dialect, test, " A%s");
}

TEST(DomainFuncCall, TheTextTestsPasteEvenAQuote) {
  const TRefusedStatements refused("A'1%s", "the quote in the text ends the literal");
  for (const TTextTest& test : kTextTests) ExpectThatTheTextIsPasted(TDialect::SqlServer, test, " A'1%s");
}

TEST(DomainFuncCall, TheTextTestsStopWithoutAResultForAnEmptyText) {
  TRecordingHost host;
  for (const TTextTest& test : kTextTests) {
    TDomainCall call(test.Function);
    EXPECT_FALSE(call.With(test.Input, "").Execute());
    EXPECT_EQ(call.Result(), "");
  }
  EXPECT_THAT(host.Statements, IsEmpty());
}

TEST(DomainFuncCall, CheckDomainAuthByNodeCodeGivesNothingThroughTheInputThatItDeclares) {
  TRecordingHost host;
  TDomainCall call("CheckDomainAuthByNodeCode");
  EXPECT_FALSE(call.With("域节点代码", "\\1\\").Execute());
  EXPECT_EQ(call.Result(), "");
  EXPECT_THAT(host.Statements, IsEmpty());
}

TEST(DomainFuncCall, CheckDomainAuthByNodeCodeAnswersACallerThatPassesTheInputOfItsSibling) {
  TRecordingHost host;
  host.Answer("select b.FullCode", {"FullCode"}, {{"\\1\\"}});
  TDomainCall call("CheckDomainAuthByNodeCode");
  call.Info->InParams.Add({TFuncParamKind::None, "域代码", "", "\\1\\", TFuncDataType::String});
  EXPECT_TRUE(call.Execute());
  EXPECT_EQ(call.Result(), "True");
  EXPECT_EQ(
      host.Statements.at(0).Text,
      "select b.FullCode from STDomainInherits a inner join STDomains b on a.DescendantID = b.ID "
      "where a.AncestorID in ( select DomainID from STDomainMembers where IsOwned = 0 and UserOID = 12 ) "
      "and b.FullCode = '\\1\\'");
}

TEST(DomainFuncCall, AMissingInputStopsWithFalseAndWithoutAStatement) {
  TRecordingHost host;
  for (const char* function :
       {"CheckDomainAuthById", "CheckDomainAuthByCode", "CheckDomainAuthByNodeCode", "CheckDomainAuthByName",
        "GetDomains", "GetDomainUsers", "GetDomainRoles", "GetDomainManagers", "GetDomainInfo"}) {
    SCOPED_TRACE(function);
    const int inputs = TDomainCall(function).Info->InParams.Count();
    for (int kept = 0; kept < inputs; ++kept) {
      TDomainCall call(function);
      const TFuncParamList all = call.Info->InParams;
      call.Info->InParams = {};
      for (auto input = all.begin(); input != all.begin() + kept; ++input) call.Info->InParams.Add(*input);
      EXPECT_FALSE(call.Execute());
      EXPECT_EQ(call.Result(), "");
    }
  }
  EXPECT_THAT(host.Statements, IsEmpty());
}

TEST(DomainFuncCall, AnInputThatNamesADomainIsNotAskedAboutWhenTheCallWantsNoResult) {
  TRecordingHost host;
  TDomainCall call("CheckDomainAuthById");
  call.With("域ID", "7").Info->OutParams = {};
  EXPECT_TRUE(call.Execute());
  EXPECT_THAT(host.Statements, IsEmpty());
}

TEST(DomainFuncCall, GetDomainsWithAFlagThatIsNoBooleanFailsBeforeAnyStatement) {
  TRecordingHost host;
  for (const char* function : {"GetDomains", "GetDomainUsers", "GetDomainRoles", "GetDomainManagers"}) {
    for (const char* flag : {"maybe", ""}) {
      TDomainCall call(function);
      call.With("返回内容", "Name").With("查询范围", "Own").With("是否包含下级域", flag);
      EXPECT_THROW(call.Execute(), EConvertError);
    }
  }
  EXPECT_THAT(host.Statements, IsEmpty());
}

TEST(DomainFuncCall, TheFlagTakesTheStandardBooleanWords) {
  for (const char* flag : {"true", "True", "1", "-1"}) {
    TRecordingHost host;
    TDomainCall call("GetDomains");
    EXPECT_TRUE(call.With("是否包含下级域", flag).Execute());
    EXPECT_THAT(host.Statements.at(1).Text, testing::HasSubstr("STDomainInherits")) << flag;
  }
  for (const char* flag : {"false", "FALSE", "0"}) {
    TRecordingHost host;
    TDomainCall call("GetDomains");
    EXPECT_TRUE(call.With("是否包含下级域", flag).Execute());
    EXPECT_THAT(host.Statements.at(1).Text, testing::Not(testing::HasSubstr("STDomainInherits"))) << flag;
  }
}

TEST(DomainFuncCall, EachGeneralFunctionReachesItsOwnOperation) {
  struct TExpected {
    const char* Function;
    const char* Field;
    const char* Part;
  };
  const TExpected expected[] = {
      {"GetDomains", "Name", "select distinct Name from STDomains"},
      {"GetDomainUsers", "UserName", "MemberType = 0"},
      {"GetDomainRoles", "UserName", "MemberType = 1"},
      {"GetDomainManagers", "UserName", "MemberType = 2"},
  };
  for (const auto& [function, field, part] : expected) {
    TRecordingHost host;
    host.Answer(part, {"X"}, {{"a"}, {"b"}});
    TDomainCall call(function);
    call.With("返回内容", field).With("查询范围", "Own").With("是否包含下级域", "false");
    EXPECT_TRUE(call.Execute());
    EXPECT_EQ(call.Result(), "a,b") << function;
  }
}

TEST(DomainFuncCall, GetDomainInfoGivesTheFirstCell) {
  TRecordingHost host;
  host.Answer("select Name from STDomains where Code = 'A'", {"Name"}, {{"North"}, {"South"}});
  TDomainCall call("GetDomainInfo");
  EXPECT_TRUE(call.With("返回内容", "Name").With("查询条件", "Code = 'A'").Execute());
  EXPECT_EQ(call.Result(), "North");
}

TEST(DomainFuncCall, AFailureOfAGeneralQueryReachesTheExpressionWithItsMessage) {
  TRecordingHost host;
  const TRefusedStatements refused("NoColumn", "there is no such column");
  host.FailStatement(2);
  TDomainCall call("GetDomainUsers");
  call.With("返回内容", "NoColumn").With("查询范围", "Auth").With("是否包含下级域", "false");
  EXPECT_THAT([&] { call.Execute(); },
              testing::ThrowsMessage<EZanError>("GetDomainUsers执行失败，请检查参数传递是否正确!"));
  EXPECT_EQ(call.Result(), "");
}

TEST(DomainFuncCall, AFailureOfAListPassesAsTheHostsOwnError) {
  TRecordingHost host;
  host.FailStatement(1);
  TDomainCall call("GetAuthDomainIDs");
  EXPECT_THROW(call.Execute(), EDatabaseError);
}

}  // namespace
}  // namespace zantest
