// Why the entries of a deployment are what they are: what the steps of a reconcile tell of their
// decisions. Part of the deployment contract.
#pragma once

#include <string>

namespace deployment {

/// The steps of a reconcile, in the order in which they run.
enum class TReconcileStep {
  Packages,
  ProjectOutput,
  DebugSymbols,
  OSXDefaults,
  iOSDefaults,
  AndroidDefaults,
  Artwork,
  ProjectFiles,
};

/// What a step did about one file.
enum class TReconcileOutcome {
  Added,   ///< an entry was made
  Updated, ///< an entry that was there changed
  Kept,    ///< an entry that was there is right as it is
  Removed, ///< an entry was taken out
  Skipped, ///< the file gets no entry
};

/// Where a step had the local name from, or the word that made it remove or skip a file.
enum class TReasonSource {
  Gate,            ///< the target as a whole; SourceName says what about it
  OutputFile,      ///< the host's name for what the target builds
  BesideOutput,    ///< a fixed name in the directory of the output
  PackageService,  ///< the personality's list of runtime packages
  SymbolService,   ///< the personality's extension of symbol files
  Option,          ///< the option SourceName of the target
  SDK,             ///< the development kit SourceName of the platform
  IDEFile,         ///< a file that ships with the IDE
  FileSearch,      ///< the search of a module; SourceName is the place that was looked at
  ProjectFileList, ///< the files that belong to the project
  OtherEntry,      ///< another entry; SourceName is its class
};

/// What decided, where a source alone does not say it.
enum class TReasonCause {
  None,
  Empty,             ///< the source names nothing
  SwitchedOff,       ///< the source says no
  FileMissing,       ///< there is no such file
  NoLongerNamed,     ///< the source does not name the file any more
  OwnOutput,         ///< the project does not depend on itself
  WrongImage,        ///< a file of the name is there, but built for something else
  NotFound,          ///< no such file was found anywhere
  ServiceMissing,    ///< the host cannot be asked
  WrongKind,         ///< the step does not work for this kind of program
  WrongPlatform,     ///< the step does not work for this platform
  ExcludedExtension, ///< files of that extension are not deployed
  OtherDevices,      ///< the devices that the program is for do not show it
  FileHasOtherRole,  ///< the file is the entry of another class; one file has one entry
  NothingBuilt,      ///< a build of the target makes nothing to deploy; the source says why
};

/// One decision of one step.
struct TReconcileReason {
  TReconcileStep Step = TReconcileStep::ProjectOutput;
  TReconcileOutcome Outcome = TReconcileOutcome::Kept;
  std::string ClassName; ///< empty where the decision is about no class
  std::string LocalName; ///< as stored; empty where the decision is about no file
  TReasonSource Source = TReasonSource::Gate;
  std::string SourceName;
  std::string SourceValue; ///< what the source answered
  TReasonCause Cause = TReasonCause::None;
};

/// Takes the decisions as they are made. Implemented by who asks for a reconcile.
class IReconcileJournal {
public:
  virtual ~IReconcileJournal() = default;
  virtual void Record(const TReconcileReason& reason) = 0;
};

} // namespace deployment
