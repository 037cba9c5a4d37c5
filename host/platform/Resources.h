#pragma once

#include <locale>
#include <string>
#include <string_view>

#include "Frame/Host/Veshpublics.h"

namespace zanhost {

/// Resource strings of the module and of the host itself, compiled into the program. The key is the Chinese
/// text, which is also the text shown in Chinese; English stands in po/en.po. An entry there may be given for
/// one section only (msgctxt), where the same Chinese text needs other words.
class TResources final : public zanrole::TResourceStrings {
 public:
  /// Starts in Chinese.
  TResources() = default;

  /// "zh" or "en"; later lookups are in that language. Raises zanrole::EZanError for any other.
  void SetLanguage(std::string_view language);
  const std::string& Language() const { return FLanguage; }

  std::string resD(std::string_view key, std::string_view file, std::string_view section) override;
  std::string res(std::string_view key, std::string_view section) override;
  std::string resS(std::string_view key) override;
  /// Does nothing: all texts are at hand.
  void resDLLDownload(std::string_view file, std::string_view section) override;

 private:
  std::locale FTexts = std::locale::classic();
  std::string FLanguage = "zh";
};

}  // namespace zanhost
