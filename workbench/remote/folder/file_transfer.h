// Copies files of this machine into open directories, each whole or not at all.
#pragma once

#include "workbench/files/file_descriptor.h"
#include "workbench/remote/folder/unfinished_file.h"
#include "workbench/remote/target/remote_connection.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace workbench {

using TSharedDirectory = std::shared_ptr<const TFileDescriptor>;

/// Used by one thread.
class TFileTransfer {
public:
  /// `run` tells the unfinished files of this object from those of others.
  explicit TFileTransfer(std::string run);
  ~TFileTransfer();
  TFileTransfer(const TFileTransfer&) = delete;
  TFileTransfer& operator=(const TFileTransfer&) = delete;

  /// Copies the request's local file into the directory. A file that changes while it is read is
  /// read anew once. It takes the request's name together with those that came before it, at the
  /// latest with Finish; the job hears of it then, or at once when it failed.
  void Send(int directory, const TSendRequest& request, ISendJob& job);
  /// Puts in place what waits for that.
  void Finish(ISendJob& job);

  /// Puts a symbolic link in place under the name. Throws std::system_error.
  void MakeLink(int directory, const std::string& name, const std::string& text);
  /// A name for an unfinished file that no file has.
  std::string NextName();

private:
  // A file that is whole and has not got its name.
  struct TWaiting {
    const TSendRequest* Request = nullptr;
    TSendOutcome Outcome = {};
    std::unique_ptr<TUnfinishedFile> Target = nullptr;
  };

  const TSharedDirectory& Shared(int directory, const std::string& path);
  void Copy(int directory, TWaiting& file, ISendJob& job);
  std::uint64_t CopyBytes(int source, TUnfinishedFile& target, std::uint64_t size, ISendJob& job,
                          TSendOutcome& outcome);
  void PutInPlace(ISendJob& job);

  std::string FRun;
  std::uint64_t FCount = 0;
  std::vector<char> FBlock;
  TSharedDirectory FDirectory; // the one used last
  std::string FDirectoryPath;
  std::vector<TWaiting> FWaiting;
  std::uint64_t FBytesWaiting = 0;
  std::unordered_map<std::string, TSharedDirectory> FChanged; // directories by path
};

/// Reads an open file to its end, or until `take` is false. Throws std::system_error.
void ReadOpened(int file, const std::function<bool(std::string_view bytes)>& take);

/// What the link of that name in the directory stores. Throws std::system_error, also when it is no
/// link.
std::string ReadLinkIn(int directory, const std::string& name);

/// Removes files that a transfer left unfinished, unless a transfer is writing them just now.
void RemoveUnfinishedFiles(int directory);

} // namespace workbench
