#include "workbench/desktop/target/targets_question.h"

#include "workbench/deploy/deploy_service.h"
#include "workbench/deploy/parallel_runs.h"
#include "workbench/desktop/text/engine_text.h"
#include "workbench/desktop/text/qt_text.h"
#include "workbench/remote/profile/profile_entry.h"

#include <exception>

namespace workbench {
namespace {

constexpr unsigned TargetsAtOnce = 4;

} // namespace

std::vector<TTargetAnswer> AskTargets(const TDeployService& deploys, const TDeploySubject& subject,
                                      const std::vector<TProfile>& profiles,
                                      const std::atomic<int>& cancelled) {
  std::vector<TTargetAnswer> answers;
  answers.reserve(profiles.size());
  for (const TProfile& profile : profiles)
    answers.push_back(
        {.Profile = ToQString(profile.Name), .Problem = TTargetsModel::tr("was not asked")});
  const auto work = [&](std::size_t i) {
    TSilentObserver observer;
    TRunTerms terms{.Options = {.DryRun = true, .SkipMissing = true}};
    terms.Cancelled = &cancelled;
    answers[i] =
        AnswerOfPlan(answers[i].Profile, deploys.Deploy(subject, profiles[i], terms, observer));
  };
  const auto ended = [&](std::size_t i, const std::exception_ptr& error) {
    try {
      if (error)
        std::rethrow_exception(error);
    } catch (const std::exception& reason) {
      answers[i] = {.Profile = answers[i].Profile, .Problem = EngineText(reason.what())};
    }
  };
  RunParallel({.Count = profiles.size(),
               .AtOnce = TargetsAtOnce,
               .Work = work,
               .Ended = ended,
               .Cancelled = cancelled});
  return answers;
}

} // namespace workbench
