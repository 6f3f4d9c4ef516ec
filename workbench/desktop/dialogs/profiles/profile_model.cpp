#include "workbench/desktop/dialogs/profiles/profile_model.h"

#include "workbench/desktop/text/qt_text.h"
#include "workbench/remote/profile/profile_entry.h"
#include "workbench/text/visible_text.h"

#include <algorithm>

namespace workbench {

QString ProfileKindText(TProfileKind kind) {
  switch (kind) {
  case TProfileKind::Folder:
    return TProfileModel::tr("Folder");
  case TProfileKind::Ssh:
    return TProfileModel::tr("SSH");
  }
  return {};
}

void TProfileModel::Refresh() {
  beginResetModel();
  FProfiles.clear();
  try {
    FProfiles = FStore.List();
  } catch (...) {
    endResetModel();
    throw;
  }
  endResetModel();
}

int TProfileModel::Find(std::string_view name) const {
  const auto found = std::find_if(FProfiles.begin(), FProfiles.end(),
                                  [&](const TProfile& profile) { return profile.Name == name; });
  return found == FProfiles.end() ? -1 : static_cast<int>(found - FProfiles.begin());
}

int TProfileModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(FProfiles.size());
}

int TProfileModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : ColumnCount;
}

QVariant TProfileModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || role != Qt::DisplayRole)
    return {};
  const TProfile& profile = Profile(index.row());
  switch (index.column()) {
  case Name:
    return ToQString(Visible(profile.Name));
  case Platform:
    return ToQString(Visible(profile.Platform));
  case Kind:
    return ProfileKindText(profile.Kind);
  case Place:
    return ToQString(ProfilePlace(profile));
  case Default:
    return profile.IsDefault ? tr("yes") : QString();
  default:
    return {};
  }
}

QVariant TProfileModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
    return {};
  switch (section) {
  case Name:
    return tr("Name");
  case Platform:
    return tr("Platform");
  case Kind:
    return tr("Kind");
  case Place:
    return tr("Place");
  case Default:
    return tr("Default");
  default:
    return {};
  }
}

} // namespace workbench
