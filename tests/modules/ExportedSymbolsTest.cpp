#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <memory>
#include <set>
#include <span>

#include "host/worker/Module.h"

// What the module's file offers to the linker of another module.

namespace zantest {
namespace {

/// Names of the symbols that the module defines, as C++ tells them, each up to its arguments.
std::set<std::string> ExportedNames() {
  const std::string command = "nm -D -C --defined-only '" + zanhost::ModuleBesideProgram().string() + "'";
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> pipe(popen(command.c_str(), "r"), pclose);
  std::set<std::string> names;
  std::array<char, 4096> line{};
  while (pipe != nullptr && std::fgets(line.data(), line.size(), pipe.get()) != nullptr) {
    // "ADDRESS KIND NAME", then a tag in square brackets or arguments in round ones, if any.
    const std::string_view text = line.data();
    const std::string_view name = text.substr(std::min(text.size(), text.find(' ') + 3));
    names.emplace(name.substr(0, name.find_first_of("[(\n")));
  }
  return names;
}

class ExportedSymbolsTest : public testing::Test {
 protected:
  static void SetUpTestSuite() { Names = ExportedNames(); }
  static bool Exported(const std::string& name) { return Names.contains(name); }
  static std::set<std::string> Names;
};

std::set<std::string> ExportedSymbolsTest::Names;

// These are written in the headers: whoever includes them has them.
bool IsInline(std::string_view operation) {
  static const std::set<std::string_view> names{"TRunPermission.ClearPermissionList",
                                                "TRunPermission.GetGroupids",
                                                "TRunPermission.GetGroups",
                                                "TTolPermission.GetGroups",
                                                "TPartyDAL.UserDataSet",
                                                "TPartyDAL.RoleDataSet",
                                                "TPartyDAL.RoleOfOrganizationQuery",
                                                "TPartyDAL.UserOfOrganizationQuery"};
  return names.contains(operation);
}

TEST_F(ExportedSymbolsTest, EveryOperationOfTheServices) {
  const zanhost::TModule module = zanhost::LoadModule(zanhost::ModuleBesideProgram());
  std::size_t count = 0;
  const zanrole::TServiceOperation* const operations = module.ServiceOperations(&count);
  std::set<std::string> classes;
  for (const zanrole::TServiceOperation& operation : std::span(operations, count)) {
    const std::size_t dot = operation.Name.find('.');
    classes.insert(operation.Name.substr(0, dot));
    const std::string name =
        "zanrole::" + operation.Name.substr(0, dot) + "::" + operation.Name.substr(dot + 1);
    EXPECT_NE(Exported(name), IsInline(operation.Name)) << name;
  }
  EXPECT_THAT(classes, testing::UnorderedElementsAre("TRunPermission", "TTolPermission", "TOrgRightFuncs",
                                                     "TPartyDAL", "TPartyFuncs", "TDomainFuncImpl"));
}

TEST_F(ExportedSymbolsTest, WhatTheServicesAreMadeWith) {
  for (const char* const name :
       {"zanrole::TRunPermission::GetInstance", "zanrole::TTolPermission::GetInstance",
        "zanrole::TTolPermission::TTolPermission", "zanrole::TPartyDAL::TPartyDAL",
        "zanrole::TPartyDAL::~TPartyDAL", "zanrole::TSession::Current", "zanrole::TSession::MakeCurrent"})
    EXPECT_TRUE(Exported(name)) << name;
}

TEST_F(ExportedSymbolsTest, EveryFunctionClassWithItsType) {
  const zanhost::TModule module = zanhost::LoadModule(zanhost::ModuleBesideProgram());
  std::size_t count = 0;
  const zanrole::TFuncClass* const classes = module.FuncClasses(&count);
  ASSERT_GT(count, 0U);
  for (const zanrole::TFuncClass& row : std::span(classes, count)) {
    EXPECT_TRUE(Exported(std::string("typeinfo for zanrole::") + row.ClassName)) << row.ClassName;
    EXPECT_TRUE(Exported(std::string("vtable for zanrole::") + row.ClassName)) << row.ClassName;
  }
}

TEST_F(ExportedSymbolsTest, TypesOfFaultsAndRecords) {
  for (const char* const name :
       {"zanrole::EZanError", "zanrole::EConvertError", "zanrole::EAssertionFailed",
        "zanrole::EDatabaseError", "zanrole::party::TBasePartyInfo", "zanrole::party::TPartyEntityInfo",
        "zanrole::party::TUserInfo", "zanrole::party::TRoleInfo", "zanrole::TZANQuery"}) {
    EXPECT_TRUE(Exported(std::string("typeinfo for ") + name)) << name;
    EXPECT_TRUE(Exported(std::string("vtable for ") + name)) << name;
  }
}

TEST_F(ExportedSymbolsTest, PlainEntries) {
  for (const char* const name :
       {"PackageLoad", "PackageUnload", "zanrole::SetNewPass", "zanrole::SetUserID", "zanrole::ErrDlg",
        "zanrole::WarnDlg", "zanrole::Split", "zanrole::Join", "zanrole::GetDataDbName",
        "zanrole::GetSysDbName", "zanrole::DBCurDateStr", "zanrole::GetNewUserOID", "zanrole::CreateNewUser",
        "zanrole::CheckOperatorIsAdmin", "zanrole::CheckOperatorHasEmpowermentRight", "zanrole::ResString",
        "zanrole::CharCountInStr"})
    EXPECT_TRUE(Exported(name)) << name;
}

}  // namespace
}  // namespace zantest
