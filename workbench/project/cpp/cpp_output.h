// What a build of a C++ project makes, and which of its files are deployed with it.
#pragma once

#include "workbench/project/project_dialect.h"

namespace workbench {

/// `platform` is null for one that the table does not know: outputs are named as on Windows there.
TBuildOutput CppOutput(TMSBuildEvaluation& evaluation, const TPlatform* platform);

/// Includes of the items that are there to be shipped.
std::vector<std::string> CppFiles(TMSBuildEvaluation& evaluation, TEvaluationNotes& notes);

} // namespace workbench
