#include "workbench/explain/reason_text.h"

#include "workbench/text/quoted_text.h"

#include <array>
#include <string_view>

namespace workbench {
namespace {

using deployment::TReasonCause;
using deployment::TReasonSource;
using deployment::TReconcileOutcome;
using deployment::TReconcileReason;

// A value of an enumeration: its name in JSON, and how a sentence speaks of it.
struct TWords {
  const char* Name;
  const char* Phrase;
};

// In the order of TReconcileStep.
constexpr std::array<TWords, 8> Steps{{
    {"packages", "runtime packages"},
    {"projectOutput", "project output"},
    {"debugSymbols", "debug symbols"},
    {"osxDefaults", "OS X defaults"},
    {"iosDefaults", "iOS defaults"},
    {"androidDefaults", "Android defaults"},
    {"artwork", "artwork"},
    {"projectFiles", "project files"},
}};

// In the order of TReconcileOutcome.
constexpr std::array<TWords, 5> Outcomes{{
    {"added", "adds it"},
    {"updated", "brings it up to date"},
    {"kept", "keeps it"},
    {"removed", "removes it"},
    {"skipped", "makes no entry"},
}};

// In the order of TReasonSource.
constexpr std::array<const char*, 11> Sources{
    "target", "outputFile", "besideOutput", "packageService",  "symbolService", "option",
    "sdk",    "ideFile",    "fileSearch",   "projectFileList", "otherEntry",
};

// In the order of TReasonCause.
constexpr std::array<TWords, 15> Causes{{
    {"", ""},
    {"empty", "it names nothing"},
    {"switchedOff", "it is switched off"},
    {"fileMissing", "there is no such file"},
    {"noLongerNamed", "it is not named there any more"},
    {"ownOutput", "the project builds this file itself"},
    {"wrongImage", "it was built for something else"},
    {"notFound", "it was not found anywhere"},
    {"serviceMissing", "the host cannot be asked"},
    {"wrongKind", "the step does not work for this kind of program"},
    {"wrongPlatform", "the step does not work for this platform"},
    {"excludedExtension", "files of this extension are not deployed"},
    {"otherDevices", "such devices do not show it"},
    {"fileHasOtherRole", "one file has one entry"},
    {"nothingBuilt", "no step has anything to do"},
}};

template <class TEnum>
constexpr std::size_t IndexOf(TEnum value) {
  return static_cast<std::size_t>(value);
}

std::string SourceSentence(const TReconcileReason& reason) {
  const std::string name = Quoted(reason.SourceName);
  const std::string value = Quoted(reason.SourceValue);
  switch (reason.Source) {
  case TReasonSource::Gate:
    if (reason.Cause == TReasonCause::NothingBuilt)
      return reason.SourceName;
    return reason.SourceValue.empty()
               ? "the target is " + name
               : "the target is " + name + ", the program is of kind " + value;
  case TReasonSource::OutputFile:
    return "a build makes " + value;
  case TReasonSource::BesideOutput:
    return "it belongs beside the output " + value;
  case TReasonSource::PackageService:
    return reason.SourceValue.empty() ? "the list of runtime packages"
                                      : "the list of runtime packages names " + value;
  case TReasonSource::SymbolService:
    return "the symbol files of " + name + " have the extension " + value;
  case TReasonSource::Option:
    return "the option " + name + " is " + value;
  case TReasonSource::SDK:
    return reason.SourceName.empty() ? "the development kit of the platform"
                                     : "the development kit " + name + " names " + value;
  case TReasonSource::IDEFile:
    return "the IDE ships it; the option " + name + " is " + value;
  case TReasonSource::FileSearch:
    return reason.Cause == TReasonCause::WrongImage
               ? name + " is a file of the name, but \"" + reason.SourceValue + "\""
               : "it belongs to " + name + ", in the language " + value;
  case TReasonSource::ProjectFileList:
    return "it belongs to the project";
  case TReasonSource::OtherEntry:
    return "the file is the entry of class " + name;
  }
  return {};
}

std::string OutcomePhrase(const TReconcileReason& reason) {
  std::string phrase = Outcomes[IndexOf(reason.Outcome)].Phrase;
  if (reason.ClassName.empty())
    return reason.Outcome == TReconcileOutcome::Skipped ? "does not run" : phrase;
  return phrase + (reason.Outcome == TReconcileOutcome::Skipped ? " of class " : " as ") +
         Quoted(reason.ClassName);
}

} // namespace

std::string ReasonSentence(const TReconcileReason& reason) {
  std::string text = "the step \"";
  text.append(Steps[IndexOf(reason.Step)].Phrase).append("\" ").append(OutcomePhrase(reason));
  text.append(": ").append(SourceSentence(reason));
  if (reason.Cause != TReasonCause::None)
    text.append("; ").append(Causes[IndexOf(reason.Cause)].Phrase);
  return text;
}

TJson ReasonAsJson(const TReconcileReason& reason) {
  return {{"step", Steps[IndexOf(reason.Step)].Name},
          {"outcome", Outcomes[IndexOf(reason.Outcome)].Name},
          {"class", reason.ClassName},
          {"localName", reason.LocalName},
          {"source", Sources[IndexOf(reason.Source)]},
          {"sourceName", reason.SourceName},
          {"sourceValue", reason.SourceValue},
          {"cause", Causes[IndexOf(reason.Cause)].Name},
          {"text", ReasonSentence(reason)}};
}

} // namespace workbench
