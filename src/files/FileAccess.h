#pragma once
// Whole-file reading with a bound, and replacing a file so that no failure loses it.
//
// Reading takes ordinary files only: a folder, a device or a pipe is refused at once, without
// blocking, and never more than the bound (plus one byte, to notice a file that grew) is read.
//
// Replacing writes the new bytes to a temporary file in the target's folder, flushes them to
// the disk and renames the temporary file over the target in one step. Until that rename
// succeeds the old file is untouched; on any failure the temporary file is removed. Where the
// system offers unnamed temporary files (Linux), the bytes get a name only after they are on
// the disk, so a process killed while writing leaves nothing behind. Otherwise, and for the
// moment between naming and renaming, the temporary file is ".<name>.zrt-<pid>.tmp"; a later
// save of the same file removes such leftovers of processes that are gone. A target that is a
// symbolic link is written through the link: the file it points to is replaced, the link stays.
// The replaced file keeps its permission bits.

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace zrt {

enum class ReadStatus { Ok, Missing, NotAFile, TooLarge, Failed };

struct FileRead {
    ReadStatus status = ReadStatus::Failed;
    std::string bytes;
    std::string reason; // a plain sentence part such as "it is a folder"; empty when Ok
    bool ok() const { return status == ReadStatus::Ok; }
};

FileRead ReadWholeFile(const std::string &path, std::uint64_t limit);

struct FileWrite {
    bool ok = false;
    std::string reason; // the system's text, such as "No space left on device"
    explicit operator bool() const { return ok; }
};

FileWrite ReplaceFile(const std::string &path, std::string_view bytes);

// Temporary files of ReplaceFile for this target that no running process owns.
void RemoveStaleTemporaries(const std::string &path);
// True for a name ReplaceFile gives its temporary files.
bool IsReplaceTemporaryName(std::string_view fileName);

// Fault injection for tests: called before each step of ReplaceFile; an error number other
// than 0 makes that step fail as if the system had returned it. A fault at Unnamed only makes
// the unnamed temporary file unavailable, so the named one is used. An empty function ends it.
enum class WriteStep { Unnamed, Create, Write, Sync, Rename };
using WriteFault = std::function<int(WriteStep)>;
void SetWriteFault(WriteFault fault);

} // namespace zrt
