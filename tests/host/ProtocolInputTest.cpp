#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/host/ProtocolForm.h"

// What a person enters, component by component.

namespace zantest {
namespace {

namespace json = boost::json;
using testing::ElementsAre;
using testing::IsEmpty;

class ProtocolInputTest : public testing::Test {
 protected:
  json::object Set(const char* name, json::value value) { return Driver.Set(1, name, std::move(value)); }
  static bool IsQuiet(const json::object& answer) { return answer.at("changes").as_array().empty(); }
  static bool IsRefused(const json::object& answer) { return answer.contains("error"); }

  TFormSession<TSampleForm> Session;
  TSessionDriver& Driver = Session.Driver;
  TSampleForm& Form = Session.Form();
};

TEST_F(ProtocolInputTest, TypedTextIsStoredHeardAndNotSentBack) {
  EXPECT_TRUE(IsQuiet(Set("Edit", "o'neil \"\\ 😀\n")));
  EXPECT_EQ(Form.Edit.Text, "o'neil \"\\ 😀\n");
  EXPECT_THAT(Form.Heard, ElementsAre("Edit"));
}

TEST_F(ProtocolInputTest, WhatTheProgramMadeOfTypedTextIsSentBack) {
  Form.Edit.OnChange = [this] { Form.Edit.Text = "changed"; };
  Set("Edit", "typed");
  EXPECT_EQ(Driver.Client.Property(1, "Edit", "value"), "changed");
}

TEST_F(ProtocolInputTest, ATextThatIsTooLongIsCutAtCharactersAndSentBack) {
  Set("Short", "总部😀x");
  EXPECT_EQ(Form.Short.Text, "总部😀");
  EXPECT_EQ(Driver.Client.Property(1, "Short", "value"), "总部😀");
}

TEST_F(ProtocolInputTest, AFourByteCharacterTakesTwoUnitsOfTheLengthAndIsNeverHalved) {
  Set("Short", "总部字😀");
  EXPECT_EQ(Form.Short.Text, "总部字");
  Set("Short", "😀😀😀");
  EXPECT_EQ(Form.Short.Text, "😀😀");
}

TEST_F(ProtocolInputTest, APasswordIsNeverSentOut) {
  Set("Password", "secret");
  EXPECT_EQ(Form.Password.Text, "secret");
  const std::string snapshot = json::serialize(Driver.Snapshot());
  EXPECT_EQ(snapshot.find("secret"), std::string::npos);
  EXPECT_EQ(Driver.Client.Property(1, "Password", "filled"), true);
}

TEST_F(ProtocolInputTest, ReadOnlyTextKeepsItsValue) {
  EXPECT_TRUE(IsQuiet(Set("Fixed", "x")));
  EXPECT_EQ(Form.Fixed.Text, "");
}

TEST_F(ProtocolInputTest, ChoicesTakeTheirIndexes) {
  Set("Check", true);
  Set("Radio", 2);
  Set("Combo", 1);
  EXPECT_TRUE(Form.Check.Checked);
  EXPECT_EQ(Form.Radio.ItemIndex, 2);
  EXPECT_EQ(Form.Combo.ItemIndex, 1);
  EXPECT_THAT(Form.Heard, ElementsAre("Check", "Radio"));
}

TEST_F(ProtocolInputTest, AnEditableComboTakesTextAndFindsItsItem) {
  Set("Typed", "three");
  EXPECT_EQ(Form.Typed.Text, "three");
  EXPECT_EQ(Form.Typed.ItemIndex, -1);
  Set("Typed", "two");
  EXPECT_EQ(Form.Typed.ItemIndex, 1);
  Set("Typed", 0);
  EXPECT_EQ(Form.Typed.Text, "one");
}

TEST_F(ProtocolInputTest, ASpinKeepsItsBounds) {
  Set("Spin", 99);
  EXPECT_EQ(Form.Spin.Value, 10);
  EXPECT_EQ(Driver.Client.Property(1, "Spin", "value"), 10);
}

TEST_F(ProtocolInputTest, TabsTakeThePagesThatCanBeSeen) {
  EXPECT_EQ(Driver.Client.Property(1, "Tabs", "value"), "First");
  Set("Tabs", "Second");
  EXPECT_EQ(Form.Tabs.ActivePage, "Second");
  Form.First.VisibleRule = [] { return false; };
  Set("Tabs", "First");
  Set("Tabs", "Action");
  EXPECT_EQ(Form.Tabs.ActivePage, "Second");
  EXPECT_THAT(Form.Heard, ElementsAre("Tabs"));
}

TEST_F(ProtocolInputTest, EnterInAnEdit) {
  Driver.Act(1, "Edit");
  EXPECT_THAT(Form.Heard, ElementsAre("Enter"));
}

TEST_F(ProtocolInputTest, WhatCannotBeUsedTakesNothing) {
  Form.Action.Enabled = false;
  Form.Edit.Visible = false;
  Form.Group.Enabled = false;
  Driver.Act(1, "Action");
  Driver.Act(1, "Inner");
  Set("Edit", "x");
  EXPECT_THAT(Form.Heard, IsEmpty());
  EXPECT_EQ(Form.Edit.Text, "");
}

TEST_F(ProtocolInputTest, ARuleIsAskedAgainBeforeTheActionRuns) {
  bool allowed = true;
  Form.Action.EnabledRule = [&] { return allowed; };
  Driver.Act(1, "Action");
  allowed = false;
  EXPECT_EQ(Driver.Client.Property(1, "Action", "enabled"), true);
  Driver.Act(1, "Action");
  EXPECT_THAT(Form.Heard, ElementsAre("Action"));
  EXPECT_EQ(Driver.Client.Property(1, "Action", "enabled"), false);
}

TEST_F(ProtocolInputTest, InputOfTheWrongKindIsRefusedAndChangesNothing) {
  EXPECT_TRUE(IsRefused(Set("Edit", 5)));
  EXPECT_TRUE(IsRefused(Set("Edit", nullptr)));
  EXPECT_TRUE(IsRefused(Set("Check", "true")));
  EXPECT_TRUE(IsRefused(Set("Radio", 3)));
  EXPECT_TRUE(IsRefused(Set("Radio", -2)));
  EXPECT_TRUE(IsRefused(Set("Combo", "one")));
  EXPECT_TRUE(IsRefused(Set("Spin", 5000000000)));
  EXPECT_TRUE(IsRefused(Set("Label", "x")));
  EXPECT_TRUE(IsRefused(Driver.Act(1, "Label")));
  EXPECT_TRUE(IsRefused(Driver.Send({{"do", "sort"}, {"window", 1}, {"name", "Edit"}, {"column", 0}})));
  EXPECT_THAT(Form.Heard, IsEmpty());
  EXPECT_EQ(Form.Radio.ItemIndex, -1);
}

TEST_F(ProtocolInputTest, ASessionWithoutCommandsRefusesThem) {
  EXPECT_TRUE(IsRefused(Driver.Send({{"do", "call"}, {"function", "X"}})));
  EXPECT_TRUE(IsRefused(Driver.Send({{"do", "language"}, {"value", "en"}})));
}

TEST_F(ProtocolInputTest, AFocusRequestIsPassedOnOnce) {
  Form.Action.OnExecute = [this] { Form.FocusRequest = &Form.Memo; };
  Driver.Act(1, "Action");
  EXPECT_THAT(Driver.Client.Focused, ElementsAre("Memo"));
  Driver.Act(1, "Label");
  EXPECT_EQ(Form.FocusRequest, nullptr);
  EXPECT_THAT(Driver.Client.Focused, ElementsAre("Memo"));
}

TEST_F(ProtocolInputTest, PartsThatComeAndGoWhileTheWindowIsOpen) {
  std::optional<zanrole::TEdit> extra;
  Form.Action.OnExecute = [&] { extra.emplace(Form, &Form.Group, "Extra"); };
  Driver.Act(1, "Action");
  EXPECT_EQ(Driver.Client.Property(1, "Extra", "in"), "Group");
  Form.Action.OnExecute = [&] {
    extra.reset();
    extra.emplace(Form, nullptr, "Other");
  };
  Driver.Act(1, "Action");
  EXPECT_EQ(Driver.Client.Property(1, "Extra", "value"), nullptr);
  EXPECT_EQ(Driver.Client.Property(1, "Other", "value"), "");
  Form.Action.OnExecute = [&] { extra.reset(); };
  Driver.Act(1, "Action");
  EXPECT_EQ(Driver.Client.Property(1, "Other", "value"), nullptr);
}

}  // namespace
}  // namespace zantest
