// Saving replaces a good file only by a complete one: a failing write or a process killed
// mid-save leaves the old file as it was.

#include "xml/file_io.hpp"
#include "xml/xml_exporter.hpp"
#include "xml/xml_importer.hpp"
#include "xml/xml_test_support.hpp"

#include <csignal>
#include <fstream>
#include <sstream>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace velmar;
using namespace velmar::testing;

std::string contentOf(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream out;
    out << in.rdbuf();
    return out.str();
}

std::size_t entriesIn(const std::filesystem::path& directory) {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(directory), {}));
}

/// The exit status of a child that ran `body` and exited with its result.
template <class Body>
int runInChild(Body&& body) {
    const pid_t pid = ::fork();
    if (pid == 0) ::_exit(body());
    int status = 0;
    ::waitpid(pid, &status, 0);
    return status;
}

TEST(AtomicSave, FailedWriteLeavesTheOldFileAndNoTemporary) {
    TempDir dir;
    const auto target = dir.path() / "measurement.xml";
    VXml::VXmlExporter exporter;
    ASSERT_FALSE(exporter.saveAsFileStandalone(dcDataset(3), target, "old"));
    const auto old = contentOf(target);
    // The child may write only a few kilobytes, far less than the new file.
    const int status = runInChild([&] {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{4096, 4096};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        const auto error = exporter.saveAsFileStandalone(dcDataset(5000), target, "new");
        const bool expected = error.code == ErrorCodeEnum::FILE_COULD_NOT_BE_WRITTEN &&
                              error.getMessageFormatted() == "an error occurred while writing the file";
        return expected ? 0 : 1;
    });
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
    EXPECT_EQ(contentOf(target), old);
    EXPECT_EQ(entriesIn(dir.path()), 1u);
}

TEST(AtomicSave, KillMidSaveLeavesACompleteFile) {
    TempDir dir;
    const auto target = dir.path() / "measurement.xml";
    VXml::VXmlExporter exporter;
    ASSERT_FALSE(exporter.saveAsFileStandalone(dcDataset(3), target, "old"));
    int ready[2];
    ASSERT_EQ(::pipe(ready), 0);
    const pid_t pid = ::fork();
    if (pid == 0) {
        ::close(ready[0]);
        const auto big = dcDataset(100000);
        for (;;) {
            // One byte before each save: the parent kills during the second one at the latest.
            if (::write(ready[1], "s", 1) != 1) ::_exit(2);
            if (exporter.saveAsFileStandalone(big, target, "new")) ::_exit(1);
        }
    }
    ::close(ready[1]);
    char byte = 0;
    // Blocks until the child has started saving; a child that died closes the pipe instead.
    const bool started = ::read(ready[0], &byte, 1) == 1 && ::read(ready[0], &byte, 1) == 1;
    ::kill(pid, SIGKILL);
    int status = 0;
    ::waitpid(pid, &status, 0);
    ::close(ready[0]);
    ASSERT_TRUE(started);
    auto imported = VXml::VXmlImporter().importFromFile(target);
    ASSERT_TRUE(imported.has_value()) << imported.error().getMessageFormatted();
    const auto rows = imported->as<DcDataset>()->getRowCount();
    EXPECT_TRUE(rows == 3 || rows == 100000) << rows;
}

TEST(AtomicSave, MissingDirectoriesAreCreatedAndUnwritablePlacesFail) {
    TempDir dir;
    const auto target = dir.path() / "a" / "b" / "c.xml";
    EXPECT_FALSE(VXml::writeFileAtomically(target, "text"));
    EXPECT_EQ(contentOf(target), "text");
    std::ofstream(dir.path() / "file") << "x";
    const auto error = VXml::writeFileAtomically(dir.path() / "file" / "below.xml", "text");
    EXPECT_EQ(error.code, ErrorCodeEnum::FILE_COULD_NOT_BE_OPENED);
    EXPECT_EQ(error.getMessageFormatted(), "could not open the file for writing");
    std::filesystem::create_directory(dir.path() / "dir");
    const auto overDirectory = VXml::writeFileAtomically(dir.path() / "dir", "text");
    EXPECT_EQ(overDirectory.code, ErrorCodeEnum::FILE_COULD_NOT_BE_WRITTEN);
    EXPECT_TRUE(std::filesystem::is_directory(dir.path() / "dir"));
}

}  // namespace
