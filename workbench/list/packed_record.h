// Records as bytes, for keeping very many of them.
#pragma once

#include "workbench/list/entry_record.h"

#include <string>
#include <string_view>

namespace workbench {

/// Equal records give equal bytes, different ones different bytes.
std::string Pack(const TEntryRecord& record);
/// The record that Pack took. The bytes must be of this program.
TEntryRecord Unpack(std::string_view bytes);

} // namespace workbench
