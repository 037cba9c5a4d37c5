#include "host/worker/NoConsole.h"

#include <fmt/format.h>

namespace zanhost {

using zanrole::TForm;
using zanrole::TMsgDlgBtn;

void TNoConsole::Show(TForm& form) {
  throw zanrole::EZanError(fmt::format("{} needs a console, and this session has none", form.ClassName()));
}

int TNoConsole::ShowModal(TForm& form) {
  Show(form);
  return zanrole::mrCancel;
}

TMsgDlgBtn TNoConsole::MessageBox(std::string_view /*title*/, std::string_view text,
                                  zanrole::TMsgDlgType /*kind*/, unsigned buttons) {
  FOnMessage(std::string(text));
  return ButtonOfClosing(buttons);
}

TMsgDlgBtn ButtonOfClosing(unsigned buttons) {
  for (const TMsgDlgBtn button : {zanrole::mbCancel, zanrole::mbNo, zanrole::mbOK, zanrole::mbYes}) {
    if ((buttons & button) != 0) return button;
  }
  return zanrole::mbOK;
}

}  // namespace zanhost
