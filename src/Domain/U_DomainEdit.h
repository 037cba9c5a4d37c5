#pragma once

#include <memory>
#include <string>

#include "Domain/DomainRecords.h"
#include "Frame/Host/Forms.h"
#include "Frame/Host/Zandbs.h"

namespace zanrole {

/// The fault of the first of the two required texts that is blank, a key of the resource strings; null when
/// both are filled.
const char* BlankFieldFault(const TDomainFields& fields);

/// The dialog in which a domain is entered. Its OK keeps the rules of names and codes; it writes nothing.
class TFormDomainEdit final : public TForm {
 public:
  /// For a new domain: `ownID` is kNoDomain and `fullName` the path of the parent. For an edit `fullName` is
  /// the path of the domain itself.
  TFormDomainEdit(TFormHost& host, int ownID, int parentID, std::string fullName);

  std::string ClassName() const override { return "TFormDomainEdit"; }
  void InitLngResources() override;

  /// Shows stored values. May run a statement, for the path of the organisation.
  void SetFields(const TDomainFields& fields);
  /// What is entered at the moment.
  TDomainFields Fields() const;

  TGroup GroupTitle{*this, nullptr, "GroupTitle", TGroupRole::Column};
  TLabel LabelTitle{*this, &GroupTitle, "LabelTitle"};
  TLabel LabelDomain{*this, &GroupTitle, "LabelDomain"};
  TGroup GroupFields{*this, nullptr, "GroupFields", TGroupRole::Fields};
  TEdit EditName{*this, &GroupFields, "EditName"};
  TEdit EditCode{*this, &GroupFields, "EditCode"};
  TMemo EditRemark{*this, &GroupFields, "EditRemark"};
  TSpinEdit EditUserLimit{*this, &GroupFields, "EditUserLimit"};
  TLabel LabelUserLimit{*this, &GroupFields, "LabelUserLimit"};
  TGroup GroupRelateOrg{*this, &GroupFields, "GroupRelateOrg", TGroupRole::Row};
  TEdit EditRelateOrg{*this, &GroupRelateOrg, "EditRelateOrg"};
  TAction ActClearOrg{*this, &GroupRelateOrg, "ActClearOrg"};
  TGroup GroupButtons{*this, nullptr, "GroupButtons", TGroupRole::Buttons};
  TAction BitBtnOk{*this, &GroupButtons, "BitBtnOk"};
  TAction BitBtnCancel{*this, &GroupButtons, "BitBtnCancel"};

 private:
  void SetRelateOrgID(int id);
  void BitBtnOkClick();
  void BitBtnCancelClick();
  bool IsFound(const std::string& statement);

  std::unique_ptr<TZANQuery> FQuery;
  int FOwnID;
  int FParentID;
  std::string FFullName;
  int FRelateOrgID = 0;
};

}  // namespace zanrole
