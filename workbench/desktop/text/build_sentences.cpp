// The sentences of the engine about the builds that projects are made from.
#include "workbench/desktop/text/engine_sentences.h"

#include <QtGlobal>
#include <array>

namespace workbench {
namespace {

constexpr std::array BuildTexts{
    // What CMake and Meson say
    QT_TRANSLATE_NOOP("Engine", "this is no build directory of CMake or Meson: it has neither a "
                                "CMakeCache.txt nor a directory meson-info"),
    QT_TRANSLATE_NOOP("Engine", "CMake has not told the install rules of this directory yet, and a "
                                "dry run does not ask it"),
    QT_TRANSLATE_NOOP(
        "Engine", "the project was not made from a build: it has no item \"%1\" with a platform"),
    QT_TRANSLATE_NOOP("Engine", "\"%1\" is installed a second time, here; the list has one entry "
                                "for one file, which is that of %2"),
    QT_TRANSLATE_NOOP(
        "Engine", "the build runs a script when it installs; what that does is not in the list"),
    QT_TRANSLATE_NOOP("Engine", "a rule of the type \"%1\" makes no entry"),
    QT_TRANSLATE_NOOP("Engine", "the rule chooses files by patterns, which CMake does not tell; "
                                "all files of the directory are taken"),
    QT_TRANSLATE_NOOP("Engine", "the reply of CMake cannot be read: %1"),
    QT_TRANSLATE_NOOP("Engine", "the reply of CMake"),
    QT_TRANSLATE_NOOP("Engine", "CMake cache"),
    QT_TRANSLATE_NOOP("Engine", "the install plan of Meson"),
    QT_TRANSLATE_NOOP("Engine", "the targets of Meson"),
    QT_TRANSLATE_NOOP("Engine", "the options of Meson"),
    QT_TRANSLATE_NOOP("Engine", "the summary of Meson"),
    QT_TRANSLATE_NOOP("Engine",
                      "the file changed after CMake ran; run \"cmake %1\" to have its rules"),
    QT_TRANSLATE_NOOP("Engine", "the question to CMake cannot be written"),
    QT_TRANSLATE_NOOP("Engine", "it left no reply; 3.14 is the first version that does"),
    QT_TRANSLATE_NOOP("Engine", "\"%1\", which tells the install rules: %2"),
    QT_TRANSLATE_NOOP("Engine", "CMake has left no reply there"),
    QT_TRANSLATE_NOOP("Engine", "%1: its root %2"),
    QT_TRANSLATE_NOOP("Engine", "%1: \"%2\" is no object"),
    QT_TRANSLATE_NOOP("Engine", "%1: \"%2\" is no array"),
    QT_TRANSLATE_NOOP("Engine", "%1: \"%2\" is no text"),
    QT_TRANSLATE_NOOP("Engine", "%1: \"%2\" is no Boolean"),
    QT_TRANSLATE_NOOP("Engine", "%1: \"%2\" is empty"),
    QT_TRANSLATE_NOOP("Engine", "%1: \"%2\" has no member \"%3\""),
    QT_TRANSLATE_NOOP("Engine", "%1: \"%2\" has no value of number %3"),
    QT_TRANSLATE_NOOP("Engine", "%1: \"%2\" is %3; known is %4"),
    QT_TRANSLATE_NOOP("Engine", "is no object"),
    QT_TRANSLATE_NOOP("Engine", "is no array"),
    QT_TRANSLATE_NOOP("Engine", "is no whole number"),
    QT_TRANSLATE_NOOP("Engine", "is no name of a file"),
    QT_TRANSLATE_NOOP("Engine", "has no member \"%1\""),
    QT_TRANSLATE_NOOP("Engine", "has no rules; CMake 3.21 is the first version that tells them"),
    QT_TRANSLATE_NOOP("Engine", "names no code model; run \"cmake %1\""),
    QT_TRANSLATE_NOOP("Engine",
                      "%1: \"%2\" has no rules; CMake 3.21 is the first version that tells them"),
    QT_TRANSLATE_NOOP("Engine", "the rule installs \"%1\", a name that a project cannot hold"),
    QT_TRANSLATE_NOOP("Engine",
                      "the destination \"%1\" is absolute and not below the install prefix; make "
                      "it relative, or name the components to be taken and leave \"%2\" out"),
    QT_TRANSLATE_NOOP("Engine",
                      "the destination \"%1\" is absolute and not below the install prefix \"%2\"; "
                      "make it relative, or name the components to be taken and leave \"%3\" out"),
    QT_TRANSLATE_NOOP("Engine", "the rule installs to \"%1\", which is above the install prefix"),
    QT_TRANSLATE_NOOP("Engine", "the rule is optional and \"%1\" is not there; it is left out"),
    QT_TRANSLATE_NOOP("Engine", "the rule installs a file as \"%1\", which is no name of a file"),
    QT_TRANSLATE_NOOP("Engine", "\"%1\" is a link to a directory; what is behind it is left out"),
    QT_TRANSLATE_NOOP("Engine", "the directory \"%1\" cannot be read: %2; its files are left out"),
    QT_TRANSLATE_NOOP("Engine", "the build has no component \"%1\"; known are: %2"),
    QT_TRANSLATE_NOOP("Engine",
                      "\"%1\" goes to \"%2\", a place that Meson does not tell; it is left out"),
};

} // namespace

std::span<const char* const> BuildSentences() {
  return BuildTexts;
}

} // namespace workbench
