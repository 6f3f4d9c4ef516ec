// What an evaluation passed over, for whoever wants to tell the user.
#pragma once

#include "package/common/errors.h"

#include <string>
#include <vector>

namespace workbench {

enum class TNoteKind {
  MissingImport,      ///< there is no such file on this machine
  SkippedImport,      ///< circular, imported already, or not a file of this machine
  IgnoredAssignment,  ///< of a property that the build itself sets
  IgnoredItem,        ///< an include or another list that cannot be evaluated here
  WrongConfiguration, ///< a configuration was taken as a child of the base one
  WrongFunction,      ///< a property calls a function in a way in which no build could
  UnknownValue,       ///< an answer needs what this machine cannot know
  FromOutside,        ///< something beside the project decided, such as one of several solutions
};

/// Something that was passed over.
struct TEvaluationNote {
  TNoteKind Kind;
  std::string Text; ///< one sentence
  deployment::TErrorPlace Place;

  bool operator==(const TEvaluationNote& other) const {
    return Kind == other.Kind && Text == other.Text && Place.File == other.Place.File &&
           Place.Line == other.Place.Line;
  }
};

using TEvaluationNotes = std::vector<TEvaluationNote>;

} // namespace workbench
