#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Frame/Host/Forms.h"

namespace zantest {
namespace {

using testing::ElementsAre;
using namespace zanrole;

class TQuietHost final : public TFormHost {
 public:
  void Show(TForm&) override {}
  int ShowModal(TForm&) override { return mrNone; }
  void Hide(TForm&) override { ++Hidden; }
  void Forget(TForm&) noexcept override {}
  void ProcessMessages() override {}
  void SetBusy(bool) override {}
  int Hidden = 0;
};

class TSampleForm final : public TForm {
 public:
  explicit TSampleForm(TFormHost& host) : TForm(host) {}
  std::string ClassName() const override { return "TSampleForm"; }
  bool CloseQuery() override { return MayClose; }
  bool MayClose = true;
  TGroup Bar{*this, nullptr, "Bar", TGroupRole::Bar};
  TAction Act{*this, &Bar, "Act"};
  TTreeView Tree{*this, nullptr, "Tree"};
};

class Forms : public testing::Test {
 protected:
  TQuietHost FHost;
  TSampleForm FForm{FHost};
  TTreeView& FTree = FForm.Tree;
};

TEST_F(Forms, PartsEnterTheirFormInOrderAndAreFoundByName) {
  EXPECT_THAT(FForm.Components(), ElementsAre(&FForm.Bar, &FForm.Act, &FForm.Tree));
  EXPECT_EQ(FForm.FindComponent("Act"), &FForm.Act);
  EXPECT_EQ(FForm.FindComponent("act"), nullptr);
}

TEST_F(Forms, APartInADisabledContainerIsNotUsable) {
  EXPECT_TRUE(FForm.Act.Usable());
  FForm.Bar.EnabledRule = [] { return false; };
  FForm.Bar.ApplyRules();
  EXPECT_FALSE(FForm.Act.Usable());
}

TEST_F(Forms, CloseAsksFirst) {
  FForm.MayClose = false;
  FForm.Close();
  EXPECT_EQ(FHost.Hidden, 0);
  FForm.MayClose = true;
  FForm.Close();
  EXPECT_EQ(FHost.Hidden, 1);
  EXPECT_EQ(FForm.ModalResult, mrCancel);
}

TEST_F(Forms, SelectingANodeOpensWhatIsAboveItAndTellsOnce) {
  int changes = 0;
  FTree.OnChange = [&] { ++changes; };
  TTreeNode* top = FTree.Add(nullptr, "top", 1);
  TTreeNode* leaf = FTree.Add(FTree.Add(top, "middle", 2), "leaf", 3);
  FTree.Select(leaf);
  FTree.Select(leaf);
  EXPECT_EQ(changes, 1);
  EXPECT_TRUE(top->Expanded());
  EXPECT_EQ(leaf->Level(), 2);
  EXPECT_EQ(FTree.FindData(3), leaf);
  EXPECT_EQ(FTree.FindId(leaf->Id()), leaf);
}

TEST_F(Forms, DeletingTheSelectedNodeSelectsItsNeighbour) {
  TTreeNode* top = FTree.Add(nullptr, "top", 1);
  TTreeNode* first = FTree.Add(top, "first", 2);
  TTreeNode* second = FTree.Add(top, "second", 3);
  FTree.Select(first);
  FTree.Delete(first);
  EXPECT_EQ(FTree.Selected(), second);
  FTree.Delete(second);
  EXPECT_EQ(FTree.Selected(), top);
  FTree.Delete(top);
  EXPECT_EQ(FTree.Selected(), nullptr);
}

TEST_F(Forms, MovesANodeBeforeItsSibling) {
  TTreeNode* first = FTree.Add(nullptr, "first", 1);
  TTreeNode* second = FTree.Add(nullptr, "second", 2);
  const unsigned before = FTree.StructureRevision();
  FTree.MoveBefore(second, first);
  EXPECT_EQ(first->PrevSibling(), second);
  EXPECT_EQ(second->NextSibling(), first);
  EXPECT_EQ(second->PrevSibling(), nullptr);
  EXPECT_NE(FTree.StructureRevision(), before);
}

}  // namespace
}  // namespace zantest
