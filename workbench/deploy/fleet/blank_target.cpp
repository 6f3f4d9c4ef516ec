#include "workbench/deploy/fleet/blank_target.h"

namespace workbench {
namespace {

constexpr const char* Nothing = "nothing can be done on a machine that nobody is connected to";

std::vector<std::string> NothingFor(std::size_t count) {
  return std::vector<std::string>(count, Nothing);
}

} // namespace

TBlankTarget::TBlankTarget(std::string root) : FRoot(std::move(root)) {
  while (FRoot.ends_with('/'))
    FRoot.pop_back();
}

std::vector<TRemoteDirectory> TBlankTarget::Resolve(std::span<const std::string> directories) {
  std::vector<TRemoteDirectory> result;
  result.reserve(directories.size());
  for (const std::string& directory : directories)
    result.push_back({.Path = directory.empty() ? FRoot : FRoot + "/" + directory});
  return result;
}

std::vector<TRemoteStatus> TBlankTarget::Examine(std::span<const TRemoteName> names) {
  return std::vector<TRemoteStatus>(names.size());
}

std::vector<std::string> TBlankTarget::MakeDirectories(std::span<const std::string> directories) {
  return NothingFor(directories.size());
}

void TBlankTarget::Send(ISendJob& job) {
  while (const TSendRequest* request = job.Next())
    job.FileDone(*request, {.Problem = Nothing});
}

std::vector<std::string> TBlankTarget::Hashes(std::span<const TRemoteName> names) {
  return std::vector<std::string>(names.size());
}

TRemoteContent TBlankTarget::ReadFile(const TRemoteName& /*name*/, std::uint64_t /*limit*/) {
  return {};
}

TRemoteCreation TBlankTarget::CreateFile(const TRemoteName& /*name*/, std::string_view /*text*/,
                                         deployment::TFileTime /*time*/) {
  return {TRemoteCreation::TResult::Failed, Nothing};
}

std::string TBlankTarget::Rename(const TRemoteName& /*name*/, const std::string& /*newName*/) {
  return Nothing;
}

std::vector<std::string> TBlankTarget::Stamp(std::span<const TRemoteStamp> stamps) {
  return NothingFor(stamps.size());
}

std::string TBlankTarget::Remove(const TRemoteName& /*name*/) {
  return Nothing;
}

std::vector<std::string> TBlankTarget::RemoveAll(std::span<const TRemoteName> names) {
  return NothingFor(names.size());
}

std::vector<std::string> TBlankTarget::Keep(std::span<const TRemoteCopy> copies) {
  return NothingFor(copies.size());
}

std::vector<std::string> TBlankTarget::Move(std::span<const TRemoteCopy> moves) {
  return NothingFor(moves.size());
}

std::vector<TRemoteLink> TBlankTarget::ReadLinks(std::span<const TRemoteName> names) {
  return std::vector<TRemoteLink>(names.size());
}

std::string TBlankTarget::MakeLink(const TRemoteName& /*name*/, const std::string& /*text*/) {
  return Nothing;
}

std::string TBlankTarget::RunCommand(const std::string& /*command*/,
                                     const std::string& /*directory*/, const THearLine& /*hear*/,
                                     const std::atomic<int>& /*cancelled*/) {
  return Nothing;
}

} // namespace workbench
