// What only the window does, for runs that are hit: edits with a journal, their recovery, and a yes
// to commands.
//   fault_probe edit PROJECT      five edits, no save
//   fault_probe save PROJECT      five edits, a save, and no journal afterwards
//   fault_probe recover PROJECT   recovers what there is, saves, and gives the journal up
//   fault_probe consent PROJECT   keeps a yes
// "recovered" and the number of entries of the list are printed by "recover".
#include "package/common/errors.h"
#include "workbench/files/save_error.h"
#include "workbench/history/edit_history.h"
#include "workbench/history/recovery.h"
#include "workbench/history/recovery_journal.h"
#include "workbench/session/session.h"
#include "workbench/settings/command_consent.h"

#include <cstdio>
#include <exception>
#include <string>
#include <string_view>

namespace {

using namespace workbench;

constexpr int EditCount = 5;

// A journal that cannot be kept keeps nobody from editing, and is told.
class TEdited {
public:
  TEdited(TSession& session, const std::filesystem::path& file)
      : FProject(session.Open(file, TOpenPurpose::Edit)), FHistory(FProject), FJournal(file) {
    FHistory.SetOnStep([this](const TListChange& change) { FJournal.Append(change); });
  }

  TOpenProject& Project() { return FProject; }
  TEditHistory& History() { return FHistory; }
  TRecoveryJournal& Journal() { return FJournal; }
  void TellProblem() const {
    if (!FJournal.Problem().empty())
      std::fprintf(stderr, "%s\n", FJournal.Problem().c_str());
  }

private:
  TOpenProject& FProject;
  TEditHistory FHistory;
  TRecoveryJournal FJournal;
};

void Edit(TEdited& edited) {
  for (int i = 1; i <= EditCount; ++i) {
    const std::string name = "added\\n" + std::to_string(i) + ".dat";
    edited.Project().Deployment().AddFile("Base", "OSX32", name)->SetRemoteDir("OSX32", "data\\");
    edited.History().EndStep("add");
    std::printf("edit %d\n", i);
    std::fflush(stdout);
  }
  edited.TellProblem();
}

int EditAndEnd(TSession& session, const std::filesystem::path& file, bool saves) {
  TEdited edited(session, file);
  Edit(edited);
  if (saves) {
    edited.Project().Save(false);
    edited.Journal().Remove();
    edited.TellProblem();
  }
  return edited.Journal().Problem().empty() ? 0 : 1;
}

int RecoverAll(TSession& session, const std::filesystem::path& file) {
  const TRecoverySearch search = FindRecoverable();
  for (const std::string& problem : search.Problems)
    std::fprintf(stderr, "%s\n", problem.c_str());
  TEdited edited(session, file);
  for (const TRecoverable& recoverable : search.Found) {
    Recover(recoverable, edited.Project());
    edited.History().EndStep("recover", TLook::Everywhere);
    std::printf("recovered%s\n", recoverable.IsDamaged ? " in part" : "");
    edited.Project().Save(false);
    edited.Journal().Remove();
    Discard(recoverable);
  }
  edited.TellProblem();
  std::printf("entries %zu\n", edited.Project().Deployment().GetFiles().size());
  return search.Problems.empty() ? 0 : 1;
}

int Run(std::string_view what, const std::filesystem::path& file) {
  if (what == "consent") {
    TSettings settings(UserSettingsFile());
    Allow(settings, file, "box", {"make", "make install"});
    return 0;
  }
  TSession session(TSessionOptions{SOURCE_TREE});
  return what == "recover" ? RecoverAll(session, file) : EditAndEnd(session, file, what == "save");
}

} // namespace

int main(int count, char** arguments) {
  if (count != 3)
    return 2;
  try {
    return Run(arguments[1], arguments[2]);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "fault_probe: %s: %s\n", arguments[2], error.what());
    return 1;
  }
}
