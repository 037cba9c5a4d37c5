#include "host/platform/ParameterStore.h"

#include <gtest/gtest.h>

#include "host/platform/Schema.h"
#include "host/query/DataUrl.h"
#include "tests/support/TemporaryFolder.h"

namespace {

class ParameterStore : public testing::Test {
 protected:
  ParameterStore()
      : FDatabase(
            zanhost::OpenDatabase("sqlite:" + FFolder.Path().string(), zanhost::TOpenMode::CreateIfMissing)) {
    zanhost::InstallSchema(*FDatabase);
  }
  void Store(std::string_view group, int id, std::string_view name, const std::string& text) {
    const auto param = FHome.GetParam(group, id, name);
    param->Text = text;
    param->SaveToDB();
  }
  std::string Stored(std::string_view group, int id, std::string_view name) {
    return FHome.GetParam(group, id, name)->Text;
  }

  zantest::TTemporaryFolder FFolder;
  std::unique_ptr<zanhost::TDatabase> FDatabase;
  zanhost::TPluginParamHome FHome{*FDatabase};
};

}  // namespace

TEST_F(ParameterStore, ParameterThatWasNeverStoredIsEmpty) {
  EXPECT_EQ(Stored("DOC", 1, "DocWorkFlowInfo"), "");
}

TEST_F(ParameterStore, GivesTheTextBackAndReplacesIt) {
  const std::string text = "<流程 a='1' b=\"2\">\\ :X ; -- \U00020000\r\n</流程>";
  Store("DOC", 1, "DocWorkFlowInfo", text);
  EXPECT_EQ(Stored("DOC", 1, "DocWorkFlowInfo"), text);
  Store("DOC", 1, "DocWorkFlowInfo", "second");
  EXPECT_EQ(Stored("DOC", 1, "DocWorkFlowInfo"), "second");
}

TEST_F(ParameterStore, KeysAreApartAndExact) {
  Store("DOC", 1, "A", "one");
  Store("DOC", 2, "A", "two");
  Store("DOC", 1, "a", "three");
  Store("doc", 1, "A", "four");
  EXPECT_EQ(Stored("DOC", 1, "A"), "one");
  EXPECT_EQ(Stored("DOC", 2, "A"), "two");
  EXPECT_EQ(Stored("DOC", 1, "a"), "three");
  EXPECT_EQ(Stored("doc", 1, "A"), "four");
}

TEST_F(ParameterStore, ChangeThatIsNotSavedIsNotStored) {
  FHome.GetParam("DOC", 1, "A")->Text = "lost";
  EXPECT_EQ(Stored("DOC", 1, "A"), "");
}
