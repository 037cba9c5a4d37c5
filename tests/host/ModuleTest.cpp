#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "host/platform/HostServices.h"
#include "host/worker/Module.h"
#include "tests/support/TemporaryFolder.h"

// Loading the module as a foreign host would.

namespace zantest {
namespace {

using testing::HasSubstr;
using zanhost::EModuleError;
using zanhost::LoadModule;
using zanhost::ModuleBesideProgram;
using zanhost::TModule;
using zanhost::TModuleInUse;

template <typename TAction>
std::string FaultOf(TAction action) {
  try {
    action();
  } catch (const EModuleError& fault) {
    return fault.what();
  }
  return {};
}

class TPlainCipher final : public zanrole::TCipher {
 public:
  std::string Encrypt(std::string_view plain) override { return std::string(plain); }
  std::string Decrypt(std::string_view cipher) override { return std::string(cipher); }
};

class ModuleTest : public testing::Test {
 protected:
  TTemporaryFolder Folder;
  TPlainCipher Cipher;
  zanhost::THostServicesImpl Services{Cipher};
};

TEST_F(ModuleTest, AMissingModuleIsNamed) {
  const std::string fault = FaultOf([&] { LoadModule(Folder / "zanrole.so"); });
  EXPECT_THAT(fault, HasSubstr((Folder / "zanrole.so").string()));
}

TEST_F(ModuleTest, AFileThatIsNoLibraryIsRefused) {
  std::ofstream(Folder / "zanrole.so") << "text";
  EXPECT_THAT(FaultOf([&] { LoadModule(Folder / "zanrole.so"); }), HasSubstr("cannot be loaded"));
}

TEST_F(ModuleTest, ALibraryWithoutTheSymbolsIsNoModule) {
  EXPECT_THAT(FaultOf([] { LoadModule("libz.so.1"); }), HasSubstr("ZanroleContractVersion"));
}

TEST_F(ModuleTest, AnotherVersionOfTheContractIsRefusedBeforeAnythingRuns) {
  static bool loaded = false;
  TModule module;
  module.ContractVersion = [] { return zanrole::kContractVersion + 1; };
  module.SetHostServices = [](zanrole::THostServices*) { return false; };
  module.Load = [] { loaded = true; };
  const std::string fault = FaultOf([&] { const TModuleInUse use(module, Services); });
  EXPECT_THAT(fault, HasSubstr("version " + std::to_string(zanrole::kContractVersion)));
  EXPECT_THAT(fault, HasSubstr(std::to_string(zanrole::kContractVersion + 1)));
  EXPECT_FALSE(loaded);
}

TEST_F(ModuleTest, TheModuleBesideTheProgramOffersItsFunctions) {
  const TModuleInUse use(LoadModule(ModuleBesideProgram()), Services);
  std::size_t count = 0;
  const zanrole::TFuncClass* const classes = use.Symbols().FuncClasses(&count);
  ASSERT_GT(count, 0U);
  EXPECT_NE(use.Symbols().Entries(), nullptr);
  EXPECT_NE(classes[0].Create(), nullptr);
}

}  // namespace
}  // namespace zantest
