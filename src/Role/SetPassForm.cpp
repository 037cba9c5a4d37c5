#include "Role/SetPassForm.h"

#include "Frame/Commlib.h"
#include "Frame/Session.h"

namespace zanrole {

TSetPassForm::TSetPassForm(TFormHost& host) : TForm(host) {
  ShowOrHide();
  CheckShow.OnClick = [this] { ShowOrHide(); };
  BitBtnOk.Default = true;
  BitBtnOk.OnExecute = [this] { BitBtnOkClick(); };
  BitBtnCancel.Cancel = true;
  BitBtnCancel.OnExecute = [this] { ModalResult = mrCancel; };
  FocusRequest = &EPassword;
  InitLngResources();
}

void TSetPassForm::InitLngResources() {
  Caption = TZanResEx::resByExFunc("设置密码");
  EPassword.Caption = TZanResEx::resByExFunc("新密码：");
  ERPassword.Caption = TZanResEx::resByExFunc("再次输入：");
  CheckShow.Caption = TZanResEx::resByExFunc("显示密码");
  BitBtnOk.Caption = TZanResEx::resByExFunc("确定");
  BitBtnCancel.Caption = TZanResEx::resByExFunc("取消");
}

void TSetPassForm::ShowOrHide() {
  EPassword.Mode = ERPassword.Mode = CheckShow.Checked ? TEditMode::Line : TEditMode::Password;
}

void TSetPassForm::BitBtnOkClick() {
  if (EPassword.Text == ERPassword.Text) {
    ModalResult = mrOk;
    return;
  }
  TSession::Current().Host().Dialogs().MessageBox(
      TZanResEx::resByExFunc("出错啦"),
      TZanResEx::resByExFunc("两次输入的密码不同！") + "\r\n" + TZanResEx::resByExFunc("请重新输入"),
      TMsgDlgType::Error, mbOK);
  EPassword.Text.clear();
  ERPassword.Text.clear();
  FocusRequest = &EPassword;
}

bool SetNewPass(TUserInfo& user) {
  TSetPassForm dialog(FormHost());
  if (dialog.ShowModal() != mrOk) return false;
  user.Password = dialog.EPassword.Text;
  return true;
}

}  // namespace zanrole
