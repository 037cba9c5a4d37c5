#include <gtest/gtest.h>

#include <random>

#include "tests/host/ProtocolForm.h"

// Whatever a program does to its windows: a client that has followed all changes knows what a fresh one is
// told.

namespace zantest {
namespace {

namespace json = boost::json;
using namespace zanrole;

/// A window that does something at random to itself or to other windows whenever its action runs.
class TRandomForm : public TForm {
 public:
  explicit TRandomForm(TFormHost& host) : TForm(host, "Random"), FHost(&host) {
    List.Columns = {{"Name", 100}};
    List.MultiSelect = true;
    List.OnRowCount = [this] { return static_cast<int>(FRows.size()); };
    List.OnRow = [this](int index) {
      const auto& [id, text] = FRows[static_cast<std::size_t>(index)];
      return TListRow{id, {text}, {}, {}};
    };
    Action.OnExecute = [this] { DoSomething(); };
    Toggled.EnabledRule = [this] { return FRows.size() % 2 == 0; };
    Toggled.VisibleRule = [this] { return FRows.size() % 3 != 0; };
  }
  ~TRandomForm() override {
    FPages.clear();
    FExtra.reset();
  }
  std::string ClassName() const override { return "TRandomForm"; }

  TAction Action{*this, nullptr, "Action"};
  TAction Toggled{*this, nullptr, "Toggled"};
  TEdit Edit{*this, nullptr, "Edit"};
  TListView List{*this, nullptr, "List"};
  TTreeView Tree{*this, nullptr, "Tree"};

 private:
  class TPage : public TForm {
   public:
    explicit TPage(TFormHost& host) : TForm(host, "Page") {}
    std::string ClassName() const override { return "TPage"; }
    TLabel Label{*this, nullptr, "Label"};
  };

  int Draw(int below) { return static_cast<int>(FRandom() % static_cast<unsigned>(below)); }
  std::string Word() { return "word " + std::to_string(Draw(1000)); }

  TTreeNode* AnyNode() { return Tree.FindId(1 + Draw(FLastNode + 1)); }

  void DoSomething() {
    for (int steps = Draw(4); steps >= 0; --steps) Step();
  }

  void Step() {
    switch (Draw(16)) {
      case 0:
        Edit.Text = Word();
        break;
      case 1:
        Caption = Word();
        break;
      case 2:
        Edit.Hint = Word();
        break;
      case 3:
        FRows.insert(FRows.begin() + Draw(static_cast<int>(FRows.size()) + 1), {++FLastRow, Word()});
        break;
      case 4:
        for (int more = 0; more < 30; ++more) FRows.emplace_back(++FLastRow, Word());
        break;
      case 5:
        if (!FRows.empty()) FRows.erase(FRows.begin() + Draw(static_cast<int>(FRows.size())));
        break;
      case 6:
        if (!FRows.empty())
          FRows[static_cast<std::size_t>(Draw(static_cast<int>(FRows.size())))].second = Word();
        break;
      case 7:
        FRows.resize(FRows.size() / 2);
        break;
      case 8:
        if (!FRows.empty())
          List.Select(FRows[static_cast<std::size_t>(Draw(static_cast<int>(FRows.size())))].first);
        break;
      case 9:
      case 10:
        ++FLastNode;
        Tree.Add(AnyNode(), Word(), FLastNode);
        break;
      case 11:
        if (TTreeNode* const node = AnyNode()) Tree.SetExpanded(node, !node->Expanded());
        break;
      case 12:
        if (TTreeNode* const node = AnyNode()) Tree.Select(node);
        break;
      case 13:
        if (TTreeNode* const node = AnyNode()) Tree.Delete(node);
        break;
      case 14:
        if (FExtra)
          FExtra.reset();
        else
          FExtra.emplace(*this, nullptr, "Extra");
        break;
      default:
        TurnPages();
        break;
    }
  }

  void TurnPages() {
    if (FPages.size() < 3) {
      FPages.push_back(std::make_unique<TPage>(*FHost));
      FPages.back()->Label.Text = Word();
      FPages.back()->Show();
    } else {
      FPages.erase(FPages.begin() + Draw(3));
    }
  }

  TFormHost* FHost;
  std::mt19937 FRandom{4711};
  std::vector<std::pair<std::int64_t, std::string>> FRows;
  std::int64_t FLastRow = 0;
  int FLastNode = 0;
  std::optional<TEdit> FExtra;
  std::vector<std::unique_ptr<TPage>> FPages;
};

TEST(ProtocolSnapshotTest, AllChangesTogetherAreTheSnapshot) {
  TFormSession<TRandomForm> session;
  TSessionDriver& driver = session.Driver;
  std::size_t compared = 0;
  for (int round = 0; round < 1500; ++round) {
    driver.Act(1, "Action");
    if (round % 7 == 3) {
      driver.Client.NoteInput(1, "Edit", "value", "typed");
      driver.Set(1, "Edit", "typed");
    }
    if (round % 5 != 0) continue;
    const json::value followed = driver.Client.Whole();
    driver.Snapshot();
    ASSERT_EQ(json::serialize(followed.at("1").at("parts").at("Tree")),
              json::serialize(driver.Client.Whole().at("1").at("parts").at("Tree")))
        << "after round " << round;
    ASSERT_EQ(followed, driver.Client.Whole()) << "after round " << round;
    ++compared;
  }
  EXPECT_EQ(compared, 300U);
}

TEST(ProtocolSnapshotTest, ARangeThatIsLookedAtFollowsItsRows) {
  TFormSession<TRandomForm> session;
  TSessionDriver& driver = session.Driver;
  for (int round = 0; round < 400; ++round) {
    driver.Act(1, "Action");
    driver.View(1, "List", 20, 49);
    const json::value followed = driver.Client.Whole();
    driver.Snapshot();
    driver.View(1, "List", 20, 49);
    ASSERT_EQ(followed, driver.Client.Whole()) << "after round " << round;
  }
}

}  // namespace
}  // namespace zantest
