// Entries and classes of a deployment as plain values: taken from it, compared, put back.
#pragma once

#include "package/host/api/deploymentapi.h"

#include <string>
#include <vector>

namespace workbench {

// A field that is added to a record is added to record_fields.h, which does not compile without it,
// and to the two functions of entry_record.cpp that take it from the deployment and put it back.

/// What a file keeps for one platform.
struct TFilePlatformRecord {
  std::string Platform;
  bool Enabled = true;
  bool Overwrite = true;
  std::string RemoteDir;
  std::string RemoteName; ///< as stored: empty when it is that of the local file
  deployment::TDeployOperation Operation = deployment::TDeployOperation::Default;
  deployment::TCommandList LocalCommands;
  deployment::TCommandList RemoteCommands;

  bool operator==(const TFilePlatformRecord&) const = default;
};

/// What a class keeps for one platform.
struct TClassPlatformRecord {
  std::string Platform;
  std::string RemoteDir;
  deployment::TDeployOperation Operation = deployment::TDeployOperation::Default;
  std::string Extensions;
  deployment::TCommandList LocalCommands;
  deployment::TCommandList RemoteCommands;

  bool operator==(const TClassPlatformRecord&) const = default;
};

/// The names under which an entry was put into its deployment, which finds it by them.
struct TEntryKey {
  std::string Configuration;
  std::string Platform;
  std::string LocalName;

  bool operator==(const TEntryKey&) const = default;
};

/// All that a deployment stores of one file entry.
struct TEntryRecord {
  TEntryKey Names; ///< as they are now; the entry may have been added under others
  std::string Class;
  std::string Condition;
  bool Required = false;
  std::vector<TFilePlatformRecord> Platforms; ///< in order

  bool operator==(const TEntryRecord&) const = default;
};

/// All that a deployment stores of one class.
struct TClassRecord {
  std::string Id;
  std::string Description;
  std::string Condition;
  bool Required = false;
  std::vector<TClassPlatformRecord> Platforms; ///< in order

  bool operator==(const TClassRecord&) const = default;
};
using TClassRecords = std::vector<TClassRecord>;

TEntryKey NamesOf(const deployment::IProjectDeploymentFile& file);
TEntryRecord RecordOf(deployment::IProjectDeploymentFile& file);
TClassRecord RecordOf(deployment::IProjectDeploymentClass& deploymentClass);
/// All classes in order.
TClassRecords ClassRecordsOf(const deployment::IProjectDeployment& deployment);

/// Makes the entry equal to the record, the order of its platforms included. Listeners hear of
/// some of it, so that whoever calls this tells them.
void Apply(const TEntryRecord& record, deployment::IProjectDeploymentFile& file);
void Apply(const TClassRecord& record, deployment::IProjectDeploymentClass& deploymentClass);

/// What a project file keeps of the record: of several commands the last one, and the platform for
/// which an entry was made not at all.
TEntryRecord AsStored(TEntryRecord record);

} // namespace workbench
