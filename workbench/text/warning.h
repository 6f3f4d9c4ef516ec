// What is said beside a result: the work goes on.
#pragma once

#include <string>

namespace workbench {

/// Something the user should know although the work goes on.
struct TWarning {
  std::string Text;
  std::string File;
  unsigned Line = 0; ///< 0 when it is about no line
  /// It changes nothing for most: it stands in documents and where somebody asks for reasons, and
  /// interrupts nobody else.
  bool IsRemark = false;
};

} // namespace workbench
