// Replaces the content of a file whole and durably, or leaves it as it was.
#pragma once

#include "workbench/files/file_backup.h"
#include "workbench/files/file_lock.h"
#include "workbench/files/save_error.h"

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

namespace workbench {

/// What is to be written, and on which condition.
struct TSaveRequest {
  /// The file; a symbolic link is followed and stays a link.
  std::filesystem::path Target;
  /// The new content, piece after piece.
  std::span<const std::string_view> Content;
  /// The content that was read and that must still be there. Nothing: there must be no file.
  std::optional<std::string_view> Expected = std::nullopt;
  /// Write also when the file on disk is another one than expected.
  bool Force = false;
  /// Keep the old content under the user's state directory.
  bool WithBackup = true;
  /// The caller's lock on the target, which goes on to hold the new file; null: the save locks for
  /// itself.
  TFileLock* Lock = nullptr;
  /// Rights of a file that did not exist, subject to the user's mask.
  mode_t NewFileMode = 0666;
};

/// What a save did.
struct TSaveOutcome {
  bool Written = false;              ///< false: the file has that content already
  std::filesystem::path Backup;      ///< the old content; empty when none was kept
  std::vector<std::string> Warnings; ///< sentences about what could not be kept
};

/// Saves a file. Whatever happens, a power cut included, the file has its old or its new content
/// whole. Throws TSaveError, whose text says which one.
TSaveOutcome SaveFile(const TSaveRequest& request);

} // namespace workbench
