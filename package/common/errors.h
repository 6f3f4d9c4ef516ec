// The one family of errors that the package raises. A host catches it where the user acts.
#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace deployment {

/// Where in an input an error was found.
struct TErrorPlace {
  std::string File;  ///< path or name of the file; empty when the error is in no file
  unsigned Line = 0; ///< counted from 1; 0 when unknown
};

/// An input (project file, catalog, template) says something that cannot be understood.
/// what() is one sentence for the person who must mend it, naming the element and the value; the
/// place stands apart so that a host can show it in its own form.
class TInputError : public std::runtime_error {
public:
  explicit TInputError(const std::string& text, TErrorPlace place = {})
      : std::runtime_error(text), FPlace(std::move(place)) {}

  const TErrorPlace& Place() const { return FPlace; }

private:
  TErrorPlace FPlace;
};

} // namespace deployment
