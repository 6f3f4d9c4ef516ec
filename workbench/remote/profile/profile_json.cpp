#include "workbench/remote/profile/profile_json.h"

#include "package/common/errors.h"
#include "workbench/remote/profile/profile_check.h"

#include <stdexcept>

namespace workbench {
namespace {

constexpr unsigned LargestPort = 65535;

TProfile FieldsFromJson(const TJson& value) {
  TProfile profile;
  profile.Name = value.Text("name");
  profile.Platform = value.Text("platform");
  profile.Kind = ProfileKindFromName(value.Text("kind"));
  profile.Path = value.Text("path");
  profile.IsDefault = value.BooleanOr("default", false);
  profile.AllowOutside = value.BooleanOr("allowOutside", false);
  profile.Stateless = value.BooleanOr("stateless", false);
  profile.AfterDeploy = value.TextOr("afterDeploy", {});
  profile.Compress = value.BooleanOr("compress", false);
  profile.Host = value.TextOr("host", {});
  profile.Port = value.NumberOr("port", profile.Port, 0U, LargestPort);
  profile.User = value.TextOr("user", {});
  profile.Identity = value.TextOr("identity", {});
  profile.SshOptions = value.TextsOr("sshOptions", {});
  profile.ConnectTimeout = value.NumberOr("connectTimeout", profile.ConnectTimeout);
  profile.KeepAlive = value.NumberOr("keepAlive", profile.KeepAlive);
  return profile;
}

} // namespace

TJson ProfileToJson(const TProfile& profile) {
  TJson value = {{"name", profile.Name},
                 {"platform", profile.Platform},
                 {"kind", ProfileKindName(profile.Kind)},
                 {"path", profile.Path},
                 {"default", profile.IsDefault},
                 {"allowOutside", profile.AllowOutside},
                 {"stateless", profile.Stateless},
                 {"afterDeploy", profile.AfterDeploy}};
  if (profile.Kind == TProfileKind::Ssh)
    value.AddAll({{"host", profile.Host},
                  {"port", profile.Port},
                  {"user", profile.User},
                  {"identity", profile.Identity},
                  {"sshOptions", profile.SshOptions},
                  {"compress", profile.Compress},
                  {"connectTimeout", profile.ConnectTimeout},
                  {"keepAlive", profile.KeepAlive}});
  return value;
}

TProfile ProfileFromJson(const TJson& value) {
  try {
    TProfile profile = FieldsFromJson(value);
    CheckProfile(profile);
    return profile;
  } catch (const std::invalid_argument& error) {
    throw deployment::TInputError(error.what());
  }
}

} // namespace workbench
