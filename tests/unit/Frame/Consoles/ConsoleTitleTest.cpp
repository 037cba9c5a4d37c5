#include "Frame/Consoles/ConsoleTitle.h"

#include <gtest/gtest.h>

#include "tests/support/RecordingHost.h"
#include "tests/unit/Frame/AnyMenuFunc.h"

namespace zantest {
namespace {

using namespace zanrole;

/// Resources of a second language: each text with its section before it.
class TSecondLanguage final : public TResourceStrings {
 public:
  std::string resD(std::string_view key, std::string_view, std::string_view section) override {
    return std::string(section) + ":" + std::string(key);
  }
  std::string res(std::string_view key, std::string_view section) override { return resD(key, {}, section); }
  std::string resS(std::string_view key) override { return std::string(key); }
  void resDLLDownload(std::string_view, std::string_view) override {}
};

class THostOfSecondLanguage final : public TRecordingHost {
 public:
  TResourceStrings& Resources() override { return FTexts; }

 private:
  TSecondLanguage FTexts;
};

class ConsoleTitle : public testing::Test {
 protected:
  std::string Title(const char* menuNode) {
    TFuncInfo info;
    info.InParams.Add({TFuncParamKind::None, "MenuNode", "", menuNode});
    TAnyMenuFunc function;
    function.FuncInfo = &info;
    TConsoleTitle title;
    title.Take(function);
    return title.Text();
  }
  TRecordingServices FServices;
  THostOfSecondLanguage FHost;
};

TEST_F(ConsoleTitle, IsTheCaptionOfTheMenuEntryInTheLanguageOfTheSession) {
  EXPECT_EQ(Title(R"({"ObjectID":1,"Caption":"域的维护"})"), "Menu:域的维护");
}

TEST_F(ConsoleTitle, IsTheNameOfTheFunctionWhenTheEntryIsUnknown) {
  EXPECT_EQ(Title("no json"), "PartyFunc:域管理");
}

}  // namespace
}  // namespace zantest
