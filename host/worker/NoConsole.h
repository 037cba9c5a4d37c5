#pragma once

#include <functional>
#include <string>

#include "Frame/Host/Forms.h"
#include "Frame/Host/VeshMessageDlg.h"

namespace zanhost {

/// The screen of a session that nobody looks at. A message is handed to the owner of the session and counts
/// as closed at once; a form cannot be presented and raises EZanError.
class TNoConsole final : public zanrole::TFormHost, public zanrole::TMessageDialogs {
 public:
  using TOnMessage = std::function<void(const std::string& text)>;
  explicit TNoConsole(TOnMessage onMessage) : FOnMessage(std::move(onMessage)) {}

  void Show(zanrole::TForm& form) override;
  int ShowModal(zanrole::TForm& form) override;
  void Hide(zanrole::TForm& /*form*/) override {}
  void Forget(zanrole::TForm& /*form*/) noexcept override {}
  void ProcessMessages() override {}
  void SetBusy(bool /*busy*/) override {}
  zanrole::TMsgDlgBtn MessageBox(std::string_view title, std::string_view text, zanrole::TMsgDlgType kind,
                                 unsigned buttons) override;

 private:
  TOnMessage FOnMessage;
};

/// The button that closing a box counts as: Cancel, or No or OK where there is no Cancel.
zanrole::TMsgDlgBtn ButtonOfClosing(unsigned buttons);

}  // namespace zanhost
