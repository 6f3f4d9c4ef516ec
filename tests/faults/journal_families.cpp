// Unsaved edits: whatever happens, the edits that were told to be kept can be had back in their
// order, each entry once, and a fault is told.
#include "tests/faults/family.h"
#include "tests/faults/sample_project.h"

#include <functional>
#include <utility>

namespace faults {
namespace {

constexpr std::size_t MostEdits = 5;

std::size_t OccurrencesOf(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
    ++count;
  return count;
}

std::string AddedEntry(std::size_t number) {
  return "LocalName=\"added\\n" + std::to_string(number) + ".dat\"";
}

enum class TJournalRun { Edit, Save, Recover, SaveWithJournal };

class TJournalFamily final : public IFamily {
public:
  TJournalFamily(std::string name, TJournalRun run) : FName(std::move(name)), FRun(run) {}

  std::string Name() const override { return FName; }
  std::size_t MostCalls() const override { return 120; }

  void SetUp(TFaultPlace& place) override {
    WriteSampleProject(place);
    if (FRun == TJournalRun::Recover || FRun == TJournalRun::SaveWithJournal)
      RunPlainly(Probe(place, "edit"));
    // As when a save was done and the program ended before it gave the journal up.
    if (FRun == TJournalRun::SaveWithJournal)
      for (std::size_t i = 1; i <= MostEdits; ++i)
        place.Prepare({"add", "demo.vproj", "added\\n" + std::to_string(i) + ".dat", "--missing-ok",
                       "-c", "Base", "--remote-dir", "data\\"});
    place.Keep();
    FOldProject = place.Read("demo.vproj");
  }

  TProgramStart Run(const TFaultPlace& place) const override {
    const bool recovers = FRun == TJournalRun::Recover || FRun == TJournalRun::SaveWithJournal;
    return Probe(place, recovers ? "recover" : FRun == TJournalRun::Save ? "save" : "edit");
  }

  void Learn(const TFaultPlace& place, const TRunEnd& /*end*/) override {
    FNewProject = place.Read("demo.vproj");
  }

  TBroken Check(const TFaultPlace& place, const TRunEnd& end) const override {
    if (TBroken broken = CheckManners(end))
      return broken;
    const std::string project = place.Read("demo.vproj");
    if (project != FOldProject && project != FNewProject)
      return "the project is neither old nor new";
    const std::size_t told = OccurrencesOf(end.Output, "edit ");
    const TRunEnd recovery = RunPlainly(Probe(place, "recover"));
    if (recovery.Status != 0)
      return "the recovery ends with " + std::to_string(recovery.Status) + ": " + recovery.Errors;
    return CheckRecovered(place.Read("demo.vproj"), told, end);
  }

private:
  static TProgramStart Probe(const TFaultPlace& place, const char* what) {
    return place.Probe({what, place.Path("demo.vproj").string()});
  }

  // The entries are there once each, in order and without a gap. Edits that were done and not
  // saved are lost only where the journal said that it cannot keep them.
  TBroken CheckRecovered(const std::string& project, std::size_t told, const TRunEnd& end) const {
    std::size_t found = 0;
    for (std::size_t i = 1; i <= MostEdits; ++i) {
      const std::size_t count = OccurrencesOf(project, AddedEntry(i));
      if (count > 1)
        return "the list has " + std::to_string(count) + " entries of one file";
      if (count == 1 && found != i - 1)
        return "an edit is missing between others";
      found += count;
    }
    const bool hadAll = FRun == TJournalRun::Recover || FRun == TJournalRun::SaveWithJournal;
    if (hadAll && found != MostEdits)
      return "of " + std::to_string(MostEdits) + " edits " + std::to_string(found) + " are left";
    if (found < told && (end.WasEnded() || (end.Errors.empty() && !end.HitsMessages)))
      return "of " + std::to_string(told) + " edits " + std::to_string(found) +
             " are left, and nobody was told";
    return std::nullopt;
  }

  std::string FName;
  TJournalRun FRun;
  std::string FOldProject;
  std::string FNewProject;
};

} // namespace

TFamilies JournalFamilies() {
  const auto make = [](const char* name, TJournalRun run) {
    return std::make_unique<TJournalFamily>(name, run);
  };
  TFamilies families;
  families.push_back(make("journal: five edits, no save", TJournalRun::Edit));
  families.push_back(make("journal: five edits, save, removal", TJournalRun::Save));
  families.push_back(make("journal: recovery and save", TJournalRun::Recover));
  families.push_back(make("journal: recovery of what was saved", TJournalRun::SaveWithJournal));
  return families;
}

} // namespace faults
