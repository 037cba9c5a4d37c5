#pragma once

#include <string>
#include <utility>

#include "Frame/Host/Classes.h"

namespace zanhost {

/// What is answered to one question.
struct TReply {
  /// As of HTTP.
  unsigned Status = 200;
  /// With status 200 a JSON object, otherwise a sentence for the caller.
  std::string Body;
};

/// A question that is not answered, with the status that says why.
class ERefusedQuestion : public zanrole::EZanError {
 public:
  ERefusedQuestion(unsigned status, const std::string& sentence)
      : zanrole::EZanError(sentence), FStatus(status) {}
  unsigned Status() const { return FStatus; }

 private:
  unsigned FStatus;
};

}  // namespace zanhost
