#include "Frame/Messages.h"

#include "Frame/Session.h"

namespace zanrole {

namespace {

TMessageDialogs& Dialogs() { return TSession::Current().Host().Dialogs(); }

}  // namespace

void VeshShowMessage(std::string_view text) {
  Dialogs().MessageBox({}, text, TMsgDlgType::Information, mbOK);
}

void VeshShowMessageFmt(std::string_view format, std::initializer_list<TFormatArg> args) {
  VeshShowMessage(Format(format, args));
}

TMsgDlgBtn VeshMessageDlg(std::string_view text, TMsgDlgType kind, unsigned buttons, int /*help*/) {
  return Dialogs().MessageBox({}, text, kind, buttons);
}

bool AskYesNo(std::string_view title, std::string_view text) {
  return Dialogs().MessageBox(title, text, TMsgDlgType::Confirmation, mbYes | mbNo) == mbYes;
}

}  // namespace zanrole
