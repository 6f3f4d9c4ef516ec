#include "workbench/project/build_configuration.h"

#include <unordered_set>

namespace workbench {
namespace {

void NoteParent(const TConfigurationRecord& record, std::string_view reason,
                TEvaluationNotes& notes) {
  notes.push_back({TNoteKind::WrongConfiguration,
                   "the parent \"" + record.Parent + "\" of the configuration \"" + record.Name +
                       "\" " + std::string(reason) + "; it inherits from \"" +
                       std::string(BaseConfigurationName) + "\"",
                   record.Place});
}

} // namespace

TConfigurationTree::TConfigurationTree(const std::vector<TConfigurationRecord>& records,
                                       const std::vector<std::string>& projectPlatforms,
                                       TEvaluationNotes& notes) {
  TConfigurationRecord base{std::string(BaseConfigurationName), {}, {}, {}};
  for (const TConfigurationRecord& record : records) {
    if (record.Name != BaseConfigurationName)
      continue;
    base = record;
    break;
  }
  Add(base, projectPlatforms);
  for (const TConfigurationRecord& record : records)
    Add(record, projectPlatforms);
  Connect(records, notes);
  BreakCircles(records, notes);
}

void TConfigurationTree::Add(const TConfigurationRecord& record,
                             const std::vector<std::string>& projectPlatforms) {
  if (FByName.contains(record.Name))
    return;
  FAll.push_back(std::make_unique<TBuildConfiguration>(
      record.Name, record.Platforms.empty() ? projectPlatforms : record.Platforms));
  FByName.emplace(record.Name, FAll.back().get());
}

void TConfigurationTree::Connect(const std::vector<TConfigurationRecord>& records,
                                 TEvaluationNotes& notes) {
  std::unordered_set<std::string_view> seen{BaseConfigurationName};
  for (const TConfigurationRecord& record : records) {
    if (!seen.insert(record.Name).second)
      continue;
    const auto parent =
        FByName.find(record.Parent.empty() ? std::string(BaseConfigurationName) : record.Parent);
    FByName.at(record.Name)->SetParent(parent == FByName.end() ? &Base() : parent->second);
    if (parent == FByName.end())
      NoteParent(record, "is not in the project", notes);
  }
}

// Walks up from each configuration until a chain that is known to reach the base one. A chain that
// meets itself is cut where it closes.
void TConfigurationTree::BreakCircles(const std::vector<TConfigurationRecord>& records,
                                      TEvaluationNotes& notes) {
  std::unordered_map<std::string, const TConfigurationRecord*> recordOf;
  for (const TConfigurationRecord& record : records)
    recordOf.emplace(record.Name, &record);
  std::unordered_set<const TBuildConfiguration*> good{&Base()};
  for (const auto& configuration : FAll) {
    std::unordered_set<const TBuildConfiguration*> chain;
    for (const TBuildConfiguration* step = configuration.get(); !good.contains(step);
         step = step->GetParent()) {
      chain.insert(step);
      if (!chain.contains(step->GetParent()))
        continue;
      NoteParent(*recordOf.at(step->GetName()), "inherits from it in turn", notes);
      FByName.at(step->GetName())->SetParent(&Base());
    }
    good.insert(chain.begin(), chain.end());
  }
}

const TBuildConfiguration* TConfigurationTree::Find(std::string_view name) const {
  const auto found = FByName.find(std::string(name));
  return found == FByName.end() ? nullptr : found->second;
}

} // namespace workbench
