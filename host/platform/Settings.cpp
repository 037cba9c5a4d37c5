#include "host/platform/Settings.h"

#include <algorithm>
#include <boost/property_tree/ini_parser.hpp>
#include <sstream>

#include "Frame/Host/Classes.h"
#include "host/platform/Files.h"

namespace zanhost {

namespace {

namespace fs = std::filesystem;
using boost::property_tree::ptree;

fs::path BelowFolder(const fs::path& folder, std::string_view name) {
  std::string written(name);
  std::replace(written.begin(), written.end(), '\\', '/');
  const fs::path relative = fs::path(written).relative_path().lexically_normal();
  if (relative.empty() || !relative.has_filename() || *relative.begin() == "..")
    throw zanrole::EZanError("The settings file " + std::string(name) + " lies outside the installation.");
  return folder / relative;
}

ptree ReadSections(const fs::path& path) {
  ptree sections;
  try {
    read_ini(path.string(), sections);
  } catch (const boost::property_tree::ini_parser_error&) {
    sections.clear();
  }
  return sections;
}

// Names are taken as they stand: a dot in them leads nowhere.
ptree& Child(ptree& parent, const std::string& name) {
  const auto found = parent.find(name);
  return found != parent.not_found() ? found->second : parent.push_back({name, ptree()})->second;
}

void RequireWritable(const std::string& text) {
  if (text.find_first_of("\r\n") != std::string::npos || zanrole::Trim(text) != text)
    throw zanrole::EZanError("A settings file holds one line without blanks at its ends for each value.");
}

void RequireName(const std::string& name) {
  RequireWritable(name);
  if (name.empty() || name.find_first_of("[]=;#") != std::string::npos)
    throw zanrole::EZanError("\"" + name + "\" cannot be a name in a settings file.");
}

}  // namespace

TSettings::TSettings(const fs::path& folder, std::string_view name)
    : FPath(BelowFolder(folder, name)), FSections(ReadSections(FPath)) {}

std::string TSettings::ReadString(const std::string& section, const std::string& key,
                                  std::string_view fallback) const {
  const auto inSection = FSections.find(section);
  if (inSection == FSections.not_found()) return std::string(fallback);
  const auto entry = inSection->second.find(key);
  return entry == inSection->second.not_found() ? std::string(fallback) : entry->second.data();
}

int TSettings::ReadInteger(const std::string& section, const std::string& key, int fallback) const {
  return zanrole::StrToIntDef(ReadString(section, key, ""), fallback);
}

void TSettings::Write(const std::string& section, const std::string& key, const std::string& value) {
  RequireName(section);
  RequireName(key);
  RequireWritable(value);
  Child(Child(FSections, section), key).data() = value;
}

void TSettings::Save() const {
  std::ostringstream text;
  write_ini(text, FSections);
  try {
    fs::create_directories(FPath.parent_path());
    ReplacePrivateFile(FPath, text.str());
  } catch (const fs::filesystem_error& fault) {
    throw zanrole::EZanError("The settings file " + FPath.string() +
                             " cannot be written: " + fault.code().message());
  }
}

}  // namespace zanhost
