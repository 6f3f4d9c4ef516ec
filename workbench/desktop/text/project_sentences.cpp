// The sentences of the engine about what project files say.
#include "workbench/desktop/text/engine_sentences.h"

#include <QtGlobal>
#include <array>

namespace workbench {
namespace {

constexpr std::array ProjectTexts{
    // What a project file says
    QT_TRANSLATE_NOOP("Engine", "the root element is \"%1\", which is no MSBuild project"),
    QT_TRANSLATE_NOOP("Engine",
                      "the project holds a second section \"%1\"; the first one stands in line %2"),
    QT_TRANSLATE_NOOP("Engine", "the project has no group of items with the label \"%1\""),
    QT_TRANSLATE_NOOP(
        "Engine",
        "the item \"%1\" stands for several platforms; give \"%2\" an item of its own first"),
    QT_TRANSLATE_NOOP("Engine", "the project file has no item \"%1\" of its own for \"%2\""),
    QT_TRANSLATE_NOOP("Engine", "the parent \"%1\" of the configuration \"%2\" is not in the "
                                "project; it inherits from \"%3\""),
    QT_TRANSLATE_NOOP("Engine", "the parent \"%1\" of the configuration \"%2\" inherits from it in "
                                "turn; it inherits from \"%3\""),
    QT_TRANSLATE_NOOP("Engine", "nothing here says it"),
    QT_TRANSLATE_NOOP("Engine", "it is not set"),
    QT_TRANSLATE_NOOP("Engine", "the build or the environment sets it"),
    QT_TRANSLATE_NOOP("Engine", "the build system sets it"),
    QT_TRANSLATE_NOOP("Engine", "the property \"%1\" is \"%2\", which is not %3"),
    QT_TRANSLATE_NOOP("Engine", "the item \"%1\" of \"%2\" was left out: %3"),
    QT_TRANSLATE_NOOP("Engine", "what a build of %1, %2 makes is not known: %3"),
    QT_TRANSLATE_NOOP("Engine", "the solution %1"),
    QT_TRANSLATE_NOOP("Engine", "given on the command line"),
    QT_TRANSLATE_NOOP("Engine", "the target"),
    QT_TRANSLATE_NOOP("Engine", "a build of %1, %2 %3: there is nothing to deploy"),
    QT_TRANSLATE_NOOP("Engine", "it is not known what a build of %1, %2 makes"),
    QT_TRANSLATE_NOOP("Engine", "makes a static library, which other builds link"),
    QT_TRANSLATE_NOOP("Engine", "is a utility, which makes no program or library"),
    QT_TRANSLATE_NOOP("Engine", "is of the type \"%1\", which makes no known kind of file"),
    QT_TRANSLATE_NOOP("Engine", "runs commands and names no output (NMakeOutput)"),
    QT_TRANSLATE_NOOP("Engine",
                      "several solutions name the project: \"%1\" is taken, and not \"%2\""),
    QT_TRANSLATE_NOOP(
        "Engine", "the project has no configuration \"%1\", which its property \"Config\" names"),
    QT_TRANSLATE_NOOP("Engine", "the project that is referred to cannot be read: %1"),
    QT_TRANSLATE_NOOP("Engine", "it is not a file of this machine"),
    QT_TRANSLATE_NOOP("Engine", "the references go too far"),
    QT_TRANSLATE_NOOP("Engine", "it is not known which of its targets is built with %1, %2"),
    QT_TRANSLATE_NOOP("Engine", "nothing of the project \"%1\" is deployed with this one: %2"),
    QT_TRANSLATE_NOOP("Engine", "the file is empty, so it is no solution"),
    QT_TRANSLATE_NOOP("Engine", "this is no solution: \"%1\" stands where the format is named"),
    QT_TRANSLATE_NOOP("Engine", "a quote of the project is not closed"),
    QT_TRANSLATE_NOOP("Engine", "the project lacks its type, name, path or id"),
    QT_TRANSLATE_NOOP("Engine", "the solution names more than %1 projects"),
    QT_TRANSLATE_NOOP("Engine", "projects wait for each other in a ring: %1"),
    QT_TRANSLATE_NOOP("Engine", "folders lie in each other in a ring: %1"),
    // What is worked out of it
    QT_TRANSLATE_NOOP("Engine",
                      "the wildcard \"%1\" stands for more than %2 files and directories"),
    QT_TRANSLATE_NOOP("Engine", "the wildcard \"%1\" is one too many: holding the wildcards of the "
                                "project against the files takes too long"),
    QT_TRANSLATE_NOOP("Engine", "the value of \"%1\" grows too long"),
    QT_TRANSLATE_NOOP("Engine", "the condition \"%1\" is not valid: at character %2, %3"),
    QT_TRANSLATE_NOOP("Engine", "the condition is complete before this"),
    QT_TRANSLATE_NOOP("Engine", "a \")\" is missing"),
    QT_TRANSLATE_NOOP("Engine", "there is no function \"%1\""),
    QT_TRANSLATE_NOOP("Engine", "a value is missing"),
    QT_TRANSLATE_NOOP("Engine", "the condition \"%1\" is nested deeper than %2 levels"),
    QT_TRANSLATE_NOOP("Engine",
                      "the condition \"%1\" asks for a Boolean where the value is \"%2\""),
    QT_TRANSLATE_NOOP("Engine", "the condition \"%1\" asks for a number where the value is \"%2\""),
    QT_TRANSLATE_NOOP("Engine", "the condition \"%1\" is longer than %2 bytes"),
    QT_TRANSLATE_NOOP("Engine", "a \"$(\" is not closed"),
    QT_TRANSLATE_NOOP("Engine", "a quote is not closed"),
    QT_TRANSLATE_NOOP("Engine", "a \"(\" is missing behind \"$\""),
    QT_TRANSLATE_NOOP("Engine", "\"=\" alone does not compare, \"==\" does"),
    QT_TRANSLATE_NOOP("Engine", "this character has no meaning here"),
    QT_TRANSLATE_NOOP("Engine", "the property \"%1\" has no known value: %2"),
    QT_TRANSLATE_NOOP("Engine", "the property \"%1\" is not known here: %2"),
    QT_TRANSLATE_NOOP("Engine", "the property \"%1\" cannot be assigned; the build itself sets it"),
    QT_TRANSLATE_NOOP("Engine", "\"Choose\" is nested deeper than %1 levels"),
    QT_TRANSLATE_NOOP("Engine", "the condition of \"%1\" is not known: %2"),
    QT_TRANSLATE_NOOP("Engine", "an import from an SDK was skipped"),
    QT_TRANSLATE_NOOP("Engine", "the import \"%1\" was skipped: %2"),
    QT_TRANSLATE_NOOP("Engine", "the import \"%1\" was skipped: it %2"),
    QT_TRANSLATE_NOOP("Engine", "the import \"%1\" was skipped: it is part of the project already"),
    QT_TRANSLATE_NOOP("Engine", "the import \"%1\" was skipped: it is not a file of this machine"),
    QT_TRANSLATE_NOOP("Engine", "the import \"%1\" was skipped: it is no file"),
    QT_TRANSLATE_NOOP("Engine", "the import \"%1\" was skipped: there is no such file"),
    QT_TRANSLATE_NOOP("Engine", "the import \"%1\" was skipped: in line %2, %3"),
    QT_TRANSLATE_NOOP("Engine", "the import \"%1\" is no file"),
    QT_TRANSLATE_NOOP("Engine", "the import \"%1\" has %2 bytes; at most %3 are read"),
    QT_TRANSLATE_NOOP("Engine", "the import \"%1\" is nested deeper than %2 levels"),
    QT_TRANSLATE_NOOP("Engine", "the project imports more than %1 files"),
    QT_TRANSLATE_NOOP("Engine", "the item \"%1\" lacks the attribute \"Include\""),
    QT_TRANSLATE_NOOP("Engine", "\"%1\" of the item \"%2\" was left out: it %3"),
    QT_TRANSLATE_NOOP("Engine", "holds a list inside a name"),
    QT_TRANSLATE_NOOP("Engine", "looks for files outside the project's directory"),
    QT_TRANSLATE_NOOP("Engine", "is longer than any path"),
    QT_TRANSLATE_NOOP("Engine", "looks for files that are not on this machine"),
    QT_TRANSLATE_NOOP("Engine", "walks through everything above the project's directory"),
    QT_TRANSLATE_NOOP("Engine", "the item \"%1\" makes the lists of the project grow too long"),
    QT_TRANSLATE_NOOP("Engine",
                      "element \"%1\": with its references replaced, \"%2\" grows too long"),
    QT_TRANSLATE_NOOP("Engine", "references are nested deeper than %1 levels"),
    QT_TRANSLATE_NOOP("Engine", "\"$(%1)\" is not understood"),
    QT_TRANSLATE_NOOP("Engine", "\"$(%1)\" asks for a registry, which is not here"),
    QT_TRANSLATE_NOOP("Engine", "it calls \"%1\", which is not evaluated here"),
    QT_TRANSLATE_NOOP("Engine", "\"%1\" cannot be carried out: %2"),
    QT_TRANSLATE_NOOP("Engine", "it does not take %1 arguments"),
    QT_TRANSLATE_NOOP("Engine", "the result is too long"),
    QT_TRANSLATE_NOOP("Engine", "the result is longer than %1 bytes"),
    QT_TRANSLATE_NOOP("Engine", "a number is divided by zero"),
    QT_TRANSLATE_NOOP("Engine", "a version has no %1 parts"),
    QT_TRANSLATE_NOOP("Engine", "a part of a version is out of range"),
    QT_TRANSLATE_NOOP("Engine", "the path is empty"),
    QT_TRANSLATE_NOOP("Engine", "\"%1\" is no name of a file"),
    QT_TRANSLATE_NOOP("Engine", "a position is negative"),
    QT_TRANSLATE_NOOP("Engine", "a position lies behind the end of the text"),
    QT_TRANSLATE_NOOP("Engine", "the text to be replaced is empty"),
    QT_TRANSLATE_NOOP("Engine", "the width is out of range"),
    QT_TRANSLATE_NOOP("Engine", "the format \"%1\" is not understood"),
    QT_TRANSLATE_NOOP("Engine", "the list has no item %1"),
    QT_TRANSLATE_NOOP("Engine", "\"%1\" is no number"),
    QT_TRANSLATE_NOOP("Engine", "\"%1\" is no whole number"),
    QT_TRANSLATE_NOOP("Engine", "\"%1\" is no version"),
};

} // namespace

std::span<const char* const> ProjectSentences() {
  return ProjectTexts;
}

} // namespace workbench
