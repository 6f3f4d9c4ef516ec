// Copies one file of this machine into an open directory, whole or not at all.
#pragma once

#include "workbench/remote/target/remote_connection.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace workbench {

/// Used by one thread.
class TFileTransfer {
public:
  /// `run` tells the unfinished files of this object from those of others.
  explicit TFileTransfer(std::string run);

  /// Copies the request's local file into the directory under the request's name. A file that
  /// changes while it is read is read anew once.
  TSendOutcome Send(int directory, const TSendRequest& request, ISendJob& job);

  /// Puts a symbolic link in place under the name. Throws std::system_error.
  void MakeLink(int directory, const std::string& name, const std::string& text);

private:
  std::string NextName();
  void TrySend(int directory, const TSendRequest& request, ISendJob& job, TSendOutcome& outcome);
  std::uint64_t Copy(int source, int target, std::uint64_t size, ISendJob& job,
                     TSendOutcome& outcome);

  std::string FRun;
  std::uint64_t FCount = 0;
  std::vector<char> FBlock;
};

/// Reads an open file to its end, or until `take` is false. Throws std::system_error.
void ReadOpened(int file, const std::function<bool(std::string_view bytes)>& take);

/// Writes all the bytes to an open file. Throws std::system_error.
void WriteAll(int file, std::string_view bytes);

/// What the link of that name in the directory stores. Throws std::system_error, also when it is no
/// link.
std::string ReadLinkIn(int directory, const std::string& name);

/// Removes files that a transfer left unfinished, unless a transfer is writing them just now.
void RemoveUnfinishedFiles(int directory);

} // namespace workbench
