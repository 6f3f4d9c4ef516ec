// Parts of what deploys keep on a target, as JSON. What is read is checked as names of the list
// are.
#pragma once

#include "workbench/deploy/record/target_record.h"
#include "workbench/json/json.h"

#include <cstdint>
#include <string>

namespace workbench {

/// The latest time stamp that is read, in seconds: more nanoseconds are not counted.
inline constexpr std::uint64_t MostRecordedTime = 9'000'000'000;

/// Throws TInputError for a path that leads out of the profile's path, or to what deploys keep for
/// themselves: no deploy wrote it.
void CheckRecordedPath(const std::string& path);

/// Rights as octal text, such as "0644".
std::string ModeText(unsigned mode);
/// Throws TInputError for a text that is no mode.
unsigned ModeFromText(const std::string& text);

/// A file of the record's own target does not name it.
TJson RecordedFileJson(const TRecordedFile& file, const TTargetRecord& record);
/// One that names no target, being of the record's own, has no platform and no configuration.
/// Throws TInputError.
TRecordedFile RecordedFileOf(const TJson& value);

TJson RunJson(const TRecordedRun& run);
/// Throws TInputError.
TRecordedRun RecordedRunOf(const TJson& value);

} // namespace workbench
