#include "workbench/remote/profile/profile_json.h"

#include "workbench/remote/profile/profile_check.h"

namespace workbench {

nlohmann::ordered_json ProfileToJson(const TProfile& profile) {
  nlohmann::ordered_json value{{"name", profile.Name},
                               {"platform", profile.Platform},
                               {"kind", ProfileKindName(profile.Kind)},
                               {"path", profile.Path},
                               {"default", profile.IsDefault},
                               {"allowOutside", profile.AllowOutside},
                               {"stateless", profile.Stateless}};
  if (profile.Kind == TProfileKind::Ssh) {
    value["host"] = profile.Host;
    value["port"] = profile.Port;
    value["user"] = profile.User;
    value["identity"] = profile.Identity;
    value["sshOptions"] = profile.SshOptions;
    value["connectTimeout"] = profile.ConnectTimeout;
    value["keepAlive"] = profile.KeepAlive;
  }
  return value;
}

TProfile ProfileFromJson(const nlohmann::ordered_json& value) {
  TProfile profile;
  profile.Name = value.at("name").get<std::string>();
  profile.Platform = value.at("platform").get<std::string>();
  profile.Kind = ProfileKindFromName(value.at("kind").get<std::string>());
  profile.Path = value.at("path").get<std::string>();
  profile.IsDefault = value.value("default", false);
  profile.AllowOutside = value.value("allowOutside", false);
  profile.Stateless = value.value("stateless", false);
  profile.Host = value.value("host", std::string());
  profile.Port = value.value("port", profile.Port);
  profile.User = value.value("user", std::string());
  profile.Identity = value.value("identity", std::string());
  profile.SshOptions = value.value("sshOptions", std::vector<std::string>());
  profile.ConnectTimeout = value.value("connectTimeout", profile.ConnectTimeout);
  profile.KeepAlive = value.value("keepAlive", profile.KeepAlive);
  CheckProfile(profile);
  return profile;
}

} // namespace workbench
