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

/// Looks for what an earlier run left of a file whose local side has this state.
using TFindPart =
    std::function<std::optional<TUnfinishedPart>(const TSendRequest&, const struct stat& local)>;

/// Files of this size and more are worth going on with.
inline constexpr std::uint64_t LargeFileSize = std::uint64_t(4) * 1024 * 1024;

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
  bool IsCancelled() const override { return FJob.IsCancelled(); }

private:
  enum class TStep : std::uint8_t { Open, Write, Stamp, Close, Rename, Remove, Space };
  struct TFile;

  bool Start(TSftpChannel& channel);
  TFile& TakeSlot();
  void Begin(TSftpChannel& channel, TFile& file);
  void Queue(TFile& file);
  void Continue(TSftpChannel& channel, TFile& file);
  void WriteBlock(TSftpChannel& channel, TFile& file);
  void Complete(TSftpChannel& channel, TFile& file);
  static void Post(TSftpChannel& channel, TFile& file, TStep step);
  void PostRename(TSftpChannel& channel, TFile& file) const;
  void Opened(TFile& file, const TSftpReply& reply);
  void Renamed(TSftpChannel& channel, TFile& file, TSftpStatus status) const;
  void WhenAnswered(TSftpChannel& channel, TFile& file);
  void TakeBack(TSftpChannel& channel, TFile& file);
  void End(TFile& file);

  ISendJob& FJob;
  TUnfinishedNames& FNames;
  const TSftpLimits& FLimits;
  const bool FSetsModes;
  const std::size_t FMostFiles; // open at a time
  TFindPart FFindPart;
  std::vector<std::unique_ptr<TFile>> FFiles; // slots; a cookie names one
  std::vector<std::size_t> FFree;
  std::deque<std::size_t> FWriting; // slots with bytes to be sent
  bool FNoMore = false;             // the job has no further files
  bool FStartNext = true;           // beginnings and blocks take turns
};

} // namespace workbench
