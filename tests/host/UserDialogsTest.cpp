#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Role/SetPassForm.h"
#include "Role/SetUserIDDlg.h"
#include "tests/support/RecordingHost.h"
#include "tests/support/SessionDriver.h"

// The dialogs for passwords and logins as a person sees and uses them.

namespace zantest {
namespace {

namespace json = boost::json;
using namespace zanrole;

/// A host whose screen is a session loop.
class TLoopHost final : public TRecordingHost {
 public:
  explicit TLoopHost(zanhost::TSessionLoop& loop) : FLoop(loop) {}
  TFormHost& Forms() override { return FLoop; }
  TMessageDialogs& Dialogs() override { return FLoop; }

 private:
  zanhost::TSessionLoop& FLoop;
};

/// A console that asks for a password and for a login.
class TAskingConsole final : public TForm {
 public:
  explicit TAskingConsole(TFormHost& host) : TForm(host, "Console") {
    ActPassword.OnExecute = [this] { LabelAnswer.Text = SetNewPass(User) ? "taken" : "left"; };
    ActLogin.OnExecute = [this] { LabelAnswer.Text = SetUserID(User.ID) ? "taken" : "left"; };
    User.ID = "li";
  }
  std::string ClassName() const override { return "TAskingConsole"; }

  TAction ActPassword{*this, nullptr, "ActPassword"};
  TAction ActLogin{*this, nullptr, "ActLogin"};
  TLabel LabelAnswer{*this, nullptr, "LabelAnswer"};
  TUserInfo User;
};

class UserDialogs : public testing::Test {
 protected:
  UserDialogs()
      : Driver([this](zanhost::TLineChannel& channel) {
          TPlainTexts texts;
          zanhost::TSessionLoop loop(channel, texts);
          const TLoopHost host(loop);
          TAskingConsole console(loop);
          FConsole = &console;
          loop.Attach();
          console.Show();
          loop.Run();
        }) {
    Driver.Start();
  }

  /// Starts the operation, which waits in its dialog; the dialog's number.
  int Open(const char* action, const char* dialog) {
    Driver.Act(1, action);
    return Driver.Client.WindowOf(dialog);
  }
  json::value Shown(int window, const char* name, const char* property) {
    return Driver.Client.Property(window, name, property);
  }
  json::value Answer() { return Shown(1, "LabelAnswer", "text"); }
  TUserInfo& User() { return FConsole->User; }

 private:
  TAskingConsole* FConsole = nullptr;

 protected:
  TSessionDriver Driver;
};

TEST_F(UserDialogs, ANewPasswordIsTypedUnseenTwice) {
  const int dialog = Open("ActPassword", "TSetPassForm");
  ASSERT_NE(dialog, 0);
  EXPECT_EQ(Shown(dialog, "EPassword", "mode"), "password");
  EXPECT_EQ(Driver.Client.Focused.back(), "EPassword");
  Driver.Set(dialog, "EPassword", "secret 1");
  Driver.Set(dialog, "ERPassword", "secret 1");
  EXPECT_EQ(json::serialize(Driver.Snapshot()).find("secret"), std::string::npos);
  Driver.Act(dialog, "BitBtnOk");
  EXPECT_EQ(Answer(), "taken");
  EXPECT_EQ(User().Password, "secret 1");
}

TEST_F(UserDialogs, ThePersonMayLookAtThePasswordAndHideItAgain) {
  const int dialog = Open("ActPassword", "TSetPassForm");
  Driver.Set(dialog, "EPassword", "secret 1");
  Driver.Set(dialog, "CheckShow", true);
  EXPECT_EQ(Shown(dialog, "EPassword", "mode"), "line");
  EXPECT_EQ(Shown(dialog, "EPassword", "value"), "secret 1");
  Driver.Set(dialog, "CheckShow", false);
  EXPECT_EQ(Shown(dialog, "EPassword", "mode"), "password");
  EXPECT_EQ(json::serialize(Driver.Snapshot()).find("secret"), std::string::npos);
}

TEST_F(UserDialogs, TwoDifferentPasswordsAreAskedForAgain) {
  const int dialog = Open("ActPassword", "TSetPassForm");
  Driver.Set(dialog, "EPassword", "one");
  Driver.Set(dialog, "ERPassword", "other");
  Driver.Act(dialog, "BitBtnOk");
  const int box = Driver.Client.WindowOf("TMessage");
  ASSERT_NE(box, 0);
  EXPECT_EQ(Shown(box, "Text", "text"), "两次输入的密码不同！\r\n请重新输入");
  EXPECT_EQ(Driver.Client.Windows().at(box).Properties.at("caption"), "出错啦");
  Driver.Act(box, "Ok");
  EXPECT_EQ(Driver.Client.WindowOf("TSetPassForm"), dialog);
  EXPECT_EQ(Shown(dialog, "EPassword", "filled"), false);
  EXPECT_EQ(Shown(dialog, "ERPassword", "filled"), false);
  EXPECT_EQ(Driver.Client.Focused.back(), "EPassword");
  Driver.CloseWindow(dialog);
  EXPECT_EQ(Answer(), "left");
  EXPECT_EQ(User().Password, "");
}

TEST_F(UserDialogs, ALoginIsShownAndReplaced) {
  const int dialog = Open("ActLogin", "TSetUserIDDlg");
  ASSERT_NE(dialog, 0);
  EXPECT_EQ(Shown(dialog, "EUserID", "value"), "li");
  EXPECT_EQ(Shown(dialog, "EUserID", "readOnly"), true);
  Driver.Set(dialog, "ENewUserID", "wang");
  Driver.Act(dialog, "BitBtnOk");
  EXPECT_EQ(Answer(), "taken");
  EXPECT_EQ(User().ID, "wang");
}

TEST_F(UserDialogs, ALoginThatIsCancelledStaysAsItWas) {
  const int dialog = Open("ActLogin", "TSetUserIDDlg");
  Driver.Set(dialog, "ENewUserID", "wang");
  Driver.Act(dialog, "BitBtnCancel");
  EXPECT_EQ(Answer(), "left");
  EXPECT_EQ(User().ID, "li");
}

}  // namespace
}  // namespace zantest
