#include "Frame/TolFuns.h"

#include "Frame/Commlib.h"
#include "Frame/Session.h"

namespace zanrole {

namespace {

TMsgDlgBtn ShowBox(std::string_view text, TMsgDlgType kind, unsigned buttons) {
  TMessageDialogs& dialogs = TSession::Current().Host().Dialogs();
  return dialogs.MessageBox(TZanResEx::resBySystem("系统提示"), TZanResEx::resByExFunc(text), kind, buttons);
}

}  // namespace

void ErrDlg(std::string_view text) { ShowBox(text, TMsgDlgType::Error, mbOK); }

bool WarnDlg(std::string_view text) { return ShowBox(text, TMsgDlgType::Warning, mbOK | mbCancel) == mbOK; }

std::vector<std::string> Split(std::string_view delimiter, std::string_view text) {
  std::vector<std::string> pieces;
  for (std::size_t end = text.find(delimiter); end != std::string_view::npos; end = text.find(delimiter)) {
    pieces.emplace_back(text.substr(0, end));
    text.remove_prefix(end + delimiter.size());
  }
  pieces.emplace_back(text);
  return pieces;
}

std::string Join(std::string_view delimiter, const std::vector<std::string>& pieces) {
  std::string text;
  for (const std::string& piece : pieces) {
    if (&piece != &pieces.front()) text += delimiter;
    text += piece;
  }
  return text;
}

}  // namespace zanrole
