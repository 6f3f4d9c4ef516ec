// The states of files on several targets as one table: files down, targets across.
#pragma once

#include "workbench/cli/context/output.h"
#include "workbench/cli/view/deployment_view.h"
#include "workbench/cli/view/target_status.h"
#include "workbench/deploy/record/file_state.h"

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace workbench {

class TStatusTable {
public:
  /// `rows` are those of the list, `targets` the names across.
  TStatusTable(const std::vector<TViewRow>& rows, std::vector<std::string> targets);

  /// What a target said; the rows as above.
  void Set(std::size_t target, const std::vector<TViewRow>& rows, const TTargetStatus& status);
  /// A target that said nothing, and why.
  void SetFailure(std::size_t target, const std::string& reason);
  /// `differences` leaves out what is the same on every target that answered, and what none takes.
  void Print(TOutput& output, bool differences) const;

private:
  using TStates = std::vector<std::optional<TFileState>>;

  struct TColumn {
    std::string Name;
    bool IsKnown = false;
    TStates States = {};                              // by row
    std::map<std::string, TFileState> LeftOvers = {}; // by name
    std::vector<std::string> Summary = {};
  };
  struct TLine {
    std::string Name;
    std::vector<std::string> Cells; // by target
  };

  bool IsDifferent(std::size_t row) const;
  std::vector<TLine> Lines(bool differences) const;

  std::vector<std::string> FRows; // names, fit for a person's eyes
  std::vector<TColumn> FColumns;
};

} // namespace workbench
