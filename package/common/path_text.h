// Paths as the system stores them: Windows-style text. "\" is what is written, "\" and "/" are both
// read as delimiters. Nothing here touches a disk.
#pragma once

#include <string>
#include <string_view>

namespace deployment {

/// The delimiter that the system writes.
inline constexpr char PathDelimiter = '\\';

/// True for "\" and "/".
bool IsPathDelimiter(char c);

/// The part behind the last delimiter (or drive colon); the whole text when there is none.
std::string_view FileNamePart(std::string_view path);

/// The part up to and including the last delimiter (or drive colon); empty when there is none.
std::string_view DirectoryPart(std::string_view path);

/// The extension with its dot: from the last "." of the file name part on; empty without a dot.
std::string_view ExtensionPart(std::string_view path);

/// The path with its extension replaced by `extension` (dot included); appended when it has none.
std::string ChangeExtension(std::string_view path, std::string_view extension);

/// The path with "\" added when it does not end in a delimiter. An empty path becomes "\".
std::string WithTrailingDelimiter(std::string_view path);

/// True when the path starts at a root: a leading delimiter, or a drive letter with its colon.
bool IsAbsolutePath(std::string_view path);

/// `directory` and `path` joined by one delimiter; `path` alone when it is absolute or when
/// `directory` is empty.
std::string Combine(std::string_view directory, std::string_view path);

/// The path with "." and empty parts removed and each ".." taken together with the part before
/// it. A ".." that has nothing left to climb stays on a relative path and vanishes on an absolute
/// one. Delimiters come out as "\", a trailing one is kept.
std::string CanonicalizePath(std::string_view path);

/// True when both paths are the same name: "\" and "/" alike, case of letters ignored.
bool SameFileName(std::string_view left, std::string_view right);

} // namespace deployment
