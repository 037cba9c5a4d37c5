#include "tests/consumer/Consumer.h"

#include <typeinfo>

#include "Domain/U_DomainFuncsImp.h"
#include "Frame/Dialects.h"
#include "Frame/Session.h"
#include "Frame/TolFuns.h"
#include "OrgRights/U_OrgRigthFuncs.h"
#include "Party/PartyDAL.h"
#include "Party/PartyUn.h"
#include "Role/RunPermission.h"
#include "Role/TolPermission.h"

// Another module of the platform: linked against zanrole, and using its services from their headers.

namespace zantest {

using namespace zanrole;

namespace {

std::string Word(bool truth) { return truth ? "yes" : "no"; }

void AskRights(TAnswers& answers) {
  TRunPermission& menus = TRunPermission::GetInstance();
  answers.emplace_back("menu 1", Word(menus.GetMenuPermission(1)));
  answers.emplace_back("roles", menus.GetGroups().Text());
  answers.emplace_back("denied", menus.GetObjOperates("菜单", 1).Text());

  TTolPermission& rights = TTolPermission::GetInstance();
  answers.emplace_back("right on 1", rights.GetPermission(1, "执行"));
  answers.emplace_back("roles counted", std::to_string(rights.GetGroupCount()));
  rights.SetUserID(2);
  answers.emplace_back("right of 2 on 1", rights.GetPermission(1, "执行"));
}

void AskOrganisation(const std::string& user, TAnswers& answers) {
  answers.emplace_back("own OID", TOrgRightFuncs::OrgUserOID());
  answers.emplace_back("own company", TOrgRightFuncs::OrgCompanyName(""));
  answers.emplace_back("OID of user", TPartyFuncs::GetUserOID(user));
  answers.emplace_back("department of user", TPartyFuncs::DepartmentName(user));

  TPartyDAL dal;
  dal.LoadUsers("UserID = " + QuotedStr(user));
  TDataSet& users = dal.UserDataSet();
  answers.emplace_back("users", std::to_string(users.RowCount()));
  answers.emplace_back("name", users.FieldByName("UserName").AsString());
  for (const party::TPartyEntityInfo* top : dal.LoadPartyTopLevel())
    answers.emplace_back(typeid(*top) == typeid(party::TPartyEntityInfo) ? "company" : "other", top->FName);
}

}  // namespace

void ConsumerAskServices(const std::string& user, TAnswers& answers) {
  AskRights(answers);
  AskOrganisation(user, answers);
  answers.emplace_back("user type", std::to_string(TDomainFuncImpl::GetCurUserType()));
  answers.emplace_back("domains", TDomainFuncImpl::GetAuthDomainIDs());
  TDomainFuncImpl::SetCurrentDomainID(2);
}

void ConsumerAskPlainEntries(TAnswers& answers) {
  answers.emplace_back("joined", Join("-", Split(",", "a,b,c")));
  answers.emplace_back("counted", std::to_string(CharCountInStr('a', "banana")));
  answers.emplace_back("resource", ResString("no such resource"));
  answers.emplace_back("now", DBCurDateStr());
  answers.emplace_back("same database", Word(GetDataDbName() == GetSysDbName()));
  answers.emplace_back("administrator", Word(CheckOperatorIsAdmin()));
  answers.emplace_back("hands on rights", Word(CheckOperatorHasEmpowermentRight()));
}

void ConsumerForgetMenus() { TRunPermission::GetInstance().ClearPermissionList(); }

bool ConsumerCatchesFault(std::string& statement) {
  try {
    TDomainFuncImpl::GetDomainInfo("NoSuchColumn", "");
  } catch (const EDatabaseError& fault) {
    statement = fault.Statement();
    return true;
  }
  return false;
}

}  // namespace zantest
