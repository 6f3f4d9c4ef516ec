// Collects what the package wants the user to know.
#pragma once

#include "package/host/api/ideservices.h"
#include "workbench/text/warning.h"

#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

namespace workbench {

class TMessageServices final : public deployment::IOTAMessageServices {
public:
  /// What waits already is not told twice, such as a mistake that a reconcile of every target
  /// meets.
  void AddWarning(std::string_view text, const deployment::TErrorPlace& place) override {
    if (FWaiting.emplace(text, place.File, place.Line).second)
      FWarnings.push_back({std::string(text), place.File, place.Line});
  }
  void Add(TWarning warning) { FWarnings.push_back(std::move(warning)); }

  /// What was collected since the last call, in order.
  std::vector<TWarning> TakeWarnings() {
    FWaiting.clear();
    return std::exchange(FWarnings, {});
  }

private:
  std::vector<TWarning> FWarnings;
  std::set<std::tuple<std::string, std::string, unsigned>> FWaiting;
};

} // namespace workbench
