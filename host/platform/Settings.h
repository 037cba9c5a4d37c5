#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include <boost/property_tree/ptree.hpp>

namespace zanhost {

/// One settings file of an installation: texts under a key in a section. A file that is missing or damaged
/// reads as empty, so that settings never stand in the way of the program.
class TSettings {
 public:
  /// `name` as the consoles write it: "private\AppInfos.ini" or "\private\skin.ini" is that file below
  /// `folder`. Raises zanrole::EZanError for a name that leads out of the folder.
  TSettings(const std::filesystem::path& folder, std::string_view name);

  /// The value, or `fallback` when there is none.
  std::string ReadString(const std::string& section, const std::string& key, std::string_view fallback) const;
  /// The value, or `fallback` when there is none or it is no number.
  int ReadInteger(const std::string& section, const std::string& key, int fallback) const;
  /// Sets a value in memory. Raises zanrole::EZanError for what the form of the file cannot hold: a line
  /// break, or blanks at either end.
  void Write(const std::string& section, const std::string& key, const std::string& value);
  /// Writes the file, and its folder when it is missing. Raises zanrole::EZanError.
  void Save() const;

 private:
  std::filesystem::path FPath;
  boost::property_tree::ptree FSections;
};

}  // namespace zanhost
