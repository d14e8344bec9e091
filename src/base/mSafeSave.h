// Files read whole, and files replaced only by whole new ones.
#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Durable: on the disk when the save returns. Fast: handed to the operating system only.
enum class Durability
{
    Durable,
    Fast
};

/// All bytes of a file, or nothing when it is missing, unreadable, a folder, or above 256 MiB: files
/// that are read whole are far smaller.
std::optional<std::string> ReadWhole(const std::string& Path);

/// A new file that takes the place of Path only when it is complete: it is written under a temporary name, and
/// a kill at any instant leaves the old file or the new one whole. A link stays and what it points to is replaced; the
/// permissions of the old file stay. A device or a pipe is written to as it is.
class WholeFile
{
public:
    explicit WholeFile(const std::string& Path, Durability Wanted = Durability::Durable);
    ~WholeFile();
    WholeFile(const WholeFile&) = delete;
    WholeFile& operator=(const WholeFile&) = delete;

    /// Whether everything so far has succeeded.
    bool IsOpen() const { return File >= 0 && Reason.empty(); }

    void Append(std::string_view Bytes);

    /// Puts everything appended on the disk, so that Commit has only the name left to give. False when that failed.
    bool Sync();

    /// Puts the new file in the place of the old one. False when any step failed: the old file is as it was.
    bool Commit();

    /// Why it failed, in the words of the operating system; empty when nothing has.
    const std::string& Failure() const { return Reason; }

private:
    friend bool CommitBoth(WholeFile& First, WholeFile& Second);

    void OpenBeside();
    void GiveName();
    void Fail();
    void Flush();

    std::string Target;
    std::string Temporary; // empty when Target itself is written to
    std::string Buffer;
    std::string Reason;
    Durability Wanted;
    int File = -1;
    bool IsNamed = false; // there is a file called Temporary
};

/// Writes Bytes as the whole new content of Path. False when it failed: the old file is as it was.
bool SaveWhole(const std::string& Path, std::string_view Bytes, Durability Wanted = Durability::Durable);

/// Commits two files that belong together: both are on the disk before the first takes its place, and when the second
/// cannot take its own, the old first file is put back. False when a step failed, which the Failure of one of them
/// names: both old files are as they were, unless that Failure says that the first could not be put back. A kill
/// between the two renames leaves the first new and the second old; a device or a pipe is not taken back.
bool CommitBoth(WholeFile& First, WholeFile& Second);

/// Puts the name of a new file on the disk, which lives in its folder.
void SyncName(const std::string& Path);
