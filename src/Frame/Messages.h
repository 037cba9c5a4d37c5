#pragma once

#include <initializer_list>
#include <string_view>

#include "Frame/Commlib.h"
#include "Frame/Host/VeshMessageDlg.h"

namespace zanrole {

/// The host's modal boxes under the names that the consoles use. Texts are shown as they are: the caller has
/// looked them up in the resources.
void VeshShowMessage(std::string_view text);
/// Formats first; see Format.
void VeshShowMessageFmt(std::string_view format, std::initializer_list<TFormatArg> args);
/// `help` is the number of a help topic; 0 for none. Gives the button that was pressed.
TMsgDlgBtn VeshMessageDlg(std::string_view text, TMsgDlgType kind, unsigned buttons, int help);
/// A question with the buttons Yes and No under a title. True when Yes was pressed.
bool AskYesNo(std::string_view title, std::string_view text);

}  // namespace zanrole
