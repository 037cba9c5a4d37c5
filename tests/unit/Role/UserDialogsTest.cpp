#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Role/SetPassForm.h"
#include "Role/SetUserIDDlg.h"
#include "Role/UserRows.h"
#include "tests/support/RecordingHost.h"

namespace zantest {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using namespace zanrole;

class SetPass : public testing::Test {
 protected:
  /// A person enters two texts and presses OK; the dialog's result.
  void WhenEntered(const std::string& password, const std::string& again) {
    Host.WhenModal([=, this](TForm& form) {
      auto& dialog = dynamic_cast<TSetPassForm&>(form);
      dialog.FocusRequest = nullptr;
      dialog.EPassword.Text = password;
      dialog.ERPassword.Text = again;
      dialog.BitBtnOk.OnExecute();
      Cleared = dialog.EPassword.Text.empty() && dialog.ERPassword.Text.empty();
      FocusOnFirst = dialog.FocusRequest == &dialog.EPassword;
      return dialog.ModalResult;
    });
  }

  TRecordingHost Host;
  TUserInfo User;
  bool Cleared = false;
  bool FocusOnFirst = false;
};

TEST_F(SetPass, TheRecordHoldsTheTextThatWasEnteredTwice) {
  User.Password = "before";
  WhenEntered("new secret", "new secret");
  EXPECT_TRUE(SetNewPass(User));
  EXPECT_EQ(User.Password, "new secret");
  EXPECT_THAT(Host.ShownForms, ElementsAre("TSetPassForm"));
  EXPECT_THAT(Host.Statements, IsEmpty());
}

TEST_F(SetPass, TwoDifferentTextsAreRefusedClearedAndAskedForAgain) {
  User.Password = "before";
  WhenEntered("secret", "Secret");
  EXPECT_FALSE(SetNewPass(User));
  EXPECT_EQ(User.Password, "before");
  ASSERT_EQ(Host.Messages.size(), 1u);
  EXPECT_EQ(Host.Messages[0].Title, "出错啦");
  EXPECT_EQ(Host.Messages[0].Text, "两次输入的密码不同！\r\n请重新输入");
  EXPECT_EQ(Host.Messages[0].Kind, TMsgDlgType::Error);
  EXPECT_TRUE(Cleared);
  EXPECT_TRUE(FocusOnFirst);
}

TEST_F(SetPass, TheTextsCompareExactly) {
  WhenEntered("secret", "secret ");
  EXPECT_FALSE(SetNewPass(User));
  EXPECT_THAT(Host.Messages, testing::SizeIs(1));
}

TEST_F(SetPass, AnEmptyPasswordIsAllowed) {
  User.Password = "before";
  WhenEntered("", "");
  EXPECT_TRUE(SetNewPass(User));
  EXPECT_EQ(User.Password, "");
}

TEST_F(SetPass, CancelLeavesTheRecordAsItWas) {
  User.Password = "before";
  Host.WhenModal([](TForm& form) {
    auto& dialog = dynamic_cast<TSetPassForm&>(form);
    dialog.EPassword.Text = dialog.ERPassword.Text = "new";
    dialog.BitBtnCancel.OnExecute();
    return dialog.ModalResult;
  });
  EXPECT_FALSE(SetNewPass(User));
  EXPECT_EQ(User.Password, "before");
}

TEST_F(SetPass, PasswordsAreHiddenUnlessThePersonWantsToSeeThem) {
  TSetPassForm dialog(Host.Forms());
  EXPECT_EQ(dialog.EPassword.Mode, TEditMode::Password);
  EXPECT_EQ(dialog.ERPassword.Mode, TEditMode::Password);
  dialog.CheckShow.Checked = true;
  dialog.CheckShow.OnClick();
  EXPECT_EQ(dialog.EPassword.Mode, TEditMode::Line);
  EXPECT_EQ(dialog.ERPassword.Mode, TEditMode::Line);
  dialog.CheckShow.Checked = false;
  dialog.CheckShow.OnClick();
  EXPECT_EQ(dialog.EPassword.Mode, TEditMode::Password);
  EXPECT_EQ(dialog.ERPassword.Mode, TEditMode::Password);
}

TEST_F(SetPass, EnterConfirmsAndEscapeCancels) {
  const TSetPassForm dialog(Host.Forms());
  EXPECT_TRUE(dialog.BitBtnOk.Default);
  EXPECT_TRUE(dialog.BitBtnCancel.Cancel);
  EXPECT_EQ(dialog.FocusRequest, &dialog.EPassword);
}

TEST(SetUserIDDlg, ShowsTheCurrentLoginAndReturnsTheNewOne) {
  TRecordingHost host;
  host.WhenModal([](TForm& form) {
    auto& dialog = dynamic_cast<TSetUserIDDlg&>(form);
    EXPECT_EQ(dialog.EUserID.Text, "li");
    EXPECT_TRUE(dialog.EUserID.ReadOnly);
    EXPECT_EQ(dialog.ENewUserID.Text, "li");
    EXPECT_EQ(dialog.FocusRequest, &dialog.ENewUserID);
    dialog.ENewUserID.Text = "wang";
    dialog.BitBtnOk.OnExecute();
    return dialog.ModalResult;
  });
  std::string login = "li";
  EXPECT_TRUE(SetUserID(login));
  EXPECT_EQ(login, "wang");
  EXPECT_THAT(host.ShownForms, ElementsAre("TSetUserIDDlg"));
  EXPECT_THAT(host.Statements, IsEmpty());
}

TEST(SetUserIDDlg, CancelLeavesTheLoginAsItWas) {
  TRecordingHost host;
  host.WhenModal([](TForm& form) {
    auto& dialog = dynamic_cast<TSetUserIDDlg&>(form);
    dialog.ENewUserID.Text = "wang";
    dialog.BitBtnCancel.OnExecute();
    return dialog.ModalResult;
  });
  std::string login = "li";
  EXPECT_FALSE(SetUserID(login));
  EXPECT_EQ(login, "li");
}

class UserRows : public testing::Test {
 protected:
  class TListForm final : public TForm {
   public:
    using TForm::TForm;
    std::string ClassName() const override { return "TListForm"; }
    TListView List{*this, nullptr, "List"};
  };

  TRecordingHost Host;
  TListForm Form{Host.Forms()};
  TUserRows Rows{Form.List};
};

TEST_F(UserRows, ARowHoldsNameLoginWhereWantedDescriptionAndGroup) {
  TUserInfo user;
  user.Name = "李";
  user.ID = "li";
  user.Describe = "d";
  user.Categories = "a\\b";
  Rows.AddAItem(user, true);
  Rows.AddAItem(user, false);
  ASSERT_EQ(Form.List.RowCount(), 2);
  EXPECT_THAT(Form.List.OnRow(0).Cells, ElementsAre("李", "li", "d", "a\\b"));
  EXPECT_THAT(Form.List.OnRow(1).Cells, ElementsAre("李", "d", "a\\b"));
  EXPECT_EQ(Rows.UserOf(Form.List.OnRow(1).Id), &user);
  EXPECT_EQ(Form.List.OnIndexOf(Form.List.OnRow(1).Id), 1);
  EXPECT_EQ(Form.List.OnIndexOf(2), -1);
}

TEST_F(UserRows, TheIconTellsKindAndState) {
  TUserInfo user;
  std::vector<std::string> icons;
  for (const TUserType type : {utUser, utRole}) {
    for (const TUserState state : {usUsed, usUnUsed}) {
      user.uType = type;
      user.uState = state;
      Rows.AddAItem(user, false);
      icons.push_back(Form.List.OnRow(Form.List.RowCount() - 1).Icon);
    }
  }
  EXPECT_THAT(icons, ElementsAre("user", "user-disabled", "role", "role-disabled"));
}

TEST_F(UserRows, ClearEmptiesTheListAndItsSelection) {
  TUserInfo user;
  Rows.AddAItem(user, false);
  Form.List.Select(0);
  Rows.Clear();
  EXPECT_EQ(Form.List.RowCount(), 0);
  EXPECT_THAT(Form.List.Selection, IsEmpty());
  EXPECT_EQ(Form.List.Focused, -1);
}

}  // namespace
}  // namespace zantest
