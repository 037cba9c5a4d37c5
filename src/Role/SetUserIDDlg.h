#pragma once

#include <string>

#include "Frame/Host/Forms.h"

namespace zanrole {

/// The dialog in which a login is changed. It has no rules of its own for a login.
class TSetUserIDDlg final : public TForm {
 public:
  /// `login` is shown as the current one and stands in the input for the new one.
  TSetUserIDDlg(TFormHost& host, const std::string& login);

  std::string ClassName() const override { return "TSetUserIDDlg"; }
  void InitLngResources() override;

  TGroup GroupFields{*this, nullptr, "GroupFields", TGroupRole::Fields};
  TEdit EUserID{*this, &GroupFields, "EUserID"};
  TEdit ENewUserID{*this, &GroupFields, "ENewUserID"};
  TGroup GroupButtons{*this, nullptr, "GroupButtons", TGroupRole::Buttons};
  TAction BitBtnOk{*this, &GroupButtons, "BitBtnOk"};
  TAction BitBtnCancel{*this, &GroupButtons, "BitBtnCancel"};
};

/// Asks for another login. True, and `login` holds what was entered, when the dialog was confirmed; nothing
/// is stored.
ZAN_EXPORT bool SetUserID(std::string& login);

}  // namespace zanrole
