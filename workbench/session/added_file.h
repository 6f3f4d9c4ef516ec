// Names under which files of this machine stand on the list of a project.
#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace workbench {

/// A file cannot be put on the list.
class TAddError : public std::runtime_error {
public:
  enum class TReason {
    Name,      ///< its name cannot be stored
    Directory, ///< it is a directory where a file is wanted
    Missing,   ///< it is not there, or a directory has no file to add
  };

  TAddError(TReason reason, const std::string& text) : std::runtime_error(text), FReason(reason) {}
  TReason Reason() const { return FReason; }

private:
  TReason FReason;
};

/// A name to be stored, and what is known of its file.
struct TAddedFile {
  std::string LocalName;
  bool Exists = true;
  bool IsOutside = false; ///< it stands beyond the project's directory
  std::string SubDirectory =
      {}; ///< stored path, with "\" at its end, that a tree keeps on the target
};

/// The files of a directory, sorted.
struct TAddedTree {
  std::vector<TAddedFile> Files;
  std::vector<std::string> LeftOut; ///< links to other directories, which are not followed
};

/// A name with macros is stored as given. A file that stands relative to the current directory is
/// stored as seen from the project's directory; one that stands relative to the project, or
/// nowhere, as given, with "\" as delimiter. Throws TAddError.
TAddedFile LocalNameOf(const std::string& argument, const std::filesystem::path& projectFile);

/// All files below a directory, which is seen as a file is above; each with its path from the
/// directory's parent. The project file and its side file are left out. Throws TAddError.
TAddedTree FilesOfTree(const std::string& argument, const std::filesystem::path& projectFile);

/// True when the text has a sign that stands for other letters: "*", "?" or "[".
bool IsPattern(std::string_view argument);

/// The files that a pattern names, sorted: from the current directory, else from the project's.
/// "*",
/// "?" and "[...]" stay within one name, "**" stands for any number of directories; names that
/// begin with a dot want one in the pattern. Empty when there is none.
std::vector<std::string> FilesOfPattern(const std::string& pattern,
                                        const std::filesystem::path& projectFile);

} // namespace workbench
