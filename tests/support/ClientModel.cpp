#include "tests/support/ClientModel.h"

#include <gtest/gtest.h>

namespace zantest {

namespace json = boost::json;

namespace {

std::string Text(const json::value& value) { return std::string(value.as_string()); }

/// Takes over all members but those that say where they belong.
void Merge(json::object& properties, const json::object& change) {
  for (const auto& [name, value] : change) {
    if (name != "open" && name != "component" && name != "set" && name != "name") properties[name] = value;
  }
}

}  // namespace

void TClientModel::Apply(const json::object& message) {
  if (const json::value* const bye = message.if_contains("bye")) Bye = Text(*bye);
  const json::value* const changes = message.if_contains("changes");
  if (changes == nullptr) return;
  if (message.contains("snapshot")) FWindows.clear();
  for (const json::value& change : changes->as_array()) ApplyChange(change.as_object());
}

void TClientModel::ApplyChange(const json::object& change) {
  if (const json::value* const number = change.if_contains("open")) {
    const auto [place, isNew] = FWindows.try_emplace(static_cast<int>(number->as_int64()));
    EXPECT_TRUE(isNew) << json::serialize(change);
    Merge(place->second.Properties, change);
  } else if (const json::value* const closed = change.if_contains("close")) {
    EXPECT_EQ(FWindows.erase(static_cast<int>(closed->as_int64())), 1U) << json::serialize(change);
  } else if (const json::value* const made = change.if_contains("component")) {
    if (TWindow* const window = NeedWindow(*made))
      Merge(window->Parts[Text(change.at("name"))].Properties, change);
  } else if (const json::value* const gone = change.if_contains("remove")) {
    if (TWindow* const window = NeedWindow(*gone)) window->Parts.erase(Text(change.at("name")));
  } else if (const json::value* const set = change.if_contains("set")) {
    TWindow* const window = NeedWindow(*set);
    if (window == nullptr) return;
    Merge(change.contains("name") ? window->Parts.at(Text(change.at("name"))).Properties : window->Properties,
          change);
  } else if (change.contains("rows")) {
    ApplyRows(change);
  } else if (change.contains("focus")) {
    Focused.push_back(change.contains("name") ? Text(change.at("name")) : std::string());
  } else if (change.contains("reveal")) {
    Revealed.push_back(static_cast<int>(change.at("index").as_int64()));
  } else {
    ADD_FAILURE() << "unknown change " << json::serialize(change);
  }
}

void TClientModel::ApplyRows(const json::object& change) {
  TWindow* const window = NeedWindow(change.at("rows"));
  if (window == nullptr) return;
  TPart& part = window->Parts.at(Text(change.at("name")));
  part.Total = static_cast<int>(change.at("total").as_int64());
  std::erase_if(part.Rows, [&](const auto& row) { return row.first >= part.Total; });
  int index = static_cast<int>(change.at("first").as_int64());
  for (const json::value& item : change.at("items").as_array())
    part.Rows.insert_or_assign(index++, item.as_object());
}

TClientModel::TWindow* TClientModel::NeedWindow(const json::value& number) {
  const auto found = FWindows.find(static_cast<int>(number.as_int64()));
  if (found != FWindows.end()) return &found->second;
  ADD_FAILURE() << "change of a window that was never opened: " << number;
  return nullptr;
}

void TClientModel::Look(int window, const std::string& name, int first, int last) {
  std::erase_if(FWindows.at(window).Parts.at(name).Rows,
                [&](const auto& row) { return row.first < first || row.first > last; });
}

void TClientModel::NoteInput(int window, const std::string& name, std::string_view property,
                             json::value value) {
  FWindows.at(window).Parts.at(name).Properties[property] = std::move(value);
}

int TClientModel::WindowOf(std::string_view className) const {
  for (auto window = FWindows.rbegin(); window != FWindows.rend(); ++window) {
    if (Text(window->second.Properties.at("class")) == className) return window->first;
  }
  return 0;
}

json::value TClientModel::Property(int window, const std::string& name, std::string_view property) const {
  const auto found = FWindows.find(window);
  if (found == FWindows.end()) return nullptr;
  const auto part = found->second.Parts.find(name);
  if (part == found->second.Parts.end()) return nullptr;
  const json::value* const value = part->second.Properties.if_contains(property);
  return value != nullptr ? *value : json::value(nullptr);
}

std::vector<std::string> TClientModel::FirstCells(int window, const std::string& name) const {
  std::vector<std::string> cells;
  for (const auto& [index, row] : FWindows.at(window).Parts.at(name).Rows)
    cells.push_back(Text(row.at("cells").as_array().at(0)));
  return cells;
}

json::value TClientModel::Whole() const {
  json::object whole;
  for (const auto& [number, window] : FWindows) {
    json::object parts;
    for (const auto& [name, part] : window.Parts) {
      json::object rows;
      for (const auto& [index, row] : part.Rows) rows[std::to_string(index)] = row;
      parts[name] = {{"properties", part.Properties}, {"total", part.Total}, {"rows", std::move(rows)}};
    }
    whole[std::to_string(number)] = {{"properties", window.Properties}, {"parts", std::move(parts)}};
  }
  return whole;
}

}  // namespace zantest
