#include "host/platform/Settings.h"

#include <gtest/gtest.h>

#include "Frame/Host/Classes.h"
#include "host/platform/Files.h"
#include "tests/support/TemporaryFolder.h"

using zanhost::TSettings;
using zanrole::EZanError;

TEST(Settings, MissingFileGivesTheFallback) {
  const zantest::TTemporaryFolder folder;
  const TSettings settings(folder.Path(), "private\\AppInfos.ini");
  EXPECT_EQ(settings.ReadString("UserRightForm", "Sort", "OID"), "OID");
  EXPECT_EQ(settings.ReadInteger("Party", "TreeWidth", 250), 250);
}

TEST(Settings, NameOfAConsoleIsAFileBelowTheInstallation) {
  const zantest::TTemporaryFolder folder;
  TSettings settings(folder.Path(), "\\private\\skin.ini");
  settings.Write("Party", "TreeWidth", "300");
  settings.Save();
  EXPECT_EQ(zanhost::ReadFile(folder / "private/skin.ini"), "[Party]\nTreeWidth=300\n");
  EXPECT_EQ(TSettings(folder.Path(), "private/skin.ini").ReadInteger("Party", "TreeWidth", 0), 300);
}

TEST(Settings, KeepsWhatItWasNotAskedToChange) {
  const zantest::TTemporaryFolder folder;
  zanhost::ReplacePrivateFile(folder / "a.ini", "[One]\nA=1\nB.C=2\n[Two]\nA=说明 \"x\" \\ = y\n");
  TSettings settings(folder.Path(), "a.ini");
  settings.Write("One", "A", "3");
  settings.Save();
  const TSettings again(folder.Path(), "a.ini");
  EXPECT_EQ(again.ReadString("One", "A", ""), "3");
  EXPECT_EQ(again.ReadString("One", "B.C", ""), "2");
  EXPECT_EQ(again.ReadString("Two", "A", ""), "说明 \"x\" \\ = y");
}

TEST(Settings, BadNumberAndDamagedFileChangeNothing) {
  const zantest::TTemporaryFolder folder;
  zanhost::ReplacePrivateFile(folder / "a.ini", "[Party]\nTreeWidth=wide\n");
  EXPECT_EQ(TSettings(folder.Path(), "a.ini").ReadInteger("Party", "TreeWidth", 250), 250);
  zanhost::ReplacePrivateFile(folder / "b.ini", "[Party\nwithout sense");
  EXPECT_EQ(TSettings(folder.Path(), "b.ini").ReadInteger("Party", "TreeWidth", 250), 250);
}

TEST(Settings, RefusesAFileOutsideTheInstallation) {
  const zantest::TTemporaryFolder folder;
  for (const char* name : {"..\\a.ini", "private\\..\\..\\a.ini", "", "\\", "..", "private\\"})
    EXPECT_THROW(TSettings(folder.Path(), name), EZanError) << name;
}

TEST(Settings, RefusesWhatTheFormCannotHold) {
  const zantest::TTemporaryFolder folder;
  TSettings settings(folder.Path(), "a.ini");
  EXPECT_THROW(settings.Write("S", "K", "two\nlines"), EZanError);
  EXPECT_THROW(settings.Write("S", "K", " blank"), EZanError);
  EXPECT_THROW(settings.Write("S", "a=b", "x"), EZanError);
  EXPECT_THROW(settings.Write("", "K", "x"), EZanError);
  EXPECT_THROW(settings.Write("S]", "K", "x"), EZanError);
}
