// The view's questions where a command works it: options of the command line have answered what
// could be answered, so every question gets its No.
#pragma once

#include "package/host/api/dialogs.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace workbench {

/// Plain messages are kept for who runs the command.
class TSilentDialogs final : public deployment::IDialogs {
public:
  deployment::TMessageAnswer ShowMessage(const deployment::TMessageBox& message) override {
    FMessages.push_back(message.Text);
    return deployment::TMessageAnswer::None;
  }
  bool InputBox(std::string_view /*caption*/, std::string_view /*prompt*/,
                std::string& /*value*/) override {
    return false;
  }
  std::vector<std::string> OpenFiles(const deployment::TFileOpenOptions& /*options*/) override {
    return {};
  }

  /// The texts since the last call, in order.
  std::vector<std::string> TakeMessages() { return std::exchange(FMessages, {}); }

private:
  std::vector<std::string> FMessages;
};

} // namespace workbench
