#pragma once

#include "tests/support/SessionDriver.h"

namespace zantest {

/// A form with one component of each kind that takes input, and what its callbacks heard.
class TSampleForm : public zanrole::TForm {
 public:
  explicit TSampleForm(zanrole::TFormHost& host) : TForm(host, "Sample") {
    Radio.Items = {"a", "b", "c"};
    Combo.Items = {"one", "two"};
    Typed.Items = {"one", "two"};
    Typed.Editable = true;
    Spin.MinValue = 1;
    Spin.MaxValue = 10;
    Password.Mode = zanrole::TEditMode::Password;
    Short.MaxLength = 4;
    Fixed.ReadOnly = true;
    Edit.OnChange = [this] { Heard.push_back("Edit"); };
    Edit.OnEnterKey = [this] { Heard.push_back("Enter"); };
    Check.OnClick = [this] { Heard.push_back("Check"); };
    Radio.OnChange = [this] { Heard.push_back("Radio"); };
    Tabs.OnChange = [this] { Heard.push_back("Tabs"); };
    Action.OnExecute = [this] { Heard.push_back("Action"); };
    Inner.OnExecute = [this] { Heard.push_back("Inner"); };
  }
  std::string ClassName() const override { return "TSampleForm"; }

  zanrole::TEdit Edit{*this, nullptr, "Edit"};
  zanrole::TEdit Password{*this, nullptr, "Password"};
  zanrole::TEdit Short{*this, nullptr, "Short"};
  zanrole::TEdit Fixed{*this, nullptr, "Fixed"};
  zanrole::TMemo Memo{*this, nullptr, "Memo"};
  zanrole::TCheckBox Check{*this, nullptr, "Check"};
  zanrole::TRadioGroup Radio{*this, nullptr, "Radio"};
  zanrole::TComboBox Combo{*this, nullptr, "Combo"};
  zanrole::TComboBox Typed{*this, nullptr, "Typed"};
  zanrole::TSpinEdit Spin{*this, nullptr, "Spin"};
  zanrole::TTabs Tabs{*this, nullptr, "Tabs"};
  zanrole::TTab First{*this, &Tabs, "First"};
  zanrole::TTab Second{*this, &Tabs, "Second"};
  zanrole::TGroup Group{*this, nullptr, "Group", zanrole::TGroupRole::Fields};
  zanrole::TAction Inner{*this, &Group, "Inner"};
  zanrole::TAction Action{*this, nullptr, "Action"};
  zanrole::TLabel Label{*this, nullptr, "Label"};
  std::vector<std::string> Heard;
};

/// A session that shows one form of type `TShown` as window 1. The form may be looked at and changed while
/// the session waits.
template <typename TShown>
class TFormSession {
 public:
  explicit TFormSession(std::function<void(TShown&)> prepare = {})
      : Driver([this, prepare = std::move(prepare)](zanhost::TLineChannel& channel) {
          TPlainTexts texts;
          zanhost::TSessionLoop loop(channel, texts);
          TShown form(loop);
          if (prepare) prepare(form);
          FForm = &form;
          loop.Attach();
          form.Show();
          loop.Run();
        }) {
    Driver.Start();
  }

  TShown& Form() { return *FForm; }

 private:
  TShown* FForm = nullptr;

 public:
  TSessionDriver Driver;
};

}  // namespace zantest
