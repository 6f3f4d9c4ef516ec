#include "workbench/remote/sftp/sftp_comparison.h"

#include "workbench/files/file_descriptor.h"

#include <algorithm>
#include <cstdint>
#include <deque>
#include <fcntl.h>
#include <memory>
#include <string>
#include <sys/stat.h>

namespace workbench {
namespace {

constexpr std::size_t BlockSize = std::size_t(32) * 1024; // the most that every server reads
constexpr std::size_t MostBlocks = 128;                   // asked for and not answered
constexpr std::size_t MostFiles = 64;                     // open at a time

struct TFile {
  std::size_t Index = 0;
  TFileDescriptor Local = {};
  std::uint64_t Size = 0;
  std::uint64_t Asked = 0;
  std::string Handle = {};
  unsigned Waiting = 0;
  bool IsSame = true;
};

// What a request was about; its address is the cookie's index.
struct TBlock {
  TFile* File = nullptr;
  std::uint64_t Offset = 0;
  std::size_t Size = 0;
};

class TComparison final : public ISftpExchange {
public:
  explicit TComparison(std::span<const TSendRequest> files)
      : Same(files.size(), false), FRequests(files) {}

  bool PostNext(TSftpChannel& channel) override {
    if (FBlocks.size() - FFree.size() >= MostBlocks)
      return false;
    while (!FReading.empty()) {
      TFile& file = *FReading.front();
      if (file.IsSame && file.Asked < file.Size) {
        Ask(channel, file);
        return true;
      }
      FReading.pop_front();
      CloseWhenAnswered(channel, file);
    }
    return Open(channel);
  }

  void OnReply(TSftpChannel& channel, std::uint64_t cookie, const TSftpReply& reply) override {
    const TBlock block = FBlocks[cookie];
    FFree.push_back(cookie);
    if (!block.File) // closed
      return;
    TFile& file = *block.File;
    --file.Waiting;
    if (reply.Kind == TSftpPacket::Handle) {
      TSftpParser content = reply.Content;
      file.Handle = content.Text();
      FReading.push_back(&file);
      return;
    }
    file.IsSame = file.IsSame && reply.Kind == TSftpPacket::Data && HasBytes(file, block, reply);
    if (std::ranges::find(FReading, &file) == FReading.end())
      CloseWhenAnswered(channel, file);
  }

  std::vector<bool> Same;

private:
  // A block that comes back short counts as another one: nobody shortens files at such a time.
  static bool HasBytes(const TFile& file, const TBlock& block, const TSftpReply& reply) {
    TSftpParser content = reply.Content;
    const std::string_view theirs = content.Text();
    std::string ours(block.Size, '\0');
    const ssize_t count =
        ::pread(file.Local.Get(), ours.data(), ours.size(), static_cast<off_t>(block.Offset));
    return count == static_cast<ssize_t>(block.Size) && theirs == ours;
  }

  void Post(TSftpChannel& channel, const TBlock& block) {
    if (FFree.empty()) {
      FFree.push_back(FBlocks.size());
      FBlocks.emplace_back();
    }
    const std::size_t place = FFree.back();
    FFree.pop_back();
    FBlocks[place] = block;
    if (block.File)
      ++block.File->Waiting;
    channel.Post(place);
  }

  bool Open(TSftpChannel& channel) {
    while (FNext < FRequests.size() && FFiles.size() < MostFiles) {
      const TSendRequest& request = FRequests[FNext];
      auto file = std::make_unique<TFile>();
      file->Index = FNext++;
      file->Local =
          TFileDescriptor(::open(request.LocalFile.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
      struct stat status = {};
      if (!file->Local.IsOpen() || ::fstat(file->Local.Get(), &status) != 0)
        continue;
      file->Size = static_cast<std::uint64_t>(status.st_size);
      TSftpWriter& writer = channel.Begin(TSftpPacket::Open);
      writer.Text(request.Target.Directory + "/" + request.Target.Name);
      writer.Number(sftp_open::Read);
      writer.Attributes({});
      Post(channel, {file.get(), 0, 0});
      FFiles.push_back(std::move(file));
      return true;
    }
    return false;
  }

  void Ask(TSftpChannel& channel, TFile& file) {
    const auto size =
        static_cast<std::size_t>(std::min<std::uint64_t>(BlockSize, file.Size - file.Asked));
    TSftpWriter& writer = channel.Begin(TSftpPacket::Read);
    writer.Text(file.Handle);
    writer.LongNumber(file.Asked);
    writer.Number(static_cast<std::uint32_t>(size));
    const TBlock block{&file, file.Asked, size};
    file.Asked += size;
    Post(channel, block);
  }

  void CloseWhenAnswered(TSftpChannel& channel, TFile& file) {
    if (file.Waiting > 0)
      return;
    Same[file.Index] = file.IsSame && !file.Handle.empty();
    if (!file.Handle.empty()) {
      channel.Begin(TSftpPacket::Close).Text(file.Handle);
      Post(channel, {});
    }
    FFiles.erase(
        std::ranges::find_if(FFiles, [&](const auto& other) { return other.get() == &file; }));
  }

  std::span<const TSendRequest> FRequests;
  std::size_t FNext = 0;
  std::vector<std::unique_ptr<TFile>> FFiles;
  std::deque<TFile*> FReading;
  std::vector<TBlock> FBlocks;
  std::vector<std::size_t> FFree;
};

} // namespace

std::vector<bool> CompareContents(TSftpChannel& channel, std::span<const TSendRequest> files) {
  TComparison comparison(files);
  channel.Run(comparison);
  return comparison.Same;
}

} // namespace workbench
