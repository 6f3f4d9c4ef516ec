#include "workbench/cli/context/failure_report.h"

#include "package/common/errors.h"
#include "workbench/cli/context/command.h"
#include "workbench/files/save_error.h"

#include <exception>
#include <filesystem>
#include <new>
#include <system_error>

namespace workbench {
namespace {

int Report(TOutput& output, const TFailure& failure) {
  output.Error(failure);
  output.Flush();
  return failure.Status;
}

} // namespace

int Reported(TOutput& output, const std::function<int()>& action) {
  try {
    return action();
  } catch (const TUsageError& error) {
    return Report(output, {exit_status::WrongUsage, error.what(), {}, 0, false});
  } catch (const deployment::TInputError& error) {
    return Report(output, {exit_status::UnreadableInput, error.what(), error.Place().File,
                           error.Place().Line, false});
  } catch (const TExitError& error) {
    return Report(output, {error.Status(), error.what(), {}, 0, false});
  } catch (const TSaveError& error) {
    return Report(output, {exit_status::WorkFailed, error.what(), error.File().string(), 0, true});
  } catch (const std::filesystem::filesystem_error& error) {
    std::error_code gone;
    static_cast<void>(std::filesystem::current_path(gone));
    return Report(output,
                  {exit_status::WorkFailed,
                   (gone ? "the present directory cannot be used: " : "") + error.code().message(),
                   gone ? std::string() : error.path1().string(), 0, false});
  } catch (const std::bad_alloc&) {
    return Report(output, {exit_status::WorkFailed, "there is not enough memory", {}, 0, false});
  } catch (const std::system_error& error) {
    // Files have errors of their own: what is left is a thread that cannot be started.
    const std::string sentence = "the system does not let this process go on (a thread, a lock): ";
    return Report(output, {exit_status::WorkFailed, sentence + error.what(), {}, 0, false});
  } catch (const std::exception& error) {
    return Report(output, {exit_status::WorkFailed, error.what(), {}, 0, false});
  }
}

} // namespace workbench
