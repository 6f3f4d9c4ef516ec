// The new content of a file while it is not yet in place.
#pragma once

#include "workbench/files/file_descriptor.h"

#include <cstddef>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <sys/types.h>

namespace workbench {

/// A file beside its target, named ".NAME.XXXXXX.tmp". It is removed on destruction unless it was
/// put in place. Every operation throws std::system_error, whose text says what was being done.
class TTemporaryFile {
public:
  /// Makes the file in an open directory, which must outlive it. `mode` is subject to the user's
  /// mask.
  TTemporaryFile(const TFileDescriptor& directory, std::string_view targetName, mode_t mode);
  ~TTemporaryFile();
  TTemporaryFile(const TTemporaryFile&) = delete;
  TTemporaryFile& operator=(const TTemporaryFile&) = delete;

  const TFileDescriptor& File() const { return FFile; }

  /// Writes the pieces one after the other, brings them to the disk and closes the file.
  void Write(std::span<const std::string_view> pieces);
  /// Opens the file anew, for reading, and compares; an error of EIO when it has other content.
  TFileDescriptor ReadBack(std::span<const std::string_view> pieces) const;
  /// Takes the place of `name`. With `mayReplace` false an error of EEXIST when there is one.
  void PutInPlace(const std::string& name, bool mayReplace);

private:
  const TFileDescriptor& FDirectory;
  std::string FName;
  TFileDescriptor FFile;
  bool FInPlace = false;
};

/// Compares a whole file with the pieces. Throws std::system_error when it cannot be read.
bool HasContent(const TFileDescriptor& file, std::span<const std::string_view> pieces);

/// Removes temporary files of the target that runs left behind which were killed more than a day
/// ago.
void RemoveStaleTemporaryFiles(const std::filesystem::path& directory, std::string_view targetName);

} // namespace workbench
