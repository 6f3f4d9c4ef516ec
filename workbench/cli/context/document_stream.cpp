#include "workbench/cli/context/document_stream.h"

namespace workbench {

TDocumentStream::TDocumentStream(TOutput& output) : FOutput(output) {
  Member("schema", JsonSchema);
}

void TDocumentStream::Member(std::string_view name, const TJson& value) {
  FOutput.Write(FHasMembers ? ",\n  " : "{\n  ");
  FHasMembers = true;
  FOutput.Write(JsonText(name, -1) + ": " + JsonText(value, -1));
}

void TDocumentStream::StartList(std::string_view name) {
  FOutput.Write(FHasMembers ? ",\n  " : "{\n  ");
  FHasMembers = true;
  FHasItems = false;
  FOutput.Write(JsonText(name, -1) + ": [");
}

void TDocumentStream::Item(const TJson& value) {
  FOutput.Write(FHasItems ? ",\n    " : "\n    ");
  FHasItems = true;
  FOutput.Write(JsonText(value, -1));
}

void TDocumentStream::EndList() {
  FOutput.Write("\n  ]");
}

void TDocumentStream::End() {
  Member("warnings", FOutput.WarningsAsJson());
  FOutput.Write("\n}\n");
}

} // namespace workbench
