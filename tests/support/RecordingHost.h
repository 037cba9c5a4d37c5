#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Frame/Host/Host.h"
#include "Frame/Session.h"

namespace zantest {

using zanrole::TDialect;
using zanrole::TZanValue;

/// One statement that the module sent.
struct TRecordedStatement {
  std::string Database;  ///< "data" or "system"
  std::string Kind;      ///< "Open" or "Exec"
  std::string Text;      ///< as sent, lines joined by "\r\n"
  std::vector<std::pair<std::string, TZanValue>> Params;
};

/// One box that the module showed.
struct TRecordedMessage {
  std::string Title;
  std::string Text;
  zanrole::TMsgDlgType Kind;
  unsigned Buttons;
};

/// Runs of white space folded to one blank, and none at the ends: statements compare by their words.
std::string Squeeze(std::string_view text);

/// A host without engine, files or screen. It records every statement, message and form, answers statements
/// from a script, and has made a session of the module current for as long as it lives.
class TRecordingHost : public zanrole::THostSession {
 public:
  explicit TRecordingHost(TDialect dialect = TDialect::SqlServer);
  ~TRecordingHost() override;

  /// The next Open whose squeezed text contains `part` gives these rows; each answer serves once, in order of
  /// scripting. An Open that no answer fits gives no rows and no columns.
  void Answer(std::string_view part, std::vector<std::string> columns,
              std::vector<std::vector<TZanValue>> rows);
  /// Like Answer, for every Open that contains `part` and has no answer of its own.
  void AlwaysAnswer(std::string_view part, std::vector<std::string> columns,
                    std::vector<std::vector<TZanValue>> rows);
  /// The n-th statement from now (1 is the next) raises EDatabaseError.
  void FailStatement(int n) { FFailAt = static_cast<int>(Statements.size()) + n; }
  /// The next box is answered with this button; boxes without an answer get OK, or Yes when there is no OK.
  void PressButton(zanrole::TMsgDlgBtn button) { FButtons.push_back(button); }
  /// The next ShowModal runs this in place of a person and returns its result.
  void WhenModal(std::function<int(zanrole::TForm&)> person) { FPersons.push_back(std::move(person)); }

  /// Squeezed texts of the recorded statements.
  std::vector<std::string> Texts() const;
  /// Texts of the boxes.
  std::vector<std::string> MessageTexts() const;

  std::vector<TRecordedStatement> Statements;
  std::vector<TRecordedMessage> Messages;
  std::vector<std::string> ShownForms;       ///< class names, in order of Show and ShowModal
  std::vector<zanrole::TSoapCall> WebCalls;  ///< calls of web services
  std::vector<std::string> RunFunctions;     ///< names run through the function manager
  std::vector<std::string> NumbersDrawn;     ///< names given to NewDjLsh; the n-th draw gives n
  std::vector<bool> BusyCalls;               ///< the wait cursor put on and taken off
  std::vector<std::string> KnownFunctions;   ///< names that FindFuncInfo finds
  bool Builder = false;
  std::string WebServiceAddress = "http://server/services/";

  zanrole::TSession& Session() { return *FSession; }

  zanrole::TSystemInfo& SystemInfo() override;
  bool IsBuilder() override { return Builder; }
  zanrole::TDatabaseServices& Databases() override;
  zanrole::TResourceStrings& Resources() override;
  zanrole::TMessageDialogs& Dialogs() override;
  zanrole::TFormHost& Forms() override;
  zanrole::TFuncManager& FuncManager() override;
  zanrole::TRunHostFunction* RunHostFunction() override { return nullptr; }
  zanrole::TZanParser& VeshParser() override;
  zanrole::TWebServices& WebServices() override;

 private:
  friend class TRecordingQuery;
  friend class TRecordingDialogs;
  friend class TRecordingForms;
  struct TAnswer {
    std::string Part;
    std::vector<std::string> Columns;
    zanrole::TZanCells Cells;
  };
  static TAnswer MakeAnswer(std::string_view part, std::vector<std::string> columns,
                            const std::vector<std::vector<TZanValue>>& rows);
  void Record(std::string database, std::string kind, zanrole::TZANQuery& query);
  void FillAnswer(zanrole::TZANQuery& query);

  struct TParts;
  std::unique_ptr<TParts> FParts;
  std::deque<TAnswer> FAnswers;
  std::vector<TAnswer> FStandingAnswers;
  std::deque<zanrole::TMsgDlgBtn> FButtons;
  std::deque<std::function<int(zanrole::TForm&)>> FPersons;
  int FFailAt = 0;
  std::unique_ptr<zanrole::TSession> FSession;
  zanrole::TSession* FSessionBefore = nullptr;
};

/// The host's process-wide services for tests: a readable "cipher" ("enc(" plain ")"), a readable "base64"
/// ("b64(" bytes ")"), and a parser of flat JSON objects. Handed to the module for as long as the object
/// lives.
class TRecordingServices : public zanrole::THostServices {
 public:
  TRecordingServices();
  ~TRecordingServices() override;
  int ContractVersion() const override { return Version; }
  zanrole::TCipher& Cipher() override;
  std::string StrToMIME64(std::string_view bytes) override;
  std::string MIME64ToStr(std::string_view text) override;
  std::optional<std::vector<std::pair<std::string, std::string>>> ParseJsonObject(
      std::string_view text) override;
  int Version = zanrole::kContractVersion;

 private:
  std::unique_ptr<zanrole::TCipher> FCipher;
};

}  // namespace zantest
