// Dialogs that answer as a test says, and keep what was asked.
#pragma once

#include "package/host/api/dialogs.h"
#include "package/host/api/forms.h"

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace deployment {

class TScriptedDialogs : public IDialogs {
public:
  TMessageAnswer ShowMessage(const TMessageBox& message) override {
    Messages.push_back(message);
    if (Answers.empty())
      return TMessageAnswer::None;
    const TMessageAnswer answer = Answers.front();
    Answers.pop_front();
    return answer;
  }
  bool InputBox(std::string_view caption, std::string_view prompt, std::string& value) override {
    Inputs.push_back(std::string(caption).append("|").append(prompt).append("|").append(value));
    if (!Input)
      return false;
    value = *Input;
    return true;
  }
  std::vector<std::string> OpenFiles(const TFileOpenOptions& options) override {
    OpenOptions = options;
    return Files;
  }

  std::deque<TMessageAnswer> Answers; ///< in order; nobody answers when there are no more
  std::vector<TMessageBox> Messages;
  std::optional<std::string> Input; ///< what is entered; nothing: Cancel
  std::vector<std::string> Inputs;  ///< "caption|prompt|initial value"
  std::vector<std::string> Files;   ///< what is chosen
  TFileOpenOptions OpenOptions;
};

/// Modal forms, each played by a function; one that is empty cancels.
class TScriptedForms : public IModalForms {
public:
  TModalResult ShowFeatureFiles(IFeatureFileForm& form) override {
    return OnFeatureFiles ? OnFeatureFiles(form) : TModalResult::Cancel;
  }
  TModalResult ShowSelectPlatforms(ISelectForm& form) override {
    return OnSelectPlatforms ? OnSelectPlatforms(form) : TModalResult::Cancel;
  }
  TModalResult ShowRevertToDefault(IRevertToDefaultForm& form) override {
    return OnRevertToDefault ? OnRevertToDefault(form) : TModalResult::Cancel;
  }

  std::function<TModalResult(IFeatureFileForm&)> OnFeatureFiles;
  std::function<TModalResult(ISelectForm&)> OnSelectPlatforms;
  std::function<TModalResult(IRevertToDefaultForm&)> OnRevertToDefault;
};

} // namespace deployment
