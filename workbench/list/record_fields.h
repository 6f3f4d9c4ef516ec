// The fields of records, each named once: every form of a record is a walk over them.
#pragma once

#include "workbench/list/entry_record.h"

#include <concepts>
#include <type_traits>

namespace workbench {

/// A record of that type, to be read or to be filled.
template <class TRecord, class TWanted>
concept CRecordOf = std::same_as<std::remove_const_t<TRecord>, TWanted>;

// VisitFields hands the fields of a record to a visitor, in the order in which documents show them:
//   Key(name, text)             says which record it is
//   Field(name, value, absent)  a text, a Boolean, an operation or a list of commands, and the
//   value
//                               that a new record has
//   Platform(text)              the platform that the record is for
//   Platforms(records)          the records for platforms, in order
// The fields are taken apart by structured bindings, so that a record with a new field does not
// compile before the field is named here.

template <class TVisitor, CRecordOf<TFilePlatformRecord> TRecord>
void VisitFields(TVisitor& visitor, TRecord& record) {
  auto& [platform, enabled, overwrite, remoteDir, remoteName, operation, localCommands,
         remoteCommands] = record;
  visitor.Platform(platform);
  visitor.Field("enabled", enabled, true);
  visitor.Field("overwrite", overwrite, true);
  visitor.Field("remoteDir", remoteDir, {});
  visitor.Field("remoteName", remoteName, {});
  visitor.Field("operation", operation, deployment::TDeployOperation::Default);
  visitor.Field("localCommands", localCommands, {});
  visitor.Field("remoteCommands", remoteCommands, {});
}

template <class TVisitor, CRecordOf<TClassPlatformRecord> TRecord>
void VisitFields(TVisitor& visitor, TRecord& record) {
  auto& [platform, remoteDir, operation, extensions, localCommands, remoteCommands] = record;
  visitor.Platform(platform);
  visitor.Field("remoteDir", remoteDir, {});
  visitor.Field("operation", operation, deployment::TDeployOperation::Default);
  visitor.Field("extensions", extensions, {});
  visitor.Field("localCommands", localCommands, {});
  visitor.Field("remoteCommands", remoteCommands, {});
}

template <class TVisitor, CRecordOf<TEntryRecord> TRecord>
void VisitFields(TVisitor& visitor, TRecord& record) {
  auto& [names, className, condition, required, platforms] = record;
  auto& [configuration, platform, localName] = names;
  visitor.Key("localName", localName);
  visitor.Key("configuration", configuration);
  visitor.Key("class", className);
  visitor.Key("platform", platform);
  visitor.Field("condition", condition, {});
  visitor.Field("required", required, false);
  visitor.Platforms(platforms);
}

template <class TVisitor, CRecordOf<TClassRecord> TRecord>
void VisitFields(TVisitor& visitor, TRecord& record) {
  auto& [id, description, condition, required, platforms] = record;
  visitor.Key("name", id);
  visitor.Field("description", description, {});
  visitor.Field("condition", condition, {});
  visitor.Field("required", required, false);
  visitor.Platforms(platforms);
}

} // namespace workbench
