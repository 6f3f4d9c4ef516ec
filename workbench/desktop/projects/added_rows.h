// What a person adds to a list: folders with all that is in them, and the new rows.
#pragma once

#include <QObject>
#include <QPointer>
#include <cstddef>
#include <filesystem>

namespace workbench {

class TFormControls;
class TOpenProject;
class TPlatformTable;

/// Puts the files of a folder on the list for the target that the page shows, or for all platforms;
/// on a target they stand below its default directory as they stand below the folder's parent.
/// Listeners hear of it once. Throws TAddError.
void AddFolder(TOpenProject& project, const TFormControls& controls,
               const TPlatformTable& platforms, const std::filesystem::path& folder);

/// Selects rows that are new at the end of a list, and shows the first of them.
class TNewRows final : public QObject {
  Q_OBJECT

public:
  /// Watches the command that adds files; goes with the controls.
  explicit TNewRows(TFormControls& controls);

  /// The rows as they are now are no new ones.
  void Begin();
  /// Those that came since are selected instead of the others.
  void Select();

private:
  std::size_t RowCount() const;

  QPointer<TFormControls> FControls;
  std::size_t FBefore = 0;
};

} // namespace workbench
