#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Frame/Host/Forms.h"
#include "Frame/Host/Un_aes.h"
#include "Frame/Host/Un_glfuncmanager.h"
#include "Frame/Host/Un_wcfservices.h"
#include "Frame/Host/VeshMessageDlg.h"
#include "Frame/Host/Veshpublics.h"
#include "Frame/Host/Zandbs.h"

namespace zanrole {

/// Grows whenever a declaration of this folder changes. Host and module refuse each other when theirs differ.
inline constexpr int kContractVersion = 4;

/// What the host offers to the module as a whole, whoever is logged in. Handed over once, before PackageLoad;
/// it must outlive PackageUnload.
class ZAN_EXPORT THostServices {
 public:
  virtual ~THostServices();
  /// kContractVersion of the host's build.
  virtual int ContractVersion() const = 0;
  virtual TCipher& Cipher() = 0;
  virtual std::string StrToMIME64(std::string_view bytes) = 0;
  /// Raises EConvertError for a text that is no base64.
  virtual std::string MIME64ToStr(std::string_view text) = 0;
  /// The members of a JSON object, scalars as text, nested values left out; nothing when the text is no
  /// object.
  virtual std::optional<std::vector<std::pair<std::string, std::string>>> ParseJsonObject(
      std::string_view text) = 0;
};

/// What the host offers to one login. It must outlive the module's session.
class ZAN_EXPORT THostSession {
 public:
  virtual ~THostSession();
  virtual TSystemInfo& SystemInfo() = 0;
  /// The process is the platform's designer, not a run-time client.
  virtual bool IsBuilder() = 0;
  virtual TDatabaseServices& Databases() = 0;
  virtual TResourceStrings& Resources() = 0;
  virtual TMessageDialogs& Dialogs() = 0;
  virtual TFormHost& Forms() = 0;
  virtual TFuncManager& FuncManager() = 0;
  /// Null unless the module runs inside a foreign host.
  virtual TRunHostFunction* RunHostFunction() = 0;
  virtual TZanParser& VeshParser() = 0;
  virtual TWebServices& WebServices() = 0;
};

}  // namespace zanrole
