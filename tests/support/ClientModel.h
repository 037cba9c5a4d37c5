#pragma once

#include <boost/json.hpp>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace zantest {

/// What a client knows of a session: built from its messages alone, as docs/protocol.md tells a client to.
class TClientModel {
 public:
  struct TPart {
    boost::json::object Properties;
    int Total = -1;
    std::map<int, boost::json::object> Rows;
  };
  struct TWindow {
    boost::json::object Properties;
    std::map<std::string, TPart> Parts;
  };

  /// Takes one message of the session. A change that does not fit what is known fails the test.
  void Apply(const boost::json::object& message);
  /// The client looks at other rows: it drops those outside.
  void Look(int window, const std::string& name, int first, int last);
  /// The client has set a property itself.
  void NoteInput(int window, const std::string& name, std::string_view property, boost::json::value value);

  const std::map<int, TWindow>& Windows() const { return FWindows; }
  /// The window of this class that came up last; 0 when there is none.
  int WindowOf(std::string_view className) const;
  /// A property of a component; null when one of them is missing.
  boost::json::value Property(int window, const std::string& name, std::string_view property) const;
  /// First cells of the rows that are known, in order.
  std::vector<std::string> FirstCells(int window, const std::string& name) const;
  /// Everything that is known, in one value that compares.
  boost::json::value Whole() const;

  /// Names of the last `focus` and indexes of `reveal`, in order of coming.
  std::vector<std::string> Focused;
  std::vector<int> Revealed;
  std::string Bye;

 private:
  void ApplyChange(const boost::json::object& change);
  void ApplyRows(const boost::json::object& change);
  TWindow* NeedWindow(const boost::json::value& number);

  std::map<int, TWindow> FWindows;
};

}  // namespace zantest
