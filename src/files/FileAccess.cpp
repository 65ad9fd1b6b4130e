#include "files/FileAccess.h"

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <system_error>

#if defined(__unix__) || defined(__APPLE__)
#define ZRT_POSIX_FILES 1
#include <csignal>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#else
#include <process.h>
#endif

namespace zrt {

namespace fs = std::filesystem;

namespace {

WriteFault &Fault()
{
    static WriteFault fault;
    return fault;
}

int InjectedError(WriteStep step)
{
    return Fault() ? Fault()(step) : 0;
}

std::string SystemText(int error)
{
    return std::generic_category().message(error);
}

std::string MegaBytes(std::uint64_t limit)
{
    return std::to_string((limit + (1u << 20) - 1) >> 20) + " MB";
}

// The file a path finally names, following symbolic links (also one that points to a file
// not yet made). A loop of links is left to the system to report.
fs::path Resolved(const fs::path &path)
{
    fs::path p = path;
    for (int hops = 0; hops < 40; ++hops) {
        std::error_code ec;
        if (!fs::is_symlink(fs::symlink_status(p, ec)))
            break;
        const fs::path next = fs::read_symlink(p, ec);
        if (ec)
            break;
        p = next.is_absolute() ? next : p.parent_path() / next;
    }
    return p;
}

long ProcessId()
{
#if ZRT_POSIX_FILES
    return static_cast<long>(::getpid());
#else
    return static_cast<long>(::_getpid());
#endif
}

std::string Utf8(const fs::path &p)
{
    const auto text = p.u8string();
    return std::string(text.begin(), text.end());
}

std::string TemporaryPrefix(const fs::path &target)
{
    return "." + Utf8(target.filename()) + ".zrt-";
}

fs::path TemporaryPath(const fs::path &target)
{
    return target.parent_path() / fs::u8path(TemporaryPrefix(target) + std::to_string(ProcessId()) + ".tmp");
}

// Whether a temporary file named for pid can be removed: ours from an attempt that did not
// finish, or one whose process is gone. Where processes can't be asked, one that has not been
// written to for ten minutes is taken to be abandoned.
bool Abandoned(long pid, const fs::path &file)
{
    if (pid == ProcessId())
        return true;
#if ZRT_POSIX_FILES
    (void)file;
    return ::kill(static_cast<pid_t>(pid), 0) != 0 && errno == ESRCH;
#else
    std::error_code ec;
    const auto written = fs::last_write_time(file, ec);
    return !ec && fs::file_time_type::clock::now() - written > std::chrono::minutes(10);
#endif
}

#if ZRT_POSIX_FILES

struct Descriptor {
    int fd = -1;
    ~Descriptor()
    {
        if (fd >= 0)
            ::close(fd);
    }
};

int WriteAll(int fd, std::string_view bytes)
{
    size_t done = 0;
    while (done < bytes.size()) {
        if (int e = InjectedError(WriteStep::Write))
            return e;
        const ssize_t n = ::write(fd, bytes.data() + done, bytes.size() - done);
        if (n < 0) {
            if (errno == EINTR)
                continue;
            return errno;
        }
        done += static_cast<size_t>(n);
    }
    return 0;
}

int SyncToDisk(int fd)
{
    if (int e = InjectedError(WriteStep::Sync))
        return e;
#if defined(__APPLE__) && defined(F_FULLFSYNC)
    if (::fcntl(fd, F_FULLFSYNC) == 0)
        return 0;
#endif
    return ::fsync(fd) == 0 ? 0 : errno;
}

void SyncFolder(const fs::path &folder)
{
    const int fd = ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd >= 0) {
        ::fsync(fd);
        ::close(fd);
    }
}

// Fills the open file with the bytes, with the old file's permission bits, and syncs it.
int FillAndSync(int fd, std::string_view bytes, const struct stat *old)
{
    if (old)
        ::fchmod(fd, old->st_mode & 07777);
    if (int e = WriteAll(fd, bytes))
        return e;
    return SyncToDisk(fd);
}

// The file's bytes on the disk under the temporary name; 0 or the error number.
int WriteTemporary(const fs::path &target, const fs::path &temp, std::string_view bytes, bool &named)
{
    named = false;
    struct stat oldStat {};
    const struct stat *old = ::stat(target.c_str(), &oldStat) == 0 && S_ISREG(oldStat.st_mode) ? &oldStat : nullptr;
    const fs::path folder = target.parent_path().empty() ? fs::path(".") : target.parent_path();
    auto openNamed = [&](Descriptor &file) {
        file.fd = ::open(temp.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, 0666);
        named = file.fd >= 0;
        return named ? 0 : errno;
    };

    if (int e = InjectedError(WriteStep::Create))
        return e;
    Descriptor file;
#if defined(O_TMPFILE)
    if (InjectedError(WriteStep::Unnamed) == 0)
        file.fd = ::open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0666);
#endif
    if (file.fd >= 0) {
        if (int e = FillAndSync(file.fd, bytes, old))
            return e;
        // Naming goes through /proc; where that is not there the bytes are written again
        // under the temporary name.
        const std::string self = "/proc/self/fd/" + std::to_string(file.fd);
        if (::linkat(AT_FDCWD, self.c_str(), AT_FDCWD, temp.c_str(), AT_SYMLINK_FOLLOW) == 0) {
            named = true;
        } else {
            if (errno != ENOENT && errno != EPERM && errno != EACCES)
                return errno;
            ::close(file.fd);
            if (int e = openNamed(file))
                return e;
            if (int e = FillAndSync(file.fd, bytes, old))
                return e;
        }
    } else {
        if (int e = openNamed(file))
            return e;
        if (int e = FillAndSync(file.fd, bytes, old))
            return e;
    }
    const int fd = file.fd;
    file.fd = -1;
    return ::close(fd) == 0 ? 0 : errno;
}

#else

int WriteTemporary(const fs::path &, const fs::path &temp, std::string_view bytes, bool &named)
{
    named = false;
    if (int e = InjectedError(WriteStep::Create))
        return e;
    std::ofstream out(temp, std::ios::binary | std::ios::trunc);
    if (!out)
        return EACCES;
    named = true;
    if (int e = InjectedError(WriteStep::Write))
        return e;
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (int e = InjectedError(WriteStep::Sync))
        return e;
    out.flush();
    if (!out)
        return EIO;
    out.close();
    return out ? 0 : EIO;
}

#endif

} // namespace

void SetWriteFault(WriteFault fault)
{
    Fault() = std::move(fault);
}

FileRead ReadWholeFile(const std::string &path, std::uint64_t limit)
{
    FileRead result;
    const fs::path p = fs::u8path(path);
#if ZRT_POSIX_FILES
    // Non-blocking, so that a pipe with no writer can't hold the program; its type is then
    // told from the open file itself, not from a name that could change in between.
    Descriptor file;
    file.fd = ::open(p.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (file.fd < 0) {
        const int e = errno;
        result.status = (e == ENOENT || e == ENOTDIR) ? ReadStatus::Missing : ReadStatus::Failed;
        result.reason = SystemText(e);
        return result;
    }
    struct stat st {};
    if (::fstat(file.fd, &st) != 0) {
        result.reason = SystemText(errno);
        return result;
    }
    if (!S_ISREG(st.st_mode)) {
        result.status = ReadStatus::NotAFile;
        result.reason = S_ISDIR(st.st_mode) ? "it is a folder" : "it is not an ordinary file";
        return result;
    }
    if (static_cast<std::uint64_t>(st.st_size) > limit) {
        result.status = ReadStatus::TooLarge;
        result.reason = "it is larger than " + MegaBytes(limit);
        return result;
    }
    result.bytes.resize(static_cast<size_t>(st.st_size) + 1);
    size_t got = 0;
    for (;;) {
        if (got == result.bytes.size()) {
            if (got > limit)
                break;
            result.bytes.resize(std::min<std::uint64_t>(limit + 1, got * 2 + 4096));
        }
        const ssize_t n = ::read(file.fd, result.bytes.data() + got, result.bytes.size() - got);
        if (n < 0) {
            if (errno == EINTR)
                continue;
            result.reason = SystemText(errno);
            result.bytes.clear();
            return result;
        }
        if (n == 0)
            break;
        got += static_cast<size_t>(n);
    }
    result.bytes.resize(got);
#else
    std::error_code ec;
    const auto st = fs::status(p, ec);
    if (st.type() == fs::file_type::not_found) {
        result.status = ReadStatus::Missing;
        result.reason = "the file is not there";
        return result;
    }
    if (st.type() != fs::file_type::regular) {
        result.status = ReadStatus::NotAFile;
        result.reason = st.type() == fs::file_type::directory ? "it is a folder" : "it is not an ordinary file";
        return result;
    }
    const auto size = fs::file_size(p, ec);
    if (!ec && size > limit) {
        result.status = ReadStatus::TooLarge;
        result.reason = "it is larger than " + MegaBytes(limit);
        return result;
    }
    std::ifstream in(p, std::ios::binary);
    if (!in) {
        result.reason = "the file can't be opened";
        return result;
    }
    result.bytes.resize(static_cast<size_t>(limit + 1));
    in.read(result.bytes.data(), static_cast<std::streamsize>(result.bytes.size()));
    result.bytes.resize(static_cast<size_t>(in.gcount()));
    if (in.bad()) {
        result.reason = "the file can't be read";
        result.bytes.clear();
        return result;
    }
#endif
    if (result.bytes.size() > limit) {
        result.bytes.clear();
        result.status = ReadStatus::TooLarge;
        result.reason = "it is larger than " + MegaBytes(limit);
        return result;
    }
    result.status = ReadStatus::Ok;
    return result;
}

bool IsReplaceTemporaryName(std::string_view name)
{
    // ".<name>.zrt-<digits>.tmp"
    if (name.size() < 10 || name.front() != '.' || name.substr(name.size() - 4) != ".tmp")
        return false;
    const size_t tag = name.rfind(".zrt-");
    if (tag == std::string_view::npos || tag == 0)
        return false;
    const std::string_view digits = name.substr(tag + 5, name.size() - 4 - (tag + 5));
    if (digits.empty())
        return false;
    for (char c : digits)
        if (c < '0' || c > '9')
            return false;
    return true;
}

void RemoveStaleTemporaries(const std::string &path)
{
    const fs::path target = Resolved(fs::u8path(path));
    const std::string prefix = TemporaryPrefix(target);
    const fs::path folder = target.parent_path().empty() ? fs::path(".") : target.parent_path();
    std::error_code ec;
    for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
        const std::string name = Utf8(it->path().filename());
        if (name.compare(0, prefix.size(), prefix) != 0 || !IsReplaceTemporaryName(name))
            continue;
        const std::string digits = name.substr(prefix.size(), name.size() - prefix.size() - 4);
        if (digits.empty() || digits.size() > 9 || digits.find_first_not_of("0123456789") != std::string::npos)
            continue;
        if (Abandoned(std::stol(digits), it->path())) {
            std::error_code ignored;
            fs::remove(it->path(), ignored);
        }
    }
}

FileWrite ReplaceFile(const std::string &path, std::string_view bytes)
{
    FileWrite result;
    const fs::path target = Resolved(fs::u8path(path));
    const fs::path temp = TemporaryPath(target);
    RemoveStaleTemporaries(path);

    bool named = false;
    int error = WriteTemporary(target, temp, bytes, named);
    if (error == 0)
        error = InjectedError(WriteStep::Rename);
    if (error != 0) {
        result.reason = SystemText(error);
    } else {
        std::error_code ec;
        fs::rename(temp, target, ec);
        if (ec)
            result.reason = ec.message();
    }
    if (!result.reason.empty()) {
        if (named) {
            std::error_code ignored;
            fs::remove(temp, ignored);
        }
        return result;
    }
#if ZRT_POSIX_FILES
    SyncFolder(target.parent_path());
#endif
    result.ok = true;
    return result;
}

} // namespace zrt
