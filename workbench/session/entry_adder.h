// Puts entries on the list of a project.
#pragma once

#include "package/common/class_names.h"
#include "workbench/session/session.h"

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace deployment {
class TTargetEntries;
}

namespace workbench {

/// What an entry is made with.
struct TNewEntry {
  std::string LocalName; ///< as it is stored
  std::string Configuration;
  std::vector<std::string> Platforms; ///< one for one target; several: one entry that has them all
  std::string Class{deployment::class_names::File};
  std::string RemoteDir = {};    ///< empty: the platform's default
  std::string SubDirectory = {}; ///< below that, with a delimiter at its end; may be empty
  std::string RemoteName = {};   ///< empty: that of the local file
  bool Enabled = true;
};

/// What was done about an entry.
enum class TAddOutcome {
  Added,
  Extended, ///< an entry of the file was there and has more platforms now
  Present,  ///< the list of every target has the file already; it stays as the user made it
};

/// Adds many entries to one project; what the list holds is looked at once. Project and table must
/// outlive the object, and nobody else may change the list meanwhile.
class TEntryAdder {
public:
  TEntryAdder(TOpenProject& project, const TPlatformTable& platforms);
  ~TEntryAdder();
  TEntryAdder(const TEntryAdder&) = delete;
  TEntryAdder& operator=(const TEntryAdder&) = delete;

  TAddOutcome Add(const TNewEntry& entry);

private:
  using TFile = std::shared_ptr<deployment::IProjectDeploymentFile>;

  std::vector<TFile> Namesakes(const std::string& localName) const;
  bool IsListed(const std::vector<TFile>& namesakes, const std::string& configuration,
                const std::string& platform);
  TFile FindOwn(const std::vector<TFile>& namesakes, const TNewEntry& entry,
                const std::vector<std::string>& missing) const;
  void FillRecord(const TNewEntry& entry, const std::string& platform,
                  deployment::IProjectDeploymentFile& file) const;

  TOpenProject& FProject;
  const TPlatformTable& FPlatforms;
  std::unordered_multimap<std::string, TFile> FByName; ///< by folded local name
  std::unordered_map<std::string, std::unique_ptr<deployment::TTargetEntries>> FTargets;
};

} // namespace workbench
