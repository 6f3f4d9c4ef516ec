#include "workbench/remote/sftp/sftp_listing.h"

#include <cstdint>

namespace workbench {
namespace {

constexpr std::size_t MostOpen = 32; // directories at a time

class TListing final : public ISftpExchange {
public:
  TListing(const std::vector<std::string>& directories, const THearEntry& hear)
      : FDirectories(directories), FHear(hear), FHandles(directories.size()) {}

  bool PostNext(TSftpChannel& channel) override {
    if (FNext == FDirectories.size() || FOpen == MostOpen)
      return false;
    channel.Post(TSftpPacket::OpenDirectory, FDirectories[FNext], FNext);
    ++FNext;
    ++FOpen;
    return true;
  }

  void OnReply(TSftpChannel& channel, std::uint64_t cookie, const TSftpReply& reply) override {
    if (cookie >= FDirectories.size()) // closed
      return;
    std::string& handle = FHandles[cookie];
    if (reply.Kind == TSftpPacket::Handle) {
      TSftpParser content = reply.Content;
      handle = content.Text();
    } else if (reply.Kind == TSftpPacket::Name) {
      Hear(FDirectories[cookie], reply.Content);
    } else {
      --FOpen;
      if (!handle.empty())
        channel.Post(TSftpPacket::Close, handle, FDirectories.size());
      return;
    }
    channel.Post(TSftpPacket::ReadDirectory, handle, cookie);
  }

private:
  void Hear(const std::string& directory, TSftpParser content) const {
    for (std::uint32_t count = content.Number(); count > 0; --count) {
      const std::string_view name = content.Text();
      content.Text(); // the same for people
      const TSftpAttributes attributes = content.Attributes();
      constexpr std::string_view NoName("/\0", 2);
      if (!name.empty() && name != "." && name != ".." &&
          name.find_first_of(NoName) == std::string_view::npos)
        FHear(directory, name, attributes);
    }
  }

  const std::vector<std::string>& FDirectories;
  const THearEntry& FHear;
  std::vector<std::string> FHandles;
  std::size_t FNext = 0;
  std::size_t FOpen = 0;
};

} // namespace

void ListDirectories(TSftpChannel& channel, const std::vector<std::string>& directories,
                     const THearEntry& hear) {
  TListing listing(directories, hear);
  channel.Run(listing);
}

} // namespace workbench
