#include <gmock/gmock.h>

#include "Party/PartyUn.h"
#include "Party/PositionMap.h"
#include "tests/conformance/Conformance.h"
#include "tests/conformance/scenario/World.h"

// The questions about the organisation: their effects on an organisation small enough to be checked by hand.

namespace zantest {

namespace {

using testing::AnyOf;
using TFuncs = zanrole::TPartyFuncs;

constexpr std::string_view kOrganisation = R"(
kind K1 经理
kind K2 员工
organisation
  company C1 总公司
    department D1 管理部
      position P1 总经理 manager kind K1
        person zhang 张总
    department D2 研发部
      position P2 研发经理 manager below P1 kind K1
        person wang 王芳
        person sun 孙伟
      position P3 工程师 below P2 kind K2
        person li 李明
        person chen 陈杰
        person sun 孙伟 second
    company C2 子公司
      department D3 销售部
        department D4 华东组
          position P5 销售员 below P1
            person zhao "赵 强"
      person head 主管
  department D9 无公司
    position P9 顾问
      person o'neil O'Neil
detached
  person qian 钱进
map 行政图
  P1
    P2
      P3
    P5
map 业务图
  P3
)";

class TParty : public TScenarioWorld {
 public:
  TParty() { AddText(kOrganisation); }
  std::string Number(const std::string& name) const { return std::to_string((*this)[name]); }
};

}  // namespace

TEST_P(Conformance, PartyFuncs_TheChainOfSuperiorsOneLevel) {
  Engine().InstallSchema();
  const TParty party;
  EXPECT_EQ(TFuncs::Superior("wang"), "zhang,");
  EXPECT_THAT(TFuncs::Superior("li"), AnyOf("wang,sun,", "sun,wang,"));
  // -9 says that there is no superior, and where the people without a place are.
  EXPECT_EQ(TFuncs::Superior("zhang"), "qian,");
  EXPECT_EQ(TFuncs::SuperOID("zhang"), "-9");
  EXPECT_THAT(TFuncs::Underling("wang"), AnyOf("li,chen,sun", "li,sun,chen", "chen,li,sun", "chen,sun,li",
                                               "sun,li,chen", "sun,chen,li"));
  EXPECT_EQ(TFuncs::Underling("li"), "");
  EXPECT_EQ(TFuncs::SuperOID("li"), party.Number("P2"));
  EXPECT_EQ(TFuncs::UnderOIDS("wang"), party.Number("P3"));
}

TEST_P(Conformance, PartyFuncs_AMapOneLevel) {
  Engine().InstallSchema();
  const TParty party;
  EXPECT_EQ(TFuncs::SuperiorEx("wang", "行政图"), "zhang");
  EXPECT_THAT(TFuncs::SuperiorEx("li", "行政图"), AnyOf("wang,sun", "sun,wang"));
  EXPECT_EQ(TFuncs::UnderlingEx("zhao", "行政图"), "");
  // At the first level of a map nobody stands above, at the last nobody below.
  EXPECT_EQ(TFuncs::SuperiorEx("zhang", "行政图"), "");
  EXPECT_EQ(TFuncs::SuperiorEx("li", "业务图"), "");
  EXPECT_EQ(TFuncs::UnderlingEx("li", "行政图"), "");
  // An empty name is the map with the lowest number.
  EXPECT_EQ(TFuncs::findMapId(""), party["行政图"]);
  EXPECT_EQ(TFuncs::SuperiorEx("wang", ""), "zhang");
  EXPECT_EQ(TFuncs::findMapId("没有"), -1);
  EXPECT_EQ(TFuncs::SuperiorEx("wang", "没有"), "");
  EXPECT_EQ(TFuncs::UnderlingEx("wang", "没有"), "");
  EXPECT_EQ(TFuncs::SuperiorEx("nobody", "行政图"), "");
}

TEST_P(Conformance, PartyFuncs_AllLevelsOfAMapFailInTheDatabaseForTheCommaAtTheEnd) {
  Engine().InstallSchema();
  const TParty party;
  for (const char* user : {"zhang", "wang", "li", "zhao"})
    EXPECT_THROW(TFuncs::SuperiorAllEx(user, "行政图"), zanrole::EDatabaseError) << user;
  for (const char* user : {"zhang", "wang"})
    EXPECT_THROW(TFuncs::UnderlingAllEx(user, "行政图"), zanrole::EDatabaseError) << user;
  // Who has no place on the map, or nobody below him, does not get as far as that statement.
  EXPECT_EQ(TFuncs::SuperiorAllEx("qian", "行政图"), "");
  EXPECT_EQ(TFuncs::SuperiorAllEx("nobody", "行政图"), "");
  EXPECT_EQ(TFuncs::SuperiorAllEx("li", "没有"), "");
  EXPECT_EQ(TFuncs::UnderlingAllEx("zhao", "行政图"), "");
  EXPECT_EQ(TFuncs::UnderlingAllEx("nobody", ""), "");
}

TEST_P(Conformance, PartyFuncs_PlacesOfAMap) {
  Engine().InstallSchema();
  const TParty party;
  const std::string map = "select Djlsh from PositionMapH where MapID = " + party.Number("行政图");
  const auto place = [&](const char* position) {
    return Cell(map + " and PositionID = " + party.Number(position));
  };
  EXPECT_EQ(TFuncs::SuperOIDEx("wang", "行政图"), place("P1"));
  EXPECT_EQ(TFuncs::SuperOIDEx("zhang", "行政图"), party.Number("行政图"));
  EXPECT_THAT(TFuncs::UnderOIDSEx("zhang", "行政图"),
              AnyOf(place("P2") + "," + place("P5"), place("P5") + "," + place("P2")));
  EXPECT_EQ(TFuncs::UnderOIDSEx("li", "行政图"), "");
  EXPECT_EQ(TFuncs::SuperOIDEx("li", "业务图"), party.Number("业务图"));
  EXPECT_EQ(TFuncs::SuperOIDEx("wang", "业务图"), "");
  EXPECT_EQ(TFuncs::SuperOIDEx("nobody", ""), "");
}

TEST_P(Conformance, PartyFuncs_AMapEditedElsewhereIsSeenAfterFreeMapList) {
  Engine().InstallSchema();
  const TParty party;
  EXPECT_EQ(TFuncs::SuperOIDEx("li", "业务图"), party.Number("业务图"));
  Exec("delete from PositionMapH where MapID = " + party.Number("业务图"));
  EXPECT_EQ(TFuncs::SuperOIDEx("li", "业务图"), party.Number("业务图"));
  zanrole::FreeMapList();
  EXPECT_EQ(TFuncs::SuperOIDEx("li", "业务图"), "");
}

TEST_P(Conformance, PartyFuncs_DepartmentAndCompanyOfTheMainPost) {
  Engine().InstallSchema();
  const TParty party;
  // The main post of sun is the one on P2; both lie in one department.
  EXPECT_EQ(TFuncs::DepartmentOID("sun"), party.Number("D2"));
  EXPECT_EQ(TFuncs::DepartmentCode("li"), "D2");
  EXPECT_EQ(TFuncs::DepartmentName("li"), "研发部");
  EXPECT_EQ(TFuncs::CompanyCode("li"), "C1");
  EXPECT_EQ(TFuncs::CompanyName("li"), "总公司");
  EXPECT_EQ(TFuncs::CompanyOID("li"), party.Number("C1"));
  // A department below a department; a company below a company.
  EXPECT_EQ(TFuncs::DepartmentCode("zhao"), "D4");
  EXPECT_EQ(TFuncs::CompanyCode("zhao"), "C2");
  EXPECT_EQ(TFuncs::CompanyCodeByDepartmentOid(party.Number("D4")), "C2");
  EXPECT_EQ(TFuncs::CompanyCodeByDepartmentOid(party.Number("P5")), "");
  // No company above, and a main post that lies in no department.
  EXPECT_EQ(TFuncs::DepartmentCode("o'neil"), "D9");
  EXPECT_EQ(TFuncs::CompanyCode("o'neil"), "");
  EXPECT_EQ(TFuncs::CompanyCode("head"), "");
  // Without a main post the login is taken for the code of a department.
  EXPECT_EQ(TFuncs::DepartmentOID("qian"), "");
  EXPECT_EQ(TFuncs::DepartmentOID("D2"), party.Number("D2"));
  EXPECT_EQ(TFuncs::CompanyName("D4"), "子公司");
  EXPECT_EQ(TFuncs::DepartmentOID("C1"), "");
}

TEST_P(Conformance, PartyFuncs_PositionsAndTheirHolders) {
  Engine().InstallSchema();
  const TParty party;
  EXPECT_EQ(TFuncs::PositionEntityOID("sun"), party.Number("P2"));
  EXPECT_EQ(TFuncs::PositionEntityCode("sun"), "P2");
  EXPECT_EQ(TFuncs::PositionEntityName("sun"), "研发经理");
  EXPECT_EQ(TFuncs::PositionCode("sun"), "K1");
  EXPECT_EQ(TFuncs::PositionName("sun"), "经理");
  EXPECT_EQ(TFuncs::PositionName("li"), "员工");
  EXPECT_EQ(TFuncs::PositionCode("zhao"), "");
  EXPECT_EQ(TFuncs::PositionEntityOID("qian"), "");

  EXPECT_EQ(TFuncs::PositionUsercodes("P5"), "zhao");
  EXPECT_EQ(TFuncs::PositionUserNames("P5"), "赵 强");
  EXPECT_EQ(TFuncs::PositionUserOIDs("P5"), party.Number("person:zhao"));
  EXPECT_THAT(TFuncs::PositionUsercodes("P2"), AnyOf("wang,sun", "sun,wang"));
  EXPECT_EQ(TFuncs::PositionUsercodes("P8"), "");
  EXPECT_THAT(TFuncs::GetPositionUserValues(party["P2"], "name"), AnyOf("王芳,孙伟", "孙伟,王芳"));
}

TEST_P(Conformance, PartyFuncs_ManagersStandRightBelowTheUnit) {
  Engine().InstallSchema();
  const TParty party;
  EXPECT_EQ(TFuncs::GetManagerPositionEntity("D1"), party["P1"]);
  EXPECT_EQ(TFuncs::GetManagerCode("D1"), "zhang");
  EXPECT_EQ(TFuncs::GetManagerName("D1"), "张总");
  EXPECT_THAT(TFuncs::GetManagerCode("D2"), AnyOf("wang,sun", "sun,wang"));
  EXPECT_EQ(TFuncs::GetManagerCode("C1"), "");
  EXPECT_EQ(TFuncs::GetManagerCode("D4"), "");
  EXPECT_EQ(TFuncs::GetManagerPositionEntity("nothing"), -1);
  // Of two manager posts one counts.
  Exec("update PositionEntityH set isManager = 1 where code = 'P3'");
  EXPECT_THAT(TFuncs::GetManagerPositionEntity("D2"), AnyOf(party["P2"], party["P3"]));
}

TEST_P(Conformance, PartyFuncs_MainPostsByLogin) {
  Engine().InstallSchema();
  const TParty party;
  EXPECT_EQ(TFuncs::GetUserOID("sun"), party.Number("sun:P2"));
  EXPECT_EQ(TFuncs::GetUserOID("qian"), "0");
  EXPECT_EQ(TFuncs::GetUserOID("nobody"), "");
  EXPECT_THAT(TFuncs::GetUserOIDS("li,nobody,zhao"),
              AnyOf(party.Number("li:P3") + "," + party.Number("zhao:P5"),
                    party.Number("zhao:P5") + "," + party.Number("li:P3")));
  EXPECT_EQ(TFuncs::GetUserOIDS(""), "");
}

TEST_P(Conformance, PartyFuncs_AQuoteInALoginGoesSafelyThroughSomeAndBreaksOthers) {
  Engine().InstallSchema();
  const TParty party;
  EXPECT_EQ(TFuncs::Superior("o'neil"), "qian,");
  EXPECT_EQ(TFuncs::PositionEntityCode("o'neil"), "P9");
  EXPECT_EQ(TFuncs::GetUserOIDS("o'neil"), party.Number("o'neil:P9"));
  EXPECT_EQ(TFuncs::SuperiorEx("o'neil", "行政图"), "");
  EXPECT_EQ(TFuncs::UnderlingAllEx("o'neil", "行政图"), "");
  EXPECT_THROW(TFuncs::SuperOID("o'neil"), zanrole::EDatabaseError);
  EXPECT_THROW(TFuncs::UnderOIDS("o'neil"), zanrole::EDatabaseError);
  EXPECT_THROW(TFuncs::SuperiorAllEx("o'neil", "行政图"), zanrole::EDatabaseError);
}

}  // namespace zantest
