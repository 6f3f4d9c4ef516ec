#include "workbench/desktop/projects/project_names.h"

#include "workbench/desktop/text/qt_text.h"
#include "workbench/session/session.h"

#include <QCoreApplication>
#include <QStringList>
#include <string>
#include <string_view>

namespace workbench {
namespace {

constexpr std::string_view ProjectEnding = "proj";
constexpr std::string_view SideFileStem = "deploy";

// A pattern can name the letters that may not stand at a place, so there is one for each letter by
// which an ending can differ from that of side files, and one for each ending that is too short.
QStringList ProjectPatterns() {
  QStringList patterns;
  for (std::size_t i = SideFileStem.size(); i-- > 0;) {
    const std::string tail = std::string(SideFileStem.substr(i + 1)) + std::string(ProjectEnding);
    patterns += QString::fromStdString("*.*[!" + std::string(1, SideFileStem[i]) + "]" + tail);
    patterns += QString::fromStdString("*." + tail);
  }
  return patterns;
}

QString AllFiles() {
  return ";;" + QCoreApplication::translate("workbench::TMainWindow", "All files (*)");
}

} // namespace

bool IsSideFile(const std::filesystem::path& file) {
  return file.extension() == "." + std::string(SideFileStem) + std::string(ProjectEnding);
}

bool IsProjectFile(const std::filesystem::path& file) {
  const std::string extension = file.extension().string();
  return extension.size() > ProjectEnding.size() && extension.ends_with(ProjectEnding) &&
         !IsSideFile(file);
}

QString NameOf(const TOpenProject& project) {
  return PathToQString(project.GivenFileName().filename());
}

std::filesystem::path CanonicalPath(const std::filesystem::path& file) {
  std::error_code error;
  std::filesystem::path full = std::filesystem::canonical(file, error);
  return error ? std::filesystem::absolute(file).lexically_normal() : full;
}

QString ProjectFileFilter() {
  return QCoreApplication::translate("workbench::TMainWindow", "Projects (%1)")
             .arg(ProjectPatterns().join(QLatin1Char(' '))) +
         AllFiles();
}

QString OpenFileFilter() {
  return QCoreApplication::translate("workbench::TMainWindow", "Projects and solutions (%1)")
             .arg((ProjectPatterns() << QStringLiteral("*.sln")).join(QLatin1Char(' '))) +
         AllFiles();
}

} // namespace workbench
