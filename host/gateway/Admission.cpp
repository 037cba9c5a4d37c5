#include "host/gateway/Admission.h"

namespace zanhost {

TAnswer WrongMethod(std::string_view allowed) {
  TAnswer answer = ProblemAnswer(405, "This address takes other methods.");
  answer.Headers.emplace_back("Allow", std::string(allowed));
  return answer;
}

}  // namespace zanhost
