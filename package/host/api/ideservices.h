// Host unit Ideservices: the services object - everything that the package asks of a host.
#pragma once

#include "package/host/api/appstrs.h"
#include "package/host/api/docmodul.h"
#include "package/host/api/envoptions.h"
#include "package/host/api/forms.h"
#include "package/host/api/ideintf.h"
#include "package/host/api/macroutils.h"
#include "package/host/api/node.h"
#include "package/host/api/platformapi.h"
#include "package/host/api/platforms.h"
#include "package/host/api/projectfileutils.h"
#include "package/host/api/projectmodule.h"
#include "package/host/api/toolsapi.h"
#include "package/host/api/uiutils.h"
#include "package/host/api/xml.h"

#include <memory>
#include <string>
#include <string_view>

namespace deployment {

/// Fills named variables into a text file. Owned by whoever made it.
class ICoExpertFilter {
public:
  virtual ~ICoExpertFilter() = default;
  virtual void SetVariable(std::string_view name, std::string_view value) = 0;
  /// The file's text with every "$(NAME)" of a set variable replaced by its value, escaped for
  /// XML. Throws TInputError when the file cannot be read.
  virtual std::string Filter(std::string_view fileName) const = 0;
};

/// Tells the user what they should know while the work goes on. Implemented by the host.
class IOTAMessageServices {
public:
  virtual ~IOTAMessageServices() = default;
  /// One sentence about a place in an input.
  virtual void AddWarning(std::string_view text, const TErrorPlace& place) = 0;
};

/// The services of the host. Implemented by the host and alive as long as the package is loaded.
/// Those returned by reference every host has; a pointer is null in a host without that service.
class VelmorIDEServices {
public:
  virtual ~VelmorIDEServices() = default;
  virtual IIDEEvents& GetEvents() = 0;
  virtual IModuleHandlerGauntlet& GetModuleHandlerGauntlet() = 0;
  virtual IOTAProjectFileStorage& GetProjectFileStorage() = 0;
  virtual IXMLDocuments& GetXMLDocuments() = 0;
  virtual IProjectFileUtils& GetProjectFileUtils() = 0;
  virtual IPlatformManager& GetPlatformManager() = 0;
  virtual IMacroUtils& GetMacroUtils() = 0;
  virtual IFileUtils& GetFileUtils() = 0;
  virtual IAppStrings& GetAppStrings() = 0;
  virtual ISettingsStore& GetSettings() = 0;
  virtual IOTAMessageServices& GetMessageServices() = 0;
  virtual std::unique_ptr<ICoExpertFilter> CreateTextFilter() = 0;

  virtual IOTAPersonalityServices* GetPersonalityServices() = 0;
  virtual IPlatformSDKServices* GetSDKServices() = 0;
  virtual IAndroidToolServices* GetAndroidToolServices() = 0;
  /// Null where nobody can answer a dialog.
  virtual IModalForms* GetModalForms() = 0;
  virtual IOTARemoteProfileServices* GetRemoteProfileServices() = 0;
  virtual IProjectEvents* GetProjectEvents() = 0;
  virtual IOTAEditorViewServices* GetEditorViewServices() = 0;
  virtual IOTAExtensions* GetExtensions() = 0;
};

} // namespace deployment
