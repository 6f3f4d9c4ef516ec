// What an IDE shows among the problems of a project.
#pragma once

#include <QString>

namespace workbench {

/// A warning of a deployment list, or a file that a deploy could not bring to its target.
struct TListProblem {
  QString File;
  int Line = 0; ///< from 1 on; 0 for the file as a whole
  QString Text;
  bool IsError = false;

  bool operator==(const TListProblem&) const = default;
};

} // namespace workbench
