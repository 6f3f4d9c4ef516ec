// What the forms of the package share: tree images and file dialogs.
#pragma once

#include "package/host/api/dialogs.h"
#include "package/host/api/toolbars.h"

#include <memory>

namespace deployment {

/// A file dialog with its options.
struct TFileOpenDialog {
  TFileOpenOptions Options;
};

/// The data module.
class TDMDeploy {
public:
  /// Images of the Deployment Manager's tree; the first one is that of its view.
  static TImageList TreeImages();

  TFileOpenDialog FileOpenDialog1{{.AllowMultiSelect = true,
                                   .PathMustExist = true,
                                   .FileMustExist = true,
                                   .HideReadOnly = false,
                                   .Sizable = true}};
  TFileOpenDialog FileOpenDialog1_old{{.AllowMultiSelect = true,
                                       .PathMustExist = true,
                                       .FileMustExist = true,
                                       .HideReadOnly = false,
                                       .Sizable = false}};
};

/// The unit-level object of the unit "DeployDataModule".
struct TDeployDataModule {
  /// Null before the host's main form exists and after the unit is finalized.
  std::unique_ptr<TDMDeploy> DMDeploy;
};

} // namespace deployment
