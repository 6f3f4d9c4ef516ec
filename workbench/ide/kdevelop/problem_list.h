// The problems of deployment lists in KDevelop's problem view.
#pragma once

#include "workbench/ide/view/list_problem.h"

#include <memory>
#include <vector>

namespace KDevelop {
class ProblemModel;
} // namespace KDevelop

namespace workbench {

/// A tab of the problem view, as long as the object lives.
class TProblemList {
public:
  TProblemList();
  ~TProblemList();
  TProblemList(const TProblemList&) = delete;
  TProblemList& operator=(const TProblemList&) = delete;

  /// These instead of those before.
  void Show(const std::vector<TListProblem>& problems);

private:
  std::unique_ptr<KDevelop::ProblemModel> FModel;
};

} // namespace workbench
