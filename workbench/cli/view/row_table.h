// The rows of one or of several projects as one table of text.
#pragma once

#include "workbench/cli/context/output.h"
#include "workbench/cli/view/deployment_view.h"

#include <string>
#include <vector>

namespace workbench {

class TRowTable {
public:
  /// `project` is what the rows of one project of several begin with; else empty.
  void Add(const std::string& project, const std::vector<TViewRow>& rows);
  /// A line below the table.
  void AddSummary(const std::string& project, const std::string& text);
  /// The titles are for people; scripts get one line for each file and nothing else.
  void Print(TOutput& output) const;

private:
  struct TLine {
    std::string Project;
    bool IsChecked = false;
    bool IsDimmed = false;
    std::vector<std::string> Cells;
  };

  std::vector<TLine> FLines;
  std::vector<std::string> FSummary;
};

} // namespace workbench
