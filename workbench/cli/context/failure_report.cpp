#include "workbench/cli/context/failure_report.h"

#include "package/common/errors.h"
#include "workbench/cli/context/command.h"
#include "workbench/files/save_error.h"

#include <exception>

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
  } catch (const std::exception& error) {
    return Report(output, {exit_status::WorkFailed, error.what(), {}, 0, false});
  }
}

} // namespace workbench
