#include "Party/PartyDAL.h"

#include "tests/unit/Party/PartyFixture.h"

namespace zantest {
namespace {

using namespace zanrole;
using party::TBasePartyInfo;
using party::TPartyEntityInfo;
using party::TPartyType;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kTopLevel =
    "select DjLsh, Type, Name, Title, IsActive, Parent, Sequence, Code, LongName from PartyH where Type = "
    "'Company' and Parent not in (select DjLsh from partyH) order by Sequence";
constexpr const char* kChildren =
    "select DjLsh, Type, Name, Title, IsActive, Parent, Sequence, Code, LongName from PartyH where Parent = "
    "7 "
    "order by Type, Sequence";
constexpr const char* kRoles =
    "select OID,UserID,UserName,UserDesc,Categories from stusers where uGroup=1 and UnUsed <> 1";

/// The statement of the users with this condition behind the one on their kind and state.
std::string UsersStatement(const std::string& range) {
  return "select a.*, c.LongName UserDept from (select OID, UserID, UserName, UserDesc, Categories from "
         "STUsers "
         "where uGroup = 0 and UnUsed <> 1" +
         range +
         ") a left outer join ( select code, max(objID) objID from UserH group by code ) b on a.UserID = "
         "b.Code "
         "left outer join PartyH c on b.objID = c.DjLsh";
}

class TPartyDALTest : public TPartyTest {
 protected:
  void AnswerParty(std::vector<std::vector<TZanValue>> rows) {
    FHost.Answer("from PartyH",
                 {"DjLsh", "Type", "Name", "Title", "IsActive", "Parent", "Sequence", "Code", "LongName"},
                 std::move(rows));
  }
  static std::vector<TZanValue> Node(int id, const char* type, const char* longName) {
    return {std::int64_t{id},     std::string(type), std::string(" 名 "),
            std::string("T "),    std::int64_t{1},   std::int64_t{7},
            std::int64_t{id + 1}, std::string(" C"), std::string(longName)};
  }
  void AnswerUsers(std::vector<std::vector<TZanValue>> rows) {
    FHost.Answer("from STUsers", {"OID", "UserID", "UserName", "UserDesc", "Categories", "UserDept"},
                 std::move(rows));
  }
  static std::vector<TZanValue> User(int oid, const std::string& id, TZanValue department) {
    return {std::int64_t{oid},    id + "  ", std::string(" 张三"), std::string(),
            std::string("a\\b "), department};
  }
};

TEST_P(TPartyDALTest, TheTopLevelAsksForCompaniesWhoseParentIsNoRow) {
  TPartyDAL dal;
  EXPECT_THAT(StatementsOf([&] { dal.LoadPartyTopLevel(); }), ElementsAre(kTopLevel));
}

TEST_P(TPartyDALTest, TheChildrenOfANodeAreOrderedByTypeAndSequence) {
  TPartyDAL dal;
  EXPECT_THAT(StatementsOf([&] { dal.LoadPartyByParentID(7); }), ElementsAre(kChildren));
}

TEST_P(TPartyDALTest, TheTextsOfANodeAreTrimmedAndItsStateStaysText) {
  TPartyDAL dal;
  AnswerParty({Node(21, "Department ", " 集团\\部 ")});
  const auto nodes = dal.LoadPartyByParentID(7);
  ASSERT_EQ(nodes.size(), 1u);
  const TPartyEntityInfo& node = *nodes[0];
  EXPECT_EQ(node.FOID, 21);
  EXPECT_EQ(node.FPartyType, TPartyType::ptDepartment);
  EXPECT_EQ(node.FName, "名");
  EXPECT_EQ(node.FTitle, "T");
  EXPECT_EQ(node.FIsActive, "1");
  EXPECT_EQ(node.FParentID, 7);
  EXPECT_EQ(node.FSequence, 22);
  EXPECT_EQ(node.FCode, "C");
  EXPECT_EQ(node.GetLongName(), "集团\\部");
}

TEST_P(TPartyDALTest, TwoLoadsGiveTwoListsAndTheObjectsOfBothLiveOn) {
  TPartyDAL dal;
  AnswerParty({Node(21, "Department", "x")});
  AnswerParty({Node(21, "Department", "x"), Node(22, "Department", "y")});
  const auto first = dal.LoadPartyByParentID(7);
  const auto second = dal.LoadPartyByParentID(7);
  ASSERT_EQ(first.size(), 1u);
  ASSERT_EQ(second.size(), 2u);
  EXPECT_NE(first[0], second[0]);
  EXPECT_EQ(first[0]->FOID, 21) << "the service still owns it";
  EXPECT_EQ(second[1]->FOID, 22);
}

TEST_P(TPartyDALTest, GetLongNameFallsBackToTheNameOfARowWhosePathIsEmptyOrNull) {
  TPartyDAL dal;
  auto withNull = Node(2, "Company", "");
  withNull[8] = {};
  AnswerParty({Node(1, "Company", ""), withNull, Node(3, "Company", "p")});
  const auto nodes = dal.LoadPartyTopLevel();
  ASSERT_EQ(nodes.size(), 3u);
  EXPECT_EQ(nodes[0]->GetLongName(), "名");
  EXPECT_EQ(nodes[1]->GetLongName(), "名");
  EXPECT_EQ(nodes[2]->GetLongName(), "p");
}

TEST_P(TPartyDALTest, TheRolesAreReadWithTrimmedTextsAndWithoutDepartment) {
  TPartyDAL dal;
  FHost.Answer("from stusers", {"OID", "UserID", "UserName", "UserDesc", "Categories"},
               {{std::int64_t{5}, std::string(" r "), std::string("角色 "), TZanValue{}, std::string("c")},
                {std::int64_t{6}, std::string("s"), std::string("t"), std::string("u"), std::string("v")}});
  EXPECT_THAT(StatementsOf([&] { dal.LoadRoles(); }), ElementsAre(kRoles));
  TDataSet& roles = dal.RoleDataSet();
  ASSERT_EQ(roles.RowCount(), 2);
  EXPECT_EQ(roles.Row(), 0) << "it stands on its first row";
  EXPECT_EQ(roles.FieldByName("OID").AsInteger(), 5);
  EXPECT_EQ(roles.FieldByName("UserID").AsString(), "r");
  EXPECT_EQ(roles.FieldByName("UserName").AsString(), "角色");
  EXPECT_EQ(roles.FieldByName("UserDept").AsString(), "");
}

TEST_P(TPartyDALTest, LoadingAgainReplacesTheRows) {
  TPartyDAL dal;
  AnswerUsers({User(1, "a", std::string("x")), User(2, "b", std::string("y"))});
  dal.LoadUsers("");
  AnswerUsers({User(3, "c", std::string("集团\\部 "))});
  dal.LoadUsers("");
  ASSERT_EQ(dal.UserDataSet().RowCount(), 1);
  EXPECT_EQ(dal.UserDataSet().FieldByName("UserID").AsString(), "c");
  EXPECT_EQ(dal.UserDataSet().FieldByName("UserDept").AsString(), "集团\\部");
  EXPECT_EQ(dal.UserDataSet().FieldByName("Categories").AsString(), "a\\b");
}

TEST_P(TPartyDALTest, ARangeOfUsersStandsInsideTheDerivedTable) {
  TPartyDAL dal;
  EXPECT_THAT(StatementsOf([&] { dal.LoadUsers("  OID > 3 "); }),
              ElementsAre(UsersStatement(" and OID > 3")));
  EXPECT_THAT(StatementsOf([&] { dal.LoadUsers("  "); }), ElementsAre(UsersStatement("")));
}

TEST_P(TPartyDALTest, ATextOfMoreThanTwoHundredCharactersIsCut) {
  TPartyDAL dal;
  std::string longPath;
  for (int i = 0; i < 201; ++i) longPath += "路";
  AnswerUsers({User(1, "a", longPath)});
  dal.LoadUsers("");
  EXPECT_EQ(dal.UserDataSet().FieldByName("UserDept").AsString(), longPath.substr(0, 600));
}

TEST_P(TPartyDALTest, TheListsAreMadeOnceAndLoadOnce) {
  TPartyDAL dal;
  AnswerUsers({User(1, "a", std::string("x"))});
  const auto texts = StatementsOf([&] {
    EXPECT_EQ(&dal.GetUserList(), &dal.GetUserList());
    EXPECT_EQ(&dal.GetRoleList(), &dal.GetRoleList());
  });
  EXPECT_THAT(texts, ElementsAre(UsersStatement(""), kRoles));
  EXPECT_EQ(dal.UserDataSet().RowCount(), 1);
  EXPECT_THAT(dal.GetUserList(), IsEmpty());
}

TEST_P(TPartyDALTest, TheDepartmentsOfTheOrganisation) {
  TPartyDAL dal;
  EXPECT_THAT(
      StatementsOf([&] { dal.LoadRoleOfOrganization(); }),
      ElementsAre("select a.DjLsh, a.Code, a.Name, a.Title, a.Parent, a.LongName Remark from PartyH a "
                  "where a.Type='Department' and a.IsActive=1 order by Code"));
}

TEST_P(TPartyDALTest, ThePeopleOfTheOrganisationAreThoseThatStandBelowANode) {
  TPartyDAL dal;
  const std::string people =
      "select a.DjLsh, a.Code, a.Name, a.Title, a.Parent, a.LongName Remark from PartyH a where "
      "a.Type='User' "
      "and a.IsActive=1 and a.Parent > 0";
  EXPECT_THAT(StatementsOf([&] { dal.LoadUserOfOrganization(" "); }),
              ElementsAre(people + " order by a.Code"));
  EXPECT_THAT(StatementsOf([&] { dal.LoadUserOfOrganization(" a.Parent = 3 "); }),
              ElementsAre(people + " and a.Parent = 3 order by a.Code"));
}

TEST_P(TPartyDALTest, AFaultOfTheDatabasePassesToTheCaller) {
  TPartyDAL dal;
  for (int load = 0; load < 6; ++load) {
    FHost.FailStatement(1);
    EXPECT_THROW(
        {
          if (load == 0) dal.LoadPartyTopLevel();
          if (load == 1) dal.LoadPartyByParentID(1);
          if (load == 2) dal.LoadRoles();
          if (load == 3) dal.LoadUsers("");
          if (load == 4) dal.LoadRoleOfOrganization();
          if (load == 5) dal.LoadUserOfOrganization("");
        },
        EDatabaseError)
        << load;
  }
  AnswerUsers({User(1, "a", std::string("x"))});
  dal.LoadUsers("");
  EXPECT_EQ(dal.UserDataSet().RowCount(), 1) << "the service goes on";
}

IN_EVERY_DIALECT(TPartyDALTest);

TEST(PartyModel, TheKindIsReadInAnyCaseOfLettersAndAnUnknownOneIsAPerson) {
  EXPECT_EQ(TPartyEntityInfo::GetPartyType("POSITIONentity"), TPartyType::ptPositionEntity);
  EXPECT_EQ(TPartyEntityInfo::GetPartyType("Department"), TPartyType::ptDepartment);
  EXPECT_EQ(TPartyEntityInfo::GetPartyType("Company"), TPartyType::ptCompany);
  EXPECT_EQ(TPartyEntityInfo::GetPartyType("User"), TPartyType::ptUser);
  EXPECT_EQ(TPartyEntityInfo::GetPartyType("WorkGroup"), TPartyType::ptUser);
  EXPECT_EQ(TPartyEntityInfo::GetPartyType(""), TPartyType::ptUser);
}

TEST(PartyModel, TheWordForAUserRowAndForARowOfAnUnknownKindIsPerson) {
  TRecordingHost host;
  const auto word = [](std::string_view kind) {
    TPartyEntityInfo node;
    node.FPartyType = TPartyEntityInfo::GetPartyType(kind);
    return node.GetChStrPartyType();
  };
  EXPECT_EQ(word("User"), "个人");
  EXPECT_EQ(word("UserGroup"), "个人");
  EXPECT_EQ(word("PositionEntity"), "职位");
  EXPECT_EQ(word("Department"), "部门");
  EXPECT_EQ(word("Company"), "公司");
}

}  // namespace
}  // namespace zantest
