#include "Party/PartyModel.h"

#include "Frame/Commlib.h"
#include "Frame/Host/Classes.h"

namespace zanrole::party {

TBasePartyInfo::~TBasePartyInfo() = default;
TPartyEntityInfo::~TPartyEntityInfo() = default;
TUserInfo::~TUserInfo() = default;
TRoleInfo::~TRoleInfo() = default;
TCompanyInfo::~TCompanyInfo() = default;
TDepartmentInfo::~TDepartmentInfo() = default;

TPartyType TPartyEntityInfo::GetPartyType(std::string_view text) {
  const std::string kind = LowerCase(text);
  if (kind == "positionentity") return TPartyType::ptPositionEntity;
  if (kind == "department") return TPartyType::ptDepartment;
  if (kind == "company") return TPartyType::ptCompany;
  return TPartyType::ptUser;
}

std::string TPartyEntityInfo::GetChStrPartyType() const {
  switch (FPartyType) {
    case TPartyType::ptPositionEntity:
      return TZanResEx::resByExFunc("职位");
    case TPartyType::ptDepartment:
      return TZanResEx::resByExFunc("部门");
    case TPartyType::ptCompany:
      return TZanResEx::resByExFunc("公司");
    case TPartyType::ptUser:
      break;
  }
  return TZanResEx::resByExFunc("个人");
}

}  // namespace zanrole::party
