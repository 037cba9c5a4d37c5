#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>

#include "tests/support/SessionDriver.h"

// Windows of a session: modal dialogs, closing, destruction, faults, long work.

namespace zantest {
namespace {

namespace json = boost::json;
using namespace zanrole;
using testing::HasSubstr;
using zanhost::TLineChannel;
using zanhost::TSessionClosing;
using zanhost::TSessionLoop;

json::array Changes(const json::object& message) { return message.at("changes").as_array(); }

class TDialog : public TForm {
 public:
  explicit TDialog(TFormHost& host) : TForm(host, "Dialog") {
    ActOk.OnExecute = [this] { ModalResult = mrOk; };
  }
  ~TDialog() override { ++Destroyed; }
  std::string ClassName() const override { return "TDialog"; }
  void DoShow() override { ++Shown; }
  void DoHide() override {
    ++Hidden;
    if (OnHide) OnHide();
  }
  bool CloseQuery() override { return MayClose; }

  TEdit EditName{*this, nullptr, "EditName"};
  TAction ActOk{*this, nullptr, "ActOk"};
  TAction ActMore{*this, nullptr, "ActMore"};
  bool MayClose = true;
  int Shown = 0;
  int Hidden = 0;
  std::function<void()> OnHide;
  static inline int Destroyed = 0;
};

/// A console that does what the test tells it to.
class TConsole : public TForm {
 public:
  explicit TConsole(TSessionLoop& loop) : TForm(loop, "Console"), Loop(loop) {
    ActRun.OnExecute = [this] { OnRun(*this); };
  }
  std::string ClassName() const override { return "TConsole"; }
  void InitLngResources() override { ++LanguageChanges; }

  TSessionLoop& Loop;
  TEdit EditText{*this, nullptr, "EditText"};
  TAction ActRun{*this, nullptr, "ActRun"};
  std::function<void(TConsole&)> OnRun = [](TConsole&) {};
  int LanguageChanges = 0;
};

/// A session whose first window is a console that runs `onRun`.
class SessionLoopTest : public testing::Test {
 protected:
  void Open(std::function<void(TConsole&)> onRun) {
    TDialog::Destroyed = 0;
    Driver.emplace([this, onRun](TLineChannel& channel) {
      TPlainTexts texts;
      TSessionLoop loop(channel, texts);
      loop.OnOperation = [this](const zanhost::TOperationReport& report) {
        Log.push_back(report.Name +
                      (report.Fault != nullptr ? std::string(": ") + report.Fault->what() : ""));
      };
      TConsole console(loop);
      console.OnRun = onRun;
      loop.Attach();
      console.Show();
      loop.Run();
      Page.reset();
      Ended = true;
    });
    Driver->Start();
  }

  std::vector<std::string> Log;
  bool Ended = false;
  /// A page that outlives the operation that shows it; it goes with the session.
  std::optional<TDialog> Page;
  std::optional<TSessionDriver> Driver;
};

TEST_F(SessionLoopTest, ASnapshotBeginsWithNumberOneAndOpensTheWindowsThatAreShown) {
  Open([](TConsole&) {});
  EXPECT_EQ(Driver->Client.WindowOf("TConsole"), 1);
  EXPECT_EQ(Driver->Client.Property(1, "ActRun", "enabled"), true);
}

TEST(SessionLoopIdle, IsToldOnceInEachWait) {
  using namespace std::chrono_literals;
  std::atomic<int> told = 0;
  TSessionDriver driver([&](TLineChannel& channel) {
    TPlainTexts texts;
    TSessionLoop loop(channel, texts);
    loop.IdleAfter = 20ms;
    loop.OnIdle = [&] { ++told; };
    TConsole console(loop);
    loop.Attach();
    console.Show();
    loop.Run();
  });
  const auto waitForMoreThan = [&](int count) {
    for (int tries = 0; tries < 1000 && told <= count; ++tries) std::this_thread::sleep_for(10ms);
  };
  driver.Start();
  waitForMoreThan(0);
  const int before = told;
  EXPECT_GE(before, 1);
  std::this_thread::sleep_for(100ms);
  EXPECT_EQ(told, before);
  driver.Act(1, "ActRun");
  waitForMoreThan(before);
  std::this_thread::sleep_for(100ms);
  EXPECT_EQ(told, before + 1);
}

TEST_F(SessionLoopTest, AnEventIsAnsweredOnceWithItsNumberAndTheNextSequence) {
  Open([](TConsole&) {});
  const json::object first = Driver->Act(1, "ActRun");
  const json::object second = Driver->Act(1, "ActRun");
  EXPECT_EQ(first.at("ack"), 1);
  EXPECT_EQ(first.at("seq"), 2);
  EXPECT_TRUE(Changes(first).empty());
  EXPECT_EQ(second.at("ack"), 2);
  EXPECT_EQ(second.at("seq"), 3);
}

TEST_F(SessionLoopTest, AnEventThatOpensADialogIsAcknowledgedWhenTheDialogWaits) {
  int result = mrNone;
  Open([&](TConsole& console) { result = TDialog(console.Loop).ShowModal(); });
  EXPECT_EQ(Driver->Act(1, "ActRun").at("ack"), 1);
  ASSERT_EQ(Driver->Client.WindowOf("TDialog"), 2);
  EXPECT_EQ(result, mrNone);
  Driver->Act(2, "ActOk");
  EXPECT_EQ(result, mrOk);
  EXPECT_EQ(Driver->Client.WindowOf("TDialog"), 0);
}

TEST_F(SessionLoopTest, DialogsNestAndEachReturnsToTheOneBelow) {
  std::vector<int> results;
  Open([&](TConsole& console) {
    TDialog outer(console.Loop);
    outer.ActMore.OnExecute = [&] { results.push_back(TDialog(console.Loop).ShowModal()); };
    results.push_back(outer.ShowModal());
  });
  Driver->Act(1, "ActRun");
  Driver->Act(2, "ActMore");
  ASSERT_EQ(Driver->Client.WindowOf("TDialog"), 3);
  Driver->CloseWindow(3);
  EXPECT_THAT(results, testing::ElementsAre(mrCancel));
  Driver->Act(2, "ActOk");
  EXPECT_THAT(results, testing::ElementsAre(mrCancel, mrOk));
}

TEST_F(SessionLoopTest, NumbersOfWindowsAreNeverUsedAgain) {
  Open([&](TConsole& console) { TDialog(console.Loop).ShowModal(); });
  Driver->Act(1, "ActRun");
  Driver->Act(2, "ActOk");
  Driver->Act(1, "ActRun");
  EXPECT_EQ(Driver->Client.WindowOf("TDialog"), 3);
}

TEST_F(SessionLoopTest, AWindowBehindAModalOneTakesNoEvents) {
  int runs = 0;
  Open([&](TConsole& console) {
    ++runs;
    TDialog(console.Loop).ShowModal();
  });
  Driver->Act(1, "ActRun");
  EXPECT_TRUE(Changes(Driver->Act(1, "ActRun")).empty());
  EXPECT_TRUE(Changes(Driver->Set(1, "EditText", "late")).empty());
  EXPECT_TRUE(Changes(Driver->CloseWindow(1)).empty());
  EXPECT_EQ(runs, 1);
  Driver->Act(2, "ActOk");
  Driver->Snapshot();
  EXPECT_EQ(Driver->Client.Property(1, "EditText", "value"), "");
}

TEST_F(SessionLoopTest, EventsForWhatIsGoneChangeNothing) {
  Open([](TConsole&) {});
  EXPECT_TRUE(Changes(Driver->Act(99, "ActRun")).empty());
  EXPECT_TRUE(Changes(Driver->Act(1, "ActGone")).empty());
  EXPECT_TRUE(Changes(Driver->CloseWindow(99)).empty());
}

TEST_F(SessionLoopTest, AWindowThatMayNotCloseStaysOpen) {
  Open([](TConsole& console) {
    TDialog dialog(console.Loop);
    dialog.MayClose = false;
    dialog.ShowModal();
  });
  Driver->Act(1, "ActRun");
  Driver->CloseWindow(2);
  EXPECT_EQ(Driver->Client.WindowOf("TDialog"), 2);
  Driver->Act(2, "ActOk");
  EXPECT_EQ(Driver->Client.WindowOf("TDialog"), 0);
}

TEST_F(SessionLoopTest, ClosingTheChannelUnwindsEveryOpenDialog) {
  std::vector<std::string> path;
  Open([&](TConsole& console) {
    TDialog outer(console.Loop);
    outer.ActMore.OnExecute = [&] {
      TDialog(console.Loop).ShowModal();
      path.push_back("inner returned");
    };
    outer.ShowModal();
    path.push_back("outer returned");
  });
  Driver->Act(1, "ActRun");
  Driver->Act(2, "ActMore");
  Driver->Close();
  Driver->Join();
  EXPECT_TRUE(Ended);
  EXPECT_TRUE(path.empty());
  EXPECT_EQ(TDialog::Destroyed, 2);
}

TEST_F(SessionLoopTest, WhatSwallowsFaultsDoesNotSwallowClosingAndEachFurtherWaitThrowsAgain) {
  int waits = 0;
  Open([&](TConsole& console) {
    try {
      ++waits;
      console.Loop.MessageBox("", "first", TMsgDlgType::Information, mbOK);
    } catch (const std::exception&) {
      ADD_FAILURE() << "closing must be no fault";
    } catch (const TSessionClosing&) {
      ++waits;
      console.Loop.MessageBox("", "second", TMsgDlgType::Information, mbOK);
      ADD_FAILURE() << "a wait after closing must not return";
    }
  });
  Driver->Act(1, "ActRun");
  Driver->Close();
  Driver->Join();
  EXPECT_EQ(waits, 2);
  EXPECT_TRUE(Ended);
}

TEST_F(SessionLoopTest, AnOperationThatRunsIsFinishedWhenTheSessionCloses) {
  bool finished = false;
  Open([&](TConsole& console) {
    console.Loop.ProcessMessages();
    Driver->Close();
    console.Loop.ProcessMessages();
    finished = true;
  });
  Driver->Push(R"({"n":1,"do":"act","window":1,"name":"ActRun"})");
  Driver->Join();
  EXPECT_TRUE(finished);
  EXPECT_TRUE(Ended);
}

TEST_F(SessionLoopTest, QuitIsAcknowledgedAndThenSaysGoodbye) {
  Open([](TConsole& console) { TDialog(console.Loop).ShowModal(); });
  Driver->Act(1, "ActRun");
  EXPECT_EQ(Driver->Send({{"do", "quit"}}).at("ack"), 2);
  Driver->Await([](const json::object& message) { return message.contains("bye"); });
  Driver->Join();
  EXPECT_EQ(Driver->Client.Bye, "ended");
  EXPECT_TRUE(Ended);
}

TEST_F(SessionLoopTest, AFaultIsShownAndLoggedAndTheSessionGoesOn) {
  Open([](TConsole&) { throw EZanError("table STDomains is gone"); });
  Driver->Act(1, "ActRun");
  const int box = Driver->Client.WindowOf("TMessage");
  ASSERT_NE(box, 0);
  EXPECT_EQ(Driver->Client.Property(box, "Text", "text"), "table STDomains is gone");
  EXPECT_EQ(Driver->Client.Windows().at(box).Properties.at("kind"), "error");
  Driver->Act(box, "Ok");
  EXPECT_EQ(Driver->Client.WindowOf("TMessage"), 0);
  EXPECT_THAT(Log, testing::Contains("TConsole.ActRun: table STDomains is gone"));
  EXPECT_EQ(Driver->Set(1, "EditText", "on").at("ack"), 3);
}

TEST_F(SessionLoopTest, AWindowWhoseRulesFailIsClosedAndSaysWhy) {
  Open([](TConsole& console) {
    TDialog dialog(console.Loop);
    dialog.ActMore.EnabledRule = []() -> bool { throw EZanError("no such field"); };
    EXPECT_EQ(dialog.ShowModal(), mrCancel);
  });
  Driver->Act(1, "ActRun");
  const int box = Driver->Client.WindowOf("TMessage");
  if (box == 0) Driver->Await([](const json::object& message) { return message.contains("changes"); });
  ASSERT_NE(Driver->Client.WindowOf("TMessage"), 0);
  Driver->Act(Driver->Client.WindowOf("TMessage"), "Ok");
  EXPECT_EQ(Driver->Client.WindowOf("TDialog"), 0);
  EXPECT_THAT(Log, testing::Contains("TDialog: no such field"));
  EXPECT_TRUE(Changes(Driver->Act(1, "Missing")).empty());
}

TEST_F(SessionLoopTest, AnswersOfMessageBoxes) {
  std::vector<TMsgDlgBtn> answers;
  Open([&](TConsole& console) {
    answers.push_back(console.Loop.MessageBox("", "继续吗？", TMsgDlgType::Confirmation, mbYes | mbNo));
  });
  Driver->Act(1, "ActRun");
  EXPECT_EQ(Driver->Client.Property(2, "Yes", "default"), true);
  EXPECT_EQ(Driver->Client.Property(2, "No", "cancel"), true);
  EXPECT_EQ(Driver->Client.Property(2, "Ok", "caption"), nullptr);
  EXPECT_EQ(Driver->Client.Windows().at(2).Properties.at("caption"), "系统提示");
  Driver->Act(2, "Yes");
  Driver->Act(1, "ActRun");
  Driver->CloseWindow(3);
  EXPECT_THAT(answers, testing::ElementsAre(mbYes, mbNo));
}

TEST_F(SessionLoopTest, AWindowThatIsDestroyedInItsOwnHandlerIsGone) {
  Open([](TConsole& console) {
    auto* const dialog = std::make_unique<TDialog>(console.Loop).release();
    dialog->ActMore.OnExecute = [dialog] { std::unique_ptr<TDialog>{dialog}.reset(); };
    dialog->Show();
  });
  Driver->Act(1, "ActRun");
  Driver->Act(2, "ActMore");
  EXPECT_EQ(TDialog::Destroyed, 1);
  EXPECT_EQ(Driver->Client.WindowOf("TDialog"), 0);
  EXPECT_EQ(Driver->Act(1, "Missing").at("ack"), 3);
}

TEST_F(SessionLoopTest, AWindowThatFreesItselfWhenHiddenDoesSoAfterItsHandler) {
  int destroyedInHandler = -1;
  Open([&](TConsole& console) {
    auto* const dialog = std::make_unique<TDialog>(console.Loop).release();
    dialog->OnHide = [dialog] { std::unique_ptr<TDialog>{dialog}.reset(); };
    dialog->ActMore.OnExecute = [dialog, &destroyedInHandler] {
      dialog->Close();
      destroyedInHandler = TDialog::Destroyed;
    };
    dialog->Show();
  });
  Driver->Act(1, "ActRun");
  Driver->Act(2, "ActMore");
  EXPECT_EQ(destroyedInHandler, 0);
  EXPECT_EQ(TDialog::Destroyed, 1);
  EXPECT_EQ(Driver->Client.WindowOf("TDialog"), 0);
}

TEST_F(SessionLoopTest, AHiddenWindowIsToldOnlyWhenItsHandlerBehindADialogHasEnded) {
  std::vector<std::string> order;
  Open([&](TConsole& console) {
    Page.emplace(console.Loop);
    Page->OnHide = [&] { order.push_back("hidden"); };
    Page->ActMore.OnExecute = [&] {
      TDialog question(console.Loop);
      question.ActMore.OnExecute = [&] { Page->Close(); };
      question.ShowModal();
      order.push_back("handler ends");
    };
    Page->Show();
  });
  Driver->Act(1, "ActRun");
  Driver->Act(2, "ActMore");
  Driver->Act(3, "ActMore");
  EXPECT_EQ(Driver->Client.Windows().count(2), 0U);
  Driver->Act(3, "ActOk");
  EXPECT_THAT(order, testing::ElementsAre("handler ends", "hidden"));
}

TEST_F(SessionLoopTest, ShowingAWindowAgainBringsItToTheFront) {
  Open([&](TConsole& console) {
    if (!Page) Page.emplace(console.Loop);
    Page->Show();
  });
  Driver->Act(1, "ActRun");
  const json::object again = Driver->Act(1, "ActRun");
  EXPECT_EQ(Page->Shown, 1);
  EXPECT_EQ(Changes(again), json::array({json::object{{"focus", 2}}}));
  Driver->CloseWindow(2);
  EXPECT_EQ(Page->Hidden, 1);
  Driver->Act(1, "ActRun");
  EXPECT_EQ(Page->Shown, 2);
  EXPECT_EQ(Driver->Client.WindowOf("TDialog"), 3);
}

TEST_F(SessionLoopTest, AFormThatIsOpenCannotBeShownModallyOnceMore) {
  Open([&](TConsole& console) {
    Page.emplace(console.Loop);
    Page->Show();
    EXPECT_THROW(Page->ShowModal(), EZanError);
  });
  Driver->Act(1, "ActRun");
}

TEST_F(SessionLoopTest, LongWorkShowsItsProgressAndLetsOtherEventsWait) {
  bool cancelled = false;
  Open([&](TConsole& console) {
    TDialog progress(console.Loop);
    progress.ActOk.OnExecute = [&] { cancelled = true; };
    progress.Show();
    for (int step = 0; !cancelled && step < 10000; ++step) {
      progress.EditName.Text = std::to_string(step);
      console.Loop.ProcessMessages();
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    EXPECT_EQ(console.EditText.Text, "");
  });
  Driver->Push(R"({"n":1,"do":"act","window":1,"name":"ActRun"})");
  const json::object shown = Driver->Await([](const json::object&) { return true; });
  EXPECT_EQ(shown.at("ack"), 0);
  Driver->Push(R"({"n":2,"do":"set","window":1,"name":"EditText","value":"typed"})");
  Driver->Push(R"({"n":3,"do":"act","window":2,"name":"ActOk"})");
  const auto acknowledges = [](int number) {
    return [number](const json::object& message) { return message.at("ack") == number; };
  };
  Driver->Await(acknowledges(1));
  EXPECT_TRUE(cancelled);
  Driver->Await(acknowledges(3));
  Driver->Number = 3;
  Driver->Snapshot();
  EXPECT_EQ(Driver->Client.Property(1, "EditText", "value"), "typed");
}

TEST_F(SessionLoopTest, LongWorkIsShownAtMostEveryFiftyMilliseconds) {
  Open([](TConsole& console) {
    for (int step = 0; step < 220; ++step) {
      console.EditText.Text = std::to_string(step);
      console.Loop.ProcessMessages();
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
  });
  Driver->Push(R"({"n":1,"do":"act","window":1,"name":"ActRun"})");
  int messages = 0;
  const auto start = std::chrono::steady_clock::now();
  Driver->Await([&](const json::object& message) {
    ++messages;
    return message.at("ack") == 1;
  });
  const auto took = std::chrono::steady_clock::now() - start;
  EXPECT_GT(messages, 2);
  EXPECT_LE(messages, took / std::chrono::milliseconds(50) + 2);
}

TEST_F(SessionLoopTest, RefreshingCaptionsReachesEveryOpenWindow) {
  int changes = 0;
  Open([&](TConsole& console) {
    console.Loop.RefreshCaptions();
    changes = console.LanguageChanges;
  });
  Driver->Act(1, "ActRun");
  EXPECT_EQ(changes, 1);
}

}  // namespace
}  // namespace zantest
