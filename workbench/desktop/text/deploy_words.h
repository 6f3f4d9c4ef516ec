// What happened in a deploy, in words for people.
#pragma once

#include "workbench/deploy/deploy_report.h"

#include <QString>
#include <cstdint>
#include <vector>

namespace workbench {

/// Such as "copied"; the words of the command line stay as they are for scripts.
QString ActionWord(TDeployAction action);

/// Such as "changed here"; how the file here, the one there and what was deployed last stand.
QString StateWord(TFileState state);

/// Such as "3.2 MiB", with the user's decimal point.
QString SizeText(std::uint64_t bytes);

/// How many files met which end and how much was copied: "12 copied, 3 unchanged (3.2 MiB)".
QString DeployCounts(const std::vector<TDeployRow>& rows);

/// The end of a run in one or more sentences, with every problem where nothing was done.
QString DeploySummary(const TDeployReport& report, bool dryRun);

/// What a person can do about a file that failed.
QString FailureAdvice(const TDeployRow& row);

} // namespace workbench
