#include "tests/workbench/history/edit_fixture.h"
#include "workbench/list/packed_record.h"
#include "workbench/list/record_fields.h"
#include "workbench/list/record_json.h"

namespace workbench {
namespace {

using deployment::TDeployOperation;
using deployment::TInputError;
using testing::ProjectWith;
using testing::StoredEntry;

using EntryRecord = testing::TEditTest;

TEntryRecord FullRecord() {
  TEntryRecord record;
  record.Names = {"Debug", "Win32", "data\\levels.dat"};
  record.Class = "File";
  record.Condition = "'$(X)'=='1'";
  record.Required = true;
  TFilePlatformRecord first;
  first.Platform = "Win32";
  first.RemoteDir = "data\\";
  first.Operation = TDeployOperation::Unpack;
  first.LocalCommands = {"a", "", "b \"quoted\"\n\x01"};
  first.RemoteCommands = {"c"};
  first.RemoteName = std::string(300, 'n');
  first.Enabled = false;
  first.Overwrite = false;
  TFilePlatformRecord second;
  second.Platform = "Android";
  record.Platforms = {first, second};
  return record;
}

TClassRecord FullClass() {
  TClassRecord record;
  record.Id = "Library";
  record.Description = "Libraries of others";
  record.Condition = "true";
  record.Required = true;
  TClassPlatformRecord platform;
  platform.Platform = "OSX32";
  platform.RemoteDir = "Contents\\MacOS\\";
  platform.Operation = TDeployOperation::CopyExecutable;
  platform.LocalCommands = {"l"};
  platform.RemoteCommands = {"r"};
  platform.Extensions = ".dylib;.so";
  record.Platforms = {platform};
  return record;
}

// Collects the fields that are what a new record has.
struct TUnsetFields {
  void Key(const char* name, const std::string& text) { Add(name, text.empty()); }
  void Platform(const std::string& text) { Add("platform", text.empty()); }
  template <class TValue>
  void Field(const char* name, const TValue& value, const TValue& absent) {
    Add(name, value == absent);
  }
  template <class TRecord>
  void Platforms(const std::vector<TRecord>& records) {
    VisitFields(*this, records.front());
  }
  void Add(const char* name, bool isUnset) {
    if (isUnset)
      Names.emplace_back(name);
  }

  std::vector<std::string> Names;
};

// A record with every field set shows whether each form keeps every field.
TEST(EntryRecordFields, AreAllSetInTheRecordsOfTheseTests) {
  TUnsetFields unset;
  const TEntryRecord entry = FullRecord();
  VisitFields(unset, entry);
  const TClassRecord deploymentClass = FullClass();
  VisitFields(unset, deploymentClass);
  EXPECT_EQ(unset.Names, std::vector<std::string>());
}

TEST(EntryRecordFields, AreAllInTheDocument) {
  TEntryRecord record = FullRecord();
  record.Platforms.pop_back();
  record.Platforms[0].LocalCommands = {"a"};
  record.Platforms[0].RemoteName = "n";
  EXPECT_EQ(JsonText(DocumentOf(record), -1),
            R"({"localName":"data\\levels.dat","configuration":"Debug","class":"File",)"
            R"("platform":"Win32","condition":"'$(X)'=='1'","required":true,"platforms":{"Win32":)"
            R"({"enabled":false,"overwrite":false,"remoteDir":"data\\","remoteName":"n",)"
            R"("operation":2,"localCommands":["a"],"remoteCommands":["c"]}}})");
  EXPECT_EQ(JsonText(DocumentOf(FullClass()), -1),
            R"({"name":"Library","description":"Libraries of others","condition":"true",)"
            R"("required":true,"platforms":{"OSX32":{"remoteDir":"Contents\\MacOS\\",)"
            R"("operation":1,"extensions":".dylib;.so","localCommands":["l"],)"
            R"("remoteCommands":["r"]}}})");
}

template <class TRecord>
std::string JsonOf(const TRecord& record) {
  std::string json;
  AppendJson(json, record);
  return json;
}

TEST_F(EntryRecord, TakesAllThatAnEntryStores) {
  EditText(ProjectWith(StoredEntry));
  const TEntryRecord record = RecordOf(*Deployment().GetFiles().at(0));
  EXPECT_EQ(record.Names, (TEntryKey{"Debug", "Win32", "data\\levels.dat"}));
  EXPECT_EQ(record.Class, "File");
  ASSERT_EQ(record.Platforms.size(), 1U);
  EXPECT_EQ(record.Platforms[0].RemoteDir, "data\\");
  EXPECT_EQ(record.Platforms[0].RemoteName, "levels.dat");
  EXPECT_TRUE(record.Platforms[0].Enabled);
}

TEST_F(EntryRecord, MakesAnEntryEqualWhateverItWas) {
  EditText(ProjectWith(StoredEntry));
  const auto file = Deployment().GetFiles().at(0);
  const TEntryRecord before = RecordOf(*file);
  file->SetEnabled("iOSSimulator", false);
  Apply(FullRecord(), *file);
  EXPECT_EQ(RecordOf(*file), FullRecord());
  Apply(before, *file);
  EXPECT_EQ(RecordOf(*file), before);
}

TEST_F(EntryRecord, KeepsTheOrderOfPlatforms) {
  EditText(ProjectWith(StoredEntry));
  const auto file = Deployment().GetFiles().at(0);
  TEntryRecord swapped = FullRecord();
  std::swap(swapped.Platforms[0], swapped.Platforms[1]);
  Apply(FullRecord(), *file);
  Apply(swapped, *file);
  EXPECT_EQ(RecordOf(*file), swapped);
}

TEST_F(EntryRecord, MakesAClassEqualWhateverItWas) {
  EditText(ProjectWith(StoredEntry));
  const auto deploymentClass = Deployment().CreateClass();
  deploymentClass->SetExtensions("Win32", ".dll");
  Apply(FullClass(), *deploymentClass);
  EXPECT_EQ(RecordOf(*deploymentClass), FullClass());
}

TEST_F(EntryRecord, ComesBackFromItsPackedForm) {
  EXPECT_EQ(Unpack(Pack(FullRecord())), FullRecord());
  EXPECT_EQ(Unpack(Pack(TEntryRecord())), TEntryRecord());
  EXPECT_LT(Pack(RecordOf(*[this] {
              EditText(ProjectWith(StoredEntry));
              return Deployment().GetFiles().at(0);
            }()))
                .size(),
            80U);
}

TEST_F(EntryRecord, ComesBackFromItsJson) {
  EXPECT_EQ(EntryRecordFromJson(ParseJson(JsonOf(FullRecord()))), FullRecord());
  EXPECT_EQ(EntryRecordFromJson(ParseJson(JsonOf(TEntryRecord()))), TEntryRecord());
  EXPECT_EQ(ClassRecordFromJson(ParseJson(JsonOf(FullClass()))), FullClass());
}

TEST_F(EntryRecord, KeepsBytesThatAreNoText) {
  TEntryRecord record = FullRecord();
  record.Names.LocalName = std::string("caf\xe9\\\xff.dat") + '\0' + "x";
  EXPECT_EQ(EntryRecordFromJson(ParseJson(JsonOf(record))), record);
}

TEST_F(EntryRecord, LeavesDefaultsOutOfItsJson) {
  TEntryRecord record;
  record.Names = {"Debug", "Win32", "a"};
  record.Class = "File";
  record.Platforms.resize(1);
  record.Platforms[0].Platform = "Win32";
  EXPECT_EQ(JsonOf(record),
            R"({"localName":"a","configuration":"Debug","class":"File","platform":"Win32",)"
            R"("platforms":[{"name":"Win32"}]})");
}

TEST_F(EntryRecord, RefusesJsonThatIsNoRecord) {
  EXPECT_THROW(EntryRecordFromJson(ParseJson("{}")), TInputError);
  EXPECT_THROW(EntryRecordFromJson(ParseJson("[1]")), TInputError);
  EXPECT_THROW(EntryRecordFromJson(
                   ParseJson(R"({"localName":"a","configuration":"","platform":"","class":"File",)"
                             R"("platforms":[{"name":"Win32","operation":9}]})")),
               TInputError);
}

} // namespace
} // namespace workbench
