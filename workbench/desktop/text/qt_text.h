// Texts on their way between the host, which keeps UTF-8, and Qt.
#pragma once

#include <QFile>
#include <QString>
#include <filesystem>
#include <string>
#include <string_view>

namespace workbench {

/// What the Qt that is built with counts letters and bytes in.
using TQtSize = decltype(QString().size());

inline QString ToQString(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<TQtSize>(text.size()));
}

inline std::string ToStdString(const QString& text) {
  return text.toStdString();
}

/// The path as people read it.
inline QString PathToQString(const std::filesystem::path& path) {
  return QFile::decodeName(path.c_str());
}

/// The bytes of a path that Qt gave out, as the file system wants them.
inline std::string ToPathText(const QString& path) {
  return QFile::encodeName(path).toStdString();
}

} // namespace workbench
