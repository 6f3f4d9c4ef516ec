# Writes files into a source, as constants.
#   cmake -DDIRECTORY=<of the files> -DFILES=<a;b> -DCALLBACK=<file> -DOUTPUT=<source>
#         -P embed_files.cmake
cmake_minimum_required(VERSION 3.25)
set(entries "")
foreach(name IN LISTS FILES)
  file(READ ${DIRECTORY}/${name} text)
  string(APPEND entries "    {\"${name}\", R\"embedded(${text})embedded\"},\n")
endforeach()
file(READ ${CALLBACK} callback)
file(WRITE ${OUTPUT} "// Made by the build from the files that it names.
#include \"workbench/deploy/fleet/fleet_files.h\"

namespace workbench {
namespace {

constexpr TFleetFile Embedded[] = {
${entries}};

} // namespace

std::span<const TFleetFile> FleetFiles() {
  return Embedded;
}

std::string_view FleetCallback() {
  return R\"embedded(${callback})embedded\";
}

} // namespace workbench
")
