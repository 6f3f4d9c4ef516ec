#include "workbench/project/project_settings.h"

#include "package/common/case_fold.h"
#include "package/common/convert.h"
#include "package/common/path_text.h"
#include "workbench/msbuild/values/project_paths.h"
#include "workbench/project/own_dialect.h"

#include <algorithm>
#include <unordered_set>

namespace workbench {
namespace {

using deployment::IXMLNode;

// More targets than this are rare, and an evaluation holds every property of the environment.
constexpr std::size_t MostEvaluations = 64;

bool HasCondition(const IXMLNode& node) {
  const auto condition = node.GetAttribute("Condition");
  return condition && condition->find_first_not_of(" \t\r\n") != std::string_view::npos;
}

std::filesystem::path SideFileOf(std::filesystem::path project) {
  return project.replace_extension(".deployproj");
}

} // namespace

TProjectSettings::TProjectSettings(IXMLNode& root, std::filesystem::path projectFile,
                                   ILoadImports& imports, const TPlatformTable& platforms,
                                   TProjectSurroundings surroundings)
    : FImports(std::make_unique<TImportCache>(imports)),
      FDirectories(std::make_unique<TDirectoryCache>()), FOwn(std::make_unique<TOwnDialect>()),
      FPlatformTable(platforms), FSurroundings(std::move(surroundings)) {
  FSource.Root = &root;
  FSource.ProjectFile = std::move(projectFile);
  FSource.Imports = FImports.get();
  FSource.Environment = FSurroundings.Environment;
  FSource.Directories = FDirectories.get();
  FSource.GeneratedFile = SideFileOf(FSource.ProjectFile);
  ReadLayout();
  Evaluate({}, {}).Items();
  Evaluate({}, {}); // takes over what the items brought up
  std::vector<std::string> names;
  for (const TProjectPlatform& platform : FLayout.Platforms)
    names.push_back(platform.Name);
  TEvaluationNotes notes;
  FConfigurations = std::make_unique<TConfigurationTree>(FLayout.Configurations, names, notes);
  AddNotes(notes);
}

TProjectSettings::~TProjectSettings() = default;

TEvaluationSource TProjectSettings::SourceFor(IProjectDialect& dialect,
                                              std::string_view platform) const {
  TEvaluationSource source = FSource;
  dialect.Prepare(source, FPlatformTable.FindPlatform(platform), platform);
  return source;
}

TNamedTexts TProjectSettings::GlobalsFor(IProjectDialect& dialect) const {
  TEvaluationNotes notes;
  TNamedTexts globals = dialect.Globals(FSource.ProjectFile, FSource.Environment, notes);
  AddNotes(notes);
  globals.insert(globals.end(), FSurroundings.Properties.begin(), FSurroundings.Properties.end());
  return globals;
}

bool TProjectSettings::TryLayout(IProjectDialect& dialect) {
  TMSBuildEvaluation evaluation(SourceFor(dialect, {}), GlobalsFor(dialect));
  const std::vector<std::string> known = FPlatformTable.Names();
  const TOutsideProperties given{FSource.Environment, FSurroundings.Properties};
  TEvaluationNotes notes;
  if (!dialect.ReadLayout(evaluation, given, known.empty() ? "Win32" : known.front(), FLayout,
                          notes))
    return false;
  FDialect = &dialect;
  AddNotes(notes);
  return true;
}

// The targets of a project are known before anything is evaluated for one of them. Its items tell
// for certain which kind it is of.
void TProjectSettings::ReadLayout() {
  IProjectDialect* foreign = FSurroundings.Foreign;
  const bool isClaimed = foreign && foreign->Claims(*FSource.Root, FSource.ProjectFile);
  if (isClaimed && TryLayout(*foreign))
    return;
  if (!TryLayout(*FOwn) && foreign && !isClaimed && TryLayout(*foreign))
    return;
  FDialect = FOwn.get();
}

void TProjectSettings::Refresh() {
  FAnswers.clear();
  FImports->Clear();
  FDirectories->Clear();
  FDialect->Forget();
  TProjectLayout before = FLayout;
  TryLayout(*FDialect);
  before.Platforms = std::move(FLayout.Platforms);
  FLayout = std::move(before);
}

void TProjectSettings::AddNote(TEvaluationNote note) const {
  if (FNoted.insert(note.Place.File + ":" + std::to_string(note.Place.Line) + ":" + note.Text)
          .second)
    FNotes.push_back(std::move(note));
}

void TProjectSettings::AddNotes(const TEvaluationNotes& notes) const {
  for (const TEvaluationNote& note : notes)
    AddNote(note);
}

TProjectTarget TProjectSettings::TargetOf(std::string_view configuration,
                                          std::string_view platform) const {
  return {std::string(configuration.empty() ? FLayout.ActiveConfiguration : configuration),
          std::string(platform.empty() ? FLayout.ActivePlatform : platform)};
}

TMSBuildEvaluation& TProjectSettings::Evaluate(std::string_view configuration,
                                               std::string_view platform) const {
  TProjectTarget target = TargetOf(configuration, platform);
  auto found = FAnswers.find(target);
  if (found == FAnswers.end()) {
    if (FAnswers.size() >= MostEvaluations)
      FAnswers.clear();
    TNamedTexts globals = GlobalsFor(*FDialect);
    for (TNamedText& text : FDialect->TargetProperties(target))
      globals.push_back(std::move(text));
    auto evaluation =
        std::make_unique<TMSBuildEvaluation>(SourceFor(*FDialect, target.Platform), globals);
    found = FAnswers.emplace(std::move(target), TAnswer{std::move(evaluation), {}, 0}).first;
  }
  TAnswer& answer = found->second;
  const TEvaluationNotes& notes = answer.Evaluation->Notes();
  for (; answer.Noted < notes.size(); ++answer.Noted)
    AddNote(notes[answer.Noted]);
  return *answer.Evaluation;
}

const std::vector<std::unique_ptr<TBuildConfiguration>>& TProjectSettings::Configurations() const {
  return FConfigurations->All();
}

const TBuildConfiguration* TProjectSettings::FindConfiguration(std::string_view name) const {
  return FConfigurations->Find(name);
}

const TProjectPlatform* TProjectSettings::FindPlatform(std::string_view name) const {
  const auto found = std::ranges::find(FLayout.Platforms, name, &TProjectPlatform::Name);
  return found == FLayout.Platforms.end() ? nullptr : &*found;
}

std::string TProjectSettings::Option(std::string_view configuration, std::string_view platform,
                                     std::string_view name) const {
  return Evaluate(configuration, platform).Property(name);
}

std::string TProjectSettings::BaseProperty(std::string_view name) const {
  const IXMLNode* last = nullptr;
  for (IXMLNode* group = FSource.Root->FirstChild(); group; group = group->NextSibling()) {
    if (group->NodeName() != "PropertyGroup" || HasCondition(*group))
      continue;
    for (IXMLNode* property = group->FirstChild(); property; property = property->NextSibling()) {
      if (deployment::SameText(property->NodeName(), name) && !HasCondition(*property))
        last = property;
    }
  }
  return last ? Evaluate({}, {}).Expand(last->Text(), *last) : std::string();
}

std::vector<std::string> TProjectSettings::CompleteFileList(std::string_view configuration,
                                                            std::string_view platform) const {
  const std::filesystem::path directory = FSource.ProjectFile.parent_path();
  TEvaluationNotes notes;
  const std::vector<std::string> includes =
      FDialect->Files(Evaluate(configuration, platform), notes);
  AddNotes(notes);
  Evaluate(configuration, platform); // takes over what the items brought up
  std::vector<std::string> files;
  std::unordered_set<std::string_view> known; // views of `files`, which never moves
  files.reserve(includes.size());
  known.reserve(includes.size());
  for (const std::string& include : includes) {
    files.push_back(FullPathText(include, directory));
    if (!known.insert(files.back()).second)
      files.pop_back();
  }
  return files;
}

const std::vector<TProjectItem>& TProjectSettings::Items(std::string_view configuration,
                                                         std::string_view platform) const {
  return Evaluate(configuration, platform).Items();
}

std::string TProjectSettings::OutputDirectory(std::string_view configuration,
                                              std::string_view platform) const {
  const TExpanded stored = FDialect->OutputDirectory(Evaluate(configuration, platform));
  if (stored.Unknown)
    return {};
  std::string directory = FullPathText(stored.Text, FSource.ProjectFile.parent_path());
  while (directory.size() > 1 && deployment::IsPathDelimiter(directory.back()))
    directory.pop_back();
  return directory;
}

const TBuildOutput& TProjectSettings::Output(std::string_view configuration,
                                             std::string_view platform) const {
  TMSBuildEvaluation& evaluation = Evaluate(configuration, platform);
  const TProjectTarget target = TargetOf(configuration, platform);
  std::optional<TBuildOutput>& output = FAnswers.at(target).Output;
  if (output)
    return *output;
  output = FDialect->Output(evaluation, FPlatformTable.FindPlatform(target.Platform),
                            FSource.ProjectFile);
  if (!output->Unknown)
    return *output;
  deployment::TErrorPlace place = UnknownPlace(*output->Unknown);
  if (place.File.empty())
    place.File = FSource.ProjectFile.string();
  AddNote({TNoteKind::UnknownValue,
           "what a build of " + target.Configuration + ", " + target.Platform +
               " makes is not known: " + UnknownSentence(*output->Unknown),
           place});
  return *output;
}

std::vector<TOutputStep> TProjectSettings::TraceOutput(std::string_view configuration,
                                                       std::string_view platform) const {
  TMSBuildEvaluation& evaluation = Evaluate(configuration, platform);
  TOutputTrace trace(evaluation);
  for (const TNamedText& text : GlobalsFor(*FDialect))
    trace.AddSource(text.Name, "the solution " + evaluation.Property("SolutionPath"));
  for (const TNamedText& text : FSurroundings.Properties)
    trace.AddSource(text.Name, "given on the command line");
  for (const TNamedText& text : FDialect->TargetProperties(TargetOf(configuration, platform)))
    trace.AddSource(text.Name, "the target");
  FDialect->TraceOutput(evaluation, trace);
  return trace.TakeSteps();
}

std::string TProjectSettings::OutputFileName(std::string_view configuration,
                                             std::string_view platform) const {
  const TBuildOutput& output = Output(configuration, platform);
  return output.Path.empty() ? std::string()
                             : FullPathText(output.Path, FSource.ProjectFile.parent_path());
}

std::string TProjectSettings::NothingToDeploy(std::string_view configuration,
                                              std::string_view platform) const {
  const TBuildOutput& output = Output(configuration, platform);
  const TProjectTarget target = TargetOf(configuration, platform);
  const std::string build = "a build of " + target.Configuration + ", " + target.Platform + " ";
  if (!output.Nothing.empty())
    return build + output.Nothing + ": there is nothing to deploy";
  return output.Unknown ? "it is not known what " + build + "makes" : std::string();
}

bool TProjectSettings::MakesNothing(std::string_view configuration,
                                    std::string_view platform) const {
  return !Output(configuration, platform).Nothing.empty();
}

std::string TProjectSettings::BaseName(std::string_view configuration,
                                       std::string_view platform) const {
  return Output(configuration, platform).BaseName;
}

std::string TProjectSettings::Personality() const {
  return FDialect->Personality(Evaluate({}, {}));
}

std::string TProjectSettings::ApplicationType(std::string_view configuration,
                                              std::string_view platform) const {
  return Output(configuration, platform).ApplicationType;
}

std::string TProjectSettings::FrameworkType() const {
  return ProjectOption("FrameworkType");
}

std::string TProjectSettings::OutputKind(std::string_view configuration,
                                         std::string_view platform) const {
  return Output(configuration, platform).Kind;
}

std::string TProjectSettings::ProjectOption(std::string_view name) const {
  return Option({}, {}, name);
}

std::vector<std::string> TProjectSettings::RuntimePackages(std::string_view configuration,
                                                           std::string_view platform) const {
  TEvaluationNotes notes;
  std::vector<std::string> packages =
      FDialect->Packages(*this, TargetOf(configuration, platform), notes);
  AddNotes(notes);
  return packages;
}

bool TProjectSettings::HasRemoteDebugSymbols(std::string_view configuration,
                                             std::string_view platform) const {
  return FDialect->HasRemoteDebugSymbols(Evaluate(configuration, platform));
}

std::string TProjectSettings::SymbolExtension(std::string_view platform) const {
  return FDialect->SymbolExtension(FPlatformTable.FindPlatform(platform), Personality());
}

std::string TProjectSettings::BuildPlatformName(std::string_view platform) const {
  return FDialect->BuildPlatformName(platform);
}

std::string_view TProjectSettings::ConfigurationProperty() const {
  return FDialect->ConfigurationProperty();
}

int TProjectSettings::OSXKind(std::string_view configuration, std::string_view platform) const {
  constexpr std::string_view Name = "OSXKind";
  const TMSBuildEvaluation& evaluation = Evaluate(configuration, platform);
  const std::string text = evaluation.Property(Name);
  if (text.empty())
    return 1;
  const auto value = deployment::TextToInteger(text);
  if (!value)
    FailProperty(evaluation, Name, text, "an integer");
  return *value;
}

} // namespace workbench
