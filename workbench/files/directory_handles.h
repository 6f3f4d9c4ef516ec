// Open directories of this machine, so that a path that was checked stays the one that is used.
#pragma once

#include "workbench/files/file_descriptor.h"

#include <string>
#include <unordered_map>

namespace workbench {

/// Opens directories from the root of the file system on, and follows no link. A directory that
/// somebody replaces by a link after it was resolved is not opened.
class TDirectoryHandles {
public:
  /// A descriptor for the directory of that full path, good until the next call. Throws
  /// std::system_error.
  int Open(const std::string& path);
  /// The directories may be other ones now: they are opened anew.
  void Forget() { FOpened.clear(); }
  /// Makes the directory and those above it. Throws std::system_error.
  void Make(const std::string& path);

private:
  std::unordered_map<std::string, TFileDescriptor> FOpened;
};

} // namespace workbench
