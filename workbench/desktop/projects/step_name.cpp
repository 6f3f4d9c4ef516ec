#include "workbench/desktop/projects/step_name.h"

#include "package/common/path_text.h"
#include "workbench/desktop/text/qt_text.h"

#include <QCoreApplication>
#include <algorithm>
#include <optional>
#include <string>

namespace workbench {
namespace {

struct TStepTexts {
  Q_DECLARE_TR_FUNCTIONS(TProjectEdits)
};

// What a row of the list shows of an entry.
enum class TRowField { Ticked, Unticked, RemotePath, RemoteName, Overwrite, Platforms, Other };

const TFilePlatformRecord* FindPlatform(const TEntryRecord& record, const std::string& platform) {
  const auto found = std::ranges::find(record.Platforms, platform, &TFilePlatformRecord::Platform);
  return found == record.Platforms.end() ? nullptr : &*found;
}

TRowField FieldOf(const TFilePlatformRecord& before, const TFilePlatformRecord& after) {
  TFilePlatformRecord same = before;
  same.Enabled = after.Enabled;
  if (same == after)
    return after.Enabled ? TRowField::Ticked : TRowField::Unticked;
  same = before;
  same.RemoteDir = after.RemoteDir;
  if (same == after)
    return TRowField::RemotePath;
  same = before;
  same.RemoteName = after.RemoteName;
  if (same == after)
    return TRowField::RemoteName;
  same = before;
  same.Overwrite = after.Overwrite;
  return same == after ? TRowField::Overwrite : TRowField::Other;
}

// The one thing that is another one in the entry.
TRowField FieldOf(const TEntryDifference& difference) {
  if (!difference.Before || !difference.After)
    return TRowField::Other;
  std::optional<TRowField> field;
  for (const TFilePlatformRecord& after : difference.After->Platforms) {
    const TFilePlatformRecord* before = FindPlatform(*difference.Before, after.Platform);
    if (before && *before == after)
      continue;
    const TRowField own = before ? FieldOf(*before, after) : TRowField::Platforms;
    if (field && *field != own)
      return TRowField::Other;
    field = own;
  }
  const bool cameOrWent = difference.Before->Platforms.size() != difference.After->Platforms.size();
  return field.value_or(cameOrWent ? TRowField::Platforms : TRowField::Other);
}

TRowField FieldOf(const TListChange& change) {
  if (change.Entries.empty())
    return TRowField::Other;
  const TRowField first = FieldOf(change.Entries.front());
  const bool isEqual = std::ranges::all_of(
      change.Entries, [first](const TEntryDifference& entry) { return FieldOf(entry) == first; });
  return isEqual ? first : TRowField::Other;
}

QString FilesOf(const TListChange& change) {
  if (change.Entries.size() != 1)
    return TStepTexts::tr("%n file(s)", nullptr, static_cast<int>(change.Entries.size()));
  const TEntryDifference& entry = change.Entries.front();
  const TEntryRecord& record = entry.After ? *entry.After : *entry.Before;
  return ToQString(deployment::FileNamePart(record.Names.LocalName));
}

QString EditText(TRowField field) {
  switch (field) {
  case TRowField::Ticked:
    return TStepTexts::tr("Tick %1");
  case TRowField::Unticked:
    return TStepTexts::tr("Untick %1");
  case TRowField::RemotePath:
    return TStepTexts::tr("Remote Path of %1");
  case TRowField::RemoteName:
    return TStepTexts::tr("Remote Name of %1");
  case TRowField::Overwrite:
    return TStepTexts::tr("Overwrite of %1");
  case TRowField::Platforms:
    return TStepTexts::tr("Platforms of %1");
  case TRowField::Other:
    break;
  }
  return TStepTexts::tr("Edit %1");
}

} // namespace

QString StepName(const TFormCommand& command, const QString& target, const TListChange& change) {
  const QString what = command.Text.isEmpty()
                           ? EditText(FieldOf(change)).arg(FilesOf(change))
                           : TStepTexts::tr("%1: %2").arg(command.Text, FilesOf(change));
  return target.isEmpty() ? what : QStringLiteral("%1 (%2)").arg(what, target);
}

QString ReconcileName(const QString& target) {
  return TStepTexts::tr("Reconcile for %1").arg(target);
}

} // namespace workbench
