// What the window looked like when it was closed.
#pragma once

#include <QByteArray>
#include <QStringList>
#include <optional>

namespace workbench {

/// Kept in a file of its own among the user's state, apart from the settings. Where that cannot be
/// written the window starts as if for the first time.
struct TWindowLayout {
  QByteArray Geometry;
  QByteArray Columns;     ///< of the file lists
  QByteArray Split;       ///< between the tabs and the deploy panel
  QByteArray Widths;      ///< of the tabs and what stands beside them
  bool HasDetails = true; ///< the details stand beside the lists
  QStringList Projects;   ///< full paths, in the order of the tabs
  int Current = -1;       ///< of them

  static TWindowLayout Read();
  void Write() const;
};

} // namespace workbench
