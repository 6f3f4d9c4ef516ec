// For tests of the featured files: a host whose repository holds a catalog.
#pragma once

#include "package/featured/features.h"
#include "tests/package/reconcile/reconcile_world.h"

#include <string>
#include <string_view>

namespace deployment {

inline constexpr const char* CatalogFile = R"(C:\ide\ObjRepos\Deploy\featuredfiles.xml)";

/// Two classes and four features of the product "Test".
inline constexpr std::string_view SampleCatalog = R"XML(<Catalog>
  <Feature FeatureClass=" data ;Net" ProductName="test">
    <Title>Client</Title>
    <DeployFile LocalName="lib\client.dll" Class="DependencyModule">
      <Platform Name="Win32"><RemoteDir>lib</RemoteDir></Platform>
      <Platform Name="Win64"/>
    </DeployFile>
    <DeployFile LocalName="lib\client.ini" Class="File">
      <Platform Name="Win32"><RemoteDir>conf\</RemoteDir></Platform>
    </DeployFile>
  </Feature>
  <FeatureClass ProductName="Test" Name="Data"><Extensions>.DAT; .bin;.db</Extensions></FeatureClass>
  <featureclass productname="TEST" name="Net"><extensions>.url</extensions></featureclass>
  <FeatureClass ProductName="Other" Name="Data"><Extensions>.zip</Extensions></FeatureClass>
  <Note/>
  <Feature FeatureClass="Net" ProductName="Test">
    <Title>Proxy</Title>
    <DeployFile LocalName="proxy.dll" Class="File"><Platform Name="Win32"/></DeployFile>
  </Feature>
  <Feature ProductName="Test"><Title>Loose</Title></Feature>
  <Feature FeatureClass="Data" ProductName="Other"><Title>Foreign</Title></Feature>
  <Feature FeatureClass="Unknown;Data" ProductName="Test"><Title>Tables</Title></Feature>
</Catalog>)XML";

/// A world with a catalog.
struct TCatalogWorld : TReconcileWorld {
  explicit TCatalogWorld(std::string_view catalog = SampleCatalog) { SetCatalog(catalog); }

  void SetCatalog(std::string_view catalog) { Host.Files[CatalogFile] = catalog; }
  std::string TitlesFor(std::string_view extension) {
    std::string titles;
    const TFeatures features(Host, extension);
    for (const TFeature& feature : features.List())
      titles += (titles.empty() ? "" : " ") + feature.Title();
    return titles;
  }
};

/// Answers the dialog as a test says, and keeps what it saw.
struct TAnsweringForms : IModalForms {
  TModalResult ShowFeatureFiles(IFeatureFileForm& form) override {
    ++Shown;
    SawShowAuto = form.GetShowAuto();
    Titles.clear();
    for (const TNodeId feature : form.GetChildren(0)) {
      Titles.push_back(form.GetText(feature));
      if (Choose == form.GetText(feature) || Choose == "*")
        form.SetChecked(feature, true);
      if (Drop == form.GetText(feature))
        form.SetChecked(feature, false);
    }
    form.SetShowAuto(ShowAuto);
    return Result;
  }

  TModalResult Result = TModalResult::OK;
  std::string Choose;
  std::string Drop;
  bool ShowAuto = true;
  int Shown = 0;
  bool SawShowAuto = false;
  std::vector<std::string> Titles;
};

} // namespace deployment
