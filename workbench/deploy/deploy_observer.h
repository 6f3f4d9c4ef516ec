// Hears how a deploy goes on.
#pragma once

#include "workbench/deploy/deploy_report.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace workbench {

/// Calls come from several threads, one at a time.
class IDeployObserver {
public:
  virtual ~IDeployObserver() = default;
  /// The plan is made and about to be carried out.
  virtual void Planned(const std::vector<TDeployRow>& rows) = 0;
  virtual void BytesSent(std::uint64_t count) = 0;
  /// Called once for each row.
  virtual void RowDone(std::size_t index, const TDeployRow& row) = 0;
  /// A command of the project printed a line.
  virtual void CommandSaid(const std::string& /*line*/) {}
};

/// For a deploy that nobody watches.
class TSilentObserver final : public IDeployObserver {
public:
  void Planned(const std::vector<TDeployRow>& /*rows*/) override {}
  void BytesSent(std::uint64_t /*count*/) override {}
  void RowDone(std::size_t /*index*/, const TDeployRow& /*row*/) override {}
};

} // namespace workbench
