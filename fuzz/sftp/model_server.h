// A server of the SSH file transfer protocol whose files are kept in memory, and which lies where
// it is told to.
#pragma once

#include "fuzz/fuzz_input.h"
#include "workbench/remote/sftp/sftp_wire.h"

#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace workbench::fuzz {

/// What stands under a path of the model.
struct TModelFile {
  enum class TKind { Plain, Directory, Link };
  TKind Kind = TKind::Plain;
  std::string Content; ///< of a plain file; where a link leads
  std::uint32_t Mode = 0644;
  std::uint32_t Time = 1'700'000'000;
};

using TModelFiles = std::map<std::string, TModelFile, std::less<>>;

/// Takes requests and gives replies, both as bytes. Each byte of `lies` decides about one reply;
/// behind their end the server is honest.
class TModelServer {
public:
  TModelServer(TModelFiles files, TFuzzInput lies);

  /// Takes bytes of the client; the bytes that it is answered with.
  std::string Hear(std::string_view bytes);
  /// True when the server has hung up; it hears nothing any more.
  bool HasEnded() const { return FHasEnded; }

  const TModelFiles& Files() const { return FFiles; }
  const TModelFile* Find(std::string_view path) const;
  /// True when every reply so far was true.
  bool IsHonest() const { return FIsHonest; }
  /// True when it said "done" of something that it did not do, or told a wrong size.
  bool HasPretended() const { return FHasPretended; }
  /// True when it answered with attributes that it made up.
  bool HasInvented() const { return FHasInvented; }
  /// Called before each request that changes something, with the paths that it names.
  std::function<void(const std::string& path)> OnChange;
  /// Called after each request that may have changed something.
  std::function<void()> AfterRequest;

private:
  enum class TLie { None, Refuse, Conceal, WrongKind, WrongId, CutOff, Noise, HangUp, Pretend };

  void Answer(std::string_view packet, std::string& out);
  void Greet(std::string& out);
  TLie NextLie();
  TSftpStatus Carry(TSftpPacket kind, TSftpParser& request, TByteBuffer& reply, std::uint32_t id);
  TSftpStatus Open(TSftpParser& request, std::string& handle);
  TSftpStatus Write(TSftpParser& request);
  TSftpStatus Stamp(const std::string& path, TSftpParser& request);
  TSftpStatus Move(const std::string& from, const std::string& to, bool mayReplace);
  TSftpStatus Extended(TSftpParser& request, TByteBuffer& reply, std::uint32_t id);
  TSftpStatus Read(TSftpParser& request, TByteBuffer& reply, std::uint32_t id);
  TSftpStatus List(const std::string& handle, TByteBuffer& reply, std::uint32_t id);
  TSftpStatus Remove(const std::string& path);
  TSftpStatus MakeDirectory(const std::string& path);
  bool HasParent(const std::string& path) const;
  std::string Changing(std::string_view path);

  TModelFiles FFiles;
  TFuzzInput FLies;
  std::string FBytes; // that are no whole packet yet
  struct THandle {
    std::string Path;
    bool IsListed = false;
  };
  std::map<std::string, THandle, std::less<>> FHandles;
  unsigned FHandleCount = 0;
  bool FHasPosixRename = false;
  bool FHasChanged = false;
  bool FHasEnded = false;
  bool FIsHonest = true;
  bool FHasPretended = false;
  bool FHasInvented = false;
};

} // namespace workbench::fuzz
