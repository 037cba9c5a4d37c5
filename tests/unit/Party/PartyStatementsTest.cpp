#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include "Party/PartyUn.h"
#include "tests/support/RecordingHost.h"
#include "tests/support/StatementCorpus.h"

// The statements of the questions about the organisation, word for word, for a user with a quote in his
// login.

namespace zantest {
namespace {

using testing::ElementsAre;
using testing::Pair;
using TFuncs = zanrole::TPartyFuncs;

struct TExpectedStatement {
  const char* Name;
  std::function<void()> Ask;
  std::string Statement;
};

// clang-format off
const std::string kMainPost = "(djlsh = (select objid from UserH where code='o''neil'))";
const std::string kPosition = "select parent from partyh where type='User' and " + kMainPost;

const TExpectedStatement kOneStatement[] = {
    {"Superior", [] { TFuncs::Superior("o'neil"); },
     "select code from partyH where parent in ( select UpperPosition from positionEntityh where ObjID in "
     "( select parent from partyh where code= 'o''neil'))"},
    {"Underling", [] { TFuncs::Underling("o'neil"); },
     "select code from partyH where parent in ( select ObjID from positionEntityh where UpperPosition in "
     "( select parent from partyh where type='User' and code= 'o''neil'))"},
    {"SuperOID", [] { TFuncs::SuperOID("o'neil"); },
     "select UpperPosition from positionEntityh where ObjID in ( select parent from partyh where code= 'o'neil')"},
    {"UnderOIDS", [] { TFuncs::UnderOIDS("o'neil"); },
     "select ObjID from positionEntityh where UpperPosition in "
     "( select parent from partyh where type='User' and code= 'o'neil')"},
    {"PositionEntityOID", [] { TFuncs::PositionEntityOID("o'neil"); },
     "select parent as oid from partyh where type='User' and " + kMainPost},
    {"PositionEntityCode", [] { TFuncs::PositionEntityCode("o'neil"); },
     "select code from partyh where djlsh in ( " + kPosition + ")"},
    {"PositionEntityName", [] { TFuncs::PositionEntityName("o'neil"); },
     "select name from partyh where djlsh in ( " + kPosition + ")"},
    {"PositionCode", [] { TFuncs::PositionCode("o'neil"); },
     "select code from PositionH where code in ( select PositionCode from PositionEntityH where ObjID in ( " + kPosition + "))"},
    {"PositionName", [] { TFuncs::PositionName("o'neil"); },
     "select name from PositionH where code in ( select PositionCode from PositionEntityH where ObjID in ( " + kPosition + "))"},
    {"CompanyCodeByDepartmentOid", [] { TFuncs::CompanyCodeByDepartmentOid("5"); },
     "select parent from partyh where type = 'Department' and djlsh= 5"},
    {"GetManagerPositionEntity", [] { TFuncs::GetManagerPositionEntity("D5"); },
     "select p.name as peName,p.djlsh as peoid,p.type,pe.* from partyh p "
     "left join PositionEntityH pe on pe.objid = p.djlsh "
     "where (p.parent in (select djlsh from partyh where code=:depcode)) and (p.type='PositionEntity')and (pe.isManager =1)"},
    {"GetUserOID", [] { TFuncs::GetUserOID("o'neil"); }, "select ObjID from UserH where (code= 'o''neil')"},
    {"GetUserOIDS", [] { TFuncs::GetUserOIDS("li,o'neil,wang"); },
     "select ObjID from UserH where (code in ('li', 'o''neil', 'wang'))"},
};
// clang-format on

class PartyStatements : public testing::TestWithParam<TDialect> {
 protected:
  TRecordingHost Host{GetParam()};
  std::string QuotedType() { return Host.Databases().GetDBObjectHelper()->QuoteName("type"); }
};

TEST_P(PartyStatements, EachQuestionSendsItsOneStatementToTheDataDatabase) {
  const TRefusedStatements refused("'o'neil'", "the quote in the login ends the literal");
  for (const TExpectedStatement& expected : kOneStatement) {
    SCOPED_TRACE(expected.Name);
    Host.Statements.clear();
    expected.Ask();
    ASSERT_EQ(Host.Statements.size(), 1u);
    EXPECT_EQ(Squeeze(Host.Statements[0].Text), expected.Statement);
    EXPECT_EQ(Host.Statements[0].Database, "data");
    EXPECT_EQ(Host.Statements[0].Kind, "Open");
  }
}

TEST_P(PartyStatements, TheReservedWordTypeIsQuotedForTheDialect) {
  TFuncs::PositionUserOIDs("p'1");
  TFuncs::PositionUsercodes("p'1");
  TFuncs::PositionUserNames("p'1");
  TFuncs::GetPositionUserValues(4, "code");
  const std::string holders = "select code from PartyH where " + QuotedType() +
                              "='User' and(parent in (select objId from PositionEntityH where Code='p''1'))";
  const std::string both = "select code,name" + holders.substr(std::string("select code").size());
  EXPECT_THAT(
      Host.Texts(),
      ElementsAre("select Djlsh as oid,Code,Name from UserH where Code in ( " + holders + " )", both, both,
                  "select code,name from PartyH where " + QuotedType() + "='User' and(parent=:parent )"));
  EXPECT_THAT(Host.Statements.at(3).Params, ElementsAre(Pair("parent", TZanValue(std::int64_t{4}))));
}

TEST_P(PartyStatements, AManagerIsLookedForByHisPost) {
  Host.Answer("peoid", {"peoid"}, {{8}});
  TFuncs::GetManagerCode("D5");
  ASSERT_EQ(Host.Statements.size(), 2u);
  EXPECT_THAT(Host.Statements.at(0).Params, ElementsAre(Pair("depcode", TZanValue("D5"))));
  EXPECT_THAT(Host.Statements.at(1).Params, ElementsAre(Pair("parent", TZanValue(std::int64_t{8}))));
}

TEST_P(PartyStatements, TheFirstMapIsReadThroughTheHostsBuilder) {
  EXPECT_EQ(TFuncs::findMapId(""), -1);
  EXPECT_THAT(Host.Texts(), ElementsAre(Squeeze(Host.Databases().GetSelectSQLHelper()->Build(
                                {"MapId, PositionName", "PositionMapH", "PositionID = -1", "MapId"}))));
}

TEST_P(PartyStatements, AMapOneLevel) {
  for (const auto ask : {TFuncs::SuperiorEx, TFuncs::UnderlingEx}) {
    Host.Answer("MapName", {"MapId"}, {{7}});
    ask("o'neil", "行政图");
  }
  const std::string findMap =
      "select MapId,PositionName from PositionMapH where (PositionID=-1)and (PositionName=:MapName)";
  EXPECT_THAT(
      Host.Texts(),
      ElementsAre(findMap,
                  "select code from partyH where parent in ( select MP.PositionId from PositionMapH MP "
                  "where MP.PositionID >= 0 and MP.djlsh in ( SELECT LP.UpperPosition FROM PositionMapH LP "
                  "WHERE LP.MapID = :MapID AND LP.UpperPosition >= 0 AND LP.UpperPosition >= 0 "
                  "and LP.PositionID in (select parent from partyh where code = :UserId) ))",
                  findMap,
                  "select code from partyH where parent in (select MP.PositionId from PositionMapH MP "
                  "where MP.UpperPosition in ( SELECT LP.djlsh FROM PositionMapH LP "
                  "WHERE (LP.MapID = :MapID) and (LP.PositionID in (select parent from partyh where "
                  "code=:UserID)) ))"));
  EXPECT_THAT(Host.Statements.at(1).Params,
              ElementsAre(Pair("MapID", TZanValue(std::int64_t{7})), Pair("UserId", TZanValue("o'neil"))));
  EXPECT_THAT(Host.Statements.at(3).Params,
              ElementsAre(Pair("MapID", TZanValue(std::int64_t{7})), Pair("UserID", TZanValue("o'neil"))));
}

TEST_P(PartyStatements, ADepartmentAndItsCompany) {
  Host.AlwaysAnswer("as oid", {"oid"}, {{5}});
  Host.AlwaysAnswer("type = 'Department'", {"parent"}, {{4}});
  Host.Answer("type,code,parent", {"type", "code", "parent"}, {{"Department", "D4", 1}});
  Host.Answer("type,code,parent", {"type", "code", "parent"}, {{"Company", "C'1", -1}});
  TFuncs::CompanyName("o'neil");
  EXPECT_THAT(Host.Texts(),
              ElementsAre("select parent as oid from partyh where djlsh in ( " + kPosition + ")",
                          "select parent from partyh where type = 'Department' and djlsh= 5",
                          "select type,code,parent from partyh where djlsh = 4",
                          "select type,code,parent from partyh where djlsh = 1",
                          "select name from partyh where type='Company' and code= 'C''1'"));
}

TEST_P(PartyStatements, TheIdentityOfADepartmentIsComparedAsAText) {
  Host.AlwaysAnswer("as oid", {"oid"}, {{5}});
  TFuncs::DepartmentCode("li");
  TFuncs::DepartmentName("li");
  EXPECT_EQ(Host.Texts().at(1), "select code from partyh where djlsh = '5'");
  EXPECT_EQ(Host.Texts().at(3), "select name from partyh where djlsh = '5'");
}

INSTANTIATE_TEST_SUITE_P(Dialects, PartyStatements,
                         testing::Values(TDialect::SqlServer, TDialect::Oracle, TDialect::MySql),
                         [](const auto& dialect) {
                           return dialect.param == TDialect::MySql    ? "MySql"
                                  : dialect.param == TDialect::Oracle ? "Oracle"
                                                                      : "SqlServer";
                         });

}  // namespace
}  // namespace zantest
