// Sends files through one SFTP channel, many at a time, each under a name of its own that is
// changed to the final one when the file is whole.
#pragma once

#include "workbench/files/file_descriptor.h"
#include "workbench/remote/sftp/sftp_channel.h"
#include "workbench/remote/target/remote_connection.h"
#include "workbench/remote/target/unfinished_names.h"
#include "workbench/remote/target/unfinished_parts.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace workbench {

/// Looks for what an earlier run left of a file whose local side has this state. A part of size 0
/// is of no use and is to go.
using TFindPart =
    std::function<std::optional<TUnfinishedPart>(const TSendRequest&, const struct stat& local)>;

/// Files of this size and more are worth going on with.
inline constexpr std::uint64_t LargeFileSize = std::uint64_t(4) * 1024 * 1024;

/// Files of this size and more are brought to the disk of the target before they are put in place,
/// where the server does that. It does it file by file, which would take many small ones longer
/// than to send them.
inline constexpr std::uint64_t SyncedFileSize = std::uint64_t(1024) * 1024;

/// One job on one channel. How many files are open at a time follows the length of the line and
/// what the server allows.
class TSftpUpload final : public ISftpExchange {
public:
  /// Everything must outlive the object. `setsModes`: the files get the rights of the local ones,
  /// whatever the server takes from rights when it makes a file.
  TSftpUpload(ISendJob& job, TUnfinishedNames& names, const TSftpLimits& limits, bool setsModes,
              TFindPart findPart);
  ~TSftpUpload() override;

  bool PostNext(TSftpChannel& channel) override;
  void OnReply(TSftpChannel& channel, std::uint64_t cookie, const TSftpReply& reply) override;
  /// What was begun is taken back, and what is being put in place is.
  bool MayBeStopped() const override { return false; }

private:
  // Look: at the file before it is put in place, and at what stands under the final name then. The
  // three steps before it are the way to get there on a server that replaces nothing: what is there
  // steps aside, and comes back when the new file is refused.
  enum class TStep : std::uint8_t {
    Open,
    Write,
    Stamp,
    Close,
    Rename,
    SetAside,
    RenameAgain,
    PutBack,
    Look,
    Remove,
    Space
  };
  struct TFile;

  bool Start(TSftpChannel& channel);
  bool StartHeldBack(TSftpChannel& channel);
  bool HoldBack(TFile& file, int error);
  TFile& TakeSlot();
  void Begin(TSftpChannel& channel, TFile& file);
  void Queue(TFile& file);
  void Continue(TSftpChannel& channel, TFile& file);
  void WriteBlock(TSftpChannel& channel, TFile& file);
  void Complete(TSftpChannel& channel, TFile& file);
  static void Post(TSftpChannel& channel, TFile& file, TStep step);
  void PostRename(TSftpChannel& channel, TFile& file) const;
  static void PostPlainRename(TSftpChannel& channel, TFile& file, const std::string& from,
                              const std::string& to, TStep step);
  static void PostLook(TSftpChannel& channel, TFile& file);
  void Opened(TFile& file, const TSftpReply& reply);
  void Renamed(TSftpChannel& channel, TFile& file, TSftpStatus status);
  static void RenamedAgain(TSftpChannel& channel, TFile& file, TSftpStatus status);
  static void BringBack(TSftpChannel& channel, TFile& file);
  static void PutBack(TFile& file, TSftpStatus status);
  void Looked(TSftpChannel& channel, TFile& file, const TSftpReply& reply);
  static std::string WhatIsWrong(const TFile& file, const TSftpReply& reply);
  void WhenAnswered(TSftpChannel& channel, TFile& file);
  void TakeBack(TSftpChannel& channel, TFile& file);
  void End(TFile& file);

  ISendJob& FJob;
  TUnfinishedNames& FNames;
  const TSftpLimits& FLimits;
  const bool FSetsModes;
  std::size_t FMostFiles;     // open at a time
  TFile* FHeldBack = nullptr; // begins when another one is closed
  bool FMayWait = true;       // for files that other channels close
  TFindPart FFindPart;
  std::vector<std::unique_ptr<TFile>> FFiles; // slots; a cookie names one
  std::vector<std::size_t> FFree;
  std::deque<std::size_t> FWriting; // slots with bytes to be sent
  bool FNoMore = false;             // the job has no further files
  bool FStartNext = true;           // beginnings and blocks take turns
};

} // namespace workbench
