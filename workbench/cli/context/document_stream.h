// A JSON document of the command line that is too large to stand in memory.
#pragma once

#include "workbench/cli/context/output.h"

#include <string_view>

namespace workbench {

/// Writes an object to standard output member by member, between the schema and the warnings of
/// every document; the last call is End. Lists are written item by item, a line for each.
class TDocumentStream {
public:
  /// The output must outlive the stream.
  explicit TDocumentStream(TOutput& output);

  void Member(std::string_view name, const TJson& value);
  void StartList(std::string_view name);
  void Item(const TJson& value);
  void EndList();
  void End();

private:
  TOutput& FOutput;
  bool FHasMembers = false;
  bool FHasItems = false;
};

} // namespace workbench
