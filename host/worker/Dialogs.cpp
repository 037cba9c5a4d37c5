#include "host/worker/Dialogs.h"

#include "host/worker/NoConsole.h"

namespace zanhost {

using namespace zanrole;

TMessageForm::TMessageForm(TFormHost& host, TResourceStrings& resources, std::string_view title,
                           std::string_view text, TMsgDlgType kind, unsigned buttons)
    : TForm(host, std::string(title)),
      FResources(&resources),
      FHasOwnTitle(!title.empty()),
      FKind(kind),
      FButtons(buttons != mbNone ? buttons : static_cast<unsigned>(mbOK)),
      FAnswer(ButtonOfClosing(FButtons)) {
  FText.Text = text;
  AddButton(mbYes, "Yes", "是");
  AddButton(mbNo, "No", "否");
  AddButton(mbOK, "Ok", "确定");
  AddButton(mbCancel, "Cancel", "取消");
  FActions.front().Action.Default = true;
  InitLngResources();
}

void TMessageForm::AddButton(TMsgDlgBtn button, const char* name, const char* caption) {
  if ((FButtons & button) == 0) return;
  TAction& action = FActions.emplace_back(*this, &FBar, name, caption).Action;
  action.Cancel = button == FAnswer;
  action.OnExecute = [this, button] {
    FAnswer = button;
    ModalResult = mrOk;
  };
}

void TMessageForm::InitLngResources() {
  if (!FHasOwnTitle) Caption = FResources->resS("系统提示");
  for (TButton& button : FActions) button.Action.Caption = FResources->resS(button.CaptionKey);
}

std::string_view TMessageForm::Kind() const {
  switch (FKind) {
    case TMsgDlgType::Information:
      return "information";
    case TMsgDlgType::Warning:
      return "warning";
    case TMsgDlgType::Error:
      return "error";
    case TMsgDlgType::Confirmation:
      return "confirm";
  }
  return "information";
}

TMsgDlgBtn TMessageForm::Ask() {
  ShowModal();
  return FAnswer;
}

}  // namespace zanhost
