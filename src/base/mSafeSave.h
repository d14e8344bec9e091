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

/// All bytes of a file, or nothing when it is missing, unreadable, a folder, or above 256 MiB: no file that is held
/// whole comes near.
std::optional<std::string> ReadWhole(const std::string& Path);

/// A new file that takes the place of Path only when it is complete: it grows beside it under a name of its own, and
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

    /// Puts the new file in the place of the old one. False when any step failed: the old file is as it was.
    bool Commit();

    /// Why it failed, in the words of the operating system; empty when nothing has.
    const std::string& Failure() const { return Reason; }

private:
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

/// Puts the name of a new file on the disk, which lives in its folder.
void SyncName(const std::string& Path);
