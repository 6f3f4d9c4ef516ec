// Host unit Dialogs: questions to the user that need no form of their own.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace deployment {

/// None: nobody answered, or the question was closed; counts as the most careful answer.
enum class TMessageAnswer { None, OK, Yes, YesToAll, No, Cancel };

/// A message box; the first button is the default one.
struct TMessageBox {
  std::string Text;
  std::vector<TMessageAnswer> Buttons;
};

/// What a file-open dialog allows and shows.
struct TFileOpenOptions {
  bool AllowMultiSelect = false;
  bool PathMustExist = false;
  bool FileMustExist = false;
  bool HideReadOnly = false;
  bool Sizable = false;
};

/// Asks and waits for the answer. Implemented by the host; used on its main thread.
class IDialogs {
public:
  virtual ~IDialogs() = default;
  virtual TMessageAnswer ShowMessage(const TMessageBox& message) = 0;
  /// Lets the user change a text; false, and no change, when the box was left without OK.
  virtual bool InputBox(std::string_view caption, std::string_view prompt, std::string& value) = 0;
  /// Full paths of the chosen files; none when the dialog was left without OK.
  virtual std::vector<std::string> OpenFiles(const TFileOpenOptions& options) = 0;
};

} // namespace deployment
