#include "bench/baselines.h"

#include "bench/sample_project.h"

#include <expat.h>
#include <pugixml.hpp>

#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <memory>
#include <string>
#include <unistd.h>
#include <vector>

namespace bench {
namespace {

struct TPlatformValues {
  std::string Name, RemoteDir, RemoteName, Enabled, Overwrite;
};

struct TEntry {
  std::string LocalName, Configuration, Class;
  std::vector<TPlatformValues> Platforms;
};

struct TFilling {
  std::vector<TEntry> Entries;
  std::string Text;
};

void XMLCALL OnStart(void* data, const XML_Char* name, const XML_Char** attributes) {
  auto& filling = *static_cast<TFilling*>(data);
  filling.Text.clear();
  if (std::strcmp(name, "DeployFile") == 0) {
    TEntry& entry = filling.Entries.emplace_back();
    for (; *attributes; attributes += 2) {
      if (std::strcmp(attributes[0], "LocalName") == 0)
        entry.LocalName = attributes[1];
      else if (std::strcmp(attributes[0], "Configuration") == 0)
        entry.Configuration = attributes[1];
      else if (std::strcmp(attributes[0], "Class") == 0)
        entry.Class = attributes[1];
    }
  } else if (std::strcmp(name, "Platform") == 0 && !filling.Entries.empty() && attributes[0]) {
    filling.Entries.back().Platforms.emplace_back().Name = attributes[1];
  }
}

void XMLCALL OnEnd(void* data, const XML_Char* name) {
  auto& filling = *static_cast<TFilling*>(data);
  if (filling.Entries.empty() || filling.Entries.back().Platforms.empty())
    return;
  TPlatformValues& values = filling.Entries.back().Platforms.back();
  if (std::strcmp(name, "RemoteDir") == 0)
    values.RemoteDir = filling.Text;
  else if (std::strcmp(name, "RemoteName") == 0)
    values.RemoteName = filling.Text;
  else if (std::strcmp(name, "Enabled") == 0)
    values.Enabled = filling.Text;
  else if (std::strcmp(name, "Overwrite") == 0)
    values.Overwrite = filling.Text;
}

void XMLCALL OnText(void* data, const XML_Char* text, int length) {
  static_cast<TFilling*>(data)->Text.append(text, static_cast<std::size_t>(length));
}

std::string ReadAll(const std::filesystem::path& file) {
  std::string text(std::filesystem::file_size(file), '\0');
  std::ifstream(file, std::ios::binary)
      .read(text.data(), static_cast<std::streamsize>(text.size()));
  return text;
}

void AddPlatform(pugi::xml_node entry, const char* name, const char* dir, const char* remoteName,
                 bool enabled) {
  pugi::xml_node platform = entry.append_child("Platform");
  platform.append_attribute("Name") = name;
  platform.append_child("RemoteDir").text() = dir;
  if (*remoteName)
    platform.append_child("RemoteName").text() = remoteName;
  if (!enabled)
    platform.append_child("Enabled").text() = "false";
  platform.append_child("Overwrite").text() = "true";
}

void FlushAndReadBack(const std::filesystem::path& target) {
  const int file = ::open(target.c_str(), O_RDONLY | O_CLOEXEC);
  ::fsync(file);
  ::close(file);
  volatile std::size_t sum = ReadAll(target).size();
  static_cast<void>(sum);
}

std::size_t BytesBelow(const pugi::xml_node& node) {
  std::size_t bytes = std::strlen(node.name()) + std::strlen(node.value());
  for (const pugi::xml_attribute& attribute : node.attributes())
    bytes += std::strlen(attribute.name()) + std::strlen(attribute.value());
  for (const pugi::xml_node& child : node.children())
    bytes += BytesBelow(child);
  return bytes;
}

} // namespace

std::size_t LoadWithExpat(const std::filesystem::path& project) {
  const std::string text = ReadAll(project);
  TFilling filling;
  XML_Parser parser = XML_ParserCreate(nullptr);
  XML_SetUserData(parser, &filling);
  XML_SetElementHandler(parser, OnStart, OnEnd);
  XML_SetCharacterDataHandler(parser, OnText);
  XML_Parse(parser, text.data(), static_cast<int>(text.size()), XML_TRUE);
  XML_ParserFree(parser);
  return filling.Entries.size();
}

std::size_t LoadWithPugixml(const std::filesystem::path& project) {
  pugi::xml_document document;
  document.load_file(project.c_str());
  std::size_t count = 0;
  for (pugi::xml_node node =
           document.child("Project").child("ProjectExtensions").child("Deployment").first_child();
       node; node = node.next_sibling())
    ++count;
  return count;
}

void SaveWithPugixml(std::size_t entries, const std::filesystem::path& target, bool durable) {
  pugi::xml_document document;
  pugi::xml_node section =
      document.append_child("Project").append_child("ProjectExtensions").append_child("Deployment");
  section.append_attribute("Version") = 2;
  for (std::size_t i = 0; i < entries; ++i) {
    const std::string name = EntryName(i);
    const std::string dir = name.substr(5, name.rfind('\\') - 4);
    pugi::xml_node entry = section.append_child("DeployFile");
    entry.append_attribute("LocalName") = name.c_str();
    entry.append_attribute("Configuration") = "Debug";
    entry.append_attribute("Class") = "File";
    AddPlatform(entry, "Win32", dir.c_str(), name.c_str() + name.rfind('\\') + 1, true);
    AddPlatform(entry, "Android", ("assets\\internal\\" + dir).c_str(), "", false);
  }
  document.save_file(target.c_str(), "  ");
  if (durable)
    FlushAndReadBack(target);
}

void ExportWithPugixml(std::size_t entries, const std::filesystem::path& target) {
  pugi::xml_document document;
  pugi::xml_node group = document.append_child("Project").append_child("ItemGroup");
  group.append_attribute("Condition") = "'$(Platform)'=='Win32'";
  for (std::size_t i = 0; i < entries; ++i) {
    const std::string name = EntryName(i);
    pugi::xml_node item = group.append_child("DeployFile");
    item.append_attribute("Include") = name.c_str();
    item.append_attribute("Condition") = "'$(Config)'=='Debug'";
    const std::string dir = "sample\\" + name.substr(5, name.rfind('\\') - 4);
    item.append_child("RemoteDir").text() = dir.c_str();
    item.append_child("RemoteName").text() = name.c_str() + name.rfind('\\') + 1;
    item.append_child("DeployClass").text() = "File";
    item.append_child("Operation").text() = "6";
    item.append_child("LocalCommand").text() = "";
    item.append_child("RemoteCommand").text() = "";
    item.append_child("Overwrite").text() = "True";
  }
  document.save_file(target.c_str(), "  ");
}

std::size_t WalkWithPugixml(const std::filesystem::path& file) {
  pugi::xml_document document;
  document.load_file(file.c_str());
  return BytesBelow(document);
}

} // namespace bench
