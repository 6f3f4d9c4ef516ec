#include "workbench/desktop/dialogs/settings/sdk_model.h"

#include "workbench/desktop/text/qt_text.h"
#include "workbench/text/visible_text.h"

#include <algorithm>
#include <string_view>

namespace workbench {
namespace {

constexpr std::string_view Prefix = "sdk.";
constexpr std::string_view DefaultPrefix = "sdk-default.";
constexpr std::string_view PlatformKey = "platform";
constexpr std::string_view NdkKey = "ndk-base-path";
constexpr std::string_view ServerKey = "debugger-server";

std::string KeyOf(const std::string& name, std::string_view what) {
  return std::string(Prefix).append(name).append(".").append(what);
}

std::string DefaultKeyOf(const std::string& platform) {
  return std::string(DefaultPrefix) + platform;
}

} // namespace

TSdkModel::TSdkModel(TSettingsEdit& settings, QObject* parent)
    : QAbstractTableModel(parent), FSettings(settings) {
  Read();
}

void TSdkModel::Read() {
  beginResetModel();
  FSdks.clear();
  const std::string ending = std::string(".").append(PlatformKey);
  for (const auto& [key, platform] : FSettings.List()) {
    if (!key.starts_with(Prefix) || !key.ends_with(ending) ||
        key.size() <= Prefix.size() + ending.size())
      continue;
    const std::string name = key.substr(Prefix.size(), key.size() - Prefix.size() - ending.size());
    FSdks.push_back({.Name = name,
                     .Platform = platform,
                     .NdkBasePath = FSettings.Get(KeyOf(name, NdkKey)),
                     .DebuggerServer = FSettings.Get(KeyOf(name, ServerKey)),
                     .IsDefault = FSettings.Get(DefaultKeyOf(platform)) == name});
  }
  endResetModel();
}

int TSdkModel::Find(std::string_view name) const {
  const auto found =
      std::find_if(FSdks.begin(), FSdks.end(), [&](const TSdk& sdk) { return sdk.Name == name; });
  return found == FSdks.end() ? -1 : static_cast<int>(found - FSdks.begin());
}

void TSdkModel::Forget(const std::string& name) {
  const std::string defaultKey = DefaultKeyOf(FSettings.Get(KeyOf(name, PlatformKey)));
  if (FSettings.Get(defaultKey) == name)
    FSettings.Unset(defaultKey);
  for (const std::string_view what : {PlatformKey, NdkKey, ServerKey})
    FSettings.Unset(KeyOf(name, what));
}

void TSdkModel::Put(const std::string& oldName, const TSdk& sdk) {
  if (!oldName.empty())
    Forget(oldName);
  FSettings.Set(KeyOf(sdk.Name, PlatformKey), sdk.Platform);
  FSettings.Set(KeyOf(sdk.Name, NdkKey), sdk.NdkBasePath);
  FSettings.Set(KeyOf(sdk.Name, ServerKey), sdk.DebuggerServer);
  if (sdk.IsDefault)
    FSettings.Set(DefaultKeyOf(sdk.Platform), sdk.Name);
  Read();
}

void TSdkModel::Remove(const std::string& name) {
  Forget(name);
  Read();
}

int TSdkModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(FSdks.size());
}

int TSdkModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : ColumnCount;
}

QVariant TSdkModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || role != Qt::DisplayRole)
    return {};
  const TSdk& sdk = Sdk(index.row());
  switch (index.column()) {
  case Name:
    return ToQString(Visible(sdk.Name));
  case Platform:
    return ToQString(Visible(sdk.Platform));
  case NdkBasePath:
    return ToQString(Visible(sdk.NdkBasePath));
  case DebuggerServer:
    return ToQString(Visible(sdk.DebuggerServer));
  case Default:
    return sdk.IsDefault ? tr("yes") : QString();
  default:
    return {};
  }
}

QVariant TSdkModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
    return {};
  switch (section) {
  case Name:
    return tr("Name");
  case Platform:
    return tr("Platform");
  case NdkBasePath:
    return tr("NDK");
  case DebuggerServer:
    return tr("Debugger server");
  case Default:
    return tr("Default");
  default:
    return {};
  }
}

} // namespace workbench
