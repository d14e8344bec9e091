// Saving through a temporary file beside the target, flushed to disk and renamed over it.
#include "base/mSafeSave.h"

#include "base/mError.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace {
constexpr std::size_t BufferSize = 1 << 18;
constexpr std::size_t LargestWholeFile = 1 << 28;
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

// The name under which the system shows a file that this program has open.
std::string OpenFileName(int File)
{
    return "/proc/self/fd/" + std::to_string(File);
}
} // namespace

std::optional<std::string> ReadWhole(const std::string& Path)
{
    const int File = open(Path.c_str(), O_RDONLY | O_CLOEXEC);
    if (File < 0) return {};
    struct stat Facts = {};
    static_cast<void>(fstat(File, &Facts));
    const auto Size = static_cast<std::size_t>(Facts.st_size);
    std::string Bytes(Size <= LargestWholeFile ? Size + 1 : 0, '\0');
    std::size_t Held = Size <= LargestWholeFile ? 0 : Size;
    ssize_t Got = 0;
    while (Held <= LargestWholeFile && (Got = read(File, Bytes.data() + Held, Bytes.size() - Held)) > 0) {
        Held += static_cast<std::size_t>(Got);
        if (Held == Bytes.size()) Bytes.resize(2 * Held);
    }
    close(File);
    if (Got < 0 || Held > LargestWholeFile) return {};
    Bytes.resize(Held);
    return Bytes;
}

WholeFile::WholeFile(const std::string& Path, Durability How) : Target(Resolve(Path)), Wanted(How)
{
    struct stat Facts = {};
    const bool Exists = stat(Target.c_str(), &Facts) == 0;
    if (Exists && access(Target.c_str(), W_OK) != 0) {
        Fail();
        return;
    }
    // A device or a pipe has nothing to keep, and must not be replaced by a file; opening a folder fails here.
    if (Exists && !S_ISREG(Facts.st_mode))
        File = open(Target.c_str(), O_WRONLY | O_CLOEXEC);
    else
        OpenBeside();
    if (File < 0)
        Fail();
    else if (!Temporary.empty() && Exists)
        static_cast<void>(fchmod(File, Facts.st_mode & 07777));
    Buffer.reserve(BufferSize);
}

WholeFile::~WholeFile()
{
    if (File < 0) return;
    close(File);
    if (IsNamed) unlink(Temporary.c_str());
}

// A file without a name leaves nothing behind when the program is killed. Where the file system has no such files, or
// they could not be given a name later, it gets its name now.
void WholeFile::OpenBeside()
{
    static int Count = 0;
    Temporary = Target + ".new" + std::to_string(getpid()) + "-" + std::to_string(++Count);
    File = open(FolderOf(Target).c_str(), O_WRONLY | O_TMPFILE | O_CLOEXEC, NewFileMode);
    if (File >= 0 && access(OpenFileName(File).c_str(), F_OK) == 0) return;
    if (File >= 0) close(File);
    unlink(Temporary.c_str());
    File = open(Temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, NewFileMode);
    IsNamed = File >= 0;
}

void WholeFile::GiveName()
{
    unlink(Temporary.c_str());
    IsNamed = linkat(AT_FDCWD, OpenFileName(File).c_str(), AT_FDCWD, Temporary.c_str(), AT_SYMLINK_FOLLOW) == 0;
    if (!IsNamed) Fail();
}

void WholeFile::Fail()
{
    if (Reason.empty()) Reason = SystemReason(errno);
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

bool WholeFile::Sync()
{
    Flush();
    if (IsOpen() && !Temporary.empty() && fsync(File) != 0) Fail();
    return IsOpen();
}

bool WholeFile::Commit()
{
    Flush();
    if (!IsOpen() || (Wanted == Durability::Durable && !Sync())) return false;
    const bool Replaces = !Temporary.empty();
    if (Replaces && !IsNamed && IsOpen()) GiveName();
    if (close(File) != 0) Fail();
    File = -1;
    if (!Replaces) return Reason.empty();
    if (Reason.empty() && rename(Temporary.c_str(), Target.c_str()) != 0) Fail();
    if (!Reason.empty()) {
        if (IsNamed) unlink(Temporary.c_str());
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

// The old first file is written beside the new one ahead of everything, so that putting it back needs no room.
bool CommitBoth(WholeFile& First, WholeFile& Second)
{
    std::error_code Error;
    const bool Existed = std::filesystem::is_regular_file(First.Target, Error);
    const auto Bytes = Existed ? ReadWhole(First.Target) : std::nullopt;
    std::optional<WholeFile> Old;
    if (Bytes) Old.emplace(First.Target).Append(*Bytes);
    if (Existed && !(Old && Old->Sync())) {
        First.Reason = Old ? Old->Failure() : SystemReason(EIO);
        return false;
    }
    if (!First.Sync() || !Second.Sync() || !First.Commit()) return false;
    if (Second.Commit()) return true;
    if (!(Old ? Old->Commit() : unlink(First.Target.c_str()) == 0))
        Second.Reason += "; the new " + First.Target + " could not be taken back";
    SyncName(First.Target);
    return false;
}

void SyncName(const std::string& Path)
{
    const int Handle = open(FolderOf(Path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (Handle < 0) return;
    fsync(Handle);
    close(Handle);
}
