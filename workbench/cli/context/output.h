// Where results, warnings and errors go.
#pragma once

#include "workbench/json/json.h"
#include "workbench/session/session.h"
#include "workbench/text/visible_text.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace workbench {

/// What a person answered to a question.
enum class TAnswer {
  Yes,
  No,
  YesToAll,
  None, ///< nobody could be asked, or the input ended
};

/// Why a run failed.
struct TFailure {
  int Status = 1;
  std::string Text;
  std::string File;           ///< empty when it is about no file
  unsigned Line = 0;          ///< 0 when unknown
  bool TextNamesFile = false; ///< the text says already which file it is about
};

/// Goes up when a key of a document changes its meaning.
inline constexpr int JsonSchema = 1;

/// Results go to standard output, everything else to standard error.
class TOutput {
public:
  TOutput(bool json, bool quiet, bool noColor);
  /// The output of one part of a run, such as a project of several: each line of it begins with the
  /// name, filled up to `width` letters, and its document is kept. `whole` must outlive the object.
  TOutput(TOutput& whole, std::string name, std::size_t width);

  bool IsJson() const { return FJson; }
  bool IsQuiet() const { return FQuiet; }
  /// True when a person reads the result as it comes.
  bool IsTerminal() const { return FTerminal; }
  /// True when a person can be asked.
  bool CanAsk() const;
  /// Asks a question; `several` offers an answer for this and all further ones.
  TAnswer Ask(const std::string& question, bool several) const;
  /// True while a person is asked. Questions come before the work, so that an interrupt may end the
  /// program then.
  static bool IsAsking();

  /// One line of the result, as it is; left out with --json and --quiet.
  void Line(std::string_view text);
  /// Part of the result, as it is.
  void Write(std::string_view text);
  /// A whole JSON document, to be the last thing of a run: its number of the schema comes before
  /// its members, the warnings of the run behind them.
  void Document(const TJson& document);
  /// The document of a part; null when it printed none.
  TJson TakeDocument() { return std::move(FDocument); }
  /// The line or the error that a part ended with; empty when it said nothing.
  const std::string& LastSaid() const { return FLastSaid; }
  /// Said at once, and kept for the document; a remark is kept alone.
  void Warn(const TWarning& warning);
  /// From now on remarks are said too.
  void ShowRemarks() { FShowsRemarks = true; }
  /// The warnings so far, [{"text","file","line"}].
  TJson WarningsAsJson() const;
  void Error(const TFailure& failure);
  /// Something failed, and the result that is printed says what came of it.
  void Complain(std::string_view text);
  /// False when something of the result could not be written.
  bool Flush();
  /// Why not, as the system says; 0 while everything was.
  int WriteError() const { return FWriteError; }

  /// The text in bold or dim letters where the terminal shows colour.
  std::string Bold(std::string_view text) const;
  std::string Dim(std::string_view text) const;

private:
  std::string PartName(bool isWanted = true) const;

  bool FJson;
  bool FQuiet;
  bool FTerminal;
  bool FColor;
  int FWriteError = 0;
  bool FShowsRemarks = false;
  TOutput* FWhole = nullptr; // of a part
  std::string FName;         // of a part
  std::size_t FWidth = 0;    // of the names of all parts
  TJson FDocument;
  std::string FLastSaid; // of a part
  std::vector<TWarning> FWarnings;
};

} // namespace workbench
