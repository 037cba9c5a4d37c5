#include "Role/SetUserIDDlg.h"

#include "Frame/Commlib.h"
#include "Frame/Session.h"

namespace zanrole {

namespace {

// What the column of STUsers holds.
constexpr int kLoginLength = 200;

}  // namespace

TSetUserIDDlg::TSetUserIDDlg(TFormHost& host, const std::string& login) : TForm(host) {
  EUserID.Text = login;
  EUserID.ReadOnly = true;
  ENewUserID.Text = login;
  ENewUserID.MaxLength = kLoginLength;
  BitBtnOk.Default = true;
  BitBtnOk.OnExecute = [this] { ModalResult = mrOk; };
  BitBtnCancel.Cancel = true;
  BitBtnCancel.OnExecute = [this] { ModalResult = mrCancel; };
  FocusRequest = &ENewUserID;
  InitLngResources();
}

void TSetUserIDDlg::InitLngResources() {
  Caption = TZanResEx::resByExFunc("设置登陆ID");
  EUserID.Caption = TZanResEx::resByExFunc("当前登陆ID：");
  ENewUserID.Caption = TZanResEx::resByExFunc("新登陆ID：");
  BitBtnOk.Caption = TZanResEx::resByExFunc("确定");
  BitBtnCancel.Caption = TZanResEx::resByExFunc("取消");
}

bool SetUserID(std::string& login) {
  TSetUserIDDlg dialog(FormHost(), login);
  if (dialog.ShowModal() != mrOk) return false;
  login = dialog.ENewUserID.Text;
  return true;
}

}  // namespace zanrole
