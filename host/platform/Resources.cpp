#include "host/platform/Resources.h"

#include <boost/locale/gnu_gettext.hpp>
#include <boost/locale/message.hpp>

#include "host/platform/EnglishTexts.h"

namespace zanhost {

namespace {

namespace gettext = boost::locale::gnu_gettext;
using TMessages = boost::locale::message_format<char>;

constexpr char kDomain[] = "zanrole";

std::vector<char> EmbeddedCatalogue(const std::string& /*fileName*/, const std::string& /*encoding*/) {
  const std::string_view texts = EnglishTexts();
  return {texts.begin(), texts.end()};
}

std::locale EnglishLocale() {
  gettext::messages_info info;
  info.language = "en";
  info.encoding = "UTF-8";
  info.domains.emplace_back(std::string(kDomain));
  info.paths.emplace_back(".");
  info.callback = EmbeddedCatalogue;
  return {std::locale::classic(), gettext::create_messages_facet<char>(info)};
}

std::string Lookup(const std::locale& texts, std::string_view section, std::string_view key) {
  std::string text(key);
  // An empty key is the catalogue's own header.
  if (text.empty() || !std::has_facet<TMessages>(texts)) return text;
  const TMessages& messages = std::use_facet<TMessages>(texts);
  const int domain = messages.domain(kDomain);
  const char* found = messages.get(domain, std::string(section).c_str(), text.c_str());
  if (found == nullptr) found = messages.get(domain, nullptr, text.c_str());
  return found != nullptr ? found : text;
}

}  // namespace

void TResources::SetLanguage(std::string_view language) {
  if (language != "zh" && language != "en")
    throw zanrole::EZanError("There is no language \"" + std::string(language) + "\": choose zh or en.");
  FTexts = language == "en" ? EnglishLocale() : std::locale::classic();
  FLanguage = language;
}

std::string TResources::resD(std::string_view key, std::string_view /*file*/, std::string_view section) {
  return Lookup(FTexts, section, key);
}

std::string TResources::res(std::string_view key, std::string_view section) {
  return Lookup(FTexts, section, key);
}

std::string TResources::resS(std::string_view key) { return Lookup(FTexts, "", key); }

void TResources::resDLLDownload(std::string_view /*file*/, std::string_view /*section*/) {}

}  // namespace zanhost
