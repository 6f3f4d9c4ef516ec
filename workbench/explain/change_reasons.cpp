#include "workbench/explain/change_reasons.h"

#include "package/common/case_fold.h"
#include "workbench/explain/reason_text.h"

namespace workbench {
namespace {

using deployment::TReconcileOutcome;
using deployment::TReconcileReason;

// Keeps the decisions in order.
class TDecisions final : public deployment::IReconcileJournal {
public:
  explicit TDecisions(std::vector<TReconcileReason>& decisions) : FDecisions(decisions) {}
  void Record(const TReconcileReason& reason) override { FDecisions.push_back(reason); }

private:
  std::vector<TReconcileReason>& FDecisions;
};

std::string KeyOfEntry(std::string_view className, std::string_view localName) {
  std::string key(className);
  key.append(1, '\n').append(localName);
  return deployment::UpperCase(key);
}

bool IsAboutClass(const TReconcileReason& reason) {
  return reason.Outcome == TReconcileOutcome::Skipped ||
         reason.Outcome == TReconcileOutcome::Removed;
}

} // namespace

TChangeReasons::TChangeReasons(deployment::IProjectDeployment& deployment,
                               const deployment::TDeploymentTarget& target) {
  TDecisions decisions(FJournal);
  deployment.Reconcile(target.Configuration, target.Platform, /*reconcileInternally=*/false,
                       decisions);
  for (std::size_t i = 0; i < FJournal.size(); ++i) {
    const TReconcileReason& reason = FJournal[i];
    if (!reason.LocalName.empty())
      FByKey[KeyOfEntry(reason.ClassName, reason.LocalName)].push_back(i);
    else if (!reason.ClassName.empty() && IsAboutClass(reason))
      FByKey[KeyOfEntry(reason.ClassName, {})].push_back(i);
  }
}

// The reconcile that told the reasons found what was done before it.
std::vector<std::string> TChangeReasons::Sentences(const std::string& key,
                                                   TReconcileOutcome happened) const {
  std::vector<std::string> sentences;
  const auto found = FByKey.find(key);
  if (found == FByKey.end())
    return sentences;
  sentences.reserve(found->second.size());
  for (const std::size_t place : found->second) {
    TReconcileReason reason = FJournal[place];
    if (reason.Outcome == TReconcileOutcome::Kept || reason.Outcome == TReconcileOutcome::Updated)
      reason.Outcome = happened;
    sentences.push_back(ReasonSentence(reason));
  }
  return sentences;
}

std::vector<std::string> TChangeReasons::Of(const TChangedEntry& entry,
                                            TReconcileOutcome happened) const {
  std::vector<std::string> sentences =
      Sentences(KeyOfEntry(entry.ClassName, entry.LocalName), happened);
  if (sentences.empty())
    sentences = Sentences(KeyOfEntry(entry.ClassName, {}), happened);
  if (sentences.empty())
    sentences.emplace_back("no step of a reconcile for this target asks for it");
  return sentences;
}

} // namespace workbench
