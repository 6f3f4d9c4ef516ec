// Puts files of this machine on the list of a project.
#pragma once

#include "workbench/session/session.h"

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>

namespace workbench {

/// Class of the files that users add.
inline constexpr std::string_view UserFileClass = "File";

/// A file cannot be put on the list.
class TAddError : public std::runtime_error {
public:
  enum class TReason {
    Name,     ///< its name cannot be stored
    Directory ///< it is a directory
  };

  TAddError(TReason reason, const std::string& text) : std::runtime_error(text), FReason(reason) {}
  TReason Reason() const { return FReason; }

private:
  TReason FReason;
};

/// A name to be stored, and whether the file is there now.
struct TAddedFile {
  std::string LocalName;
  bool Exists = true;
};

/// A name with macros is stored as given. A file that stands relative to the current directory is
/// stored as seen from the project's directory; one that stands relative to the project, or
/// nowhere, as given, with "\" as delimiter. Throws TAddError.
TAddedFile LocalNameOf(const std::string& argument, const std::filesystem::path& projectFile);

/// What a new entry is made with.
struct TNewEntry {
  std::string LocalName; ///< as it is stored
  std::string Configuration;
  std::string Platform; ///< or "All", for an entry that answers for every platform
  std::string Class{UserFileClass};
  std::string RemoteDir;  ///< empty: the platform's default
  std::string RemoteName; ///< empty: that of the local file
  bool Enabled = true;
};

/// Adds the entry. False when it is on the list already; it stays as the user made it then.
bool AddEntry(TOpenProject& project, const TPlatformTable& platforms, const TNewEntry& entry);

} // namespace workbench
