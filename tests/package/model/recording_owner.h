// An owner of entries that keeps what it is told.
#pragma once

#include "package/model/deployment_file.h"

#include <string>
#include <vector>

namespace deployment {

class TRecordingOwner final : public IDeploymentItemOwner {
public:
  void ItemModified(IProjectDeploymentItem&) override { ++Modified; }
  void FileFieldChanging(TDeploymentFile&, TFileField, std::string_view newValue) override {
    Changing.emplace_back(newValue);
  }

  int Modified = 0;
  std::vector<std::string> Changing;
};

} // namespace deployment
