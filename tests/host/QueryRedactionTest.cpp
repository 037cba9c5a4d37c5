#include <gtest/gtest.h>

#include <boost/json.hpp>
#include <fstream>

#include "host/query/Redaction.h"
#include "host/query/Trace.h"
#include "tests/support/TemporaryFolder.h"

namespace zantest {

using zanhost::RedactStatement;
using zanhost::TraceLine;
using zanhost::TTraceEntry;

namespace {

boost::json::object LineOf(const TTraceEntry& entry) {
  return boost::json::parse(TraceLine(entry)).as_object();
}

zanrole::TParams ParamsOf(std::string_view statement, std::string_view name, std::string_view value) {
  zanrole::TParams params;
  params.Refill(statement);
  params.Find(name)->AsString(value);
  return params;
}

}  // namespace

TEST(QueryRedaction, AStatementWithoutPasswordsStaysAsItIs) {
  const std::string statement = "update STUsers set UserName = 'Ann''s' where UserID = 'ann'";
  EXPECT_EQ(RedactStatement(statement), statement);
}

TEST(QueryRedaction, LiteralsBesideAPasswordColumnAreHidden) {
  EXPECT_EQ(RedactStatement("Update STUsers Set Password = 'se''cret' Where OID = 5"),
            "Update STUsers Set Password = '***' Where OID = 5");
  EXPECT_EQ(RedactStatement("select 1 from UserH where loginPassword=N'secret'"),
            "select 1 from UserH where loginPassword='***'");
  EXPECT_EQ(RedactStatement("update T set [BbsPassword] = \"secret\""), "update T set [BbsPassword] = '***'");
}

TEST(QueryRedaction, ANumberAsPasswordIsHidden) {
  EXPECT_EQ(RedactStatement("update STUsers set Password = 123456 where OID = 5"),
            "update STUsers set Password = *** where OID = 5");
}

TEST(QueryRedaction, TheTableOfPasswordRulesCountsAsWell) {
  EXPECT_EQ(RedactStatement("insert into STUserPasswordStrategy(UserID) values('ann')"),
            "insert into STUserPasswordStrategy(UserID) values('***')");
}

TEST(QueryRedaction, StatementsInsideAQuotedCallAreRead) {
  EXPECT_EQ(RedactStatement(
                "call MySql_execute_MultiSql('Update STUsers Set Password=''se''''cret'' where oid=5;\r\n"
                "Update T set a=''b'';')"),
            "call MySql_execute_MultiSql('Update STUsers Set Password=''***'' where oid=5;\r\n"
            "Update T set a=''***'';')");
}

TEST(QueryRedaction, StatementsInsideAnUnquotedCallAreRead) {
  EXPECT_EQ(RedactStatement("call MySql_execute_MultiSql(\r\nUpdate STUsers Set Password='secret';\r\n)"),
            "call MySql_execute_MultiSql(\r\nUpdate STUsers Set Password='***';\r\n)");
}

TEST(QueryRedaction, AWholeBatchIsHiddenWithItsPassword) {
  const std::string redacted = RedactStatement(
      "begin\r\nUpdate STUsers Set Password = 'secret' Where OID = 5;\r\nupdate T set a = 'secret';\r\nend;");
  EXPECT_EQ(redacted.find("secret"), std::string::npos) << redacted;
}

TEST(QueryRedaction, QuotesThatDoNotMatchHideTheStatement) {
  for (const std::string statement :
       {"update STUsers set Password = 'ab'secret' where OID = 1", "update STUsers set Password = 'secret",
        "update STUsers set Password = 'a'b'",
        "call MySql_execute_MultiSql('Update STUsers Set Password='secret'')"}) {
    const std::string redacted = RedactStatement(statement);
    EXPECT_EQ(redacted.find("secret"), std::string::npos) << redacted;
    EXPECT_TRUE(redacted.starts_with("***")) << redacted;
  }
}

TEST(QueryTrace, ALineTellsStatementParametersRowsAndTime) {
  const std::string statement = "select IsNull(a,0) from T where b = :B and c = :C";
  const zanrole::TParams params = ParamsOf(statement, "B", "x\"y");
  TTraceEntry entry{"data",  statement, "select ifnull(a,0) from T where b = :B and c = :C",
                    &params, 3,         std::chrono::microseconds(17),
                    {},      {}};
  const boost::json::object line = LineOf(entry);
  EXPECT_EQ(line.at("database"), "data");
  EXPECT_EQ(line.at("text"), boost::json::string(statement));
  EXPECT_EQ(line.at("sent"), "select ifnull(a,0) from T where b = :B and c = :C");
  EXPECT_EQ(line.at("params").at("B"), "x\"y");
  EXPECT_TRUE(line.at("params").at("C").is_null());
  EXPECT_EQ(line.at("rows"), 3);
  EXPECT_EQ(line.at("us"), 17);
  EXPECT_FALSE(line.contains("error"));
}

TEST(QueryTrace, WhatIsTheSameIsNotToldTwice) {
  EXPECT_FALSE(LineOf({"system", "select 1", {}, nullptr, 1, {}, {}, {}}).contains("sent"));
}

TEST(QueryTrace, APasswordInAParameterIsHidden) {
  const std::string statement = "Insert Into STUsers (OID, Password) Values (:OID, :Password)";
  zanrole::TParams params = ParamsOf(statement, "Password", "secret");
  params.Find("OID")->AsInteger(5);
  const boost::json::object line = LineOf({"data", statement, {}, &params, 1, {}, {}, {}});
  EXPECT_EQ(line.at("params").at("Password"), "***");
  EXPECT_EQ(line.at("params").at("OID"), 5);
}

TEST(QueryTrace, TheMessageOfAFailedStatementAboutPasswordsIsHidden) {
  const std::string statement = "update STUsers set Password = secret";
  const boost::json::object line =
      LineOf({"data", statement, {}, nullptr, 0, {}, "no such column: secret", "SQL logic error"});
  EXPECT_EQ(line.at("error"), "SQL logic error");
  const boost::json::object plain =
      LineOf({"data", "select x", {}, nullptr, 0, {}, "no such column: x", "SQL logic error"});
  EXPECT_EQ(plain.at("error"), "no such column: x");
}

TEST(QueryTrace, IsOneLineAStatementAndReadByItsOwnerOnly) {
  const TTemporaryFolder folder;
  const std::string file = folder / "trace.jsonl";
  for (int session = 0; session < 2; ++session) {
    zanhost::TTrace trace(file);
    trace.Write({"data", "select 'a\nb'", {}, nullptr, 1, {}, {}, {}});
  }
  std::ifstream stream(file);
  std::string line;
  int lines = 0;
  for (; std::getline(stream, line); ++lines) EXPECT_EQ(boost::json::parse(line).at("text"), "select 'a\nb'");
  EXPECT_EQ(lines, 2);
  EXPECT_EQ(std::filesystem::status(file).permissions(),
            std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
}

TEST(QueryTrace, AFileThatCannotBeOpenedIsTold) {
  EXPECT_THROW(zanhost::TTrace("/nowhere/trace.jsonl"), zanrole::EZanError);
}

}  // namespace zantest
