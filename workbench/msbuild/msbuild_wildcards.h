// Wildcards in includes: * and ? within a name, ** for any number of directories.
#pragma once

#include "package/common/errors.h"

#include <cstddef>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace workbench {

class TDirectoryCache;

/// A path with wildcards, as a project writes it: "%2A" is a plain star.
class TWildcardPattern {
public:
  /// True when the text, escapes not resolved, holds a wildcard.
  static bool IsPattern(std::string_view escaped);

  explicit TWildcardPattern(std::string_view escaped);

  /// A path part by part, upper case.
  using TParts = std::vector<std::string>;
  /// A plain path, "\" and "/" alike; no parts where it is longer than any path of a machine.
  static TParts PartsOf(std::string_view path);

  /// Does the pattern take in this path? Letters ignoring case. Adds to `work` how many characters
  /// were looked at.
  bool Matches(const TParts& path, std::size_t& work) const;
  /// The same for a plain path of any length.
  bool Matches(std::string_view path) const;

  /// The files of this machine that the pattern takes in, sorted, written as the pattern writes
  /// its fixed part and with "\" behind it. Links to directories are not followed. Throws
  /// TInputError with `place` when too much would have to be looked at.
  std::vector<std::string> Expand(const std::filesystem::path& directory, TDirectoryCache& files,
                                  const deployment::TErrorPlace& place) const;

  /// Why the files of such a pattern are not looked for, seen from a directory: half a sentence;
  /// empty when they may be. A pattern for any depth must not start above the directory.
  std::string_view Refusal(const std::filesystem::path& directory) const;

  /// The part in front of the first wildcard, up to and including a delimiter; plain text.
  const std::string& FixedPart() const { return FFixedPart; }

private:
  bool MatchesParts(std::span<const std::string> parts, std::size_t& work) const;
  bool MatchesDirectories(std::span<const std::string> parts, std::size_t& work) const;
  bool TakesAnyDepth() const;
  std::size_t DeepestDirectory() const;

  std::string FText;
  std::string FFixedPart;
  TParts FFixedParts;
  TParts FParts; // behind the fixed part, upper case; wildcards as bytes that no name has
};

} // namespace workbench
