#include "workbench/remote/sftp/sftp_reading.h"

#include <cstdint>
#include <vector>

namespace workbench {
namespace {

constexpr std::size_t MostFiles = 64;                          // open at a time
constexpr std::uint32_t BlockSize = std::uint32_t(255) * 1024; // a server may give less

class TReading final : public ISftpExchange {
public:
  TReading(std::span<const std::string> paths, IFileSink& sink)
      : FPaths(paths), FSink(sink), FFiles(paths.size()) {}

  bool PostNext(TSftpChannel& channel) override {
    if (FNext == FPaths.size() || FOpen == MostFiles)
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
      file.Offset += bytes.size();
      if (!bytes.empty() && FSink.Bytes(cookie, bytes))
        return Ask(channel, cookie);
      return End(channel, cookie, TSftpStatus::Ok);
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
  std::vector<TFile> FFiles;
  std::size_t FNext = 0;
  std::size_t FOpen = 0;
};

} // namespace

void ReadFiles(TSftpChannel& channel, std::span<const std::string> paths, IFileSink& sink) {
  TReading reading(paths, sink);
  channel.Run(reading);
}

} // namespace workbench
