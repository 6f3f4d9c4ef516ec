// The sentences of the engine about its own files, lists and packages.
#include "workbench/desktop/text/engine_sentences.h"

#include <QtGlobal>
#include <array>

namespace workbench {
namespace {

constexpr std::array DocumentTexts{
    // JSON files and settings
    QT_TRANSLATE_NOOP("Engine", "it should be %1, but is %2"),
    QT_TRANSLATE_NOOP("Engine", "\"%1\" should be %2, but is %3"),
    QT_TRANSLATE_NOOP("Engine", "an object with the member \"%1\""),
    QT_TRANSLATE_NOOP("Engine", "an object"),
    QT_TRANSLATE_NOOP("Engine", "a list of texts"),
    QT_TRANSLATE_NOOP("Engine", "true or false"),
    QT_TRANSLATE_NOOP("Engine", "a text"),
    QT_TRANSLATE_NOOP("Engine", "a list"),
    QT_TRANSLATE_NOOP("Engine", "a whole number from %1 to %2"),
    QT_TRANSLATE_NOOP("Engine", "there is no member \"%1\""),
    QT_TRANSLATE_NOOP("Engine", "a number is beyond all ranges at byte %1"),
    QT_TRANSLATE_NOOP("Engine", "it is no JSON at byte %1"),
    QT_TRANSLATE_NOOP("Engine", "it is nested deeper than %1 levels"),
    QT_TRANSLATE_NOOP("Engine", "the %1 file cannot be read: %2"),
    QT_TRANSLATE_NOOP("Engine", "the %1 file is damaged: %2; mend it or remove it"),
    QT_TRANSLATE_NOOP("Engine", "the %1 would hold a text that is not UTF-8 and cannot be kept"),
    QT_TRANSLATE_NOOP("Engine", "the %1 were not written: neither XDG_CONFIG_HOME nor HOME names a "
                                "directory; no file was made"),
    QT_TRANSLATE_NOOP("Engine",
                      "%1 was not written: its directory cannot be made: %2; no file was made"),
    QT_TRANSLATE_NOOP("Engine", "settings"),
    QT_TRANSLATE_NOOP("Engine", "profiles"),
    QT_TRANSLATE_NOOP("Engine", "the setting \"%1\" is damaged: %2; \"settings unset\" removes it"),
    QT_TRANSLATE_NOOP("Engine", "there is no platform \"%1\""),
    QT_TRANSLATE_NOOP("Engine", "there is no setting \"%1\""),
    QT_TRANSLATE_NOOP("Engine", "there is no platform \"%1\" for the setting \"%2\""),
    QT_TRANSLATE_NOOP("Engine", "the setting \"%1\" is true or false, not \"%2\""),
    QT_TRANSLATE_NOOP("Engine", "the setting \"%1\" is a whole number, not \"%2\""),
    QT_TRANSLATE_NOOP("Engine", "\"%1\" is neither a text nor a list of texts"),
    QT_TRANSLATE_NOOP("Engine", "the name of a setting is empty"),
    QT_TRANSLATE_NOOP("Engine", "the name of a setting has a control character"),
    QT_TRANSLATE_NOOP("Engine", "the setting \"%1\" is a history, which grows by what is entered"),
    QT_TRANSLATE_NOOP(
        "Engine", "the setting \"%1\" is \"%2\", which is neither true nor false; it counts as %3"),
    // XML files
    QT_TRANSLATE_NOOP("Engine", "%1 (the file declares \"%2\")"),
    QT_TRANSLATE_NOOP("Engine", "half of a character (a surrogate without its other one)"),
    QT_TRANSLATE_NOOP("Engine", "the prefix of \"%1\" is not declared"),
    QT_TRANSLATE_NOOP("Engine",
                      "a document type declaration (DOCTYPE) is not allowed in such a file"),
    QT_TRANSLATE_NOOP("Engine", "the file is larger than %1 bytes"),
    QT_TRANSLATE_NOOP("Engine", "the text \"%1\" holds characters that an XML file cannot hold"),
    QT_TRANSLATE_NOOP("Engine", "elements are nested deeper than %1 levels"),
    QT_TRANSLATE_NOOP("Engine", "an element's name is longer than %1 bytes"),
    QT_TRANSLATE_NOOP("Engine", "element \"%1\" has more than %2 attributes"),
    QT_TRANSLATE_NOOP("Engine", "an attribute's name is longer than %1 bytes"),
    QT_TRANSLATE_NOOP("Engine", "attribute \"%1\" is longer than %2 bytes"),
    QT_TRANSLATE_NOOP("Engine", "syntax error"),
    QT_TRANSLATE_NOOP("Engine", "partial character"),
    QT_TRANSLATE_NOOP("Engine", "duplicate attribute"),
    QT_TRANSLATE_NOOP("Engine", "undefined entity"),
    QT_TRANSLATE_NOOP("Engine", "reference to invalid character number"),
    QT_TRANSLATE_NOOP("Engine", "XML or text declaration not at start of entity"),
    QT_TRANSLATE_NOOP("Engine", "XML declaration not well-formed"),
    QT_TRANSLATE_NOOP("Engine", "unknown encoding"),
    QT_TRANSLATE_NOOP("Engine", "encoding specified in XML declaration is incorrect"),
    QT_TRANSLATE_NOOP("Engine", "unclosed CDATA section"),
    QT_TRANSLATE_NOOP("Engine", "unbound prefix"),
    QT_TRANSLATE_NOOP("Engine", "out of memory"),
    QT_TRANSLATE_NOOP("Engine", "element \"%1\": its text is \"%2\", which is not %3"),
    QT_TRANSLATE_NOOP("Engine", "element \"%1\": attribute \"%2\" is \"%3\", which is not %4"),
    QT_TRANSLATE_NOOP("Engine", "element \"%1\" lacks the required attribute \"%2\""),
    QT_TRANSLATE_NOOP("Engine", "a Boolean (true or false)"),
    QT_TRANSLATE_NOOP("Engine", "an integer"),
    QT_TRANSLATE_NOOP("Engine",
                      "element \"%1\": its text is \"%2\", which is not an operation (0 to %3)"),
    // The list of a project
    QT_TRANSLATE_NOOP("Engine", "the list is of version %1, and this program knows version %2: "
                                "what is new in it is not kept when the project is saved"),
    QT_TRANSLATE_NOOP("Engine", "the text in \"%1\" is not kept when the project is saved"),
    QT_TRANSLATE_NOOP("Engine",
                      "unknown element \"%1\" in \"%2\" is not kept when the project is saved"),
    QT_TRANSLATE_NOOP("Engine",
                      "unknown attribute \"%1\" of \"%2\" is not kept when the project is saved"),
    QT_TRANSLATE_NOOP("Engine",
                      "the record of an entry for \"%1\" is not kept when the project is saved"),
    QT_TRANSLATE_NOOP(
        "Engine",
        "one of several elements \"%1\" in one \"%2\" is not kept when the project is saved"),
    QT_TRANSLATE_NOOP("Engine",
                      "%1 file entries have the same configuration, platform and name as a later "
                      "one, which counts; the earlier ones are not kept when the project is saved"),
    QT_TRANSLATE_NOOP(
        "Engine", "%1 more unknown elements and attributes are not kept when the project is saved"),
    QT_TRANSLATE_NOOP(
        "Engine",
        "\"%1\": its remote directory \"%2\" on \"%3\" goes above the root of the target"),
    QT_TRANSLATE_NOOP("Engine", "the entry was not made by a deployment"),
    QT_TRANSLATE_NOOP("Engine", "the entry belongs to another deployment"),
    QT_TRANSLATE_NOOP("Engine", "no optional files are offered: %1"),
    QT_TRANSLATE_NOOP(
        "Engine", "\"%1\" is the output for iOSDevice32 and for iOSDevice64; without a directory "
                  "for each platform no 32-bit program can go beside the 64-bit one (%2)"),
    QT_TRANSLATE_NOOP(
        "Engine",
        "\"%1\" and \"%2\" differ in case only; they have one entry, which is that of \"%3\""),
    QT_TRANSLATE_NOOP("Engine", "\"%1\" has two roles for %2: \"%3\" and \"%4\"; one file has one "
                                "entry, which is that of \"%5\""),
    QT_TRANSLATE_NOOP("Engine", "\"%1\" has two roles for %2: \"%3\" and \"%4\"; one file has one "
                                "entry, which is that of \"%5\", with the values of a new one"),
    QT_TRANSLATE_NOOP("Engine", "the element \"%1\" holds elements where a text is wanted"),
    QT_TRANSLATE_NOOP("Engine", "the platform \"%1\" of the file \"%2\" holds no \"RemoteDir\""),
    QT_TRANSLATE_NOOP("Engine", "the file \"%1\" has two \"RemoteDir\" for \"%2\""),
    QT_TRANSLATE_NOOP("Engine", "the feature class \"%1\" stands twice"),
    // Opening and saving
    QT_TRANSLATE_NOOP("Engine", "the name of a file is empty"),
    QT_TRANSLATE_NOOP("Engine", "the file name \"%1\" holds characters that a project cannot hold"),
    QT_TRANSLATE_NOOP("Engine",
                      "the path holds a \"\\\", which this program takes for a path delimiter"),
    QT_TRANSLATE_NOOP("Engine", "the project carries no deployment"),
    QT_TRANSLATE_NOOP("Engine", "the package is of an older version, which does not tell its "
                                "number; it does not go with %1"),
    QT_TRANSLATE_NOOP("Engine", "the package of %1 does not go with %2"),
    QT_TRANSLATE_NOOP("Engine", "%1 of this program"),
    QT_TRANSLATE_NOOP("Engine", "the package cannot be loaded: %1"),
    QT_TRANSLATE_NOOP("Engine", "the module is no deployment package: %1"),
    QT_TRANSLATE_NOOP("Engine", "the package did not come to life"),
    QT_TRANSLATE_NOOP("Engine", "the package could not be started: %1"),
    QT_TRANSLATE_NOOP("Engine", "the package offers no Deployment Manager"),
    QT_TRANSLATE_NOOP("Engine", "the package shows no Deployment Manager for it"),
    QT_TRANSLATE_NOOP(
        "Engine",
        "the build's configuration \"%1\" holds characters that a project cannot hold there"),
    QT_TRANSLATE_NOOP("Engine", "platform table"),
    QT_TRANSLATE_NOOP("Engine", "imported project file"),
    QT_TRANSLATE_NOOP("Engine", "MSBuild template"),
    QT_TRANSLATE_NOOP("Engine", "side file"),
    QT_TRANSLATE_NOOP("Engine", "recovery journal"),
    QT_TRANSLATE_NOOP("Engine", "the project is shown already, as %1"),
    QT_TRANSLATE_NOOP("Engine", "is no project that this program knows"),
    QT_TRANSLATE_NOOP("Engine", "it is made from a project by each save; open the project"),
    QT_TRANSLATE_NOOP("Engine", "the solution names %1 as a project, which is a solution itself"),
    QT_TRANSLATE_NOOP("Engine", "the solution names a project that is not there: %1"),
    QT_TRANSLATE_NOOP("Engine", "the recovery journal is of another project, %1"),
    QT_TRANSLATE_NOOP("Engine", "the recovery journal cannot be removed: %1"),
    QT_TRANSLATE_NOOP("Engine", "it was written by another version of this program (format %1)"),
    QT_TRANSLATE_NOOP("Engine", "it is no recovery journal"),
    QT_TRANSLATE_NOOP("Engine", "making the file"),
    QT_TRANSLATE_NOOP("Engine", "locking the file"),
    QT_TRANSLATE_NOOP("Engine", "looking at the file"),
    QT_TRANSLATE_NOOP("Engine", "it would be too large; a save starts a new one"),
    QT_TRANSLATE_NOOP("Engine", "there is no such %1: the installation is not complete; --root or "
                                "the variable ZELK names another one"),
    QT_TRANSLATE_NOOP("Engine", "the profile \"%1\" is of another host"),
    // The table of platforms
    QT_TRANSLATE_NOOP("Engine", "attribute \"%1\" is empty"),
    QT_TRANSLATE_NOOP(
        "Engine", "attribute \"%1\" is \"%2\", which leaves the project's directory on the target"),
    QT_TRANSLATE_NOOP("Engine", "attribute \"%1\" is \"%2\", known is \"%3\""),
    QT_TRANSLATE_NOOP("Engine", "the platform \"%1\" has the output kind \"%2\" twice"),
    QT_TRANSLATE_NOOP("Engine", "the platform \"%1\" has the personality \"%2\" twice"),
    QT_TRANSLATE_NOOP("Engine", "\"%1\" stands for every platform and cannot name one"),
    QT_TRANSLATE_NOOP("Engine", "a platform has no such element"),
    QT_TRANSLATE_NOOP("Engine", "the root of a platform table is \"Platforms\""),
    QT_TRANSLATE_NOOP("Engine", "a platform table has no such element"),
    QT_TRANSLATE_NOOP("Engine", "the platform \"%1\" stands in the table twice"),
    QT_TRANSLATE_NOOP("Engine", "the table has no platform"),
};

} // namespace

std::span<const char* const> DocumentSentences() {
  return DocumentTexts;
}

} // namespace workbench
