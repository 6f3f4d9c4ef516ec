#include "tests/integration/bad_inputs.h"

namespace integration {
namespace {

std::string InPlace(const TWorkplace& place, std::string text) {
  return Replaced(std::move(text), "%D", place.Directory().string());
}

} // namespace

void ExpectToldAndLeftAlone(const TDamage& damage) {
  const TWorkplace place;
  if (damage.Files.front().first.starts_with("root/"))
    place.CopyRoot();
  for (const auto& [name, content] : damage.Files)
    place.Write(name, InPlace(place, content));
  const TRun run = place.Run(damage.Command);
  EXPECT_EQ(run.Status, damage.Status) << run.Errors;
  EXPECT_NE(run.Errors.find(InPlace(place, damage.Message)), std::string::npos) << run.Errors;
  if (damage.Status == 3) {
    EXPECT_EQ(run.Output, "");
  }
  for (const auto& [name, content] : damage.Files)
    EXPECT_EQ(place.Read(name), InPlace(place, content)) << name;
}

std::string ProjectHolding(std::string_view text) {
  const std::string project = ProjectWith("");
  const std::size_t end = project.rfind("</Project>");
  return project.substr(0, end) + std::string(text) + project.substr(end);
}

std::string ProjectListing(std::string_view entries) {
  return ProjectWith(ListOf("<DeployClass Name=\"File\"/>"
                            "<DeployFile LocalName=\"p.exe\" Configuration=\"Debug\" "
                            "Class=\"ProjectOutput\"><Platform Name=\"Win32\"><Enabled>false"
                            "</Enabled></Platform></DeployFile>" +
                            std::string(entries)));
}

std::string DeployedFile(const std::string& name, const std::string& values,
                         const std::string& more) {
  return "<DeployFile LocalName='" + name + "' Configuration='Debug' Class='File'" + more +
         "><Platform Name='Win32'>" + values + "</Platform></DeployFile>\n";
}

} // namespace integration
