#include "Frame/Consoles/DataSetList.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/RecordingHost.h"

namespace zantest {
namespace {

using namespace zanrole;
using testing::ElementsAre;
using testing::IsEmpty;

class TListForm final : public TForm {
 public:
  using TForm::TForm;
  std::string ClassName() const override { return "TListForm"; }
  TListView List{*this, nullptr, "List"};
};

class TDataSetListTest : public testing::Test {
 protected:
  TDataSetListTest() {
    FRows.Load({"ID", "Name", "Size"}, {1, "b", 10, 2, "A", 9, 3, "c", TZanValue{}});
    FList.Refresh();
  }
  std::vector<std::int64_t> Ids() {
    std::vector<std::int64_t> ids;
    for (int row = 0; row < FForm.List.RowCount(); ++row) ids.push_back(FForm.List.OnRow(row).Id);
    return ids;
  }

  TRecordingHost FHost;
  TListForm FForm{FHost.Forms()};
  TDataSet FRows{"ID", "Name", "Size"};
  TDataSetList FList{FForm.List, FRows, "id", {{"名称", "Name"}, {"大小", "Size"}}};
};

TEST_F(TDataSetListTest, ShowsRowsInTheirOwnOrderUntilATitleIsClicked) {
  EXPECT_THAT(Ids(), ElementsAre(1, 2, 3));
  EXPECT_EQ(FForm.List.SortColumn, -1);
  EXPECT_THAT(FForm.List.OnRow(0).Cells, ElementsAre("b", "10"));
}

TEST_F(TDataSetListTest, TextsSortWithoutRegardToCase) {
  FForm.List.OnColumnClick(0);
  EXPECT_THAT(Ids(), ElementsAre(2, 1, 3));
  FForm.List.OnColumnClick(0);
  EXPECT_THAT(Ids(), ElementsAre(3, 1, 2));
}

TEST_F(TDataSetListTest, NumbersSortByValueAndNullsComeFirst) {
  FForm.List.OnColumnClick(1);
  EXPECT_THAT(Ids(), ElementsAre(3, 2, 1));
}

TEST_F(TDataSetListTest, AnotherColumnSortsUpwardsAgain) {
  FForm.List.OnColumnClick(0);
  FForm.List.OnColumnClick(0);
  FForm.List.OnColumnClick(1);
  EXPECT_FALSE(FForm.List.SortDescending);
  EXPECT_EQ(FForm.List.SortColumn, 1);
}

TEST_F(TDataSetListTest, TheOrderSurvivesARefresh) {
  FForm.List.OnColumnClick(0);
  FList.Refresh();
  EXPECT_THAT(Ids(), ElementsAre(2, 1, 3));
}

TEST_F(TDataSetListTest, TheFilterLeavesRowsOut) {
  FList.Filter = [this](int row) { return ValueAsString(FRows.At(row, 1)) != "A"; };
  FList.Refresh();
  EXPECT_THAT(Ids(), ElementsAre(1, 3));
}

TEST_F(TDataSetListTest, SelectsTheRowOnTopOrNothing) {
  FList.SelectFirst();
  EXPECT_THAT(FForm.List.Selection, ElementsAre(1));
  FRows.EmptyTable();
  FList.Refresh();
  FList.SelectFirst();
  EXPECT_THAT(FForm.List.Selection, IsEmpty());
  EXPECT_EQ(FForm.List.Focused, -1);
}

TEST_F(TDataSetListTest, ReadingRowsLeavesTheCursorOfTheWorkingCopyAlone) {
  FRows.GoTo(2);
  Ids();
  EXPECT_EQ(FRows.Row(), 2);
}

}  // namespace
}  // namespace zantest
