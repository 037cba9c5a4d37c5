#include "Frame/Commlib.h"

#include <gtest/gtest.h>

#include "tests/support/RecordingHost.h"

namespace zantest {
namespace {

using namespace zanrole;

TEST(Format, FillsTextsAndNumbersInOrder) {
  EXPECT_EQ(Format("域“%s”有%d人，100%%", {"总部", 12}), "域“总部”有12人，100%");
}

TEST(Format, RefusesAMissingArgumentAndOneOfTheOtherKind) {
  EXPECT_THROW(Format("%s %s", {"one"}), EConvertError);
  EXPECT_THROW(Format("%d", {"text"}), EConvertError);
  EXPECT_THROW(Format("%", {"text"}), EConvertError);
}

/// Notes with which file and section a lookup reached the host.
class TNotingResources final : public TResourceStrings {
 public:
  std::string resD(std::string_view key, std::string_view file, std::string_view section) override {
    return "resD(" + std::string(key) + "," + std::string(file) + "," + std::string(section) + ")";
  }
  std::string res(std::string_view key, std::string_view section) override {
    return "res(" + std::string(key) + "," + std::string(section) + ")";
  }
  std::string resS(std::string_view key) override { return "resS(" + std::string(key) + ")"; }
  void resDLLDownload(std::string_view file, std::string_view section) override {
    Downloaded = std::string(file) + "," + std::string(section);
  }
  void res_SetControlFont(TComponent& control) override { Control = &control; }
  std::string Downloaded;
  TComponent* Control = nullptr;
};

class THostWithNotingResources final : public TRecordingHost {
 public:
  TResourceStrings& Resources() override { return Noting; }
  TNotingResources Noting;
};

TEST(ZanResEx, LooksUpWithItsFixedFileAndSections) {
  const THostWithNotingResources host;
  EXPECT_EQ(TZanResEx::resByExFunc("键"), "resD(键,Party.dll,PartyFunc)");
  EXPECT_EQ(TZanResEx::resByExFunc("键", "Menu"), "resD(键,Party.dll,Menu)");
  EXPECT_EQ(TZanResEx::resByExFunc("键", "Menu", "Other.dll"), "resD(键,Other.dll,Menu)");
  EXPECT_EQ(TZanResEx::resByGlobal("键"), "res(键,Global)");
  EXPECT_EQ(TZanResEx::resBySystem("键"), "resS(键)");
}

TEST(ZanResEx, FormatsTheResourceOfTheFormat) {
  const TRecordingHost host;
  EXPECT_EQ(TZanResEx::resFormat("域“%s”超出用户数限制！", {"总部"}), "域“总部”超出用户数限制！");
}

TEST(ZanResEx, DownloadsTheFileAndSectionOfTheCallOrItsOwn) {
  THostWithNotingResources host;
  TZanResEx::resDLLDownload();
  EXPECT_EQ(host.Noting.Downloaded, "Party.dll,PartyFunc");
  TZanResEx::resDLLDownload("Menu");
  EXPECT_EQ(host.Noting.Downloaded, "Party.dll,Menu");
  TZanResEx::resDLLDownload("Other.dll", "Menu");
  EXPECT_EQ(host.Noting.Downloaded, "Other.dll,Menu");
}

}  // namespace
}  // namespace zantest
