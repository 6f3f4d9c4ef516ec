// A file that an upload is busy with.
#pragma once

#include "workbench/files/sha256.h"
#include "workbench/remote/sftp/sftp_upload.h"

#include <memory>
#include <string>

namespace workbench {

/// A request's cookie is the number of the file's slot times this, plus the step.
inline constexpr std::uint64_t StepRange = 16;

struct TSftpUpload::TFile {
  explicit TFile(std::size_t slot) : Slot(slot) {}

  std::size_t Slot;
  const TSendRequest* Request = nullptr;
  TFileDescriptor Source;
  struct stat Status = {};
  std::string Name;   // of the unfinished file
  std::string Handle; // of the server
  std::uint64_t Offset = 0;
  unsigned Waiting = 0;  // requests without an answer
  bool IsOpen = false;   // on the server
  bool IsQueued = false; // waits for its turn to write
  bool WasMade = false;  // the unfinished file is there
  bool IsWhole = false;  // all requests that make it whole are out
  bool IsRenamed = false;
  bool IsLookedAtAgain = false; // in its place, after a first look that did not see it there
  std::string Aside;            // the name of what stood under the final one, while it makes room
  bool WriteFailed = false;     // for a reason that the server does not tell
  bool CanStay = false;         // a later run can go on with it
  unsigned Attempts = 0;
  std::unique_ptr<TSHA256> Digest; // of what is sent; none when a part was there already
  TSendOutcome Outcome = {};

  std::uint64_t Size() const { return static_cast<std::uint64_t>(Status.st_size); }
  std::string Path(const std::string& name) const { return Request->Target.Directory + "/" + name; }
};

} // namespace workbench
