#pragma once

#include <string>
#include <string_view>

#include "Frame/Host/Export.h"

/// The read model of the organisation, as other modules see it. It has a namespace of its own because its
/// TUserInfo and TRoleInfo are namesakes of the records of users and roles in src/Role.
namespace zanrole::party {

enum class TPartyType { ptUser, ptPositionEntity, ptDepartment, ptCompany };

class ZAN_EXPORT TBasePartyInfo {
 public:
  virtual ~TBasePartyInfo();
  int FOID = 0;
  std::string FCode;
  std::string FName;
  std::string FTitle;
  std::string FLongName;

  /// The path of names; the name alone where there is no path.
  const std::string& GetLongName() const { return FLongName.empty() ? FName : FLongName; }
};

/// A node of the tree.
class ZAN_EXPORT TPartyEntityInfo : public TBasePartyInfo {
 public:
  ~TPartyEntityInfo() override;
  TPartyType FPartyType = TPartyType::ptUser;
  std::string FIsActive;  ///< the text of the column ("1"), not a Boolean
  int FParentID = 0;
  int FSequence = 0;

  /// By the text of the column `Type`, in any case of letters; a user for any unknown text.
  static TPartyType GetPartyType(std::string_view text);
  /// The word for the kind in the language of the login.
  std::string GetChStrPartyType() const;
};

class ZAN_EXPORT TUserInfo : public TBasePartyInfo {
 public:
  ~TUserInfo() override;
  std::string FGroup;
  std::string FDesc;
};

class ZAN_EXPORT TRoleInfo : public TBasePartyInfo {
 public:
  ~TRoleInfo() override;
  std::string FGroup;
  std::string FDesc;
};

class ZAN_EXPORT TCompanyInfo : public TBasePartyInfo {
 public:
  ~TCompanyInfo() override;
};

class ZAN_EXPORT TDepartmentInfo : public TBasePartyInfo {
 public:
  ~TDepartmentInfo() override;
  std::string FIntro;
};

}  // namespace zanrole::party
