#include "workbench/remote/sftp/sftp_reading.h"

#include "workbench/files/sha256.h"

#include <memory>
#include <string_view>
#include <utility>

namespace workbench {
namespace {

constexpr std::size_t MostReads = 64;                          // open at a time
constexpr std::uint32_t BlockSize = std::uint32_t(255) * 1024; // a server may give less

// Takes what is read. The bytes of each file come in their order, those of different files mixed.
class IFileSink {
public:
  virtual ~IFileSink() = default;
  // False when no more of this file is wanted.
  virtual bool Bytes(std::size_t file, std::string_view bytes) = 0;
  // The file is over; called once for each. Ok: it was read to its end or as far as it was wanted.
  virtual void Done(std::size_t file, TSftpStatus status) = 0;
};

class TReading final : public ISftpExchange {
public:
  TReading(std::span<const std::string> paths, IFileSink& sink, bool mayBeStopped)
      : FPaths(paths), FSink(sink), FMayBeStopped(mayBeStopped), FFiles(paths.size()) {}

  bool MayBeStopped() const override { return FMayBeStopped; }

  bool PostNext(TSftpChannel& channel) override {
    if (FNext == FPaths.size() || FOpen == MostReads)
      return false;
    TSftpWriter& writer = channel.Begin(TSftpPacket::Open);
    writer.Text(FPaths[FNext]);
    writer.Number(sftp_open::Read);
    writer.Attributes({});
    channel.Post(FNext++);
    ++FOpen;
    return true;
  }

  void OnReply(TSftpChannel& channel, std::uint64_t cookie, const TSftpReply& reply) override {
    if (cookie >= FPaths.size()) // closed
      return;
    TFile& file = FFiles[cookie];
    const bool isOpening = file.Handle.empty();
    TSftpParser content = reply.Content;
    if (isOpening && reply.Kind == TSftpPacket::Handle) {
      file.Handle = content.Text();
      return Ask(channel, cookie);
    }
    if (!isOpening && reply.Kind == TSftpPacket::Data) {
      const std::string_view bytes = content.Text();
      if (bytes.size() > BlockSize)
        throw TSftpFormatError("more bytes than were asked for");
      file.Offset += bytes.size();
      const bool wantsMore = FSink.Bytes(cookie, bytes);
      if (FMayBeStopped && channel.IsCancelled())
        return End(channel, cookie, TSftpStatus::Failure);
      return wantsMore ? Ask(channel, cookie) : End(channel, cookie, TSftpStatus::Ok);
    }
    const TSftpStatus status =
        reply.Kind == TSftpPacket::Status ? reply.Status() : TSftpStatus::BadMessage;
    const bool isAtEnd = !isOpening && status == TSftpStatus::EndOfFile;
    End(channel, cookie,
        isAtEnd                     ? TSftpStatus::Ok
        : status == TSftpStatus::Ok ? TSftpStatus::BadMessage
                                    : status);
  }

private:
  struct TFile {
    std::string Handle;
    std::uint64_t Offset = 0;
  };

  void Ask(TSftpChannel& channel, std::uint64_t index) {
    TSftpWriter& writer = channel.Begin(TSftpPacket::Read);
    writer.Text(FFiles[index].Handle);
    writer.LongNumber(FFiles[index].Offset);
    writer.Number(BlockSize);
    channel.Post(index);
  }

  void End(TSftpChannel& channel, std::uint64_t index, TSftpStatus status) {
    --FOpen;
    if (!FFiles[index].Handle.empty())
      channel.Post(TSftpPacket::Close, FFiles[index].Handle, FPaths.size());
    FSink.Done(index, status);
  }

  std::span<const std::string> FPaths;
  IFileSink& FSink;
  const bool FMayBeStopped;
  std::vector<TFile> FFiles;
  std::size_t FNext = 0;
  std::size_t FOpen = 0;
};

class THashing final : public IFileSink {
public:
  explicit THashing(std::size_t count) : Hashes(count), FDigests(count) {}

  bool Bytes(std::size_t file, std::string_view bytes) override {
    DigestOf(file).Add(bytes);
    return true;
  }
  void Done(std::size_t file, TSftpStatus status) override {
    if (status == TSftpStatus::Ok)
      Hashes[file] = DigestOf(file).Text();
    FDigests[file].reset();
  }

  std::vector<std::string> Hashes;

private:
  TSHA256& DigestOf(std::size_t file) {
    if (!FDigests[file])
      FDigests[file] = std::make_unique<TSHA256>();
    return *FDigests[file];
  }

  std::vector<std::unique_ptr<TSHA256>> FDigests;
};

class TReadingOne final : public IFileSink {
public:
  explicit TReadingOne(std::uint64_t limit) : FLimit(limit) {}

  bool Bytes(std::size_t /*file*/, std::string_view bytes) override {
    Content.Text.append(bytes);
    return Content.Text.size() <= FLimit;
  }
  void Done(std::size_t /*file*/, TSftpStatus status) override {
    Content.IsThere = status != TSftpStatus::NoSuchFile;
    if (status != TSftpStatus::Ok && Content.IsThere)
      Content.Problem = "reading it: " + SftpStatusText(status);
    else if (Content.Text.size() > FLimit)
      Content.Problem = "it is larger than " + std::to_string(FLimit) + " bytes";
  }

  TRemoteContent Content;

private:
  std::uint64_t FLimit;
};

} // namespace

std::vector<std::string> HashFiles(TSftpChannel& channel, std::span<const std::string> paths) {
  THashing hashing(paths.size());
  TReading exchange(paths, hashing, /*mayBeStopped=*/true);
  channel.Run(exchange);
  return std::move(hashing.Hashes);
}

TRemoteContent ReadWholeFile(TSftpChannel& channel, const std::string& path, std::uint64_t limit) {
  TReadingOne reading(limit);
  TReading exchange({&path, 1}, reading, /*mayBeStopped=*/false);
  channel.Run(exchange);
  return std::move(reading.Content);
}

} // namespace workbench
