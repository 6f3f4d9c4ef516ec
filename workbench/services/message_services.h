// Collects what the package wants the user to know.
#pragma once

#include "package/host/api/ideservices.h"
#include "workbench/services/session.h"

#include <string_view>
#include <utility>
#include <vector>

namespace workbench {

class TMessageServices final : public deployment::IOTAMessageServices {
public:
  void AddWarning(std::string_view text, const deployment::TErrorPlace& place) override {
    FWarnings.push_back({std::string(text), place.File, place.Line});
  }
  void Add(TWarning warning) { FWarnings.push_back(std::move(warning)); }

  /// What was collected since the last call, in order.
  std::vector<TWarning> TakeWarnings() { return std::exchange(FWarnings, {}); }

private:
  std::vector<TWarning> FWarnings;
};

} // namespace workbench
