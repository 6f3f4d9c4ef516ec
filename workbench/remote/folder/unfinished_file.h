// A file of a folder that is written under a name of its own until it is whole.
#pragma once

#include "workbench/files/file_descriptor.h"

#include <cstdint>
#include <ctime>
#include <memory>
#include <string>
#include <string_view>
#include <sys/types.h>

namespace workbench {

/// Goes with the object unless it is put in place. It is locked as long as it is written, which
/// tells it from one that a run left behind. Every call throws std::system_error, whose text says
/// what was being done.
class TUnfinishedFile {
public:
  TUnfinishedFile(std::shared_ptr<const TFileDescriptor> directory, std::string name);
  ~TUnfinishedFile();
  TUnfinishedFile(const TUnfinishedFile&) = delete;
  TUnfinishedFile& operator=(const TUnfinishedFile&) = delete;

  const std::shared_ptr<const TFileDescriptor>& Directory() const { return FDirectory; }

  void Write(std::string_view bytes);
  /// Nothing more is written; the file gets its time and its rights.
  void Stamp(const timespec& time, mode_t rights);
  /// Brings the file to the disk and closes it.
  void Complete();
  /// Takes the place of what has that name in the directory.
  void PutInPlace(const std::string& name);

private:
  const std::shared_ptr<const TFileDescriptor> FDirectory;
  const std::string FName;
  TFileDescriptor FFile;
  std::uint64_t FUnsent = 0; // bytes that the disk was not told of
  bool FInPlace = false;
};

/// Writes all the bytes to an open file. Throws std::system_error.
void WriteAll(int file, std::string_view bytes);

} // namespace workbench
