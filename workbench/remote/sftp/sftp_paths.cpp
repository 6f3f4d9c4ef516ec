#include "workbench/remote/sftp/sftp_paths.h"

#include "workbench/text/visible_text.h"

#include <optional>
#include <utility>

namespace workbench {
namespace {

std::uint32_t KindOf(const TSftpAttributes& attributes) {
  return attributes.Mode.value_or(0) & sftp_kind::Mask;
}

std::optional<TSftpAttributes> AttributesOf(const TSftpReply& reply) {
  if (reply.Kind != TSftpPacket::Attributes)
    return std::nullopt;
  TSftpParser content = reply.Content;
  return content.Attributes();
}

// The one name of an answer; empty when it is no full path or climbs.
std::string NameOf(const TSftpReply& reply) {
  if (reply.Kind != TSftpPacket::Name)
    return {};
  TSftpParser content = reply.Content;
  if (content.Number() != 1)
    return {};
  std::string name(content.Text());
  if (!name.starts_with('/') || (name + "/").find("/../") != std::string::npos ||
      name.find('\0') != std::string::npos)
    return {};
  return name;
}

} // namespace

// Asks for all paths at once.
class TSftpPaths::TExamination final : public ISftpExchange {
public:
  TExamination(std::unordered_map<std::string, TPlace>& places, std::vector<std::string> paths)
      : FPlaces(places), FPaths(std::move(paths)) {}

  bool PostNext(TSftpChannel& channel) override {
    if (FNext == Questions.size() * FPaths.size())
      return false;
    channel.Post(Questions[FNext % Questions.size()], FPaths[FNext / Questions.size()], FNext);
    ++FNext;
    return true;
  }

  void OnReply(TSftpChannel&, std::uint64_t cookie, const TSftpReply& reply) override {
    TPlace& place = FPlaces[FPaths[cookie / Questions.size()]];
    switch (Questions[cookie % Questions.size()]) {
    case TSftpPacket::RealPath:
      place.Real = NameOf(reply);
      break;
    case TSftpPacket::LStat:
      if (const auto attributes = AttributesOf(reply))
        place.IsLink = KindOf(*attributes) == sftp_kind::Link;
      break;
    default:
      if (const auto attributes = AttributesOf(reply)) {
        place.Exists = true;
        place.IsDirectory = KindOf(*attributes) == sftp_kind::Directory;
      } else if (reply.Status() != TSftpStatus::NoSuchFile) {
        place.Problem = reply.Status();
      }
    }
  }

private:
  static constexpr std::array<TSftpPacket, 3> Questions{TSftpPacket::RealPath, TSftpPacket::LStat,
                                                        TSftpPacket::Stat};

  std::unordered_map<std::string, TPlace>& FPlaces;
  const std::vector<std::string> FPaths;
  std::size_t FNext = 0;
};

// Makes directories in their order and looks at each at once: one that was not made may be there.
class TSftpPaths::TMaking final : public ISftpExchange {
public:
  explicit TMaking(std::vector<std::string> paths)
      : FPaths(std::move(paths)), FFound(FPaths.size()), Problems(FPaths.size()),
        IsNew(FPaths.size(), false) {}

  bool PostNext(TSftpChannel& channel) override {
    if (FNext == FPaths.size())
      return false;
    TSftpWriter& writer = channel.Begin(TSftpPacket::MakeDirectory);
    writer.Text(FPaths[FNext]);
    writer.Attributes({});
    channel.Post(FNext);
    channel.Post(TSftpPacket::Stat, FPaths[FNext], FNext + FPaths.size());
    ++FNext;
    return true;
  }

  void OnReply(TSftpChannel&, std::uint64_t cookie, const TSftpReply& reply) override {
    if (cookie < FPaths.size()) {
      IsNew[cookie] = reply.Status() == TSftpStatus::Ok;
      if (!IsNew[cookie])
        Problems[cookie] = "making the directory " + Visible(FPaths[cookie]) + ": " +
                           SftpStatusText(reply.Status());
    } else if (const auto attributes = AttributesOf(reply)) {
      FFound[cookie - FPaths.size()] = KindOf(*attributes);
    }
    const std::size_t index = cookie % FPaths.size();
    if (const auto found = FFound[index]; found && !IsNew[index])
      Problems[index] = *found == sftp_kind::Directory
                            ? std::string()
                            : Visible(FPaths[index]) + " is there and is no directory";
  }

private:
  const std::vector<std::string> FPaths;
  std::vector<std::optional<std::uint32_t>> FFound; // what is there
  std::size_t FNext = 0;

public:
  std::vector<std::string> Problems;
  std::vector<bool> IsNew;
};

std::vector<std::string> PathsTo(std::string_view path) {
  std::vector<std::string> paths;
  for (std::size_t end = path.find('/', 1); end != std::string_view::npos;
       end = path.find('/', end + 1))
    paths.emplace_back(path.substr(0, end));
  paths.emplace_back(path);
  return paths;
}

std::string TSftpPaths::Home(const std::string& name) {
  std::string path;
  FChannel.Post(TSftpPacket::RealPath, name, 0);
  AskOnce(FChannel, [&path](const TSftpReply& reply) { path = NameOf(reply); });
  if (path.empty())
    throw TConnectionError("the machine does not tell where \"" + Visible(name) + "\" is");
  return path;
}

std::vector<TRemoteDirectory> TSftpPaths::Resolve(std::span<const std::string> paths) {
  std::vector<std::string> asked;
  for (const std::string& path : paths) {
    for (std::string& part : PathsTo(path)) {
      if (FPlaces.try_emplace(part).second)
        asked.push_back(std::move(part));
    }
  }
  TExamination examination(FPlaces, std::move(asked));
  try {
    FChannel.Run(examination);
  } catch (const TConnectionError&) {
    FPlaces.clear(); // what was not answered is not known
    throw;
  }
  std::vector<TRemoteDirectory> result;
  result.reserve(paths.size());
  for (const std::string& path : paths)
    result.push_back(Answer(path));
  return result;
}

TRemoteDirectory TSftpPaths::Answer(const std::string& path) const {
  const auto refused = [](const std::string& part, const std::string& reason) {
    return TRemoteDirectory{.Path = {}, .Problem = Visible(part) + " " + reason};
  };
  std::vector<std::string> parts = PathsTo(path);
  std::string rest;
  while (!parts.empty()) {
    const std::string& part = parts.back();
    const TPlace& place = FPlaces.at(part);
    if (place.Problem != TSftpStatus::Ok)
      return refused(part, "cannot be examined: " + SftpStatusText(place.Problem));
    if (place.IsLink && (!place.Exists || place.Real.empty() || place.Real == part))
      return refused(part, "is a link that cannot be followed");
    if (place.Exists && !place.IsDirectory)
      return refused(part, "is a file, not a directory");
    if (place.Exists)
      return {.Path = (place.Real.empty() || place.Real == "/" ? part : place.Real) + rest,
              .Exists = rest.empty()};
    rest.insert(0, part.substr(part.find_last_of('/')));
    parts.pop_back();
  }
  return {.Path = path, .Exists = false};
}

std::vector<std::string> TSftpPaths::Make(std::span<const std::string> paths) {
  std::unordered_map<std::string, std::size_t> known;
  std::vector<std::string> wanted;
  for (const std::string& path : paths) {
    for (const std::string& part : PathsTo(path)) {
      const auto place = FPlaces.find(part);
      const bool exists = place != FPlaces.end() && place->second.Exists;
      if (!exists && known.emplace(part, wanted.size()).second)
        wanted.push_back(part);
    }
  }
  TMaking making(wanted);
  FChannel.Run(making);
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    if (making.IsNew[i])
      FMade.insert(wanted[i]);
  }
  std::vector<std::string> problems;
  problems.reserve(paths.size());
  for (const std::string& path : paths) {
    std::string& problem = problems.emplace_back();
    for (const std::string& part : PathsTo(path)) {
      const auto made = known.find(part);
      if (problem.empty() && made != known.end())
        problem = making.Problems[made->second];
    }
  }
  return problems;
}

} // namespace workbench
