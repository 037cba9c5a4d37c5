#include "host/worker/Rows.h"

#include <algorithm>
#include <utility>

namespace zanhost {

namespace json = boost::json;

int TRowsView::IndexOf(std::int64_t id) {
  const int count = FSource->Count();
  for (const auto& [index, row] : FSent) {
    if (row.at("id") == id && index < count && FSource->IdAt(index) == id) return index;
  }
  return FSource->IndexOf(id);
}

void TRowsView::Look(int first, int last) {
  FFirst = first;
  FLast = std::min(last, first + kLongestRange - 1);
  std::erase_if(FSent, [&](const auto& sent) { return sent.first < FFirst || sent.first > FLast; });
}

void TRowsView::Reset() {
  FFirst = 0;
  FLast = kFirstRange - 1;
  FTotal = -1;
  FSent.clear();
  FFocus.reset();
}

void TRowsView::AppendChanges(int window, std::string_view name, json::array& changes) {
  const int total = FSource->Count();
  const bool totalChanged = total != FTotal;
  FTotal = total;
  std::erase_if(FSent, [&](const auto& sent) { return sent.first >= total; });
  json::array run;
  bool nothingSent = true;
  const auto sendRun = [&](int behind) {
    if (run.empty()) return;
    AppendRun(window, name, behind, std::exchange(run, {}), changes);
    nothingSent = false;
  };
  const int end = std::min(FLast, total - 1) + 1;
  for (int index = FFirst; index < end; ++index) {
    json::object row = FSource->Row(index);
    const auto sent = FSent.find(index);
    if (sent != FSent.end() && sent->second == row) {
      sendRun(index);
    } else {
      FSent.insert_or_assign(index, row);
      run.push_back(std::move(row));
    }
  }
  sendRun(end);
  if (nothingSent && totalChanged) AppendRun(window, name, FFirst, json::array(), changes);
  AppendReveal(window, name, changes);
}

void TRowsView::AppendRun(int window, std::string_view name, int end, json::array items,
                          json::array& changes) const {
  const int first = end - static_cast<int>(items.size());
  changes.push_back(json::object{
      {"rows", window}, {"name", name}, {"total", FTotal}, {"first", first}, {"items", std::move(items)}});
}

void TRowsView::AppendReveal(int window, std::string_view name, json::array& changes) {
  const std::optional<std::int64_t> focus = FSource->Focused();
  if (focus == FFocus) return;
  FFocus = focus;
  const int index = focus ? IndexOf(*focus) : -1;
  if (index >= 0) changes.push_back(json::object{{"reveal", window}, {"name", name}, {"index", index}});
}

}  // namespace zanhost
