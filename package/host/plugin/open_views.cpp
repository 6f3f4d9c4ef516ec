#include "package/host/plugin/open_views.h"

#include "package/common/case_fold.h"

#include <algorithm>
#include <compare>
#include <utility>

namespace deployment {
namespace {

template <class TEntries>
auto PlaceOf(TEntries& entries, std::string_view fileName) {
  return std::lower_bound(entries.begin(), entries.end(), fileName,
                          [](const auto& entry, std::string_view name) {
                            return std::is_lt(CompareText(entry.FileName, name));
                          });
}

} // namespace

std::size_t TOpenViews::Find(std::string_view fileName) const {
  const auto place = PlaceOf(FEntries, fileName);
  return place != FEntries.end() && SameText(place->FileName, fileName)
             ? static_cast<std::size_t>(place - FEntries.begin())
             : None;
}

std::size_t TOpenViews::Add(std::string_view fileName, std::weak_ptr<TDeploymentWindow> view) {
  auto place = PlaceOf(FEntries, fileName);
  if (place == FEntries.end() || !SameText(place->FileName, fileName))
    place = FEntries.insert(place, {std::string(fileName), std::move(view)});
  return static_cast<std::size_t>(place - FEntries.begin());
}

void TOpenViews::Delete(std::size_t position) {
  if (position < FEntries.size())
    FEntries.erase(FEntries.begin() + static_cast<std::ptrdiff_t>(position));
}

std::shared_ptr<TDeploymentWindow> TOpenViews::View(std::size_t position) const {
  return position < FEntries.size() ? FEntries[position].View.lock() : nullptr;
}

} // namespace deployment
