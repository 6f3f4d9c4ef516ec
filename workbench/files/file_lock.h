// Keeps other runs from changing a file meanwhile.
#pragma once

#include "workbench/files/file_descriptor.h"

#include <chrono>
#include <filesystem>

namespace workbench {

/// How long a run waits for another one that works on the same file.
inline constexpr std::chrono::milliseconds LockPatience = std::chrono::seconds(10);

/// An exclusive lock on a file, held until destruction. It binds the runs of this program, not
/// editors. The lock belongs to the file that the path named when the lock was taken.
class TFileLock {
public:
  /// Waits for the lock. Throws TInputError when the file cannot be opened, and TSaveError when
  /// another run holds it for longer than `patience` or when the file system has no locks.
  explicit TFileLock(const std::filesystem::path& file,
                     std::chrono::milliseconds patience = LockPatience);

  /// The file that is locked, open for reading.
  const TFileDescriptor& File() const { return FFile; }
  /// Goes on with the lock of a file that takes the place of this one, and lets the old one go.
  void MoveTo(TFileDescriptor locked) { FFile = std::move(locked); }

private:
  TFileDescriptor FFile;
};

} // namespace workbench
