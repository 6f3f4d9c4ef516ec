// The sentences of the engine about why a file is in a list.
#include "workbench/desktop/text/engine_sentences.h"

#include <QtGlobal>
#include <array>

namespace workbench {
namespace {

constexpr std::array ExplainTexts{
    QT_TRANSLATE_NOOP("Engine", "the step \"runtime packages\" %1: %2"),
    QT_TRANSLATE_NOOP("Engine", "the step \"project output\" %1: %2"),
    QT_TRANSLATE_NOOP("Engine", "the step \"debug symbols\" %1: %2"),
    QT_TRANSLATE_NOOP("Engine", "the step \"OS X defaults\" %1: %2"),
    QT_TRANSLATE_NOOP("Engine", "the step \"iOS defaults\" %1: %2"),
    QT_TRANSLATE_NOOP("Engine", "the step \"Android defaults\" %1: %2"),
    QT_TRANSLATE_NOOP("Engine", "the step \"artwork\" %1: %2"),
    QT_TRANSLATE_NOOP("Engine", "the step \"project files\" %1: %2"),
    QT_TRANSLATE_NOOP("Engine", "adds it"),
    QT_TRANSLATE_NOOP("Engine", "adds it as \"%1\""),
    QT_TRANSLATE_NOOP("Engine", "adds it of class \"%1\""),
    QT_TRANSLATE_NOOP("Engine", "brings it up to date"),
    QT_TRANSLATE_NOOP("Engine", "brings it up to date as \"%1\""),
    QT_TRANSLATE_NOOP("Engine", "keeps it"),
    QT_TRANSLATE_NOOP("Engine", "keeps it as \"%1\""),
    QT_TRANSLATE_NOOP("Engine", "removes it"),
    QT_TRANSLATE_NOOP("Engine", "removes it as \"%1\""),
    QT_TRANSLATE_NOOP("Engine", "makes no entry"),
    QT_TRANSLATE_NOOP("Engine", "makes no entry of class \"%1\""),
    QT_TRANSLATE_NOOP("Engine", "does not run"),
    QT_TRANSLATE_NOOP("Engine", "it names nothing"),
    QT_TRANSLATE_NOOP("Engine", "the IDE ships it"),
    QT_TRANSLATE_NOOP("Engine", "it is switched off"),
    QT_TRANSLATE_NOOP("Engine", "there is no such file"),
    QT_TRANSLATE_NOOP("Engine", "it is not named there any more"),
    QT_TRANSLATE_NOOP("Engine", "the project builds this file itself"),
    QT_TRANSLATE_NOOP("Engine", "it was built for something else"),
    QT_TRANSLATE_NOOP("Engine", "it was not found anywhere"),
    QT_TRANSLATE_NOOP("Engine", "the host cannot be asked"),
    QT_TRANSLATE_NOOP("Engine", "the step does not work for this kind of program"),
    QT_TRANSLATE_NOOP("Engine", "the step does not work for this platform"),
    QT_TRANSLATE_NOOP("Engine", "files of this extension are not deployed"),
    QT_TRANSLATE_NOOP("Engine", "such devices do not show it"),
    QT_TRANSLATE_NOOP("Engine", "one file has one entry"),
    QT_TRANSLATE_NOOP("Engine", "no step has anything to do"),
    QT_TRANSLATE_NOOP("Engine", "the target is \"%1\""),
    QT_TRANSLATE_NOOP("Engine", "the target is \"%1\", the program is of kind \"%2\""),
    QT_TRANSLATE_NOOP("Engine", "a build makes \"%1\""),
    QT_TRANSLATE_NOOP("Engine", "it belongs beside the output \"%1\""),
    QT_TRANSLATE_NOOP("Engine", "the list of runtime packages"),
    QT_TRANSLATE_NOOP("Engine", "the list of runtime packages names \"%1\""),
    QT_TRANSLATE_NOOP("Engine", "the symbol files of \"%1\" have the extension \"%2\""),
    QT_TRANSLATE_NOOP("Engine", "the option \"%1\" is \"%2\""),
    QT_TRANSLATE_NOOP("Engine", "the development kit of the platform"),
    QT_TRANSLATE_NOOP("Engine", "the development kit \"%1\" names \"%2\""),
    QT_TRANSLATE_NOOP("Engine", "the IDE ships it; the option \"%1\" is \"%2\""),
    QT_TRANSLATE_NOOP("Engine", "\"%1\" is a file of the name, but \"%2\""),
    QT_TRANSLATE_NOOP("Engine", "it belongs to \"%1\", in the language \"%2\""),
    QT_TRANSLATE_NOOP("Engine", "it belongs to the project"),
    QT_TRANSLATE_NOOP("Engine", "the file is the entry of class \"%1\""),
    QT_TRANSLATE_NOOP("Engine", "no step of a reconcile for this target asks for it"),
    QT_TRANSLATE_NOOP("Engine", "the build installs it: %1"),
    QT_TRANSLATE_NOOP("Engine", "the build installed it when the list was made; which rule that "
                                "was it does not tell now: %1"),
    QT_TRANSLATE_NOOP("Engine", "it is switched off for %1, so a deploy leaves it out"),
    QT_TRANSLATE_NOOP("Engine", "builds take it under the condition %1"),
    QT_TRANSLATE_NOOP("Engine", "there is no such file now: %1"),
    QT_TRANSLATE_NOOP("Engine", "it was added by hand"),
    QT_TRANSLATE_NOOP(
        "Engine",
        "a reconcile has nothing to say about all platforms at once; ask for one of them"),
    QT_TRANSLATE_NOOP("Engine",
                      "no step of a reconcile works for \"Base\": what stands there was put there"),
    QT_TRANSLATE_NOOP("Engine",
                      "the project cannot be reconciled here, so the list is what was saved"),
    QT_TRANSLATE_NOOP(
        "Engine", "no step of a reconcile asks for it any more; what put it there leaves it in"),
    QT_TRANSLATE_NOOP("Engine",
                      "it is an entry of \"%1\", which every configuration inherits from"),
    QT_TRANSLATE_NOOP("Engine", "it is an entry of \"%1\", which \"%2\" inherits from"),
    QT_TRANSLATE_NOOP("Engine", "it is an entry of \"%1\", which inherits from \"%2\": it is shown "
                                "here and deployed there"),
    QT_TRANSLATE_NOOP(
        "Engine", "no platform has it; \"deploymgr add -p all\" puts it on the list of every one"),
    QT_TRANSLATE_NOOP("Engine", "no step of a reconcile works for \"Base\"; \"deploymgr add -c "
                                "Base\" puts it on the list of every configuration"),
    QT_TRANSLATE_NOOP("Engine", "the project cannot be reconciled here"),
    QT_TRANSLATE_NOOP("Engine",
                      "no step of a reconcile asks for it; \"deploymgr add\" puts it on the list"),
};

} // namespace

std::span<const char* const> ExplainSentences() {
  return ExplainTexts;
}

} // namespace workbench
