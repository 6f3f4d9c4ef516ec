#include "workbench/deploy/record/record_place.h"
#include "workbench/deploy/record/target_record.h"

#include <gtest/gtest.h>

namespace workbench {
namespace {

const std::string Hash(64, 'a');

TTargetRecord Record() {
  TTargetRecord record{.Project = "demo", .Platform = "Win64", .Configuration = "Release"};
  record.Runs = {{.Id = "2",
                  .At = "2026-11-22T00:31:21Z",
                  .By = "eva",
                  .Machine = "bench",
                  .Revision = "abc-dirty",
                  .Tool = "deploymgr 1.0",
                  .Copied = 2,
                  .Failed = 1,
                  .Result = TRunResult::Partly}};
  record.Files["demo/a b.dat"] = {.LocalName = "sub\\a b.dat",
                                  .Class = "File",
                                  .Size = 5000000000,
                                  .Time = 1700000000,
                                  .Hash = Hash,
                                  .Mode = 0755,
                                  .Run = "2",
                                  .Platform = "Win64",
                                  .Configuration = "Debug"};
  record.Owed["demo/a b.dat"] = {"systemctl restart app", "true"};
  return record;
}

// A record with one file, whose parts are as given.
std::string WithFile(const std::string& path, const std::string& size = "1",
                     const std::string& mode = "0644", const std::string& hash = Hash) {
  return R"({"format":1,"project":"p","platform":"x","configuration":"c","runs":[],"files":{")" +
         path + R"(":{"localName":"a","class":"File","size":)" + size + R"(,"time":1,"sha256":")" +
         hash + R"(","mode":")" + mode + R"(","run":"1"}}})";
}

TEST(TargetRecord, ComesBackAsItWasWritten) {
  const TRecordReading reading = ParseRecord(RecordText(Record()));
  ASSERT_EQ(reading.State, TRecordState::Read) << reading.Problem;
  EXPECT_EQ(reading.Record, Record());
}

TEST(TargetRecord, IsWrittenAsOthersReadIt) {
  const std::string text = RecordText(Record());
  EXPECT_NE(text.find("\"mode\": \"0755\""), std::string::npos) << text;
  EXPECT_NE(text.find("\"format\": 1"), std::string::npos) << text;
  EXPECT_NE(text.find("\"sha256\": \"" + Hash), std::string::npos) << text;
}

TEST(TargetRecord, KeepsTheLastRuns) {
  TTargetRecord record = Record();
  record.Runs.resize(30, record.Runs.front());
  record.Runs.front().Id = "newest";
  const TRecordReading reading = ParseRecord(RecordText(record));
  EXPECT_EQ(reading.Record.Runs.size(), MostRuns);
  EXPECT_EQ(reading.Record.Runs.front().Id, "newest");
}

TEST(TargetRecord, OfANewerFormatIsToldFromADamagedOne) {
  EXPECT_EQ(ParseRecord(R"({"format":2,"x":[]})").State, TRecordState::Newer);
  EXPECT_EQ(ParseRecord(R"({"format":"2"})").State, TRecordState::Damaged);
  EXPECT_EQ(ParseRecord(R"({"format":0})").State, TRecordState::Damaged);
}

TEST(TargetRecord, ThatIsNoneIsDamaged) {
  EXPECT_EQ(ParseRecord(WithFile("demo/a")).State, TRecordState::Read);
  for (const std::string& text :
       {std::string(), std::string("{"), std::string("[]"), std::string("null"),
        std::string("\0\xff", 2), std::string(R"({"format":1})"),
        std::string(R"({"format":1e999})"), std::string(100000, '['), WithFile("demo/a", "-1"),
        WithFile("demo/a", "1.5"), WithFile("demo/a", "1e999"), WithFile("demo/a", "\"1\""),
        WithFile("demo/a", "1", "0999"), WithFile("demo/a", "1", ""),
        WithFile("demo/a", "1", "777777"), WithFile("demo/a", "1", "0644", "a"),
        WithFile("demo/a", "1", "0644", Hash + "0"),
        WithFile("demo/a", "1", "0644", std::string(64, 'G'))})
    EXPECT_EQ(ParseRecord(text).State, TRecordState::Damaged) << text.substr(0, 300);
}

TEST(TargetRecord, ThatNamesWhatNoDeployPutThereIsDamaged) {
  for (const char* path :
       {"../a", "a/../../b", "/etc/passwd", "~/a", "C:/a", "C:a", "", "a/", "./a", "a//b", "a/./b",
        "a\\\\b", "a\\u0000b", ".deployment-manager/demo/record.json", ".Deployment-Manager/x",
        "a/.deploymgr-1-2.part"})
    EXPECT_EQ(ParseRecord(WithFile(path)).State, TRecordState::Damaged) << path;
  EXPECT_EQ(ParseRecord(R"({"format":1,"project":"p","platform":"x","configuration":"c","runs":[],)"
                        R"("files":{},"owed":{"../a":["x"]}})")
                .State,
            TRecordState::Damaged);
}

TEST(RecordDirectory, IsOneForEachRoot) {
  EXPECT_EQ(RecordDirectoryOf("demo"), ".deployment-manager/demo");
  EXPECT_EQ(RecordDirectoryOf("demo\\"), ".deployment-manager/demo");
  EXPECT_EQ(RecordDirectoryOf("a\\b/c"), ".deployment-manager/a_b_c");
  EXPECT_EQ(RecordDirectoryOf(".."), ".deployment-manager/.._");
  EXPECT_EQ(RecordDirectoryOf(""), ".deployment-manager/_");
  EXPECT_EQ(RecordDirectoryOf("C:\\x"), ".deployment-manager/C__x");
}

} // namespace
} // namespace workbench
