// Records of entries and classes as JSON: what stands in a file that outlives the program.
#pragma once

#include "workbench/services/entry_record.h"

#include <nlohmann/json.hpp>

namespace workbench {

/// Values that are what a new record has are left out; bytes that are no UTF-8 are kept.
nlohmann::ordered_json RecordToJson(const TEntryRecord& record);
nlohmann::ordered_json RecordToJson(const TClassRecord& record);

/// The reverse. Throws nlohmann::json::exception for what is no such record, and TInputError for
/// values out of range.
TEntryRecord EntryRecordFromJson(const nlohmann::ordered_json& value);
TClassRecord ClassRecordFromJson(const nlohmann::ordered_json& value);

/// A text of any bytes, and back.
nlohmann::ordered_json TextToJson(const std::string& text);
std::string TextFromJson(const nlohmann::ordered_json& value);

} // namespace workbench
