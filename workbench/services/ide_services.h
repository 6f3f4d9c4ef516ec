// Everything that the package may ask of this host, in one place.
#pragma once

#include "package/host/api/ideservices.h"
#include "workbench/platforms/platform_table.h"
#include "workbench/services/app_strings.h"
#include "workbench/services/editor_views.h"
#include "workbench/services/extensions.h"
#include "workbench/services/file_utils.h"
#include "workbench/services/host_event.h"
#include "workbench/services/macro_utils.h"
#include "workbench/services/message_services.h"
#include "workbench/services/module_handler_gauntlet.h"
#include "workbench/services/personality_services.h"
#include "workbench/services/platform_manager.h"
#include "workbench/services/project_events.h"
#include "workbench/services/project_file_utils.h"
#include "workbench/services/remote_profile_services.h"
#include "workbench/services/sdk_services.h"
#include "workbench/services/storage_service.h"
#include "workbench/settings/settings_store.h"
#include "workbench/xml/xml_documents.h"

#include <filesystem>
#include <memory>

namespace workbench {

/// Raised once, when the host is ready.
class TIDEEvents final : public deployment::IIDEEvents {
public:
  THostEvent<>& MainFormCreated() override { return FMainFormCreated; }

private:
  THostEvent<> FMainFormCreated;
};

/// Owns the services. The concrete types are for the host itself.
class TIDEServices final : public deployment::VelmorIDEServices {
public:
  /// `settingsFile` may name a file that does not exist. Throws TInputError for a damaged one.
  TIDEServices(const std::filesystem::path& root, const TPlatformTable& platforms,
               const std::filesystem::path& settingsFile);

  TIDEEvents& GetEvents() override { return FEvents; }
  TModuleHandlerGauntlet& GetModuleHandlerGauntlet() override { return FGauntlet; }
  TProjectFileStorage& GetProjectFileStorage() override { return FStorage; }
  deployment::IXMLDocuments& GetXMLDocuments() override { return FXmlDocuments; }
  TProjectFileUtils& GetProjectFileUtils() override { return FProjectFileUtils; }
  TPlatformManager& GetPlatformManager() override { return FPlatforms; }
  deployment::IMacroUtils& GetMacroUtils() override { return FMacroUtils; }
  deployment::IFileUtils& GetFileUtils() override { return FFileUtils; }
  deployment::IAppStrings& GetAppStrings() override { return FAppStrings; }
  TSettings& GetSettings() override { return FSettings; }
  TMessageServices& GetMessageServices() override { return FMessages; }
  std::unique_ptr<deployment::ICoExpertFilter> CreateTextFilter() override;

  TPersonalityServices* GetPersonalityServices() override { return &FPersonalities; }
  TSDKServices* GetSDKServices() override { return &FSDKs; }
  TAndroidToolServices* GetAndroidToolServices() override { return &FAndroidTools; }
  deployment::IModalForms* GetModalForms() override { return FModalForms; }
  /// Shows dialogs of packages from now on; null: none are shown. Not owned.
  void SetModalForms(deployment::IModalForms* forms) { FModalForms = forms; }

  TProjectEvents* GetProjectEvents() override { return &FProjectEvents; }
  TEditorViews* GetEditorViewServices() override { return &FEditorViews; }
  TExtensions* GetExtensions() override { return &FExtensions; }
  TRemoteProfileServices* GetRemoteProfileServices() override { return &FRemoteProfiles; }

private:
  TIDEEvents FEvents;
  TModuleHandlerGauntlet FGauntlet;
  TProjectFileStorage FStorage;
  TXmlDocuments FXmlDocuments;
  TProjectFileUtils FProjectFileUtils;
  TPlatformManager FPlatforms;
  TMacroUtils FMacroUtils;
  TFileUtils FFileUtils;
  TMessageServices FMessages;
  TSettings FSettings;
  TPersonalityServices FPersonalities;
  TSDKServices FSDKs;
  TAndroidToolServices FAndroidTools;
  TRemoteProfileServices FRemoteProfiles;
  deployment::IModalForms* FModalForms = nullptr;
  TProjectEvents FProjectEvents;
  TExtensions FExtensions;
  TEditorViews FEditorViews;
  TAppStrings FAppStrings;
};

} // namespace workbench
