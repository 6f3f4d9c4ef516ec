// Reads and writes the record of a project on a target.
#pragma once

#include "workbench/deploy/record/sent_text.h"
#include "workbench/deploy/record/target_record.h"
#include "workbench/remote/target/remote_connection.h"

#include <string>
#include <string_view>

namespace workbench {

/// The place of one project's record. Connections that are handed in lead to one target; several
/// may be used in turn. Every call may throw TConnectionError.
class TRecordStore {
public:
  /// `root` is the project's root name on the platform, as stored.
  TRecordStore(IRemoteConnection& connection, std::string_view root);

  /// Why there can be no record, such as a directory that leads elsewhere; empty when there can.
  const std::string& Problem() const { return FProblem; }
  /// The directory, resolved.
  const std::string& Directory() const { return FDirectory; }

  TRecordReading Read(IRemoteConnection& connection) const;
  /// The same in two parts: what stands there, and what it says, which needs no connection.
  TRemoteContent ReadContent(IRemoteConnection& connection) const;
  static TRecordReading ReadingOf(const TRemoteContent& content);
  /// Makes the directory; the reason when that failed.
  std::string MakeDirectory(IRemoteConnection& connection);
  /// Puts the record in place whole, with these runs in the stead of its own; the reason when that
  /// failed.
  std::string Write(IRemoteConnection& connection, const TTargetRecord& record,
                    const std::vector<TRecordedRun>& runs) const;
  /// The same of a record that was written before.
  std::string Write(IRemoteConnection& connection, const TSentText& record) const;
  /// Keeps a damaged record under another name; the reason when that failed.
  std::string SetAside(IRemoteConnection& connection) const;
  /// Removes files that deploys which ended badly left unfinished beside the record and beside what
  /// is kept for undo. While the target is locked. Throws TConnectionError.
  void RemoveUnfinished(IRemoteConnection& connection) const;

private:
  std::string FDirectory;
  std::string FProblem;
  bool FExists = false;
};

} // namespace workbench
