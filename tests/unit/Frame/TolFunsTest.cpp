#include "Frame/TolFuns.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/RecordingHost.h"

namespace zantest {
namespace {

using testing::ElementsAre;
using namespace zanrole;

TEST(Split, TwoAdjacentDelimitersAndOneAtTheEndGiveAnEmptyPieceEach) {
  EXPECT_THAT(Split(",", "a,,b,"), ElementsAre("a", "", "b", ""));
}

TEST(Split, AnEmptyTextGivesOneEmptyPiece) { EXPECT_THAT(Split(",", ""), ElementsAre("")); }

TEST(Split, TheDelimiterMayHaveSeveralCharacters) {
  EXPECT_THAT(Split("\r\n", "一\r\n二\r\n"), ElementsAre("一", "二", ""));
}

TEST(Join, IsTheInverseOfSplit) {
  for (const char* text : {"", ",", "a", "a,b", ",a,,b,", "张三,李四"})
    EXPECT_EQ(Join(",", Split(",", text)), text);
}

TEST(Join, NoPiecesGiveAnEmptyText) { EXPECT_EQ(Join(",", {}), ""); }

TEST(ErrDlg, ShowsAnErrorWithOneButtonUnderTheSystemTitle) {
  TRecordingHost host;
  ErrDlg("保存失败");
  ASSERT_EQ(host.Messages.size(), 1U);
  EXPECT_EQ(host.Messages[0].Title, "系统提示");
  EXPECT_EQ(host.Messages[0].Text, "保存失败");
  EXPECT_EQ(host.Messages[0].Kind, TMsgDlgType::Error);
  EXPECT_EQ(host.Messages[0].Buttons, mbOK);
}

TEST(WarnDlg, IsTrueOnlyWhenOkWasPressed) {
  TRecordingHost host;
  host.PressButton(mbCancel);
  EXPECT_FALSE(WarnDlg("确定？"));
  host.PressButton(mbOK);
  EXPECT_TRUE(WarnDlg("确定？"));
  EXPECT_EQ(host.Messages[1].Kind, TMsgDlgType::Warning);
  EXPECT_EQ(host.Messages[1].Buttons, mbOK | mbCancel);
}

}  // namespace
}  // namespace zantest
