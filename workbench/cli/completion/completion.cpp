#include "workbench/cli/completion/completion.h"

#include "package/common/path_text.h"
#include "package/host/api/file_columns.h"
#include "workbench/cli/completion/completion_values.h"
#include "workbench/cli/completion/completion_words.h"

#include <algorithm>
#include <array>
#include <exception>
#include <optional>
#include <utility>

namespace workbench {
namespace {

enum class TKind {
  None,
  Platforms,
  PlatformList, // with commas
  Configurations,
  Profiles,
  Entries,
  Classes,
  Settings,
  RowKeys,
  Truth,
  Files,
  Directories,
  Projects,
};

constexpr std::array<std::pair<std::string_view, TKind>, 20> Kinds{{
    {"--platform", TKind::Platforms},
    {"--add-platform", TKind::Platforms},
    {"--remove-platform", TKind::Platforms},
    {"--platforms", TKind::PlatformList},
    {"--config", TKind::Configurations},
    {"--to-profile", TKind::Profiles},
    {"--class", TKind::Classes},
    {"--sort", TKind::RowKeys},
    {"--enabled", TKind::Truth},
    {"--overwrite", TKind::Truth},
    {"--required", TKind::Truth},
    {"--root", TKind::Directories},
    {"--path", TKind::Directories},
    {"--tree", TKind::Directories},
    {"--from-build", TKind::Directories},
    {"--identity", TKind::Files},
    {"--inventory", TKind::Files},
    {"--out", TKind::Files},
    {"PROJECT", TKind::Projects},
    {"KEY", TKind::Settings},
}};

// Arguments of one name that mean something else in each command.
TKind KindOfArgument(std::string_view command, std::string_view name) {
  if (name == "NAME" && command == "profile")
    return TKind::Profiles;
  if (name == "FILE" && (command == "set" || command == "remove" || command == "explain"))
    return TKind::Entries;
  return name == "FILE" ? TKind::Files : TKind::None;
}

TKind KindOf(std::string_view command, const TOptionReference& option) {
  for (const auto& [name, kind] : Kinds) {
    if (option.HasName(name))
      return kind;
  }
  return option.IsArgument() ? KindOfArgument(command, option.Names.front()) : TKind::None;
}

std::vector<TCandidate> Words(std::initializer_list<const char*> words) {
  std::vector<TCandidate> candidates;
  for (const char* word : words)
    candidates.push_back({word, {}});
  return candidates;
}

// Reads what stands before the cursor, and answers what may stand there.
class TCompletion {
public:
  TCompletion(std::vector<TCommandReference> commands, TTypedWords typed)
      : FCommands(std::move(commands)), FCommon(CommonOptionReferences()),
        FTyped(std::move(typed)) {
    Read();
  }

  std::string Answer() {
    if (FPending)
      return AnswerValue(*FPending, FTyped.Current, {});
    const std::string& current = FTyped.Current;
    if (!FHasOnlyNames && current.starts_with("--") && current.find('=') != std::string::npos)
      return AnswerJoined(current.substr(0, current.find('=')));
    if (!FHasOnlyNames && current.starts_with('-'))
      return Listed(Options(), current, {});
    if (!FCommand)
      return Listed(FIsUnknown ? std::vector<TCandidate>() : CommandNames(), current, {});
    const TOptionReference* argument = ArgumentAt(FArguments.size());
    return argument ? AnswerValue(*argument, current, {}) : Listed({}, current, {});
  }

private:
  void Read() {
    for (const std::string& word : FTyped.Before) {
      if (FPending) {
        Keep(*FPending, word);
        FPending = nullptr;
      } else if (!FHasOnlyNames && word == "--") {
        FHasOnlyNames = true;
      } else if (!FHasOnlyNames && word.starts_with('-') && word.size() > 1) {
        ReadOption(word);
      } else if (FCommand) {
        FArguments.push_back(word);
      } else if (word != "help") {
        ReadCommand(word);
      }
    }
  }

  void ReadOption(const std::string& word) {
    const std::size_t sign = word.find('=');
    const TOptionReference* option = FindOption(word.substr(0, sign));
    if (!option || option->ValueName.empty())
      return;
    if (sign == std::string::npos)
      FPending = option;
    else
      Keep(*option, word.substr(sign + 1));
  }

  void ReadCommand(const std::string& word) {
    FIsUnknown = true;
    for (const TCommandReference& command : FCommands) {
      if (command.Name == word) {
        FCommand = &command;
        FIsUnknown = false;
      }
    }
  }

  void Keep(const TOptionReference& option, const std::string& value) {
    if (option.HasName("--root"))
      FRoot = value;
  }

  const TOptionReference* FindOption(std::string_view name) const {
    if (FCommand) {
      for (const TOptionReference& option : FCommand->Options) {
        if (option.HasName(name))
          return &option;
      }
    }
    for (const TOptionReference& option : FCommon) {
      if (option.HasName(name))
        return &option;
    }
    return nullptr;
  }

  // The argument that stands at this place; the last one takes all that follow when it is
  // repeatable.
  const TOptionReference* ArgumentAt(std::size_t place) const {
    const TOptionReference* found = nullptr;
    for (const TOptionReference& option : FCommand->Options) {
      if (!option.IsArgument())
        continue;
      found = &option;
      if (place-- == 0)
        return found;
    }
    return found && found->IsRepeatable ? found : nullptr;
  }

  std::string ProjectArgument() const {
    for (std::size_t i = 0; FCommand && i < FArguments.size(); ++i) {
      const TOptionReference* argument = ArgumentAt(i);
      if (argument && argument->HasName("PROJECT"))
        return FArguments[i];
    }
    return {};
  }

  std::vector<TCandidate> CommandNames() const {
    std::vector<TCandidate> names;
    names.reserve(FCommands.size() + 1);
    for (const TCommandReference& command : FCommands)
      names.push_back({command.Name, command.Summary});
    names.push_back({"help", "Print the help of a command"});
    return names;
  }

  std::vector<TCandidate> Options() const {
    std::vector<TCandidate> names;
    const auto add = [&names](const std::vector<TOptionReference>& options) {
      for (const TOptionReference& option : options) {
        if (!option.IsArgument() && !option.IsHidden)
          names.push_back({option.LongName(), option.Help});
      }
    };
    if (FCommand)
      add(FCommand->Options);
    add(FCommon);
    return names;
  }

  // "--platform=Wi": a shell that takes this for one word gets the whole word back.
  std::string AnswerJoined(const std::string& name) {
    const TOptionReference* option = FindOption(name);
    if (!option || option->ValueName.empty())
      return Listed({}, {}, {});
    return AnswerValue(*option, FTyped.Current.substr(name.size() + 1), name + "=");
  }

  std::string AnswerValue(const TOptionReference& option, const std::string& current,
                          const std::string& prefix) {
    if (!option.Choices.empty()) {
      std::vector<TCandidate> choices;
      choices.reserve(option.Choices.size());
      for (const std::string& choice : option.Choices)
        choices.push_back({choice, {}});
      return Listed(choices, current, prefix);
    }
    const TKind kind = KindOf(FCommand ? FCommand->Name : std::string(), option);
    switch (kind) {
    case TKind::Files:
      return "files\n";
    case TKind::Directories:
      return "directories\n";
    case TKind::Projects:
      return "projects\n";
    case TKind::PlatformList: {
      const std::size_t comma = current.rfind(',') + 1; // 0 when there is none
      return Listed(Candidates(TKind::Platforms), current.substr(comma),
                    prefix + current.substr(0, comma));
    }
    default:
      return Listed(Candidates(kind), current, prefix);
    }
  }

  // A line that is being typed is no place for errors: the command says what is wrong.
  std::vector<TCandidate> Candidates(TKind kind) const {
    try {
      return ReadCandidates(kind);
    } catch (const std::exception&) {
      return {};
    }
  }

  // With the delimiter that is being typed, and without those that stand there already.
  std::vector<TCandidate> Entries(TCompletionValues& values) const {
    std::vector<TCandidate> entries = values.Entries();
    std::erase_if(entries, [this](const TCandidate& entry) {
      return std::find(FArguments.begin(), FArguments.end(), entry.Text) != FArguments.end();
    });
    if (FTyped.Current.find(deployment::PathDelimiter) != std::string::npos) {
      for (TCandidate& entry : entries)
        std::replace(entry.Text.begin(), entry.Text.end(), '/', deployment::PathDelimiter);
    }
    return entries;
  }

  std::vector<TCandidate> ReadCandidates(TKind kind) const {
    TCompletionValues values(FRoot, ProjectArgument());
    switch (kind) {
    case TKind::Platforms: {
      std::vector<TCandidate> platforms = values.Platforms();
      platforms.push_back({std::string(AllPlatformsArgument), "every platform"});
      return platforms;
    }
    case TKind::Configurations:
      return values.Configurations();
    case TKind::Profiles:
      return values.Profiles();
    case TKind::Entries:
      return Entries(values);
    case TKind::Classes:
      return values.Classes();
    case TKind::Settings:
      return values.Settings();
    case TKind::RowKeys: {
      std::vector<TCandidate> keys;
      keys.reserve(deployment::FileColumns.size());
      for (const deployment::TFileColumn& column : deployment::FileColumns)
        keys.push_back({std::string(column.Key), std::string(column.Title)});
      return keys;
    }
    case TKind::Truth:
      return Words({"true", "false"});
    default:
      return {};
    }
  }

  // The candidates that begin so, with what stands before each.
  static std::string Listed(const std::vector<TCandidate>& candidates, const std::string& current,
                            const std::string& prefix) {
    std::string answer = "words\n";
    for (const TCandidate& candidate : candidates) {
      if (!candidate.Text.starts_with(current))
        continue;
      answer.append(prefix).append(candidate.Text);
      if (!candidate.Description.empty())
        answer.append("\t").append(candidate.Description);
      answer += '\n';
    }
    return answer;
  }

  const std::vector<TCommandReference> FCommands;
  const std::vector<TOptionReference> FCommon;
  const TTypedWords FTyped;
  const TCommandReference* FCommand = nullptr;
  const TOptionReference* FPending = nullptr; // waits for its value
  std::vector<std::string> FArguments;
  std::string FRoot;
  bool FHasOnlyNames = false; // behind "--"
  bool FIsUnknown = false;    // the command
};

} // namespace

std::string CompletionsOf(const std::vector<std::unique_ptr<ICommand>>& commands,
                          std::string_view shell, const std::vector<std::string>& words) {
  std::vector<TCommandReference> references;
  references.reserve(commands.size());
  for (const std::unique_ptr<ICommand>& command : commands)
    references.push_back(ReferenceOf(*command));
  return TCompletion(std::move(references), ReadTypedWords(shell, words)).Answer();
}

} // namespace workbench
