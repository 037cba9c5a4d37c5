#pragma once

#include <string>
#include <string_view>

namespace zanhost {

/// Why a statement that may hold a text of a caller is not sent by a restricted session, as a sentence for a
/// person; empty when it is sent. It has to be one select, without parameters, which the statements in
/// question do not have of their own, and without some words that the engines let pass:
/// "natural" and "using" join by columns whose names are not written, and neither engine asks then whether
/// they may be read, so that a value could be guessed at; "with" lets a short text grow without bound before
/// it runs; "lock" makes others wait. The words are looked for in the text as it is, also inside quotes,
/// since engines differ in what they take for a quote, a comment or a number.
std::string WhyNotSent(std::string_view statement);

}  // namespace zanhost
