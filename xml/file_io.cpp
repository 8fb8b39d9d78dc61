#include "xml/file_io.hpp"

#include "xml/xml_messages.hpp"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace VXml {

using velmar::ErrorCodeEnum;
using velmar::ErrorObject;

namespace {

/// Closes the descriptor when it goes out of scope.
class Descriptor {
public:
    explicit Descriptor(int fd) : fd_(fd) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    Descriptor(Descriptor&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
    Descriptor& operator=(Descriptor&&) = delete;
    ~Descriptor() {
        if (fd_ >= 0) ::close(fd_);
    }
    int get() const { return fd_; }
    /// Closes now; false when close reports an error (a deferred write error).
    bool close() {
        const int fd = fd_;
        fd_ = -1;
        return ::close(fd) == 0;
    }

private:
    int fd_;
};

std::expected<Descriptor, ErrorObject> openForReading(const std::filesystem::path& path) {
    std::error_code ec;
    if (!std::filesystem::exists(path, ec)) {
        return std::unexpected(ErrorObject(ErrorCodeEnum::FILE_NOT_FOUND, messages::FILE_NOT_FOUND, path.string()));
    }
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    struct stat info {};
    if (fd < 0 || ::fstat(fd, &info) != 0 || S_ISDIR(info.st_mode)) {
        if (fd >= 0) ::close(fd);
        return std::unexpected(ErrorObject(ErrorCodeEnum::FILE_COULD_NOT_BE_OPENED, messages::FILE_OPEN_FOR_READING));
    }
    return Descriptor(fd);
}

/// Reads up to `count` bytes into `out` at `offset`; the number read (0 at the end), or -1.
ssize_t readSome(int fd, char* out, std::size_t count) {
    for (;;) {
        const ssize_t n = ::read(fd, out, count);
        if (n >= 0 || errno != EINTR) return n;
    }
}

bool writeAll(int fd, std::string_view content) {
    while (!content.empty()) {
        const ssize_t n = ::write(fd, content.data(), content.size());
        if (n < 0) {
            if (errno == EINTR) continue;
            return false;
        }
        content.remove_prefix(static_cast<std::size_t>(n));
    }
    return true;
}

/// The process's file mode mask, read without changing it (umask() would, for all threads).
mode_t currentUmask() {
    Descriptor status(::open("/proc/self/status", O_RDONLY | O_CLOEXEC));
    char buffer[4096];
    const ssize_t n = status.get() >= 0 ? readSome(status.get(), buffer, sizeof buffer - 1) : -1;
    if (n > 0) {
        const std::string_view text(buffer, static_cast<std::size_t>(n));
        if (const auto at = text.find("Umask:"); at != std::string_view::npos) {
            return static_cast<mode_t>(std::strtoul(buffer + at + 6, nullptr, 8));
        }
    }
    return 022;
}

ErrorObject readError() { return ErrorObject(ErrorCodeEnum::FILE_COULD_NOT_BE_READ, messages::FILE_READ_ERROR); }
ErrorObject emptyError() { return ErrorObject(ErrorCodeEnum::FILE_IS_EMPTY, messages::FILE_EMPTY); }

}  // namespace

std::expected<std::string, ErrorObject> readWholeFile(const std::filesystem::path& path) {
    auto file = openForReading(path);
    if (!file) return std::unexpected(file.error());
    struct stat info {};
    if (::fstat(file->get(), &info) != 0) return std::unexpected(readError());
    // The size is a hint for the first allocation; the loop reads what is really there.
    std::string content;
    content.resize(static_cast<std::size_t>(std::max<off_t>(info.st_size, 0)) + 1);
    std::size_t used = 0;
    for (;;) {
        if (used == content.size()) content.resize(content.size() * 2);
        const ssize_t n = readSome(file->get(), content.data() + used, content.size() - used);
        if (n < 0) return std::unexpected(readError());
        if (n == 0) break;
        used += static_cast<std::size_t>(n);
    }
    content.resize(used);
    if (content.empty()) return std::unexpected(emptyError());
    return content;
}

std::expected<std::string, ErrorObject> readFilePrefix(const std::filesystem::path& path, std::size_t limit,
                                                       std::string_view marker) {
    auto file = openForReading(path);
    if (!file) return std::unexpected(file.error());
    constexpr std::size_t BLOCK = 4096;
    std::string content;
    while (content.size() < limit) {
        const std::size_t before = content.size();
        content.resize(std::min(limit, before + BLOCK));
        const ssize_t n = readSome(file->get(), content.data() + before, content.size() - before);
        if (n < 0) return std::unexpected(readError());
        content.resize(before + static_cast<std::size_t>(n));
        if (n == 0) break;
        // Only the new bytes and the marker's length before them can complete the marker.
        const std::size_t from = before >= marker.size() ? before - marker.size() : 0;
        if (content.find(marker, from) != std::string::npos) break;
    }
    if (content.empty()) return std::unexpected(emptyError());
    return content;
}

ErrorObject writeFileAtomically(const std::filesystem::path& path, std::string_view content) {
    const ErrorObject openError(ErrorCodeEnum::FILE_COULD_NOT_BE_OPENED, messages::FILE_OPEN_FOR_WRITING);
    const ErrorObject writeError(ErrorCodeEnum::FILE_COULD_NOT_BE_WRITTEN, messages::FILE_WRITE_ERROR);
    const std::filesystem::path target = std::filesystem::absolute(path);
    const std::filesystem::path directory = target.parent_path();
    std::error_code ec;
    std::filesystem::create_directories(directory, ec);
    if (ec || target.filename().empty()) return openError;

    std::string temporary = (directory / ("." + target.filename().string() + ".XXXXXX")).string();
    Descriptor file(::mkostemp(temporary.data(), O_CLOEXEC));
    if (file.get() < 0) return openError;
    // mkostemp creates the file for the owner only; a saved file gets the usual permissions.
    (void)::fchmod(file.get(), 0666 & ~currentUmask());

    if (!writeAll(file.get(), content) || ::fsync(file.get()) != 0 || !file.close()) {
        ::unlink(temporary.c_str());
        return writeError;
    }
    if (::rename(temporary.c_str(), target.c_str()) != 0) {
        ::unlink(temporary.c_str());
        return writeError;
    }
    // The rename itself reaches the disk with the directory.
    Descriptor dir(::open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (dir.get() >= 0) (void)::fsync(dir.get());
    return {};
}

}  // namespace VXml
