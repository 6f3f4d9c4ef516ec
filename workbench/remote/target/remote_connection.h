// What a deploy and a status query ask of the machine behind a profile.
#pragma once

#include "package/host/api/platformapi.h"
#include "workbench/process/process_run.h"
#include "workbench/process/shell.h"

#include <atomic>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace workbench {

/// The machine is not reached, or the profile's path is not there any more.
class TConnectionError : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

/// A directory as it really is on the target.
struct TRemoteDirectory {
  std::string Path;     ///< full, symbolic links resolved as far as it exists; empty: see Problem
  bool IsInside = true; ///< at or below the profile's path
  bool Exists = false;
  std::string Problem = {}; ///< why there can be no file in it; empty when there can
};

/// A name in a directory that was resolved.
struct TRemoteName {
  std::string Directory;
  std::string Name;

  std::string Path() const { return Directory + "/" + Name; }
};

enum class TRemoteKind { None, File, Directory, Link, Other };

/// What stands under a name. Links are not followed.
struct TRemoteStatus {
  TRemoteKind Kind = TRemoteKind::None;
  std::uint64_t Size = 0;
  deployment::TFileTime Modified = {};
  unsigned Mode = 0;        ///< rights, such as 0644
  std::string Problem = {}; ///< why it could not be examined; empty when it was
};

/// Where a link leads.
struct TRemoteLink {
  std::string Text = {};    ///< as it is stored, not resolved
  std::string Problem = {}; ///< why it could not be read, or that it is no link; empty when it was
};

/// The content of a file, read whole.
struct TRemoteContent {
  bool IsThere = false;
  std::string Text = {};
  std::string Problem = {}; ///< why it could not be read; empty when it was, or is not there
};

/// How making a file of one's own ended.
struct TRemoteCreation {
  enum class TResult {
    Made,
    Exists, ///< something stands there already, or the target does not tell why it failed
    Failed,
  };
  TResult Result = TResult::Failed;
  std::string Problem = {}; ///< unless it was made
};

/// A file and another place on the same target, in directories that are there.
struct TRemoteCopy {
  TRemoteName From;
  TRemoteName To;
};

/// Rights and time stamp that a file is to have; what is not told stays.
struct TRemoteStamp {
  TRemoteName Name;
  std::optional<unsigned> Mode = {}; ///< rights, such as 0644
  std::optional<deployment::TFileTime> Time = {};
};

/// A file to be sent.
struct TSendRequest {
  std::filesystem::path LocalFile;
  TRemoteName Target;
  bool MakeExecutable = false;
  std::size_t Index = 0;          ///< of whoever asks
  std::uint64_t ReplacedSize = 0; ///< of the plain file that it replaces; 0: there is none
};

/// The directories of the files, each once, in the order in which they come up.
std::vector<std::string> DirectoriesOf(std::span<const TSendRequest> files);

/// How sending one file ended. It ends exactly once.
struct TSendOutcome {
  std::uint64_t Bytes = 0;  ///< that were sent, also when it failed
  std::string Problem = {}; ///< empty: the file is whole and in place
  std::uint64_t Size = 0;   ///< of the file that was sent
  std::int64_t Time = 0;    ///< its time stamp, whole seconds since 1970
  unsigned Mode = 0;        ///< the rights that it was given
  std::string Hash = {};    ///< SHA-256 of what was sent; empty where a part was there already
};

/// The rights that a local file of that mode is given on a target.
unsigned RightsFor(unsigned localMode, bool makeExecutable);

/// Hands out files to be sent and hears how that goes, on the thread that sends.
class ISendJob {
public:
  virtual ~ISendJob() = default;
  /// Asked between files and between blocks; true ends the job.
  virtual bool IsCancelled() const = 0;
  /// The next file; null when there are no more. Good until it is done.
  virtual const TSendRequest* Next() = 0;
  /// So many more bytes of some file were sent.
  virtual void BytesSent(std::uint64_t count) = 0;
  /// Called once for each file that was handed out, in any order.
  virtual void FileDone(const TSendRequest& request, const TSendOutcome& outcome) = 0;
};

/// Used by one thread at a time. Lists are asked as a whole, so that a
/// far machine can be asked all of it at once; answers come in the order of the questions. Every
/// call may throw TConnectionError; what concerns one file is in the answer.
class IRemoteConnection {
public:
  virtual ~IRemoteConnection() = default;
  /// The smallest step between two time stamps that the target keeps apart.
  virtual std::chrono::nanoseconds TimeResolution() const = 0;
  /// The profile's path there, links resolved.
  virtual std::string Root() const = 0;
  /// True when files keep the rights that they are given.
  virtual bool KeepsModes() const = 0;
  /// How many connections at a time serve a deploy best when nobody says.
  virtual unsigned UsualConnections() const = 0;
  /// Resolves directories: relative ones below the profile's path, others from the root of the
  /// file system; those that begin with "~/" in the user's home directory. "/" delimits.
  virtual std::vector<TRemoteDirectory> Resolve(std::span<const std::string> directories) = 0;
  virtual std::vector<TRemoteStatus> Examine(std::span<const TRemoteName> names) = 0;
  /// Makes resolved directories, those above them first; the reason for each that failed, else an
  /// empty text.
  virtual std::vector<std::string> MakeDirectories(std::span<const std::string> directories) = 0;
  /// Removes what a deploy left unfinished in the directories of these files, unless another one
  /// is writing it or sending one of the files can go on from there.
  virtual void RemoveUnfinished(std::span<const TSendRequest> files) = 0;
  /// Sends each file under a name of its own beside the final one, gives it time and rights and
  /// puts it in place when it is whole. A file that changes meanwhile is not put in place.
  virtual void Send(ISendJob& job) = 0;
  /// SHA-256 of plain files, hexadecimal; empty for one that cannot be read.
  virtual std::vector<std::string> Hashes(std::span<const TRemoteName> names) = 0;
  /// Reads a plain file of at most that many bytes. Links are not followed.
  virtual TRemoteContent ReadFile(const TRemoteName& name, std::uint64_t limit) = 0;
  /// Makes a file that is not there yet, at once for all who try, and gives it that time stamp
  /// where it can.
  virtual TRemoteCreation CreateFile(const TRemoteName& name, std::string_view text,
                                     deployment::TFileTime time) = 0;
  /// Gives a file another name in its directory, replacing what stands there; the reason when that
  /// failed.
  virtual std::string Rename(const TRemoteName& name, const std::string& newName) = 0;
  /// Gives files that are in place what is told of each; the reason for each that failed.
  virtual std::vector<std::string> Stamp(std::span<const TRemoteStamp> stamps) = 0;
  /// The same for the time, or the rights, of one file.
  std::string SetTime(const TRemoteName& name, deployment::TFileTime time);
  std::string SetMode(const TRemoteName& name, unsigned mode);
  /// Removes a file; the reason when that failed.
  virtual std::string Remove(const TRemoteName& name) = 0;
  /// Removes files; the reason for each that failed, and nothing for one that is not there.
  virtual std::vector<std::string> RemoveAll(std::span<const TRemoteName> names) = 0;
  /// Gives plain files a second name that is not there yet: by hard link where the target can, so
  /// that the first one stays what it is, else by a copy with the same time and rights; the reason
  /// for each that failed.
  virtual std::vector<std::string> Keep(std::span<const TRemoteCopy> copies) = 0;
  /// Gives files another name, replacing at once what stands there where the target can; the
  /// reason for each that failed.
  virtual std::vector<std::string> Move(std::span<const TRemoteCopy> moves) = 0;
  /// Removes those of the resolved directories in which nothing is, those below others first.
  virtual void RemoveEmptyDirectories(std::span<const std::string> directories) = 0;
  /// True when the target has symbolic links and one can take the place of what is there at once.
  virtual bool KnowsLinks() const = 0;
  virtual std::vector<TRemoteLink> ReadLinks(std::span<const TRemoteName> names) = 0;
  /// Puts a symbolic link in place, in the stead of a file or link of that name; the reason when
  /// that failed. `text` is what it stores, with "/" as delimiter; it may lead nowhere.
  virtual std::string MakeLink(const TRemoteName& name, const std::string& text) = 0;
  /// What runs command lines there; found out when it is asked for first.
  virtual TShell Shell() = 0;
  /// Runs a command line of that shell in a resolved directory and hands over the lines that it
  /// prints; the reason when it failed. A run that is cancelled ends the command.
  virtual std::string RunCommand(const std::string& command, const std::string& directory,
                                 const THearLine& hear, const std::atomic<int>& cancelled) = 0;
};

/// Opens connections. Used by several threads.
using TConnect = std::function<std::shared_ptr<IRemoteConnection>()>;

} // namespace workbench
