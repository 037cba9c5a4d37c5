#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/host/ProtocolForm.h"

// Rows of lists, grids and trees.

namespace zantest {
namespace {

namespace json = boost::json;
using namespace zanrole;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr int kManyRows = 100000;

class TRowsForm : public TForm {
 public:
  explicit TRowsForm(TFormHost& host) : TForm(host, "Rows") {
    List.Columns = {{"Name", 120}, {"Code", 80}};
    List.MultiSelect = true;
    List.OnRowCount = [this] { return Count; };
    List.OnRow = [this](int index) {
      Asked.insert(index);
      return TListRow{index + 1000, {"row " + std::to_string(index), "x"}, {}, {}};
    };
    List.OnIndexOf = [this](std::int64_t id) { return id < 1000 + Count ? static_cast<int>(id - 1000) : -1; };
    List.OnSelect = [this] { Heard.push_back("select"); };
    List.OnActivate = [this](std::int64_t id) { Heard.push_back("activate " + std::to_string(id)); };
    List.OnMark = [this](std::int64_t id) { Heard.push_back("mark " + std::to_string(id)); };
    List.OnColumnClick = [this](int column) { Heard.push_back("sort " + std::to_string(column)); };
    Grid.Columns = {{"Right", 120}, {"State", 80}};
    Grid.OnRowCount = [] { return 2; };
    Grid.OnRow = [](int index) { return TListRow{index, {}, {}, {}}; };
    Grid.OnCell = [this](std::int64_t id, int column) {
      return column == 0 ? TGridCell{"right " + std::to_string(id), true, {}, false}
                         : TGridCell{State, id == 1, {"yes", "no"}, id == 1};
    };
    Grid.OnEditCell = [this](std::int64_t, int, const std::string& text) {
      if (text == "maybe") return false;
      State = text;
      return true;
    };
    Grid.OnButton = [this](std::int64_t id, int column) {
      Heard.push_back("button " + std::to_string(id) + " " + std::to_string(column));
    };
    Tree.OnChange = [this] { Heard.push_back("node"); };
    Tree.OnActivate = [this](TTreeNode& node) { Heard.push_back("open " + node.Text); };
    Tree.OnDrop = [this](const std::vector<TTreeNode*>& nodes, TTreeNode* onto) {
      Heard.push_back(nodes.at(0)->Text + " onto " + (onto != nullptr ? onto->Text : "nothing"));
    };
    TTreeNode* const top = Tree.Add(nullptr, "top", 1);
    Tree.Add(Tree.Add(top, "middle", 2), "low", 3);
    Tree.Add(nullptr, "second", 4);
    Run.OnExecute = [this] { OnRun(); };
  }
  std::string ClassName() const override { return "TRowsForm"; }

  TListView List{*this, nullptr, "List"};
  TGrid Grid{*this, nullptr, "Grid"};
  TTreeView Tree{*this, nullptr, "Tree"};
  TAction Run{*this, nullptr, "Run"};
  std::function<void()> OnRun = [] {};
  int Count = kManyRows;
  std::string State = "no";
  std::set<int> Asked;
  std::vector<std::string> Heard;
};

class ProtocolRowsTest : public testing::Test {
 protected:
  json::object Row(const char* what, const char* name, int id, json::object more = {}) {
    more["do"] = what;
    more["window"] = 1;
    more["name"] = name;
    more["id"] = id;
    return Driver.Send(std::move(more));
  }
  std::vector<std::string> Shown(const char* name) { return Driver.Client.FirstCells(1, name); }
  const TClientModel::TPart& Part(const char* name) { return Driver.Client.Windows().at(1).Parts.at(name); }

  TFormSession<TRowsForm> Session;
  TSessionDriver& Driver = Session.Driver;
  TRowsForm& Form = Session.Form();
};

TEST_F(ProtocolRowsTest, OnlyTheRowsThatAreLookedAtAreAskedFor) {
  EXPECT_EQ(Part("List").Total, kManyRows);
  EXPECT_EQ(Form.Asked.size(), 60U);
  EXPECT_EQ(*Form.Asked.rbegin(), 59);
  EXPECT_EQ(Part("List").Rows.at(59).at("id"), 1059);
  Form.Asked.clear();
  Driver.View(1, "List", 99950, 100020);
  EXPECT_EQ(*Form.Asked.begin(), 99950);
  EXPECT_EQ(*Form.Asked.rbegin(), kManyRows - 1);
  EXPECT_EQ(Part("List").Rows.size(), 50U);
}

TEST_F(ProtocolRowsTest, ARangeThatIsTooLongIsCut) {
  Driver.View(1, "List", 0, kManyRows);
  EXPECT_EQ(Part("List").Rows.size(), 500U);
}

TEST_F(ProtocolRowsTest, AnEventAboutARowThatIsSeenAsksForNoOther) {
  Form.Asked.clear();
  Form.List.OnIndexOf = nullptr;
  Row("select", "List", 1010);
  EXPECT_LE(*Form.Asked.rbegin(), 59);
}

TEST_F(ProtocolRowsTest, ARowChangesAloneWhenOnlyItHasChanged) {
  const json::object answer = Row("select", "List", 1010);
  for (const json::value& change : answer.at("changes").as_array()) {
    if (change.as_object().contains("rows")) {
      EXPECT_EQ(change.at("first"), 10);
      EXPECT_EQ(change.at("items").as_array().size(), 1U);
    }
  }
  EXPECT_EQ(Part("List").Rows.at(10).at("selected"), true);
}

TEST_F(ProtocolRowsTest, SelectionByIdOrIndexWithItsModes) {
  Row("select", "List", 1002);
  Row("select", "List", 1005, {{"mode", "toggle"}});
  EXPECT_EQ(Form.List.Selection, (std::set<std::int64_t>{1002, 1005}));
  Row("select", "List", 1002, {{"mode", "toggle"}});
  EXPECT_EQ(Form.List.Selection, (std::set<std::int64_t>{1005}));
  Driver.Send({{"do", "select"}, {"window", 1}, {"name", "List"}, {"index", 3}});
  Row("select", "List", 1006, {{"mode", "range"}});
  EXPECT_EQ(Form.List.Selection, (std::set<std::int64_t>{1003, 1004, 1005, 1006}));
  Row("select", "List", 1001, {{"mode", "range"}});
  EXPECT_EQ(Form.List.Selection, (std::set<std::int64_t>{1001, 1002, 1003}));
  EXPECT_EQ(Form.List.Focused, 1001);
}

TEST_F(ProtocolRowsTest, AListForOneRowKeepsToOne) {
  Form.List.MultiSelect = false;
  Row("select", "List", 1002);
  Row("select", "List", 1005, {{"mode", "toggle"}});
  EXPECT_EQ(Form.List.Selection, (std::set<std::int64_t>{1005}));
}

TEST_F(ProtocolRowsTest, ARowThatIsGoneTakesNothing) {
  Form.Count = 5;
  EXPECT_EQ(Row("select", "List", 1005).contains("error"), false);
  Driver.Send({{"do", "select"}, {"window", 1}, {"name", "List"}, {"index", 5}});
  Row("activate", "List", 1099);
  EXPECT_THAT(Form.Heard, IsEmpty());
  EXPECT_EQ(Part("List").Rows.size(), 5U);
}

TEST_F(ProtocolRowsTest, DoubleClickSelectsFirst) {
  Row("activate", "List", 1002);
  Row("mark", "List", 1003);
  Driver.Send({{"do", "sort"}, {"window", 1}, {"name", "List"}, {"column", 1}});
  EXPECT_THAT(Form.Heard, ElementsAre("select", "activate 1002", "mark 1003", "sort 1"));
  EXPECT_TRUE(
      Driver.Send({{"do", "sort"}, {"window", 1}, {"name", "List"}, {"column", 2}}).contains("error"));
}

TEST_F(ProtocolRowsTest, AFocusThatTheProgramMovedIsRevealedAndAPersonsIsNot) {
  Row("select", "List", 1002);
  EXPECT_THAT(Driver.Client.Revealed, IsEmpty());
  Form.OnRun = [this] { Form.List.Select(1000 + 70000); };
  Driver.Act(1, "Run");
  EXPECT_THAT(Driver.Client.Revealed, ElementsAre(70000));
}

TEST_F(ProtocolRowsTest, AGridTellsWhatItsCellsTake) {
  const json::array& cells = Part("Grid").Rows.at(0).at("cells").as_array();
  EXPECT_EQ(cells.at(0), "right 0");
  EXPECT_EQ(cells.at(1), (json::object{{"text", "no"}, {"edit", true}, {"pick", {"yes", "no"}}}));
  EXPECT_EQ(Part("Grid").Rows.at(1).at("cells").at(1).at("button"), true);
}

TEST_F(ProtocolRowsTest, ACellThatRefusesItsTextIsSentAgain) {
  const auto editsTo = [&](const char* text) {
    return json::serialize(Row("edit", "Grid", 0, {{"column", 1}, {"value", text}}));
  };
  EXPECT_NE(editsTo("maybe").find(R"("text":"no")"), std::string::npos);
  editsTo("yes");
  EXPECT_EQ(Form.State, "yes");
  Row("edit", "Grid", 1, {{"column", 1}, {"value", "no"}});
  EXPECT_EQ(Form.State, "yes");
  EXPECT_TRUE(Row("edit", "Grid", 0, {{"column", 2}, {"value", "x"}}).contains("error"));
}

TEST_F(ProtocolRowsTest, TheButtonOfACell) {
  Row("act", "Grid", 1, {{"column", 1}});
  Row("act", "Grid", 0, {{"column", 1}});
  EXPECT_THAT(Form.Heard, ElementsAre("button 1 1"));
}

TEST_F(ProtocolRowsTest, ATreeShowsWhatIsOpen) {
  EXPECT_THAT(Shown("Tree"), ElementsAre("top", "second"));
  EXPECT_EQ(Part("Tree").Rows.at(0).at("node"), "closed");
  Row("toggle", "Tree", 1);
  EXPECT_THAT(Shown("Tree"), ElementsAre("top", "middle", "second"));
  EXPECT_EQ(Part("Tree").Rows.at(1).at("level"), 1);
  Driver.Send({{"do", "expandAll"}, {"window", 1}, {"name", "Tree"}});
  EXPECT_THAT(Shown("Tree"), ElementsAre("top", "middle", "low", "second"));
  EXPECT_EQ(Part("Tree").Rows.at(2).at("node"), "leaf");
  Row("toggle", "Tree", 1);
  EXPECT_THAT(Shown("Tree"), ElementsAre("top", "second"));
}

TEST_F(ProtocolRowsTest, ANodeThatIsNotToBeSeenTakesNothing) {
  Row("select", "Tree", 3);
  EXPECT_EQ(Form.Tree.Selected(), nullptr);
  Row("activate", "Tree", 4);
  EXPECT_THAT(Form.Heard, ElementsAre("node", "open second"));
}

TEST_F(ProtocolRowsTest, ANodeThatGoesInItsOwnSelectionIsNotActivated) {
  Form.Tree.OnChange = [this] { Form.Tree.Clear(); };
  Row("activate", "Tree", 4);
  EXPECT_THAT(Form.Heard, IsEmpty());
  EXPECT_THAT(Shown("Tree"), IsEmpty());
}

TEST_F(ProtocolRowsTest, DroppedNodes) {
  Row("drop", "Tree", 4, {{"onto", 1}});
  Row("drop", "Tree", 4, {{"onto", nullptr}});
  Row("drop", "Tree", 4, {{"onto", 99}});
  Row("drop", "Tree", 99, {{"onto", 1}});
  EXPECT_THAT(Form.Heard, ElementsAre("second onto top", "second onto nothing"));
}

}  // namespace
}  // namespace zantest
