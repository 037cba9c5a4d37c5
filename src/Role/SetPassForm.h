#pragma once

#include <string>

#include "Frame/Host/Forms.h"
#include "Role/UserInfo.h"

namespace zanrole {

/// The dialog in which a new password is entered twice. It has no rules of its own for a password: an empty
/// one is allowed.
class TSetPassForm final : public TForm {
 public:
  explicit TSetPassForm(TFormHost& host);

  std::string ClassName() const override { return "TSetPassForm"; }
  void InitLngResources() override;

  TGroup GroupFields{*this, nullptr, "GroupFields", TGroupRole::Fields};
  TEdit EPassword{*this, &GroupFields, "EPassword"};
  TEdit ERPassword{*this, &GroupFields, "ERPassword"};
  TCheckBox CheckShow{*this, &GroupFields, "CheckShow"};
  TGroup GroupButtons{*this, nullptr, "GroupButtons", TGroupRole::Buttons};
  TAction BitBtnOk{*this, &GroupButtons, "BitBtnOk"};
  TAction BitBtnCancel{*this, &GroupButtons, "BitBtnCancel"};

 private:
  void BitBtnOkClick();
  void ShowOrHide();
};

/// Asks for a new password. True, and the record holds it in plain text, when one was entered; nothing is
/// stored.
ZAN_EXPORT bool SetNewPass(TUserInfo& user);

}  // namespace zanrole
