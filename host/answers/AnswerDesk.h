#pragma once

#include <string>
#include <vector>

#include "host/answers/AnswerSessions.h"
#include "host/answers/Question.h"
#include "host/answers/Reply.h"

namespace zanhost {

/// Answers questions one after the other, each in the session of its login.
class TAnswerDesk {
 public:
  /// `restrictedData` as of RunAnswers. Raises what the installation raises when it cannot be opened.
  TAnswerDesk(const TSessionOptions& options, const std::string& restrictedData);

  /// Never raises: what fails is told in the reply. Faults of the data go to the installation's log.
  TReply Answer(const TQuestion& question);
  /// As of TAnswerSessions.
  void Interrupt() noexcept { FSessions.Interrupt(); }
  void ReleaseIdle() noexcept { FSessions.ReleaseIdle(); }

 private:
  std::string AnswerInSession(const TQuestion& question);
  TReply RefusalOf(const TQuestion& question, const ERefusedQuestion& refusal);
  TReply Unreadable(const TQuestion& question, const std::exception& fault);
  void LogFault(const TQuestion& question, const std::exception& fault);

  TInstallation FInstallation;
  /// What messages to callers do not name.
  std::vector<std::string> FPlaces;
  TAnswerSessions FSessions;
};

}  // namespace zanhost
