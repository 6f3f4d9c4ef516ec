#include "workbench/history/recovery.h"

#include "package/common/errors.h"
#include "workbench/files/file_reader.h"
#include "workbench/history/list_replay.h"
#include "workbench/history/recovery_format.h"
#include "workbench/list/entry_restore.h"
#include "workbench/list/packed_record.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <sys/file.h>
#include <unordered_map>
#include <utility>

namespace workbench {
namespace {

using deployment::TInputError;

constexpr std::string_view JournalKind = "recovery journal";

// The journal, locked; nothing when a program that runs holds it.
std::optional<TFileDescriptor> LockJournal(const std::filesystem::path& file) {
  TFileDescriptor opened = OpenPlainFile(file, JournalKind);
  if (::flock(opened.Get(), LOCK_EX | LOCK_NB) != 0)
    return std::nullopt;
  return opened;
}

TFileDescriptor LockForUse(const std::filesystem::path& file) {
  auto locked = LockJournal(file);
  if (!locked)
    throw TInputError("the recovery journal is in use by another run", {file.string(), 0});
  return std::move(*locked);
}

TJournalContent ReadJournal(const std::filesystem::path& file) {
  return ParseJournal(ReadWholeFile(file, MaximumJournalSize, JournalKind).Text(), file);
}

std::string NameText(const TEntryKey& names) {
  return names.Configuration + '\0' + names.Platform + '\0' + names.LocalName;
}

// Follows entries through the steps, to see which are not what they were at first.
class TNetChange {
public:
  void Add(const TEntryDifference& difference, bool isComputed) {
    TCourse& course = CourseOf(difference);
    course.IsEdited = course.IsEdited || !isComputed;
    FHeld.erase(course.Last);
    course.Last = difference.After ? Pack(*difference.After) : std::string();
    const auto index = static_cast<std::size_t>(&course - FCourses.data());
    if (difference.After)
      FHeld.insert_or_assign(course.Last, index);
    else if (difference.Before)
      FGone.insert_or_assign(NameText(difference.Before->Names), index);
  }

  /// True when the list holds all that the steps led to, and nothing that they took away.
  bool IsOutcome(const deployment::TDeploymentFiles& files) const {
    std::unordered_map<std::string, std::size_t> held;
    for (const auto& file : files)
      ++held[Pack(AsStored(RecordOf(*file)))];
    const auto stored = [](const std::string& packed) { return Pack(AsStored(Unpack(packed))); };
    for (const TCourse& course : FCourses) {
      if (!course.Last.empty() && held[stored(course.Last)]-- == 0)
        return false;
    }
    return std::ranges::none_of(FCourses, [&](const TCourse& course) {
      return course.Last.empty() && !course.First.empty() && held[stored(course.First)] > 0;
    });
  }

  /// Entries that an edit left in another state; what is computed comes back by itself.
  std::size_t Count() const {
    return static_cast<std::size_t>(std::ranges::count_if(FCourses, [](const TCourse& course) {
      return course.IsEdited && course.First != course.Last;
    }));
  }

private:
  // One entry's. Packed; empty while the entry was not there.
  struct TCourse {
    std::string First;
    std::string Last;
    bool IsEdited = false;
  };

  TCourse& CourseOf(const TEntryDifference& difference) {
    std::string before = difference.Before ? Pack(*difference.Before) : std::string();
    if (difference.Before) {
      if (const auto held = FHeld.find(before); held != FHeld.end())
        return FCourses[held->second];
    } else if (difference.After) {
      if (const auto gone = FGone.find(NameText(difference.After->Names)); gone != FGone.end()) {
        const std::size_t index = gone->second;
        FGone.erase(gone);
        return FCourses[index];
      }
    }
    FCourses.push_back({before, before});
    return FCourses.back();
  }

  std::vector<TCourse> FCourses;
  std::unordered_map<std::string, std::size_t> FHeld; // by what the entry is now
  std::unordered_map<std::string, std::size_t> FGone; // by its last names
};

TProjectState StateOf(const TJournalContent& content) {
  std::error_code ignored;
  if (!std::filesystem::exists(content.Project, ignored))
    return TProjectState::Gone;
  const TFileBase now = BaseOf(content.Project);
  return now == content.Base && !now.SHA256.empty() ? TProjectState::Same : TProjectState::Changed;
}

std::chrono::system_clock::time_point TimeOf(const TFileDescriptor& file) {
  struct stat status = {};
  if (::fstat(file.Get(), &status) != 0)
    return {};
  return std::chrono::system_clock::time_point(
      std::chrono::seconds(status.st_mtim.tv_sec) +
      std::chrono::microseconds(status.st_mtim.tv_nsec / 1000));
}

// Nothing when the journal is in use or does not change anything.
std::optional<TRecoverable> LookAt(const std::filesystem::path& file) {
  const auto locked = LockJournal(file);
  if (!locked)
    return std::nullopt;
  const TJournalContent content = ReadJournal(file);
  TRecoverable found;
  TNetChange net;
  for (const TListChange& step : content.Steps) {
    for (const TEntryDifference& difference : step.Entries)
      net.Add(difference, step.IsComputed);
    found.ChangesClasses = found.ChangesClasses || (step.Classes && !step.IsComputed);
  }
  found.Journal = file;
  found.Project = content.Project;
  found.When = TimeOf(*locked);
  found.ChangedEntries = net.Count();
  found.IsDamaged = content.IsDamaged;
  if (found.ChangedEntries == 0 && !found.ChangesClasses && !found.IsDamaged) {
    ::unlink(file.c_str());
    return std::nullopt;
  }
  found.State = StateOf(content);
  return found;
}

// A program that was killed behind its save left edits that the file has already.
bool IsSaved(const TJournalContent& content, const deployment::IProjectDeployment& deployment,
             const deployment::TDeploymentFiles& files) {
  TNetChange net;
  std::shared_ptr<const TClassRecords> classes;
  for (const TListChange& step : content.Steps) {
    for (const TEntryDifference& difference : step.Entries)
      net.Add(difference, step.IsComputed);
    if (step.Classes)
      classes = step.Classes;
  }
  return net.IsOutcome(files) && (!classes || *classes == ClassRecordsOf(deployment));
}

std::vector<std::filesystem::path> JournalFiles() {
  std::vector<std::filesystem::path> files;
  std::error_code error;
  std::filesystem::directory_iterator entry(RecoveryDirectory(), error);
  for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
    if (entry->path().native().ends_with(JournalEnding))
      files.push_back(entry->path());
  }
  std::ranges::sort(files);
  return files;
}

} // namespace

TRecoverySearch FindRecoverable() {
  TRecoverySearch search;
  for (const std::filesystem::path& file : JournalFiles()) {
    try {
      if (auto found = LookAt(file))
        search.Found.push_back(std::move(*found));
    } catch (const TInputError& error) {
      search.Problems.push_back(file.string() + ": " + error.what());
    }
  }
  std::ranges::stable_sort(search.Found, {}, &TRecoverable::When);
  return search;
}

bool IsOfProject(const TRecoverable& recoverable, const std::filesystem::path& project) {
  std::error_code ignored;
  return recoverable.Project == std::filesystem::absolute(project, ignored).lexically_normal() ||
         std::filesystem::equivalent(recoverable.Project, project, ignored);
}

void Recover(const TRecoverable& recoverable, TOpenProject& project) {
  const TFileDescriptor locked = LockForUse(recoverable.Journal);
  const TJournalContent content = ReadJournal(recoverable.Journal);
  if (!IsOfProject(recoverable, project.GivenFileName()))
    throw TInputError("the recovery journal is of another project, " + recoverable.Project.string(),
                      {recoverable.Journal.string(), 0});
  deployment::IProjectDeployment& deployment = project.Deployment();
  const bool isSame = StateOf(content) == TProjectState::Same;
  if (!isSame && IsSaved(content, deployment, deployment.GetFiles()))
    return;
  // In a file that is what it was nothing was saved, so that entries are what their keys say.
  TListReplay replay(deployment, isSame ? TMatching::ByKey : TMatching::ByStoredNames);
  for (const TListChange& step : content.Steps)
    replay.Apply(step);
  replay.Finish();
  project.MarkChanged();
  NotifyListeners(deployment, nullptr);
}

void Discard(const TRecoverable& recoverable) {
  const TFileDescriptor locked = LockForUse(recoverable.Journal);
  if (::unlink(recoverable.Journal.c_str()) != 0)
    throw TInputError("the recovery journal cannot be removed: " + SystemReason(errno),
                      {recoverable.Journal.string(), 0});
}

} // namespace workbench
