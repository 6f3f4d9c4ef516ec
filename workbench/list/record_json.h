// Records of entries and classes as JSON: in files that outlive the program, and as documents that
// scripts read.
#pragma once

#include "workbench/json/json.h"
#include "workbench/list/entry_record.h"

#include <string>
#include <string_view>

namespace workbench {

/// Appends the record as an object. Values that are what a new record has are left out; bytes that
/// are no UTF-8 are kept. Written without a document in between, since a step may hold very many.
void AppendJson(std::string& json, const TEntryRecord& record);
void AppendJson(std::string& json, const TClassRecord& record);

/// The reverse. Throws TInputError for what is no such record.
TEntryRecord EntryRecordFromJson(const TJson& value);
TClassRecord ClassRecordFromJson(const TJson& value);

/// All values of the record, the platforms by their names.
TJson DocumentOf(const TEntryRecord& record);
TJson DocumentOf(const TClassRecord& record);

/// A text of any bytes, and back.
void AppendJsonText(std::string& json, std::string_view text);
std::string TextFromJson(const TJson& value);

} // namespace workbench
