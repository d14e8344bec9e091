// Saving through a temporary file beside the target, flushed to disk and renamed over it.
#include "files/mSafeSave.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace {
constexpr std::size_t BufferSize = 1 << 18;
constexpr mode_t NewFileMode = 0666; // less what the user's mask takes off

// The file that Path leads to: a link stays a link, and what it points to is replaced.
std::string Resolve(const std::string& Path)
{
    std::error_code Error;
    const auto Real = std::filesystem::canonical(Path, Error);
    return Error ? Path : Real.string();
}

std::string FolderOf(const std::string& Path)
{
    const auto Folder = std::filesystem::path(Path).parent_path().string();
    return Folder.empty() ? "." : Folder;
}
} // namespace

std::optional<std::string> ReadWhole(const std::string& Path)
{
    const int File = open(Path.c_str(), O_RDONLY | O_CLOEXEC);
    if (File < 0) return {};
    struct stat Facts = {};
    std::string Bytes;
    if (fstat(File, &Facts) == 0) Bytes.resize(static_cast<std::size_t>(Facts.st_size) + 1);
    std::size_t Held = 0;
    ssize_t Got = 0;
    while ((Got = read(File, Bytes.data() + Held, Bytes.size() - Held)) > 0) {
        Held += static_cast<std::size_t>(Got);
        if (Held == Bytes.size()) Bytes.resize(2 * Held);
    }
    close(File);
    if (Got < 0) return {};
    Bytes.resize(Held);
    return Bytes;
}

WholeFile::WholeFile(const std::string& Path, Durability How) : Target(Resolve(Path)), Wanted(How)
{
    struct stat Facts = {};
    const bool Exists = stat(Target.c_str(), &Facts) == 0;
    if (Exists && S_ISDIR(Facts.st_mode)) {
        Reason = std::generic_category().message(EISDIR);
        return;
    }
    if (Exists && access(Target.c_str(), W_OK) != 0) {
        Fail();
        return;
    }
    Temporary = Target + ".new" + std::to_string(getpid());
    File = open(Temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, NewFileMode);
    if (File < 0 && errno == EEXIST) {
        // Left by a program of the same number that was killed.
        unlink(Temporary.c_str());
        File = open(Temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, NewFileMode);
    }
    if (File < 0) {
        Fail();
        return;
    }
    if (Exists) static_cast<void>(fchmod(File, Facts.st_mode & 07777));
    Buffer.reserve(BufferSize);
}

WholeFile::~WholeFile()
{
    if (File < 0) return;
    close(File);
    unlink(Temporary.c_str());
}

void WholeFile::Fail()
{
    if (Reason.empty()) Reason = std::generic_category().message(errno);
}

void WholeFile::Flush()
{
    std::string_view Rest = Buffer;
    while (!Rest.empty() && IsOpen()) {
        const ssize_t Written = write(File, Rest.data(), Rest.size());
        if (Written < 0 && errno != EINTR) Fail();
        if (Written > 0) Rest.remove_prefix(static_cast<std::size_t>(Written));
    }
    Buffer.clear();
}

void WholeFile::Append(std::string_view Bytes)
{
    if (!IsOpen()) return;
    if (Buffer.size() + Bytes.size() > BufferSize) Flush();
    Buffer += Bytes;
}

bool WholeFile::Commit()
{
    Flush();
    if (!IsOpen()) return false;
    if (Wanted == Durability::Durable && fsync(File) != 0) Fail();
    if (close(File) != 0) Fail();
    File = -1;
    if (Reason.empty() && rename(Temporary.c_str(), Target.c_str()) != 0) Fail();
    if (!Reason.empty()) {
        unlink(Temporary.c_str());
        return false;
    }
    if (Wanted == Durability::Durable) SyncName(Target);
    return true;
}

bool SaveWhole(const std::string& Path, std::string_view Bytes, Durability Wanted)
{
    WholeFile File(Path, Wanted);
    File.Append(Bytes);
    return File.Commit();
}

void SyncName(const std::string& Path)
{
    const int Handle = open(FolderOf(Path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (Handle < 0) return;
    fsync(Handle);
    close(Handle);
}
