// The Deployment section of a project file: the entries of a deployment as elements and back.
#pragma once

#include "package/host/api/deploymentapi.h"
#include "package/host/api/node.h"
#include "package/host/api/xml.h"

namespace deployment {

class TLostContent;

/// The layout that is written, and the one that a new project starts with.
inline constexpr int CurrentSectionVersion = 2;

/// True when the element is a section (its name compared ignoring case).
bool IsDeploymentSection(const IXMLNode& node);

/// The layout of a section. Throws TInputError when it says anything but an integer.
TSectionLayout ReadSectionLayout(IXMLNode& node);

/// Adds the entries and root names of a section to the deployment. An entry takes the place of
/// one with the same configuration, platform and local name. What a save will not write again is
/// told to `lost`, which may be null. Throws TInputError at an element that cannot be understood;
/// what was added before it stays.
void ReadSectionEntries(IProjectDeployment& deployment, IXMLNode& node, TLostContent* lost);

/// Rebuilds the section from the deployment as it is: the default deployment is not made sure of.
/// A deployment with neither files nor classes leaves a section without children and attributes.
void WriteSection(IProjectDeployment& deployment, IXMLNode& node);

} // namespace deployment
