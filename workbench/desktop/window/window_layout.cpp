#include "workbench/desktop/window/window_layout.h"

#include "workbench/desktop/text/qt_text.h"
#include "workbench/files/user_directories.h"

#include <QSettings>

namespace workbench {
namespace {

constexpr const char* GeometryKey = "window/geometry";
constexpr const char* ColumnsKey = "window/columns";
constexpr const char* SplitKey = "window/split";
constexpr const char* WidthsKey = "window/widths";
constexpr const char* DetailsKey = "window/details";
constexpr const char* ProjectsKey = "window/projects";
constexpr const char* CurrentKey = "window/current";

QString LayoutFile() {
  const auto directory = UserStateDirectory();
  return directory.empty() ? QString() : PathToQString(directory / "window.ini");
}

} // namespace

TWindowLayout TWindowLayout::Read() {
  const QString file = LayoutFile();
  if (file.isEmpty())
    return {};
  const QSettings settings(file, QSettings::IniFormat);
  return {.Geometry = settings.value(GeometryKey).toByteArray(),
          .Columns = settings.value(ColumnsKey).toByteArray(),
          .Split = settings.value(SplitKey).toByteArray(),
          .Widths = settings.value(WidthsKey).toByteArray(),
          .HasDetails = settings.value(DetailsKey, true).toBool(),
          .Projects = settings.value(ProjectsKey).toStringList(),
          .Current = settings.value(CurrentKey, -1).toInt()};
}

void TWindowLayout::Write() const {
  const QString file = LayoutFile();
  if (file.isEmpty())
    return;
  QSettings settings(file, QSettings::IniFormat);
  settings.setValue(GeometryKey, Geometry);
  settings.setValue(ColumnsKey, Columns);
  settings.setValue(SplitKey, Split);
  settings.setValue(WidthsKey, Widths);
  settings.setValue(DetailsKey, HasDetails);
  settings.setValue(ProjectsKey, Projects);
  settings.setValue(CurrentKey, Current);
}

} // namespace workbench
