// JSON documents that are no jobs, and what is said of them.
#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "support/add_policies.h"
#include "support/ordinary_user.h"
#include "support/stored_jobs.h"

namespace {

using stored_jobs::ComplaintOfJson;
using stored_jobs::ComplaintOfLoad;
using stored_jobs::ComplaintOfSave;
using stored_jobs::InWords;

std::string UnknownKey(std::string_view json) { return ComplaintOfJson<JobKeyError>(json); }

TEST(StoreJsonRefusal, AKeyThatDoesNotBelongThereIsNamedWithItsPlace) {
  EXPECT_EQ(UnknownKey(R"({"job":[]})"), "the document: unknown key \"job\"");
  EXPECT_EQ(UnknownKey(R"({"":[]})"), "the document: unknown key \"\"");
  EXPECT_EQ(UnknownKey(R"({"jobs":[{},{"Name":""}]})"), "jobs[1]: unknown key \"Name\"");
  EXPECT_EQ(UnknownKey(R"({"jobs":[{"points":[]}]})"), "jobs[0]: unknown key \"points\"");
  EXPECT_EQ(UnknownKey(R"({"jobs":[{"stations":[{},{"lat":1}]}]})"),
            "jobs[0].stations[1]: unknown key \"lat\"");
  EXPECT_EQ(UnknownKey(R"({"jobs":[{"stations":[{},{},{"points":[{},{"x":1,"q":2}]}]}]})"),
            "jobs[0].stations[2].points[1]: unknown key \"q\"");
  EXPECT_EQ(UnknownKey(R"({"gpsGroups":[{"stations":[]}]})"),
            "gpsGroups[0]: unknown key \"stations\"");
  EXPECT_EQ(UnknownKey(R"({"gpsGroups":[{"points":[{"code3D":true}]}]})"),
            "gpsGroups[0].points[0]: unknown key \"code3D\"");
  EXPECT_EQ(UnknownKey(R"({"knownGroups":[{"name":"a"}]})"),
            "knownGroups[0]: unknown key \"name\"");
  EXPECT_EQ(UnknownKey(R"({"knownGroups":[{"points":[{"zenith":1}]}]})"),
            "knownGroups[0].points[0]: unknown key \"zenith\"");
  EXPECT_EQ(UnknownKey(R"({"controlPoints":[{"points":[]}]})"),
            "controlPoints[0]: unknown key \"points\"");
  EXPECT_EQ(UnknownKey(R"({"current":{"job":0}})"), "current: unknown key \"job\"");
  EXPECT_EQ(UnknownKey(R"({"targets":{"terrain":0}})"), "targets: unknown key \"terrain\"");
}

TEST(StoreJsonRefusal, AValueOfAnotherTypeIsNamedWithItsPlace) {
  EXPECT_EQ(ComplaintOfJson("[]"), "the document: a list does not belong here");
  EXPECT_EQ(ComplaintOfJson("5"), "the document: expected an object, found 5");
  EXPECT_EQ(ComplaintOfJson("null"), "the document: expected an object, found null");
  EXPECT_EQ(ComplaintOfJson(R"({"jobs":{}})"), "jobs: an object does not belong here");
  EXPECT_EQ(ComplaintOfJson(R"({"jobs":null})"), "jobs: expected a list, found null");
  EXPECT_EQ(ComplaintOfJson(R"({"jobs":[{},5]})"), "jobs[1]: expected an object, found 5");
  EXPECT_EQ(ComplaintOfJson(R"({"jobs":[[]]})"), "jobs[0]: a list does not belong here");
  EXPECT_EQ(ComplaintOfJson(R"({"jobs":[{"name":5}]})"), "jobs[0].name: expected a text, found 5");
  EXPECT_EQ(ComplaintOfJson(R"({"jobs":[{"name":null}]})"),
            "jobs[0].name: expected a text, found null");
  EXPECT_EQ(ComplaintOfJson(R"({"jobs":[{"name":{}}]})"),
            "jobs[0].name: an object does not belong here");
  EXPECT_EQ(ComplaintOfJson(R"({"jobs":[{"name":[]}]})"),
            "jobs[0].name: a list does not belong here");
  EXPECT_EQ(ComplaintOfJson(R"({"jobs":[{"stations":[{"points":[{"x":"1"}]}]}]})"),
            "jobs[0].stations[0].points[0].x: expected a number or null, found \"1\"");
  EXPECT_EQ(ComplaintOfJson(R"({"jobs":[{"stations":[{"points":[{"code3D":1}]}]}]})"),
            "jobs[0].stations[0].points[0].code3D: expected true or false, found 1");
  EXPECT_EQ(ComplaintOfJson(R"({"current":[]})"), "current: a list does not belong here");
  EXPECT_EQ(ComplaintOfJson(R"({"current":5})"), "current: expected an object, found 5");
  EXPECT_EQ(ComplaintOfJson(R"({"settings":{"A":5}})"), "settings.A: expected an object, found 5");
  EXPECT_EQ(ComplaintOfJson(R"({"settings":{"A":{"B":1.5}}})"),
            "settings.A.B: expected a text, a whole number, true or false, found 1.5");
  EXPECT_EQ(ComplaintOfJson(R"({"settings":{"A":{"B":null}}})"),
            "settings.A.B: expected a text, a whole number, true or false, found null");
}

TEST(StoreJsonRefusal, AListOfANumberOfParts) {
  const auto geocentric = [](const std::string& list) {
    return ComplaintOfJson(R"({"gpsGroups":[{"geocentric":)" + list + "}]}");
  };
  EXPECT_EQ(geocentric("[1,2,3]"), "none");
  EXPECT_EQ(geocentric("[1,2]"), "gpsGroups[0].geocentric: expected a list of 3");
  EXPECT_EQ(geocentric("[]"), "gpsGroups[0].geocentric: expected a list of 3");
  EXPECT_EQ(geocentric("[1,2,3,4]"), "gpsGroups[0].geocentric[3]: expected a list of 3, found 4");
  EXPECT_EQ(geocentric("[1,true,3]"),
            "gpsGroups[0].geocentric[1]: expected a number or null, found true");
  EXPECT_EQ(geocentric("[1,[2],3]"), "gpsGroups[0].geocentric[1]: a list does not belong here");
  EXPECT_EQ(geocentric("5"), "gpsGroups[0].geocentric: expected a list of 3, found 5");
  EXPECT_EQ(geocentric("{}"), "gpsGroups[0].geocentric: an object does not belong here");
  EXPECT_EQ(ComplaintOfJson(R"({"knownGroups":[{"labels":[]}]})"), "none");
  EXPECT_EQ(ComplaintOfJson(R"({"knownGroups":[{"labels":["a"]}]})"),
            "knownGroups[0].labels: expected a list of 4");
  EXPECT_EQ(ComplaintOfJson(R"({"knownGroups":[{"labels":null}]})"),
            "knownGroups[0].labels: expected a list of 4, found null");
}

TEST(StoreJsonRefusal, ANumberOutsideOfItsField) {
  const auto gps = [](const std::string& member) {
    return ComplaintOfJson(R"({"gpsGroups":[{"points":[{)" + member + "}]}]}");
  };
  EXPECT_EQ(gps(R"("month":256)"),
            "gpsGroups[0].points[0].month: expected a whole number from 0 to 255, found 256");
  EXPECT_EQ(gps(R"("day":-1)"),
            "gpsGroups[0].points[0].day: expected a whole number from 0 to 255, found -1");
  EXPECT_EQ(gps(R"("year":65536)"),
            "gpsGroups[0].points[0].year: expected a whole number from 0 to 65535, found 65536");
  EXPECT_EQ(gps(R"("year":2024.5)"),
            "gpsGroups[0].points[0].year: expected a whole number from 0 to 65535, found 2024.5");
  EXPECT_EQ(gps(R"("gpsUsed":null)"),
            "gpsGroups[0].points[0].gpsUsed: expected a whole number from 0 to 255, found null");
  EXPECT_NE(gps(R"("glonassUsed":256)"), "none");
  EXPECT_NE(gps(R"("tod":4294967296)"), "none");
  EXPECT_NE(gps(R"("quality":2147483648)"), "none");
  EXPECT_NE(gps(R"("quality":-2147483649)"), "none");
  EXPECT_EQ(gps(R"("tod":4294967295,"quality":-2147483648)"), "none");
  EXPECT_EQ(gps(R"("cov":[0,0,0,0,0,1e39])"),
            "gpsGroups[0].points[0].cov[5]: expected a number of single precision, found 1e+39");
  EXPECT_EQ(gps(R"("cov":[0,0,0,0,0,1e200])"), "none");  // undefined, in any precision
  EXPECT_EQ(ComplaintOfJson(
                R"({"jobs":[{"stations":[{"points":[{"dateTime":18446744073709551616}]}]}]})"),
            "jobs[0].stations[0].points[0].dateTime: expected a whole number from 0 to "
            "18446744073709551615, "
            "found 18446744073709551616");
  EXPECT_NE(ComplaintOfJson(R"({"targets":{"cmp":2147483648}})"), "none");
  EXPECT_NE(ComplaintOfJson(R"({"settings":{"A":{"B":9223372036854775808}}})"), "none");
}

TEST(StoreJsonRefusal, ANumberThatNoDoubleHolds) {
  EXPECT_EQ(ComplaintOfJson(R"({"controlPoints":[{"y":-1e400}]})"),
            "controlPoints[0].y: the number is too large: -1e400");
  EXPECT_EQ(ComplaintOfJson(R"({"gpsGroups":[{"geocentric":[0,1e400,0]}]})"),
            "gpsGroups[0].geocentric[1]: the number is too large: 1e400");
}

TEST(StoreJsonRefusal, WhatIsCurrentMustBeThere) {
  const auto current = [](const std::string& members) {
    return ComplaintOfJson(R"({"jobs":[{"stations":[{}]}],"gpsGroups":[{}],"current":{)" + members +
                           "}}");
  };
  EXPECT_EQ(current(R"("station":[0,0],"gpsGroup":0)"), "none");
  EXPECT_EQ(current(R"("station":[0,1])"), "current.station: there is no such station");
  EXPECT_EQ(current(R"("station":[1,0])"), "current.station: there is no such station");
  EXPECT_EQ(current(R"("station":[-1,-1])"), "current.station: there is no such station");
  EXPECT_EQ(current(R"("gpsGroup":1)"), "current.gpsGroup: there is no such group");
  EXPECT_EQ(current(R"("gpsGroup":-1)"), "current.gpsGroup: there is no such group");
  EXPECT_EQ(current(R"("station":[0])"), "current.station: expected a list of 2");
}

TEST(StoreJsonRefusal, BadJsonIsNamedWithItsLine) {
  EXPECT_EQ(ComplaintOfJson("{\n\"jobs\": [\n}\n").substr(0, 16), "line 3, column 1");
  EXPECT_EQ(ComplaintOfJson("").substr(0, 6), "line 1");
  EXPECT_EQ(ComplaintOfJson("{}\n\n x").substr(0, 6), "line 3");
  EXPECT_EQ(ComplaintOfJson("{\"jobs\":[{\"name\":\"\xFF\"}]}").substr(0, 6), "line 1");
  EXPECT_EQ(ComplaintOfJson("{\"controlPoints\":[{\"x\":NaN}]}").substr(0, 6), "line 1");
  EXPECT_EQ(ComplaintOfJson(R"({"jobs":[],})").substr(0, 6), "line 1");
}

TEST(StoreJsonRefusal, EveryCutOfAJobIsRefused) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("job.json", stored_jobs::kFullJob);
  for (std::size_t size = stored_jobs::kFullJob.size() - 2; size-- > 0;) {
    std::filesystem::resize_file(path, size);
    ASSERT_NE(ComplaintOfLoad(path), "") << size;
  }
}

TEST(StoreJsonRefusal, SectionsOfTheWrongForm) {
  EXPECT_EQ(ComplaintOfJson(R"({"gis":[[]]})"), "gis: a list does not belong here");
  EXPECT_EQ(ComplaintOfJson(R"({"gis":5})"), "gis: expected an object, found 5");
  EXPECT_EQ(ComplaintOfJson(R"({"cadastral":5})"), "cadastral: expected an object, found 5");
}

TEST(StoreJsonRefusal, AHostThatRefusesAnAdd) {
  const TemporaryFolder folder;
  const std::string path =
      folder.Write("job.json", R"({"jobs":[{"stations":[{"points":[{},{}]}]}]})");
  HostDocument document;
  RefuseAfter policy(3);
  document.GetLibCmp()->SetAddPolicy(&policy);
  EXPECT_THROW(LoadJob(path, document), JobError);
}

TEST(StoreJsonRefusal, FilesThatCannotBeRead) {
  const TemporaryFolder folder;
  EXPECT_EQ(ComplaintOfLoad(folder.File("none.json")),
            folder.File("none.json") +
                ": cannot be opened: " + InWords(std::errc::no_such_file_or_directory));
  std::filesystem::create_directory(folder.File("folder.json"));
  EXPECT_EQ(
      ComplaintOfLoad(folder.File("folder.json")),
      folder.File("folder.json") + ": cannot be opened: " + InWords(std::errc::is_a_directory));
}

TEST(StoreJsonRefusal, AFailedSaveLeavesThePreviousJob) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("job.json", stored_jobs::kFullJob);
  std::filesystem::permissions(path, std::filesystem::perms{0444});
  std::filesystem::permissions(folder.Path(), std::filesystem::perms{0755});
  HostDocument document;
  {
    const OrdinaryUser user;
    EXPECT_EQ(ComplaintOfSave(path, document),
              path + ": cannot be created: " + InWords(std::errc::permission_denied));
  }
  EXPECT_EQ(ReadBytes(path), stored_jobs::kFullJob);
  EXPECT_EQ(ComplaintOfSave(folder.File("none/job.json"), document),
            folder.File("none/job.json") +
                ": cannot be created: " + InWords(std::errc::no_such_file_or_directory));
}

// A disk that is full half-way, as a process sees it that may write no more than so much into a
// file.
TEST(StoreJsonRefusal, AFullDiskLeavesThePreviousJob) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("job.json", stored_jobs::kFullJob);
  const pid_t child = fork();
  if (child == 0) {
    const rlimit limit{1'000'000, 1'000'000};
    setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, SIG_IGN);
    HostDocument document;
    stored_jobs::FillWithPoints(document, 10'000);
    const std::string complaint = ComplaintOfSave(path, document);
    _exit(complaint == path + ": cannot be written: " + InWords(std::errc::file_too_large) ? 0 : 1);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
  EXPECT_EQ(ReadBytes(path), stored_jobs::kFullJob);
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"job.json"});
}

}  // namespace
