#include "Domain/U_DomainFuncsImp.h"

#include <algorithm>

#include "Domain/SetDomainService.h"
#include "Domain/U_DomainFuncsImpQuery.h"
#include "Frame/Commlib.h"
#include "Frame/Session.h"

namespace zanrole {

std::string ResString(std::string_view key) { return TZanResEx::resByExFunc(key); }

int CharCountInStr(char character, std::string_view text) {
  return static_cast<int>(std::count(text.begin(), text.end(), character));
}

int TDomainFuncImpl::GetCurDomainID() { return CurrentDomain().ID; }

std::string TDomainFuncImpl::GetCurDomainCode() {
  return QueryValue("select Code from STDomains where ID = " + CurrentDomain().Text);
}

std::string TDomainFuncImpl::GetCurDomainNodeCode() {
  return QueryValue("select FullCode from STDomains where ID = " + CurrentDomain().Text);
}

std::string TDomainFuncImpl::GetCurDomainName() {
  return QueryValue("select Name from STDomains where ID = " + CurrentDomain().Text);
}

std::string TDomainFuncImpl::GetCurDomainFullName() {
  return QueryValue("select FullName from STDomains where ID = " + CurrentDomain().Text);
}

void TDomainFuncImpl::SetCurrentDomainID(int id) {
  CurrentDomain() = {id, std::to_string(id)};
  // Outside the intranet the client works through the web tier, which keeps a current domain of its own.
  if (LowerCase(SystemInfo().SessionParams.Values("UsingIntranet")) == "false")
    TSetDomainService().Execute(id);
}

namespace {

// clang-format off
constexpr const char* kDomainInRangeById =
    "select DescendantID from STDomainInherits "
    "where AncestorID in ( select DomainID from STDomainMembers where IsOwned = 0 and UserOID = %d ) "
    "and DescendantID = %d";

// A condition on the domain follows.
constexpr const char* kDomainInRange =
    "select b.FullCode from STDomainInherits a inner join STDomains b on a.DescendantID = b.ID "
    "where a.AncestorID in ( select DomainID from STDomainMembers where IsOwned = 0 and UserOID = %d";
constexpr const char* kAndCode     = " ) and b.Code = '%s'";
constexpr const char* kAndNodeCode = " ) and b.FullCode = '%s'";
constexpr const char* kAndName     = " ) and b.Name = '%s'";
// clang-format on

bool IsInRange(const char* condition, const std::string& value) {
  return QueryExists(Format(kDomainInRange, {SystemInfo().LoginUserOID}) + Format(condition, {value}));
}

}  // namespace

bool TDomainFuncImpl::CheckDomainAuthById(int id) {
  return QueryExists(Format(kDomainInRangeById, {SystemInfo().LoginUserOID, id}));
}

bool TDomainFuncImpl::CheckDomainAuthByCode(const std::string& code) { return IsInRange(kAndCode, code); }

bool TDomainFuncImpl::CheckDomainAuthByNodeCode(const std::string& nodeCode) {
  return IsInRange(kAndNodeCode, nodeCode);
}

bool TDomainFuncImpl::CheckDomainAuthByName(const std::string& name) { return IsInRange(kAndName, name); }

}  // namespace zanrole
