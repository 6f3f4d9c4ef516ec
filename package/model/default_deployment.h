// The deployment that a project starts with: a template of the host, filled in for the project.
#pragma once

#include "package/host/api/ideservices.h"

#include <memory>

namespace deployment {

/// The template "defaults.xml" with the project's name, application type, personality and framework
/// filled in; null when the host ships none. Throws TInputError when the file cannot be read or is
/// not well-formed.
std::shared_ptr<IXMLDocument> LoadDefaultDeployment(VelmorIDEServices& host,
                                                    const ICustomProject& project);

} // namespace deployment
