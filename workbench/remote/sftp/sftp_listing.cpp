#include "workbench/remote/sftp/sftp_listing.h"

#include <cstdint>

namespace workbench {
namespace {

constexpr std::size_t MostOpen = 32; // directories at a time
// Of one directory; what is not heard of then is left alone. A server may go on for ever.
constexpr std::size_t MostEntries = 200'000;

class TListing final : public ISftpExchange {
public:
  TListing(const std::vector<std::string>& directories, const THearEntry& hear)
      : FDirectories(directories), FHear(hear), FHandles(directories.size()),
        FCounts(directories.size()) {}

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
    bool goesOn = false;
    if (reply.Kind == TSftpPacket::Handle) {
      TSftpParser content = reply.Content;
      handle = content.Text();
      goesOn = true;
    } else if (reply.Kind == TSftpPacket::Name) {
      goesOn = Hear(cookie, reply.Content);
    }
    if (goesOn && !channel.IsCancelled()) {
      channel.Post(TSftpPacket::ReadDirectory, handle, cookie);
      return;
    }
    --FOpen;
    if (!handle.empty())
      channel.Post(TSftpPacket::Close, handle, FDirectories.size());
  }

private:
  // False when the directory has more than is listened to.
  bool Hear(std::uint64_t index, TSftpParser content) {
    const std::uint32_t count = content.Number();
    for (std::uint32_t i = 0; i < count; ++i) {
      const std::string_view name = content.Text();
      content.Text(); // the same for people
      const TSftpAttributes attributes = content.Attributes();
      constexpr std::string_view NoName("/\0", 2);
      if (!name.empty() && name != "." && name != ".." &&
          name.find_first_of(NoName) == std::string_view::npos)
        FHear(FDirectories[index], name, attributes);
    }
    FCounts[index] += count;
    return FCounts[index] < MostEntries;
  }

  const std::vector<std::string>& FDirectories;
  const THearEntry& FHear;
  std::vector<std::string> FHandles;
  std::vector<std::size_t> FCounts; // entries that came
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
