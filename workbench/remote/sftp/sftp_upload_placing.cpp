// The last steps of an upload: a whole file takes its final name.
#include "workbench/remote/sftp/sftp_upload_file.h"

namespace workbench {

void TSftpUpload::Post(TSftpChannel& channel, TFile& file, TStep step) {
  ++file.Waiting;
  channel.Post(file.Slot * StepRange + static_cast<std::uint64_t>(step));
}

void TSftpUpload::PostRename(TSftpChannel& channel, TFile& file) const {
  file.IsRenamed = true;
  if (!FLimits.HasPosixRename)
    return PostPlainRename(channel, file, file.Name, file.Request->Target.Name, TStep::Rename);
  TSftpWriter& writer = channel.BeginExtended(sftp_extension::PosixRename);
  writer.Text(file.Path(file.Name));
  writer.Text(file.Path(file.Request->Target.Name));
  Post(channel, file, TStep::Rename);
  // A server takes requests in their order; one that does not is asked again.
  PostLook(channel, file);
}

void TSftpUpload::PostPlainRename(TSftpChannel& channel, TFile& file, const std::string& from,
                                  const std::string& to, TStep step) {
  TSftpWriter& writer = channel.Begin(TSftpPacket::Rename);
  writer.Text(file.Path(from));
  writer.Text(file.Path(to));
  Post(channel, file, step);
}

void TSftpUpload::PostLook(TSftpChannel& channel, TFile& file) {
  channel.Begin(TSftpPacket::LStat).Text(file.Path(file.Request->Target.Name));
  Post(channel, file, TStep::Look);
}

void TSftpUpload::Renamed(TSftpChannel& channel, TFile& file, TSftpStatus status) {
  if (status == TSftpStatus::Ok) {
    file.WasMade = false;
    if (!FLimits.HasPosixRename)
      PostLook(channel, file);
    return;
  }
  if (FLimits.HasPosixRename) {
    file.Outcome.Problem = "putting it in place: " + SftpStatusText(status);
    return;
  }
  // A plain rename does not replace what is there.
  file.Aside = FNames.Next({});
  PostPlainRename(channel, file, file.Request->Target.Name, file.Aside, TStep::SetAside);
}

void TSftpUpload::RenamedAgain(TSftpChannel& channel, TFile& file, TSftpStatus status) {
  if (status == TSftpStatus::Ok) {
    file.WasMade = false;
    return PostLook(channel, file); // what stood there goes when the new file is seen in its place
  }
  file.Outcome.Problem = "putting it in place: " + SftpStatusText(status);
  BringBack(channel, file);
}

void TSftpUpload::BringBack(TSftpChannel& channel, TFile& file) {
  PostPlainRename(channel, file, file.Aside, file.Request->Target.Name, TStep::PutBack);
}

void TSftpUpload::PutBack(TFile& file, TSftpStatus status) {
  if (status != TSftpStatus::Ok)
    file.Outcome.Problem += "; what stood there has the name " + file.Aside + " now";
}

// What a server says of its own deeds is compared with what is there.
void TSftpUpload::Looked(TSftpChannel& channel, TFile& file, const TSftpReply& reply) {
  if (file.Outcome.Problem.empty()) {
    std::string problem = WhatIsWrong(file, reply);
    if (!problem.empty() && file.IsRenamed && FLimits.HasPosixRename && !file.IsLookedAtAgain) {
      file.IsLookedAtAgain = true;
      return PostLook(channel, file);
    }
    file.Outcome.Problem = std::move(problem);
  }
  if (!file.IsRenamed || file.Aside.empty())
    return;
  if (!file.Outcome.Problem.empty())
    return BringBack(channel, file);
  channel.Begin(TSftpPacket::Remove).Text(file.Path(file.Aside));
  Post(channel, file, TStep::Remove);
}

std::string TSftpUpload::WhatIsWrong(const TFile& file, const TSftpReply& reply) {
  if (reply.Kind != TSftpPacket::Attributes)
    return "looking at it on the target: " + SftpStatusText(reply.Status());
  TSftpParser content = reply.Content;
  const std::optional<std::uint64_t> size = content.Attributes().Size;
  if (!size)
    return "looking at it on the target: the server does not say how long it is";
  if (*size != file.Size())
    return "the target has " + std::to_string(*size) + " of its " + std::to_string(file.Size()) +
           " bytes";
  return {};
}

} // namespace workbench
