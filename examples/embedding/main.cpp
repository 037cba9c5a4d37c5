#include <dlfcn.h>

#include <fstream>
#include <iostream>
#include <span>

#include "Frame/Package.h"
#include "Host.h"

namespace {

template <typename TFunction>
TFunction* LookUp(void* module, const char* name) {
  if (void* const symbol = dlsym(module, name)) return reinterpret_cast<TFunction*>(symbol);
  throw EZanError(dlerror());
}
// A declaration of Package.h, looked up in the module under its own name.
#define OF_MODULE(name) LookUp<decltype(name)>(module, #name)

/// A function that expressions call: describe, (fill,) run, read.
std::string Call(const TFuncClass& row) {
  const std::unique_ptr<TBaseFunc> function = row.Create();
  const std::unique_ptr<TFuncInfo> info = function->NewFuncInfo();
  function->FuncInfo = info.get();
  function->Execute();
  return info->OutParams.find("Result")->Value;
}

void AskQuestions(void* module) {
  std::size_t count = 0;
  const TFuncClass* const functions = OF_MODULE(ZanroleFuncClasses)(&count);
  for (const TFuncClass& row : std::span(functions, count)) {
    const std::string name = row.Create()->FuncName();
    if (name.starts_with("GetAuthDomainID")) std::cout << name << ": " << Call(row) << '\n';
  }
  const TServiceOperation* const operations = OF_MODULE(ZanroleServiceOperations)(&count);
  for (const TServiceOperation& operation : std::span(operations, count)) {
    if (operation.Name != "TRunPermission.GetMenuPermission") continue;
    for (const std::string menu : {"11", "12", "13"})
      std::cout << menu << (std::get<bool>(operation.Ask({&menu, 1})) ? " allowed\n" : " denied\n");
  }
}

}  // namespace

int main(int count, char** words) try {
  if (count != 3) throw EZanError("usage: embedding ZANROLE.SO COMPANY.SQL");
  sqlite3* database = nullptr;
  sqlite3_open(":memory:", &database);
  const std::unique_ptr<sqlite3, int (*)(sqlite3*)> closing(database, &sqlite3_close);
  std::ifstream file(words[2]);
  const std::string company(std::istreambuf_iterator<char>(file), {});
  if (sqlite3_exec(database, company.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
    throw EDatabaseError(sqlite3_errmsg(database), words[2]);
  void* const module = dlopen(words[1], RTLD_NOW | RTLD_LOCAL);
  if (module == nullptr) throw EZanError(dlerror());
  TServices services;
  if (!OF_MODULE(ZanroleSetHostServices)(&services)) throw EZanError("another version of the contract");
  OF_MODULE(PackageLoad)();
  TLogin login(database);
  login.LoginUserOID = 2;
  login.LoginUserID = "lin";
  TSession* const session = OF_MODULE(ZanroleSessionCreate)(&login);
  OF_MODULE(ZanroleSessionMakeCurrent)(session);
  AskQuestions(module);
  OF_MODULE(ZanroleSessionDestroy)(session);
  OF_MODULE(PackageUnload)();
} catch (const std::exception& fault) {
  std::cerr << fault.what() << '\n';
  return 1;
}
